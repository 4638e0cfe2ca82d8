// The one check of the fuzzed programs: a condition that doesn't hold is a finding.
#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the program with the line of the check, so that the fuzzer keeps the input.
#define REQUIRE(condition)                                                                         \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            std::fprintf(stderr, "%s:%d: does not hold: %s\n", __FILE__, __LINE__, #condition);    \
            std::abort();                                                                          \
        }                                                                                          \
    } while (false)
