#include "testmain.h"
#include "updatefile.h"

#include <QTemporaryDir>
#include <QTest>

namespace vanto
{

class tst_updatefile : public QObject
{
    Q_OBJECT
private slots:
    void content_data();
    void content();
    void progress();
    void files();
};

void tst_updatefile::content_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("outcome"); // hardware and image, or the failure
    const QString damaged = "File damaged.", invalid = "Invalid update file.";
    const auto row = [](const QByteArray& bytes, const QString& outcome) {
        QTest::newRow(bytes.toPercentEncoding(" ,:+").constData()) << bytes << outcome;
    };
    row("HW:1A,02\n0102aBFf", "1a02 0102abff");
    row("HW:1,2\n00", "0102 00");
    row("HW: a,\t Bc\n00", "0abc 00");
    row("HW:1A,023 for left hands\n00", "1a02 00");
    row("HW:1A,02\r\n00", "1a02 00");
    row("0102", "none 0102");
    for (const char* header : {"hw:1A,02", " HW:1A,02", "HW:1A", "HW:1A,", "HW:,02", "HW:1 ,2",
                               "HW:1A2,02", "HW:0x1A,02", "HW:-1,02", "HW;1A,02", "HW:1A02"})
        row(header + QByteArray("\n00"), damaged);
    for (const char* data :
         {"00\n", "00\r\n", "00\r", "\n", "0", "012", "00 11", "0x01", "+1", " 1", "0G", "G0", "0g",
          "@0", "0:", "/0", "00\n11", "HW:1,2\n00", "\xC3\xA9"})
        row("HW:1A,02\n" + QByteArray(data), damaged);
    row(QByteArray("00\0\0", 4), damaged);
    for (const char* bytes : {"", "HW:1A,02", "HW:1A,02\n"})
        row(bytes, invalid);
}

void tst_updatefile::content()
{
    QFETCH(QByteArray, bytes);
    // A copy without a terminator, so that sanitizers detect reads past the view.
    const std::vector<char> tight(bytes.begin(), bytes.end());
    const UpdateFile file = readUpdateFile(QByteArrayView(tight.data(), bytes.size()));
    QString outcome = "none";
    if (file.hardware)
        outcome = QString::asprintf("%02x%02x", file.hardware->type, file.hardware->version);
    outcome += ' ' + QString(file.image.toHex());
    QTEST(file.failure.isEmpty() ? outcome : file.failure, "outcome");
}

void tst_updatefile::progress()
{
    const auto texts = [](const QByteArray& content) {
        QStringList logged;
        readUpdateFile(content, [&](const QString& text) { logged.append(text); });
        return logged;
    };
    const auto done = [](int percent) {
        return QStringLiteral("Processing update file - %1%...").arg(percent);
    };
    QCOMPARE(texts("HW:b,02\n000102"),
             QStringList({"Hardware type: 0x0B, ver: 0x02", done(33), done(66), done(100)}));
    QCOMPARE(texts("0001\n"), QStringList({done(40), done(80)}));
    const QStringList large = texts(QByteArray(200'000, '0'));
    QCOMPARE(large.count(done(57)), 1000);
    QVERIFY2(large[57'000].isSharedWith(large[57'998]), "a new text for every byte");
}

void tst_updatefile::files()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("%1.upd");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("HW:1A,02\r\n0001\r") > 0);
    file.close();
    QCOMPARE(loadUpdateFile(path).failure, "File damaged.");
    QVERIFY(file.resize(64 * 1024 * 1024 + 1));
    QCOMPARE(loadUpdateFile(path).failure, "Invalid update file.");
    for (const QString& name : {folder.path(), folder.filePath("none"), QString("/dev/zero")})
        QCOMPARE(loadUpdateFile(name).failure, "Open file '" + name + "' failed.");
}

VANTO_TEST(tst_updatefile)

} // namespace vanto

#include "tst_updatefile.moc"
