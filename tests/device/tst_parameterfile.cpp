#include "parameterbackup.h"
#include "parametercomparison.h"
#include "parameterfile.h"
#include "testmain.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>

#include <csignal>
#include <limits>
#include <sys/resource.h>
#include <sys/stat.h>

namespace vanto
{

namespace
{
using Kind = ParameterKind;

/// A value for every parameter of a hand, with numbers at the ends of their ranges.
ParameterSet fullSet()
{
    ParameterSet set;
    set.time = QDateTime(QDate(2026, 11, 22), QTime(6, 25, 17), QTimeZone::utc());
    set.toolVersion = "VantoSetting \"0.1\"\n";
    set.hand = {{2},         {PROTOCOL_TYPE_SERIALCTRL}, {{3, 1}},
                {{1, 4, 7}}, {{0x1B, 0x01, 0x0102}},     {{0x00430022, 0x484E5601, 0x20383550}}};
    const QList<double> gains{0.06F, -1.5F, std::numeric_limits<float>::max(), 1e-45F};
    for (const ParameterKey& key : allParameterKeys()) {
        const ParameterDescriptor& descriptor = describe(key.kind);
        ParameterValue value;
        for (int i = 0; i < descriptor.valueCount; ++i)
            value.append(descriptor.isGain ? gains[int(key.kind)]
                         : i % 2 == 0      ? descriptor.max
                                           : 7);
        set.values[key] = value;
    }
    return set;
}

QByteArray fileWith(const QByteArray& members)
{
    return R"({"kind": "hand parameters", "version": 1, )" + members + "}";
}

bool store(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// The names of those files of a folder that do not follow the schema, as Debian's validator says.
QString invalidFiles(const QString& folder)
{
    const char* program = "import glob, json, os, sys, jsonschema\n"
                          "v = jsonschema.Draft202012Validator(json.load(open(sys.argv[1])))\n"
                          "for p in sorted(glob.glob(sys.argv[2] + '/*')):\n"
                          "    try: ok = v.is_valid(json.load(open(p)))\n"
                          "    except (ValueError, RecursionError): ok = False\n"
                          "    if not ok: print(os.path.basename(p))\n";
    QProcess python;
    python.start("/usr/bin/python3", {"-c", program, PARAMETER_SCHEMA, folder});
    python.waitForFinished(60'000);
    return python.exitCode() == 0 && python.exitStatus() == QProcess::NormalExit
               ? QString::fromUtf8(python.readAllStandardOutput())
               : "failed: " + QString::fromUtf8(python.readAllStandardError());
}

struct BadFile {
    const char* name;
    QByteArray bytes;
    const char* error;          ///< a part of the message
    bool followsSchema = false; ///< in the reading of the validator
};

const QList<BadFile>& badFiles()
{
    static const QList<BadFile> files{
        {"empty", "", "The file is empty."},
        {"syntax", "{\n \"kind\": \"hand parameters\",\n \"version\": }", "(line 3, offset "},
        {"binary", QByteArray("\xFF\x00\xFE", 3), "not valid JSON (line 1, offset"},
        {"utf8", fileWith("\"comment\": \"\xC3\""), "not valid JSON"},
        {"deep", QByteArray(100'000, '['), "not valid JSON"},
        {"array", "[1]", "not a file of hand parameters"},
        {"sequence", R"({"position_type": "angle", "sequences": [], "version": 1})", "a sequence"},
        {"otherkind", R"({"kind": "support report", "version": 1})", "\"kind\" is not"},
        {"newer", R"({"kind": "hand parameters", "version": 2, "x": 1})",
         "newer program (version 2"},
        {"noversion", R"({"kind": "hand parameters"})", "version: expected 1, found null"},
        {"large", fileWith("\"comment\": \"" + QByteArray(ParameterFile::MaxSize, 'x') + '"'),
         "larger than 1 MiB", true},
        {"unknown", fileWith(R"("fingers": {"thumb": {"curentLimit": 1}})"),
         "fingers.thumb.curentLimit: unknown key"},
        {"unknowntop", fileWith(R"("P": 1)"), "P: unknown key"},
        {"unknownhand", fileWith(R"("hand": {"colour": "red"})"), "hand.colour: unknown key"},
        {"seventh", fileWith(R"("fingers": {"sixth": {"P": 1}})"),
         "fingers.sixth: there is no such finger"},
        {"rootforce", fileWith(R"("fingers": {"thumbRoot": {"forceLimit": 1}})"),
         "fingers.thumbRoot.forceLimit: unknown key"},
        {"text", fileWith(R"("fingers": {"thumb": {"P": "1.5"}})"),
         "fingers.thumb.P: expected a number, found \"1.5\""},
        {"null", fileWith(R"("selfTestLevel": null)"), "selfTestLevel: expected a number"},
        {"range", fileWith(R"("fingers": {"little": {"currentLimit": 65536}})"),
         "fingers.little.currentLimit: expected an integer from 0 to 65535, found 65536"},
        {"negative", fileWith(R"("beepSwitch": -1)"), "beepSwitch: expected an integer from 0"},
        {"fraction", fileWith(R"("selfTestLevel": 1.5)"), "selfTestLevel: expected an integer"},
        {"double", fileWith(R"("fingers": {"thumb": {"G": 1e39}})"),
         "fingers.thumb.G: expected a number of single precision"},
        {"limits", fileWith(R"("fingers": {"thumb": {"positionLimits": [1]}})"),
         "fingers.thumb.positionLimits: expected an array of 2 numbers, found 1"},
        {"five", fileWith(R"("calibration": {"start": [1, 2, 3, 4, 5], "end": [1, 2, 3, 4, 5, 6],
                              "thumbRoot": [1, 2, 3]})"),
         "calibration.start: expected an array of 6 numbers, found 5"},
        {"part", fileWith(R"("calibration": {"start": [1, 2, 3, 4, 5, 6],
                              "end": [1, 2, 3, 4, 5, 6]})"),
         "calibration.thumbRoot: expected an array of 3"},
        {"rawrange", fileWith(R"("calibration": {"start": [1, 2, 3, 4, 5, 6],
                                  "end": [1, 2, 3, 4, 5, 70000], "thumbRoot": [1, 2, 3]})"),
         "calibration.end: expected an integer from 0 to 65535, found 70000"},
        {"fingers", fileWith(R"("fingers": [1])"), "fingers: expected an object, found [...]"},
        {"time", fileWith(R"("time": "yesterday")"), "time: expected a time"},
        {"uid", fileWith(R"("hand": {"uid": "0043"})"), "hand.uid: \"0043\" is not valid"},
        {"firmware", fileWith(R"("hand": {"firmware": "1.4.70000"})"), "hand.firmware: ", true},
        {"node", fileWith(R"("hand": {"node": 256})"), "hand.node: expected an integer"},
    };
    return files;
}
} // namespace

/// Files of parameters: bytes in, parameters or a message out.
class TestParameterFile : public QObject
{
    Q_OBJECT
private slots:
    void roundTrip();
    void badContent_data();
    void badContent();
    void schema();
    void partialAndDuplicate();
    void badPath();
    void fullDisk();
    void backups();
    void comparison_data();
    void comparison();
    void names();
};

void TestParameterFile::roundTrip()
{
    const ParameterSet set = fullSet();
    const QByteArray bytes = ParameterFile::format(set);
    QVERIFY(bytes.contains("\"P\": 0.06,\n")); // not 0.05999999865889549
    const auto content = ParameterFile::parse(bytes);
    QCOMPARE(content.error, QString());
    QVERIFY(content.parameters.values == set.values && content.parameters.hand == set.hand);
    QCOMPARE(content.parameters.values.size(), allParameterKeys().size());
    QCOMPARE(content.parameters.time, set.time);
    QCOMPARE(content.parameters.toolVersion, set.toolVersion);
}

void TestParameterFile::badContent_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < badFiles().size(); ++i)
        QTest::newRow(badFiles()[i].name) << i;
}

void TestParameterFile::badContent()
{
    QFETCH(const int, index);
    const BadFile& bad = badFiles()[index];
    const auto content = ParameterFile::parse(bad.bytes);
    QVERIFY2(content.error.contains(QLatin1String(bad.error)), qPrintable(content.error));
    QVERIFY(content.parameters.values.empty());
}

/// The schema and the program agree about files.
void TestParameterFile::schema()
{
    QTemporaryDir folder;
    QVERIFY(store(folder.filePath("full"), ParameterFile::format(fullSet())));
    QVERIFY(store(folder.filePath("nothing"), ParameterFile::format({})));
    QFile manual(PARAMETER_MANUAL);
    QVERIFY(manual.open(QIODevice::ReadOnly));
    const QByteArray text = manual.readAll();
    const qsizetype begin = text.indexOf("```json\n") + 8;
    const QByteArray example = text.mid(begin, text.indexOf("```\n", begin) - begin);
    const auto content = ParameterFile::parse(example);
    QVERIFY2(content.isValid() && content.parameters.values.size() == 11,
             qPrintable(content.error));
    QVERIFY(store(folder.filePath("example"), example));
    QStringList wrong;
    for (const BadFile& bad : badFiles()) {
        QVERIFY(store(folder.filePath(bad.name), bad.bytes));
        if (!bad.followsSchema)
            wrong.append(bad.name);
    }
    wrong.sort();
    QCOMPARE(invalidFiles(folder.path()).split('\n', Qt::SkipEmptyParts), wrong);
}

void TestParameterFile::partialAndDuplicate()
{
    const auto content = ParameterFile::parse(
        fileWith(R"("fingers": {"index": {"P": 1, "P": 0.1}}, "beepSwitch": 1, "beepSwitch": 0)"));
    QCOMPARE(content.error, QString());
    QCOMPARE(content.parameters.values.size(), 2U);
    QCOMPARE(content.parameters.values.at({Kind::P, 1}), ParameterValue{double(0.1F)});
    QCOMPARE(content.parameters.values.at({Kind::BeepSwitch}), ParameterValue{0});
    const auto loader = ParameterFile::parse(fileWith(R"("hand": {"bootLoader": "1.2"})"));
    QVERIFY(loader.isValid() && !loader.parameters.hand.hardware); // not hardware 0000
}

void TestParameterFile::badPath()
{
    QTemporaryDir folder;
    const QString fifo = folder.filePath("fifo");
    QCOMPARE(mkfifo(fifo.toLocal8Bit().constData(), 0600), 0);
    for (const QString& path : {fifo, folder.path(), QString("/dev/full")}) {
        QCOMPARE(ParameterFile::read(path).error, "This is not a regular file.");
        QCOMPARE(ParameterFile::write(path, {}), "This is not a regular file.");
    }
    QCOMPARE(ParameterFile::read(folder.filePath("none")).error, "The file does not exist.");
    QVERIFY(!ParameterFile::write(folder.filePath("none/file"), {}).isEmpty());
}

/// A file that cannot be written as a whole leaves the earlier one as it was, and nothing else.
void TestParameterFile::fullDisk()
{
    QTemporaryDir folder;
    const QString path = folder.filePath("hand.json");
    QCOMPARE(ParameterFile::writeBytes(path, "before"), QString());
    rlimit limit{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &limit), 0);
    rlimit small = limit;
    small.rlim_cur = 64;
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
    const QString error = ParameterFile::write(path, fullSet());
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, handler);
    QVERIFY(!error.isEmpty());
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), "before");
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"hand.json"});
}

