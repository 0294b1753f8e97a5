// The program's icon and the picture of the about windows. Both come from the
// compiled-in assets when they are there; otherwise they are painted here, so a
// missing file never leaves a window without its picture.
#pragma once

#include <QIcon>
#include <QPixmap>

namespace vorn::shell {

// ":/icons/vorn.svg", or a painted card with a heart.
QIcon gameIcon();

// The icon as a square picture of size x size logical pixels.
QPixmap gameIconPixmap(int size, qreal devicePixelRatio);

// ":/about/picture.png" (or .svg), or a painted fan of three cards; 32 x 32 logical pixels.
QPixmap aboutPicture(qreal devicePixelRatio);

}  // namespace vorn::shell
