#include "windowdriver.h"

#include <QLabel>
#include <QStatusBar>
#include <QTemporaryDir>

namespace
{
/// Settings land in the working directory, so each window gets a fresh one.
void enterFreshFolder()
{
    static QList<std::shared_ptr<QTemporaryDir>> folders;
    folders.append(std::make_shared<QTemporaryDir>());
    QDir::setCurrent(folders.constLast()->path());
}
} // namespace

WindowDriver::WindowDriver(const QStringList& ports)
{
    // All but what the offscreen platform says of itself.
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not support)")));
    enterFreshFolder();
    qputenv("VANTO_PORTS", ports.join(QLatin1Char(':')).toUtf8());
    m_window = std::make_unique<MainWindow>();
    m_window->show();
    click("pushButton_RefreshPorts"); // need not wait for the listing at the start
    QObject::connect(find<QStatusBar>("statusBar"), &QStatusBar::messageChanged, m_window.get(),
                     [this](const QString& text) {
                         if (!text.isEmpty())
                             m_shown.append(text);
                     });
    find<QLabel>("label_StatusError")->installEventFilter(this);
    if (!ports.isEmpty())
        choosePort(ports.constFirst());
}

WindowDriver::~WindowDriver() = default;

bool WindowDriver::eventFilter(QObject* watched, QEvent* event)
{
    // The error label's tool tip is its text; labels have no signal for a new one.
    if (event->type() == QEvent::ToolTipChange && !errorText().isEmpty())
        m_shown.append(errorText());
    return QObject::eventFilter(watched, event);
}

void WindowDriver::click(const char* button) const
{
    QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton);
}

void WindowDriver::trigger(const char* action) const
{
    find<QAction>(action)->trigger();
}

QStringList WindowDriver::deviceTexts() const
{
    QStringList texts;
    for (int i = 0; i < devices()->count(); ++i)
        texts.append(devices()->itemText(i));
    return texts;
}

QString WindowDriver::statusText() const
{
    return find<QStatusBar>("statusBar")->currentMessage();
}

QString WindowDriver::errorText() const
{
    return find<QLabel>("label_StatusError")->text();
}

void WindowDriver::choosePort(const QString& name) const
{
    auto* ports = find<QComboBox>("comboBox_Ports");
    const int index = ports->findData(name);
    QVERIFY2(index >= 0, qPrintable(name));
    ports->setCurrentIndex(index);
}

void WindowDriver::list(const QStringList& deviceTexts) const
{
    for (const QString& text : deviceTexts)
        devices()->insertItem(devices()->count(), text, text.mid(2, 2).toInt(nullptr, 16));
}

void WindowDriver::scanFor(int hands) const
{
    auto* scan = find<QPushButton>("pushButton_ScanDevices");
    const auto connection = QObject::connect(
        devices()->model(), &QAbstractItemModel::rowsInserted, m_window.get(), [=, this] {
            if (devices()->count() == hands)
                QMetaObject::invokeMethod(
                    scan, [=] { scan->click(); }, Qt::QueuedConnection);
        });
    click("pushButton_ScanDevices");
    QObject::disconnect(connection);
    QCOMPARE(devices()->count(), hands);
    QCOMPARE(scan->text(), QStringLiteral("Scan"));
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
