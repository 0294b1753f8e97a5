// The command line of vorn-solve.
//
//   vorn-solve LAYOUT                          one layout string
//   vorn-solve --deal N                        the deal numbered N
//   vorn-solve --store save.txt                every record of a layout store
//   vorn-solve --deals N --seed S [--threads T] [--csv FILE]
//                                              a batch of seeded random deals,
//                                              graded into FILE with --csv
// Each form takes --max-positions N and --max-ms M, the limits past which a
// position is reported unknown; every option may also be written --option=value.
//   vorn-solve --daily [YYYY-MM-DD]            the number of a day's deal
//   vorn-solve --help | --version              what it takes, its version
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "board/deal_number.h"
#include "solver/daily_deal.h"
#include "solver/solver.h"

namespace vorn::tools {

struct SolveOptions {
    enum class Mode { Layout, Deal, Store, Deals, Daily, Help, Version };
    Mode mode = Mode::Layout;
    std::string layout;   // Layout
    DealNumber deal = 0;  // Deal
    std::string path;     // Store
    uint64_t deals = 0;   // Deals
    uint64_t seed = 0;
    unsigned threads = 1;
    std::string csv;                  // Deals: where the graded rows go, if anywhere
    std::optional<Date> date;         // Daily: today (UTC) when not given
    Limits limits{};
};

// Reads the arguments (without the program name). --help or --version ends the
// reading at once. On a mistake returns false and puts a one-line explanation
// into `error`.
bool parseOptions(const std::vector<std::string>& args, SolveOptions& options, std::string& error);

// One line that shows how to call the tool.
std::string usageLine();

// The answer to --help: the usage line and a few lines on the options.
std::string helpText();

}  // namespace vorn::tools
