#pragma once

#include "hand.h"

#include <QByteArray>

namespace vanto::simulator
{

// What a hand answers: a payload on success, else a sub error. Numbers are little-endian.
struct Answer {
    QByteArray payload;
    quint8 subError = NoSubError;

    Answer& u8(unsigned value);
    Answer& u16(unsigned value);
    Answer& u16BigEndian(unsigned value);
    Answer& u32(quint32 value);
    Answer& f32(float value);
};

// Lets the hand carry out one SerialCtrl command.
Answer serialCtrlAnswer(Hand& hand, quint8 command, QByteArrayView payload, Moment now);

} // namespace vanto::simulator
