// The solver's items of the Game menu: their captions in both languages, Hint
// marking a move without touching the selection, the boxes for a lost position,
// Winnable deals only dealing past a lost layout, and Show solution playing a
// game out and stopping at the player's first press or key.
#include <QAction>
#include <QMenu>
#include <QTest>

#include "board/solver.h"
#include "shell/table/board_view.h"
#include "shell/table/card_image.h"
#include "shell/solver/hint_mark.h"
#include "shell/solver/solution_player.h"
#include "shell/solver/solver_menu.h"
#include "shell/solver/winnable_dealer.h"
#include "support/game.h"

using namespace vorn;
using namespace vorn::test;
using shell::HintMark;
using shell::SolverMenu;

namespace {

// A layout no line of play wins (the solver proves it in a few positions).
const std::string kLostLayout =
    " 44, 41, 38, 45, 13, 7, 11, 5, 2, 33, 32, 47, 39, 10, 4, 48, 28, 18, 19, 3, 23, 21, 16, 9,"
    " 17, 29, 26, 6, 37, 42, 35, 20, 8, 25, 40, 46, 27, 36, 34, 24, 31, 15, 30, 12, 1, 22, 14, 43";

int lostPlace(int suit, int rank) {
    std::array<int16_t, 49> places{};
    if (readLayout(kLostLayout, places) != LayoutProblem::None) qFatal("the lost layout cannot be read");
    return places[static_cast<size_t>((suit - 1) * 12 + rank - 1)];
}

std::vector<double> concat(std::vector<double> a, const std::vector<double>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

SolverMenu& solverOf(const Game& g) {
    auto* menu = g.form->findChild<SolverMenu*>(QStringLiteral("solverMenu"));
    if (!menu) qFatal("no solver menu");
    return *menu;
}

HintMark* mark(const Game& g, const char* name) {
    return g.form->boardView()->findChild<HintMark*>(QString::fromLatin1(name));
}

// The thing a mark frames, as a click in its middle reaches it.
Hit hitUnder(const Game& g, const HintMark* m) {
    const QPoint c = m->geometry().center();
    return g.board().hitAt(c.x() * 15, c.y() * 15);
}

QStringList igraNames(const Game& g) {
    QStringList names;
    for (QAction* a : g.form->findChild<QMenu*>(QStringLiteral("igra"))->actions()) names << a->objectName();
    return names;
}

const QString kNewGameRu = QString::fromUtf8("Выберите пункт меню [Новая игра]");
const QString kLostRu = QString::fromUtf8("Этот расклад уже не выиграть.");
const QString kLostEn = QStringLiteral("This deal can no longer be won.");

}  // namespace

class SolverMenuTest : public QObject {
    Q_OBJECT
private slots:
    void itemsFollowTheLanguage_data();
    void itemsFollowTheLanguage();
    void beforeTheFirstDeal();
    void hintMarksAMoveAndLeavesTheSelection();
    void lostPositionBoxes_data();
    void lostPositionBoxes();
    void undecidedPositionBox();
    void winnableDealsOnlySkipsALostLayout();
    void showSolutionWinsTheGame();
    void showSolutionStops_data();
    void showSolutionStops();
};

void SolverMenuTest::itemsFollowTheLanguage_data() {
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<QString>("switchTo");  // "", "ig7" or "ig8"
    QTest::addColumn<QStringList>("captions");
    const QStringList ru{QString::fromUtf8("Подсказка"), QString::fromUtf8("Только выигрышные расклады"),
                         QString::fromUtf8("Показать решение")};
    const QStringList en{"Hint", "Winnable deals only", "Show solution"};
    QTest::newRow("Russian start") << QByteArray("2\r\n") << QString() << ru;
    QTest::newRow("English start") << QByteArray("1\r\n") << QString() << en;
    QTest::newRow("switch to English") << QByteArray("2\r\n") << QString("ig8") << en;
    QTest::newRow("switch back to Russian") << QByteArray("1\r\n") << QString("ig7") << ru;
}

void SolverMenuTest::itemsFollowTheLanguage() {
    QFETCH(QByteArray, ini);
    QFETCH(QString, switchTo);
    QFETCH(QStringList, captions);
    Game g({}, ini);
    if (!switchTo.isEmpty()) g.action(qPrintable(switchTo))->trigger();

    QCOMPARE(g.action("hint")->text(), captions[0]);
    QCOMPARE(g.action("winnable")->text(), captions[1]);
    QCOMPARE(g.action("solution")->text(), captions[2]);
    QCOMPARE(g.action("hint")->shortcut(), QKeySequence(Qt::Key_H));
    QCOMPARE(g.action("solution")->shortcut(), QKeySequence(Qt::Key_D));
    QVERIFY(g.action("winnable")->isCheckable());
    QVERIFY(!g.action("winnable")->isChecked());
    QVERIFY(g.action("line4")->isSeparator());

    // After the game's own items: line4, then the three, in this order.
    const QStringList names = igraNames(g);
    const qsizetype at = names.indexOf("line4");
    QCOMPARE(names.mid(0, at), QStringList({"ig1", "ig5", "line1", "ig2", "ig3", "line3", "ig7", "ig8", "line2",
                                            "ig4"}));
    QCOMPARE(names.mid(at + 1, 3), QStringList({"hint", "winnable", "solution"}));
}

void SolverMenuTest::beforeTheFirstDeal() {
    Game g;
    g.action("hint")->trigger();
    g.action("solution")->trigger();
    QCOMPARE(g.prompts.boxTexts(), QStringList({kNewGameRu, kNewGameRu}));
    QCOMPARE(g.prompts.boxes[0].title, QString::fromUtf8("Тавирен v2.0"));
    QCOMPARE(g.prompts.boxes[0].buttons, Prompts::Buttons::Ok);
    QCOMPARE(g.prompts.boxes[0].icon, Prompts::Icon::None);
    QCOMPARE(g.board().rezhim, 1);
}

void SolverMenuTest::hintMarksAMoveAndLeavesTheSelection() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    HintMark* card = mark(g, "hintCard");
    HintMark* target = mark(g, "hintTarget");
    QVERIFY(card && target);

