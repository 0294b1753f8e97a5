// vorn-solve: the solver on the command line. The game itself takes no more than
// --help and --version; this is a second program for checking layouts and deals.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "board/notation.h"
#include "solver/daily_deal.h"
#include "solver/difficulty.h"
#include "solver/solver.h"
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

// "; difficulty 17.250 bits: medium" for a deal found won, else nothing. The
// grading has limits of its own, counted in positions.
std::string difficultyText(const Board& board, const Verdict& verdict) {
    if (verdict.outcome != Outcome::Won) return {};
    const Difficulty d = measureDifficulty(board);
    if (d.outcome != Outcome::Won) return "; difficulty unknown";
    return "; difficulty " + bitsText(d.milliBits) + " bits: " + std::string(gradeName(d.grade));
}

// One deal: the verdict, its difficulty, and the winning line move by move.
int solveBoard(const Board& board, const SolveOptions& options) {
    const Verdict verdict = solve(board, options.limits);
    if (verdict.outcome == Outcome::Refused) return fail("layout refused: " + verdict.reason);
    std::cout << verdictLine(verdict) << difficultyText(board, verdict) << '\n';
    for (size_t i = 0; i < verdict.moves.size(); ++i)
        std::cout << i + 1 << ". " << cardName(verdict.moves[i].card) << " -> " << clickName(verdict.moves[i].target)
                  << '\n';
    return 0;
}

int solveLayout(const SolveOptions& options) {
    Board board;
    if (std::string problem = boardFromLayout(options.layout, board); !problem.empty()) return fail(problem);
    return solveBoard(board, options);
}

int solveDeal(const SolveOptions& options) {
    Board board = Board::loaded();
    dealNumbered(board, options.deal);
    std::cout << "deal " << options.deal << ":" << board.raskl << '\n';
    return solveBoard(board, options);
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
        else if (const Verdict verdict = solve(board, options.limits); verdict.outcome == Outcome::Refused)
            result = verdictLine(verdict);
        else
            result = verdictLine(verdict) + difficultyText(board, verdict);
        std::cout << number << ". " << (record.name.empty() ? "(no name)" : record.name) << ": " << result << '\n';
    }
    if (number == 0) std::cout << "no records in " << options.path << '\n';
    return 0;
}

int solveBatch(const SolveOptions& options) {
    if (options.csv.empty()) {
        const std::vector<DealResult> results =
            solveDeals(options.deals, options.seed, options.threads, options.limits);
        std::cout << describeSummary(summarize(results), options.deals, options.seed, options.threads);
        return 0;
    }
    // Opened first: a file that cannot be written is said before the work.
    std::ofstream csv(options.csv, std::ios::binary | std::ios::trunc);
    if (!csv) return fail("cannot write " + options.csv + ": " + std::strerror(errno));
    const std::vector<GradedDeal> graded = gradeDeals(options.deals, options.seed, options.threads);
    writeCsv(csv, options.seed, graded);
    csv.close();
    if (!csv) return fail("could not write all of " + options.csv);
    std::vector<DealResult> results;
    for (const GradedDeal& g : graded)
        results.push_back({g.difficulty.outcome, g.milliseconds, g.difficulty.positions, 0});
    std::cout << describeSummary(summarize(results), options.deals, options.seed, options.threads)
              << describeGrades(graded);
    return 0;
}

int daily(const SolveOptions& options) {
    const Date date = options.date.value_or(todayUtc());
    const FoundDeal found = findDailyDeal(date);
    std::cout << "deal of the day " << formatDate(date) << ": " << found.number << " ("
              << gradeName(found.difficulty.grade) << ")\n";
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
    case SolveOptions::Mode::Deal: return solveDeal(options);
    case SolveOptions::Mode::Daily: return daily(options);
    case SolveOptions::Mode::Store: return solveStore(options);
    case SolveOptions::Mode::Deals: return solveBatch(options);
    case SolveOptions::Mode::Help: std::cout << helpText(); return std::cout.flush() ? 0 : 2;
    case SolveOptions::Mode::Version: std::cout << "vorn-solve " VORN_VERSION "\n"; return std::cout.flush() ? 0 : 2;
    }
    return 2;
}
