/* Ethernet ports: how many LAN and WAN ports there are (45), and one port's
 * link state (46), traffic counters (47), rates (48), MAC address (49) and
 * up/down switch (50).
 *
 * Every key is optional on the way in and no value is refused: out-of-range
 * numbers and unknown words are stored as they come. */
#include "blobxlate.h"
#include "core/codec.h"

namespace {

using bx::Field;

/* The port's type and number open every per-port message. */
#define PORT_ID_FIELDS(Rec)                                              \
    BX_WORD(Rec, eType, EnumPortType, "type", "type:%d"),                \
    BX_U32(Rec, uiIndex, "index", "index:%d")

constexpr Field kPortStatus[] = {
    PORT_ID_FIELDS(PortStatus),
    BX_WORD(PortStatus, eLinkStatus, EnumLinkState, "linkstatus", "linkstatus:%d"),
    BX_WORD(PortStatus, eDuplex, EnumDuplex, "duplex", "duplex:%d"),
    BX_U32(PortStatus, uiNegRate, "negrate", "negrate:%d"),
};

enum {
    TRAFFIC_TYPE, TRAFFIC_INDEX,
    TRAFFIC_TXBYTES, TRAFFIC_RXBYTES, TRAFFIC_TXPACKETS, TRAFFIC_RXPACKETS,
    TRAFFIC_TXERRORS, TRAFFIC_RXERRORS, TRAFFIC_TXDROPS, TRAFFIC_RXDROPS,
    TRAFFIC_MAX
};
constexpr Field kPortTraffic[TRAFFIC_MAX] = {
    PORT_ID_FIELDS(PortTraffic),
    BX_U64(PortTraffic, ulTxBytes, "txbytes", "ulTxBytes:%lld"),
    BX_U64(PortTraffic, ulRxBytes, "rxbytes", "ulRxBytes:%lld"),
    BX_U64(PortTraffic, ulTxPackets, "txpackets", "txpackets:%lld"),
    BX_U64(PortTraffic, ulRxPackets, "rxpackets", nullptr),  /* traced by JTS_PortTraffic */
    BX_U64(PortTraffic, ulTxErrors, "txerrors", "txerrors:%lld"),
    BX_U64(PortTraffic, ulRxErrors, "rxerrors", "rxerrors:%lld"),
    BX_U64(PortTraffic, ulTxDrops, "txdrops", "txdrops:%lld"),
    BX_U64(PortTraffic, ulRxDrops, "rxdrops", "rxdrops:%lld"),
};
constexpr auto kPortTrafficPolicy = bx::policy_of(kPortTraffic);

constexpr Field kPortRate[] = {
    PORT_ID_FIELDS(PortRate),
    BX_U32(PortRate, uiRxRate, "rxrate", "rxrate:%d"),
    BX_U32(PortRate, uiTxRate, "txrate", "txrate:%d"),
};

constexpr Field kPortMac[] = {
    PORT_ID_FIELDS(PortMac),
    BX_TEXT(PortMac, szMac, "mac", "mac addr:%s"),
};

/* This message's traces name the port in full. */
constexpr Field kPortUpDown[] = {
    BX_WORD(PortUpDown, eType, EnumPortType, "type", "port type:%d"),
    BX_U32(PortUpDown, uiIndex, "index", "port index:%d"),
    BX_U32(PortUpDown, uiActive, "active", "port active:%d"),
    BX_TEXT(PortUpDown, szPortIp, "port_ip", "port ip:%s"),
};

#undef PORT_ID_FIELDS

constexpr size_t kLanSlots = sizeof(PortNum::auiLanIndex) / sizeof(uint32_t);
constexpr size_t kWanSlots = sizeof(PortNum::auiWanIndex) / sizeof(uint32_t);

/* A list of port numbers as an array of unnamed numbers. */
void add_port_list(blob_buf *buf, const char *key, const uint32_t *slots, size_t capacity, uint32_t count)
{
    /* A caller's count above the array's slots must not read past them. */
    size_t n = count < capacity ? count : capacity;
    void *list = blobmsg_open_array(buf, key);
    for (size_t i = 0; i < n; ++i)
        blobmsg_add_u32(buf, nullptr, slots[i]);
    blob_nest_end(buf, list);
}

/* The port index lists: each number is traced as it is stored. */
constexpr bx::Field kLanIndex = BX_U32(PortNum, auiLanIndex, "lanindex", "lanindex:%d");
constexpr bx::Field kWanIndex = BX_U32(PortNum, auiWanIndex, "wanindex", "wanindex:%d");

/* Stores the list's numbers into the slots from the first, comparing with
 * the count only after each store. */
void store_port_list(const char *func, const bx::Field &index, blob_attr *list, uint32_t *slots, size_t capacity,
                     uint32_t count)
{
    size_t stored = 0;
    bx::for_each_elem(list, [&](blob_attr *elem) {
        slots[stored] = bx::get_u32(elem);
        bx::trace_field(func, index, nullptr, 0, slots[stored]);
        ++stored;
        /* Store-then-test: a count of 0 still takes the first number. The
         * slots bound the walk too, whatever count the sender gave. */
        return stored < count && stored < capacity;
    });
}

} // namespace

