#include "clitest.h"
#include "commandline.h"
#include "testmain.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QStandardPaths>

namespace vanto
{

/// Files, examples, documentation and completions of vantoctl.
class TestCliFiles : public CliTest
{
    Q_OBJECT
private slots:
    void cleanup() { close(); }
    void parameterFiles();
    void documentation();
    void examples();
    void generated();
};

void TestCliFiles::parameterFiles()
{
    start();
    CliProcess cli(*m_hand);
    const QString file = path("hand.json");
    const QString golden = path("golden.json");
    QCOMPARE(cli.run("backup " + file).status, 0);
    QCOMPARE(cli.run("diff " + file).status, 0);
    m_hand->command("set 2 pid-p 1 7.5");
    m_hand->command("set 2 current-limit 3 123");
    m_hand->command("set 2 selftest 1");
    auto result = cli.run("diff " + file);
    QCOMPARE(result.status, 1);
    QCOMPARE(result.output.count('\n'), 3);
    QCOMPARE(cli.run("diff --only P.thumb,I " + file).status, 0);
    QCOMPARE(cli.run("diff --only P --tolerance P=9 " + file).status, 0);
    m_hand->clearTrace();
    QCOMPARE(cli.run("restore --dry-run " + file).status, 0);
    QVERIFY(writes().isEmpty());
    QCOMPARE(cli.run("restore " + file).status, 0);
    QCOMPARE(writes().size(), 2); // the self-test level is not restored unless it is named
    QCOMPARE(cli.run("diff " + file).status, 1);
    QCOMPARE(cli.run("restore --only selfTestLevel " + file).status, 0);
    QCOMPARE(cli.run("diff " + file).status, 0);
    // A partial file checks only what it says.
    QFile whole(file);
    QVERIFY(whole.open(QIODevice::ReadOnly));
    auto object = QJsonDocument::fromJson(whole.readAll()).object();
    for (const QString& key : object.keys())
        if (key != "kind" && key != "schema" && key != "selfTestLevel" && key != "format" &&
            key != "version")
            object.remove(key);
    writeFile(golden, QJsonDocument(object).toJson());
    m_hand->command("set 2 current-limit 3 124");
    m_hand->clearTrace();
    result = cli.run("diff " + golden);
    QVERIFY2(result.status == 0, qPrintable(result.errors));
    QVERIFY(m_hand->frames({0x05}).isEmpty());
    QCOMPARE(cli.run("restore /dev/null").status, 5);
    QCOMPARE(cli.run("diff " EXAMPLES "/wave.json").status, 5);
    QCOMPARE(cli.run("backup /nowhere/file").status, 5);
    QCOMPARE(cli.run("report " + path("report.json")).status, 0);
    QVERIFY(QFile::exists(path("report.json")));
}

/// The examples of the documentation: commands, and their output with "..." for any text.
void TestCliFiles::documentation()
{
    start();
    const QString folder = path("documentation");
    QVERIFY(QDir().mkpath(folder));
    for (const char* file : {"grip.json", "sample.upd"})
        QVERIFY(QFile::copy(QString(EXAMPLES "/") + file, folder + '/' + file));
    QFile page(EXAMPLES "/../docs/vantoctl.md");
    QVERIFY(page.open(QIODevice::ReadOnly));
    QList<QStringList> commands; // each with its output
    for (const QString& line : QString::fromUtf8(page.readAll()).split('\n')) {
        if (line.startsWith("    $ "))
            commands.append(QStringList{line.mid(6)});
        else if (line.startsWith("    ") && !commands.isEmpty())
            commands.last().append(line.mid(4));
    }
    QVERIFY(commands.size() > 30);
    for (const QStringList& lines : commands.mid(2)) { // after those that start the hand
        QProcess shell;
        shell.setProcessEnvironment(environment());
        shell.setWorkingDirectory(folder);
        shell.setProcessChannelMode(QProcess::MergedChannels);
        shell.start("bash", {"-c", lines[0]});
        shell.closeWriteChannel();
        QVERIFY(shell.waitForFinished(60'000));
        m_hand->command("boot leave"); // after an update
        QString pattern = QRegularExpression::escape(lines.mid(1).join('\n'));
        pattern.replace("\\.\\.\\.", ".*");
        const QString output = QString::fromUtf8(shell.readAll()).trimmed();
        QVERIFY2(QRegularExpression(QRegularExpression::anchoredPattern(pattern),
                                    QRegularExpression::DotMatchesEverythingOption)
                     .match(output)
                     .hasMatch(),
                 qPrintable(lines[0] + '\n' + output));
    }
}

void TestCliFiles::examples()
{
    start({"--node", "2", "--speed", "5"});
    CliProcess cli(*m_hand);
    const QString golden = path("line.json");
    QCOMPARE(cli.run("backup " + golden).status, 0);
    m_hand->command("set 2 pid-i 0 9");
    const auto run = [this](const QStringList& words) {
        QProcess program;
        auto variables = environment();
        variables.insert("NODES", "2");
        program.setProcessEnvironment(variables);
        program.start(words[0], words.mid(1));
        program.waitForFinished(60'000);
        return qMakePair(program.exitCode(),
                         program.readAllStandardOutput() + program.readAllStandardError());
    };
    const QStringList line{EXAMPLES "/production-line.sh", SAMPLE, golden,
                           path("line-report.json")};
    auto result = run(line);
    QVERIFY2(result.first == 0, result.second.constData());
    QVERIFY(QFile::exists(line[3]));
    m_hand->command("fault refuse command=0x45 count=0");
    m_hand->command("set 2 pid-i 0 8");
    QCOMPARE(run(line).first, 1);
    m_hand->command("clear");
    m_hand->clearTrace();
    result = run({EXAMPLES "/batch.py", "2"});
    QVERIFY2(result.first == 0, result.second.constData());
    QCOMPARE(motions().size(), 4);                          // the halt writes twice
    QCOMPARE(m_hand->frames({0x4A}), QStringList{"4a 3f"}); // at the end
}

/// Completions and manual page name every command and option, and bash accepts and uses its own.
void TestCliFiles::generated()
{
    const QString generator = QCoreApplication::applicationDirPath() + "/vantoctl-generate";
    for (const QString what : {"bash", "zsh", "fish", "man"}) {
        QProcess program;
        program.start(generator, {what, EXAMPLES "/../packaging/man/vantoctl.1.in"});
        QVERIFY(program.waitForFinished());
        const QString text = QString::fromUtf8(program.readAll()).remove('\\');
        for (const Command& command : vanto::commands()) {
            QVERIFY2(text.contains(command.name), command.name);
            for (const CommandOption& option : command.options)
                QVERIFY2(text.contains(what == "fish" ? QString(option.name).mid(2) : option.name),
                         option.name);
        }
        for (const GeneralOption& option : generalOptions())
            QVERIFY(text.contains(QString(option.name).mid(2)));
    }
    QProcess shell;
    shell.start("bash", {"-c", "source <(" + generator +
                                   " bash) && COMP_WORDS=(vantoctl monitor --fi) COMP_CWORD=2 && "
                                   "_vantoctl && echo ${COMPREPLY[@]} && "
                                   "COMP_WORDS=(vantoctl --quiet mo) && _vantoctl && "
                                   "echo ${COMPREPLY[@]}"});
    QVERIFY(shell.waitForFinished());
    QCOMPARE(shell.readAllStandardOutput(), "--fields\nmove monitor\n");
    for (const char* other : {"zsh", "fish"}) {
        if (QStandardPaths::findExecutable(other).isEmpty())
            continue;
        shell.start("bash", {"-c", generator + ' ' + other + " | " + other + " -n /dev/stdin"});
        QVERIFY(shell.waitForFinished());
        QCOMPARE(shell.exitCode(), 0);
    }
}

VANTO_TEST(TestCliFiles)

} // namespace vanto

#include "tst_clifiles.moc"
