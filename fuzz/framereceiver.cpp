#include "framereceiver.h"

#include "bytesource.h"
#include "fuzz.h"

namespace vanto
{

// Input: after how many bytes each there is silence (0: never), then the bytes.

namespace
{
using namespace std::chrono_literals;
constexpr auto IdleLimit = 10ms;
constexpr auto Silence = 11ms;

struct Encoded {
    QByteArray operator()(const simulator::Frame& frame) const { return encode(frame); }
    QByteArray operator()(const simulator::ModbusFrame& frame) const { return encode(frame); }
    QByteArray operator()(const simulator::BootRequest& request) const { return request.bytes; }
};
} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ByteSource source(std::span(data, size));
    const unsigned stretch = source.take();
    simulator::FrameReceiver receiver(IdleLimit);
    simulator::Moment now{};
    QByteArray heard; // since the last silence or good frame
    for (unsigned count = 1; !source.isEmpty(); ++count) {
        const char byte = static_cast<char>(source.take());
        heard.append(byte);
        const auto received = receiver.feed(byte, now);
        if (received) {
            check(!received->bytes.isEmpty() && heard.contains(received->bytes),
                  "a frame that has not been heard");
            check(received->checksumGood ==
                      (std::visit(Encoded(), received->request) == received->bytes),
                  "a checksum that is judged wrongly");
            if (received->checksumGood)
                heard.clear();
        }
        if (stretch > 0 && count % stretch == 0) {
            now += Silence;
            heard.clear();
        }
    }
    return 0;
}

} // namespace vanto
