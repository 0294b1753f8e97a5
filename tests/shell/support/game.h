// What the window tests share: a main window in a scratch folder with scripted
// deals, a recorder in place of its boxes, and the ways a player reaches it:
// menu items, keys and real mouse clicks at the place of a card.
#pragma once

#include <QtTest>
#include <QtWidgets>
#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "board/deal_number.h"
#include "board/random.h"
#include "shell/dialogs/help_window.h"
#include "shell/game.h"
#include "shell/prompts.h"
#include "shell/table/board_view.h"
#include "shell/table/card_image.h"
#include "shell/table/pile_image.h"
#include "shell/window/form2.h"

namespace vorn::test {

using shell::Prompts;
using Answer = Prompts::Answer;

// A message box; for the input box `text` is its prompt and `typed` what it
// started with; for a modal window `text` is its objectName.
struct Box {
    QString text, title, typed;
    Prompts::Buttons buttons = Prompts::Buttons::Ok;
    Prompts::Icon icon = Prompts::Icon::None;
};

// Stands in for the game's boxes: answers from a script and remembers what it
// was asked to show.
class RecordingPrompts final : public Prompts {
public:
    QList<Answer> answers;  // to the questions (Yes/No boxes), from the front; without one No
    QStringList inputs;     // typed into the input box; without one it is cancelled
    QList<std::function<void(QDialog&)>> handlers;  // run a modal window; without one it is only recorded
    QStringList files;      // chosen in the file box; without one it is cancelled
    QList<Box> boxes, asked, shown;
    QStringList texts;  // of the message boxes

    Answer message(QWidget*, const QString& text, const QString& title, Buttons buttons, Icon icon) override {
        boxes.append({text, title, {}, buttons, icon});
        texts.append(text);
        return buttons == Buttons::Ok ? Answer::Ok : answers.isEmpty() ? Answer::No : answers.takeFirst();
    }
    QString input(QWidget*, const QString& prompt, const QString& title, const QString& typed) override {
        asked.append({prompt, title, typed});
        return inputs.isEmpty() ? QString() : inputs.takeFirst();
    }
    void exec(QDialog& dialog) override {
        shown.append({dialog.objectName(), dialog.windowTitle(), {}});
        if (!handlers.isEmpty()) handlers.takeFirst()(dialog);
    }
    QString saveFileName(QWidget*, const QString&, const QString&, const QString&) override {
        return files.isEmpty() ? QString() : files.takeFirst();
    }
};

// Layouts, as the place (1..48) each card of rank 2..13 is dealt to. The
// winnable one plays out to the end: in row s the 2..6 of suit s from the left
// edge inwards and the 7..J from the right edge inwards; the queens in the left
// half of row 5, the kings in the right half.
using PlaceOf = int (*)(int suit, int rank);
inline int winnablePlace(int suit, int rank) {
    const int row = (suit - 1) * 10;
    if (rank <= 6) return row + (rank - 1);    // columns 1..5
    if (rank <= 11) return row + (17 - rank);  // the 7 at column 11 ... the J at column 7
    return rank == 12 ? 40 + suit : 49 - suit;
}
// The numbers a ScriptedRandom must hand out for the deal routine to deal these layouts in turn.
inline std::vector<double> deals(std::initializer_list<PlaceOf> layouts) {
    std::vector<double> values;
    for (PlaceOf placeOf : layouts)
        for (int i = 1; i <= kPlaces; ++i)  // floor(u * 48 + 1) is the place
            values.push_back((placeOf(layoutSuit(i), layoutRank(i)) - 0.5) / kPlaces);
    return values;
}
// Move i (0..47) of those that win the winnable layout: each card of rank 2..K
// onto the card one lower of its suit, hearts first.
struct Move {
    Card card, onto;
};
inline Move winningMove(int i) {
    const int16_t suit = static_cast<int16_t>(i / 12 + 1), rank = static_cast<int16_t>(i % 12 + 2);
    return {{suit, rank}, {suit, static_cast<int16_t>(rank - 1)}};
}

// New game's deals from a script: the k-th New game lays out the next layout
// the script draws, under a number of its own (4,000,000,000 + k) that lays out
// that same layout whenever it is laid out again; any other number deals as
// the game does.
class ScriptedDeals final : public DealSource {
public:
    static constexpr DealNumber kFirst = 4'000'000'000u;
    explicit ScriptedDeals(std::vector<double> script) : script_(std::move(script)) {}
    DealNumber draw() override { return kFirst + issued_++; }
    void layOut(Board& board, DealNumber number) override {
        if (number < kFirst) return DealSource::layOut(board, number);
        const auto [at, fresh] = drawsOf_.try_emplace(number);
        if (fresh) {
            Recording recording(script_, at->second);
            board.rasklad(recording);
            return;
        }
        ScriptedRandom again(at->second);
        board.rasklad(again);
    }

private:
    // Passes the script's numbers on and keeps them.
    struct Recording final : Random {
        Recording(ScriptedRandom& source, std::vector<double>& kept) : source(source), kept(kept) {}
        void reseed() override {}
        double next() override { return kept.emplace_back(source.next()); }
        ScriptedRandom& source;
        std::vector<double>& kept;
    };
    ScriptedRandom script_;
    DealNumber issued_ = 0;
    std::map<DealNumber, std::vector<double>> drawsOf_;
};

class Game {
public:
    // ini: the bytes of ini.txt before start-up (none: no file).
    // The program's own settings (the solver items' check marks) start empty
    // each time, in Qt's test folder for them, never the player's.
    explicit Game(std::vector<double> script = {}, std::optional<QByteArray> ini = std::nullopt)
        : deals(std::make_unique<ScriptedDeals>(std::move(script))) {
        QStandardPaths::setTestModeEnabled(true);
        qputenv("XDG_STATE_HOME", state.path().toUtf8());  // the game record: a scratch one
        QSettings(QSettings::NativeFormat, QSettings::UserScope, "vorn", "vorn").clear();
        if (ini) write("ini.txt", *ini);
        start();
    }
    // Opens the main window on the folder, as the program does at start.
    void start() {
        form = std::make_unique<shell::Form2>(dir.path().toStdString(), prompts, *deals);
        form->show();
        form->activateWindow();
        // A Wayland client cannot ask to be made active: there it is enough to be shown.
        const bool shown = QGuiApplication::platformName() == "wayland" ? QTest::qWaitForWindowExposed(form.get())
                                                                         : QTest::qWaitForWindowActive(form.get());
        if (!shown) qWarning("the main window did not become active");
    }
    ~Game() {
        form.reset();
        delete shell::HelpWindow::current();
    }

