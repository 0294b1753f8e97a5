// The difficulty of a deal: the bits of correct choice along winning lines.
#include "difficulty.h"

#include <bit>
#include <chrono>
#include <unordered_map>

#include "board/position_check.h"
#include "solver_moves.h"

namespace vorn {

using solver::CompactPosition;
using solver::MoveCode;

namespace {

// round(1000 log2 k): the whole part from the highest bit, the fraction bit by
// bit by squaring k / 2^whole (kept with 31 bits after the point, which leaves
// the 24 bits taken exact enough to round to thousandths).
constexpr int32_t milliLog2Of(uint32_t k) {
    const int whole = std::bit_width(k) - 1;
    uint64_t x = (uint64_t{k} << 31) >> whole;  // in [2^31, 2^32)
    uint64_t fraction = 0;                      // 24 bits after the point
    for (int bit = 23; bit >= 0; --bit) {
        x = (x * x) >> 31;
        if (x >= uint64_t{1} << 32) {
            x >>= 1;
            fraction |= uint64_t{1} << bit;
        }
    }
    return whole * 1000 + static_cast<int32_t>((fraction * 1000 + (uint64_t{1} << 23)) >> 24);
}
constexpr auto kMilliLog2 = [] {
    std::array<int32_t, 256> table{};
    for (uint32_t k = 1; k < table.size(); ++k) table[k] = milliLog2Of(k);
    return table;
}();
static_assert(kMilliLog2[1] == 0 && kMilliLog2[2] == 1000 && kMilliLog2[3] == 1585 && kMilliLog2[128] == 7000);

struct KeyHash {
    size_t operator()(const solver::Key& key) const {
        uint64_t h = 0;
        for (const uint64_t w : key.words) h = (h ^ w) * 0x9E3779B97F4A7C15ull;
        return h;
    }
};

// One deal's grading: the positions searched so far against the budget, and
// the bits of every position looked at (positions alike by their key alike).
class Grader {
public:
    Grader(Knowledge& knowledge, const GradingLimits& limits) : knowledge_(knowledge), limits_(limits) {
        search_.maxPositions = limits.positionsPerSearch;
        search_.maxTime = std::chrono::hours(24 * 365);  // never: positions bound every search
    }

    // The bits a position asks for; nullopt past a limit.
    std::optional<int32_t> bits(const CompactPosition& p) {
        const solver::Key key = p.key();
        if (const auto found = bits_.find(key); found != bits_.end()) return found->second;
        uint32_t legal = 0, winnable = 0;
        bool decided = true;
        solver::forEachMove(p, [&](MoveCode m) {
            if (!decided) return;
            ++legal;
            const Outcome o = knowledge_.decide(solver::after(p, m), search_, positions_);
            decided = o != Outcome::Unknown && positions_ <= limits_.positions;
            winnable += o == Outcome::Won ? 1 : 0;
        });
        if (!decided || winnable == 0 || legal >= kMilliLog2.size()) return std::nullopt;
        const int32_t b = kMilliLog2[legal] - kMilliLog2[winnable];
        bits_.emplace(key, b);
        return b;
    }

    Difficulty measure(const CompactPosition& root) {
        Difficulty d;
        d.outcome = knowledge_.decide(root, search_, positions_);
        if (d.outcome == Outcome::Won && !measureLines(root, d.milliBits)) d.outcome = Outcome::Unknown;
        d.positions = positions_;
        if (d.outcome != Outcome::Won) d.milliBits = 0;
        d.grade = gradeOf(d.milliBits);
        return d;
    }

private:
    bool measureLines(const CompactPosition& root, int32_t& milliBits) {
        if (limits_.lines < 1) return false;
        int64_t total = 0;
        for (int i = 0; i < limits_.lines; ++i) {
            // A fresh search, blind to the knowledge: the line depends on the
            // deal and the seed alone.
            Limits lineLimits = search_;
            lineLimits.orderSeed = limits_.firstSeed + static_cast<uint64_t>(i);
            solver::Search search(lineLimits, solver::Search::Clock::now());
            std::vector<MoveCode> line;
            const Outcome o = search.run(root, line);
            positions_ += search.positions();
            if (o != Outcome::Won || positions_ > limits_.positions) return false;
            knowledge_.learnLine(root, line);
            CompactPosition p = root;
            for (const MoveCode m : line) {
                const std::optional<int32_t> b = bits(p);
                if (!b) return false;
                total += *b;
                p = solver::after(p, m);
            }
        }
        milliBits = static_cast<int32_t>(total / limits_.lines);
        return true;
    }

    Knowledge& knowledge_;
    GradingLimits limits_;
    Limits search_;
    uint64_t positions_ = 0;
    std::unordered_map<solver::Key, int32_t, KeyHash> bits_;
};

}  // namespace

int32_t milliLog2(uint32_t k) { return k >= 1 && k < kMilliLog2.size() ? kMilliLog2[k] : 0; }

Grade gradeOf(int32_t milliBits) {
    int grade = 0;
    while (grade < kGradeCount - 1 && milliBits >= kGradeThresholds[static_cast<size_t>(grade)]) ++grade;
    return static_cast<Grade>(grade);
}

std::string_view gradeName(Grade grade) {
    switch (grade) {
    case Grade::Easy: return "easy";
    case Grade::Medium: return "medium";
    case Grade::Hard: return "hard";
    case Grade::VeryHard: return "very hard";
    case Grade::Expert: return "expert";
    }
    return "easy";
}

Difficulty measureDifficulty(const Board& board, Knowledge& knowledge, const GradingLimits& limits) {
    if (!positionProblem(board).empty()) return {Outcome::Refused};
    Board root = board;
    if (root.hasSelection()) root.click({Hit::Kind::Card, root.karta1, 0});
    if (root.hasSelection()) return {Outcome::Refused};
    return Grader(knowledge, limits).measure(CompactPosition::of(root));
}

Difficulty measureDifficulty(const Board& board, const GradingLimits& limits) {
    Knowledge knowledge;
    return measureDifficulty(board, knowledge, limits);
}

std::optional<FoundDeal> findDealAmong(const std::function<DealNumber(uint32_t)>& candidate,
                                       std::optional<Grade> wanted, uint32_t maxCandidates, std::stop_token stop) {
    Knowledge knowledge;
    for (uint32_t i = 0; i < maxCandidates && !stop.stop_requested(); ++i) {
        const DealNumber number = candidate(i);
        Board deal = Board::loaded();
        dealNumbered(deal, number);
        knowledge.clear();
        const Difficulty d = measureDifficulty(deal, knowledge);
        if (d.outcome == Outcome::Won && (!wanted || d.grade == *wanted)) return FoundDeal{number, d, i + 1};
    }
    return std::nullopt;
}

std::optional<FoundDeal> findDeal(DealNumber start, std::optional<Grade> wanted, uint32_t maxCandidates,
                                  std::stop_token stop) {
    start = start < kFirstDealNumber ? kFirstDealNumber : start;
    const auto nth = [start](uint32_t i) {
        // kLastDealNumber numbers in all, counted on from start.
        return static_cast<DealNumber>((uint64_t{start} - 1 + i) % kLastDealNumber + 1);
    };
    return findDealAmong(nth, wanted, maxCandidates, std::move(stop));
}

}  // namespace vorn
