#pragma once

#include <QMenu>

namespace vanto
{

/// A menu of the files that were used last, kept for the next start.
class RecentFiles : public QMenu
{
    Q_OBJECT
public:
    static constexpr int MaxFiles = 10;

    /// `key` names the list in the state file.
    RecentFiles(const QString& title, const QString& key, QWidget* parent = nullptr);

    /// Puts the file at the top.
    void add(const QString& file);
    QStringList files() const;

signals:
    void sig_chosen(QString file);

private:
    void showFiles();

    QString m_key;
};

} // namespace vanto
