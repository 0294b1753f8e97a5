// Save and Load from the main window: the name prompt, the record on disk byte
// for byte, the boxes, and a stored layout coming back through the load dialog.
#include <QAction>
#include <QDialog>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "support/game.h"

using namespace vorn;
using namespace vorn::test;

namespace {

void press(QDialog& dialog, const char* button) {
    auto* b = dialog.findChild<QPushButton*>(QString::fromLatin1(button));
    if (!b) qFatal("the load dialog has no %s", button);
    QTest::mouseClick(b, Qt::LeftButton);
}

// A load dialog run: the buttons are pressed in order on the shown dialog.
std::function<void(QDialog&)> pressing(std::vector<const char*> buttons) {
    return [buttons](QDialog& dialog) {
        dialog.show();
        for (const char* b : buttons) press(dialog, b);
    };
}

std::vector<double> twoDeals() {
    auto script = dealScript(winnablePlace);
    const auto second = dealScript(startPlace);
    script.insert(script.end(), second.begin(), second.end());
    return script;
}

}  // namespace

class SaveLoadTest : public QObject {
    Q_OBJECT
private slots:
    void saveWritesOneRecord();
    void saveInEnglish();
    void saveKeepsTheNameAsTyped();
    void saveWarnsOfLettersTheFileCannotHold();
    void emptyNameSavesNothing();
    void saveThatFailsSaysSo();
    void unwritableFilesDoNotStopTheGame();
    void loadShowsTheStoredLayout();
    void loadBeforeTheFirstDeal();
    void quitLoadLeavesTheBoard();
    void damagedHandOverLeavesTheBoard();
};

void SaveLoadTest::saveWritesOneRecord() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    const std::string raskl = g.board().raskl;
    QCOMPARE(raskl.size(), size_t{182});
    g.clickCard(1, 2);
    g.clickCard(1, 1);  // moves since the deal do not change what is stored
    g.prompts.inputs = {"abcd"};
    g.action("ig2")->trigger();
    QCOMPARE(g.prompts.asked.size(), 1);
    QCOMPARE(g.prompts.asked[0].prompt, QString::fromUtf8("Введите название расклада"));
    QCOMPARE(g.prompts.asked[0].title, QString::fromUtf8("Тавирен v2.0"));
    const QByteArray record = QByteArray::fromStdString(raskl) + ", abcd, \r\n";
    QCOMPARE(g.file("save.txt"), record);
    QCOMPARE(record.size(), 190 + 2);
    QCOMPARE(g.prompts.boxTexts(), QStringList({"Расклад сохранен"}));
    QCOMPARE(g.prompts.boxes[0].title, QString::fromUtf8("Тавирен v2.0"));
    QCOMPARE(g.prompts.boxes[0].buttons, Prompts::Buttons::Ok);
    QCOMPARE(g.prompts.boxes[0].icon, Prompts::Icon::None);

    g.prompts.inputs = {"abcd"};
    g.action("ig5")->trigger();
    g.action("ig2")->trigger();  // the same name twice: two records
    QCOMPARE(g.file("save.txt"), record + record);
}

void SaveLoadTest::saveInEnglish() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    g.action("ig8")->trigger();
    g.prompts.inputs = {"x"};
    g.action("ig2")->trigger();
    g.action("ig2")->trigger();  // cancelled
    QCOMPARE(g.prompts.asked[0].prompt, QString("Name"));
    QCOMPARE(g.prompts.asked[0].title, QString("Vorn v2.0"));
    QCOMPARE(g.prompts.boxTexts(), QStringList({"Save OK", "ERROR: name"}));
    QCOMPARE(g.prompts.boxes[1].title, QString("Vorn v2.0"));
}

void SaveLoadTest::saveKeepsTheNameAsTyped() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    g.prompts.inputs = {QString::fromUtf8("  Мой расклад "), "a\nb"};
    g.action("ig2")->trigger();
    g.action("ig2")->trigger();
    const QByteArray layout = QByteArray::fromStdString(g.board().raskl);
    // Windows-1251: М о й = CC EE E9; a line break becomes a space.
    QCOMPARE(g.file("save.txt"), layout + ",   \xCC\xEE\xE9 \xF0\xE0\xF1\xEA\xEB\xE0\xE4 , \r\n" + layout +
                                     ", a b, \r\n");
}

