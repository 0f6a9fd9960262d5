#pragma once

#include "devicepage.h"

#include <QTimer>

namespace vanto
{

namespace Ui
{
class ForcePage;
}

/// The Force page, for hands with force sensing. It sends nothing.
class ForcePage : public DevicePage
{
    Q_OBJECT
public:
    explicit ForcePage(QWidget* parent = nullptr);
    ~ForcePage() override;

    void setUp(DeviceSession* session, StatusReporter* reporter);
    void updateForce();

    void follow(bool isCurrent) override;
    bool needsForceSensing() const override { return true; }

private:
    std::unique_ptr<Ui::ForcePage> ui;
    QTimer m_timer;
};

} // namespace vanto
