#pragma once

#include <QDialog>

#include <cstdint>
#include <functional>
#include <memory>

namespace vanto
{

namespace Ui
{
class CalibratingDialog;
}

/// Shows a prompt and a spin box that moves the thumb root.
class CalibratingDialog : public QDialog
{
    Q_OBJECT
public:
    /// `moved` is called with each new value, except the initial one. It is not called once the
    /// dialog has been rejected.
    CalibratingDialog(QWidget* parent, const QString& prompt, std::uint16_t value,
                      std::uint16_t singleStep, std::function<void(int)> moved);
    ~CalibratingDialog() override;

    /// Whether it is shown and neither accepted nor rejected yet.
    bool isOpen() const { return isVisible() && !m_closing; }
    void done(int result) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private slots:
    void on_spinBox_ThumbRootPos_valueChanged(int value);

private:
    std::unique_ptr<Ui::CalibratingDialog> ui;
    std::function<void(int)> m_moved;
    bool m_closing = false; ///< while closing, the spin box may still apply its value
};

} // namespace vanto
