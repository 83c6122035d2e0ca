/* Ethernet ports: how many LAN and WAN ports there are (45), and one port's
 * link state (46), traffic counters (47), rates (48), MAC address (49) and
 * up/down switch (50).
 *
 * Every key is optional on the way in and no value is refused: out-of-range
 * numbers and unknown words are stored as they come. */
#include <cstring>

#include "blobxlate.h"
#include "core/codec.h"

namespace {

using bx::Field;

/* The port's type and number open every per-port message. */
#define PORT_ID_FIELDS(Rec)                                              \
    BX_WORD(Rec, eType, EnumPortType, "type", "type:%d"),                \
    BX_U32(Rec, uiIndex, "index", "index:%d")

constexpr bx::FieldDef kPortStatusSource[] = {
    PORT_ID_FIELDS(PortStatus),
    BX_WORD(PortStatus, eLinkStatus, EnumLinkState, "linkstatus", "linkstatus:%d"),
    BX_WORD(PortStatus, eDuplex, EnumDuplex, "duplex", "duplex:%d"),
    BX_U32(PortStatus, uiNegRate, "negrate", "negrate:%d"),
};
BX_PACKED(kPortStatus);

/* Quirk: a stored "rxpackets" is traced with the transmit counter's label
 * and value. */
constexpr bx::FieldDef kTxPackets = BX_U64(PortTraffic, ulTxPackets, "txpackets", "txpackets:%lld");
constexpr bx::FieldDef kTxPacketsLineSource[] = {kTxPackets};
BX_PACKED(kTxPacketsLine);
bx::Read read_rx_packets(const bx::Reading &r, const Field &f, blob_attr *attr)
{
    bx::Read done = bx::read_slot(r, f, attr);
    if (attr != nullptr)
        bx::trace_field(r.func, kTxPacketsLine[0], nullptr, 0, static_cast<const PortTraffic *>(r.record)->ulTxPackets);
    return done;
}

constexpr bx::Quirk kRxPacketsRead{read_rx_packets, nullptr, "traced with the transmit counter's label and value"};

constexpr bx::FieldDef kPortTrafficSource[] = {
    PORT_ID_FIELDS(PortTraffic),
    BX_U64(PortTraffic, ulTxBytes, "txbytes", "ulTxBytes:%lld"),
    BX_U64(PortTraffic, ulRxBytes, "rxbytes", "ulRxBytes:%lld"),
    kTxPackets,
    BX_U64(PortTraffic, ulRxPackets, "rxpackets", nullptr, .quirk = &kRxPacketsRead),
    BX_U64(PortTraffic, ulTxErrors, "txerrors", "txerrors:%lld"),
    BX_U64(PortTraffic, ulRxErrors, "rxerrors", "rxerrors:%lld"),
    BX_U64(PortTraffic, ulTxDrops, "txdrops", "txdrops:%lld"),
    BX_U64(PortTraffic, ulRxDrops, "rxdrops", "rxdrops:%lld"),
};
BX_PACKED(kPortTraffic);

constexpr bx::FieldDef kPortRateSource[] = {
    PORT_ID_FIELDS(PortRate),
    BX_U32(PortRate, uiRxRate, "rxrate", "rxrate:%d"),
    BX_U32(PortRate, uiTxRate, "txrate", "txrate:%d"),
};
BX_PACKED(kPortRate);

constexpr bx::FieldDef kPortMacSource[] = {
    PORT_ID_FIELDS(PortMac),
    BX_TEXT(PortMac, szMac, "mac", "mac addr:%s"),
};
BX_PACKED(kPortMac);

/* This message's traces name the port in full. */
constexpr bx::FieldDef kPortUpDownSource[] = {
    BX_WORD(PortUpDown, eType, EnumPortType, "type", "port type:%d"),
    BX_U32(PortUpDown, uiIndex, "index", "port index:%d"),
    BX_U32(PortUpDown, uiActive, "active", "port active:%d"),
    BX_TEXT(PortUpDown, szPortIp, "port_ip", "port ip:%s"),
};
BX_PACKED(kPortUpDown);

#undef PORT_ID_FIELDS

/* ---- Port counts and numbers (45) --------------------------------------- */

/* Each list goes out as many numbers as its count says (never past the
 * array); the counts come first on the way in too, so that they bound the
 * lists, whether they came with this message or were left in the record
 * by the caller. */
constexpr bx::FieldDef kLanIndexSource[] = {BX_U32_ENTRY("lanindex:%d")};
BX_PACKED(kLanIndex);
constexpr bx::FieldDef kWanIndexSource[] = {BX_U32_ENTRY("wanindex:%d")};
BX_PACKED(kWanIndex);
/* Quirk: each number is read whatever its type and stored before the count
 * is tested, so a count of 0 still takes the first. */
constexpr bx::ListOf kLanIndexes =
    BX_VALUES(PortNum, auiLanIndex, kLanIndex, .count_at = offsetof(PortNum, uiLanNum), .bound = bx::Bound::CountAfter,
        .any_type = true);
constexpr bx::ListOf kWanIndexes =
    BX_VALUES(PortNum, auiWanIndex, kWanIndex, .count_at = offsetof(PortNum, uiWanNum), .bound = bx::Bound::CountAfter,
        .any_type = true);

constexpr bx::FieldDef kPortNumSource[] = {
    BX_U32(PortNum, uiLanNum, "lan", "lannum:%d"),
    BX_U32(PortNum, uiWanNum, "wan", "wannum:%d"),
    BX_LIST(PortNum, auiLanIndex, "lanindex", kLanIndexes, nullptr),
    BX_LIST(PortNum, auiWanIndex, "wanindex", kWanIndexes, nullptr),
};
BX_PACKED(kPortNum);

} // namespace

extern "C" {

/* ---- Port counts and numbers (45) --------------------------------------- */

BX_CONVERTERS(STJ_PortNum, JTS_PortNum, kPortNum)

/* ---- One port's link state (46) ----------------------------------------- */

BX_CONVERTERS(STJ_PortStatus, JTS_PortStatus, kPortStatus)

/* ---- One port's traffic counters (47) ----------------------------------- */

BX_CONVERTERS(STJ_PortTraffic, JTS_PortTraffic, kPortTraffic)

/* ---- One port's rates (48) ---------------------------------------------- */

BX_CONVERTERS(STJ_PortRate, JTS_PortRate, kPortRate)

/* ---- One port's MAC address (49) ---------------------------------------- */

BX_CONVERTERS(STJ_PortMAC, JTS_PortMAC, kPortMac)

/* ---- One port's up/down switch and address (50) ------------------------- */

BX_CONVERTERS(STJ_PortUpDown, JTS_PortUpDown, kPortUpDown)

} // extern "C"
