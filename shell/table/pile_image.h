// A pile place, Image1 ... Image11: the picture of an empty place that takes a
// card when it is clicked while no card covers it.
#pragma once

#include "board_image.h"
#include "shell/texts.h"

namespace vorn::shell {

class PileImage final : public BoardImage {
    Q_OBJECT
public:
    PileImage(int image, QWidget* parent);

    int image() const { return image_; }
    void setLanguage(Language lang);

protected:
    QPixmap art(qreal devicePixelRatio, qreal zoom) const override;

private:
    int image_;
};

}  // namespace vorn::shell
