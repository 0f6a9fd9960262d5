#pragma once

#include "plotsource.h"
#include "recording.h"

#include <QWidget>

#include <memory>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;

namespace vanto
{

class ElidedLabel;

/// The recording that is plotted over other samples, and which of its times is placed where. Hidden
/// without a recording.
class OverlayBar : public QWidget
{
    Q_OBJECT
public:
    explicit OverlayBar(QWidget* parent);

    void setRecording(Recording recording, const QString& path);
    std::optional<PlotSource> source() const;
    /// Where time 0 of the recording is.
    std::int64_t offsetUs() const;
    void setPlace(std::int64_t us);
    /// Whether the recording is placed at the last marker, by setPlace().
    bool followsMarker() const;
    void setStep(std::int64_t us);

signals:
    /// By the user.
    void sig_changed();

private:
    void remove();

    std::shared_ptr<const Recording> m_recording;
    ElidedLabel* m_name;
    QComboBox* m_anchor; ///< a time of the recording
    QDoubleSpinBox* m_place;
    QCheckBox* m_follow;
};

} // namespace vanto
