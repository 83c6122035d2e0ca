#include "compare_data.h"

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <iterator>

#include <json-c/json.h>

namespace bxbench {

namespace {

const char *word(int kind, uint32_t number) { return PARATRANS_Int_To_String(kind, static_cast<int>(number)); }

#define PUT(dst, ...) std::snprintf(dst, sizeof dst, __VA_ARGS__)

void fill_station(StaEntry &e, unsigned i)
{
    PUT(e.szMac, "a4:5e:60:12:%02x:01", i);
    PUT(e.szHostName, "android-8f3c2b%04x", i);
    PUT(e.szName, "Living room tablet %u", i);
    PUT(e.szIp, "192.168.1.%u", 100 + i);
    PUT(e.szUpMac, "a4:5e:60:00:00:%02x", i % 3);
    PUT(e.szSsid, "HomeNet-5G-%u", i % 2);
    PUT(e.szVmac, "02:5e:60:12:%02x:01", i);
    PUT(e.szIpv6, "fe80::a65e:60ff:fe12:%04x", i);
    PUT(e.szBrand, "Brand%u", i % 5);
    PUT(e.szModel, "Model-%u", i);
    e.eLinkType = i % 3;
    e.uiPort = i % 4;
    e.bIsOnline = 1;
    e.iOnlineTime = static_cast<int32_t>(3600 + i);
    e.uiOnOffTimestamp = 1700000000u + i;
    e.eType = 1 + i % 4;
    e.uiRxRate = 866000 + i;
    e.uiTxRate = 433000 + i;
    e.iRssi = -40 - static_cast<int32_t>(i % 30);
    e.iWeakRssi = -80;
    e.uiRxNegRate = 1200;
    e.uiTxNegRate = 1200;
    e.eDuplex = 1 + i % 3;
    e.bAllowStorage = i % 2;
    e.bAllowInternet = 1;
    e.bAllowWifi = 1;
    e.bFromWifi6 = i % 2;
    e.eMacStatus = 0;
    uint64_t *counters[] = {&e.uiRxBytes, &e.uiTxBytes, &e.uiRxPackets, &e.uiTxPackets, &e.uiTxRetryPackets,
                            &e.uiRxRetryPackets, &e.uiTxFailedPackets, &e.uiRxFailedPackets, &e.uiTxDiscard};
    uint64_t v = 5000000000ull + i;
    for (uint64_t *c : counters)
        *c = v *= 3;
}

} // namespace

void fill_wan(WanStatusInfo &rec)
{
    rec = WanStatusInfo{};
    rec.eWorkMode = 2;
    rec.eLinkStatus = 1;
    std::strcpy(rec.szIp, "100.64.23.181");
    std::strcpy(rec.szSubMask, "255.255.255.0");
    std::strcpy(rec.szGwIp, "100.64.23.1");
    std::strcpy(rec.szGwMac, "00:1a:2b:3c:4d:5e");
    std::strcpy(rec.szDnsMaster, "202.96.128.86");
    std::strcpy(rec.szDnsSlave, "202.96.134.133");
    rec.uiDhcpRt = 86400;
    std::strcpy(rec.szMac, "a4:5e:60:12:34:57");
    rec.uiConNum = 312;
    rec.uiPortId = 4;
    rec.uiLinkSpeed = 1000;
}

void fill_stations(StaEntry (&list)[kStations])
{
    for (unsigned i = 0; i < kStations; ++i) {
        list[i] = StaEntry{};
        fill_station(list[i], i);
    }
}

/* ---- Bare libubox: record to tree ------------------------------------------ */

void bare_wan_to_tree(const WanStatusInfo &rec, blob_buf *buf)
{
    blobmsg_add_string(buf, "workmode", word(EnumWanMode, rec.eWorkMode));
    blobmsg_add_string(buf, "linkstatus", word(EnumSwitch, rec.eLinkStatus));
    blobmsg_add_string(buf, "ip", rec.szIp);
    blobmsg_add_string(buf, "submask", rec.szSubMask);
    blobmsg_add_string(buf, "gwip", rec.szGwIp);
    blobmsg_add_string(buf, "gwmac", rec.szGwMac);
    blobmsg_add_string(buf, "dnsmaster", rec.szDnsMaster);
    blobmsg_add_string(buf, "dnsslave", rec.szDnsSlave);
    blobmsg_add_u32(buf, "dhcprt", rec.uiDhcpRt);
    blobmsg_add_string(buf, "mac", rec.szMac);
    blobmsg_add_u32(buf, "connum", rec.uiConNum);
    blobmsg_add_u32(buf, "portid", rec.uiPortId);
    blobmsg_add_u32(buf, "linkspeed", rec.uiLinkSpeed);
}

namespace {

void bare_station_to_tree(const StaEntry &e, blob_buf *b)
{
    blobmsg_add_string(b, "mac", e.szMac);
    blobmsg_add_string(b, "hostname", e.szHostName);
    blobmsg_add_string(b, "name", e.szName);
    blobmsg_add_string(b, "ip", e.szIp);
    blobmsg_add_string(b, "upmac", e.szUpMac);
    blobmsg_add_string(b, "linktype", word(EnumAccessMedium, e.eLinkType));
    blobmsg_add_u32(b, "port", e.uiPort);
    blobmsg_add_string(b, "ssid", e.szSsid);
    blobmsg_add_string(b, "isonline", word(EnumBoolean, e.bIsOnline));
    blobmsg_add_u32(b, "onlinetime", static_cast<uint32_t>(e.iOnlineTime));
    blobmsg_add_u32(b, "onofftimestamp", e.uiOnOffTimestamp);
    blobmsg_add_string(b, "vmac", e.szVmac);
    blobmsg_add_string(b, "ipv6", e.szIpv6);
    blobmsg_add_string(b, "type", word(EnumDeviceOs, e.eType));
    blobmsg_add_string(b, "brand", e.szBrand);
    blobmsg_add_string(b, "model", e.szModel);
    blobmsg_add_u32(b, "rxrate", e.uiRxRate);
    blobmsg_add_u32(b, "txrate", e.uiTxRate);
    blobmsg_add_u32(b, "rssi", static_cast<uint32_t>(e.iRssi));
    blobmsg_add_u32(b, "weakrssi", static_cast<uint32_t>(e.iWeakRssi));
    blobmsg_add_u32(b, "rxnegrate", e.uiRxNegRate);
    blobmsg_add_u32(b, "txnegrate", e.uiTxNegRate);
    blobmsg_add_string(b, "duplex", word(EnumDuplex, e.eDuplex));
    blobmsg_add_string(b, "allowstorage", word(EnumBoolean, e.bAllowStorage));
    blobmsg_add_string(b, "allowinternet", word(EnumBoolean, e.bAllowInternet));
    blobmsg_add_string(b, "allowwifi", word(EnumBoolean, e.bAllowWifi));
    blobmsg_add_string(b, "fromwifi6", word(EnumBoolean, e.bFromWifi6));
    blobmsg_add_u32(b, "macstatus", e.eMacStatus);
    blobmsg_add_u64(b, "rxbytes", e.uiRxBytes);
    blobmsg_add_u64(b, "txbytes", e.uiTxBytes);
    blobmsg_add_u64(b, "rxpackets", e.uiRxPackets);
    blobmsg_add_u64(b, "txpackets", e.uiTxPackets);
    blobmsg_add_u64(b, "txretrypackets", e.uiTxRetryPackets);
    blobmsg_add_u64(b, "rxretrypackets", e.uiRxRetryPackets);
    blobmsg_add_u64(b, "txfailedpackets", e.uiTxFailedPackets);
    blobmsg_add_u64(b, "rxfailedpackets", e.uiRxFailedPackets);
    blobmsg_add_u64(b, "txdiscard", e.uiTxDiscard);
}

} // namespace

void bare_stations_to_tree(const StaListInfo &rec, blob_buf *buf)
{
    blobmsg_add_u32(buf, "count", rec.uiStaNumofEsps);
    void *list = blobmsg_open_array(buf, "stalist");
    for (uint32_t i = 0; i < rec.uiStaNumofEsps; ++i) {
        void *entry = blobmsg_open_table(buf, nullptr);
        bare_station_to_tree(rec.pstListInfo[i], buf);
        blob_nest_end(buf, entry);
    }
    blob_nest_end(buf, list);
}

/* ---- Bare libubox: tree to record -------------------------------------------- */

namespace {

template <size_t N>
void text(blob_attr *a, char (&dst)[N])
{
    if (a != nullptr)
        std::strncpy(dst, blobmsg_get_string(a), N - 1);
}
template <typename T>
void number(blob_attr *a, T &dst)
{
    if (a != nullptr)
        dst = static_cast<T>(blobmsg_get_u32(a));
}
void number64(blob_attr *a, uint64_t &dst)
{
    if (a != nullptr)
        dst = blobmsg_get_u64(a);
}
void word(blob_attr *a, int kind, uint32_t &dst)
{
    if (a != nullptr)
        dst = static_cast<uint32_t>(PARATRANS_String_To_Int(kind, blobmsg_get_string(a)));
}

const blobmsg_policy kWanPolicy[] = {
    {"workmode", BLOBMSG_TYPE_STRING}, {"linkstatus", BLOBMSG_TYPE_STRING}, {"ip", BLOBMSG_TYPE_STRING},
    {"submask", BLOBMSG_TYPE_STRING},  {"gwip", BLOBMSG_TYPE_STRING},       {"gwmac", BLOBMSG_TYPE_STRING},
    {"dnsmaster", BLOBMSG_TYPE_STRING}, {"dnsslave", BLOBMSG_TYPE_STRING},  {"dhcprt", BLOBMSG_TYPE_INT32},
    {"mac", BLOBMSG_TYPE_STRING},      {"connum", BLOBMSG_TYPE_INT32},      {"portid", BLOBMSG_TYPE_INT32},
    {"linkspeed", BLOBMSG_TYPE_INT32},
};

using PolicyType = decltype(blobmsg_policy::type);
constexpr PolicyType S = BLOBMSG_TYPE_STRING, I = BLOBMSG_TYPE_INT32, L = BLOBMSG_TYPE_INT64;
const blobmsg_policy kStaPolicy[] = {
    {"mac", S}, {"hostname", S}, {"name", S}, {"ip", S}, {"upmac", S}, {"linktype", S}, {"port", I},
    {"ssid", S}, {"isonline", S}, {"onlinetime", I}, {"onofftimestamp", I}, {"vmac", S}, {"ipv6", S},
    {"type", S}, {"brand", S}, {"model", S}, {"rxrate", I}, {"txrate", I}, {"rssi", I}, {"weakrssi", I},
    {"rxnegrate", I}, {"txnegrate", I}, {"duplex", S}, {"allowstorage", S}, {"allowinternet", S},
    {"allowwifi", S}, {"macstatus", I}, {"fromwifi6", S}, {"rxbytes", L}, {"txbytes", L}, {"rxpackets", L},
    {"txpackets", L}, {"txretrypackets", L}, {"rxretrypackets", L}, {"txfailedpackets", L},
    {"rxfailedpackets", L}, {"txdiscard", L},
};
constexpr int kStaKeys = static_cast<int>(std::size(kStaPolicy));

void bare_station_to_record(blob_attr *elem, StaEntry &e)
{
    blob_attr *tb[kStaKeys];
    blobmsg_parse(kStaPolicy, kStaKeys, tb, blobmsg_data(elem), blobmsg_data_len(elem));
    text(tb[0], e.szMac); text(tb[1], e.szHostName); text(tb[2], e.szName); text(tb[3], e.szIp);
    text(tb[4], e.szUpMac); word(tb[5], EnumAccessMedium, e.eLinkType); number(tb[6], e.uiPort);
    text(tb[7], e.szSsid); word(tb[8], EnumBoolean, e.bIsOnline); number(tb[9], e.iOnlineTime);
    number(tb[10], e.uiOnOffTimestamp); text(tb[11], e.szVmac); text(tb[12], e.szIpv6);
    word(tb[13], EnumDeviceOs, e.eType); text(tb[14], e.szBrand); text(tb[15], e.szModel);
    number(tb[16], e.uiRxRate); number(tb[17], e.uiTxRate); number(tb[18], e.iRssi); number(tb[19], e.iWeakRssi);
    number(tb[20], e.uiRxNegRate); number(tb[21], e.uiTxNegRate); word(tb[22], EnumDuplex, e.eDuplex);
    word(tb[23], EnumBoolean, e.bAllowStorage); word(tb[24], EnumBoolean, e.bAllowInternet);
    word(tb[25], EnumBoolean, e.bAllowWifi); number(tb[26], e.eMacStatus); word(tb[27], EnumBoolean, e.bFromWifi6);
    number64(tb[28], e.uiRxBytes); number64(tb[29], e.uiTxBytes); number64(tb[30], e.uiRxPackets);
    number64(tb[31], e.uiTxPackets); number64(tb[32], e.uiTxRetryPackets); number64(tb[33], e.uiRxRetryPackets);
    number64(tb[34], e.uiTxFailedPackets); number64(tb[35], e.uiRxFailedPackets); number64(tb[36], e.uiTxDiscard);
}

} // namespace

void bare_wan_to_record(blob_attr *msg, WanStatusInfo &rec)
{
    blob_attr *tb[std::size(kWanPolicy)];
    blobmsg_parse(kWanPolicy, static_cast<int>(std::size(kWanPolicy)), tb, blob_data(msg), blob_len(msg));
    word(tb[0], EnumWanMode, rec.eWorkMode); word(tb[1], EnumSwitch, rec.eLinkStatus);
    text(tb[2], rec.szIp); text(tb[3], rec.szSubMask); text(tb[4], rec.szGwIp); text(tb[5], rec.szGwMac);
    text(tb[6], rec.szDnsMaster); text(tb[7], rec.szDnsSlave); number(tb[8], rec.uiDhcpRt);
    text(tb[9], rec.szMac); number(tb[10], rec.uiConNum); number(tb[11], rec.uiPortId);
    number(tb[12], rec.uiLinkSpeed);
}

void bare_stations_to_record(blob_attr *msg, StaListInfo &rec)
{
    static const blobmsg_policy list_policy[] = {{"count", BLOBMSG_TYPE_INT32}, {"stalist", BLOBMSG_TYPE_ARRAY}};
    blob_attr *tb[2];
    blobmsg_parse(list_policy, 2, tb, blob_data(msg), blob_len(msg));
    if (tb[1] == nullptr)
        return;
    uint32_t n = 0;
    blob_attr *elem;
    size_t rem;
    blobmsg_for_each_attr(elem, tb[1], rem) {
        if (n == rec.uiStaNumofEsps)
            break;
        bare_station_to_record(elem, rec.pstListInfo[n++]);
    }
}

} // namespace bxbench
