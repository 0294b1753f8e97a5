// Dragging a card: each drag must leave the window exactly as the clicks a
// player would make leave it (same position, same frame, same boxes); a drop on
// nothing changes nothing; a press without movement is a plain click.
#include <QApplication>
#include <QLabel>
#include <QTest>

#include "shell/table/board_view.h"
#include "shell/table/card_image.h"
#include "shell/table/pile_image.h"
#include "support/game.h"

using namespace vorn;
using namespace vorn::test;

namespace {

struct Target {
    Card card{};
    int pile = 0;
    QPoint cloth{};  // when neither: a point of the board
};

// Where a player aims at a thing: the middle of what shows of it.
QPoint aim(const Game& g, const Target& t) {
    if (t.pile) return g.pile(t.pile)->geometry().center();
    if (t.card.empty()) return t.cloth;
    const QRect r = g.imageRect(t.card.suit, t.card.rank);
    for (int s = 1; s <= 4; ++s)
        for (int k = 1; k <= 13; ++k)
            if (g.imageRect(s, k).topLeft() == r.topLeft() + QPoint(0, 16)) return {r.center().x(), r.top() + 8};
    return r.center();
}

QPoint inWindow(const Game& g, QPoint boardPixel) { return g.form->boardView()->mapTo(g.form.get(), boardPixel); }

// Press on the card, move in a few steps, release over the target.
void drag(Game& g, Card card, const Target& to, const std::function<void()>& whileHeld = {}) {
    QWindow* w = g.form->windowHandle();
    const QPoint from = inWindow(g, aim(g, {card}));
    const QPoint end = inWindow(g, aim(g, to));
    QTest::mousePress(w, Qt::LeftButton, Qt::NoModifier, from);
    for (int i = 1; i <= 4; ++i) QTest::mouseMove(w, from + (end - from) * i / 4);
    if (whileHeld) whileHeld();
    QTest::mouseRelease(w, Qt::LeftButton, Qt::NoModifier, end);
}

void click(Game& g, const Target& t) {
    if (t.pile) g.clickPile(t.pile);
    else g.clickCard(t.card);
}

struct State {
    Table<int16_t> left, top;
    Table<uint32_t> z;
    Table<uint8_t> border;
    int vybor;
    QStringList boxes;
    int shown;
    friend bool operator==(const State&, const State&) = default;
};

State state(const Game& g) {
    const Board& b = g.board();
    return {b.kartleft, b.karttop, b.zorder, b.border, b.vybor, g.prompts.boxTexts(),
            static_cast<int>(g.prompts.shown.size())};
}

Card c(int s, int r) { return {static_cast<int16_t>(s), static_cast<int16_t>(r)}; }

}  // namespace

class DragTest : public QObject {
    Q_OBJECT
private slots:
    void dragEqualsItsClicks_data();
    void dragEqualsItsClicks();
    void dropOnNothingPutsTheCardBack_data();
    void dropOnNothingPutsTheCardBack();
    void theCardFollowsTheMouseAboveEverything();
    void aPressWithoutMovementIsAClick();
};

using Clicks = QList<Target>;
Q_DECLARE_METATYPE(Target)
Q_DECLARE_METATYPE(Clicks)

// In the winnable layout row s holds the 2..6 of suit s from the left edge and
// the 7..J from the right edge; the place below the aces (Image9) is bare.
void DragTest::dragEqualsItsClicks_data() {
    QTest::addColumn<Clicks>("before");   // clicks made first, by mouse
    QTest::addColumn<Card>("dragged");
    QTest::addColumn<Target>("onto");
    QTest::addColumn<Clicks>("clicks");   // what the drag must amount to
    QTest::newRow("2H onto its ace") << Clicks{} << c(1, 2) << Target{c(1, 1)} << Clicks{{c(1, 2)}, {c(1, 1)}};
    QTest::newRow("2H onto a wrong card") << Clicks{} << c(1, 2) << Target{c(2, 7)} << Clicks{{c(1, 2)}, {c(2, 7)}};
    QTest::newRow("2H onto the bare place") << Clicks{} << c(1, 2) << Target{{}, 9} << Clicks{{c(1, 2)}, {{}, 9}};
    QTest::newRow("a blocked card") << Clicks{} << c(1, 5) << Target{c(1, 1)} << Clicks{{c(1, 5)}};
    QTest::newRow("the selected card") << Clicks{{c(2, 2)}} << c(2, 2) << Target{c(2, 1)} << Clicks{{c(2, 1)}};
    QTest::newRow("another card selected")
        << Clicks{{c(2, 2)}} << c(1, 2) << Target{c(1, 1)} << Clicks{{c(2, 2)}, {c(1, 2)}, {c(1, 1)}};
    QTest::newRow("7H from the right edge onto a covered card")
        << Clicks{{c(1, 2)}, {c(1, 1)}} << c(1, 7) << Target{c(1, 2)} << Clicks{{c(1, 7)}, {c(1, 2)}};
}

