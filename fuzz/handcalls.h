#pragma once

#include "bytesource.h"
#include "handcommands.h"

#include <memory>
#include <vector>

namespace vanto
{

/// The arguments of one call. Outputs are buffers of their exact size, full of `fill`, so that a
/// write beside them is noticed and a write into them can be told.
class CallArguments
{
public:
    CallArguments(ByteSource& source, u8 fill);

    u8 node() const { return m_node; }

    /// The next number of the input.
    template<class T>
    T number();
    /// Room for `count` values, or null if the input wants that.
    template<class T>
    T* output(std::size_t count = 1);
    /// Values to send; no more of them than a request can hold.
    template<class T>
    const T* input(std::size_t count);
    /// Of the last output only `count` bytes have a meaning on success.
    void limitOutput(std::size_t count);
    u8* subError() { return &m_subError; }

    bool outputsUntouched() const;
    bool subErrorUntouched() const { return m_subError == m_fill; }
    void appendOutputs(std::vector<u8>& bytes) const;

private:
    /// Aligned for every number of the protocol.
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

/// One for every command.
std::span<const HandCall> handCalls();

} // namespace vanto
