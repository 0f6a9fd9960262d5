#pragma once

#include "parameterset.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QPushButton;

namespace vanto
{

/// Asks whose gains are to be used for which other fingers.
class CopyGainsDialog : public QDialog
{
    Q_OBJECT
public:
    /// Only fingers whose gains `file` has can be copied.
    CopyGainsDialog(QWidget* parent, const ParameterSet& file);

    std::uint8_t source() const;
    QList<std::uint8_t> targets() const;

private:
    void updateControls();

    QComboBox* m_source;
    QList<QCheckBox*> m_targets; ///< one for each finger
    QPushButton* m_ok;
};

} // namespace vanto
