// Hint, Winnable deals only and Show solution.
#include "solver_menu.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QMenu>

#include "hint_mark.h"
#include "menu_item.h"
#include "shell/game.h"
#include "shell/solver_worker.h"
#include "solution_player.h"
#include "verdict_menu.h"
#include "winnable_dealer.h"

namespace vorn::shell {

namespace {

// Where on the table the image a Hit names lies, in pixels.
QRect imageRect(const Board& board, const Hit& hit) {
    const Spot at = hit.kind == Hit::Kind::Pile ? Spot{pilePlace(hit.pile).left, pilePlace(hit.pile).top}
                                                : board.spot(hit.card);
    return {at.left / kTwipsPerPixel, at.top / kTwipsPerPixel, kCardWidth / kTwipsPerPixel,
            kCardHeight / kTwipsPerPixel};
}

}  // namespace

SolverMenu::SolverMenu(Game& game, QWidget* window, QWidget* table, QMenu* igra, Say say)
    : QObject(window),
      game_(game),
      window_(window),
      table_(table),
      say_(std::move(say)),
      worker_(std::make_unique<SolverWorker>()) {
    setObjectName(QStringLiteral("solverMenu"));
    buildItems(igra);
    markCard_ = new HintMark(QStringLiteral("hintCard"), table_);
    markTarget_ = new HintMark(QStringLiteral("hintTarget"), table_);

    player_ = new SolutionPlayer(game_, this);
    connect(player_, &SolutionPlayer::stopped, this, &SolverMenu::refresh);

    dealer_ = new WinnableDealer(*worker_, game_, this);
    // A deal made (or a search given up) ends whatever was under way for the old position.
    connect(dealer_, &WinnableDealer::finished, this, &SolverMenu::stop);
    connect(&game_, &Game::judged, this, &SolverMenu::answer);
}

SolverMenu::~SolverMenu() = default;

// line4 closes the game's own items; the solver's three come right after it,
// ahead of whatever else follows it at the end of the menu.
void SolverMenu::buildItems(QMenu* igra) {
    for (QAction* action : igra->actions())
        if (action->objectName() == QLatin1String("line4")) line4 = action;
    if (!line4) {
        line4 = igra->addSeparator();
        line4->setObjectName(QStringLiteral("line4"));
    }
    const QList<QAction*> actions = igra->actions();
    const qsizetype at = actions.indexOf(line4) + 1;
    QAction* before = at < actions.size() ? actions[at] : nullptr;

    hint = insertItem(igra, before, "hint", Text::Hint, QKeySequence(Qt::Key_H));
    winnable = insertItem(igra, before, "winnable", Text::Winnable, {});
    winnable->setCheckable(true);
    rememberCheck(winnable, "winnableDealsOnly");
    solution = insertItem(igra, before, "solution", Text::Solution, QKeySequence(Qt::Key_D));

    connect(hint, &QAction::triggered, this, [this] { ask(Question::Hint); });
    connect(solution, &QAction::triggered, this, [this] { ask(Question::Solution); });
}

void SolverMenu::setCaptions(Language lang) {
    lang_ = lang;
    hint->setText(text(Text::Hint, lang));
    winnable->setText(text(Text::Winnable, lang));
    solution->setText(text(Text::Solution, lang));
}

bool SolverMenu::dealWinnable() {
    if (!winnable->isChecked()) return false;
    dealer_->start();
    refresh();
    return true;
}

void SolverMenu::stop() {
    pending_.reset();
    player_->stop();
    dealer_->stop();
    stopMarks();
    refresh();
}

bool SolverMenu::playing() const { return player_->playing(); }

bool SolverMenu::searching() const { return pending_ || dealer_->dealing(); }

void SolverMenu::ask(Question question) {
    if (!game_.dealt()) {  // nothing dealt yet: as a click on a card says
        say(Text::Messnov);
        return;
    }
    player_->stop();
    stopMarks();
    pending_ = question;
    asked_ = Snapshot::of(game_.board());
    refresh();
    answer();
}

// The verdict is about the cards as they lie: a card picked up or put back
// meanwhile leaves the question standing; a card moved drops it.
void SolverMenu::answer() {
    if (!pending_) return;
    if (!(Snapshot::of(game_.board()) == asked_)) {
        pending_.reset();
        refresh();
        return;
    }
    const Judgement judgement = game_.judgement();
    if (judgement == Judgement::Thinking) return;
    const Question question = *pending_;
    pending_.reset();
    refresh();
    switch (judgement) {
        case Judgement::Winnable: {
            const Verdict line = *game_.winningLine();
            if (line.moves.empty()) return say(Text::SolverWon);
            return question == Question::Hint ? showHint(line) : showSolution(line);
        }
        case Judgement::Lost: return say(Text::SolverLost);
        case Judgement::Unknown:
        case Judgement::None:
        case Judgement::Thinking: return say(Text::SolverUnknown);
    }
}

// The first move of the line: the card to select and where to play it. The line
// starts from nothing selected; if the card it selects is the one already
// selected, only the target blinks.
void SolverMenu::showHint(const Verdict& verdict) {
    const CardMove& move = verdict.moves.front();
    if (!game_.isSelected(move.card)) markCard_->blink(imageRect(game_.board(), move.select()));
    markTarget_->blink(imageRect(game_.board(), move.target));
    refresh();
}

void SolverMenu::showSolution(const Verdict& verdict) {
    player_->play(verdict);
    refresh();
}

void SolverMenu::stopMarks() {
    if (markCard_) markCard_->stop();
    if (markTarget_) markTarget_->stop();
}

void SolverMenu::say(Text id) { say_(text(id, lang_)); }

void SolverMenu::refresh() {
    if (searching())
        window_->setCursor(Qt::BusyCursor);
    else
        window_->unsetCursor();
    const bool marks = (markCard_ && markCard_->active()) || (markTarget_ && markTarget_->active());
    const bool wanted = playing() || marks;
    if (wanted != filtering_) {
        filtering_ = wanted;
        if (wanted)
            qApp->installEventFilter(this);
        else
            qApp->removeEventFilter(this);
    }
}

bool SolverMenu::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type != QEvent::MouseButtonPress && type != QEvent::KeyPress && type != QEvent::ShortcutOverride)
        return false;
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || widget->window() != window_) return false;
    const bool wasPlaying = playing();
    player_->stop();
    stopMarks();
    refresh();
    // The press that ends the show does not also play a card; keys go on to
    // their shortcuts, and a press that ends a hint is the player's own click.
    QWidget* table = table_;
    return wasPlaying && type == QEvent::MouseButtonPress && (widget == table || table->isAncestorOf(widget));
}

}  // namespace vorn::shell
