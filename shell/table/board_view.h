// The card table, the central widget of the main window ("board"): a dark green
// cloth of 707 x 526 pixels with the 11 pile places, the 38 placeholder frames
// and the 52 card images. It only mirrors the board: sync() puts every image
// where the board's tables say, with the board's borders and stacking order.
#pragma once

#include <QWidget>
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "board/board.h"
#include "shell/texts.h"

class QFrame;

namespace vorn::shell {

class CardImage;
class PileImage;

class BoardView final : public QWidget {
    Q_OBJECT
public:
    explicit BoardView(QWidget* parent = nullptr);
    ~BoardView() override;

    static QColor clothColor() { return {0, 96, 0}; }

    // Positions, borders and stacking order from the board.
    void sync(const Board& board);
    // Accessible names of the cards and places in the given language.
    void setLanguage(Language lang);

    CardImage* card(int suit, int rank) const;
    PileImage* pile(int image) const;
    // The image a Hit names (a card or a pile place); nullptr for nothing.
    QWidget* image(const Hit& hit) const;
    // Every card image with the card it shows.
    std::vector<std::pair<QWidget*, Card>> cardImages() const;

signals:
    // A card image or a visible pile place was clicked.
    void clicked(const vorn::Hit& hit);

private:
    void restack(const Board& board);
    static size_t cell(int suit, int rank) { return static_cast<size_t>((suit - 1) * kRanks + (rank - 1)); }

    std::array<PileImage*, kPileCount> piles_{};
    std::array<CardImage*, kSuits * kRanks> cards_{};
    std::array<uint32_t, kSuits * kRanks> shownZ_{};  // the zorder each image was last stacked for
};

}  // namespace vorn::shell
