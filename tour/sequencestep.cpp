#include "sequencestep.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>

namespace vanto
{

namespace
{
constexpr int StepsPlayed = 3; ///< from the end
constexpr int IndexColumn = 2;
const QString Example = QStringLiteral(VANTO_EXAMPLES "/wave.json");

QByteArray contentOf(const QString& name)
{
    QFile file(name);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}
} // namespace

QString sequencePage(Stage& stage)
{
    auto* table = stage.find<QTableWidget>("tableWidget_Seq");
    auto* run = stage.find<QPushButton>("pushButton_SeqRun");
    stage.showPage(SequenceTab);
    stage.withDialog([&] { stage.click("pushButton_SeqLoad"); }, withFile(stage, Example));
    const int start = table->rowCount() - StepsPlayed;
    table->setCurrentCell(start, 0);
    stage.await(QStringLiteral("the hand takes the step's pose"),
                [&] { return run->isEnabled() && table->currentRow() == start; });
    stage.takePicture(QStringLiteral("-edit"));
    stage.click(run->objectName());
    stage.await(QStringLiteral("the last step is played"),
                [&] { return table->currentRow() == table->rowCount() - 1; });
    stage.takePicture(QStringLiteral("-playing"));
    stage.await(QStringLiteral("the play ends"), [&] { return run->isEnabled(); });
    stage.expect(QStringLiteral("the index finger's target"),
                 stage.askHands(QStringLiteral("get 2 target 1")),
                 table->item(table->rowCount() - 1, IndexColumn)->text());

    const QString copy = QDir::current().absoluteFilePath(QStringLiteral("copy.json"));
    stage.withDialog([&] { stage.click("pushButton_SeqSave"); }, withFile(stage, copy));
    if (contentOf(copy).isEmpty() || contentOf(copy) != contentOf(Example))
        stage.complain(QStringLiteral("what is saved is not what was loaded"));
    stage.showPage(BasicTab);
    return QStringLiteral("%1 of %2 steps played").arg(StepsPlayed).arg(table->rowCount());
}

} // namespace vanto
