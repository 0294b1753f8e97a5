// The Hint's mark: a short blinking frame over a card or a pile place of the
// card table. It is drawn above the images and takes no clicks; it never touches
// the selection or the border the rules give a selected card.
#pragma once

#include <QTimer>
#include <QWidget>

namespace vorn::shell {

class HintMark final : public QWidget {
    Q_OBJECT
public:
    HintMark(const QString& name, QWidget* board);

    // Blinks over `rect` (board pixels) a few times, then hides.
    void blink(const QRect& rect);
    // Hides at once.
    void stop();
    // Blinking, whether the frame is shown at this instant or not.
    bool active() const { return phasesLeft_ > 0; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void nextPhase();
    QTimer timer_;
    int phasesLeft_ = 0;
};

}  // namespace vorn::shell
