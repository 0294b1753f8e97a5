// Dragging a card as a second way to play. Press on a card and move the mouse
// past the drag distance: the card follows the mouse above everything, a faint
// copy marking where it came from. On release the game makes the clicks a
// player would make:
//   - the dragged card is clicked to select it, unless it is already selected;
//     when another card is selected, that card is clicked first to take it back
//     (a click on the dragged card would otherwise play the other card onto it);
//   - if the dragged card is then selected, what lies under the release point is
//     clicked: the front-most other card there, or a pile place no card covers.
// Every click runs the same checks and shows the same messages as a mouse
// click: the drop hands the game the move, and the game makes those clicks.
// A release over nothing that takes a click (the cloth, a frame, outside
// the table, or the card's own place) puts the card back with no click at all.
// A press and release with no movement past the drag distance is a plain click.
#pragma once

#include <QHash>
#include <QObject>
#include <QPixmap>
#include <QPoint>
#include <QPointer>
#include <functional>
#include <utility>
#include <vector>

#include "board/board.h"
#include "shell/table_scale.h"

class QLabel;

namespace vorn::shell {

class Game;

class DragPlay final : public QObject {
    Q_OBJECT
public:
    using Face = std::function<QPixmap(Card, qreal devicePixelRatio, qreal zoom)>;  // the picture of a card
    // `images` are the card images on `table`, each with the card it shows.
    DragPlay(QWidget* table, Game& game, const std::vector<std::pair<QWidget*, Card>>& images, Face face,
             ScaleOf scale);

    bool dragging() const { return dragging_; }
    QLabel* floating() const { return floating_; }
    // What a release at a point of the table widget (pixels) would click for a
    // drag of `dragged`: never the dragged card itself, never a covered pile place.
    Hit targetAt(QPoint boardPixel, Card dragged) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void begin();
    void follow(QPoint boardPixel);
    void drop(QPoint boardPixel);
    void end();

    QWidget* view_;
    Game& game_;
    QHash<const QObject*, Card> cards_;
    Face face_;
    ScaleOf scale_;
    QPointer<QWidget> pressed_;
    Card pressedCard_{};
    QPoint pressAt_;  // board pixels
    QPoint grab_;     // where in the card the mouse took it
    QLabel* floating_;
    bool dragging_ = false;
};

}  // namespace vorn::shell
