#include "game.h"

#include <QAction>
#include <QFile>
#include <QTest>

#include "shell/table/board_view.h"
#include "shell/table/card_image.h"
#include "shell/dialogs/help_window.h"
#include "shell/table/pile_image.h"

namespace vorn::test {

std::vector<double> dealScript(const PlaceOf& placeOf) {
    std::vector<double> values;
    for (int i = 1; i <= kPlaces; ++i) {
        const int place = placeOf(layoutSuit(i), layoutRank(i));
        values.push_back((place - 0.5) / kPlaces);  // floor(u * 48 + 1) == place
    }
    return values;
}

int startPlace(int suit, int rank) {
    if (rank <= 11) return (suit - 1) * 10 + (rank - 1);
    return rank == 12 ? 40 + suit : 44 + suit;
}

int winnablePlace(int suit, int rank) {
    const int row = (suit - 1) * 10;
    if (rank <= 6) return row + (rank - 1);  // columns 1..5
    if (rank <= 11) return row + (17 - rank);  // 7 at column 11 ... J at column 7
    return rank == 12 ? 40 + suit : 49 - suit;
}

std::vector<Move> winningMoves() {
    std::vector<Move> moves;
    for (int16_t s = 1; s <= 4; ++s)
        for (int16_t r = 2; r <= 13; ++r) moves.push_back({{s, r}, {s, static_cast<int16_t>(r - 1)}});
    return moves;
}

Game::Game(std::vector<double> script, std::optional<QByteArray> ini) {
    if (ini) writeFile("ini.txt", *ini);
    random = std::make_unique<ScriptedRandom>(std::move(script));
    form = std::make_unique<shell::Form2>(folder(), prompts, *random);
    form->show();
    if (!QTest::qWaitForWindowExposed(form.get())) qWarning("the main window was not shown");
}

Game::~Game() {
    form.reset();
    delete shell::HelpWindow::current();
}

std::filesystem::path Game::folder() const { return dir.path().toStdString(); }

QByteArray Game::file(const char* name) const {
    QFile f(dir.filePath(QString::fromLatin1(name)));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

bool Game::exists(const char* name) const { return QFile::exists(dir.filePath(QString::fromLatin1(name))); }

void Game::writeFile(const char* name, const QByteArray& bytes) const {
    QFile f(dir.filePath(QString::fromLatin1(name)));
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) || f.write(bytes) != bytes.size())
        qFatal("cannot write %s", name);
}

QAction* Game::action(const char* name) const {
    auto* a = form->findChild<QAction*>(QString::fromLatin1(name));
    if (!a) qFatal("no action %s", name);
    return a;
}

shell::CardImage* Game::card(int suit, int rank) const { return form->boardView()->card(suit, rank); }

shell::PileImage* Game::pile(int image) const { return form->boardView()->pile(image); }

void Game::newGame() { action("ig1")->trigger(); }

void Game::clickBoardAt(QPoint boardPixel) {
    const QPoint inWindow = form->boardView()->mapTo(form.get(), boardPixel);
    QTest::mouseClick(form->windowHandle(), Qt::LeftButton, Qt::NoModifier, inWindow);
}

void Game::clickCard(int suit, int rank) {
    const QRect r = imageRect(suit, rank);
    // Is another card lying 16 pixels lower on it? Then only its strip shows.
    bool covered = false;
    for (int s = 1; s <= 4; ++s)
        for (int k = 1; k <= 13; ++k)
            if (imageRect(s, k).topLeft() == r.topLeft() + QPoint(0, 16)) covered = true;
    clickBoardAt(covered ? QPoint(r.center().x(), r.top() + 8) : r.center());
}

void Game::clickPile(int image) { clickBoardAt(pile(image)->geometry().center()); }

QRect Game::imageRect(int suit, int rank) const { return card(suit, rank)->geometry(); }

QRect Game::boardRect(int suit, int rank) const {
    return {board().kartleft(suit, rank) / 15, board().karttop(suit, rank) / 15, 50, 75};
}

}  // namespace vorn::test
