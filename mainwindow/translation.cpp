#include "translation.h"

#include <QCoreApplication>
#include <QDebug>
#include <QLibraryInfo>
#include <QTranslator>

namespace vanto
{

namespace
{
/// A less specific file is found too: for "de_AT" the file for "de".
bool installFile(const QString& name)
{
    auto* translator = new QTranslator(qApp);
    if (translator->load(name))
        return QCoreApplication::installTranslator(translator);
    delete translator;
    return false;
}
} // namespace

bool Translation::install(const QString& locale)
{
    const QString own =
        QCoreApplication::applicationDirPath() + QStringLiteral("/i18n/VantoSetting_") + locale;
    qDebug() << "translation:" << own;
    if (!installFile(own))
        return false;
    // Standard buttons and file dialogs; optional.
    installFile(QLibraryInfo::path(QLibraryInfo::TranslationsPath) + QStringLiteral("/qtbase_") +
                locale);
    return true;
}

} // namespace vanto
