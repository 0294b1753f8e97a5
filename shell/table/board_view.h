// The card table, the central widget of the main window ("board"): a dark green
// cloth of 707 x 526 pixels with the 11 pile places, the 38 placeholder frames
// and the 52 card images. It only mirrors the board: sync() puts every image
// where the board's tables say, with the board's borders and stacking order.
//
// The table can be shown at a zoom, or at the largest zoom that fits the
// widget; when the widget is larger than the table (a maximised window), the
// table lies in its middle and the cloth fills the rest. The images are moved
// and resized, never made anew; scale() says where the table lies and how
// large, for everything that draws on it or takes a point of it.
#pragma once

#include <QWidget>
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "board/board.h"
#include "shell/table_scale.h"
#include "shell/texts.h"

class QFrame;

namespace vorn::shell {

class CardImage;
class PileImage;

class BoardView final : public QWidget {
    Q_OBJECT
public:
    // At `zoom`, the widget of the table's size.
    explicit BoardView(qreal zoom = 1.0, QWidget* parent = nullptr);
    ~BoardView() override;

    static QColor clothColor() { return {0, 96, 0}; }

    // Positions, borders and stacking order from the board.
    void sync(const Board& board);
    // Accessible names of the cards and places in the given language.
    void setLanguage(Language lang);

    // The table at `zoom` (smaller only when the widget is too small for it).
    void setZoom(qreal zoom);
    // Whether the table takes the largest zoom at which it fits the widget.
    void setFitting(bool fitting);
    const TableScale& scale() const { return scale_; }

    CardImage* card(int suit, int rank) const;
    PileImage* pile(int image) const;
    // The image a Hit names (a card or a pile place); nullptr for nothing.
    QWidget* image(const Hit& hit) const;
    // Every card image with the card it shows.
    std::vector<std::pair<QWidget*, Card>> cardImages() const;

signals:
    // A card image or a visible pile place was clicked.
    void clicked(const vorn::Hit& hit);
    // The table took another zoom or another place in the widget.
    void rescaled();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOut(bool always = false);
    void restack(const Board& board);
    static size_t cell(int suit, int rank) { return static_cast<size_t>((suit - 1) * kRanks + (rank - 1)); }

    std::array<PileImage*, kPileCount> piles_{};
    std::vector<std::pair<QFrame*, FramePlace>> frames_;
    std::array<CardImage*, kSuits * kRanks> cards_{};
    std::array<Spot, kSuits * kRanks> spots_{};  // where each card lies on the table
    std::array<uint32_t, kSuits * kRanks> shownZ_{};  // the zorder each image was last stacked for
    qreal zoom_;
    bool fitting_ = false;
    TableScale scale_;
};

}  // namespace vorn::shell
