#pragma once

#include <QJsonObject>
#include <QString>

namespace vanto
{

/// The exit status of the program.
enum class ExitStatus {
    Done = 0,
    Refused = 1, ///< the hand refused, did not keep a value, or differs
    Usage = 2,
    NoAnswer = 3,
    PortNotOpened = 4,
    File = 5,
    OverCurrent = 6,
    Interrupted = 130
};

/// What a command has found, or why it has failed.
class Answer
{
public:
    /// Version of the JSON form. Members are only added.
    static constexpr int SchemaVersion = 1;

    QJsonObject data; ///< members of the JSON form
    QString text;     ///< the same for people, lines

    void addLine(const QString& line) { text += line + QLatin1Char('\n'); }

    /// Only the first failure counts.
    void fail(ExitStatus status, const QString& reason, int result = 0, int subError = 0);
    /// Replaces an earlier failure.
    void replaceFailure(ExitStatus status, const QString& reason);
    /// Adds a sentence to the reason of a failure.
    void appendReason(const QString& sentence);
    bool hasFailed() const { return m_status != ExitStatus::Done; }
    ExitStatus status() const { return m_status; }
    /// One line.
    QString reason() const { return m_reason; }

    /// {"schema": 1, "command": ..., "status": ..., "result": ..., "subError": ..., members}; after
    /// a failure also "error".
    QJsonObject toJson(const QString& command) const;

private:
    ExitStatus m_status = ExitStatus::Done;
    QString m_reason;
    int m_result = 0;   ///< the result code of the operation that has failed
    int m_subError = 0; ///< the hand's own error byte
};

} // namespace vanto
