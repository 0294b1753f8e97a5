// The solver's items of the Game menu: Hint, Winnable deals only and Show
// solution. The solver thinks on a worker thread, so its answers are waited for.
#include "support/board_from.h"
#include "shell/solver/hint_mark.h"
#include "shell/solver/solution_player.h"
#include "shell/solver/solver_menu.h"
#include "shell/solver/verdict_menu.h"
#include "support/game.h"

namespace {

constexpr int kWait = 30000;  // ms; the machine may be busy

// Where a seeded New game deals each card. Seed 2's layout no line of play
// wins; seed 8's is winnable, but its first move 5 of hearts onto the 6 of
// hearts loses it (the game's own tests play the same two deals).
template <uint64_t seed>
int seededPlace(int suit, int rank) {
    SeededRandom random(seed);
    Board board = Board::loaded();
    board.rasklad(random);
    return board.mesta(suit, rank);
}
constexpr PlaceOf kLost = seededPlace<2>, kTrap = seededPlace<8>;

shell::SolverMenu& solverMenu(const Game& g) { return *g.form->findChild<shell::SolverMenu*>("solverMenu"); }

// The line a word of the window stands on: the lowest row of `area` whose ink
// is at least a quarter of the fullest row's, so descenders are left out.
int baseline(const QImage& window, const QRect& area) {
    const QColor paper = window.pixelColor(area.topLeft());
    QList<int> ink;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        int n = 0;
        for (int x = area.left(); x <= area.right(); ++x) {
            const QColor c = window.pixelColor(x, y);
            n += std::abs(c.red() - paper.red()) + std::abs(c.green() - paper.green()) + std::abs(c.blue() - paper.blue()) > 150;
        }
        ink << n;
    }
    const int fullest = *std::max_element(ink.begin(), ink.end());
    for (int row = int(ink.size()) - 1; row >= 0; --row)
        if (fullest > 0 && ink[row] * 4 >= fullest) return area.top() + row;
    return -1;
}

}  // namespace

class SolverTest : public QObject {
    Q_OBJECT
private slots:
    // The marks frame a move the board takes: clicks where they blink make it,
    // on a zoomed table and on one zoomed while they blink.
    void hintBlinksAMove() {
        Game g(deals({winnablePlace}));
        g.trigger("ig1");
        g.zoomTo(150);
        auto* card = g.form->boardView()->findChild<shell::HintMark*>("hintCard");
        auto* target = g.form->boardView()->findChild<shell::HintMark*>("hintTarget");
        const Board dealt = g.board();
        g.trigger("hint");
        QTRY_VERIFY_WITH_TIMEOUT(card->active() && target->active(), kWait);
        QCOMPARE(g.board(), dealt);
        g.trigger("zoomOut");
        g.clickAt(card->geometry().center());
        g.trigger("hint");  // asked again with the hinted card selected: only its target blinks
        QTRY_VERIFY_WITH_TIMEOUT(target->active() && !card->active(), kWait);
        g.clickAt(target->geometry().center());
        QVERIFY(g.action("undo")->isEnabled() && g.prompts.boxes.isEmpty());
    }

    // Shown whether or not Messages is on (it is off).
    void lostAndUnknownBoxes() {
        for (const bool lost : {true, false}) {  // lost in Russian; unknown, the solver stopped at once, in English
            Game g(deals({lost ? kLost : winnablePlace}), lost ? "2\r\n" : "1\r\n");
            const QString says = lost ? "Этот расклад уже не выиграть." : "Could not find out whether this deal can still be won.";
            if (!lost) g.game().limits.maxPositions = g.game().grading.positionsPerSearch = 1;
            g.trigger("ig1");
            g.trigger("hint");
            QTRY_COMPARE_WITH_TIMEOUT(g.prompts.texts, QStringList{says}, kWait);
            g.trigger("solution");
            QTRY_COMPARE_WITH_TIMEOUT(g.prompts.texts, QStringList({says, says}), kWait);
            QVERIFY(!g.action("undo")->isEnabled());
        }
    }

    // The lost layout is drawn first and thrown away; the winnable one is dealt.
    void winnableDealsOnly() {
        Game g(deals({kLost, winnablePlace}));
        g.trigger("winnable");
        g.trigger("ig1");
        QTRY_VERIFY_WITH_TIMEOUT(!g.board().raskl.empty(), kWait);
        for (int i = 1; i <= kPlaces; ++i)
            QVERIFY(g.board().mesta(layoutSuit(i), layoutRank(i)) == winnablePlace(layoutSuit(i), layoutRank(i)));
        QCOMPARE(g.file("save1.txt"), QByteArray::fromStdString(g.board().raskl + "\r\n"));
        QCOMPARE(g.unlikeBoard(), QString());
        // A grade chosen deals winnable deals of it, and is there again at the next start.
        g.trigger("winnable");  // off: choosing a grade turns it on
        g.trigger("gradeHard");
        g.start();
        QVERIFY(g.action("gradeHard")->isChecked() && g.action("winnable")->isChecked());
    }

