// The painted pictures: sizes at every pixel ratio, colours of the suits, one
// face per card, the pile-place tiles, and the mark of a selected card.
#include <QSet>
#include <QTest>

#include "shell/table/card_art.h"
#include "shell/table/card_image.h"
#include "shell/table/pile_image.h"

using namespace vorn::shell;

namespace {

// How many pixels of the picture are clearly red, and clearly dark.
struct Inks {
    int red = 0;
    int dark = 0;
};

Inks inks(const QImage& image) {
    Inks n;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QColor c = image.pixelColor(x, y);
            if (c.alpha() < 200) continue;
            if (c.red() > 150 && c.green() < 80 && c.blue() < 100) ++n.red;
            if (c.red() < 60 && c.green() < 60 && c.blue() < 60) ++n.dark;
        }
    return n;
}

}  // namespace

class CardArtTest : public QObject {
    Q_OBJECT
private slots:
    void sizesAtEveryRatio_data();
    void sizesAtEveryRatio();
    void suitsInTheirColours();
    void everyCardHasItsOwnFace();
    void rankLetters();
    void pilePictures();
    void selectedCardIsMarkedInside();
    void imagesShowTheirPictures();
    void preparedPicturesAreThePaintedOnes();
};

void CardArtTest::sizesAtEveryRatio_data() {
    QTest::addColumn<qreal>("ratio");
    QTest::addColumn<QSize>("pixels");
    QTest::newRow("1") << qreal(1.0) << QSize(50, 75);
    QTest::newRow("1.5") << qreal(1.5) << QSize(75, 113);
    QTest::newRow("2") << qreal(2.0) << QSize(100, 150);
    QTest::newRow("nonsense") << qreal(-3.0) << QSize(50, 75);
}

void CardArtTest::sizesAtEveryRatio() {
    QFETCH(qreal, ratio);
    QFETCH(QSize, pixels);
    for (const QPixmap& pm : {cardFace(2, 11, ratio), pilePicture(9, ratio)}) {
        QCOMPARE(pm.size(), pixels);
        QCOMPARE(pm.deviceIndependentSize().toSize(), QSize(50, 75));
    }
    // Asked twice, painted once.
    QCOMPARE(cardFace(2, 11, ratio).cacheKey(), cardFace(2, 11, ratio).cacheKey());
}

void CardArtTest::suitsInTheirColours() {
    for (int suit = 1; suit <= 4; ++suit)
        for (int rank : {1, 7, 10, 12}) {
            const Inks n = inks(cardFace(suit, rank, 1.0).toImage());
            const bool red = suit == 1 || suit == 3;
            const QString card = QString("%1/%2").arg(suit).arg(rank);
            QVERIFY2(red ? n.red > 60 : n.red == 0, qPrintable(card));
            QVERIFY2(red ? n.dark < 5 : n.dark > 60, qPrintable(card));
        }
}

void CardArtTest::everyCardHasItsOwnFace() {
    QSet<QByteArray> faces;
    for (int suit = 1; suit <= 4; ++suit)
        for (int rank = 1; rank <= 13; ++rank) {
            const QImage image = cardFace(suit, rank, 1.0).toImage();
            faces.insert(QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()));
            // Rounded corners show the cloth; the middle of the edge is the card.
            QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
            QCOMPARE(image.pixelColor(25, 37).alpha(), 255);
        }
    QCOMPARE(faces.size(), 52);
    const QImage blank = cardFace(0, 14, 1.0).toImage();  // no such card: a blank face
    QCOMPARE(inks(blank).red + inks(blank).dark, 0);
}

void CardArtTest::rankLetters() {
    const QStringList expected{"", "A", "2", "3", "4", "5", "6", "7", "8", "9", "10", "J", "Q", "K", ""};
    for (int rank = 0; rank <= 14; ++rank) QCOMPARE(rankLetter(rank), expected[rank]);
}

