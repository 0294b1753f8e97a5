// The solver's knowledge: a hash table from the solver's keys to what is known.
#include "knowledge.h"

#include <array>

#include "board/position_check.h"
#include "solver_moves.h"

namespace vorn {

using solver::CompactPosition;
using solver::Known;
using solver::MoveCode;

namespace {

// A board as the search sees it: nothing selected. Empty when the solver
// refuses it.
std::optional<Board> idle(const Board& board, std::optional<Hit>* deselect = nullptr) {
    if (!positionProblem(board).empty()) return std::nullopt;
    Board root = board;
    root.raskl.clear();  // no click reads it
    if (root.hasSelection()) {
        const Hit click{Hit::Kind::Card, root.karta1, 0};
        root.click(click);
        if (root.hasSelection()) return std::nullopt;
        if (deselect) *deselect = click;
    }
    return root;
}

}  // namespace

std::vector<CardMove> legalMoves(const Board& board) {
    std::vector<CardMove> moves;
    if (const std::optional<Board> root = idle(board))
        solver::forEachMove(CompactPosition::of(*root), [&](MoveCode m) { moves.push_back(solver::cardMove(m)); });
    return moves;
}

// Open addressing as in the seen set; a slot holds the hash (0: empty, a hash
// of 0 is kept as 1) and the entry's index. An entry is a position's words and
// what is known: Known::kLost or the length of a winning line.
struct Knowledge::Table {
    std::vector<uint64_t> hashes = std::vector<uint64_t>(1024, 0);
    std::vector<uint32_t> index = std::vector<uint32_t>(1024, 0);
    std::vector<std::array<uint64_t, solver::kWords>> words;
    std::vector<uint32_t> values;

    static uint64_t slotHash(uint64_t hash) { return hash | (hash == 0 ? 1 : 0); }

    uint32_t find(const CompactPosition& p) const {
        const uint64_t hash = slotHash(p.hash());
        const uint64_t mask = hashes.size() - 1;
        std::optional<solver::Key> key;  // made only when a hash matches
        for (uint64_t i = hash & mask;; i = (i + 1) & mask) {
            if (hashes[i] == 0) return Known::kUnknown;
            if (hashes[i] != hash) continue;
            if (!key) key = p.key();
            if (CompactPosition::keyOf(words[index[i]]) == *key) return values[index[i]];
        }
    }

    // Adds the entry unless its position is there already; returns the value kept.
    uint32_t add(uint64_t hash, const std::array<uint64_t, solver::kWords>& w, uint32_t value) {
        if ((words.size() + 1) * 2 > hashes.size()) grow();
        hash = slotHash(hash);
        const uint64_t mask = hashes.size() - 1;
        const solver::Key key = CompactPosition::keyOf(w);
        for (uint64_t i = hash & mask;; i = (i + 1) & mask) {
            if (hashes[i] == 0) {
                hashes[i] = hash;
                index[i] = static_cast<uint32_t>(words.size());
                words.push_back(w);
                values.push_back(value);
                return value;
            }
            if (hashes[i] == hash && CompactPosition::keyOf(words[index[i]]) == key) return values[index[i]];
        }
    }

