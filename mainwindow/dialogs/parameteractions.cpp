#include "parameteractions.h"

#include "devicebar.h"
#include "haltcontrol.h"
#include "handinformationdialog.h"
#include "parameterbackup.h"
#include "parameterfile.h"
#include "parameterreader.h"
#include "parametersdialog.h"
#include "program.h"
#include "statusreporter.h"
#include "taskdialog.h"

#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QMessageBox>
#include <QUrl>

namespace vanto
{

namespace
{
QString fileFilter()
{
    return ParameterActions::tr("Parameter files (*.json)");
}

/// The automatic backups lie in a folder that users would not find by themselves.
QString chooseFile(QWidget* window)
{
    QFileDialog files(window, ParameterActions::tr("Open parameter file"), {}, fileFilter());
    files.setFileMode(QFileDialog::ExistingFile);
    if (QDir(ParameterBackup::folder()).exists())
        files.setSidebarUrls(files.sidebarUrls() << QUrl::fromLocalFile(ParameterBackup::folder()));
    return files.exec() == QDialog::Accepted ? files.selectedFiles().value(0) : QString();
}

/// Only one is open, so that it is clear which hand it shows.
void closeOpenInformation(const QWidget* window)
{
    if (auto* open = window->findChild<HandInformationDialog*>())
        open->close();
}
} // namespace

ParameterActions::ParameterActions(QWidget* window, DeviceSession* session,
                                   StatusReporter* reporter, DeviceBar* deviceBar, QWidget* pages,
                                   Actions actions)
    : m_window(window),
      m_session(session),
      m_reporter(reporter),
      m_deviceBar(deviceBar),
      m_pages(pages),
      m_actions(actions)
{
    m_pages->installEventFilter(this);
    connect(session, &DeviceSession::sig_stateChanged, this, &ParameterActions::update);
    connect(&deviceBar->haltControl()->halt(), &Halt::sig_stateChanged, this,
            &ParameterActions::update);
    connect(deviceBar, &DeviceBar::sig_currentDeviceChanged, this, &ParameterActions::update);
    update();
}

bool ParameterActions::isAvailable() const
{
    return m_session->state() == DeviceSession::State::Connected && m_pages->isEnabled() &&
           m_deviceBar->haltControl()->halt().state() == Halt::State::Ready &&
           !(m_isPlaying && m_isPlaying());
}

void ParameterActions::update()
{
    for (QAction* action : {m_actions.save, m_actions.restore, m_actions.information})
        action->setEnabled(isAvailable());
}

bool ParameterActions::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::EnabledChange)
        update();
    return false;
}

/// A notice can ask for it, too, at a moment at which the actions are not available.
void ParameterActions::request(std::function<void(const HandTarget&)> run)
{
    if (isAvailable())
        m_session->request([this] { return isAvailable(); }, std::move(run));
}

void ParameterActions::save()
{
    request([this](const HandTarget& target) { saveOf(target); });
}

void ParameterActions::compare()
{
    compareWith({});
}

void ParameterActions::compareWith(const QString& path)
{
    request([this, path](const HandTarget& target) { compareOf(target, path); });
}

void ParameterActions::showInformation()
{
    request([this](const HandTarget& target) { showInformationOf(target); });
}

std::optional<ParameterSet> ParameterActions::read(const HandTarget& target,
                                                   const std::shared_ptr<HandTask>& first)
{
    const auto reader = std::make_shared<ParameterReader>(
        target, ParameterReader::Options{.forceSensing = m_session->hasForceSensing(),
                                         .toolVersion = Program::nameAndVersion()});
    TaskDialog::Tasks tasks{reader};
    if (first)
        tasks.prepend(first);
    TaskDialog dialog(m_window, m_session, m_deviceBar->haltControl(),
                      tr("Reading the parameters of the hand..."));
    if (!dialog.run(tasks))
        return {};
    return reader->parameters();
}

/// What has been read is saved even if the hand has been lost meanwhile, under another name if it
/// cannot be saved under the first one.
void ParameterActions::saveOf(const HandTarget& target)
{
    const auto parameters = read(target);
    if (!parameters)
        return;
    QFileDialog files(m_window, tr("Save hand parameters"), {}, fileFilter());
    files.setAcceptMode(QFileDialog::AcceptSave);
    files.setDefaultSuffix(QStringLiteral("json"));
    files.selectFile(ParameterBackup::fileName(*parameters));
    QString path;
    for (;;) {
        if (files.exec() != QDialog::Accepted || files.selectedFiles().isEmpty())
            return;
        path = files.selectedFiles().constFirst();
        const QString error = ParameterFile::write(path, *parameters);
        if (error.isEmpty())
            break;
        showFailure(tr("The parameters could not be saved in '%1'.").arg(path), error);
    }
    m_reporter->showMessage(tr("Parameters saved in '%1'").arg(path));
    if (parameters->refused.isEmpty())
        return;
    QStringList refused;
    for (const RefusedParameter& parameter : parameters->refused)
        refused.append(parameter.text());
    showFailure(tr("The file does not have these values, which the hand did not give:"),
                refused.join(QLatin1Char('\n')));
}

/// Without a path, the user chooses the file.
void ParameterActions::compareOf(const HandTarget& target, QString path)
{
    const bool isGiven = !path.isEmpty();
    if (!isGiven)
        path = chooseFile(m_window);
    if (path.isEmpty() || !target.isCurrent())
        return;
    const ParameterFile::Content file = ParameterFile::read(path);
    if (!file.isValid()) {
        showFailure(tr("The file '%1' cannot be used.").arg(path), file.error);
        return;
    }
    const auto hand = read(target);
    if (!hand || !target.isCurrent())
        return;
    if (isOtherHardware(hand->hand, file.parameters.hand) &&
        QMessageBox::question(
            m_window, Program::title(),
            tr("The file is from hardware %1, the hand is hardware %2. Compare "
               "them?")
                .arg(file.parameters.hand.hardwareText(), hand->hand.hardwareText()),
            QMessageBox::Yes | QMessageBox::No, QMessageBox::No) != QMessageBox::Yes)
        return;
    ParametersDialog dialog(m_window, m_session, m_deviceBar->haltControl(),
                            {target, *hand, file.parameters, path});
    if (isGiven)
        emit sig_givenFileCompared();
    dialog.exec();
    if (dialog.hasWritten() && target.isCurrent())
        m_deviceBar->reloadPages();
}

void ParameterActions::showInformationOf(const HandTarget& target)
{
    const auto reader =
        std::make_shared<HandInformationReader>(target, m_session->hasForceSensing());
    const auto parameters = read(target, reader);
    if (!parameters)
        return;
    closeOpenInformation(m_window);
    SupportReport report;
    report.toolVersion = Program::nameAndVersion();
    report.port = m_session->port().name;
    report.information = reader->information();
    report.parameters = *parameters;
    (new HandInformationDialog(m_window, m_reporter->log(), std::move(report)))->show();
}

void ParameterActions::showFailure(const QString& text, const QString& details)
{
    QMessageBox box(QMessageBox::Warning, Program::title(), text, QMessageBox::Ok, m_window);
    box.setTextFormat(Qt::PlainText); // file names may look like markup
    box.setInformativeText(details);
    box.exec();
}

} // namespace vanto
