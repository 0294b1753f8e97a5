// The program icon: the pictures drawn from the SVG at build time must be the
// very pixels the SVG icon gives at the sizes a window hands to the window
// manager, so that the ready icon looks exactly like the drawn one.
#include <QIcon>
#include <QImage>
#include <QTest>

#include "shell/app_icon.h"

using namespace vorn::shell;

namespace {

// What an X11 window sends its window manager for one size of an icon.
QImage windowPicture(const QIcon& icon, int size) {
    return icon.pixmap(QSize(size, size)).toImage().convertToFormat(QImage::Format_ARGB32);
}

}  // namespace

class AppIconTest : public QObject {
    Q_OBJECT
private slots:
    void readyPicturesAtTheWindowSizes();
    void readyPicturesAreTheSvgPixels();
};

void AppIconTest::readyPicturesAtTheWindowSizes() {
    QCOMPARE(qApp->devicePixelRatio(), 1.0);
    QList<QSize> expected;
    for (int size : kIconSizes) expected.append(QSize(size, size));
    // A drawn SVG icon has no sizes of its own; the ready one has exactly these.
    QCOMPARE(gameIcon().availableSizes(), expected);
}

void AppIconTest::readyPicturesAreTheSvgPixels() {
    const QIcon ready = gameIcon();
    const QIcon svg(QStringLiteral(":/icons/vorn.svg"));
    for (int size : kIconSizes) {
        const QImage drawn = windowPicture(svg, size);
        QCOMPARE(drawn.size(), QSize(size, size));
        QVERIFY2(drawn.pixelColor(size / 2, size / 2).alpha() == 255, "the SVG icon was not drawn");
        QCOMPARE(windowPicture(ready, size), drawn);
    }
}

QTEST_MAIN(AppIconTest)
#include "tst_app_icon.moc"
