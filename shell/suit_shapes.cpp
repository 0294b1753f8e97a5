// Suit symbols drawn in a unit square and scaled into the box they are asked for.
#include "suit_shapes.h"

#include <QTransform>

namespace vorn::shell {

namespace {

QPainterPath heart() {
    QPainterPath p;
    p.moveTo(0.5, 0.26);
    p.cubicTo(0.45, 0.02, 0.0, 0.0, 0.02, 0.34);
    p.cubicTo(0.04, 0.62, 0.36, 0.76, 0.5, 0.98);
    p.cubicTo(0.64, 0.76, 0.96, 0.62, 0.98, 0.34);
    p.cubicTo(1.0, 0.0, 0.55, 0.02, 0.5, 0.26);
    p.closeSubpath();
    return p;
}

QPainterPath spade() {
    QPainterPath p;
    p.moveTo(0.5, 0.0);
    p.cubicTo(0.38, 0.2, 0.02, 0.34, 0.02, 0.58);
    p.cubicTo(0.02, 0.84, 0.34, 0.86, 0.46, 0.7);
    p.quadTo(0.44, 0.9, 0.3, 1.0);
    p.lineTo(0.7, 1.0);
    p.quadTo(0.56, 0.9, 0.54, 0.7);
    p.cubicTo(0.66, 0.86, 0.98, 0.84, 0.98, 0.58);
    p.cubicTo(0.98, 0.34, 0.62, 0.2, 0.5, 0.0);
    p.closeSubpath();
    return p;
}

QPainterPath diamond() {
    QPainterPath p;
    p.moveTo(0.5, 0.0);
    p.quadTo(0.66, 0.28, 0.9, 0.5);
    p.quadTo(0.66, 0.72, 0.5, 1.0);
    p.quadTo(0.34, 0.72, 0.1, 0.5);
    p.quadTo(0.34, 0.28, 0.5, 0.0);
    p.closeSubpath();
    return p;
}

QPainterPath club() {
    QPainterPath p;
    p.setFillRule(Qt::WindingFill);
    const qreal r = 0.23;
    p.addEllipse(QPointF(0.5, 0.25), r, r);
    p.addEllipse(QPointF(0.25, 0.58), r, r);
    p.addEllipse(QPointF(0.75, 0.58), r, r);
    p.addEllipse(QPointF(0.5, 0.5), 0.14, 0.14);
    QPainterPath stem;
    stem.moveTo(0.46, 0.55);
    stem.quadTo(0.44, 0.9, 0.3, 1.0);
    stem.lineTo(0.7, 1.0);
    stem.quadTo(0.56, 0.9, 0.54, 0.55);
    stem.closeSubpath();
    p.addPath(stem);
    return p.simplified();
}

// The unit outlines are built once: a face asks for a dozen of them, and the
// club's union of circles is dear to work out.
const QPainterPath& unitPath(int suit) {
    static const QPainterPath paths[4] = {heart(), spade(), diamond(), club()};
    return paths[suit - 1];
}

}  // namespace

QPainterPath suitPath(int suit, const QRectF& box) {
    if (suit < 1 || suit > 4) return {};
    const QPainterPath& unit = unitPath(suit);
    QTransform t;
    t.translate(box.left(), box.top());
    t.scale(box.width(), box.height());
    return t.map(unit);
}

bool isRedSuit(int suit) { return suit == 1 || suit == 3; }

QColor suitColor(int suit) { return isRedSuit(suit) ? QColor(200, 16, 46) : QColor(24, 24, 24); }

}  // namespace vorn::shell
