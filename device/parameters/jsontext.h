#pragma once

#include <QString>

namespace vanto
{

/// Builds an indented JSON document whose members keep their order, unlike those of QJsonObject, so
/// that people can read the file and line tools can compare two of them.
class JsonText
{
public:
    JsonText() { m_text = QLatin1Char('{'); }

    void begin(const QString& key);
    void end();
    void string(const QString& key, const QString& value);
    /// A value that is JSON already: a number or an array of numbers, in one line.
    void raw(const QString& key, const QString& json);
    /// Ends the document.
    QByteArray finish();

private:
    void start(const QString& key);

    QString m_text;
    int m_depth = 1;
    bool m_isEmpty = true; ///< the current object
};

} // namespace vanto
