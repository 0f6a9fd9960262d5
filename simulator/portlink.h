#pragma once

#include <QString>

namespace vanto::simulator
{

/// A symbolic link with a fixed name to a device whose own name changes from run to run.
class PortLink
{
public:
    explicit PortLink(QString path) : m_path(std::move(path)) {}
    ~PortLink() { remove(); }
    Q_DISABLE_COPY_MOVE(PortLink)

    /// Replaces an existing symbolic link, but no other file. Returns an error, or an empty string.
    QString setTarget(const QString& device);
    /// Keeps a link whose target another program has changed.
    void remove();

private:
    QString m_path;
    QString m_device;
};

} // namespace vanto::simulator
