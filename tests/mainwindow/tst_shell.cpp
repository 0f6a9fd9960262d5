#include "handtest.h"
#include "testmain.h"
#include "testwindow.h"

#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QMetaMethod>
#include <QPlainTextEdit>
#include <QProcess>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSettings>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextCursor>

#include <sys/stat.h>

namespace vanto
{

/// Start-up, menus, theme, About, the error label and the list of messages.
class TestShell : public HandTest
{
    Q_OBJECT
private slots:
    void cleanup() { close(); }
    void everySlotIsConnected();
    void about();
    void themeDialog_data();
    void themeDialog();
    void errorLabel_data() { addTextRows({"theme"}, {{"dark"}, {"light"}}); }
    void errorLabel();
    void messageList();
    void repeatedMessages();
    void viewOfRepeatedMessages();
    void savesMessages_data();
    void savesMessages();
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
    QCOMPARE(found, 43 + 14 * 6);
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
    QTRY_COMPARE_WITH_TIMEOUT(tool.errorText(), QString(), 1800);
    qApp->setStyleSheet({});
}

void TestShell::messageList()
{
    TestWindow tool;
    for (int i = 0; i < 1000; ++i)
        tool.window()->showErrorOnStatusBar(QString("error %1").arg(i), Qt::red);
    auto* action = tool.find<QAction>("action_Messages");
    QVERIFY(tool.find<QStatusBar>("statusBar")->actions().contains(action));
    QVERIFY(tool.find<QMenu>("menu_View")->actions().contains(action));
    tool.window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(tool.window()));
    QTest::keyClick(tool.window(), Qt::Key_L, Qt::ControlModifier);
    auto* list = tool.find<QDialog>("messageList")->findChild<QPlainTextEdit*>();
    tool.window()->showErrorOnStatusBar("the\rlast\n", Qt::red); // while the list is open
    const QStringList lines = list->toPlainText().split('\n');
    QCOMPARE(lines.size(), 1000);
    const QRegularExpression oldest(R"(^\d\d:\d\d:\d\d\.\d{3} ! error 1$)");
    QVERIFY2(oldest.match(lines.first()).hasMatch(), qPrintable(lines.first()));
    QVERIFY2(lines.last().endsWith(" ! the last "), qPrintable(lines.last()));
    tool.click("pushButton_MessagesCopy");
    QCOMPARE(QApplication::clipboard()->text(), list->toPlainText());
}

void TestShell::repeatedMessages()
{
    open();
    m_tool->trigger("action_Messages");
    auto* list = m_tool->find<QDialog>("messageList")->findChild<QPlainTextEdit*>();
    const auto texts = [list] { // without the times
        static const QRegularExpression time("(^|, last )\\d\\d:\\d\\d:\\d\\d\\.\\d{3}",
                                             QRegularExpression::MultilineOption);
        return list->toPlainText().remove(time).split('\n');
    };
    command("fault refuse command=0x06 count=12");
    m_tool->showPage(RunTab); // reads the currents of six fingers again and again
    const QString refused = " ! getFingerCurrent(0x02, ...) returned 0xff (sub err 21) (x 12)";
    QTRY_COMPARE(texts().last(), refused);
    m_tool->showPage(BasicTab);
    const auto lines = texts().size();

    const auto addErrors = [this](const QStringList& errors) {
        for (const QString& error : errors)
            m_tool->window()->showErrorOnStatusBar(error, Qt::red);
    };
    addErrors({"a", "b", "c", "d", "e", "f", "a", "b"}); // as many as fingers, in turn
    m_tool->click("pushButton_BasicBeep");               // a success in between
    addErrors({"b", "1", "2", "3", "4", "5", "6", "b"}); // after too many others
    QCOMPARE(texts().mid(lines), (QStringList{" ! a (x 2)", " ! b (x 2)", " ! c", " ! d", " ! e",
                                              " ! f", "   Beep succeeded", " ! b", " ! 1", " ! 2",
                                              " ! 3", " ! 4", " ! 5", " ! 6", " ! b"}));
}

