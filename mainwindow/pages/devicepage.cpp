#include "devicepage.h"

#include <QHash>
#include <QLineEdit>

namespace vanto
{

void DevicePage::setUp(DeviceSession* session, StatusReporter* reporter)
{
    m_session = session;
    m_reporter = reporter;
}

void DevicePage::reloadKeepingEdits()
{
    QHash<QLineEdit*, QString> edited;
    for (QLineEdit* field : findChildren<QLineEdit*>())
        if (field->isModified())
            edited.insert(field, field->text());
    reload();
    for (auto [field, text] : edited.asKeyValueRange()) {
        field->setText(text);
        field->setModified(true);
    }
}

void DevicePage::resumeAfterHalt(bool isCurrent)
{
    reloadKeepingEdits();
    follow(isCurrent);
}

void DevicePage::request(const QWidget* control, RequestQueue::Request action)
{
    m_session->request([control] { return control->isEnabled(); }, std::move(action));
}

} // namespace vanto
