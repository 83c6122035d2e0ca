// Wire forms of each message, both ways: Timers and rate limits, QoS classification, URL and DNS filters, vendor elements.
// Each row is received into a zeroed record of its type, with the trace it
// gives, and the record is sent back (see bxtest::Case).
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "support.h"

using bxtest::Case;

namespace {

// Timers, rate limits and IPTV.
const Case kTimers[] = {
    {MSG_REBOOT_TIMER, R"(status=s"disable" hour=i32:25 minute=i32:61 week=i32:200)",
     "reboot status:0\nreboot hour:25\nreboot minute:61\nreboot week:200\n"},
    {MSG_WIFI_TIMER_SET, R"(taskid=i32:4 status=s"enable" action=s"enable" type=s"instant" starthour=i32:7 )"
     "startminute=i32:30 endhour=i32:22 endminute=i32:0 week=i32:62",
     ""},
    {MSG_WIFI_TIMER, R"(count=i32:2 timerlist=[{taskid=i32:4 status=s"enable" action=s"enable" )"
     R"(type=s"instant" starthour=i32:7 startminute=i32:30 endhour=i32:22 endminute=i32:0 week=i32:62} )"
     R"({taskid=i32:5 status=s"disable" action=s"disable" type=s"continuous" starthour=i32:1 startminute=i32:2 )"
     "endhour=i32:3 endminute=i32:4 week=i32:1}]",
     "count: 2\n"},
    {MSG_WIFI_TIMER_IDX, "taskid=i32:6",
     "Idx: 6\n"},
    {MSG_RATELIMIT, R"(mac=s"aa:bb" ip=s"1.2.3.4" ratelimitenable=s"enable" rxratelimit=i32:100 )"
     "txratelimit=i32:300",
     "",
     R"(mac=s"aa:bb" ip=s"1.2.3.4" rxratelimit=i32:100 txratelimit=i32:300)"},
    {MSG_RATELIMIT_LIST, R"(count=i32:1 ratelimitlist=[{mac=s"aa:bb" ip=s"1.2.3.4" ratelimitenable=s"enable" )"
     "rxratelimit=i32:100 txratelimit=i32:300}]",
     "input uiCount: 1\n",
     R"(count=i32:1 ratelimitlist=[{ratelimitenable=s"enable" mac=s"aa:bb" ip=s"1.2.3.4" rxratelimit=i32:100 )"
     "txratelimit=i32:300}]"},
    {MSG_PERIOD_RATE_SET, R"(tasktype=s"UPLINK" taskname=s"wan-watch" mac=s"aa:bb" txrate_rt=i32:11 )"
     "rxrate_rt=i32:22 maxrxrate=i32:33 maxtxrate=i32:44 avarxrate=i32:55 avatxrate=i32:66",
     "eTaskType:0\ntaskname:wan-watch\nIllegal parameter: reportinterval\nIllegal parameter: sampleinterval\n",
     R"(tasktype=s"UPLINK" taskname=s"wan-watch" reportinterval=i32:0 sampleinterval=i32:0)"},
    // quirk: kRateTracedCrossed
    {MSG_PERIOD_RATE_GET, R"(tasktype=s"UPLINK" taskname=s"wan-watch" mac=s"aa:bb" txrate_rt=i32:11 )"
     "rxrate_rt=i32:22 maxrxrate=i32:33 maxtxrate=i32:44 avarxrate=i32:55 avatxrate=i32:66",
     "period tasktype:0\nperiod taskname:wan-watch\nperiod mac:aa:bb\nperiod txrate_rt:0\nperiod rxrate_rt:11\n"
     "period maxrxrate:33\nperiod maxtxrate:44\nperiod avarxrate:55\nperiod avatxrate:66\n"},
    {MSG_IPTV, R"(status=s"enable" vlanlist=[{vlanid=i32:45 ethports=i32:1 ports2p4g=i32:2 ports5g=i32:3} )"
     "{vlanid=i32:85} {vlanid=i32:99 ethports=i32:9}]",
     "status:1\nVlanid:45\nethPorts:1\n2P4GPorts:2\n5GPorts:3\nVlanid:85\nIllegal parameter: ethports\n"
     "Illegal parameter: ports2p4g\nIllegal parameter: ports5g\nNULL == cur\n\n",
     R"(status=s"enable" vlanlist=[{vlanid=i32:45 ethports=i32:1 ports2p4g=i32:2 ports5g=i32:3} {vlanid=i32:85 )"
     "ethports=i32:0 ports2p4g=i32:0 ports5g=i32:0}]"},
    // quirk: kVlans
    {MSG_IPTV, "",
     "Illegal parameter: status\nNo Vlan Task\n",
     R"(status=s"disable" vlanlist=[])"},
    // quirk: kVlans (a VLAN with id 0 is left out, the next one is still sent)
    {MSG_IPTV, R"(status=s"enable" vlanlist=[{vlanid=i32:0 ethports=i32:1} {vlanid=i32:7 ethports=i32:4}])",
     "status:1\nVlanid:0\nethPorts:1\nIllegal parameter: ports2p4g\nIllegal parameter: ports5g\nVlanid:7\nethPorts:4\n"
     "Illegal parameter: ports2p4g\nIllegal parameter: ports5g\n",
     R"(status=s"enable" vlanlist=[{vlanid=i32:7 ethports=i32:4 ports2p4g=i32:0 ports5g=i32:0}])"},
};

// QoS classification.
const Case kQos[] = {
    {MSG_QOS, R"(enable=s"enable")",
     "status:1\n"},
    {MSG_DSCP, R"(enable=s"enable")",
     "status:1\n"},
    {MSG_8021P, R"(enable=s"enable")",
     "status:1\n"},
    // quirk: kAddProtocols
    {MSG_QOS_CLASSIFICATION_ADD, "protocol=[i32:6 i32:17] priority=i32:3 dscp=i32:46 vlan8021p=i32:5 "
     R"(name=s"voip" srcmac=s"AA:BB:CC:DD:EE:01" dstmac=s"AA:BB:CC:DD:EE:02" srcip=s"1.2.3.4")",
     "Priority:3\nDscp:46\nValn8021p:5\nName:voip\nSrcName:AA:BB:CC:DD:EE:01\nDstName:AA:BB:CC:DD:EE:02\n",
     R"(priority=i32:3 dscp=i32:46 vlan8021p=i32:5 name=s"voip" protocol=[i32:6 i32:17] srcmac=s"AA:BB:CC:DD:EE:01" )"
     R"(dstmac=s"AA:BB:CC:DD:EE:02")"},
    {MSG_QOS_CLASSIFICATION_DELETE, "index=i32:3",
     "Index:3\n"},
    // quirk: kRules kListedProtocols
    {MSG_QOS_CLASSIFICATION_LIST, R"(index=i32:1 list=[{index=i32:1 name=s"voip" priority=i32:3 dscp=i32:46 )"
     R"(vlan8021p=i32:5 protocol=[i32:6 i32:17] srcip=s"1.2.3.4" srcmask=s"255.0.0.0" srcport=i32:80 srcmac=s"aa" )"
     R"(dstip=s"5.6.7.8" dstmask=s"255.255.0.0" dstport=i32:443 dstmac=s"bb"}])",
     "uiCount:1\n-t- blobmsg_parse: -blobmsg_for_each_attr_1\n-t- blobmsg_parse: -blobmsg_for_each_attr_2\n"
     "-t- blobmsg_parse: g_stStaList_Array_policy\nidx:1\nname:voip\npriority:3\ndscps:46\nlinktype:5\n"
     "protocol[1]: 6\nprotocol[2]: 17\nSrcIp:1.2.3.4\nSrcMask:255.0.0.0\nSrcPort:80\nSrcMac:aa\nDstIp: 5.6.7.8\n"
     "DstMask: 255.255.0.0\nDstPort: 443\nDstMac: bb\n"},
    // quirk: kPortText
    {MSG_QOS_CLASSIFICATION_SET, R"(priority=i32:3 dscp=i32:46 vlan8021p=i32:5 name=s"voip" )"
     R"(srcip=s"192.168.100.100x" srcmask=s"255.255.255.0" srcport=s"80" srcmac=s"AA:BB:CC:DD:EE:01" )"
     R"(dstip=s"10.0.0.1" dstmask=s"255.0.0.0" dstport=s"ABCDEF" dstmac=s"AA:BB:CC:DD:EE:02")",
     "Priority:3\nDscp:46\nVlan8021p:5\nName:voip\nIllegal parameter: protocol\nSrcIp:192.168.100.100x\n"
     "SrcMask:255.255.255.0\nsrcport:942669824\nSrcMac:AA:BB:CC:DD:EE:0\nDstIp:10.0.0.1\nDstMask:255.0.0.0\n"
     "DstPort:1094861636\nDstMac:AA:BB:CC:DD:EE:0\n",
     R"(priority=i32:3 dscp=i32:46 vlan8021p=i32:5 name=s"voip" protocol=[i32:0 i32:0 i32:0 i32:0 i32:0 i32:0 i32:0 )"
     R"(i32:0] srcip=s"192.168.100.100x" srcmask=s"255.255.255.0" srcport=i32:942669824 srcmac=s"AA:BB:CC:DD:EE:0" )"
     R"(dstip=s"10.0.0.1" dstmask=s"255.0.0.0" dstport=i32:1094861636 dstmac=s"AA:BB:CC:DD:EE:0")"},
    {MSG_QOS_CLASSIFICATION_GET, "index=i32:3",
     "Index:3\n",
     R"(priority=i32:0 dscp=i32:0 vlan8021p=i32:0 name=s"" protocol=[i32:0 i32:0 i32:0 i32:0 i32:0 i32:0 i32:0 )"
     R"(i32:0] srcip=s"" srcmask=s"" srcport=i32:0 srcmac=s"" dstip=s"" dstmask=s"" dstport=i32:0 dstmac=s"")"},
};

// URL and DNS filters.
const Case kFilters[] = {
    {MSG_FILTER_URL_SWITCH, R"(status=s"disable")",
     "Status:0\n",
     R"(idx=s"disable")"},
    // quirk: kUrlRuleList kListedUrlTimes kListedUrlMacs kListedUrls
    {MSG_FILTER_URL_LIST, R"(count=i32:1 list=[{idx=i32:3 enable=s"enable" urls=[s"a.com"] name=s"kids" )"
     R"(macs=[s"aa:bb"] mode=s"White" weekday=i32:31 timerange=[{starttime=i32:60 endtime=i32:120}]}])",
     "count: 1\nIdx:3\nEnable:1\nList[0]Urls0:a.com\nName:kids\nList[0]Macs0:aa:bb\nMode:1\nWeekday:31\n"
     "List[0]Starttime0:60\nList[0]Endtime0:120\n"},
    // quirk: kUrlTimes kUrlMacs kUrls
    {MSG_FILTER_URL, R"(idx=i32:3 enable=s"enable" urls=[s"a.com" s"b.org/xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx"] name=s"kids" )"
     R"(macs=[s"aa:bb"] mode=s"White" weekday=i32:31 timerange=[{starttime=i32:3600 endtime=i32:7200} )"
     "{starttime=i32:5 endtime=i32:0} {starttime=i32:0 endtime=i32:86400}]",
     "Idx:3\nEnable:1\nUrls0:a.com\nUrls1:b.org/xxxxxxxxxxxxxxxxxxxxxxxxx\nName:kids\nMacs0:aa:bb\nMode:1\nWeekday:31\nStarttime0:3600\n"
     "Endtime0:7200\nStarttime1:5\nEndtime1:0\nStarttime2:0\nEndtime2:86400\n",
     R"(idx=i32:3 enable=s"enable" urls=[s"a.com" s"b.org/xxxxxxxxxxxxxxxxxxxxxxxxx"] name=s"kids" macs=[s"aa:bb"] )"
     R"(mode=s"White" weekday=i32:31 timerange=[{starttime=i32:3600 endtime=i32:7200}])"},
    {MSG_FILTER_URL_REPLY, "idx=i32:-2",
     "Idx:-2\n"},
    // quirk: kDnsRuleList kListedDnsTimes kListedHostnames
    {MSG_FILTER_DNS_LIST, R"(count=i32:1 list=[{idx=i32:2 enable=s"enable" hostnames=[s"a.com"] name=s"kids" )"
     R"(macs=s"aa:bb" action=s"LanIp" mode=s"White" weekday=i32:31 timerange=[{starttime=i32:60 endtime=i32:120}]}])",
     "count: 1\nIdx:2\nEnable:1\nList[0]Urls0:a.com\nName:kids\nMacs:aa:bb\nAction:1\nMode:1\nWeekday:31\n"
     "List[0]Starttime0:60\nList[0]Endtime0:120\n"},
    {MSG_FILTER_DNS, R"(idx=i32:1 enable=s"enable" mode=s"Black" action=s"Ignore" weekday=i32:0 )"
     R"(status=s"enable")",
     "Idx:1\nEnable:1\nIllegal parameter: hostnames\nIllegal parameter: name\nIllegal parameter: macs\nAction:0\n"
     "Mode:0\nWeekday:0\nIllegal parameter: timerange\n",
     R"(idx=i32:1 enable=s"enable" hostnames=[] name=s"" macs=s"" action=s"Ignore" mode=s"Black")"},
    // quirk: kHostnames (a number is read as an empty text, which ends what is sent)
    {MSG_FILTER_DNS, R"(idx=i32:1 enable=s"enable" hostnames=[i32:5 s"a.com"] action=s"Ignore" mode=s"Black" )"
     "weekday=i32:0",
     "Idx:1\nEnable:1\nHost Name0:\nHost Name1:a.com\nIllegal parameter: name\nIllegal parameter: macs\nAction:0\n"
     "Mode:0\nWeekday:0\nIllegal parameter: timerange\n",
     R"(idx=i32:1 enable=s"enable" hostnames=[] name=s"" macs=s"" action=s"Ignore" mode=s"Black")"},
    // The one MAC text may fill all 32 bytes: kept without a terminator, sent whole.
    {MSG_FILTER_DNS, R"(idx=i32:1 enable=s"enable" macs=s"0123456789abcdef0123456789ABCDEFxyz" action=s"Ignore" )"
     R"(mode=s"Black" weekday=i32:0)",
     "Idx:1\nEnable:1\nIllegal parameter: hostnames\nIllegal parameter: name\nMac:0123456789abcdef0123456789ABCDEF\n"
     "Action:0\nMode:0\nWeekday:0\nIllegal parameter: timerange\n",
     R"(idx=i32:1 enable=s"enable" hostnames=[] name=s"" macs=s"0123456789abcdef0123456789ABCDEF" action=s"Ignore" )"
     R"(mode=s"Black")"},
    {MSG_FILTER_DNS_REPLY, "idx=i32:-2",
     "Idx:-2\n"},
};

// Vendor-specific information elements.
const Case kVsie[] = {
    {MSG_VSIE_INFO, "maxproberxentry=i32:3 maxbeacontxentry=i32:8 maxbeacontxconcurrent=i32:4",
     "MaxBeacontxEntry:8\nMaxBeacontxConCurrent:4\nMaxProberxEntry:3\nIllegal parameter: maxproberespentry\n",
     "maxbeacontxentry=i32:8 maxbeacontxconcurrent=i32:4 maxproberxentry=i32:3 maxproberespentry=i32:0"},
    {MSG_VSIE_BEACONTX_ADD, R"(idx=i32:4 servicename=s"svc" len=i32:2 iedata=[i32:65 i32:66])",
     "Servicename:svc\nIllegal parameter: ssididx\nIllegal parameter: duration\nLen:2\nIedata:A\nIedata:B\n",
     R"(servicename=s"svc" ssididx=i32:0 duration=i32:0 len=i32:2 iedata=[i32:65 i32:66])"},
    {MSG_VSIE_BEACONTX_ADD, "duration=i32:30",
     "Illegal parameter: servicename\nIllegal parameter: ssididx\nDuration:30\nIllegal parameter: len\n"
     "Illegal parameter: iedata\nNo IEDATA\n",
     R"(servicename=s"" ssididx=i32:0 duration=i32:30 len=i32:0 iedata=[])"},
    {MSG_VSIE_BEACONTX_IDX, "idx=i32:3",
     "Idx:3\n"},
    {MSG_VSIE_BEACONTX_LIST, R"(count=i32:1 iedata=[] list=[{idx=i32:5 servicename=s"s" ssididx=i32:6 )"
     "duration=i32:7 len=i32:1 iedata=[i32:65 i32:66]}]",
     "Count:1\nIdx0:5\nServicename0:s\nSsididx0:6\nDuration0:7\nLen0:1\nIedata0:A\n",
     R"(count=i32:1 list=[{idx=i32:5 servicename=s"s" ssididx=i32:6 duration=i32:7 len=i32:1 iedata=[i32:65]}])"},
    {MSG_VSIE_BEACONTX_LIST, "count=i32:0", "Count:0\nIllegal parameter: list\n", "count=i32:0 list=[]"},
    {MSG_VSIE_BEACONTX_SET, R"(enable=s"on" idx=i32:4)",
     "Idx:4\nEnable:-1\n",
     R"(idx=i32:4 enable=s"")"},
    // quirk: kOui
    {MSG_VSIE_PROBERX_ADD, R"(servicename=s"svc" band=s"5G" oui=[i32:0 i32:80 i32:242])",
     "Servicename:svc\nBand:1\nOUI[0]:0\nOUI[1]:80\nOUI[2]:242\n"},
    {MSG_VSIE_PROBERX_ADD, R"(idx=i32:1 servicename=s"svc" band=s"6G" oui=[i32:0 i32:80 i32:242 i32:1])",
     "Servicename:svc\nBand:2\nOUI[0]:0\nOUI[1]:80\nOUI[2]:242\n",
     R"(servicename=s"svc" band=s"" oui=[i32:0 i32:80 i32:242])"},
    {MSG_VSIE_PROBERX_ADD, R"(servicename=s"svc")",
     "Servicename:svc\nIllegal parameter: band\nIllegal parameter: oui\n",
     R"(servicename=s"svc" band=s"2.4G" oui=[i32:0 i32:0 i32:0])"},
    {MSG_VSIE_PROBERX_IDX, "idx=i32:3",
     "Idx:3\n"},
    // quirk: JTS_Vsie_Proberx_List
    {MSG_VSIE_PROBERX_LIST, R"(list=[{idx=i32:7 servicename=s"s" band=s"5G" oui=[i32:5] record=[{mac=s"m" )"
     R"(band=s"2.4G" vsie=[i32:9]}]} {idx=i32:8}])",
     "blobmsg_parse1\n\nblobmsg_parse2\n\nblobmsg_for_each_attr1\n\nblobmsg_parse3\n\nIdx0:7\nServicename0:s\n"
     "Band0:1\nblobmsg_parse4\n\nblobmsg_for_each_attr2\n\nIedata0:5\nJTS_CheckBlobAttr\n"
     "blobmsg_for_each_attr333\n\nblobmsg_parse111\n\nMac:m\nBand:1\nblobmsg_parse222\n\n"
     "blobmsg_for_each_attr444\n\nuiVsiedata:0\nVSIE:9\nJTS_CheckBlobAttr end\n\nblobmsg_for_each_attr1\n\n"
     "blobmsg_parse3\n\nIdx1:8\nIllegal parameter: servicename\nIllegal parameter: band\nblobmsg_parse4\n\n"
     "Illegal parameter: oui\nNo OUI\nIllegal parameter: record\nJTS_CheckBlobAttr break\n",
     R"(list=[{idx=i32:7 servicename=s"s" band=s"5G" oui=[i32:5 i32:0 i32:0] record=[{mac=s"m" band=s"5G" )"
     R"(vsie=[i32:9]}]} {idx=i32:8 servicename=s"" band=s"2.4G" oui=[i32:0 i32:0 i32:0] record=[]}])"},
    {MSG_VSIE_PROBERX_FLUSH, R"(idx=i32:1 servicename=s"svc" band=s"6G" oui=[i32:0 i32:80 i32:242 i32:1])",
     "Servicename:svc\n",
     R"(servicename=s"")"},
    // quirk: kOuiAndPayload JTS_Vsie_Proberx_Record_Add
    {MSG_VSIE_PROBERX_RECORD_ADD, R"(record=[{mac=s"00:11:22:33:44:55" band=s"5G" vsie=[i32:0 i32:80 i32:242 )"
     "i32:4 i32:1 i32:2]}]",
     "Mac:00:11:22:33:44:55\nBand:1\ncount:3,count_oui:3\n",
     R"(record=[{mac=s"00:11:22:33:44:55" band=s"5G" vsie=[i32:0 i32:80 i32:242 i32:4 i32:1 i32:2 i32:0 i32:0 )"
     "i32:0]}]"},
    {MSG_VSIE_PROBERX_RECORD_ADD, R"(mac=s"m")",
     "Illegal parameter: record\nJTS_CheckBlobAttr failed\n",
     R"(record=[{mac=s"" band=s"2.4G" vsie=[i32:0 i32:0 i32:0]}])"},
    {MSG_VSIE_PROBERESP_ADD, R"(mac=s"aa" iedata=[i32:221 i32:300])",
     "Mac:aa\nIedata:dd\nIedata:2c\npstOut->uiIedataLen:2\n",
     R"(mac=s"aa" iedata=[i32:221 i32:44])"},
    {MSG_VSIE_PROBERESP_ADD, R"(mac=s"m")",
     "Mac:m\nIllegal parameter: iedata\nNo IEDATA\n",
     R"(mac=s"m" iedata=[])"},
    {MSG_VSIE_PROBERESP_IDX, "idx=i32:3",
     "Idx:3\n"},
    {MSG_VSIE_PROBERESP_LIST, "", "Illegal parameter: list\n", "list=[]"},  // the count is set to 0
    // quirk: JTS_Vsie_Proberesp_List
    {MSG_VSIE_PROBERESP_LIST, R"(list=[{idx=i32:1 mac=s"m1" band=s"5G" iedata=[i32:65]} {idx=i32:2} )"
     "{idx=i32:3} {idx=i32:4} {idx=i32:5}]",
     "Idx0:1\nMac0:m1\nBand0:1\nIedata0:A\nIdx1:2\nIllegal parameter: mac\nIllegal parameter: band\n"
     "Illegal parameter: iedata\nIdx2:3\nIllegal parameter: mac\nIllegal parameter: band\n"
     "Illegal parameter: iedata\nNULL == cur\n\n",
     R"(list=[{idx=i32:1 mac=s"m1" band=s"5G" iedata=[i32:65]} {idx=i32:2 mac=s"" band=s"2.4G" iedata=[]} )"
     R"({idx=i32:3 mac=s"" band=s"2.4G" iedata=[]}])"},
};

// Refusals: what a message without a required key, or with a value out of
// range, answers and traces; fields stored before stay stored. The three
// QoS switches share one rule, shown on MSG_QOS.
const Case kRefusals[] = {
    {MSG_WIFI_TIMER_SET, "",
     "param task id error\n",
     R"(taskid=i32:0 status=s"disable" action=s"disable" type=s"continuous" starthour=i32:0 startminute=i32:0 )"
     "endhour=i32:0 endminute=i32:0 week=i32:0", -1},
    // quirk: kRequiredQuietly
    {MSG_WIFI_TIMER_SET, "taskid=i32:9",
     "Illegal parameter: status\nparam action error\n",
     R"(taskid=i32:9 status=s"disable" action=s"disable" type=s"continuous" starthour=i32:0 startminute=i32:0 )"
     "endhour=i32:0 endminute=i32:0 week=i32:0", -1},
    {MSG_WIFI_TIMER_SET, R"(taskid=i32:1 action=s"enable")",
     "Illegal parameter: status\nIllegal parameter: type\nparam start hour error\n",
     R"(taskid=i32:1 status=s"disable" action=s"enable" type=s"continuous" starthour=i32:0 startminute=i32:0 )"
     "endhour=i32:0 endminute=i32:0 week=i32:0", -1},
    {MSG_QOS, "",
     "Illegal parameter: enable\n",
     R"(enable=s"disable")", -1},
    // quirk: kOnOrOff
    {MSG_QOS, R"(enable=s"on")", "", R"(enable=s"disable")", -1},  // refused untraced, nothing stored
    {MSG_WIFI_TIMER_SET, R"(taskid=i32:4 action=s"enable" starthour=i32:7 startminute=i32:30 endhour=i32:22 )"
     "endminute=i32:0",
     "Illegal parameter: status\nIllegal parameter: type\nparam week error\n",
     R"(taskid=i32:4 status=s"disable" action=s"enable" type=s"continuous" starthour=i32:7 startminute=i32:30 )"
     "endhour=i32:22 endminute=i32:0 week=i32:0", -1},
    // quirk: kDnsTimes
    {MSG_FILTER_DNS, R"(idx=i32:1 enable=s"enable" action=s"Ignore" mode=s"Black" weekday=i32:128)",
     "Idx:1\nEnable:1\nIllegal parameter: hostnames\nIllegal parameter: name\nIllegal parameter: macs\nAction:0\n"
     "Mode:0\nWeekday:128\n",
     R"(idx=i32:1 enable=s"enable" hostnames=[] name=s"" macs=s"" action=s"Ignore" mode=s"Black" weekday=i32:128 )"
     "timerange=[]", -1},
    // The beacon list reads an entry's bytes only while the message has "iedata" of its own.
    // "count" bounds the beacon list: an element past it is traced and skipped.
    // quirk: JTS_Vsie_Beacontx_List
    {MSG_VSIE_BEACONTX_LIST, R"(count=i32:1 iedata=[] list=[{idx=i32:5} {idx=i32:6}])",
     "Count:1\nIdx0:5\nIllegal parameter: servicename\nIllegal parameter: ssididx\nIllegal parameter: duration\n"
     "Illegal parameter: len\nIllegal parameter: iedata\nNULL == cur\n\n",
     R"(count=i32:1 list=[{idx=i32:5 servicename=s"" ssididx=i32:0 duration=i32:0 len=i32:0 iedata=[]}])"},
    {MSG_VSIE_BEACONTX_LIST, R"(count=i32:1 list=[{idx=i32:5 len=i32:1 iedata=[i32:65]}])",
     "Count:1\nIdx0:5\nIllegal parameter: servicename\nIllegal parameter: ssididx\nIllegal parameter: duration\n"
     "Len0:1\nIllegal parameter: iedata\nNo IEDATA\n",
     R"(count=i32:1 list=[{idx=i32:5 servicename=s"" ssididx=i32:0 duration=i32:0 len=i32:1 iedata=[i32:0]}])"},
    {MSG_FILTER_URL_SWITCH, R"(idx=s"3")",
     "Illegal parameter: status\n",
     R"(idx=s"disable")", -1},
    {MSG_FILTER_URL_SWITCH, R"(status=s"on")",
     "Status:-1\n",
     R"(idx=s"")", -1},
    {MSG_FILTER_URL_LIST, R"(count=i32:2 list=[{idx=i32:0 name=s"gone"} {idx=i32:4 enable=s"enable" )"
     R"(macs=s"aa" action=s"NameError" mode=s"Grey"}])",
     "count: 2\nIdx:0\nIllegal parameter: enable\nIllegal parameter: urls\nName:gone\nIllegal parameter: macs\n"
     "Illegal parameter: mode\nIllegal parameter: weekday\nIllegal parameter: timerange\nIdx:4\nEnable:1\n"
     "Illegal parameter: urls\nIllegal parameter: name\nIllegal parameter: macs\nMode Error\n",
     R"(count=i32:2 list=[{idx=i32:4 enable=s"enable" urls=[] name=s"" macs=[] mode=s"Black"}])", -1},
    {MSG_FILTER_URL_LIST, R"(list=[{idx=i32:1 mode=s"White"} {idx=i32:2 name=s"x" mode=s"Grey" weekday=i32:3} )"
     "{idx=i32:3}]",
     "Illegal parameter: count\nIdx:1\nIllegal parameter: enable\nIllegal parameter: urls\n"
     "Illegal parameter: name\nIllegal parameter: macs\nMode:1\nIllegal parameter: weekday\n"
     "Illegal parameter: timerange\nIdx:2\nIllegal parameter: enable\nIllegal parameter: urls\nName:x\n"
     "Illegal parameter: macs\nMode Error\n",
     "count=i32:0 list=[]", -1},
    // quirk: kUrlMode
    {MSG_FILTER_URL, R"(idx=i32:1 enable=s"enable" mode=s"Grey" weekday=i32:3)",
     "Idx:1\nEnable:1\nIllegal parameter: urls\nIllegal parameter: name\nIllegal parameter: macs\nMode Error\n",
     R"(idx=i32:1 enable=s"enable" urls=[] name=s"" macs=[] mode=s"Black")", -1},
    {MSG_FILTER_URL, R"(idx=s"3")",
     "Illegal parameter: idx\nIllegal parameter: enable\n",
     R"(idx=i32:0 enable=s"disable" urls=[] name=s"" macs=[] mode=s"Black")", -1},
    {MSG_FILTER_URL, R"(enable=s"on" idx=i32:1)",
     "Idx:1\nEnable:4294967295\n",
     R"(idx=i32:1 enable=s"" urls=[] name=s"" macs=[] mode=s"Black")", -1},
    // quirk: kWeekday
    {MSG_FILTER_URL, R"(enable=s"disable" urls=s"a.com")",
     "Illegal parameter: idx\nEnable:0\nIllegal parameter: urls\nIllegal parameter: name\n"
     "Illegal parameter: macs\nIllegal parameter: mode\n",
     R"(idx=i32:0 enable=s"disable" urls=[] name=s"" macs=[] mode=s"Black")", -1},
    {MSG_FILTER_DNS, R"(idx=i32:3 enable=s"enable" urls=[s"a.com" s"b.org"] name=s"kids" macs=[s"aa:bb"] )"
     R"(mode=s"White" weekday=i32:31 timerange=[{starttime=i32:3600 endtime=i32:7200} {starttime=i32:0 )"
     "endtime=i32:86400} {starttime=i32:5 endtime=i32:0}]",
     "Idx:3\nEnable:1\nIllegal parameter: hostnames\nName:kids\nIllegal parameter: macs\n"
     "Illegal parameter: action\n",
     R"(idx=i32:3 enable=s"enable" hostnames=[] name=s"kids" macs=s"" action=s"Ignore" mode=s"Black")", -1},
    // A time past a day refuses the rule once its pair is stored; later pairs are not read.
    {MSG_FILTER_DNS, R"(idx=i32:2 enable=s"enable" hostnames=[s"a.com"] name=s"n" macs=s"aa" action=s"Ignore" )"
     R"(mode=s"Black" weekday=i32:1 timerange=[{starttime=i32:60 endtime=i32:86401} {starttime=i32:1 endtime=i32:2}])",
     "Idx:2\nEnable:1\nHost Name0:a.com\nName:n\nMac:aa\nAction:0\nMode:0\nWeekday:1\nStarttime0:60\nEndtime0:86401\n"
     "err time\n",
     R"(idx=i32:2 enable=s"enable" hostnames=[s"a.com"] name=s"n" macs=s"aa" action=s"Ignore" mode=s"Black" weekday=i32:1 )"
     "timerange=[{starttime=i32:60 endtime=i32:86401}]", -1},
    {MSG_FILTER_DNS, R"(idx=s"3")",
     "Illegal parameter: idx\nIllegal parameter: enable\n",
     R"(idx=i32:0 enable=s"disable" hostnames=[] name=s"" macs=s"" action=s"Ignore" mode=s"Black")", -1},
    {MSG_FILTER_DNS, "idx=i32:-2",
     "Idx:4294967294\n",
     R"(idx=i32:-2 enable=s"disable" hostnames=[] name=s"" macs=s"" action=s"Ignore" mode=s"Black")", -1},
    {MSG_FILTER_DNS, R"(enable=s"on" idx=i32:1)",
     "Idx:1\nEnable:4294967295\n",
     R"(idx=i32:1 enable=s"" hostnames=[] name=s"" macs=s"" action=s"Ignore" mode=s"Black")", -1},
};

TEST(Wire, Timers) { for (const Case &c : kTimers) bxtest::expect_case(c); }
TEST(Wire, Qos) { for (const Case &c : kQos) bxtest::expect_case(c); }
TEST(Wire, Filters) { for (const Case &c : kFilters) bxtest::expect_case(c); }
TEST(Wire, Vsie) { for (const Case &c : kVsie) bxtest::expect_case(c); }
TEST(Refusals, Services) { for (const Case &c : kRefusals) bxtest::expect_case(c); }


// The set message's "protocol" text is walked as if it held attributes: each
// word lands in slot 0 (the last one wins) and the trace prints slot 1.
TEST(Quirks, QosSetProtocolTextIsWalkedAsAttributes)
{
    // quirk: kProtocolWords
    bxtest::Buf inner, outer;
    for (const char *word : {"tcp", "udp", "icmp"})
        blobmsg_add_string(inner.get(), nullptr, word);
    blobmsg_add_field(outer.get(), BLOBMSG_TYPE_STRING, "protocol", blob_data(inner.head()), blob_len(inner.head()));
    QosClassRule rule{};
    rule.auiProtocol[1] = 9;
    bxtest::TraceCapture cap;
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_QOS_CLASSIFICATION_SET, outer.head(), &rule), 0);
    EXPECT_EQ(rule.auiProtocol[0], 3u);
    if (bxtest::trace_paths_private()) {
        std::vector<std::string> texts = cap.take_texts();
        EXPECT_EQ(std::count(texts.begin(), texts.end(), "protocol:9\n"), 3);
    }
}