    void grow() {
        std::vector<uint64_t> oldHashes(hashes.size() * 2, 0);
        std::vector<uint32_t> oldIndex(index.size() * 2, 0);
        oldHashes.swap(hashes);
        oldIndex.swap(index);
        const uint64_t mask = hashes.size() - 1;
        for (size_t j = 0; j < oldHashes.size(); ++j) {
            if (oldHashes[j] == 0) continue;
            uint64_t i = oldHashes[j] & mask;
            while (hashes[i] != 0) i = (i + 1) & mask;
            hashes[i] = oldHashes[j];
            index[i] = oldIndex[j];
        }
    }
};

Knowledge::Knowledge(size_t capacity) : table_(std::make_unique<Table>()), capacity_(capacity) {}
Knowledge::~Knowledge() = default;

void Knowledge::clear() {
    std::lock_guard lock(mutex_);
    table_ = std::make_unique<Table>();
    ++generation_;
}

size_t Knowledge::size() const {
    std::lock_guard lock(mutex_);
    return table_->words.size();
}

uint32_t Knowledge::lookup(const CompactPosition& position) const {
    std::lock_guard lock(mutex_);
    return table_->find(position);
}

void Knowledge::learnWon(const CompactPosition& root, const std::vector<MoveCode>& line, uint32_t remaining,
                         uint64_t generation) {
    // The positions along the line, each stored with the length of the rest
    // of it: from the far end back, so that every length counts on one the
    // table keeps (a position known already keeps its own).
    std::vector<CompactPosition> along{root};
    along.reserve(line.size() + 1);
    for (const MoveCode m : line) along.push_back(solver::after(along.back(), m));
    std::lock_guard lock(mutex_);
    if (generation != generation_) return;
    uint32_t rest = remaining;
    for (size_t i = along.size(); i-- > 0; ++rest) rest = table_->add(along[i].hash(), along[i].words, rest);
}

void Knowledge::learnLine(const CompactPosition& root, const std::vector<MoveCode>& line) {
    uint64_t generation = 0;
    {
        std::lock_guard lock(mutex_);
        generation = generation_;
    }
    learnWon(root, line, 0, generation);
}

void Knowledge::learn(const CompactPosition& root, Outcome outcome, const std::vector<MoveCode>& line,
                      const solver::Search& search, uint64_t generation) {
    if (outcome == Outcome::Won) {
        learnWon(root, line, search.remaining(), generation);
    } else if (outcome == Outcome::Lost) {
        std::lock_guard lock(mutex_);
        if (generation != generation_ || table_->words.size() + search.positions() > capacity_) return;
        search.seen().forEach([&](uint64_t hash, const auto& words) { table_->add(hash, words, Known::kLost); });
    }
}

Outcome Knowledge::decide(const CompactPosition& position, const Limits& limits, uint64_t& positions) {
    uint64_t generation = 0;
    {
        std::lock_guard lock(mutex_);
        const uint32_t known = table_->find(position);
        if (known == Known::kLost) return Outcome::Lost;
        if (known != Known::kUnknown) return Outcome::Won;
        generation = generation_;
    }
    if (position.won()) {
        std::lock_guard lock(mutex_);
        if (generation == generation_) table_->add(position.hash(), position.words, 0);
        return Outcome::Won;
    }
    solver::Search search(limits, solver::Search::Clock::now(), this);
    std::vector<MoveCode> line;
    const Outcome outcome = search.run(position, line);
    positions += search.positions();
    learn(position, outcome, line, search, generation);
    return outcome;
}

bool Knowledge::lineFrom(CompactPosition position, std::vector<MoveCode>& line) const {
    // Each known won position has a move to one whose line is shorter.
    for (uint32_t rest = table_->find(position); rest != 0;) {
        bool stepped = false;
        solver::forEachMove(position, [&](MoveCode m) {
            if (stepped) return;
            const CompactPosition next = solver::after(position, m);
            const uint32_t known = table_->find(next);
            if (known >= rest) return;  // unknown, lost, or no nearer
            line.push_back(m);
            position = next;
            rest = known;
            stepped = true;
        });
        if (!stepped) return false;
    }
    return true;
}

Verdict Knowledge::decide(const Board& board, const Limits& limits) {
    const auto started = solver::Search::Clock::now();
    Verdict verdict;
    const std::optional<Board> root = idle(board, &verdict.deselect);
    if (!root) {
        verdict = solve(board, limits);  // says why it refuses
        return verdict;
    }
    const CompactPosition position = CompactPosition::of(*root);
    verdict.outcome = decide(position, limits, verdict.positions);
    if (verdict.outcome == Outcome::Won) {
        std::vector<MoveCode> line;
        bool found = false;
        {
            std::lock_guard lock(mutex_);
            found = lineFrom(position, line);
        }
        for (const MoveCode m : line) verdict.moves.push_back(solver::cardMove(m));
        if (!found || !replayWins(board, verdict)) {
            // Never reached while the table holds only what searches proved
            // (or a clear() came between the search and the line).
            verdict = solve(board, limits);
            return verdict;
        }
    } else {
        verdict.deselect.reset();
    }
    verdict.elapsed = solver::Search::Clock::now() - started;
    return verdict;
}

std::optional<Outcome> Knowledge::known(const Board& board) const {
    const std::optional<Board> root = idle(board);
    if (!root) return std::nullopt;
    const uint32_t value = lookup(CompactPosition::of(*root));
    if (value == Known::kUnknown) return std::nullopt;
    return value == Known::kLost ? Outcome::Lost : Outcome::Won;
}

void Knowledge::learnMove(const Board& before, const Board& after) {
    const std::optional<Board> from = idle(before), to = idle(after);
    if (!from || !to) return;
    const CompactPosition p = CompactPosition::of(*from), q = CompactPosition::of(*to);
    bool oneMove = false;  // what is learnt holds only for a move
    solver::forEachMove(p, [&](MoveCode m) { oneMove = oneMove || solver::after(p, m).key() == q.key(); });
    if (!oneMove) return;
    std::lock_guard lock(mutex_);
    const uint32_t was = table_->find(p), is = table_->find(q);
    if (was == Known::kLost && is == Known::kUnknown && table_->words.size() < capacity_)
        table_->add(q.hash(), q.words, Known::kLost);
    else if (is < Known::kLost && was == Known::kUnknown)
        table_->add(p.hash(), p.words, is + 1);
}

std::vector<MoveVerdict> Knowledge::judgeMoves(const Board& board, const Limits& limits) {
    std::vector<MoveVerdict> verdicts;
    const std::optional<Board> root = idle(board);
    if (!root) return verdicts;
    const CompactPosition position = CompactPosition::of(*root);
    uint64_t positions = 0;
    solver::forEachMove(position, [&](MoveCode m) {
        verdicts.push_back({solver::cardMove(m), decide(solver::after(position, m), limits, positions)});
    });
    return verdicts;
}

}  // namespace vorn
