// The about windows Form3 and Form4: texts, places in pixels (twips / 15), fonts
// and colours, and the OK button.
#include <QFontInfo>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "shell/dialogs/about_window.h"

using vorn::shell::AboutWindow;
using vorn::shell::Language;

namespace {

template <class W>
W* child(QWidget& w, const char* name) {
    auto* c = w.findChild<W*>(QString::fromLatin1(name));
    if (!c) qFatal("no %s", name);
    return c;
}

}  // namespace

class AboutTest : public QObject {
    Q_OBJECT
private slots:
    void layout_data();
    void layout();
    void fontsAndColours_data();
    void fontsAndColours();
    void okCloses();
    void f1CallsHelp();
};

void AboutTest::layout_data() {
    QTest::addColumn<bool>("english");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QSize>("client");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QRect>("label2");
    QTest::addColumn<QRect>("frame1");
    QTest::addColumn<QString>("systems");
    QTest::addColumn<QRect>("label6");
    QTest::addColumn<QRect>("command1");
    QTest::newRow("Form3") << false << "Form3" << QString::fromUtf8("Тавирен v2.0 - О программе") << QSize(328, 226)
                           << QString::fromUtf8("Тавирен v2.0") << QRect(66, 0, 207, 37) << QRect(8, 64, 313, 73)
                           << QString::fromUtf8("и работает в среде WINDOWS 9X/Me/NT/2000/XP") << QRect(8, 168, 316, 16)
                           << QRect(88, 192, 145, 25);
    QTest::newRow("Form4") << true << "Form4" << "Vorn v2.0 - About Vorn" << QSize(330, 216) << "Vorn v2.0"
                           << QRect(88, 0, 140, 37) << QRect(8, 56, 313, 73)
                           << "and works under the control of 9X/Me/NT/2000/XP" << QRect(8, 160, 312, 16)
                           << QRect(88, 184, 145, 25);
}

void AboutTest::layout() {
    QFETCH(bool, english);
    QWidget owner;
    AboutWindow w(english ? Language::English : Language::Russian, &owner);
    QTEST(w.objectName(), "name");
    QTEST(w.windowTitle(), "caption");
    QTEST(w.size(), "client");
    QCOMPARE(w.minimumSize(), w.maximumSize());
    QVERIFY(w.isModal());
    QVERIFY(!w.windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    QVERIFY(!w.windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
    QVERIFY(!w.windowIcon().isNull());

    QTEST(child<QLabel>(w, "Label2")->text(), "title");
    QTEST(child<QLabel>(w, "Label2")->geometry(), "label2");
    QCOMPARE(child<QLabel>(w, "Label1")->text(), QString("FreeWare"));
    QCOMPARE(child<QLabel>(w, "Label1")->geometry(), QRect(112, 40, 77, 16));
    auto* frame = child<QGroupBox>(w, "Frame1");
    QTEST(frame->geometry(), "frame1");
    QVERIFY(frame->title().isEmpty());
    for (const char* name : {"Image1", "Image2"}) {
        auto* image = child<QLabel>(w, name);
        QCOMPARE(image->parentWidget(), frame);
        QVERIFY(!image->pixmap().isNull());
        QCOMPARE(image->pixmap().deviceIndependentSize().toSize(), QSize(32, 32));
    }
    QCOMPARE(child<QLabel>(w, "Image1")->geometry(), QRect(8, 16, 32, 32));
    QCOMPARE(child<QLabel>(w, "Image2")->geometry(), QRect(272, 16, 32, 32));
    QTEST(child<QLabel>(w, "Label6")->text(), "systems");
    QTEST(child<QLabel>(w, "Label6")->geometry(), "label6");
    QCOMPARE(child<QPushButton>(w, "Command1")->text(), QString("OK"));
    QTEST(child<QPushButton>(w, "Command1")->geometry(), "command1");
}

void AboutTest::fontsAndColours_data() {
    QTest::addColumn<bool>("english");
    QTest::newRow("Form3") << false;
    QTest::newRow("Form4") << true;
}

void AboutTest::fontsAndColours() {
    QFETCH(bool, english);
    AboutWindow w(english ? Language::English : Language::Russian, nullptr);
    const QColor darkBlue(0, 0, 128);

    const QFont title = child<QLabel>(w, "Label2")->font();
    QCOMPARE(title.family(), QString("Arial"));
    QCOMPARE(title.pointSizeF(), 24.0);
    QVERIFY(title.bold());
    QVERIFY(!title.italic());
    QCOMPARE(child<QLabel>(w, "Label2")->palette().color(QPalette::WindowText), darkBlue);
    QCOMPARE(QFontInfo(title).family(), QString("Liberation Sans"));  // Arial is shown as Liberation Sans

    const QFont freeWare = child<QLabel>(w, "Label1")->font();
    QCOMPARE(freeWare.family(), QString("MS Sans Serif"));
    QCOMPARE(freeWare.pointSizeF(), 9.75);
    QVERIFY(freeWare.bold());
    QVERIFY(freeWare.italic());
    QCOMPARE(child<QLabel>(w, "Label1")->palette().color(QPalette::WindowText), darkBlue);
    QVERIFY(QFontInfo(freeWare).family() == "DejaVu Sans" || QFontInfo(freeWare).family() == "Liberation Sans");

    const QFont systems = child<QLabel>(w, "Label6")->font();
    QCOMPARE(systems.family(), QString("Arial"));
    QCOMPARE(systems.pointSizeF(), 9.75);
    QVERIFY(systems.bold());
    QVERIFY(!systems.italic());

    const QFont button = child<QPushButton>(w, "Command1")->font();
    QCOMPARE(button.family(), QString("MS Sans Serif"));
    QCOMPARE(button.pointSizeF(), 9.75);
    QVERIFY(button.bold());
}

void AboutTest::okCloses() {
    QWidget owner;
    owner.resize(400, 300);
    owner.show();
    AboutWindow w(Language::Russian, &owner);
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QTest::mouseClick(child<QPushButton>(w, "Command1"), Qt::LeftButton);
    QVERIFY(!w.isVisible());
    QCOMPARE(w.result(), int(QDialog::Accepted));
}

void AboutTest::f1CallsHelp() {
    int calls = 0;
    AboutWindow w(Language::English, nullptr, [&calls] { ++calls; });
    w.show();
    w.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&w));
    QTest::keyClick(&w, Qt::Key_F1);
    QCOMPARE(calls, 1);
    QTest::keyClick(child<QPushButton>(w, "Command1"), Qt::Key_F1);
    QCOMPARE(calls, 2);
}

QTEST_MAIN(AboutTest)
#include "tst_about.moc"
