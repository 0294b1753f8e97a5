// Reading vorn-solve's arguments; every mistake gets one line of explanation.
#include "solve_options.h"

#include <charconv>
#include <string>

namespace vorn::tools {

namespace {

constexpr uint64_t kMaxDeals = 1'000'000;  // one batch's results stay in memory

bool readNumber(const std::string& text, uint64_t& value) {
    const char* end = text.data() + text.size();
    auto [ptr, ec] = std::from_chars(text.data(), end, value);
    return !text.empty() && ec == std::errc() && ptr == end;
}

}  // namespace

std::string usageLine() {
    return "usage: vorn-solve LAYOUT | --store FILE | --deals N --seed S [--threads T]"
           " [--max-positions N] [--max-ms M]";
}

bool parseOptions(const std::vector<std::string>& args, SolveOptions& options, std::string& error) {
    bool haveStore = false, haveDeals = false, haveSeed = false, haveThreads = false, haveLayout = false;
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        const bool isOption = arg.rfind("--", 0) == 0;
        if (!isOption) {
            if (haveLayout) {
                error = "more than one layout given; put the layout string in quotes";
                return false;
            }
            haveLayout = true;
            options.layout = arg;
            continue;
        }
        if (i + 1 >= args.size()) {
            error = arg + " needs a value";
            return false;
        }
        const std::string& value = args[++i];
        uint64_t number = 0;
        if (arg == "--store") {
            haveStore = true;
            options.path = value;
            continue;
        }
        if (arg != "--deals" && arg != "--seed" && arg != "--threads" && arg != "--max-positions" &&
            arg != "--max-ms") {
            error = "unknown option " + arg;
            return false;
        }
        if (!readNumber(value, number)) {
            error = arg + " needs a whole number, not \"" + value + "\"";
            return false;
        }
        if (arg == "--deals") {
            haveDeals = true;
            options.deals = number;
        } else if (arg == "--seed") {
            haveSeed = true;
            options.seed = number;
        } else if (arg == "--threads") {
            if (number < 1 || number > 256) {
                error = "--threads needs a number from 1 to 256";
                return false;
            }
            haveThreads = true;
            options.threads = static_cast<unsigned>(number);
        } else if (arg == "--max-positions") {
            if (number < 1) {
                error = "--max-positions needs a number of at least 1";
                return false;
            }
            options.limits.maxPositions = number;
        } else {
            if (number < 1 || number > 86'400'000) {
                error = "--max-ms needs a number from 1 to 86400000";
                return false;
            }
            options.limits.maxTime = std::chrono::milliseconds(number);
        }
    }
    const int modes = (haveLayout ? 1 : 0) + (haveStore ? 1 : 0) + (haveDeals ? 1 : 0);
    if (modes != 1) {
        error = modes == 0 ? "nothing to solve; " + usageLine() : "give only one of LAYOUT, --store and --deals";
        return false;
    }
    if (haveDeals && !haveSeed) {
        error = "--deals needs --seed S as well";
        return false;
    }
    if (!haveDeals && (haveSeed || haveThreads)) {
        error = "--seed and --threads go with --deals only";
        return false;
    }
    if (haveDeals && (options.deals < 1 || options.deals > kMaxDeals)) {
        error = "--deals needs a number from 1 to " + std::to_string(kMaxDeals);
        return false;
    }
    options.mode = haveLayout  ? SolveOptions::Mode::Layout
                   : haveStore ? SolveOptions::Mode::Store
                               : SolveOptions::Mode::Deals;
    return true;
}

}  // namespace vorn::tools
