// The grades held against simulated players of rising skill, written for this
// check alone (the measure knows nothing of them):
//   - random: any legal move, each as likely;
//   - careful: any legal move that leaves at least one legal move (or wins),
//     each as likely; any move when none does;
//   - greedy: a move onto a foundation when there is one, else the move that
//     leaves the most legal moves, ties drawn by chance; it does not go back to
//     a position it has had in this game while it has another move.
// A game ends won, with no legal move, with a card laid on the card below the
// aces (neither can move again: the game is lost), or lost after kMaxMoves
// moves. Each player plays every deal of 1,000 deals per grade (graded
// winnable deals from deal 2,000,001 on) a number of times, each play with its
// own fixed seed: the random player 20,000 times (it wins so seldom that
// fewer plays leave the harder grades with a handful of wins), the others
// 100 times. For
// every player the win rate should fall from each grade to the next.
//
//   bench_players --benchmark_filter=Players
#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <random>
#include <unordered_set>
#include <vector>

#include "solver/difficulty.h"
#include "solver/solver_moves.h"

namespace {

using namespace vorn;
using solver::CompactPosition;
using solver::MoveCode;

constexpr int kMaxMoves = 1000;

std::vector<MoveCode> movesOf(const CompactPosition& p) {
    std::vector<MoveCode> moves;
    solver::forEachMove(p, [&](MoveCode m) { moves.push_back(m); });
    return moves;
}

size_t countMoves(const CompactPosition& p) {
    size_t n = 0;
    solver::forEachMove(p, [&](MoveCode) { ++n; });
    return n;
}

struct KeyHash {
    size_t operator()(const solver::Key& key) const {
        uint64_t h = 0;
        for (const uint64_t w : key.words) h = (h ^ w) * 0x9E3779B97F4A7C15ull;
        return h;
    }
};

enum class Player { Random, Careful, Greedy };
constexpr std::array<const char*, 3> kPlayerNames{"random", "careful", "greedy"};

bool play(CompactPosition p, Player player, std::mt19937_64& chance) {
    std::unordered_set<solver::Key, KeyHash> seen{p.key()};
    for (int move = 0; move < kMaxMoves; ++move) {
        if (p.won()) return true;
        if (p.front[solver::kBelowTheAces] != solver::kNoCard) return false;
        const std::vector<MoveCode> moves = movesOf(p);
        if (moves.empty()) return false;
        auto pick = [&](const std::vector<MoveCode>& from) { return from[chance() % from.size()]; };
        MoveCode chosen = pick(moves);
        if (player == Player::Careful) {
            std::vector<MoveCode> open;
            for (const MoveCode m : moves)
                if (const CompactPosition q = solver::after(p, m); q.won() || countMoves(q) > 0) open.push_back(m);
            if (!open.empty()) chosen = pick(open);
        } else if (player == Player::Greedy) {
            MoveCode home;
            if (solver::homeMove(p, home)) {
                chosen = home;
            } else {
                // The unseen positions first, then the most moves left open.
                std::vector<MoveCode> best;
                size_t bestScore = 0;
                for (const MoveCode m : moves) {
                    const CompactPosition q = solver::after(p, m);
                    const size_t score = (seen.count(q.key()) ? 0 : 1000) + countMoves(q);
                        if (best.empty() || score > bestScore) {
                        best.clear();
                        bestScore = score;
                    }
                    if (score == bestScore) best.push_back(m);
                }
                chosen = pick(best);
            }
        }
        p = solver::after(p, chosen);
        seen.insert(p.key());
    }
    return false;
}

void Players(benchmark::State& state) {
    const auto perGrade = static_cast<size_t>(state.range(0));
    const std::array<uint64_t, 3> plays{static_cast<uint64_t>(state.range(1)), static_cast<uint64_t>(state.range(2)),
                                        static_cast<uint64_t>(state.range(2))};
    std::array<std::vector<DealNumber>, kGradeCount> deals;
    std::array<std::array<uint64_t, kGradeCount>, 3> wins{};
    for (auto _ : state) {
        auto full = [&] {
            for (const auto& d : deals)
                if (d.size() < perGrade) return false;
            return true;
        };
        for (DealNumber n = 2'000'001; !full(); ++n) {
            Board b = Board::loaded();
            dealNumbered(b, n);
            const Difficulty d = measureDifficulty(b);
            if (d.outcome == Outcome::Won && deals[static_cast<size_t>(d.grade)].size() < perGrade)
                deals[static_cast<size_t>(d.grade)].push_back(n);
        }
        for (size_t g = 0; g < deals.size(); ++g)
            for (const DealNumber n : deals[g]) {
                Board b = Board::loaded();
                dealNumbered(b, n);
                const CompactPosition start = CompactPosition::of(b);
                for (size_t player = 0; player < kPlayerNames.size(); ++player)
                    for (uint64_t i = 0; i < plays[player]; ++i) {
                        std::mt19937_64 chance(uint64_t{n} << 24 | uint64_t{player} << 20 | i);
                        wins[player][g] += play(start, static_cast<Player>(player), chance) ? 1 : 0;
                    }
            }
    }
    std::printf("win rates, %zu deals per grade (games won)\n", perGrade);
    for (size_t player = 0; player < kPlayerNames.size(); ++player) {
        std::printf("%-8s %5llu plays a deal:", kPlayerNames[player], static_cast<unsigned long long>(plays[player]));
        for (size_t g = 0; g < kGradeCount; ++g)
            std::printf(" %s %.4f %% (%llu)", std::string(gradeName(static_cast<Grade>(g))).c_str(),
                        100.0 * static_cast<double>(wins[player][g]) / static_cast<double>(perGrade * plays[player]),
                        static_cast<unsigned long long>(wins[player][g]));
        std::printf("\n");
    }
}
BENCHMARK(Players)->Args({1000, 20000, 100})->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
