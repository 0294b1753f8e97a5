// vorn-solve: the solver on the command line. The game itself takes no more than
// --help and --version; this is a second program for checking layouts and deals.
#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "board/notation.h"
#include "board/solver.h"
#include "deal_batch.h"
#include "solve_options.h"
#include "store/codepage.h"
#include "store/layout_store.h"
#include "store/record.h"

namespace vorn::tools {
namespace {

int fail(const std::string& message) {
    std::cerr << "vorn-solve: " << message << '\n';
    return 2;
}

std::string clickName(const Hit& hit) {
    if (hit.kind == Hit::Kind::Pile) return "Image" + std::to_string(hit.pile);
    if (hit.kind == Hit::Kind::Card) return cardName(hit.card);
    return "nothing";
}

std::string milliseconds(std::chrono::nanoseconds t) {
    char text[32];
    std::snprintf(text, sizeof text, "%.3f ms", std::chrono::duration<double, std::milli>(t).count());
    return text;
}

// The position a layout string gives: New game, then the layout loaded, as a
// player gets it from the Load command. Empty reason when it could be laid out.
std::string boardFromLayout(const std::string& layout, Board& board) {
    if (layout.empty()) return "the layout is empty";
    board = seededDeal(0);
    switch (board.showLayout(layout)) {
    case LayoutProblem::None: return {};
    case LayoutProblem::TooFewCommas: return "the layout has fewer than 47 commas";
    case LayoutProblem::NumberTooLarge: return "the layout holds a number too large for a place";
    }
    return "the layout cannot be read";
}

std::string verdictLine(const Verdict& v) {
    std::string line(outcomeName(v.outcome));
    if (v.outcome == Outcome::Won) line += " in " + std::to_string(v.moves.size()) + " moves";
    if (v.outcome == Outcome::Refused) return line + ": " + v.reason;
    return line + " (" + std::to_string(v.positions) + " positions, " + milliseconds(v.elapsed) + ")";
}

int solveLayout(const SolveOptions& options) {
    Board board;
    if (std::string problem = boardFromLayout(options.layout, board); !problem.empty()) return fail(problem);
    const Verdict verdict = solve(board, options.limits);
    if (verdict.outcome == Outcome::Refused) return fail("layout refused: " + verdict.reason);
    std::cout << verdictLine(verdict) << '\n';
    for (size_t i = 0; i < verdict.moves.size(); ++i)
        std::cout << i + 1 << ". " << cardName(verdict.moves[i].card) << " -> " << clickName(verdict.moves[i].target)
                  << '\n';
    return 0;
}

int solveStore(const SolveOptions& options) {
    std::ifstream file(options.path, std::ios::binary);
    if (!file) return fail("cannot read " + options.path);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    const std::vector<std::string> lines = store::splitLines(bytes.str());
    int number = 0;
    for (const std::string& line : lines) {
        ++number;
        const store::RecordView record = store::parseRecord(store::fromCp1251(line));
        Board board;
        std::string result;
        if (std::string problem = boardFromLayout(record.layout, board); !problem.empty())
            result = "refused: " + problem;
        else
            result = verdictLine(solve(board, options.limits));
        std::cout << number << ". " << (record.name.empty() ? "(no name)" : record.name) << ": " << result << '\n';
    }
    if (number == 0) std::cout << "no records in " << options.path << '\n';
    return 0;
}

int solveBatch(const SolveOptions& options) {
    const std::vector<DealResult> results = solveDeals(options.deals, options.seed, options.threads, options.limits);
    std::cout << describeSummary(summarize(results), options.deals, options.seed, options.threads);
    return 0;
}

}  // namespace
}  // namespace vorn::tools

int main(int argc, char** argv) {
    using namespace vorn::tools;
    const std::vector<std::string> args(argv + 1, argv + argc);
    SolveOptions options;
    std::string error;
    if (!parseOptions(args, options, error)) return fail(error);
    switch (options.mode) {
    case SolveOptions::Mode::Layout: return solveLayout(options);
    case SolveOptions::Mode::Store: return solveStore(options);
    case SolveOptions::Mode::Deals: return solveBatch(options);
    case SolveOptions::Mode::Help: std::cout << helpText(); return std::cout.flush() ? 0 : 2;
    case SolveOptions::Mode::Version: std::cout << "vorn-solve " VORN_VERSION "\n"; return std::cout.flush() ? 0 : 2;
    }
    return 2;
}
