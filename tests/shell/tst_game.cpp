// The game beneath the window, without a window: the solver's verdict after
// every change of the position, kept with the position, the move that lost the
// deal, and the way back to the last winnable position.
#include <QtTest>

#include "support/board_from.h"
#include "board/deal_number.h"
#include "shell/game.h"

using namespace vorn;
using shell::Judgement;

namespace {

constexpr int kWait = 30000;  // ms; the machine may be busy

// Deal 8 is winnable; after its first winning move, the 5 of hearts onto the
// 6 of hearts loses it, and the 3 of diamonds onto the 4 can follow. Deal 2
// is lost from the start.
constexpr DealNumber kTrap = 8, kLostDeal = 2;

struct Play {
    QTemporaryDir folder;
    ClockDeals deals;
    shell::Game game{folder.path().toStdString(), deals};

    explicit Play(DealNumber deal) { game.dealNumbered(deal); }
    void play(const char* card, const char* onto) { play(card, {Hit::Kind::Card, vorn::card(onto), 0}); }
    void play(const char* card, const Hit& onto) {
        game.click({Hit::Kind::Card, vorn::card(card), 0});
        game.click(onto);
    }
    void play(const Move& move) { game.play(move); }
    // Waits for the solver's word on the position on the table.
    Judgement verdict() {
        if (!QTest::qWaitFor([this] { return game.judgement() != Judgement::Thinking; }, kWait)) qWarning("no verdict");
        return game.judgement();
    }
};

}  // namespace

class GameTest : public QObject {
    Q_OBJECT
private slots:
    // Winnable, still winnable after a move of the winning line, lost by the
    // next move and lost thereafter; the history names the move that lost it.
    // Back to the last winnable position undoes the two, which Redo plays
    // again, each position's verdict kept with it.
    void verdictsAlongAGame() {
        Play t(kTrap);
        QCOMPARE(t.game.judgement(), Judgement::Thinking);  // the window never waits for the answer
        QList<Judgement> seen{t.verdict()};
        t.play(t.game.winningLine()->moves.front());
        const Snapshot winnable = Snapshot::of(t.game.board());
        seen << t.verdict();
        QVERIFY(!t.game.judged().canGoBack);
        t.play("5H", "6H");
        seen << t.verdict();
        t.play("3D", "4D");
        seen << t.verdict();
        QCOMPARE(seen, QList<Judgement>({Judgement::Winnable, Judgement::Winnable, Judgement::Lost, Judgement::Lost}));
        QCOMPARE(t.game.judged().losingMove, std::optional<size_t>(1));
        const History::Entry& losing = t.game.history().done()[1];
        QVERIFY(losing.select.card == card("5H") && losing.play.card == card("6H"));

        QSignalSpy moved(&t.game, &shell::Game::moved);
        QVERIFY(t.game.judged().canGoBack);
        t.game.backToWinnable();
        QVERIFY(Snapshot::of(t.game.board()) == winnable && t.game.board().vybor == 1 && moved.size() == 1);
        QCOMPARE(t.game.judgement(), Judgement::Winnable);  // kept: no new search
        QVERIFY(t.game.history().redoCount() == 2 && !t.game.judged().canGoBack);
        t.game.redo();
        QCOMPARE(t.game.judgement(), Judgement::Lost);
        t.game.redo();
        QVERIFY(t.game.judgement() == Judgement::Lost && t.game.judged().losingMove == std::optional<size_t>(1));
    }

    // The losing move is made before the solver has answered about the deal:
    // that answer arrives while another position is on the table and is never
    // taken for its verdict. It is kept for its own position all the same.
    void staleAnswerDropped() {
        Play t(kTrap);
        t.play("5H", "6H");
        QList<Judgement> shown;
        connect(&t.game, &shell::Game::judgedChanged, this, [&] { shown << t.game.judgement(); });
        QCOMPARE(t.verdict(), Judgement::Lost);
        QVERIFY2(!shown.contains(Judgement::Winnable), "the deal's verdict was shown for the position after the move");
        QTRY_COMPARE_WITH_TIMEOUT(t.game.judged().losingMove, std::optional<size_t>(0), kWait);
        t.game.undo();
        QCOMPARE(t.game.judgement(), Judgement::Winnable);
    }

    // In a deal lost from the start no position was ever winnable.
    void lostFromTheStart() {
        Play t(kLostDeal);
        QCOMPARE(t.verdict(), Judgement::Lost);
        t.play("10C", {Hit::Kind::Pile, {}, 9});  // onto the bare place below the aces
        QCOMPARE(t.game.history().undoCount(), size_t(1));
        QCOMPARE(t.verdict(), Judgement::Lost);
        QVERIFY(!t.game.judged().canGoBack && !t.game.judged().losingMove);
    }

    // A layout laid out is a new deal, even the one on the table as dealt:
    // nothing is left to redo, and it has no number.
    void loadForgetsTheMoves() {
        Play t(kTrap);
        QFile handOver(t.folder.filePath("load.txt"));
        QVERIFY(handOver.open(QIODevice::WriteOnly));
        handOver.write(QByteArray::fromStdString(t.game.board().raskl) + "\r\n");
        handOver.close();
        t.play("5H", "6H");
        t.game.undo();
        QVERIFY(t.game.history().canRedo() && t.game.dealNumber() == DealNumber(kTrap));
        QCOMPARE(t.game.loadHandOver(), LayoutProblem::None);
        QVERIFY(!t.game.history().canRedo() && !t.game.dealNumber());
    }
};

QTEST_MAIN(GameTest)
#include "tst_game.moc"
