#include "modbusregisters.h"

#include <QModbusServer>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace vanto::simulator
{
namespace
{
constexpr int gainScale = 100;
constexpr quint16 speedScale = 257; // 65535 / 255
constexpr quint16 errorRegister = 1006;
constexpr quint16 powerOffRegister = 1015;
constexpr int powerOffValueCount = 0;

// A register of a block: that of a finger, a preset, a force point or the whole hand.
struct Place {
    Hand& hand;
    std::size_t index;
    Moment now;

    Finger& finger() const { return hand.fingers[index]; }
};

// A run of registers. What can only be written reads as 0.
struct Block {
    int first;
    std::size_t count;
    int (*read)(const Place&);
    void (*write)(const Place&, quint16) = nullptr; // null: cannot be written
};

int unreadable(const Place&)
{
    return 0;
}

int packed(quint8 high, quint8 low)
{
    return high * 0x100 + low;
}

template<auto Member>
constexpr Block handByte(int address)
{
    return {address, 1, [](const Place& p) { return int{p.hand.*Member}; },
            [](const Place& p, quint16 v) { p.hand.*Member = static_cast<quint8>(v); }};
}

template<auto Member>
constexpr Block fingerWord(int first, std::size_t count)
{
    return {first, count, [](const Place& p) { return int{p.finger().*Member}; },
            [](const Place& p, quint16 v) { p.finger().*Member = v; }};
}

template<int Scale::*End>
constexpr Block rangeEnd(int first)
{
    return {first, fingerCount, [](const Place& p) { return p.finger().raw.*End; },
            [](const Place& p, quint16 v) { p.finger().raw.*End = v; }};
}

template<std::size_t Gain>
constexpr Block gain(int first)
{
    return {first, fingerCount,
            [](const Place& p) {
                return static_cast<int>(std::lround(p.finger().pid[Gain] * gainScale));
            },
            [](const Place& p, quint16 v) {
                p.finger().pid[Gain] = static_cast<float>(v) / gainScale;
            }};
}

template<Unit unit>
constexpr Block target(int first)
{
    return {first, fingerCount, [](const Place& p) { return p.hand.target(unit, p.index); },
            [](const Place& p, quint16 v) {
                const int value = unit == Unit::Angle ? static_cast<qint16>(v) : int{v};
                p.hand.moveTo(unit, p.index, value, p.finger().nextSpeed, p.now);
            }};
}

template<Unit unit>
constexpr Block actual(int first)
{
    return {first, fingerCount,
            [](const Place& p) { return p.hand.position(unit, p.index, p.now); }};
}

void calibrate(const Place& place, quint16 key)
{
    place.hand.error = place.hand.calibrate(key, place.now);
}

void beep(const Place& place, quint16 duration)
{
    place.hand.beepDuration = duration;
    ++place.hand.beeps;
}

void reset(const Place& place, quint16)
{
    ++place.hand.resets;
    place.hand.stopMotion(place.now);
}

int versionWord(const Place& place)
{
    const HandTraits& traits = place.hand.traits;
    const std::array words{packed(traits.modbusProtocol.major, traits.modbusProtocol.minor),
                           packed(traits.firmware.major, traits.firmware.minor),
                           int{traits.firmware.revision},
                           packed(traits.hardwareType, traits.hardwareVersion),
                           packed(traits.bootLoader.major, traits.bootLoader.minor)};
    return words.at(place.index);
}

const Block blocks[] = {
    {1000, 5, versionWord},
    {1005, 1, unreadable, [](const Place& p, quint16 v) { p.hand.id = static_cast<quint8>(v); }},
    {errorRegister, 1, [](const Place& p) { return int{p.hand.error}; }},
    {1007, 1, [](const Place& p) { return int{p.hand.voltage}; }},
    handByte<&Hand::selfTestLevel>(1008),
    handByte<&Hand::beepSwitch>(1009),
    {1010, 1, unreadable, beep},
    {1011, 1, [](const Place& p) { return int{p.hand.buttonCount}; },
     [](const Place& p, quint16 v) { p.hand.setButtonCount(static_cast<quint8>(v), p.now); }},
    {1012, 1, unreadable, calibrate},
    {1013, 1, unreadable, [](const Place& p, quint16) { p.hand.startInit(p.now); }},
    {1014, 1, unreadable, reset},
    {powerOffRegister, 1, unreadable, [](const Place& p, quint16) { p.hand.powered = false; }},
    rangeEnd<&Scale::atFull>(1020),
    rangeEnd<&Scale::atZero>(1030),
    {1040, thumbRootPresetCount,
     [](const Place& p) { return int{p.hand.thumbRootPresets[p.index]}; },
     [](const Place& p, quint16 v) { p.hand.thumbRootPresets[p.index] = v; }},
    gain<0>(1045),
    gain<1>(1055),
    gain<2>(1065),
    gain<3>(1075),
    fingerWord<&Finger::currentLimit>(1095, fingerCount),
    {1105, fingerCount, [](const Place& p) { return int{p.hand.current(p.index, p.now)}; }},
    fingerWord<&Finger::forceLimit>(1115, forceFingerCount),
    {1125, fingerCount, [](const Place& p) { return p.finger().nextSpeed * speedScale; },
     [](const Place& p, quint16 v) { p.finger().nextSpeed = static_cast<quint8>(v / speedScale); }},
    target<Unit::Logical>(1135),
    actual<Unit::Logical>(1145),
    target<Unit::Angle>(1155),
    actual<Unit::Angle>(1165),
    {1200, forceFingerCount* forcePointCount,
     [](const Place& p) {
         return int{p.hand.force(p.index / forcePointCount, p.index % forcePointCount, p.now)};
     }},
};

bool isForce(const Block& block)
{
    return block.first == 1115 || block.first == 1200;
}

// The registers of one hand during one request. The framing is not the server's: it would open a
// port by name, and the near side of a pseudo-terminal has none.
class RegisterServer : public QModbusServer
{
public:
    RegisterServer(Hand& hand, Moment now) : m_hand(hand), m_now(now) {}

    QModbusResponse answer(const QModbusRequest& request) { return processRequest(request); }

protected:
    bool open() override { return false; }
    void close() override {}
    bool readData(QModbusDataUnit* unit) const override;
    bool writeData(const QModbusDataUnit& unit) override;

private:
    const Block* find(int address) const;
    Place place(const Block& block, int address) const
    {
        return {m_hand, static_cast<std::size_t>(address - block.first), m_now};
    }

    Hand& m_hand;
    Moment m_now;
};

const Block* RegisterServer::find(int address) const
{
    const auto* const block = std::ranges::find_if(blocks, [address](const Block& b) {
        return address >= b.first && address < b.first + static_cast<int>(b.count);
    });
    if (block == std::end(blocks)) {
        m_hand.error = BadArgument;
        return nullptr;
    }
    if (isForce(*block) && !m_hand.traits.forceSensing) {
        m_hand.error = NoForceSensing;
        return nullptr;
    }
    return block;
}

bool RegisterServer::readData(QModbusDataUnit* unit) const
{
    for (qsizetype i = 0; i < unit->valueCount(); ++i) {
        const int address = unit->startAddress() + static_cast<int>(i);
        const Block* const block = find(address);
        if (block == nullptr)
            return false;
        unit->setValue(i, static_cast<quint16>(block->read(place(*block, address))));
    }
    return true;
}

bool RegisterServer::writeData(const QModbusDataUnit& unit)
{
    for (qsizetype i = 0; i < unit.valueCount(); ++i) {
        const int address = unit.startAddress() + static_cast<int>(i);
        const Block* const block = find(address);
        if (block == nullptr)
            return false;
        if (block->write == nullptr) {
            m_hand.error = BadArgument;
            return false;
        }
        block->write(place(*block, address), unit.value(i));
    }
    return m_hand.error == NoSubError;
}

// Modbus has no write of nothing, but it is how these hands are switched off.
bool isPowerOff(const QModbusRequest& request)
{
    quint16 address = 0;
    quint16 count = 1;
    request.decodeData(&address, &count);
    return request.functionCode() == QModbusPdu::WriteMultipleRegisters &&
           address == powerOffRegister && count == powerOffValueCount;
}

bool asksForError(const QModbusRequest& request)
{
    quint16 address = 0;
    request.decodeData(&address);
    return request.functionCode() == QModbusPdu::ReadHoldingRegisters && address == errorRegister;
}
} // namespace

ModbusFrame modbusAnswer(Hand& hand, const ModbusFrame& request, Moment now)
{
    const QModbusRequest pdu(static_cast<QModbusPdu::FunctionCode>(request.function), request.data);
    if (isPowerOff(pdu)) {
        hand.powered = false;
        return {request.node, request.function, request.data.first(4)};
    }
    if (!asksForError(pdu))
        hand.error = NoSubError;
    const bool known = request.function == ReadHoldingRegisters ||
                       request.function == WriteSingleRegister ||
                       request.function == WriteMultipleRegisters;
    if (!known)
        return modbusRefusal(hand, request, IllegalFunction);
    const QModbusResponse response = RegisterServer(hand, now).answer(pdu);
    if (response.isException() && hand.error == NoSubError)
        hand.error = BadArgument;
    const auto code = static_cast<quint8>(response.functionCode());
    return {request.node, static_cast<quint8>(response.isException() ? code | exceptionBit : code),
            response.data()};
}

ModbusFrame modbusRefusal(Hand& hand, const ModbusFrame& request, quint8 error)
{
    hand.error = error;
    const bool isException = error > 0 && error <= LastModbusException;
    const char code = static_cast<char>(isException ? error : quint8{ServerDeviceFailure});
    return {request.node, static_cast<quint8>(request.function | exceptionBit),
            QByteArray(1, code)};
}

} // namespace vanto::simulator
