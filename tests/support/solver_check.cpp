// The generator against the clicks, position by position.
#include "solver_check.h"

#include <algorithm>
#include <iterator>
#include <random>
#include <tuple>
#include <vector>

#include "board/notation.h"
#include "board/position_check.h"
#include "support/describe.h"
#include "board/reachables.h"
#include "solver/knowledge.h"
#include "solver/solver.h"
#include "solver/solver_moves.h"

namespace vorn::solver {

namespace {

// A move and the compact position it leads to.
struct Found {
    CardMove move;
    CompactPosition after;
};

auto order(const CardMove& m) {
    return std::tie(m.card.suit, m.card.rank, m.target.kind, m.target.card.suit, m.target.card.rank, m.target.pile);
}

std::string moveName(const CardMove& m) {
    const std::string target = m.target.kind == Hit::Kind::Pile   ? "Image" + std::to_string(m.target.pile)
                               : m.target.kind == Hit::Kind::Card ? cardName(m.target.card)
                                                                  : "nothing";
    return cardName(m.card) + " -> " + target;
}

// Everything a click can reach, as the board shows it: the base card of every
// cell (its strip shows above the cards lying on it), the front card lying on
// it, and the pile place of every empty cell that has one. (The soak holds
// Board::hitAt to this picture.)
std::vector<Hit> clickable(const Board& b) {
    std::vector<Hit> things;
    for (const Reachable& r : reachables(b)) things.push_back(r.hit);
    return things;
}

std::vector<Found> byGenerator(const Board& b, std::string& trouble) {
    std::vector<Found> found;
    const CompactPosition p = CompactPosition::of(b);
    bool homeward = false;  // a move plays the next card of its suit home
    forEachMove(p, [&](MoveCode m) {
        found.push_back({cardMove(m), after(p, m)});
        homeward = homeward || (m.target < kCards && p.cellOf(m.target) == foundationCell(suitOf(m.card)) &&
                                rankOf(m.card) == p.homeRank(suitOf(m.card)) + 1);
    });
    // The search's shortcut takes the move home alone: it must be one of the
    // moves, and there whenever one of them goes home.
    MoveCode home;
    const bool hasHome = homeMove(p, home);
    if (hasHome != homeward ||
        (hasHome && std::none_of(found.begin(), found.end(), [&](const Found& f) { return f.move == cardMove(home); })))
        trouble = "the move home (" + (hasHome ? moveName(cardMove(home)) : std::string("none")) +
                  ") disagrees with the moves\n";
    // The legal moves the knowledge offers are these, in this order, and stay
    // these with a card selected (the selection is no move).
    std::vector<CardMove> listed;
    for (const Found& f : found) listed.push_back(f.move);
    Board selected = b;
    if (!listed.empty()) selected.click(listed.front().select());
    if (legalMoves(b) != listed || legalMoves(selected) != listed) trouble += "legalMoves disagrees with the moves\n";
    return found;
}

// Every pair of clicks. A first click that leaves nothing selected leaves the
// board idle (vybor 1), where a click reads nothing the first one changed and
// so does what it did as a first click: no such pair is tried again. A first
// click that moves something on its own is kept (its target "nothing"), so
// that it shows as a difference. Unless `everyPair`, second clicks on cards of
// another suit than the selected card's are left out.
std::vector<Found> byClicks(const Board& b, bool everyPair) {
    std::vector<Found> found;
    const std::vector<Hit> things = clickable(b);
    for (const Hit& first : things) {
        Board selected = b;
        if (selected.click(first).moved) found.push_back({{first.card, Hit{}}, CompactPosition::of(selected)});
        if (!selected.hasSelection()) continue;
        for (const Hit& second : things) {
            if (!everyPair && second.kind == Hit::Kind::Card && second.card.suit != first.card.suit) continue;
            Board played = selected;
            if (played.click(second).moved) found.push_back({{first.card, second}, CompactPosition::of(played)});
        }
    }
    return found;
}

// Empty when both agree; `clicked` keeps the moves the clicks found.
std::string compare(const Board& b, bool everyPair, std::vector<Found>& clicked) {
    std::string trouble;
    std::vector<Found> generated = byGenerator(b, trouble);
    clicked = byClicks(b, everyPair);
    auto less = [](const Found& x, const Found& y) { return order(x.move) < order(y.move); };
    std::sort(generated.begin(), generated.end(), less);
    std::sort(clicked.begin(), clicked.end(), less);
    auto same = [](const Found& x, const Found& y) { return x.move == y.move && x.after == y.after; };
    if (trouble.empty() && std::equal(generated.begin(), generated.end(), clicked.begin(), clicked.end(), same))
        return {};

    auto list = [&](const std::vector<Found>& moves, const std::vector<Found>& other) {
        std::string text;
        for (const Found& f : moves) {
            text += "  " + moveName(f.move);
            const auto twin = std::find_if(other.begin(), other.end(), [&](const Found& o) { return o.move == f.move; });
            if (twin != other.end() && !(twin->after == f.after)) text += "  (leads elsewhere)";
            text += '\n';
        }
        return text;
    };
    return describe(b) + trouble + "moves of the solver (" + std::to_string(generated.size()) + "):\n" +
           list(generated, clicked) + "moves of the clicks (" + std::to_string(clicked.size()) + "):\n" +
           list(clicked, generated);
}

// The foundation a move plays onto, if any: the ace, or a card lying on it.
bool goesHome(const Board& b, const CardMove& m) {
    return m.target.kind == Hit::Kind::Card && isMiddle(b.cell(m.target.card)) && isAceRow(b.cell(m.target.card));
}

}  // namespace

std::string compareWithClicks(const Board& board) {
    std::vector<Found> clicked;
    return compare(board, true, clicked);
}

CrossCheck crossCheck(uint64_t positions, uint64_t firstSeed, uint64_t everyPairEvery) {
    CrossCheck result;
    std::mt19937_64 chance(firstSeed);
    std::vector<Found> clicked;
    for (uint64_t seed = firstSeed; result.positions < positions; ++seed) {
        ++result.deals;
        SeededRandom random(seed);
        Board b = Board::loaded();
        b.rasklad(random);
        b.raskl.clear();
        // Random play seldom gets far in a deal, where every place is filled:
        // a winnable deal is first played some way along a winning line, so
        // that long foundations, empty places and carried cells come up too.
        const std::vector<CardMove> line = solve(b).moves;
        const size_t along = line.empty() ? 0 : chance() % (line.size() + 1);
        for (size_t moves = 0; moves < along + 30 && result.positions < positions; ++moves) {
            ++result.positions;
            if (std::string problem = positionProblem(b); !problem.empty()) {
                result.difference = describe(b) + "the clicks made a position the solver refuses: " + problem + "\n";
                return result;
            }
            const bool everyPair = (result.positions - 1) % std::max<uint64_t>(everyPairEvery, 1) == 0;
            if (std::string difference = compare(b, everyPair, clicked); !difference.empty()) {
                result.difference = difference;
                return result;
            }
            if (clicked.empty()) break;
            CardMove move = line.empty() ? CardMove{} : line[std::min(moves, line.size() - 1)];
            if (moves >= along) {
                // Half the time a move home, when there is one.
                std::vector<Found> home;
                std::copy_if(clicked.begin(), clicked.end(), std::back_inserter(home),
                             [&](const Found& f) { return goesHome(b, f.move); });
                const std::vector<Found>& from = !home.empty() && chance() % 2 == 0 ? home : clicked;
                move = from[chance() % from.size()].move;
            }
            b.click(move.select());
            b.click(move.target);
        }
    }
    return result;
}

}  // namespace vorn::solver
