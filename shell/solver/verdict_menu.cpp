// The verdict's mark and its two items.
#include "verdict_menu.h"

#include <QAccessible>
#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>

#include "menu_item.h"
#include "shell/game.h"

namespace vorn::shell {

namespace {

QSettings choices() { return QSettings(QSettings::NativeFormat, QSettings::UserScope, "vorn", "vorn"); }

// "7 of spades onto the 8 of spades": a move of the history in the game's words.
QString moveWords(const History::Entry& move, Language lang) {
    const QString card = cardName(move.select.card.suit, move.select.card.rank, lang);
    if (move.play.kind == Hit::Kind::Pile) return text(Text::MoveToPlace, lang).arg(card);
    return text(Text::MoveOnto, lang).arg(card, cardName(move.play.card.suit, move.play.card.rank, lang));
}

}  // namespace

VerdictMenu::VerdictMenu(Game& game, QMenuBar* bar, QMenu* igra, QAction* after)
    : QObject(bar), game_(game), bar_(bar) {
    setObjectName(QStringLiteral("verdictMenu"));
    const QList<QAction*> actions = igra->actions();
    const qsizetype at = actions.indexOf(after) + 1;
    QAction* before = at > 0 && at < actions.size() ? actions[at] : nullptr;
    showVerdict = insertItem(igra, before, "showVerdict", Text::ShowVerdict, {});
    showVerdict->setCheckable(true);
    backToWinnable = insertItem(igra, before, "backToWinnable", Text::BackToWinnable, QKeySequence(Qt::CTRL | Qt::Key_B));
    backToWinnable->setEnabled(false);

    connect(showVerdict, &QAction::toggled, this, &VerdictMenu::showMark);
    connect(backToWinnable, &QAction::triggered, &game_, &Game::backToWinnable);
    for (auto signal : {&Game::judged, &Game::historyChanged, &Game::restarted}) connect(&game_, signal, this, &VerdictMenu::follow);
    rememberCheck(showVerdict, "showVerdict");
}

void rememberCheck(QAction* item, const char* key) {
    item->setChecked(choices().value(QLatin1String(key), false).toBool());
    QObject::connect(item, &QAction::toggled, item, [key](bool on) { choices().setValue(QLatin1String(key), on); });
}

void VerdictMenu::setCaptions(Language lang) {
    lang_ = lang;
    showVerdict->setText(text(Text::ShowVerdict, lang));
    backToWinnable->setText(text(Text::BackToWinnable, lang));
    said_ = {};  // the mark is read out again in the new language
    follow();
}

void VerdictMenu::showMark(bool shown) {
    if (shown == (mark_ != nullptr)) return;
    if (!shown) {
        bar_->setCornerWidget(nullptr, Qt::TopRightCorner);
        delete mark_;
        mark_ = nullptr;
        return;
    }
    mark_ = new QLabel(bar_);
    mark_->setObjectName(QStringLiteral("verdictMark"));
    mark_->setContentsMargins(8, 0, 8, 0);
    mark_->setForegroundRole(QPalette::WindowText);  // not the menu bar's button text
    QFont bold = mark_->font();
    bold.setBold(true);
    mark_->setFont(bold);
    bar_->setCornerWidget(mark_, Qt::TopRightCorner);
    said_ = {};
    follow();
    mark_->show();
}

QString VerdictMenu::sentence() const {
    switch (game_.judgement()) {
        case Judgement::Winnable: return text(Text::VerdictWinnable, lang_);
        case Judgement::Lost: {
            QString words = text(Text::VerdictLost, lang_);
            if (const std::optional<size_t> move = game_.losingMove())
                words += QLatin1Char(' ') + text(Text::LostBy, lang_).arg(*move + 1).arg(
                                                moveWords(game_.history().done()[*move], lang_));
            return words;
        }
        case Judgement::Unknown: return text(Text::SolverUnknown, lang_);
        case Judgement::None:
        case Judgement::Thinking: break;
    }
    return {};
}

void VerdictMenu::follow() {
    backToWinnable->setEnabled(game_.canGoBackToWinnable());
    if (!mark_) return;
    const Judgement now = game_.judgement();
    if (now == Judgement::None) {
        mark_->clear();
        mark_->setToolTip({});
        return;
    }
    // Readable on a light menu bar and on a dark one.
    const QPalette& around = bar_->palette();
    const bool darkBar = around.color(bar_->backgroundRole()).lightness() < 128;
    QColor colour = around.color(bar_->foregroundRole());
    if (now != Judgement::Thinking) {
        const Text word = now == Judgement::Winnable ? Text::MarkWinnable
                          : now == Judgement::Lost   ? Text::MarkLost
                                                     : Text::MarkUnknown;
        mark_->setText(text(word, lang_));
        mark_->setToolTip(sentence());
    }
    if (now == Judgement::Winnable) colour = darkBar ? QColor(110, 220, 110) : QColor(0, 120, 0);
    if (now == Judgement::Lost) colour = darkBar ? QColor(255, 120, 110) : QColor(190, 0, 0);
    if (now == Judgement::Thinking) {
        colour = mark_->palette().color(QPalette::WindowText);
        colour.setAlpha(100);  // the last word, dimmed
    }
    QPalette pal = mark_->palette();
    pal.setColor(QPalette::WindowText, colour);
    mark_->setPalette(pal);
    if (now == Judgement::Thinking || now == said_) return;
    // A screen reader hears each new word once, in a sentence.
    said_ = now;
    mark_->setAccessibleName(sentence());
    QAccessibleEvent event(mark_, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

}  // namespace vorn::shell
