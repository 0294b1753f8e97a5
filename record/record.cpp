#include "record/record.h"

#include <cstdio>
#include <ctime>

#include "record/impl.h"

namespace vorn::record {
namespace {

#define VORN_GAME_COLUMNS                                                                                      \
    "SELECT g.id, g.beginning, g.deal, g.layout, g.layout_name, g.daily_date, g.start_verdict, l.line,"      \
    " g.moves, g.undos, g.hints, g.solution_moves, g.backs, g.played_ms, g.started, g.ended, g.result,"       \
    " g.difficulty, g.grade, g.measure_version, g.blunders, g.only_moves"                                     \
    " FROM games g LEFT JOIN lines l ON l.game = g.id"

std::optional<int> optionalInt(const sql::Statement& row, int column) {
    if (row.isNull(column)) return std::nullopt;
    return static_cast<int>(row.integer(column));
}

// A row of VORN_GAME_COLUMNS.
Game readGame(const sql::Statement& row) {
    Game g;
    g.id = row.integer(0);
    Beginning& b = g.beginning;
    b.start = fromWord(kStartWords, row.text(1), Start::New);
    if (const auto deal = row.optionalInteger(2)) b.deal = static_cast<std::uint32_t>(*deal);
    b.layout = row.text(3);
    b.layoutName = row.optionalText(4);
    b.dailyDate = row.optionalText(5);
    b.verdict = fromWord(kVerdictWords, row.text(6), Verdict::Unknown);
    Progress& p = g.progress;
    p.line = row.text(7);
    p.moves = static_cast<int>(row.integer(8));
    p.undos = static_cast<int>(row.integer(9));
    p.hints = static_cast<int>(row.integer(10));
    p.solutionMoves = static_cast<int>(row.integer(11));
    p.backs = static_cast<int>(row.integer(12));
    p.playedMs = row.integer(13);
    g.started = row.text(14);
    g.ended = row.optionalText(15);
    if (!row.isNull(16)) g.result = fromWord(kResultWords, row.text(16), Result::GivenUp);
    g.difficulty = row.optionalInteger(17);
    g.grade = optionalInt(row, 18);
    g.measureVersion = optionalInt(row, 19);
    g.blunders = optionalInt(row, 20);
    g.onlyMoves = optionalInt(row, 21);
    return g;
}

std::optional<std::string_view> verdictWord(Verdict v) {
    if (v == Verdict::NotYetKnown) return std::nullopt;
    return word(kVerdictWords, v);
}

}  // namespace

Record::Impl::Impl(sql::Database database)
    : db(std::move(database)),
      insertGame(db, "INSERT INTO games (started, deal, layout, layout_name, beginning, daily_date, start_verdict)"
                     " VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7)"),
      insertLine(db, "INSERT INTO lines (game, line) VALUES (?1, '')"),
      updateGame(db, "UPDATE games SET moves = ?2, undos = ?3, hints = ?4, solution_moves = ?5, backs = ?6,"
                     " played_ms = ?7 WHERE id = ?1 AND result IS NULL"),
      updateLine(db, "UPDATE lines SET line = ?2 WHERE game = ?1"),
      endGame(db, "UPDATE games SET result = ?2, played_ms = ?3, ended = ?4 WHERE id = ?1 AND result IS NULL"),
      reclassifyLost(db, "UPDATE games SET result = 'lost' WHERE id = ?1 AND result = 'given-up'"),
      setVerdict(db, "UPDATE games SET start_verdict = ?2 WHERE id = ?1"),
      setGrade(db, "UPDATE games SET difficulty = ?2, grade = ?3, measure_version = ?4 WHERE id = ?1"),
      setReview(db, "UPDATE games SET blunders = ?2, only_moves = ?3 WHERE id = ?1"),
      deleteGames(db, "DELETE FROM games WHERE ?1 IS NULL OR id <> ?1"),
      deleteLines(db, "DELETE FROM lines WHERE ?1 IS NULL OR game <> ?1"),
      lastUnfinished(db, "SELECT max(id) FROM games WHERE result IS NULL AND id IS NOT ?1"),
      oneGame(db, VORN_GAME_COLUMNS " WHERE g.id = ?1"),
      allGames(db, VORN_GAME_COLUMNS " ORDER BY g.id"),
      dealOfLayout(db, "SELECT deal FROM games WHERE layout = ?1 AND deal IS NOT NULL ORDER BY id DESC LIMIT 1"),
      endedInOrder(db, "SELECT result, hints + solution_moves + backs > 0, start_verdict = 'winnable', grade, moves,"
                       " played_ms FROM games WHERE result IS NOT NULL ORDER BY ended, id"),
      dailyWon(db, "SELECT EXISTS (SELECT 1 FROM games WHERE beginning = 'daily' AND daily_date = ?1 AND result = 'won')"),
      dailyStreak(db, kDailyStreakSql),
      exportAll(db, kExportSql) {}

Record::Record(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
Record::Record(Record&&) noexcept = default;
Record& Record::operator=(Record&&) noexcept = default;
Record::~Record() = default;

std::optional<GameId> Record::begin(const Beginning& b, Clock::time_point at) {
    return guarded([&]() -> std::optional<GameId> {
        sql::Transaction t(impl_->db);
        impl_->insertGame.run(utcStamp(at), b.deal, b.layout, b.layoutName, word(kStartWords, b.start), b.dailyDate,
                              verdictWord(b.verdict));
        const GameId id = impl_->db.lastId();
        impl_->insertLine.run(id);
        t.commit();
        return id;
    });
}

bool Record::update(GameId id, const Progress& p) {
    return guarded([&] {
        sql::Transaction t(impl_->db);
        if (impl_->updateGame.run(id, p.moves, p.undos, p.hints, p.solutionMoves, p.backs, p.playedMs) == 1)
            impl_->updateLine.run(id, p.line);
        t.commit();
        return true;
    });
}

bool Record::end(GameId id, Result result, std::int64_t playedMs, Clock::time_point at) {
    return guarded([&] {
        impl_->endGame.run(id, word(kResultWords, result), playedMs, utcStamp(at));
        return true;
    });
}

bool Record::reclassifyLost(GameId id) {
    return guarded([&] {
        impl_->reclassifyLost.run(id);
        return true;
    });
}

bool Record::setVerdict(GameId id, Verdict verdict) {
    return guarded([&] {
        impl_->setVerdict.run(id, verdictWord(verdict));
        return true;
    });
}

bool Record::setGrade(GameId id, std::int64_t difficulty, std::optional<int> grade, int measureVersion) {
    return guarded([&] {
        impl_->setGrade.run(id, difficulty, grade, measureVersion);
        return true;
    });
}

bool Record::setReview(GameId id, int blunders, int onlyMoves) {
    return guarded([&] {
        impl_->setReview.run(id, blunders, onlyMoves);
        return true;
    });
}

bool Record::reset(std::optional<GameId> keep) {
    return guarded([&] {
        sql::Transaction t(impl_->db);
        impl_->deleteLines.run(keep);
        impl_->deleteGames.run(keep);
        t.commit();
        return true;
    });
}

std::optional<Game> Record::game(GameId id) const {
    return guarded([&]() -> std::optional<Game> {
        auto rows = impl_->oneGame.query(id);
        if (!rows.next()) return std::nullopt;
        return readGame(*rows);
    });
}

std::optional<std::uint32_t> Record::dealOf(std::string_view layout) const {
    const auto deal = guarded([&]() -> std::optional<std::int64_t> {
        auto rows = impl_->dealOfLayout.query(std::string(layout));
        return rows.next() ? rows->optionalInteger(0) : std::nullopt;
    });
    if (!deal) return std::nullopt;
    return static_cast<std::uint32_t>(*deal);
}

std::optional<Game> Record::lastUnfinished(std::optional<GameId> besides) const {
    const auto id = guarded([&]() -> std::optional<GameId> {
        auto rows = impl_->lastUnfinished.query(besides);
        rows.next();
        return rows->optionalInteger(0);
    });
    return id ? game(*id) : std::nullopt;
}

std::optional<std::vector<Game>> Record::games() const {
    return guarded([&]() -> std::optional<std::vector<Game>> {
        std::vector<Game> all;
        for (auto rows = impl_->allGames.query(); rows.next();) all.push_back(readGame(*rows));
        return all;
    });
}

std::string utcStamp(Clock::time_point at) {
    const auto ms = std::chrono::floor<std::chrono::milliseconds>(at.time_since_epoch()).count();
    const std::time_t seconds = static_cast<std::time_t>(ms >= 0 ? ms / 1000 : (ms - 999) / 1000);
    std::tm tm{};
    ::gmtime_r(&seconds, &tm);
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d.%03dZ", tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday,
                  tm.tm_hour, tm.tm_min, tm.tm_sec, static_cast<int>(ms - std::int64_t{seconds} * 1000));
    return text;
}

std::string utcDate(Clock::time_point at) { return utcStamp(at).substr(0, 10); }

}  // namespace vorn::record
