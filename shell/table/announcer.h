// What a screen reader is told after each move: the cells the move touched, as
// they lie now ("row 2, column 11: 8 of spades, 7 of spades"). The text goes to
// a live label on the card table, one pixel in size, whose accessible name
// changes with every announcement (a NameChanged event reaches AT-SPI as an
// accessible-name property change).
#pragma once

#include <QObject>
#include <QString>

#include "board/board.h"
#include "shell/texts.h"

class QLabel;
class QWidget;

namespace vorn::shell {

class Announcer final : public QObject {
    Q_OBJECT
public:
    explicit Announcer(QWidget* board);

    void setLanguage(Language lang) { lang_ = lang; }
    // Tells what the cells whose cards changed place hold now; nothing when no
    // card moved.
    void moved(const Board& before, const Board& after);
    // How a cell of the grid reads: its base card and the card in front on it,
    // the picture of an empty place, or "empty".
    static QString describeCell(const Board& board, int column, int row, Language lang);

    QString lastAnnouncement() const { return last_; }
    QLabel* label() const { return label_; }

private:
    QLabel* label_;
    Language lang_ = Language::Russian;
    QString last_;
};

}  // namespace vorn::shell
