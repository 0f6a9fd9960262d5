#include "testwindow.h"

#include <QLabel>
#include <QStatusBar>
#include <QTemporaryDir>

namespace vanto
{

namespace
{
/// Settings land in the working directory, so each window gets a fresh one.
QStringList inFreshFolder(const QStringList& ports)
{
    static QList<std::shared_ptr<QTemporaryDir>> folders;
    folders.append(std::make_shared<QTemporaryDir>());
    QDir::setCurrent(folders.constLast()->path());
    // All but what the offscreen platform says of itself.
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not support)")));
    return ports;
}
} // namespace

TestWindow::TestWindow(const QStringList& ports) : WindowDriver(inFreshFolder(ports))
{
    click("pushButton_RefreshPorts"); // need not wait for the listing at the start
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
    // The error label's tool tip is its text; labels have no signal for a new one.
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