void SaveLoadTest::saveWarnsOfLettersTheFileCannotHold() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    const QByteArray layout = QByteArray::fromStdString(g.board().raskl);
    // No: back to the name as typed; then a name that can be stored goes without a question.
    g.prompts.inputs = {QString::fromUtf8("Café 日本"), "Cafe"};
    g.prompts.answers = {Prompts::Answer::No};
    g.action("ig2")->trigger();
    QCOMPARE(g.prompts.asked.size(), 2);
    QCOMPARE(g.prompts.asked[0].typed, QString());
    QCOMPARE(g.prompts.asked[1].typed, QString::fromUtf8("Café 日本"));
    QCOMPARE(g.prompts.boxes.size(), 2);
    QVERIFY2(g.prompts.boxes[0].text.contains(QString::fromUtf8(": é 日 本\n")), qPrintable(g.prompts.boxes[0].text));
    QCOMPARE(g.prompts.boxes[0].buttons, Prompts::Buttons::YesNo);
    QCOMPARE(g.prompts.boxes[1].text, QString::fromUtf8("Расклад сохранен"));
    QCOMPARE(g.file("save.txt"), layout + ", Cafe, \r\n");
    // Yes: stored as the code page allows.
    g.action("ig8")->trigger();
    g.prompts.forget();
    g.prompts.inputs = {QString::fromUtf8("Café")};
    g.prompts.answers = {Prompts::Answer::Yes};
    g.action("ig2")->trigger();
    QVERIFY(g.prompts.boxes[0].text.startsWith("The name has characters the layout file cannot hold: é\n"));
    QCOMPARE(g.prompts.boxTexts().last(), QString("Save OK"));
    QCOMPARE(g.file("save.txt"), layout + ", Cafe, \r\n" + layout + ", Caf?, \r\n");
}

void SaveLoadTest::emptyNameSavesNothing() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    g.action("ig2")->trigger();  // cancelled: an empty answer
    QCOMPARE(g.prompts.boxTexts(), QStringList({"Вы не ввели название расклада"}));
    QCOMPARE(g.prompts.boxes[0].title, QString::fromUtf8("Тавирен v2.0"));
    QVERIFY(g.exists("save.txt"));
    QCOMPARE(g.file("save.txt"), QByteArray());
}

void SaveLoadTest::saveThatFailsSaysSo() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    QVERIFY(QFile::remove(g.dir.filePath("save.txt")));
    QVERIFY(QDir(g.dir.path()).mkdir("save.txt"));  // cannot be appended to
    g.prompts.inputs = {"abcd"};
    g.action("ig2")->trigger();
    QCOMPARE(g.prompts.boxes.size(), 1);
    QVERIFY2(g.prompts.boxes[0].text.startsWith(QString::fromUtf8("Не удалось записать файл: ")),
             qPrintable(g.prompts.boxes[0].text));
    QVERIFY(g.prompts.boxes[0].text.contains("save.txt"));
    QCOMPARE(g.prompts.boxes[0].buttons, Prompts::Buttons::Ok);
}

void SaveLoadTest::unwritableFilesDoNotStopTheGame() {
    QTemporaryDir dir;
    for (const char* name : {"save1.txt", "ini.txt"}) QVERIFY(QDir(dir.path()).mkdir(name));
    RecordingPrompts prompts;
    ScriptedRandom random(dealScript(winnablePlace));
    shell::Form2 form(dir.path().toStdString(), prompts, random);  // only a line on stderr
    form.findChild<QAction*>("ig1")->trigger();                    // save1.txt cannot be written
    form.findChild<QAction*>("ig8")->trigger();                    // nor can ini.txt
    QCOMPARE(form.board().rezhim, 2);
    QCOMPARE(form.language(), shell::Language::English);
    prompts.answers = {Prompts::Answer::Yes};
    QVERIFY(form.close());
    QCOMPARE(prompts.boxTexts(), QStringList({"Quit ?"}));  // no box about the files
    QVERIFY(QFileInfo(dir.filePath("ini.txt")).isDir());
}

