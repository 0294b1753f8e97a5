// The game beneath the window: the board, the undo history, the layout store's
// files and what the solver has found about the positions of the deal in play.
// It shows nothing. The window and its rooms give it the player's commands and
// redraw, speak and show boxes when its signals say what changed.
//
// It is the one door: every command of the player reaches the game here, from
// the menu, a click, a drag, the keys or the solver's show: New game (and its
// search for a winnable deal), a deal by number, Deal again, a loaded layout,
// moves, Undo, Redo and Back. So a game begins and ends in one place.
//
// Every click goes through click(): the board answers, a click that moved cards
// becomes a move that can be taken back, and the signals follow in the order
// the window needs them: the history, the picture, the cells that moved, then
// the message and the end of the game, so a box appears over the position as
// it now stands.
//
// Every game is kept in the game record: it begins with a deal (New game, a
// deal by number, Deal again, a loaded layout) and ends when another begins
// (given up, or lost when its last position is proven lost) or when the four
// kings are home (won, counted once however it is undone and replayed). The
// game in play is written after every move, so Continue the last game finds
// it after Quit, a log-out or a crash.
//
// After every change of the position (a move, Undo, Redo, a deal, a loaded
// layout) the solver decides the position on the table on a thread of its own.
// The window never waits for it: the verdict arrives later, travels with the
// judged() signal and is kept with its position, so going back and forth asks
// nothing twice. An answer about a position no longer on the table is kept for
// the history but never shown.
#pragma once

#include <QObject>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "board/board.h"
#include "board/deal_number.h"
#include "board/history.h"
#include "board/move.h"
#include "record/record.h"
#include "shell/game_record.h"
#include "solver/daily_deal.h"
#include "solver/difficulty.h"
#include "solver/knowledge.h"
#include "solver/solver.h"
#include "store/layout_store.h"

namespace vorn::shell {

class SolverWorker;

// What the solver says about a position.
enum class Judgement : uint8_t {
    None,      // nothing dealt yet
    Thinking,  // asked, no answer yet
    Winnable,
    Lost,
    Unknown,   // past the solver's limits
};

// The solver's word on the position on the table, as the window shows it.
struct Judged {
    Judgement judgement = Judgement::None;
    // While the position is lost and that is known: the move (0 for the
    // deal's first) that took the last winnable position to a lost one.
    std::optional<size_t> losingMove;
    bool canGoBack = false;  // Back to the last winnable position can be used
    uint64_t deal = 0;       // which deal of the run: each new deal is news
    // How hard the deal in play is, once graded: a grade, or lost from the start.
    std::optional<Grade> grade;
    bool lostDeal = false;
    friend bool operator==(const Judged&, const Judged&) = default;
};

// How a game began.
enum class Beginning : uint8_t { New, Winnable, Numbered, Again, Loaded, Daily };

// Who made a move: the player (clicks, a drag, the keys) or Show solution.
enum class By : uint8_t { Player, Solution };

// The solver's two questions and their answers.
enum class Question : uint8_t { Hint, Solution };
struct Answer {
    enum class Kind : uint8_t { Line, Lost, Unknown, AlreadyWon };
    Kind kind = Kind::Unknown;
    Verdict line;  // Line: the winning line from the position on the table
};

class Game final : public QObject {
    Q_OBJECT
public:
    // `folder` holds the layout store's files; `deals` gives New game its deals.
    Game(std::filesystem::path folder, DealSource& deals, QObject* parent = nullptr);
    ~Game() override;

    // ---- questions ------------------------------------------------------------
    const Board& board() const { return board_; }
    const History& history() const { return history_; }
    bool dealt() const { return board_.dealt(); }
    bool selected() const { return board_.hasSelection(); }
    // The selected card, while one is.
    std::optional<Card> selectedCard() const;
    // Was `card` picked up by the player (selected and framed)?
    bool isSelected(Card card) const { return board_.isSelected(card); }
    // The number of the deal in play; a loaded layout has none.
    std::optional<DealNumber> dealNumber() const { return number_; }
    Beginning beginning() const { return beginning_; }
    // New game is looking for a winnable deal.
    bool searching() const { return searching_; }
    // The solver is at work on something the player waits for: a question or
    // the search for a winnable deal.
    bool busy() const { return searching_ || pending_.has_value(); }
    // Layouts tried by the latest search for a winnable deal.
    int attempts() const { return attempts_; }

