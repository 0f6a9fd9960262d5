#include "sequencedata.h"

#include "fuzz.h"

#include <QLoggingCategory>

#include <algorithm>

namespace vanto
{

namespace
{
bool inRange(const SequenceData& data)
{
    const bool angles = data.position_type == SequenceData::POS_TYPE_ANGLE;
    const int lowest = angles ? -32768 : 0;
    const int highest = angles ? 32767 : 65535;
    const auto within = [](const QList<int>& numbers, int min, int max) {
        return std::ranges::all_of(numbers, [=](int n) { return n >= min && n <= max; });
    };
    return std::ranges::all_of(data.sequences, [&](const SequenceDataItem& step) {
        return within(step.position, lowest, highest) && within(step.speed, 1, 255) &&
               within({step.delay}, 0, 65535);
    });
}
} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
    const auto bytes =
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    SequenceData first;
    if (!first.fromJSON(bytes)) {
        check(first == SequenceData(), "rejected input has changed the data");
        return 0;
    }
    check(inRange(first), "a number is out of range");
    const QByteArray text = first.toJSON();
    SequenceData second;
    check(second.fromJSON(text), "the saved text was rejected");
    check(second == first, "the data differ after saving and loading");
    check(second.toJSON() == text, "the text differs after saving again");
    return 0;
}

} // namespace vanto
