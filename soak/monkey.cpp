#include "monkey.h"

#include "messagelog.h"
#include "monitor.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>

#include <array>
#include <numeric>

namespace vanto
{

namespace
{
constexpr int MaxPauseMs = 120;
constexpr int CheckIntervalMs = 100;
constexpr int PhaseMs = 6000;
constexpr int SettleMs = 3000; ///< until requests from before a quiet phase are finished
constexpr int MaxNesting = 4;
constexpr int DisconnectedMs = 700;
constexpr int ReconnectionMs = 2000; ///< two searches of the window
constexpr int StuckMs = 60'000;      ///< without an action; includes the time of an update
constexpr int CloseRetryMs = 200;
constexpr int MinHaltMs = 750; ///< an earlier click on Continue halts once more
constexpr int MaxHaltMs = 2000;

/// Whether the button of this name can move a finger.
bool isMotionButton(const QString& name)
{
    for (const char* prefix :
         {"pushButton_RunSetPos", "pushButton_SeqInsert", "pushButton_SeqRun", "pushButton_SeqUp",
          "pushButton_SeqDown", "pushButton_BasicRecalibrate"})
        if (name.startsWith(QLatin1String(prefix)))
            return true;
    return false;
}

QString dialogText(const QWidget* dialog)
{
    if (const auto* box = qobject_cast<const QMessageBox*>(dialog))
        return box->text();
    if (const auto* progress = qobject_cast<const QProgressDialog*>(dialog))
        return progress->labelText();
    return dialog ? dialog->windowTitle() : QString();
}
} // namespace

const std::vector<Monkey::Action>& Monkey::actionTable()
{
    static const std::vector<Action> actions{
        {"click", 20, false, false, &Monkey::clickRandomButton},
        {"click that moves", 14, true, false, &Monkey::clickMotionButton},
        {"page", 14, false, false, &Monkey::changePage},
        {"key", 10, false, false, &Monkey::pressKey},
        {"type", 10, false, false, &Monkey::enterRandomText},
        {"slider", 12, true, false, &Monkey::dragSlider},
        {"choice", 5, false, false, &Monkey::changeComboBox},
        {"device", 3, false, true, &Monkey::changeDevice},
        {"port", 1, false, true, &Monkey::changePort},
        {"connect", 4, false, true, &Monkey::reconnect},
        {"row", 8, true, false, &Monkey::selectRow},
        {"stop", 5, false, false, &Monkey::stopSequence},
        {"halt", 3, false, false, &Monkey::pressHalt},
        {"menu", 2, false, false, &Monkey::triggerAction},
        {"parameters", 10, false, false, &Monkey::useParameters},
        {"fault", 25, false, false, &Monkey::injectFault},
        {"cable", 1, false, false, &Monkey::interruptConnection},
    };
    return actions;
}

Monkey::Monkey(HandProcess& hand, Monitor& monitor, std::uint32_t seed)
    : m_hand(hand),
      m_monitor(monitor),
      m_random(seed),
      m_driver({hand.portName()}),
      m_dialogs([this](QDialog& dialog) {
          // Queued: an answer can open the next dialog, and would block the timer of DialogWatch.
          if (!qobject_cast<QProgressDialog*>(&dialog))
              QTimer::singleShot(0, &dialog, [this, &dialog] { answerDialog(&dialog); });
      })
{
}

void Monkey::start(int seconds)
{
    startTimer(CheckIntervalMs);
    m_stuckMs = std::min(StuckMs, 1000 * seconds / 2);
    m_sinceAction.start();
    connect(m_driver.window()->findChild<MessageLog*>(), &MessageLog::sig_added, this,
            [this](const QString& line) {
                if (line.endsWith(QLatin1String("Reconnected")))
                    ++m_counts[QStringLiteral("reconnection")];
            });
    QTimer::singleShot(seconds * 1000, this, [this] { closeWindow(); });
    reconnect();
    scheduleAction();
    changePhase();
}

/// Retries, as the window does not close while it writes firmware.
void Monkey::closeWindow()
{
    m_closing = true;
    if (!m_driver.window()->close())
        QTimer::singleShot(CloseRetryMs, this, [this] { closeWindow(); });
}

/// Each action first schedules the next one, as it can wait for the hand in an event loop.
void Monkey::scheduleAction()
{
    if (m_closing)
        return;
    QTimer::singleShot(randomBelow(MaxPauseMs), this, [this] {
        scheduleAction();
        if (m_nesting >= MaxNesting || QApplication::activeModalWidget())
            return;
        const auto& actions = actionTable();
        int choice = randomBelow(
            std::accumulate(actions.begin(), actions.end(), 0,
                            [](int sum, const Action& action) { return sum + action.weight; }));
        auto chosen = std::find_if(actions.begin(), actions.end(), [&choice](const Action& action) {
            return (choice -= action.weight) < 0;
        });
        if ((m_quiet && chosen->movesFinger) || (chosen->changesConnection && !m_left.hasExpired()))
            return;
        if (m_driver.devices()->count() == 0 && randomBelow(3) == 0)
            chosen = std::find_if(actions.begin(), actions.end(), [](const Action& action) {
                return action.run == &Monkey::reconnect;
            });
        m_sinceAction.start();
        ++m_actions;
        ++m_counts[QLatin1String(chosen->name)];
        ++m_nesting;
        (this->*chosen->run)();
        --m_nesting;
    });
}

void Monkey::changePhase()
{
    m_quiet = ++m_phase % 2 == 0;
    if (m_quiet) {
        m_monitor.allowHalt(false);
        stopSequence();
        if (auto* pages = m_driver.find<QTabWidget>("tabWidget"); pages->isEnabled())
            pages->setCurrentIndex(0); // clears the queue of the Run page
        QTimer::singleShot(SettleMs, this, [this] {
            stopSequence();
            m_monitor.beginQuietPhase();
        });
        QTimer::singleShot(SettleMs + PhaseMs, this, [this] {
            m_monitor.endQuietPhase();
            changePhase();
        });
    } else {
        QTimer::singleShot(PhaseMs, this, [this] {
            m_monitor.checkTrace();
            changePhase();
        });
    }
}

/// Checks whether the window still accepts actions.
void Monkey::timerEvent(QTimerEvent*)
{
    if (!m_sinceAction.hasExpired(m_stuckMs))
        return;
    m_sinceAction.start();
    const QWidget* modal = QApplication::activeModalWidget();
    m_monitor.addFinding(
        QStringLiteral("no action is possible; %1 actions are waiting, %2 is open with '%3'")
            .arg(m_nesting)
            .arg(QLatin1String(modal ? modal->metaObject()->className() : "no dialog"),
                 dialogText(modal)));
}

void Monkey::answerDialog(QDialog* dialog)
{
    ++m_counts[QStringLiteral("dialog")];
    if (auto* box = qobject_cast<QMessageBox*>(dialog)) {
        if (auto* button = randomItem(box->buttons())) {
            if (button->objectName() == QLatin1String("pushButton_DialogHalt"))
                noteHalt();
            button->click();
        }
        return;
    }
    if (dialog->objectName() == QLatin1String("taskDialog")) {
        if (randomBelow(8) == 0)
            dialog->reject();
        return;
    }
    if (dialog->objectName() == QLatin1String("parametersDialog")) {
        answerParametersDialog(dialog);
        return;
    }
    if (answerNodeDialog(dialog))
        return;
    if (auto* input = qobject_cast<QInputDialog*>(dialog)) {
        if (input->inputMode() == QInputDialog::IntInput)
            input->setIntValue(1 + randomBelow(3));
        else if (const QStringList items = input->comboBoxItems(); !items.isEmpty())
            input->setTextValue(items[randomBelow(static_cast<int>(items.size()))]);
        else
            input->setTextValue(randomBelow(2) == 0 ? QStringLiteral("1A2B") : randomText());
    } else if (auto* spin = dialog->findChild<QSpinBox*>()) {
        for (int i = m_quiet ? 3 : 0; i < 3; ++i)
            randomBelow(2) == 0 ? spin->stepUp() : spin->stepDown();
    }
    const auto* files = qobject_cast<QFileDialog*>(dialog);
    if (randomBelow(4) == 0)
        dialog->reject();
    else if (files)
        chooseFile(*dialog, fileFor(*files));
    else
        dialog->accept();
}

/// Enters a node or a range, right or wrong. Returns false if the dialog asks for something else.
bool Monkey::answerNodeDialog(QDialog* dialog)
{
    if (auto* node = dialog->findChild<QLineEdit*>(QStringLiteral("lineEdit_Node"))) {
        node->setText(randomBelow(2) == 0 ? QString::number(1 + randomBelow(2)) : randomText());
        selectRandomItem(dialog->findChild<QComboBox*>(QStringLiteral("comboBox_Protocol")));
    } else if (auto* first = dialog->findChild<QSpinBox*>(QStringLiteral("spinBox_FirstNode"))) {
        // At least one of the hands is in the range, if there is a range.
        first->setValue(1 + randomBelow(2));
        auto* last = dialog->findChild<QSpinBox*>(QStringLiteral("spinBox_LastNode"));
        last->setValue(1 + randomBelow(randomBelow(2) == 0 ? 3 : 255));
    } else {
        return false;
    }
    if (randomBelow(4) != 0)
        dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    if (dialog->isVisible()) // a wrong entry does not close it
        dialog->reject();
    return true;
}

QString Monkey::randomText()
{
    static const QStringList texts{QString(),
                                   QStringLiteral("0"),
                                   QStringLiteral("255"),
                                   QStringLiteral("-1"),
                                   QStringLiteral("70000"),
                                   QStringLiteral("1e9"),
                                   QStringLiteral("nan"),
                                   QStringLiteral("99999999999"),
                                   QStringLiteral("120.5"),
                                   QStringLiteral("x"),
                                   QStringLiteral("0x10"),
                                   QStringLiteral("\u0663")};
    return texts[randomBelow(static_cast<int>(texts.size()))];
}

QString Monkey::randomSequenceFile()
{
    const QDir examples(QStringLiteral(VANTO_EXAMPLES));
    const QStringList files = examples.entryList(QDir::Files);
    return examples.absoluteFilePath(files.value(randomBelow(static_cast<int>(files.size()))));
}

void Monkey::clickRandomButton()
{
    auto* button = randomItem(m_driver.window()->findChildren<QPushButton*>());
    if (button && button->isVisible() && !isMotionButton(button->objectName()) &&
        button->objectName() != QLatin1String("pushButton_Halt"))
        button->click();
}

void Monkey::clickMotionButton()
{
    auto* button = randomItem(m_driver.window()->findChildren<QPushButton*>());
    if (button && button->isVisible() && isMotionButton(button->objectName()))
        button->click();
}

void Monkey::changePage()
{
    auto* pages = m_driver.find<QTabWidget>("tabWidget");
    const int page = randomBelow(pages->count());
    if (pages->isEnabled() && pages->isTabVisible(page))
        pages->setCurrentIndex(page);
}

/// Excludes the keys that select a row or move a finger during a quiet phase.
void Monkey::pressKey()
{
    constexpr std::array quietKeys{Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_1,
                                   Qt::Key_Escape, Qt::Key_Pause,   Qt::Key_F2};
    constexpr std::array motionKeys{Qt::Key_Up,     Qt::Key_Down,  Qt::Key_Return,
                                    Qt::Key_PageUp, Qt::Key_Space, Qt::Key_Home};
    QWidget* focus = m_driver.window()->focusWidget();
    if (!focus)
        return;
    const bool move = !m_quiet && randomBelow(2) == 0;
    const Qt::Key key = move ? motionKeys[static_cast<std::size_t>(randomBelow(motionKeys.size()))]
                             : quietKeys[static_cast<std::size_t>(randomBelow(quietKeys.size()))];
    if (key == Qt::Key_Escape || key == Qt::Key_Pause)
        noteHalt();
    const QPointer<QWidget> target(focus);
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        if (target)
            QApplication::sendEvent(target, &event);
    }
}

