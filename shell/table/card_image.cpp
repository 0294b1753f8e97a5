// A card on the table.
#include "card_image.h"

#include <QAccessible>
#include <QPainter>

#include "card_art.h"

namespace vorn::shell {

CardImage::CardImage(int suit, int rank, QWidget* parent) : BoardImage(parent), suit_(suit), rank_(rank) {
    setObjectName(QStringLiteral("Im%1_%2").arg(suit).arg(rank));
    setLanguage(lang_);
}

QPixmap CardImage::art(qreal devicePixelRatio, qreal zoom) const {
    return cardFace(suit_, rank_, devicePixelRatio, zoom);
}

void CardImage::setSelected(bool selected) {
    if (selected == selected_) return;
    selected_ = selected;
    updateDescription();
    update();
    // Screen readers hear the card become (or stop being) the selected one.
    QAccessible::State changed;
    changed.selected = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

void CardImage::setLanguage(Language lang) {
    lang_ = lang;
    setAccessibleName(cardName(suit_, rank_, lang));
    updateDescription();
}

void CardImage::updateDescription() {
    setAccessibleDescription(selected_ ? shell::text(Text::SelectedCard, lang_) : QString());
}

void CardImage::paintEvent(QPaintEvent* event) {
    BoardImage::paintEvent(event);
    if (!selected_) return;
    // The thin black border of a selected image, and inside it a strong blue
    // outline that can be seen at a glance on white faces and on the green cloth alike.
    // Drawn in the card's own 50 x 75 units, at the table's zoom.
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(zoom(), zoom());
    p.setPen(QPen(Qt::black, 1.0));
    p.setBrush(Qt::NoBrush);
    p.drawRect(QRectF(0.5, 0.5, kCardPixelWidth - 1.0, kCardPixelHeight - 1.0));
    p.setPen(QPen(QColor(0, 110, 255), 2.5));
    p.drawRoundedRect(QRectF(2.25, 2.25, kCardPixelWidth - 4.5, kCardPixelHeight - 4.5), 2.5, 2.5);
}

}  // namespace vorn::shell
