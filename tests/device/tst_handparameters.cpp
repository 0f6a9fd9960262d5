#include "handinformation.h"
#include "handprocess.h"
#include "parametercomparison.h"
#include "parameterfile.h"
#include "parameterreader.h"
#include "parameterwriter.h"
#include "supportreport.h"
#include "testmain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

namespace vanto
{

namespace
{
using Kind = ParameterKind;
using Outcome = HandTask::Outcome;
using Result = WrittenParameter::Result;
constexpr ReplyLimits ShortLimits{300, 300, 300, 300};
} // namespace

/// Reads and restores simulated hands over both protocols.
class TestHandParameters : public QObject
{
    Q_OBJECT
private slots:
    void cleanup();
    void roundTrip_data() { protocols(); }
    void roundTrip();
    void framesOfWrites_data() { protocols(); }
    void framesOfWrites();
    void readingFaults_data();
    void readingFaults();
    void writingFaults_data();
    void writingFaults();
    void anyNode();
    void calibrationConsent();
    void cachedLimits();
    void information_data() { protocols(); }
    void information();

private:
    static void protocols();
    void open(const QString& protocol, const QStringList& options = {});
    HandTarget target(std::uint8_t node = 2) const
    {
        return {m_adapter, node, m_generation.token()};
    }
    ParameterSet readAll();
    void command(const QString& line) { QCOMPARE(m_hand->command(line).left(2), "ok"); }
    void changeEverything();
    /// Requests since the last clearTrace(): SerialCtrl command or Modbus function and register.
    QStringList requests() const;

