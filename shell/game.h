// The game beneath the window: the board, the undo history, the layout store's
// files and what the solver has found about the positions of the deal in play.
// It shows nothing. The window and its rooms give it the player's commands and
// redraw, speak and show boxes when its signals say what changed.
//
// Every click, from the mouse, a drag, the keys or the solver's show, goes
// through click(): the board answers, a click that moved cards becomes a move
// that can be taken back, and the signals follow in the order the window needs
// them: the history, the picture, the cells that moved, then the message and
// the end of the game, so a box appears over the position as it now stands.
//
// After every change of the position (a move, Undo, Redo, a deal, a loaded
// layout) the solver decides the position on the table on a thread of its own.
// The window never waits for it: the verdict arrives later and is kept with its
// position, so going back and forth asks nothing twice. An answer about a
// position no longer on the table is kept for the history but never shown.
#pragma once

#include <QObject>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "board/board.h"
#include "board/history.h"
#include "board/random.h"
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

class Game final : public QObject {
    Q_OBJECT
public:
    // `folder` holds the layout store's files; `random` draws New game's deals.
    Game(std::filesystem::path folder, Random& random, QObject* parent = nullptr);
    ~Game() override;

    // ---- questions ------------------------------------------------------------
    const Board& board() const { return board_; }
    const History& history() const { return history_; }
    Random& random() { return random_; }
    bool dealt() const { return board_.dealt(); }
    bool selected() const { return board_.hasSelection(); }
    // The selected card, while one is.
    std::optional<Card> selectedCard() const;
    // Was `card` picked up by the player (selected and framed)?
    bool isSelected(Card card) const { return board_.isSelected(card); }

    // ---- the player's commands ------------------------------------------------
    void click(const Hit& hit);
    // New game's deal with these numbers; its layout goes to save1.txt.
    void deal(Random& numbers);
    void dealAgain();
    // Lays out the line the load dialog handed over in load.txt; a line that
    // cannot be laid out changes nothing and says why.
    LayoutProblem loadHandOver();
    void undo();
    void redo();
    // Undoes moves until the position on the table is one the solver proved
    // winnable; the moves undone can be redone. Nothing happens unless
    // canGoBackToWinnable().
    void backToWinnable();

    // The Messages switch: whether the refusals of clicks are reported.
    void setMessagesShown(bool shown) { messagesShown_ = shown; }

    // ---- the layout store -----------------------------------------------------
    bool openStore() { return store_.openAtStartup(); }
    bool save(const std::string& nameUtf8) { return store_.appendRecord(board_.raskl, nameUtf8); }
    void closeStore() { store_.shutdown(); }
    const std::string& storeError() const { return store_.errorText(); }

    // ---- the solver's verdicts ------------------------------------------------
    Judgement judgement() const;
    // The winning line from the position on the table when it is winnable: the
    // click that first takes the selection back, if a card is selected, then the
    // moves.
    std::optional<Verdict> winningLine() const;
    // The move (0 for the first of the deal) that took a winnable position to
    // a lost one, while the position on the table is lost and that is known.
    std::optional<size_t> losingMove() const;
    bool canGoBackToWinnable() const;
    // How long the solver may think about one position.
    Limits limits{2'000'000, std::chrono::seconds(3)};

signals:
    void historyChanged();                  // what can be undone or redone
    void changed();                         // the board changed in any way: redraw it
    void moved(const vorn::Board& before);  // cards moved by a move, Undo or Redo
    void restarted();                       // a new deal, the deal again, a loaded layout
    void message(vorn::Message message);    // a message the window shows
    void won();                             // the end of the game: the about window
    void judged();                          // a verdict arrived, or the position changed

private:
    struct Key {
        Snapshot snapshot;
        friend bool operator==(const Key&, const Key&) = default;
    };
    struct KeyHash {
        size_t operator()(const Key& key) const;
    };
    void react(const Reaction& reaction);
    void newPosition();  // after every change of the position: ask the solver
    void forget();       // a new deal or layout: no moves, no verdicts
    const Verdict* verdictOf(const Snapshot& position) const;

    Random& random_;
    store::LayoutStore store_;
    Board board_ = Board::loaded();
    History history_;
    bool messagesShown_ = false;
    std::unordered_map<Key, std::optional<Verdict>, KeyHash> verdicts_;  // nullopt: asked
    uint64_t generation_ = 0;  // answers from before the latest forget() are dropped
    // Last, so it goes first: no answer arrives once the game is being taken down.
    std::unique_ptr<SolverWorker> worker_;
};

}  // namespace vorn::shell
