// The same conversions with json-c: objects built and serialised, text
// parsed and every key read into the record.
#include <cstdint>
#include <cstring>
#include <iterator>

#include <json-c/json.h>

#include "compare_data.h"

namespace bxbench {

namespace {

enum class How { Text, U32, S32, U64, Word };
struct Field {
    const char *key;
    How how;
    size_t offset, size;
    int kind;
};
#define TEXT(R, m, key) Field{key, How::Text, offsetof(R, m), sizeof(R::m), 0}
#define U32(R, m, key) Field{key, How::U32, offsetof(R, m), 4, 0}
#define S32(R, m, key) Field{key, How::S32, offsetof(R, m), 4, 0}
#define U64(R, m, key) Field{key, How::U64, offsetof(R, m), 8, 0}
#define WORD(R, m, kind, key) Field{key, How::Word, offsetof(R, m), 4, kind}

const Field kWan[] = {
    WORD(WanStatusInfo, eWorkMode, EnumWanMode, "workmode"), WORD(WanStatusInfo, eLinkStatus, EnumSwitch, "linkstatus"),
    TEXT(WanStatusInfo, szIp, "ip"), TEXT(WanStatusInfo, szSubMask, "submask"), TEXT(WanStatusInfo, szGwIp, "gwip"),
    TEXT(WanStatusInfo, szGwMac, "gwmac"), TEXT(WanStatusInfo, szDnsMaster, "dnsmaster"),
    TEXT(WanStatusInfo, szDnsSlave, "dnsslave"), U32(WanStatusInfo, uiDhcpRt, "dhcprt"), TEXT(WanStatusInfo, szMac, "mac"),
    U32(WanStatusInfo, uiConNum, "connum"), U32(WanStatusInfo, uiPortId, "portid"),
    U32(WanStatusInfo, uiLinkSpeed, "linkspeed"),
};

const Field kStation[] = {
    TEXT(StaEntry, szMac, "mac"), TEXT(StaEntry, szHostName, "hostname"), TEXT(StaEntry, szName, "name"),
    TEXT(StaEntry, szIp, "ip"), TEXT(StaEntry, szUpMac, "upmac"), WORD(StaEntry, eLinkType, EnumAccessMedium, "linktype"),
    U32(StaEntry, uiPort, "port"), TEXT(StaEntry, szSsid, "ssid"), WORD(StaEntry, bIsOnline, EnumBoolean, "isonline"),
    S32(StaEntry, iOnlineTime, "onlinetime"), U32(StaEntry, uiOnOffTimestamp, "onofftimestamp"),
    TEXT(StaEntry, szVmac, "vmac"), TEXT(StaEntry, szIpv6, "ipv6"), WORD(StaEntry, eType, EnumDeviceOs, "type"),
    TEXT(StaEntry, szBrand, "brand"), TEXT(StaEntry, szModel, "model"), U32(StaEntry, uiRxRate, "rxrate"),
    U32(StaEntry, uiTxRate, "txrate"), S32(StaEntry, iRssi, "rssi"), S32(StaEntry, iWeakRssi, "weakrssi"),
    U32(StaEntry, uiRxNegRate, "rxnegrate"), U32(StaEntry, uiTxNegRate, "txnegrate"),
    WORD(StaEntry, eDuplex, EnumDuplex, "duplex"), WORD(StaEntry, bAllowStorage, EnumBoolean, "allowstorage"),
    WORD(StaEntry, bAllowInternet, EnumBoolean, "allowinternet"), WORD(StaEntry, bAllowWifi, EnumBoolean, "allowwifi"),
    WORD(StaEntry, bFromWifi6, EnumBoolean, "fromwifi6"), U32(StaEntry, eMacStatus, "macstatus"),
    U64(StaEntry, uiRxBytes, "rxbytes"), U64(StaEntry, uiTxBytes, "txbytes"), U64(StaEntry, uiRxPackets, "rxpackets"),
    U64(StaEntry, uiTxPackets, "txpackets"), U64(StaEntry, uiTxRetryPackets, "txretrypackets"),
    U64(StaEntry, uiRxRetryPackets, "rxretrypackets"), U64(StaEntry, uiTxFailedPackets, "txfailedpackets"),
    U64(StaEntry, uiRxFailedPackets, "rxfailedpackets"), U64(StaEntry, uiTxDiscard, "txdiscard"),
};

json_object *value_of(const Field &f, const unsigned char *base)
{
    uint32_t u32;
    uint64_t u64;
    switch (f.how) {
    case How::Text:
        return json_object_new_string(reinterpret_cast<const char *>(base));
    case How::U64:
        std::memcpy(&u64, base, 8);
        return json_object_new_int64(static_cast<int64_t>(u64));
    case How::Word:
        std::memcpy(&u32, base, 4);
        return json_object_new_string(PARATRANS_Int_To_String(f.kind, static_cast<int>(u32)));
    default:
        std::memcpy(&u32, base, 4);
        return json_object_new_int64(f.how == How::S32 ? static_cast<int32_t>(u32) : u32);
    }
}

template <size_t N>
json_object *object_of(const Field (&fields)[N], const void *record)
{
    json_object *o = json_object_new_object();
    for (const Field &f : fields)
        json_object_object_add(o, f.key, value_of(f, static_cast<const unsigned char *>(record) + f.offset));
    return o;
}

void store(const Field &f, json_object *v, unsigned char *base)
{
    uint32_t u32;
    uint64_t u64;
    switch (f.how) {
    case How::Text:
        std::strncpy(reinterpret_cast<char *>(base), json_object_get_string(v), f.size - 1);
        return;
    case How::U64:
        u64 = static_cast<uint64_t>(json_object_get_int64(v));
        std::memcpy(base, &u64, 8);
        return;
    case How::Word:
        u32 = static_cast<uint32_t>(PARATRANS_String_To_Int(f.kind, const_cast<char *>(json_object_get_string(v))));
        break;
    default:
        u32 = static_cast<uint32_t>(json_object_get_int64(v));
        break;
    }
    std::memcpy(base, &u32, 4);
}

template <size_t N>
void read_object(const Field (&fields)[N], json_object *o, void *record)
{
    for (const Field &f : fields) {
        json_object *v;
        if (json_object_object_get_ex(o, f.key, &v))
            store(f, v, static_cast<unsigned char *>(record) + f.offset);
    }
}

} // namespace

json_object *jsonc_wan_tree(const WanStatusInfo &rec) { return object_of(kWan, &rec); }

json_object *jsonc_stations_tree(const StaListInfo &rec)
{
    json_object *root = json_object_new_object();
    json_object_object_add(root, "count", json_object_new_int64(rec.uiStaNumofEsps));
    json_object *list = json_object_new_array();
    for (uint32_t i = 0; i < rec.uiStaNumofEsps; ++i)
        json_object_array_add(list, object_of(kStation, &rec.pstListInfo[i]));
    json_object_object_add(root, "stalist", list);
    return root;
}

void jsonc_wan_to_record(const char *text, WanStatusInfo &rec)
{
    json_object *root = json_tokener_parse(text);
    read_object(kWan, root, &rec);
    json_object_put(root);
}

void jsonc_stations_to_record(const char *text, StaListInfo &rec)
{
    json_object *root = json_tokener_parse(text);
    json_object *list;
    if (json_object_object_get_ex(root, "stalist", &list)) {
        size_t n = json_object_array_length(list);
        for (size_t i = 0; i < n && i < rec.uiStaNumofEsps; ++i)
            read_object(kStation, json_object_array_get_idx(list, i), &rec.pstListInfo[i]);
    }
    json_object_put(root);
}

} // namespace bxbench