    std::unique_ptr<HandProcess> m_hand;
    std::shared_ptr<VantoProtocol> m_adapter;
    Generation m_generation;
};

void TestHandParameters::protocols()
{
    QTest::addColumn<QString>("protocol");
    QTest::newRow("serialctrl") << "serialctrl";
    QTest::newRow("modbus") << "modbus";
}

void TestHandParameters::open(const QString& protocol, const QStringList& options)
{
    ReplyLimits::current() = ShortLimits;
    m_hand = std::make_unique<HandProcess>();
    QVERIFY2(m_hand->start(QStringList{"--node", "2:" + protocol} + options),
             qPrintable(m_hand->errorText()));
    m_adapter =
        protocol == "modbus"
            ? VantoProtocol::getProtocolInstance(PROTOCOL_TYPE_MODBUS_RTU, ModbusMajorVersion, 0)
            : VantoProtocol::getProtocolInstance(PROTOCOL_TYPE_SERIALCTRL, SerialCtrlMajorVersion,
                                                 0);
    QVERIFY(m_adapter->connect(m_hand->portName().toUtf8().constData(), BaudRate));
    // A request like one that has timed out in the previous test would be taken for its repetition.
    std::uint16_t voltage = 0;
    HandCall(target()).attempt<&VantoProtocol::getBatteryVoltage>(&voltage);
    ReplyLimits::current() = PatientLimits;
    m_hand->clearTrace();
}

void TestHandParameters::cleanup()
{
    m_adapter->disconnect();
    m_hand.reset();
}

ParameterSet TestHandParameters::readAll()
{
    ParameterReader reader(target(), {.toolVersion = "test"});
    return reader.run() == Outcome::Completed ? reader.parameters() : ParameterSet();
}

/// Sets every parameter to another value, behind the program's back.
void TestHandParameters::changeEverything()
{
    for (int finger = 0; finger < int(FingerCount); ++finger)
        for (const char* name :
             {"pid-p", "pid-i", "pid-d", "pid-g", "current-limit", "force-limit", "start", "end"})
            command(QString("set 2 %1 %2 %3").arg(name).arg(finger).arg(77 + finger));
    for (const char* value :
         {"selftest 1", "beepswitch 0", "preset-1 1", "preset-2 2", "preset-3 3"})
        command(QString("set 2 ") + value);
}

QStringList TestHandParameters::requests() const
{
    QStringList texts;
    for (const TracedFrame& frame : m_hand->requests()) {
        const bool isModbus = frame.protocol == "modbus";
        const auto byte = [&frame](qsizetype i) { return std::uint8_t(frame.bytes[i]); };
        texts.append(isModbus ? QString("%1:%2").arg(byte(1)).arg(byte(2) * 256 + byte(3))
                              : QString::number(byte(4), 16));
    }
    return texts;
}

/// What is saved, changed in the hand and restored is saved again as the same file.
void TestHandParameters::roundTrip()
{
    QFETCH(const QString, protocol);
    open(protocol);
    const ParameterSet saved = readAll();
    const bool isModbus = protocol == "modbus";
    QCOMPARE(saved.values.size(), allParameterKeys().size() - (isModbus ? FingerCount : 0));
    QVERIFY(saved.refused.isEmpty() && saved.hand.uid.has_value() == !isModbus);
    const auto file = ParameterFile::parse(ParameterFile::format(saved));
    QCOMPARE(file.error, QString());
    changeEverything();
    const ParameterSet changed = readAll();
    QList<ParameterKey> chosen;
    for (const ParameterRow& row : compareParameters(changed, file.parameters)) {
        QVERIFY2(row.canTick(), qPrintable(row.key.name()));
        chosen.append(row.key);
    }
    ParameterWriter writer(target(), changed, file.parameters, chosen, {.writeCalibration = true});
    QCOMPARE(writer.run(), Outcome::Completed);
    QCOMPARE(writer.count(Result::Written), int(saved.values.size()));
    QVERIFY(writer.calibrationInHand() == toCalibration(*saved.value({Kind::Calibration})));
    ParameterSet again = readAll();
    again.time = saved.time;
    QCOMPARE(ParameterFile::format(again), ParameterFile::format(saved));
}

/// Only what is chosen is written, and each write is followed by its read.
void TestHandParameters::framesOfWrites()
{
    QFETCH(const QString, protocol);
    open(protocol);
    const ParameterSet hand = readAll();
    ParameterSet wanted = hand;
    wanted.values[{Kind::P, 1}] = {double(0.29F)};
    wanted.values[{Kind::D, 1}] = {3};
    wanted.values[{Kind::CurrentLimit, 4}] = {555};
    wanted.values[{Kind::BeepSwitch}] = {0};
    QList<ParameterKey> chosen;
    for (const ParameterRow& row : compareParameters(hand, wanted))
        if (row.isTickedByDefault())
            chosen.append(row.key);
    m_hand->clearTrace();
    ParameterWriter writer(target(), hand, wanted, chosen, {});
    QCOMPARE(writer.run(), Outcome::Completed);
    QCOMPARE(writer.count(Result::Written), 4);
    const QString identity =
        protocol == "modbus" ? "3:1001 3:1000 3:1003 3:1020 3:1030 3:1040 " : "1 0 2 3 23 ";
    const QString gains = "3:1046 3:1056 3:1066 3:1076 ";
    QCOMPARE(requests().join(' '),
             identity + (protocol == "modbus" ? gains + "6:1046 6:1056 6:1066 6:1076 " + gains +
                                                    "6:1099 3:1099 6:1009 3:1009"
                                              : "4 45 4 46 5 61 21"));
    QCOMPARE(m_hand->command("get 2 pid-i 1"), "ok 0.06"); // not chosen
    QCOMPARE(m_hand->command("get 2 pid-p 1"), "ok 0.29");
}

void TestHandParameters::readingFaults_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QString>("fault"); ///< commands to the hand; "advance": the target is stale
    QTest::addColumn<Outcome>("outcome");
    QTest::addColumn<QString>("refused");
    QTest::addColumn<int>("values"); ///< -1: not known
    const auto add = [](const char* name, const char* serialCtrl, const char* modbus,
                        Outcome outcome, const char* refused, int missing) {
        const int all = int(allParameterKeys().size());
        const auto values = [=](int of) { return missing < 0 ? -1 : of - missing; };
        QTest::addRow("%s serialctrl", name)
            << "serialctrl" << serialCtrl << outcome << refused << values(all);
        QTest::addRow("%s modbus", name)
            << "modbus" << modbus << outcome << QString(refused).replace("0xff", "0x10")
            << values(all - int(FingerCount));
    };
    add("refusal", "fault refuse command=0x05 skip=2", "fault refuse register=1097",
        Outcome::Completed, "Current limit, Middle: refused (result 0xff, sub error 0x21)", 1);
    add("refused gains", "fault refuse command=0x04 skip=5", "fault refuse register=1050",
        Outcome::Completed, "P, Thumb root: refused (result 0xff, sub error 0x21)", 4);
    add("lost reply", "fault drop command=0x20", "fault drop register=1008 count=2",
        Outcome::Completed, "", 0);
    add("silence", "fault drop command=0x20 count=0", "fault drop register=1008 count=0",
        Outcome::NoAnswer, "", -1);
    add("port", "unplug", "unplug", Outcome::PortLost, "", -1);
    add("stale", "advance", "advance", Outcome::Superseded, "", -1);
    add("cancel", "cancel", "cancel", Outcome::Cancelled, "", -1);
    // The calibration comes first: a hand without UID that takes the place is found out by it.
    add("other hand", "fault drop command=0x20;set 2 revision 9",
        "fault drop register=1008 count=2;set 2 start 3 1", Outcome::OtherHand, "", -1);
    QTest::newRow("noise") << "serialctrl"
                           << "fault garble command=0x05 count=2" << Outcome::Completed << "" << 44;
    QTest::newRow("noisy UID") << "serialctrl"
                               << "fault garble command=0x23 count=9" << Outcome::Completed << ""
                               << 44;
    QTest::newRow("not a number") << "serialctrl"
                                  << "nan" << Outcome::Completed << "P, Index: not a number" << 43;
}

