// The image of one card, Im<suit>_<rank>: its painted face, and while the card
// is selected a clear mark drawn over the face (the face keeps its size).
#pragma once

#include "board_image.h"
#include "shell/texts.h"

namespace vorn::shell {

class CardImage final : public BoardImage {
    Q_OBJECT
public:
    CardImage(int suit, int rank, QWidget* parent);

    int suit() const { return suit_; }
    int rank() const { return rank_; }
    bool selected() const { return selected_; }

    // The border of the card (BorderStyle 1 while the card is selected).
    void setSelected(bool selected);
    // The card's name for screen readers, and "selected" while it is.
    void setLanguage(Language lang);

protected:
    QPixmap art(qreal devicePixelRatio, qreal zoom) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    void updateDescription();
    int suit_;
    int rank_;
    bool selected_ = false;
    Language lang_ = Language::Russian;
};

}  // namespace vorn::shell
