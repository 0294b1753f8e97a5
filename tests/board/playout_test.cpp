// Many seeded deals played with random clicks; after every click the board
// must still be a board this game can produce.
#include <algorithm>
#include <map>
#include <random>
#include <vector>

#include "fixtures.h"

namespace vorn {
namespace {

using namespace vorn::testing;

::testing::AssertionResult holdsTogether(const Board& b) {
    auto fail = [&](const std::string& why) { return ::testing::AssertionFailure() << why << "\n" << describe(b); };
    struct Contents {
        std::vector<Card> base, stacked;
    };
    std::map<int, Contents> cells;  // by Cell::index()
    int bordered = 0;
    for (int16_t s = 1; s <= 4; ++s) {
        if (b.spot({s, 1}) != (Spot{4920, aceTop(s)})) return fail("an ace moved");
        for (int16_t r = 1; r <= 13; ++r) {
            const Cell at = b.cell({s, r});
            if (!at.onGrid()) return fail(cardName({s, r}) + " lies off the grid");
            Contents& cell = cells[at.index()];
            (at.stacked ? cell.stacked : cell.base).push_back({s, r});
            if (b.border(s, r) == 1) {
                ++bordered;
                if (b.vybor != 2 || !(b.karta1 == Card{s, r})) return fail("a border on a card that is not selected");
            }
        }
    }
    if (bordered > 1) return fail("two borders");
    for (auto& [where, cell] : cells) {
        if (cell.base.size() > 1) return fail("two base cards in one cell");
        if (cell.base.empty()) return fail("stacked cards with no base card");
        const Card base = cell.base.front();
        // The stacked cards, in stacking order, run on by one from the base card.
        std::sort(cell.stacked.begin(), cell.stacked.end(),
                  [&](Card x, Card y) { return b.zorder(x.suit, x.rank) < b.zorder(y.suit, y.rank); });
        int step = 0;
        Card previous = base;
        for (Card c : cell.stacked) {
            if (c.suit != base.suit) return fail("a cell of two suits at " + cardName(base));
            const int d = c.rank - previous.rank;
            if ((d != 1 && d != -1) || (step != 0 && d != step)) return fail("a broken run at " + cardName(base));
            if (b.zorder(c.suit, c.rank) < b.zorder(base.suit, base.rank)) return fail("a base card in front");
            step = d;
            previous = c;
        }
        // Every card that can be seen takes a click at its top-left corner.
        const Card front = cell.stacked.empty() ? base : cell.stacked.back();
        for (Card c : {base, front}) {
            const Spot at = b.spot(c);
            if (b.hitAt(at.left + 1, at.top + 1) != Hit{Hit::Kind::Card, c, 0}) return fail(cardName(c) + " cannot be hit");
        }
    }
    return ::testing::AssertionSuccess();
}

// What a player can click: every card that shows, every bare pile place.
std::vector<Hit> clickables(const Board& b) {
    std::vector<Hit> out;
    for (int x = 0; x < 11; ++x)
        for (int row = 0; row < 5; ++row) {
            const int left = kColumnLefts[static_cast<size_t>(x)];
            const int top = kRowTops[static_cast<size_t>(row)];
            for (int dy : {1, 600}) {
                const Hit h = b.hitAt(left + 1, top + dy);
                if (h.kind != Hit::Kind::Nothing && std::find(out.begin(), out.end(), h) == out.end()) out.push_back(h);
            }
        }
    return out;
}

TEST(Playout, RandomClicksKeepTheBoardWhole) {
    int moves = 0, runs = 0, pileMoves = 0, refusals = 0, foundationMoves = 0;
    for (uint64_t seed = 1; seed <= 200; ++seed) {
        Board b = seededDeal(seed);
        std::mt19937_64 rng(seed * 7919);
        for (int click = 0; click < 300; ++click) {
            const Board before = b;
            const int roll = static_cast<int>(rng() % 1000);
            Reaction got;
            Hit hit;
            if (roll < 3) {
                b.rasklzan();
                got.moved = true;
            } else if (roll < 5) {
                SeededRandom again(rng());
                b.rasklad(again);
                got.moved = true;
            } else if (roll < 200) {
                hit = b.hitAt(static_cast<int>(rng() % kBoardWidth), static_cast<int>(rng() % kBoardHeight));
                got = b.click(hit);
            } else {
                std::vector<Hit> options = clickables(b);
                // Half of the time, lean towards the clicks that do something (a
                // selection or a move), tried out on a copy of the board.
                if (rng() % 2 == 0) {
                    std::vector<Hit> acting, cancelling;
                    for (const Hit& h : options) {
                        Board trial = b;
                        const Reaction r = trial.click(h);
                        if (r.moved || (b.vybor == 1 && trial.vybor == 2)) acting.push_back(h);
                        if (b.vybor == 2 && trial.vybor == 1 && r.message == Message::None) cancelling.push_back(h);
                    }
                    if (acting.empty()) acting = cancelling;
                    if (!acting.empty()) options = acting;
                }
                hit = options[rng() % options.size()];
                got = b.click(hit);
            }
            ASSERT_TRUE(holdsTogether(b)) << "seed " << seed << " click " << click;
            const bool changed = b.kartleft != before.kartleft || b.karttop != before.karttop;
            if (roll >= 5) {
                ASSERT_EQ(got.moved, changed) << "seed " << seed << " click " << click;
                if (got.message != Message::None) {
                    ++refusals;
                    ASSERT_FALSE(changed) << "a refusal moved a card, seed " << seed << " click " << click;
                }
                ASSERT_EQ(got.message == Message::NewGameFirst, false);
                if (got.moved) {
                    ++moves;
                    if (hit.kind == Hit::Kind::Pile) ++pileMoves;
                    if (hit.kind == Hit::Kind::Card && hit.card.rank == 1) ++foundationMoves;
                    int carried = 0;
                    for (int16_t s = 1; s <= 4; ++s)
                        for (int16_t r = 1; r <= 13; ++r) carried += b.spot({s, r}) != before.spot({s, r});
                    runs += carried > 1;
                }
            }
            if (roll < 3 || roll >= 5) {
                ASSERT_EQ(b.mesta, before.mesta) << "only a deal changes the layout";
            }
            ASSERT_EQ(b.raskl, b.buildRaskl());
        }
    }
    // The clicks must have played the game, not only bounced off it.
    const std::string tally = "moves " + std::to_string(moves) + ", runs " + std::to_string(runs) + ", pile moves " +
                              std::to_string(pileMoves) + ", onto aces " + std::to_string(foundationMoves) +
                              ", refusals " + std::to_string(refusals);
    EXPECT_GT(moves, 1500) << tally;
    EXPECT_GT(runs, 40) << tally;
    EXPECT_GT(pileMoves, 200) << tally;
    EXPECT_GT(foundationMoves, 100) << tally;
    EXPECT_GT(refusals, 5000) << tally;
}

}  // namespace
}  // namespace vorn
