#include "portlink.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <unistd.h>

namespace vanto::simulator
{

QString PortLink::setTarget(const QString& device)
{
    if (m_path.isEmpty())
        return {};
    const QFileInfo existing(m_path);
    if (existing.exists() && !existing.isSymbolicLink())
        return QStringLiteral("%1 exists and is not a symbolic link").arg(m_path);

    // Created under another name and renamed, so that the link exists at all times.
    const QByteArray path = QFile::encodeName(m_path);
    const QByteArray temporary = path + "." + QByteArray::number(::getpid());
    if (::symlink(QFile::encodeName(device).constData(), temporary.constData()) != 0 ||
        std::rename(temporary.constData(), path.constData()) != 0) {
        const QString reason = QString::fromLocal8Bit(std::strerror(errno));
        ::unlink(temporary.constData());
        return QStringLiteral("cannot link %1: %2").arg(m_path, reason);
    }
    m_device = device;
    return {};
}

void PortLink::remove()
{
    if (m_device.isEmpty())
        return;
    if (QFile::symLinkTarget(m_path) == m_device)
        ::unlink(QFile::encodeName(m_path).constData());
    m_device.clear();
}

} // namespace vanto::simulator