void TestHandParameters::readingFaults()
{
    QFETCH(const QString, protocol);
    QFETCH(const QString, fault);
    open(protocol);
    if (fault.contains("drop") || fault == "unplug")
        ReplyLimits::current() = ShortLimits;
    if (fault.startsWith("fault"))
        command(fault.section(';', 0, 0));
    if (fault == "nan") {
        HandCall call(target());
        call.attempt<&VantoProtocol::setFingerPID>(std::uint8_t{1}, std::nanf(""), 1.F, 1.F, 1.F);
    }
    ParameterReader reader(target(), {});
    const auto outcome = reader.run([&](int done, int) {
        if (done == 20 && fault == "unplug" && reader.isRunning())
            command(fault);
        if (done == 20 && fault.contains(';'))
            command(fault.section(';', 1));
        if (done == 20 && fault == "advance")
            m_generation.advance();
        if (done == 20 && fault == "cancel")
            reader.cancel();
    });
    QTEST(outcome, "outcome");
    QCOMPARE(reader.outcomeText().isEmpty(), outcome == Outcome::Completed);
    QFETCH(const int, values);
    if (values >= 0)
        QCOMPARE(reader.parameters().values.size(), std::size_t(values));
    const auto& list = reader.parameters().refused;
    QTEST(list.isEmpty() ? QString() : list.first().text(), "refused");
    // A file is not restored to a hand that may be any.
    ParameterSet file;
    file.hand.uid = HandFacts::Uid{};
    const bool isUnreadable = fault.contains("0x23");
    QCOMPARE(reader.parameters().hand.isUidUnreadable, isUnreadable);
    if (isUnreadable)
        QCOMPARE(calibrationRule(reader.parameters().hand, file.hand), CalibrationRule::OtherHand);
    if (fault.contains("count=0")) { // an automatic backup gives up at once
        m_hand->clearTrace();
        ParameterReader once(target(), {.keys = {{Kind::SelfTestLevel}, {Kind::BeepSwitch}},
                                        .facts = false,
                                        .timeoutsInARow = 1});
        QCOMPARE(once.run(), Outcome::NoAnswer);
        QVERIFY(!requests().contains("21") && !requests().contains("3:1009"));
    }
}

