#include "sample.h"

#include <algorithm>

namespace vanto
{

namespace
{
constexpr std::size_t FirstForce = 3 * FingerCount;

constexpr std::array QuantityNames{"current", "position", "angle", "force"};
constexpr PerFinger<const char*> FingerNames{"thumb", "index",  "middle",
                                             "third", "little", "thumb_root"};

std::size_t firstIndex(Quantity quantity)
{
    return static_cast<std::size_t>(quantity) * FingerCount;
}
} // namespace

Channel Channel::at(std::size_t index)
{
    const auto quantity = static_cast<Quantity>(std::min(index, FirstForce) / FingerCount);
    return {quantity, static_cast<std::uint8_t>(index - firstIndex(quantity))};
}

std::size_t Channel::index() const
{
    return firstIndex(quantity) + finger;
}

QString Channel::name() const
{
    return QLatin1String(QuantityNames.at(static_cast<std::size_t>(quantity))) + QLatin1Char('_') +
           QLatin1String(FingerNames.at(finger));
}

ChannelSet channelsOf(Quantity quantity)
{
    ChannelSet channels;
    for (std::size_t index = 0; index < ChannelCount; ++index)
        channels[index] = Channel::at(index).quantity == quantity;
    return channels;
}

} // namespace vanto