/// What the user has selected or looks at stays.
void TestShell::viewOfRepeatedMessages()
{
    TestWindow tool;
    const auto addError = [&](int number) { // long enough for the horizontal scroll bar
        tool.window()->showErrorOnStatusBar(QString("error %1").arg(number, 200), Qt::red);
    };
    for (int i = 0; i < 100; ++i)
        addError(i);
    tool.trigger("action_Messages");
    auto* list = tool.find<QDialog>("messageList")->findChild<QPlainTextEdit*>();
    QTRY_VERIFY(list->verticalScrollBar()->value() > 0); // the latest are shown
    QCOMPARE(list->verticalScrollBar()->value(), list->verticalScrollBar()->maximum());
    QCOMPARE(list->horizontalScrollBar()->value(), 0);
    for (const int line : {99, 3}) {
        QTextCursor cursor(list->document()->findBlockByNumber(line));
        cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::MoveAnchor, 4);
        cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor, 30);
        list->setTextCursor(cursor);
        list->horizontalScrollBar()->setValue(20);
        const int x = list->horizontalScrollBar()->value();
        const int y = list->verticalScrollBar()->value();
        QVERIFY(x > 0);
        for (int i = 0; i < 20; ++i)
            addError(99);
        QCOMPARE(list->textCursor().selectedText().size(), 30);
        QCOMPARE(list->horizontalScrollBar()->value(), x);
        QCOMPARE(list->verticalScrollBar()->value(), y);
    }
    QVERIFY(list->toPlainText().contains("(x 41)"));
}

void TestShell::savesMessages_data()
{
    // "existing" is a file already; the answer to the question whether to replace it, if any.
    addTextRows({"file", "answer", "error"},
                {{"new.txt", "", ""},
                 {"existing.txt", "Yes", ""},
                 {"existing.txt", "No", ""},
                 {"missing/new.txt", "", "The messages could not be saved in '%1'."}});
}

void TestShell::savesMessages()
{
    QFETCH(QString, file);
    QFETCH(QString, answer);
    QFETCH(QString, error);
    TestWindow tool;
    const QString path = QDir::current().filePath(file);
    QFile existing("existing.txt");
    QVERIFY(existing.open(QFile::WriteOnly) && existing.write("old") == 3);
    existing.close();
    tool.window()->showErrorOnStatusBar("Größe 大", Qt::red);
    tool.trigger("action_Messages");
    auto* list = tool.find<QDialog>("messageList");
    tool.click("pushButton_MessagesSave");
    tool.click("pushButton_MessagesSave"); // raises the first
    const auto dialogs = list->findChildren<QFileDialog*>();
    QCOMPARE(dialogs.size(), 1);
    QVERIFY(!QApplication::activeModalWidget()); // Stop remains available
    QTRY_COMPARE(dialogs[0]->findChild<QLineEdit*>("fileNameEdit")->text(), "messages.txt");
    const QPointer<QFileDialog> dialog = dialogs[0];
    chooseFile(*dialog, path);
    QTRY_VERIFY(!dialog);
    auto* box = list->findChild<QMessageBox*>();
    QCOMPARE(box != nullptr, !answer.isEmpty() || !error.isEmpty());
    if (!error.isEmpty()) {
        QCOMPARE(box->text(), error.arg(path));
        QCOMPARE(box->icon(), QMessageBox::Critical);
        QVERIFY(!box->informativeText().isEmpty());
        return;
    }
    if (box)
        box->button(answer == "Yes" ? QMessageBox::Yes : QMessageBox::No)->click();
    QFile saved(path);
    QVERIFY(saved.open(QFile::ReadOnly));
    QCOMPARE(QString::fromUtf8(saved.readAll()),
             answer == "No" ? "old" : list->findChild<QPlainTextEdit*>()->toPlainText() + '\n');
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
    QTest::newRow("a pipe") << QByteArray("pipe") << "style not set, use default" << QByteArray()
                            << "";
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
    } else if (settings == "pipe") {
        QCOMPARE(::mkfifo(QFile::encodeName(ini).constData(), 0600), 0);
    } else if (!settings.isNull()) {
        QFile file(ini);
        QVERIFY(file.open(QFile::WriteOnly) && file.write(settings) == settings.size());
    }
    QProcess program;
    program.setWorkingDirectory(folder.path());
    program.start(QCoreApplication::applicationDirPath() + "/VantoSetting", QStringList());
    QByteArray errors;
    QTRY_VERIFY((errors += program.readAllStandardError()).contains(log.toUtf8()));
    if (settings != "pipe")
        QTRY_COMPARE(QSettings(ini, QSettings::IniFormat).value("style").toString(), style);
    QFETCH(QByteArray, output);
    QByteArray printed;
    QTRY_VERIFY((printed += program.readAllStandardOutput()).size() >= output.size());
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
