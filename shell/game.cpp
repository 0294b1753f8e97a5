// The play loop and the verdicts kept with the positions of the deal.
#include "game.h"

#include <iostream>

#include "solver_worker.h"

namespace vorn::shell {

Game::Game(std::filesystem::path folder, Random& random, QObject* parent)
    : QObject(parent),
      random_(random),
      store_(std::move(folder)),
      worker_(std::make_unique<SolverWorker>()) {
    setObjectName(QStringLiteral("game"));
}

Game::~Game() = default;

std::optional<Card> Game::selectedCard() const {
    if (!selected()) return std::nullopt;
    return board_.karta1;
}

// ---- play ------------------------------------------------------------------------

void Game::click(const Hit& hit) {
    const Board before = board_;
    const Reaction reaction = history_.click(board_, hit);
    if (reaction.moved) emit historyChanged();
    emit changed();
    if (reaction.moved) {
        emit moved(before);
        newPosition();
    }
    react(reaction);
}

// The wrong-move and cannot-select messages only while Messages is on; the
// request for a New game always.
void Game::react(const Reaction& reaction) {
    if (reaction.message != Message::None && (!reaction.gated() || messagesShown_)) emit message(reaction.message);
    if (reaction.won) emit won();
}

void Game::deal(Random& numbers) {
    board_.rasklad(numbers);
    forget();
    // A folder that cannot be written costs the current deal's file, not the game.
    if (!store_.rewriteCurrentDeal(board_.raskl)) std::cerr << "vorn: " << store_.errorText() << '\n';
    emit changed();
    newPosition();
}

void Game::dealAgain() {
    board_.rasklzan();
    forget();
    emit changed();
    newPosition();
}

LayoutProblem Game::loadHandOver() {
    const Board before = board_;
    const LayoutProblem problem = board_.showLayout(store_.readHandOver());
    if (!(board_ == before)) {
        forget();
        emit changed();
        newPosition();
    }
    return problem;
}

void Game::undo() {
    const Board before = board_;
    if (!history_.undo(board_)) return;
    emit historyChanged();
    emit changed();
    emit moved(before);
    newPosition();
}

// The two clicks again, answered as any click is.
void Game::redo() {
    const Board before = board_;
    const History::Redone redone = history_.redo(board_);
    if (!redone.redone) return;
    emit historyChanged();
    emit changed();
    emit moved(before);
    newPosition();
    react(redone.reaction);
}

void Game::backToWinnable() {
    if (!canGoBackToWinnable()) return;
    const Board before = board_;
    while (judgement() != Judgement::Winnable && history_.undo(board_)) {
    }
    emit historyChanged();
    emit changed();
    emit moved(before);
    newPosition();
}

void Game::forget() {
    history_.clear();
    verdicts_.clear();
    ++generation_;
    emit historyChanged();
    emit restarted();
}

// ---- verdicts --------------------------------------------------------------------

size_t Game::KeyHash::operator()(const Key& key) const {
    // FNV-1a over where every card lies and how the cards are stacked.
    uint64_t hash = 1469598103934665603ull;
    auto mix = [&hash](const void* data, size_t size) {
        const auto* bytes = static_cast<const unsigned char*>(data);
        for (size_t i = 0; i < size; ++i) hash = (hash ^ bytes[i]) * 1099511628211ull;
    };
    for (int s = 1; s <= kSuits; ++s)
        for (int r = 1; r <= kRanks; ++r) {
            const int16_t at[2] = {key.snapshot.kartleft(s, r), key.snapshot.karttop(s, r)};
            const uint32_t z = key.snapshot.zorder(s, r);
            mix(at, sizeof at);
            mix(&z, sizeof z);
        }
    return static_cast<size_t>(hash);
}

// The solver is asked about the position as it stands with nothing selected:
// whether a card is picked up changes nothing about what can still be won.
void Game::newPosition() {
    const Key key{Snapshot::of(board_)};
    if (verdicts_.find(key) == verdicts_.end()) {
        verdicts_.emplace(key, std::nullopt);
        Board position = board_;
        position.clearSelection();
        const uint64_t generation = generation_;
        worker_->solve(position, limits, [this, key, generation](const Verdict& verdict) {
            if (generation != generation_) return;  // about a deal that is gone
            verdicts_[key] = verdict;
            emit judged();
        });
    }
    emit judged();
}

const Verdict* Game::verdictOf(const Snapshot& position) const {
    const auto found = verdicts_.find(Key{position});
    return found == verdicts_.end() || !found->second ? nullptr : &*found->second;
}

namespace {

Judgement judgementOf(const Verdict* verdict) {
    if (!verdict) return Judgement::Thinking;
    switch (verdict->outcome) {
        case Outcome::Won: return Judgement::Winnable;
        case Outcome::Lost: return Judgement::Lost;
        case Outcome::Unknown:
        case Outcome::Refused: break;
    }
    return Judgement::Unknown;
}

}  // namespace

Judgement Game::judgement() const {
    if (!dealt()) return Judgement::None;
    return judgementOf(verdictOf(Snapshot::of(board_)));
}

std::optional<Verdict> Game::winningLine() const {
    if (!dealt()) return std::nullopt;
    const Verdict* verdict = verdictOf(Snapshot::of(board_));
    if (!verdict || verdict->outcome != Outcome::Won) return std::nullopt;
    Verdict line = *verdict;
    // A lone click on the selected card takes the selection back.
    if (selected()) line.deselect = Hit{Hit::Kind::Card, board_.karta1, 0};
    return line;
}

// Move i leaves the position history_.done()[i].before; the last move leaves
// it for the position on the table.
std::optional<size_t> Game::losingMove() const {
    if (judgement() != Judgement::Lost) return std::nullopt;
    const auto& done = history_.done();
    for (size_t i = done.size(); i-- > 0;) {
        const Judgement before = judgementOf(verdictOf(done[i].before));
        if (before == Judgement::Winnable) {
            const Judgement after =
                i + 1 < done.size() ? judgementOf(verdictOf(done[i + 1].before)) : Judgement::Lost;
            if (after == Judgement::Lost) return i;
            return std::nullopt;
        }
    }
    return std::nullopt;
}

bool Game::canGoBackToWinnable() const {
    if (judgement() != Judgement::Lost) return false;
    for (const History::Entry& entry : history_.done())
        if (judgementOf(verdictOf(entry.before)) == Judgement::Winnable) return true;
    return false;
}

}  // namespace vorn::shell