void TestParameterFile::backups()
{
    QStandardPaths::setTestModeEnabled(true);
    QDir folder(ParameterBackup::folder());
    folder.removeRecursively();
    ParameterSet set = fullSet();
    QCOMPARE(ParameterBackup::fileName(set),
             "1B01-00430022484E560120383550-20261122T062517000Z.json");
    ParameterSet other = set;
    other.hand.uid.reset();
    QVERIFY(ParameterBackup::newest(set.hand).isEmpty());
    for (int i = 0; i < 12; ++i) {
        set.time = other.time = set.time.addSecs(1);
        QCOMPARE(ParameterBackup::save(set).error, QString());
    }
    QVERIFY(ParameterBackup::save(other).path.endsWith("/1B01-node2-20261122T062529000Z.json"));
    QCOMPARE(folder.entryList(QDir::Files).size(), ParameterBackup::KeptPerHand + 1);
    QVERIFY(ParameterBackup::newest(set.hand).endsWith("-20261122T062529000Z.json"));
    set.time = set.time.addYears(-1); // a clock that was set back
    const auto saved = ParameterBackup::save(set);
    QVERIFY(QFile::exists(saved.path));
    QCOMPARE(folder.entryList(QDir::Files).size(), ParameterBackup::KeptPerHand + 1);
    folder.removeRecursively();
    QVERIFY(store(folder.path(), "a file in the place of the folder"));
    QVERIFY(!ParameterBackup::save(set).error.isEmpty());
    QVERIFY(QFile::remove(folder.path()));
}