    // ---- the player's commands ------------------------------------------------
    // New game: a deal of a fresh number. With winnable deals only, the search
    // for a deal proven winnable starts, and the deal is made when it is found.
    void newGame();
    // New game with the deal of a chosen number.
    void dealNumbered(DealNumber number);
    // New game with the deal of the day of `date`, found off the user-interface
    // thread (the game is busy meanwhile).
    void dealDaily(Date date);
    void dealAgain();
    // Lays out the line the load dialog handed over in load.txt; a line that
    // cannot be laid out changes nothing and says why.
    LayoutProblem loadHandOver();
    void click(const Hit& hit);
    // A move handed over whole (a drag, Show solution): the clicks a player
    // would make: another selected card is taken back, the card picked up
    // unless it is already, then the target clicked, with every check and
    // message a click has. True when the cards moved.
    bool play(const Move& move, By by = By::Player);
    void undo();
    void redo();
    // Undoes moves until the position on the table is one the solver proved
    // winnable; the moves undone can be redone. Nothing happens unless the
    // judged() value says it can go back.
    void backToWinnable();
    // Asks the solver a question about the position on the table; the answer
    // comes with answered(), once the verdict is there, unless the cards move
    // first or stopAsking() is called.
    void ask(Question question);
    void stopAsking();
    void stopSearch();
    // Puts the position after the first `moves` moves of the line from the
    // deal (those done and those to redo) on the table, as Undo and Redo would:
    // the moves after it stay to be redone. Nothing when there are not so many.
    void goToMove(size_t moves);
    // Continue the last game: the game left unfinished in the record (at Quit,
    // a log-out or a crash) laid out as it began and its moves played again,
    // so Undo works as before. False when there is none or it cannot be laid out.
    bool continueLast();
    // Quit: the game in play stays unfinished in the record, its time kept.
    void leave();

    // The Messages switch: whether the refusals of clicks are reported.
    void setMessagesShown(bool shown) { messagesShown_ = shown; }
    // Winnable deals only, of any grade or of one.
    void setWinnableOnly(bool on) { winnableOnly_ = on; }
    void setWinnableGrade(std::optional<Grade> grade) { wantedGrade_ = grade; }

    // ---- the layout store -----------------------------------------------------
    bool openStore() { return store_.openAtStartup(); }
    bool save(const std::string& nameUtf8) { return store_.appendRecord(board_.raskl, nameUtf8); }
    void closeStore() { store_.shutdown(); }
    const std::string& storeError() const { return store_.errorText(); }

    // ---- the game record ------------------------------------------------------
    // The record is in `folder`; openRecord() starts opening it (its first
    // use opens it if that comes first), and recordChanged() follows.
    void placeRecord(std::filesystem::path folder) { record_.place(std::move(folder)); }
    void openRecord();
    // The record, once opened; nothing without one.
    record::Record* record() { return record_.get(); }
    // What the player must be told about the record, once.
    std::optional<GameRecord::Problem> recordProblem() { return record_.takeProblem(); }
    // Whether an unfinished game other than the one in play can be continued.
    bool canContinue();
    std::optional<record::GameId> gameInPlay() const;

