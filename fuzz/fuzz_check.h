// A failed expectation inside a fuzz target: say what broke, then abort so that
// libFuzzer records the input as a finding.
#pragma once

#include <cstdio>
#include <cstdlib>

#define FUZZ_EXPECT(condition)                                                        \
    do {                                                                              \
        if (!(condition)) {                                                           \
            std::fprintf(stderr, "%s:%d: expectation failed: %s\n", __FILE__, __LINE__, \
                         #condition);                                                 \
            std::abort();                                                             \
        }                                                                             \
    } while (false)
