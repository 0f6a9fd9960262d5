#include "handinformationdialog.h"

#include "messagelog.h"
#include "modeless.h"
#include "parameterfile.h"
#include "program.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace vanto
{

namespace
{
QTableWidget* tableOf(const QList<HandInformation::Entry>& entries, QWidget* parent)
{
    auto* table = new QTableWidget(static_cast<int>(entries.size()), 2, parent);
    table->setObjectName(QStringLiteral("tableWidget_HandInformation"));
    table->setAccessibleName(HandInformationDialog::tr("Hand information"));
    table->setHorizontalHeaderLabels(
        {HandInformationDialog::tr("Name"), HandInformationDialog::tr("Value")});
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table->horizontalHeader()->setStretchLastSection(true);
    table->horizontalHeader()->setHighlightSections(false);
    table->verticalHeader()->hide();
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setTabKeyNavigation(false);
    for (int row = 0; row < entries.size(); ++row) {
        table->setItem(row, 0, new QTableWidgetItem(entries[row].name));
        table->setItem(row, 1, new QTableWidgetItem(entries[row].text));
    }
    return table;
}
} // namespace

HandInformationDialog::HandInformationDialog(QWidget* window, const MessageLog* log,
                                             SupportReport report)
    : QDialog(window), m_log(log), m_report(std::move(report))
{
    setObjectName(QStringLiteral("handInformation"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(Program::title() + QStringLiteral(" - ") + tr("Hand Information"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    auto* copy = buttons->addButton(tr("Copy"), QDialogButtonBox::ActionRole);
    copy->setObjectName(QStringLiteral("pushButton_InformationCopy"));
    auto* save = buttons->addButton(tr("Save Report..."), QDialogButtonBox::ActionRole);
    save->setObjectName(QStringLiteral("pushButton_SaveReport"));
    save->setToolTip(tr("Saves this, all parameters, the messages and the last frames"));
    connect(copy, &QPushButton::clicked, this,
            [this] { QApplication::clipboard()->setText(m_report.information.toText()); });
    connect(save, &QPushButton::clicked, this, &HandInformationDialog::saveReport);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tableOf(m_report.information.entries, this));
    layout->addWidget(buttons);
    resize(window->size() * 2 / 3);
}

void HandInformationDialog::saveReport()
{
    const Modeless::FileChoice choice{tr("Save report"),
                                      {tr("Text files (*.txt)"), tr("JSON files (*.json)")},
                                      QStringLiteral("report.txt")};
    Modeless::saveFile(this, choice, [this](const QString& path) {
        const QString failure = ParameterFile::writeBytes(path, reportFor(path));
        if (!failure.isEmpty())
            Modeless::showBox(this, QMessageBox::Critical,
                              tr("The report could not be saved in '%1'.").arg(path), failure);
    });
}

QByteArray HandInformationDialog::reportFor(const QString& path)
{
    m_report.time = QDateTime::currentDateTimeUtc();
    m_report.messages = m_log->lines();
    m_report.frames = FrameLog::instance().frames();
    return path.endsWith(QLatin1String(".json"), Qt::CaseInsensitive) ? m_report.toJson()
                                                                      : m_report.toText();
}

} // namespace vanto