void CardArtTest::pilePictures() {
    const QImage shared = pilePicture(1, 1.0).toImage();
    for (int image : {2, 3, 4, 5, 6, 7, 8, 10, 11}) QCOMPARE(pilePicture(image, 1.0).toImage(), shared);
    QVERIFY(pilePicture(9, 1.0).toImage() != shared);
    const QColor tile = shared.pixelColor(5, 5);
    QVERIFY(tile.blue() > tile.red() + 60 && tile.blue() > tile.green() + 40);  // a blue tile
}

void CardArtTest::selectedCardIsMarkedInside() {
    QWidget board;
    auto* card = new CardImage(3, 9, &board);
    board.resize(100, 100);
    board.show();
    const QImage plain = card->grab().toImage();
    card->setSelected(true);
    const QImage marked = card->grab().toImage();
    QCOMPARE(card->size(), QSize(50, 75));
    QVERIFY(plain != marked);
    const qreal r = marked.devicePixelRatio();
    const QColor edge = marked.pixelColor(QPoint(2, 37) * r);  // inside the face, near its left edge
    QVERIFY2(edge.blue() > 200 && edge.red() < 80, qPrintable(edge.name()));
    QCOMPARE(marked.pixelColor(QPoint(25, 37) * r), plain.pixelColor(QPoint(25, 37) * r));  // the face shows
    card->setSelected(false);
    QCOMPARE(card->grab().toImage(), plain);
}

// The images paint their pictures when they are painted, not before: what they
// show is the face (or tile) from the picture cache, pixel for pixel.
void CardArtTest::imagesShowTheirPictures() {
    QWidget board;
    board.setAttribute(Qt::WA_NoSystemBackground);
    auto* card = new CardImage(4, 12, &board);
    auto* pile = new PileImage(9, &board);
    pile->move(60, 0);
    board.resize(120, 80);
    board.show();
    QVERIFY(QTest::qWaitForWindowExposed(&board));
    const struct {
        QWidget* image;
        QImage picture;
    } shown[] = {{card, cardFace(4, 12, card->devicePixelRatioF()).toImage()},
                 {pile, pilePicture(9, pile->devicePixelRatioF()).toImage()}};
    for (const auto& [image, picture] : shown) {
        const QImage grabbed = image->grab().toImage().convertToFormat(picture.format());
        QCOMPARE(grabbed.size(), picture.size());
        int opaque = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y).alpha() != 255) continue;  // the corners show what lies below
                ++opaque;
                if (grabbed.pixel(x, y) != picture.pixel(x, y))
                    QFAIL(qPrintable(QString("%1 differs at (%2, %3)").arg(image->objectName()).arg(x).arg(y)));
            }
        QVERIFY(opaque > picture.width() * picture.height() * 9 / 10);
    }
}

// The pictures a worker thread paints ahead are those the user interface
// thread paints, and they go into the cache at their ratio.
void CardArtTest::preparedPicturesAreThePaintedOnes() {
    const qreal ratio = 1.25;  // painted by no other test
    QVERIFY(!preparingPictures());
    preparePictures(ratio);
    QVERIFY(preparingPictures());
    const QPixmap otherRatio = cardFace(1, 1, 3.0);  // needs no waiting, takes nothing
    QCOMPARE(otherRatio.toImage(), paintCardFace(1, 1, 3.0));
    QVERIFY(preparingPictures());
    const QPixmap first = cardFace(2, 5, ratio);
    QVERIFY(!preparingPictures());  // all taken over at once
    QCOMPARE(first.devicePixelRatio(), ratio);
    for (int suit = 1; suit <= 4; ++suit)
        for (int rank = 1; rank <= 13; ++rank)
            QCOMPARE(cardFace(suit, rank, ratio).toImage(), paintCardFace(suit, rank, ratio));
    for (int image = 1; image <= 11; ++image) QCOMPARE(pilePicture(image, ratio).toImage(), paintPilePicture(image, ratio));
    preparePictures(ratio);  // all cached: no worker
    QVERIFY(!preparingPictures());
    takePreparedPictures();  // nothing under way: nothing happens
}

QTEST_MAIN(CardArtTest)
#include "tst_card_art.moc"
