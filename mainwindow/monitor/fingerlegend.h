#pragma once

#include "fingers.h"
#include "sample.h"

#include <QColor>
#include <QWidget>

#include <functional>

class QCheckBox;

namespace vanto
{

class ElidedLabel;

/// The legend of a plot: a check box for each finger, which shows or hides its lines, with its
/// color and its last values.
class FingerLegend : public QWidget
{
    Q_OBJECT
public:
    explicit FingerLegend(QWidget* parent);

    void setColors(const std::function<QColor(std::size_t finger)>& colorOf);
    /// Only the values of these channels are shown.
    void showSample(const Sample& sample, ChannelSet channels);

signals:
    void sig_toggled(std::size_t finger, bool shown);

protected:
    /// A click on the values is a click on the check box.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    PerFinger<QCheckBox*> m_boxes{};
    PerFinger<ElidedLabel*> m_values{};
};

} // namespace vanto
