// The main window: its menus and frame, the images on the board, the two
// languages, clicks and the boxes they bring, New game, Deal again, Save, Load,
// undo and redo, and the quit question. The rules of the game and the bytes of
// the files are the board's and the store's; here they only have to arrive.
#include <QAction>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>

#include "shell/dialogs/help_window.h"
#include "shell/table/board_view.h"
#include "shell/table/card_image.h"
#include "shell/table/pile_image.h"
#include "shell/window/language_switch.h"
#include "support/game.h"

using namespace vorn;
using namespace vorn::test;

namespace {

// The load dialog as the player drives it: its buttons pressed in turn.
std::function<void(QDialog&)> pressing(const QStringList& buttons) {
    return [buttons](QDialog& d) {
        d.show();
        for (const QString& b : buttons) QTest::mouseClick(d.findChild<QPushButton*>(b), Qt::LeftButton);
    };
}

// The Yes and No of Qt's own boxes.
QString qtYesNo() {
    QMessageBox box;
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    return box.button(QMessageBox::Yes)->text().remove('&') + '/' + box.button(QMessageBox::No)->text().remove('&');
}

// Every menu item in order: name, caption (none for a line), keys, and e for
// enabled, c for checkable, x for checked.
QStringList items(const Game& g) {
    QStringList items;
    auto add = [&items](QAction* a) {
        items << a->objectName() + '|' + (a->isSeparator() ? "-" : a->text()) + '|' + a->shortcut().toString() + '|' +
                     (a->isEnabled() ? "e" : "") + (a->isCheckable() ? "c" : "") + (a->isChecked() ? "x" : "");
    };
    for (QAction* top : g.form->menuBar()->actions()) {
        add(top);
        if (top->menu())
            for (QAction* a : top->menu()->actions()) add(a);
    }
    return items;
}

// Captions of the menu items, then the title; the boxes, input box and windows
// of the scenario in textsFollowTheLanguage; Qt's Yes and No.
const char* const kCaptions[] = {"igra", "ig1", "ig5",  "ig2",      "ig3",      "ig7",  "ig8", "ig4", "hint",
                                 "winnable", "solution", "undo", "redo", "leg", "leg1", "leg3", "vix"};
const QStringList kRussian{
    "Игра", "Новая игра", "Расклад заново", "Запомнить расклад", "Загрузить расклад", "Русский", "English",
    "Сообщения", "Подсказка", "Только выигрышные расклады", "Показать решение", "Отменить ход", "Повторить ход",
    "Сервис", "Как играть?     F1", "О программе", "Выход", "Тавирен v2.0",
    "Выберите пункт меню [Новая игра]", "Неправильний ход.", "Эту карту нельзя выбрать.",
    "В названии есть знаки, которых нет в файле раскладов: é\nВместо них будет записан знак «?». Сохранить так?\n"
    "(«Нет» — вернуться к названию и исправить его.)",
    "Вы не ввели название расклада", "Расклад сохранен", "Не удалось записать файл: ",
    "Этот расклад повреждён, его нельзя разложить.", "Выйти из программы ?", "Введите название расклада",
    "Form5", "Тавирен v2.0 - Загрузить расклад", "Form3", "Тавирен v2.0 - О программе", "Да/Нет"};
const QStringList kEnglish{
    "Game", "New game", "Discard anew", "Save discard", "Load discard", "Russian", "English", "Messages", "Hint",
    "Winnable deals only", "Show solution", "Undo move", "Redo move", "Servis", "How to play?", "About...", "Quit",
    "Vorn v2.0", "Select the menu item [New game].", "Wrong step.", "This card cannot be selected.",
    "The name has characters the layout file cannot hold: é\nEach will be stored as \"?\". Save it like this?\n"
    "(No: go back to the name and change it.)",
    "ERROR: name", "Save OK", "Could not write the file: ", "This layout is damaged and cannot be laid out.",
    "Quit ?", "Name", "Form5", "Vorn v2.0 - Load", "Form4", "Vorn v2.0 - About Vorn", "Yes/No"};
// Two captions change only when Russian is chosen from the menu.
QStringList russianChosen() {
    QStringList texts = kRussian;
    texts[3] = "Сохранить расклад";
    texts[14] = "Как играть?";
    return texts;
}

}  // namespace

class WindowTest : public QObject {
    Q_OBJECT
private slots:
    void menuTree();
    void fixedWindowAndItsImages();
    void textsFollowTheLanguage_data();
    void textsFollowTheLanguage();
    void menuKeys();
    void refusalsOnlyWithMessages();
    void wonGameShowsForm3();
    void newGameAndDealAgain();
    void save();
    void load();
    void undoAndRedo();
    void quitQuestion();
};

