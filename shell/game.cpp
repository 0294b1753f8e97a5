// The play loop, the deals, and the verdicts kept with the positions of the deal.
#include "game.h"

#include <iostream>

#include "solver_worker.h"

namespace vorn::shell {

Game::Game(std::filesystem::path folder, DealSource& deals, QObject* parent)
    : QObject(parent),
      deals_(deals),
      store_(std::move(folder)),
      knowledge_(std::make_shared<Knowledge>(kKnownPositions)),
      worker_(std::make_unique<SolverWorker>()) {
    setObjectName(QStringLiteral("game"));
}

Game::~Game() = default;

std::optional<Card> Game::selectedCard() const {
    if (!selected()) return std::nullopt;
    return board_.karta1;
}

// ---- deals -----------------------------------------------------------------------

void Game::newGame() {
    stopSearch();
    if (!winnableOnly_) {
        deal(deals_.draw(), Beginning::New);
        return;
    }
    searching_ = true;
    ++search_;
    attempts_ = 0;
    lastWinnable_.reset();
    emit busyChanged();
    tryCandidate();
}

void Game::dealNumbered(DealNumber number) {
    stopSearch();
    deal(number, Beginning::Numbered);
}

void Game::dealDaily(Date date) {
    stopSearch();
    searching_ = true;
    const uint64_t search = ++search_;
    emit busyChanged();
    worker_->run([date] { return findDailyDeal(date); }, [this, search, date](const FoundDeal& found) {
        if (search != search_ || !searching_) return;
        searching_ = false;
        emit busyChanged();
        dailyDate_ = formatDate(date);
        deal(found.number, Beginning::Daily, nullptr, found.difficulty);
    });
}

// The layout is dealt on the real board once, with its number: save1.txt and
// raskl get just that layout. A verdict or a grade already found for it is kept.
void Game::deal(DealNumber number, Beginning how, const Verdict* known, const std::optional<Difficulty>& graded) {
    endRecorded();
    deals_.layOut(board_, number);
    number_ = number;
    beginning_ = how;
    forget();
    knowledge_->clear();
    if (known) verdicts_.emplace(Key{Snapshot::of(board_)}, *known);
    // A folder that cannot be written costs the current deal's file, not the game.
    if (!store_.rewriteCurrentDeal(board_.raskl)) std::cerr << "vorn: " << store_.errorText() << '\n';
    emit changed();
    newPosition();
    grade(graded);
    beginRecorded(known);
}

// A layout new to the table (not Deal again) is graded off the user-interface
// thread, unless its grade came with it. Its position was asked about first.
void Game::grade(const std::optional<Difficulty>& graded) {
    const uint64_t layout = ++layouts_;
    difficulty_ = graded;
    if (graded) return;
    Board start = board_;
    start.clearSelection();
    // With a knowledge of its own, and only on time the processors have left:
    // it never slows the live verdict.
    worker_->run([start, limits = grading] { return measureDifficulty(start, limits); },
                 [this, layout](const Difficulty& difficulty) {
                     if (layout != layouts_) return;  // about a layout that is gone
                     difficulty_ = difficulty;
                     recordGrade();
                     rejudge();
                 },
                 /*idle=*/true);
}

// Winnable deals only: New game tries the layouts of fresh numbers on a copy of
// the board, off the user-interface thread, until the solver proves one
// winnable (and, when a grade is wanted, grades it so); the window goes on as
// before meanwhile. After kMaxAttempts layouts without a proof the last one is
// taken all the same, without a word: a deal is never refused. With a grade
// wanted, after kMaxGradedAttempts the last winnable one is taken.
void Game::tryCandidate() {
    ++attempts_;
    candidate_ = deals_.draw();
    Board trial = board_;
    deals_.layOut(trial, candidate_);
    const uint64_t search = search_;
    worker_->run(
        [trial, limits = searchLimits, grade = wantedGrade_] {
            Candidate candidate{vorn::solve(trial, limits), std::nullopt};
            if (grade && candidate.verdict.outcome == Outcome::Won) candidate.difficulty = measureDifficulty(trial);
            return candidate;
        },
        [this, search](const Candidate& candidate) { candidateJudged(search, candidate); });
}

void Game::candidateJudged(uint64_t search, const Candidate& candidate) {
    if (search != search_ || !searching_) return;
    const bool winnable = candidate.verdict.outcome == Outcome::Won;
    if (winnable) lastWinnable_ = candidate_;
    const bool wanted = winnable && (!wantedGrade_ || (candidate.difficulty && candidate.difficulty->outcome == Outcome::Won &&
                                                       candidate.difficulty->grade == *wantedGrade_));
    const int most = wantedGrade_ ? kMaxGradedAttempts : kMaxAttempts;
    if (!wanted && attempts_ < most) {
        tryCandidate();
        return;
    }
    searching_ = false;
    emit busyChanged();
    if (wanted || !lastWinnable_)
        deal(candidate_, Beginning::Winnable, winnable ? &candidate.verdict : nullptr, candidate.difficulty);
    else
        deal(*lastWinnable_, Beginning::Winnable);
}

void Game::stopSearch() {
    if (!searching_) return;
    searching_ = false;
    ++search_;  // the answer on its way is not wanted any more
    emit busyChanged();
}

// Discard anew: the game in play ends, and a new attempt at the same deal begins.
void Game::dealAgain() {
    stopSearch();
    endRecorded();
    board_.rasklzan();
    beginning_ = Beginning::Again;
    forget();
    emit changed();
    newPosition();
    beginRecorded(nullptr);
}

// A layout laid out is a new deal, even when it lies as the table does now:
// nothing is left to undo or redo. It has no number of its own, unless the
// record has seen its layout dealt by number.
LayoutProblem Game::loadHandOver() {
    stopSearch();
    const std::string line = store_.readHandOver();
    Board loaded = board_;
    const LayoutProblem problem = loaded.showLayout(line);
    if (problem == LayoutProblem::None && !line.empty()) {
        endRecorded();
        board_ = loaded;
        record::Record* record = record_.get();
        number_ = record ? record->dealOf(board_.raskl) : std::nullopt;
        beginning_ = Beginning::Loaded;
        forget();
        knowledge_->clear();
        emit changed();
        newPosition();
        grade(std::nullopt);
        beginRecorded(nullptr);
    }
    return problem;
}

// Back or forth along the line, with the undo history's own steps.
void Game::goToMove(size_t moves) {
    if (moves > history_.undoCount() + history_.redoCount() || moves == history_.undoCount()) return;
    const Board before = board_;
    while (history_.undoCount() > moves) history_.undo(board_);
    while (history_.undoCount() < moves && history_.redo(board_).redone) {
    }
    emit historyChanged();
    emit changed();
    emit moved(before);
    newPosition();
}

// ---- play ------------------------------------------------------------------------

void Game::click(const Hit& hit) {
    const Board before = board_;
    const Reaction reaction = history_.click(board_, hit);
    if (reaction.moved) emit historyChanged();
    emit changed();
    if (reaction.moved) {
        Board from = before, to = board_;
        from.clearSelection();
        knowledge_->learnMove(from, to);
        emit moved(before);
        newPosition();
        if (by_ == By::Solution && inPlay_) ++inPlay_->progress.solutionMoves;
        tally(&record::Progress::moves);
    }
    react(reaction);
}

bool Game::play(const Move& move, By by) {
    if (!isSelected(move.card)) {
        if (const std::optional<Card> other = selectedCard()) {
            click({Hit::Kind::Card, *other, 0});  // take the other card back
            if (selected()) return false;
        }
        click(move.select());
        if (!isSelected(move.card)) return false;  // refused: its message has been shown
    }
    const size_t before = history_.undoCount();
    by_ = by;
    click(move.target);
    by_ = By::Player;
    return history_.undoCount() > before;
}

// The wrong-move and cannot-select messages only while Messages is on; the
// request for a New game always.
void Game::react(const Reaction& reaction) {
    if (reaction.message != Message::None && (!reaction.gated() || messagesShown_)) emit message(reaction.message);
    if (reaction.won) emit won();
}

void Game::undo() {
    const Board before = board_;
    if (!history_.undo(board_)) return;
    emit historyChanged();
    emit changed();
    emit moved(before);
    newPosition();
    tally(&record::Progress::undos);
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
    tally(&record::Progress::moves);
    react(redone.reaction);
}

void Game::backToWinnable() {
    if (!judged_.canGoBack) return;
    const Board before = board_;
    while (judgementOf(Snapshot::of(board_)) != Judgement::Winnable && history_.undo(board_)) {
    }
    emit historyChanged();
    emit changed();
    emit moved(before);
    newPosition();
    tally(&record::Progress::backs);
}

void Game::forget() {
    history_.clear();
    verdicts_.clear();
    ++generation_;
    ++dealCount_;
    stopAsking();
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
        Board position = board_;
        position.clearSelection();
        if (knowledge_->known(position)) {
            // Known already (a move from a lost position, a position on a
            // winning line): its line is read out at once.
            const Verdict verdict = knowledge_->decide(position, limits);
            verdicts_.emplace(key, verdict);
            judgedRecorded(key.snapshot, verdict);
        } else {
            verdicts_.emplace(key, std::nullopt);
            const uint64_t generation = generation_;
            worker_->run([knowledge = knowledge_, position, limits = limits] { return knowledge->decide(position, limits); },
                         [this, key, generation](const Verdict& verdict) {
                             if (generation != generation_) return;  // about a deal that is gone
                             verdicts_[key] = verdict;
                             judgedRecorded(key.snapshot, verdict);
                             rejudge();
                             answer();
                         });
        }
    }
    rejudge();
    answer();
}

