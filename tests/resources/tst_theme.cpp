#include "plotcolors.h"
#include "testmain.h"
#include "testwindow.h"

#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QTabWidget>

#include <cmath>

namespace vanto
{

/// The contrast of both themes, in their tables of colors and in painted windows.
class TestTheme : public QObject
{
    Q_OBJECT
private slots:
    void tables_data() { addTextRows({"theme"}, {{"dark"}, {"light"}}); }
    void tables();
    void paintedText_data() { tables_data(); }
    void paintedText();
    void cleanup() { qApp->setStyleSheet({}); }
};

namespace
{
constexpr double TextContrast = 4.5;
constexpr double ControlContrast = 3.0;

double luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b)
{
    const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

QMap<QString, QColor> tableOf(const QString& theme)
{
    QMap<QString, QColor> colors;
    QFile file(QString(VANTO_THEME_FOLDER "/%1.txt").arg(theme));
    if (!file.open(QFile::ReadOnly))
        return colors;
    for (const QByteArray& line : file.readAll().split('\n')) {
        const QByteArrayList words = line.simplified().split(' ');
        if (words.size() == 2)
            colors[words[0]] = QColor(QString::fromLatin1(words[1]));
    }
    return colors;
}

/// The highest contrast of any pixel to the most frequent color of the image.
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
    qApp->setStyleSheet(styleSheetOf(theme));
    QVERIFY(!qApp->styleSheet().isEmpty());
    auto* tabs = tool.find<QTabWidget>("tabWidget");
    int checked = 0;
    QImage painted;
    const auto check = [&](QWidget* widget, const QString& text) {
        if (!widget->isVisible() || !widget->isEnabled() || text.isEmpty())
            return;
        // From the image of the window, because a widget alone is painted without its background.
        const QPoint corner = widget->mapTo(tool.window(), QPoint(3, 3));
        const double ratio =
            bestContrast(painted.copy(QRect(corner, widget->size() - QSize(6, 6))));
        QVERIFY2(ratio >= TextContrast,
                 qPrintable(widget->objectName() + ' ' + QString::number(ratio)));
        ++checked;
    };
    for (int page = 0; page < tabs->count(); ++page) {
        tabs->setCurrentIndex(page);
        for (auto* field : tool.window()->findChildren<QLineEdit*>())
            field->setText("65535");
        painted = tool.window()->grab().toImage();
        for (auto* label : tool.window()->findChildren<QLabel*>())
            check(label, label->objectName() == "label_StatusError" ? QString() : label->text());
        for (auto* button : tool.window()->findChildren<QPushButton*>())
            check(button, button->text());
        for (auto* field : tool.window()->findChildren<QLineEdit*>())
            check(field, field->text());
    }
    // The lines of the monitor, if it has a plot.
    tool.trigger("action_Monitor");
    const QWidget* plot = tool.window()->findChild<QWidget*>("monitorPlot");
    for (int finger = 0; plot && finger < 6; ++finger) {
        const auto* box = tool.find<QCheckBox>(QString("checkBox_MonitorFinger%1").arg(finger));
        const QColor line = box->icon().pixmap(8).toImage().pixelColor(4, 4);
        const auto background = plot->property("backgroundColor").value<QColor>();
        for (const QColor& color : {line, PlotColors::overlay(finger, background)}) {
            const double ratio = contrast(color, background);
            QVERIFY2(ratio >= ControlContrast, qPrintable(box->text() + QString::number(ratio)));
        }
    }
    QVERIFY2(checked > 60, qPrintable(QString::number(checked)));
}

VANTO_TEST(TestTheme)

} // namespace vanto

#include "tst_theme.moc"
