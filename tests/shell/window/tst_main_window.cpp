// The main window: its menu tree, its size and cloth, the images on the board,
// New game and Deal again, and the quit question.
#include <QAction>
#include <QFrame>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include "support/game.h"
#include "shell/table/board_view.h"
#include "shell/table/card_image.h"
#include "shell/table/pile_image.h"

using namespace vorn;
using namespace vorn::test;

namespace {

struct Item {
    const char* name;
    const char* caption;  // nullptr for a separator
    const char* shortcut;
    bool enabled;
    bool checkable;
    bool checked;
};

QStringList names(const QList<QAction*>& actions) {
    QStringList out;
    for (QAction* a : actions) out << a->objectName();
    return out;
}

void checkItems(QMenu* menu, const std::vector<Item>& expected) {
    const QList<QAction*> actions = menu->actions();
    QCOMPARE(actions.size(), static_cast<qsizetype>(expected.size()));
    for (size_t i = 0; i < expected.size(); ++i) {
        QAction* a = actions[static_cast<qsizetype>(i)];
        const Item& e = expected[i];
        QCOMPARE(a->objectName(), QString::fromLatin1(e.name));
        QCOMPARE(a->isSeparator(), e.caption == nullptr);
        if (e.caption) QCOMPARE(a->text(), QString::fromUtf8(e.caption));
        QCOMPARE(a->shortcut(), QKeySequence(QString::fromLatin1(e.shortcut)));
        QCOMPARE(a->isEnabled(), e.enabled);
        QCOMPARE(a->isCheckable(), e.checkable);
        QCOMPARE(a->isChecked(), e.checked);
    }
}

}  // namespace

class MainWindowTest : public QObject {
    Q_OBJECT
private slots:
    void menuTreeAsCreated();
    void newGameEnablesSaveAndDealAgainForGood();
    void shortcutKeysReachTheMenu();
    void dealAgainLaysTheLayoutOutAgain();
    void windowSizeFlagsAndCloth();
    void imagesOfTheBoard();
    void cardsSitWhereTheBoardSays();
    void quitAnsweredNoChangesNothing();
    void quitAnsweredYesEndsTheRun();
    void quitMenuCommandAsksToo();
};

void MainWindowTest::menuTreeAsCreated() {
    Game g;
    QMenuBar* bar = g.form->menuBar();
    QCOMPARE(names(bar->actions()), QStringList({"igra", "leg", "vix"}));
    QCOMPARE(bar->actions()[0]->text(), QString::fromUtf8("Игра"));
    QCOMPARE(bar->actions()[1]->text(), QString::fromUtf8("Сервис"));
    QCOMPARE(bar->actions()[2]->text(), QString::fromUtf8("Выход"));
    QVERIFY(bar->actions()[2]->menu() == nullptr);  // vix is a command on the bar itself

    auto* igra = g.form->findChild<QMenu*>("igra");
    QVERIFY(igra);
    QCOMPARE(igra->menuAction(), bar->actions()[0]);
    checkItems(igra, {
                         {"ig1", "Новая игра", "F2", true, false, false},
                         {"ig5", "Расклад заново", "Ctrl+F2", false, false, false},
                         {"line1", nullptr, "", true, false, false},
                         {"ig2", "Запомнить расклад", "F3", false, false, false},
                         {"ig3", "Загрузить расклад", "F4", true, false, false},
                         {"line3", nullptr, "", true, false, false},
                         {"ig7", "Русский", "Ctrl+R", true, true, true},
                         {"ig8", "English", "Ctrl+E", true, true, false},
                         {"line2", nullptr, "", true, false, false},
                         {"ig4", "Сообщения", "", true, true, false},
                         {"line4", nullptr, "", true, false, false},
                         {"hint", "Подсказка", "H", true, false, false},
                         {"winnable", "Только выигрышные расклады", "", true, true, false},
                         {"solution", "Показать решение", "D", true, false, false},
                         {"undo", "Отменить ход", "Ctrl+Z", false, false, false},
                         {"redo", "Повторить ход", "Ctrl+Y", false, false, false},
                     });
    auto* leg = g.form->findChild<QMenu*>("leg");
    QVERIFY(leg);
    checkItems(leg, {
                        {"leg1", "Как играть?     F1", "", true, false, false},
                        {"leg2", nullptr, "", true, false, false},
                        {"leg3", "О программе", "", true, false, false},
                    });
    // The language items are two independent check marks, not a radio group.
    QVERIFY(g.action("ig7")->actionGroup() == nullptr);
    QVERIFY(g.action("ig8")->actionGroup() == nullptr);
}

void MainWindowTest::newGameEnablesSaveAndDealAgainForGood() {
    auto script = dealScript(winnablePlace);
    const auto second = dealScript(startPlace);
    script.insert(script.end(), second.begin(), second.end());
    Game g(script);
    g.newGame();
    QVERIFY(g.action("ig2")->isEnabled());
    QVERIFY(g.action("ig5")->isEnabled());
    QCOMPARE(g.board().rezhim, 2);
    g.action("ig5")->trigger();
    g.newGame();
    g.action("ig8")->trigger();
    g.action("ig4")->trigger();
    QVERIFY(g.action("ig2")->isEnabled());
    QVERIFY(g.action("ig5")->isEnabled());
    QVERIFY(g.prompts.boxes.isEmpty());
}

