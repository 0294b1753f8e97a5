// solve(): refuse what the clicks cannot produce, search, then replay the winning
// line through the board's own click routines before trusting it.
#include "solver.h"

#include "board/position_check.h"
#include "solver_position.h"
#include "solver_moves.h"
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

std::vector<Hit> Verdict::clicks() const {
    std::vector<Hit> out;
    if (deselect) out.push_back(*deselect);
    for (const CardMove& move : moves) {
        out.push_back(move.select());
        out.push_back(move.target);
    }
    return out;
}

bool kingsHome(const Board& board) { return board.konec(); }

bool replayWins(const Board& board, const Verdict& line) {
    Board copy = board;
    copy.raskl.clear();  // the layout string plays no part in the clicks
    if (line.deselect) {
        copy.click(*line.deselect);
        if (copy.hasSelection()) return false;
    }
    for (const CardMove& move : line.moves) {
        copy.click(move.select());
        if (!copy.hasSelection() || !copy.click(move.target).moved) return false;
    }
    return kingsHome(copy);
}

Verdict solve(const Board& board, const Limits& limits) {
    const auto started = solver::Search::Clock::now();
    Verdict verdict;
    auto finish = [&](Outcome outcome) {
        verdict.outcome = outcome;
        if (outcome != Outcome::Won) {
            verdict.deselect.reset();
            verdict.moves.clear();
        }
        verdict.elapsed = solver::Search::Clock::now() - started;
        return verdict;
    };

    if (std::string problem = positionProblem(board); !problem.empty()) {
        verdict.reason = std::move(problem);
        return finish(Outcome::Refused);
    }
    Board root = board;
    root.raskl.clear();  // no click reads it
    if (root.hasSelection()) {
        // A lone click on the selected card clears the selection (a second click
        // on the card itself, or any click once a deal has taken its mark away).
        verdict.deselect = Hit{Hit::Kind::Card, root.karta1, 0};
        root.click(*verdict.deselect);
        if (root.hasSelection()) {
            verdict.reason = "the selection could not be cleared";
            return finish(Outcome::Refused);
        }
    }
    if (kingsHome(root)) return finish(Outcome::Won);

    solver::Search search(limits, started);
    std::vector<solver::MoveCode> line;
    const Outcome outcome = search.run(solver::CompactPosition::of(root), line);
    verdict.positions = search.positions();
    if (outcome != Outcome::Won) return finish(outcome);
    for (solver::MoveCode code : line) verdict.moves.push_back(solver::cardMove(code));
    if (!replayWins(board, verdict)) {
        // Never reached while the search and the clicks agree; never trust it if it is.
        verdict.reason = "the line found did not win when replayed";
        return finish(Outcome::Unknown);
    }
    return finish(Outcome::Won);
}

}  // namespace vorn
