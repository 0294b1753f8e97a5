// The keyboard's focus ring: a 2-pixel yellow rounded frame drawn over the thing
// the keys would click, above every card, deaf to the mouse.
#pragma once

#include <QWidget>

namespace vorn::shell {

class FocusRing final : public QWidget {
    Q_OBJECT
public:
    explicit FocusRing(QWidget* board);
    // Frames `target` (board pixels) and comes to the front.
    void frame(const QRect& target);
    QRect target() const { return target_; }

    static constexpr int kMargin = 3;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect target_;
};

}  // namespace vorn::shell
