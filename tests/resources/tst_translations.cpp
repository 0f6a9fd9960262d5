#include "testmain.h"
#include "translation.h"

#include <QDir>
#include <QRegularExpression>
#include <QTest>
#include <QTextLayout>
#include <QTranslator>
#include <QXmlStreamReader>

namespace vanto
{

/// The catalogues: every text is translated with its placeholders, and fonts have every character.
class TestTranslations : public QObject
{
    Q_OBJECT
private slots:
    void selection_data();
    void selection();
    void texts_data();
    void texts();
    void glyphs_data() { texts_data(); }
    void glyphs();
    void cleanup() { qDeleteAll(qApp->findChildren<QTranslator*>()); }
};

namespace
{
/// Source text and finished translation by context, source text and comment.
using Messages = QMap<QString, std::pair<QString, QString>>;

Messages messagesIn(const QString& path)
{
    QFile file(path);
    QXmlStreamReader xml(file.open(QFile::ReadOnly) ? file.readAll() : QByteArray());
    Messages messages;
    QString context, source, key;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const auto tag = xml.name();
        if (tag == u"name")
            context = xml.readElementText();
        else if (tag == u"source")
            key = context + '/' + (source = xml.readElementText());
        else if (tag == u"comment")
            key += '/' + xml.readElementText();
        else if (tag == u"translation")
            messages[key] = {source, xml.attributes().hasAttribute("type") ? QString()
                                                                           : xml.readElementText()};
    }
    return messages;
}

/// The parts that a translation must contain as often as its source text.
QStringList fixedParts(const QString& text)
{
    static const QRegularExpression part("%[1-9ds]|\n|^ +|\\.\\.\\.$|\\*\\.\\w+");
    QStringList parts;
    for (auto match = part.globalMatch(text); match.hasNext();)
        parts.append(match.next().captured());
    parts.sort();
    return parts;
}
} // namespace

void TestTranslations::selection_data()
{
    QTest::addColumn<QString>("stop");
    QTest::newRow("de_AT") << "Stopp";
    QTest::newRow("ja_JP") << "停止";
    QTest::newRow("zh_CN") << "停止";
    QTest::newRow("zh_TW") << "Stop";
}

void TestTranslations::selection()
{
    QFETCH(QString, stop);
    const bool installed = Translation::install(QTest::currentDataTag());
    QCOMPARE(installed, stop != "Stop");
    QCOMPARE(QCoreApplication::translate("vanto::ScanRunner", "Stop"), stop);
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel") != "Cancel", installed);
    QVERIFY(QCoreApplication::translate("vanto::DeviceBar", "Scan") != stop); // they differ
}

void TestTranslations::texts_data()
{
    QTest::addColumn<QString>("path");
    const auto files = QDir(TRANSLATIONS).entryInfoList({"*.ts"});
    QVERIFY(!files.isEmpty());
    for (const QFileInfo& file : files)
        QTest::addRow("%s", qPrintable(file.fileName())) << file.filePath();
}

void TestTranslations::texts()
{
    QFETCH(QString, path);
    const auto messages = messagesIn(path);
    QCOMPARE(messages.keys(), messagesIn(TEXTS_OF_SOURCES).keys());
    for (const auto& [source, translation] : messages) {
        QVERIFY2(!translation.isEmpty(), qPrintable(source));
        QCOMPARE(fixedParts(translation), fixedParts(source));
    }
}

void TestTranslations::glyphs()
{
    QFETCH(QString, path);
    QSet<QChar> characters;
    for (const auto& [source, translation] : messagesIn(path))
        characters.unite({translation.begin(), translation.end()});
    characters.remove('\n');
    for (const QChar character : characters) {
        QTextLayout layout(character);
        layout.beginLayout();
        layout.createLine();
        layout.endLayout();
        for (const QGlyphRun& run : layout.glyphRuns()) // 0: no font has this character
            QVERIFY2(!run.glyphIndexes().contains(0), qPrintable(QString(character)));
    }
}

VANTO_TEST(TestTranslations)

} // namespace vanto

#include "tst_translations.moc"
