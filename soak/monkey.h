#pragma once

#include "dialogwatch.h"
#include "handprocess.h"
#include "windowdriver.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QRandomGenerator>

#include <cstdint>
#include <map>

class QDialog;
class QFileDialog;
class QPushButton;

namespace vanto
{

class Monitor;

/// Where the monkey saves the parameters of a hand, in the current folder.
constexpr QLatin1String ParameterFileName("hand.json");

/// Uses the window at random and interrupts the connection. The same seed makes the same choices,
/// but their timing relative to the replies of the hand varies.
///
/// Two phases alternate: one with all actions, and a quiet one without actions that move a finger.
/// Once pending requests are finished, a quiet phase must not send any motion.
class Monkey : public QObject
{
public:
    Monkey(HandProcess& hand, Monitor& monitor, std::uint32_t seed);

    /// Performs actions for `seconds`, then closes the window.
    void start(int seconds);
    /// Lets the monitor read as fast as possible in the phases with all actions.
    void stream() { m_streams = true; }
    int actions() const { return m_actions; }
    /// The number of actions of each kind.
    const std::map<QString, int>& counts() const { return m_counts; }

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    struct Action {
        const char* name;
        int weight;
        bool movesFinger;
        bool changesConnection;
        void (Monkey::*run)();
    };
    static const std::vector<Action>& actionTable();

    int randomBelow(int limit) { return static_cast<int>(m_random.bounded(limit)); }
    template<class T>
    T* randomItem(const QList<T*>& from)
    {
        return from.isEmpty() ? nullptr : from[randomBelow(static_cast<int>(from.size()))];
    }

    void scheduleAction();
    void closeWindow();
    void changePhase();
    void beginQuietPhase();
    void answerDialog(QDialog* dialog);
    bool answerNodeDialog(QDialog* dialog);
    void answerParametersDialog(QDialog* dialog);
    void restoreParameters(QDialog* dialog);
    int unusedNode();
    void useModelessDialog();
    QString fileFor(const QFileDialog& dialog);
    QString recordingFor(bool opens);
    QString randomText();
    QString randomSequenceFile();
    void leaveDrafts();

    void clickButton(QPushButton& button);
    void clickRandomButton();
    void clickMotionButton();
    void changePage();
    void pressKey();
    void enterRandomText();
    void dragSlider();
    void selectRandomItem(QComboBox* box);
    void changeComboBox();
    void changeDevice();
    void changePort();
    void reconnect();
    void selectRow();
    void stopSequence();
    void pressHalt();
    void noteHalt();
    void triggerAction();
    void useParameters();
    void editSequence();
    void insertBefore();
    void typeTarget();
    void changeRepetition();
    void useMonitor();
    void setStreaming(bool isFast);
    void injectFault();
    void interruptConnection();
    void silenceHands();

    HandProcess& m_hand;
    Monitor& m_monitor;
    QRandomGenerator m_random;
    WindowDriver m_driver;
    DialogWatch m_dialogs;
    QElapsedTimer m_sinceAction;
    QString m_scanText; ///< of the button while no scan runs
    int m_stuckMs = 0;
    QDeadlineTimer m_left; ///< until then the connection is left to the window
    bool m_streams = false;
    bool m_quiet = false;
    bool m_wasIdle = false; ///< the line, at the last check before a quiet phase
    bool m_closing = false;
    int m_nesting = 0; ///< actions on the stack, each possibly in a nested event loop
    int m_phase = 0;
    QDeadlineTimer m_settling; ///< the longest time until a quiet phase begins
    int m_requestsAtFault = 0; ///< received by the hands when a fault was armed last
    int m_actions = 0;
    std::map<QString, int> m_counts;
};

} // namespace vanto
