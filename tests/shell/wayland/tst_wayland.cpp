// The game as a native Wayland client of a headless weston (under-weston.sh
// starts it): what the compositor and the window decorations ask of the window
// never ends the game. Each case runs under the shell its name says.

#include "support/game.h"

namespace {

bool roomy(const Game& g) { return g.form->windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen); }

// The compositor has had the window's next frame and has not ended the
// connection (a protocol error ends the program); the board is as it was.
void stillPlaying(Game& g, const Board& before) {
    g.form->update();
    QTest::qWait(400);
    QVERIFY(g.form->isVisible() && g.board() == before && g.unlikeBoard().isEmpty());
}

}  // namespace

class WaylandTest : public QObject {
    Q_OBJECT
private slots:
    // Under weston's desktop shell the decorations' buttons ask for a maximised
    // window (xdg_toplevel.set_maximized, as the title bar's button does), a
    // window back at its own size, a full-screen one, a minimised one; the
    // compositor's answers are obeyed, with the fixed table and the scaling one.
    void decorationRequests() {
        Game g(deals({winnablePlace}));
        g.trigger("ig1");
        g.play(winningMove(0));
        const Board played = g.board();
        QWindow* window = g.form->windowHandle();
        const QSize own = g.form->size();
        for (const Qt::WindowState state : {Qt::WindowMaximized, Qt::WindowNoState, Qt::WindowFullScreen, Qt::WindowNoState}) {
            window->setWindowStates(state);
            QTRY_COMPARE(g.form->windowState(), state);
            QTRY_COMPARE(g.form->size() == own, state == Qt::WindowNoState);
            stillPlaying(g, played);
        }
        g.trigger("scaleWithWindow");
        window->setWindowStates(Qt::WindowMaximized);
        QTRY_VERIFY(roomy(g) && g.scale().zoom() > 1.0);
        stillPlaying(g, played);
        window->setWindowStates(window->windowStates() | Qt::WindowMinimized);  // as the decorations ask
        stillPlaying(g, played);
    }

    // Weston's kiosk shell shows every window full screen of its own accord:
    // the fixed window takes the whole screen and plays there.
    void compositorFullScreen() {
        Game g(deals({winnablePlace}));
        QTRY_VERIFY(roomy(g) && g.form->size() == g.form->screen()->size());
        g.trigger("ig1");
        g.play(winningMove(0));
        QVERIFY(g.action("undo")->isEnabled());
        stillPlaying(g, g.board());
    }
};

QTEST_MAIN(WaylandTest)
#include "tst_wayland.moc"
