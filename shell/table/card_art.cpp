// Card faces: a white rounded card with a grey edge, the rank and suit in the
// top-left corner (and upside down in the bottom-right one), so that even the
// 16-pixel strip of a covered card names it; in the middle one large pip for an
// ace, the classic pip pattern for 2 to 10, and a framed letter for the courts.
#include "card_art.h"

#include <QFont>
#include <QHash>
#include <QPainter>
#include <QThread>
#include <array>
#include <cmath>
#include <memory>
#include <vector>

#include "board/geometry.h"
#include "shell/suit_shapes.h"

namespace vorn::shell {

namespace {

constexpr QRectF kCardRect(0.5, 0.5, kCardPixelWidth - 1.0, kCardPixelHeight - 1.0);

// A transparent picture to paint on, in the format a QPixmap of a raster
// platform holds after fill(Qt::transparent), so it becomes a pixmap unchanged.
// Its device pixels are those of a 50·zoom x 75·zoom image on a screen of ratio
// dpr, and it is painted on afresh at that size, never scaled.
QImage blankImage(qreal dpr, qreal zoom) {
    auto pixels = [&](int length) { return static_cast<int>(std::ceil(length * zoom * dpr - 1e-6)); };
    QImage image(QSize(pixels(kCardPixelWidth), pixels(kCardPixelHeight)), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(dpr);
    image.fill(Qt::transparent);
    return image;
}

// A painter that draws in the card's own 50 x 75 units.
void startPainting(QPainter& p, qreal zoom) {
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    p.scale(zoom, zoom);
}

QFont indexFont(int rank) {
    QFont f(QStringLiteral("DejaVu Sans"));
    f.setBold(true);
    f.setPixelSize(rank == 10 ? 12 : 13);
    if (rank == 10) f.setLetterSpacing(QFont::AbsoluteSpacing, -1.2);
    return f;
}

// Rank and a small suit side by side, at the top left of the card.
void drawIndex(QPainter& p, int suit, int rank) {
    p.setFont(indexFont(rank));
    p.setPen(suitColor(suit));
    const QRectF textBox(2.0, 0.5, rank == 10 ? 15.0 : 11.0, 15.0);
    p.drawText(textBox, Qt::AlignCenter, rankLetter(rank));
    const qreal x = textBox.right() + 0.5;
    p.fillPath(suitPath(suit, QRectF(x, 3.5, 9.0, 9.5)), suitColor(suit));
}

void drawPip(QPainter& p, int suit, QPointF centre, qreal size, bool upsideDown) {
    const QRectF box(-size / 2, -size / 2, size, size * 1.05);
    p.save();
    p.translate(centre);
    if (upsideDown) p.rotate(180);
    p.fillPath(suitPath(suit, box), suitColor(suit));
    p.restore();
}

// Pip patterns of the number cards: column (-1 left, 0 middle, 1 right) and a
// row from 0 (top) to 1 (bottom).
struct Pip {
    int column;
    double row;
};

std::vector<Pip> pipPattern(int rank) {
    const double third = 1.0 / 3.0;
    std::vector<Pip> pips;
    auto pairsAt = [&](std::initializer_list<double> rows) {
        for (double r : rows) pips.push_back({-1, r}), pips.push_back({1, r});
    };
    switch (rank) {
        case 2: pips = {{0, 0}, {0, 1}}; break;
        case 3: pips = {{0, 0}, {0, 0.5}, {0, 1}}; break;
        case 4: pairsAt({0, 1}); break;
        case 5: pairsAt({0, 1}), pips.push_back({0, 0.5}); break;
        case 6: pairsAt({0, 0.5, 1}); break;
        case 7: pairsAt({0, 0.5, 1}), pips.push_back({0, 0.25}); break;
        case 8: pairsAt({0, 0.5, 1}), pips.push_back({0, 0.25}), pips.push_back({0, 0.75}); break;
        case 9: pairsAt({0, third, 2 * third, 1}), pips.push_back({0, 0.5}); break;
        case 10:
            pairsAt({0, third, 2 * third, 1});
            pips.push_back({0, third / 2});
            pips.push_back({0, 1 - third / 2});
            break;
        default: break;
    }
    return pips;
}

void drawNumberPips(QPainter& p, int suit, int rank) {
    const qreal size = rank >= 7 ? 9.0 : 10.0;
    const qreal top = 23.0;
    const qreal bottom = 52.5;
    for (const Pip& pip : pipPattern(rank)) {
        const QPointF c(25.0 + pip.column * 10.0, top + pip.row * (bottom - top));
        drawPip(p, suit, c, size, pip.row > 0.5);
    }
}

void drawCourt(QPainter& p, int suit, int rank) {
    const QRectF frame(10.5, 17.5, 29.0, 40.0);
    p.setPen(QPen(suitColor(suit), 1.0));
    p.setBrush(isRedSuit(suit) ? QColor(255, 240, 236) : QColor(236, 240, 250));
    p.drawRoundedRect(frame, 2.0, 2.0);
    QFont f(QStringLiteral("DejaVu Serif"));
    f.setBold(true);
    f.setPixelSize(22);
    p.setFont(f);
    p.drawText(QRectF(frame.left(), frame.top() + 1.0, frame.width(), 24.0), Qt::AlignCenter, rankLetter(rank));
    drawPip(p, suit, QPointF(25.0, 47.5), 11.0, false);
}

void paintFace(QPainter& p, int suit, int rank) {
    p.setPen(QPen(QColor(150, 150, 150), 1.0));
    p.setBrush(Qt::white);
    p.drawRoundedRect(kCardRect, 3.5, 3.5);
    if (suit < 1 || suit > 4 || rank < 1 || rank > 13) return;

    drawIndex(p, suit, rank);
    p.save();
    p.translate(kCardPixelWidth, kCardPixelHeight);
    p.rotate(180);
    drawIndex(p, suit, rank);
    p.restore();

    if (rank == 1)
        drawPip(p, suit, QPointF(25.0, 37.0), 24.0, false);
    else if (rank <= 10)
        drawNumberPips(p, suit, rank);
    else
        drawCourt(p, suit, rank);
}

// A card outline with an arrow pointing into it: "a card goes here".
void drawArrowIntoCard(QPainter& p) {
    p.drawRoundedRect(QRectF(13.5, 28.5, 23.0, 33.0), 2.5, 2.5);
    p.drawLine(QPointF(25.0, 10.0), QPointF(25.0, 40.0));
    QPainterPath head;
    head.moveTo(18.0, 33.0);
    head.lineTo(25.0, 41.0);
    head.lineTo(32.0, 33.0);
    p.drawPath(head);
}

void drawCrown(QPainter& p) {
    QPainterPath crown;
    crown.moveTo(12.0, 46.0);
    crown.lineTo(10.0, 27.0);
    crown.lineTo(18.5, 35.0);
    crown.lineTo(25.0, 22.0);
    crown.lineTo(31.5, 35.0);
    crown.lineTo(40.0, 27.0);
    crown.lineTo(38.0, 46.0);
    crown.closeSubpath();
    p.drawPath(crown);
    p.drawLine(QPointF(12.0, 51.0), QPointF(38.0, 51.0));
    for (QPointF c : {QPointF(10.0, 24.5), QPointF(25.0, 19.5), QPointF(40.0, 24.5)}) p.drawEllipse(c, 2.0, 2.0);
}

void paintPile(QPainter& p, int image) {
    p.setPen(QPen(QColor(14, 34, 84), 1.0));
    p.setBrush(QColor(52, 98, 178));
    p.drawRoundedRect(kCardRect, 3.5, 3.5);
    p.setPen(QPen(QColor(14, 34, 84), 2.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    if (image == 9)
        drawCrown(p);
    else
        drawArrowIntoCard(p);
}

// Painted pictures by (kind, suit, rank or image, zoom and ratio in
// hundredths). A table that scales with its window passes through many zooms:
// the cache holds the pictures of a few of them at most.
QHash<quint64, QPixmap>& cache() {
    static QHash<quint64, QPixmap> pictures;
    return pictures;
}
constexpr qsizetype kCachedPictures = 4 * (kSuits * kRanks + kPileCount);

quint64 cacheKey(int kind, int a, int b, qreal dpr, qreal zoom) {
    auto hundredths = [](qreal v) { return static_cast<quint64>(std::lround(v * 100.0)) & 0xffff; };
    return (static_cast<quint64>(kind) << 48) | (static_cast<quint64>(a & 0xff) << 40) |
           (static_cast<quint64>(b & 0xff) << 32) | (hundredths(zoom) << 16) | hundredths(dpr);
}

qreal sanitized(qreal ratio) { return (ratio > 0.0 && ratio < 16.0) ? ratio : 1.0; }

// The pictures a worker thread is painting: it fills `pictures` and ends; the
// user interface thread reads them only after waiting for it.
struct Prepared {
    qreal dpr = 1.0;
    qreal zoom = 1.0;
    std::unique_ptr<QThread> worker;
    std::vector<std::pair<quint64, QImage>> pictures;
};

std::unique_ptr<Prepared>& prepared() {
    static std::unique_ptr<Prepared> under_way;
    return under_way;
}

}  // namespace

QString rankLetter(int rank) {
    switch (rank) {
        case 1: return QStringLiteral("A");
        case 11: return QStringLiteral("J");
        case 12: return QStringLiteral("Q");
        case 13: return QStringLiteral("K");
        default: return (rank >= 2 && rank <= 10) ? QString::number(rank) : QString();
    }
}

QImage paintCardFace(int suit, int rank, qreal devicePixelRatio, qreal zoom) {
    QImage image = blankImage(sanitized(devicePixelRatio), sanitized(zoom));
    QPainter p(&image);
    startPainting(p, sanitized(zoom));
    paintFace(p, suit, rank);
    return image;
}

QImage paintPilePicture(int image, qreal devicePixelRatio, qreal zoom) {
    QImage picture = blankImage(sanitized(devicePixelRatio), sanitized(zoom));
    QPainter p(&picture);
    startPainting(p, sanitized(zoom));
    paintPile(p, image);
    return picture;
}

namespace {

// From the cache, then from the pictures prepared at that ratio, else painted
// here and now.
template <typename Paint>
QPixmap cached(quint64 key, qreal dpr, qreal zoom, Paint paint) {
    if (auto it = cache().constFind(key); it != cache().constEnd()) return *it;
    if (prepared() && prepared()->dpr == dpr && prepared()->zoom == zoom) {
        takePreparedPictures();
        if (auto it = cache().constFind(key); it != cache().constEnd()) return *it;
    }
    QPixmap pm = QPixmap::fromImage(paint());
    if (cache().size() >= kCachedPictures) cache().clear();  // the images keep what they show
    cache().insert(key, pm);
    return pm;
}

}  // namespace

QPixmap cardFace(int suit, int rank, qreal devicePixelRatio, qreal zoom) {
    const qreal dpr = sanitized(devicePixelRatio), z = sanitized(zoom);
    return cached(cacheKey(1, suit, rank, dpr, z), dpr, z, [&] { return paintCardFace(suit, rank, dpr, z); });
}

QPixmap pilePicture(int image, qreal devicePixelRatio, qreal zoom) {
    const qreal dpr = sanitized(devicePixelRatio), z = sanitized(zoom);
    return cached(cacheKey(2, image, 0, dpr, z), dpr, z, [&] { return paintPilePicture(image, dpr, z); });
}

void preparePictures(qreal devicePixelRatio, qreal zoom) {
    const qreal dpr = sanitized(devicePixelRatio), z = sanitized(zoom);
    if (prepared() || cache().contains(cacheKey(1, 1, 1, dpr, z))) return;
    auto work = std::make_unique<Prepared>();
    work->dpr = dpr;
    work->zoom = z;
    Prepared* out = work.get();
    work->worker.reset(QThread::create([out, dpr, z] {
        for (int suit = 1; suit <= 4; ++suit)
            for (int rank = 1; rank <= 13; ++rank)
                out->pictures.emplace_back(cacheKey(1, suit, rank, dpr, z), paintCardFace(suit, rank, dpr, z));
        for (int image = 1; image <= 11; ++image)
            out->pictures.emplace_back(cacheKey(2, image, 0, dpr, z), paintPilePicture(image, dpr, z));
    }));
    work->worker->setObjectName(QStringLiteral("boardPictures"));
    work->worker->start();
    prepared() = std::move(work);
}

bool preparingPictures() { return prepared() != nullptr; }

void takePreparedPictures() {
    std::unique_ptr<Prepared> work = std::move(prepared());
    if (!work) return;
    work->worker->wait();
    for (auto& [key, picture] : work->pictures)
        if (!cache().contains(key)) cache().insert(key, QPixmap::fromImage(std::move(picture)));
}

}  // namespace vorn::shell
