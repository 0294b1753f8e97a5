// The card table and its images.
#include "board_view.h"

#include <QFrame>
#include <algorithm>

#include "card_art.h"
#include "card_image.h"
#include "pile_image.h"
#include "table_accessibility.h"

namespace vorn::shell {

namespace {

// A placeholder frame r<row>_<k>: a thin black outline of a card, empty inside,
// deaf to the mouse.
QFrame* makeFrame(const FramePlace& place, QWidget* parent) {
    auto* frame = new QFrame(parent);
    frame->setObjectName(QStringLiteral("r%1_%2").arg(place.row).arg(place.k));
    frame->setFrameStyle(QFrame::Box | QFrame::Plain);
    frame->setLineWidth(1);
    QPalette pal = frame->palette();
    pal.setColor(QPalette::WindowText, Qt::black);
    frame->setPalette(pal);
    frame->setAutoFillBackground(false);
    frame->setAttribute(Qt::WA_TransparentForMouseEvents);
    return frame;
}

}  // namespace

BoardView::BoardView(qreal zoom, QWidget* parent) : QWidget(parent), zoom_(zoom), scale_(zoom, {}) {
    setObjectName(QStringLiteral("board"));
    // Every face and pile place is in the first frame: a worker paints them
    // while the window is built and shown; the images take them over when they
    // are first painted.
    preparePictures(devicePixelRatioF(), zoom);
    installTableAccessibility();  // before the first image asks for its interface
    setFixedSize(scale_.table());
    QPalette pal = palette();
    pal.setColor(QPalette::Window, clothColor());
    setPalette(pal);
    setAutoFillBackground(true);

    // Creation order is stacking order: the pile places lie behind everything,
    // the frames above them, the cards in front.
    for (int image = 1; image <= kPileCount; ++image) {
        auto* pile = new PileImage(image, this);
        connect(pile, &BoardImage::clicked, this, [this, image] { emit clicked({Hit::Kind::Pile, Card{}, image}); });
        piles_[static_cast<size_t>(image - 1)] = pile;
    }
    for (const FramePlace& place : framePlaces()) frames_.emplace_back(makeFrame(place, this), place);
    for (int suit = 1; suit <= kSuits; ++suit) {
        for (int rank = 1; rank <= kRanks; ++rank) {
            auto* card = new CardImage(suit, rank, this);
            spots_[cell(suit, rank)] = startSpot(suit, rank);
            const Card shown{static_cast<int16_t>(suit), static_cast<int16_t>(rank)};
            connect(card, &BoardImage::clicked, this, [this, shown] { emit clicked({Hit::Kind::Card, shown, 0}); });
            cards_[cell(suit, rank)] = card;
        }
    }
    layOut(true);
}

void BoardView::setZoom(qreal zoom) {
    zoom_ = zoom;
    fitting_ = false;
    layOut();
}

void BoardView::setFitting(bool fitting) {
    fitting_ = fitting;
    layOut();
}

void BoardView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layOut();
}

// Every image to its place at the zoom in force, smaller only in a widget too
// small for the table; the table in the middle.
void BoardView::layOut(bool always) {
    const qreal fits = TableScale::fitting(size());
    const TableScale now = TableScale::centred(fitting_ ? fits : std::min(zoom_, fits), size());
    if (now == scale_ && !always) return;
    scale_ = now;
    const qreal zoom = scale_.zoom();
    for (int image = 1; image <= kPileCount; ++image) {
        PileImage* pile = piles_[static_cast<size_t>(image - 1)];
        pile->setZoom(zoom);
        pile->move(scale_.at(pilePlace(image).left, pilePlace(image).top));
    }
    for (const auto& [frame, place] : frames_) {
        frame->setGeometry(scale_.image(place.left, place.top));
        frame->setLineWidth(std::max(1, qRound(zoom)));
    }
    for (size_t i = 0; i < cards_.size(); ++i) {
        cards_[i]->setZoom(zoom);
        cards_[i]->move(scale_.at(spots_[i].left, spots_[i].top));
    }
    emit rescaled();
}

BoardView::~BoardView() { takePreparedPictures(); }

CardImage* BoardView::card(int suit, int rank) const {
    if (suit < 1 || suit > kSuits || rank < 1 || rank > kRanks) return nullptr;
    return cards_[cell(suit, rank)];
}

PileImage* BoardView::pile(int image) const {
    if (image < 1 || image > kPileCount) return nullptr;
    return piles_[static_cast<size_t>(image - 1)];
}

QWidget* BoardView::image(const Hit& hit) const {
    if (hit.kind == Hit::Kind::Card) return card(hit.card.suit, hit.card.rank);
    if (hit.kind == Hit::Kind::Pile) return pile(hit.pile);
    return nullptr;
}

std::vector<std::pair<QWidget*, Card>> BoardView::cardImages() const {
    std::vector<std::pair<QWidget*, Card>> images;
    for (int16_t suit = 1; suit <= kSuits; ++suit)
        for (int16_t rank = 1; rank <= kRanks; ++rank) images.emplace_back(card(suit, rank), Card{suit, rank});
    return images;
}

void BoardView::sync(const Board& board) {
    for (int suit = 1; suit <= kSuits; ++suit) {
        for (int rank = 1; rank <= kRanks; ++rank) {
            CardImage* image = cards_[cell(suit, rank)];
            const Spot spot{board.kartleft(suit, rank), board.karttop(suit, rank)};
            spots_[cell(suit, rank)] = spot;
            const QPoint at = scale_.at(spot.left, spot.top);
            if (image->pos() != at) image->move(at);
            image->setSelected(board.border(suit, rank) == 1);
        }
    }
    restack(board);
}

// Brings images to the front so that the widgets lie in the board's zorder.
// Usually only the cards a move brought forward have a new, higher number and are
// raised in ascending order; if any number went down (a board replaced as a
// whole), every card is stacked afresh. Equal numbers keep creation order.
void BoardView::restack(const Board& board) {
    std::vector<size_t> changed;
    uint32_t highestKept = 0;
    bool wentDown = false;
    for (int suit = 1; suit <= kSuits; ++suit) {
        for (int rank = 1; rank <= kRanks; ++rank) {
            const size_t i = cell(suit, rank);
            const uint32_t z = board.zorder(suit, rank);
            if (z == shownZ_[i]) {
                highestKept = std::max(highestKept, z);
                continue;
            }
            if (z < shownZ_[i]) wentDown = true;
            changed.push_back(i);
        }
    }
    if (changed.empty()) return;
    auto zOf = [&board](size_t i) {
        return board.zorder(static_cast<int>(i) / kRanks + 1, static_cast<int>(i) % kRanks + 1);
    };
    const bool allAbove =
        std::all_of(changed.begin(), changed.end(), [&](size_t i) { return zOf(i) > highestKept; });
    if (wentDown || !allAbove) {
        changed.clear();
        for (size_t i = 0; i < cards_.size(); ++i) changed.push_back(i);
    }
    std::stable_sort(changed.begin(), changed.end(), [&](size_t a, size_t b) { return zOf(a) < zOf(b); });
    for (size_t i : changed) {
        cards_[i]->raise();
        shownZ_[i] = zOf(i);
    }
}

void BoardView::setLanguage(Language lang) {
    for (CardImage* card : cards_) card->setLanguage(lang);
    for (PileImage* pile : piles_) pile->setLanguage(lang);
}

}  // namespace vorn::shell
