#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace vanto
{

/// Tries one input; called again and again in the same process.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Ends the process unless `holds`, which is how a target reports a finding.
inline void check(bool holds, const char* finding)
{
    if (holds)
        return;
    std::fprintf(stderr, "Finding: %s\n", finding);
    std::abort();
}

} // namespace vanto
