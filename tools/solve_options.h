// The command line of vorn-solve.
//
//   vorn-solve LAYOUT                          one layout string
//   vorn-solve --store save.txt                every record of a layout store
//   vorn-solve --deals N --seed S [--threads T]  a batch of seeded random deals
// Each form takes --max-positions N and --max-ms M, the limits past which a
// position is reported unknown.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "solver/solver.h"

namespace vorn::tools {

struct SolveOptions {
    enum class Mode { Layout, Store, Deals };
    Mode mode = Mode::Layout;
    std::string layout;  // Layout
    std::string path;    // Store
    uint64_t deals = 0;  // Deals
    uint64_t seed = 0;
    unsigned threads = 1;
    Limits limits{};
};

// Reads the arguments (without the program name). On a mistake returns false and
// puts a one-line explanation into `error`.
bool parseOptions(const std::vector<std::string>& args, SolveOptions& options, std::string& error);

// One line that shows how to call the tool.
std::string usageLine();

}  // namespace vorn::tools
