// Hint, Winnable deals only and Show solution.
#include "solver_menu.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QMenu>

#include "hint_mark.h"
#include "solution_player.h"
#include "solver_worker.h"
#include "winnable_dealer.h"

namespace vorn::shell {

SolverMenu::SolverMenu(Host host, QObject* parent)
    : QObject(parent), host_(std::move(host)), worker_(std::make_unique<SolverWorker>()) {
    setObjectName(QStringLiteral("solverMenu"));
    buildItems();
    markCard_ = new HintMark(QStringLiteral("hintCard"), host_.table);
    markTarget_ = new HintMark(QStringLiteral("hintTarget"), host_.table);

    player_ = new SolutionPlayer(host_.board, host_.click, this);
    connect(player_, &SolutionPlayer::stopped, this, &SolverMenu::refresh);

    dealer_ = new WinnableDealer(
        *worker_, *host_.random, [this] { return host_.board(); }, host_.deal, this);
    // A deal made (or a search given up) ends whatever was under way for the old position.
    connect(dealer_, &WinnableDealer::finished, this, &SolverMenu::stop);
}

SolverMenu::~SolverMenu() = default;

// line4 closes the game's own items; the solver's three come right after it,
// ahead of whatever else follows it at the end of the menu.
void SolverMenu::buildItems() {
    QMenu* igra = host_.menu;
    for (QAction* action : igra->actions())
        if (action->objectName() == QLatin1String("line4")) line4 = action;
    if (!line4) {
        line4 = igra->addSeparator();
        line4->setObjectName(QStringLiteral("line4"));
    }
    const QList<QAction*> actions = igra->actions();
    const qsizetype at = actions.indexOf(line4) + 1;
    QAction* before = at < actions.size() ? actions[at] : nullptr;

    auto item = [&](const char* name, Text caption, const QKeySequence& key) {
        auto* action = new QAction(text(caption, Language::Russian), igra);
        action->setObjectName(QString::fromLatin1(name));
        action->setShortcut(key);
        igra->insertAction(before, action);
        return action;
    };
    hint = item("hint", Text::Hint, QKeySequence(Qt::Key_H));
    winnable = item("winnable", Text::Winnable, {});
    winnable->setCheckable(true);
    solution = item("solution", Text::Solution, QKeySequence(Qt::Key_D));

    connect(hint, &QAction::triggered, this, [this] { ask(Question::Hint); });
    connect(solution, &QAction::triggered, this, [this] { ask(Question::Solution); });
}

void SolverMenu::setCaptions(Language lang) {
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
    ++ticket_;
    pending_ = false;
    player_->stop();
    dealer_->stop();
    stopMarks();
    refresh();
}

bool SolverMenu::playing() const { return player_->playing(); }

bool SolverMenu::searching() const { return pending_ || dealer_->dealing(); }

void SolverMenu::ask(Question question) {
    if (host_.board().rezhim == 1) {  // nothing dealt yet: as a click on a card says
        say(Text::Messnov);
        return;
    }
    player_->stop();
    stopMarks();
    const int ticket = ++ticket_;
    asked_ = host_.board();
    pending_ = true;
    refresh();
    worker_->solve(asked_, askLimits,
                   [this, ticket, question](const Verdict& verdict) { answered(ticket, question, verdict); });
}

void SolverMenu::answered(int ticket, Question question, const Verdict& verdict) {
    if (ticket != ticket_) return;  // asked again, or stopped, meanwhile
    pending_ = false;
    refresh();
    if (!(host_.board() == asked_)) return;  // the position changed: the answer is about another
    switch (verdict.outcome) {
        case Outcome::Won:
            if (verdict.moves.empty()) return say(Text::SolverWon);
            return question == Question::Hint ? showHint(verdict) : showSolution(verdict);
        case Outcome::Lost: return say(Text::SolverLost);
        case Outcome::Unknown:
        case Outcome::Refused: return say(Text::SolverUnknown);
    }
}

// The first move of the line: the card to select and where to play it. The line
// starts from nothing selected; if the card it selects is the one already
// selected, only the target blinks.
void SolverMenu::showHint(const Verdict& verdict) {
    const CardMove& move = verdict.moves.front();
    if (!host_.board().isSelected(move.card)) markCard_->blink(host_.rectOf(move.select()));
    markTarget_->blink(host_.rectOf(move.target));
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

void SolverMenu::say(Text id) { host_.say(text(id, host_.language())); }

void SolverMenu::refresh() {
    if (searching())
        host_.window->setCursor(Qt::BusyCursor);
    else
        host_.window->unsetCursor();
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
    if (!widget || widget->window() != host_.window) return false;
    const bool wasPlaying = playing();
    player_->stop();
    stopMarks();
    refresh();
    // The press that ends the show does not also play a card; keys go on to
    // their shortcuts, and a press that ends a hint is the player's own click.
    QWidget* table = host_.table;
    return wasPlaying && type == QEvent::MouseButtonPress && (widget == table || table->isAncestorOf(widget));
}

}  // namespace vorn::shell
