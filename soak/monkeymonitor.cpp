// How the monkey uses the monitor.

#include "monkey.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QDockWidget>
#include <QLineEdit>
#include <QPushButton>

#include <array>

namespace vanto
{

/// Shows and hides the monitor, chooses quantities and rates, records, sets markers, and opens
/// recordings. The dialogs of the monitor are not modal.
void Monkey::useMonitor()
{
    // Created when it is shown for the first time.
    auto* dock = m_driver.window()->findChild<QDockWidget*>(QStringLiteral("dock_Monitor"));
    if (!dock || !dock->isVisible() || randomBelow(12) == 0) {
        m_driver.trigger(QStringLiteral("action_Monitor"));
        return;
    }
    constexpr std::array buttons{"pushButton_MonitorRecord", "pushButton_MonitorRecord",
                                 "pushButton_MonitorMark",   "pushButton_MonitorPause",
                                 "pushButton_MonitorOpen",   "pushButton_MonitorPicture"};
    switch (randomBelow(4)) {
    case 0:
        if (auto* quantity = randomItem(dock->findChildren<QCheckBox*>()))
            quantity->click(); // disabled while recording
        break;
    case 1:
        if (auto* choice = randomItem(dock->findChildren<QComboBox*>()))
            selectRandomItem(choice);
        break;
    default: {
        dock->findChild<QLineEdit*>(QStringLiteral("lineEdit_MonitorMarker"))
            ->setText(randomText());
        const QString name =
            QLatin1String(buttons[static_cast<std::size_t>(randomBelow(buttons.size()))]);
        // Left out in a build without plots.
        if (auto* button = dock->findChild<QPushButton*>(name); button && button->isVisible()) {
            ++m_counts[name.mid(name.indexOf(QLatin1Char('_')) + 1)];
            button->click();
        }
    }
    }
}

/// Shows the monitor, and lets it read as fast as possible or at the lowest rate.
void Monkey::setStreaming(bool isFast)
{
    const auto find = [this] {
        return m_driver.window()->findChild<QDockWidget*>(QStringLiteral("dock_Monitor"));
    };
    if (!find() || !find()->isVisible())
        m_driver.trigger(QStringLiteral("action_Monitor"));
    if (auto* dock = find()) {
        auto* rates = dock->findChild<QComboBox*>(QStringLiteral("comboBox_MonitorRate"));
        rates->setCurrentIndex(isFast ? rates->count() - 1 : 0);
    }
}

/// A recording, or now and then a file that is none.
QString Monkey::recordingFor(bool opens)
{
    const QDir folder = QDir::current();
    if (!opens)
        return folder.absoluteFilePath(QStringLiteral("recording-%1.csv").arg(randomBelow(4)));
    const QStringList files = folder.entryList({QStringLiteral("*.csv")}, QDir::Files);
    if (files.isEmpty() || randomBelow(8) == 0)
        return randomSequenceFile();
    return folder.absoluteFilePath(files[randomBelow(static_cast<int>(files.size()))]);
}

} // namespace vanto
