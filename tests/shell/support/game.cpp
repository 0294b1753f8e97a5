#include "game.h"

#include <QAction>
#include <QFile>

#include "shell/dialogs/help_window.h"
#include "shell/table/board_view.h"
#include "shell/table/card_image.h"
#include "shell/table/pile_image.h"

namespace vorn::test {

Answer RecordingPrompts::message(QWidget*, const QString& text, const QString& title, Buttons buttons, Icon icon) {
    boxes.append({text, title, {}, buttons, icon});
    if (buttons == Buttons::Ok) return Answer::Ok;
    return answers.isEmpty() ? Answer::No : answers.takeFirst();
}

QString RecordingPrompts::input(QWidget*, const QString& prompt, const QString& title, const QString& typed) {
    asked.append({prompt, title, typed});
    return inputs.isEmpty() ? QString() : inputs.takeFirst();
}

void RecordingPrompts::exec(QDialog& dialog) {
    shown.append({dialog.objectName(), dialog.windowTitle(), {}});
    if (!handlers.isEmpty()) handlers.takeFirst()(dialog);
}

QStringList RecordingPrompts::texts() const {
    QStringList out;
    for (const Box& b : boxes) out.append(b.text);
    return out;
}

int startPlace(int suit, int rank) {
    if (rank <= 11) return (suit - 1) * 10 + (rank - 1);
    return rank == 12 ? 40 + suit : 44 + suit;
}

int winnablePlace(int suit, int rank) {
    const int row = (suit - 1) * 10;
    if (rank <= 6) return row + (rank - 1);    // columns 1..5
    if (rank <= 11) return row + (17 - rank);  // the 7 at column 11 ... the J at column 7
    return rank == 12 ? 40 + suit : 49 - suit;
}

std::vector<double> deals(std::initializer_list<PlaceOf> layouts) {
    std::vector<double> values;
    for (PlaceOf placeOf : layouts)
        for (int i = 1; i <= kPlaces; ++i)  // floor(u * 48 + 1) is the place
            values.push_back((placeOf(layoutSuit(i), layoutRank(i)) - 0.5) / kPlaces);
    return values;
}

std::vector<Move> winningMoves() {
    std::vector<Move> moves;
    for (int16_t s = 1; s <= 4; ++s)
        for (int16_t r = 2; r <= 13; ++r) moves.push_back({{s, r}, {s, static_cast<int16_t>(r - 1)}});
    return moves;
}

Game::Game(std::vector<double> script, std::optional<QByteArray> ini) {
    if (ini) write("ini.txt", *ini);
    random = std::make_unique<ScriptedRandom>(std::move(script));
    form = std::make_unique<shell::Form2>(dir.path().toStdString(), prompts, *random);
    form->show();
    form->activateWindow();
    if (!QTest::qWaitForWindowActive(form.get())) qWarning("the main window did not become active");
}

Game::~Game() {
    form.reset();
    delete shell::HelpWindow::current();
}

QByteArray Game::file(const char* name) const {
    QFile f(dir.filePath(QString::fromLatin1(name)));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

bool Game::exists(const char* name) const { return QFile::exists(dir.filePath(QString::fromLatin1(name))); }

void Game::write(const char* name, const QByteArray& bytes) const {
    QFile f(dir.filePath(QString::fromLatin1(name)));
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) || f.write(bytes) != bytes.size())
        qFatal("cannot write %s", name);
}

QAction* Game::action(const char* name) const {
    auto* a = form->findChild<QAction*>(QString::fromLatin1(name));
    if (!a) qFatal("no action %s", name);
    return a;
}

shell::CardImage* Game::card(Card c) const { return form->boardView()->card(c.suit, c.rank); }

shell::PileImage* Game::pile(int image) const { return form->boardView()->pile(image); }

void Game::clickAt(QPoint boardPixel) {
    const QPoint inWindow = form->boardView()->mapTo(form.get(), boardPixel);
    QTest::mouseClick(form->windowHandle(), Qt::LeftButton, Qt::NoModifier, inWindow);
}

// Only the 16-pixel strip of a card shows when another lies on it.
QPoint Game::aim(Card c) const {
    const QRect r = card(c)->geometry();
    for (int16_t s = 1; s <= 4; ++s)
        for (int16_t k = 1; k <= 13; ++k)
            if (card({s, k})->pos() == r.topLeft() + QPoint(0, 16)) return {r.center().x(), r.top() + 8};
    return r.center();
}

void Game::clickPile(int image) { clickAt(pile(image)->geometry().center()); }

void Game::play(const Move& m) {
    click(m.card);
    click(m.onto);
}

void Game::key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(form->windowHandle(), key, modifiers);
}

QString Game::unlikeBoard() const {
    const Board& b = board();
    const QObjectList stack = form->boardView()->children();
    for (int16_t s = 1; s <= 4; ++s)
        for (int16_t r = 1; r <= 13; ++r) {
            const shell::CardImage* image = card({s, r});
            if (image->geometry() != QRect(b.kartleft(s, r) / 15, b.karttop(s, r) / 15, 50, 75))
                return image->objectName() + " misplaced";
            if (image->selected() != (b.border(s, r) == 1)) return image->objectName() + " framed wrongly";
            for (int16_t s2 = 1; s2 <= 4; ++s2)
                for (int16_t r2 = 1; r2 <= 13; ++r2)
                    if (b.zorder(s, r) < b.zorder(s2, r2) && stack.indexOf(image) > stack.indexOf(card({s2, r2})))
                        return image->objectName() + " in front of " + card({s2, r2})->objectName();
        }
    return {};
}

}  // namespace vorn::test
