#include "devicesession.h"
#include "testmain.h"

#include <QTest>

namespace vanto
{

using Change = RequestQueue::Kind;

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
    m_session->request([wanted] { return wanted; },
                       [this, name](const HandTarget& target) {
                           const LineHold line;
                           m_done.append(name + QString::number(target.node));
                       });
}

void TestSession::change(Change kind, const QString& name)
{
    m_session->runWhenIdle(kind, [this, name] { m_done.append(name); });
}

void TestSession::busyWaitsInOrder()
{
    {
        const LineHold outer;
        ask("a");
        {
            const LineHold inner;
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
        const LineHold line;
        change(Change::ChangeDevice, "device 1");
        change(Change::Update, "update");
        change(Change::ReloadBasic, "reload 1");
        change(Change::ChangeDevice, "device 2");
        change(Change::ReloadBasic, "reload 2");
    }
    QTRY_COMPARE(m_done, (QStringList{"device 2", "update", "reload 2"}));
}

void TestSession::scanComesLast()
{
    {
        const LineHold line;
        change(Change::ChangeDevice, "device");
        change(Change::Scan, "scan");
        change(Change::ChangeDevice, "device");
        change(Change::ReloadBasic, "reload");
        change(Change::Update, "update");
        change(Change::ChangePort, "port");
        change(Change::RefreshPorts, "refresh");
    }
    QTRY_COMPARE(m_done, (QStringList{"refresh", "port", "update", "scan", "reload"}));
}

void TestSession::droppedRequests()
{
    {
        const LineHold line;
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
    m_session->runWhenIdle(Change::Scan, [this] {
        ask("waits");
        QCoreApplication::processEvents(); // as a dialog of this job would
        m_done.append("scan");
    });
    QTRY_COMPARE(m_done, (QStringList{"scan", "waits7"}));
}

void TestSession::ticks()
{
    QVERIFY(m_session->canTick());
    {
        const LineHold line;
        QVERIFY(!m_session->canTick());
        ask("a");
        QVERIFY(m_session->requestWaits());
    }
    QVERIFY(!m_session->canTick()); // the person comes first
    QTRY_VERIFY(m_session->canTick());
    m_session->runWhenIdle(Change::About, [this] {
        ask("b");
        QVERIFY(m_session->canTick()); // timers go on under a dialog
    });
}

VANTO_TEST(TestSession)

} // namespace vanto

#include "tst_session.moc"
