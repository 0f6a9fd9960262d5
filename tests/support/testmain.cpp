#include "testmain.h"

#ifdef VANTO_TESTS_WITHOUT_WINDOW
#include <QCoreApplication>
using Application = QCoreApplication;
#else
#include <QApplication>
using Application = QApplication;
#endif

#include <QFileInfo>

#include <cstdio>
#include <map>

namespace vanto
{

namespace
{
constexpr int UsageError = 2;
constexpr char FunctionMs[] = "1200000"; ///< CTest ends tests that take too long

std::map<QString, RegisteredTest::Run>& tests()
{
    static std::map<QString, RegisteredTest::Run> all;
    return all;
}
} // namespace

RegisteredTest::RegisteredTest(const char* sourceFile, Run run)
{
    tests().emplace(QFileInfo(QString::fromUtf8(sourceFile)).baseName(), run);
}

int runProgram(int argc, char* argv[])
{
    Application application(argc, argv);
    application.setAttribute(Qt::AA_Use96Dpi, true);
    ReplyLimits::current() = PatientLimits;
    qputenv("QTEST_FUNCTION_TIMEOUT", FunctionMs);
    const auto test = tests().find(application.arguments().value(1));
    if (test != tests().end())
        return test->second(argc - 1, argv + 1);
    std::fputs("The first argument names one of these tests:\n", stderr);
    for (const auto& [name, run] : tests())
        std::fprintf(stderr, "    %s\n", qPrintable(name));
    return UsageError;
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
