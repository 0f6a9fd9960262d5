#include "testmain.h"
#include "testwindow.h"

#include <QClipboard>
#include <QFile>
#include <QInputDialog>
#include <QLabel>
#include <QMetaMethod>
#include <QPlainTextEdit>
#include <QProcess>
#include <QRegularExpression>
#include <QSettings>
#include <QStatusBar>
#include <QTemporaryDir>

namespace vanto
{

/// Start-up, menus, theme, About and the error label.
class TestShell : public QObject
{
    Q_OBJECT
private slots:
    void everySlotIsConnected();
    void about();
    void themeDialog_data();
    void themeDialog();
    void errorLabel_data() { addTextRows({"theme"}, {{"dark"}, {"light"}}); }
    void errorLabel();
    void messageList();
    void program_data();
    void program();
};

namespace
{
QString storedStyle()
{
    return QSettings("setting.ini", QSettings::IniFormat).value("style").toString();
}
} // namespace

void TestShell::everySlotIsConnected()
{
    TestWindow tool;
    // Checks the connections themselves, because a slot without its widget causes no error.
    int found = 0;
    QList<QWidget*> owners = tool.window()->findChildren<QWidget*>(QRegularExpression("^tab_"));
    owners << tool.window() << tool.find<QWidget>("deviceBar");
    QCOMPARE(owners.size(), 7);
    for (QWidget* owner : owners) {
        const QMetaObject* meta = owner->metaObject();
        for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
            const QByteArray name = meta->method(i).name();
            if (!name.startsWith("on_") || name == "on_updateProgress")
                continue;
            ++found;
            const auto end = name.lastIndexOf('_');
            const auto object = QString::fromLatin1(name.sliced(3, end - 3));
            auto* sender = owner->findChild<QObject*>(object);
            QVERIFY2(sender, name.constData());
            const QByteArray signal = name.sliced(end + 1);
            bool connected = false;
            for (int s = 0; s < sender->metaObject()->methodCount(); ++s) {
                const QMetaMethod method = sender->metaObject()->method(s);
                if (method.methodType() == QMetaMethod::Signal && method.name() == signal)
                    connected |= QObject::disconnect(sender, method, owner, meta->method(i));
            }
            QVERIFY2(connected, name.constData());
        }
    }
    QCOMPARE(found, 38 + 12 * 6);
}

void TestShell::about()
{
    TestWindow tool;
    QString text;
    DialogAnswer<QMessageBox> answer([&](QMessageBox* box) {
        text = box->text();
        box->accept();
    });
    tool.trigger("action_About");
    QCOMPARE(text, "VantoSetting V0.0-103-9fa94a8\n\nSupported protocol:"
                   "\n    SerialCtrl Protocol Ver 3.x\n    ModBus-RTU Protocol Ver 1.x");
}

void TestShell::themeDialog_data()
{
    // An empty choice cancels the dialog.
    addTextRows({"stored", "preselected", "chosen", "storedAfter"},
                {{"dark", "dark", "light", "light"},
                 {"light", "light", "dark", "dark"},
                 {"DARK", "dark", "", "DARK"},
                 {"", "dark", "", "dark"}});
}

void TestShell::themeDialog()
{
    QFETCH(QString, stored);
    QFETCH(QString, preselected);
    QFETCH(QString, chosen);
    TestWindow tool;
    qApp->setStyleSheet({});
    if (!stored.isEmpty())
        QSettings("setting.ini", QSettings::IniFormat).setValue("style", stored);
    DialogAnswer<QInputDialog> answer([&](QInputDialog* dialog) {
        QCOMPARE(dialog->windowTitle(), "VantoSetting");
        QCOMPARE(dialog->labelText(), "Please select style:");
        QCOMPARE(dialog->comboBoxItems(), (QStringList{"dark", "light"}));
        QCOMPARE(dialog->textValue(), preselected);
        dialog->setTextValue(chosen);
        chosen.isEmpty() ? dialog->reject() : dialog->accept();
    });
    tool.trigger("action_Theme");
    QCOMPARE(answer.count(), 1);
    QTEST(storedStyle(), "storedAfter");
    QCOMPARE(qApp->styleSheet(), chosen.isEmpty() ? QString() : styleSheetOf(chosen));
    qApp->setStyleSheet({});
}

