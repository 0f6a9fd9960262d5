#include "jsontext.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace vanto
{

namespace
{
constexpr qsizetype IndentWidth = 4;

QString quoted(const QString& text)
{
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.mid(1, array.size() - 2));
}

QString lineStart(int depth)
{
    return QLatin1Char('\n') + QString(depth * IndentWidth, QLatin1Char(' '));
}
} // namespace

void JsonText::begin(const QString& key)
{
    start(key);
    m_text += QLatin1Char('{');
    ++m_depth;
    m_isEmpty = true;
}

void JsonText::end()
{
    --m_depth;
    if (!m_isEmpty)
        m_text += lineStart(m_depth);
    m_text += QLatin1Char('}');
    m_isEmpty = false;
}

void JsonText::string(const QString& key, const QString& value)
{
    raw(key, quoted(value));
}

void JsonText::raw(const QString& key, const QString& json)
{
    start(key);
    m_text += json;
}

QByteArray JsonText::finish()
{
    end();
    return (m_text + QLatin1Char('\n')).toUtf8();
}

void JsonText::start(const QString& key)
{
    if (!m_isEmpty)
        m_text += QLatin1Char(',');
    m_isEmpty = false;
    m_text += lineStart(m_depth) + quoted(key) + QStringLiteral(": ");
}

} // namespace vanto
