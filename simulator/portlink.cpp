#include "portlink.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <unistd.h>

namespace vanto::simulator
{

QString PortLink::pointTo(const QString& device)
{
    if (m_path.isEmpty())
        return {};
    const QFileInfo existing(m_path);
    if (existing.exists() && !existing.isSymbolicLink())
        return QStringLiteral("%1 exists and is not a symbolic link").arg(m_path);

    // Made aside and renamed, so that the name never is missing in between.
    const QByteArray path = QFile::encodeName(m_path);
    const QByteArray aside = path + "." + QByteArray::number(::getpid());
    if (::symlink(QFile::encodeName(device).constData(), aside.constData()) != 0 ||
        std::rename(aside.constData(), path.constData()) != 0) {
        const QString reason = QString::fromLocal8Bit(std::strerror(errno));
        ::unlink(aside.constData());
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
