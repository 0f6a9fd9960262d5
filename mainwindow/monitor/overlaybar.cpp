#include "overlaybar.h"

#include "elidedlabel.h"
#include "plottime.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

#include <algorithm>

namespace vanto
{

namespace
{
constexpr int MaxAnchors = 200; ///< the latest markers
constexpr int AnchorWidth = 12; ///< characters; the list is wider
constexpr int TimeDecimals = 3; ///< of seconds
constexpr double MaxPlace = 1e9;
} // namespace

OverlayBar::OverlayBar(QWidget* parent)
    : QWidget(parent),
      m_name(new ElidedLabel(this)),
      m_anchor(new QComboBox(this)),
      m_place(new QDoubleSpinBox(this)),
      m_follow(new QCheckBox(tr("At the last marker"), this))
{
    m_name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_anchor->setObjectName(QStringLiteral("comboBox_MonitorOverlay"));
    m_anchor->setAccessibleName(tr("Time of the overlay that is aligned"));
    m_anchor->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_anchor->setMinimumContentsLength(AnchorWidth);
    connect(m_anchor, &QComboBox::currentIndexChanged, this, &OverlayBar::sig_changed);
    m_place->setObjectName(QStringLiteral("doubleSpinBox_MonitorOverlay"));
    m_place->setDecimals(TimeDecimals);
    m_place->setRange(-MaxPlace, MaxPlace);
    m_place->setPrefix(tr("at "));
    m_place->setSuffix(tr(" s"));
    m_place->setAccessibleName(tr("Where it is placed"));
    m_place->setKeyboardTracking(false);
    connect(m_place, &QDoubleSpinBox::valueChanged, this, &OverlayBar::sig_changed);
    m_follow->setObjectName(QStringLiteral("checkBox_MonitorOverlay"));
    m_follow->setToolTip(tr("Moves the overlay to each new marker"));
    connect(m_follow, &QCheckBox::toggled, this, [this](bool follows) {
        m_place->setEnabled(!follows);
        emit sig_changed();
    });
    auto* const removal = new QPushButton(tr("Remove Overlay"), this);
    removal->setObjectName(QStringLiteral("pushButton_MonitorRemoveOverlay"));
    connect(removal, &QPushButton::clicked, this, &OverlayBar::remove);
    auto* const layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_name, 0, 0, 1, 2);
    layout->addWidget(removal, 0, 2);
    layout->addWidget(m_anchor, 1, 0);
    layout->addWidget(m_place, 1, 1);
    layout->addWidget(m_follow, 1, 2);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(1, 1);
    hide();
}

void OverlayBar::setRecording(Recording recording, const QString& path)
{
    m_recording = std::make_shared<const Recording>(std::move(recording));
    m_name->setText(tr("Overlay: %1").arg(QFileInfo(path).fileName()));
    const QSignalBlocker blocker(m_anchor);
    m_anchor->clear();
    const auto add = [this](const QString& text, std::int64_t timeUs) {
        m_anchor->addItem(tr("%1, %2 s", "marker, time")
                              .arg(text)
                              .arg(PlotTime::toSeconds(timeUs), 0, 'f', TimeDecimals),
                          qlonglong{timeUs});
    };
    add(tr("Start"), m_recording->timeAt(0));
    for (const Marker& marker : m_recording->markers().last(
             std::min(m_recording->markers().size(), qsizetype{MaxAnchors})))
        add(marker.text, marker.timeUs);
    show();
    emit sig_changed();
}

void OverlayBar::remove()
{
    m_recording.reset();
    hide();
    emit sig_changed();
}

std::optional<PlotSource> OverlayBar::source() const
{
    return m_recording ? std::optional(PlotSource::of(m_recording)) : std::nullopt;
}

std::int64_t OverlayBar::offsetUs() const
{
    return PlotTime::toUs(m_place->value()) - m_anchor->currentData().toLongLong();
}

void OverlayBar::setPlace(std::int64_t us)
{
    const QSignalBlocker blocker(m_place);
    m_place->setValue(PlotTime::toSeconds(us));
}

bool OverlayBar::followsMarker() const
{
    return m_recording && m_follow->isChecked();
}

void OverlayBar::setStep(std::int64_t us)
{
    m_place->setSingleStep(std::max(PlotTime::toSeconds(us), std::pow(10.0, -TimeDecimals)));
}

} // namespace vanto
