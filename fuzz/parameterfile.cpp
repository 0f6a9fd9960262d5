#include "parameterfile.h"

#include "fuzz.h"

#include <algorithm>

namespace vanto
{

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto bytes =
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const ParameterFile::Content first = ParameterFile::parse(bytes);
    if (!first.isValid()) {
        check(first.parameters.values.empty(), "rejected input gave values");
        return 0;
    }
    for (const auto& [key, value] : first.parameters.values) {
        const ParameterDescriptor& descriptor = describe(key.kind);
        check(descriptor.check(value).isEmpty(), "a value is not valid");
        check(key.finger.has_value() == descriptor.isPerFinger() &&
                  key.finger.value_or(0) < std::max<std::size_t>(descriptor.fingers, 1),
              "a parameter does not exist");
    }
    const QByteArray text = ParameterFile::format(first.parameters);
    const ParameterFile::Content second = ParameterFile::parse(text);
    check(second.isValid(), "the saved text was rejected");
    check(second.parameters.values == first.parameters.values, "the values differ after saving");
    check(second.parameters.hand == first.parameters.hand, "the hand differs after saving");
    check(ParameterFile::format(second.parameters) == text, "the text differs after saving again");
    return 0;
}

} // namespace vanto
