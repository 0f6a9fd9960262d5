#include "handprocess.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QtEndian>

namespace vanto
{

namespace
{
constexpr int AnswerMs = 10'000; ///< generous: a loaded machine under sanitizers is slow

// Places in a SerialCtrl frame.
constexpr int NodeAt = 2;
constexpr int CommandAt = 4;
constexpr int PayloadAt = 6;

QString hexOf(const QByteArray& bytes, qsizetype at, qsizetype count)
{
    return QString::fromLatin1(bytes.mid(at, count).toHex());
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
                                m_folder.filePath(QStringLiteral("trace"))} +
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
    if (!m_process.waitForFinished(AnswerMs))
        m_process.kill();
    m_process.waitForFinished(AnswerMs);
}

QString HandProcess::portName() const
{
    return m_folder.filePath(QStringLiteral("port"));
}

QString HandProcess::command(const QString& line)
{
    m_process.write(line.toUtf8() + '\n');
    return readLine();
}

QString HandProcess::readLine()
{
    const QDeadlineTimer deadline(AnswerMs);
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(static_cast<int>(deadline.remainingTime())))
            return {};
    }
    return QString::fromUtf8(m_process.readLine()).trimmed();
}

QList<TracedFrame> HandProcess::trace() const
{
    QFile file(m_folder.filePath(QStringLiteral("trace")));
    QList<TracedFrame> frames;
    if (!file.open(QFile::ReadOnly) || !file.seek(m_forgotten))
        return frames;
    const auto lines = file.readAll().split('\n');
    for (const QByteArray& line : lines.first(lines.size() - 1))
        frames.append(parseTraceLine(QString::fromLatin1(line)));
    return frames;
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
        const QByteArray payload = bytes.mid(PayloadAt, bytes.size() - PayloadAt - 1);
        if (commands.isEmpty() || commands.contains(bytes[CommandAt]))
            frames.append(hexOf(bytes, CommandAt, 1) + QLatin1Char(' ') +
                          QString::fromLatin1(payload.toHex()));
    }
    return frames;
}

QStringList HandProcess::addressed() const
{
    QStringList frames;
    for (const TracedFrame& request : requests())
        frames.append(hexOf(request.bytes, NodeAt, 1) + QLatin1Char(':') +
                      hexOf(request.bytes, CommandAt, 1));
    return frames;
}

QStringList HandProcess::modbusWrites() const
{
    QStringList writes;
    for (const TracedFrame& request : requests()) {
        const QByteArray& bytes = request.bytes;
        const auto start = qFromBigEndian<quint16>(bytes.constData() + 2);
        const QString values = bytes[1] == 6    ? hexOf(bytes, 4, 2)
                               : bytes[1] == 16 ? hexOf(bytes, 7, bytes[6])
                                                : QString();
        if (!values.isEmpty())
            writes.append(QStringLiteral("%1: %2").arg(start).arg(values));
    }
    return writes;
}

void HandProcess::forgetTrace()
{
    m_forgotten = QFile(m_folder.filePath(QStringLiteral("trace"))).size();
}

} // namespace vanto
