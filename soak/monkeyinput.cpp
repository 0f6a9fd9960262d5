// How the monkey uses buttons, keys, fields, sliders and menus.

#include "monitor.h"
#include "monkey.h"

#include <QApplication>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSlider>
#include <QTabWidget>
#include <QTimer>

#include <array>

namespace vanto
{

namespace
{
constexpr int MinHaltMs = 750; ///< an earlier click on Continue halts once more
constexpr int MaxHaltMs = 2000;

/// Whether the button of this name can move a finger.
bool isMotionButton(const QString& name)
{
    for (const char* prefix :
         {"pushButton_RunSetPos", "pushButton_SeqInsert", "pushButton_SeqRun", "pushButton_SeqUp",
          "pushButton_SeqDown", "pushButton_SeqDelete", "pushButton_BasicRecalibrate"})
        if (name.startsWith(QLatin1String(prefix)))
            return true;
    return false;
}
} // namespace

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

/// The buttons of a file dialog would save into the folder that was used last.
void Monkey::clickRandomButton()
{
    auto* button = randomItem(m_driver.window()->findChildren<QPushButton*>());
    if (button && button->isVisible() && !isMotionButton(button->objectName()) &&
        button->objectName() != QLatin1String("pushButton_Halt") &&
        !qobject_cast<QFileDialog*>(button->window()))
        clickButton(*button);
}

/// A dialog can have a button for the halt.
void Monkey::clickButton(QPushButton& button)
{
    if (button.objectName() == QLatin1String("pushButton_DialogHalt"))
        noteHalt();
    button.click();
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
        QTimer::singleShot(randomBelow(300), slider,
                           [pressed = slider.data()] { pressed->setSliderDown(false); });
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
    constexpr std::array names{"action_Theme",     "action_About",      "action_Messages",
                               "action_Open_Node", "action_Scan_Range", "action_Monitor"};
    m_driver.trigger(QLatin1String(names[static_cast<std::size_t>(randomBelow(names.size()))]));
}

} // namespace vanto
