#include "halttrace.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vanto
{

namespace
{
constexpr int FingerCount = 6;

// Commands of SerialCtrl.
constexpr int CommandAt = 4;
constexpr int CountAt = 6;
constexpr int GroupsAt = 7; ///< position (2 bytes) and speed of each finger
constexpr int GroupSize = 3;
constexpr int ReadPositions = 0x0F;
constexpr int Stop = 0x4A;
constexpr int WritePositions = 0x50;

// Functions and registers of Modbus.
constexpr int Read = 3;
constexpr int WriteOne = 6;
constexpr int WriteSeveral = 16;
constexpr int ValuesAt = 7;
constexpr int Speeds = 1125;
constexpr int Targets = 1135;
constexpr int Positions = 1145;
constexpr int TargetAngles = 1155;
constexpr int SlowestSpeed = 257; ///< speed 1 of 255, in the 16 bits of a register
constexpr int BlockSize = 10;     ///< from one block of registers to the next

constexpr double SlowestTicksPerMs = 65535.0 / 255 / 1000;
constexpr double Rounding = 2; ///< ticks; marks are rounded to one

int byteAt(const QByteArray& bytes, int at)
{
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
}

int wordAt(const QByteArray& bytes, int at)
{
    return 256 * byteAt(bytes, at) + byteAt(bytes, at + 1);
}

bool isSerialCtrl(const TracedFrame& request)
{
    return request.protocol == QLatin1String("serialctrl");
}

bool isWithin(int address, int block)
{
    return address >= block && address < block + BlockSize;
}
} // namespace

bool HaltFrames::isMotion(const TracedFrame& request)
{
    if (isSerialCtrl(request)) {
        const int command = byteAt(request.bytes, CommandAt);
        return (command >= 0x4B && command <= 0x4D) || (command >= 0x4F && command <= 0x51);
    }
    const int function = byteAt(request.bytes, 1);
    if (request.protocol != QLatin1String("modbus") ||
        (function != WriteOne && function != WriteSeveral))
        return false;
    const int start = wordAt(request.bytes, 2);
    return isWithin(start, Targets) || isWithin(start, TargetAngles);
}

QList<int> HaltFrames::goals(const TracedFrame& request)
{
    const QByteArray& bytes = request.bytes;
    QList<int> goals;
    const bool serialCtrl = isSerialCtrl(request);
    if (serialCtrl
            ? byteAt(bytes, CommandAt) != WritePositions || byteAt(bytes, CountAt) != FingerCount
            : byteAt(bytes, 1) != WriteSeveral || wordAt(bytes, 2) != Targets ||
                  wordAt(bytes, 4) != FingerCount)
        return goals;
    for (int finger = 0; finger < FingerCount; ++finger) {
        const int at = GroupsAt + GroupSize * finger;
        goals.append(serialCtrl ? byteAt(bytes, at) + 256 * byteAt(bytes, at + 1)
                                : wordAt(bytes, ValuesAt + 2 * finger));
    }
    return goals;
}

bool HaltFrames::accept(const TracedFrame& request)
{
    if (!isSerialCtrl(request))
        return request.protocol == QLatin1String("modbus") && acceptModbus(request);
    const int command = byteAt(request.bytes, CommandAt);
    if (command != WritePositions)
        return command == Stop || command == ReadPositions;
    bool slow = byteAt(request.bytes, CountAt) == FingerCount;
    for (int finger = 0; finger < FingerCount; ++finger)
        slow = slow && byteAt(request.bytes, GroupsAt + GroupSize * finger + 2) == 1;
    return slow;
}

bool HaltFrames::acceptModbus(const TracedFrame& request)
{
    const QByteArray& bytes = request.bytes;
    const int function = byteAt(bytes, 1);
    const int start = wordAt(bytes, 2);
    const bool all = wordAt(bytes, 4) == FingerCount;
    if (function == Read)
        return all && (start == Targets || start == Positions);
    if (isWithin(start, Speeds)) {
        bool slow = function == WriteSeveral && start == Speeds && all;
        for (int finger = 0; finger < FingerCount; ++finger)
            slow = slow && wordAt(bytes, ValuesAt + 2 * finger) == SlowestSpeed;
        m_slow[request.node] = slow;
        return slow;
    }
    return !goals(request).isEmpty() && m_slow.value(request.node);
}

double standsFrom(const QList<MotionMark>& marks, int node, double from, double to)
{
    double stands = from;
    const MotionMark* previous = nullptr;
    for (const MotionMark& mark : marks) {
        if (mark.node != node)
            continue;
        const MotionMark* start = std::exchange(previous, &mark);
        if (!start || !start->moving || mark.ms <= from || start->ms >= to)
            continue;
        const double slowest = SlowestTicksPerMs * (mark.ms - start->ms) + Rounding;
        for (qsizetype finger = 0; finger < mark.positions.size(); ++finger)
            if (std::abs(mark.positions[finger] - start->positions[finger]) > slowest)
                stands = std::min(mark.ms, to);
    }
    return stands;
}

QList<double> longestDrifts(const QList<MotionMark>& marks, int node, double from, double to)
{
    const auto start = HandProcess::positionsAt(marks, node, from);
    QList<double> longest(start.size(), 0);
    const auto compare = [&](double ms) {
        const auto now = HandProcess::positionsAt(marks, node, ms);
        for (qsizetype finger = 0; finger < now.size(); ++finger)
            longest[finger] = std::max(longest[finger], std::abs(now[finger] - start[finger]));
    };
    for (const MotionMark& mark : marks)
        if (mark.ms > from && mark.ms < to)
            compare(mark.ms);
    compare(to);
    return longest;
}

} // namespace vanto