void TestParameterFile::comparison_data()
{
    using State = ParameterRow::State;
    QTest::addColumn<PROTOCOL_TYPE>("protocol");
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<double>("inHand");
    QTest::addColumn<double>("inFile");
    QTest::addColumn<State>("state");
    constexpr auto serial = PROTOCOL_TYPE_SERIALCTRL;
    constexpr auto modbus = PROTOCOL_TYPE_MODBUS_RTU;
    QTest::newRow("float") << serial << Kind::P << double(0.1F) << 0.1 << State::Equal;
    QTest::newRow("next") << serial << Kind::P << 1.0 << 1.0000002 << State::Different;
    QTest::newRow("large") << serial << Kind::P << 1.0 << 700.0 << State::Different;
    QTest::newRow("hundredth") << modbus << Kind::D << double(1.23F) << 1.239 << State::Equal;
    QTest::newRow("other") << modbus << Kind::D << double(1.23F) << 1.24 << State::Different;
    QTest::newRow("highest") << modbus << Kind::G << 0.0 << 655.35 << State::Different;
    QTest::newRow("beyond") << modbus << Kind::G << 44.64 << 700.0 << State::NotRepresentable;
    QTest::newRow("below") << modbus << Kind::G << 0.0 << -0.001 << State::NotRepresentable;
    QTest::newRow("full self-test")
        << serial << Kind::SelfTestLevel << 3.0 << 2.0 << State::Different;
    QTest::newRow("unknown level")
        << serial << Kind::SelfTestLevel << 2.0 << 3.0 << State::NotRepresentable;
    QTest::newRow("unknown switch")
        << modbus << Kind::BeepSwitch << 1.0 << 200.0 << State::NotRepresentable;
    QTest::newRow("limit") << modbus << Kind::CurrentLimit << 400.0 << 700.0 << State::Different;
}

