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

/* Any validity bit at all among the low 16. */
constexpr uint32_t kAnyLowBit = 0xFFFF;

/* The highest number a request accepts. */
constexpr uint32_t kHighest = 65535;

/* An optional request number limited to lowest..65535. */
struct Ranged {
    size_t slot;          /* policy slot of its key */
    bx::Field field;      /* the u32 field, its key and its trace once stored */
    uint32_t lowest;      /* 0 or 1 */
    uint32_t bit;         /* validity bit set once stored */
    uint32_t sent_if;     /* sent while uiCapaFlag has any of these bits */
    const char *refused;  /* trace of a value out of range */
};

/* The required host of both requests: "[Host] is not valid." without it. */
bool take_host(const char *func, const bx::Field &host, blob_attr *attr, void *record)
{
    if (!JTS_CheckBlobAttr(host.key, attr)) {
        BX_TRACE_AS(func, "[Host] is not valid.\n");
        return false;
    }
    bx::store_field(func, host, attr, record);
    return true;
}

/* Takes one ranged number: an absent key leaves the field alone, an accepted
 * value is stored and flagged, a refused one returns false after its trace. */
bool take_ranged(const char *func, const Ranged &r, blob_attr *attr, void *record, uint32_t &capa)
{
    if (!JTS_CheckBlobAttr(r.field.key, attr))
        return true;
    /* Tested unsigned as value - lowest <= highest - lowest: with lowest 1 a
     * zero wraps to the largest number and is refused. */
    if (bx::get_u32(attr) - r.lowest > kHighest - r.lowest) {
        BX_TRACE_AS(func, "%s\n", r.refused);
        return false;
    }
    bx::store_field(func, r.field, attr, record);
    capa |= r.bit;
    return true;
}

template <size_t N>
bool take_all_ranged(const char *func, const Ranged (&numbers)[N], blob_attr *const *tb, void *record, uint32_t &capa)
{
    for (const Ranged &r : numbers) {
        if (!take_ranged(func, r, tb[r.slot], record, capa))
            return false;
    }
    return true;
}

template <size_t N>
void emit_ranged(const Ranged (&numbers)[N], const void *record, uint32_t capa, blob_buf *buf)
{
    for (const Ranged &r : numbers) {
        if ((capa & r.sent_if) != 0)
            bx::emit_field(r.field, record, buf);
    }
}

/* Ping request */
enum { PING_HOST, PING_NUM, PING_TIMEOUT, PING_BLOCKSIZE, PING_CAPAFLAG, PING_PINGTIME, PING_PINGNUM, PING_MAX };
constexpr blobmsg_policy kPingPolicy[PING_MAX] = {
    /* PING_HOST */ {"host", BLOBMSG_TYPE_STRING},
    /* PING_NUM */ {"num", BLOBMSG_TYPE_INT32},
    /* PING_TIMEOUT */ {"timeout", BLOBMSG_TYPE_INT32},
    /* PING_BLOCKSIZE */ {"blocksize", BLOBMSG_TYPE_INT32},
    /* PING_CAPAFLAG */ {"capaflag", BLOBMSG_TYPE_INT32},
    /* PING_PINGTIME */ {"pingtime", BLOBMSG_TYPE_STRING},
    /* PING_PINGNUM */ {"pingnum", BLOBMSG_TYPE_INT32},
};

constexpr bx::Field kPingHost = BX_TEXT(PingRequest, szHost, "host", "Host:%s");
constexpr Ranged kPingNumbers[] = {
    {PING_NUM, BX_U32(PingRequest, uiNum, "num", "Num:%d"), 0, DIAG_CAPA_PING_NUM, DIAG_CAPA_PING_NUM,
     "[PING_NUM] is not valid."},
    {PING_TIMEOUT, BX_U32(PingRequest, uiTimeout, "timeout", "TimeOut:%d"), 0, DIAG_CAPA_TIMEOUT, DIAG_CAPA_TIMEOUT,
     "[PING_TIMEOUT] is not valid."},
    /* Quirk: sent with any low validity bit, not only its own. */
    {PING_BLOCKSIZE, BX_U32(PingRequest, uiBlockSize, "blocksize", "BlockSize:%d"), 1, DIAG_CAPA_BLOCKSIZE, kAnyLowBit,
     "[PING_BLOCKSIZE] is not valid."},
};
constexpr bx::Field kPingTime = BX_TEXT(PingRequest, szPingTime, "pingtime", "PingTime:%s");
constexpr bx::Field kPingCount = BX_U32(PingRequest, uiPingNum, "pingnum", "PingNum:%d");

