#include "handprocess.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QtEndian>

#include <cstdint>

namespace vanto
{

namespace
{
constexpr int AnswerTimeoutMs = 10'000; ///< generous, as sanitizers are slow on a busy machine

// Offsets in a SerialCtrl frame.
constexpr int NodeOffset = 2;
constexpr int CommandOffset = 4;
constexpr int PayloadOffset = 6;

QString toHex(const QByteArray& bytes, qsizetype offset, qsizetype count)
{
    return QString::fromLatin1(bytes.mid(offset, count).toHex());
}

TracedFrame parseTraceLine(const QString& line)
{
    TracedFrame frame;
    const QStringList words = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words.size() < 4)
        return frame;
    frame.ms = words[0].toDouble();
    frame.direction = words[1];
    frame.protocol = words[2];
    frame.node = words[3].toInt(nullptr, 16);
    for (const QString& word : words.sliced(4)) {
        if (word.startsWith(QLatin1Char('!')))
            frame.marks += word;
        else
            frame.bytes += QByteArray::fromHex(word.toLatin1());
    }
    return frame;
}

bool isMotion(const QByteArray& line)
{
    return line.contains(" mv ");
}

MotionMark parseMotionLine(const QString& line)
{
    const QStringList words = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    MotionMark mark{words.value(0).toDouble(),
                    words.value(3).toInt(nullptr, 16),
                    words.value(2) == QLatin1String("moves"),
                    {}};
    for (const QString& position : words.mid(4))
        mark.positions.append(position.toInt());
    return mark;
}
} // namespace

HandProcess::HandProcess() = default;

HandProcess::~HandProcess()
{
    stop();
}

bool HandProcess::start(const QStringList& options)
{
    const QString program = QCoreApplication::applicationDirPath() + QStringLiteral("/vanto-hand");
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(program,
                    QStringList{QStringLiteral("--link"), portName(), QStringLiteral("--trace"),
                                m_directory.filePath(QStringLiteral("trace"))} +
                        options);
    if (!readLine().startsWith(QLatin1String("/dev/"))) {
        m_errorText = program + QStringLiteral(": ") + m_process.errorString();
        return false;
    }
    return true;
}

void HandProcess::stop()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.closeWriteChannel();
    if (!m_process.waitForFinished(AnswerTimeoutMs))
        m_process.kill();
    m_process.waitForFinished(AnswerTimeoutMs);
}

QString HandProcess::portName() const
{
    return m_directory.filePath(QStringLiteral("port"));
}

QString HandProcess::command(const QString& line)
{
    m_process.write(line.toUtf8() + '\n');
    return readLine();
}

QString HandProcess::readLine()
{
    const QDeadlineTimer deadline(AnswerTimeoutMs);
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(static_cast<int>(deadline.remainingTime())))
            return {};
    }
    return QString::fromUtf8(m_process.readLine()).trimmed();
}

/// Whole lines, as the hand may be writing one.
QByteArray HandProcess::readTrace() const
{
    QFile file(m_directory.filePath(QStringLiteral("trace")));
    if (!file.open(QFile::ReadOnly) || !file.seek(m_traceStart))
        return {};
    const QByteArray bytes = file.readAll();
    return bytes.first(bytes.lastIndexOf('\n') + 1);
}

QStringList HandProcess::traceLines(bool ofMotion) const
{
    QStringList found;
    const auto lines = readTrace().split('\n');
    for (const QByteArray& line : lines.first(lines.size() - 1)) {
        if (isMotion(line) == ofMotion)
            found.append(QString::fromLatin1(line));
    }
    return found;
}

HandProcess::TracePart HandProcess::takeTrace()
{
    const QByteArray part = readTrace();
    m_traceStart += part.size();
    TracePart taken;
    const auto lines = part.split('\n');
    for (const QByteArray& line : lines.first(lines.size() - 1)) {
        const QString text = QString::fromLatin1(line);
        if (isMotion(line))
            taken.marks.append(parseMotionLine(text));
        else
            taken.frames.append(parseTraceLine(text));
    }
    return taken;
}

QList<TracedFrame> HandProcess::trace() const
{
    QList<TracedFrame> frames;
    for (const QString& line : traceLines(false))
        frames.append(parseTraceLine(line));
    return frames;
}

QList<MotionMark> HandProcess::motionMarks() const
{
    QList<MotionMark> marks;
    for (const QString& line : traceLines(true))
        marks.append(parseMotionLine(line));
    return marks;
}

QList<double> HandProcess::positionsAt(const QList<MotionMark>& marks, int node, double ms)
{
    const MotionMark* before = nullptr;
    const MotionMark* after = nullptr;
    for (const MotionMark& mark : marks) {
        if (mark.node != node)
            continue;
        (mark.ms <= ms ? before : after) = &mark;
        if (after != nullptr)
            break;
    }
    if (before == nullptr)
        before = after;
    if (before == nullptr)
        return {};
    const bool between = before->moving && after != nullptr && after != before;
    const double share = between ? (ms - before->ms) / (after->ms - before->ms) : 0.0;
    QList<double> positions;
    for (qsizetype finger = 0; finger < before->positions.size(); ++finger) {
        const int from = before->positions[finger];
        const int to = between ? after->positions[finger] : from;
        positions.append(from + share * (to - from));
    }
    return positions;
}

QList<TracedFrame> HandProcess::requests() const
{
    auto frames = trace();
    frames.removeIf(
        [](const TracedFrame& frame) { return frame.direction != QLatin1String("rx"); });
    return frames;
}

QStringList HandProcess::frames(const QList<int>& commands) const
{
    QStringList frames;
    for (const TracedFrame& request : requests()) {
        const QByteArray& bytes = request.bytes;
        const QByteArray payload = bytes.mid(PayloadOffset, bytes.size() - PayloadOffset - 1);
        if (commands.isEmpty() || commands.contains(bytes[CommandOffset]))
            frames.append(toHex(bytes, CommandOffset, 1) + QLatin1Char(' ') +
                          QString::fromLatin1(payload.toHex()));
    }
    return frames;
}

QStringList HandProcess::addressed() const
{
    QStringList frames;
    for (const TracedFrame& request : requests())
        frames.append(toHex(request.bytes, NodeOffset, 1) + QLatin1Char(':') +
                      toHex(request.bytes, CommandOffset, 1));
    return frames;
}

QStringList HandProcess::modbusWrites() const
{
    QStringList writes;
    for (const TracedFrame& request : requests()) {
        const QByteArray& bytes = request.bytes;
        const auto start = qFromBigEndian<std::uint16_t>(bytes.constData() + 2);
        const QString values = bytes[1] == 6    ? toHex(bytes, 4, 2)
                               : bytes[1] == 16 ? toHex(bytes, 7, bytes[6])
                                                : QString();
        if (!values.isEmpty())
            writes.append(QStringLiteral("%1: %2").arg(start).arg(values));
    }
    return writes;
}

void HandProcess::clearTrace()
{
    m_traceStart = QFile(m_directory.filePath(QStringLiteral("trace"))).size();
}

} // namespace vanto
