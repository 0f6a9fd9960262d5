#include "devicesession.h"
#include "testmain.h"

#include <QTest>

namespace vanto
{

using Change = RequestQueue::Kind;

/// The order in which the session runs requests and changes, without a window.
class TestSession : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void queuedWhileBusy();
    void orderOfChanges();
    void discardedRequests();
    void nothingRunsInsideAJob();
    void ticks();

private:
    void request(const QString& name, bool wanted = true);
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

void TestSession::request(const QString& name, bool wanted)
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

void TestSession::queuedWhileBusy()
{
    {
        const LineHold outer;
        request("a");
        {
            const LineHold inner;
            change(Change::ReloadBasic, "reload");
        }
        m_node = 8;
        request("b");
        QCoreApplication::processEvents();
        QCOMPARE(m_done, QStringList());
    }
    request("c"); // runs after those that are queued already
    QCOMPARE(m_done, QStringList());
    QTRY_COMPARE(m_done, (QStringList{"a7", "reload", "b8", "c8"}));
}

/// Only the last change of a kind runs, and a scan runs after other changes of the connection.
void TestSession::orderOfChanges()
{
    using enum RequestQueue::Kind;
    const std::pair<QList<Change>, QStringList> rows[] = {
        {{ChangeDevice, Update, ReloadBasic, ChangeDevice, ReloadBasic}, {"3", "1", "4"}},
        {{ChangeDevice, Scan, ChangeDevice, ReloadBasic, Update, ChangePort, RefreshPorts},
         {"6", "5", "4", "1", "3"}}};
    for (const auto& [changes, order] : rows) {
        m_done.clear();
        {
            const LineHold line;
            for (int i = 0; i < changes.size(); ++i)
                change(changes[i], QString::number(i));
        }
        QTRY_COMPARE(m_done, order);
    }
}

void TestSession::discardedRequests()
{
    {
        const LineHold line;
        request("disabled meanwhile", false);
        request("for the old device");
        m_session->stopAtOnce();
        m_session->setAdapter(VantoProtocol::getProtocolInstance(PROTOCOL_TYPE_SERIALCTRL, 3, 0));
        request("new");
    }
    QTRY_COMPARE(m_done, QStringList{"new7"});
    m_session->stopAtOnce();
    request("after the stop");
    m_session->setAdapter(VantoProtocol::getProtocolInstance(PROTOCOL_TYPE_SERIALCTRL, 3, 0));
    m_node.reset();
    request("no device");
    QCoreApplication::processEvents();
    QCOMPARE(m_done, QStringList{"new7"});
}

void TestSession::nothingRunsInsideAJob()
{
    m_session->runWhenIdle(Change::Scan, [this] {
        request("queued");
        QCoreApplication::processEvents(); // like a dialog of this job
        m_done.append("scan");
    });
    QTRY_COMPARE(m_done, (QStringList{"scan", "queued7"}));
}

void TestSession::ticks()
{
    QVERIFY(m_session->canTick());
    {
        const LineHold line;
        QVERIFY(!m_session->canTick());
        request("a");
        QVERIFY(m_session->hasWaitingJobs());
    }
    QVERIFY(!m_session->canTick()); // user requests precede ticks
    QTRY_VERIFY(m_session->canTick());
    m_session->runWhenIdle(Change::About, [this] {
        request("b");
        QVERIFY(m_session->canTick()); // timers continue under a dialog
    });
}

VANTO_TEST(TestSession)

} // namespace vanto

#include "tst_session.moc"
