#include "modbusregisters.h"

#include <QModbusServer>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace vanto::simulator
{
namespace
{
constexpr int GainScale = 100;
constexpr std::uint16_t SpeedScale = 257; ///< 65535 / 255
constexpr std::uint16_t ErrorRegister = 1006;
constexpr std::uint16_t PowerOffRegister = 1015;
constexpr int PowerOffValueCount = 0;
constexpr std::uint16_t StartValue = 1; ///< the only value of the register for init

/// A register of a block. `index` is a finger, a preset, a force point or a word of a version.
struct Register {
    Hand& hand;
    std::size_t index;
    TimePoint now;

    Finger& finger() const { return hand.fingers[index]; }
};

/// Consecutive registers. Write-only registers read as 0.
struct Block {
    int first;
    std::size_t count;
    int (*read)(const Register&);
    void (*write)(const Register&, std::uint16_t) = nullptr; ///< null: read-only
};

int readZero(const Register&)
{
    return 0;
}

int packBytes(std::uint8_t high, std::uint8_t low)
{
    return high * 0x100 + low;
}

template<auto Member>
constexpr Block handByte(int address)
{
    return {
        address, 1, [](const Register& r) { return int{r.hand.*Member}; },
        [](const Register& r, std::uint16_t v) { r.hand.*Member = static_cast<std::uint8_t>(v); }};
}

template<auto Member>
constexpr Block fingerWord(int first, std::size_t count)
{
    return {first, count, [](const Register& r) { return int{r.finger().*Member}; },
            [](const Register& r, std::uint16_t v) { r.finger().*Member = v; }};
}

template<int Scale::*End>
constexpr Block rangeEnd(int first)
{
    return {first, FingerCount, [](const Register& r) { return r.finger().raw.*End; },
            [](const Register& r, std::uint16_t v) { r.finger().raw.*End = v; }};
}

template<std::size_t Gain>
constexpr Block gain(int first)
{
    return {first, FingerCount,
            [](const Register& r) {
                return static_cast<int>(std::lround(r.finger().pid[Gain] * GainScale));
            },
            [](const Register& r, std::uint16_t v) {
                r.finger().pid[Gain] = static_cast<float>(v) / GainScale;
            }};
}

template<Unit unit>
constexpr Block target(int first)
{
    return {first, FingerCount, [](const Register& r) { return r.hand.target(unit, r.index); },
            [](const Register& r, std::uint16_t v) {
                const int value = unit == Unit::Angle ? static_cast<std::int16_t>(v) : int{v};
                r.hand.moveTo(unit, r.index, value, r.finger().nextSpeed, r.now);
            }};
}

template<Unit unit>
constexpr Block actual(int first)
{
    return {first, FingerCount,
            [](const Register& r) { return r.hand.position(unit, r.index, r.now); }};
}

void calibrate(const Register& reg, std::uint16_t key)
{
    reg.hand.error = reg.hand.calibrate(key, reg.now);
}

void startInit(const Register& reg, std::uint16_t value)
{
    if (value == StartValue)
        reg.hand.startInit(reg.now);
    else
        reg.hand.error = BadArgument;
}

void beep(const Register& reg, std::uint16_t duration)
{
    reg.hand.beepDuration = duration;
    ++reg.hand.beeps;
}

void reset(const Register& reg, std::uint16_t)
{
    ++reg.hand.resets;
    reg.hand.stopMotion(reg.now);
}

int versionWord(const Register& reg)
{
    const HandTraits& traits = reg.hand.traits;
    const std::array words{packBytes(traits.modbusProtocol.major, traits.modbusProtocol.minor),
                           packBytes(traits.firmware.major, traits.firmware.minor),
                           int{traits.firmware.revision},
                           packBytes(traits.hardwareType, traits.hardwareVersion),
                           packBytes(traits.bootLoader.major, traits.bootLoader.minor)};
    return words.at(reg.index);
}

const Block Blocks[] = {
    {1000, 5, versionWord},
    {1005, 1, readZero,
     [](const Register& r, std::uint16_t v) {
         r.hand.rebootWithId(static_cast<std::uint8_t>(v), r.now);
     }},
    {ErrorRegister, 1, [](const Register& r) { return int{r.hand.error}; }},
    {1007, 1, [](const Register& r) { return int{r.hand.voltage}; }},
    handByte<&Hand::selfTestLevel>(1008),
    handByte<&Hand::beepSwitch>(1009),
    {1010, 1, readZero, beep},
    {1011, 1, [](const Register& r) { return int{r.hand.buttonCount}; },
     [](const Register& r, std::uint16_t v) {
         r.hand.setButtonCount(static_cast<std::uint8_t>(v), r.now);
     }},
    {1012, 1, readZero, calibrate},
    {1013, 1, readZero, startInit},
    {1014, 1, readZero, reset},
    {PowerOffRegister, 1, readZero,
     [](const Register& r, std::uint16_t) { r.hand.powered = false; }},
    rangeEnd<&Scale::atFull>(1020),
    rangeEnd<&Scale::atZero>(1030),
    {1040, ThumbRootPresetCount,
     [](const Register& r) { return int{r.hand.logicalPreset(r.index)}; },
     [](const Register& r, std::uint16_t v) { r.hand.setLogicalPreset(r.index, v); }},
    gain<0>(1045),
    gain<1>(1055),
    gain<2>(1065),
    gain<3>(1075),
    fingerWord<&Finger::currentLimit>(1095, FingerCount),
    {1105, FingerCount, [](const Register& r) { return int{r.hand.current(r.index, r.now)}; }},
    fingerWord<&Finger::forceLimit>(1115, ForceFingerCount),
    {1125, FingerCount, [](const Register& r) { return r.finger().nextSpeed * SpeedScale; },
     [](const Register& r, std::uint16_t v) {
         r.hand.setSpeed(r.index, static_cast<std::uint8_t>(v / SpeedScale), r.now);
     }},
    target<Unit::Logical>(1135),
    actual<Unit::Logical>(1145),
    target<Unit::Angle>(1155),
    actual<Unit::Angle>(1165),
    {1200, ForceFingerCount* ForcePointCount,
     [](const Register& r) {
         return int{r.hand.force(r.index / ForcePointCount, r.index % ForcePointCount, r.now)};
     }},
};

bool isForce(const Block& block)
{
    return block.first == 1115 || block.first == 1200;
}

/// The registers of one hand during one request. QModbusRtuSerialServer cannot be used, as it opens
/// a port by name and the master side of a pseudo-terminal has no name.
class RegisterServer : public QModbusServer
{
public:
    RegisterServer(Hand& hand, TimePoint now) : m_hand(hand), m_now(now) {}

    QModbusResponse process(const QModbusRequest& request) { return processRequest(request); }

protected:
    bool open() override { return false; }
    void close() override {}
    bool readData(QModbusDataUnit* unit) const override;
    bool writeData(const QModbusDataUnit& unit) override;

private:
    const Block* findBlock(int address) const;
    Register registerAt(const Block& block, int address) const
    {
        return {m_hand, static_cast<std::size_t>(address - block.first), m_now};
    }

    Hand& m_hand;
    TimePoint m_now;
};

const Block* RegisterServer::findBlock(int address) const
{
    const auto* const block = std::ranges::find_if(Blocks, [address](const Block& b) {
        return address >= b.first && address < b.first + static_cast<int>(b.count);
    });
    if (block == std::end(Blocks)) {
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
        const Block* const block = findBlock(address);
        if (block == nullptr)
            return false;
        unit->setValue(i, static_cast<std::uint16_t>(block->read(registerAt(*block, address))));
    }
    return true;
}

bool RegisterServer::writeData(const QModbusDataUnit& unit)
{
    for (qsizetype i = 0; i < unit.valueCount(); ++i) {
        const int address = unit.startAddress() + static_cast<int>(i);
        const Block* const block = findBlock(address);
        if (block == nullptr)
            return false;
        if (block->write == nullptr) {
            m_hand.error = BadArgument;
            return false;
        }
        block->write(registerAt(*block, address), unit.value(i));
    }
    return m_hand.error == NoSubError;
}

/// A write of zero registers, which Modbus does not allow, switches the hand off.
bool isPowerOff(const QModbusRequest& request)
{
    std::uint16_t address = 0;
    std::uint16_t count = 1;
    request.decodeData(&address, &count);
    return request.functionCode() == QModbusPdu::WriteMultipleRegisters &&
           address == PowerOffRegister && count == PowerOffValueCount;
}

bool isErrorRead(const QModbusRequest& request)
{
    std::uint16_t address = 0;
    request.decodeData(&address);
    return request.functionCode() == QModbusPdu::ReadHoldingRegisters && address == ErrorRegister;
}
} // namespace

ModbusFrame executeModbus(Hand& hand, const ModbusFrame& request, TimePoint now)
{
    const QModbusRequest pdu(static_cast<QModbusPdu::FunctionCode>(request.function), request.data);
    if (isPowerOff(pdu)) {
        hand.powered = false;
        return {request.node, request.function, request.data.first(4)};
    }
    if (!isErrorRead(pdu))
        hand.error = NoSubError;
    const bool known = request.function == ReadHoldingRegisters ||
                       request.function == WriteSingleRegister ||
                       request.function == WriteMultipleRegisters;
    if (!known)
        return refuseModbus(hand, request, IllegalFunction);
    const QModbusResponse response = RegisterServer(hand, now).process(pdu);
    if (response.isException() && hand.error == NoSubError)
        hand.error = BadArgument;
    const auto code = static_cast<std::uint8_t>(response.functionCode());
    return {request.node,
            static_cast<std::uint8_t>(response.isException() ? code | ExceptionBit : code),
            response.data()};
}

ModbusFrame refuseModbus(Hand& hand, const ModbusFrame& request, std::uint8_t error)
{
    hand.error = error;
    const bool isException = error > 0 && error <= LastModbusException;
    const char code = static_cast<char>(isException ? error : std::uint8_t{ServerDeviceFailure});
    return {request.node, static_cast<std::uint8_t>(request.function | ExceptionBit),
            QByteArray(1, code)};
}

} // namespace vanto::simulator
