// Telling a screen reader what a move did.
#include "announcer.h"

#include <QAccessible>
#include <QLabel>
#include <set>
#include <utility>

#include "board/board.h"

namespace vorn::shell {

Announcer::Announcer(QWidget* board) : QObject(board), label_(new QLabel(board)) {
    setObjectName(QStringLiteral("announcer"));
    label_->setObjectName(QStringLiteral("announcement"));
    // Seen by assistive technology, not by the eye: one pixel in a corner of the
    // cloth, drawing nothing, deaf to the mouse.
    label_->setGeometry(0, 0, 1, 1);
    label_->setAttribute(Qt::WA_TransparentForMouseEvents);
    // Transparent text and no background of its own; a palette does this without
    // the style sheet machinery a style sheet would start.
    QPalette pal = label_->palette();
    pal.setColor(QPalette::WindowText, Qt::transparent);
    label_->setPalette(pal);
    label_->setAutoFillBackground(false);
}

QString Announcer::describeCell(const Board& board, int column, int row, Language lang) {
    const Cell cell{static_cast<int8_t>(row), static_cast<int8_t>(column), false};
    const CellContents shows = board.contents()[static_cast<size_t>(cell.index())];
    QStringList names;
    if (!shows.base.empty()) names << cardName(shows.base.suit, shows.base.rank, lang);
    if (!shows.front.empty()) names << cardName(shows.front.suit, shows.front.rank, lang);
    const int pile = pileImageOf(cell);
    if (names.isEmpty())
        names << (pile != 0 && board.pileVisible(pile) ? text(Text::EmptyPlace, lang) : text(Text::CellEmpty, lang));
    return text(Text::CellSays, lang).arg(row).arg(column).arg(names.join(QStringLiteral(", ")));
}

void Announcer::moved(const Board& before, const Board& after) {
    std::set<std::pair<int, int>> cells;  // (row, column), read top to bottom
    for (int s = 1; s <= kSuits; ++s)
        for (int r = 1; r <= kRanks; ++r) {
            const Card card{static_cast<int16_t>(s), static_cast<int16_t>(r)};
            if (before.spot(card) == after.spot(card)) continue;
            for (const Cell at : {before.cell(card), after.cell(card)})
                if (at.onGrid()) cells.insert({at.row, at.col});
        }
    if (cells.empty()) return;
    QStringList parts;
    for (const auto& [row, column] : cells) parts << describeCell(after, column, row, lang_);
    last_ = parts.join(text(Text::CellsJoin, lang_));
    // A new name is announced by the label itself; the same one again here.
    if (label_->accessibleName() != last_) {
        label_->setAccessibleName(last_);
        return;
    }
    QAccessibleEvent event(label_, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

}  // namespace vorn::shell
