#include "handprocess.h"
#include "sequenceplayer.h"
#include "testmain.h"

#include <QRandomGenerator>
#include <QTest>

namespace vanto
{

class tst_player : public QObject
{
    Q_OBJECT
    const SequenceDataItem m_rest{QList<int>(7, 0), QList<int>(7, 255), 0};
    bool m_modbus = false;
    int m_frames = 0; ///< requests for the motion of a finger
    std::unique_ptr<HandProcess> m_hand;
    std::shared_ptr<VantoProtocol> m_adapter;
    std::unique_ptr<SequencePlayer> m_player;
    QByteArray m_signals; ///< "playing index error;" of each signal
    qint64 m_period = 0;  ///< of the last signal

    void command(const QByteArray& line) { QCOMPARE(m_hand->command(QString(line)), u"ok"); }
    /// For tests in which replies are dropped, so that time-outs are short.
    void limitReplies(int ms)
    {
        ReplyLimits::current() = {ms, ms, ms, ms};
        m_adapter->disconnect();
        QVERIFY(m_adapter->connect(qPrintable(m_hand->portName()), 115'200));
    }
    bool play(const QList<SequenceDataItem>& steps, int start, int end, bool forEdit = false,
              const char* type = "position")
    {
        m_hand->clearTrace();
        m_signals.clear();
        return m_player->play({1, QLatin1String(type), steps}, start, end, forEdit);
    }
    /// All requests except those that read, without address and checksum.
    QByteArrayList motions() const
    {
        QByteArrayList all;
        for (const TracedFrame& frame : m_hand->requests())
            if (m_modbus ? frame.bytes[1] != 3 : frame.bytes[4] >= 0x40)
                all += frame.bytes.sliced(m_modbus ? 1 : 4).chopped(m_modbus ? 2 : 1).toHex();
        return all;
    }

private slots:
    void initTestCase_data() // each test runs over both protocols
    {
        QTest::addColumn<PROTOCOL_TYPE>("protocol");
        QTest::newRow("SerialCtrl") << PROTOCOL_TYPE_SERIALCTRL;
        QTest::newRow("Modbus") << PROTOCOL_TYPE_MODBUS_RTU;
    }
    void init()
    {
        QFETCH_GLOBAL(const PROTOCOL_TYPE, protocol);
        m_modbus = protocol == PROTOCOL_TYPE_MODBUS_RTU;
        m_frames = m_modbus ? 2 : 1;
        m_hand = std::make_unique<HandProcess>();
        QVERIFY(m_hand->start({"--node", "2:modbus", "--node", "2:serialctrl", "--speed", "9"}));
        m_adapter = VantoProtocol::getProtocolInstance(protocol, m_modbus ? 1 : 3, 0);
        limitReplies(20'000);
        m_player = std::make_unique<SequencePlayer>();
        m_player->setVantoProtocol(m_adapter, 2);
        connect(m_player.get(), &SequencePlayer::sig_updatePlaying, this,
                [this](bool playing, int index, qint64 period, const QString& error) {
                    m_signals +=
                        QStringLiteral("%1 %2 %3;").arg(playing).arg(index).arg(error).toLatin1();
                    m_period = period;
                });
    }
    void cleanup()
    {
        QVERIFY(m_hand->command(QStringLiteral("stats")).contains(u" overlaps=0 "));
        m_adapter->disconnect();
    }
    void sending()
    {
        QVERIFY(play({{}, {}, {{0, 30000, 65535, 9}, {255, 1, 128}}}, 2, 2));
        QCOMPARE(motions().join(' '), m_modbus ? "060465ffff 06046f0000 0604660101 0604707530 "
                                                 "0604678080 060471ffff"
                                               : "4c04000000ff 4c0401307501 4c0402ffff80");
        QVERIFY(play({{{-1269, 9200}, {255}}}, 0, 0, false, "angle"));
        QTest::qWait(30); // a step that is only sent is neither polled nor reported again
        QCOMPARE(motions().join(' '), m_modbus ? "060465ffff 060483fb0b" : "4d04000bfbff");
        QCOMPARE(m_signals, "0 0 ;");
    }
    void runs()
    {
        const QList<SequenceDataItem> steps{m_rest, {QList<int>(6, 9000), QList<int>(6, 255), 90}};
        QVERIFY(play(steps, 0, -1));
        QVERIFY(!m_player->play({1, QStringLiteral("angle"), steps}, 1, 1, true) &&
                !m_player->isPlayForEdit());
        QTRY_COMPARE(m_signals, "0 0 ;1 0 ;1 1 ;0 1 ;");
        QVERIFY(m_period >= 90 && motions().size() == qsizetype{12} * m_frames);
        QVERIFY(play(steps, 1, 1, true) && m_player->isPlayForEdit());
        QCOMPARE(motions().size(), 5 * m_frames);
        QCOMPARE(motions().last(), m_modbus ? "0604730000" : "4c04040000ff");
        QTRY_COMPARE(m_signals, "1 1 ;0 1 ;");
        QCOMPARE(motions().size(), 11 * m_frames);
        QVERIFY(m_period >= 90 && !play(steps, -1, -1) && !play(steps, 2, -1));
    }
    void arrival()
    {
        // At speed 0 the distance of a finger from its target stays the same.
        for (const auto& [type, start, window] :
             {std::tuple("position", 20000, 256), {"angle", 1000, 6}})
            for (const int distance : {window, window + 1, -window, -window - 1}) {
                command(QByteArray("set 2 ") + type + " 0 " + QByteArray::number(start));
                QVERIFY(play({{{start + distance}, {0}}}, 0, 1, false, type));
                QTRY_VERIFY(!m_player->isPlaying() || m_hand->requests().size() > 40);
                QCOMPARE(m_player->isPlaying(), std::abs(distance) > window);
                m_player->stop();
                QCOMPARE(m_signals, "0 0 ;1 0 ;0 0 ;");
            }
    }
    void failures()
    {
        const std::pair<const char*, QByteArray> rows[] = {
            {"set 2 current 1 79", ""},
            {"set 2 current 1 80", "Index has too big current: 80 mA"},
            {"set 2 current 5 900", "Thumb root has too big current: 900 mA"},
            {"fault drop count=0", "TIME OUT"},
            {"fault drop skip=6 count=0", "TIME OUT"},
            {"fault refuse error=0x03", "getFingerCurrent(0x02, ...) returned 0xff (sub err 03)"},
            {"fault refuse skip=6", "getFingerPosAll(0x02, ...) returned 0xff (sub err 21)"}};
        for (const char* type : {"position", "angle"})
            for (auto [setUp, message] : rows) {
                limitReplies(message == "TIME OUT" ? 250 : 20'000);
                QVERIFY(play({{{}, {}, 60}}, 0, 1, false, type));
                command(setUp);
                message.replace("0xff", m_modbus ? "0x10" : "0xff");
                message.replace("Pos", *type == 'a' ? "Angle" : "Pos");
                QTRY_COMPARE(m_signals, "0 0 ;1 0 ;0 0 " + message + ';');
                for (const char* undo : {"clear", "set 2 current 1 auto", "set 2 current 5 auto"})
                    command(undo);
            }
    }
    void failedSteps()
    {
        const QByteArray failed = QByteArray(" setFingerPos(0x02, ...) returned 0x") +
                                  (m_modbus ? "10" : "ff") + " (sub err 33);";
        const QByteArray writes = m_modbus ? "6" : "0x4C";
        for (const QByteArray step : {"0", "1"}) {
            const int before = 6 * m_frames * step.toInt();
            command("fault refuse error=0x33 count=2 command=" + writes +
                    " skip=" + QByteArray::number(before));
            QCOMPARE(play({m_rest, m_rest, m_rest}, 0, -1), before > 0);
            QTRY_VERIFY(!m_player->isPlaying());
            QTest::qWait(50); // nothing else is sent or reported
            QVERIFY(m_signals.endsWith(' ' + step + " ;0 " + step + failed + "0 " + step + failed));
            // Over Modbus a refused speed means that no target is sent.
            QCOMPARE(motions().size(), before + (m_modbus ? 10 : 6));
        }
    }
    void stopping()
    {
        for (int moment = 0; moment < 20; ++moment) {
            qsizetype sent = -1;
            const int ms = QRandomGenerator::global()->bounded(moment < 4 ? 6 : 80);
            QTimer::singleShot(ms, this, [&] {
                m_player->stop();
                sent = motions().size();
                m_signals.clear();
            });
            const bool played = play(QList<SequenceDataItem>(1000, m_rest), 0, -1, moment % 2);
            QCOMPARE(played, sent < 0);
            QTRY_VERIFY(sent >= 0);
            QTest::qWait(40); // several polls, which send and report nothing
            QVERIFY(!m_player->isPlaying() && m_signals.isEmpty());
            QVERIFY(motions().size() <= sent + 1); // the trace may lack one frame at the stop
        }
        // The frame at the stop is not repeated, and nothing follows it: over Modbus it is a speed,
        // and its target would move the finger.
        for (const auto& [fault, limitMs] :
             {std::pair{"fault late ms=300", 20'000}, {"fault drop count=0", 500}}) {
            limitReplies(limitMs);
            command(fault);
            QTimer::singleShot(60, this, [&] { m_player->stop(); });
            QVERIFY(!play({m_rest}, 0, 0));
            QCOMPARE(motions().size(), 1);
        }
    }
    void newRunInsideOld()
    {
        connect(m_player.get(), &SequencePlayer::sig_updatePlaying, this, [&] {
            if (m_signals.endsWith(";1 1 ;") && !m_signals.contains("0 2")) {
                m_player->stop();
                m_player->play({1, QStringLiteral("position"), {{}, {}, m_rest}}, 2, 3, false);
            }
        });
        QVERIFY(play({m_rest, m_rest}, 0, -1));
        QTRY_COMPARE(m_signals, "0 0 ;1 0 ;1 1 ;0 1 ;0 2 ;1 2 ;0 2 ;");
        QCOMPARE(motions().size(), 12 * m_frames);
    }
    void polledBetweenConversations()
    {
        auto conversation = std::make_unique<LineHold>();
        QTimer::singleShot(0, this, [this] { m_player->setVantoProtocol(nullptr, 2); });
        QVERIFY(play({m_rest, m_rest}, 0, -1));
        QTest::qWait(50); // no poll while the line is held
        QCOMPARE(motions().size(), 6 * m_frames);
        QCOMPARE(m_signals, "0 0 ;1 0 ;");
        conversation.reset();
        QTRY_COMPARE(m_signals, "0 0 ;1 0 ;0 0 No VANTO;");
    }
};

VANTO_TEST(tst_player)

} // namespace vanto

#include "tst_player.moc"
