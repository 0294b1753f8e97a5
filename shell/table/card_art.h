// The pictures of the board: the 52 card faces and the pile-place tiles, painted
// at the device pixel ratio of the screen so they stay crisp on HiDPI screens.
// Every picture is 50 x 75 logical pixels; each is painted once per ratio.
#pragma once

#include <QPixmap>

namespace vorn::shell {

inline constexpr int kCardPixelWidth = 50;
inline constexpr int kCardPixelHeight = 75;

// The face of card (suit 1..4, rank 1..13). An impossible card gives a blank face.
QPixmap cardFace(int suit, int rank, qreal devicePixelRatio);

// The picture of pile place Image<image>: a blue tile with a line drawing;
// Image9, the place below the aces, has a crown, the others an arrow into a card.
QPixmap pilePicture(int image, qreal devicePixelRatio);

// "A", "2" ... "10", "J", "Q", "K".
QString rankLetter(int rank);

}  // namespace vorn::shell
