#include "fakelink.h"
#include "operation.h"
#include "testmain.h"

namespace vanto
{

namespace
{
constexpr std::uint8_t RequestedCommand = 0x0B;
constexpr std::uint8_t NoSubError = 0x77; ///< value of the variable before the call

struct RequestRow {
    const char* name;
    QByteArray payload;
    QByteArray sent; ///< in hexadecimal
    std::uint8_t node = HandNode;
    std::uint32_t mode = HAND_MODE_SYNC;
};

struct ReplyRow {
    const char* name;
    QByteArray received; ///< in hexadecimal, like the payload
    std::uint32_t result;
    QByteArray payload{};
    std::uint8_t subError = NoSubError;
    std::uint8_t node = HandNode;
    std::uint8_t capacity = 64;
    std::uint32_t mode = HAND_MODE_SYNC;
};

struct DeadlineRow {
    const char* name;
    std::uint32_t start;
    int timeout;           ///< ms; -1: as created
    std::uint32_t arrival; ///< ms after the request
    std::uint32_t result;
    std::uint32_t elapsed; ///< ms
    std::uint32_t stride = 1;
};

const QByteArray zeros(126, '0'); // 63 bytes

const RequestRow requestRows[] = {
    {"empty", "", "55AA0201000003"},
    {"payload", "01", "55AA020100010103"},
    {"any node", "", "55AAFF010000FE", HAND_ANY_NODE},
    {"63 bytes", zeros, "55AA0201003F" + zeros + "3C"},
    {"bare", "01", "020100010103", HandNode, HAND_MODE_BARE},
    {"unknown mode", "01", "", HandNode, 2},
};

constexpr std::uint32_t Never = 1'000'000;

const DeadlineRow deadlineRows[] = {
    {"at the deadline", 1000, 10, 10, 0x00, 10},
    {"complete, but found later", 1000, 10, 11, 0x03, 11},
    {"no time at all", 1000, 0, 0, 0x03, 1},
    {"as created", 1000, -1, 255, 0x00, 255},
    {"as created, later", 1000, -1, 256, 0x03, 256},
    {"longest", 1000, 65535, Never, 0x03, 65536},
    {"tick wraps", 0xFFFFFFFA, 10, 10, 0x00, 10},
    {"tick wraps, later", 0xFFFFFFFA, 10, 11, 0x03, 11},
    {"tick jumps over the wrap", 0xFFFFFFF0, 10, Never, 0x03, 33, 33},
};

const ReplyRow replyRows[] = {
    {"length 0", "55AA01020B0008", 0x00},
    {"length 1", "55AA01020B017F76", 0x00, "7F"},
    {"length 64", "55AA01020B4011" + zeros + "59", 0x00, "11" + zeros},
    {"length 65 is not a frame", "55AA01020B4155AA01020B017F76", 0x00, "7F"},
    {"length 255 is not a frame", "55AA01020BFF55AA01020B017F76", 0x00, "7F"},
    {"noise before", "00AA135513010255AA01020B017F76", 0x00, "7F"},
    {"55 55 AA starts no frame", "5555AA01020B017F76", 0x03},
    {"frame after 55 55 AA", "5555AA010255AA01020B017F76", 0x00, "7F"},
    {"half", "55AA01020B017F", 0x03},
    {"half, then whole", "55AA0155AA01020B0008", 0x01},
    {"other host", "55AA02020B017E74", 0x03},
    {"after other host", "55AA02020B017E7455AA01020B017F76", 0x00, "7F"},
    {"second frame is dropped", "55AA01020B017F7655AA01020B017E77", 0x00, "7F"},
    {"checksum before error bit", "55AA01028B0121A9", 0x01},
    {"refused", "55AA01028B0121A855AA01020B0008", 0xFF, "", 0x21},
    {"error bit before source and command", "55AA01038C0221339E", 0xFF, "", 0x21},
    {"refused without payload", "55AA01028B0088", 0xFF, "", 0},
    {"source before command", "55AA01030C000E", 0x05},
    {"other command", "55AA01020C000F", 0x06},
    {"any node", "55AA01090B0003", 0x00, "", NoSubError, HAND_ANY_NODE},
    {"buffer large enough", "55AA01020B027F7E0B", 0x00, "7F7E", NoSubError, HandNode, 2},
    {"buffer too small", "55AA01020B027F7E0B", 0x04, "", NoSubError, HandNode, 1},
    {"bare", "01020B4101020B017F76", 0x00, "7F", NoSubError, HandNode, 64, HAND_MODE_BARE},
};

void feed(HAND_Context* context, const QByteArray& hex)
{
    for (const char byte : QByteArray::fromHex(hex))
        HAND_OnData(context, static_cast<std::uint8_t>(byte));
}
} // namespace

class tst_frame : public QObject
{
    Q_OBJECT
private slots:
    void init() { FakeLink::stride = 1; }
    void requests_data() { addRows(requestRows); }
    void requests();
    void replies_data() { addRows(replyRows); }
    void replies();
    void deadlines_data() { addRows(deadlineRows); }
    void deadlines();
    void missingCallbacks();
    void halfFrames();
};

void tst_frame::requests()
{
    QFETCH(const RequestRow*, row);
    FakeLink link(row->mode);
    const QByteArray payload = QByteArray::fromHex(row->payload);
    QCOMPARE(HAND_SendCmd(link.context, row->node, 0x00,
                          reinterpret_cast<const std::uint8_t*>(payload.data()),
                          std::size_t(payload.size())),
             0x00U);
    QCOMPARE(link.sent.toHex().toUpper(), row->sent);
}

void tst_frame::replies()
{
    QFETCH(const ReplyRow*, row);
    FakeLink link(row->mode);
    QByteArray reply(64, '\xEE');
    std::uint8_t length = row->capacity;
    std::uint8_t subError = NoSubError;
    const auto request = [&](const QByteArray& received, char* buffer, std::uint8_t* sub) {
        HAND_SendCmd(link.context, row->node, RequestedCommand, nullptr, 0);
        link.incoming = QByteArray::fromHex(received);
        return HAND_GetResponse(link.context, row->node, RequestedCommand, 5,
                                reinterpret_cast<std::uint8_t*>(buffer), &length, sub);
    };
    QCOMPARE(request(row->received, reply.data(), &subError), row->result);
    const QByteArray payload = QByteArray::fromHex(row->payload);
    QCOMPARE(reply.toHex(), payload.leftJustified(64, '\xEE').toHex());
    const auto reportedLength = row->result == 0x00   ? payload.size()
                                : row->result == 0x04 ? 2
                                                      : row->capacity;
    QCOMPARE(qsizetype(length), reportedLength);
    QCOMPARE(subError, row->subError);
    QCOMPARE(bool(link.context->replyReady), row->result == 0xFF);

    QCOMPARE(request(row->received, nullptr, nullptr), row->result == 0x04 ? 0x00 : row->result);
    QCOMPARE(qsizetype(length), reportedLength);
    const bool bare = row->mode == HAND_MODE_BARE;
    QCOMPARE(request(bare ? "01020B0008" : "55AA01020B0008", nullptr, nullptr), 0x00U);
}

void tst_frame::deadlines()
{
    QFETCH(const DeadlineRow*, row);
    FakeLink link;
    FakeLink::now = row->start;
    FakeLink::stride = row->stride;
    link.incoming = QByteArray::fromHex("55AA0102640067");
    link.arrival = row->arrival;
    if (row->timeout >= 0)
        HAND_SetCommandTimeOut(link.context, static_cast<std::uint16_t>(row->timeout));
    QCOMPARE(HAND_StartInit(link.context, HandNode, nullptr), row->result);
    QCOMPARE(HAND_GetTick() - row->start, row->elapsed);
}

void tst_frame::missingCallbacks()
{
    FakeLink link;
    FakeLink withoutSend;
    withoutSend.context->send = nullptr;
    const std::array<std::uint8_t, 64> payload{};
    const auto send = [&payload](HAND_Context* context) {
        return HAND_SendCmd(context, HandNode, RequestedCommand, payload.data(), payload.size());
    };
    const auto wait = [](HAND_Context* context) {
        return HAND_GetResponse(context, HandNode, RequestedCommand, 5, nullptr, nullptr, nullptr);
    };
    QCOMPARE(send(link.context), 0x07U);
    link.context->poll = nullptr;
    QCOMPARE(wait(link.context), 0x03U);
    const HAND_TickFunction tick = [] { return std::uint32_t{7}; };
    const HAND_DelayFunction delay = [](std::uint32_t) {};
    for (const bool ticks : {false, true}) {
        HAND_SetTimerFunction(ticks ? tick : nullptr, ticks ? nullptr : delay);
        QCOMPARE(HAND_GetTick(), ticks ? 7U : 0U);
        QCOMPARE(send(nullptr), 0x02U);
        QCOMPARE(send(withoutSend.context), 0x02U);
        QCOMPARE(send(link.context), 0x01U);
        QCOMPARE(wait(nullptr), 0x02U);
        QCOMPARE(HAND_StartInit(link.context, HandNode, nullptr), 0x01U);
    }
    QVERIFY(link.sent.isEmpty());
    HAND_SetCommandTimeOut(nullptr, 5);
    HAND_OnData(nullptr, 0x55);
    HAND_FreeContext(nullptr);
}

void tst_frame::halfFrames()
{
    FakeLink link;
    feed(link.context, "55AA01020B20");
    HAND_SendCmd(link.context, HandNode, RequestedCommand, nullptr, 0);
    feed(link.context, "55AA01020B0008");
    QVERIFY2(link.context->replyReady, "a request did not restart the receiver");
    link.context->replyReady = 0;
    feed(link.context, "55AA01020B20");
    HAND_GetResponse(link.context, HandNode, RequestedCommand, 5, nullptr, nullptr, nullptr);
    feed(link.context, "55AA01020B0008");
    QVERIFY2(link.context->replyReady, "a time-out did not restart the receiver");
    link.context->replyReady = 0;
    link.context->state = 8;
    feed(link.context, "0055AA01020B0008");
    QVERIFY2(link.context->replyReady, "the receiver did not leave an invalid state");
}

VANTO_TEST(tst_frame)

} // namespace vanto

#include "tst_frame.moc"