void Monkey::enterRandomText()
{
    auto* field = randomItem(m_driver.window()->findChildren<QLineEdit*>());
    if (!field || !field->isVisible() || !field->isEnabled() || field->isReadOnly())
        return;
    field->setFocus();
    field->setText(randomText());
}

void Monkey::dragSlider()
{
    const QPointer<QSlider> slider = randomItem(m_driver.window()->findChildren<QSlider*>());
    if (!slider || !slider->isVisible() || !slider->isEnabled())
        return;
    slider->setSliderDown(true);
    for (int i = 0; i < 3; ++i)
        slider->setSliderPosition(slider->minimum() +
                                  randomBelow(slider->maximum() - slider->minimum() + 1));
    if (randomBelow(4) != 0)
        slider->setSliderDown(false);
    else // keeps the slider pressed for a while
        QTimer::singleShot(randomBelow(300), slider, [slider] { slider->setSliderDown(false); });
}

void Monkey::selectRandomItem(QComboBox* box)
{
    if (box->isEnabled() && box->count() > 0)
        box->setCurrentIndex(randomBelow(box->count()));
}

void Monkey::changeComboBox()
{
    auto* page = m_driver.find<QTabWidget>("tabWidget")->currentWidget();
    if (auto* box = randomItem(page->findChildren<QComboBox*>()))
        selectRandomItem(box);
}