// A rate limit sends the switch and each rate only when its flag says it was
// given (receiving sets the rates' flags, never the switch's); any number
// other than 0 is "enable".
TEST(Quirks, RateLimitSendsWhatItsFlagsSay)
{
    // quirk: kSwitchAsBool kMarkingRx
    RateLimitEntry entry{2, "m", "i", 7, 9, RATE_LIMIT_VALID_ENABLE | RATE_LIMIT_VALID_TX};
    EXPECT_EQ(bxtest::stj_typed(MSG_RATELIMIT, &entry), R"(ratelimitenable=s"enable" mac=s"m" ip=s"i" txratelimit=i32:9)");
    entry = {0, "m", "i", 7, 9, RATE_LIMIT_VALID_ENABLE | RATE_LIMIT_VALID_RX};
    EXPECT_EQ(bxtest::stj_typed(MSG_RATELIMIT, &entry), R"(ratelimitenable=s"disable" mac=s"m" ip=s"i" rxratelimit=i32:7)");
    // In a list, the tx rate alone marks the rx rate as given.
    RateLimitList list{};
    EXPECT_EQ(bxtest::receive(MSG_RATELIMIT_LIST, "ratelimitlist=[{txratelimit=i32:9}]", &list).ret, 0);
    EXPECT_EQ(list.astEntry[0].uiValidFlags, static_cast<uint32_t>(RATE_LIMIT_VALID_RX));
    // Without either rate, no flag.
    list = {};
    EXPECT_EQ(bxtest::receive(MSG_RATELIMIT_LIST, R"(ratelimitlist=[{mac=s"m"}])", &list).ret, 0);
    EXPECT_EQ(list.astEntry[0].uiValidFlags, 0u);
}

