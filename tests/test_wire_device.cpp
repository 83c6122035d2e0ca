// Wire forms of each message, both ways: Device information and control, carrier services, WAN, LAN, diagnostics and ports.
// Each row is received into a zeroed record of its type, with the trace it
// gives, and the record is sent back (see bxtest::Case).
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "support.h"

using bxtest::Case;

namespace {

// Device and firmware information (0 to 11).
const Case kDeviceInfo[] = {
    {MSG_RET, "espResult=i32:7",
     "esp ret:7\n"},
    // quirk: kRates
    {MSG_HW_INFO, R"(vendor=s"V" model=s"M1" version=s"1.0" descriptionurl=s"http://d" cpumodel=s"c7" )"
     R"(flashsize=i32:16 ramsize=i32:128 lanportsmax=i32:3 wanportsmax=i32:1 systype=s"linux" sysversion=s"5.4" )"
     R"(description=s"router" cpumainfrequency=i32:1200 cpusupplier=s"cs" memoryprovider=s"mp" cpucores=i32:4 )"
     "lanmaxrate=[i32:1000 i32:999 i32:100] wanmaxrate=[i32:2500] 2.4gmaxbw=i32:2 5gmaxbw=i32:3 2.4gmode=i32:8 "
     "5gmode=i32:16 2.4gmaxrate=i32:574 5gmaxrate=i32:2402",
     "vendor:V\nmodel:M1\nversion:1.0\ndescription url:http://d\ncpu model:c7\nflash size:16\nram size:128\n"
     "lan ports max:3\nwan ports max:1\nsys type:linux\nsys version:5.4\ndescription:router\n"
     "cpu main frequency:1200\ncpu supplier:cs\nmemory provider:mp\ncpu cores:4\nlan port[1]: 1000Mbps\n"
     "lan port[2]: 999Mbps\nlan port[3]: 100Mbps\nwan port[1]: 2500Mbps\n2GMaxBW:2\n5GMaxBW:3\n2GMode:8\n"
     "5GMode:16\n2P4GMaxNegotiateRate:574\n5GMaxNegotiateRate:2402\n"},
    {MSG_FW_INFO, R"(fwversion=s"2.1" bootversion=s"b1" newfwversion=s"2.2" compiletime_year=i32:2024 )"
     "compiletime_mon=i32:5 compiletime_day=i32:17 compiletime_hour=i32:13 compiletime_min=i32:45 "
     R"(compiletime_sec=i32:9 compiletime_week=i32:5 realversion=s"2.1-r")",
     "fw version:2.1\nboot version:b1\nnew fw version:2.2\nYear:2024\nMonth:5\nDate:17\nHour:13\nMinute:45\n"
     "Second:9\nWeek:5\n",
     R"(fwversion=s"2.1" bootversion=s"b1" newfwversion=s"2.2" compiletime_year=i32:2024 compiletime_mon=i32:5 )"
     R"(compiletime_day=i32:17 compiletime_hour=i32:13 compiletime_min=i32:45 compiletime_sec=i32:9 realversion=s"")"},
    {MSG_MANU_INFO, R"(mac=s"00:11:22:33:44:55" sn=s"SN1" productname=s"P")",
     "Mac:00:11:22:33:44:55\nSN:SN1\nproduct name:P\n"},
    {MSG_MANAGE_INFO, R"(ip=s"1.1.1.1" domainname=s"d" curip=s"2.2.2.2")",
     "IP:1.1.1.1\nDomain Name:d\nCur IP:2.2.2.2\n"},
    // quirk: kCurIpOnIp ("curip" is read by whether "ip" is there, and traced under its own name)
    {MSG_MANAGE_INFO, R"(ip=s"1.1.1.1")",
     "IP:1.1.1.1\nIllegal parameter: domainname\nCur IP:\n",
     R"(ip=s"1.1.1.1" domainname=s"" curip=s"")"},
    {MSG_MANAGE_INFO, R"(curip=s"2.2.2.2")",
     "Illegal parameter: ip\nIllegal parameter: domainname\nIllegal parameter: curip\n",
     R"(ip=s"" domainname=s"" curip=s"")"},
    {MSG_FUNC_SUPPORT, R"(wifi=s"disable" dualband=s"enable" usb=s"enable" vpn=s"enable" ipv6=s"disable" )"
     R"(privmesh=s"disable" portblind=s"enable" easymesh=s"disable")",
     "SupportWifi:0\nSupportDualBand:1\nSupportUsb:1\nSupportVpn:1\nSupportIPv6:0\nSupportPrivMesh:0\n"
     "SupportPortBlind:1\nSupportEasyMesh:0\n"},
    {MSG_FUNC_SUPPORT, R"(wifi=s"enable" dualband=s"disable" usb=s"on" vpn=s"disable" ipv6=s"enable" )"
     R"(privmesh=s"enable" portblind=s"disable" easymesh=s"enable")",
     "SupportWifi:1\nSupportDualBand:0\nSupportUsb:-1\nSupportVpn:0\nSupportIPv6:1\nSupportPrivMesh:1\n"
     "SupportPortBlind:0\nSupportEasyMesh:1\n",
     R"(wifi=s"enable" dualband=s"disable" usb=s"" vpn=s"disable" ipv6=s"enable" privmesh=s"enable" )"
     R"(portblind=s"disable" easymesh=s"enable")"},
    {MSG_CPU_RATE, "cpurate=i32:37 cputemprature=i32:61",
     "CpuRate:37\nCpuTemperature:61\n"},
    {MSG_MEM_RATE, "ramrate=i32:42",
     "RamRate:42\n"},
    {MSG_FLASH_RATE, "rwflashsize=i32:8 flashusagerate=i32:55",
     "rwflashsize:8\nflashusagerate:55\n"},
    {MSG_RUN_TIME_INFO, R"(logintimes=i32:12 loginlasttime=s"t1" aplastonlinetime=s"t2" onlinetime=i32:3600 )"
     R"(year=i32:2024 month=i32:5 date=i32:17 hour=i32:13 minute=i32:46 second=i32:30 week=i32:5 gettype=s"manual")",
     "OnlineTime:3600\nYear:2024\nMonth:5\nDate:17\nHour:13\nMinute:46\nSecond:30\nWeek:5\nGetType:0\n"
     "LoginTimes:12\nLoginLastTime:t1\nLastOnlineTime:t2\n",
     "onlinetime=i32:3600 year=i32:2024 month=i32:5 date=i32:17 hour=i32:13 minute=i32:46 second=i32:30 "
     R"(week=i32:5 gettype=s"manual" logintimes=i32:12 loginlasttime=s"t1" aplastonlinetime=s"t2")"},
    {MSG_TCP_OPEN_PORT, "ports=[i32:80 i32:443]",
     "Ports: 80\nPorts: 443\n"},
    {MSG_UDP_OPEN_PORT, "ports=[i32:80 i32:443]",
     "Ports: 80\nPorts: 443\n"},
};

// Device control and status.
const Case kDeviceControl[] = {
    {MSG_REBOOT, R"(reboottype=s"delay")",
     "reboot type:1\n",
     R"(status=s"delay")"},
    {MSG_UPGRADE, R"(downurl=s"http://fw/img.bin" versionurl=s"http://fw/ver" filesize=i32:4096 )"
     R"(chksum=s"abc123" reboottype=s"delay")",
     "down url:http://fw/img.bin\nversion url:http://fw/ver\nfile size:4096\nchksum:abc123\nfile size:1\n"},
    {MSG_FIRE_WALL, R"(status=s"enable")",
     "status:1\n"},
    {MSG_LED_STATUS, R"(status=s"enable")",
     "led status:1\n"},
    {MSG_UPGRADE_STATUS, "",
     "",
     R"(UpgradeStatus=s"NOMAL-NotUpgrade")"},
    // quirk: kNamedFirst
    {MSG_LED_COLOUR, R"(status=s"disable" colour=s"2")",
     "JTS_Led_Colour()\nledcolour status:0\nledcolour colour: -1\n",
     R"(status=s"disable" colour=s"-1")"},
    {MSG_DUALBAND_SYNC_STATUS, R"(status=s"enable")",
     "dualbandsync status:1\n"},
};

// Carrier and service messages.
const Case kCarrier[] = {
    {MSG_STA_STORAGE_INFO, R"(mac=s"m" allow=s"yes")",
     "mac:m\n",
     R"(mac=s"m" allow=s"false")"},
    {MSG_CUSTOM_INFO, R"(operate=s"CUCC" district=s"XG")",
     "operator:2\ndistrict:34\n"},
    {MSG_CTCC_BASIC_INFO, R"(ctei=s"123456789012345" elinksn=s"ESN1" ifversion=s"V2" elinklink=s"enable")",
     "ctei:123456789012345\nelinks:ESN1\nifversion:V2\nelinklink:1\n"},
    {MSG_CTCC_SERVER_INFO, R"(abiaddr=s"abi.example" devid=s"D1" backup=[s"b0" s"b1"])",
     "Illegal parameter: bssaddr\nabiaddr:abi.example\nIllegal parameter: devtoken\ndevid:D1\nbackup:b0\n"
     "backup:b1\n"},
    {MSG_CTCC_SERVER_INFO, R"(bssaddr=s"bss" devtoken=s"tk")",
     "bssaddr:bss\nIllegal parameter: abiaddr\ndevtoken:tk\nIllegal parameter: devid\nIllegal parameter: backup\n"},
    {MSG_CTCC_ELINK_STATUS, R"(status=s"enable")",
     "status:1\n"},
    {MSG_CMCC_BASIC_INFO, R"(devicetype=s"t" producttoken=s"pt" devicevendor=s"dv" devicemodel=s"dm" )"
     R"(devicesn=s"sn" cmei=s"ce" devicekey=s"dk" provcode=s"pc" dmappkey=s"ak" dmpwd=s"pw")",
     "devicetype:t\nproducttoken:pt\ndevicevenor:dv\ndevicemodel:dm\ndevicesn:sn\ncmei:ce\ndevicekey:dk\n"
     "provcode:pc\ndmappkey:ak\ndmpwd:pw\n"},
    {MSG_TELNET, R"(switch=s"enable" telnetUser=s"root" telnetPwd=s"pw1")",
     "telnetswitch:1\ntelnetUser:root\ntelnetPwd:pw1\n"},
    {MSG_SAMBA, R"(switch=s"disable" sambaUser=s"guest" sambaPwd=s"pw2")",
     "sambaswitch:0\nsambaUser:guest\nsambaPwd:pw2\n"},
    {MSG_FTP, R"(switch=s"enable" telnetUser=s"root" ftpPwd=s"pw3")",
     "ftpswitch:1\nIllegal parameter: ftpUser\nftpPwd:pw3\n",
     R"(switch=s"enable" ftpUser=s"" ftpPwd=s"pw3")"},
    {MSG_ROUTER_NAME, R"(routername=s"Living room")",
     "RouterTitle:Living room\n"},
    {MSG_KERNELCOUNT, "count=i32:3",
     "count:3\n"},
    {MSG_CTCC_ROUTER_PIN, R"(pin=s"12345678")",
     "RouterPin:12345678\n"},
    {MSG_FACTORY_FLAG, R"(status=s"enable")",
     "FactoryFlag status:1\n"},
    {MSG_CMCC_CFG_FILE_SYNC, R"(cfgfile=s"/etc/config/x")",
     ""},
    {MSG_SYNC_TIME, "time=i32:1700000000",
     "time:1700000000\n"},
    {MSG_WAN_TCP_UDP_CON_NUM_GET, "wanindex=i32:1 number=i32:250",
     "wan index:1\nConNum:250\n"},
    {MSG_WAN_TCP_UDP_CON_NUM_GET, R"(name=s"x")",
     "Illegal parameter: wanindex\n[wan index] is not valid.\nIllegal parameter: number\n",
     "wanindex=i32:0 number=i32:0"},
    {MSG_CUSTOM_FACTORY_INFO, R"(randpassword=s"Ab3dEf7h")",
     "randpassword:Ab3dEf7h\n"},
    // quirk: kRandPasswordRead
    {MSG_CUSTOM_FACTORY_INFO, R"(randpassword=s"Ab3dEf7")",
     "wrong randpassword:Ab3dEf7\n",
     R"(randpassword=s"")"},
    {MSG_WIFI_GET_AGENT_UPLINK_INFO, R"(type=s"5g" ssid=s"mesh" rssi=i32:-61 noise=i32:-95 uprate=i32:866 )"
     "downrate=i32:780",
     "type:2\nssid: mesh\nRssi: -61\nNoise: -95\nUpRate: 866\nDownRate: 780\n"},
    {MSG_UPGRADE_REPORT, "status=i32:0 errCode=i32:4",
     "upgrade status:0(1:succ,0:failed).\nupgrade ErrCode:4\n"},
    {MSG_FILE_SYNC, R"(srcfile=s"/tmp/a" destfile=s"/etc/a")",
     "pstOut->szSrcFile:/tmp/a\npstOut->szDestFile:/etc/a\n"},
    {MSG_QUICKJOIN, R"(status=s"enable")",
     "status:1\n"},
};

// WAN status, IPv6 and the addressing modes.
const Case kWan[] = {
    {MSG_WAN_STATUS, R"(workmode=s"ADSL" linkstatus=s"enable" ip=s"192.168.1.100" gwmac=s"00:11:22:33:44:55" )"
     "dhcprt=i32:-1 connum=i32:3 portid=i32:4 linkspeed=i32:-1",
     "WorkMode:6\nLinkStates:1\nIP:192.168.1.100\nIllegal parameter: submask\nIllegal parameter: gwip\n"
     "GwMac:00:11:22:33:44:55\nIllegal parameter: dnsmaster\nIllegal parameter: dnsslave\nDhcRt:-1\n"
     "Illegal parameter: mac\nConNum:3\nPortId:4\nLinkspeed:4294967295\n",
     R"(workmode=s"any" linkstatus=s"enable" ip=s"192.168.1.100" submask=s"" gwip=s"" gwmac=s"00:11:22:33:44:55" )"
     R"(dnsmaster=s"" dnsslave=s"" dhcprt=i32:-1 mac=s"" connum=i32:3 portid=i32:4 linkspeed=i32:-1)"},
    {MSG_IPV6_ENABLE, R"(host=s"h" resulttype=i32:0 IPv6status=s"enable")",
     "ipv6Switch:1\n",
     R"(IPv6status=s"enable")"},
    {MSG_IPV6_INFO, R"(IPv6enable=s"enable" connectstatus=s"Connected" IPaddr=s"2001:db8::1" )"
     R"(prefix=s"2001:db8::" prefixlen=i32:64 IPaddrorigin=s"DHCPv6" pdflag=s"true" )"
     R"(prefixorigin=s"PrefixDelegation" prefixpltime=i32:3600 prefixvltime=i32:7200 dslite=s"yes")",
     "IPv6 Status: 1\nIPv6 Connect Status: 1\nIPv6 Address: 2001:db8::1\nIPv6 Prefix: 2001:db8::\n"
     "IPv6 Prefix Len: 64\nIllegal parameter: gateway\nIllegal parameter: dns1\nIllegal parameter: dns2\n"
     "IPv6 Address Origin: 2\nIPv6 PD Flag: 1\nIPv6 Prefix Origin: 1\nIPv6 PD Preferred Life Time: 3600\n"
     "IPv6 PD Valid Life Time: 7200\nIPv6 DS-Lite Flag: -1\n",
     R"(IPv6enable=s"enable" connectstatus=s"Connected" IPaddr=s"2001:db8::1" prefix=s"2001:db8::" prefixlen=i32:64 )"
     R"(gateway=s"" dns1=s"" dns2=s"" IPaddrorigin=s"DHCPv6" pdflag=s"true" prefixorigin=s"PrefixDelegation" )"
     R"(prefixpltime=i32:3600 prefixvltime=i32:7200 dslite=s"false")"},
    {MSG_DHCP, "mtu=i32:1500",
     "MTU:1500\n"},
    {MSG_STATIC, R"(ip=s"1.1.1.2" submask=s"255.0.0.0" gwip=s"1.1.1.1" dnsmaster=s"9.9.9.9" )"
     R"(dnsslave=s"1.0.0.1")",
     "IP:1.1.1.2\nSubMask:255.0.0.0\nGwIP:1.1.1.1\nIllegal parameter: mtu\nDnsMaster:9.9.9.9\nDnsSlave:1.0.0.1\n"
     "Illegal parameter: capaflag\n"},
    {MSG_STATIC, "mtu=i32:1500",
     "Illegal parameter: ip\nIllegal parameter: submask\nIllegal parameter: gwip\nMTU:1500\n"
     "Illegal parameter: dnsmaster\nIllegal parameter: dnsslave\nIllegal parameter: capaflag\n",
     R"(mtu=i32:1500 dnsslave=s"")"},
    {MSG_PPPOE, R"(user=s"alice" pwd=s"pw" capaflag=i32:1024)",
     "PppoeUser:alice\nPppoePwd:pw\nIllegal parameter: mtu\nIllegal parameter: server\n"
     "Illegal parameter: service\n",
     R"(user=s"alice" pwd=s"pw" mtu=i32:0)"},
    // quirk: kServerShowsPwd
    {MSG_PPPOE, R"(pwd=s"pw" server=s"isp")",
     "Illegal parameter: user\nPppoePwd:pw\nIllegal parameter: mtu\nPppoeServer:pw\nIllegal parameter: service\n"
     "Illegal parameter: capaflag\n",
     R"(pwd=s"pw" server=s"isp" mtu=i32:0)"},
    {MSG_PPPOE, "mtu=i32:1500",
     "Illegal parameter: user\nIllegal parameter: pwd\nMTU:1500\nIllegal parameter: server\n"
     "Illegal parameter: service\nIllegal parameter: capaflag\n"},
};

// Bridge, repeater, MAC clone, LAN, DHCP server, static leases, lock-net.
const Case kLan[] = {
    {MSG_BRIDGE_SWITCH, R"(status=s"enable")",
     "status:1\n"},
    {MSG_BRIDGE_STATUS, R"(status=s"disable" linkstatus=s"up" ip=s"192.168.1.2")",
     "status:0\nlinkstatus:1\nip:192.168.1.2\n"},
    {MSG_REPEATER_SET_INFO, R"(radio=s"5G" ssid=s"up" bssid=s"aa:bb:cc:dd:ee:ff" security=s"WPA2_AES" )"
     R"(password=s"pw")",
     "radio:1\nssid:up\nbssid:aa:bb:cc:dd:ee:ff\nsecurity:5\npassword:pw\n"},
    {MSG_REPEATER_STA_INFO, R"(radio=s"2.4G" ssid=s"s" bssid=s"b" rssi=i32:-61 status=s"Connected")",
     "radio:0\nssid:s\nbssid:b\nrssi:-61\nstatus:1\n"},
    {MSG_REPEATER_LIST, R"(count=i32:9 list=[{ssid=s"a" bssid=s"b" channel=i32:36 rssi=i32:-40 )"
     R"(security=s"NONE"} {ssid=s"c"}])",
     "ssid:a\nbssid:b\nchannel:36\nrssi:-40\nsecurity:0\nssid:c\nIllegal parameter: bssid\n"
     "Illegal parameter: channel\nIllegal parameter: rssi\nIllegal parameter: security\ncount:2\n",
     R"(count=i32:2 list=[{ssid=s"a" bssid=s"b" channel=i32:36 rssi=i32:-40 security=s"NONE"} {ssid=s"c" bssid=s"" )"
     R"(channel=i32:0 rssi=i32:0 security=s"NONE"}])"},
    {MSG_CLONE_MAC, R"(status=s"disable" mac=s"m")",
     "status:0\nmac:m\n"},
    {MSG_LAN, R"(ip=s"192.168.1.1" mask=s"255.255.255.0")",
     "ip:192.168.1.1\nmask:255.255.255.0\n"},
    {MSG_LAN_CLONE, R"(status=s"disable" mac=s"m")",
     "status:0\nmac:m\n"},
    {MSG_DHCP_SERVER, R"(status=s"enable" startip=s"10.0.0.2" endip=s"10.0.0.99" leasetime=i32:86400)",
     "status:1\nstartip:10.0.0.2\nendip:10.0.0.99\nleasetime:86400\n"},
    {MSG_LAN_STATIC, R"(action=s"delete" mac=s"m" ip=s"10.0.0.5" hostname=s"nas")",
     "action:2\nmac:m\nip:10.0.0.5\nhostname:nas\n"},
    {MSG_LAN_STATIC_LIST, R"(list=[{mac=s"m1" ip=s"i1" hostname=s"h1"}])",
     "mac:m1\nip:i1\nhostname:h1\ncount:1\n",
     R"(count=i32:1 list=[{mac=s"m1" ip=s"i1" hostname=s"h1"}])"},
    {MSG_LOCK_NET, R"(status=s"enable")",
     "status:1\n"},
};

// Ping and traceroute.
const Case kDiagnostics[] = {
    {MSG_PING, R"(host=s"h" blocksize=i32:65535 pingtime=s"10s" pingnum=i32:-5 capaflag=i32:255)",
     "Host:h\nIllegal parameter: num\nIllegal parameter: timeout\nBlockSize:65535\nPingTime:10s\nPingNum:-5\n",
     R"(host=s"h" blocksize=i32:65535 pingtime=s"10s" pingnum=i32:-5)"},
    {MSG_TRACE_ROUTE, R"(host=s"h" resulttype=i32:1)",
     "Host:h\nIllegal parameter: numoftries\nIllegal parameter: timeout\nIllegal parameter: blocksize\n"
     "Illegal parameter: maxhop\nResultType:1\n"},
    {MSG_PING_RESULT, "recivedcount=i32:3 losscount=i32:1 avg=i32:12 min=i32:9 max=i32:20 "
     R"(packetsloss=i32:25 timetotal=i32:3010 packetcount=i32:4 packetsize=i32:64 pingurl=s"u" host=s"h" )"
     "timeout=i32:1000",
     "RecivedCount:3\nLossCount:1\nAvg:12\nMin:9\nMax:20\nPacketsLoss:25\nTimeTotal:3010\nPacketCount:4\n"
     "PacketSize:64\nPingurl:u\nHost:h\nTimeOut:1000\nIllegal parameter: pingnum\n",
     "recivedcount=i32:3 losscount=i32:1 avg=i32:12 min=i32:9 max=i32:20 packetsloss=i32:25 timetotal=i32:3010 "
     R"(packetcount=i32:4 packetsize=i32:64 pingurl=s"u" host=s"h" timeout=i32:1000 pingnum=i32:0)"},
    {MSG_TRACE_ROUTE_RESULT, "",
     "Illegal parameter: result\n",
     R"(result=s"")"},
    {MSG_UPLINK_SUPPORT, R"(dhcp=s"enable" static=s"disable" pppoe=s"Enable" repeater=s"enable")",
     "Dhcp:1\nStatic:0\nPppoe:-1\nIllegal parameter: bridge\nRepeater:1\n",
     R"(dhcp=s"enable" static=s"disable" pppoe=s"" bridge=s"disable" repeater=s"enable")"},
};

// Ethernet ports.
const Case kPorts[] = {
    {MSG_PORT_NUM, "lan=i32:1 lanindex=[i32:3 i32:4] wan=i32:2 wanindex=[i32:1 i32:2]",
     "lannum:1\nwannum:2\nlanindex:3\nwanindex:1\nwanindex:2\n",
     "lan=i32:1 wan=i32:2 lanindex=[i32:3] wanindex=[i32:1 i32:2]"},
    {MSG_PORT_STATUS, R"(type=s"LAN" index=i32:1 linkstatus=s"up" duplex=s"AUTO" negrate=i32:100)",
     "type:2\nindex:1\nlinkstatus:1\nduplex:3\nnegrate:100\n"},
    // quirk: kRxPacketsRead
    {MSG_PORT_TRAFFIC, R"(type=s"WAN" index=i32:2 txbytes=i64:3000000010 rxbytes=i64:3000000020 )"
     "txpackets=i64:3000000030 rxpackets=i64:3000000040 txerrors=i64:3000000050 rxerrors=i64:3000000060 "
     "txdrops=i64:3000000070 rxdrops=i64:5000000000",
     "type:1\nindex:2\nulTxBytes:3000000010\nulRxBytes:3000000020\ntxpackets:3000000030\ntxpackets:3000000030\n"
     "txerrors:3000000050\nrxerrors:3000000060\ntxdrops:3000000070\nrxdrops:5000000000\n"},
    {MSG_PORT_RATE, R"(type=s"2.4G" index=i32:1 rxrate=i32:7 txrate=i32:8)",
     "type:3\nindex:1\nrxrate:7\ntxrate:8\n"},
    {MSG_PORT_MAC, R"(type=s"2.4G" index=i32:1 rxrate=i32:7 txrate=i32:8)",
     "type:3\nindex:1\nIllegal parameter: mac\n",
     R"(type=s"2.4G" index=i32:1 mac=s"")"},
    {MSG_PORT_MAC, R"(mac=s"aa:bb:cc:dd:ee:ff:00")",
     "Illegal parameter: type\nIllegal parameter: index\nmac addr:aa:bb:cc:dd:ee:ff\n",
     R"(type=s"" index=i32:0 mac=s"aa:bb:cc:dd:ee:ff")"},
    {MSG_PORT_UP_DOWN, R"(type=s"WAN" index=i32:1 active=i32:0 port_ip=s"10.0.0.1")",
     "port type:1\nport index:1\nport active:0\nport ip:10.0.0.1\n"},
};

// Refusals: what a message without a required key, or with a value out of
// range, answers and traces; fields stored before stay stored. The switch
// messages (firewall, LED, dual-band sync) share one rule, shown on
// MSG_FIRE_WALL.
const Case kRefusals[] = {
    {MSG_RET, "",
     "Illegal parameter: espResult\n",
     "espResult=i32:0", -1},
    {MSG_LOGIN_PASSWORD, "",
     "Illegal parameter: password\n",
     R"(password=s"")", -1},
    {MSG_FIRE_WALL, "",
     "Illegal parameter: status\n",
     R"(status=s"disable")", -1},
    {MSG_CTCC_ELINK_STATUS, R"(name=s"x")",
     "Illegal parameter: status\n[status] is not valid.\n",
     R"(status=s"disable")", -1},
    {MSG_ROUTER_NAME, R"(name=s"x")",
     "Illegal parameter: routername\n[routername] is not valid.\n",
     R"(routername=s"")", -1},
    {MSG_KERNELCOUNT, R"(name=s"x")",
     "Illegal parameter: count\n[count] is not valid.\n",
     "count=i32:0", -1},
    {MSG_FACTORY_FLAG, R"(name=s"x")",
     "Illegal parameter: status\n",
     R"(status=s"disable")", -1},
    {MSG_SYNC_TIME, R"(name=s"x")",
     "Illegal parameter: time\n[status] is not valid.\n",
     "time=i32:0", -1},
    {MSG_IPV6_ENABLE, "",
     "Illegal parameter: IPv6status\nipv6Switch is not valid\n",
     R"(IPv6status=s"disable")", -1},
    {MSG_PING, R"(host=s"h" num=i32:0 timeout=i32:0 blocksize=i32:0)",
     "Host:h\nNum:0\nTimeOut:0\n[PING_BLOCKSIZE] is not valid.\n",
     R"(host=s"h" num=i32:0 timeout=i32:0 blocksize=i32:0 pingtime=s"" pingnum=i32:0)", -1},
    {MSG_PING, "",
     "Illegal parameter: host\n[Host] is not valid.\n",
     R"(host=s"" pingtime=s"" pingnum=i32:0)", -1},
    {MSG_PING, R"(host=s"h" num=i32:-1)",
     "Host:h\n[PING_NUM] is not valid.\n",
     R"(host=s"h" pingtime=s"" pingnum=i32:0)", -1},
    {MSG_PING, R"(host=s"h" num=i32:65535 timeout=i32:65536)",
     "Host:h\nNum:65535\n[PING_TIMEOUT] is not valid.\n",
     R"(host=s"h" num=i32:65535 blocksize=i32:0 pingtime=s"" pingnum=i32:0)", -1},
    {MSG_TRACE_ROUTE, R"(host=s"h" numoftries=i32:0 timeout=i32:5 blocksize=i32:64 maxhop=i32:30)",
     "Host:h\nNumOftries:0\nTimeOut:5\nBlockSize:64\nMaxHop:30\nIllegal parameter: resulttype\n"
     "[ResultType] is not valid.\n",
     R"(host=s"h" resulttype=i32:0 numoftries=i32:0 timeout=i32:5 blocksize=i32:64 maxhop=i32:30)", -1},
    {MSG_TRACE_ROUTE, "",
     "Illegal parameter: host\n[Host] is not valid.\n",
     R"(host=s"" resulttype=i32:0)", -1},
    {MSG_TRACE_ROUTE, R"(host=s"h" blocksize=i32:65536)",
     "Host:h\nIllegal parameter: numoftries\nIllegal parameter: timeout\n[TRACEROUTE_BLOCKSIZE] is not valid.\n",
     R"(host=s"h" resulttype=i32:0)", -1},
    {MSG_TRACE_ROUTE, R"(host=s"h" maxhop=i32:0 resulttype=i32:0)",
     "Host:h\nIllegal parameter: numoftries\nIllegal parameter: timeout\nIllegal parameter: blocksize\n"
     "[TRACEROUTE_MAXHOP] is not valid.\n",
     R"(host=s"h" resulttype=i32:0)", -1},
    {MSG_TRACE_ROUTE, R"(host=s"h" num=i32:65535 timeout=i32:65536)",
     "Host:h\nIllegal parameter: numoftries\n[TRACEROUTE_TIMEOUT] is not valid.\n",
     R"(host=s"h" resulttype=i32:0)", -1},
    {MSG_TRACE_ROUTE, R"(host=s"h" numoftries=i32:65536 resulttype=i32:0)",
     "Host:h\n[TRACEROUTE_NUMOFTRIES] is not valid.\n",
     R"(host=s"h" resulttype=i32:0)", -1},
};

TEST(Wire, DeviceInfo) { for (const Case &c : kDeviceInfo) bxtest::expect_case(c); }
TEST(Wire, DeviceControl) { for (const Case &c : kDeviceControl) bxtest::expect_case(c); }
TEST(Wire, Carrier) { for (const Case &c : kCarrier) bxtest::expect_case(c); }
TEST(Wire, Wan) { for (const Case &c : kWan) bxtest::expect_case(c); }
TEST(Wire, Lan) { for (const Case &c : kLan) bxtest::expect_case(c); }
TEST(Wire, Diagnostics) { for (const Case &c : kDiagnostics) bxtest::expect_case(c); }
TEST(Wire, Ports) { for (const Case &c : kPorts) bxtest::expect_case(c); }
TEST(Refusals, Device) { for (const Case &c : kRefusals) bxtest::expect_case(c); }

// The result is traced whole, under the sender's name, before it goes out.
TEST(Quirks, TraceRouteResultIsTracedBeforeItIsSent)
{
    // quirk: kTracedResult
    BX_REQUIRE_TRACE_CAPTURE();
    TraceRouteResult rec{};
    std::memcpy(rec.szResult, "hop 1", 5);
    bxtest::TraceCapture cap;
    EXPECT_EQ(bxtest::stj_typed(MSG_TRACE_ROUTE_RESULT, &rec), R"(result=s"hop 1")");
    const std::vector<std::string> lines = cap.take();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "STJ_TraceRoute_Result: STJ_TraceRoute_Result [hop 1] \n\n"), 1);
}

// Open ports go out up to the first zero entry, whatever follows it.
TEST(Quirks, OpenPortsEndAtTheFirstZero)
{
    OpenPortParam rec{};
    rec.auiPorts[0] = 80;
    rec.auiPorts[2] = 443;
    EXPECT_EQ(bxtest::stj_typed(MSG_TCP_OPEN_PORT, &rec), "ports=[i32:80]");
}

} // namespace
