#include "clitest.h"

#include "conditions.h"

#include <QCoreApplication>
#include <QFile>

namespace vanto
{

void CliTest::start(const QStringList& options)
{
    m_hand = std::make_unique<HandProcess>();
    QVERIFY2(m_hand->start(options), qPrintable(m_hand->errorText()));
}

void CliTest::close()
{
    if (m_hand)
        for (const TracedFrame& frame : m_hand->trace())
            QVERIFY2(!frame.marks.contains("overlap"), frame.bytes.toHex().constData());
    m_hand.reset();
}

QStringList CliTest::writes() const
{
    constexpr int FirstWrite = 0x40;
    QStringList frames = m_hand->frames();
    frames.removeIf(
        [](const QString& frame) { return frame.left(2).toInt(nullptr, 16) < FirstWrite; });
    return frames;
}

bool CliTest::comesToRest(int node) const
{
    const QString line = QString("get %1 moving 1").arg(node);
    return QTest::qWaitFor([&] { return m_hand->command(line) == "ok 0"; }, ConditionMs);
}

QProcessEnvironment CliTest::environment() const
{
    constexpr int Patience = 20; // scans wait for nodes that are not there
    CliProcess cli(*m_hand, Patience);
    auto environment = cli.process().processEnvironment();
    environment.insert("PATH",
                       QCoreApplication::applicationDirPath() + ':' + environment.value("PATH"));
    return environment;
}

void CliTest::writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
}

} // namespace vanto
