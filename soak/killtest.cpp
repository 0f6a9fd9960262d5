#include "killtest.h"

#include "dialogwatch.h"
#include "handprocess.h"
#include "sequenceeditor.h"
#include "windowdriver.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QLineEdit>
#include <QProcess>
#include <QRandomGenerator>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

namespace vanto
{

namespace
{
constexpr int EditIntervalMs = 20;
constexpr int MaxEditedRows = 200;
constexpr int MaxLifeMs = 8000; ///< from the first edit
/// From an edit until its draft is on disk: 2 s, and the time to write.
constexpr int MaxAgeMs = 3000;
constexpr int StartTimeoutMs = 60'000;
const QByteArray Restored = "restored ";
const QByteArray Edited = "edited ";

/// The edits are numbered; the number is the delay of the step concerned.
int lastEdit(const SequenceData& data)
{
    int last = 0;
    for (const SequenceDataItem& step : data.sequences)
        last = std::max(last, step.delay);
    return last;
}

void print(const QByteArray& what, int number)
{
    std::printf("%s%d\n", what.constData(), number);
    std::fflush(stdout);
}

void editOnce(const WindowDriver& driver, int number)
{
    auto* table = driver.find<QTableWidget>(QStringLiteral("tableWidget_Seq"));
    if (table->rowCount() > MaxEditedRows) {
        table->setRangeSelected({0, 0, MaxEditedRows / 2, table->columnCount() - 1}, true);
        driver.trigger(QStringLiteral("action_Delete_Step"));
    }
    driver.trigger(QStringLiteral("action_Duplicate_Step"));
    auto* delay = driver.find<QLineEdit>(QStringLiteral("lineEdit_SeqDelay"));
    delay->setText(QString::number(number));
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(delay, &key);
    print(Edited, number);
}

/// A process that edits, as seen from outside.
class Victim
{
public:
    Victim(const QString& folder, int patience)
    {
        m_process.setWorkingDirectory(folder);
        m_process.setStandardErrorFile(QProcess::nullDevice());
        m_process.start(QCoreApplication::applicationFilePath(),
                        {QStringLiteral("--edit-until-killed"), QStringLiteral("--patience"),
                         QString::number(patience)});
        m_clock.start();
    }
    bool waitForEdit()
    {
        return read(StartTimeoutMs, [this] { return !m_edits.empty(); });
    }
    /// Returns false if the process has ended by itself.
    bool killAfter(int ms)
    {
        read(ms, [] { return false; });
        const bool runs = m_process.state() == QProcess::Running;
        m_killedMs = m_clock.elapsed();
        m_process.kill();
        m_process.waitForFinished(StartTimeoutMs);
        return runs;
    }
    /// The number that was offered at its start, -1 if none was.
    int restored() const { return m_restored; }
    /// The last edit that must survive it.
    int leastKept(int maxAgeMs) const
    {
        int last = m_restored;
        for (const Edit& edit : m_edits)
            if (edit.ms < m_killedMs - maxAgeMs)
                last = edit.number;
        return last;
    }
    /// The age of the oldest edit that is lost if this one is the last that is kept.
    qint64 ageOfLoss(int kept) const
    {
        const auto lost = std::ranges::upper_bound(m_edits, kept, {}, &Edit::number);
        return lost == m_edits.end() ? 0 : m_killedMs - lost->ms;
    }

private:
    struct Edit {
        int number;
        qint64 ms;
    };

    template<class Condition>
    bool read(int timeoutMs, Condition isEnough)
    {
        QElapsedTimer timer;
        timer.start();
        while (!isEnough()) {
            if (const auto left = timeoutMs - timer.elapsed();
                left <= 0 ||
                (!m_process.canReadLine() && !m_process.waitForReadyRead(static_cast<int>(left))))
                return false;
            while (m_process.canReadLine())
                note(m_process.readLine());
        }
        return true;
    }
    void note(const QByteArray& line)
    {
        if (line.startsWith(Restored))
            m_restored = line.mid(Restored.size()).trimmed().toInt();
        else if (line.startsWith(Edited))
            m_edits.push_back({line.mid(Edited.size()).trimmed().toInt(), m_clock.elapsed()});
    }

    QProcess m_process;
    QElapsedTimer m_clock;
    std::vector<Edit> m_edits;
    int m_restored = -1;
    qint64 m_killedMs = 0;
};
} // namespace

int KillTest::edit()
{
    HandProcess hand;
    if (!hand.start({QStringLiteral("--node"), QStringLiteral("1")}))
        return 2;
    const WindowDriver driver({hand.portName()});
    driver.openHand(hand.portName());
    driver.showPage(SequenceTab);
    const auto* editor = driver.window()->findChild<SequenceEditor*>();
    if (driver.find<QWidget>(QStringLiteral("widget_SeqDraft"))->isVisible()) {
        driver.click(QStringLiteral("pushButton_SeqRestoreDraft"));
        print(Restored, lastEdit(editor->data()));
    } else {
        QFile file(QDir::current().absoluteFilePath(QStringLiteral("start.json")));
        if (!file.open(QFile::WriteOnly))
            return 2;
        file.write(SequenceData{1, SequenceData::POS_TYPE_POSITION, {{{}, {}, 0}}}.toJSON());
        file.close();
        const DialogWatch dialogs([&](QDialog& dialog) { chooseFile(dialog, file.fileName()); });
        driver.click(QStringLiteral("pushButton_SeqLoad"));
    }
    driver.find<QTableWidget>(QStringLiteral("tableWidget_Seq"))->selectAll();
    QTimer timer;
    QObject::connect(
        &timer, &QTimer::timeout, &timer,
        [&, number = lastEdit(editor->data())]() mutable { editOnce(driver, ++number); });
    timer.start(EditIntervalMs);
    return QApplication::exec();
}

int KillTest::run(int count, std::uint32_t seed, int patience)
{
    QRandomGenerator random(seed);
    const QTemporaryDir folder;
    int findings = 0;
    int leastKept = -1;
    qint64 oldest = 0;
    const auto addFinding = [&](const QString& what) {
        ++findings;
        std::printf("FINDING: %s\n", qPrintable(what));
    };
    std::unique_ptr<Victim> last;
    for (int i = 0; i <= count; ++i) { // the additional one only restores
        auto victim = std::make_unique<Victim>(folder.path(), patience);
        if (!victim->waitForEdit())
            addFinding(QStringLiteral("process %1 does not edit").arg(i));
        if (victim->restored() < leastKept)
            addFinding(QStringLiteral("edit %1 is offered instead of %2 or a later one")
                           .arg(victim->restored())
                           .arg(leastKept));
        if (last)
            oldest = std::max(oldest, last->ageOfLoss(victim->restored()));
        if (!victim->killAfter(i < count ? random.bounded(MaxLifeMs) : 0))
            addFinding(QStringLiteral("process %1 has ended by itself").arg(i));
        leastKept = victim->leastKept(MaxAgeMs * patience);
        last = std::move(victim);
    }
    std::printf("seed %u: %d kills during edits, %d edits kept, at most the last %lld ms lost, "
                "%d findings\n",
                seed, count, last->restored(), oldest, findings);
    return findings;
}

} // namespace vanto
