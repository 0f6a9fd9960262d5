#include "parametersdialog.h"

#include "copygainsdialog.h"
#include "haltcontrol.h"
#include "program.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace vanto
{

namespace
{
/// Kinds that are ticked together.
struct KindGroup {
    QString text;
    const char* name;
    ParameterKind first;
    ParameterKind last;
};

/// Whether a parameter decides by what the hand is recognized.
bool changesIdentity(const ParameterKey& key)
{
    return describe(key.kind).belongsToOneHand();
}

QString identityText(const ParameterSet& file)
{
    QStringList parts;
    if (file.time.isValid())
        parts.append(QLocale().toString(file.time.toLocalTime(), QLocale::ShortFormat));
    if (!file.comment.isEmpty())
        parts.append(file.comment);
    return parts.isEmpty() ? QString()
                           : QStringLiteral(" (%1)").arg(parts.join(QStringLiteral(", ")));
}
} // namespace

ParametersDialog::ParametersDialog(QWidget* window, DeviceSession* session, HaltControl* halt,
                                   Subject subject)
    : QDialog(window),
      m_session(session),
      m_subject(std::move(subject)),
      m_table(new ParameterTable(this)),
      m_equalRows(new QCheckBox(tr("Show equal values"), this)),
      m_state(new QLabel(this)),
      m_progress(new QProgressBar(this))
{
    setObjectName(QStringLiteral("parametersDialog"));
    setWindowTitle(Program::title() + QStringLiteral(" - ") + tr("Compare and Restore"));
    auto* file = new QLabel(
        tr("File: %1").arg(QFileInfo(m_subject.fileName).fileName() + identityText(m_subject.file)),
        this);
    file->setTextFormat(Qt::PlainText); // names may look like markup
    file->setToolTip(m_subject.fileName);
    m_equalRows->setObjectName(QStringLiteral("checkBox_EqualRows"));
    m_state->setObjectName(QStringLiteral("label_RestoreState"));
    m_state->setTextFormat(Qt::PlainText);
    m_state->setWordWrap(true);
    m_progress->setAccessibleName(tr("Progress"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(file);
    addGroupBoxes(layout);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_state);
    layout->addWidget(m_progress);
    addButtons(layout);
    auto* buttons = findChild<QDialogButtonBox*>();
    halt->addTo(buttons);
    connect(m_equalRows, &QCheckBox::toggled, m_table, &ParameterTable::showEqualRows);
    connect(m_table, &ParameterTable::sig_ticksChanged, this, &ParametersDialog::updateControls);
    connect(
        m_table, &ParameterTable::sig_consentNeeded, this,
        [this](const QList<ParameterKey>& keys) { whenIdle([=, this] { askForConsent(keys); }); });
    // Queued: the state may change while the port is being closed.
    connect(session, &DeviceSession::sig_stateChanged, this, &ParametersDialog::updateControls,
            Qt::QueuedConnection);
    connect(session, &DeviceSession::sig_answersAgain, this, &ParametersDialog::readCalibration,
            Qt::QueuedConnection);
    connect(&halt->halt(), &Halt::sig_halted, this, &ParametersDialog::readCalibration,
            Qt::QueuedConnection);
    m_progress->hide();
    m_table->compare(m_subject.hand, m_subject.file);
    m_table->setFocus();
    resize(window->size() * 9 / 10);
}

ParametersDialog::~ParametersDialog() = default;

void ParametersDialog::addGroupBoxes(QBoxLayout* layout)
{
    const KindGroup kinds[] = {
        {tr("Gains"), "Gains", ParameterKind::P, ParameterKind::G},
        {tr("Current limits"), "CurrentLimits", ParameterKind::CurrentLimit,
         ParameterKind::CurrentLimit},
        {tr("Force limits"), "ForceLimits", ParameterKind::ForceLimit, ParameterKind::ForceLimit},
        {tr("Position limits"), "PositionLimits", ParameterKind::PositionLimits,
         ParameterKind::PositionLimits},
        {tr("Self-test level"), "SelfTestLevel", ParameterKind::SelfTestLevel,
         ParameterKind::SelfTestLevel},
        {tr("Beep switch"), "BeepSwitch", ParameterKind::BeepSwitch, ParameterKind::BeepSwitch},
    };
    auto* kindRow = new QHBoxLayout;
    kindRow->addWidget(new QLabel(tr("Kinds:"), this));
    for (const KindGroup& kind : kinds) {
        addGroup(kindRow, kind.text, QLatin1String(kind.name),
                 [first = kind.first, last = kind.last](const ParameterKey& key) {
                     return key.kind >= first && key.kind <= last;
                 });
    }
    kindRow->addStretch();
    auto* fingerRow = new QHBoxLayout;
    fingerRow->addWidget(new QLabel(tr("Fingers:"), this));
    for (std::uint8_t finger = 0; finger < FingerCount; ++finger) {
        // Position limits are ticked by their own boxes only.
        addGroup(fingerRow, ParameterNames::displayName(finger),
                 QStringLiteral("Finger%1").arg(finger), [finger](const ParameterKey& key) {
                     return key.finger == finger && describe(key.kind).tickedByDefault;
                 });
    }
    fingerRow->addStretch();
    m_copyGains = new QPushButton(tr("Copy Gains..."), this);
    m_copyGains->setObjectName(QStringLiteral("pushButton_CopyGains"));
    m_copyGains->setToolTip(tr("Uses the gains of one finger for others, too"));
    m_copyGains->setAutoDefault(false);
    connect(m_copyGains, &QPushButton::clicked, this,
            [this] { whenIdle([this] { copyGains(); }); });
    fingerRow->addWidget(m_copyGains);
    kindRow->addWidget(m_equalRows);
    layout->addLayout(kindRow);
    layout->addLayout(fingerRow);
}

void ParametersDialog::addGroup(QBoxLayout* layout, const QString& text, const QString& name,
                                const ParameterTable::Group& group)
{
    auto* box = new QCheckBox(text, this);
    box->setObjectName(QStringLiteral("checkBox_") + name);
    layout->addWidget(box);
    connect(box, &QCheckBox::clicked, this, [this, group] {
        m_table->tickGroup(group, m_table->groupState(group) != Qt::Checked);
    });
    m_groups.append({box, group});
}

void ParametersDialog::addButtons(QBoxLayout* layout)
{
    auto* buttons = new QDialogButtonBox(this);
    m_restore = buttons->addButton(tr("Restore"), QDialogButtonBox::ActionRole);
    m_restore->setObjectName(QStringLiteral("pushButton_Restore"));
    auto* copy = buttons->addButton(tr("Copy"), QDialogButtonBox::ActionRole);
    copy->setObjectName(QStringLiteral("pushButton_ParametersCopy"));
    m_close = buttons->addButton(QDialogButtonBox::Close);
    m_closeText = m_close->text();
    m_close->setObjectName(QStringLiteral("pushButton_ParametersClose"));
    // Return in the table must not write to the hand.
    for (QPushButton* button : {m_restore, copy, m_close})
        button->setAutoDefault(false);
    connect(m_restore, &QPushButton::clicked, this, &ParametersDialog::restore);
    connect(copy, &QPushButton::clicked, this, [this] {
        const QString state = m_state->text();
        QApplication::clipboard()->setText(
            m_table->toText() + (state.isEmpty() ? QString() : state + QLatin1Char('\n')));
    });
    connect(m_close, &QPushButton::clicked, this, &ParametersDialog::reject);
    layout->addWidget(buttons);
}

void ParametersDialog::whenIdle(std::function<void()> action)
{
    if (m_pending)
        return;
    m_pending = std::move(action);
    runPending();
}

void ParametersDialog::runPending()
{
    if (!Conversation::isActive()) {
        std::exchange(m_pending, {})();
        return;
    }
    // Queued, because the conversation that has just ended is still returning from its slot.
    connect(&ConversationMonitor::instance(), &ConversationMonitor::sig_idle, this,
            &ParametersDialog::runPending,
            static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

bool ParametersDialog::ask(const QString& question)
{
    return QMessageBox::warning(this, Program::title(), question,
                                QMessageBox::Yes | QMessageBox::No,
                                QMessageBox::No) == QMessageBox::Yes;
}

/// The same question for all that belongs to one hand, so it is asked until the answer is yes.
void ParametersDialog::askForConsent(const QList<ParameterKey>& keys)
{
    if (isRestoring())
        return;
    const bool isKnown =
        calibrationRule(m_subject.hand.hand, m_subject.file.hand) == CalibrationRule::SameHand;
    m_hasConsent =
        m_hasConsent ||
        (ask(tr("Calibration and position limits define where the fingers end. With wrong ones the "
                "fingers are driven into their stops and can be damaged.\n"
                "Restore those of the file?")) &&
         (isKnown ||
          ask(tr("The file or the hand has no unique id, so the file may be from another "
                 "hand. The calibrations of two hands are never the same.\n"
                 "Are you sure that the file is from this hand?"))));
    m_table->setTicked(keys, m_hasConsent && !isRestoring());
}

void ParametersDialog::copyGains()
{
    if (isRestoring())
        return;
    CopyGainsDialog dialog(this, m_subject.file);
    if (dialog.exec() != QDialog::Accepted || isRestoring())
        return;
    for (const std::uint8_t finger : dialog.targets())
        m_subject.file.copyGains(dialog.source(), finger);
    m_table->replaceFile(m_subject.file, dialog.targets());
}

void ParametersDialog::restore()
{
    const QList<ParameterKey> chosen = m_table->tickedKeys();
    if (isRestoring() || chosen.isEmpty() || !m_subject.target.isCurrent())
        return;
    const ParameterWriter::Options options{.writeCalibration =
                                               m_table->isTicked({ParameterKind::Calibration}),
                                           .writeUnknownLimits = m_hasConsent};
    m_writer = std::make_shared<ParameterWriter>(m_subject.target, m_subject.hand, m_subject.file,
                                                 chosen, options);
    m_runner = std::make_unique<HandTaskRunner>(m_session, m_writer);
    connect(m_runner.get(), &HandTaskRunner::sig_progress, this, &ParametersDialog::showProgress);
    // Queued, because the runner is still emitting.
    connect(m_runner.get(), &HandTaskRunner::sig_finished, this, &ParametersDialog::finishRestore,
            Qt::QueuedConnection);
    if (std::ranges::any_of(chosen, changesIdentity)) // a silent hand may have taken it already
        m_session->identity().calibration.reset();
    m_close->setText(tr("Cancel"));
    m_table->setTicksEnabled(false);
    m_progress->setValue(0);
    m_progress->show();
    showState(tr("Restoring..."));
    m_runner->start();
}

void ParametersDialog::showProgress(int done, int total)
{
    m_progress->setRange(0, total);
    m_progress->setValue(done);
    m_table->showResults(m_writer->results());
}

void ParametersDialog::finishRestore()
{
    using Result = WrittenParameter::Result;
    m_runner.reset();
    m_table->showResults(m_writer->results());
    bool changed = false;
    for (const WrittenParameter& result : m_writer->results()) {
        const bool tried = result.result != Result::NotTried;
        m_written = m_written || tried;
        changed = changed || (tried && changesIdentity(result.key));
        if (result.readBack)
            m_subject.hand.values[result.key] = *result.readBack;
    }
    const auto known = m_subject.hand.value({ParameterKind::Calibration});
    auto inHand = m_writer->limitsInHand();
    if (const auto calibration = m_writer->calibrationInHand())
        inHand[{ParameterKind::Calibration}] = fromCalibration(*calibration);
    else if (changed)
        m_isCalibrationUnknown = true;
    else if (known && m_subject.target.isCurrent())
        inHand[{ParameterKind::Calibration}] = *known;
    takeOver(inHand);
    m_progress->hide();
    m_close->setText(m_closeText);
    m_table->setTicksEnabled(true);
    QStringList parts{tr("Written: %1").arg(m_writer->count(Result::Written))};
    const std::pair<Result, QString> others[] = {{Result::Refused, tr("Refused: %1")},
                                                 {Result::NotKept, tr("Not kept: %1")},
                                                 {Result::NoAnswer, tr("No answer: %1")},
                                                 {Result::NotTried, tr("Not tried: %1")}};
    for (const auto& [result, text] : others)
        if (const int count = m_writer->count(result))
            parts.append(text.arg(count));
    showState((parts.join(QStringLiteral(", ")) + QStringLiteral(". ") + m_writer->outcomeText())
                  .trimmed());
    readCalibration();
}

/// The hand that is compared, if it is still open. A halt makes its first target stale.
std::optional<HandTarget> ParametersDialog::openHand() const
{
    auto target = m_session->target();
    if (target &&
        (target->adapter != m_subject.target.adapter || target->node != m_subject.target.node))
        target.reset();
    return target;
}

void ParametersDialog::takeOver(const std::map<ParameterKey, ParameterValue>& values)
{
    for (const auto& [key, value] : values)
        m_subject.hand.values[key] = value;
    m_table->showInHand(values);
    // The hand is recognized by its calibration.
    const auto calibration = values.find({ParameterKind::Calibration});
    if (calibration != values.end() && openHand())
        m_session->identity().calibration = toCalibration(calibration->second);
}

/// After a halt or a silence has cut the writing of the calibration, the hand may be readable again
/// later.
void ParametersDialog::readCalibration()
{
    const auto target = openHand();
    if (!m_isCalibrationUnknown || isRestoring() || m_readRunner || !target ||
        m_writer->outcome() == HandTask::Outcome::OtherHand)
        return;
    QList<ParameterKey> keys{{ParameterKind::Calibration}};
    for (const auto& entry : m_subject.hand.values)
        if (entry.first.kind == ParameterKind::PositionLimits)
            keys.append(entry.first);
    m_reader = std::make_shared<ParameterReader>(*target, ParameterReader::Options{.keys = keys});
    m_readRunner = std::make_unique<HandTaskRunner>(m_session, m_reader);
    // Queued, because the runner is still emitting.
    connect(m_readRunner.get(), &HandTaskRunner::sig_finished, this,
            &ParametersDialog::takeOverCalibration, Qt::QueuedConnection);
    m_readRunner->start();
}

void ParametersDialog::takeOverCalibration()
{
    m_readRunner.reset();
    const ParameterSet& now = m_reader->parameters();
    const bool isRead = m_reader->outcome() == HandTask::Outcome::Completed &&
                        now.value({ParameterKind::Calibration});
    if (!isRead) {
        showReading(tr("The calibration of the hand could not be read again."));
        return;
    }
    if (!m_writer->isSameHand(now)) {
        showReading(tr("Another hand may have answered."));
        return;
    }
    m_isCalibrationUnknown = false;
    m_isHandUncertain = !now.hand.uid;
    takeOver(now.values);
    // The consent was given to what the hand had before.
    m_hasConsent = false;
    QList<ParameterKey> keys = m_table->tickedKeys();
    keys.removeIf([](const ParameterKey& key) { return !changesIdentity(key); });
    m_table->setTicked(keys, false);
    showReading(tr("The calibration of the hand was read again."));
}

void ParametersDialog::showState(const QString& text)
{
    m_stateText = text;
    showReading({});
}

void ParametersDialog::showReading(const QString& text)
{
    m_readingText = text;
    updateControls();
}

/// Why nothing can be restored, empty if that is possible.
QString ParametersDialog::obstacle() const
{
    if (ParameterWriter::isAnyNode(m_subject.target))
        return tr("Node 255 is every hand on the bus. Open the hand at its own node to restore "
                  "its parameters.");
    if (m_isCalibrationUnknown)
        return tr("It is not known which calibration the hand has now, it may be incomplete. Close "
                  "this dialog and compare again.");
    if (!m_subject.target.isCurrent())
        return tr("The connection has changed. Close this dialog and compare again.");
    if (m_isHandUncertain)
        return tr("The hand has no unique id, so it may be another one now. Close this dialog and "
                  "compare again.");
    return {};
}

void ParametersDialog::updateControls()
{
    const QString reason = isRestoring() ? QString() : obstacle();
    m_restore->setEnabled(reason.isEmpty() && !isRestoring() && !m_table->tickedKeys().isEmpty());
    for (const GroupBox& group : m_groups) {
        group.box->setEnabled(!isRestoring() && m_table->hasTickable(group.group));
        const Qt::CheckState state = m_table->groupState(group.group);
        group.box->setTristate(state == Qt::PartiallyChecked);
        group.box->setCheckState(state);
    }
    m_copyGains->setEnabled(!isRestoring());
    QStringList parts{m_stateText, m_readingText, reason};
    parts.removeAll(QString());
    const QString text = parts.join(QLatin1Char(' '));
    m_state->setText(text);
    m_state->setAccessibleName(text);
}

void ParametersDialog::reject()
{
    if (isRestoring())
        m_runner->cancel();
    else
        QDialog::reject();
}

} // namespace vanto
