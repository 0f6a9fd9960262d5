#pragma once

#include <QTest>

// The usual 5 s for a condition are too short on a busy machine.
#undef QTRY_VERIFY
#undef QTRY_VERIFY2
#undef QTRY_COMPARE
#define QTRY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT(condition, vanto::ConditionMs)
#define QTRY_VERIFY2(condition, message)                                                           \
    QTRY_VERIFY2_WITH_TIMEOUT(condition, message, vanto::ConditionMs)
#define QTRY_COMPARE(actual, expected)                                                             \
    QTRY_COMPARE_WITH_TIMEOUT(actual, expected, vanto::ConditionMs)

namespace vanto
{

constexpr int ConditionMs = 15'000; ///< limit of the QTRY macros

} // namespace vanto