    QString path(const char* name) const { return dir.filePath(QString::fromLatin1(name)); }
    bool exists(const char* name) const { return QFile::exists(path(name)); }
    QByteArray file(const char* name) const {  // empty when missing
        QFile f(path(name));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    void write(const char* name, const QByteArray& bytes) const {
        QFile f(path(name));
        if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) || f.write(bytes) != bytes.size())
            qFatal("cannot write %s", name);
    }

    QAction* action(const char* name) const { return form->findChild<QAction*>(QString::fromLatin1(name)); }
    void trigger(const char* name) const { action(name)->trigger(); }
    shell::CardImage* card(Card c) const { return form->boardView()->card(c.suit, c.rank); }
    shell::PileImage* pile(int image) const { return form->boardView()->pile(image); }
    shell::Game& game() const { return *form->findChild<shell::Game*>("game"); }
    const Board& board() const { return game().board(); }

    // Where the table lies in the board widget, and how large.
    shell::TableScale scale() const { return form->boardView()->scale(); }
    // The table at `percent` % through the keys of Table size.
    void zoomTo(int percent) {
        for (int steps = 0; steps < 12 && qRound(scale().zoom() * 100) != percent; ++steps)
            key(scale().zoom() * 100 < percent ? Qt::Key_Equal : Qt::Key_Minus, Qt::ControlModifier);
        QCOMPARE(qRound(scale().zoom() * 100), percent);
    }

    // Real clicks on the window at a point of the board (pixels): the window
    // hands them to the front-most image there.
    void clickAt(QPoint boardPixel) {
        QTest::mouseClick(form->windowHandle(), Qt::LeftButton, {}, form->boardView()->mapTo(form.get(), boardPixel));
    }
    // The middle of what shows of a card as the table is shown: only its strip
    // when another card lies on it.
    QPoint aim(Card c) const {
        const Spot at = board().spot(c);
        int height = kCardHeight;
        for (int16_t s = 1; s <= 4; ++s)
            for (int16_t k = 1; k <= 13; ++k)
                if (board().spot({s, k}) == Spot{at.left, static_cast<int16_t>(at.top + kStackOffset)}) height = kStackOffset;
        return scale().at(at.left + kCardWidth / 2, at.top + height / 2);
    }
    void click(Card c) { clickAt(aim(c)); }
    void play(const Move& m) { click(m.card); click(m.onto); }
    // A key pressed in the window, made the active one first, as the menus' keys need.
    void key(Qt::Key key, Qt::KeyboardModifiers mods = {}) {
        if (!form->isActiveWindow()) {
            form->activateWindow();
            if (!QTest::qWaitForWindowActive(form.get())) qWarning("the main window did not become active");
        }
        QTest::keyClick(form->windowHandle(), key, mods);
    }

    // The first card image that does not show the board: named, placed (at the
    // table's zoom), framed and stacked as its tables say. Empty when every image does.
    QString unlikeBoard() const {
        const Board& b = board();
        const QObjectList stack = form->boardView()->children();
        for (int16_t s = 1; s <= 4; ++s)
            for (int16_t r = 1; r <= 13; ++r) {
                const shell::CardImage* image = card({s, r});
                const QString name = QString("Im%1_%2").arg(s).arg(r);
                if (image->objectName() != name) return image->objectName() + " in place of " + name;
                if (image->geometry() != scale().image(b.kartleft(s, r), b.karttop(s, r)))
                    return name + " misplaced";
                if (image->selected() != (b.border(s, r) == 1)) return name + " framed wrongly";
                for (int16_t s2 = 1; s2 <= 4; ++s2)
                    for (int16_t r2 = 1; r2 <= 13; ++r2)
                        if (b.zorder(s, r) < b.zorder(s2, r2) && stack.indexOf(image) > stack.indexOf(card({s2, r2})))
                            return name + " in front of " + card({s2, r2})->objectName();
            }
        return {};
    }

    QTemporaryDir dir;
    QTemporaryDir state;  // the XDG state folder, where the game record lives
    RecordingPrompts prompts;
    std::unique_ptr<ScriptedDeals> deals;
    std::unique_ptr<shell::Form2> form;
};

}  // namespace vorn::test

// Every test program speaks the game's names and these.
using namespace vorn;
using namespace vorn::test;
