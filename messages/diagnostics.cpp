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

using bx::flagged;
using bx::ranged;
using bx::required;

/* The highest number a request accepts. */
constexpr uint32_t kHighest = 65535;

/* The host both requests need. */
constexpr const char *kNoHost = "[Host] is not valid.";

/* Their "capaflag" is parsed but never tested nor read: a sender cannot
 * set the word directly. */
#define CAPAFLAG(Rec) bx::parsed_only(BX_U32(Rec, uiCapaFlag, "capaflag", nullptr))

constexpr bx::FieldDef kPingSource[] = {
    required(BX_TEXT(PingRequest, szHost, "host", "Host:%s"), kNoHost),
    flagged(ranged(BX_U32(PingRequest, uiNum, "num", "Num:%d"), 0, kHighest, "[PING_NUM] is not valid."),
            DIAG_CAPA_PING_NUM),
    flagged(ranged(BX_U32(PingRequest, uiTimeout, "timeout", "TimeOut:%d"), 0, kHighest,
                   "[PING_TIMEOUT] is not valid."),
            DIAG_CAPA_TIMEOUT),
    /* Quirk: sent with any low validity bit, not only its own. */
    flagged(ranged(BX_U32(PingRequest, uiBlockSize, "blocksize", "BlockSize:%d"), 1, kHighest,
                   "[PING_BLOCKSIZE] is not valid."),
            DIAG_CAPA_BLOCKSIZE, bx::kAnyLowBit),
    CAPAFLAG(PingRequest),
    BX_TEXT(PingRequest, szPingTime, "pingtime", "PingTime:%s"),
    BX_U32(PingRequest, uiPingNum, "pingnum", "PingNum:%d"),
};
BX_PACKED(kPing);

#define TR_HOST required(BX_TEXT(TraceRouteRequest, szHost, "host", "Host:%s"), kNoHost)
/* Required, and looked at last on the way in: the numbers before it stay
 * stored. Quirk: a type above 1 is refused with the maxhop text. */
#define TR_RESULTTYPE                                                                                      \
    required(ranged(BX_U32(TraceRouteRequest, uiResultType, "resulttype", "ResultType:%d"), 0, 1,          \
                    "[TRACEROUTE_MAXHOP] is not valid."),                                                  \
             "[ResultType] is not valid.")
#define TR_NUMBERS                                                                                         \
    flagged(ranged(BX_U32(TraceRouteRequest, uiNumOfTries, "numoftries", "NumOftries:%d"), 0, kHighest,    \
                   "[TRACEROUTE_NUMOFTRIES] is not valid."),                                               \
            DIAG_CAPA_NUMOFTRIES),                                                                         \
    flagged(ranged(BX_U32(TraceRouteRequest, uiTimeout, "timeout", "TimeOut:%d"), 0, kHighest,             \
                   "[TRACEROUTE_TIMEOUT] is not valid."),                                                  \
            DIAG_CAPA_TIMEOUT),                                                                            \
    flagged(ranged(BX_U32(TraceRouteRequest, uiBlockSize, "blocksize", "BlockSize:%d"), 1, kHighest,       \
                   "[TRACEROUTE_BLOCKSIZE] is not valid."),                                                \
            DIAG_CAPA_BLOCKSIZE),                                                                          \
    flagged(ranged(BX_U32(TraceRouteRequest, uiMaxHop, "maxhop", "MaxHop:%d"), 1, kHighest,                \
                   "[TRACEROUTE_MAXHOP] is not valid."),                                                   \
            DIAG_CAPA_MAXHOP)

constexpr bx::FieldDef kTraceRouteSource[] = {TR_HOST, TR_NUMBERS, TR_RESULTTYPE, CAPAFLAG(TraceRouteRequest)};
BX_PACKED(kTraceRoute);
constexpr bx::FieldDef kTraceRouteSentSource[] = {TR_HOST, TR_RESULTTYPE, TR_NUMBERS};
BX_PACKED(kTraceRouteSent);
#undef TR_HOST
#undef TR_RESULTTYPE
#undef TR_NUMBERS
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
    bx::with_quirk(BX_TEXT(TraceRouteResult, szResult, "result", "Result:%s"), kTracedResult),
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

BX_MASKED_CONVERTERS(STJ_Ping, JTS_Ping, PingRequest, uiCapaFlag, kPing, kPing)
BX_MASKED_CONVERTERS(STJ_TraceRoute, JTS_TraceRoute, TraceRouteRequest, uiCapaFlag, kTraceRouteSent, kTraceRoute)

BX_FIELD_CONVERTERS(STJ_Ping_Result, JTS_PingResult, kPingResult)

BX_FIELD_CONVERTERS(STJ_TraceRoute_Result, JTS_TraceRouteResult, kTraceRouteResult)

BX_FIELD_CONVERTERS(STJ_UplinkSupport, JTS_UplinkSupport, kUplinkSupport)

} // extern "C"
