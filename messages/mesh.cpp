/* Mesh role, roaming between nodes, the backhaul network and the topology.
 *
 * Every key is optional in both directions: an absent key is traced and its
 * field left as the caller set it. */
#include <cstring>

#include "core/codec.h"

namespace {

using bx::Field;

constexpr Field kRole[] = {
    BX_WORD(MeshRoleParam, eRole, EnumMeshRole, "role", "role:%d"),
};

constexpr Field kRoaming[] = {
    BX_WORD(MeshRoamingParam, eStatus, EnumSwitch, "status", "status:%d"),
    BX_S32(MeshRoamingParam, iRssiThreshold, "thresholdrssi", "thresholdrssi:%d"),
};

constexpr Field kBackhaul[] = {
    BX_WORD(BackhaulBssParam, eRadio, EnumBand, "radio", "radio:%u"),
    BX_TEXT(BackhaulBssParam, szSsid, "ssid", "ssid:%s"),
    BX_TEXT(BackhaulBssParam, szPassword, "password", "password:%s"),
    BX_WORD(BackhaulBssParam, eAuthMode, EnumAuthMode, "authmode", "authmode:%d"),
    BX_WORD(BackhaulBssParam, eCipher, EnumCipher, "cipher", "cipher:%d"),
};

constexpr Field kNode[] = {
    BX_TEXT(TopoNodeEntry, szMac, "mac", "mac:%s"),
    BX_TEXT(TopoNodeEntry, szParentMac, "parentmac", "parentmac:%s"),
    BX_WORD(TopoNodeEntry, eRole, EnumMeshRole, "role", "role:%d"),
    BX_WORD(TopoNodeEntry, eUplink, EnumUplinkMedium, "uplink", "uplink:%d"),
    BX_S32(TopoNodeEntry, iRssi, "rssi", "rssi:%d"),
    BX_TEXT(TopoNodeEntry, szIp, "ip", "ip:%s"),
};

constexpr Field kNodeEvent[] = {
    BX_TEXT(LocalMeshEventParam, szMac, "mac", "mac:%s"),
    BX_WORD(LocalMeshEventParam, eAction, EnumListAction, "action", "action:%d"),
};

constexpr Field kApMap[] = {
    BX_TEXT(TopoApMapParam, szMac, "mac", "mac:%s"),
    BX_TEXT(TopoApMapParam, szBssid2g, "bssid2g", "bssid2g:%s"),
    BX_TEXT(TopoApMapParam, szBssid5g, "bssid5g", "bssid5g:%s"),
};

enum { MAC_LIST, MAC_MAX };
constexpr blobmsg_policy kMacListPolicy[MAC_MAX] = {
    /* MAC_LIST */ {"maclist", BLOBMSG_TYPE_ARRAY},
};

} // namespace

extern "C" {

BX_FIELD_CONVERTERS(STJ_WifiMesh, JTS_WifiMesh, kRole)
BX_FIELD_CONVERTERS(STJ_WifiMeshRoaming, JTS_WifiMeshRoaming, kRoaming)
BX_FIELD_CONVERTERS(STJ_WifiBackhaulbss, JTS_WifiBackhaulbss, kBackhaul)
BX_LIST_CONVERTERS(STJ_WifiTopo, JTS_WifiTopo, WifiTopoParam, astNode, "topo", kNode)
BX_FIELD_CONVERTERS(STJ_WifiTopoAp_Map, JTS_WifiTopoAp_Map, kApMap)
BX_FIELD_CONVERTERS(STJ_WifiTopoChange, JTS_WifiTopoChange, kNodeEvent)

/* Only ever sent: the agent reports the event, nobody sends it to a node. */
BX_SENT_ROW(STJ_WifiLocalMesh_Event, kNodeEvent, ::bx::kNoMask)

/* Hand-written: the MACs go out as bare texts. */
/* "count", then "maclist": the MACs as bare texts. */
BX_API int STJ_WifiTopoMac(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *rec = static_cast<const TopoApMacParam *>(pvRecord);
    uint32_t count = rec->uiCount < WIFI_TOPO_MAX ? rec->uiCount : WIFI_TOPO_MAX;  // never past the array
    blobmsg_add_u32(pstBuf, "count", rec->uiCount);
    void *list = blobmsg_open_array(pstBuf, "maclist");
    for (uint32_t i = 0; i < count; ++i) {
        char mac[sizeof rec->aszMac[0] + 1] = {};
        std::memcpy(mac, rec->aszMac[i], sizeof rec->aszMac[i]);
        blobmsg_add_string(pstBuf, nullptr, mac);
    }
    blob_nest_end(pstBuf, list);
    return 0;
}

/* Hand-written: the MACs come as a list of bare texts. */
BX_API int JTS_WifiTopoMac(struct blob_attr *pstMsg, void *pvRecord)
{
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<TopoApMacParam *>(pvRecord);
    blob_attr *tb[MAC_MAX];
    bx::parse(kMacListPolicy, tb, pstMsg);
    if (!bx::present(kMacListPolicy, tb, MAC_LIST))
        return 0;
    uint32_t filled = 0;
    const char *func = __func__;  // inside the walk __func__ would name the lambda
    bx::for_each_elem(tb[MAC_LIST], [&](blob_attr *mac) {
        if (filled >= WIFI_TOPO_MAX)
            return false;
        if (blobmsg_type(mac) != BLOBMSG_TYPE_STRING)
            return true;
        bx::copy_text(rec->aszMac[filled], sizeof rec->aszMac[filled] - 1, mac);
        BX_TRACE_AS(func, "mac:%.*s\n", static_cast<int>(sizeof rec->aszMac[filled]), rec->aszMac[filled]);
        ++filled;
        return true;
    });
    rec->uiCount = filled;
    BX_TRACE("count:%u\n", rec->uiCount);
    return 0;
}

} // extern "C"
