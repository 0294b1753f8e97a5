// solve(): refuse what the clicks cannot produce, search, then replay the winning
// line through the board's own click routines before trusting it.
#include "solver.h"

#include "solver_position.h"
#include "solver_search.h"

namespace vorn {

std::string_view outcomeName(Outcome outcome) {
    switch (outcome) {
    case Outcome::Won: return "won";
    case Outcome::Lost: return "lost";
    case Outcome::Unknown: return "unknown";
    case Outcome::Refused: return "refused";
    }
    return "unknown";
}

int Verdict::moveCount() const { return static_cast<int>(clicks.size() / 2); }

bool kingsHome(const Board& board) {
    Board copy = board;
    return copy.konec();
}

bool replayWins(const Board& board, const std::vector<Hit>& clicks) {
    Board copy = board;
    copy.raskl.clear();  // the layout string plays no part in the clicks
    for (const Hit& hit : clicks) copy.click(hit);
    return kingsHome(copy);
}

Verdict solve(const Board& board, const Limits& limits) {
    const auto started = solver::Search::Clock::now();
    Verdict verdict;
    auto finish = [&](Outcome outcome) {
        verdict.outcome = outcome;
        verdict.elapsed = solver::Search::Clock::now() - started;
        return verdict;
    };

    if (std::string problem = solver::positionProblem(board); !problem.empty()) {
        verdict.reason = std::move(problem);
        return finish(Outcome::Refused);
    }
    Board root = board;
    root.raskl.clear();  // copied at every node otherwise, and no click reads it
    if (root.vybor == 2) {
        // A lone click on the selected card clears the selection (a second click
        // on the card itself, or any click once a deal has taken its mark away).
        const Hit deselect{Hit::Kind::Card, root.karta1, 0};
        root.click(deselect);
        verdict.clicks.push_back(deselect);
        if (root.vybor != 1) {
            verdict.reason = "the selection could not be cleared";
            return finish(Outcome::Refused);
        }
    }
    if (kingsHome(root)) return finish(Outcome::Won);

    solver::Search search(limits, started);
    const Outcome outcome = search.run(root, verdict.clicks);
    verdict.positions = search.positions();
    if (outcome == Outcome::Won && !replayWins(board, verdict.clicks)) {
        // Never reached while the search and the clicks agree; never trust it if it is.
        verdict.clicks.clear();
        verdict.reason = "the line found did not win when replayed";
        return finish(Outcome::Unknown);
    }
    if (outcome != Outcome::Won) verdict.clicks.clear();
    return finish(outcome);
}

std::vector<Hit> hint(const Board& board, const Limits& limits) {
    const Verdict verdict = solve(board, limits);
    if (verdict.outcome != Outcome::Won || verdict.clicks.size() < 2) return {};
    const size_t first = verdict.clicks.size() % 2;  // past a lone deselect click
    return {verdict.clicks[first], verdict.clicks[first + 1]};
}

}  // namespace vorn
