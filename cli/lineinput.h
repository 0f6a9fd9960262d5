#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>

class QSocketNotifier;

namespace vanto
{

/// Splits a byte stream into lines. Pure.
class LineSplitter
{
public:
    static constexpr qsizetype MaxLength = 4096; ///< bytes

    struct Line {
        QByteArray text;        ///< without the line feed, and without a carriage return before it
        bool isTooLong = false; ///< then `text` is its beginning
    };

    /// Adds bytes and returns the lines that they complete.
    QList<Line> feed(QByteArrayView bytes);
    /// What follows the last line feed, if anything.
    QList<Line> finish();

private:
    void append(QByteArrayView part);
    Line take();

    Line m_line;
};

/// Reads lines from standard input as events.
class LineInput : public QObject
{
    Q_OBJECT
public:
    explicit LineInput(QObject* parent = nullptr);

    bool hasLine() const { return !m_lines.isEmpty(); }
    qsizetype lineCount() const { return m_lines.size(); }
    /// Lines are read before they are taken, so that the end of the input and the silence of the
    /// writer are noticed in time. A writer that is far ahead has to wait.
    LineSplitter::Line takeLine();
    /// Drops what has been typed but not taken.
    void discard();
    /// Whether the input has ended; lines may be left.
    bool hasEnded() const { return m_ended; }

signals:
    /// Lines have arrived, or the input has ended.
    void sig_received();

private:
    void receive();
    void append(const QList<LineSplitter::Line>& lines);
    void followSpace();

    QSocketNotifier* m_notifier = nullptr;
    LineSplitter m_splitter;
    QList<LineSplitter::Line> m_lines;
    qsizetype m_size = 0; ///< of the lines, in bytes with their line feeds
    bool m_ended = false;
};

} // namespace vanto