void TestShell::errorLabel()
{
    QFETCH(QString, theme);
    TestWindow tool;
    qApp->setStyleSheet(styleSheetOf(theme));
    QVERIFY(!qApp->styleSheet().isEmpty());
    tool.window()->showErrorOnStatusBar("first", Qt::red);
    QTest::qWait(1000); // half of the time for which a text is shown
    tool.window()->showErrorOnStatusBar("second error", Qt::red);

    auto* label = tool.find<QLabel>("label_StatusError");
    const QImage image = label->grab().toImage();
    int red = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            red += image.pixelColor(x, y) == QColor(Qt::red);
    QVERIFY2(red > 20, qPrintable(QString::number(red)));

    // The second text does not delay the clearing of the first.
    QTRY_COMPARE_WITH_TIMEOUT(tool.errorText(), QString(), 1500);
    qApp->setStyleSheet({});
}

void TestShell::messageList()
{
    TestWindow tool;
    for (int i = 0; i < 200; ++i)
        tool.window()->showErrorOnStatusBar(QString("error %1").arg(i), Qt::red);
    QVERIFY(tool.find<QStatusBar>("statusBar")
                ->actions()
                .contains(tool.find<QAction>("action_Messages")));
    tool.window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(tool.window()));
    QTest::keyClick(tool.window(), Qt::Key_L, Qt::ControlModifier);
    auto* dialog = tool.find<QDialog>("messageList");
    auto* list = dialog->findChild<QPlainTextEdit*>();
    tool.window()->showErrorOnStatusBar("the last", Qt::red); // while the list is open
    const QStringList lines = list->toPlainText().split('\n');
    QCOMPARE(lines.size(), 200);
    const QRegularExpression oldest(R"(^\d\d:\d\d:\d\d\.\d{3} ! error 1$)");
    QVERIFY2(oldest.match(lines.first()).hasMatch(), qPrintable(lines.first()));
    QVERIFY2(lines.last().endsWith(" ! the last"), qPrintable(lines.last()));

    const auto buttons = dialog->findChildren<QPushButton*>();
    const auto copy = std::find_if(buttons.begin(), buttons.end(),
                                   [](const auto* button) { return button->text() == "Copy"; });
    QVERIFY(copy != buttons.end());
    (*copy)->click();
    QCOMPARE(QApplication::clipboard()->text(), list->toPlainText());
}

void TestShell::program_data()
{
    QTest::addColumn<QByteArray>("settings"); // content of setting.ini; null: no such file
    QTest::addColumn<QString>("log");
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<QString>("style");
    QTest::newRow("first start") << QByteArray() << "style not set, use default" << QByteArray()
                                 << "dark";
    QTest::newRow("light") << QByteArray("[General]\nstyle=light\n")
                           << "translation:" << QByteArray() << "light";
    QTest::newRow("unknown style")
        << QByteArray("[General]\nstyle=DARK\n")
        << "translation:" << QByteArray("Unable to set stylesheet, file not found\n") << "DARK";
    QTest::newRow("unwritable") << QByteArray("folder") << "style not set, use default"
                                << QByteArray() << "";
    QTest::newRow("damaged") << QByteArray("\x01\xff[[[\n==\n") << "style not set, use default"
                             << QByteArray() << "dark";
}

void TestShell::program()
{
    QFETCH(QByteArray, settings);
    QFETCH(QString, log);
    QFETCH(QString, style);
    const QTemporaryDir folder;
    const QString ini = folder.filePath("setting.ini");
    if (settings == "folder") { // even root cannot store anything
        QVERIFY(QDir(folder.path()).mkdir("setting.ini"));
    } else if (!settings.isNull()) {
        QFile file(ini);
        QVERIFY(file.open(QFile::WriteOnly) && file.write(settings) == settings.size());
    }
    QProcess program;
    program.setWorkingDirectory(folder.path());
    program.start(QCoreApplication::applicationDirPath() + "/VantoSetting", QStringList());
    QByteArray errors;
    QTRY_VERIFY_WITH_TIMEOUT((errors += program.readAllStandardError()).contains(log.toUtf8()),
                             10000);
    QTRY_COMPARE_WITH_TIMEOUT(QSettings(ini, QSettings::IniFormat).value("style").toString(), style,
                              5000);
    QFETCH(QByteArray, output);
    QByteArray printed;
    QTRY_VERIFY_WITH_TIMEOUT((printed += program.readAllStandardOutput()).size() >= output.size(),
                             10000);
    QTest::qWait(300); // the program neither ends nor prints more
    QCOMPARE(program.state(), QProcess::Running);
    program.kill();
    program.waitForFinished();
    QCOMPARE(printed + program.readAllStandardOutput(), output);
    errors += program.readAllStandardError();
    QVERIFY2(errors.contains("i18n/VantoSetting_"), errors.constData());
    for (const char* complaint : {"QObject::connect", "No matching signal", "stylesheet"})
        QVERIFY2(!errors.contains(complaint), errors.constData());
}

VANTO_TEST(TestShell)

} // namespace vanto

#include "tst_shell.moc"
