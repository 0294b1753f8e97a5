// The pictures of the board: the 52 card faces and the pile-place tiles, painted
// at the device pixel ratio of the screen and the table's zoom, so they stay
// crisp on HiDPI screens and at every size of the table: a picture is 50 x 75
// logical pixels times the zoom, painted afresh for each ratio and zoom, never
// scaled from another.
// All of them are in the first frame of the main window (the ordered deck), so
// the board has them painted on a worker thread while the window is being
// built and shown (preparePictures()); they are the same pictures either way.
#pragma once

#include <QImage>
#include <QPixmap>

namespace vorn::shell {

inline constexpr int kCardPixelWidth = 50;
inline constexpr int kCardPixelHeight = 75;

// The face of card (suit 1..4, rank 1..13). An impossible card gives a blank face.
QPixmap cardFace(int suit, int rank, qreal devicePixelRatio, qreal zoom = 1.0);

// The picture of pile place Image<image>: a blue tile with a line drawing;
// Image9, the place below the aces, has a crown, the others an arrow into a card.
QPixmap pilePicture(int image, qreal devicePixelRatio, qreal zoom = 1.0);

// The same pictures painted afresh, past the cache (a QImage can be painted on
// any thread).
QImage paintCardFace(int suit, int rank, qreal devicePixelRatio, qreal zoom = 1.0);
QImage paintPilePicture(int image, qreal devicePixelRatio, qreal zoom = 1.0);

// Starts painting all 52 faces and the 11 pile-place pictures at the given
// ratio and zoom on a worker thread, unless they are cached or under way
// already. cardFace() and pilePicture() take them over as soon as they ask for
// one at that ratio and zoom, waiting for the worker if it is not done (a
// picture at another one is painted at once). Call from the user interface
// thread, as the other functions.
void preparePictures(qreal devicePixelRatio, qreal zoom = 1.0);
// Whether a worker started by preparePictures() has pictures not taken over yet.
bool preparingPictures();
// Takes the prepared pictures into the cache, waiting for the worker if need
// be; nothing happens when none are under way. Whoever starts a worker calls
// this before the application goes, so that no painting outlives it.
void takePreparedPictures();

// "A", "2" ... "10", "J", "Q", "K".
QString rankLetter(int rank);

}  // namespace vorn::shell
