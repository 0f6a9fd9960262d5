#include "fakeusb.h"
#include "portlist.h"
#include "testmain.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace vanto
{

/// The list of ports, and which port a lost one has become. The tests with adapters are skipped
/// unless fakeusb.sh runs them.
class TestPortList : public QObject
{
    Q_OBJECT
private slots:
    void init() { qunsetenv("VANTO_PORTS"); }
    void listsAdapters();
    void findsAdapter_data();
    void findsAdapter();
    void findsOtherPort_data();
    void findsOtherPort();
    void findsAddedLink();
    void pseudoTerminalsCannotComeBack();
};

void TestPortList::listsAdapters()
{
    if (!FakeUsb::isAvailable())
        QSKIP("needs tests/support/fakeusb.sh");
    FakeUsb usb;
    usb.plugIn({"ttyUSB1", "A1", 0x1209, 0x00ab});
    usb.plugIn({"ttyUSB0", {}, 0x1209, 0x0005});
    qputenv("VANTO_PORTS", "/tmp/added");
    const QList<PortEntry> ports = availablePorts();
    QCOMPARE(ports.size(), 3);
    QCOMPARE(ports[0].text(), "ttyUSB0 (Serial Adapter)");
    QCOMPARE(ports[0].details, "Example Works Serial Adapter\nVID:PID 1209:0005");
    const AdapterId without{0x1209, 0x0005, {}};
    QVERIFY(ports[0].adapter == without);
    QCOMPARE(ports[1].text(), "ttyUSB1 (Serial Adapter)");
    QCOMPARE(ports[1].details, "Example Works Serial Adapter\nSerial number A1\nVID:PID 1209:00AB");
    const AdapterId numbered{0x1209, 0x00ab, "A1"};
    QVERIFY(ports[1].adapter == numbered);
    QCOMPARE(ports[2].text(), "/tmp/added (added by VANTO_PORTS)");
    QVERIFY(!ports[2].adapter);
    usb.unplug("ttyUSB0");
    QCOMPARE(availablePorts().size(), 2);
}

void TestPortList::findsAdapter_data()
{
    if (!FakeUsb::isAvailable())
        QSKIP("needs tests/support/fakeusb.sh");
    const FakeAdapter a0{"ttyUSB0", "A"};
    const FakeAdapter a1{"ttyUSB1", "A"};
    const FakeAdapter b0{"ttyUSB0", "B"};
    const FakeAdapter b1{"ttyUSB1", "B"};
    const FakeAdapter without0{"ttyUSB0"}; // a serial number
    const FakeAdapter without1{"ttyUSB1"};
    const FakeAdapter otherProduct0{"ttyUSB0", "A", 0x1209, 0x0006};
    const FakeAdapter otherVendor0{"ttyUSB0", {}, 0x1210, 0x0005};
    using Adapters = QList<FakeAdapter>;
    QTest::addColumn<Adapters>("before"); // the first is lost
    QTest::addColumn<Adapters>("after");
    QTest::addColumn<QString>("found");
    const auto row = [](const char* name, const Adapters& before, const Adapters& after,
                        const QString& found = {}) {
        QTest::newRow(name) << before << after << found;
    };
    row("not back", {a0}, {});
    row("other name", {a0}, {a1}, "ttyUSB1");
    row("names exchanged", {a0, b1}, {a1, b0}, "ttyUSB1");
    row("other serial number", {a0}, {b0});
    row("now without serial number", {a0}, {without0});
    row("other product", {a0}, {otherProduct0});
    row("no serial number", {without0}, {without0}, "ttyUSB0");
    row("no serial number, other name", {without0}, {without1});
    row("no serial number, other vendor", {without0}, {otherVendor0});
    row("no serial number, one of two", {without0, without1}, {without0, without1});
    row("no serial number, a second one", {without0}, {without0, without1});
    row("no serial number, beside one with", {without0}, {without0, b1}, "ttyUSB0");
    row("equal serial numbers", {a0, a1}, {a0, a1});
    row("equal serial numbers, the other one", {a0, a1}, {a1});
    row("equal serial numbers, a second one", {a0}, {a0, a1});
}

void TestPortList::findsAdapter()
{
    const auto listWith = [](const QList<FakeAdapter>& adapters) {
        FakeUsb usb;
        for (const FakeAdapter& adapter : adapters)
            usb.plugIn(adapter);
        return availablePorts();
    };
    QFETCH(QList<FakeAdapter>, before);
    QFETCH(QList<FakeAdapter>, after);
    const QList<PortEntry> listed = listWith(before);
    QCOMPARE(listed.size(), before.size());
    const PortEntry& lost = listed[0];
    QVERIFY(canComeBack(lost));
    const QList<PortEntry> ports = listWith(after);
    QCOMPARE(ports.size(), after.size());
    const PortEntry* found = findAgain(lost, ports);
    QTEST(found ? found->name : QString(), "found");
}

/// Ports without ids.
void TestPortList::findsOtherPort_data()
{
    QTest::addColumn<PortEntry>("lost");
    QTest::addColumn<PortEntry>("listed");
    QTest::addColumn<bool>("found");
    const PortEntry adapter{"ttyUSB0", {}, {}, AdapterId{}};
    QTest::newRow("same name") << PortEntry{"rfcomm0", {}} << PortEntry{"rfcomm0", {}} << true;
    QTest::newRow("other name") << PortEntry{"rfcomm0", {}} << PortEntry{"rfcomm1", {}} << false;
    QTest::newRow("adapter takes the name") << PortEntry{"ttyUSB0", {}} << adapter << false;
    QTest::newRow("takes an adapter's name") << adapter << PortEntry{"ttyUSB0", {}} << false;
}

void TestPortList::findsOtherPort()
{
    QFETCH(PortEntry, lost);
    QFETCH(PortEntry, listed);
    const QList<PortEntry> ports{PortEntry{"other", {}}, listed};
    QTEST(findAgain(lost, ports) == &ports[1], "found");
    QVERIFY(canComeBack(lost));
}

void TestPortList::findsAddedLink()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("hand");
    qputenv("VANTO_PORTS", path.toUtf8());
    const PortEntry lost = availablePorts().constLast();
    QCOMPARE(lost.name, path);
    QVERIFY(canComeBack(lost));
    QVERIFY(!findAgain(lost, availablePorts())); // is listed always
    QVERIFY(QFile::link("/dev/null", path));
    const QList<PortEntry> ports = availablePorts();
    QCOMPARE(findAgain(lost, ports), &ports.constLast());
}

void TestPortList::pseudoTerminalsCannotComeBack()
{
    qputenv("VANTO_PORTS", "/dev/pts/0");
    QVERIFY(!canComeBack(availablePorts().constLast()));
    QVERIFY(!canComeBack({"pts/0", {}}));
}

VANTO_TEST(TestPortList)

} // namespace vanto

#include "tst_portlist.moc"
