// Undo move and Redo move: the two items at the end of the Game menu, real
// clicks taken back to the deal and played again to the won game, and the
// deals that forget everything.
#include <QAction>
#include <QMenu>
#include <QTest>

#include "shell/table/board_view.h"
#include "shell/table/card_image.h"
#include "support/game.h"

using namespace vorn;
using namespace vorn::test;

namespace {

const QString kWrong = QString::fromUtf8("Неправильний ход.");

// Everything the window shows about the cards: where each lies on the board and
// on the screen, and which one is framed.
struct Picture {
    Table<int16_t> left, top;
    Table<uint32_t> z;
    QList<QRect> rects;
    QList<bool> framed;
    friend bool operator==(const Picture&, const Picture&) = default;
};

Picture picture(const Game& g) {
    Picture p{g.board().kartleft, g.board().karttop, g.board().zorder, {}, {}};
    for (int s = 1; s <= 4; ++s)
        for (int r = 1; r <= 13; ++r) {
            p.rects << g.imageRect(s, r);
            p.framed << g.card(s, r)->selected();
        }
    return p;
}

bool mirrored(const Game& g) {
    for (int s = 1; s <= 4; ++s)
        for (int r = 1; r <= 13; ++r)
            if (g.imageRect(s, r) != g.boardRect(s, r)) return false;
    return true;
}

bool nothingFramed(const Game& g) {
    for (int s = 1; s <= 4; ++s)
        for (int r = 1; r <= 13; ++r)
            if (g.card(s, r)->selected() || g.board().border(s, r) != 0) return false;
    return g.board().vybor == 1;
}

void play(Game& g, const Move& m) {
    g.clickCard(m.card);
    g.clickCard(m.onto);
}

}  // namespace

class UndoTest : public QObject {
    Q_OBJECT
private slots:
    void itemsCloseTheGameMenu();
    void captionsFollowTheLanguage();
    void aWholeGameUndoneAndRedone();
    void undoTakesTheSelectionAwayAndShowsNothing();
    void keysReachTheItems();
    void aNewMoveForgetsTheRedo();
    void dealsForgetEverything();
};

void UndoTest::itemsCloseTheGameMenu() {
    Game g;
    const QList<QAction*> items = g.form->findChild<QMenu*>("igra")->actions();
    QVERIFY(items.size() >= 3);
    QCOMPARE(items[items.size() - 1]->objectName(), QString("redo"));
    QCOMPARE(items[items.size() - 2]->objectName(), QString("undo"));
    const auto line4 = std::find_if(items.begin(), items.end(), [](QAction* a) { return a->objectName() == "line4"; });
    QVERIFY(line4 != items.end());
    QVERIFY((*line4)->isSeparator());
    QCOMPARE(std::count_if(items.begin(), items.end(), [](QAction* a) { return a->objectName() == "line4"; }), 1);
    QVERIFY(line4 - items.begin() < items.size() - 2);
    QCOMPARE(g.action("undo")->text(), QString::fromUtf8("Отменить ход"));
    QCOMPARE(g.action("redo")->text(), QString::fromUtf8("Повторить ход"));
    QCOMPARE(g.action("undo")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Z));
    QCOMPARE(g.action("redo")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Y));
    QVERIFY(!g.action("undo")->isEnabled());
    QVERIFY(!g.action("redo")->isEnabled());
}

void UndoTest::captionsFollowTheLanguage() {
    Game g;
    g.action("ig8")->trigger();
    QCOMPARE(g.action("undo")->text(), QString("Undo move"));
    QCOMPARE(g.action("redo")->text(), QString("Redo move"));
    g.action("ig7")->trigger();
    QCOMPARE(g.action("undo")->text(), QString::fromUtf8("Отменить ход"));
}