void WindowTest::menuTree() {
    Game g(deals({winnablePlace}));
    QCOMPARE(items(g),
             QStringList({"igra|Игра||e", "ig1|Новая игра|F2|e", "ig5|Расклад заново|Ctrl+F2|", "line1|-||e",
                          "ig2|Запомнить расклад|F3|", "ig3|Загрузить расклад|F4|e", "line3|-||e",
                          "ig7|Русский|Ctrl+R|ecx", "ig8|English|Ctrl+E|ec", "line2|-||e", "ig4|Сообщения||ec",
                          "line4|-||e", "hint|Подсказка|H|e", "winnable|Только выигрышные расклады||ec",
                          "solution|Показать решение|D|e", "undo|Отменить ход|Ctrl+Z|", "redo|Повторить ход|Ctrl+Y|",
                          "leg|Сервис||e", "leg1|Как играть?     F1||e", "leg2|-||e", "leg3|О программе||e",
                          "vix|Выход||e"}));
    // Save and Deal again stay enabled for good after the first New game.
    for (const char* item : {"ig1", "ig5", "ig8", "ig4", "ig7"}) g.trigger(item);
    QVERIFY(g.action("ig2")->isEnabled() && g.action("ig5")->isEnabled());
}

void WindowTest::fixedWindowAndItsImages() {
    Game g;
    shell::BoardView* view = g.form->boardView();
    QCOMPARE(g.form->centralWidget(), view);
    QCOMPARE(view->objectName(), QString("board"));
    QCOMPARE(g.form->size(), QSize(707, g.form->menuBar()->height() + 526));
    QCOMPARE(view->geometry(), QRect(0, g.form->menuBar()->height(), 707, 526));
    QCOMPARE(g.form->minimumSize(), g.form->maximumSize());
    QVERIFY(!g.form->windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    QVERIFY(g.form->windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
    QVERIFY(!g.form->windowIcon().isNull());
    // Pile places behind the frames, frames behind the cards.
    QString kinds;
    for (const QObject* o : view->children()) {
        const QString n = o->objectName();
        kinds += QRegularExpression("^Image([1-9]|1[01])$").match(n).hasMatch()      ? "p"
                 : QRegularExpression("^r[1-5]_[1-9]\\d?$").match(n).hasMatch()        ? "f"
                 : QRegularExpression("^Im[1-4]_([1-9]|1[0-3])$").match(n).hasMatch() ? "c"
                                                                                         : "";
    }
    QCOMPARE(kinds, QString(11, 'p') + QString(38, 'f') + QString(52, 'c'));
    for (int i = 1; i <= 11; ++i)
        QCOMPARE(g.pile(i)->geometry(), QRect(pilePlace(i).left / 15, pilePlace(i).top / 15, 50, 75));
    for (const FramePlace& f : framePlaces())
        QCOMPARE(view->findChild<QWidget*>(QString("r%1_%2").arg(f.row).arg(f.k))->pos(),
                 QPoint(f.left / 15, f.top / 15));
    QCOMPARE(g.card({2, 7})->objectName(), QString("Im2_7"));
    QCOMPARE(g.unlikeBoard(), QString());  // the starting picture
}

void WindowTest::textsFollowTheLanguage_data() {
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<QString>("chosen");  // the language item chosen after start-up
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("ini.txt 2") << QByteArray("2\r\n") << QString() << kRussian;
    QTest::newRow("ini.txt 1") << QByteArray("1\r\n") << QString() << kEnglish;
    QTest::newRow("Russian chosen again") << QByteArray() << "ig7" << russianChosen();
    QTest::newRow("English chosen") << QByteArray() << "ig8" << kEnglish;
}

void WindowTest::textsFollowTheLanguage() {
    QFETCH(QByteArray, ini);
    QFETCH(QString, chosen);
    QFETCH(QStringList, texts);
    Game g(deals({winnablePlace}), ini.isEmpty() ? std::nullopt : std::optional(ini));
    if (!chosen.isEmpty()) g.trigger(qPrintable(chosen));
    g.trigger("ig4");
    g.click({1, 5});  // before the first deal
    g.trigger("ig1");
    g.click({1, 4});  // behind the 2 and 3 of hearts: a wrong move
    g.click({3, 1});  // an ace, nothing selected
    g.prompts.inputs = {"é", "", "x", "y"};
    g.trigger("ig2");  // a letter save.txt cannot hold; No, back to the name, which is then left empty
    g.trigger("ig2");
    QVERIFY(QFile::remove(g.dir.filePath("save.txt")) && QDir(g.dir.path()).mkdir("save.txt"));
    g.trigger("ig2");  // cannot be written
    g.prompts.handlers = {[&g](QDialog& d) { d.reject(); g.write("load.txt", "damaged\r\n"); }};
    g.trigger("ig3");
    g.trigger("leg3");
    g.form->close();
    QStringList seen;
    for (const char* name : kCaptions) seen << g.action(name)->text();
    seen << g.form->windowTitle();
    for (const QString& text : g.prompts.texts()) seen << text.section(g.dir.path(), 0, 0);
    seen << g.prompts.asked[0].text;
    for (const Box& shown : g.prompts.shown) seen << shown.text << shown.title;
    QCOMPARE(seen << qtYesNo(), texts);
    for (const Box& b : g.prompts.boxes + g.prompts.asked) QCOMPARE(b.title, g.form->windowTitle());
}

void WindowTest::menuKeys() {
    Game g(deals({winnablePlace}));
    g.key(Qt::Key_F2, Qt::ControlModifier);  // Deal again is greyed before the first deal
    QCOMPARE(g.board().rezhim, 1);
    g.key(Qt::Key_F2);
    const Board dealt = g.board();
    QCOMPARE(dealt.rezhim, 2);
    g.play(winningMoves()[0]);
    const Board moved = g.board();
    g.key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(g.board().kartleft, dealt.kartleft);
    g.key(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(g.board().kartleft, moved.kartleft);
    // A switch writes ini.txt, also for the language in force, and leaves the game alone.
    g.click({1, 3});
    const Board selected = g.board();
    g.key(Qt::Key_R, Qt::ControlModifier);
    QCOMPARE(g.file("ini.txt"), QByteArray("2\r\n"));
    g.key(Qt::Key_E, Qt::ControlModifier);
    QCOMPARE(g.file("ini.txt"), QByteArray("1\r\n"));
    QVERIFY(g.action("ig8")->isChecked() && !g.action("ig7")->isChecked());
    QCOMPARE(g.board(), selected);
    QCOMPARE(g.unlikeBoard(), QString());
    g.key(Qt::Key_F1);
    const shell::HelpWindow* help = shell::HelpWindow::current();
    QVERIFY(help && help->helpFile() == "vorne.HLP");
}

void WindowTest::refusalsOnlyWithMessages() {
    Game g(deals({winnablePlace}));
    const shell::Messages& m = g.form->messages();
    g.click({1, 5});  // before the first deal: always
    g.trigger("ig1");
    g.click({1, 4});
    g.click({3, 1});
    QCOMPARE(g.prompts.texts(), QStringList{m.messnov});
    g.trigger("ig4");
    g.click({1, 4});
    g.click({3, 1});
    QCOMPARE(g.prompts.texts(), QStringList({m.messnov, m.messhod, m.messkart}));
}

// Real clicks play the whole game; the images follow every move, and the end
// shows the Russian about window over the finished board, in English too.
void WindowTest::wonGameShowsForm3() {
    Game g(deals({winnablePlace}), "1\r\n");
    g.trigger("ig1");
    g.prompts.handlers = {[&g](QDialog&) { QCOMPARE(g.unlikeBoard(), QString()); }};
    for (const Move& m : winningMoves()) {
        QVERIFY(g.prompts.shown.isEmpty());
        g.play(m);
        QCOMPARE(g.unlikeBoard(), QString());
    }
    QCOMPARE(g.prompts.shown.size(), 1);
    QCOMPARE(g.prompts.shown[0].text, QString("Form3"));
    QCOMPARE(g.prompts.shown[0].title, QString("Тавирен v2.0 - О программе"));
    g.trigger("undo");
    g.trigger("redo");  // the winning move played again wins again
    QCOMPARE(g.prompts.shown.size(), 2);
    QVERIFY(g.prompts.boxes.isEmpty());
}

void WindowTest::newGameAndDealAgain() {
    Game g(deals({winnablePlace}));
    g.trigger("ig1");
    const Board dealt = g.board();
    QCOMPARE(g.file("save1.txt"), QByteArray::fromStdString(dealt.raskl + "\r\n"));
    g.play(winningMoves()[0]);
    g.click({1, 3});
    g.trigger("ig5");
    QCOMPARE(g.board().kartleft, dealt.kartleft);
    QCOMPARE(g.board().karttop, dealt.karttop);
    QCOMPARE(g.unlikeBoard(), QString());
    QVERIFY(!g.action("undo")->isEnabled());
}

void WindowTest::save() {
    Game g(deals({winnablePlace}));
    g.trigger("ig1");
    const QByteArray layout = QByteArray::fromStdString(g.board().raskl);
    g.play(winningMoves()[0]);  // the layout is stored as dealt
    g.trigger("ig2");           // cancelled
    QVERIFY(g.exists("save.txt"));
    QCOMPARE(g.file("save.txt"), QByteArray());
    // No: back to the name as typed, then a name that can be stored; Yes: "?" stored.
    g.prompts.inputs = {"Café 日本", "Cafe", "é"};
    g.prompts.answers = {Answer::No, Answer::Yes};
    g.trigger("ig2");
    g.trigger("ig2");
    QCOMPARE(g.prompts.asked[2].typed, QString("Café 日本"));
    QVERIFY(g.prompts.boxes[1].text.contains(": é 日 本\n"));
    QCOMPARE(g.prompts.boxes[1].buttons, Prompts::Buttons::YesNo);
    QCOMPARE(g.prompts.texts().count("Расклад сохранен"), 2);
    QCOMPARE(g.file("save.txt"), layout + ", Cafe, \r\n" + layout + ", ?, \r\n");
}

void WindowTest::load() {
    Game g(deals({winnablePlace, startPlace}));
    g.trigger("ig1");
    const Board first = g.board();
    g.prompts.inputs = {"first"};
    g.trigger("ig2");
    g.trigger("ig1");
    g.play(winningMoves()[0]);
    QVERIFY(g.action("undo")->isEnabled());
    g.prompts.handlers = {pressing({"Command1", "Command4"})};
    g.trigger("ig3");
    QCOMPARE(g.board().raskl, first.raskl);
    QCOMPARE(g.board().kartleft, first.kartleft);
    QCOMPARE(g.unlikeBoard(), QString());
    QVERIFY(!g.action("undo")->isEnabled());
    // A damaged hand-over leaves the board as it is.
    const Board loaded = g.board();
    g.prompts.handlers = {[&g](QDialog& d) { d.reject(); g.write("load.txt", " 1, 2, 3\r\n"); }};
    g.trigger("ig3");
    QCOMPARE(g.board(), loaded);
    QCOMPARE(g.prompts.boxes.size(), 2);  // Saved; damaged
}

void WindowTest::undoAndRedo() {
    Game g(deals({winnablePlace, winnablePlace}));
    QVERIFY(!g.action("undo")->isEnabled() && !g.action("redo")->isEnabled());
    g.trigger("ig1");
    const Board dealt = g.board();
    g.play(winningMoves()[0]);
    const Board one = g.board();
    g.play(winningMoves()[1]);
    g.click(winningMoves()[2].card);
    g.trigger("undo");
    QCOMPARE(g.board().kartleft, one.kartleft);
    QCOMPARE(g.board().vybor, 1);
    QCOMPARE(g.unlikeBoard(), QString());
    g.trigger("undo");
    QCOMPARE(g.board().kartleft, dealt.kartleft);
    QVERIFY(!g.action("undo")->isEnabled());
    g.trigger("redo");
    QCOMPARE(g.board().kartleft, one.kartleft);
    QCOMPARE(g.unlikeBoard(), QString());
    g.trigger("redo");
    QVERIFY(!g.action("redo")->isEnabled());
    g.trigger("ig1");
    QVERIFY(!g.action("undo")->isEnabled());
}

void WindowTest::quitQuestion() {
    Game g(deals({winnablePlace}), "1");
    g.trigger("ig1");
    g.click({1, 2});
    const Board before = g.board();
    QVERIFY(!g.form->close());  // the close button, answered No
    QVERIFY(g.form->isVisible());
    QCOMPARE(g.board(), before);
    QVERIFY(g.exists("save1.txt") && g.exists("load.txt"));
    QCOMPARE(g.file("ini.txt"), QByteArray("1"));  // start-up reads it and never writes it
    g.prompts.answers = {Answer::Yes};
    g.trigger("vix");  // the Quit command on the menu bar
    QVERIFY(!g.form->isVisible());
    QCOMPARE(g.prompts.boxes.size(), 2);
    QCOMPARE(g.prompts.boxes[1].buttons, Prompts::Buttons::YesNo);
    QCOMPARE(g.prompts.boxes[1].icon, Prompts::Icon::Question);
    QCOMPARE(g.file("ini.txt"), QByteArray("1\r\n"));
    QVERIFY(!g.exists("save1.txt") && !g.exists("load.txt") && g.exists("save.txt"));
}

QTEST_MAIN(WindowTest)
#include "tst_window.moc"
