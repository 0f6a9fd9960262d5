#pragma once

#include "dialogwatch.h"
#include "handprocess.h"
#include "windowdriver.h"

#include <QElapsedTimer>
#include <QRandomGenerator>

#include <map>

class QDialog;

namespace vanto
{

class Watch;

/// Does at random what people do to the window, and to the cable. The same seed gives the same
/// choices; how they meet with the answers of the hand differs from run to run.
///
/// Phases alternate: in one everything is done, in the other nothing that moves a finger, and then
/// the wire must carry no motion once what was under way has ended.
class Monkey : public QObject
{
public:
    Monkey(HandProcess& hand, Watch& watch, quint32 seed);

    /// Goes on for so long in the event loop, then exit().
    void start(int seconds);
    int actions() const { return m_actions; }
    /// How often each kind of action was taken.
    const std::map<QString, int>& counts() const { return m_counts; }

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    struct Action {
        const char* name;
        int weight;
        bool moves; ///< may move a finger
        void (Monkey::*run)();
    };
    static const std::vector<Action>& table();

    int below(int limit) { return static_cast<int>(m_random.bounded(limit)); }
    template<class T>
    T* any(const QList<T*>& from)
    {
        return from.isEmpty() ? nullptr : from[below(static_cast<int>(from.size()))];
    }

    void next();
    void end();
    void changePhase();
    void answer(QDialog* dialog);
    QString anyText();
    QString anySequenceFile();

    void clickAnything();
    void clickMoving();
    void changePage();
    void pressKey();
    void typeSomething();
    void dragSlider();
    void chooseIn(QComboBox* box);
    void chooseItem();
    void changeDevice();
    void changePort();
    void connectAgain();
    void selectRow();
    void stopPlay();
    void triggerAction();
    void harmHand();
    void pullCable();

    HandProcess& m_hand;
    Watch& m_watch;
    QRandomGenerator m_random;
    WindowDriver m_tool;
    DialogWatch m_dialogs;
    QElapsedTimer m_sinceAction;
    int m_stuckMs = 0;
    bool m_still = false;
    bool m_ends = false;
    int m_depth = 0; ///< actions on the stack: each may wait in an event loop of its own
    int m_phase = 0;
    int m_actions = 0;
    std::map<QString, int> m_counts;
};

} // namespace vanto
