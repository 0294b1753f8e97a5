// What assistive technology is given: the accessible interface of cards and
// places (role, name, states, the press action), the focus event when the ring
// moves, the state change when a card is selected, and the announcement of the
// cells a move touched.
#include <QAccessible>
#include <QAccessibleActionInterface>
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

struct Seen {
    QAccessible::Event type;
    QObject* object;
    QAccessible::State changed;
};
QList<Seen> seen;

void record(QAccessibleEvent* event) {
    QAccessible::State changed;
    if (event->type() == QAccessible::StateChanged) changed = static_cast<QAccessibleStateChangeEvent*>(event)->changedStates();
    seen << Seen{event->type(), event->object(), changed};
}

// Qt hands events on only while a platform bridge (AT-SPI) listens; the
// offscreen platform has none, and then the events cannot be watched here.
bool eventsWatched() { return QAccessible::isActive(); }

bool sawEvent(QAccessible::Event type, QObject* object) {
    return std::any_of(seen.begin(), seen.end(), [&](const Seen& s) { return s.type == type && s.object == object; });
}

QAccessibleInterface* iface(QObject* o) { return QAccessible::queryAccessibleInterface(o); }

QLabel* announcement(const Game& g) { return g.form->boardView()->findChild<QLabel*>("announcement"); }

}  // namespace

class AccessibilityTest : public QObject {
    Q_OBJECT
private slots:
    void init() {
        seen.clear();
        QAccessible::installUpdateHandler(record);
        QAccessible::setActive(true);
    }
    void cleanup() { QAccessible::installUpdateHandler(nullptr); }

    void aCardIsASelectableButton();
    void aPlaceIsAButtonThatIsNotSelectable();
    void theRingMovesTheFocus();
    void pressingACardIsAClick();
    void aMoveIsAnnounced();
};

void AccessibilityTest::aCardIsASelectableButton() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    QAccessibleInterface* card = iface(g.card(1, 2));
    QVERIFY(card);
    QCOMPARE(card->role(), QAccessible::Button);
    QCOMPARE(card->text(QAccessible::Name), QString::fromUtf8("2 червей"));
    QVERIFY(card->state().selectable);
    QVERIFY(card->state().focusable);
    QVERIFY(!card->state().selected);

    g.clickCard(1, 2);
    QVERIFY(card->state().selected);
    QCOMPARE(card->text(QAccessible::Description), QString::fromUtf8("выбрана"));
    if (eventsWatched()) {
        const auto change = std::find_if(seen.begin(), seen.end(), [&](const Seen& s) {
            return s.type == QAccessible::StateChanged && s.object == g.card(1, 2);
        });
        QVERIFY(change != seen.end());
        QVERIFY(change->changed.selected);
    }

    g.action("ig8")->trigger();
    QCOMPARE(card->text(QAccessible::Name), QString("2 of hearts"));
    QCOMPARE(card->text(QAccessible::Description), QString("selected"));
    g.clickCard(1, 2);
    QVERIFY(!card->state().selected);
}

void AccessibilityTest::aPlaceIsAButtonThatIsNotSelectable() {
    Game g;
    QAccessibleInterface* place = iface(g.pile(9));
    QCOMPARE(place->role(), QAccessible::Button);
    QCOMPARE(place->text(QAccessible::Name), QString::fromUtf8("пустое место"));
    QVERIFY(!place->state().selectable);
    QVERIFY(place->state().focusable);
}

void AccessibilityTest::theRingMovesTheFocus() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    g.form->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(g.form.get()));
    g.clickCard(1, 2);
    seen.clear();
    QTest::keyClick(g.form->windowHandle(), Qt::Key_Down);  // the first arrow: the selected card
    if (eventsWatched()) QVERIFY(sawEvent(QAccessible::Focus, g.card(1, 2)));
    QAccessibleInterface* card = iface(g.card(1, 2));
    QVERIFY(card->state().focused);
    QVERIFY(card->state().selected);
    QTest::keyClick(g.form->windowHandle(), Qt::Key_Right);
    if (eventsWatched()) QVERIFY(sawEvent(QAccessible::Focus, g.card(1, 3)));
    QVERIFY(!card->state().focused);
    QVERIFY(iface(g.card(1, 3))->state().focused);
}

void AccessibilityTest::pressingACardIsAClick() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    QAccessibleActionInterface* actions = iface(g.card(1, 2))->actionInterface();
    QVERIFY(actions);
    QVERIFY(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
    actions->doAction(QAccessibleActionInterface::pressAction());
    QVERIFY(g.board().isSelected({1, 2}));
    iface(g.card(1, 1))->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(g.board().spot({1, 2}), (Spot{4920, 360}));
}

void AccessibilityTest::aMoveIsAnnounced() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    QLabel* live = announcement(g);
    QVERIFY(live);
    g.clickCard(1, 2);
    QCOMPARE(iface(live)->text(QAccessible::Name), QString());  // a selection moves nothing
    g.clickCard(1, 1);
    if (eventsWatched()) QVERIFY(sawEvent(QAccessible::NameChanged, live));
    const QString said = QString::fromUtf8("ряд 1, столбец 1: пусто; ряд 1, столбец 6: туз червей, 2 червей");
    QCOMPARE(iface(live)->text(QAccessible::Name), said);

    g.action("ig8")->trigger();
    seen.clear();
    g.action("undo")->trigger();
    if (eventsWatched()) QVERIFY(sawEvent(QAccessible::NameChanged, live));
    QCOMPARE(iface(live)->text(QAccessible::Name), QString("row 1, column 1: 2 of hearts; row 1, column 6: ace of hearts"));
}

QTEST_MAIN(AccessibilityTest)
#include "tst_accessibility.moc"
