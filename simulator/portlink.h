#pragma once

#include <QString>

namespace vanto::simulator
{

// A symbolic link with a lasting name for a device whose own name changes from run to run.
class PortLink
{
public:
    explicit PortLink(QString path) : m_path(std::move(path)) {}
    ~PortLink() { remove(); }
    Q_DISABLE_COPY_MOVE(PortLink)

    // Replaces a symbolic link, never another kind of file. Returns the reason of a failure.
    QString pointTo(const QString& device);
    // Leaves a link alone that someone else has pointed elsewhere.
    void remove();

private:
    QString m_path;
    QString m_device;
};

} // namespace vanto::simulator
