#include "haltcontrol.h"

#include "statusreporter.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QStyle>

namespace vanto
{

namespace
{
/// A second click in a hurry must not continue.
constexpr int SettleMs = 700;

/// The look of the button in the style sheets.
const char* lookOf(Halt::State state)
{
    switch (state) {
    case Halt::State::Halted:
        return "continue";
    case Halt::State::NotConfirmed:
    case Halt::State::SentToAll:
        return "alarm";
    case Halt::State::Ready:
    case Halt::State::Halting:
        break;
    }
    return "halt";
}

void setLook(QPushButton* button, const char* look)
{
    if (button->property("look") == QLatin1String(look))
        return;
    button->setProperty("look", QLatin1String(look));
    button->style()->unpolish(button); // the style sheet depends on the property
    button->style()->polish(button);
}
} // namespace

HaltControl::HaltControl(QPushButton* button, DeviceSession* session, StatusReporter* reporter,
                         Halt::ListedNodes listedNodes)
    : QObject(button),
      m_button(button),
      m_reporter(reporter),
      m_halt(session, std::move(listedNodes))
{
    // At the press, not at the release. The focus stays where the user works: a Space that was
    // meant for another control must not continue.
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QPushButton::pressed, this, &HaltControl::press);
    connect(button, &QPushButton::clicked, this, &HaltControl::click);
    connect(&m_halt, &Halt::sig_stateChanged, this, &HaltControl::update);
    connect(&m_halt, &Halt::sig_unreachable, this,
            [this] { m_reporter->showError(Halt::unreachableText()); });
    connect(&m_halt, &Halt::sig_continued, this,
            [this] { m_reporter->showMessage(tr("Continued")); });
    connect(&m_halt, &Halt::sig_notContinued, this, [this] {
        m_reporter->showError(tr("The hand does not answer. Press Continue again."));
    });
    qApp->installEventFilter(this);
    update();
}

QString HaltControl::stateText(Halt::State state)
{
    return Halt::stateText(state);
}

void HaltControl::addTo(QDialogButtonBox* buttons)
{
    const QString name = QStringLiteral("pushButton_DialogHalt");
    if (buttons->findChild<QPushButton*>(name))
        return; // the dialog is shown again
    auto* button = buttons->addButton(tr("Halt"), QDialogButtonBox::ActionRole);
    button->setObjectName(name);
    button->setToolTip(m_button->toolTip());
    button->setFocusPolicy(Qt::TabFocus);
    button->setAutoDefault(false);
    setLook(button, "halt");
    connect(button, &QPushButton::pressed, &m_halt, &Halt::press);
}

void HaltControl::press()
{
    m_pressHalts = m_halt.state() != Halt::State::Halted || !m_sinceHalted.hasExpired(SettleMs);
    if (m_pressHalts)
        m_halt.press();
}

void HaltControl::click()
{
    if (!m_pressHalts)
        m_halt.proceed();
}

void HaltControl::update()
{
    const Halt::State state = m_halt.state();
    const bool halted = state == Halt::State::Halted;
    const bool alarm = state == Halt::State::NotConfirmed || state == Halt::State::SentToAll;
    m_button->setEnabled(m_halt.isAvailable());
    m_button->setText(halted ? tr("Continue") : alarm ? tr("Halt not\nconfirmed") : tr("Halt"));
    m_button->setToolTip(halted ? tr("The fingers are held. Continue allows motions again.")
                                : tr("Stops all fingers at once (Esc, Pause, Shift+Esc)"));
    m_button->setAccessibleName(alarm ? stateText(state) : m_button->text());
    m_button->setAccessibleDescription(m_button->toolTip());
    setLook(m_button, lookOf(state));
    if (m_shown != state) {
        m_shown = state;
        report();
    }
}

void HaltControl::report()
{
    const QString text = stateText(m_shown);
    if (m_shown == Halt::State::NotConfirmed || m_shown == Halt::State::SentToAll)
        m_reporter->showError(text);
    if (m_shown == Halt::State::Halted)
        m_sinceHalted.start();
}

bool HaltControl::isHaltKey(const QKeyEvent& event) const
{
    if (event.key() == Qt::Key_Pause)
        return true;
    if (event.key() != Qt::Key_Escape)
        return false;
    if (event.modifiers() == Qt::ShiftModifier)
        return true;
    const QWidget* active = QApplication::activeWindow();
    return event.modifiers() == Qt::NoModifier && !QApplication::activePopupWidget() &&
           !QApplication::activeModalWidget() && (!active || active == m_button->window());
}

bool HaltControl::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !m_halt.isAvailable())
        return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (!isHaltKey(key))
        return false;
    if (!key.isAutoRepeat())
        m_halt.press();
    return true;
}

} // namespace vanto
