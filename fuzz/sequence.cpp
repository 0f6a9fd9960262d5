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
    const int least = angles ? -32768 : 0;
    const int most = angles ? 32767 : 65535;
    const auto within = [](const QList<int>& numbers, int min, int max) {
        return std::ranges::all_of(numbers, [=](int n) { return n >= min && n <= max; });
    };
    return std::ranges::all_of(data.sequences, [&](const SequenceDataItem& step) {
        return within(step.position, least, most) && within(step.speed, 1, 255) &&
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
        check(first == SequenceData(), "data changed by what has been refused");
        return 0;
    }
    check(inRange(first), "a number out of range");
    const QByteArray text = first.toJSON();
    SequenceData second;
    check(second.fromJSON(text), "own text refused");
    check(second == first, "other data after saving and loading");
    check(second.toJSON() == text, "another text after saving, loading and saving");
    return 0;
}

} // namespace vanto
