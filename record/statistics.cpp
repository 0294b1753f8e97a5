// The statistics window's figures, read from the ended games in the order
// they ended (one pass over them) and from the deals of the day.
#include <algorithm>
#include <map>

#include "record/impl.h"

namespace vorn::record {
namespace {

void count(Figures& f, bool won) {
    ++f.played;
    if (won) {
        ++f.won;
        f.longestStreak = std::max(f.longestStreak, ++f.currentStreak);
    } else {
        f.currentStreak = 0;
    }
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
        std::map<int, GradeFigures> grades;
        double wonMoves = 0, wonMs = 0;
        for (auto rows = r.endedInOrder.query(); rows.next();) {
            const Result result = fromWord(kResultWords, rows->text(0), Result::GivenUp);
            const bool won = result == Result::Won;
            count(s.all, won);
            if (rows->integer(2) != 0) count(s.winnable, won);
            count(rows->integer(1) != 0 ? s.withHelp : s.withoutHelp, won);
            if (won) {
                wonMoves += static_cast<double>(rows->integer(4));
                wonMs += static_cast<double>(rows->integer(5));
            }
            if (!rows->isNull(3)) {
                GradeFigures& g = grades[static_cast<int>(rows->integer(3))];
                ++g.played;
                g.won += won;
            }
            s.recent.push_back(result);
        }
        if (s.all.won > 0) {
            s.averageWonMoves = wonMoves / s.all.won;
            s.averageWonMs = wonMs / s.all.won;
        }
        for (auto& [grade, figures] : grades) {
            figures.grade = grade;
            s.byGrade.push_back(figures);
        }
        if (s.recent.size() > static_cast<std::size_t>(std::max(recent, 0)))
            s.recent.erase(s.recent.begin(), s.recent.end() - std::max(recent, 0));
        s.dailyWon = single(r.dailyWon, today) != 0;
        s.dailyStreak = static_cast<int>(single(r.dailyStreak, today));
        reading.commit();
        return s;
    });
}

}  // namespace vorn::record