void DragTest::dragEqualsItsClicks() {
    QFETCH(Clicks, before);
    QFETCH(Card, dragged);
    QFETCH(Target, onto);
    QFETCH(Clicks, clicks);
    Game dragging(dealScript(winnablePlace));
    Game clicking(dealScript(winnablePlace));
    for (Game* g : {&dragging, &clicking}) {
        g->action("ig4")->trigger();  // Messages on: refusals must show alike
        g->newGame();
        for (const Target& t : before) click(*g, t);
    }
    drag(dragging, dragged, onto);
    for (const Target& t : clicks) click(clicking, t);
    QVERIFY(state(dragging) == state(clicking));
    QCOMPARE(dragging.prompts.boxTexts(), clicking.prompts.boxTexts());
    for (int s = 1; s <= 4; ++s)
        for (int r = 1; r <= 13; ++r) QCOMPARE(dragging.imageRect(s, r), dragging.boardRect(s, r));
    QVERIFY(!dragging.form->boardView()->findChild<QLabel*>("dragged")->isVisible());
}

void DragTest::dropOnNothingPutsTheCardBack_data() {
    QTest::addColumn<Clicks>("before");
    QTest::addColumn<Target>("onto");
    QTest::newRow("the cloth") << Clicks{} << Target{{}, 0, QPoint(700, 520)};
    QTest::newRow("the bare corner of row 5") << Clicks{} << Target{{}, 0, QPoint(33, 460)};
    QTest::newRow("its own place") << Clicks{} << Target{c(1, 2)};
    QTest::newRow("the cloth, another card selected") << Clicks{{c(2, 2)}} << Target{{}, 0, QPoint(700, 520)};
}

void DragTest::dropOnNothingPutsTheCardBack() {
    QFETCH(Clicks, before);
    QFETCH(Target, onto);
    Game g(dealScript(winnablePlace));
    g.action("ig4")->trigger();
    g.newGame();
    for (const Target& t : before) click(g, t);
    const State was = state(g);
    Target aimAt = onto;
    if (!onto.card.empty()) aimAt.cloth = aim(g, onto) + QPoint(5, 5);  // near where it was taken
    if (!onto.card.empty()) aimAt.card = {};
    drag(g, c(1, 2), aimAt);
    QVERIFY(state(g) == was);
    QVERIFY(g.prompts.boxes.isEmpty());
    QCOMPARE(g.imageRect(1, 2), g.boardRect(1, 2));
}

void DragTest::theCardFollowsTheMouseAboveEverything() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    auto* floating = g.form->boardView()->findChild<QLabel*>("dragged");
    QVERIFY(floating);
    const QRect start = g.imageRect(1, 2);
    drag(g, c(1, 2), Target{{}, 0, QPoint(400, 500)}, [&] {
        QVERIFY(floating->isVisible());
        // Under the mouse, where the card was taken, and in front of every sibling.
        QCOMPARE(floating->geometry().center() - QPoint(400, 500), start.center() - aim(g, {c(1, 2)}));
        const QObjectList siblings = g.form->boardView()->children();
        for (QObject* o : siblings) {
            auto* w = qobject_cast<QWidget*>(o);
            if (w && w != floating && w->isVisible() && w->objectName() != "focusRing")
                QVERIFY2(siblings.indexOf(w) < siblings.indexOf(floating), qPrintable(w->objectName()));
        }
        QCOMPARE(g.imageRect(1, 2), start);  // the card itself waits at its place
    });
    QVERIFY(!floating->isVisible());
}

void DragTest::aPressWithoutMovementIsAClick() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    QWindow* w = g.form->windowHandle();
    const QPoint at = inWindow(g, aim(g, {c(1, 2)}));
    QTest::mousePress(w, Qt::LeftButton, Qt::NoModifier, at);
    QTest::mouseRelease(w, Qt::LeftButton, Qt::NoModifier, at);
    QVERIFY(g.board().isSelected(c(1, 2)));
    // A wobble shorter than the drag distance is still a click: it takes it back.
    const QPoint near = at + QPoint(QApplication::startDragDistance() / 2, 0);
    QTest::mousePress(w, Qt::LeftButton, Qt::NoModifier, at);
    QTest::mouseMove(w, near);
    QTest::mouseRelease(w, Qt::LeftButton, Qt::NoModifier, near);
    QCOMPARE(g.board().vybor, 1);
}

QTEST_MAIN(DragTest)
#include "tst_drag.moc"
