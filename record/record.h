// The record of every game: one row per game in an SQLite database,
// games.sqlite in the player's state folder. A game's row is written when it
// begins, after every move and when it ends, each time in one short
// transaction (WAL journal), so a crash loses at most the move being made and
// never damages the file. Statistics are queries over the rows, never counters
// kept beside them, so they cannot disagree with the games.
//
// The record takes plain values: the shell decides when a game begins and
// ends, and what its line of moves looks like (an opaque text here).
// Nothing throws: a failed write returns false, a failed read nothing, and
// errorText() says why, in English, for the log.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorn::record {

using GameId = std::int64_t;
using Clock = std::chrono::system_clock;

// How a game began: New game, Winnable deals only, Deal number…, Discard anew,
// Load, the deal of the day.
enum class Start { New, WinnableOnly, ByNumber, DealAgain, Loaded, Daily };
// The solver's verdict on the starting position.
enum class Verdict { NotYetKnown, Winnable, Lost, Unknown };
// How a game ended. A game in play has no result; a game given up in a
// position proven lost is Lost.
enum class Result { Won, GivenUp, Lost };

struct Beginning {
    Start start = Start::New;
    std::optional<std::uint32_t> deal;      // 1 .. 4294967295; a loaded layout has none
    std::string layout;                     // the deal's 182-character layout string
    std::optional<std::string> layoutName;  // the stored layout's name, for a loaded one
    std::optional<std::string> dailyDate;   // YYYY-MM-DD (UTC), for the deal of the day
    Verdict verdict = Verdict::NotYetKnown;
};

// Where a game stands after a move.
struct Progress {
    std::string line;  // the moves from the deal to the position on the table
    int moves = 0;
    int undos = 0;
    int hints = 0;
    int solutionMoves = 0;  // moves made by Show solution
    int backs = 0;          // uses of Back to the last winnable position
    std::int64_t playedMs = 0;
};

// A game as the record holds it.
struct Game {
    GameId id = 0;
    Beginning beginning;
    Progress progress;
    std::string started;               // UTC, as 2024-05-01T12:34:56.789Z
    std::optional<std::string> ended;  // none while in play
    std::optional<Result> result;      // none while in play
    std::optional<std::int64_t> difficulty;  // fixed-point figure of the difficulty measure
    std::optional<int> grade;                // 0 .. 4
    std::optional<int> measureVersion;
    std::optional<int> blunders;   // from the review
    std::optional<int> onlyMoves;  // from the review
};

// Played (ended) games, won games and winning streaks in order of ending; a
// game given up or lost breaks a streak.
struct Figures {
    int played = 0;
    int won = 0;
    int currentStreak = 0;
    int longestStreak = 0;
    double winRate() const { return played == 0 ? 0.0 : static_cast<double>(won) / played; }
};

struct GradeFigures {
    int grade = 0;
    int played = 0;
    int won = 0;
};

// What the statistics window shows.
struct Summary {
    Figures all;
    Figures winnable;     // games whose starting deal was proven winnable
    Figures withHelp;     // games with a hint, a Show solution move or a Back
    Figures withoutHelp;
    double averageWonMoves = 0;
    double averageWonMs = 0;
    std::vector<GradeFigures> byGrade;  // graded ended games, by grade
    std::vector<Result> recent;         // the results of the last ended games, oldest first
    bool dailyWon = false;              // today's deal of the day is won
    int dailyStreak = 0;  // consecutive UTC days with the daily deal won, ending today or yesterday
};

struct Opened;

class Record {
public:
    static constexpr const char* kFileName = "games.sqlite";
    static constexpr int kSchemaVersion = 1;

    // Opens the record in folder (made when missing), or says why there is
    // none. A damaged or foreign file is moved aside and a new record begins.
    static Opened open(const std::filesystem::path& folder);

    Record(Record&&) noexcept;
    Record& operator=(Record&&) noexcept;
    ~Record();

    // A new game in play, or nothing when it cannot be written.
    std::optional<GameId> begin(const Beginning& beginning, Clock::time_point at = Clock::now());
    // The game in play after a move (an ended game is left as it is).
    bool update(GameId id, const Progress& progress);
    // Ends a game in play. Ending a game that has ended changes nothing.
    bool end(GameId id, Result result, std::int64_t playedMs, Clock::time_point at = Clock::now());
    // A game given up becomes lost once its last position is proven lost.
    bool reclassifyLost(GameId id);
    // Figures that arrive later, for a game in play or ended.
    bool setVerdict(GameId id, Verdict verdict);
    bool setGrade(GameId id, std::int64_t difficulty, std::optional<int> grade, int measureVersion);
    bool setReview(GameId id, int blunders, int onlyMoves);
    // Forgets every game but keep (the game in play, if any).
    bool reset(std::optional<GameId> keep = std::nullopt);

    // The game begun last of those left unfinished (at Quit, log-out or a
    // crash), leaving out `besides` (the game in play).
    std::optional<Game> lastUnfinished(std::optional<GameId> besides = std::nullopt) const;
    std::optional<Game> game(GameId id) const;
    // The number of a deal the record has seen with this layout string, if any:
    // a deal stored under a name and loaded again gets its number back.
    std::optional<std::uint32_t> dealOf(std::string_view layout) const;
    std::optional<std::vector<Game>> games() const;  // every game, by id
    // today: the UTC date, YYYY-MM-DD; recent: how many results the series holds.
    std::optional<Summary> summary(std::string_view today, int recent = 100) const;

    // Every game as CSV (columns: see export.cpp and the README).
    bool exportCsv(std::ostream& out) const;
    bool exportCsv(const std::filesystem::path& file) const;

    const std::string& errorText() const { return error_; }

private:
    struct Impl;
    explicit Record(std::unique_ptr<Impl> impl);
    template <typename F>
    auto guarded(F&& f) const -> decltype(f());

    std::unique_ptr<Impl> impl_;
    mutable std::string error_;
};

struct Opened {
    enum class Problem {
        None,
        MovedAside,   // the old file was damaged or not ours: it is at movedTo; a new record began
        Newer,        // written by a newer version: left untouched, no record this run
        CannotWrite,  // the folder or the file cannot be written (read-only, full, ...): no record
    };
    std::optional<Record> record;  // nothing: play on without a record
    Problem problem = Problem::None;
    std::filesystem::path file;     // the record's file
    std::filesystem::path movedTo;  // for MovedAside
    std::string detail;             // what went wrong, in English, for the log
};

// $XDG_STATE_HOME/vorn, or ~/.local/state/vorn when XDG_STATE_HOME is unset,
// empty or relative. Nothing when neither gives an absolute folder.
std::optional<std::filesystem::path> stateFolder(std::string_view xdgStateHome, std::string_view home);
std::optional<std::filesystem::path> stateFolder();  // from the environment

// The UTC date and time the record writes: 2024-05-01T12:34:56.789Z; utcDate
// is its first ten characters, the deal of the day's date.
std::string utcStamp(Clock::time_point at);
std::string utcDate(Clock::time_point at);

}  // namespace vorn::record
