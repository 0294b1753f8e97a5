// Real mouse clicks on the card table: which image a click reaches, the boxes
// the rules call for with Messages on and off, the images following each move,
// and the end of a won game.
#include <QAction>
#include <QTest>

#include "board/notation.h"
#include "shell/table/board_view.h"
#include "shell/table/card_image.h"
#include "shell/table/pile_image.h"
#include "support/game.h"

using namespace vorn;
using namespace vorn::test;

namespace {

const QString kWrong = QString::fromUtf8("Неправильний ход.");
const QString kNewGame = QString::fromUtf8("Выберите пункт меню [Новая игра]");
const QString kCannot = QString::fromUtf8("Эту карту нельзя выбрать.");

void play(Game& g, const Move& m) {
    g.clickCard(m.card);
    g.clickCard(m.onto);
}

// Every image where the board says, bordered as the board says, and stacked in
// the board's order (the order of the widgets among their siblings).
void checkMirrorsBoard(const Game& g) {
    const Board& b = g.board();
    const QObjectList stack = g.form->boardView()->children();
    for (int s = 1; s <= 4; ++s)
        for (int r = 1; r <= 13; ++r) {
            QCOMPARE(g.imageRect(s, r), g.boardRect(s, r));
            QCOMPARE(g.card(s, r)->selected(), b.border(s, r) == 1);
        }
    for (int s1 = 1; s1 <= 4; ++s1)
        for (int r1 = 1; r1 <= 13; ++r1)
            for (int s2 = 1; s2 <= 4; ++s2)
                for (int r2 = 1; r2 <= 13; ++r2)
                    if (b.zorder(s1, r1) < b.zorder(s2, r2))
                        QVERIFY2(stack.indexOf(g.card(s1, r1)) < stack.indexOf(g.card(s2, r2)),
                                 qPrintable(QString("Im%1_%2 lies over Im%3_%4").arg(s1).arg(r1).arg(s2).arg(r2)));
}

}  // namespace

class ClicksTest : public QObject {
    Q_OBJECT
private slots:
    void beforeTheFirstDeal();
    void messagesSwitchGatesRefusals();
    void aMoveIsMirrored();
    void coveredStripReachesTheBaseCard();
    void stackMovesWithItsTopCard();
    void directWidgetClick();
    void onlyAFullClickCounts();
    void wonGameShowsForm3_data();
    void wonGameShowsForm3();
};

void ClicksTest::beforeTheFirstDeal() {
    Game g;
    g.clickCard(1, 5);  // Messages off: the request for a New game is still shown
    g.clickCard(2, 1);  // an ace: a gated message, so nothing
    g.clickPile(9);     // the only place seen before a deal: gated too
    QCOMPARE(g.prompts.boxTexts(), QStringList({kNewGame}));
    const Box& box = g.prompts.boxes[0];
    QCOMPARE(box.title, QString::fromUtf8("Тавирен v2.0"));
    QCOMPARE(box.buttons, Prompts::Buttons::Ok);
    QCOMPARE(box.icon, Prompts::Icon::None);

    g.prompts.forget();
    g.action("ig4")->trigger();
    g.clickCard(4, 13);
    g.clickCard(2, 1);
    g.clickPile(9);
    QCOMPARE(g.prompts.boxTexts(), QStringList({kNewGame, kCannot, kWrong}));
    checkMirrorsBoard(g);
}

void ClicksTest::messagesSwitchGatesRefusals() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    g.clickCard(1, 4);  // behind the 2 and 3 of hearts in its half-row: refused
    g.clickCard(3, 1);  // an ace with nothing selected
    g.clickPile(9);     // nothing selected
    QVERIFY(g.prompts.boxes.isEmpty());
    QCOMPARE(g.board().vybor, 1);

    g.action("ig4")->trigger();
    g.clickCard(1, 4);
    g.clickCard(3, 1);
    g.clickCard(1, 2);  // selected
    g.clickCard(1, 5);  // not adjacent: refused, the 2 stays selected
    g.clickCard(2, 1);  // the ace of another suit
    QCOMPARE(g.prompts.boxTexts(), QStringList({kWrong, kCannot, kWrong, kWrong}));
    QVERIFY(g.card(1, 2)->selected());
    checkMirrorsBoard(g);

    g.action("ig4")->trigger();  // off again
    g.prompts.forget();
    g.clickCard(1, 5);
    QVERIFY(g.prompts.boxes.isEmpty());
}

void ClicksTest::aMoveIsMirrored() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    g.clickCard(1, 2);
    QVERIFY(g.card(1, 2)->selected());
    QCOMPARE(g.card(1, 2)->size(), QSize(50, 75));  // the mark is drawn inside the face
    checkMirrorsBoard(g);
    g.clickCard(1, 1);  // onto its ace
    QCOMPARE(g.imageRect(1, 2), QRect(328, 24, 50, 75));
    QVERIFY(!g.card(1, 2)->selected());
    checkMirrorsBoard(g);
    // The 2 lies in front of its ace: a click in the middle of the ace's image
    // reaches the 2 (a foundation card: ignored without a word even with Messages on).
    g.action("ig4")->trigger();
    g.clickBoardAt(QPoint(353, 50));
    QVERIFY(g.prompts.boxes.isEmpty());
    QCOMPARE(g.board().vybor, 1);
}

