#include "framereceiver.h"

#include "bytesource.h"
#include "fuzz.h"

namespace vanto
{

// Input: number of bytes between two silences (0: no silence), then the bytes.

namespace
{
using namespace std::chrono_literals;
constexpr auto IdleLimit = 10ms;
constexpr auto Silence = 11ms;

struct Encoder {
    QByteArray operator()(const simulator::Frame& frame) const { return encode(frame); }
    QByteArray operator()(const simulator::ModbusFrame& frame) const { return encode(frame); }
    QByteArray operator()(const simulator::BootRequest& request) const { return request.bytes; }
};
} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ByteSource source(std::span(data, size));
    const unsigned chunkSize = source.take();
    simulator::FrameReceiver receiver(IdleLimit);
    simulator::TimePoint now{};
    QByteArray pending; // since the last silence or valid frame
    for (unsigned count = 1; !source.isEmpty(); ++count) {
        const char byte = static_cast<char>(source.take());
        pending.append(byte);
        const auto received = receiver.feed(byte, now);
        if (received) {
            check(!received->bytes.isEmpty() && pending.contains(received->bytes),
                  "a frame that was not received");
            check(received->checksumValid ==
                      (std::visit(Encoder(), received->request) == received->bytes),
                  "a checksum is evaluated incorrectly");
            if (received->checksumValid)
                pending.clear();
        }
        if (chunkSize > 0 && count % chunkSize == 0) {
            now += Silence;
            pending.clear();
        }
    }
    return 0;
}

} // namespace vanto
