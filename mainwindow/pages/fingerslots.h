#pragma once

// A row of per-finger widgets shares one handler; these macros define its six slots. In a class,
//     VANTO_FINGER_SLOTS(pushButton_SettingReadPID, clicked, tabSetting_handleReadPID)
// defines on_pushButton_SettingReadPID0_clicked() to on_pushButton_SettingReadPID5_clicked(), which
// setupUi() connects by their names and which call the handler with the finger. Do not write a
// semicolon after a call: with one, moc would silently ignore a macro that it does not know.

#define VANTO_FOR_EACH_FINGER(macro, widget, signal, handler)                                      \
    macro(widget, signal, handler, 0) macro(widget, signal, handler, 1)                            \
        macro(widget, signal, handler, 2) macro(widget, signal, handler, 3)                        \
            macro(widget, signal, handler, 4) macro(widget, signal, handler, 5)

#define VANTO_FINGER_SLOTS(widget, signal, handler)                                                \
    VANTO_FOR_EACH_FINGER(VANTO_FINGER_SLOT, widget, signal, handler)
#define VANTO_FINGER_SLOT(widget, signal, handler, finger)                                         \
    void on_##widget##finger##_##signal()                                                          \
    {                                                                                              \
        handler(finger);                                                                           \
    }

/// For signals that carry a value.
#define VANTO_FINGER_VALUE_SLOTS(widget, signal, handler)                                          \
    VANTO_FOR_EACH_FINGER(VANTO_FINGER_VALUE_SLOT, widget, signal, handler)
#define VANTO_FINGER_VALUE_SLOT(widget, signal, handler, finger)                                   \
    void on_##widget##finger##_##signal(int value)                                                 \
    {                                                                                              \
        handler(finger, value);                                                                    \
    }
