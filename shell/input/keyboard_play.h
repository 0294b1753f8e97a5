// Playing with the keys: the arrow keys move a focus ring over the things a
// click can reach (the cards that show and the pile places no card covers),
// cell by cell over the grid; Space or Return clicks the thing in the ring.
// Moving the ring never changes the game. The thing in the ring also holds the
// keyboard focus, so a screen reader hears its name and state.
//
// Left and Right stay in the row when they can and go to the nearest column
// that has something; Up and Down go to the nearest row (a card lying in front
// on a base card counts as half a row below it) and there to the nearest column.
// The first arrow puts the ring on the selected card, or else on the first thing
// of the top row.
#pragma once

#include <QObject>
#include <functional>

#include "board/board.h"
#include "board/reachables.h"
#include "shell/table_scale.h"

class QWidget;

namespace vorn::shell {

class FocusRing;
class Game;

class KeyboardPlay final : public QObject {
    Q_OBJECT
public:
    using ImageOf = std::function<QWidget*(const Hit&)>;  // the image a Hit names on the table
    KeyboardPlay(QWidget* table, Game& game, ImageOf imageOf, ScaleOf scale);

    // What the ring is on; Kind::Nothing before the first arrow key.
    Hit focused() const { return focused_; }
    FocusRing* ring() const { return ring_; }

    // After the table was redrawn or took another size: the ring stays on its
    // thing or its cell.
    void follow();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void arrow(int key);
    void focusOn(const Reachable& thing);

    QWidget* view_;
    Game& game_;
    ImageOf widgetOf_;
    ScaleOf scale_;
    FocusRing* ring_;
    Hit focused_{};
    Reachable where_{};  // the cell the ring was last put on
};

}  // namespace vorn::shell
