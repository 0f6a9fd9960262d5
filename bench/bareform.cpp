// The form and style sheet of the window without any functions.

#include "ui_mainwindow.h"

#include <QApplication>
#include <QFile>
#include <QMainWindow>

namespace vanto
{

int runProgram(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QMainWindow window;
    Ui::MainWindow form;
    form.setupUi(&window);
    QFile sheet(QStringLiteral(":qdarkstyle/dark/darkstyle.qss"));
    if (!sheet.open(QFile::ReadOnly | QFile::Text))
        return 1;
    application.setStyleSheet(QString::fromUtf8(sheet.readAll()));
    window.show();
    return QApplication::exec();
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
