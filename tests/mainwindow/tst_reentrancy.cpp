#include "handtest.h"
#include "testmain.h"

#include <QTimer>

namespace vanto
{

/// User actions while an exchange waits for its reply, in the real window. The hands at nodes 2 and
/// 3 answer late, which leaves time for the action.
class TestReentrancy : public HandTest
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void clicksAreQueued();
    void reloadKeepsFocus();
    void deviceChangedDuringReload();
    void leavingDuringReload_data();
    void leavingDuringReload();
    void closingIsImmediate_data();
    void closingIsImmediate();

private:
    static constexpr int ReplyMs = 25;
};

void TestReentrancy::init()
{
    expectTimeouts();
    open({"--node", "2", "--node", "3"}, 2);
    command(QString("fault late count=0 ms=%1").arg(ReplyMs));
    clearRecords();
}

void TestReentrancy::cleanup()
{
    for (const QString& text : shown())
        QVERIFY2(!text.contains("Timeout"), qPrintable(text));
    close();
}

void TestReentrancy::clicksAreQueued()
{
    auto* level = m_tool->find<QComboBox>("comboBox_BasicSelfTestLevel");
    duringExchange([&] {
        level->setCurrentIndex(1);
        m_tool->click("pushButton_BasicSetSelfTestLevel");
        level->setCurrentIndex(2);
        m_tool->click("pushButton_BasicReset");
        m_tool->click("pushButton_BasicBeep");
        QTRY_COMPARE(addressed(), QStringList{"02:62"});
    });
    m_tool->click("pushButton_BasicBeep");
    QTRY_COMPARE(addressed(), (QStringList{"02:62", "02:60", "02:40", "02:62"}));
    QCOMPARE(m_hand->requests()[1].bytes.sliced(6, 1).toHex(), QByteArray("01"));
    QTRY_COMPARE(shown(), (QStringList{"Beep succeeded", "Set self-test level succeeded",
                                       "Reset succeeded", "Beep succeeded"}));
}

void TestReentrancy::reloadKeepsFocus()
{
    // A reload disables its own button; the focus must not move to another control.
    auto* reload = m_tool->find<QPushButton>("pushButton_BasicReloadBasic");
    reload->setFocus();
    reload->click();
    QCOMPARE(m_tool->window()->focusWidget(), reload);
}

void TestReentrancy::deviceChangedDuringReload()
{
    duringExchange([&] {
        m_tool->find<QPushButton>("pushButton_BasicBeep")->setEnabled(true);
        m_tool->click("pushButton_BasicBeep"); // for node 2, so the change discards it
        m_tool->devices()->setCurrentIndex(1);
        m_tool->find<QPushButton>("pushButton_BasicReset")->setEnabled(true);
        m_tool->click("pushButton_BasicReset"); // node 3 is not open yet
        QTRY_COMPARE(addressed(), QStringList{"02:01"});
    });
    m_tool->click("pushButton_BasicReloadBasic");
    QTRY_COMPARE(shown(),
                 (QStringList{"Basic info loaded", "Setting loaded", "Running info loaded"}));
    QCOMPARE(addressed().first(8).join(' '), "02:01 03:08 03:01 03:00 03:02 03:20 03:21 03:03");
    for (const QString& request : addressed().sliced(1))
        QVERIFY2(request.startsWith("03:"), qPrintable(request));
    QVERIFY(m_tool->enabled("pushButton_BasicBeep"));
    m_tool->click("pushButton_BasicBeep");
    QCOMPARE(addressed().constLast(), "03:62");
}

void TestReentrancy::leavingDuringReload_data()
{
    addTextRows({"change", "reply"}, {{"refresh", "late ms=25 count=0"},
                                      {"other port", "late ms=25 count=0"},
                                      {"refresh", "drop count=0"}});
}

void TestReentrancy::leavingDuringReload()
{
    QFETCH(QString, change);
    QFETCH(QString, reply);
    command("clear");
    command("fault " + reply);
    auto* ports = m_tool->ports();
    if (ports->count() < 2)
        ports->addItem("another (port)", "another");
    duringExchange([&] {
        change == "refresh" ? m_tool->click("pushButton_RefreshPorts")
                            : ports->setCurrentIndex(ports->currentIndex() == 0 ? 1 : 0);
    });
    m_tool->click("pushButton_BasicReloadBasic");
    QTRY_COMPARE(m_tool->devices()->count(), 0);
    QCOMPARE(addressed(), QStringList{"02:01"});
    QCOMPARE(m_tool->field("lineEdit_BasicFirmwareVersion"), QString());
    QVERIFY(!m_tool->enabled("pushButton_BasicBeep"));
    QVERIFY(!m_tool->enabled("pushButton_BasicReloadBasic"));
    QCOMPARE(shown(), QStringList());
}

void TestReentrancy::closingIsImmediate_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("byMenu");
    QTest::newRow("scan, Exit") << "pushButton_ScanDevices" << true;
    QTest::newRow("scan, closed") << "pushButton_ScanDevices" << false;
    QTest::newRow("reload, Exit") << "pushButton_BasicReloadBasic" << true;
    QTest::newRow("reload, closed") << "pushButton_BasicReloadBasic" << false;
}

void TestReentrancy::closingIsImmediate()
{
    QFETCH(QString, button);
    QFETCH(bool, byMenu);
    qsizetype framesAtClose = -1;
    QElapsedTimer sinceClose;
    QTimer::singleShot(0, m_tool->window(), [&] { m_tool->click(button); });
    duringExchange([&] {
        QTRY_VERIFY(!m_hand->requests().isEmpty());
        framesAtClose = m_hand->requests().size();
        sinceClose.start();
        byMenu ? m_tool->trigger("action_Exit") : static_cast<void>(m_tool->window()->close());
    });
    QCOMPARE(QApplication::exec(), 0);
    QVERIFY2(sinceClose.elapsed() < 8000, qPrintable(QString::number(sinceClose.elapsed())));
    QCOMPARE(m_hand->requests().size(), framesAtClose);
    m_tool->clearShownTexts(); // time-outs of absent nodes in a scan
}

VANTO_TEST(TestReentrancy)

} // namespace vanto

#include "tst_reentrancy.moc"
