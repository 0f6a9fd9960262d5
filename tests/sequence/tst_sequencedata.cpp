#include "sequencemanager.h"
#include "testmain.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

namespace vanto
{

class tst_sequencedata : public QObject
{
    Q_OBJECT
    static QByteArray document(const QByteArray& type, const QByteArray& sequences)
    {
        return "{\"version\": 1, \"position_type\": \"" + type + "\", \"sequences\": " + sequences +
               "}";
    }
private slots:
    void invalidDocuments()
    {
        const QByteArray good = document("angle", "[]");
        const auto with = [&](const char* old, const char* text) {
            return QByteArray(good).replace(old, text);
        };
        const QByteArray huge =
            QByteArray(R"({"position": [1, 2, 3, 4, 5, 6]},)").repeated(1'500'000);
        const std::pair<QByteArray, QByteArrayList> rows[] = {
            {"parse fail: ",
             {"", "null", good.chopped(1), good + "}", QByteArray(5000, '['), "\xFF\xFE{}",
              with("angle", "\xC3\x28"), document("angle", "[" + huge).chopped(1)}},
            {"invalid version: ", {"{}", "[" + good + "]"}},
            {"unsupported version: ",
             {R"({"version": 2})", with("1", "\"1\""), with("1", "1.5"), with("1", "4294967297")}},
            {"invalid position_type: ", {R"({"version": 1, "sequences": []})"}},
            {"unsupported position_type: ",
             {R"({"version": 1, "position_type": "Angle"})", with("\"angle\"", "1")}},
            {"invalid sequences: ", {R"({"version": 1.0, "position_type": "position"})"}}};
        const SequenceData before{1, QStringLiteral("angle"), {{{-1, 2}, {3}, 4}}};
        for (const auto& [message, inputs] : rows)
            for (const QByteArray& input : inputs) {
                SequenceData data = before;
                QTest::ignoreMessage(QtDebugMsg, ("Invalid json: " + message + input).constData());
                QVERIFY2(!data.fromJSON(input) && data == before, input.left(99).constData());
            }
    }
    void values()
    {
        const char* outside = R"({"position": [70000, -5, -70000], "speed": [0, 300, -1]})";
        const std::tuple<const char*, const char*, SequenceDataItem> rows[] = {
            {"position", outside, {{65535, 0, 0}, {1, 255, 1}, 0}},
            {"angle", outside, {{32767, -5, -32768}, {1, 255, 1}, 0}},
            {"angle",
             R"({"position": ["7", null, [7], 1.5, 2147483648, -2147483649, 1e300]})",
             {QList<int>(7, 0), {}, 0}},
            {"position",
             R"({"position": [1e3, 2147483647, -0, 9.0], "speed": ["9", 2.5]})",
             {{1000, 65535, 0, 9}, {1, 1}, 0}},
            {"angle", R"({"position": 5, "speed": {"0": 7}, "delay": 70000})", {{}, {}, 65535}},
            {"angle",
             R"({"delay": 5, "delay": -1, "speed": [8, 8, 8, 8, 8, 8, 8]})",
             {{}, QList<int>(7, 8), 0}},
            {"angle", "17", {{}, {}, 0}}};
        for (const auto& [type, input, step] : rows) {
            SequenceData data;
            QVERIFY(data.fromJSON("\xEF\xBB\xBF" + document(type, QByteArray("[") + input + "]")));
            QVERIFY2(data == (SequenceData{1, QLatin1String(type), {step}}), input);
            QVERIFY(data.fromJSON(document("position", "5")) && data == SequenceData());
        }
    }
    void roundTrips()
    {
        auto& random = *QRandomGenerator::global();
        for (int i = 0; i < 1000; ++i) {
            const int least = i % 2 ? -32768 : 0;
            SequenceData data{1, i % 2 ? QStringLiteral("angle") : QStringLiteral("position"), {}};
            const auto target = [&] { return random.bounded(65536) + least; };
            for (int steps = random.bounded(20); steps > 0; --steps)
                data.sequences.append({{target(), target(), target(), target(), target(), target()},
                                       QList<int>(random.bounded(9), random.bounded(1, 256)),
                                       random.bounded(65536)});
            SequenceData read;
            QVERIFY(read.fromJSON(data.toJSON()) && read == data && read.toJSON() == data.toJSON());
        }
    }
    void editedAndStored()
    {
        SequenceManager manager;
        for (const auto& [index, delay] : {std::pair(0, 1), {1, 2}, {0, 3}})
            manager.insertSequenceDataItem(index, {{}, {}, delay});
        manager.swapSequenceDataItem(0, 2);
        manager.removeSequenceDataItem(1);
        manager.setPositionType(SequenceData::POS_TYPE_ANGLE);
        const SequenceData edited{1, QStringLiteral("angle"), {{{}, {}, 2}, {{}, {}, 3}}};
        QCOMPARE(manager.sequenceData(), edited);
        const QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("a.json")));
        QFile unusable(folder.path());
        for (int i = 0; i < 2; ++i)
            QTest::ignoreMessage(QtDebugMsg, "can't open error!");
        QVERIFY(!manager.loadSequenceData(unusable) && !manager.saveSequenceData(unusable));
        QVERIFY(!manager.loadSequenceData(file) && manager.saveSequenceData(file));
        manager.clearSequenceData();
        QCOMPARE(manager.sequenceData(), SequenceData());
        QVERIFY(manager.loadSequenceData(file));
        QVERIFY(file.resize(20) && !manager.loadSequenceData(file) && file.size() == 20);
        QCOMPARE(manager.sequenceData(), edited);
        for (const char* name : {EXAMPLES "/wave.json", EXAMPLES "/grip.json"}) {
            QFile example(QString::fromUtf8(name)); // not written by the program
            QVERIFY(manager.loadSequenceData(example) && example.open(QFile::ReadOnly));
            QCOMPARE(manager.sequenceData().toJSON(), example.readAll());
        }
    }
};

VANTO_TEST(tst_sequencedata)

} // namespace vanto

#include "tst_sequencedata.moc"
