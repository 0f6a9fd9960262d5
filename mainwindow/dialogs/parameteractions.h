#pragma once

#include "handtask.h"
#include "parameterset.h"

#include <QObject>

class QAction;
class QWidget;

namespace vanto
{

class DeviceBar;
class DeviceSession;
class StatusReporter;

/// Saves, compares, restores and shows what a hand stores, for the File menu.
class ParameterActions : public QObject
{
    Q_OBJECT
public:
    struct Actions {
        QAction* save;
        QAction* restore;
        QAction* information;
    };

    /// `pages` are disabled during long work, in which the actions are not available.
    ParameterActions(QWidget* window, DeviceSession* session, StatusReporter* reporter,
                     DeviceBar* deviceBar, QWidget* pages, Actions actions);

    /// `isPlaying` says whether a sequence plays; call update() when that may have changed.
    void setPlaying(std::function<bool()> isPlaying) { m_isPlaying = std::move(isPlaying); }
    /// Enables the actions that are usable in the current state.
    void update();

    void save();
    void compare();
    /// The same with this file.
    void compareWith(const QString& path);
    void showInformation();

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    /// The file given to compareWith() is about to be shown.
    void sig_givenFileCompared();

private:
    bool isAvailable() const;
    void request(std::function<void(const HandTarget&)> run);
    /// Reads everything while a dialog shows the progress; none if that has failed.
    std::optional<ParameterSet> read(const HandTarget& target,
                                     const std::shared_ptr<HandTask>& first = {});
    void saveOf(const HandTarget& target);
    void compareOf(const HandTarget& target, QString path);
    void showInformationOf(const HandTarget& target);
    void showFailure(const QString& text, const QString& details = {});

    QWidget* m_window;
    DeviceSession* m_session;
    StatusReporter* m_reporter;
    DeviceBar* m_deviceBar;
    QWidget* m_pages;
    Actions m_actions;
    std::function<bool()> m_isPlaying;
};

} // namespace vanto