    // Another card selected: the hint names a card and its target all the same,
    // and the 2 of spades stays selected, bordered on the board and on screen.
    g.clickCard(2, 2);
    const Board before = g.board();
    g.action("hint")->trigger();
    QTRY_VERIFY(target->active());
    QVERIFY(card->active());
    QCOMPARE(g.board(), before);
    QVERIFY(g.card(2, 2)->selected());
    const Hit select = hitUnder(g, card);
    const Hit onto = hitUnder(g, target);
    QCOMPARE(select.kind, Hit::Kind::Card);
    QVERIFY(onto.kind != Hit::Kind::Nothing);

    // The hinted card selected: only its target blinks.
    g.clickCard(2, 2);  // put back
    g.clickCard(select.card);
    QVERIFY(g.card(select.card.suit, select.card.rank)->selected());
    const Board selected = g.board();
    g.action("hint")->trigger();
    QTRY_VERIFY(target->active());
    QVERIFY(!card->active());
    QCOMPARE(g.board(), selected);
    QCOMPARE(hitUnder(g, target), onto);

    // A real click where the target blinks makes the move, and the game can still be won.
    const uint32_t moves = g.board().zcounter;
    g.clickBoardAt(target->geometry().center());
    QCOMPARE(g.board().vybor, 1);
    QVERIFY(g.board().zcounter > moves);
    QCOMPARE(solve(g.board()).outcome, Outcome::Won);
    QVERIFY(g.prompts.boxes.isEmpty());
}

void SolverMenuTest::lostPositionBoxes_data() {
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<QString>("lost");
    QTest::addColumn<QString>("title");
    QTest::newRow("Russian") << QByteArray("2\r\n") << kLostRu << QString::fromUtf8("Тавирен v2.0");
    QTest::newRow("English") << QByteArray("1\r\n") << kLostEn << QString("Vorn v2.0");
}

void SolverMenuTest::lostPositionBoxes() {
    QFETCH(QByteArray, ini);
    QFETCH(QString, lost);
    QFETCH(QString, title);
    Game g(dealScript(lostPlace), ini);
    g.newGame();
    const Board dealt = g.board();
    QVERIFY(!g.action("ig4")->isChecked());  // shown whatever the Messages switch says

    g.action("hint")->trigger();
    QTRY_COMPARE(g.prompts.boxes.size(), 1);
    g.action("solution")->trigger();
    QTRY_COMPARE(g.prompts.boxes.size(), 2);
    QCOMPARE(g.prompts.boxTexts(), QStringList({lost, lost}));
    for (const Box& box : g.prompts.boxes) {
        QCOMPARE(box.title, title);
        QCOMPARE(box.buttons, Prompts::Buttons::Ok);
        QCOMPARE(box.icon, Prompts::Icon::None);
    }
    QVERIFY(!mark(g, "hintCard")->active());
    QVERIFY(!mark(g, "hintTarget")->active());
    QCOMPARE(g.board(), dealt);
}

