#include "calibratecommand.h"

#include "arrivalwait.h"
#include "automaticbackup.h"
#include "basicoperations.h"
#include "calibration.h"
#include "deviceentry.h"
#include "eventwait.h"
#include "fingers.h"
#include "interruption.h"
#include "tool.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QScopeGuard>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vanto
{

namespace
{
constexpr int MaxPlace = 65535;
constexpr int CalibrationRebootMs = 15000; ///< longest reboot, with its beeps
constexpr int SilenceReadMs = 20;          ///< between two reads, to notice a short reboot
constexpr int ReturnReadMs = 200;          ///< while the hand reboots
constexpr int SilentReads = 2;             ///< in a row, that count as the reboot
constexpr int BeepsMs = 2 * 8 * BeepMs;    ///< after the reboot: beeps with pauses between them
constexpr int ThumbRootWindow = 16;        ///< raw units
constexpr qsizetype MaxKeyFile = 1024;     ///< bytes

using Calibration::Prompt;

/// The beginning of a regular file or of a pipe, whose writer may be slow. None if it cannot be
/// read or a signal has arrived.
std::optional<QByteArray> readSmallFile(const QString& path, qsizetype maxSize)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return {};
    const auto closer = qScopeGuard([file] { ::close(file); });
    struct stat status = {};
    if (fstat(file, &status) != 0 || (!S_ISREG(status.st_mode) && !S_ISFIFO(status.st_mode)))
        return {};
    QByteArray content;
    while (content.size() < maxSize) {
        pollfd input{file, POLLIN, 0};
        waitUntil([&] { return Interruption::isRequested() || ::poll(&input, 1, 0) > 0; });
        std::array<char, 256> part;
        const auto count =
            Interruption::isRequested() ? -1 : ::read(file, part.data(), part.size());
        if (count == 0)
            return content;
        if (count > 0)
            content.append(part.data(), count);
        else if (errno != EAGAIN && errno != EINTR)
            return {};
        if (Interruption::isRequested())
            return {};
    }
    return content;
}

/// The calibration, step by step. Each step returns whether the next one may follow.
class CalibrationSteps
{
public:
    CalibrationSteps(Tool& tool, Arguments& arguments, Answer& answer)
        : m_tool(tool), m_arguments(arguments), m_answer(answer)
    {
    }

    void run()
    {
        if (!readPlaces() || !readKeyFile() || !confirm(Prompt::Prepare) || !backUp() ||
            !readKey() || !confirm(Prompt::BeforeReboot) || !start() ||
            !confirm(Prompt::AfterReboot) || !placeThumbRoot(Prompt::OnBase, 0) || !stage(1) ||
            !confirm(Prompt::TakeUp) || !stage(2) || !placeThumbRoot(Prompt::OffBase, 1) ||
            !stage(3))
            return;
        m_tool.hand().noteArrival();
        m_answer.addLine(Calibration::promptText(Prompt::Finished));
    }

private:
    bool goesOn() const { return !m_answer.hasFailed() && !Interruption::isRequested(); }

    bool readPlaces()
    {
        for (const QString& text : m_arguments.list("--thumb-root"))
            m_places.append(m_arguments.number(text, "A place of the thumb root", 0, MaxPlace));
        if (m_arguments.has("--thumb-root") && m_places.size() != 2)
            m_arguments.setError(QStringLiteral("--thumb-root takes two places: A,B."));
        return m_arguments.error().isEmpty();
    }

    bool confirm(Prompt prompt)
    {
        if (!goesOn())
            return false;
        if (m_arguments.has("--yes")) {
            m_tool.output().note(Calibration::promptText(prompt));
            if (prompt == Prompt::AfterReboot)
                return waitForReboot();
            return true;
        }
        if (m_tool.confirm(Calibration::promptText(prompt)))
            return true;
        m_answer.fail(ExitStatus::Usage, QStringLiteral("Not confirmed."));
        return false;
    }

    /// Without a prompt the hand itself shows when it is ready: it falls silent, answers again,
    /// and beeps. One that answers from the start may not have begun to reboot.
    bool waitForReboot()
    {
        if (m_start == Calibration::Start::AlreadyCalibrating)
            return true;
        int silentReads = 0; // in a row
        const QDeadlineTimer deadline(m_tool.options().stretched(CalibrationRebootMs));
        while (goesOn()) {
            const bool wasSilent = silentReads >= SilentReads;
            const std::uint8_t result = readButtonCount();
            if (result == ResultCode::Success && (wasSilent || deadline.hasExpired()))
                return waitForBeeps();
            if (deadline.hasExpired())
                break;
            if (result == ResultCode::Timeout)
                ++silentReads;
            else if (!wasSilent) // a reply was lost
                silentReads = 0;
            waitUntil(&Interruption::isRequested,
                      silentReads >= SilentReads ? ReturnReadMs : SilenceReadMs);
        }
        if (goesOn())
            m_answer.fail(ExitStatus::NoAnswer,
                          QStringLiteral("The hand does not answer after its reboot."),
                          ResultCode::Timeout);
        return false;
    }

    std::uint8_t readButtonCount()
    {
        HandCall call(m_tool.hand().target());
        std::uint8_t count = 0;
        return call.attempt<&VantoProtocol::getButtonPressedCnt>(&count);
    }

    bool waitForBeeps() const
    {
        waitUntil(&Interruption::isRequested, BeepsMs);
        return goesOn();
    }

    /// The calibration goes on without a backup if the hand cannot be read.
    bool backUp()
    {
        if (!goesOn() || !m_tool.hand().open())
            return false;
        if (!m_arguments.has("--no-backup"))
            AutomaticBackup::save(m_tool, m_answer);
        return goesOn();
    }

    /// At first, so that a key that cannot be read costs no backup.
    bool readKeyFile()
    {
        const QString path = m_arguments.option("--key-file");
        if (path.isEmpty() || path == QLatin1String("-"))
            return true;
        const auto text = readSmallFile(path, MaxKeyFile);
        if (!text && goesOn())
            m_answer.fail(ExitStatus::File, QStringLiteral("Open file '%1' failed.").arg(path));
        return text && parseKey(QString::fromLatin1(*text));
    }

    bool readKey()
    {
        if (m_key || !goesOn())
            return goesOn();
        const bool isTyped = m_arguments.option("--key-file").isEmpty();
        return parseKey(m_tool.ask(isTyped ? Calibration::promptText(Prompt::Key) : QString(), true)
                            .value_or(QString()));
    }

    bool parseKey(const QString& text)
    {
        m_key = Calibration::parseKey(text.trimmed());
        if (!m_key && goesOn())
            m_answer.fail(ExitStatus::Usage, Calibration::invalidKeyText());
        return m_key && goesOn();
    }

    bool start()
    {
        if (!m_tool.hand().open())
            return false;
        m_tool.hand().noteMotion();
        HandCall call = m_tool.hand().call();
        m_start = Calibration::start(call, m_tool.hand().report(), *m_key);
        return m_start != Calibration::Start::Failed && goesOn();
    }

    bool placeThumbRoot(Prompt prompt, qsizetype place)
    {
        if (!m_places.isEmpty())
            return confirm(prompt) && moveThumbRoot(m_places[place]) &&
                   waitForThumbRoot(m_places[place]);
        if (m_arguments.has("--yes")) // it stays where it is
            return confirm(prompt);
        for (;;) {
            std::uint16_t target = 0;
            std::uint16_t current = 0;
            if (!m_tool.hand().call().perform<&VantoProtocol::getFingerPosAbs>(
                    std::uint8_t{ThumbRoot}, &target, &current))
                return false;
            const auto line = m_tool.ask(
                QStringLiteral("%1\nThe thumb root is at %2. A number moves it there, + and - move "
                               "it by %3, an empty line is OK.")
                    .arg(Calibration::promptText(prompt))
                    .arg(current)
                    .arg(Calibration::ThumbRootStep));
            if (!line) {
                m_answer.fail(ExitStatus::Usage, QStringLiteral("Not confirmed."));
                return false;
            }
            if (line->trimmed().isEmpty())
                return true;
            if (const auto position = parsePlace(line->trimmed(), current);
                position && !moveThumbRoot(*position))
                return false;
        }
    }

    std::optional<int> parsePlace(const QString& text, int present)
    {
        const int step = Calibration::ThumbRootStep;
        if (text == QLatin1String("+") || text == QLatin1String("-"))
            return std::clamp(present + (text == QLatin1String("+") ? step : -step), 0, MaxPlace);
        bool isNumber = false;
        const int position = text.toInt(&isNumber);
        if (isNumber && position >= 0 && position <= MaxPlace)
            return position;
        m_tool.output().prompt(
            QStringLiteral("'%1' is not a number from 0 to %2.").arg(text).arg(MaxPlace));
        return {};
    }

    bool moveThumbRoot(int position)
    {
        HandCall call = m_tool.hand().call();
        return call.accept<&VantoProtocol::setFingerPosAbs>(
            Calibration::moveThumbRoot(call, static_cast<std::uint16_t>(position)));
    }

    /// The hand stores where the thumb root is, so it has to be at its place before.
    bool waitForThumbRoot(int position)
    {
        return ArrivalWait(m_tool, m_answer).run([&]() -> std::optional<QList<ArrivalWait::Way>> {
            std::uint16_t target = 0;
            std::uint16_t current = 0;
            if (!m_tool.hand().call().perform<&VantoProtocol::getFingerPosAbs>(
                    std::uint8_t{ThumbRoot}, &target, &current))
                return {};
            const bool hasArrived = std::abs(current - position) <= ThumbRootWindow;
            return QList{ArrivalWait::Way{ThumbRoot, position, current, hasArrived}};
        });
    }

    bool stage(std::uint8_t number)
    {
        if (!goesOn() || !m_tool.hand().call().perform<&VantoProtocol::setButtonPressedCnt>(number))
            return false;
        if (number < 3)
            waitUntil(&Interruption::isRequested, Calibration::StageMs);
        return goesOn();
    }

    Tool& m_tool;
    Arguments& m_arguments;
    Answer& m_answer;
    QList<int> m_places; ///< of the thumb root, on the base and off it
    std::optional<std::uint16_t> m_key;
    Calibration::Start m_start = Calibration::Start::Failed;
};

void calibrate(Tool& tool, Arguments& arguments, Answer& answer)
{
    if (tool.hand().node() == AnyNode) {
        answer.fail(ExitStatus::Usage,
                    QStringLiteral("Hands are calibrated one by one, not through node 255."));
        return;
    }
    CalibrationSteps(tool, arguments, answer).run();
}
} // namespace

std::vector<Command> calibrateCommands()
{
    return {{"calibrate",
             "Calibrate the hand, step by step",
             Effect::Writes,
             false,
             {},
             {{"--key-file", "FILE", 1,
               "Read the calibration key from a file, or from standard input if it is -"},
              {"--thumb-root", "A,B", 2, "The two places of the thumb root, for fixtures"},
              {"--no-backup", nullptr, 0, "Do not save the parameters of the hand before"},
              {"--yes", nullptr, 0, "Do not ask; wait for the hand instead"}},
             calibrate}};
}

} // namespace vanto
