// The help window: one window for the program, the page of a help file and
// topic, its title from the page, and a clear text for a page that is missing.
#include <QFile>
#include <QTest>
#include <QTextBrowser>

#include "shell/dialogs/help_window.h"

using vorn::shell::HelpWindow;

class HelpTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { delete HelpWindow::current(); }
    void pagePaths_data();
    void pagePaths();
    void showsThePageOfTheFile_data();
    void showsThePageOfTheFile();
    void oneWindowForEveryCall();
    void missingPageSaysSo_data();
    void missingPageSaysSo();
};

void HelpTest::pagePaths_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("topic");
    QTest::addColumn<QString>("path");
    QTest::newRow("Russian") << "vorn.HLP" << 1010 << ":/help/vorn/1010.html";
    QTest::newRow("English") << "vorne.HLP" << 1010 << ":/help/vorne/1010.html";
    QTest::newRow("upper case") << "VORNE.HLP" << 7 << ":/help/vorne/7.html";
}

void HelpTest::pagePaths() {
    QFETCH(QString, file);
    QFETCH(int, topic);
    QTEST(HelpWindow::pagePath(file, topic), "path");
}

void HelpTest::showsThePageOfTheFile_data() {
    QTest::addColumn<QString>("file");
    QTest::newRow("Russian") << "vorn.HLP";
    QTest::newRow("English") << "vorne.HLP";
}

void HelpTest::showsThePageOfTheFile() {
    QFETCH(QString, file);
    const QString path = HelpWindow::pagePath(file, 1010);
    QFile page(path);
    QVERIFY(page.open(QIODevice::ReadOnly));
    const QString html = QString::fromUtf8(page.readAll());
    const auto start = html.indexOf("<title>") + 7;
    const QString title = html.mid(start, html.indexOf("</title>") - start).trimmed();

    HelpWindow* help = HelpWindow::showTopic(file, 1010);
    QVERIFY(help->isVisible());
    QCOMPARE(help->objectName(), QString("help"));
    QCOMPARE(help->windowTitle(), title);
    QCOMPARE(help->helpFile(), file);
    QCOMPARE(help->topic(), 1010);
    QVERIFY(help->pageText().size() > 200);
}

void HelpTest::oneWindowForEveryCall() {
    QVERIFY(HelpWindow::current() == nullptr);
    HelpWindow* first = HelpWindow::showTopic("vorn.HLP", 1010);
    HelpWindow* second = HelpWindow::showTopic("vorne.HLP", 1010);
    QCOMPARE(second, first);
    QCOMPARE(HelpWindow::current(), first);
    QCOMPARE(first->helpFile(), QString("vorne.HLP"));
    first->close();
    QTRY_VERIFY(HelpWindow::current() == nullptr);  // closing ends it; the next call makes a new one
}

void HelpTest::missingPageSaysSo_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("topic");
    QTest::addColumn<QString>("says");
    QTest::newRow("unknown topic") << "vorne.HLP" << 42 << "Help page not found: vorne.HLP#42";
    QTest::newRow("unknown file") << "other.HLP" << 1010 << QString::fromUtf8("Страница справки не найдена: other.HLP#1010");
    QTest::newRow("no file at all") << "" << 1010 << QString::fromUtf8("Страница справки не найдена: #1010");
}

void HelpTest::missingPageSaysSo() {
    QFETCH(QString, file);
    QFETCH(int, topic);
    HelpWindow* help = HelpWindow::showTopic(file, topic);
    QVERIFY(help);
    QTEST(help->pageText(), "says");
    QTEST(help->windowTitle(), "says");
}

QTEST_MAIN(HelpTest)
#include "tst_help.moc"
