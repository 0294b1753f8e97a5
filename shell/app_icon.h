// The program's icon and the picture of the about windows. Both come from the
// compiled-in assets when they are there; otherwise they are painted here, so a
// missing file never leaves a window without its picture.
#pragma once

#include <QIcon>
#include <QPixmap>

namespace vorn::shell {

// The sizes in pixels at which an X11 window hands its icon to the window
// manager; the build draws the SVG at these sizes once (vorn-icon-sizes).
inline constexpr int kIconSizes[] = {16, 32, 64, 128};

// ":/icons/vorn.svg", or a painted card with a heart. Where the screens have a
// device pixel ratio of 1, the icon is made of the pictures drawn from that SVG
// at build time (":/icons/sizes/vorn-<size>.argb32"): the same pixels, without
// drawing the SVG four times before the first window can appear.
QIcon gameIcon();

// The icon as a square picture of size x size logical pixels.
QPixmap gameIconPixmap(int size, qreal devicePixelRatio);

// ":/about/picture.png" (or .svg), or a painted fan of three cards; 32 x 32 logical pixels.
QPixmap aboutPicture(qreal devicePixelRatio);

}  // namespace vorn::shell