    // ---- the solver's verdicts ------------------------------------------------
    Judgement judgement() const { return judged_.judgement; }
    const Judged& judged() const { return judged_; }
    // The winning line from the position on the table when it is winnable: the
    // click that first takes the selection back, if a card is selected, then the
    // moves.
    std::optional<Verdict> winningLine() const;
    // What the solver knows of the positions of the deal in play, shared
    // with the worker threads (the grading and the review ask it too).
    const std::shared_ptr<Knowledge>& knowledge() const { return knowledge_; }
    // How hard the deal in play is, once graded.
    const std::optional<Difficulty>& difficulty() const { return difficulty_; }
    // How long the solver may think about one position.
    Limits limits{2'000'000, std::chrono::seconds(3)};
    // How far the grading of a deal may search.
    GradingLimits grading{};
    // Positions whose verdicts the game keeps (some 6 MB).
    static constexpr size_t kKnownPositions = size_t{1} << 16;
    // How long it may think about each layout New game tries for a winnable deal.
    Limits searchLimits{};
    static constexpr int kMaxAttempts = 50;
    // With a grade wanted: layouts tried before any winnable one is taken.
    static constexpr int kMaxGradedAttempts = 500;

signals:
    void historyChanged();                  // what can be undone or redone
    void changed();                         // the board changed in any way: redraw it
    void moved(const vorn::Board& before);  // cards moved by a move, Undo or Redo
    void restarted();                       // a new deal, the deal again, a loaded layout
    void message(vorn::Message message);    // a message the window shows
    void won();                             // the end of the game: the about window
    void judgedChanged(const vorn::shell::Judged& judged);  // the solver's word changed
    void busyChanged();                     // busy() may have changed
    void answered(vorn::shell::Question question, const vorn::shell::Answer& answer);
    void recordChanged();  // a game began, ended or was continued: the record's items follow
    void recordTrouble();  // the record could not be written: recordProblem() says why

private:
    struct Key {
        Snapshot snapshot;
        friend bool operator==(const Key&, const Key&) = default;
    };
    struct KeyHash {
        size_t operator()(const Key& key) const;
    };
    void deal(DealNumber number, Beginning how, const Verdict* known = nullptr,
              const std::optional<Difficulty>& graded = std::nullopt);
    void grade(const std::optional<Difficulty>& graded);  // a layout new to the table
    void react(const Reaction& reaction);
    void newPosition();  // after every change of the position: ask the solver
    void forget();       // a new deal or layout: no moves, no verdicts
    void rejudge();      // works out the solver's word and signals a change
    Judged judgeNow() const;
    Judgement judgementOf(const Snapshot& position) const;
    const Verdict* verdictOf(const Snapshot& position) const;
    void tryCandidate();
    struct Candidate {
        Verdict verdict;
        std::optional<Difficulty> difficulty;  // graded when a grade is wanted and it is winnable
    };
    void candidateJudged(uint64_t search, const Candidate& candidate);
    void recordGrade();
    void answer();  // the pending question, once its verdict is there

    // The game in play, as the record keeps it.
    struct InPlay {
        record::GameId id = 0;
        Snapshot start{};  // the deal's starting position, whose verdict the record keeps
        record::Progress progress;
        int64_t playedBefore = 0;                     // ms played before `since` (Continue)
        std::chrono::steady_clock::time_point since;  // played time is counted from here
        bool ended = false;                           // won: nothing more is written
    };
    void beginRecorded(const Verdict* known);  // after a deal: a new game in play
    void writeLine();                          // the game in play's moves and counts
    void endRecorded();                        // before a deal: the game in play ends
    // Counts one more of a game's moves, undos, hints... and writes the game.
    void tally(int record::Progress::*counter, int more = 1);
    void judgedRecorded(const Snapshot& position, const Verdict& verdict);
    int64_t playedMs() const;
    By by_ = By::Player;  // who makes the click under way
    bool recorded(bool written);  // a failed write: no more records this run
    DealSource& deals_;
    store::LayoutStore store_;
    Board board_ = Board::loaded();
    History history_;
    std::optional<DealNumber> number_;
    Beginning beginning_ = Beginning::New;
    std::string dailyDate_;  // YYYY-MM-DD of the deal of the day in play
    bool messagesShown_ = false;
    bool winnableOnly_ = false;
    std::optional<Grade> wantedGrade_;

    std::shared_ptr<Knowledge> knowledge_;
    std::optional<Difficulty> difficulty_;
    uint64_t layouts_ = 0;  // layouts laid out so far: a grading of an earlier one is dropped
    std::unordered_map<Key, std::optional<Verdict>, KeyHash> verdicts_;  // nullopt: asked
    uint64_t generation_ = 0;  // answers from before the latest forget() are dropped
    uint64_t dealCount_ = 0;   // deals of the run so far
    Judged judged_;

    bool searching_ = false;
    uint64_t search_ = 0;  // answers about the layouts of an earlier search are dropped
    int attempts_ = 0;
    DealNumber candidate_ = 0;
    std::optional<DealNumber> lastWinnable_;  // the last winnable layout a graded search tried

    GameRecord record_;
    std::optional<InPlay> inPlay_;

    std::optional<Question> pending_;  // asked, the verdict still to come
    Snapshot asked_{};                 // the position it was asked about

    // Last, so it goes first: no answer arrives once the game is being taken down.
    std::unique_ptr<SolverWorker> worker_;
};

}  // namespace vorn::shell
