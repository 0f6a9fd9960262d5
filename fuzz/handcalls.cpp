#include "handcalls.h"

#include <algorithm>
#include <cstring>
#include <tuple>
#include <type_traits>

namespace vanto
{

CallArguments::CallArguments(ByteSource& source, u8 fill)
    : m_source(source),
      m_fill(fill),
      m_nullOutputs(source.take()),
      m_node(source.take()),
      m_subError(fill)
{
}

template<class T>
T CallArguments::number()
{
    const auto bytes = m_source.take(sizeof(T));
    T value{};
    std::memcpy(&value, bytes.data(), bytes.size());
    return value;
}

template<class T>
T* CallArguments::output(std::size_t count)
{
    const bool isNull = m_nullOutputs & 1U;
    m_nullOutputs = static_cast<u8>(m_nullOutputs >> 1U);
    if (isNull)
        return nullptr;
    u8* const memory = allocate(sizeof(T) * count);
    m_outputs.emplace_back(memory, sizeof(T) * count);
    return reinterpret_cast<T*>(memory);
}

template<class T>
const T* CallArguments::input(std::size_t count)
{
    const std::size_t limit = HAND_MAX_REQUEST_PAYLOAD / sizeof(T) + 1;
    return reinterpret_cast<const T*>(allocate(sizeof(T) * std::min(count, limit)));
}

void CallArguments::limitOutput(std::size_t count)
{
    m_outputs.back() = m_outputs.back().first(count);
}

u8* CallArguments::allocate(std::size_t bytes)
{
    u8* const memory = m_memory.emplace_back(new u8[bytes]).get();
    std::fill_n(memory, bytes, m_fill);
    return memory;
}

bool CallArguments::outputsUntouched() const
{
    return std::ranges::all_of(m_outputs, [this](std::span<const u8> output) {
        return std::ranges::all_of(output, [this](u8 byte) { return byte == m_fill; });
    });
}

void CallArguments::appendOutputs(std::vector<u8>& bytes) const
{
    for (const auto output : m_outputs)
        bytes.insert(bytes.end(), output.begin(), output.end());
}

namespace
{
/// Creates a number to send or a single output for a parameter.
template<class T>
T argument(CallArguments& arguments)
{
    if constexpr (std::is_pointer_v<T>)
        return arguments.output<std::remove_pointer_t<T>>();
    else
        return arguments.number<T>();
}

template<class... Parameters>
u32 callCommand(u32 (*command)(HAND_Context*, u8, Parameters...), HAND_Context* c, CallArguments& a)
{
    static_assert(sizeof...(Parameters) > 0);
    using Pack = std::tuple<Parameters...>;
    constexpr std::size_t argumentCount = sizeof...(Parameters) - 1; // excludes the sub error
    return [&]<std::size_t... I>(std::index_sequence<I...>)
    {
        // Braces guarantee the order of evaluation, and so of reading the input.
        const std::tuple<std::tuple_element_t<I, Pack>...> values{
            argument<std::tuple_element_t<I, Pack>>(a)...};
        return command(c, a.node(), std::get<I>(values)..., a.subError());
    }
    (std::make_index_sequence<argumentCount>());
}

template<auto Command>
u32 simpleCall(HAND_Context* c, CallArguments& a)
{
    return callCommand(Command, c, a);
}

template<auto Command, class T>
u32 readAll(HAND_Context* c, CallArguments& a)
{
    const u8 count = a.number<u8>();
    T* const targets = a.output<T>(count);
    T* const currents = a.output<T>(count);
    return Command(c, a.node(), targets, currents, count, a.subError());
}

template<auto Command, class T>
u32 writeAll(HAND_Context* c, CallArguments& a)
{
    const u8 count = a.number<u8>();
    return Command(c, a.node(), a.input<T>(count), a.input<u8>(count), count, a.subError());
}

u32 getCaliData(HAND_Context* c, CallArguments& a)
{
    const u8 fingers = a.number<u8>();
    const u8 roots = a.number<u8>();
    u16* const first = a.output<u16>(fingers);
    u16* const second = a.output<u16>(fingers);
    u16* const root = a.output<u16>(roots);
    return HAND_GetCaliData(c, a.node(), first, second, fingers, root, roots, a.subError());
}

u32 getFingerForce(HAND_Context* c, CallArguments& a)
{
    const u8 finger = a.number<u8>();
    const u8 count = a.number<u8>();
    return HAND_GetFingerForce(c, a.node(), finger, a.output<u16>(count), count, a.subError());
}

u32 getUsageStat(HAND_Context* c, CallArguments& a)
{
    constexpr std::size_t fingers = 6;
    const u8 count = a.number<u8>();
    u32* const total = a.output<u32>();
    u32* const perFinger = a.output<u32>(fingers);
    return HAND_GetUsageStat(c, a.node(), total, perFinger, count, a.subError());
}

u32 setCaliData(HAND_Context* c, CallArguments& a)
{
    const u16 fingers = a.number<u16>();
    const u16 roots = a.number<u16>();
    return HAND_SetCaliData(c, a.node(), a.input<u16>(fingers), a.input<u16>(fingers), fingers,
                            a.input<u16>(roots), roots, a.subError());
}

/// The buffer holds the request and the reply. `capacity` returns the reply length also on failure.
u32 setCustom(HAND_Context* c, CallArguments& a)
{
    const u8 length = a.number<u8>();
    u8 capacity = a.number<u8>();
    u8* const buffer = a.output<u8>(std::max(length, capacity));
    if (!buffer)
        return HAND_SetCustom(c, a.node(), nullptr, 0, nullptr, a.subError());
    const u32 result = HAND_SetCustom(c, a.node(), buffer, length, &capacity, a.subError());
    if (result == HAND_SUCCESS)
        a.limitOutput(capacity);
    return result;
}

constexpr HandCall Calls[] = {
    simpleCall<HAND_GetProtocolVersion>,
    simpleCall<HAND_GetFirmwareVersion>,
    simpleCall<HAND_GetHardwareVersion>,
    getCaliData,
    simpleCall<HAND_GetFingerPID>,
    simpleCall<HAND_GetFingerCurrentLimit>,
    simpleCall<HAND_GetFingerCurrent>,
    simpleCall<HAND_GetFingerForceLimit>,
    getFingerForce,
    simpleCall<HAND_GetFingerPosLimit>,
    simpleCall<HAND_GetFingerPosAbs>,
    simpleCall<HAND_GetFingerPos>,
    simpleCall<HAND_GetFingerAngle>,
    simpleCall<HAND_GetThumbRootPos>,
    readAll<HAND_GetFingerPosAbsAll, u16>,
    readAll<HAND_GetFingerPosAll, u16>,
    readAll<HAND_GetFingerAngleAll, s16>,
    simpleCall<HAND_GetSelfTestLevel>,
    simpleCall<HAND_GetBeepSwitch>,
    simpleCall<HAND_GetButtonPressedCnt>,
    simpleCall<HAND_GetUID>,
    simpleCall<HAND_GetBatteryVoltage>,
    getUsageStat,
    simpleCall<HAND_Reset>,
    simpleCall<HAND_PowerOff>,
    simpleCall<HAND_SetID>,
    simpleCall<HAND_Calibrate>,
    setCaliData,
    simpleCall<HAND_SetFingerPID>,
    simpleCall<HAND_SetFingerCurrentLimit>,
    simpleCall<HAND_SetFingerForceLimit>,
    simpleCall<HAND_SetFingerPosLimit>,
    simpleCall<HAND_FingerStart>,
    simpleCall<HAND_FingerStop>,
    simpleCall<HAND_SetFingerPosAbs>,
    simpleCall<HAND_SetFingerPos>,
    simpleCall<HAND_SetFingerAngle>,
    writeAll<HAND_SetFingerPosAbsAll, u16>,
    writeAll<HAND_SetFingerPosAll, u16>,
    writeAll<HAND_SetFingerAngleAll, s16>,
    setCustom,
    simpleCall<HAND_SetSelfTestLevel>,
    simpleCall<HAND_SetBeepSwitch>,
    simpleCall<HAND_Beep>,
    simpleCall<HAND_SetButtonPressedCnt>,
    simpleCall<HAND_StartInit>,
};
} // namespace

std::span<const HandCall> handCalls()
{
    return Calls;
}

} // namespace vanto
