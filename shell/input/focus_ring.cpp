// Drawing the focus ring.
#include "focus_ring.h"

#include <QPainter>

namespace vorn::shell {

FocusRing::FocusRing(QWidget* board) : QWidget(board) {
    setObjectName(QStringLiteral("focusRing"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_TranslucentBackground);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

void FocusRing::frame(const QRect& target) {
    target_ = target;
    setGeometry(target.adjusted(-kMargin, -kMargin, kMargin, kMargin));
    show();
    raise();
}

void FocusRing::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setBrush(Qt::NoBrush);
    // A dark line under the yellow one keeps the ring seen on white faces too.
    p.setPen(QPen(QColor(0, 0, 0, 160), 4.0));
    p.drawRoundedRect(QRectF(rect()).adjusted(2, 2, -2, -2), 4, 4);
    p.setPen(QPen(QColor(255, 215, 0), 2.0));
    p.drawRoundedRect(QRectF(rect()).adjusted(2, 2, -2, -2), 4, 4);
}

}  // namespace vorn::shell
