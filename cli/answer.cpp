#include "answer.h"

namespace vanto
{

void Answer::fail(ExitStatus status, const QString& reason, int result, int subError)
{
    if (hasFailed())
        return;
    replaceFailure(status, reason);
    m_result = result;
    m_subError = subError;
}

void Answer::replaceFailure(ExitStatus status, const QString& reason)
{
    m_status = status;
    m_reason = reason.simplified();
    m_result = 0;
    m_subError = 0;
}

void Answer::appendReason(const QString& sentence)
{
    m_reason += (m_reason.endsWith(QLatin1Char('.')) ? QLatin1String(" ") : QLatin1String(". ")) +
                sentence.simplified();
}

QJsonObject Answer::toJson(const QString& command) const
{
    QJsonObject object = data;
    object.insert(QLatin1String("schema"), SchemaVersion);
    object.insert(QLatin1String("command"), command);
    object.insert(QLatin1String("status"), static_cast<int>(m_status));
    object.insert(QLatin1String("result"), m_result);
    object.insert(QLatin1String("subError"), m_subError);
    if (hasFailed())
        object.insert(QLatin1String("error"), m_reason);
    return object;
}

} // namespace vanto