void TestHandParameters::writingFaults_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QString>("fault");
    QTest::addColumn<Outcome>("outcome");
    QTest::addColumn<QList<Result>>("results"); ///< of current limit, beep switch, calibration
    constexpr auto written = Result::Written;
    const QList<Result> all(3, written);
    const QList<Result> none(3, Result::NotTried);
    const QList<Result> first{Result::NoAnswer, Result::NotTried, Result::NotTried};
    const auto row = [](const char* name, const char* protocol, const char* fault, Outcome outcome,
                        const QList<Result>& results) {
        QTest::addRow("%s %s", name, protocol) << protocol << fault << outcome << results;
    };
    const auto add = [&](const char* name, const char* serialCtrl, const char* modbus,
                         Outcome outcome, const QList<Result>& results) {
        row(name, "serialctrl", serialCtrl, outcome, results);
        row(name, "modbus", modbus, outcome, results);
    };
    add("refusal", "fault refuse command=0x46", "fault refuse register=1095", Outcome::Completed,
        {Result::Refused, written, written});
    add("not kept", "fault ignore command=0x46", "fault ignore register=1095", Outcome::Completed,
        {Result::NotKept, written, written});
    // The read-back shows that the hand has it. A Modbus write is repeated.
    add("lost reply", "fault drop command=0x46", "fault drop register=1095 count=2",
        Outcome::Completed, all);
    add("silence", "hang", "hang", Outcome::NoAnswer, first);
    add("port", "unplug", "unplug", Outcome::PortLost, first);
    add("stale", "advance", "advance", Outcome::Superseded, none);
    add("cancel", "cancel", "cancel", Outcome::Cancelled, none);
    add("calibration", "fault refuse command=0x44", "fault refuse register=1030",
        Outcome::Completed, {written, written, Result::Refused});
    row("damaged reply", "serialctrl", "fault garble command=0x46", Outcome::Completed, all);
    // Ends and starts have been written, the presets have not.
    row("calibration in part", "modbus", "fault drop register=1030 count=2", Outcome::Completed,
        {written, written, Result::NotKept});
    // A hand that has neither the old calibration nor the new one.
    row("changed calibration", "modbus", "fault drop register=1020 count=2;set 2 start 3 1",
        Outcome::OtherHand, {written, written, Result::NoAnswer});
    // Silent when the limits are read that the calibration may have replaced.
    row("silence after the calibration", "serialctrl", "fault drop skip=6 count=0",
        Outcome::NoAnswer, all);
    // It has no answer to this command alone.
    row("limits without reply", "serialctrl", "fault drop command=0x09 count=0", Outcome::Completed,
        all);
    add("other hand", "swap", "swap", Outcome::OtherHand, none);
    add("hand changed as its reply is lost", "fault drop command=0x46;set 2 revision 9",
        "fault drop register=1095 count=2;set 2 revision 9", Outcome::OtherHand, first);
}

