/* Mesh role, roaming between nodes, the backhaul network and the topology.
 *
 * Every key is optional in both directions: an absent key is traced and its
 * field left as the caller set it. */
#include <cstddef>

#include "core/codec.h"

namespace {

using bx::Field;

constexpr bx::FieldDef kRoleSource[] = {
    BX_WORD(MeshRoleParam, eRole, EnumMeshRole, "role", "role:%d"),
};
BX_PACKED(kRole);

constexpr bx::FieldDef kRoamingSource[] = {
    BX_WORD(MeshRoamingParam, eStatus, EnumSwitch, "status", "status:%d"),
    BX_S32(MeshRoamingParam, iRssiThreshold, "thresholdrssi", "thresholdrssi:%d"),
};
BX_PACKED(kRoaming);

constexpr bx::FieldDef kBackhaulSource[] = {
    BX_WORD(BackhaulBssParam, eRadio, EnumBand, "radio", "radio:%u"),
    BX_TEXT(BackhaulBssParam, szSsid, "ssid", "ssid:%s"),
    BX_TEXT(BackhaulBssParam, szPassword, "password", "password:%s"),
    BX_WORD(BackhaulBssParam, eAuthMode, EnumAuthMode, "authmode", "authmode:%d"),
    BX_WORD(BackhaulBssParam, eCipher, EnumCipher, "cipher", "cipher:%d"),
};
BX_PACKED(kBackhaul);

constexpr bx::FieldDef kNodeSource[] = {
    BX_TEXT(TopoNodeEntry, szMac, "mac", "mac:%s"),
    BX_TEXT(TopoNodeEntry, szParentMac, "parentmac", "parentmac:%s"),
    BX_WORD(TopoNodeEntry, eRole, EnumMeshRole, "role", "role:%d"),
    BX_WORD(TopoNodeEntry, eUplink, EnumUplinkMedium, "uplink", "uplink:%d"),
    BX_S32(TopoNodeEntry, iRssi, "rssi", "rssi:%d"),
    BX_TEXT(TopoNodeEntry, szIp, "ip", "ip:%s"),
};
BX_PACKED(kNode);

constexpr bx::FieldDef kNodeEventSource[] = {
    BX_TEXT(LocalMeshEventParam, szMac, "mac", "mac:%s"),
    BX_WORD(LocalMeshEventParam, eAction, EnumListAction, "action", "action:%d"),
};
BX_PACKED(kNodeEvent);

constexpr bx::FieldDef kApMapSource[] = {
    BX_TEXT(TopoApMapParam, szMac, "mac", "mac:%s"),
    BX_TEXT(TopoApMapParam, szBssid2g, "bssid2g", "bssid2g:%s"),
    BX_TEXT(TopoApMapParam, szBssid5g, "bssid5g", "bssid5g:%s"),
};
BX_PACKED(kApMap);

constexpr bx::ListOf kTopo = BX_COUNTED_TABLES(WifiTopoParam, astNode, kNode);
/* "count" only goes out: a received list counts what it fills. */
constexpr bx::FieldDef kTopoMsgSource[] = {
    BX_COUNT(WifiTopoParam, .way = bx::Way::Sent),
    BX_COUNTED_LIST(WifiTopoParam, astNode, "topo", kTopo),
};
BX_PACKED(kTopoMsg);

/* The MACs of the nodes that answer, as bare texts: "count" then "maclist". */
constexpr bx::FieldDef kNodeMacSource[] = {BX_TEXT_ENTRY(BX_ENTRY_SIZE(TopoApMacParam, aszMac), "mac:%s")};
BX_PACKED(kNodeMac);
constexpr bx::ListOf kNodeMacs =
    BX_VALUES(TopoApMacParam, aszMac, kNodeMac, .count_at = offsetof(TopoApMacParam, uiCount), .fills_count = true);
constexpr bx::FieldDef kNodeMacsMsgSource[] = {
    BX_COUNT(TopoApMacParam, .way = bx::Way::Sent),
    BX_COUNTED_LIST(TopoApMacParam, aszMac, "maclist", kNodeMacs),
};
BX_PACKED(kNodeMacsMsg);

} // namespace

extern "C" {

BX_CONVERTERS(STJ_WifiMesh, JTS_WifiMesh, kRole)
BX_CONVERTERS(STJ_WifiMeshRoaming, JTS_WifiMeshRoaming, kRoaming)
BX_CONVERTERS(STJ_WifiBackhaulbss, JTS_WifiBackhaulbss, kBackhaul)
BX_CONVERTERS(STJ_WifiTopo, JTS_WifiTopo, kTopoMsg)
BX_CONVERTERS(STJ_WifiTopoAp_Map, JTS_WifiTopoAp_Map, kApMap)
BX_CONVERTERS(STJ_WifiTopoChange, JTS_WifiTopoChange, kNodeEvent)

/* Only ever sent: the agent reports the event, nobody sends it to a node. */
BX_SENT_ROW(STJ_WifiLocalMesh_Event, kNodeEvent, ::bx::kNoMask)

BX_CONVERTERS(STJ_WifiTopoMac, JTS_WifiTopoMac, kNodeMacsMsg)

} // extern "C"
