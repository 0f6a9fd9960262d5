#include "clitest.h"
#include "commandline.h"
#include "fileserver.h"
#include "testmain.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTimer>

#include <algorithm>
#include <csignal>

namespace vanto
{

namespace
{
/// What completions or the manual page contain for a command.
QString partOf(const QString& text, const QString& what, const QString& command)
{
    const QString pattern = what == "bash"  ? "\n    %1\\) [^\n]*"
                            : what == "zsh" ? "\n        %1\\) .*?;;\n"
                            : what == "man" ? "\n\\.SS \"%1[ \"].*?(?=\n\\.S)"
                                            : "-a %1 .*?(?=__fish_use_subcommand|$)";
    return QRegularExpression(pattern.arg(command), QRegularExpression::DotMatchesEverythingOption)
        .match(text)
        .captured();
}

CliProcess::Result runUpdate(CliProcess& cli, const FileServer& server, const char* options = "")
{
    cli.start("update --yes --quiet --protocol serialctrl --server " + server.url() + options);
    cli.process().closeWriteChannel();
    (void)QTest::qWaitFor([&] { return cli.process().state() == QProcess::NotRunning; }, 60'000);
    return cli.finish();
}
} // namespace

/// Files, examples, documentation and completions of vantoctl.
class TestCliFiles : public CliTest
{
    Q_OBJECT
private slots:
    void cleanup() { close(); }
    void parameterFiles();
    void positionLimits();
    void documentation();
    void examples();
    void updateFromServer();
    void silentServer();
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
    QCOMPARE(cli.run("diff --only P --tolerance P=9 " + file + " --quiet").status, 0);
    m_hand->clearTrace();
    QCOMPARE(cli.run("restore --dry-run " + file).status, 0);
    QVERIFY(writes().isEmpty());
    QCOMPARE(cli.run("restore " + file).status, 0);
    QCOMPARE(writes().size(), 2); // the self-test level is not restored unless it is named
    QCOMPARE(cli.run("diff " + file).status, 1);
    QCOMPARE(cli.run("restore --only selfTestLevel " + file + " --quiet").status, 0);
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

/// Position limits are those of one hand.
void TestCliFiles::positionLimits()
{
    start();
    CliProcess cli(*m_hand);
    const QString golden = path("limits.json");
    QCOMPARE(cli.run("backup " + golden).status, 0);
    QFile whole(golden);
    QVERIFY(whole.open(QIODevice::ReadOnly));
    auto object = QJsonDocument::fromJson(whole.readAll()).object();
    auto hand = object["hand"].toObject();
    const auto restoreLimits = [&](const char* options, const char* names = "positionLimits") {
        object["hand"] = hand;
        writeFile(golden, QJsonDocument(object).toJson());
        m_hand->command("set 2 end 1 3333");
        m_hand->clearTrace();
        return cli.run(QString("restore --quiet --only %1 %2 %3").arg(names, golden, options))
            .status;
    };
    QCOMPARE(restoreLimits(""), 0);
    hand["uid"] = "00112233445566778899AABB";
    QCOMPARE(restoreLimits("--yes"), 1);
    QCOMPARE(restoreLimits("", "index"), 0); // its limits stay as they are
    hand.remove("uid");
    QCOMPARE(restoreLimits(""), 2);
    QVERIFY(writes().isEmpty());
    QCOMPARE(restoreLimits("--yes"), 0);
    QCOMPARE(writes().size(), 1);
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
        QStringList patterns;
        for (const QString& line : lines.mid(1))
            patterns.append(line == "..."
                                ? "[\\s\\S]*" // any lines
                                : QRegularExpression::escape(line).replace("\\.\\.\\.", ".*"));
        const QString pattern = patterns.join('\n');
        const QString output = QString::fromUtf8(shell.readAll()).trimmed();
        QVERIFY2(QRegularExpression(QRegularExpression::anchoredPattern(pattern))
                     .match(output)
                     .hasMatch(),
                 qPrintable(lines[0] + '\n' + output));
        const bool fails = output.contains("vantoctl: ") && !lines[0].contains("echo $?");
        QVERIFY2(shell.exitStatus() == QProcess::NormalExit && (shell.exitCode() != 0) == fails,
                 qPrintable(lines[0] + '\n' + output));
    }
}

void TestCliFiles::examples()
{
    start({"--node", "2", "--speed", "5"});
    CliProcess cli(*m_hand);
    const QString golden = path("line.json");
    QCOMPARE(cli.run("backup " + golden).status, 0);
    // As if the file were from another hand.
    QFile file(golden);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    QVERIFY(content.contains("[400, 413"));
    writeFile(golden, QByteArray(content).replace("[400, 413", "[401, 413"));
    QCOMPARE(cli.run("diff " + golden).status, 0);
    QCOMPARE(cli.run("diff --only calibration " + golden).status, 1);
    m_hand->command("set 2 selftest 1");
    m_hand->command("set 2 pid-i 0 9");
    m_hand->command("set 2 selftest 1");
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

/// Firmware from a server on this machine.
void TestCliFiles::updateFromServer()
{
    FileServer server;
    auto& files = server.answers;
    start();
    CliProcess cli(*m_hand);
    const QString temporary = path("temporary");
    QVERIFY(QDir().mkpath(temporary));
    cli.setVariable("TMPDIR", temporary);
    cli.setVariable("VANTO_FIRMWARE_SERVER", "http://127.0.0.1:1"); // not this one
    const auto update = [&](const char* options = "") { return runUpdate(cli, server, options); };
    const QByteArray list = "/firmwares/1B01/latest_version.json";
    const QByteArray image = "/firmwares/1B01/hand.upd";
    const auto fails = [&](const QMap<QByteArray, QByteArray>& served, const QString& error) {
        files = served;
        const auto result = update();
        return result.errors == "vantoctl: " + error + '\n' && result.status == 5;
    };
    const QByteArray missing = Http::answer({}, Http::NotFound);
    QVERIFY(fails({{list, missing}}, "Error when reading version file from server."));
    QVERIFY(fails({{list, Http::answer("{")}}, "Error when parsing version file."));
    const QByteArray good =
        Http::answer(R"({"hand":{"version":"1.4.8","desc":"none","file":"hand.upd"}})");
    QVERIFY(
        fails({{list, good}, {image, missing}}, "Error when reading firmware file from server."));
    files[image] = Http::answer("damaged");
    QCOMPARE(update().status, 5);
    QCOMPARE(update(" --type other").status, 2);
    QVERIFY(m_hand->command("boot").contains("probes=0"));
    QFile sample(SAMPLE);
    QVERIFY(sample.open(QFile::ReadOnly));
    files[image] = Http::answer(sample.readAll());
    const auto result = update();
    QVERIFY2(result.status == 0, qPrintable(result.errors));
    QCOMPARE(m_hand->command("image /dev/null"), "ok 4096");
    m_hand->command("boot leave");
    // A signal ends the transfer.
    m_hand->command("fault late ms=60000 stage=record");
    m_hand->clearTrace();
    QTimer transfer;
    connect(&transfer, &QTimer::timeout, this, [&] {
        const auto requests = m_hand->requests();
        if (std::ranges::count(requests, "boot", &TracedFrame::protocol) < 3)
            return;
        transfer.stop();
        cli.sendSignal(SIGINT);
    });
    transfer.start(10);
    QCOMPARE(update(" --no-backup").status, 130);
    QVERIFY(QDir(temporary).isEmpty());
}

/// A signal ends the wait for a server that does not answer.
void TestCliFiles::silentServer()
{
    FileServer server;
    start();
    CliProcess cli(*m_hand);
    connect(&server, &QTcpServer::newConnection, this,
            [&] { QTimer::singleShot(100, &server, [&] { cli.sendSignal(SIGINT); }); });
    const auto result = runUpdate(cli, server);
    QCOMPARE(result.status, 130);
    QCOMPARE(result.errors, "vantoctl: Interrupted.\n");
}

/// Completions and manual page name every command with its options, and bash accepts and uses its
/// own.
void TestCliFiles::generated()
{
    const QString generator = QCoreApplication::applicationDirPath() + "/vantoctl-generate";
    for (const QString what : {"bash", "zsh", "fish", "man"}) {
        QProcess program;
        program.start(generator, {what, EXAMPLES "/../packaging/man/vantoctl.1.in"});
        QVERIFY(program.waitForFinished());
        const QString text = QString::fromUtf8(program.readAll()).remove('\\');
        for (const Command& command : vanto::commands()) {
            const QString part = partOf(text, what, command.name);
            QVERIFY2(!part.isEmpty(), qPrintable(what + ' ' + command.name));
            for (const CommandOption& option : command.options) {
                const QString name =
                    what == "fish" ? "-l " + QString(option.name).mid(2) : option.name;
                QVERIFY2(QRegularExpression(name + "\\b(?!-)").match(part).hasMatch(),
                         qPrintable(what + ' ' + command.name + ' ' + option.name));
            }
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
        if (QStandardPaths::findExecutable(other).isEmpty()) {
            qInfo("%s is not installed.", other);
            continue;
        }
        shell.start("bash", {"-c", generator + ' ' + other + " | " + other + " -n /dev/stdin"});
        QVERIFY(shell.waitForFinished());
        QCOMPARE(shell.exitCode(), 0);
    }
}

VANTO_TEST(TestCliFiles)

} // namespace vanto

#include "tst_clifiles.moc"
