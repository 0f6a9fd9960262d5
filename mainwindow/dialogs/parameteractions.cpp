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

#include <QEvent>
#include <QFileDialog>
#include <QMessageBox>

namespace vanto
{

namespace
{
QString fileFilter()
{
    return ParameterActions::tr("Parameter files (*.json)");
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

void ParameterActions::request(QAction* action, std::function<void(const HandTarget&)> run)
{
    m_session->request([action] { return action->isEnabled(); }, std::move(run));
}

void ParameterActions::save()
{
    request(m_actions.save, [this](const HandTarget& target) { saveOf(target); });
}

void ParameterActions::compare()
{
    compareWith({});
}

void ParameterActions::compareWith(const QString& path)
{
    request(m_actions.restore, [this, path](const HandTarget& target) { compareOf(target, path); });
}

void ParameterActions::showInformation()
{
    request(m_actions.information, [this](const HandTarget& target) { showInformationOf(target); });
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

/// What has been read is saved even if the hand has been lost meanwhile.
void ParameterActions::saveOf(const HandTarget& target)
{
    const auto parameters = read(target);
    if (!parameters)
        return;
    QFileDialog files(m_window, tr("Save hand parameters"), {}, fileFilter());
    files.setAcceptMode(QFileDialog::AcceptSave);
    files.setDefaultSuffix(QStringLiteral("json"));
    files.selectFile(ParameterBackup::fileName(*parameters));
    if (files.exec() != QDialog::Accepted || files.selectedFiles().isEmpty())
        return;
    const QString path = files.selectedFiles().constFirst();
    const QString error = ParameterFile::write(path, *parameters);
    if (!error.isEmpty()) {
        showFailure(error);
        return;
    }
    m_reporter->showMessage(tr("Parameters saved in '%1'").arg(path));
    if (parameters->refused.isEmpty())
        return;
    QStringList refused;
    for (const RefusedParameter& parameter : parameters->refused)
        refused.append(parameter.text());
    showFailure(tr("The file has no values for what the hand refused to tell:"),
                refused.join(QLatin1Char('\n')));
}

/// Without a path, the user chooses the file.
void ParameterActions::compareOf(const HandTarget& target, QString path)
{
    if (path.isEmpty())
        path = QFileDialog::getOpenFileName(m_window, tr("Open parameter file"), {}, fileFilter());
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
        QMessageBox::question(m_window, Program::title(),
                              tr("The file is from hardware %1, the hand is hardware %2. Compare "
                                 "them?")
                                  .arg(file.parameters.hand.hardwareText(),
                                       hand->hand.hardwareText())) != QMessageBox::Yes)
        return;
    ParametersDialog dialog(m_window, m_session, m_deviceBar->haltControl(),
                            {target, *hand, file.parameters, path});
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
