// Every game kept in the game record: where games begin and end, and what is
// written after each move.
#include <iostream>
#include <utility>

#include "game.h"
#include "solver_worker.h"

namespace vorn::shell {

namespace {

record::Start startOf(Beginning how) {
    switch (how) {
        case Beginning::New: return record::Start::New;
        case Beginning::Winnable: return record::Start::WinnableOnly;
        case Beginning::Numbered: return record::Start::ByNumber;
        case Beginning::Again: return record::Start::DealAgain;
        case Beginning::Loaded: return record::Start::Loaded;
        case Beginning::Daily: return record::Start::Daily;
    }
    return record::Start::New;
}

Beginning beginningOf(record::Start start) {
    switch (start) {
        case record::Start::New: return Beginning::New;
        case record::Start::WinnableOnly: return Beginning::Winnable;
        case record::Start::ByNumber: return Beginning::Numbered;
        case record::Start::DealAgain: return Beginning::Again;
        case record::Start::Loaded: return Beginning::Loaded;
        case record::Start::Daily: return Beginning::Daily;
    }
    return Beginning::New;
}

record::Verdict recordedVerdict(Outcome outcome) {
    switch (outcome) {
        case Outcome::Won: return record::Verdict::Winnable;
        case Outcome::Lost: return record::Verdict::Lost;
        case Outcome::Unknown:
        case Outcome::Refused: break;
    }
    return record::Verdict::Unknown;
}

}  // namespace

void Game::openRecord() {
    record_.open([this] { QMetaObject::invokeMethod(this, [this] { emit recordChanged(); }, Qt::QueuedConnection); });
}

std::optional<record::GameId> Game::gameInPlay() const {
    if (!inPlay_ || inPlay_->ended) return std::nullopt;
    return inPlay_->id;
}

bool Game::recorded(bool written) {
    if (!written) {
        record_.failed();
        inPlay_.reset();
        emit recordTrouble();
    }
    return written;
}

int64_t Game::playedMs() const {
    if (!inPlay_) return 0;
    const auto since = std::chrono::steady_clock::now() - inPlay_->since;
    return inPlay_->playedBefore + std::chrono::duration_cast<std::chrono::milliseconds>(since).count();
}

// A layout loaded before the first deal cannot be played: no game begins.
void Game::beginRecorded(const Verdict* known) {
    record::Record* record = dealt() ? record_.get() : nullptr;
    if (!record) return;
    record::Beginning beginning;
    beginning.start = startOf(beginning_);
    beginning.deal = number_;
    beginning.layout = board_.raskl;
    if (beginning_ == Beginning::Daily) beginning.dailyDate = dailyDate_;
    if (!known) known = verdictOf(Snapshot::of(board_));  // known at once, or the same deal again
    if (known) beginning.verdict = recordedVerdict(known->outcome);
    const std::optional<record::GameId> id = record->begin(beginning);
    if (!recorded(id.has_value())) return;
    inPlay_ = InPlay{*id, Snapshot::of(board_), {}, 0, std::chrono::steady_clock::now(), false};
    recordGrade();
    emit recordChanged();
}

// The deal's grade, with the game in play, once it is known.
void Game::recordGrade() {
    record::Record* record = record_.get();
    if (!inPlay_ || !record || !difficulty_ || difficulty_->outcome != Outcome::Won) return;
    recorded(record->setGrade(inPlay_->id, difficulty_->milliBits, static_cast<int>(difficulty_->grade),
                              kDifficultyVersion));
}

// Given up, or lost when its last position is proven lost; a verdict still to
// come classifies it when it arrives, though another game has begun.
void Game::endRecorded() {
    if (!inPlay_) return;
    // The next game begins right after (recordChanged() comes with it).
    const InPlay game = *std::exchange(inPlay_, std::nullopt);
    record::Record* record = record_.get();
    if (game.ended || !record) return;
    const Judgement last = judgementOf(Snapshot::of(board_));
    const record::Result result = last == Judgement::Lost ? record::Result::Lost : record::Result::GivenUp;
    const int64_t played =
        game.playedBefore +
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - game.since).count();
    if (!recorded(record->end(game.id, result, played))) return;
    // The verdicts still to come are asked again: those of the deal in play
    // are dropped once it is gone.
    Board position = board_;
    position.clearSelection();
    if (last == Judgement::Thinking) {
        worker_->solve(position, limits, [this, id = game.id](const Verdict& verdict) {
            if (verdict.outcome != Outcome::Lost) return;
            if (record::Record* r = record_.get()) recorded(r->reclassifyLost(id));
        });
    }
    if (judgementOf(game.start) == Judgement::Thinking) {
        game.start.layOn(position);
        worker_->solve(position, limits, [this, id = game.id](const Verdict& verdict) {
            if (record::Record* r = record_.get()) recorded(r->setVerdict(id, recordedVerdict(verdict.outcome)));
        });
    }
}

