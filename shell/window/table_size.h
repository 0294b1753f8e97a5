// The table's size, the submenu Table size of the Game menu:
//   - Zoom in (Ctrl+=, also Ctrl++), Zoom out (Ctrl+-) and Actual size (Ctrl+0)
//     step the table through kZoomSteps, 50 % to 300 %, as far as the screen's
//     free area holds the window; the window follows the table's size.
//   - "Scale the table with the window" (a check mark, off at the very first
//     start): the window can be resized and maximised, and the table fills it
//     at the largest zoom that fits, keeping its proportions, the green cloth
//     around it. Off, the window has the fixed size of the table at its zoom
//     and no maximise button: at 100 % the window the game always had.
// The zoom and the check mark are remembered; the window's size only while the
// table scales with it. A zoom the screen cannot hold opens at the largest that
// fits, and nothing is said.
//
// A desktop may maximise the fixed window or show it full screen all the same
// (under Wayland the window decorations offer a maximise button whatever the
// window asks, and a compositor's maximised configure must be obeyed): the
// window then takes the size it is given, the table in its middle at its zoom,
// and goes back to its fixed size when the desktop gives it its own size back.
#pragma once

#include <QObject>

class QAction;
class QMainWindow;

namespace vorn::shell {

class BoardView;

class TableSize final : public QObject {
    Q_OBJECT
public:
    struct Items {
        QAction* zoomIn;
        QAction* zoomOut;
        QAction* actualSize;
        QAction* scaleWithWindow;
    };
    // Reads what was remembered; made before the window is first shown.
    TableSize(QMainWindow& window, Items items);

    // The zoom the table starts at.
    qreal startZoom() const { return zoom_; }
    // Takes over the table, and the window's size and frame around it.
    void take(BoardView& view);
    // The window is closing: its size is remembered while the table scales with it.
    void remember() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void step(int direction);
    void zoomTo(qreal zoom);
    void setScaling(bool on);
    void roomyNow(bool roomy);
    void applyConstraints();
    void updateItems();
    void keepOnScreen();
    qreal shownZoom() const;
    qreal largestZoom() const;
    QSize windowFor(qreal zoom) const;  // the window's inside with the table at zoom
    QSize freeArea() const;             // what the screen has for the window's inside

    QMainWindow& window_;
    Items items_;
    BoardView* view_ = nullptr;
    qreal zoom_ = 1.0;  // the zoom of the fixed table
    bool scaling_ = false;
    bool roomy_ = false;  // maximised or full screen
    bool watchingStates_ = false;
};

}  // namespace vorn::shell