extern "C" {

/* ---- Port counts and numbers (45) --------------------------------------- */

/* Hand-written: two port lists, each bounded by its own count. */
BX_API int STJ_PortNum(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *rec = static_cast<const PortNum *>(pvRecord);
    blobmsg_add_u32(pstBuf, "lan", rec->uiLanNum);
    blobmsg_add_u32(pstBuf, "wan", rec->uiWanNum);
    add_port_list(pstBuf, "lanindex", rec->auiLanIndex, kLanSlots, rec->uiLanNum);
    add_port_list(pstBuf, "wanindex", rec->auiWanIndex, kWanSlots, rec->uiWanNum);
    return 0;
}

/* Hand-written: two port lists, each bounded by its own count, stored before the count is tested. */
BX_API int JTS_PortNum(struct blob_attr *pstMsg, void *pvRecord)
{
    enum { PN_LAN, PN_LANINDEX, PN_WAN, PN_WANINDEX, PN_MAX };
    static const blobmsg_policy policy[PN_MAX] = {
        /* PN_LAN      */ {"lan", BLOBMSG_TYPE_INT32},
        /* PN_LANINDEX */ {"lanindex", BLOBMSG_TYPE_ARRAY},
        /* PN_WAN      */ {"wan", BLOBMSG_TYPE_INT32},
        /* PN_WANINDEX */ {"wanindex", BLOBMSG_TYPE_ARRAY},
    };
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<PortNum *>(pvRecord);
    blob_attr *tb[PN_MAX];
    bx::parse(policy, tb, pstMsg);

    /* The counts come first: they bound the walks below, whether they came
     * with this message or were left in the record by the caller. */
    if (bx::present(policy, tb, PN_LAN)) {
        rec->uiLanNum = bx::get_u32(tb[PN_LAN]);
        BX_TRACE("lannum:%d\n", static_cast<int>(rec->uiLanNum));
    }
    if (bx::present(policy, tb, PN_WAN)) {
        rec->uiWanNum = bx::get_u32(tb[PN_WAN]);
        BX_TRACE("wannum:%d\n", static_cast<int>(rec->uiWanNum));
    }
    if (bx::present(policy, tb, PN_LANINDEX))
        store_port_list(__func__, kLanIndex, tb[PN_LANINDEX], rec->auiLanIndex, kLanSlots, rec->uiLanNum);
    if (!bx::present(policy, tb, PN_WANINDEX))
        return 0;
    store_port_list(__func__, kWanIndex, tb[PN_WANINDEX], rec->auiWanIndex, kWanSlots, rec->uiWanNum);
    return 0;
}

/* ---- One port's link state (46) ----------------------------------------- */

BX_FIELD_CONVERTERS(STJ_PortStatus, JTS_PortStatus, kPortStatus)

/* ---- One port's traffic counters (47) ----------------------------------- */

BX_SENT_ROW(STJ_PortTraffic, kPortTraffic, ::bx::kNoMask)

/* Hand-written: one stored counter is traced with another counter's label and value. */
BX_API int JTS_PortTraffic(struct blob_attr *pstMsg, void *pvRecord)
{
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<PortTraffic *>(pvRecord);
    blob_attr *tb[TRAFFIC_MAX];
    bx::parse(kPortTrafficPolicy.entries, tb, pstMsg);
    for (size_t slot = 0; slot < TRAFFIC_MAX; ++slot) {
        if (!bx::present(kPortTrafficPolicy.entries, tb, slot))
            continue;
        bx::store_field(__func__, kPortTraffic[slot], tb[slot], rec);
        /* Trace slip kept: "rxpackets" is traced with the transmit label and count. */
        if (slot == TRAFFIC_RXPACKETS)
            BX_TRACE("txpackets:%lld\n", static_cast<long long>(rec->ulTxPackets));
    }
    return 0;
}

/* ---- One port's rates (48) ---------------------------------------------- */

BX_FIELD_CONVERTERS(STJ_PortRate, JTS_PortRate, kPortRate)

/* ---- One port's MAC address (49) ---------------------------------------- */

BX_FIELD_CONVERTERS(STJ_PortMAC, JTS_PortMAC, kPortMac)

/* ---- One port's up/down switch and address (50) ------------------------- */

BX_FIELD_CONVERTERS(STJ_PortUpDown, JTS_PortUpDown, kPortUpDown)

} // extern "C"
