#include "monkey.h"

#include "watch.h"

#include <QApplication>
#include <QComboBox>
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

#include <numeric>

namespace vanto
{

namespace
{
constexpr int LongestPauseMs = 120;
constexpr int LookMs = 100;
constexpr int PhaseMs = 6000;
constexpr int SettleMs = 3000; ///< until what was asked for before a still phase has been done
constexpr int DeepestNesting = 4;
constexpr int PulledMs = 700;
constexpr int StuckMs = 60'000; ///< without a chance to do anything; an update takes some of it
constexpr int EndAgainMs = 200;

/// Buttons that may move a finger, by the beginnings of their names.
bool movesFingers(const QString& name)
{
    for (const char* moving :
         {"pushButton_RunSetPos", "pushButton_SeqInsert", "pushButton_SeqRun", "pushButton_SeqUp",
          "pushButton_SeqDown", "pushButton_BasicRecalibrate"})
        if (name.startsWith(QLatin1String(moving)))
            return true;
    return false;
}

QString textOf(const QWidget* dialog)
{
    if (const auto* box = qobject_cast<const QMessageBox*>(dialog))
        return box->text();
    if (const auto* progress = qobject_cast<const QProgressDialog*>(dialog))
        return progress->labelText();
    return dialog ? dialog->windowTitle() : QString();
}
} // namespace

const std::vector<Monkey::Action>& Monkey::table()
{
    static const std::vector<Action> actions{
        {"click", 20, false, &Monkey::clickAnything},
        {"click that moves", 14, true, &Monkey::clickMoving},
        {"page", 14, false, &Monkey::changePage},
        {"key", 10, false, &Monkey::pressKey},
        {"type", 10, false, &Monkey::typeSomething},
        {"slider", 12, true, &Monkey::dragSlider},
        {"choice", 5, false, &Monkey::chooseItem},
        {"device", 3, false, &Monkey::changeDevice},
        {"port", 1, false, &Monkey::changePort},
        {"connect", 4, false, &Monkey::connectAgain},
        {"row", 8, true, &Monkey::selectRow},
        {"stop", 5, false, &Monkey::stopPlay},
        {"menu", 2, false, &Monkey::triggerAction},
        {"fault", 25, false, &Monkey::harmHand},
        {"cable", 1, false, &Monkey::pullCable},
    };
    return actions;
}

Monkey::Monkey(HandProcess& hand, Watch& watch, quint32 seed)
    : m_hand(hand),
      m_watch(watch),
      m_random(seed),
      m_tool({hand.portName()}),
      m_dialogs([this](QDialog& dialog) {
          // Not from here: an answer may open the next dialog, and this timer is held up until it
          // returns.
          if (!qobject_cast<QProgressDialog*>(&dialog))
              QTimer::singleShot(0, &dialog, [this, &dialog] { answer(&dialog); });
      })
{
}

void Monkey::start(int seconds)
{
    startTimer(LookMs);
    m_stuckMs = std::min(StuckMs, 1000 * seconds / 2);
    m_sinceAction.start();
    QTimer::singleShot(seconds * 1000, this, [this] { end(); });
    connectAgain();
    next();
    changePhase();
}

/// The window does not close while firmware is being written.
void Monkey::end()
{
    m_ends = true;
    if (!m_tool.window()->close())
        QTimer::singleShot(EndAgainMs, this, [this] { end(); });
}

/// Scheduled before each action, so that the monkey goes on while the action waits for the hand.
void Monkey::next()
{
    if (m_ends)
        return;
    QTimer::singleShot(below(LongestPauseMs), this, [this] {
        next();
        if (m_depth >= DeepestNesting || QApplication::activeModalWidget())
            return;
        const auto& actions = table();
        int ticket = below(
            std::accumulate(actions.begin(), actions.end(), 0,
                            [](int sum, const Action& action) { return sum + action.weight; }));
        auto chosen = std::find_if(actions.begin(), actions.end(), [&ticket](const Action& action) {
            return (ticket -= action.weight) < 0;
        });
        if (m_still && chosen->moves)
            return;
        if (m_tool.devices()->count() == 0 && below(3) == 0)
            chosen = std::find_if(actions.begin(), actions.end(), [](const Action& action) {
                return action.run == &Monkey::connectAgain;
            });
        m_sinceAction.start();
        ++m_actions;
        ++m_counts[QLatin1String(chosen->name)];
        ++m_depth;
        (this->*chosen->run)();
        --m_depth;
    });
}

void Monkey::changePhase()
{
    m_still = ++m_phase % 2 == 0;
    if (m_still) {
        stopPlay();
        if (auto* pages = m_tool.find<QTabWidget>("tabWidget"); pages->isEnabled())
            pages->setCurrentIndex(0); // the Run page forgets its queue
        QTimer::singleShot(SettleMs, this, [this] {
            stopPlay();
            m_watch.beginStillness();
        });
        QTimer::singleShot(SettleMs + PhaseMs, this, [this] {
            m_watch.endStillness();
            changePhase();
        });
    } else {
        QTimer::singleShot(PhaseMs, this, [this] {
            m_watch.lookAtWire();
            changePhase();
        });
    }
}

/// Looks whether the monkey is stuck.
void Monkey::timerEvent(QTimerEvent*)
{
    if (!m_sinceAction.hasExpired(m_stuckMs))
        return;
    m_sinceAction.start();
    const QWidget* modal = QApplication::activeModalWidget();
    m_watch.find(QStringLiteral("nobody can do anything; %1 actions wait, %2 is open with '%3'")
                     .arg(m_depth)
                     .arg(QLatin1String(modal ? modal->metaObject()->className() : "no dialog"),
                          textOf(modal)));
}

void Monkey::answer(QDialog* dialog)
{
    ++m_counts[QStringLiteral("dialog")];
    if (auto* box = qobject_cast<QMessageBox*>(dialog)) {
        if (auto* button = any(box->buttons()))
            button->click();
        return;
    }
    if (auto* input = qobject_cast<QInputDialog*>(dialog)) {
        if (input->inputMode() == QInputDialog::IntInput)
            input->setIntValue(1 + below(3));
        else if (const QStringList items = input->comboBoxItems(); !items.isEmpty())
            input->setTextValue(items[below(static_cast<int>(items.size()))]);
        else
            input->setTextValue(below(2) == 0 ? QStringLiteral("1A2B") : anyText());
    } else if (auto* spin = dialog->findChild<QSpinBox*>()) {
        for (int i = m_still ? 3 : 0; i < 3; ++i)
            below(2) == 0 ? spin->stepUp() : spin->stepDown();
    }
    const auto* files = qobject_cast<QFileDialog*>(dialog);
    if (below(4) == 0)
        dialog->reject();
    else if (files)
        chooseFile(*dialog, files->acceptMode() == QFileDialog::AcceptOpen
                                ? anySequenceFile()
                                : QDir::current().absoluteFilePath(QStringLiteral("saved.json")));
    else
        dialog->accept();
}

QString Monkey::anyText()
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
    return texts[below(static_cast<int>(texts.size()))];
}

