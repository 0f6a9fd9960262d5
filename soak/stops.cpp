#include "stops.h"

#include "handprocess.h"
#include "mainwindow.h"
#include "openhand.h"
#include "pageindex.h"
#include "sequencemanager.h"
#include "watch.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTabWidget>
#include <QTimer>

#include <cstdio>

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

void load(const MainWindow& window, const QString& name)
{
    QTimer answer;
    QObject::connect(&answer, &QTimer::timeout, &window, [&] {
        if (auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
            // selectFile() does nothing until the dialog has read its folder.
            dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(name);
            static_cast<QDialog*>(dialog)->accept();
        }
    });
    answer.start(50);
    window.findChild<QPushButton*>(QStringLiteral("pushButton_SeqLoad"))->click();
}
} // namespace

int Stops::campaign(int count, quint32 seed, const QString& protocol)
{
    HandProcess hand;
    if (!hand.start({QStringLiteral("--node"), QStringLiteral("1:") + protocol,
                     QStringLiteral("--speed"), QStringLiteral("50")}))
        return 1;
    qputenv("VANTO_PORTS", hand.portName().toUtf8());
    MainWindow window;
    window.show();
    openHand(window, hand.portName());
    window.findChild<QTabWidget*>(QStringLiteral("tabWidget"))->setCurrentIndex(SequencePage);
    load(window, writeSequence());
    auto* run = window.findChild<QPushButton*>(QStringLiteral("pushButton_SeqRun"));
    auto* stop = window.findChild<QPushButton*>(QStringLiteral("pushButton_SeqStop"));
    QRandomGenerator random(seed);
    int bad = 0;
    int before = 0;
    for (int i = 0; i < count; ++i) {
        QTimer::singleShot(random.bounded(LongestPlayMs), &window, [&] {
            before += Watch::motions(hand);
            stop->click();
            hand.forgetTrace();
        });
        run->click();
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
