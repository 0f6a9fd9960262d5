#pragma once

// A row of per-finger widgets shares one handler; these macros write its six slots. In a class,
//     VANTO_DECLARE_FINGER_SLOTS(pushButton_SettingReadPID, clicked, ())
// declares on_pushButton_SettingReadPID0_clicked() to on_pushButton_SettingReadPID5_clicked(),
// which setupUi() connects by their names. Write no semicolon behind a call: with one, moc would
// pass over a macro that it does not know in silence.

#define VANTO_FOR_EACH_FINGER(macro, widget, signal, argument)                                     \
    macro(widget, signal, argument, 0) macro(widget, signal, argument, 1)                          \
        macro(widget, signal, argument, 2) macro(widget, signal, argument, 3)                      \
            macro(widget, signal, argument, 4) macro(widget, signal, argument, 5)

#define VANTO_DECLARE_FINGER_SLOTS(widget, signal, parameters)                                     \
    VANTO_FOR_EACH_FINGER(VANTO_DECLARE_FINGER_SLOT, widget, signal, parameters)
#define VANTO_DECLARE_FINGER_SLOT(widget, signal, parameters, finger)                              \
    void on_##widget##finger##_##signal parameters;

#define VANTO_DEFINE_FINGER_SLOTS(widget, signal, handler)                                         \
    VANTO_FOR_EACH_FINGER(VANTO_DEFINE_FINGER_SLOT, widget, signal, handler)
#define VANTO_DEFINE_FINGER_SLOT(widget, signal, handler, finger)                                  \
    void MainWindow::on_##widget##finger##_##signal()                                              \
    {                                                                                              \
        handler(finger);                                                                           \
    }

/// For signals that carry a value.
#define VANTO_DEFINE_FINGER_VALUE_SLOTS(widget, signal, handler)                                   \
    VANTO_FOR_EACH_FINGER(VANTO_DEFINE_FINGER_VALUE_SLOT, widget, signal, handler)
#define VANTO_DEFINE_FINGER_VALUE_SLOT(widget, signal, handler, finger)                            \
    void MainWindow::on_##widget##finger##_##signal(int value)                                     \
    {                                                                                              \
        handler(finger, value);                                                                    \
    }
