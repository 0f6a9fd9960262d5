#include "control.h"

#include "numbers.h"
#include "properties.h"

#include <QFile>

#include <algorithm>
#include <iterator>

namespace vanto::simulator
{
namespace
{
const QString Ok = QStringLiteral("ok");

QString failure(const QString& reason)
{
    return QStringLiteral("error: ") + reason;
}

QString result(const QString& error)
{
    return error.isEmpty() ? Ok : failure(error);
}

QString noSuchNode(const QString& word)
{
    return failure(QStringLiteral("no hand at node '%1'").arg(word));
}
} // namespace

struct Control::Entry {
    const char* name;
    const char* usage;
    const char* description;
    int minWords;
    int maxWords;
    QString (Control::*run)(const QStringList&);
};

constexpr int AnyWordCount = 100;

const Control::Entry Control::Entries[] = {
    {"fault",
     "NAME [node=N] [command=0xNN] [register=N] [stage=S] [skip=K] [count=K] [ms=T] [error=0xNN] "
     "[bytes=K]",
     "alter the next count replies (default 1, 0 for no limit) after skip unaltered ones", 1,
     AnyWordCount, &Control::fault},
    {"clear", "", "remove all faults", 0, 0, &Control::clear},
    {"hang", "[off]", "ignore all requests until off", 0, 1, &Control::hang},
    {"chatter", "[off]",
     "send bytes that were not requested until off, which shows how many the line has taken", 0, 1,
     &Control::chatter},
    {"unplug", "", "close the port", 0, 0, &Control::unplug},
    {"replug", "", "open a new port and show its path", 0, 0, &Control::replug},
    {"power-cycle", "[NODE]", "switch one or all hands off and on again", 0, 1,
     &Control::powerCycle},
    {"set", "NODE NAME [FINGER] VALUE", "set a value; auto: simulate current or force", 3, 4,
     &Control::set},
    {"get", "NODE NAME [FINGER]", "show a value", 2, 3, &Control::get},
    {"stats", "", "show the counts of frames", 0, 0, &Control::stats},
    {"boot", "[enter|leave]",
     "show the state and counts of the boot loader; enter: start it as after a failed update; "
     "leave: start the application",
     0, 1, &Control::boot},
    {"image", "FILE", "write the records of the last update to a file and show their size", 1, 1,
     &Control::image},
    {"help", "", "show this help", 0, 0, &Control::showHelp},
    {"quit", "", "end the program", 0, 0, &Control::quit},
};

Control::Control(Bus& bus, Line& line, QObject* parent)
    : QObject(parent), m_bus(bus), m_line(line), m_chatter(line.wire())
{
}

QString Control::execute(const QString& command)
{
    const QStringList words = command.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words.isEmpty())
        return failure(QStringLiteral("empty command"));
    const auto* const entry = std::ranges::find_if(
        Entries, [&words](const Entry& e) { return words.first() == QLatin1String(e.name); });
    if (entry == std::end(Entries))
        return failure(QStringLiteral("unknown command '%1'; try help").arg(words.first()));
    const QStringList arguments = words.sliced(1);
    if (arguments.size() < entry->minWords || arguments.size() > entry->maxWords)
        return failure(QStringLiteral("usage: %1 %2")
                           .arg(QLatin1String(entry->name), QLatin1String(entry->usage))
                           .trimmed());
    QString answer = (this->*entry->run)(arguments);
    m_bus.motionTrace().update(Clock::now());
    return answer;
}

QString Control::help()
{
    const QString separator = QStringLiteral(" ");
    QString text = QStringLiteral("Commands on standard input, one per line; each is answered by "
                                  "\"ok\" or \"error: ...\":\n");
    for (const Entry& entry : Entries) {
        const QString usage =
            QLatin1String(entry.name) + QLatin1Char(' ') + QLatin1String(entry.usage);
        text += QStringLiteral("  %1\n      %2\n")
                    .arg(usage.trimmed(), QLatin1String(entry.description));
    }
    text += QStringLiteral("Faults: %1\n").arg(faultHelp());
    text += QStringLiteral("Names: %1\n").arg(handPropertyNames().join(separator));
    text += QStringLiteral("Names with a finger: %1\n").arg(fingerPropertyNames().join(separator));
    return text;
}

