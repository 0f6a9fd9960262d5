#include "mainwindow.h"
#include "theme.h"
#include "translation.h"

#include <QApplication>
#include <QLocale>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("org.example.vantosetting"));
    Translation::install(QLocale::system().name());

    MainWindow window;
    Theme::applyStored();
    window.show();
    return QApplication::exec();
}
