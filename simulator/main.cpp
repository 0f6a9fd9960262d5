#include "control.h"
#include "options.h"
#include "standardinput.h"

#include <QCoreApplication>

#include <csignal>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace vanto
{

namespace
{
constexpr int UsageErrorStatus = 2;

void print(std::FILE* stream, const QString& text)
{
    std::fputs(text.toLocal8Bit().constData(), stream);
    std::fflush(stream);
}

int reportError(const QString& reason)
{
    print(stderr, QStringLiteral("vanto-hand: %1\n").arg(reason));
    return UsageErrorStatus;
}

/// Opens closed standard streams, as the port would otherwise be assigned one of their descriptors.
void reserveStandardDescriptors()
{
    int descriptor = ::open("/dev/null", O_RDWR);
    while (descriptor >= 0 && descriptor <= STDERR_FILENO)
        descriptor = ::dup(descriptor);
    if (descriptor > STDERR_FILENO)
        ::close(descriptor);
}

int serve(const simulator::Options& options)
{
    simulator::Trace trace(simulator::Clock::now());
    if (!options.tracePath.isEmpty()) {
        const QString error = trace.open(options.tracePath);
        if (!error.isEmpty())
            return reportError(error);
    }

    std::vector<simulator::Node> nodes;
    for (const auto& node : options.nodes)
        nodes.push_back({node.protocols, simulator::Hand(node.id, options.traits)});
    simulator::Line line(options.baud, options.linkPath);
    simulator::Bus bus(std::move(nodes), line, trace, options.boot);
    bus.setColliding(options.collides);
    simulator::Control control(bus, line);
    const QString error = line.plug();
    if (!error.isEmpty())
        return reportError(error);
    print(stdout, line.path() + QLatin1Char('\n'));

    StandardInput input;
    QObject::connect(&input, &StandardInput::lineRead, &control, [&control](const QString& text) {
        print(stdout, control.execute(text) + QLatin1Char('\n'));
    });
    if (!options.keepsRunning)
        QObject::connect(&input, &StandardInput::closed, qApp, &QCoreApplication::quit);
    QObject::connect(&control, &simulator::Control::quitRequested, qApp, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    const TerminationWatch termination;
    QObject::connect(&termination, &TerminationWatch::requested, qApp, &QCoreApplication::quit);
    return QCoreApplication::exec();
}
} // namespace

int runProgram(int argc, char* argv[])
{
    reserveStandardDescriptors();
    std::signal(SIGPIPE, SIG_IGN);
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vanto-hand"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VANTO_VERSION));

    const auto parsed = simulator::parseOptions(QCoreApplication::arguments());
    if (const auto* const error = std::get_if<simulator::OptionError>(&parsed))
        return reportError(error->reason);
    if (const auto* const info = std::get_if<simulator::OptionText>(&parsed)) {
        print(stdout, info->text);
        return 0;
    }
    return serve(std::get<simulator::Options>(parsed));
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
