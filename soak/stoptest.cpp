#include "stoptest.h"

#include "dialogwatch.h"
#include "handprocess.h"
#include "monitor.h"
#include "sequencemanager.h"
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
constexpr int StepCount = 1000;
constexpr int MaxPlayMs = 150;
constexpr int SettleAfterStopMs = 150;

void wait(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}
} // namespace

QString StopTest::writeSequence()
{
    SequenceManager manager;
    for (int i = 0; i < StepCount; ++i)
        manager.insertSequenceDataItem(
            i, {QList<int>(6, i % 2 == 0 ? 0 : 3000), QList<int>(6, 255), 0});
    QFile file(QDir::current().absoluteFilePath(QStringLiteral("steps.json")));
    manager.saveSequenceData(file);
    return file.fileName();
}

int StopTest::run(int count, std::uint32_t seed, const QString& protocol)
{
    HandProcess hand;
    if (!hand.start({QStringLiteral("--node"), QStringLiteral("1:") + protocol,
                     QStringLiteral("--speed"), QStringLiteral("50")}))
        return 1;
    const WindowDriver driver({hand.portName()});
    driver.openHand(hand.portName());
    driver.showPage(SequenceTab);
    const DialogWatch files(
        [name = writeSequence()](QDialog& dialog) { chooseFile(dialog, name); });
    driver.click("pushButton_SeqLoad");
    QRandomGenerator random(seed);
    int findings = 0;
    int before = 0;
    for (int i = 0; i < count; ++i) {
        QTimer::singleShot(random.bounded(MaxPlayMs), driver.window(), [&] {
            before += Monitor::countMotions(hand);
            driver.click("pushButton_SeqStop");
            hand.clearTrace();
        });
        driver.click("pushButton_SeqRun");
        wait(MaxPlayMs + SettleAfterStopMs);
        const int after = Monitor::countMotions(hand);
        if (after > 1) {
            ++findings;
            std::printf("FINDING: %d motions after stop %d\n", after, i);
        }
    }
    std::printf("%s, seed %u: %d stops, %d motions before them, %d findings\n",
                qPrintable(protocol), seed, count, before, findings);
    return findings + (before < count ? 1 : 0);
}

} // namespace vanto
