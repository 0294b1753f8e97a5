// Playing with the keys alone: the arrows move the ring and the focus over what
// a click can reach and change nothing, Space and Return click, the menu keys
// still reach the menu, and a whole game is won without the mouse.
#include <QAction>
#include <QApplication>
#include <QTest>

#include "shell/table/board_view.h"
#include "shell/table/card_image.h"
#include "shell/input/focus_ring.h"
#include "shell/table/pile_image.h"
#include "support/game.h"

using namespace vorn;
using namespace vorn::test;

namespace {

void key(Game& g, Qt::Key k, Qt::KeyboardModifiers mods = Qt::NoModifier) {
    QTest::keyClick(g.form->windowHandle(), k, mods);
}

void activate(Game& g) {
    g.form->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(g.form.get()));
}

shell::FocusRing* ring(const Game& g) { return g.form->boardView()->findChild<shell::FocusRing*>("focusRing"); }

// Walks the ring to a widget with the arrows, as a player looking at the
// screen would: up or down to its row first, then along the row.
bool walkTo(Game& g, QWidget* target) {
    for (int step = 0; step < 40; ++step) {
        QWidget* at = QApplication::focusWidget();
        if (at == target) return true;
        if (!at || at->parentWidget() != g.form->boardView() || at == g.form->boardView()) {
            key(g, Qt::Key_Right);
            continue;
        }
        const QPoint d = target->pos() - at->pos();
        if (d.y() < -8) key(g, Qt::Key_Up);
        else if (d.y() > 8) key(g, Qt::Key_Down);
        else if (d.x() < 0) key(g, Qt::Key_Left);
        else if (d.x() > 0) key(g, Qt::Key_Right);
        else if (d.y() < 0) key(g, Qt::Key_Up);
        else key(g, Qt::Key_Down);
    }
    return QApplication::focusWidget() == target;
}

}  // namespace

class KeyboardTest : public QObject {
    Q_OBJECT
private slots:
    void firstArrowShowsTheRing();
    void arrowsChangeNothing();
    void ringFramesOnlyTheStripOfACoveredCard();
    void menuKeysStillReachTheMenu();
    void aWholeGameWithTheKeysAlone();
};

void KeyboardTest::firstArrowShowsTheRing() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    activate(g);
    QVERIFY(!ring(g)->isVisible());
    key(g, Qt::Key_Right);
    QVERIFY(ring(g)->isVisible());
    QCOMPARE(QApplication::focusWidget(), g.card(1, 2));  // row 1, column 1
    QCOMPARE(ring(g)->target(), g.imageRect(1, 2));
    key(g, Qt::Key_Right);
    QCOMPARE(QApplication::focusWidget(), g.card(1, 3));
    key(g, Qt::Key_Down);
    QCOMPARE(QApplication::focusWidget(), g.card(2, 3));
    key(g, Qt::Key_Left);
    key(g, Qt::Key_Left);  // nothing further left: stays
    QCOMPARE(QApplication::focusWidget(), g.card(2, 2));
    // The ring lies in front of every card.
    const QObjectList children = g.form->boardView()->children();
    QVERIFY(children.indexOf(ring(g)) > children.indexOf(g.card(4, 13)));
}

void KeyboardTest::arrowsChangeNothing() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    activate(g);
    g.clickCard(1, 2);
    const Board before = g.board();
    const Qt::Key keys[] = {Qt::Key_Right, Qt::Key_Down, Qt::Key_Down, Qt::Key_Left, Qt::Key_Up};
    for (int i = 0; i < 60; ++i) key(g, keys[i % 5]);
    QVERIFY(g.board() == before);
    QVERIFY(g.prompts.boxes.isEmpty());
}

void KeyboardTest::ringFramesOnlyTheStripOfACoveredCard() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    activate(g);
    g.clickCard(1, 2);
    g.clickCard(1, 1);  // the 2H now lies on its ace
    QVERIFY(walkTo(g, g.card(1, 1)));
    QCOMPARE(ring(g)->target(), QRect(g.imageRect(1, 1).topLeft(), QSize(50, 16)));
    key(g, Qt::Key_Down);  // half a row down: the card in front on it
    QCOMPARE(QApplication::focusWidget(), g.card(1, 2));
    QCOMPARE(ring(g)->target(), g.imageRect(1, 2));
}

void KeyboardTest::menuKeysStillReachTheMenu() {
    Game g(dealScript(winnablePlace));
    activate(g);
    key(g, Qt::Key_Right);
    QCOMPARE(QApplication::focusWidget()->parentWidget(), g.form->boardView());
    key(g, Qt::Key_F2);  // New game
    QCOMPARE(g.board().rezhim, 2);
    key(g, Qt::Key_E, Qt::ControlModifier);
    QVERIFY(g.action("ig8")->isChecked());
    key(g, Qt::Key_R, Qt::ControlModifier);
    QVERIFY(g.action("ig7")->isChecked());
    key(g, Qt::Key_F2, Qt::ControlModifier);  // Deal again
    QVERIFY(g.action("ig5")->isEnabled());
}

void KeyboardTest::aWholeGameWithTheKeysAlone() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    activate(g);
    for (const Move& m : winningMoves()) {
        QVERIFY2(walkTo(g, g.card(m.card.suit, m.card.rank)), qPrintable(QString("to %1_%2").arg(m.card.suit).arg(m.card.rank)));
        key(g, Qt::Key_Space);
        QVERIFY(g.board().isSelected(m.card));
        QVERIFY(walkTo(g, g.card(m.onto.suit, m.onto.rank)));
        key(g, Qt::Key_Return);
        QCOMPARE(g.board().vybor, 1);
        QCOMPARE(g.board().spot(m.card).left, 4920);  // home on its foundation
    }
    QCOMPARE(g.prompts.shown.size(), 1);
    QCOMPARE(g.prompts.shown[0].objectName, QString("Form3"));
    QVERIFY(g.prompts.boxes.isEmpty());
}

QTEST_MAIN(KeyboardTest)
#include "tst_keyboard.moc"