const Verdict* Game::verdictOf(const Snapshot& position) const {
    const auto found = verdicts_.find(Key{position});
    return found == verdicts_.end() || !found->second ? nullptr : &*found->second;
}

Judgement Game::judgementOf(const Snapshot& position) const {
    const Verdict* verdict = verdictOf(position);
    if (!verdict) return Judgement::Thinking;
    switch (verdict->outcome) {
        case Outcome::Won: return Judgement::Winnable;
        case Outcome::Lost: return Judgement::Lost;
        case Outcome::Unknown:
        case Outcome::Refused: break;
    }
    return Judgement::Unknown;
}

// Move i leaves the position history_.done()[i].before; the last move leaves
// it for the position on the table.
Judged Game::judgeNow() const {
    Judged now;
    now.deal = dealCount_;
    if (!dealt()) return now;
    if (difficulty_ && difficulty_->outcome == Outcome::Won) now.grade = difficulty_->grade;
    now.lostDeal = difficulty_ && difficulty_->outcome == Outcome::Lost;
    now.judgement = judgementOf(Snapshot::of(board_));
    if (now.judgement != Judgement::Lost) return now;
    const auto& done = history_.done();
    for (size_t i = done.size(); i-- > 0;) {
        if (judgementOf(done[i].before) != Judgement::Winnable) continue;
        now.canGoBack = true;
        const Judgement after = i + 1 < done.size() ? judgementOf(done[i + 1].before) : Judgement::Lost;
        if (after == Judgement::Lost) now.losingMove = i;
        break;
    }
    return now;
}