QString Monkey::anySequenceFile()
{
    const QDir examples(QStringLiteral(VANTO_EXAMPLES));
    const QStringList files = examples.entryList(QDir::Files);
    return examples.absoluteFilePath(files.value(below(static_cast<int>(files.size()))));
}

void Monkey::clickAnything()
{
    auto* button = any(m_tool.window()->findChildren<QPushButton*>());
    if (button && button->isVisible() && !movesFingers(button->objectName()))
        button->click();
}

void Monkey::clickMoving()
{
    auto* button = any(m_tool.window()->findChildren<QPushButton*>());
    if (button && button->isVisible() && movesFingers(button->objectName()))
        button->click();
}

void Monkey::changePage()
{
    auto* pages = m_tool.find<QTabWidget>("tabWidget");
    const int page = below(pages->count());
    if (pages->isEnabled() && pages->isTabVisible(page))
        pages->setCurrentIndex(page);
}

/// Not the keys that select a row or move a finger when nothing may move.
void Monkey::pressKey()
{
    constexpr std::array still{Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_1, Qt::Key_Escape, Qt::Key_F2};
    constexpr std::array moving{Qt::Key_Up,     Qt::Key_Down,  Qt::Key_Return,
                                Qt::Key_PageUp, Qt::Key_Space, Qt::Key_Home};
    QWidget* focus = m_tool.window()->focusWidget();
    if (!focus)
        return;
    const bool move = !m_still && below(2) == 0;
    const Qt::Key key = move ? moving[static_cast<std::size_t>(below(moving.size()))]
                             : still[static_cast<std::size_t>(below(still.size()))];
    const QPointer<QWidget> target(focus);
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        if (target)
            QApplication::sendEvent(target, &event);
    }
}

