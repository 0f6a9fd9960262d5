#include "connectionview.h"

#include "calltext.h"
#include "deviceentry.h"
#include "haltcontrol.h"
#include "statusreporter.h"

#include <QLabel>
#include <QStyle>

namespace vanto
{

namespace
{
using State = DeviceSession::State;

QHash<State, QString> stateNames()
{
    return {{State::NotConnected, ConnectionView::tr("Not connected")},
            {State::Scanning, ConnectionView::tr("Scanning")},
            {State::Connected, ConnectionView::tr("Connected")},
            {State::NoAnswer, ConnectionView::tr("No answer")},
            {State::PortLost, ConnectionView::tr("Port lost")},
            {State::NoHandChosen, ConnectionView::tr("No hand chosen")}};
}

/// A long text would make the row too wide.
QString onTwoLines(QString text)
{
    text.replace(QLatin1String(". "), QLatin1String(".\n"));
    text.replace(QStringLiteral("\u3002"), QStringLiteral("\u3002\n")); // the full stop of CJK
    return text.trimmed();
}

/// The look of a state in the style sheets.
const char* lookOf(State state)
{
    switch (state) {
    case State::Scanning:
        return "busy";
    case State::Connected:
        return "good";
    case State::NoAnswer:
        return "warning";
    case State::PortLost:
        return "bad";
    case State::NotConnected:
    case State::NoHandChosen:
        break;
    }
    return "idle";
}
} // namespace

ConnectionView::ConnectionView(QLabel* icon, QLabel* state, QLabel* nextStep,
                               DeviceSession* session)
    : QObject(state),
      m_icon(icon),
      m_state(state),
      m_nextStep(nextStep),
      m_session(session),
      m_names(stateNames())
{
    // As wide for every state, so that the row stays as it is.
    for (const QString& name : m_names)
        m_state->setMinimumWidth(
            std::max(m_state->minimumWidth(), m_state->fontMetrics().horizontalAdvance(name)));
    connect(session, &DeviceSession::sig_stateChanged, this, &ConnectionView::update);
    update();
}

void ConnectionView::reportTo(StatusReporter* reporter)
{
    m_reporter = reporter;
    // Queued, so that the message follows that of the operation which has shown it.
    connect(m_session, &DeviceSession::sig_portLost, this, &ConnectionView::reportPortLost,
            Qt::QueuedConnection);
    connect(
        m_session, &DeviceSession::sig_noAnswer, this,
        [this] { m_reporter->showError(tr("The hand does not answer. Check its power.")); },
        Qt::QueuedConnection);
    connect(
        m_session, &DeviceSession::sig_answersAgain, this,
        [this] { m_reporter->showMessage(tr("The hand answers again")); }, Qt::QueuedConnection);
    connect(m_session, &DeviceSession::sig_otherHand, this, &ConnectionView::reportOtherHand,
            Qt::QueuedConnection);
}

void ConnectionView::setHalt(const Halt* halt)
{
    m_halt = halt;
    connect(halt, &Halt::sig_stateChanged, this, &ConnectionView::update);
}

void ConnectionView::reportPortLost()
{
    m_reporter->showError(CallText::portLost());
}

void ConnectionView::reportNotOpened(const QString& cause)
{
    m_reporter->showError(tr("The port cannot be opened again. %1").arg(cause.simplified()));
}

void ConnectionView::reportWaiting()
{
    m_reporter->showError(tr("The port is back. The hand does not answer yet."));
}

void ConnectionView::reportReconnected()
{
    m_reporter->showMessage(tr("Reconnected"));
}

void ConnectionView::reportOtherHand(const QString& description)
{
    m_reporter->showError(
        tr("Another hand answers (%1). It has not been opened.").arg(description));
}

QString ConnectionView::anyNodeHint()
{
    return tr("Every hand answers to node 255 over SerialCtrl.\n"
              "With several hands on the bus, all of them act and their replies collide.");
}

QString ConnectionView::toolTip(State state) const
{
    switch (state) {
    case State::NotConnected:
        return tr("Choose a port and click Scan.");
    case State::Scanning:
        return tr("Hands that answer are added to the devices. Stop ends the scan.");
    case State::Connected: {
        const auto hand = m_session->target();
        const bool anyNode = hand && hand->node == AnyNode &&
                             hand->adapter->protocolType() == PROTOCOL_TYPE_SERIALCTRL;
        return anyNode ? anyNodeHint() : tr("The hand is ready.");
    }
    case State::NoAnswer:
        return tr("Check the hand's power and its side of the cable.\n"
                  "It is asked once a second until it answers.");
    case State::PortLost:
        if (!m_session->lostHand() || !canComeBack(m_session->port()))
            return tr("Connect the adapter again, choose its port and click Scan.");
        return tr("Connect the adapter again. It is looked for once a second.\n"
                  "Reload on the Basic page tries to open the port at once.");
    case State::NoHandChosen:
        return tr("Scan again, or open the node in the Options menu.");
    }
    return {};
}

void ConnectionView::update()
{
    const State state = m_session->state();
    const QString tip = toolTip(state);
    const bool usable = state == State::Connected || state == State::Scanning;
    m_nextStep->setText(usable ? QString() : tip.section(QLatin1Char('\n'), 0, 0));
    const Halt::State halt = m_halt ? m_halt->state() : Halt::State::Ready;
    const bool halted = halt == Halt::State::Halted;
    if (halt == Halt::State::Ready || (halted && state != State::Connected))
        show(m_names.value(state), tip, lookOf(state));
    else
        show(onTwoLines(HaltControl::stateText(halt)), halted ? tr("Continue ends a halt.") : tip,
             "bad");
}

void ConnectionView::show(const QString& text, const QString& tip, const char* look)
{
    m_state->setText(text);
    m_state->setAccessibleName(tr("Connection: %1").arg(text));
    m_state->setAccessibleDescription(tip);
    for (QLabel* label : {m_icon, m_state}) {
        label->setToolTip(tip);
        if (label->property("look") == QLatin1String(look))
            continue;
        label->setProperty("look", QLatin1String(look));
        label->style()->unpolish(label); // the style sheet depends on the property
        label->style()->polish(label);
    }
}

} // namespace vanto
