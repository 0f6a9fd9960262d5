#include "handtest.h"

#include <QTimer>

namespace vanto
{

namespace
{
/// The texts in the Devices list for the nodes among the options of a hand.
QStringList deviceTexts(const QStringList& options)
{
    QStringList texts;
    for (qsizetype i = options.indexOf("--node"); i >= 0; i = options.indexOf("--node", i + 1)) {
        const QStringList parts = options[i + 1].split(':');
        texts.append(QString("0x%1 (%2)")
                         .arg(parts[0].toInt(), 2, 16, QChar('0'))
                         .arg(parts.value(1) == "modbus" ? "ModBus-RTU V1.4.7, Protocol V1.0"
                                                         : "SerialCtrl V1.4.7, Protocol V3.0"));
    }
    return texts;
}
} // namespace

void HandTest::open(const QStringList& options, int hands)
{
    m_hand = std::make_unique<HandProcess>();
    QVERIFY2(m_hand->start(options), qPrintable(m_hand->errorText()));
    ReplyLimits::current() = PatientLimits;
    m_tool = std::make_unique<TestWindow>(QStringList{m_hand->portName()});
    m_listed = deviceTexts(options).first(hands);
    listAgain();
    ReplyLimits::current() = m_limits;
}

void HandTest::clearRecords()
{
    m_hand->clearTrace();
    m_tool->clearShownTexts();
}

void HandTest::close()
{
    if (m_hand)
        for (const TracedFrame& frame : m_hand->trace())
            QVERIFY2(!frame.marks.contains("overlap"), frame.bytes.toHex().constData());
    m_tool.reset();
    m_hand.reset();
    m_limits = PatientLimits;
}

void HandTest::expectTimeouts(int milliseconds)
{
    m_limits = {milliseconds, 3 * milliseconds, milliseconds, milliseconds};
    if (m_tool)
        ReplyLimits::current() = m_limits;
}

void HandTest::duringExchange(std::function<void()> act) const
{
    auto* timer = new QTimer(m_tool->window());
    connect(timer, &QTimer::timeout, timer, [timer, act = std::move(act)] {
        if (!Exchange::active())
            return;
        timer->stop();
        timer->deleteLater();
        act();
    });
    timer->start(1);
}

void HandTest::command(const QString& line) const
{
    const QString answer = m_hand->command(line);
    QVERIFY2(answer.startsWith("ok"), qPrintable(answer));
}

} // namespace vanto
