#include "testmain.h"
#include "testwindow.h"

#include <QFile>
#include <QLabel>
#include <QTabBar>
#include <QTabWidget>

#include <cmath>

namespace vanto
{

/// Whether both themes can be read: on their tables of colours and on what is painted.
class TestTheme : public QObject
{
    Q_OBJECT
private slots:
    void tables_data() { themes(); }
    void tables();
    void paintedText_data() { themes(); }
    void paintedText();
    void cleanup() { qApp->setStyleSheet({}); }

private:
    static void themes();
    static void apply(const QString& theme);
};

namespace
{
constexpr double TextContrast = 4.5;
constexpr double ControlContrast = 3.0;

double luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& a, const QColor& b)
{
    const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

QMap<QString, QColor> tableOf(const QString& theme)
{
    QMap<QString, QColor> colours;
    QFile file(QString(VANTO_THEME_FOLDER "/%1.txt").arg(theme));
    if (!file.open(QFile::ReadOnly))
        return colours;
    for (const QByteArray& line : file.readAll().split('\n')) {
        const QByteArrayList words = line.simplified().split(' ');
        if (words.size() == 2)
            colours[words[0]] = QColor(QString::fromLatin1(words[1]));
    }
    return colours;
}

/// The best contrast of any pixel against the image's most frequent colour.
double bestContrast(const QImage& image)
{
    QHash<QRgb, int> count;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ++count[image.pixel(x, y)];
    const QRgb ground =
        std::max_element(count.keyValueBegin(), count.keyValueEnd(),
                         [](const auto& a, const auto& b) { return a.second < b.second; })
            ->first;
    double best = 0;
    for (const QRgb pixel : count.keys())
        best = std::max(best, contrast(QColor(pixel), QColor(ground)));
    return best;
}
} // namespace

void TestTheme::themes()
{
    QTest::addColumn<QString>("theme");
    QTest::newRow("dark") << "dark";
    QTest::newRow("light") << "light";
}

void TestTheme::apply(const QString& theme)
{
    QFile sheet(QString(":qdarkstyle/%1/%1style.qss").arg(theme));
    QVERIFY(sheet.open(QFile::ReadOnly));
    qApp->setStyleSheet(QString::fromUtf8(sheet.readAll()));
}

void TestTheme::tables()
{
    QFETCH(QString, theme);
    const auto table = tableOf(theme);
    const auto atLeast = [&](double least, const QString& front, const QStringList& grounds) {
        for (const QString& ground : grounds) {
            QVERIFY2(table.contains(front) && table.contains(ground), qPrintable(ground));
            const double ratio = contrast(table[front], table[ground]);
            QVERIFY2(ratio >= least, qPrintable(front + " on " + ground + QString::number(ratio)));
        }
    };
    atLeast(TextContrast, "text",
            {"window", "surface", "status", "field", "alternate", "readonly", "button",
             "button-hover", "button-pressed", "progress"});
    atLeast(TextContrast, "muted", {"window"});
    atLeast(TextContrast, "on-accent", {"accent", "accent-hover"});
    atLeast(TextContrast, "on-select", {"select"});
    atLeast(ControlContrast, "border", {"window", "surface", "field"});
    atLeast(ControlContrast, "accent", {"surface", "field"});
    atLeast(ControlContrast, "focus", {"window", "surface", "button", "field"});
}

void TestTheme::paintedText()
{
    QFETCH(QString, theme);
    TestWindow tool;
    apply(theme);
    auto* tabs = tool.find<QTabWidget>("tabWidget");
    int looked = 0;
    QImage painted;
    const auto look = [&](QWidget* widget, const QString& text) {
        if (!widget->isVisible() || !widget->isEnabled() || text.isEmpty())
            return;
        // From the window's picture, as a widget alone is painted without what is behind it.
        const QPoint corner = widget->mapTo(tool.window(), QPoint(3, 3));
        const double ratio =
            bestContrast(painted.copy(QRect(corner, widget->size() - QSize(6, 6))));
        QVERIFY2(ratio >= TextContrast,
                 qPrintable(widget->objectName() + ' ' + QString::number(ratio)));
        ++looked;
    };
    for (int page = 0; page < tabs->count(); ++page) {
        tabs->setCurrentIndex(page);
        for (auto* field : tool.window()->findChildren<QLineEdit*>())
            field->setText("65535");
        painted = tool.window()->grab().toImage();
        for (auto* label : tool.window()->findChildren<QLabel*>())
            look(label, label->objectName() == "label_StatusError" ? QString() : label->text());
        for (auto* button : tool.window()->findChildren<QPushButton*>())
            look(button, button->text());
        for (auto* field : tool.window()->findChildren<QLineEdit*>())
            look(field, field->text());
    }
    QVERIFY2(looked > 60, qPrintable(QString::number(looked)));
}

VANTO_TEST(TestTheme)

} // namespace vanto

#include "tst_theme.moc"