void Game::rejudge() {
    const Judged now = judgeNow();
    if (now == judged_) return;
    judged_ = now;
    emit judgedChanged(judged_);
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

// ---- the solver's questions ------------------------------------------------------

void Game::ask(Question question) {
    if (!dealt()) {  // nothing dealt yet: as a click on a card says
        emit message(Message::NewGameFirst);
        return;
    }
    pending_ = question;
    asked_ = Snapshot::of(board_);
    emit busyChanged();
    answer();
}

void Game::stopAsking() {
    if (!pending_) return;
    pending_.reset();
    emit busyChanged();
}

// The verdict is about the cards as they lie: a card picked up or put back
// meanwhile leaves the question standing; a card moved drops it.
void Game::answer() {
    if (!pending_) return;
    if (!(Snapshot::of(board_) == asked_)) {
        stopAsking();
        return;
    }
    const Judgement judgement = judgementOf(asked_);
    if (judgement == Judgement::Thinking) return;
    const Question question = *pending_;
    stopAsking();
    Answer reply;
    switch (judgement) {
        case Judgement::Winnable:
            reply.line = *winningLine();
            reply.kind = reply.line.moves.empty() ? Answer::Kind::AlreadyWon : Answer::Kind::Line;
            break;
        case Judgement::Lost: reply.kind = Answer::Kind::Lost; break;
        case Judgement::Unknown:
        case Judgement::None:
        case Judgement::Thinking: reply.kind = Answer::Kind::Unknown; break;
    }
    if (question == Question::Hint && reply.kind == Answer::Kind::Line) tally(&record::Progress::hints);
    emit answered(question, reply);
}

}  // namespace vorn::shell