void UndoTest::aWholeGameUndoneAndRedone() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    const Picture dealt = picture(g);
    QList<Picture> after;
    for (const Move& m : winningMoves()) {
        play(g, m);
        after << picture(g);
    }
    QCOMPARE(g.prompts.shown.size(), 1);  // the won game's about window
    QVERIFY(!g.action("redo")->isEnabled());

    for (qsizetype i = after.size(); i-- > 0;) {
        QVERIFY(g.action("undo")->isEnabled());
        g.action("undo")->trigger();
        QVERIFY2(picture(g) == (i == 0 ? dealt : after[i - 1]), qPrintable(QString("undo to move %1").arg(i)));
        QVERIFY(mirrored(g));
        QVERIFY(g.action("redo")->isEnabled());
    }
    QVERIFY(!g.action("undo")->isEnabled());
    g.action("undo")->trigger();  // disabled: nothing happens
    QVERIFY(picture(g) == dealt);

    for (qsizetype i = 0; i < after.size(); ++i) {
        g.action("redo")->trigger();
        QVERIFY2(picture(g) == after[i], qPrintable(QString("redo of move %1").arg(i)));
    }
    QVERIFY(!g.action("redo")->isEnabled());
    // The last move played again wins again, through the same end-of-game check.
    QCOMPARE(g.prompts.shown.size(), 2);
    QCOMPARE(g.prompts.shown[1].objectName, QString("Form3"));
    QVERIFY(g.prompts.boxes.isEmpty());
}

void UndoTest::undoTakesTheSelectionAwayAndShowsNothing() {
    Game g(dealScript(winnablePlace));
    g.action("ig4")->trigger();  // Messages on: still no box from undo
    g.newGame();
    const Picture dealt = picture(g);
    play(g, winningMoves()[0]);
    g.clickCard(winningMoves()[1].card);
    QVERIFY(g.card(winningMoves()[1].card.suit, winningMoves()[1].card.rank)->selected());
    g.action("undo")->trigger();
    QVERIFY(picture(g) == dealt);
    QVERIFY(nothingFramed(g));
    QVERIFY(g.prompts.boxes.isEmpty());
    QVERIFY(g.prompts.shown.isEmpty());
    // After undo the first click selects again, as after any move.
    g.clickCard(winningMoves()[0].card);
    QCOMPARE(g.board().vybor, 2);
}

void UndoTest::keysReachTheItems() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    const Picture dealt = picture(g);
    play(g, winningMoves()[0]);
    const Picture moved = picture(g);
    g.form->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(g.form.get()));
    QTest::keyClick(g.form->windowHandle(), Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(picture(g) == dealt);
    QTest::keyClick(g.form->windowHandle(), Qt::Key_Y, Qt::ControlModifier);
    QVERIFY(picture(g) == moved);
}

void UndoTest::aNewMoveForgetsTheRedo() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    play(g, winningMoves()[0]);
    play(g, winningMoves()[1]);
    g.action("undo")->trigger();
    QVERIFY(g.action("redo")->isEnabled());
    g.clickCard(winningMoves()[1].card);  // a selection alone keeps the redo
    QVERIFY(g.action("redo")->isEnabled());
    g.clickCard(2, 13);  // another suit: refused, no move, the redo stays
    QCOMPARE(g.board().vybor, 2);
    QVERIFY(g.action("redo")->isEnabled());
    g.clickCard(winningMoves()[1].onto);  // the move made anew
    QVERIFY(!g.action("redo")->isEnabled());
    QVERIFY(g.action("undo")->isEnabled());
}

void UndoTest::dealsForgetEverything() {
    std::vector<double> script = dealScript(winnablePlace);
    const std::vector<double> second = dealScript(startPlace);
    script.insert(script.end(), second.begin(), second.end());
    Game g(script);
    g.newGame();
    play(g, winningMoves()[0]);
    play(g, winningMoves()[1]);
    g.action("undo")->trigger();
    QVERIFY(g.action("undo")->isEnabled() && g.action("redo")->isEnabled());
    g.action("ig5")->trigger();  // Deal again
    QVERIFY(!g.action("undo")->isEnabled() && !g.action("redo")->isEnabled());

    play(g, winningMoves()[0]);
    QVERIFY(g.action("undo")->isEnabled());
    g.newGame();
    QVERIFY(!g.action("undo")->isEnabled() && !g.action("redo")->isEnabled());
}

QTEST_MAIN(UndoTest)
#include "tst_undo.moc"
