#include "mainwindow.h"
#include "theme.h"
#include "translation.h"

#include <QApplication>
#include <QLocale>

#include <cstdlib>

namespace
{
int runWindow()
{
    MainWindow window;
    Theme::applyStored();
    window.show();
    return QApplication::exec();
}
} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("org.example.vantosetting"));
    Translation::install(QLocale::system().name());

    const int status = runWindow();
    // Qt's own end waits for a look-up of the firmware server's name, which can take many seconds.
    std::_Exit(status);
}
