// Blinking: on and off every quarter of a second, four times.
#include "hint_mark.h"

#include <QPainter>

namespace vorn::shell {

namespace {
constexpr int kPhaseMs = 250;
constexpr int kPhases = 8;  // shown, hidden, ... : about two seconds
}  // namespace

HintMark::HintMark(const QString& name, QWidget* board) : QWidget(board) {
    setObjectName(name);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    hide();
    timer_.setInterval(kPhaseMs);
    connect(&timer_, &QTimer::timeout, this, &HintMark::nextPhase);
}

void HintMark::blink(const QRect& rect) {
    setGeometry(rect);
    phasesLeft_ = kPhases;
    raise();
    show();
    timer_.start();
}

void HintMark::stop() {
    timer_.stop();
    phasesLeft_ = 0;
    hide();
}

void HintMark::nextPhase() {
    if (--phasesLeft_ <= 0) {
        stop();
        return;
    }
    raise();  // a move may have brought cards up meanwhile
    setVisible(phasesLeft_ % 2 == 0);
}

void HintMark::paintEvent(QPaintEvent*) {
    // Orange, thick and rounded: unlike the thin frame and blue outline of the
    // card that is really selected.
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(255, 140, 0), 4.0));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(QRectF(2.0, 2.0, width() - 4.0, height() - 4.0), 4.0, 4.0);
}

}  // namespace vorn::shell
