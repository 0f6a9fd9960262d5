#include "pseudoterminal.h"

#include <QFile>

#include <array>
#include <cctype>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <utility>

#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace vanto::simulator
{
namespace
{
namespace fs = std::filesystem;

constexpr std::size_t MaxPathLength = 64;
constexpr std::size_t EventBufferSize = 4096;
constexpr std::uint32_t ClosedMask = IN_CLOSE_WRITE | IN_CLOSE_NOWRITE;

QString failure(const char* what)
{
    return QStringLiteral("cannot %1: %2")
        .arg(QLatin1String(what), QString::fromLocal8Bit(std::strerror(errno)));
}

void closeDescriptor(int& descriptor)
{
    if (descriptor >= 0)
        ::close(std::exchange(descriptor, -1));
}

bool makeRaw(int descriptor)
{
    termios settings{};
    if (::tcgetattr(descriptor, &settings) != 0)
        return false;
    ::cfmakeraw(&settings);
    settings.c_cflag |= CLOCAL | CREAD;
    return ::tcsetattr(descriptor, TCSANOW, &settings) == 0;
}

/// Avoids exceptions, as processes can end during the iteration.
template<typename Predicate>
bool anyEntry(const fs::path& directory, Predicate matches)
{
    std::error_code error;
    for (fs::directory_iterator entry(directory, error); entry != fs::end(entry);
         entry.increment(error)) {
        if (matches(entry->path()))
            return true;
    }
    return false;
}

/// Takes some milliseconds. Processes of other users are not accessible and are ignored.
bool isUsedByOtherProcess(const QString& path)
{
    const fs::path device = QFile::encodeName(path).toStdString();
    const fs::path self = std::to_string(::getpid());
    const auto isDevice = [&device](const fs::path& descriptor) {
        std::error_code error;
        return fs::read_symlink(descriptor, error) == device;
    };
    return anyEntry("/proc", [&](const fs::path& process) {
        const bool isNumber = std::isdigit(process.filename().native().front()) != 0;
        return isNumber && process.filename() != self && anyEntry(process / "fd", isDevice);
    });
}
} // namespace

QString PseudoTerminal::open()
{
    QString error = openBothSides();
    if (!error.isEmpty()) {
        close();
        return error;
    }
    watchClients();
    return {};
}

void PseudoTerminal::close()
{
    m_clientsChanged.reset();
    closeDescriptor(m_watch);
    closeDescriptor(m_slave);
    closeDescriptor(m_master);
    m_path.clear();
    m_inUse = false;
}

QString PseudoTerminal::openBothSides()
{
    m_master = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (m_master < 0 || ::grantpt(m_master) != 0 || ::unlockpt(m_master) != 0)
        return failure("open a pseudo-terminal");
    std::array<char, MaxPathLength> name{};
    if (::ptsname_r(m_master, name.data(), name.size()) != 0)
        return failure("name the pseudo-terminal");
    m_path = QFile::decodeName(name.data());
    m_slave = ::open(name.data(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (m_slave < 0 || !makeRaw(m_slave))
        return failure("set up the pseudo-terminal");
    return {};
}

void PseudoTerminal::watchClients()
{
    m_watch = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (m_watch < 0)
        return;
    ::inotify_add_watch(m_watch, QFile::encodeName(m_path).constData(), IN_OPEN | ClosedMask);
    m_clientsChanged = std::make_unique<QSocketNotifier>(m_watch, QSocketNotifier::Read);
    QObject::connect(m_clientsChanged.get(), &QSocketNotifier::activated,
                     [this] { processOpenEvents(); });
}

void PseudoTerminal::markInUse()
{
    const bool clientClosed = processOpenEvents();
    m_inUse = m_inUse || !clientClosed;
}

void PseudoTerminal::discardUnread()
{
    processOpenEvents();
    if (!m_inUse)
        ::tcflush(m_slave, TCIFLUSH);
}

/// Tracks whether a client has the slave side open; returns true if one has closed it. The kernel
/// merges equal events, so they cannot be used to count clients.
bool PseudoTerminal::processOpenEvents()
{
    alignas(inotify_event) std::array<char, EventBufferSize> buffer{};
    std::uint32_t seen = 0;
    ssize_t length = 0;
    while ((length = ::read(m_watch, buffer.data(), buffer.size())) > 0) {
        for (ssize_t at = 0; at < length; at += static_cast<ssize_t>(sizeof(inotify_event))) {
            inotify_event event{};
            std::memcpy(&event, buffer.data() + at, sizeof event);
            seen |= event.mask;
        }
    }
    if ((seen & IN_OPEN) != 0)
        m_inUse = true;
    const bool clientClosed = (seen & ClosedMask) != 0;
    if (clientClosed)
        resetAfterClient();
    return clientClosed;
}

/// A killed client leaves its exclusive lock behind, which is released here. A client that opens
/// the port during the search for other users cannot lock it if it was locked before, so no valid
/// lock is released.
void PseudoTerminal::resetAfterClient()
{
    int locked = 0;
    ::ioctl(m_slave, TIOCGEXCL, &locked);
    if (locked != 0 && isUsedByOtherProcess(m_path))
        return;
    if (locked != 0)
        ::ioctl(m_slave, TIOCNXCL);
    makeRaw(m_slave);
    ::tcflush(m_slave, TCIFLUSH);
    m_inUse = false;
}

} // namespace vanto::simulator
