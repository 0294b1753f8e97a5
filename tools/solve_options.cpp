// Reading vorn-solve's arguments with the C library's getopt_long, so that
// --option value and --option=value both work; every mistake gets one line of
// explanation.
#include "solve_options.h"

#include <getopt.h>

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
    return "usage: vorn-solve LAYOUT | --deal N | --store FILE | --deals N --seed S [--threads T] [--csv FILE]"
           " | --daily [YYYY-MM-DD] [--max-positions N] [--max-ms M]";
}

std::string helpText() {
    return usageLine() +
           "\n"
           "Solves Vorn deals: one layout string (the 48 place numbers of a save.txt line),\n"
           "one numbered deal, every stored deal of a save.txt file, or a batch of seeded\n"
           "random deals. A single deal found winnable is graded: its difficulty in bits\n"
           "and its grade, easy to expert.\n"
           "  --deal N             the deal numbered N (1 to 4294967295), as New game deals it\n"
           "  --store FILE         every record of the layout store FILE\n"
           "  --deals N --seed S   N random deals from seed S (deal numbers S to S + N - 1);\n"
           "                       --threads T solves them on T threads\n"
           "  --csv FILE           with --deals: grade every deal, one row each into FILE\n"
           "  --daily [DATE]       the number of the deal of the day (YYYY-MM-DD, UTC; today)\n"
           "  --max-positions N    a position is unknown past N positions searched\n"
           "  --max-ms M           ... or past M milliseconds\n"
           "  --help, --version    this text, the version\n"
           "Every option also takes the form --option=value. See the manual page vorn-solve(6).\n";
}

namespace {

// The long options; their values lie past the range of the short ones.
enum OptionId : int {
    kStore = 256,
    kDeals,
    kSeed,
    kThreads,
    kMaxPositions,
    kMaxMs,
    kHelp,
    kVersion,
    kDeal,
    kCsv,
    kDaily
};

const option kOptions[] = {
    {"deal", required_argument, nullptr, kDeal},
    {"csv", required_argument, nullptr, kCsv},
    {"daily", optional_argument, nullptr, kDaily},
    {"store", required_argument, nullptr, kStore},
    {"deals", required_argument, nullptr, kDeals},
    {"seed", required_argument, nullptr, kSeed},
    {"threads", required_argument, nullptr, kThreads},
    {"max-positions", required_argument, nullptr, kMaxPositions},
    {"max-ms", required_argument, nullptr, kMaxMs},
    {"help", no_argument, nullptr, kHelp},
    {"version", no_argument, nullptr, kVersion},
    {nullptr, 0, nullptr, 0},
};

std::string optionName(int id) {
    for (const option& o : kOptions)
        if (o.name && o.val == id) return std::string("--") + o.name;
    return std::string("-") + static_cast<char>(id);
}

}  // namespace

bool parseOptions(const std::vector<std::string>& args, SolveOptions& options, std::string& error) {
    bool haveStore = false, haveDeals = false, haveSeed = false, haveThreads = false, haveDeal = false,
         haveDaily = false, haveDate = false;
    // getopt_long wants a writable argv of its own (it reorders it); the copies
    // live as long as the parse.
    std::vector<std::string> words{"vorn-solve"};
    words.insert(words.end(), args.begin(), args.end());
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    const int argc = static_cast<int>(words.size());
    optind = 0;  // a fresh parse, every time
    opterr = 0;  // the messages are ours, one line each
    for (int id; (id = getopt_long(argc, argv.data(), ":h", kOptions, nullptr)) != -1;) {
        if (id == 'h' || id == kHelp || id == kVersion) {
            options.mode = id == kVersion ? SolveOptions::Mode::Version : SolveOptions::Mode::Help;
            return true;
        }
        if (id == ':') {
            error = optionName(optopt) + " needs a value";
            return false;
        }
        if (id == '?') {
            if (optopt == kHelp || optopt == kVersion) {
                error = optionName(optopt) + " takes no value";
            } else if (optopt != 0) {
                error = "unknown option " + optionName(optopt);
            } else {  // a long option getopt_long does not know, or an abbreviation of two
                const std::string word = argv[optind - 1];
                error = "unknown or ambiguous option " + word.substr(0, word.find('='));
            }
            return false;
        }
        const std::string arg = optionName(id);
        if (id == kDaily) {
            haveDaily = true;
            if (optarg == nullptr) continue;  // --daily alone, or with the date as the next word
            if (!(options.date = parseDate(optarg))) {
                error = "--daily needs a date written YYYY-MM-DD, not \"" + std::string(optarg) + "\"";
                return false;
            }
            haveDate = true;
            continue;
        }
        const std::string value = optarg;
        uint64_t number = 0;
        if (id == kStore || id == kCsv) {
            (id == kStore ? options.path : options.csv) = value;
            haveStore = haveStore || id == kStore;
            if (value.empty()) {
                error = arg + " needs a file name";
                return false;
            }
            continue;
        }
        if (id == kDeal) {
            const std::optional<DealNumber> deal = parseDealNumber(value);
            if (!deal) {
                error = "--deal needs a deal number from 1 to " + std::to_string(kLastDealNumber) + ", not \"" +
                        value + "\"";
                return false;
            }
            haveDeal = true;
            options.deal = *deal;
            continue;
        }
        if (!readNumber(value, number)) {
            error = arg + " needs a whole number, not \"" + value + "\"";
            return false;
        }
        if (id == kDeals) {
            haveDeals = true;
            options.deals = number;
        } else if (id == kSeed) {
            haveSeed = true;
            options.seed = number;
        } else if (id == kThreads) {
            if (number < 1 || number > 256) {
                error = "--threads needs a number from 1 to 256";
                return false;
            }
            haveThreads = true;
            options.threads = static_cast<unsigned>(number);
        } else if (id == kMaxPositions) {
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
    // What getopt_long left over (moved to the end) are the layout strings,
    // or the date of --daily written as a word of its own.
    if (haveDaily && !haveDate && argc - optind == 1) {
        if (!(options.date = parseDate(argv[optind]))) {
            error = "--daily needs a date written YYYY-MM-DD, not \"" + std::string(argv[optind]) + "\"";
            return false;
        }
        ++optind;
    }
    if (argc - optind > 1) {
        error = "more than one layout given; put the layout string in quotes";
        return false;
    }
    const bool haveLayout = optind < argc;
    if (haveLayout) options.layout = argv[optind];
    const int modes = (haveLayout ? 1 : 0) + (haveStore ? 1 : 0) + (haveDeals ? 1 : 0) + (haveDeal ? 1 : 0) +
                      (haveDaily ? 1 : 0);
    if (modes != 1) {
        error = modes == 0 ? "nothing to solve; " + usageLine()
                           : "give only one of LAYOUT, --deal, --store, --deals and --daily";
        return false;
    }
    if (!options.csv.empty() && !haveDeals) {
        error = "--csv goes with --deals only";
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
                   : haveDeal  ? SolveOptions::Mode::Deal
                   : haveStore ? SolveOptions::Mode::Store
                   : haveDaily ? SolveOptions::Mode::Daily
                               : SolveOptions::Mode::Deals;
    return true;
}

}  // namespace vorn::tools