void MainWindowTest::shortcutKeysReachTheMenu() {
    Game g(dealScript(winnablePlace));
    g.form->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(g.form.get()));
    QTest::keyClick(g.form.get(), Qt::Key_F5);  // no item of the game
    QCOMPARE(g.board().rezhim, 1);
    QTest::keyClick(g.form.get(), Qt::Key_F2, Qt::ControlModifier);  // Deal again: still disabled
    QCOMPARE(g.board().rezhim, 1);
    QTest::keyClick(g.form.get(), Qt::Key_F2);
    QCOMPARE(g.board().rezhim, 2);
    QVERIFY(g.action("ig5")->isEnabled());
    QTest::keyClick(g.form.get(), Qt::Key_E, Qt::ControlModifier);
    QVERIFY(g.action("ig8")->isChecked());
    QCOMPARE(g.file("ini.txt"), QByteArray("1\r\n"));
    QTest::keyClick(g.form.get(), Qt::Key_R, Qt::ControlModifier);
    QVERIFY(g.action("ig7")->isChecked());
    QCOMPARE(g.file("ini.txt"), QByteArray("2\r\n"));
}

void MainWindowTest::dealAgainLaysTheLayoutOutAgain() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    const Board dealt = g.board();
    QCOMPARE(g.file("save1.txt"), QByteArray::fromStdString(dealt.raskl + "\r\n"));
    // 2 of hearts onto its ace, then the 3 onto the 2.
    for (const Move& m : {winningMoves()[0], winningMoves()[1]}) {
        g.clickCard(m.card);
        g.clickCard(m.onto);
    }
    QCOMPARE(g.imageRect(1, 3), QRect(328, 24, 50, 75));
    g.action("ig5")->trigger();
    QCOMPARE(g.board().kartleft, dealt.kartleft);
    QCOMPARE(g.board().karttop, dealt.karttop);
    QCOMPARE(g.imageRect(1, 2), QRect(8, 8, 50, 75));
    QCOMPARE(g.imageRect(1, 3), QRect(72, 8, 50, 75));
    QCOMPARE(g.file("save1.txt"), QByteArray::fromStdString(dealt.raskl + "\r\n"));
}

void MainWindowTest::windowSizeFlagsAndCloth() {
    Game g;
    auto* view = g.form->boardView();
    QCOMPARE(g.form->objectName(), QString("Form2"));
    QCOMPARE(g.form->centralWidget(), view);
    QCOMPARE(view->objectName(), QString("board"));
    QCOMPARE(view->size(), QSize(707, 526));
    // The client area lies right below the menu bar and fills the rest of the window.
    QCOMPARE(view->y(), g.form->menuBar()->height());
    QCOMPARE(g.form->height(), g.form->menuBar()->height() + 526);
    QCOMPARE(g.form->width(), 707);
    QCOMPARE(g.form->minimumSize(), g.form->maximumSize());
    QCOMPARE(g.form->windowTitle(), QString::fromUtf8("Тавирен v2.0"));
    QVERIFY(!g.form->windowIcon().isNull());

    const Qt::WindowFlags flags = g.form->windowFlags();
    QVERIFY(flags.testFlag(Qt::WindowMinimizeButtonHint));
    QVERIFY(flags.testFlag(Qt::WindowCloseButtonHint));
    QVERIFY(!flags.testFlag(Qt::WindowMaximizeButtonHint));

    QVERIFY(view->autoFillBackground());
    QCOMPARE(view->palette().color(QPalette::Window), QColor(0, 96, 0));
    const QImage picture = view->grab().toImage();
    for (QPoint p : {QPoint(2, 2), QPoint(700, 520), QPoint(30, 100)})  // between and around the cards
        QCOMPARE(picture.pixelColor(p * picture.devicePixelRatio()), QColor(0, 96, 0));
}

