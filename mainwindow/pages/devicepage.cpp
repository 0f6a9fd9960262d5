#include "devicepage.h"

namespace vanto
{

void DevicePage::setUp(DeviceSession* session, StatusReporter* reporter)
{
    m_session = session;
    m_reporter = reporter;
}

void DevicePage::request(const QWidget* control, RequestQueue::Request action)
{
    m_session->request([control] { return control->isEnabled(); }, std::move(action));
}

} // namespace vanto
