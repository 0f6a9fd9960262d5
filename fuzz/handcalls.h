#pragma once

#include "bytesource.h"
#include "handcommands.h"

#include <memory>
#include <vector>

namespace vanto
{

/// The arguments of one call. Output buffers have the exact size and contain `fill`, so that writes
/// outside and inside them can be detected.
class CallArguments
{
public:
    CallArguments(ByteSource& source, u8 fill);

    u8 node() const { return m_node; }

    /// Reads a number from the input.
    template<class T>
    T number();
    /// A buffer for `count` values, or null if the input selects that.
    template<class T>
    T* output(std::size_t count = 1);
    /// Values to send, limited to slightly more than a request can hold.
    template<class T>
    const T* input(std::size_t count);
    /// Declares that only `count` bytes of the last output are valid on success.
    void limitOutput(std::size_t count);
    u8* subError() { return &m_subError; }

    bool outputsUntouched() const;
    bool subErrorUntouched() const { return m_subError == m_fill; }
    void appendOutputs(std::vector<u8>& bytes) const;

private:
    /// The memory is aligned for all number types of the protocol.
    u8* allocate(std::size_t bytes);

    ByteSource& m_source;
    std::vector<std::unique_ptr<u8[]>> m_memory;
    std::vector<std::span<const u8>> m_outputs;
    u8 m_fill;
    u8 m_nullOutputs; ///< bit n stands for the n-th output
    u8 m_node;
    u8 m_subError;
};

using HandCall = u32 (*)(HAND_Context*, CallArguments&);

/// One call for each command.
std::span<const HandCall> handCalls();

} // namespace vanto
