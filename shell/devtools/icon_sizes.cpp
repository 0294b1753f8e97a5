// vorn-icon-sizes: draws the program icon from its SVG at the sizes an X11
// window hands to the window manager (kIconSizes: 16, 32, 64 and 128 pixels),
// at build time. The game puts these ready pictures on its windows, so starting
// it neither loads the SVG machinery nor draws the icon four times before its
// window can appear. They are exactly the pixels the SVG icon gives, being
// drawn by the same Qt icon code.
//
//   vorn-icon-sizes <icon.svg> <output folder>
//
// writes vorn-<size>.argb32 for every size: the rows of QImage::Format_ARGB32
// pixels, each a 32-bit word in the byte order of the build machine, which is
// the machine the game is built for.
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <cstdio>

#include "shell/app_icon.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: vorn-icon-sizes <icon.svg> <output folder>\n", stderr);
        return 2;
    }
    // A build step needs no display: draw on Qt's offscreen platform.
    char platformOption[] = "-platform";
    char platformName[] = "offscreen";
    char* qtArgs[] = {argv[0], platformOption, platformName, nullptr};
    int qtArgc = 3;
    QGuiApplication app(qtArgc, qtArgs);

    const QString svg = QString::fromLocal8Bit(argv[1]);
    const QDir out(QString::fromLocal8Bit(argv[2]));
    if (!QFile::exists(svg) || !QDir().mkpath(out.path())) {
        std::fprintf(stderr, "vorn-icon-sizes: no %s, or cannot make %s\n", argv[1], argv[2]);
        return 1;
    }
    const QIcon icon(svg);
    for (int size : vorn::shell::kIconSizes) {
        // What an X11 window does with the icon: a pixmap of that size at the
        // ratio 1, turned into ARGB32.
        const QImage picture = icon.pixmap(QSize(size, size), 1.0).toImage().convertToFormat(QImage::Format_ARGB32);
        QFile file(out.filePath(QStringLiteral("vorn-%1.argb32").arg(size)));
        const qsizetype bytes = qsizetype(size) * size * 4;
        if (picture.size() != QSize(size, size) || picture.bytesPerLine() != size * 4 ||
            !file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
            file.write(reinterpret_cast<const char*>(picture.constBits()), bytes) != bytes || !file.flush()) {
            std::fprintf(stderr, "vorn-icon-sizes: cannot draw %s at %d pixels into %s\n", argv[1], size,
                         qPrintable(file.fileName()));
            return 1;
        }
    }
    return 0;
}