void ClicksTest::coveredStripReachesTheBaseCard() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    for (int i = 0; i < 5; ++i) play(g, winningMoves()[static_cast<size_t>(i)]);  // 2..6 of hearts home
    // The 7 of hearts into the emptied place of Image1, the 8 onto it.
    g.clickCard(1, 7);
    g.clickPile(1);
    QCOMPARE(g.imageRect(1, 7), QRect(264, 8, 50, 75));
    g.clickCard(1, 8);
    g.clickCard(1, 7);
    QCOMPARE(g.imageRect(1, 8), QRect(264, 24, 50, 75));
    checkMirrorsBoard(g);

    g.action("ig4")->trigger();
    g.clickBoardAt(QPoint(289, 15));  // the 7's strip above the 8
    QCOMPARE(g.prompts.boxTexts(), QStringList({kWrong}));  // a covered base card is refused
    QCOMPARE(g.board().vybor, 1);
    g.clickBoardAt(QPoint(289, 30));  // just below the strip: the 8
    QVERIFY(g.card(1, 8)->selected());
    QCOMPARE(g.prompts.boxes.size(), 1);
}

void ClicksTest::stackMovesWithItsTopCard() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    for (int i = 0; i < 5; ++i) play(g, winningMoves()[static_cast<size_t>(i)]);
    g.clickCard(1, 7);
    g.clickPile(1);
    g.clickCard(1, 8);
    g.clickCard(1, 7);
    // The cell 7 (base) + 8, taken by its top card onto the 9: the run goes
    // from the 8 down to the base 7, which ends on top.
    g.clickBoardAt(QPoint(289, 60));
    QVERIFY(g.card(1, 8)->selected());
    g.clickCard(1, 9);
    QCOMPARE(g.imageRect(1, 8), QRect(520, 24, 50, 75));
    QCOMPARE(g.imageRect(1, 7), QRect(520, 24, 50, 75));
    QCOMPARE(g.form->boardView()->childAt(545, 60), g.card(1, 7));
    QVERIFY(!g.card(1, 8)->selected());
    checkMirrorsBoard(g);
    // The place is empty again, and Image1 takes the next click there.
    QCOMPARE(g.form->boardView()->childAt(289, 60), g.pile(1));
}

void ClicksTest::directWidgetClick() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    QTest::mouseClick(g.card(1, 2), Qt::LeftButton);
    QVERIFY(g.card(1, 2)->selected());
    QTest::mouseClick(g.card(1, 2), Qt::LeftButton);  // again: deselected
    QVERIFY(!g.card(1, 2)->selected());
    QCOMPARE(g.board().vybor, 1);
}

void ClicksTest::onlyAFullClickCounts() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    QTest::mouseClick(g.card(1, 2), Qt::RightButton);
    QVERIFY(!g.card(1, 2)->selected());
    // Pressed on the card, released elsewhere: no click.
    QTest::mousePress(g.card(1, 2), Qt::LeftButton, {}, QPoint(20, 20));
    QTest::mouseRelease(g.card(1, 2), Qt::LeftButton, {}, QPoint(120, 20));
    QVERIFY(!g.card(1, 2)->selected());
    QCOMPARE(g.board().vybor, 1);
}

void ClicksTest::wonGameShowsForm3_data() {
    QTest::addColumn<bool>("english");
    QTest::newRow("Russian") << false;
    QTest::newRow("English") << true;
}

void ClicksTest::wonGameShowsForm3() {
    QFETCH(bool, english);
    Game g(dealScript(winnablePlace), english ? std::optional<QByteArray>("1\r\n") : std::nullopt);
    g.newGame();
    const auto moves = winningMoves();
    for (size_t i = 0; i + 1 < moves.size(); ++i) play(g, moves[i]);
    QVERIFY(g.prompts.shown.isEmpty());
    QCOMPARE(g.board().kartleft(4, 12), 4920);

    g.prompts.handlers = {[&g](QDialog&) {
        // Shown over the finished board.
        QCOMPARE(g.imageRect(4, 13), QRect(328, 336, 50, 75));
    }};
    play(g, moves.back());
    QCOMPARE(g.prompts.shown.size(), 1);
    QCOMPARE(g.prompts.shown[0].objectName, QString("Form3"));
    QCOMPARE(g.prompts.shown[0].title, QString::fromUtf8("Тавирен v2.0 - О программе"));
    QVERIFY(g.prompts.boxes.isEmpty());
    checkMirrorsBoard(g);

    // A won game stays won: the next move made on the grid shows it again.
    g.clickCard(4, 13);  // a foundation card: not selectable, no move
    QCOMPARE(g.prompts.shown.size(), 1);
}

QTEST_MAIN(ClicksTest)
#include "tst_clicks.moc"
