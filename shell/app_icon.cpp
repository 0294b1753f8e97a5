// The program's icon and the about picture, from the assets or painted.
#include "app_icon.h"

#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QResource>
#include <cmath>

#include "suit_shapes.h"

namespace vorn::shell {

namespace {

const QString kIconFile = QStringLiteral(":/icons/vorn.svg");

QPixmap canvas(int size, qreal dpr) {
    const int side = static_cast<int>(std::ceil(size * dpr));
    QPixmap pm(side, side);
    pm.setDevicePixelRatio(dpr);
    pm.fill(Qt::transparent);
    return pm;
}

// A white card with a red heart on the green cloth of the board, drawn in a
// 32 x 32 box and scaled to the size asked for.
QPixmap paintedIcon(int size, qreal dpr) {
    QPixmap pm = canvas(size, dpr);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(size / 32.0, size / 32.0);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 96, 0));
    p.drawRoundedRect(QRectF(0.5, 0.5, 31.0, 31.0), 5.0, 5.0);
    p.setPen(QPen(QColor(90, 90, 90), 0.8));
    p.setBrush(Qt::white);
    p.drawRoundedRect(QRectF(7.5, 3.5, 17.0, 25.0), 2.0, 2.0);
    p.fillPath(suitPath(1, QRectF(10.0, 9.0, 12.0, 13.0)), suitColor(1));
    return pm;
}

void drawSmallCard(QPainter& p, qreal angle, int suit) {
    p.save();
    p.translate(16.0, 29.0);
    p.rotate(angle);
    p.setPen(QPen(QColor(90, 90, 90), 0.8));
    p.setBrush(Qt::white);
    p.drawRoundedRect(QRectF(-6.5, -22.0, 13.0, 19.0), 1.5, 1.5);
    p.fillPath(suitPath(suit, QRectF(-4.0, -18.0, 8.0, 9.0)), suitColor(suit));
    p.restore();
}

QPixmap paintedAboutPicture(qreal dpr) {
    QPixmap pm = canvas(32, dpr);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    drawSmallCard(p, -28.0, 4);
    drawSmallCard(p, 0.0, 1);
    drawSmallCard(p, 28.0, 2);
    return pm;
}

QPixmap fromAsset(const QString& path, int size, qreal dpr) {
    if (!QFile::exists(path)) return {};
    return QIcon(path).pixmap(QSize(size, size), dpr);
}

// The icon from the pictures drawn at build time, or a null icon if one is
// missing. They are raw ARGB32 pixels, stored uncompressed: nothing to decode.
QIcon readyIcon() {
    QIcon icon;
    for (int size : kIconSizes) {
        const QResource pixels(QStringLiteral(":/icons/sizes/vorn-%1.argb32").arg(size));
        const QByteArray bytes = pixels.uncompressedData();
        if (bytes.size() != qsizetype(size) * size * 4) return {};
        const QImage picture(reinterpret_cast<const uchar*>(bytes.constData()), size, size, size * 4,
                             QImage::Format_ARGB32);
        icon.addPixmap(QPixmap::fromImage(picture));  // a deep copy: bytes may go
    }
    return icon;
}

}  // namespace

QIcon gameIcon() {
    // A window asks for the icon at kIconSizes times the ratio; at the ratio 1
    // the ready pictures are exactly what the SVG would draw.
    if (qGuiApp && qGuiApp->devicePixelRatio() == 1.0) {
        QIcon icon = readyIcon();
        if (!icon.isNull()) return icon;
    }
    if (QFile::exists(kIconFile)) {
        QIcon icon(kIconFile);
        if (!icon.pixmap(QSize(32, 32)).isNull()) return icon;
    }
    QIcon icon;
    for (int size : {16, 24, 32, 48, 64, 128}) icon.addPixmap(paintedIcon(size, 1.0));
    return icon;
}

QPixmap gameIconPixmap(int size, qreal devicePixelRatio) {
    const qreal dpr = devicePixelRatio > 0.0 ? devicePixelRatio : 1.0;
    QPixmap pm = fromAsset(kIconFile, size, dpr);
    return pm.isNull() ? paintedIcon(size, dpr) : pm;
}

QPixmap aboutPicture(qreal devicePixelRatio) {
    const qreal dpr = devicePixelRatio > 0.0 ? devicePixelRatio : 1.0;
    for (const char* path : {":/about/picture.png", ":/about/picture.svg"}) {
        QPixmap pm = fromAsset(QString::fromLatin1(path), 32, dpr);
        if (!pm.isNull()) return pm;
    }
    return paintedAboutPicture(dpr);
}

}  // namespace vorn::shell
