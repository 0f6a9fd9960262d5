#include "conversation.h"
#include "devicesession.h"
#include "testmain.h"

#include <QTest>

using Change = DeviceSession::Change;

/// The doors of the session and the order behind them, without a window.
class TestSession : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void busyWaitsInOrder();
    void lastOfAKindWins();
    void scanComesLast();
    void droppedRequests();
    void nothingRunsInsideAJob();
    void ticks();

private:
    void ask(const QString& name, bool wanted = true);
    void change(Change kind, const QString& name);

    std::optional<std::uint8_t> m_node;
    std::unique_ptr<DeviceSession> m_session;
    QStringList m_done;
};

void TestSession::init()
{
    m_node = 7;
    m_session = std::make_unique<DeviceSession>([this] { return m_node; });
    m_session->setAdapter(VantoProtocol::getProtocolInstance(PROTOCOL_TYPE_SERIALCTRL, 3, 0));
    m_done.clear();
}

void TestSession::ask(const QString& name, bool wanted)
{
    m_session->ask([wanted] { return wanted; },
                   [this, name](const DeviceSession::Target& target) {
                       const Conversation conversation;
                       m_done.append(name + QString::number(target.node));
                   });
}

void TestSession::change(Change kind, const QString& name)
{
    m_session->whenQuiet(kind, [this, name] { m_done.append(name); });
}

void TestSession::busyWaitsInOrder()
{
    {
        const Conversation outer;
        ask("a");
        {
            const Conversation inner;
            change(Change::ReloadBasic, "reload");
        }
        m_node = 8;
        ask("b");
        QCoreApplication::processEvents();
        QCOMPARE(m_done, QStringList());
    }
    ask("c"); // comes after those that wait already
    QCOMPARE(m_done, QStringList());
    QTRY_COMPARE(m_done, (QStringList{"a7", "reload", "b8", "c8"}));
}

void TestSession::lastOfAKindWins()
{
    {
        const Conversation conversation;
        change(Change::Device, "device 1");
        change(Change::Update, "update");
        change(Change::ReloadBasic, "reload 1");
        change(Change::Device, "device 2");
        change(Change::ReloadBasic, "reload 2");
    }
    QTRY_COMPARE(m_done, (QStringList{"device 2", "update", "reload 2"}));
}

void TestSession::scanComesLast()
{
    {
        const Conversation conversation;
        change(Change::Device, "device");
        change(Change::Scan, "scan");
        change(Change::Device, "device");
        change(Change::ReloadBasic, "reload");
        change(Change::Update, "update");
        change(Change::Port, "port");
        change(Change::RefreshPorts, "refresh");
    }
    QTRY_COMPARE(m_done, (QStringList{"refresh", "port", "update", "scan", "reload"}));
}

void TestSession::droppedRequests()
{
    {
        const Conversation conversation;
        ask("disabled meanwhile", false);
        ask("for the old device");
        m_session->stopAtOnce();
        m_session->setAdapter(VantoProtocol::getProtocolInstance(PROTOCOL_TYPE_SERIALCTRL, 3, 0));
        ask("new");
    }
    QTRY_COMPARE(m_done, QStringList{"new7"});
    m_node.reset();
    ask("nobody there");
    QCoreApplication::processEvents();
    QCOMPARE(m_done, QStringList{"new7"});
}

void TestSession::nothingRunsInsideAJob()
{
    m_session->whenQuiet(Change::Scan, [this] {
        ask("waits");
        QCoreApplication::processEvents(); // as a dialog of this job would
        m_done.append("scan");
    });
    QTRY_COMPARE(m_done, (QStringList{"scan", "waits7"}));
}

void TestSession::ticks()
{
    QVERIFY(m_session->tickMayRun());
    {
        const Conversation conversation;
        QVERIFY(!m_session->tickMayRun());
        ask("a");
        QVERIFY(m_session->requestWaits());
    }
    QVERIFY(!m_session->tickMayRun()); // the person comes first
    QTRY_VERIFY(m_session->tickMayRun());
    m_session->whenQuiet(Change::About, [this] {
        ask("b");
        QVERIFY(m_session->tickMayRun()); // timers go on under a dialog
    });
}

VANTO_TEST(TestSession)
#include "tst_session.moc"
