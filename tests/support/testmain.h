#pragma once

#include "replylimits.h"

#include <QObject>

namespace vanto
{

/// Time-outs that are never met, as a simulated hand may have to wait for a processor. Every test
/// begins with them; those in which a hand does not answer set others.
constexpr ReplyLimits PatientLimits{20'000, 20'000, 20'000, 20'000};

/// A test class of a program that holds several of them: building, linking and starting one program
/// is cheaper than thirty. `tests_window tst_run [FUNCTION...]` runs one class of tests_window.
class RegisteredTest
{
public:
    using Run = int (*)(int argc, char* argv[]);

    /// `sourceFile` gives the test its name: that of the file without folder and extension.
    RegisteredTest(const char* sourceFile, Run run);
};

/// Makes the class known under the name of its file. Stands at the file's end, in place of a main
/// function of Qt Test.
#define VANTO_TEST(Class)                                                                          \
    namespace                                                                                      \
    {                                                                                              \
    const RegisteredTest registered##Class(__FILE__, [](int argc, char* argv[]) {                  \
        Class test;                                                                                \
        return QTest::qExec(&test, argc, argv);                                                    \
    });                                                                                            \
    }

} // namespace vanto