void TestHandParameters::writingFaults()
{
    QFETCH(const QString, protocol);
    QFETCH(const QString, fault);
    QFETCH(const QList<Result>, results);
    open(protocol, {"--node", "3:" + protocol});
    const ParameterSet hand = readAll();
    m_hand->clearTrace();
    ParameterSet wanted = hand;
    wanted.values[{Kind::CurrentLimit, 0}] = {555};
    wanted.values[{Kind::BeepSwitch}] = {0};
    ParameterValue& calibration = wanted.values[{Kind::Calibration}];
    calibration[2] = 999;
    calibration[8] = 3333;
    calibration[12] = 777;
    if (fault == "swap") {
        command("set 3 revision 9");
        command("set 2 id 4");
        command("set 3 id 2");
    }
    if (fault.contains("drop") || fault == "hang" || fault == "unplug")
        ReplyLimits::current() = ShortLimits;
    ParameterWriter writer(target(), hand, wanted,
                           {{Kind::Calibration}, {Kind::CurrentLimit, 0}, {Kind::BeepSwitch}},
                           {.writeCalibration = true});
    const auto outcome = writer.run([&](int done, int) {
        if (done != 1 || !writer.isRunning())
            return;
        if (fault == "advance")
            m_generation.advance();
        else if (fault == "cancel")
            writer.cancel();
        else if (fault != "swap")
            for (const QString& line : fault.split(';'))
                command(line);
    });
    QTEST(outcome, "outcome");
    QList<Result> found;
    for (const WrittenParameter& row : writer.results())
        found.append(row.result);
    QCOMPARE(found, results);
    QVERIFY(writer.results().first().text().isEmpty() == (results[0] == Result::NotTried));
    QCOMPARE(writer.results().last().isUncertain(), results[2] == Result::NoAnswer);
    if (fault.contains("skip=6"))
        QCOMPARE(requests().count("9"), 1);
    if (fault.contains("register=1030")) { // the ends have been written
        ParameterValue part = *hand.value({Kind::Calibration});
        part[8] = 3333;
        part[2] = results[2] == Result::NotKept ? 999 : part[2];
        QCOMPARE(writer.results().last().readBack, std::optional(part));
        QVERIFY(writer.calibrationInHand() == toCalibration(part));
    }
}

void TestHandParameters::anyNode()
{
    open("serialctrl", {"--node", "3"});
    const ParameterSet hand = readAll();
    m_hand->clearTrace();
    ParameterWriter writer(target(255), hand, hand, {{Kind::BeepSwitch}}, {});
    QCOMPARE(writer.run(), Outcome::AnyNode);
    QCOMPARE(writer.count(Result::NotTried), 1);
    QVERIFY(requests().isEmpty());
}

/// The calibration needs its own consent, and its hand; position limits need the hand alone.
void TestHandParameters::calibrationConsent()
{
    open("serialctrl");
    ParameterSet hand = readAll();
    ParameterSet file = hand;
    file.values[{Kind::Calibration}][0] = 1;
    file.values[{Kind::PositionLimits, 3}] = {1, 2};
    file.hand.uid = HandFacts::Uid{1, 2, 3};
    QCOMPARE(calibrationRule(hand.hand, file.hand), CalibrationRule::OtherHand);
    for (const ParameterRow& row : compareParameters(hand, file))
        QVERIFY2(!row.canTick(), qPrintable(row.key.name()));
    const auto written = [&](const ParameterWriter::Options& options) {
        ParameterWriter writer(target(), hand, file,
                               {{Kind::Calibration}, {Kind::BeepSwitch}, {Kind::PositionLimits, 3}},
                               options);
        writer.run();
        QString kinds;
        for (const WrittenParameter& result : writer.results())
            if (result.result == Result::Written)
                kinds += QString(describe(result.key.kind).name) + ' ';
        return kinds;
    };
    QCOMPARE(written({.writeCalibration = true, .writeUnknownLimits = true}), "beepSwitch ");
    file.hand.uid.reset();
    QCOMPARE(calibrationRule(hand.hand, file.hand), CalibrationRule::UnknownHand);
    QCOMPARE(written({}), "beepSwitch ");
    QVERIFY(!requests().contains("44") && !requests().contains("48"));
    QCOMPARE(written({.writeUnknownLimits = true}), "positionLimits beepSwitch ");
    // The calibration replaces the limits that are written before it.
    file.hand.uid = hand.hand.uid;
    hand = readAll();
    QCOMPARE(written({.writeCalibration = true}), "beepSwitch calibration ");
}