// A solver stopped before it can decide says so rather than claim a verdict.
void SolverMenuTest::undecidedPositionBox() {
    Game g(dealScript(winnablePlace), QByteArray("1\r\n"));
    g.newGame();
    solverOf(g).askLimits.maxPositions = 1;
    g.action("hint")->trigger();
    QTRY_COMPARE(g.prompts.boxes.size(), 1);
    QCOMPARE(g.prompts.boxTexts(), QStringList({"Could not find out whether this deal can still be won."}));
    QCOMPARE(g.prompts.boxes[0].title, QString("Vorn v2.0"));
    QVERIFY(!mark(g, "hintTarget")->active());
}

void SolverMenuTest::winnableDealsOnlySkipsALostLayout() {
    const std::string winnable = [] {
        Game w(dealScript(winnablePlace));
        w.newGame();
        return w.board().raskl;
    }();

    // Unchecked, New game deals the lost layout as it always did.
    {
        Game g(dealScript(lostPlace));
        g.newGame();
        QCOMPARE(g.board().raskl, kLostLayout);
        QCOMPARE(solve(g.board()).outcome, Outcome::Lost);
    }

    // Checked: the lost layout is drawn and thrown away, the winnable one is dealt.
    Game g(concat(dealScript(lostPlace), dealScript(winnablePlace)));
    g.action("winnable")->trigger();
    g.newGame();
    QVERIFY(g.action("ig2")->isEnabled());
    QVERIFY(g.action("ig5")->isEnabled());
    QTRY_VERIFY(!solverOf(g).searching());
    QCOMPARE(g.random->reseeds, 2);
    QCOMPARE(g.random->drawn, size_t{96});
    QCOMPARE(solverOf(g).dealer().attempts(), 2);
    QCOMPARE(g.board().raskl, winnable);
    QCOMPARE(g.file("save1.txt"), QByteArray::fromStdString(winnable + "\r\n"));
    QCOMPARE(g.board().rezhim, 2);
    QCOMPARE(solve(g.board()).outcome, Outcome::Won);
    // The images show the layout dealt.
    for (int s = 1; s <= 4; ++s)
        for (int r = 1; r <= 13; ++r) QCOMPARE(g.imageRect(s, r), g.boardRect(s, r));
    QVERIFY(g.prompts.boxes.isEmpty());
}

void SolverMenuTest::showSolutionWinsTheGame() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    solverOf(g).player().setPace(std::chrono::milliseconds(0));
    g.clickCard(3, 7);  // a selection the line first clears
    QCOMPARE(g.board().vybor, 2);
    g.action("solution")->trigger();
    QTRY_VERIFY_WITH_TIMEOUT(kingsHome(g.board()), 20000);
    QVERIFY(!solverOf(g).playing());
    // Through the player's own click path: the end-of-game window came up.
    QCOMPARE(g.prompts.shown.size(), 1);
    QCOMPARE(g.prompts.shown[0].objectName, QString("Form3"));
    QVERIFY(g.prompts.boxes.isEmpty());

    // Nothing left to hint.
    g.action("hint")->trigger();
    QTRY_COMPARE(g.prompts.boxTexts(), QStringList({QString::fromUtf8("Все четыре короля уже дома.")}));
}

void SolverMenuTest::showSolutionStops_data() {
    QTest::addColumn<QString>("how");
    QTest::newRow("a press on a card") << "press";
    QTest::newRow("a key") << "key";
    QTest::newRow("New game") << "ig1";
    QTest::newRow("Deal again") << "ig5";
}

void SolverMenuTest::showSolutionStops() {
    QFETCH(QString, how);
    Game g(concat(dealScript(winnablePlace), dealScript(winnablePlace)));
    g.newGame();
    SolverMenu& solver = solverOf(g);
    const uint32_t dealt = g.board().zcounter;
    g.action("solution")->trigger();
    QTRY_VERIFY(g.board().zcounter > dealt && g.board().vybor == 1);  // a first move made
    QVERIFY(solver.playing());

    if (how == "press") {
        // The press that stops the show does not select the card under it.
        const Board before = g.board();
        g.clickCard(2, 2);
        QCOMPARE(g.board(), before);
    } else if (how == "key") {
        QTest::keyClick(g.form.get(), Qt::Key_Shift);
    } else {
        g.action(qPrintable(how))->trigger();
    }
    QVERIFY(!solver.playing());
    const Board stopped = g.board();
    QTest::qWait(4 * static_cast<int>(shell::SolutionPlayer::kPace.count()));
    QCOMPARE(g.board(), stopped);
}

QTEST_MAIN(SolverMenuTest)
#include "tst_solver_menu.moc"
