#include "forcepage.h"

#include "ui_forcepage.h"

#include <QDebug>

namespace vanto
{

namespace
{
constexpr int ForceIntervalMs = 100;
} // namespace

ForcePage::ForcePage(QWidget* parent)
    : DevicePage(parent), ui(std::make_unique<Ui::ForcePage>()), m_timer(this)
{
    ui->setupUi(this);
    m_timer.setObjectName(QStringLiteral("forceTimer"));
    m_timer.setInterval(ForceIntervalMs);
    connect(&m_timer, &QTimer::timeout, this, &ForcePage::updateForce);
}

ForcePage::~ForcePage() = default;

void ForcePage::setUp(DeviceSession* session, StatusReporter* reporter)
{
    DevicePage::setUp(session, reporter);
    connect(session, &DeviceSession::sig_stop, &m_timer, &QTimer::stop);
}

void ForcePage::follow(bool isCurrent)
{
    if (isCurrent && session()->target())
        m_timer.start();
    else
        m_timer.stop();
}

void ForcePage::updateForce()
{
    qDebug() << "MainWindow::updateForce()"; // users search the log for this text
}

} // namespace vanto
