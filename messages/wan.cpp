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

#include "blobxlate.h"
#include "core/codec.h"

namespace {

/* ---- WAN status report (22) --------------------------------------------- */

constexpr bx::Field kWanStatus[] = {
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

/* ---- IPv6 switch (23) and status report (24) ------------------------------ */

/* The switch is the whole message: without it there is nothing to do. */
constexpr bx::Field kIpv6Switch[] = {
    bx::required(BX_WORD(Ipv6Switch, uiEnable, EnumSwitch, "IPv6status", "ipv6Switch:%d"), "ipv6Switch is not valid"),
};

constexpr bx::Field kIpv6Info[] = {
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

/* ---- DHCP configuration (25) ------------------------------------------------ */

constexpr bx::Field kDhcp[] = {
    BX_U32(WanDhcpConfig, uiMtu, "mtu", "MTU:%d"),
};

/* ---- Configurations with validity bits (26, 27) ------------------------------ */

/* Static address: storing a field sets its validity bit in uiCapaFlag; it is
 * sent while uiCapaFlag has that bit. Policy order and sending order are the
 * same. */
constexpr bx::Field kStatic[] = {
    bx::flagged(BX_TEXT(WanStaticConfig, szIp, "ip", "IP:%s"), WAN_CAPA_IP),
    bx::flagged(BX_TEXT(WanStaticConfig, szSubMask, "submask", "SubMask:%s"), WAN_CAPA_SUBMASK),
    bx::flagged(BX_TEXT(WanStaticConfig, szGwIp, "gwip", "GwIP:%s"), WAN_CAPA_GW_IP),
    bx::flagged(BX_U32(WanStaticConfig, uiMtu, "mtu", "MTU:%d"), WAN_CAPA_MTU),
    bx::flagged(BX_TEXT(WanStaticConfig, szDnsMaster, "dnsmaster", "DnsMaster:%s"), WAN_CAPA_DNS_MASTER),
    /* Quirk: sent with any low validity bit, not only its own (maybe as ""). */
    bx::flagged(BX_TEXT(WanStaticConfig, szDnsSlave, "dnsslave", "DnsSlave:%s"), WAN_CAPA_DNS_SLAVE, bx::kAnyLowBit),
    /* Looked for like every key, never read: a sender cannot set the word. */
    bx::listed_only(BX_U32(WanStaticConfig, uiCapaFlag, "capaflag", nullptr)),
};

/* PPPoE, in sending order (the policy below has "mtu" third). */
constexpr bx::Field kPppoeSent[] = {
    bx::flagged(BX_TEXT(WanPppoeConfig, szUser, "user", nullptr), WAN_CAPA_PPPOE_USER),
    bx::flagged(BX_TEXT(WanPppoeConfig, szPwd, "pwd", nullptr), WAN_CAPA_PPPOE_PWD),
    bx::flagged(BX_TEXT(WanPppoeConfig, szServer, "server", nullptr), WAN_CAPA_PPPOE_SERVER),
    bx::flagged(BX_TEXT(WanPppoeConfig, szService, "service", nullptr), WAN_CAPA_PPPOE_SERVICE),
    /* Quirk: sent with any low validity bit, not only its own. */
    bx::flagged(BX_U32(WanPppoeConfig, uiMtu, "mtu", nullptr), WAN_CAPA_MTU, bx::kAnyLowBit),
};

enum { PPPOE_USER, PPPOE_PWD, PPPOE_MTU, PPPOE_SERVER, PPPOE_SERVICE, PPPOE_CAPAFLAG, PPPOE_MAX };
constexpr blobmsg_policy kPppoePolicy[PPPOE_MAX] = {
    /* PPPOE_USER */ {"user", BLOBMSG_TYPE_STRING},
    /* PPPOE_PWD */ {"pwd", BLOBMSG_TYPE_STRING},
    /* PPPOE_MTU */ {"mtu", BLOBMSG_TYPE_INT32},
    /* PPPOE_SERVER */ {"server", BLOBMSG_TYPE_STRING},
    /* PPPOE_SERVICE */ {"service", BLOBMSG_TYPE_STRING},
    /* PPPOE_CAPAFLAG */ {"capaflag", BLOBMSG_TYPE_INT32},
};

/* The PPPoE texts may fill their whole array; traces print no more than it. */
constexpr int kAccountLen = static_cast<int>(sizeof(WanPppoeConfig::szUser));

/* Stores one PPPoE account text and sets its validity bit. Quirk: the copy
 * takes the whole array, so 33 characters or more leave no terminator. */
void take_account(char (&field)[sizeof(WanPppoeConfig::szUser)], blob_attr *attr, uint32_t &capa, uint32_t bit)
{
    bx::copy_text(field, sizeof field, attr);
    capa |= bit;
}

} // namespace

extern "C" {

BX_FIELD_CONVERTERS(STJ_WanStatus, JTS_WanStatus, kWanStatus)

BX_FIELD_CONVERTERS(STJ_IPv6Enable, JTS_IPv6Enable, kIpv6Switch)

BX_FIELD_CONVERTERS(STJ_IPv6Info, JTS_IPv6Info, kIpv6Info)

BX_FIELD_CONVERTERS(STJ_Dhcp, JTS_Dhcp, kDhcp)

BX_MASKED_CONVERTERS(STJ_Static, JTS_Static, WanStaticConfig, uiCapaFlag, kStatic, kStatic)

BX_SENT_ROW(STJ_Pppoe, kPppoeSent, static_cast<int>(offsetof(WanPppoeConfig, uiCapaFlag)))

/* Hand-written: the server's trace line shows the password. */
BX_API int JTS_Pppoe(struct blob_attr *pstMsg, void *pvRecord)
{
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<WanPppoeConfig *>(pvRecord);
    blob_attr *tb[PPPOE_MAX];
    bx::parse(kPppoePolicy, tb, pstMsg);
    if (bx::present(kPppoePolicy, tb, PPPOE_USER)) {
        take_account(rec->szUser, tb[PPPOE_USER], rec->uiCapaFlag, WAN_CAPA_PPPOE_USER);
        BX_TRACE("PppoeUser:%.*s\n", kAccountLen, rec->szUser);
    }
    if (bx::present(kPppoePolicy, tb, PPPOE_PWD)) {
        take_account(rec->szPwd, tb[PPPOE_PWD], rec->uiCapaFlag, WAN_CAPA_PPPOE_PWD);
        BX_TRACE("PppoePwd:%.*s\n", kAccountLen, rec->szPwd);
    }
    if (bx::present(kPppoePolicy, tb, PPPOE_MTU)) {
        rec->uiMtu = bx::get_u32(tb[PPPOE_MTU]);
        rec->uiCapaFlag |= WAN_CAPA_MTU;
        BX_TRACE("MTU:%d\n", static_cast<int>(rec->uiMtu));
    }
    if (bx::present(kPppoePolicy, tb, PPPOE_SERVER)) {
        take_account(rec->szServer, tb[PPPOE_SERVER], rec->uiCapaFlag, WAN_CAPA_PPPOE_SERVER);
        /* Quirk: the server's trace line shows the password. */
        BX_TRACE("PppoeServer:%.*s\n", kAccountLen, rec->szPwd);
    }
    if (bx::present(kPppoePolicy, tb, PPPOE_SERVICE)) {
        take_account(rec->szService, tb[PPPOE_SERVICE], rec->uiCapaFlag, WAN_CAPA_PPPOE_SERVICE);
        BX_TRACE("PppoeService:%.*s\n", kAccountLen, rec->szService);
    }
    /* Looked for like every key, never read. */
    (void)bx::present(kPppoePolicy, tb, PPPOE_CAPAFLAG);
    return 0;
}

} // extern "C"
