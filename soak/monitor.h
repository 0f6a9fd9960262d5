#pragma once

#include "halttrace.h"
#include "overlapcheck.h"
#include "stacksampler.h"

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <optional>

namespace vanto
{

#if defined(VANTO_ADDRESS_SANITIZER)
constexpr bool Sanitized = true;
#else
constexpr bool Sanitized = false;
#endif

/// Checks conditions that must hold during all actions: no Qt warnings, no blocked event loop, no
/// overlapping exchanges on the wire unless a reply was late, no motion in quiet phases, no
/// parameter that is restored without its tick, and never a calibration.
class Monitor : public QObject
{
public:
    /// `slow` doubles the limit for a blocked event loop, for sanitizers. On a `busy` machine the
    /// process can wait for a processor, so its processor time is measured. `clock` is needed to
    /// explain overlaps, see OverlapCheck.
    Monitor(HandProcess& hand, bool slow, bool busy, const HandClock* clock = nullptr);
    ~Monitor() override;

    /// The number of requests in the trace that move a finger.
    static int countMotions(const HandProcess& hand);

    /// No motion is allowed from now on.
    void beginQuietPhase();
    /// Checks the frames of the quiet phase.
    void endQuietPhase();
    /// Whether the frames of a halt count as no motion, if they write to every finger where it is.
    void allowHalt(bool allow) { m_haltAllowed = allow; }
    /// A parameter that may be written: its command over SerialCtrl, its register over Modbus.
    struct Write {
        int command;
        int reg;
        int finger; ///< 0 if the hand has one value
    };
    /// Until endRestore(), no other parameters may be written.
    void beginRestore(const QList<Write>& allowed);
    void endRestore();
    /// Checks the frames since the last check and clears the trace.
    void checkTrace();

    /// What is done now, for the findings. The name must live as long as the program.
    void noteAction(const char* name);
    /// Doubles the limit for a blocked event loop once, with sanitizers: the theme is about to
    /// change. Qt polishes all widgets in one call and allocates much memory for it, and the
    /// sanitizers make that three times as slow.
    void expectThemeChange()
    {
        m_themeChanges = Sanitized;
        m_sinceThemeChange.start();
    }
    void addFinding(const QString& finding);
    const QStringList& findings() const { return m_findings; }
    int exchanges() const { return m_exchanges; }
    /// Replies that a fault has altered, delayed or suppressed.
    int faults() const { return m_faults; }
    const OverlapCheck& overlaps() const { return m_overlapCheck; }
    /// The frames of halts that wrote positions in quiet phases.
    int haltWrites() const { return m_haltWrites; }
    /// The writes of restores.
    int restoreWrites() const { return m_restoreWrites; }
    qint64 longestGapMs() const { return m_longestGapMs; }

private:
    void checkEventLoop();
    void checkWrite(const TracedFrame& request);
    bool keepsPlaces(const TracedFrame& request) const;
    QString describeMotion(const TracedFrame& request) const;
    void keepLastMarks();

    HandProcess& m_hand;
    QTimer m_loopTimer;
    QElapsedTimer m_sinceCheck;
    bool m_themeChanges = false;
    QElapsedTimer m_sinceThemeChange;
    const char* m_action = "";
    QElapsedTimer m_sinceAction;
    qint64 m_limitMs;
    StackSampler m_sampler;
    qint64 m_longestGapMs = 0;
    qint64 m_processorMs = 0; ///< processor time at the last check
    bool m_busyMachine;
    bool m_quiet = false;
    bool m_haltAllowed = false;
    std::optional<QList<Write>> m_allowed; ///< during a restore
    int m_restoreWrites = 0;
    HaltFrames m_haltFrames;
    QList<MotionMark> m_marks; ///< since the last check, and the last one of each hand before it
    int m_haltWrites = 0;
    OverlapCheck m_overlapCheck;
    int m_exchanges = 0;
    int m_faults = 0;
    QStringList m_findings;
};

} // namespace vanto
