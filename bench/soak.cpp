// The soak: plays a great many random clicks on the board model, deal after
// seeded deal, and checks after every click that the game is still a game:
//   - the aces lie at their fixed places in the middle column;
//   - every other card lies on a grid spot (a place, the middle column, or
//     240 twips below one of them);
//   - every cell holds one suit, its stacked cards run on by one from the base
//     card, all up or all down, in stacking order, and no card floats without a
//     base card under it;
//   - what a click at a cell reaches (Board::hitAt) is the picture the tables
//     and the stacking order give: the base card's strip, the front card, or the
//     pile place of an empty cell;
//   - a refused click moves nothing, Reaction::moved says whether cards moved,
//     the layout (mesta) only changes by a deal, at most the selected card has
//     a border, and a won game has all four kings home.
//
//   vorn-soak [clicks] [seed]      defaults: 1000000 clicks, seed 1
//
// Each deal runs on a seed of its own; a violation names that seed and the
// click number within it, and `vorn-soak <click number> <seed>` replays it.
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "board/board.h"
#include "board/notation.h"
#include "board/position_check.h"
#include "support/describe.h"

namespace {

using vorn::Board;
using vorn::Card;
using vorn::Hit;

using vorn::Cell;

// A cell that can hold cards: a numbered place, a foundation or the cell below the aces.
bool isCardCell(Cell c) {
    return c.onGrid() && (vorn::isMiddle(c) || !vorn::isRowFive(c) || (c.col != 1 && c.col != vorn::kColumnCount));
}

Hit cardHit(Card c) { return {Hit::Kind::Card, c, 0}; }

// The i-th card of the layout order, i = 1..48.
Card cardAt(int i) {
    return {static_cast<int16_t>(vorn::layoutSuit(i)), static_cast<int16_t>(vorn::layoutRank(i))};
}

// The first broken invariant, or an empty text.
std::string checkBoard(const Board& b) {
    if (b.dealt()) {
        if (std::string problem = vorn::positionProblem(b); !problem.empty()) return problem;
    } else {
        for (int s = 1; s <= vorn::kSuits; ++s)
            if (b.kartleft(s, 1) != vorn::kMiddleLeft || b.karttop(s, 1) != vorn::aceTop(s))
                return "the ace of suit " + std::to_string(s) + " has moved";
    }

    struct Contents {
        Card base{};                // at the row top
        std::vector<Card> stacked;  // lying on it, in stacking order (back to front)
    };
    std::map<int, Contents> cells;  // by Cell::index() of the base cell
    for (int s = 1; s <= vorn::kSuits; ++s)
        for (int r = 1; r <= vorn::kRanks; ++r) {
            const Card c{static_cast<int16_t>(s), static_cast<int16_t>(r)};
            const Cell at = b.cell(c);
            if (!isCardCell(at)) return vorn::cardName(c) + " lies off the grid";
            Contents& cell = cells[at.index()];
            if (at.stacked) {
                cell.stacked.push_back(c);
            } else {
                if (!cell.base.empty()) return vorn::cardName(c) + " shares its place";
                cell.base = c;
            }
        }

    for (auto& [index, cell] : cells) {
        const Cell place{static_cast<int8_t>(index / vorn::kColumnCount + 1), static_cast<int8_t>(index % vorn::kColumnCount + 1), false};
        const std::string where = "cell (row " + std::to_string(place.row) + ", column " + std::to_string(place.col) + ")";
        const Card base = cell.base;
        std::sort(cell.stacked.begin(), cell.stacked.end(), [&](Card x, Card y) {
            return b.zorder(x.suit, x.rank) < b.zorder(y.suit, y.rank);
        });
        const int left = vorn::spotOf(place).left, top = vorn::spotOf(place).top;
        if (b.hitAt(left + 375, top + 120) != cardHit(base)) return where + ": its strip does not reach the base card";
        const Card front = cell.stacked.empty() ? base : cell.stacked.back();
        if (b.hitAt(left + 375, top + 800) != cardHit(front)) return where + ": a click does not reach its front card";
        if (const int pile = vorn::pileImageOf(place); pile != 0 && b.pileVisible(pile))
            return where + " is covered but its pile place counts as visible";
    }
    for (int image = 1; image <= vorn::kPileCount; ++image) {
        const vorn::PilePlace& pile = vorn::pilePlace(image);
        if (cells.count(vorn::pileCell(image).index()) != 0) continue;
        if (!b.pileVisible(image) || b.hitAt(pile.left + 375, pile.top + 600) != Hit{Hit::Kind::Pile, {}, image})
            return "the empty pile place Image" + std::to_string(image) + " cannot be clicked";
    }

    int bordered = 0;
    for (int s = 1; s <= vorn::kSuits; ++s)
        for (int r = 1; r <= vorn::kRanks; ++r)
            if (b.border(s, r) != 0) {
                ++bordered;
                if (b.vybor != 2 || b.karta1 != Card{static_cast<int16_t>(s), static_cast<int16_t>(r)})
                    return "a card that is not selected has a border";
            }
    if (bordered > 1) return "more than one card has a border";
    return {};
}

bool kingsHome(const Board& b) {
    for (int16_t s = 1; s <= vorn::kSuits; ++s) {
        const Cell king = b.cell({s, vorn::kRanks});
        if (!vorn::isMiddle(king) || !vorn::isAceRow(king)) return false;
    }
    return true;
}

bool samePositions(const Board& x, const Board& y) { return x.kartleft == y.kartleft && x.karttop == y.karttop; }

// A point of the board: anywhere at all (cloth and frames included), a random
// spot of a random cell (its strip or its lower part), or an aimed click. Pure
// chance seldom makes a move in this game, so aimed clicks look the way a
// player looks, trying clicks on a copy of the board: with nothing selected, a
// card that can be selected and then go somewhere; with a card selected, a
// target that takes it (a card of its suit one rank off, the ace for a 2, a
// visible pile place), else the card itself, which cancels. Whatever lies at
// the point is what Board::hitAt finds.
std::pair<int, int> randomPoint(const Board& b, std::mt19937_64& rng) {
    auto below = [&](int n) { return static_cast<int>(rng() % static_cast<uint64_t>(n)); };
    const int kind = below(100);
    if (kind < 20) return {below(vorn::kBoardWidth), below(vorn::kBoardHeight)};
    if (kind < 40) {
        const int left = vorn::kColumnLefts[static_cast<size_t>(below(11))];
        const int top = vorn::kRowTops[static_cast<size_t>(below(5))];
        const int dy = below(2) == 0 ? below(vorn::kStackOffset) : vorn::kStackOffset + below(vorn::kCardHeight);
        return {left + below(vorn::kCardWidth), top + dy};
    }
    // A point on the lower part of a card, below any strip.
    auto pointOn = [&](Card c) -> std::pair<int, int> {
        const vorn::Spot at = b.spot(c);
        const int dy = vorn::kStackOffset + below(vorn::kCardHeight - vorn::kStackOffset);
        return {at.left + below(vorn::kCardWidth), at.top + dy};
    };
    auto reaches = [](const Board& board, std::pair<int, int> p) { return board.hitAt(p.first, p.second); };
    // The targets worth trying for the selected card of a board.
    auto targets = [&](const Board& board) {
        std::vector<std::pair<int, int>> points;
        for (int image = 1; image <= vorn::kPileCount; ++image)
            if (board.pileVisible(image))
                points.push_back({vorn::pilePlace(image).left + 375, vorn::pilePlace(image).top + 600});
        for (const int rank : {board.karta1.rank - 1, board.karta1.rank + 1})
            if (rank >= 1 && rank <= vorn::kRanks)
                points.push_back(pointOn({board.karta1.suit, static_cast<int16_t>(rank)}));
        return points;
    };
    auto movesFrom = [&](const Board& board, std::pair<int, int> p) {
        Board trial = board;
        return trial.click(reaches(trial, p)).moved;
    };

    if (b.vybor == 2 && !b.karta1.empty()) {
        std::vector<std::pair<int, int>> points = targets(b);
        std::shuffle(points.begin(), points.end(), rng);
        for (const auto& p : points)
            if (movesFrom(b, p)) return p;
        return pointOn(b.karta1);  // nowhere to go: cancel the selection
    }
    // Nothing selected: a card that can be selected and then go somewhere.
    std::pair<int, int> fallback = pointOn({static_cast<int16_t>(1 + below(4)), static_cast<int16_t>(2 + below(12))});
    const int first = below(vorn::kPlaces);
    for (int k = 0; k < vorn::kPlaces; ++k) {
        const int i = 1 + (first + k) % vorn::kPlaces;
        const std::pair<int, int> p = pointOn(cardAt(i));
        Board trial = b;
        trial.click(reaches(trial, p));
        if (trial.vybor != 2) continue;
        fallback = p;
        for (const auto& target : targets(trial))
            if (movesFrom(trial, target)) return p;
    }
    return fallback;
}

struct Totals {
    long clicks = 0, deals = 0, moves = 0, refusals = 0, wins = 0;
};

// Plays one seeded game of up to `budget` clicks; on a violation it exits with
// the seed and the click number.
void playGame(uint64_t seed, long budget, Totals& totals) {
    std::mt19937_64 rng(seed);
    vorn::SeededRandom dealRandom(seed);
    const long length = std::min<long>(budget, 200 + static_cast<long>(rng() % 4800));
    const int clicksBeforeDeal = static_cast<int>(rng() % 4);

    Board b = Board::loaded();
    auto fail = [&](long click, const std::string& what) {
        std::fprintf(stderr, "soak: seed %llu, click %ld: %s\n%s\nreplay: vorn-soak %ld %llu\n",
                     static_cast<unsigned long long>(seed), click, what.c_str(), vorn::describe(b).c_str(), click,
                     static_cast<unsigned long long>(seed));
        std::exit(1);
    };
    if (std::string broken = checkBoard(b); !broken.empty()) fail(0, "at start-up: " + broken);

    auto layout = b.mesta;
    for (long click = 1; click <= length; ++click) {
        const uint64_t dice = rng() % 1000;
        if (click > clicksBeforeDeal && (b.rezhim == 1 || dice < 8)) {
            b.rasklad(dealRandom);  // New game
            layout = b.mesta;
            ++totals.deals;
        } else if (b.rezhim == 2 && dice < 20) {
            b.rasklzan();  // Deal again
            for (int i = 1; i <= vorn::kPlaces; ++i) {
                const Card c = cardAt(i);
                const int16_t place = b.mesta(c.suit, c.rank);
                if (b.spot(c) != vorn::Spot{vorn::zleft1(place).value_or(0), vorn::ztop1(place).value_or(0)})
                    fail(click, "Deal again did not put " + vorn::cardName(c) + " back on its place");
            }
        } else {
            const auto [x, y] = randomPoint(b, rng);
            const Board before = b;
            const vorn::Reaction reaction = b.click(b.hitAt(x, y));
            const bool moved = !samePositions(before, b);
            if (reaction.moved != moved) fail(click, "Reaction::moved does not match the board");
            if (moved && reaction.message != vorn::Message::None) fail(click, "a refused click moved cards");
            if (moved && before.rezhim == 1) fail(click, "a card moved before the first deal");
            if (reaction.won && !kingsHome(b)) fail(click, "a game was called won with a king away from home");
            totals.moves += moved ? 1 : 0;
            totals.refusals += reaction.message != vorn::Message::None ? 1 : 0;
            totals.wins += reaction.won ? 1 : 0;
        }
        if (b.mesta != layout) fail(click, "the layout changed without a deal");
        if (std::string broken = checkBoard(b); !broken.empty()) fail(click, broken);
    }
    totals.clicks += length;
}

long argument(int argc, char** argv, int index, long fallback) {
    if (argc <= index) return fallback;
    char* end = nullptr;
    const long value = std::strtol(argv[index], &end, 10);
    if (end == argv[index] || *end != '\0' || value < 0) {
        std::fprintf(stderr, "usage: vorn-soak [clicks] [seed]  (non-negative numbers)\n");
        std::exit(2);
    }
    return value;
}

}  // namespace

int main(int argc, char** argv) {
    const long clicks = argument(argc, argv, 1, 1000000);
    const auto firstSeed = static_cast<uint64_t>(argument(argc, argv, 2, 1));

    Totals totals;
    long games = 0;
    const auto start = std::chrono::steady_clock::now();
    for (uint64_t seed = firstSeed; totals.clicks < clicks; ++seed, ++games)
        playGame(seed, clicks - totals.clicks, totals);
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();

    std::printf("soak: %ld clicks in %ld games (%ld deals), seeds %llu..%llu: no invariant broken\n", totals.clicks,
                games, totals.deals, static_cast<unsigned long long>(firstSeed),
                static_cast<unsigned long long>(firstSeed + static_cast<uint64_t>(games) - 1));
    std::printf("soak: %ld moves, %ld refusals, %ld wins; %.2f s, %.0f clicks/s\n", totals.moves, totals.refusals,
                totals.wins, seconds, seconds > 0 ? static_cast<double>(totals.clicks) / seconds : 0.0);
    return 0;
}