QString Control::fault(const QStringList& words)
{
    return result(m_bus.faults().arm(words));
}

QString Control::clear(const QStringList&)
{
    m_bus.faults().clear();
    return Ok;
}

QString Control::hang(const QStringList& words)
{
    const QString state = words.value(0, QStringLiteral("on"));
    const bool isOff = state == QLatin1String("off");
    if (!isOff && state != QLatin1String("on"))
        return failure(QStringLiteral("usage: hang [off]"));
    m_bus.setHung(!isOff);
    return Ok;
}

QString Control::chatter(const QStringList& words)
{
    const QString state = words.value(0, QStringLiteral("on"));
    if (state == QLatin1String("off")) {
        m_chatter.stop();
        return QStringLiteral("ok %1").arg(m_chatter.sent());
    }
    if (state != QLatin1String("on"))
        return failure(QStringLiteral("usage: chatter [off]"));
    m_chatter.start();
    return Ok;
}

QString Control::unplug(const QStringList&)
{
    if (!m_line.isPlugged())
        return failure(QStringLiteral("not plugged"));
    m_line.unplug();
    return Ok;
}

QString Control::replug(const QStringList&)
{
    if (m_line.isPlugged())
        return failure(QStringLiteral("already plugged"));
    const QString error = m_line.plug();
    return error.isEmpty() ? QStringLiteral("ok ") + m_line.path() : failure(error);
}

QString Control::powerCycle(const QStringList& words)
{
    if (words.isEmpty()) {
        for (Node& node : m_bus.nodes())
            m_bus.powerCycle(node.hand);
        return Ok;
    }
    Hand* const hand = findNode(words.first());
    if (hand == nullptr)
        return noSuchNode(words.first());
    m_bus.powerCycle(*hand);
    return Ok;
}

QString Control::set(const QStringList& words)
{
    Hand* const hand = findNode(words.first());
    return hand == nullptr ? noSuchNode(words.first())
                           : writeProperty(*hand, words.sliced(1), Clock::now());
}

QString Control::get(const QStringList& words)
{
    Hand* const hand = findNode(words.first());
    return hand == nullptr ? noSuchNode(words.first())
                           : readProperty(*hand, words.sliced(1), Clock::now());
}

QString Control::stats(const QStringList&)
{
    const BusStatistics& counts = m_bus.statistics();
    return QStringLiteral("ok requests=%1 replies=%2 overlaps=%3 dropped=%4 bad=%5")
        .arg(counts.requests)
        .arg(counts.replies)
        .arg(counts.overlaps)
        .arg(counts.dropped)
        .arg(counts.bad);
}

QString Control::boot(const QStringList& words)
{
    BootLoader& bootLoader = m_bus.bootLoader();
    const QString action = words.value(0);
    if (action == QLatin1String("enter")) {
        return m_bus.enterBootLoader() ? Ok : failure(QStringLiteral("no hand is switched on"));
    }
    if (action == QLatin1String("leave")) {
        bootLoader.forceApplicationStart();
        return Ok;
    }
    if (!action.isEmpty())
        return failure(QStringLiteral("usage: boot [enter|leave]"));
    const BootStatistics& counts = bootLoader.statistics();
    return QStringLiteral("ok running=%1 probes=%2 records=%3 rejected=%4 stray=%5 image=%6")
        .arg(bootLoader.isRunning() ? 1 : 0)
        .arg(counts.probes)
        .arg(counts.records)
        .arg(counts.rejected)
        .arg(counts.stray)
        .arg(bootLoader.image().size());
}

QString Control::image(const QStringList& words)
{
    const QByteArray image = m_bus.bootLoader().image();
    QFile file(words.first());
    const bool written = file.open(QIODevice::WriteOnly) && file.write(image) == image.size();
    return written ? QStringLiteral("ok %1").arg(image.size()) : failure(file.errorString());
}

QString Control::showHelp(const QStringList&)
{
    return help() + Ok;
}

QString Control::quit(const QStringList&)
{
    emit quitRequested();
    return Ok;
}

Hand* Control::findNode(const QString& word)
{
    const std::optional<std::int64_t> id = parseInteger(word, 0, 0xFF);
    return id ? m_bus.findHand(static_cast<std::uint8_t>(*id)) : nullptr;
}

} // namespace vanto::simulator
