// The verdict's mark and its two items.
#include "verdict_menu.h"

#include <QAccessible>
#include <QAction>
#include <QEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QStyleOptionMenuItem>
#include <algorithm>

namespace vorn::shell {

namespace {

// "7 of spades onto the 8 of spades": a move of the history in the game's words.
QString moveWords(const History::Entry& move, Language lang) {
    const QString card = cardName(move.select.card.suit, move.select.card.rank, lang);
    if (move.play.kind == Hit::Kind::Pile) return text(Text::MoveToPlace, lang).arg(card);
    return text(Text::MoveOnto, lang).arg(card, cardName(move.play.card.suit, move.play.card.rank, lang));
}

constexpr int kPadding = 8;  // pixels on either side of the word

// The mark's word is drawn as the bar draws its captions, over a rectangle as
// high as theirs, so it stands on their line whatever the desktop's style.
class Mark final : public QLabel {
public:
    Mark(QMenuBar* bar, QWidget* window) : QLabel(window), bar_(bar) {}

protected:
    void paintEvent(QPaintEvent*) override {
        QStyleOptionMenuItem item;
        item.initFrom(this);
        item.state = QStyle::State_Enabled;
        item.menuItemType = QStyleOptionMenuItem::Normal;
        item.text = text();
        item.palette.setColor(QPalette::ButtonText, palette().color(QPalette::WindowText));
        QPainter p(this);
        bar_->style()->drawControl(QStyle::CE_MenuBarItem, &item, &p, bar_);
    }

private:
    QMenuBar* bar_;
};

}  // namespace

VerdictMenu::VerdictMenu(Game& game, QWidget* window, QMenuBar* bar, QAction* showVerdict, QAction* backToWinnable)
    : QObject(window), game_(game), window_(window), bar_(bar), back_(backToWinnable) {
    setObjectName(QStringLiteral("verdictMenu"));
    connect(showVerdict, &QAction::toggled, this, &VerdictMenu::showMark);
    connect(back_, &QAction::triggered, &game_, &Game::backToWinnable);
    connect(&game_, &Game::judgedChanged, this, &VerdictMenu::follow);
    bar_->installEventFilter(this);
    showMark(showVerdict->isChecked());
}

void VerdictMenu::setLanguage(Language lang) {
    lang_ = lang;
    said_.clear();  // the mark is read out again in the new language
    follow(game_.judged());
}

void VerdictMenu::showMark(bool shown) {
    if (shown == (mark_ != nullptr)) return;
    if (!shown) {
        delete mark_;
        mark_ = nullptr;
        return;
    }
    mark_ = new Mark(bar_, window_);
    mark_->setObjectName(QStringLiteral("verdictMark"));
    mark_->setAlignment(Qt::AlignVCenter | Qt::AlignHCenter);
    QFont bold = bar_->font();
    bold.setBold(true);
    mark_->setFont(bold);
    // As wide as the longest word in either language, whatever it says now.
    int widest = 0;
    for (const Text word : {Text::MarkWinnable, Text::MarkLost, Text::MarkUnknown})
        for (const Language lang : {Language::Russian, Language::English})
            widest = std::max(widest, mark_->fontMetrics().horizontalAdvance(text(word, lang)));
    mark_->setFixedWidth(widest + 2 * kPadding);
    said_.clear();
    follow(game_.judged());
    placeMark();
    mark_->show();
    mark_->raise();
}

// Over the right end of the bar, its word on the line of the bar's captions.
void VerdictMenu::placeMark() {
    if (!mark_) return;
    const QRect item = bar_->actionGeometry(bar_->actions().constFirst());
    const QRect bar = bar_->geometry();
    mark_->setGeometry(bar.right() + 1 - mark_->width(), bar.top() + item.top(), mark_->width(), item.height());
}

bool VerdictMenu::eventFilter(QObject* watched, QEvent* event) {
    if (watched == bar_ && (event->type() == QEvent::Resize || event->type() == QEvent::Move ||
                            event->type() == QEvent::LayoutRequest))
        placeMark();
    return false;
}

// "The deal can no longer be won. Lost by move 12: 7 of spades onto ...".
QString VerdictMenu::words() const {
    const Judged& judged = game_.judged();
    switch (judged.judgement) {
        case Judgement::Winnable: return text(Text::VerdictWinnable, lang_);
        case Judgement::Lost: {
            QString lost = text(Text::VerdictLost, lang_);
            if (judged.losingMove)
                lost += QLatin1Char(' ') + text(Text::LostBy, lang_).arg(*judged.losingMove + 1).arg(
                                               moveWords(game_.history().done()[*judged.losingMove], lang_));
            return lost;
        }
        case Judgement::Unknown: return text(Text::SolverUnknown, lang_);
        case Judgement::None:
        case Judgement::Thinking: break;
    }
    return {};
}

// The words with the deal's number first: what a screen reader hears.
QString VerdictMenu::sentence() const {
    const QString said = words();
    const std::optional<DealNumber> number = game_.dealNumber();
    if (said.isEmpty() || !number) return said;
    return text(Text::DealCalled, lang_).arg(*number) + QStringLiteral(". ") + said;
}

// The same with how hard the deal is: "Deal 8 · hard. The deal can still be
// won." The grade arrives a moment after the deal, so it is left out of the
// sentence a screen reader hears at once; it is in the mark's description.
QString VerdictMenu::toolTip() const {
    const Judged& judged = game_.judged();
    QStringList about;
    if (const std::optional<DealNumber> number = game_.dealNumber()) about << text(Text::DealCalled, lang_).arg(*number);
    static constexpr Text kGrades[] = {Text::GradeEasy, Text::GradeMedium, Text::GradeHard, Text::GradeVeryHard,
                                       Text::GradeExpert};
    if (judged.grade) about << text(kGrades[static_cast<size_t>(*judged.grade)], lang_).toLower();
    if (judged.lostDeal) about << text(Text::MarkLost, lang_);
    const QString said = words();
    if (about.isEmpty() || said.isEmpty()) return said;
    return about.join(QStringLiteral(" · ")) + QStringLiteral(". ") + said;
}

void VerdictMenu::follow(const Judged& judged) {
    back_->setEnabled(judged.canGoBack);
    if (!mark_) return;
    const Judgement now = judged.judgement;
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
        mark_->setToolTip(toolTip());
        mark_->setAccessibleDescription(mark_->toolTip());
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
    if (now == Judgement::Thinking) return;
    // A screen reader hears each new sentence once; a new deal always says its
    // own. A new name is announced by the label itself; the same name again
    // (a new deal with the same word) is announced here.
    const QString says = sentence();
    if (says == said_ && judged.deal == heardDeal_) return;
    said_ = says;
    heardDeal_ = judged.deal;
    if (mark_->accessibleName() != says) {
        mark_->setAccessibleName(says);
    } else {
        QAccessibleEvent event(mark_, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&event);
    }
    emit announced(says);
}

}  // namespace vorn::shell
