// Clickable pictures of the card table.
#include "board_image.h"

#include <QMouseEvent>
#include <QPainter>

#include "card_art.h"
#include "shell/table_scale.h"

namespace vorn::shell {

BoardImage::BoardImage(QWidget* parent) : QLabel(parent) {
    setFixedSize(kCardPixelWidth, kCardPixelHeight);
    setAttribute(Qt::WA_TranslucentBackground);
}

void BoardImage::setZoom(qreal zoom) {
    if (zoom == zoom_) return;
    zoom_ = zoom;
    setFixedSize(TableScale(zoom, {}).card());
    update();
}

void BoardImage::paintEvent(QPaintEvent*) {
    // Painted from the picture cache at the ratio in force now, so a window moved
    // to a screen of another ratio stays sharp.
    QPainter p(this);
    p.drawPixmap(0, 0, art(devicePixelRatioF(), zoom_));
}

void BoardImage::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        QLabel::mousePressEvent(event);
        return;
    }
    pressed_ = true;
    event->accept();
}

void BoardImage::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        QLabel::mouseReleaseEvent(event);
        return;
    }
    const bool click = pressed_ && rect().contains(event->position().toPoint());
    pressed_ = false;
    event->accept();
    if (click) emit clicked();
}

}  // namespace vorn::shell