    // Any press stops the show and plays no card; so does New game. Played out,
    // the show wins the game through the player's own clicks.
    void showSolution() {
        Game g(deals({winnablePlace, winnablePlace}));
        g.trigger("ig1");
        const Board dealt = g.board();
        g.trigger("solution");
        QTRY_VERIFY_WITH_TIMEOUT(g.action("undo")->isEnabled() && g.board().vybor == 1, kWait);
        const Board before = g.board();
        g.click({4, 7});
        QVERIFY(g.board() == before && !solverMenu(g).playing());
        g.trigger("solution");
        QTRY_VERIFY_WITH_TIMEOUT(solverMenu(g).playing(), kWait);
        g.trigger("ig1");
        QTest::qWait(2 * int(shell::SolutionPlayer::kPace.count()));
        QVERIFY(!solverMenu(g).playing() && !g.action("undo")->isEnabled() && g.board().kartleft == dealt.kartleft);
        solverMenu(g).player().setPace(std::chrono::milliseconds(0));
        g.trigger("solution");
        QTRY_COMPARE_WITH_TIMEOUT(g.prompts.shown.size(), 1, kWait);
        QVERIFY(g.prompts.shown[0].text == "Form3" && g.prompts.boxes.isEmpty());
    }

    // The mark is there only while its item is checked, in the language in
    // force, with the number of the deal, and the window keeps its size. It
    // names the move that lost the deal; Ctrl+B goes back to where the deal
    // could still be won. It shows every word whole, even when it starts
    // checked; a screen reader finds it among the window's children and hears
    // each new sentence once, and every new deal, even one with the same word.
    // Its word stands on the line of the bar's captions, and the mark stays at
    // the bar's right end when the window is resized.
    // Both check marks of the solver's items are there again when the window
    // starts anew, and ini.txt still holds just the language.
    void verdictMark() {
        Game g({}, "1\r\n");
        const QSize size = g.form->size();
        QVERIFY(!g.form->findChild<QLabel*>("verdictMark") && !g.action("showVerdict")->isChecked());
        g.trigger("showVerdict");
        g.trigger("winnable");
        g.start();  // the mark's item is remembered: checked from the start
        QVERIFY(g.action("showVerdict")->isChecked() && g.action("winnable")->isChecked());
        g.trigger("winnable");
        auto* mark = g.form->findChild<QLabel*>("verdictMark");
        QVERIFY(mark && g.form->size() == size);
        QAccessibleInterface* window = QAccessible::queryAccessibleInterface(g.form.get());
        QVERIFY(window->indexOfChild(QAccessible::queryAccessibleInterface(mark)) >= 0);
        QSignalSpy heard(g.form->findChild<shell::VerdictMenu*>("verdictMenu"), &shell::VerdictMenu::announced);
        auto deal = [&](const char* number, const char* word) {
            g.prompts.inputs = {number};
            g.trigger("dealNumber");
            QTRY_COMPARE_WITH_TIMEOUT(mark->text(), QString(word), kWait);
        };
        auto whole = [&] {
            const QImage shown = g.form->grab().toImage();
            const QMenuBar* bar = g.form->menuBar();
            const QRect caption = bar->actionGeometry(bar->actions().constFirst()).translated(bar->pos());
            return mark->width() >= mark->fontMetrics().horizontalAdvance(mark->text()) &&
                   mark->geometry().right() == bar->geometry().right() &&
                   baseline(shown, mark->geometry()) == baseline(shown, caption);
        };
        deal("8", "winnable");
        QVERIFY(whole());
        g.play({card("5H"), card("6H")});
        QTRY_COMPARE_WITH_TIMEOUT(mark->text(), QString("lost"), kWait);
        // The tooltip tells how hard the deal is once it is graded.
        QTRY_COMPARE_WITH_TIMEOUT(mark->toolTip(), "Deal 8 · medium. The deal can no longer be won. Lost by move 1: 5 of "
                                                   "hearts onto the 6 of hearts.", kWait);
        g.trigger("ig7");
        QCOMPARE(mark->toolTip(), "Расклад 8 · средний. Этот расклад уже не выиграть. Проигран ходом 1: 5 червей на 6 червей.");
        QVERIFY(g.action("backToWinnable")->isEnabled());
        g.key(Qt::Key_B, Qt::ControlModifier);
        QVERIFY(mark->text() == "выигрышный" && whole() && g.action("redo")->isEnabled() && !g.action("backToWinnable")->isEnabled());
        deal("2", "проигран");  // lost from the start, and once more: the same word, a new deal
        deal("2", "проигран");
        QTRY_COMPARE_WITH_TIMEOUT(heard.size(), 6, kWait);
        const QString lost2 = "Расклад 2. Этот расклад уже не выиграть.";
        QStringList said;
        for (const QList<QVariant>& sentence : heard) said << sentence[0].toString();
        QCOMPARE(said, QStringList({"Deal 8. The deal can still be won.",
                                    "Deal 8. The deal can no longer be won. Lost by move 1: 5 of hearts onto the 6 of hearts.",
                                    "Расклад 8. Этот расклад уже не выиграть. Проигран ходом 1: 5 червей на 6 червей.",
                                    "Расклад 8. Этот расклад ещё можно выиграть.", lost2, lost2}));
        QTRY_COMPARE_WITH_TIMEOUT(mark->toolTip(), "Расклад 2 · проигран. Этот расклад уже не выиграть.", kWait);
        g.trigger("scaleWithWindow");
        g.form->resize(1000, 650);
        QTRY_VERIFY(whole());
        QCOMPARE(g.file("ini.txt"), QByteArray("2\r\n"));
        g.key(Qt::Key_0, Qt::ControlModifier);
        g.trigger("scaleWithWindow");
        g.trigger("showVerdict");
        QVERIFY(!g.form->findChild<QLabel*>("verdictMark") && g.form->size() == size);
    }
};

QTEST_MAIN(SolverTest)
#include "tst_solver.moc"
