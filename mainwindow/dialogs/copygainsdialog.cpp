#include "copygainsdialog.h"

#include "fingers.h"
#include "program.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>

#include <algorithm>

namespace vanto
{

CopyGainsDialog::CopyGainsDialog(QWidget* parent, const ParameterSet& file)
    : QDialog(parent), m_source(new QComboBox(this))
{
    setWindowTitle(Program::title());
    auto* form = new QFormLayout(this);
    m_source->setObjectName(QStringLiteral("comboBox_GainsOf"));
    form->addRow(tr("Gains in the file of:"), m_source);
    auto* targets = new QVBoxLayout;
    for (std::uint8_t finger = 0; finger < FingerCount; ++finger) {
        const QString name = ParameterNames::displayName(finger);
        const bool hasGains = std::ranges::any_of(file.values, [finger](const auto& entry) {
            return isGain(entry.first.kind) && entry.first.finger == finger;
        });
        if (hasGains)
            m_source->addItem(name, finger);
        m_targets.append(new QCheckBox(name, this));
        m_targets.constLast()->setObjectName(QStringLiteral("checkBox_CopyTo%1").arg(finger));
        connect(m_targets.constLast(), &QCheckBox::toggled, this, &CopyGainsDialog::updateControls);
        targets->addWidget(m_targets.constLast());
    }
    form->addRow(tr("Copy to:"), targets);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_source, &QComboBox::currentIndexChanged, this, &CopyGainsDialog::updateControls);
    form->addRow(buttons);
    updateControls();
}

std::uint8_t CopyGainsDialog::source() const
{
    return static_cast<std::uint8_t>(m_source->currentData().toUInt());
}

QList<std::uint8_t> CopyGainsDialog::targets() const
{
    QList<std::uint8_t> fingers;
    for (std::uint8_t finger = 0; finger < FingerCount; ++finger)
        if (m_targets[finger]->isChecked() && m_targets[finger]->isEnabled())
            fingers.append(finger);
    return fingers;
}

void CopyGainsDialog::updateControls()
{
    const bool hasSource = m_source->currentIndex() >= 0;
    for (std::uint8_t finger = 0; finger < FingerCount; ++finger)
        m_targets[finger]->setEnabled(hasSource && finger != source());
    m_ok->setEnabled(!targets().isEmpty());
}

} // namespace vanto
