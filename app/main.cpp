#include "mainwindow.h"
#include "theme.h"
#include "translation.h"

#include <QApplication>
#include <QLocale>

#include <chrono>
#include <cstdlib>
#include <thread>

namespace vanto
{

namespace
{
constexpr std::chrono::seconds ExitTimeout{1};

/// A regular exit keeps copied text on the clipboard, but it waits for a pending name look-up of
/// the firmware server, which can take many seconds. So its time is limited.
void exitWithinTimeout(int status)
{
    std::thread([status] {
        std::this_thread::sleep_for(ExitTimeout);
        std::_Exit(status);
    }).detach();
}

int runWindow()
{
    MainWindow window;
    Theme::applyStored();
    window.show();
    return QApplication::exec();
}
} // namespace

int runProgram(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("org.example.vantosetting"));
    Translation::install(QLocale::system().name());

    const int status = runWindow();
    exitWithinTimeout(status);
    return status;
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