// A DNS rule's name is measured one byte past its array: in a record the
// caller did not zero, a name that fills the array is refused once stored.
TEST(Quirks, DnsNameRefusedOnlyInAnUnzeroedRecord)
{
    // quirk: kDnsName
    const char *msg = R"(idx=i32:1 enable=s"enable" name=s"0123456789012345678901234567890123456789" )"
                      R"(action=s"Ignore" mode=s"Black" weekday=i32:0)";
    FilterDnsRule rule{};
    EXPECT_EQ(bxtest::receive(MSG_FILTER_DNS, msg, &rule).ret, 0);
    std::memset(&rule, 'x', sizeof rule);
    const bxtest::Received r = bxtest::receive(MSG_FILTER_DNS, msg, &rule);
    EXPECT_EQ(r.ret, -1);
    if (bxtest::trace_paths_private()) {
        EXPECT_EQ(r.trace.substr(r.trace.find("Name:")), "Name:0123456789012345678901234567890x\nout nmd fsl\n");
    }
}

// The probe lists empty a record they are given without "list": the count
// goes to 0 whatever the record held.
TEST(Quirks, ProbeListsWithoutListEmptyTheRecord)
{
    VsieProbeRxList rx{};
    rx.uiCount = 3;
    EXPECT_EQ(bxtest::receive(MSG_VSIE_PROBERX_LIST, "", &rx).ret, 0);
    EXPECT_EQ(rx.uiCount, 0u);
    VsieProbeRespList resp{};
    resp.uiCount = 3;
    EXPECT_EQ(bxtest::receive(MSG_VSIE_PROBERESP_LIST, "", &resp).ret, 0);
    EXPECT_EQ(resp.uiCount, 0u);
}
} // namespace
