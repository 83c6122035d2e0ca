/* WAN status and configuration: the WAN daemon's status report (22), the
 * IPv6 switch (23) and status report (24), and the three ways of reaching
 * the upstream network: DHCP (25), a static address (26) and PPPoE (27).
 *
 * The status reports always carry every key. The static and PPPoE
 * configurations carry only the fields whose validity bit is set in
 * uiCapaFlag: a receiver sets the bit of each field it stores and never
 * clears the word, and the "capaflag" key itself is never read, so a sender
 * cannot set the word directly. */
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "blobxlate.h"
#include "core/codec.h"

namespace {

/* ---- WAN status report (22) --------------------------------------------- */

constexpr bx::FieldDef kWanStatusSource[] = {
    BX_WORD(WanStatusInfo, eWorkMode, EnumWanMode, "workmode", "WorkMode:%d"),
    BX_WORD(WanStatusInfo, eLinkStatus, EnumSwitch, "linkstatus", "LinkStates:%d"),
    BX_TEXT(WanStatusInfo, szIp, "ip", "IP:%s"),
    BX_TEXT(WanStatusInfo, szSubMask, "submask", "SubMask:%s"),
    BX_TEXT(WanStatusInfo, szGwIp, "gwip", "GwIP:%s"),
    BX_TEXT(WanStatusInfo, szGwMac, "gwmac", "GwMac:%s"),
    BX_TEXT(WanStatusInfo, szDnsMaster, "dnsmaster", "DnsMaster:%s"),
    BX_TEXT(WanStatusInfo, szDnsSlave, "dnsslave", "DnsSlave:%s"),
    BX_U32(WanStatusInfo, uiDhcpRt, "dhcprt", "DhcRt:%d"),
    BX_TEXT(WanStatusInfo, szMac, "mac", "Mac:%s"),
    BX_U32(WanStatusInfo, uiConNum, "connum", "ConNum:%d"),
    BX_U32(WanStatusInfo, uiPortId, "portid", "PortId:%d"),
    BX_U32(WanStatusInfo, uiLinkSpeed, "linkspeed", "Linkspeed:%u"),
};
BX_PACKED(kWanStatus);

/* ---- IPv6 switch (23) and status report (24) ------------------------------ */

/* The switch is the whole message: without it there is nothing to do. */
constexpr bx::FieldDef kIpv6SwitchSource[] = {
    BX_WORD(Ipv6Switch, uiEnable, EnumSwitch, "IPv6status", "ipv6Switch:%d", .required = true,
        .absent = "ipv6Switch is not valid"),
};
BX_PACKED(kIpv6Switch);

constexpr bx::FieldDef kIpv6InfoSource[] = {
    BX_WORD(Ipv6Info, uiEnable, EnumSwitch, "IPv6enable", "IPv6 Status: %d"),
    BX_WORD(Ipv6Info, uiConnectStatus, EnumConnected, "connectstatus", "IPv6 Connect Status: %d"),
    BX_TEXT(Ipv6Info, szIpAddr, "IPaddr", "IPv6 Address: %s"),
    BX_TEXT(Ipv6Info, szPrefix, "prefix", "IPv6 Prefix: %s"),
    BX_U32(Ipv6Info, uiPrefixLen, "prefixlen", "IPv6 Prefix Len: %d"),
    BX_TEXT(Ipv6Info, szGateway, "gateway", "IPv6 Gw: %s"),
    BX_TEXT(Ipv6Info, szDns1, "dns1", "IPv6 Dns1: %s"),
    BX_TEXT(Ipv6Info, szDns2, "dns2", "IPv6 Dns2: %s"),
    BX_WORD(Ipv6Info, uiIpAddrOrigin, EnumIpv6AddrMode, "IPaddrorigin", "IPv6 Address Origin: %d"),
    BX_WORD(Ipv6Info, uiPdFlag, EnumBoolean, "pdflag", "IPv6 PD Flag: %d"),
    BX_WORD(Ipv6Info, uiPrefixOrigin, EnumIpv6PrefixMode, "prefixorigin", "IPv6 Prefix Origin: %d"),
    BX_U32(Ipv6Info, uiPrefixPlTime, "prefixpltime", "IPv6 PD Preferred Life Time: %d"),
    BX_U32(Ipv6Info, uiPrefixVlTime, "prefixvltime", "IPv6 PD Valid Life Time: %d"),
    BX_WORD(Ipv6Info, uiDsLite, EnumBoolean, "dslite", "IPv6 DS-Lite Flag: %d"),
};
BX_PACKED(kIpv6Info);

/* ---- DHCP configuration (25) ------------------------------------------------ */

constexpr bx::FieldDef kDhcpSource[] = {
    BX_U32(WanDhcpConfig, uiMtu, "mtu", "MTU:%d"),
};
BX_PACKED(kDhcp);

/* ---- Configurations with validity bits (26, 27) ------------------------------ */

/* Static address: storing a field sets its validity bit in uiCapaFlag; it is
 * sent while uiCapaFlag has that bit. Policy order and sending order are the
 * same. */
constexpr bx::FieldDef kStaticSource[] = {
    BX_TEXT(WanStaticConfig, szIp, "ip", "IP:%s", .bit = WAN_CAPA_IP),
    BX_TEXT(WanStaticConfig, szSubMask, "submask", "SubMask:%s", .bit = WAN_CAPA_SUBMASK),
    BX_TEXT(WanStaticConfig, szGwIp, "gwip", "GwIP:%s", .bit = WAN_CAPA_GW_IP),
    BX_U32(WanStaticConfig, uiMtu, "mtu", "MTU:%d", .bit = WAN_CAPA_MTU),
    BX_TEXT(WanStaticConfig, szDnsMaster, "dnsmaster", "DnsMaster:%s", .bit = WAN_CAPA_DNS_MASTER),
    /* Quirk: sent with any low validity bit, not only its own (maybe as ""). */
    BX_TEXT(WanStaticConfig, szDnsSlave, "dnsslave", "DnsSlave:%s", .bit = WAN_CAPA_DNS_SLAVE,
        .sent_if = bx::kAnyLowBit),
    /* Looked for like every key, never read: a sender cannot set the word. */
    BX_U32(WanStaticConfig, uiCapaFlag, "capaflag", nullptr, .use = bx::Use::Listed),
};
BX_PACKED(kStatic);

/* PPPoE, in sending order (receivers have "mtu" third). */
constexpr bx::FieldDef kPppoeSentSource[] = {
    BX_TEXT(WanPppoeConfig, szUser, "user", nullptr, .bit = WAN_CAPA_PPPOE_USER),
    BX_TEXT(WanPppoeConfig, szPwd, "pwd", nullptr, .bit = WAN_CAPA_PPPOE_PWD),
    BX_TEXT(WanPppoeConfig, szServer, "server", nullptr, .bit = WAN_CAPA_PPPOE_SERVER),
    BX_TEXT(WanPppoeConfig, szService, "service", nullptr, .bit = WAN_CAPA_PPPOE_SERVICE),
    /* Quirk: sent with any low validity bit, not only its own. */
    BX_U32(WanPppoeConfig, uiMtu, "mtu", nullptr, .bit = WAN_CAPA_MTU, .sent_if = bx::kAnyLowBit),
};
BX_PACKED(kPppoeSent);

/* Quirk: the server's trace line shows the password. */
constexpr bx::FieldDef kServerLineSource[] = {BX_TEXT(WanPppoeConfig, szPwd, "pwd", "PppoeServer:%s")};
BX_PACKED(kServerLine);
bx::Read read_server(const bx::Reading &r, const bx::Field &f, blob_attr *attr)
{
    bx::Read done = bx::read_slot(r, f, attr);
    const char *pwd = static_cast<const WanPppoeConfig *>(r.record)->szPwd;
    if (attr != nullptr)
        bx::trace_field(r.func, kServerLine[0], pwd, strnlen(pwd, sizeof(WanPppoeConfig::szPwd)), 0);
    return done;
}

constexpr bx::Quirk kServerShowsPwd{read_server, nullptr, "traced with the password's value"};

/* PPPoE as received, "mtu" third. Quirk: the texts are copied with their
 * whole array, so 32 characters or more leave no terminator. */
#define PPPOE_TEXT(m, key_, trace_, bit_, ...) \
    BX_TEXT(WanPppoeConfig, m, key_, trace_, .whole = true, .bit = bit_, __VA_ARGS__)
constexpr bx::FieldDef kPppoeReceivedSource[] = {
    PPPOE_TEXT(szUser, "user", "PppoeUser:%s", WAN_CAPA_PPPOE_USER),
    PPPOE_TEXT(szPwd, "pwd", "PppoePwd:%s", WAN_CAPA_PPPOE_PWD),
    BX_U32(WanPppoeConfig, uiMtu, "mtu", "MTU:%d", .bit = WAN_CAPA_MTU),
    PPPOE_TEXT(szServer, "server", nullptr, WAN_CAPA_PPPOE_SERVER, .quirk = &kServerShowsPwd),
    PPPOE_TEXT(szService, "service", "PppoeService:%s", WAN_CAPA_PPPOE_SERVICE),
    /* Looked for like every key, never read. */
    BX_U32(WanPppoeConfig, uiCapaFlag, "capaflag", nullptr, .use = bx::Use::Listed),
};
BX_PACKED(kPppoeReceived);
#undef PPPOE_TEXT

} // namespace

extern "C" {

BX_CONVERTERS(STJ_WanStatus, JTS_WanStatus, kWanStatus)

BX_CONVERTERS(STJ_IPv6Enable, JTS_IPv6Enable, kIpv6Switch)

BX_CONVERTERS(STJ_IPv6Info, JTS_IPv6Info, kIpv6Info)

BX_CONVERTERS(STJ_Dhcp, JTS_Dhcp, kDhcp)

BX_CONVERTERS(STJ_Static, JTS_Static, kStatic, offsetof(WanStaticConfig, uiCapaFlag))

BX_SENT_ROW(STJ_Pppoe, kPppoeSent, ::bx::mask_at(offsetof(WanPppoeConfig, uiCapaFlag)))
BX_RECEIVED_ROW(JTS_Pppoe, kPppoeReceived, ::bx::mask_at(offsetof(WanPppoeConfig, uiCapaFlag)))

} // extern "C"