void MainWindowTest::imagesOfTheBoard() {
    Game g;
    auto* view = g.form->boardView();
    const QObjectList children = view->children();
    auto indexOf = [&](const char* name) {
        QObject* child = view->findChild<QObject*>(QString::fromLatin1(name), Qt::FindDirectChildrenOnly);
        return child ? children.indexOf(child) : -1;
    };
    // Pile places first (behind everything), then the frames, then the cards.
    for (int image = 1; image <= 11; ++image) {
        QCOMPARE(indexOf(qPrintable(QString("Image%1").arg(image))), image - 1);
        const PilePlace& place = pilePlace(image);
        QCOMPARE(g.pile(image)->geometry(), QRect(place.left / 15, place.top / 15, 50, 75));
    }
    const auto frames = framePlaces();
    QCOMPARE(view->findChildren<QFrame*>(QRegularExpression("^r\\d_\\d+$")).size(), 38);
    for (const FramePlace& f : frames) {
        auto* frame = view->findChild<QFrame*>(QString("r%1_%2").arg(f.row).arg(f.k));
        QVERIFY(frame);
        QCOMPARE(frame->geometry(), QRect(f.left / 15, f.top / 15, 50, 75));
        QVERIFY(frame->testAttribute(Qt::WA_TransparentForMouseEvents));
        QCOMPARE(frame->frameShape(), QFrame::Box);
        QCOMPARE(frame->lineWidth(), 1);
        QVERIFY(!frame->autoFillBackground());
        QVERIFY(children.indexOf(frame) > indexOf("Image11"));
        QVERIFY(children.indexOf(frame) < indexOf("Im1_1"));
    }
    QVERIFY(view->findChild<QFrame*>("r5_4") == nullptr);  // place 44 is marked by Image10
    int previous = -1;
    for (int s = 1; s <= 4; ++s)
        for (int r = 1; r <= 13; ++r) {
            const int at = indexOf(qPrintable(QString("Im%1_%2").arg(s).arg(r)));
            QVERIFY(at > previous);  // created Im1_1 ... Im4_13
            previous = at;
        }
}

void MainWindowTest::cardsSitWhereTheBoardSays() {
    Game g(dealScript(winnablePlace));
    // The starting picture: the ordered deck.
    QCOMPARE(g.imageRect(1, 2), QRect(8, 8, 50, 75));
    QCOMPARE(g.imageRect(4, 13), QRect(584, 424, 50, 75));
    QCOMPARE(g.imageRect(3, 1), QRect(328, 216, 50, 75));
    QCOMPARE(g.imageRect(1, 6), QRect(264, 8, 50, 75));  // in front of Image1
    QCOMPARE(g.form->boardView()->childAt(280, 40), g.card(1, 6));
    g.newGame();
    for (int s = 1; s <= 4; ++s)
        for (int r = 1; r <= 13; ++r) QCOMPARE(g.imageRect(s, r), g.boardRect(s, r));
    QCOMPARE(g.imageRect(1, 7), QRect(648, 8, 50, 75));  // the 7 of hearts dealt to place 10
    QCOMPARE(g.imageRect(2, 13), QRect(520, 424, 50, 75));  // the king of spades to place 47
    QCOMPARE(g.form->boardView()->childAt(350, 450), g.pile(9));  // only Image9 can be seen
}

void MainWindowTest::quitAnsweredNoChangesNothing() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    g.clickCard(1, 2);  // selected
    const Board before = g.board();
    const QByteArray save1 = g.file("save1.txt");
    g.prompts.answers = {Prompts::Answer::No};
    QVERIFY(!g.form->close());
    QCOMPARE(g.prompts.boxes.size(), 1);
    const Box& box = g.prompts.boxes[0];
    QCOMPARE(box.text, QString::fromUtf8("Выйти из программы ?"));
    QCOMPARE(box.title, QString::fromUtf8("Тавирен v2.0"));
    QCOMPARE(box.buttons, Prompts::Buttons::YesNo);
    QCOMPARE(box.icon, Prompts::Icon::Question);
    QVERIFY(g.form->isVisible());
    QVERIFY(g.board() == before);
    QVERIFY(g.card(1, 2)->selected());
    QCOMPARE(g.file("save1.txt"), save1);
    QVERIFY(g.exists("load.txt"));
    QVERIFY(g.exists("save.txt"));
    QVERIFY(!g.exists("ini.txt"));
    QVERIFY(g.action("ig2")->isEnabled());
    QVERIFY(g.action("ig7")->isChecked());
}

void MainWindowTest::quitAnsweredYesEndsTheRun() {
    Game g(dealScript(winnablePlace), QByteArray("1"));
    g.newGame();
    QCOMPARE(g.file("ini.txt"), QByteArray("1"));  // start-up reads, never writes
    g.prompts.answers = {Prompts::Answer::Yes};
    QVERIFY(g.form->close());
    QCOMPARE(g.prompts.boxTexts(), QStringList({"Quit ?"}));
    QCOMPARE(g.prompts.boxes[0].title, QString("Vorn v2.0"));
    QVERIFY(!g.form->isVisible());
    QVERIFY(!g.exists("save1.txt"));
    QVERIFY(!g.exists("load.txt"));
    QVERIFY(g.exists("save.txt"));
    QCOMPARE(g.file("ini.txt"), QByteArray("1\r\n"));
}

void MainWindowTest::quitMenuCommandAsksToo() {
    Game g;
    g.prompts.answers = {Prompts::Answer::No, Prompts::Answer::Yes};
    g.action("vix")->trigger();
    QVERIFY(g.form->isVisible());
    g.action("ig4")->trigger();  // messages on: the question does not depend on it
    g.action("vix")->trigger();
    QVERIFY(!g.form->isVisible());
    QCOMPARE(g.prompts.boxTexts(), QStringList({"Выйти из программы ?", "Выйти из программы ?"}));
    QCOMPARE(g.file("ini.txt"), QByteArray("2\r\n"));
}

QTEST_MAIN(MainWindowTest)
#include "tst_main_window.moc"
