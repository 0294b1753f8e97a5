// The card table as it is shown: the board measures everything in twips, 15 to
// a pixel at the table's actual size; shown at a zoom, a twip is zoom / 15 of
// a pixel, and the table's top-left corner lies at `origin` in the board
// widget (the cloth around it fills a widget larger than the table). Places
// are rounded down and lengths up, so at 100 % they are the board's pixels
// exactly. Whatever draws on the table or takes a point of it goes through here.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <array>
#include <functional>

#include "board/geometry.h"

namespace vorn::shell {

// The table sizes the menu steps through.
inline constexpr std::array<qreal, 12> kZoomSteps{0.5, 0.67, 0.75, 0.9, 1.0, 1.1, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0};

class TableScale {
public:
    TableScale() = default;
    TableScale(qreal zoom, QPoint origin) : zoom_(zoom), origin_(origin) {}

    qreal zoom() const { return zoom_; }
    QPoint origin() const { return origin_; }

    int length(int twips) const;                   // a width or a height, in pixels
    QPoint at(int leftTwips, int topTwips) const;  // a place on the table
    QRect image(int leftTwips, int topTwips) const { return {at(leftTwips, topTwips), card()}; }
    QSize card() const { return {length(kCardWidth), length(kCardHeight)}; }
    QSize table() const { return {length(kBoardWidth), length(kBoardHeight)}; }
    // The middle of a pixel of the board widget, in twips of the table.
    QPoint twips(QPoint pixel) const;

    // The table at `zoom`, centred in a board widget of `size` (at its top-left
    // corner when it does not fit).
    static TableScale centred(qreal zoom, QSize size);
    // The largest zoom, in whole hundredths, at which the table fits `size`.
    static qreal fitting(QSize size);

    friend bool operator==(const TableScale&, const TableScale&) = default;

private:
    qreal zoom_ = 1.0;
    QPoint origin_;
};

// Where the table lies now: what the rooms that draw on it or take points of it are handed.
using ScaleOf = std::function<TableScale()>;

}  // namespace vorn::shell