void Monkey::changeDevice()
{
    selectRandomItem(m_driver.devices());
}

void Monkey::changePort()
{
    selectRandomItem(m_driver.ports());
}

/// Reconnects as a user does: selects the port, scans, stops the scan.
void Monkey::reconnect()
{
    if (!m_driver.ports()->isEnabled())
        return;
    m_driver.click("pushButton_RefreshPorts");
    m_driver.choosePort(m_hand.portName());
    auto* scan = m_driver.find<QPushButton>("pushButton_ScanDevices");
    QTimer::singleShot(700, scan, [this, scan, idle = scan->text()] {
        if (scan->text() != idle)
            m_driver.click(scan->objectName());
    });
    m_driver.click(scan->objectName());
}

void Monkey::selectRow()
{
    auto* table = m_driver.find<QTableWidget>("tableWidget_Seq");
    if (!table->isVisible() || !table->isEnabled())
        return;
    if (table->rowCount() == 0)
        m_driver.click("pushButton_SeqLoad");
    else
        table->setCurrentCell(randomBelow(table->rowCount()), 0);
}

void Monkey::stopSequence()
{
    m_driver.click("pushButton_SeqStop");
}

/// Halts, and continues later, so that most actions find a hand that moves.
void Monkey::pressHalt()
{
    noteHalt();
    m_driver.click("pushButton_Halt");
}

