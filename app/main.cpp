#include "mainwindow.h"
#include "theme.h"

#include <QApplication>
#include <QDebug>
#include <QLocale>
#include <QTranslator>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);

    const QString translation = QCoreApplication::applicationDirPath() +
                                QStringLiteral("/i18n/VantoSetting_") + QLocale::system().name();
    qDebug() << "translation:" << translation;
    QTranslator translator;
    // Before the window is built, so that all its texts are translated.
    if (translator.load(translation))
        QCoreApplication::installTranslator(&translator);

    MainWindow window;
    Theme::applyStored();
    window.show();
    return QApplication::exec();
}