void SaveLoadTest::loadShowsTheStoredLayout() {
    Game g(twoDeals());
    g.newGame();
    const Board first = g.board();
    g.prompts.inputs = {"first"};
    g.action("ig2")->trigger();
    g.newGame();  // the ordered deck as a layout
    QVERIFY(g.board().mesta != first.mesta);
    g.clickCard(1, 2);  // selected before the load: stays selected

    g.prompts.forget();
    g.prompts.handlers = {[](QDialog& dialog) {
        dialog.show();
        press(dialog, "Command1");
        QCOMPARE(dialog.findChild<QLineEdit*>("Text1")->text(), QString("first"));
        press(dialog, "Command4");
    }};
    g.action("ig3")->trigger();
    QCOMPARE(g.prompts.shown.size(), 1);
    QCOMPARE(g.prompts.shown[0].objectName, QString("Form5"));
    QCOMPARE(g.prompts.shown[0].title, QString::fromUtf8("Тавирен v2.0 - Загрузить расклад"));
    QVERIFY(g.prompts.boxes.isEmpty());
    QCOMPARE(g.board().mesta, first.mesta);
    QCOMPARE(g.board().raskl, first.raskl);
    for (int s = 1; s <= 4; ++s)
        for (int r = 1; r <= 13; ++r) QCOMPARE(g.imageRect(s, r), g.boardRect(s, r));
    QCOMPARE(g.imageRect(1, 7), QRect(648, 8, 50, 75));  // place 10, as dealt first
    QCOMPARE(g.board().rezhim, 2);
    QVERIFY(g.board().isSelected({1, 2}));
    // Deal again now returns to the loaded layout.
    g.action("ig5")->trigger();
    QCOMPARE(g.board().kartleft, first.kartleft);
}

void SaveLoadTest::loadBeforeTheFirstDeal() {
    Game g;
    const Board dealt = [] {
        Game other(dealScript(winnablePlace));
        other.newGame();
        return other.board();
    }();
    // Only spaces come before a number: the tab leaves the first field without
    // one, and its card (the 2 of hearts) goes to the top left corner.
    const QByteArray tabbed = "\t" + QByteArray::fromStdString(dealt.raskl).mid(1);
    g.writeFile("save.txt", tabbed + ", kept, \r\n");
    g.prompts.handlers = {pressing({"Command1", "Command4"})};
    g.action("ig3")->trigger();
    QCOMPARE(g.imageRect(1, 2), QRect(0, 0, 50, 75));
    QCOMPARE(g.board().kartleft(1, 3), dealt.kartleft(1, 3));
    QCOMPARE(g.board().karttop(4, 13), dealt.karttop(4, 13));
    QCOMPARE(g.imageRect(1, 7), QRect(648, 8, 50, 75));
    QCOMPARE(g.board().rezhim, 1);  // still no deal: Save and Deal again stay off
    QVERIFY(!g.action("ig2")->isEnabled());
    QVERIFY(!g.action("ig5")->isEnabled());
    g.clickCard(1, 2);
    QCOMPARE(g.prompts.boxTexts(), QStringList({"Выберите пункт меню [Новая игра]"}));
}

void SaveLoadTest::quitLoadLeavesTheBoard() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    g.prompts.inputs = {"one"};
    g.action("ig2")->trigger();
    g.clickCard(1, 2);
    g.clickCard(1, 1);
    const Board before = g.board();
    g.prompts.forget();
    g.prompts.handlers = {pressing({"Command1", "Command5"})};
    g.action("ig3")->trigger();
    QCOMPARE(g.board().kartleft, before.kartleft);
    QCOMPARE(g.board().karttop, before.karttop);
    QCOMPARE(g.imageRect(1, 2), QRect(328, 24, 50, 75));
    QVERIFY(g.prompts.boxes.isEmpty());
}

void SaveLoadTest::damagedHandOverLeavesTheBoard() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    const Board before = g.board();
    // The dialog is left; then the hand-over file turns out damaged.
    g.prompts.handlers = {[&g](QDialog& dialog) {
        dialog.reject();
        g.writeFile("load.txt", " 1, 2, 3, 4\r\n");
    }};
    g.action("ig3")->trigger();
    QCOMPARE(g.prompts.boxTexts(), QStringList({"Этот расклад повреждён, его нельзя разложить."}));
    QCOMPARE(g.prompts.boxes[0].title, QString::fromUtf8("Тавирен v2.0"));
    QCOMPARE(g.prompts.boxes[0].buttons, Prompts::Buttons::Ok);
    QVERIFY(g.board() == before);
    for (int s = 1; s <= 4; ++s)
        for (int r = 1; r <= 13; ++r) QCOMPARE(g.imageRect(s, r), g.boardRect(s, r));

    g.action("ig8")->trigger();
    g.prompts.handlers = {[&g](QDialog& dialog) {
        dialog.reject();
        g.writeFile("load.txt", QByteArray::fromStdString(g.board().raskl.substr(0, 150)) + ", 99999999\r\n");
    }};
    g.action("ig3")->trigger();
    QCOMPARE(g.prompts.boxTexts().last(), QString("This layout is damaged and cannot be laid out."));
    QVERIFY(g.board() == before);
}

QTEST_MAIN(SaveLoadTest)
#include "tst_save_load.moc"