/// The frames of a halt are allowed in a quiet phase once a halt has been pressed in it.
void Monkey::noteHalt()
{
    m_monitor.allowHalt(true);
    QTimer::singleShot(MinHaltMs + randomBelow(MaxHaltMs - MinHaltMs), this, [this] {
        m_monitor.allowHalt(true); // a halt that has taken long gets one more
        m_driver.click("pushButton_Halt");
    });
}

void Monkey::triggerAction()
{
    constexpr std::array names{"action_Theme", "action_About", "action_Messages",
                               "action_Open_Node", "action_Scan_Range"};
    m_driver.trigger(QLatin1String(names[static_cast<std::size_t>(randomBelow(names.size()))]));
}

/// Arms a fault for one of the next ten requests. In total it affects one request in ten.
void Monkey::injectFault()
{
    static const QStringList faults{QStringLiteral("drop"),        QStringLiteral("late"),
                                    QStringLiteral("garble"),      QStringLiteral("truncate"),
                                    QStringLiteral("wrong-node"),  QStringLiteral("wrong-command"),
                                    QStringLiteral("over-long"),   QStringLiteral("short"),
                                    QStringLiteral("noise"),       QStringLiteral("garbage"),
                                    QStringLiteral("refuse"),      QStringLiteral("refuse-bare"),
                                    QStringLiteral("wrong-finger")};
    m_hand.command(QStringLiteral("fault %1 skip=%2")
                       .arg(faults[randomBelow(static_cast<int>(faults.size()))])
                       .arg(randomBelow(10)));
}

/// Half of the time the port is left to the window, which looks for it by itself.
void Monkey::interruptConnection()
{
    const bool hang = randomBelow(2) == 0;
    const bool isLeft = !hang && randomBelow(2) == 0;
    if (isLeft)
        m_left.setRemainingTime(DisconnectedMs + ReconnectionMs);
    m_hand.command(hang ? QStringLiteral("hang") : QStringLiteral("unplug"));
    QTimer::singleShot(DisconnectedMs, this, [this, hang, isLeft] {
        m_hand.command(hang ? QStringLiteral("hang off") : QStringLiteral("replug"));
        m_hand.command(QStringLiteral("clear"));
        if (!hang && !isLeft)
            reconnect();
    });
}

} // namespace vanto
