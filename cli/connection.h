#pragma once

#include "answer.h"
#include "command.h"
#include "halt.h"

#include <set>
#include <vector>

namespace vanto
{

/// The hand that the commands work with. It is opened by the first command that needs it.
class Connection : public QObject, private CallReport
{
    Q_OBJECT
public:
    /// The member of the answer that says whether a halt was confirmed.
    static constexpr QLatin1String HaltedMember = QLatin1String("halted");

    explicit Connection(const GeneralOptions& options);
    ~Connection() override;

    /// Receives the failures from now on.
    void reportTo(Answer* answer) { m_answer = answer; }

    /// The name of the port. None if it cannot be chosen; that has been reported.
    std::optional<QString> portName();
    /// Opens the port if it is not open, and finds out the protocol unless it was given. Returns
    /// false if it has reported a failure.
    bool open();
    bool isOpen() const { return m_session.isConnected(); }
    QString openPortName() const { return m_session.port().name; }
    /// Whether something can be sent through the open port; otherwise it has reported why not.
    bool isReady();
    /// Releases the port, for what opens it by itself.
    void close() { m_session.closeIfConnected(); }
    void reportPortLost();
    /// Reports that the port cannot be opened.
    void reportNotOpened(const QString& port, PROTOCOL_TYPE protocol);

    /// The node of the following commands. Another hand, so what is halted stays that.
    void setNode(std::uint8_t node) { m_node = node; }
    std::uint8_t node() const { return m_node; }
    /// The hand has got a new id.
    void followNode(std::uint8_t node);
    /// Stale after a signal, and if the port is lost. It has an adapter once open() has succeeded.
    HandTarget target() const;
    HandCall call() { return {target(), *this}; }
    CallReport& report() { return *this; }
    Generation::Token token() const { return target().token; }

    /// Motions, and proceed(), fail with this reason until it is empty again.
    void refuseMotions(const QString& reason);
    /// A motion of the present node is about to be sent.
    void noteMotion();
    /// The fingers of the present node have arrived.
    void noteArrival() { m_moved.erase(m_node); }
    bool hasMoved() const { return !m_moved.empty(); }

    /// Halts the present hand. Returns whether all fingers are known to stand; otherwise it has
    /// reported why not.
    bool halt();
    /// Halts each hand that has been moved.
    bool haltMoved();
    /// Whether a halt has begun and is not confirmed.
    bool isHalting() const;
    /// Sends nothing more; a halt in progress goes on.
    void stop();
    /// Ends the command that runs after its present exchange; a halt in progress goes on.
    void interrupt();
    /// Allows motions again after a halt.
    bool proceed();

    /// What the result code of a failed operation means.
    static ExitStatus failureStatus(const HandTarget& target, std::uint8_t result);

signals:
    /// Everything that sends must stop now.
    void sig_stopped();

private:
    enum class Opening { Answered, Silent, Failed };

    bool isUsable(PROTOCOL_TYPE protocol) const;
    Opening openWith(PROTOCOL_TYPE protocol, const QString& port, bool ask);
    Opening askHand();
    bool isAnswering();
    bool isModbus() const;
    bool haltNodes(std::vector<std::uint8_t> nodes);
    bool isRefusing();
    bool awaitHalt(const std::vector<std::uint8_t>& nodes, bool any);

    bool reportTimeout(const HandTarget& target) override;
    void reportFailure(const HandTarget& target, std::string_view operation, std::uint8_t result,
                       std::uint8_t subError) override;
    void reportHalted() override;

    const GeneralOptions& m_options;
    Answer* m_answer = nullptr;
    std::uint8_t m_node = 0;
    DeviceSession m_session;
    Halt m_halt;
    std::shared_ptr<VantoProtocol> m_adapter; ///< with which the port was opened last
    bool m_unreachable = false;               ///< the halt could not be sent
    QString m_refusal;                        ///< why motions are refused
    std::set<std::uint8_t> m_moved;
    std::set<std::uint8_t> m_answered; ///< nodes that have answered to the protocol found out
};

} // namespace vanto
