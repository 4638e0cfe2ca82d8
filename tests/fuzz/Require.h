// The one check of the fuzzed programs.
#pragma once

#include <QtGlobal>

/// Ends the program with the line of the check that doesn't hold, so that the fuzzer keeps the
/// input.
#define REQUIRE(condition)                                                                         \
    ((condition) ? void() : qFatal("%s:%d: does not hold: %s", __FILE__, __LINE__, #condition))
