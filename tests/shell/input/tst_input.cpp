// Playing without the two mouse clicks: dragging a card, and the keys.

#include "shell/input/focus_ring.h"
#include "support/game.h"

namespace {

using Cards = QList<Card>;

// Where a player aims at a card, at pile place Image<rank> (suit 0), or (no
// card at all) at the bare cloth below the last column.
QPoint aim(const Game& g, Card at) {
    return at.suit ? g.aim(at) : at.rank ? g.pile(at.rank)->geometry().center() : g.scale().at(10350, 7650);
}

}  // namespace

Q_DECLARE_METATYPE(Card)

class InputTest : public QObject {
    Q_OBJECT
private slots:
    // In the winnable layout row s holds the 2..6 of suit s from its left edge,
    // and the place below the aces (Image9) is bare. The table at 150 % takes
    // its drops where it shows its cards.
    void dropMakesTheClicks_data() {
        QTest::addColumn<Cards>("before");  // clicks made first
        QTest::addColumn<Card>("onto");     // where the 2 of hearts is dropped
        QTest::addColumn<Cards>("clicks");  // what the drag must amount to
        QTest::addColumn<int>("zoom");      // the table's, in %
        for (const int zoom : {100, 150}) {
            const QByteArray at = zoom == 100 ? "" : " at 150 %";
            QTest::newRow("onto its ace" + at) << Cards{} << Card{1, 1} << Cards{Card{1, 2}, Card{1, 1}} << zoom;
            QTest::newRow("onto the bare place" + at) << Cards{} << Card{0, 9} << Cards{Card{1, 2}, Card{0, 9}} << zoom;
            QTest::newRow("onto the cloth" + at) << Cards{} << Card{0, 0} << Cards{} << zoom;
            QTest::newRow("onto its own place" + at) << Cards{} << Card{1, 2} << Cards{} << zoom;
        }
        QTest::newRow("onto a wrong card") << Cards{} << Card{2, 7} << Cards{Card{1, 2}, Card{2, 7}} << 100;
        QTest::newRow("another card selected") << Cards{Card{2, 2}} << Card{1, 1} << Cards{Card{2, 2}, Card{1, 2}, Card{1, 1}} << 100;
        QTest::newRow("onto the cloth, another card selected") << Cards{Card{2, 2}} << Card{0, 0} << Cards{} << 100;
        // Clicked and at once pressed again: the press comes as a double-click.
        QTest::newRow("picked up and pressed again") << Cards{Card{1, 2}} << Card{1, 1} << Cards{Card{1, 2}, Card{1, 2}, Card{1, 1}} << 100;
    }
    void dropMakesTheClicks() {
        QFETCH(Cards, before);
        QFETCH(Card, onto);
        QFETCH(Cards, clicks);
        QFETCH(int, zoom);
        Game dragging(deals({winnablePlace})), clicking(deals({winnablePlace}));
        for (Game* g : {&dragging, &clicking}) {
            g->trigger("ig4");  // Messages on: refusals must show alike
            g->trigger("ig1");
            g->zoomTo(zoom);
        }
        for (Card at : before) clicking.clickAt(aim(clicking, at));
        QWindow* w = dragging.form->windowHandle();
        for (Card at : before) dragging.clickAt(aim(dragging, at));
        // The press comes at once after the click: Qt makes it a double-click
        // when it is on the card just clicked.
        QTest::lastMouseTimestamp -= QTest::mouseDoubleClickInterval;
        const QPoint from = dragging.form->centralWidget()->mapTo(dragging.form.get(), aim(dragging, Card{1, 2}));
        const QPoint to = from + aim(dragging, onto) + QPoint(8, 8) - aim(dragging, Card{1, 2});
        QTest::mousePress(w, Qt::LeftButton, {}, from);
        for (int i = 1; i <= 4; ++i) QTest::mouseMove(w, from + (to - from) * i / 4);
        QTest::mouseRelease(w, Qt::LeftButton, {}, to);
        for (Card at : clicks) clicking.clickAt(aim(clicking, at));
        QCOMPARE(dragging.board(), clicking.board());
        QCOMPARE(dragging.prompts.texts, clicking.prompts.texts);
        QCOMPARE(dragging.unlikeBoard(), QString());
    }

    // The arrows move the ring and the focus over what a click can reach and
    // change nothing; Space and Return click; the ring follows the table, also
    // to another zoom.
    void keys_data() {
        QTest::addColumn<int>("zoom");
        QTest::newRow("100 %") << 100;
        QTest::newRow("150 %") << 150;
    }
    void keys() {
        QFETCH(int, zoom);
        Game g(deals({winnablePlace}));
        g.trigger("ig1");
        g.zoomTo(zoom);
        const Board dealt = g.board();
        auto* ring = g.form->boardView()->findChild<shell::FocusRing*>("focusRing");
        QVERIFY(!ring->isVisible());
        QStringList visited;
        for (Qt::Key k : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Left}) {
            g.key(k);
            visited << QApplication::focusWidget()->objectName();
        }
        QCOMPARE(visited, QStringList({"Im1_2", "Im1_3", "Im2_3", "Im2_2", "Im2_2"}));
        QVERIFY(ring->isVisible() && ring->target() == g.card({2, 2})->geometry());
        QCOMPARE(g.board(), dealt);
        g.key(Qt::Key_Space);
        QVERIFY(g.board().isSelected({2, 2}));
        for (int i = 0; i < 5; ++i) g.key(Qt::Key_Right);
        QCOMPARE(QApplication::focusWidget(), g.card({2, 1}));
        g.key(Qt::Key_Return);  // the 2 of spades onto its ace
        const int strip = zoom == 100 ? 16 : 24;
        QCOMPARE(g.card({2, 2})->pos(), g.card({2, 1})->pos() + QPoint(0, strip));
        QCOMPARE(ring->target(), QRect(g.card({2, 1})->pos(), QSize(zoom == 100 ? 50 : 75, strip)));  // what shows of the ace
        g.zoomTo(zoom == 100 ? 90 : 100);
        QCOMPARE(ring->target(), QRect(g.card({2, 1})->pos(), zoom == 100 ? QSize(45, 15) : QSize(50, 16)));
        g.key(Qt::Key_Down);
        QCOMPARE(QApplication::focusWidget(), g.card({2, 2}));
    }
};

QTEST_MAIN(InputTest)
#include "tst_input.moc"
