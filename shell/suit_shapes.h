// The four suit symbols as vector outlines, so they look the same whatever
// fonts the machine has: 1 hearts, 2 spades, 3 diamonds, 4 clubs.
#pragma once

#include <QColor>
#include <QPainterPath>
#include <QRectF>

namespace vorn::shell {

// The outline of a suit symbol filling box (an empty path for a suit outside 1..4).
QPainterPath suitPath(int suit, const QRectF& box);

// Hearts and diamonds red, spades and clubs black.
QColor suitColor(int suit);
bool isRedSuit(int suit);

}  // namespace vorn::shell
