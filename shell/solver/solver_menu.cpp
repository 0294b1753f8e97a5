// Hint, Winnable deals only and Show solution.
#include "solver_menu.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QEvent>

#include "hint_mark.h"
#include "solution_player.h"

namespace vorn::shell {

namespace {

// Where on the table the image a Hit names is shown, in pixels.
QRect imageRect(const Board& board, const Hit& hit, const TableScale& scale) {
    const Spot at = hit.kind == Hit::Kind::Pile ? Spot{pilePlace(hit.pile).left, pilePlace(hit.pile).top}
                                                : board.spot(hit.card);
    return scale.image(at.left, at.top);
}

}  // namespace

SolverMenu::SolverMenu(Game& game, QWidget* window, QWidget* table, ScaleOf scale, Items items, Say say)
    : QObject(window), game_(game), window_(window), table_(table), scale_(std::move(scale)), say_(std::move(say)) {
    setObjectName(QStringLiteral("solverMenu"));
    markCard_ = new HintMark(QStringLiteral("hintCard"), table_);
    markTarget_ = new HintMark(QStringLiteral("hintTarget"), table_);
    player_ = new SolutionPlayer(game_, this);
    connect(player_, &SolutionPlayer::stopped, this, &SolverMenu::refresh);

    connect(items.hint, &QAction::triggered, this, [this] { ask(Question::Hint); });
    connect(items.solution, &QAction::triggered, this, [this] { ask(Question::Solution); });
    game_.setWinnableOnly(items.winnable->isChecked());
    connect(items.winnable, &QAction::toggled, &game_, &Game::setWinnableOnly);
    auto wantGrade = [this](QAction* chosen) {
        const int grade = chosen ? chosen->data().toInt() : -1;
        game_.setWinnableGrade(grade < 0 ? std::nullopt : std::optional(static_cast<Grade>(grade)));
    };
    wantGrade(items.grades->checkedAction());
    connect(items.grades, &QActionGroup::triggered, this, wantGrade);
    connect(&game_, &Game::answered, this, &SolverMenu::answered);
    connect(&game_, &Game::busyChanged, this, &SolverMenu::refresh);
}

SolverMenu::~SolverMenu() = default;

void SolverMenu::stop() {
    game_.stopAsking();
    player_->stop();
    stopMarks();
    refresh();
}

bool SolverMenu::playing() const { return player_->playing(); }

void SolverMenu::ask(Question question) {
    player_->stop();
    stopMarks();
    game_.ask(question);
    refresh();
}

void SolverMenu::answered(Question question, const Answer& answer) {
    switch (answer.kind) {
        case Answer::Kind::Line:
            if (question == Question::Hint)
                showHint(answer.line);
            else
                player_->play(answer.line);
            break;
        case Answer::Kind::AlreadyWon: say(Text::SolverWon); break;
        case Answer::Kind::Lost: say(Text::SolverLost); break;
        case Answer::Kind::Unknown: say(Text::SolverUnknown); break;
    }
    refresh();
}

// The first move of the line: the card to select and where to play it. The line
// starts from nothing selected; if the card it selects is the one already
// selected, only the target blinks.
void SolverMenu::showHint(const Verdict& verdict) {
    const CardMove& move = verdict.moves.front();
    markedCard_ = move.select();
    markedTarget_ = move.target;
    if (!game_.isSelected(move.card)) markCard_->blink(imageRect(game_.board(), markedCard_, scale_()));
    markTarget_->blink(imageRect(game_.board(), markedTarget_, scale_()));
}

void SolverMenu::placeMarks() {
    for (auto [mark, hit] : {std::pair{markCard_.data(), markedCard_}, std::pair{markTarget_.data(), markedTarget_}})
        if (mark && mark->active()) mark->setGeometry(imageRect(game_.board(), hit, scale_()));
}

void SolverMenu::stopMarks() {
    if (markCard_) markCard_->stop();
    if (markTarget_) markTarget_->stop();
}

void SolverMenu::say(Text id) { say_(text(id, lang_)); }

void SolverMenu::refresh() {
    if (game_.busy())
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
