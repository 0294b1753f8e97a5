// Inside the record: the schema, and the connection with its statements,
// each prepared once when the record opens.
#pragma once

#include <array>
#include <string_view>

#include "record/record.h"
#include "record/sqlite.h"

namespace vorn::record {

// Schema version 1. One row per game in games; its line of moves, which grows
// with every move, in lines, so that the statistics never read it. Values are
// words ("won", "given-up", ...), so a later version adds words and columns,
// never changes what one means. Times are UTC text, 2024-05-01T12:34:56.789Z.
inline constexpr const char* kSchema = R"(
CREATE TABLE IF NOT EXISTS games (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    started TEXT NOT NULL,
    ended TEXT,
    played_ms INTEGER NOT NULL DEFAULT 0,
    deal INTEGER,
    layout TEXT NOT NULL,
    layout_name TEXT,
    beginning TEXT NOT NULL,
    daily_date TEXT,
    start_verdict TEXT,
    difficulty INTEGER,
    grade INTEGER,
    measure_version INTEGER,
    moves INTEGER NOT NULL DEFAULT 0,
    undos INTEGER NOT NULL DEFAULT 0,
    hints INTEGER NOT NULL DEFAULT 0,
    solution_moves INTEGER NOT NULL DEFAULT 0,
    backs INTEGER NOT NULL DEFAULT 0,
    result TEXT,
    blunders INTEGER,
    only_moves INTEGER
);
CREATE TABLE IF NOT EXISTS lines (game INTEGER PRIMARY KEY, line TEXT NOT NULL);
CREATE INDEX IF NOT EXISTS unfinished ON games(id) WHERE result IS NULL;
PRAGMA application_id = 1450144366;
PRAGMA user_version = 1;
)";
inline constexpr std::int64_t kApplicationId = 1450144366;  // "Vorn" in ASCII

// The run of consecutive days up to ?1 (YYYY-MM-DD) whose deal of the day was
// won, counted when its last day is ?1 or the day before. Along consecutive
// days, newest first, the day plus its place stays the same.
inline constexpr const char* kDailyStreakSql = R"(
WITH days AS (
    SELECT DISTINCT CAST(julianday(daily_date) AS INTEGER) AS day FROM games
    WHERE beginning = 'daily' AND result = 'won' AND daily_date <= ?1),
numbered AS (SELECT day, day + row_number() OVER (ORDER BY day DESC) AS run FROM days)
SELECT count(*) FROM numbered
WHERE run = (SELECT max(run) FROM numbered)
  AND (SELECT max(day) FROM days) >= CAST(julianday(?1) AS INTEGER) - 1
)";

// The export's columns, in order; their names are the CSV's header.
inline constexpr const char* kExportSql = R"(
SELECT g.id, g.started, g.ended, g.played_ms, g.deal, g.layout, g.layout_name, g.beginning, g.daily_date,
       g.start_verdict, g.difficulty, g.grade, g.measure_version, g.moves, g.undos, g.hints,
       g.solution_moves, g.backs, g.result, g.blunders, g.only_moves, l.line
FROM games g LEFT JOIN lines l ON l.game = g.id ORDER BY g.id
)";

// The words stored for the enums, in the enums' order.
inline constexpr std::array<std::string_view, 6> kStartWords = {"new", "winnable-only", "number", "again", "loaded", "daily"};
inline constexpr std::array<std::string_view, 4> kVerdictWords = {"", "winnable", "lost", "unknown"};
inline constexpr std::array<std::string_view, 3> kResultWords = {"won", "given-up", "lost"};

template <typename E, std::size_t N>
std::string_view word(const std::array<std::string_view, N>& words, E value) {
    return words[static_cast<std::size_t>(value)];
}
// A word this version does not know (a later version's) reads as fallback.
template <typename E, std::size_t N>
E fromWord(const std::array<std::string_view, N>& words, std::string_view text, E fallback) {
    for (std::size_t i = 0; i < N; ++i)
        if (words[i] == text) return static_cast<E>(i);
    return fallback;
}

struct Record::Impl {
    explicit Impl(sql::Database database);

    sql::Database db;
    sql::Statement insertGame, insertLine, updateGame, updateLine, endGame, reclassifyLost;
    sql::Statement setVerdict, setGrade, setReview, deleteGames, deleteLines;
    sql::Statement lastUnfinished, oneGame, allGames, dealOfLayout;
    sql::Statement endedInOrder, dailyWon, dailyStreak;
    sql::Statement exportAll;
};

// Runs f; an exception becomes errorText() and an empty answer (false, nothing).
template <typename F>
auto Record::guarded(F&& f) const -> decltype(f()) {
    error_.clear();
    try {
        return f();
    } catch (const std::exception& e) {
        error_ = e.what();
        return {};
    }
}

}  // namespace vorn::record