/* Traceroute request */
enum { TR_HOST, TR_NUMOFTRIES, TR_TIMEOUT, TR_BLOCKSIZE, TR_MAXHOP, TR_RESULTTYPE, TR_CAPAFLAG, TR_MAX };
constexpr blobmsg_policy kTraceRoutePolicy[TR_MAX] = {
    /* TR_HOST */ {"host", BLOBMSG_TYPE_STRING},
    /* TR_NUMOFTRIES */ {"numoftries", BLOBMSG_TYPE_INT32},
    /* TR_TIMEOUT */ {"timeout", BLOBMSG_TYPE_INT32},
    /* TR_BLOCKSIZE */ {"blocksize", BLOBMSG_TYPE_INT32},
    /* TR_MAXHOP */ {"maxhop", BLOBMSG_TYPE_INT32},
    /* TR_RESULTTYPE */ {"resulttype", BLOBMSG_TYPE_INT32},
    /* TR_CAPAFLAG */ {"capaflag", BLOBMSG_TYPE_INT32},
};

constexpr bx::Field kTraceRouteHost = BX_TEXT(TraceRouteRequest, szHost, "host", "Host:%s");
constexpr bx::Field kTraceRouteResultType = BX_U32(TraceRouteRequest, uiResultType, "resulttype", "ResultType:%d");
constexpr Ranged kTraceRouteNumbers[] = {
    {TR_NUMOFTRIES, BX_U32(TraceRouteRequest, uiNumOfTries, "numoftries", "NumOftries:%d"), 0, DIAG_CAPA_NUMOFTRIES,
     DIAG_CAPA_NUMOFTRIES, "[TRACEROUTE_NUMOFTRIES] is not valid."},
    {TR_TIMEOUT, BX_U32(TraceRouteRequest, uiTimeout, "timeout", "TimeOut:%d"), 0, DIAG_CAPA_TIMEOUT,
     DIAG_CAPA_TIMEOUT, "[TRACEROUTE_TIMEOUT] is not valid."},
    {TR_BLOCKSIZE, BX_U32(TraceRouteRequest, uiBlockSize, "blocksize", "BlockSize:%d"), 1, DIAG_CAPA_BLOCKSIZE,
     DIAG_CAPA_BLOCKSIZE, "[TRACEROUTE_BLOCKSIZE] is not valid."},
    {TR_MAXHOP, BX_U32(TraceRouteRequest, uiMaxHop, "maxhop", "MaxHop:%d"), 1, DIAG_CAPA_MAXHOP,
     DIAG_CAPA_MAXHOP, "[TRACEROUTE_MAXHOP] is not valid."},
};

/* ---- Results and uplink modes (42 to 44) --------------------------------------- */

constexpr bx::Field kPingResult[] = {
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

constexpr bx::Field kTraceRouteResult[] = {
    BX_TEXT(TraceRouteResult, szResult, "result", "Result:%s"),
};

constexpr bx::Field kUplinkSupport[] = {
    BX_WORD(UplinkSupport, uiDhcp, EnumSwitch, "dhcp", "Dhcp:%d"),
    BX_WORD(UplinkSupport, uiStatic, EnumSwitch, "static", "Static:%d"),
    BX_WORD(UplinkSupport, uiPppoe, EnumSwitch, "pppoe", "Pppoe:%d"),
    BX_WORD(UplinkSupport, uiBridge, EnumSwitch, "bridge", "Bridge:%d"),
    BX_WORD(UplinkSupport, uiRepeater, EnumSwitch, "repeater", "Repeater:%d"),
};

} // namespace