void Game::writeLine() {
    record::Record* record = record_.get();
    if (!inPlay_ || inPlay_->ended || !record) return;
    InPlay& game = *inPlay_;
    std::vector<Move> moves;
    moves.reserve(history_.done().size());
    for (const History::Entry& entry : history_.done()) moves.push_back({entry.select.card, entry.play});
    game.progress.line = lineText(moves);
    game.progress.playedMs = playedMs();
    if (!recorded(record->update(game.id, game.progress))) return;
    // The four kings home: won, whether or not the window announced it.
    if (board_.konec()) {
        game.ended = true;
        if (!recorded(record->end(game.id, record::Result::Won, game.progress.playedMs))) return;
        emit recordChanged();
    }
}

void Game::tally(int record::Progress::*counter, int more) {
    if (!inPlay_ || inPlay_->ended) return;
    inPlay_->progress.*counter += more;
    writeLine();
}

void Game::judgedRecorded(const Snapshot& position, const Verdict& verdict) {
    if (!inPlay_ || !(position == inPlay_->start)) return;
    if (record::Record* record = record_.get()) recorded(record->setVerdict(inPlay_->id, recordedVerdict(verdict.outcome)));
}

void Game::leave() {
    if (inPlay_ && !inPlay_->ended) writeLine();
}

bool Game::canContinue() {
    record::Record* record = record_.get();
    return record && record->lastUnfinished(gameInPlay()).has_value();
}

// Laid out as it began (a deal by its number, or a loaded layout), made
// playable as New game makes a deal, and its moves played again through the
// clicks; there is nothing to redo afterwards.
bool Game::continueLast() {
    record::Record* record = record_.get();
    if (!record) return false;
    const std::optional<record::Game> last = record->lastUnfinished(gameInPlay());
    if (!last) return false;
    const std::optional<std::vector<Move>> moves = parseLine(last->progress.line);
    if (!moves) return false;
    Board board = board_;
    if (last->beginning.deal)
        deals_.layOut(board, *last->beginning.deal);
    else if (board.continueLayout(last->beginning.layout) != LayoutProblem::None)
        return false;
    if (board.raskl != last->beginning.layout) return false;
    stopSearch();
    endRecorded();
    const bool sameLayout = board_.raskl == board.raskl && dealt();
    board_ = board;
    number_ = last->beginning.deal;
    beginning_ = beginningOf(last->beginning.start);
    dailyDate_ = last->beginning.dailyDate.value_or(std::string());
    forget();
    if (!sameLayout) knowledge_->clear();
    if (number_ && !store_.rewriteCurrentDeal(board_.raskl)) std::cerr << "vorn: " << store_.errorText() << '\n';
    const Snapshot start = Snapshot::of(board_);
    for (const Move& move : *moves) {
        history_.click(board_, move.select());
        if (!board_.isSelected(move.card) || !history_.click(board_, move.target).moved) {
            if (board_.hasSelection()) board_.clearSelection();
            break;  // a line this game cannot play: as far as it goes
        }
    }
    inPlay_ = InPlay{last->id, start, last->progress, last->progress.playedMs, std::chrono::steady_clock::now(), false};
    emit historyChanged();
    emit changed();
    newPosition();
    if (!sameLayout) grade(std::nullopt);
    recordGrade();
    emit recordChanged();
    return true;
}

}  // namespace vorn::shell
