#pragma once

#include "conditions.h"
#include "replylimits.h"

#include <QObject>

namespace vanto
{

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
