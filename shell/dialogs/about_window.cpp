// The about windows Form3 (Russian) and Form4 (English), laid out in twips like
// the rest of the game and converted at 15 twips to the pixel.
#include "about_window.h"

#include <QApplication>
#include <QEvent>
#include <QFont>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>

#include "shell/app_icon.h"
#include "fonts.h"

namespace vorn::shell {

namespace {

constexpr int kTwips = 15;

struct Box {
    int left, top, width, height;  // twips
    QRect pixels() const { return {left / kTwips, top / kTwips, width / kTwips, height / kTwips}; }
};

struct AboutLayout {
    const char* objectName;
    int clientWidth, clientHeight;  // twips
    Box label2, label1, frame1, image1, image2, label6, command1;
};

constexpr AboutLayout kForm3{"Form3",
                             4920, 3390,
                             {990, 0, 3105, 555},
                             {1680, 600, 1155, 240},
                             {120, 960, 4695, 1095},
                             {120, 240, 480, 480},
                             {4080, 240, 480, 480},
                             {120, 2520, 4740, 240},
                             {1320, 2880, 2175, 375}};

constexpr AboutLayout kForm4{"Form4",
                             4950, 3240,
                             {1320, 0, 2100, 555},
                             {1680, 600, 1155, 240},
                             {120, 840, 4695, 1095},
                             {120, 240, 480, 480},
                             {4080, 240, 480, 480},
                             {120, 2400, 4680, 240},
                             {1320, 2760, 2175, 375}};

const QColor kDarkBlue(0, 0, 128);

QFont boldFont(const char* family, qreal points, bool italic = false) {
    QFont f(QString::fromLatin1(family));
    f.setPointSizeF(points);
    f.setBold(true);
    f.setItalic(italic);
    return f;
}

QLabel* label(QWidget* parent, const char* name, const QString& caption, const Box& box, const QFont& f) {
    auto* l = new QLabel(caption, parent);
    l->setObjectName(QString::fromLatin1(name));
    l->setGeometry(box.pixels());
    l->setFont(f);
    return l;
}

void paintBlue(QLabel* l) {
    QPalette pal = l->palette();
    pal.setColor(QPalette::WindowText, kDarkBlue);
    l->setPalette(pal);
}

// A palette is dark when its text is lighter than the face it is written on.
bool isDark(const QPalette& pal) {
    return pal.color(QPalette::WindowText).lightness() > pal.color(QPalette::Window).lightness();
}

QLabel* picture(QWidget* parent, const char* name, const Box& box, const QPixmap& pm) {
    auto* l = new QLabel(parent);
    l->setObjectName(QString::fromLatin1(name));
    l->setGeometry(box.pixels());
    l->setPixmap(pm);
    return l;
}

}  // namespace

AboutWindow::AboutWindow(Language lang, QWidget* owner, std::function<void()> help) : QDialog(owner) {
    useGameFonts();
    const AboutLayout& layout = lang == Language::English ? kForm4 : kForm3;
    setObjectName(QString::fromLatin1(layout.objectName));
    setWindowTitle(text(Text::AboutCaption, lang));
    setWindowIcon(gameIcon());
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                   Qt::MSWindowsFixedSizeDialogHint);
    setModal(true);
    setFixedSize(layout.clientWidth / kTwips, layout.clientHeight / kTwips);

    QLabel* title = label(this, "Label2", text(Text::AboutTitleLine, lang), layout.label2, boldFont("Arial", 24));
    title->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    paintBlue(title);
    QLabel* freeWare =
        label(this, "Label1", text(Text::AboutFreeWare, lang), layout.label1, boldFont("MS Sans Serif", 9.75, true));
    paintBlue(freeWare);

    auto* frame = new QGroupBox(this);
    frame->setObjectName(QStringLiteral("Frame1"));
    frame->setGeometry(layout.frame1.pixels());
    const qreal dpr = devicePixelRatioF();
    picture(frame, "Image1", layout.image1, aboutPicture(dpr));
    picture(frame, "Image2", layout.image2, gameIconPixmap(32, dpr));

    label(this, "Label6", text(Text::AboutSystems, lang), layout.label6, boldFont("Arial", 9.75));

    auto* ok = new QPushButton(text(Text::AboutOk, lang), this);
    ok->setObjectName(QStringLiteral("Command1"));
    ok->setGeometry(layout.command1.pixels());
    ok->setFont(boldFont("MS Sans Serif", 9.75));
    ok->setDefault(true);
    ok->setFocus();
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);

    followScheme();

    if (help) {
        auto* f1 = new QShortcut(QKeySequence(Qt::Key_F1), this);
        f1->setContext(Qt::WindowShortcut);
        connect(f1, &QShortcut::activated, this, std::move(help));
    }
}

// The dark-blue title and FreeWare label are made for a light face. Under a
// dark desktop palette the window keeps a light face of its own, every text on
// it dark; under a light one it takes the desktop's palette as it is.
void AboutWindow::followScheme() {
    if (isDark(QApplication::palette(this)))
        setPalette(QPalette(QColor(240, 240, 240)));  // black text on a light grey face, white fields
    else
        setPalette(QPalette());  // nothing of its own: the desktop's palette
}

bool AboutWindow::event(QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange) followScheme();
    return QDialog::event(event);
}

}  // namespace vorn::shell
