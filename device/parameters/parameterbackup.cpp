#include "parameterbackup.h"

#include "parameterfile.h"

#include <QCoreApplication>
#include <QDir>
#include <QRegularExpression>
#include <QStandardPaths>

namespace vanto
{

namespace
{
/// The context of the texts, which the window shows.
struct BackupText {
    Q_DECLARE_TR_FUNCTIONS(vanto::ParameterBackups)
};

/// The part of the name that all backups of a hand have.
QString handPrefix(const HandFacts& hand)
{
    const QString hardware = hand.hardware ? hand.hardwareText() : QStringLiteral("unknown");
    const QString name = hand.uid ? hand.uidText() : QStringLiteral("node") + hand.nodeText();
    return hardware + QLatin1Char('-') + name + QLatin1Char('-');
}

/// Names of the backups of a hand, newest first.
QStringList backupsOf(const HandFacts& hand)
{
    static const QRegularExpression timeAndEnd(QStringLiteral("^[0-9]{8}T[0-9]{9}Z\\.json$"));
    const QString prefix = handPrefix(hand);
    QStringList names =
        QDir(ParameterBackup::folder())
            .entryList({prefix + QLatin1Char('*')}, QDir::Files, QDir::Name | QDir::Reversed);
    names.removeIf([&prefix](const QString& name) {
        return !timeAndEnd.match(name.mid(prefix.size())).hasMatch();
    });
    return names;
}
} // namespace

QString ParameterBackup::folder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/VantoSetting/parameters");
}

QString ParameterBackup::fileName(const ParameterSet& parameters)
{
    return handPrefix(parameters.hand) +
           parameters.time.toUTC().toString(QStringLiteral("yyyyMMdd'T'HHmmsszzz'Z'")) +
           QStringLiteral(".json");
}

ParameterBackup::Saved ParameterBackup::save(const ParameterSet& parameters)
{
    const QDir target(folder());
    if (!target.mkpath(QStringLiteral(".")))
        return {{},
                QCoreApplication::translate("ParameterFile", "The folder %1 cannot be created.")
                    .arg(folder()),
                {}};
    const QString path = target.filePath(fileName(parameters));
    const QString error = ParameterFile::write(path, parameters);
    if (!error.isEmpty())
        return {{}, error, {}};
    QStringList missing;
    for (const RefusedParameter& refused : parameters.refused)
        missing.append(refused.text());
    // A clock that was set back must not make the new backup an old one.
    QStringList others = backupsOf(parameters.hand);
    others.removeOne(fileName(parameters));
    for (const QString& old : others.mid(KeptPerHand - 1))
        QFile::remove(target.filePath(old));
    return {path, {}, missing.join(QStringLiteral("; "))};
}

ParameterReader::Options ParameterBackup::readOptions(std::optional<bool> forceSensing,
                                                      const QString& toolVersion)
{
    return {.forceSensing = forceSensing, .timeoutsInARow = 1, .toolVersion = toolVersion};
}

ParameterBackup::Saved ParameterBackup::save(const ParameterReader& reader)
{
    using Outcome = HandTask::Outcome;
    Saved saved;
    if (reader.outcome() == Outcome::Superseded || reader.outcome() == Outcome::Cancelled)
        return saved;
    if (reader.outcome() == Outcome::Completed)
        saved = save(reader.parameters());
    else
        saved.error = reader.outcomeText();
    if (!saved.error.isEmpty())
        saved.error = failureText(saved.error);
    if (!saved.missing.isEmpty())
        saved.missing = BackupText::tr("The backup is incomplete. %1").arg(saved.missing);
    return saved;
}

QString ParameterBackup::failureText(const QString& reason)
{
    return BackupText::tr("The parameters were not backed up. %1").arg(reason);
}

QString ParameterBackup::newest(const HandFacts& hand)
{
    const QStringList backups = backupsOf(hand);
    return backups.isEmpty() ? QString() : QDir(folder()).filePath(backups.first());
}

} // namespace vanto
