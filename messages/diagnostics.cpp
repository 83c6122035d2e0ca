/* Network diagnostics: the ping (40) and traceroute (41) requests, their
 * results (42, 43), and the uplink modes the device supports (44).
 *
 * The two requests are checked before the diagnostic daemon acts on them:
 * the host is required, and each number must lie within 0..65535 (1..65535
 * for sizes and hop counts). A value out of range refuses the request at
 * once; what was stored before it stays stored. Stored numbers set their
 * validity bit in uiCapaFlag, and only numbers whose bit is set are sent.
 * The "capaflag" key is in the policies but never read, so a sender cannot
 * set the word directly. */
#include <cstddef>
#include <cstdint>

#include "blobxlate.h"
#include "core/codec.h"

namespace {

/* ---- Requests (40, 41) ---------------------------------------------------- */

/* The highest number a request accepts. */
constexpr uint32_t kHighest = 65535;

/* The host both requests need. */
constexpr const char *kNoHost = "[Host] is not valid.";

/* Their "capaflag" is parsed but never tested nor read: a sender cannot
 * set the word directly. */
#define CAPAFLAG(Rec, way_) BX_U32(Rec, uiCapaFlag, "capaflag", nullptr, .way = way_, .use = bx::Use::Parsed)

constexpr bx::FieldDef kPingSource[] = {
    BX_TEXT(PingRequest, szHost, "host", "Host:%s", .required = true, .absent = kNoHost),
    BX_U32(PingRequest, uiNum, "num", "Num:%d", .bit = DIAG_CAPA_PING_NUM,
        .range = {bx::Check::Before, 0, kHighest, "[PING_NUM] is not valid."}),
    BX_U32(PingRequest, uiTimeout, "timeout", "TimeOut:%d", .bit = DIAG_CAPA_TIMEOUT,
        .range = {bx::Check::Before, 0, kHighest, "[PING_TIMEOUT] is not valid."}),
    /* Quirk: sent with any low validity bit, not only its own. */
    BX_U32(PingRequest, uiBlockSize, "blocksize", "BlockSize:%d", .bit = DIAG_CAPA_BLOCKSIZE, .sent_if = bx::kAnyLowBit,
        .range = {bx::Check::Before, 1, kHighest, "[PING_BLOCKSIZE] is not valid."}),
    CAPAFLAG(PingRequest, bx::Way::Both),
    BX_TEXT(PingRequest, szPingTime, "pingtime", "PingTime:%s"),
    BX_U32(PingRequest, uiPingNum, "pingnum", "PingNum:%d"),
};
BX_PACKED(kPing);

#define TR_HOST BX_TEXT(TraceRouteRequest, szHost, "host", "Host:%s", .required = true, .absent = kNoHost)
constexpr const char *kBadMaxHop = "[TRACEROUTE_MAXHOP] is not valid.";

/* Required, and looked at last on the way in: the numbers before it stay
 * stored. Quirk: a type above 1 is refused with the maxhop text. */
#define TR_RESULTTYPE(way_)                                                                           \
    BX_U32(TraceRouteRequest, uiResultType, "resulttype", "ResultType:%d", .required = true,          \
           .absent = "[ResultType] is not valid.", .way = way_, .range = {bx::Check::Before, 0, 1, kBadMaxHop})
#define TR_NUMBER(m, key_, trace_, lowest, bit_, refusal)                                                \
    BX_U32(TraceRouteRequest, m, key_, trace_, .bit = bit_, .range = {bx::Check::Before, lowest, kHighest, refusal})
#define TR_NUMBERS                                                                                    \
    TR_NUMBER(uiNumOfTries, "numoftries", "NumOftries:%d", 0, DIAG_CAPA_NUMOFTRIES,                   \
              "[TRACEROUTE_NUMOFTRIES] is not valid."),                                               \
    TR_NUMBER(uiTimeout, "timeout", "TimeOut:%d", 0, DIAG_CAPA_TIMEOUT, "[TRACEROUTE_TIMEOUT] is not valid."), \
    TR_NUMBER(uiBlockSize, "blocksize", "BlockSize:%d", 1, DIAG_CAPA_BLOCKSIZE,                       \
              "[TRACEROUTE_BLOCKSIZE] is not valid."),                                                \
    TR_NUMBER(uiMaxHop, "maxhop", "MaxHop:%d", 1, DIAG_CAPA_MAXHOP, kBadMaxHop)

/* The type goes out before the numbers. */
constexpr bx::FieldDef kTraceRouteSource[] = {
    TR_HOST,
    TR_RESULTTYPE(bx::Way::Sent),
    TR_NUMBERS,
    TR_RESULTTYPE(bx::Way::Received),
    CAPAFLAG(TraceRouteRequest, bx::Way::Received),
};
BX_PACKED(kTraceRoute);
#undef TR_HOST
#undef TR_RESULTTYPE
#undef TR_NUMBERS
#undef TR_NUMBER
#undef CAPAFLAG

/* ---- Results and uplink modes (42 to 44) --------------------------------------- */

constexpr bx::FieldDef kPingResultSource[] = {
    BX_U32(PingResult, uiRecivedCount, "recivedcount", "RecivedCount:%d"),
    BX_U32(PingResult, uiLossCount, "losscount", "LossCount:%d"),
    BX_U32(PingResult, uiAvg, "avg", "Avg:%d"),
    BX_U32(PingResult, uiMin, "min", "Min:%d"),
    BX_U32(PingResult, uiMax, "max", "Max:%d"),
    BX_U32(PingResult, uiPacketsLoss, "packetsloss", "PacketsLoss:%d"),
    BX_U32(PingResult, uiTimeTotal, "timetotal", "TimeTotal:%d"),
    BX_U32(PingResult, uiPacketCount, "packetcount", "PacketCount:%d"),
    BX_U32(PingResult, uiPacketSize, "packetsize", "PacketSize:%d"),
    BX_TEXT(PingResult, szPingUrl, "pingurl", "Pingurl:%s"),
    BX_TEXT(PingResult, szHost, "host", "Host:%s"),
    BX_U32(PingResult, uiTimeout, "timeout", "TimeOut:%d"),
    BX_U32(PingResult, uiPingNum, "pingnum", "PingNum:%d"),
};
BX_PACKED(kPingResult);

/* Quirk: the sender traces the whole result before sending it; the
 * daemon's output may fill the whole array, so no more than it is printed. */
void send_traced_result(const bx::Field &f, const bx::Link *links, const void *record, blob_buf *buf)
{
    const auto *rec = static_cast<const TraceRouteResult *>(record);
    BX_TRACE_AS("STJ_TraceRoute_Result", "STJ_TraceRoute_Result [%.*s] \n\n", static_cast<int>(sizeof rec->szResult),
                rec->szResult);
    bx::emit_field(f, links, record, buf);
}

constexpr bx::Quirk kTracedResult{nullptr, send_traced_result, "the sender traces the whole result before sending it"};

constexpr bx::FieldDef kTraceRouteResultSource[] = {
    BX_TEXT(TraceRouteResult, szResult, "result", "Result:%s", .quirk = &kTracedResult),
};
BX_PACKED(kTraceRouteResult);

constexpr bx::FieldDef kUplinkSupportSource[] = {
    BX_WORD(UplinkSupport, uiDhcp, EnumSwitch, "dhcp", "Dhcp:%d"),
    BX_WORD(UplinkSupport, uiStatic, EnumSwitch, "static", "Static:%d"),
    BX_WORD(UplinkSupport, uiPppoe, EnumSwitch, "pppoe", "Pppoe:%d"),
    BX_WORD(UplinkSupport, uiBridge, EnumSwitch, "bridge", "Bridge:%d"),
    BX_WORD(UplinkSupport, uiRepeater, EnumSwitch, "repeater", "Repeater:%d"),
};
BX_PACKED(kUplinkSupport);

} // namespace

extern "C" {

BX_CONVERTERS(STJ_Ping, JTS_Ping, kPing, offsetof(PingRequest, uiCapaFlag))
BX_CONVERTERS(STJ_TraceRoute, JTS_TraceRoute, kTraceRoute, offsetof(TraceRouteRequest, uiCapaFlag))

BX_CONVERTERS(STJ_Ping_Result, JTS_PingResult, kPingResult)

BX_CONVERTERS(STJ_TraceRoute_Result, JTS_TraceRouteResult, kTraceRouteResult)

BX_CONVERTERS(STJ_UplinkSupport, JTS_UplinkSupport, kUplinkSupport)

} // extern "C"
