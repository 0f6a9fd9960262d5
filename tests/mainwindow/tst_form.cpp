#include "testmain.h"
#include "testwindow.h"
#include "translation.h"

#include <QAccessible>
#include <QDir>
#include <QLabel>
#include <QMenuBar>
#include <QScrollBar>
#include <QSlider>
#include <QTabBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTranslator>

namespace vanto
{

/// The form: accessible names, the tab order, and that no text is cut off.
class TestForm : public QObject
{
    Q_OBJECT
private slots:
    void accessibleNames();
    void nothingIsCut_data();
    void nothingIsCut();
    void tabOrder();
    void mnemonics_data();
    void mnemonics();
    void cleanup()
    {
        qApp->setStyleSheet({});
        qDeleteAll(qApp->findChildren<QTranslator*>());
    }
};

namespace
{
const QStringList Fingers{"Thumb", "Index", "Middle", "Third", "Little", "Thumb root"};

QList<QWidget*> controls(const QWidget* window)
{
    QList<QWidget*> found;
    for (auto* widget : window->findChildren<QWidget*>()) {
        const bool control = qobject_cast<QAbstractButton*>(widget) ||
                             qobject_cast<QComboBox*>(widget) || qobject_cast<QLineEdit*>(widget) ||
                             qobject_cast<QSlider*>(widget) || qobject_cast<QTableView*>(widget);
        if (control && !widget->objectName().isEmpty() && !widget->objectName().startsWith("qt_") &&
            !widget->objectName().startsWith("Scroll"))
            found.append(widget);
    }
    return found;
}

/// Those of the catalogues.
QStringList languages()
{
    const QDir catalogues(QCoreApplication::applicationDirPath() + "/i18n");
    QStringList names;
    for (const QString& file : catalogues.entryList({"*.qm"}))
        names.append(file.chopped(3).section('_', 1));
    return names;
}

QString accessibleName(QWidget* widget)
{
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}
} // namespace

void TestForm::accessibleNames()
{
    TestWindow tool;
    QSet<QString> names;
    const auto all = controls(tool.window());
    QVERIFY(all.size() > 150);
    for (QWidget* widget : all) {
        const QString name = accessibleName(widget);
        QVERIFY2(!name.isEmpty(), qPrintable(widget->objectName()));
        const QString object = widget->objectName();
        static const QRegularExpression perFinger("_(Setting|Run|Seq)\\w*[0-5]$|_BasicCali");
        if (perFinger.match(object).hasMatch())
            QVERIFY2(name.contains(Fingers[object.back().digitValue()], Qt::CaseInsensitive),
                     qPrintable(object + ": " + name));
        const QString page =
            object.mid(object.indexOf('_') + 1, 3) + name + widget->metaObject()->className();
        QVERIFY2(!names.contains(page), qPrintable(object + ": " + name));
        names.insert(page);
    }
}

void TestForm::nothingIsCut_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QString>("language");
    for (const char* theme : {"", "dark", "light"})
        for (const QSize size : {QSize(1024, 700), QSize(1920, 1080)})
            QTest::addRow("%s %d", theme, size.width()) << QString(theme) << size << QString();
    for (const QString& language : languages())
        for (const char* theme : {"", "dark"})
            QTest::addRow("%s %s", qPrintable(language), theme)
                << QString(theme) << QSize(1024, 700) << language;
}

void TestForm::nothingIsCut()
{
    QFETCH(QString, theme);
    QFETCH(QSize, size);
    QFETCH(QString, language);
    QCOMPARE(Translation::install(language), !language.isEmpty());
    TestWindow tool;
    qApp->setStyleSheet(styleSheetOf(theme));
    tool.window()->resize(size);
    auto* tabs = tool.find<QTabWidget>("tabWidget");
    tabs->setTabVisible(3, true);
    for (int page = 0; page < tabs->count(); ++page) {
        tabs->setCurrentIndex(page);
        QCoreApplication::processEvents();
        QCOMPARE(tool.window()->size(), size);
        for (auto* label : tool.window()->findChildren<QLabel*>())
            QVERIFY2(!label->isVisible() || label->wordWrap() ||
                         label->width() >= label->sizeHint().width(),
                     qPrintable(label->objectName()));
        for (auto* button : tool.window()->findChildren<QPushButton*>())
            QVERIFY2(!button->isVisible() || (button->width() >= button->sizeHint().width() &&
                                              button->height() >= button->sizeHint().height()),
                     qPrintable(button->objectName()));
        for (auto* scroller : tabs->tabBar()->findChildren<QAbstractButton*>())
            QVERIFY(!scroller->isVisible()); // visible when the tabs do not fit
        for (auto* field : tabs->currentWidget()->findChildren<QLineEdit*>())
            QVERIFY2(field->width() >= field->fontMetrics().horizontalAdvance("-327.68") + 4,
                     qPrintable(field->objectName()));
        for (auto* bar : tabs->currentWidget()->findChildren<QScrollBar*>())
            QVERIFY2(!bar->isVisible(), qPrintable(bar->parentWidget()->parent()->objectName()));
    }
    auto* table = tool.find<QTableWidget>("tableWidget_Seq");
    for (int column = 0; column < table->columnCount(); ++column)
        QVERIFY(table->columnWidth(column) >= table->fontMetrics().horizontalAdvance(
                                                  table->horizontalHeaderItem(column)->text()));
}

void TestForm::tabOrder()
{
    TestWindow tool;
    QStringList order;
    QWidget* widget = tool.find<QComboBox>("comboBox_Ports");
    const QWidget* first = widget;
    do {
        if (!widget->objectName().isEmpty() && widget->focusPolicy() & Qt::TabFocus)
            order.append(widget->objectName());
        widget = widget->nextInFocusChain();
    } while (widget != first);
    const auto precedes = [&](const char* a, const char* b) {
        return order.contains(a) && order.contains(b) && order.indexOf(a) < order.indexOf(b);
    };
    QVERIFY(precedes("comboBox_Devices", "pushButton_ScanDevices"));
    QVERIFY(precedes("pushButton_SettingWriteForceLimit0", "lineEdit_SettingP1"));
    QVERIFY(precedes("lineEdit_RunCurrent0", "verticalSlider_RunPos1"));
    QVERIFY(precedes("tableWidget_Seq", "pushButton_SeqInsert"));
}

void TestForm::mnemonics_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("English") << QString();
    for (const QString& language : languages())
        QTest::newRow(qPrintable(language)) << language;
}

void TestForm::mnemonics()
{
    QFETCH(QString, language);
    QCOMPARE(Translation::install(language), !language.isEmpty());
    TestWindow tool;
    QList<QWidget*> menus{tool.find<QMenuBar>("menuBar")};
    for (auto* menu : tool.window()->findChildren<QMenu*>())
        menus.append(menu);
    QVERIFY(menus.size() > 6);
    QStringList twice;
    for (const QWidget* menu : menus) {
        QSet<QString> used;
        for (const QAction* action : menu->actions()) {
            const QString key = QKeySequence::mnemonic(action->text()).toString();
            if (!key.isEmpty() && used.contains(key))
                twice.append(action->text());
            used.insert(key);
        }
    }
    QCOMPARE(twice, QStringList());
}

VANTO_TEST(TestForm)

} // namespace vanto

#include "tst_form.moc"