void Monkey::typeSomething()
{
    auto* field = any(m_tool.window()->findChildren<QLineEdit*>());
    if (!field || !field->isVisible() || !field->isEnabled() || field->isReadOnly())
        return;
    field->setFocus();
    field->setText(anyText());
}

void Monkey::dragSlider()
{
    const QPointer<QSlider> slider = any(m_tool.window()->findChildren<QSlider*>());
    if (!slider || !slider->isVisible() || !slider->isEnabled())
        return;
    slider->setSliderDown(true);
    for (int i = 0; i < 3; ++i)
        slider->setSliderPosition(slider->minimum() +
                                  below(slider->maximum() - slider->minimum() + 1));
    if (below(4) != 0)
        slider->setSliderDown(false);
    else // held on to for a while
        QTimer::singleShot(below(300), slider, [slider] { slider->setSliderDown(false); });
}

void Monkey::chooseIn(QComboBox* box)
{
    if (box->isEnabled() && box->count() > 0)
        box->setCurrentIndex(below(box->count()));
}

void Monkey::chooseItem()
{
    auto* page = m_tool.find<QTabWidget>("tabWidget")->currentWidget();
    if (auto* box = any(page->findChildren<QComboBox*>()))
        chooseIn(box);
}

void Monkey::changeDevice()
{
    chooseIn(m_tool.devices());
}

void Monkey::changePort()
{
    chooseIn(m_tool.ports());
}

/// What a person does who wants to go on working: the port, a scan, a stop.
void Monkey::connectAgain()
{
    if (!m_tool.ports()->isEnabled())
        return;
    m_tool.click("pushButton_RefreshPorts");
    m_tool.choosePort(m_hand.portName());
    auto* scan = m_tool.find<QPushButton>("pushButton_ScanDevices");
    QTimer::singleShot(700, scan, [this, scan, idle = scan->text()] {
        if (scan->text() != idle)
            m_tool.click(scan->objectName());
    });
    m_tool.click(scan->objectName());
}

void Monkey::selectRow()
{
    auto* table = m_tool.find<QTableWidget>("tableWidget_Seq");
    if (!table->isVisible() || !table->isEnabled())
        return;
    if (table->rowCount() == 0)
        m_tool.click("pushButton_SeqLoad");
    else
        table->setCurrentCell(below(table->rowCount()), 0);
}

void Monkey::stopPlay()
{
    m_tool.click("pushButton_SeqStop");
}

void Monkey::triggerAction()
{
    const QString names[] = {QStringLiteral("action_Theme"), QStringLiteral("action_About"),
                             QStringLiteral("action_Messages")};
    m_tool.trigger(names[below(3)]);
}

/// One fault for some request soon; on the whole one request in ten meets one.
void Monkey::harmHand()
{
    static const QStringList faults{QStringLiteral("drop"),        QStringLiteral("late"),
                                    QStringLiteral("garble"),      QStringLiteral("truncate"),
                                    QStringLiteral("wrong-node"),  QStringLiteral("wrong-command"),
                                    QStringLiteral("over-long"),   QStringLiteral("short"),
                                    QStringLiteral("noise"),       QStringLiteral("garbage"),
                                    QStringLiteral("refuse"),      QStringLiteral("refuse-bare"),
                                    QStringLiteral("wrong-finger")};
    m_hand.command(QStringLiteral("fault %1 skip=%2")
                       .arg(faults[below(static_cast<int>(faults.size()))])
                       .arg(below(10)));
}

void Monkey::pullCable()
{
    const bool hang = below(2) == 0;
    m_hand.command(hang ? QStringLiteral("hang") : QStringLiteral("unplug"));
    QTimer::singleShot(PulledMs, this, [this, hang] {
        m_hand.command(hang ? QStringLiteral("hang off") : QStringLiteral("replug"));
        m_hand.command(QStringLiteral("clear"));
        if (!hang)
            connectAgain();
    });
}

} // namespace vanto