/// Absolute positions are converted with cached limits; a new calibration clears them.
void TestHandParameters::cachedLimits()
{
    open("modbus");
    const ParameterSet hand = readAll();
    std::uint16_t ignored = 0;
    {
        HandCall call(target());
        QCOMPARE(call.attempt<&VantoProtocol::getFingerPosAbs>(std::uint8_t{1}, &ignored, &ignored),
                 ResultCode::Success);
    }
    ParameterSet wanted = hand;
    wanted.values[{Kind::Calibration}][1] = 2000;
    ParameterWriter writer(target(), hand, wanted, {{Kind::Calibration}},
                           {.writeCalibration = true});
    QCOMPARE(writer.run(), Outcome::Completed);
    HandCall call(target());
    QCOMPARE(call.attempt<&VantoProtocol::setFingerPosAbs>(std::uint8_t{1}, std::uint16_t{2665},
                                                           std::uint8_t{255}),
             ResultCode::Success);
    // 665 of 1583 raw units above the new start
    QCOMPARE(m_hand->command("get 2 target 1"), "ok 27530");
}

void TestHandParameters::information()
{
    QFETCH(const QString, protocol);
    const bool isModbus = protocol == "modbus";
    open(protocol, {"--no-force"});
    FrameLog::instance().clear();
    command("fault refuse " + QString(isModbus ? "register=1007" : "command=0x24"));
    HandInformationReader reader(target(), false);
    QCOMPARE(reader.run(), Outcome::Completed);
    const HandInformation& information = reader.information();
    QVERIFY(information.facts == readAll().hand);
    const auto text = [&](const char* key) {
        const auto* const entry = information.find(key);
        return entry ? entry->text : QString("none");
    };
    QCOMPARE(text("uid"), isModbus ? "not supported" : "00430022484E560120383550");
    QCOMPARE(text("usage.total"), isModbus ? "not supported" : "4200");
    QCOMPARE(text("force.thumb"), "not supported");
    QCOMPARE(text("batteryVoltage"), "refused");
    QCOMPARE(text("bootLoader"), "1.2");
    QVERIFY(information.toText().contains("\nFirmware version: 1.4.7\n"));
    {
        HandCall call(target());
        call.attempt<&VantoProtocol::calibrate>(std::uint16_t{0x77EE}); // a wrong key
    }
    SupportReport report{
        QDateTime::currentDateTimeUtc(), "test", "port", information, readAll(), {"a message"},
        FrameLog::instance().frames()};
    const QJsonObject json = QJsonDocument::fromJson(report.toJson()).object();
    QCOMPARE(json["hand"].toObject()["firmware"].toString(), "1.4.7");
    QCOMPARE(json["notKnown"].toObject()["batteryVoltage"].toString(), "refused");
    QCOMPARE(json["notKnown"].toObject()["force.thumb"].toString(), "not supported");
    QCOMPARE(json["parameters"].toObject()["kind"].toString(), "hand parameters");
    QCOMPARE(json["frames"].toArray().size(), qsizetype(report.frames.size()));
    const QString whole = QString::fromUtf8(report.toText());
    for (const char* line : {"\nuid: ", "\nP thumb: 1.5\n", "\na message\n", "Z "})
        QVERIFY2(whole.contains(line), line);
    // One frame in each direction for each exchange; of a key no byte.
    const QString key =
        isModbus ? "tx 02 06 03 f4 ** ** ** **\n" : "tx 55 aa 02 01 43 02 ** ** **\n";
    QCOMPARE(whole.count(key), 1);
    const QString exchange = isModbus ? "ModBus-RTU tx 02 03 03 e9 00 02 15 88\n"
                                      : "SerialCtrl tx 55 aa 02 01 01 00 02\n";
    const QString reply = isModbus ? "ModBus-RTU rx 02 03 04 01 04 00 07 c8 cc result 0x00\n"
                                   : "SerialCtrl rx 55 aa 01 02 01 04 07 00 04 01 04 result 0x00\n";
    QVERIFY2(whole.contains(exchange) && whole.contains(reply), qPrintable(whole.right(2000)));
    for (int i = 0; i < 10'010; ++i)
        FrameLog::instance().noteSent(PROTOCOL_TYPE_SERIALCTRL, {});
    QCOMPARE(FrameLog::instance().frames().size(), FrameLog::Capacity);
}

VANTO_TEST(TestHandParameters)

} // namespace vanto

#include "tst_handparameters.moc"
