#include "recording.h"
#include "samplebuffer.h"
#include "telemetryrecorder.h"
#include "testmain.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

#include <sys/resource.h>
#include <sys/stat.h>

namespace vanto
{

namespace
{
constexpr std::size_t ThumbCurrent = 0;

Sample sampleAt(std::int64_t timeUs, std::int32_t value, std::size_t channel = ThumbCurrent)
{
    Sample sample;
    sample.timeUs = timeUs;
    sample.values[channel] = value;
    return sample;
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}
} // namespace

/// Samples in memory and in files.
class TestRecording : public QObject
{
    Q_OBJECT
private slots:
    void buffer();
    void recording();
    void fullDisk();
    void notRegular();
    void groups();
    void damaged_data();
    void damaged();

private:
    const TelemetryClock m_clock;
};

void TestRecording::buffer()
{
    SampleBuffer standard;
    constexpr std::size_t tenMinutes = 60'000; // at 100 a second
    QVERIFY(standard.capacity() >= tenMinutes && standard.memory() <= std::size_t{64} << 20);

    constexpr int capacity = 1000;
    constexpr int count = 3456;
    SampleBuffer buffer(capacity);
    QVERIFY(!buffer.last() && buffer.reduce(ThumbCurrent, 0, 10, 3).at(2).isEmpty());
    QRandomGenerator random(5);
    std::vector<Sample> all;
    for (int i = 0, time = 0; i < count; ++i, time += random.bounded(20)) {
        all.push_back(sampleAt(time, random.bounded(7) ? random.bounded(-500, 500) : MissingValue));
        all.back().afterGap = i == count - 100;
        buffer.append(all.back());
        if (i % 100 == 0)
            buffer.addMarker({time, QString::number(i)});
    }
    QCOMPARE(buffer.size(), std::size_t{capacity});
    QCOMPARE(buffer.at(0).timeUs, all[count - capacity].timeUs);
    QCOMPARE(buffer.last()->values, all.back().values);
    const std::int64_t from = buffer.timeAt(10);
    const std::int64_t to = buffer.timeAt(900);
    constexpr int columns = 77;
    const auto reduced = buffer.reduce(ThumbCurrent, from, to, columns);
    std::vector<Extent> expected(columns);
    for (const Sample& sample : all) {
        if (sample.timeUs < from || sample.timeUs >= to)
            continue;
        const auto column =
            static_cast<std::size_t>((sample.timeUs - from) * columns / (to - from));
        expected[column].add(sample.values[ThumbCurrent]);
        expected[column].afterGap |= sample.afterGap;
    }
    for (std::size_t i = 0; i < columns; ++i) {
        QCOMPARE(reduced[i].min, expected[i].min);
        QCOMPARE(reduced[i].max, expected[i].max);
        QCOMPARE(reduced[i].afterGap, expected[i].afterGap);
    }
    // The same samples, between two cursors and at them.
    RangeSum sum;
    double total = 0;
    int values = 0;
    for (const Sample& sample : all) {
        const std::int32_t value = sample.values[ThumbCurrent];
        if (sample.timeUs < from || sample.timeUs > to || value == MissingValue)
            continue;
        sum.add(value);
        total += value;
        ++values;
    }
    const RangeStatistics range = buffer.statistics(ThumbCurrent, from, to);
    QCOMPARE(range.min, sum.result(true).min);
    QCOMPARE(range.max, sum.result(true).max);
    QCOMPARE(range.mean.value(), total / values);
    const std::int64_t gapEnd = all[count - 100].timeUs;
    const auto at = [&](std::int64_t time) { return buffer.valueAt(ThumbCurrent, time).max; };
    QCOMPARE(at(gapEnd), all[count - 100].values[ThumbCurrent]);
    QCOMPARE(at(all[3000].timeUs), all[3000].values[ThumbCurrent]);
    for (const std::int64_t outside : {buffer.timeAt(0) - 1, all.back().timeUs + 1000})
        QCOMPARE(at(outside), MissingValue);
    QCOMPARE(buffer.statistics(ThumbCurrent, to, from).mean, std::nullopt);
    QCOMPARE(buffer.markers(all[3300].timeUs, all[3400].timeUs).value(0).text, QString("3300"));
}

void TestRecording::recording()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.csv");
    const ChannelSet channels =
        channelsOf(Quantity::Current) | channelsOf(Quantity::Angle) | channelsOf(Quantity::Force);
    TelemetryRecorder recorder(m_clock);
    while (m_clock.nowUs() < UsPerSecond) // a recording that does not begin with its clock
        QTest::qWait(10);
    const std::int64_t before = m_clock.nowUs();
    QCOMPARE(recorder.start(path, channels), QString());
    const std::int64_t after = m_clock.nowUs();
    QRandomGenerator random(6);
    std::vector<Sample> samples;
    for (int i = 0; i < 500; ++i) {
        Sample sample;
        sample.timeUs = after + 20 * UsPerSecond + i * std::int64_t{10'001};
        sample.afterGap = i == 0 || i == 77;
        for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
            if (channels[channel] && (channel == 0 || random.bounded(5)))
                sample.values[channel] = random.bounded(-40'000, 70'000);
        }
        if (i == 77 || i == 80)
            recorder.mark({sample.timeUs - 5, i == 77 ? "first, \"second\"" : "line\nbreak"});
        recorder.write(sample);
        samples.push_back(sample);
    }
    const std::int64_t end = samples.back().timeUs;
    QVERIFY(recorder.durationUs() >= end - after && recorder.durationUs() <= end - before);
    recorder.mark({end - 9, "gap"}); // older than the last sample
    for (const char* text : {"gap; a", "; a", "a; gap"})
        recorder.mark({end + 9, text});
    recorder.mark({end + 9, QString(100'000, 'x')});
    QTRY_VERIFY(QFileInfo(path).size() > 10'000); // without a call that ends the recording
    recorder.stop();
    QCOMPARE(recorder.size(), QFileInfo(path).size());
    recorder.write(samples.back());
    QVERIFY(contentOf(path).startsWith("time_s,wall_time,current_thumb_mA,current_index_mA,"));
    QVERIFY(contentOf(path).contains(",angle_thumb_root_deg,force_thumb_raw,"));

    const RecordingFile file = loadRecording(path);
    QCOMPARE(file.failure, QString());
    const Recording& read = file.recording;
    QCOMPARE(read.channels(), channels);
    QCOMPARE(read.rowCount(), samples.size());
    QCOMPARE(read.samplesPerRow(), std::size_t{1});
    QVERIFY(!read.isCut());
    const std::int64_t start = samples.front().timeUs - read.timeAt(0);
    QVERIFY(start >= before && start <= after);
    QVERIFY(qAbs(read.start().msecsTo(m_clock.timeOfDay(start))) <= 1);
    for (std::size_t row = 0; row < samples.size(); ++row) {
        QCOMPARE(read.timeAt(row), samples[row].timeUs - start);
        for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
            QCOMPARE(read.at(row, channel).min, samples[row].values[channel]);
            QCOMPARE(read.at(row, channel).afterGap, row == 77);
        }
    }
    QCOMPARE(read.markers(), (QList<Marker>{{samples[77].timeUs - 5 - start, "first, \"second\""},
                                            {samples[80].timeUs - 5 - start, "line break"},
                                            {end - start, "gap"},
                                            {end + 9 - start, "gap; a"},
                                            {end + 9 - start, "; a"},
                                            {end + 9 - start, "a; gap"},
                                            {end + 9 - start, QString(200, 'x')}}));
}

/// A limit of the file size fails like a full disk.
void TestRecording::fullDisk()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.csv");
    TelemetryRecorder recorder(m_clock);
    const QSignalSpy failed(&recorder, &TelemetryRecorder::sig_failed);
    QCOMPARE(recorder.start(path, channelsOf(Quantity::Current)), QString());
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit limited{100'001, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limited);
    for (int i = 0; i < 5000; ++i)
        recorder.write(sampleAt(1000 * UsPerSecond + i * std::int64_t{1000}, i));
    ::setrlimit(RLIMIT_FSIZE, &before);
    QCOMPARE(failed.count(), 1);
    QVERIFY(failed.at(0).at(0).toString().contains(path));
    QVERIFY(!recorder.isRecording());
    const QByteArray content = contentOf(path);
    QVERIFY(content.size() > 90'000 && content.endsWith('\n'));
    const RecordingFile file = loadRecording(path);
    QCOMPARE(file.failure, QString());
    QCOMPARE(qsizetype(file.recording.rowCount()), content.count('\n') - 1);
    QCOMPARE(file.recording.at(file.recording.rowCount() - 1, ThumbCurrent).max,
             std::int32_t(file.recording.rowCount()) - 1);
}

/// A pipe would block, a device could be endless.
void TestRecording::notRegular()
{
    const QTemporaryDir folder;
    const QString pipe = folder.filePath("pipe");
    QCOMPARE(::mkfifo(qPrintable(pipe), 0600), 0);
    TelemetryRecorder recorder(m_clock);
    for (const QString& path : {pipe, folder.path(), QString("/dev/zero")}) {
        QVERIFY(!recorder.start(path, channelsOf(Quantity::Current)).isEmpty());
        QVERIFY(!loadRecording(path).failure.isEmpty());
    }
    QVERIFY(!recorder.start(folder.filePath("missing/a.csv"), {}).isEmpty());
    QVERIFY(!loadRecording(folder.filePath("missing")).failure.isEmpty());
}

/// A large file is read as extents, which show the same plot.
void TestRecording::groups()
{
    constexpr int count = 600'000;
    RecordingParser exactParser(true);
    RecordingParser parser(false);
    QRandomGenerator random(7);
    QByteArray text = recordingHeader(channelsOf(Quantity::Current));
    for (int i = 0; i < count; ++i) {
        const QByteArray value = QByteArray::number(random.bounded(-1000, 1000));
        text += QByteArray::number(i / 100.0, 'f', 6) + ",," + value + ",,,,7," +
                (i % 3 ? "" : "-5") + ',' + (i == 5000 ? "gap" : "") + '\n';
    }
    for (qsizetype at = 0; at < text.size(); at += 12'347) {
        const auto part =
            QByteArrayView(text).sliced(at).first(std::min<qsizetype>(12'347, text.size() - at));
        QVERIFY2(exactParser.feed(part) && parser.feed(part), qPrintable(parser.error()));
    }
    QVERIFY(exactParser.finish() && parser.finish());
    const Recording exact = exactParser.take();
    const Recording groups = parser.take();
    QCOMPARE(exact.rowCount(), std::size_t{count});
    QVERIFY(groups.rowCount() <= Recording::MaxGroups);
    QCOMPARE(groups.sampleCount(), std::uint64_t{count});
    QCOMPARE(groups.samplesPerRow(), std::size_t{4});
    constexpr std::int64_t end = std::int64_t{count} * 10'000;
    for (const std::size_t channel : {0, 1, 4, 5}) {
        const auto expected = exact.reduce(channel, 0, end, 500);
        const auto reduced = groups.reduce(channel, 0, end, 500);
        for (std::size_t i = 0; i < expected.size(); ++i) {
            QCOMPARE(reduced[i].min, expected[i].min);
            QCOMPARE(reduced[i].max, expected[i].max);
            QCOMPARE(reduced[i].afterGap, expected[i].afterGap);
        }
    }
    // Of groups, the mean is not known, and the first one begins before the time.
    const RangeStatistics range = exact.statistics(0, 12'340'000, 99'990'000);
    const RangeStatistics ofGroups = groups.statistics(0, 12'350'000, 99'990'000);
    QVERIFY(range.mean && !ofGroups.mean && !ofGroups.isEmpty());
    QVERIFY(ofGroups.min <= range.min && ofGroups.max >= range.max);
    QCOMPARE(groups.valueAt(4, 12'350'000).max, 7);
    QCOMPARE(exact.valueAt(0, 12'345'678).min, exact.at(1234, 0).min);
    QVERIFY(exact.valueAt(0, 49'995'000).isEmpty()); // in the gap
}

void TestRecording::damaged_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("failure");
    const QByteArray header = "time_s,wall_time,current_thumb,marker\n";
    const auto row = [](const char* name, const QByteArray& content, const char* failure) {
        QTest::newRow(name) << content << QString(failure);
    };
    row("empty", "", "Line 1: This is not a recording.");
    row("binary", QByteArray(100, '\0') + '\n', "Line 1: This is not a recording.");
    row("other CSV", "a,b\n1,2\n", "Line 1: This is not a recording.");
    row("without an end", QByteArray(70'000, 'x'), "Line 1: The line is too long.");
    row("long line", header + QByteArray(70'000, 'x') + '\n', "Line 2: The line is too long.");
    row("column twice", "time_s,force_index,force_index_raw\n",
        "Line 1: The column 'force_index_raw' occurs twice.");
    row("not an angle", "time_s,angle_index_deg\n1,inf\n", "Line 2: 'inf' is not a number.");
    row("columns missing", header + "1,,\n", "Line 2: 4 columns are expected, but there are 3.");
    row("no number", header + "1,,x,\n", "Line 2: 'x' is not a number.");
    row("a fraction", header + "1,,1.5,\n", "Line 2: '1.5' is not a number.");
    row("too large", header + "1,,99999999999,\n", "Line 2: '99999999999' is not a number.");
    row("no time", header + "x,,1,\n", "Line 2: 'x' is not a time.");
    row("not finite", header + "inf,,1,\n", "Line 2: 'inf' is not a time.");
    row("negative", header + "-1,,1,\n", "Line 2: '-1' is not a time.");
    row("back in time", header + "2,,1,\n1,,1,\n",
        "Line 3: The time is before that of the line above.");
    row("quotation", header + "1,,1,\"a\n", "Line 2: A quotation mark is missing.");
    row("units", "time_s,angle_thumb_deg,current_thumb_mA,angle_index\n1,1.1,1,-200\n", "");
    row("cut", header + "1,,1,\n2,,1", "");
    row("only a header", header, "");
    row("from another tool",
        "\xEF\xBB\xBFtime_s,marker,other,current_thumb\r\n1,\"a \"\"b\"\"\",x,1\r\n\r\n2,,,\r\n",
        "");
}

void TestRecording::damaged()
{
    QFETCH(QByteArray, content);
    const QTemporaryDir folder;
    QFile file(folder.filePath("a.csv"));
    QVERIFY(file.open(QFile::WriteOnly) && file.write(content) == content.size());
    file.close();
    const RecordingFile read = loadRecording(file.fileName());
    QTEST(read.failure, "failure");
    if (!read.failure.isEmpty()) {
        QVERIFY(read.recording.isEmpty());
        return;
    }
    QCOMPARE(read.recording.isCut(), !content.endsWith('\n'));
    QCOMPARE(read.recording.rowCount(),
             std::size_t(!content.endsWith("marker\n") + content.contains("2,,,")));
    if (content.contains("deg")) {
        QCOMPARE(read.recording.at(0, Channel{Quantity::Angle, 0}.index()).min, 110);
        QCOMPARE(read.recording.at(0, Channel{Quantity::Angle, 1}.index()).min, -200);
    }
    if (content.contains("\"\""))
        QCOMPARE(read.recording.markers(), (QList<Marker>{{1'000'000, "a \"b\""}}));
}

VANTO_TEST(TestRecording)

} // namespace vanto

#include "tst_recording.moc"
