#pragma once

#include "parametertable.h"

#include "devicesession.h"
#include "handtaskrunner.h"
#include "parameterreader.h"

#include <QDialog>

#include <functional>
#include <memory>

class QBoxLayout;
class QCheckBox;
class QDialogButtonBox;
class QLabel;
class QProgressBar;

namespace vanto
{

class HaltControl;

/// Compares the parameters of the open hand with those of a file and restores the ticked ones.
class ParametersDialog : public QDialog
{
    Q_OBJECT
public:
    /// What is compared. `hand` has been read from `target`.
    struct Subject {
        HandTarget target;
        ParameterSet hand;
        ParameterSet file;
        QString fileName;
    };

    ParametersDialog(QWidget* window, DeviceSession* session, HaltControl* halt, Subject subject);
    ~ParametersDialog() override;

    /// Whether anything has been sent to the hand that may have changed it.
    bool hasWritten() const { return m_written; }

    /// During a restore, ends it after the present row and keeps the dialog open.
    void reject() override;

private:
    /// A check box for all rows of a kind or of a finger.
    struct GroupBox {
        QCheckBox* box;
        ParameterTable::Group group;
    };

    void addGroupBoxes(QBoxLayout* layout);
    void addGroup(QBoxLayout* layout, const QString& text, const QString& name,
                  const ParameterTable::Group& group);
    void addButtons(QBoxLayout* layout);
    /// Runs an action that shows a dialog, when no exchange is in progress.
    void whenIdle(std::function<void()> action);
    void runPending();
    bool ask(const QString& question);
    void askForConsent(const QList<ParameterKey>& keys);
    void copyGains();
    void restore();
    void showProgress(int done, int total);
    void finishRestore();
    std::optional<HandTarget> openHand() const;
    /// Follows what the writer or the reader has found in the hand.
    void takeOver(const std::map<ParameterKey, ParameterValue>& values);
    void readCalibration();
    void takeOverCalibration();
    void showState(const QString& text);
    /// Shows the result of reading the calibration again.
    void showReading(const QString& text);
    QString obstacle() const;
    void updateControls();
    bool isRestoring() const { return m_runner != nullptr; }

    DeviceSession* m_session;
    Subject m_subject;
    ParameterTable* m_table;
    QList<GroupBox> m_groups;
    QCheckBox* m_equalRows;
    QPushButton* m_copyGains = nullptr;
    QPushButton* m_restore = nullptr;
    QPushButton* m_close = nullptr; ///< Cancel during a restore
    QString m_closeText;
    QLabel* m_state;
    QProgressBar* m_progress;
    std::shared_ptr<ParameterWriter> m_writer;
    std::unique_ptr<HandTaskRunner> m_runner; ///< of the restore in progress
    std::shared_ptr<ParameterReader> m_reader;
    std::unique_ptr<HandTaskRunner> m_readRunner; ///< of the reading after a failure
    std::function<void()> m_pending;              ///< waits until no exchange is in progress
    QString m_stateText;
    QString m_readingText;
    bool m_written = false;
    bool m_hasConsent = false;           ///< to restore what belongs to one hand
    bool m_isCalibrationUnknown = false; ///< it was written, but could not be read back
    bool m_isHandUncertain = false;      ///< it was silent and has no UID
};

} // namespace vanto
