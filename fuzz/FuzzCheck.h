#pragma once

#include <cstdlib>

// A broken expectation of a fuzz entry point: abort, so that libFuzzer keeps
// the input and the replay fails.
inline void require(bool condition)
{
    if (!condition)
        std::abort();
}
