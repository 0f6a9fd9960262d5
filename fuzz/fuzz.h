#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace vanto
{

/// Tests one input. The fuzzer calls it repeatedly in the same process.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Reports a finding and aborts the process unless `holds`.
inline void check(bool holds, const char* finding)
{
    if (holds)
        return;
    std::fprintf(stderr, "Finding: %s\n", finding);
    std::abort();
}

} // namespace vanto
