// Twips to pixels and back at a zoom.
#include "table_scale.h"

#include <algorithm>
#include <cmath>

namespace vorn::shell {

namespace {
constexpr qreal kSlack = 1e-6;  // 0.67 and the like are not exact in binary
}

int TableScale::length(int twips) const {
    return static_cast<int>(std::ceil(twips * zoom_ / kTwipsPerPixel - kSlack));
}

QPoint TableScale::at(int leftTwips, int topTwips) const {
    auto pixels = [this](int twips) { return static_cast<int>(std::floor(twips * zoom_ / kTwipsPerPixel + kSlack)); };
    return origin_ + QPoint(pixels(leftTwips), pixels(topTwips));
}

QPoint TableScale::twips(QPoint pixel) const {
    auto twipsOf = [this](int p) { return static_cast<int>(std::floor((p + 0.5) * kTwipsPerPixel / zoom_)); };
    return {twipsOf(pixel.x() - origin_.x()), twipsOf(pixel.y() - origin_.y())};
}

TableScale TableScale::centred(qreal zoom, QSize size) {
    const QSize table = TableScale(zoom, {}).table();
    return {zoom, QPoint(std::max(0, (size.width() - table.width()) / 2), std::max(0, (size.height() - table.height()) / 2))};
}

qreal TableScale::fitting(QSize size) {
    const qreal across = static_cast<qreal>(size.width()) * kTwipsPerPixel / kBoardWidth;
    const qreal down = static_cast<qreal>(size.height()) * kTwipsPerPixel / kBoardHeight;
    return std::max(0.01, std::floor(std::min(across, down) * 100 + kSlack) / 100);
}

}  // namespace vorn::shell