void TestParameterFile::comparison()
{
    QFETCH(const PROTOCOL_TYPE, protocol);
    QFETCH(const Kind, kind);
    QFETCH(const double, inHand);
    QFETCH(const double, inFile);
    const ParameterKey key{kind, 3};
    ParameterSet hand;
    hand.hand.protocolType = protocol;
    hand.values[key] = {inHand};
    ParameterSet file;
    file.values[key] = {inFile};
    QList<ParameterRow> rows = compareParameters(hand, file);
    QCOMPARE(rows.size(), 1);
    QTEST(rows[0].state, "state");
    QCOMPARE(rows[0].canTick(), rows[0].state == ParameterRow::State::Different);
    const double difference = std::abs(inHand - inFile);
    rows = compareParameters(hand, file, {{kind, difference}});
    QCOMPARE(rows[0].state, ParameterRow::State::Equal);
    QCOMPARE(compareParameters(hand, {})[0].state, ParameterRow::State::OnlyInHand);
    QCOMPARE(compareParameters({}, file)[0].state, ParameterRow::State::OnlyInFile);
}

void TestParameterFile::names()
{
    for (const ParameterKey& key : allParameterKeys())
        QVERIFY2(ParameterNames::parseKey(key.name()) == key, qPrintable(key.name()));
    using Key = std::optional<ParameterKey>;
    QVERIFY(ParameterNames::parseKey("current-limit Thumb root") == Key({Kind::CurrentLimit, 5}));
    QVERIFY(ParameterNames::parseKey("p.0") == Key({Kind::P, 0}));
    for (const char* wrong : {"", "P", "P 6", "P thum", "calibration thumb", "forceLimit 5", "X 1"})
        QVERIFY2(!ParameterNames::parseKey(wrong), wrong);
    QString error;
    QVERIFY(ParameterValues::parse(Kind::P, {"1,5"}, &error) == ParameterValue{1.5});
    for (const QStringList& wrong : {QStringList{}, {"nan"}, {"inf"}, {"1e39"}, {"x"}, {"1", "2"}})
        QVERIFY(!ParameterValues::parse(Kind::P, wrong, &error) && !error.isEmpty());
    QVERIFY(!ParameterValues::parse(Kind::CurrentLimit, {"1.5"}, &error));
    for (const ParameterDescriptor& descriptor : parameterDescriptors())
        QCOMPARE(descriptor.tickedByDefault, descriptor.kind != Kind::Calibration &&
                                                 descriptor.kind != Kind::PositionLimits &&
                                                 descriptor.kind != Kind::SelfTestLevel);
}

VANTO_TEST(TestParameterFile)

} // namespace vanto

#include "tst_parameterfile.moc"
