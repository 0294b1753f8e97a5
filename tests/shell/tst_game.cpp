// The game beneath the window, without a window: the solver's verdict after
// every change of the position, kept with the position, the move that lost the
// deal, and the way back to the last winnable position; every game in the
// game record, and the game continued after the program was killed.
#include <QtTest>
#include <csignal>

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

    // With a game record in `state` when one is given.
    explicit Play(DealNumber deal, const QString& state = {}) {
        if (!state.isEmpty()) game.placeRecord(state.toStdString());
        game.dealNumbered(deal);
    }
    void play(const char* card, const char* onto) { play(card, {Hit::Kind::Card, vorn::card(onto), 0}); }
    void play(const char* card, const Hit& onto) {
        game.click({Hit::Kind::Card, vorn::card(card), 0});
        game.click(onto);
    }
    void play(const Move& move) { game.play(move); }
    const Board& board() const { return game.board(); }
    // Waits for the solver's word on the position on the table.
    Judgement verdict() {
        if (!QTest::qWaitFor([this] { return game.judgement() != Judgement::Thinking; }, kWait)) qWarning("no verdict");
        return game.judgement();
    }
    // The trap: the first move of the winning line, then the two that lose.
    void springTrap() {
        verdict();
        play(game.winningLine()->moves.front());
        play("5H", "6H");
        play("3D", "4D");
    }
    std::vector<record::Game> recorded() { return game.record()->games().value_or(std::vector<record::Game>{}); }
};

// Run as a child of the test: plays the trap into a record and is killed.
int playAndBeKilled(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    Play t(kTrap, qEnvironmentVariable("VORN_KILLED_STATE"));
    t.springTrap();
    std::raise(SIGKILL);
    return 0;
}

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

    // Won once, however the win is undone and played again; a game that ends
    // as another begins is lost when its position was proven lost, else given
    // up; Deal again begins a new attempt at the same deal.
    void everyGameRecorded() {
        QTemporaryDir state;
        Play t(kTrap, state.path());
        const std::vector<Move> line = t.verdict() == Judgement::Winnable ? t.game.winningLine()->moves : std::vector<Move>{};
        for (const Move& move : line) t.play(move);
        t.game.undo();
        t.game.redo();
        t.game.dealAgain();  // a new attempt, lost by the trap
        t.springTrap();
        QCOMPARE(t.verdict(), Judgement::Lost);
        t.game.dealNumbered(kLostDeal);  // ends the lost attempt
        t.game.dealNumbered(kTrap);      // ends deal 2 before its verdict may have come
        // Deal 2 is classified once its verdicts arrive.
        QTRY_VERIFY_WITH_TIMEOUT(t.recorded().size() == 4 && t.recorded()[2].result == record::Result::Lost, kWait);
        QTRY_COMPARE_WITH_TIMEOUT(t.recorded()[2].beginning.verdict, record::Verdict::Lost, kWait);
        const std::vector<record::Game> games = t.recorded();
        QCOMPARE(games[0].result, record::Result::Won);
        QCOMPARE(games[0].progress.moves, int(line.size()));  // nothing is written once it is won
        QCOMPARE(games[0].progress.undos, 0);
        QVERIFY(games[1].result == record::Result::Lost && games[1].beginning.start == record::Start::DealAgain);
        QVERIFY(games[1].beginning.deal == games[0].beginning.deal && games[1].progress.moves == 3);
        QVERIFY(!games[3].result && games[3].beginning.start == record::Start::ByNumber);
        const record::Summary sum = *t.game.record()->summary("2026-11-25");
        QVERIFY(sum.all.played == 3 && sum.all.won == 1 && sum.winnable.played == 2 && sum.winnable.won == 1);
        // The deal of the day, found off the user-interface thread, is recorded with its date.
        const Date monday{std::chrono::year(2026), std::chrono::November, std::chrono::day(23)};
        t.game.dealDaily(monday);
        QTRY_COMPARE_WITH_TIMEOUT(t.game.dealNumber(), std::optional(dailyDeal(monday)), kWait);
        const record::Game daily = t.recorded().back();
        QVERIFY(daily.beginning.start == record::Start::Daily && daily.beginning.dailyDate == "2026-11-23");
        QTRY_COMPARE_WITH_TIMEOUT(t.recorded().back().grade, std::optional(int(Grade::Easy)), kWait);
    }

    // Winnable deals of one grade: New game deals only such a deal.
    void winnableDealOfAGrade() {
        Play t(kLostDeal);
        t.game.setWinnableOnly(true);
        t.game.setWinnableGrade(Grade::VeryHard);
        t.game.newGame();
        QVERIFY(t.game.busy());
        QTRY_VERIFY_WITH_TIMEOUT(!t.game.busy(), kWait);
        QVERIFY(t.game.difficulty() && t.game.difficulty()->grade == Grade::VeryHard);
        QCOMPARE(measureDifficulty(t.board()).milliBits, t.game.difficulty()->milliBits);
    }

    // Killed in the middle of a game: the next start continues it, move for
    // move, and Undo takes the last of them back.
    void continueAfterAKill() {
        QTemporaryDir state;
        QProcess child;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("VORN_KILLED_STATE", state.path());
        child.setProcessEnvironment(env);
        child.start(QCoreApplication::applicationFilePath(), {});
        QVERIFY(child.waitForFinished(kWait));
        QCOMPARE(child.exitStatus(), QProcess::CrashExit);
        Play again(kLostDeal, state.path());  // a new run: another game begins first
        QVERIFY(again.game.canContinue());
        QVERIFY(again.game.continueLast());
        Play same(kTrap);
        same.springTrap();
        QCOMPARE(again.game.board(), same.board());
        QCOMPARE(again.game.history().undoCount(), size_t(3));
        QVERIFY(!again.game.canContinue() && !again.game.history().canRedo());
        again.game.undo();
        same.game.undo();
        QCOMPARE(again.game.board(), same.board());
    }
};

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsSet("VORN_KILLED_STATE")) return playAndBeKilled(argc, argv);
    QCoreApplication app(argc, argv);
    GameTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_game.moc"
