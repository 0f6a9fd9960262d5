#include "columncache.h"
#include "monitortest.h"
#include "pageindex.h"
#include "plotcolors.h"
#include "testmain.h"

#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMetaMethod>
#include <QWheelEvent>

#include <algorithm>

namespace vanto
{

/// The plot of the monitor in the real window.
class TestMonitorPlot : public MonitorTest
{
    Q_OBJECT
private slots:
    void cleanup() { close(); }
    void plot();
    void limits();
    void overlay();
    void extremeRecording();
    void paintsBetweenExchanges();
    void asksBetweenExchanges();
    void columns();

public slots:
    void noteReplot() { m_replots[Exchange::active()]++; }

private:
    QString cursorValue(int row, int column) const
    {
        return m_tool->find<QTableWidget>("tableWidget_MonitorCursors")->item(row, column)->text();
    }
    std::array<int, 2> m_replots{}; ///< between exchanges, and during one
};

/// Fingers, targets, keys and cursors of the plot.
void TestMonitorPlot::plot()
{
    open({"--node", "2", "--speed", "0.01"});
    showMonitor();
    if (!m_plot)
        QSKIP("built without plots");
    m_tool->window()->resize(1600, 1000);
    constexpr const char* middle = "#00704f";
    const auto* pause = m_tool->find<QPushButton>("pushButton_MonitorPause");
    QTRY_VERIFY(!value(0, 0).isEmpty());
    command("set 2 current 2 55");
    QTRY_VERIFY(pixels(middle).size() > 100);
    QTRY_VERIFY(m_tool->find<QLabel>("label_MonitorFinger2")->text().startsWith("55 "));
    auto* finger = m_tool->find<QCheckBox>("checkBox_MonitorFinger2");
    QTest::keyClick(finger, Qt::Key_Space);
    QTRY_VERIFY(pixels(middle).isEmpty());
    QTest::mouseClick(m_tool->find<QLabel>("label_MonitorFinger2"), Qt::LeftButton);
    QTRY_VERIFY(pixels(middle).size() > 100);

    // The dashed line of a target that the finger does not reach for a long time.
    m_tool->showPage(RunTab);
    QVERIFY(pixels(middle, 0.52, 0.6).isEmpty());
    m_tool->setField("lineEdit_RunPos2", "60000");
    m_tool->click("pushButton_RunSetPos2");
    QTRY_VERIFY(pixels(middle, 0.52, 0.6).size() > 20);
    QVERIFY(value(2, 1).toInt() < 30'000);

    for (const Qt::Key key : {Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Left, Qt::Key_Right}) {
        QTest::keyClick(m_plot, key);
        QVERIFY(pause->isChecked());
        QTest::keyClick(m_plot, Qt::Key_Home);
        QVERIFY(!pause->isChecked());
    }
    // The cursors pause the plot. Their values do not depend on the width of a pixel.
    auto* cursors = m_tool->find<QCheckBox>("checkBox_MonitorCursors");
    cursors->click();
    QVERIFY(pause->isChecked());
    const auto field = [this](int cursor) {
        return m_tool->find<QDoubleSpinBox>(QString("doubleSpinBox_MonitorCursor%1").arg(cursor));
    };
    field(1)->setValue(0);
    field(2)->setValue(1000);
    QCOMPARE(cursorValue(2, 1), "–"); // after the last sample
    QVERIFY(cursorValue(2, 2).toInt() < 55 && cursorValue(2, 4).toInt() == 55);
    const double mean = cursorValue(2, 3).toDouble();
    QVERIFY(mean > cursorValue(2, 2).toInt() && mean < 55);
    const QPoint place(m_plot->width() / 2, m_plot->height() / 4);
    QTest::mouseClick(m_plot, Qt::LeftButton, {}, place);
    QVERIFY(field(1)->value() > 0); // the nearer one
    QTest::mouseDClick(m_plot, Qt::LeftButton, {}, place);
    QVERIFY(!pause->isChecked());
}

/// The lines of the limits are at their values, compared with the line of a known current.
void TestMonitorPlot::limits()
{
    open();
    for (int finger = 0; finger < 6; ++finger)
        command(QString("set 2 current %1 %2").arg(finger).arg(finger == 2 ? 40 : 20));
    command("set 2 current-limit 2 120");
    m_tool->showPage(SettingTab);
    m_tool->click("pushButton_SettingReadCurrentLimit2");
    showMonitor();
    if (!m_plot)
        QSKIP("built without plots");
    m_tool->window()->resize(1600, 1000);
    const auto rows = [this](const char* color) { // in the row of the currents
        QMap<int, int> count;
        for (const QPoint& pixel : pixels(color, 0, 0.42))
            ++count[pixel.y()];
        QList<int> found;
        for (const int y : count.keys())
            if (count[y] > m_plot->width() / 4) // dotted
                found.append(y);
        return found;
    };
    constexpr const char* middle = "#00704f";
    const auto hasLines = [&] { return rows(middle).size() == 2 && rows("#000000").size() == 1; };
    m_tool->find<QComboBox>("comboBox_MonitorSpan")->setCurrentIndex(0);
    QTRY_VERIFY(hasLines());
    const double limit = rows(middle)[0];
    const double current = rows(middle)[1];
    const double pixelsPerMa = (current - limit) / (120 - 40);
    QVERIFY(std::abs(rows("#000000")[0] - (current - (79 - 40) * pixelsPerMa)) <= 2);
    m_tool->find<QCheckBox>("checkBox_MonitorLimits")->click();
    QTRY_VERIFY(rows(middle).size() == 1 && rows("#000000").isEmpty());
}

/// A recording over the live samples: its start and its marker can be aligned.
void TestMonitorPlot::overlay()
{
    open();
    showMonitor();
    if (!m_plot)
        QSKIP("built without plots");
    QTRY_VERIFY(!value(0, 0).isEmpty());
    QFile file("before.csv");
    QVERIFY(file.open(QFile::WriteOnly));
    file.write(
        "time_s,wall_time,current_middle,marker\n100.0,,600,\n103.0,,600,step\n105.0,,600,\n");
    file.close();
    choose("pushButton_MonitorOverlay", QDir::current().filePath("before.csv"));
    auto* const anchor = m_tool->find<QComboBox>("comboBox_MonitorOverlay");
    QTRY_COMPARE(anchor->count(), 2);
    m_tool->find<QPushButton>("pushButton_MonitorPause")->click();
    m_tool->find<QDoubleSpinBox>("doubleSpinBox_MonitorOverlay")->setValue(4);
    const QColor lighter = PlotColors::overlay(2, Qt::white);
    QTRY_VERIFY(pixels(lighter).size() > 10);
    const int fromStart = pixels(lighter)[0].x();
    anchor->setCurrentIndex(1); // 3 s further left
    QTRY_VERIFY(pixels(lighter).size() > 10 && pixels(lighter)[0].x() < fromStart);
    QFile::remove("o.png");
    choose("pushButton_MonitorPicture", QDir::current().filePath("o.png"));
    QTRY_COMPARE(QImage("o.png").size(), QSize(1600, 900));
    QVERIFY(pixelsOf(QImage("o.png"), lighter, 0, 0.5).size() > 10);
    m_tool->click("pushButton_MonitorRemoveOverlay");
    QTRY_VERIFY(pixels(lighter).isEmpty());
}

/// The largest values and times of a recording, and any zoom, can be shown.
void TestMonitorPlot::extremeRecording()
{
    open();
    showMonitor();
    if (!m_plot)
        QSKIP("built without plots");
    QFile file("extreme.csv");
    QVERIFY(file.open(QFile::WriteOnly));
    file.write("time_s,current_middle,marker\n1,2147483647,\n2,-2147483647,step\n");
    file.close();
    choose("pushButton_MonitorOpen", QDir::current().filePath("extreme.csv"));
    QTRY_VERIFY(m_tool->window()->findChild<QDialog*>("recordingView"));
    auto* const view = m_tool->find<QDialog>("recordingView");
    m_plot = view->findChild<QWidget*>("monitorPlot")->findChild<QWidget*>();
    for (const Qt::Key key : {Qt::Key_Minus, Qt::Key_Right, Qt::Key_Plus}) {
        for (int i = 0; i < 300; ++i)
            QTest::keyClick(m_plot, key);
        QTest::keyClick(m_plot, Qt::Key_Home);
        QTRY_VERIFY(pixels("#00704f").size() > 100);
    }
    view->close();
}

/// A late reply ends a play, so the plot is not painted in the wait for one, whatever the user
/// does.
void TestMonitorPlot::paintsBetweenExchanges()
{
    open();
    showMonitor();
    if (!m_plot)
        QSKIP("built without plots");
    const auto method = [](const QMetaObject* meta, const char* signature) {
        return meta->method(meta->indexOfMethod(signature));
    };
    QVERIFY(connect(m_plot, method(m_plot->metaObject(), "beforeReplot()"), this,
                    method(metaObject(), "noteReplot()")));
    asFastAsPossible();
    QTRY_VERIFY(!value(0, 0).isEmpty());
    m_tool->find<QCheckBox>("checkBox_MonitorCursors")->click();
    const QPoint place(m_plot->width() / 2, m_plot->height() / 4);
    const QList<std::function<void()>> actions{
        [&] { m_tool->find<QCheckBox>("checkBox_MonitorFinger2")->click(); },
        [&] { m_tool->find<QCheckBox>("checkBox_MonitorForce")->click(); },
        [&] { QTest::keyClick(m_plot, Qt::Key_Minus); },
        [&] { QTest::mouseClick(m_plot, Qt::LeftButton, {}, place); },
        [&] { m_tool->window()->resize(m_tool->window()->size() + QSize(0, 20)); },
        [&] {
            QWheelEvent wheel(place, m_plot->mapToGlobal(place), {}, {0, 120}, {}, {},
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(m_plot, &wheel);
        },
    };
    for (const auto& act : actions) {
        m_replots = {};
        bool acted = false;
        duringExchange([&] {
            act();
            acted = true;
        });
        QTRY_VERIFY(acted && m_replots[0] > 0);
        QCOMPARE(m_replots[1], 0);
    }
}

/// No dialog of the monitor opens during an exchange.
void TestMonitorPlot::asksBetweenExchanges()
{
    open();
    showMonitor();
    if (!m_plot)
        QSKIP("built without plots");
    asFastAsPossible();
    duringExchange([&] { m_tool->click("pushButton_MonitorPicture"); });
    const auto* dock = m_tool->find<QDockWidget>("dock_Monitor");
    QTRY_VERIFY(dock->findChild<QFileDialog*>());
    QFile existing("existing.png");
    QVERIFY(existing.open(QFile::WriteOnly));
    QDialog* files = dock->findChild<QFileDialog*>();
    bool accepted = false;
    bool asked = false;
    const auto accept = [&] {
        files->findChild<QLineEdit*>("fileNameEdit")
            ->setText(QDir::current().filePath("existing.png"));
        files->accept(); // ignored while the folder is being read
        accepted = !files->isVisible();
        asked = dock->findChild<QMessageBox*>();
    };
    while (!accepted) {
        bool tried = false;
        duringExchange([&] {
            accept();
            tried = true;
        });
        QTRY_VERIFY(tried);
        QVERIFY(!asked);
    }
    QTRY_VERIFY(dock->findChild<QMessageBox*>());
    QCOMPARE(m_tool->errorText(), QString());
}

/// Columns that are kept are those that would be determined anew.
void TestMonitorPlot::columns()
{
    SampleBuffer buffer;
    const PlotSource source = PlotSource::of(&buffer);
    ColumnCache cache;
    Sample sample;
    for (int i = 0; i < 2000; ++i) {
        sample.timeUs += 1000 + i * 7919 % 5000;
        sample.afterGap = i % 97 == 0;
        sample.values[0] = i * 7919 % 1000;
        buffer.append(sample);
        if (i % 3 > 0)
            continue;
        const std::int64_t to = sample.timeUs + 1 - (i % 500 > 480 ? 200'000 : 0);
        const auto kept = cache.update(source, 0, to - 1'000'000, to, 150);
        ColumnCache fresh;
        const auto expected = fresh.update(source, 0, to - 1'000'000, to, 150);
        QCOMPARE(kept.fromUs, expected.fromUs);
        QVERIFY(std::ranges::equal(kept.extents, expected.extents, [](auto& a, auto& b) {
            return a.min == b.min && a.max == b.max && a.afterGap == b.afterGap;
        }));
    }
}

VANTO_TEST(TestMonitorPlot)

} // namespace vanto

#include "tst_monitorplot.moc"