extern "C" {

BX_API int STJ_Ping(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *rec = static_cast<const PingRequest *>(pvRecord);
    bx::emit_field(kPingHost, rec, pstBuf);
    emit_ranged(kPingNumbers, rec, rec->uiCapaFlag, pstBuf);
    bx::emit_field(kPingTime, rec, pstBuf);
    bx::emit_field(kPingCount, rec, pstBuf);
    return 0;
}

BX_API int JTS_Ping(struct blob_attr *pstMsg, void *pvRecord)
{
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<PingRequest *>(pvRecord);
    blob_attr *tb[PING_MAX];
    bx::parse(kPingPolicy, tb, pstMsg);
    if (!take_host(__func__, kPingHost, tb[PING_HOST], rec))
        return -1;
    if (!take_all_ranged(__func__, kPingNumbers, tb, rec, rec->uiCapaFlag))
        return -1;
    if (bx::present(kPingPolicy, tb, PING_PINGTIME))
        bx::store_field(__func__, kPingTime, tb[PING_PINGTIME], rec);
    if (bx::present(kPingPolicy, tb, PING_PINGNUM))
        bx::store_field(__func__, kPingCount, tb[PING_PINGNUM], rec);
    return 0;
}

BX_API int STJ_TraceRoute(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *rec = static_cast<const TraceRouteRequest *>(pvRecord);
    bx::emit_field(kTraceRouteHost, rec, pstBuf);
    bx::emit_field(kTraceRouteResultType, rec, pstBuf);
    emit_ranged(kTraceRouteNumbers, rec, rec->uiCapaFlag, pstBuf);
    return 0;
}

BX_API int JTS_TraceRoute(struct blob_attr *pstMsg, void *pvRecord)
{
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<TraceRouteRequest *>(pvRecord);
    blob_attr *tb[TR_MAX];
    bx::parse(kTraceRoutePolicy, tb, pstMsg);
    if (!take_host(__func__, kTraceRouteHost, tb[TR_HOST], rec))
        return -1;
    if (!take_all_ranged(__func__, kTraceRouteNumbers, tb, rec, rec->uiCapaFlag))
        return -1;
    /* Required, and looked at last: the numbers before it stay stored. */
    if (!bx::present(kTraceRoutePolicy, tb, TR_RESULTTYPE)) {
        BX_TRACE("[ResultType] is not valid.\n");
        return -1;
    }
    if (bx::get_u32(tb[TR_RESULTTYPE]) > 1) {
        /* Quirk: refused with the maxhop text. */
        BX_TRACE("[TRACEROUTE_MAXHOP] is not valid.\n");
        return -1;
    }
    bx::store_field(__func__, kTraceRouteResultType, tb[TR_RESULTTYPE], rec);
    return 0;
}

BX_API int STJ_Ping_Result(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kPingResult);
}

BX_API int JTS_PingResult(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::jts_fields(__func__, pstMsg, pvRecord, kPingResult);
}

BX_API int STJ_TraceRoute_Result(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *rec = static_cast<const TraceRouteResult *>(pvRecord);
    /* The daemon's output may fill the whole array: print no more than it. */
    BX_TRACE("STJ_TraceRoute_Result [%.*s] \n\n", static_cast<int>(sizeof rec->szResult), rec->szResult);
    return bx::stj_fields(pvRecord, pstBuf, kTraceRouteResult);
}

BX_API int JTS_TraceRouteResult(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::jts_fields(__func__, pstMsg, pvRecord, kTraceRouteResult);
}

BX_API int STJ_UplinkSupport(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kUplinkSupport);
}

BX_API int JTS_UplinkSupport(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::jts_fields(__func__, pstMsg, pvRecord, kUplinkSupport);
}

} // extern "C"
