#pragma once

#include "handtest.h"

#include <QCheckBox>
#include <QDockWidget>
#include <QFileDialog>
#include <QImage>
#include <QPointer>
#include <QTableWidget>

namespace vanto
{

/// Uses the monitor of the real window.
class MonitorTest : public HandTest
{
    Q_OBJECT
protected:
    void showMonitor()
    {
        m_tool->trigger("action_Monitor");
        if (auto* const plot = m_tool->window()->findChild<QWidget*>("monitorPlot"))
            m_plot = plot->findChild<QWidget*>();
        QVERIFY(m_tool->find<QDockWidget>("dock_Monitor")->isVisible());
    }
    void asFastAsPossible() const
    {
        m_tool->find<QComboBox>("comboBox_MonitorRate")->setCurrentIndex(3);
    }
    QString value(int finger, int column) const
    {
        return m_tool->find<QTableWidget>("tableWidget_Monitor")->item(finger, column)->text();
    }
    /// The pixels of a color in a part of the plot, given as shares of its height.
    QList<QPoint> pixels(const QColor& color, double top = 0, double bottom = 1) const
    {
        return pixelsOf(m_plot->grab().toImage(), color, top, bottom);
    }
    static QList<QPoint> pixelsOf(const QImage& image, const QColor& color, double top,
                                  double bottom)
    {
        QList<QPoint> found;
        for (int y = image.height() * top; y < image.height() * bottom; ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y) == color)
                    found.append({x, y});
        return found;
    }
    /// The file dialog that the click opens.
    void choose(const QString& button, const QString& path) const
    {
        m_tool->click(button);
        QVERIFY(!QApplication::activeModalWidget()); // Stop remains available
        const QPointer<QFileDialog> files =
            m_tool->find<QDockWidget>("dock_Monitor")->findChild<QFileDialog*>();
        QVERIFY(files);
        chooseFile(*files, path);
        QTRY_VERIFY(!files);
    }

    QPointer<QWidget> m_plot; ///< null in a build without plots
};

} // namespace vanto
