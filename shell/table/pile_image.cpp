// An empty place of the table.
#include "pile_image.h"

#include "card_art.h"

namespace vorn::shell {

PileImage::PileImage(int image, QWidget* parent) : BoardImage(parent), image_(image) {
    setObjectName(QStringLiteral("Image%1").arg(image));
    setLanguage(Language::Russian);
}

void PileImage::setLanguage(Language lang) { setAccessibleName(shell::text(Text::EmptyPlace, lang)); }

QPixmap PileImage::art(qreal devicePixelRatio, qreal zoom) const { return pilePicture(image_, devicePixelRatio, zoom); }

}  // namespace vorn::shell
