#include "testwindow.h"

#include <QFile>
#include <QLabel>
#include <QStatusBar>
#include <QTemporaryDir>

namespace vanto
{

namespace
{
/// The program stores settings in the working directory, so each window gets a new one.
QStringList changeToNewFolder(const QStringList& ports)
{
    static QList<std::shared_ptr<QTemporaryDir>> folders;
    folders.append(std::make_shared<QTemporaryDir>());
    QDir::setCurrent(folders.constLast()->path());
    // Any warning except the one of the offscreen platform.
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not support)")));
    return ports;
}
} // namespace

TestWindow::TestWindow(const QStringList& ports) : WindowDriver(changeToNewFolder(ports))
{
    click("pushButton_RefreshPorts"); // instead of waiting for the list of the start
    connect(window()->statusBar(), &QStatusBar::messageChanged, this, [this](const QString& text) {
        if (!text.isEmpty())
            m_shown.append(text);
    });
    find<QLabel>("label_StatusError")->installEventFilter(this);
    if (!ports.isEmpty())
        choosePort(ports.constFirst());
}

bool TestWindow::eventFilter(QObject* watched, QEvent* event)
{
    // The tool tip of the error label is its text; QLabel has no signal for a changed text.
    if (event->type() == QEvent::ToolTipChange && !errorText().isEmpty())
        m_shown.append(errorText());
    return QObject::eventFilter(watched, event);
}

QStringList TestWindow::deviceTexts() const
{
    QStringList texts;
    for (int i = 0; i < devices()->count(); ++i)
        texts.append(devices()->itemText(i));
    return texts;
}

void TestWindow::list(const QStringList& deviceTexts) const
{
    for (const QString& text : deviceTexts)
        devices()->insertItem(devices()->count(), text, text.mid(2, 2).toInt(nullptr, 16));
}

void TestWindow::scanFor(int hands) const
{
    scan(hands);
    QCOMPARE(devices()->count(), hands);
    QCOMPARE(find<QPushButton>("pushButton_ScanDevices")->text(), QStringLiteral("Scan"));
}

QString styleSheetOf(const QString& theme)
{
    QFile file(QString(":qdarkstyle/%1/%1style.qss").arg(theme));
    return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void addBoolRows(const char* column, const char* whenTrue, const char* whenFalse)
{
    QTest::addColumn<bool>(column);
    QTest::newRow(whenTrue) << true;
    QTest::newRow(whenFalse) << false;
}

void addTextRows(const QList<const char*>& columns, const QList<QStringList>& rows)
{
    for (const char* column : columns)
        QTest::addColumn<QString>(column);
    for (const QStringList& row : rows) {
        QTestData& data = QTest::newRow(qPrintable(row.join(", ")));
        for (const QString& text : row)
            data << text;
    }
}

} // namespace vanto
