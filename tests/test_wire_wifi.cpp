// Wire forms of each message, both ways: Radios and access points, mesh, access lists, neighbours, stations and roaming.
// Each row is received into a zeroed record of its type, with the trace it
// gives, and the record is sent back (see bxtest::Case).
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "records.h"
#include "support.h"

using bxtest::Case;

namespace {

// Radios and access points.
const Case kRadioAp[] = {
    {MSG_WIFI_STATUS, R"(switch=s"enable")",
     "switch:1\n"},
    {MSG_WIFI_OPT, R"(radio=s"5G")",
     "radio:1\n"},
    {MSG_WIFI_SELECT, R"(radio=s"5G" ap=i32:2)",
     "radio:1\nap:2\n"},
    {MSG_WIFI5_STATUS, R"(switch=s"enable")",
     "switch:1\n"},
    {MSG_RADIO_BASIC, R"(radio=s"5G" standard=s"11b/11x" load=i32:1 noiselevel=i32:2 realbandwidth=s"20M" )"
     R"(realchannel=i32:3 apcount=i32:4 bandwidth=s"auto" txpower=s"100%" status=s"disable" channel=i32:1)",
     "radio:1\nstatus:0\ntxpower:0\nchannel:1\nbandwidth:0\n[standard] is not valid.\nstandard:0\n"
     "realbandwidth:1\nrealchannel:3\napcount:4\nload:1\nnoiselevel:2\nIllegal parameter: capaflag\n",  // listed, never stored
     R"(radio=s"5G" status=s"disable" txpower=s"100%" channel=i32:1 bandwidth=s"auto" standard=s"" )"
     R"(realbandwidth=s"20M" realchannel=i32:3 apcount=i32:4 load=i32:1 noiselevel=i32:2 capaflag=i32:12481)"},
    {MSG_AP_BASIC, R"(radio=s"5G" apindex=i32:1 status=s"enable" ssid=s"home" initalssid=s"factory" )"
     R"(bssid=s"aa:bb" auth=s"wpa2psk" encrypt=s"aes" key=s"secret" hide=s"disable" ValidTime=i32:5 RestTime=i32:6 )"
     "capaflag=i32:0",
     "radio:1\napindex:1\nstatus:1\nssid:home\ninitalssid:factory\nbssid:aa:bb\nauth:5\nencrypt:3\nkey:secret\n"
     "hide:0\n",
     R"(radio=s"5G" apindex=i32:1 status=s"enable" ssid=s"home" auth=s"wpa2psk" encrypt=s"aes" hide=s"disable" )"
     R"(key=s"secret" bssid=s"aa:bb" initalssid=s"factory")"},
    {MSG_AP_ADVANCED, R"(radio=s"5G" apindex=i32:0 accessmax=i32:32 wmmenable=s"enable" regulatorydomain=s"US")",
     "radio:1\napindex:0\naccessmax:32\nwmmenable:1\nregulatorydomain:US\nIllegal parameter: capaflag\n"},
    {MSG_AP_RATE_LIMIT, R"(radio=s"5G" apindex=i32:1 usbandwidth=i32:5 dsbandwidth=i32:7)",
     "radio:1\napindex:1\nusbandwidth:5\ndsbandwidth:7\nIllegal parameter: capaflag\n"},
    {MSG_AP_ACCESS_MODE, R"(radio=s"5G" apindex=i32:3 accessmode=i32:1)",
     "radio:1\napindex:3\naccessmode:1\n"},
    {MSG_AP_ACCESS_RULE, R"(radio=s"5G" apindex=i32:1 accessrule=s"isolate" count=i32:2 )"
     R"(iplist=[{ip=s"10.0.0.1" port=i32:80} {ip=s"10.0.0.2" port=i32:443}])",
     "ip:10.0.0.1\nport:80\nip:10.0.0.2\nport:443\nradio:1\napindex:1\naccessrule:1\ncount:2\n"},
    // quirk: kRuleOrNone
    {MSG_AP_ACCESS_RULE, R"(radio=s"5G" apindex=i32:1 accessrule=s"bogus")",
     "Illegal parameter: iplist\nradio:1\napindex:1\naccessrule:3\nIllegal parameter: count\n",
     R"(radio=s"5G" apindex=i32:1 accessrule=s"" count=i32:0 iplist=[])"},
    {MSG_AP_ADD, R"(radio=s"5G" apindex=i32:3)",
     "radio:1\napindex:3\n"},
    {MSG_AP_DELETE, R"(radio=s"5G" apindex=i32:3)",
     "radio:1\napindex:3\n"},
};

// Mesh role, backhaul and topology.
const Case kMesh[] = {
    {MSG_WIFI_MESH, R"(role=s"agent")",
     "role:3\n"},
    {MSG_WIFI_MESH_ROAMING, R"(status=s"enable" thresholdrssi=i32:-70)",
     "status:1\nthresholdrssi:-70\n"},
    {MSG_WIFI_BACKHAUL_BSS, R"(radio=s"5G" ssid=s"bh" password=s"p" authmode=s"wpa2psk" cipher=s"aes")",
     "radio:1\nssid:bh\npassword:p\nauthmode:5\ncipher:3\n"},
    {MSG_WIFI_TOPO, R"(topo=[{mac=s"c" parentmac=s"" role=s"controller" uplink=s"eth" rssi=i32:0 )"
     R"(ip=s"10.0.0.1"} {mac=s"a" parentmac=s"c" role=s"agent" uplink=s"5g" rssi=i32:-55 ip=s"10.0.0.7"}])",
     "mac:c\nparentmac:\nrole:2\nuplink:0\nrssi:0\nip:10.0.0.1\nmac:a\nparentmac:c\nrole:3\nuplink:2\nrssi:-55\n"
     "ip:10.0.0.7\ncount:2\n",
     R"(count=i32:2 topo=[{mac=s"c" parentmac=s"" role=s"controller" uplink=s"eth" rssi=i32:0 ip=s"10.0.0.1"} )"
     R"({mac=s"a" parentmac=s"c" role=s"agent" uplink=s"5g" rssi=i32:-55 ip=s"10.0.0.7"}])"},
    {MSG_WIFI_LOCAL_MESH_EVENT, "",
     "",
     R"(mac=s"" action=s"add")"},
    {MSG_WIFI_TOPO_MAC, R"(maclist=[s"a" i32:1 s"b"])",
     "mac:a\nmac:b\ncount:2\n",
     R"(count=i32:2 maclist=[s"a" s"b"])"},
    // A text longer than its slot keeps the slot's last byte for the terminator.
    {MSG_WIFI_TOPO_MAC, R"(maclist=[s"0123456789abcdef0123456789abcdefXYZ"])",
     "mac:0123456789abcdef0123456789abcde\ncount:1\n",
     R"(count=i32:1 maclist=[s"0123456789abcdef0123456789abcde"])"},
    {MSG_WIFI_TOPO_AP_MAP, R"(mac=s"m" bssid2g=s"b2" bssid5g=s"b5")",
     "mac:m\nbssid2g:b2\nbssid5g:b5\n"},
    {MSG_WIFI_TOPO_CHANGE, R"(mac=s"m" action=s"modify")",
     "mac:m\naction:1\n"},
};

// Access lists and deassociation.
const Case kAccessList[] = {
    {MSG_WIFI_DEASSOCIATION, R"(count=i32:1 apinfo=[{bssid=s"00112233445566778899"}])",
     "count:1\nIllegal parameter: radio\nIllegal parameter: time\nIllegal parameter: macs\n",
     R"(count=i32:1 radio=s"2.4G" time=i32:0 macs=[s""])"},
    {MSG_WIFI_BLACK_WHITE_ADD, R"(index=i32:3 name=s"tv" mac=s"m")",
     "index:3\nname:tv\nmac:m\n"},
    {MSG_WIFI_BLACK_WHITE_DELETE, R"(index=i32:3 mac=s"m")",
     "index:3\n",
     "index=i32:3"},
    {MSG_WIFI_BLACK_WHITE_LIST, R"(count=i32:1 list=[{index=i32:1 name=s"a" mac=s"m1"} {name=s"b"} s"junk" )"
     "{index=i32:3}]",
     "count:1\nindex:1\nname:a\nmac:m1\nIllegal parameter: index\nname:b\nIllegal parameter: mac\nNULL == cur\n\n"
     "index:3\nIllegal parameter: name\nIllegal parameter: mac\n",
     R"(count=i32:1 list=[{index=i32:1 name=s"a" mac=s"m1"}])"},
};

// Neighbour scan, WPS and channel scoring.
const Case kNeighbour[] = {
    {MSG_SCAN_WLAN_NEIGHBOUR, R"(mac=s"0123456789abcdefghij" radio=s"5G")",
     "radio:1\n",
     R"(radio=s"5G")"},
    {MSG_WLAN_NEIGHBOUR, R"(radio=s"5G" count=i32:4 )"
     R"(neighbourlist=[{ssid=s"0123456789abcdefghijklmnopqrstuvwxyz" bssid=s"00:11:22:33:44:55" channel=i32:36 )"
     R"(rssi=i32:-70 standard=s"11a/11n/11ac" bandwidth=i32:80 authmode=s"wpa3psk" encrypttype=s"aes"} )"
     R"({encryttype=s"tkip" authmode=s"WPA2" bandwidth=s"80M"}])",
     "radio:1\ncount:4\nssid:0123456789abcdefghijklmnopqrstuv\nbssid:00:11:22:33:44:55\nchannel:36\nrssi:-70\n"
     "standard:28\nbandwidth:80\nauthmode:9\nencrypttype:3\nIllegal parameter: ssid\nIllegal parameter: bssid\n"
     "Illegal parameter: channel\nIllegal parameter: rssi\nIllegal parameter: standard\n"
     "Illegal parameter: bandwidth\nauthmode:11\nIllegal parameter: encrypttype\n",
     R"(radio=s"5G" count=i32:4 neighbourlist=[{ssid=s"0123456789abcdefghijklmnopqrstuv" bssid=s"00:11:22:33:44:55" )"
     R"(channel=i32:36 rssi=i32:-70 standard=s"11a/11n/11ac" bandwidth=i32:80 authmode=s"wpa3psk" )"
     R"(encryttype=s"aes"} {ssid=s"" bssid=s"" channel=i32:0 rssi=i32:0 standard=s"" bandwidth=i32:0 authmode=s"" )"
     R"(encryttype=s"none"} {ssid=s"" bssid=s"" channel=i32:0 rssi=i32:0 standard=s"" bandwidth=i32:0 )"
     R"(authmode=s"open" encryttype=s"none"} {ssid=s"" bssid=s"" channel=i32:0 rssi=i32:0 standard=s"" )"
     R"(bandwidth=i32:0 authmode=s"open" encryttype=s"none"}])"},
    {MSG_WPS_PBC, R"(mac=s"0123456789abcdefghij" radio=s"5G")",
     "radio:1\nIllegal parameter: status\n",
     R"(radio=s"5G" status=s"disable")"},
    {MSG_WPS_PBC, R"(status=s"on")",
     "Illegal parameter: radio\nstatus:-1\n",
     R"(radio=s"2.4G" status=s"")"},
    {MSG_CHANNEL_SCAN, R"(mac=s"0123456789abcdefghij" radio=s"5G")",
     "radio:1\n",
     R"(radio=s"5G")"},
    {MSG_CHANNEL_SCORE, R"(radio=s"5G" count=i32:1 neighbourlist=[{ssid=s"n" encrypttype=s"aes"}])",
     "radio:1\ncount:1\nIllegal parameter: scorelist\n",
     R"(radio=s"5G" count=i32:1 scorelist=[{channel=i32:0 score=i32:0}])"},
    // An element that is not a table takes no entry: traced and skipped.
    {MSG_CHANNEL_SCORE, R"(radio=s"5G" count=i32:1 scorelist=[i32:5 {channel=i32:6 score=i32:7}])",
     "radio:1\ncount:1\nNULL == cur\n\nchannel:6\nscore:7\n",
     R"(radio=s"5G" count=i32:1 scorelist=[{channel=i32:6 score=i32:7}])"},
};

// Station list and details.
const Case kStations[] = {
    {MSG_STA_LIST, "count=i32:2",
     "uiStaNumofEsps: 2\nIllegal parameter: stalist\n",
     "count=i32:0 stalist=[]"},
    {MSG_STA_LIST, R"(count=i32:3 stalist=[{mac=s"m1"} {mac=s"m2" port=i32:7} {mac=s"m3"}])",
     "uiStaNumofEsps: 3\n-t- blobmsg_parse: -blobmsg_for_each_attr_1\nblobmsg parse failed\n",
     "count=i32:0 stalist=[]"},
    {MSG_STA_INFO_BY_MAC, R"(linktype=s"wifi" isonline=s"yes" type=s"LINUX" duplex=s"HALF" allowwifi=s"TRUE" )"
     R"(port=s"3" rxbytes=i32:12 hostname=s"0123456789012345678901234567890123456789012345678901234567890123456789")",
     "Illegal parameter: mac\nhostname:012345678901234567890123456789012345678901234567890123456789012\n"
     "Illegal parameter: name\nIllegal parameter: ip\nIllegal parameter: upmac\nlinktype:3\n"
     "Illegal parameter: port\nIllegal parameter: ssid\nisonline:-1\nIllegal parameter: onlinetime\n"
     "Illegal parameter: onofftimestamp\nIllegal parameter: vmac\nIllegal parameter: ipv6\ntype:6\n"
     "Illegal parameter: brand\nIllegal parameter: model\nIllegal parameter: rxrate\nIllegal parameter: txrate\n"
     "Illegal parameter: rssi\nIllegal parameter: weakrssi\nIllegal parameter: rxnegrate\n"
     "Illegal parameter: txnegrate\nduplex:4\nIllegal parameter: allowstorage\nIllegal parameter: allowinternet\n"
     "ballowstorage:4294967295\nIllegal parameter: macstatus\nIllegal parameter: fromwifi6\n"
     "Illegal parameter: rxbytes\nIllegal parameter: txbytes\nIllegal parameter: rxpackets\n"
     "Illegal parameter: txpackets\nIllegal parameter: txretrypackets\nIllegal parameter: rxretrypackets\n"
     "Illegal parameter: txfailedpackets\nIllegal parameter: rxfailedpackets\nIllegal parameter: txdiscard\n",
     R"(mac=s"" hostname=s"012345678901234567890123456789012345678901234567890123456789012" name=s"" ip=s"" )"
     R"(upmac=s"" linktype=s"" port=i32:0 ssid=s"" isonline=s"false" onlinetime=i32:0 onofftimestamp=i32:0 vmac=s"" )"
     R"(ipv6=s"" type=s"" brand=s"" model=s"" rxrate=i32:0 txrate=i32:0 rssi=i32:0 weakrssi=i32:0 rxnegrate=i32:0 )"
     R"(txnegrate=i32:0 duplex=s"" allowstorage=s"false" allowinternet=s"false" allowwifi=s"false" )"
     R"(fromwifi6=s"false" macstatus=i32:0 rxbytes=i64:0 txbytes=i64:0 rxpackets=i64:0 txpackets=i64:0 )"
     "txretrypackets=i64:0 rxretrypackets=i64:0 txfailedpackets=i64:0 rxfailedpackets=i64:0 txdiscard=i64:0"},
    {MSG_STA_WIFI_PWD_ERR, R"(mac=s"m")",
     "mac:m\n"},
    {MSG_STA_TRAFFIC, R"(mac=s"m" txbytes=i32:-1 rxbytes=i32:-2 txpackets=i32:3 rxpackets=i32:4 )"
     "txerrors=i32:5 rxerrors=i32:6",
     "mac:m\ntxbytes:4294967295\nrxbytes:4294967294\ntxpackets:3\nrxpackets:4\ntxerrors:5\nrxerrors:6\n"},
    {MSG_STA_NUM, "countall=i32:-1 countonline=i32:-1 countwired=i32:2 count2p4g=i32:3 count5g=i32:4",
     "countall:-1\ncountonline:4294967295\ncountwired:2\ncount2p4g:3\ncount5g:4\n"},
    {MSG_STA_NAME, R"(mac=s"m")",
     "mac:m\nIllegal parameter: name\n",
     R"(mac=s"m" name=s"")"},
    {MSG_STA_NAME, R"(name=s"TV")",
     "Illegal parameter: mac\nname:TV\n",
     R"(mac=s"" name=s"TV")"},
    {MSG_STA_MODEL, R"(mac=s"m" brand=s"b" model=s"x")",
     "mac:m\nbrand:b\nmodel:x\n"},
};

// Station access control.
const Case kStaCtrl[] = {
    {MSG_STA_CTRL_STATUS, R"(status=s"enable")",
     "status:1\n"},
    {MSG_STA_CTRL_MODE, R"(mode=s"BLACK")",
     "mode:2\n"},
    {MSG_STA_CTRL_MODE_SWITCH, R"(mode=s"WHITE" status=s"disable")",
     "mode:1\nstatus:0\n"},
    {MSG_STA_CTRL_LIST, R"(list=[{mac=s"m" name=s"tv" mode=s"BLACK"}])",
     "mac:m\nname:tv\nmode:2\ncount:1\n",
     R"(count=i32:1 list=[{mac=s"m" name=s"tv" mode=s"BLACK"}])"},
    {MSG_STA_BWLIST_GET, R"(mode=s"BLACK")",
     "mode:2\n"},
    {MSG_STA_CTRL_INTERNET, R"(mac=s"m" allow=s"true")",
     "mac:m\nallow:1\n"},
    {MSG_STA_CTRL_WIFI, R"(mac=s"m" allow=s"true")",
     "mac:m\nallow:1\n"},
    {MSG_STA_CTRL_WIFI_LIST, R"(list=[{mac=s"a" allow=s"true"} {mac=s"b" allow=s"false"}])",
     "mac:a\nallow:1\nmac:b\nallow:0\ncount:2\n",
     R"(count=i32:2 list=[{mac=s"a" allow=s"true"} {mac=s"b" allow=s"false"}])"},
    {MSG_STA_CTRL_ITEM_ADD, R"(action=s"add" mode=s"BLACK" mac=s"m" name=s"n")",
     "action:0\nmode:2\nmac:m\nname:n\n"},
    {MSG_STA_CTRL_INTERNET_TIME, R"(mac=s"m" starttime=s"08:00" endtime=s"22:30" week=i32:31)",
     "mac:m\nstarttime:08:00\nendtime:22:30\nweek:31\n"},
};

// Roaming.
const Case kRoaming[] = {
    {MSG_L2_ROAMING, "",
     "Illegal parameter: status\nIllegal parameter: lowrssi2p4g\nIllegal parameter: lowrssi5g\n",
     R"(status=s"disable" lowrssi2p4g=i32:0 lowrssi5g=i32:0)"},
    {MSG_ROAMING, "reportinterval=i32:30",
     "Illegal parameter: enable\nIllegal parameter: thresholdrssi\nreportinterval:30\n"
     "Illegal parameter: starttime\nIllegal parameter: startrssi\nIllegal parameter: lowrssiperiod\n"
     "Illegal parameter: thresholdrssi5g\n"},
    // quirk: kBareMac
    {MSG_ROAMING_AP_RSSI_QUERY, R"(count=i32:1 mac=s"a0:b1:c2:d3:e4:f5" apinfo=[{bssid=s"00:11:22:33:44:55" )"
     "channel=i32:6}]",
     "count:1\nmac:a0:b1:c2:d3:\nbssid:00:11:22:33:\nchannel:6\n",
     R"(count=i32:1 mac=s"a0:b1:c2:d3:" apinfo=[{bssid=s"00:11:22:33:" channel=i32:6}])"},
    {MSG_ROAMING_AP_RSSI_RSP, R"(count=i32:3 aprssi=[s"x" {rssi=i32:-40} i32:5 {bssid=s"b1"}])",
     "count:3\nNULL == cur\n\nIllegal parameter: bssid\nrssi:-40\nNULL == cur\n\nbssid:b1\n"
     "Illegal parameter: rssi\n",
     R"(count=i32:3 aprssi=[{bssid=s"" rssi=i32:-40} {bssid=s"b1" rssi=i32:0} {bssid=s"" rssi=i32:0}])"},
    {MSG_ROAMING_BSS_TRANS, R"(sta=s"a0:b1:c2:d3:e4:f5" channel=i32:11)",
     "sta:a0:b1:c2:d3:\nIllegal parameter: bssid\nchannel:11\n",
     R"(sta=s"a0:b1:c2:d3:" bssid=s"" channel=i32:11)"},
    // quirk: kSupportFlag
    {MSG_ROAMING_REPORT, R"(mac=s"aa:bb:cc:dd:ee:ff" connecttime=i32:30 rssi=i32:-60 radio=s"5G" channel=i32:36 )"
     R"(bssid=s"11:22:33:44:55:66" rxRate=i32:100 txRate=i32:200 support11k=s"true" support11v=s"true")",
     "mac:aa:bb:cc:dd:ee:ff\nbssid:11:22:33:44:55:66\nconnecttime:30\nrssi:-60\nradio:1\nchannel:36\nrxRate:100\n"
     "txRate:200\nsupport11k:1\nsupport11v:1\n"},
    {MSG_ROAMING_STOPDETECT, R"(mac=s"a0:b1:c2:d3:e4:f5:99" stopdetecttime=i32:7)",
     "mac:a0:b1:c2:d3:e4:f5\nstopdetecttime:7\n",
     ""},
    {MSG_ROAMING_STA_RSSI, R"(mac=s"aa:bb:cc:dd:ee:ff" radio=s"5G" rssi=i32:-60 support11k=s"true")",
     "mac:aa:bb:cc:dd:ee:ff\nradio:1\nrssi:-60\n",
     R"(mac=s"aa:bb:cc:dd:ee:ff" rssi=i32:-60 radio=s"5G")"},
};

// Refusals: what a message without a required key, or with a value out of
// range, answers and traces; fields stored before stay stored. The radio and
// access-point messages share one rule (radio, then apindex, required), shown
// on MSG_AP_BASIC; the neighbour messages share theirs, shown on
// MSG_WLAN_NEIGHBOUR.
const Case kRefusals[] = {
    {MSG_WIFI_STATUS, "",
     "Illegal parameter: switch\n[status] is not valid.\n",
     R"(switch=s"disable")", -1},
    {MSG_RADIO_BASIC, "",
     "Illegal parameter: radio\n[radio] is not valid.\n",
     R"(radio=s"2.4G" load=i32:0 noiselevel=i32:0 capaflag=i32:0)", -1},
    {MSG_AP_BASIC, "",
     "Illegal parameter: radio\n[radio] is not valid.\n",
     R"(radio=s"2.4G" apindex=i32:0)", -1},
    {MSG_AP_BASIC, R"(radio=s"6G")",
     "radio:2\nIllegal parameter: apindex\n[apindex] is not valid.\n",
     R"(radio=s"" apindex=i32:0)", -1},
    // quirk: kTestedOnUpstream
    {MSG_AP_RATE_LIMIT, R"(radio=s"5G" apindex=i32:1 dsbandwidth=i32:7)",
     "radio:1\napindex:1\nIllegal parameter: usbandwidth\n[uiDsBandWidth] is not valid.\n",
     R"(radio=s"5G" apindex=i32:1)", -1},
    {MSG_AP_RATE_LIMIT, R"(radio=s"5G" apindex=i32:1 usbandwidth=i32:-2)",
     "radio:1\napindex:1\n[uiUsBandWidth] is not valid.\n",
     R"(radio=s"5G" apindex=i32:1)", -1},
    {MSG_WIFI_DEASSOCIATION, "",
     "Illegal parameter: count\n[count] is not valid.\n",
     R"(count=i32:0 radio=s"2.4G" time=i32:0 macs=[])", -1},
    {MSG_WIFI_BLACK_WHITE_ADD, "",
     "Illegal parameter: index\nIllegal parameter: name\n",
     R"(index=i32:0 name=s"" mac=s"")", -1},
    {MSG_WIFI_BLACK_WHITE_ADD, R"(name=s"tv")",
     "Illegal parameter: index\nname:tv\nIllegal parameter: mac\n",
     R"(index=i32:0 name=s"tv" mac=s"")", -1},
    {MSG_WIFI_BLACK_WHITE_DELETE, "",
     "Illegal parameter: index\n",
     "index=i32:0", -1},
    {MSG_WLAN_NEIGHBOUR, "",
     "Illegal parameter: radio\n[radio] is not valid.\n",
     R"(radio=s"2.4G" count=i32:0 neighbourlist=[])", -1},
};

TEST(Wire, RadioAp) { for (const Case &c : kRadioAp) bxtest::expect_case(c); }
TEST(Wire, Mesh) { for (const Case &c : kMesh) bxtest::expect_case(c); }
TEST(Wire, AccessList) { for (const Case &c : kAccessList) bxtest::expect_case(c); }
TEST(Wire, Neighbour) { for (const Case &c : kNeighbour) bxtest::expect_case(c); }
TEST(Wire, Stations) { for (const Case &c : kStations) bxtest::expect_case(c); }
TEST(Wire, StaCtrl) { for (const Case &c : kStaCtrl) bxtest::expect_case(c); }
TEST(Wire, Roaming) { for (const Case &c : kRoaming) bxtest::expect_case(c); }
TEST(Refusals, Wifi) { for (const Case &c : kRefusals) bxtest::expect_case(c); }

// The station list's walk traces each step; each stored "mac" is preceded
// by the addresses of the caller's first two entries, and a full array ends
// the walk.
TEST(Quirks, StationListTracesItsWalk)
{
    // quirk: JTS_StaList
    BX_REQUIRE_TRACE_CAPTURE();
    const uint8_t capacity[4] = {2};  // the record starts with the array's capacity
    bxtest::Record rec(MSG_STA_LIST, capacity, sizeof capacity);
    bxtest::TraceCapture cap;
    ASSERT_EQ(JSON_TRANS_STRUCT(MSG_STA_LIST, bxtest::Msg(R"(stalist=[{mac=s"m"} {ip=s"i"} {}])"), rec.get()), 0);
    std::vector<std::string> steps;
    for (const std::string &text : cap.take_texts())
        if (text.rfind("-t-", 0) == 0 || text.rfind("blobmsg", 0) == 0 || text.rfind("mac:", 0) == 0)
            steps.push_back(text.substr(0, text.find(" = ")));
    const std::string each = "-t- blobmsg_parse: -blobmsg_for_each_attr_1\n", parse = "-t- blobmsg_parse: -blobmsg_for_each_attr_2\n",
                      policy = "-t- blobmsg_parse: g_stStaList_Array_policy\n";
    EXPECT_EQ(steps, (std::vector<std::string>{each, parse, policy, "-t- -pstOut->pstListInfo[0]", "-t- -pstOut->pstListInfo[1]",
                                               "mac:m\n", each, parse, policy, each, "blobmsg parse failed\n"}));
}

} // namespace
