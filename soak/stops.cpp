#include "stops.h"

#include "dialogwatch.h"
#include "handprocess.h"
#include "sequencemanager.h"
#include "watch.h"
#include "windowdriver.h"

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QRandomGenerator>
#include <QTimer>

#include <cstdio>

namespace vanto
{

namespace
{
constexpr int Steps = 1000;
constexpr int LongestPlayMs = 150;
constexpr int AfterwardsMs = 150;

void wait(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

QString writeSequence()
{
    SequenceManager manager;
    for (int i = 0; i < Steps; ++i)
        manager.insertSequenceDataItem(
            i, {QList<int>(6, i % 2 == 0 ? 0 : 3000), QList<int>(6, 255), 0});
    QFile file(QDir::current().absoluteFilePath(QStringLiteral("steps.json")));
    manager.saveSequenceData(file);
    return file.fileName();
}
} // namespace

int Stops::campaign(int count, quint32 seed, const QString& protocol)
{
    HandProcess hand;
    if (!hand.start({QStringLiteral("--node"), QStringLiteral("1:") + protocol,
                     QStringLiteral("--speed"), QStringLiteral("50")}))
        return 1;
    const WindowDriver tool({hand.portName()});
    tool.openHand(hand.portName());
    tool.showPage(SequenceTab);
    const DialogWatch files(
        [name = writeSequence()](QDialog& dialog) { chooseFile(dialog, name); });
    tool.click("pushButton_SeqLoad");
    QRandomGenerator random(seed);
    int bad = 0;
    int before = 0;
    for (int i = 0; i < count; ++i) {
        QTimer::singleShot(random.bounded(LongestPlayMs), tool.window(), [&] {
            before += Watch::motions(hand);
            tool.click("pushButton_SeqStop");
            hand.forgetTrace();
        });
        tool.click("pushButton_SeqRun");
        wait(LongestPlayMs + AfterwardsMs);
        const int after = Watch::motions(hand);
        if (after > 1) {
            ++bad;
            std::printf("FINDING: %d motions after stop %d\n", after, i);
        }
    }
    std::printf("%s, seed %u: %d stops, %d motions before them, %d findings\n",
                qPrintable(protocol), seed, count, before, bad);
    return bad + (before < count ? 1 : 0);
}

} // namespace vanto
