#pragma once

#include "replylimits.h"

#include <QObject>
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

/// Time-outs that are too long to expire, because a simulated hand may have to wait for a
/// processor. Every test starts with them; tests in which a hand does not answer set shorter ones.
constexpr ReplyLimits PatientLimits{20'000, 20'000, 20'000, 20'000};
// A lost reply must not count as a condition that takes long.
static_assert(ConditionMs < PatientLimits.serialCtrl);

/// A test class in a program with several of them, because one program builds and links faster than
/// thirty. `tests_window tst_run [FUNCTION...]` runs one class of tests_window.
class RegisteredTest
{
public:
    using Run = int (*)(int argc, char* argv[]);

    /// The name of the test is that of `sourceFile` without folder and extension.
    RegisteredTest(const char* sourceFile, Run run);
};

/// Registers the class under the name of its file; replaces QTEST_MAIN().
#define VANTO_TEST(Class)                                                                          \
    namespace                                                                                      \
    {                                                                                              \
    const RegisteredTest registered##Class(__FILE__, [](int argc, char* argv[]) {                  \
        Class test;                                                                                \
        return QTest::qExec(&test, argc, argv);                                                    \
    });                                                                                            \
    }

} // namespace vanto
