// The statistics window's figures, each one query over the games.
#include <algorithm>

#include "record/impl.h"

namespace vorn::record {
namespace {

enum class Which { All, WinnableAtStart, WithHelp, WithoutHelp };

Figures figures(sql::Statement& q, Which which) {
    auto rows = q.query(static_cast<int>(which));
    rows.next();
    return {static_cast<int>(rows->integer(0)), static_cast<int>(rows->integer(1)), static_cast<int>(rows->integer(2)),
            static_cast<int>(rows->integer(3))};
}

std::int64_t single(sql::Statement& q, std::string_view parameter) {
    auto rows = q.query(parameter);
    rows.next();
    return rows->integer(0);
}

}  // namespace

std::optional<Summary> Record::summary(std::string_view today, int recent) const {
    return guarded([&]() -> std::optional<Summary> {
        Impl& r = *impl_;
        Summary s;
        sql::Transaction reading(r.db, "BEGIN");  // one state of the file, even while the other copy writes
        s.all = figures(r.figures, Which::All);
        s.winnable = figures(r.figures, Which::WinnableAtStart);
        s.withHelp = figures(r.figures, Which::WithHelp);
        s.withoutHelp = figures(r.figures, Which::WithoutHelp);
        {
            auto rows = r.wonAverages.query();
            rows.next();
            s.averageWonMoves = rows->real(0);
            s.averageWonMs = rows->real(1);
        }
        for (auto rows = r.byGrade.query(); rows.next();)
            s.byGrade.push_back({static_cast<int>(rows->integer(0)), static_cast<int>(rows->integer(1)),
                                 static_cast<int>(rows->integer(2))});
        for (auto rows = r.recent.query(recent); rows.next();)
            s.recent.push_back(fromWord(kResultWords, rows->text(0), Result::GivenUp));
        std::reverse(s.recent.begin(), s.recent.end());
        s.dailyWon = single(r.dailyWon, today) != 0;
        s.dailyStreak = static_cast<int>(single(r.dailyStreak, today));
        reading.commit();
        return s;
    });
}

}  // namespace vorn::record
