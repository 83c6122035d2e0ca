// The records are shared with C daemons by memory layout: their sizes and
// field offsets are part of the interface, and a change to any of them must
// be deliberate. These numbers are the layout on the 64-bit hosts and
// big-endian target the suite runs on (records hold only fixed-size fields,
// except the station list's pointer).
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <map>
#include <string>

#include "blobxlate.h"

extern "C" {
struct bxtest_c_size {
    const char *name;
    size_t size;
};
extern const struct bxtest_c_size bxtest_c_sizes[];
size_t bxtest_c_sizeof_MessageTransEntry(void);
}

namespace {

#define PIN_SIZE(Rec, n) EXPECT_EQ(sizeof(Rec), static_cast<size_t>(n)) << #Rec
#define PIN_OFFSET(Rec, field, n) EXPECT_EQ(offsetof(Rec, field), static_cast<size_t>(n)) << #Rec "." #field

TEST(Layout, RecordSizesAndOffsetsArePinned)
{
    if (sizeof(void *) != 8)
        GTEST_SKIP() << "pinned for 64-bit targets";
    PIN_SIZE(RetParam, 4);
    PIN_OFFSET(RetParam, espResult, 0);
    PIN_SIZE(HwInfoParam, 352);
    PIN_OFFSET(HwInfoParam, szVendor, 0);
    PIN_OFFSET(HwInfoParam, szModel, 16);
    PIN_OFFSET(HwInfoParam, szVersion, 48);
    PIN_OFFSET(HwInfoParam, szDescriptionUrl, 80);
    PIN_OFFSET(HwInfoParam, szCpuModel, 144);
    PIN_OFFSET(HwInfoParam, uiFlashSize, 176);
    PIN_OFFSET(HwInfoParam, uiRamSize, 180);
    PIN_OFFSET(HwInfoParam, uiLanPortsMax, 184);
    PIN_OFFSET(HwInfoParam, auiLanMaxRate, 188);
    PIN_OFFSET(HwInfoParam, uiWanPortsMax, 200);
    PIN_OFFSET(HwInfoParam, auiWanMaxRate, 204);
    PIN_OFFSET(HwInfoParam, szSysType, 208);
    PIN_OFFSET(HwInfoParam, szSysVersion, 224);
    PIN_OFFSET(HwInfoParam, szDescription, 256);
    PIN_OFFSET(HwInfoParam, uiCpuCores, 288);
    PIN_OFFSET(HwInfoParam, szCpuSupplier, 292);
    PIN_OFFSET(HwInfoParam, uiCpuMainFrequency, 308);
    PIN_OFFSET(HwInfoParam, szMemoryProvider, 312);
    PIN_OFFSET(HwInfoParam, ui24gMode, 328);
    PIN_OFFSET(HwInfoParam, ui24gMaxBw, 332);
    PIN_OFFSET(HwInfoParam, ui5gMode, 336);
    PIN_OFFSET(HwInfoParam, ui5gMaxBw, 340);
    PIN_OFFSET(HwInfoParam, ui24gMaxRate, 344);
    PIN_OFFSET(HwInfoParam, ui5gMaxRate, 348);
    PIN_SIZE(FwInfoParam, 160);
    PIN_OFFSET(FwInfoParam, szFwVersion, 0);
    PIN_OFFSET(FwInfoParam, szBootVersion, 32);
    PIN_OFFSET(FwInfoParam, szNewFwVersion, 64);
    PIN_OFFSET(FwInfoParam, uiYear, 96);
    PIN_OFFSET(FwInfoParam, uiMon, 100);
    PIN_OFFSET(FwInfoParam, uiDay, 104);
    PIN_OFFSET(FwInfoParam, uiHour, 108);
    PIN_OFFSET(FwInfoParam, uiMin, 112);
    PIN_OFFSET(FwInfoParam, uiSec, 116);
    PIN_OFFSET(FwInfoParam, uiWeek, 120);
    PIN_OFFSET(FwInfoParam, uiReserved, 124);
    PIN_OFFSET(FwInfoParam, szRealVersion, 128);
    PIN_SIZE(ManuInfoParam, 96);
    PIN_OFFSET(ManuInfoParam, szMac, 0);
    PIN_OFFSET(ManuInfoParam, szSn, 32);
    PIN_OFFSET(ManuInfoParam, szProductName, 64);
    PIN_SIZE(ManageInfoParam, 96);
    PIN_OFFSET(ManageInfoParam, szIp, 0);
    PIN_OFFSET(ManageInfoParam, szDomainName, 16);
    PIN_OFFSET(ManageInfoParam, szCurIp, 80);
    PIN_SIZE(FuncSupportParam, 32);
    PIN_OFFSET(FuncSupportParam, eSupportWifi, 0);
    PIN_OFFSET(FuncSupportParam, eSupportDualBand, 4);
    PIN_OFFSET(FuncSupportParam, eSupportUsb, 8);
    PIN_OFFSET(FuncSupportParam, eSupportVpn, 12);
    PIN_OFFSET(FuncSupportParam, eSupportIPv6, 16);
    PIN_OFFSET(FuncSupportParam, eSupportPrivMesh, 20);
    PIN_OFFSET(FuncSupportParam, eSupportPortBlind, 24);
    PIN_OFFSET(FuncSupportParam, eSupportEasyMesh, 28);
    PIN_SIZE(CpuRateParam, 8);
    PIN_OFFSET(CpuRateParam, uiCpuRate, 0);
    PIN_OFFSET(CpuRateParam, uiCpuTemperature, 4);
    PIN_SIZE(MemRateParam, 4);
    PIN_OFFSET(MemRateParam, uiRamRate, 0);
    PIN_SIZE(FlashRateParam, 8);
    PIN_OFFSET(FlashRateParam, uiRwFlashSize, 0);
    PIN_OFFSET(FlashRateParam, uiFlashUsageRate, 4);
    PIN_SIZE(RunTimeInfoParam, 104);
    PIN_OFFSET(RunTimeInfoParam, uiLoginTimes, 0);
    PIN_OFFSET(RunTimeInfoParam, szLoginLastTime, 4);
    PIN_OFFSET(RunTimeInfoParam, szApLastOnlineTime, 36);
    PIN_OFFSET(RunTimeInfoParam, uiOnlineTime, 68);
    PIN_OFFSET(RunTimeInfoParam, uiYear, 72);
    PIN_OFFSET(RunTimeInfoParam, uiMonth, 76);
    PIN_OFFSET(RunTimeInfoParam, uiDate, 80);
    PIN_OFFSET(RunTimeInfoParam, uiHour, 84);
    PIN_OFFSET(RunTimeInfoParam, uiMinute, 88);
    PIN_OFFSET(RunTimeInfoParam, uiSecond, 92);
    PIN_OFFSET(RunTimeInfoParam, uiWeek, 96);
    PIN_OFFSET(RunTimeInfoParam, eGetType, 100);
    PIN_SIZE(OpenPortParam, 128);
    PIN_OFFSET(OpenPortParam, auiPorts, 0);
    PIN_SIZE(RebootParam, 4);
    PIN_OFFSET(RebootParam, eRebootType, 0);
    PIN_SIZE(UpgradeParam, 456);
    PIN_OFFSET(UpgradeParam, szDownUrl, 0);
    PIN_OFFSET(UpgradeParam, szVersionUrl, 256);
    PIN_OFFSET(UpgradeParam, uiFileSize, 384);
    PIN_OFFSET(UpgradeParam, szChkSum, 388);
    PIN_OFFSET(UpgradeParam, eRebootType, 452);
    PIN_SIZE(LoginPasswordParam, 256);
    PIN_OFFSET(LoginPasswordParam, szPassword, 0);
    PIN_SIZE(SwitchStatusParam, 4);
    PIN_OFFSET(SwitchStatusParam, eStatus, 0);
    PIN_SIZE(UpgradeStatusParam, 4);
    PIN_OFFSET(UpgradeStatusParam, eUpgradeStatus, 0);
    PIN_SIZE(LedColourParam, 8);
    PIN_OFFSET(LedColourParam, eStatus, 0);
    PIN_OFFSET(LedColourParam, eColour, 4);
    PIN_SIZE(StaStorageInfoParam, 36);
    PIN_OFFSET(StaStorageInfoParam, szMac, 0);
    PIN_OFFSET(StaStorageInfoParam, eAllow, 32);
    PIN_SIZE(CustomInfoParam, 8);
    PIN_OFFSET(CustomInfoParam, eOperate, 0);
    PIN_OFFSET(CustomInfoParam, eDistrict, 4);
    PIN_SIZE(CTCCBasicInfoParam, 72);
    PIN_OFFSET(CTCCBasicInfoParam, szCtei, 0);
    PIN_OFFSET(CTCCBasicInfoParam, szElinkSn, 16);
    PIN_OFFSET(CTCCBasicInfoParam, szIfVersion, 51);
    PIN_OFFSET(CTCCBasicInfoParam, eElinkLink, 68);
    PIN_SIZE(CTCCServerInfoParam, 1304);
    PIN_OFFSET(CTCCServerInfoParam, szBssAddr, 0);
    PIN_OFFSET(CTCCServerInfoParam, szAbiAddr, 65);
    PIN_OFFSET(CTCCServerInfoParam, szDevToken, 130);
    PIN_OFFSET(CTCCServerInfoParam, szDevId, 195);
    PIN_OFFSET(CTCCServerInfoParam, aszBackup, 260);
    PIN_OFFSET(CTCCServerInfoParam, uiValidMask, 1300);
    PIN_SIZE(CTCCElinkStatusParam, 4);
    PIN_OFFSET(CTCCElinkStatusParam, eStatus, 0);
    PIN_SIZE(CMCCBasicInfoParam, 472);
    PIN_OFFSET(CMCCBasicInfoParam, szDeviceType, 0);
    PIN_OFFSET(CMCCBasicInfoParam, szProductToken, 32);
    PIN_OFFSET(CMCCBasicInfoParam, szDeviceVendor, 64);
    PIN_OFFSET(CMCCBasicInfoParam, szDeviceModel, 72);
    PIN_OFFSET(CMCCBasicInfoParam, szDeviceSn, 80);
    PIN_OFFSET(CMCCBasicInfoParam, szCmei, 112);
    PIN_OFFSET(CMCCBasicInfoParam, szDeviceKey, 128);
    PIN_OFFSET(CMCCBasicInfoParam, szProvCode, 384);
    PIN_OFFSET(CMCCBasicInfoParam, szDmAppKey, 392);
    PIN_OFFSET(CMCCBasicInfoParam, szDmPwd, 408);
    PIN_SIZE(ServiceAccessParam, 36);
    PIN_OFFSET(ServiceAccessParam, eSwitch, 0);
    PIN_OFFSET(ServiceAccessParam, szUser, 4);
    PIN_OFFSET(ServiceAccessParam, szPwd, 20);
    PIN_SIZE(RouterNameParam, 32);
    PIN_OFFSET(RouterNameParam, szRouterName, 0);
    PIN_SIZE(KernelCountParam, 4);
    PIN_OFFSET(KernelCountParam, uiCount, 0);
    PIN_SIZE(CTCCRouterPinParam, 16);
    PIN_OFFSET(CTCCRouterPinParam, szPin, 0);
    PIN_SIZE(FactoryFlagParam, 4);
    PIN_OFFSET(FactoryFlagParam, eStatus, 0);
    PIN_SIZE(CMCCCfgFileSyncParam, 32);
    PIN_OFFSET(CMCCCfgFileSyncParam, szCfgFile, 0);
    PIN_SIZE(SyncTimeParam, 4);
    PIN_OFFSET(SyncTimeParam, uiTime, 0);
    PIN_SIZE(WanTcpUdpConNumParam, 8);
    PIN_OFFSET(WanTcpUdpConNumParam, uiWanIndex, 0);
    PIN_OFFSET(WanTcpUdpConNumParam, uiNumber, 4);
    PIN_SIZE(CustomFactoryInfoParam, 16);
    PIN_OFFSET(CustomFactoryInfoParam, szRandPassword, 0);
    PIN_SIZE(AgentUplinkInfoParam, 52);
    PIN_OFFSET(AgentUplinkInfoParam, eType, 0);
    PIN_OFFSET(AgentUplinkInfoParam, szSsid, 4);
    PIN_OFFSET(AgentUplinkInfoParam, iRssi, 36);
    PIN_OFFSET(AgentUplinkInfoParam, iNoise, 40);
    PIN_OFFSET(AgentUplinkInfoParam, uiUpRate, 44);
    PIN_OFFSET(AgentUplinkInfoParam, uiDownRate, 48);
    PIN_SIZE(UpgradeReportParam, 8);
    PIN_OFFSET(UpgradeReportParam, uiStatus, 0);
    PIN_OFFSET(UpgradeReportParam, uiErrCode, 4);
    PIN_SIZE(FileSyncParam, 128);
    PIN_OFFSET(FileSyncParam, szSrcFile, 0);
    PIN_OFFSET(FileSyncParam, szDestFile, 64);
    PIN_SIZE(QuickjoinParam, 4);
    PIN_OFFSET(QuickjoinParam, eStatus, 0);
    PIN_SIZE(WanStatusInfo, 168);
    PIN_OFFSET(WanStatusInfo, eWorkMode, 0);
    PIN_OFFSET(WanStatusInfo, eLinkStatus, 4);
    PIN_OFFSET(WanStatusInfo, szIp, 8);
    PIN_OFFSET(WanStatusInfo, szSubMask, 24);
    PIN_OFFSET(WanStatusInfo, szGwIp, 40);
    PIN_OFFSET(WanStatusInfo, szGwMac, 56);
    PIN_OFFSET(WanStatusInfo, szDnsMaster, 88);
    PIN_OFFSET(WanStatusInfo, szDnsSlave, 104);
    PIN_OFFSET(WanStatusInfo, uiDhcpRt, 120);
    PIN_OFFSET(WanStatusInfo, szMac, 124);
    PIN_OFFSET(WanStatusInfo, uiConNum, 156);
    PIN_OFFSET(WanStatusInfo, uiPortId, 160);
    PIN_OFFSET(WanStatusInfo, uiLinkSpeed, 164);
    PIN_SIZE(Ipv6Switch, 4);
    PIN_OFFSET(Ipv6Switch, uiEnable, 0);
    PIN_SIZE(Ipv6Info, 356);
    PIN_OFFSET(Ipv6Info, uiEnable, 0);
    PIN_OFFSET(Ipv6Info, uiConnectStatus, 4);
    PIN_OFFSET(Ipv6Info, szIpAddr, 8);
    PIN_OFFSET(Ipv6Info, szPrefix, 72);
    PIN_OFFSET(Ipv6Info, uiPrefixLen, 136);
    PIN_OFFSET(Ipv6Info, szGateway, 140);
    PIN_OFFSET(Ipv6Info, szDns1, 204);
    PIN_OFFSET(Ipv6Info, szDns2, 268);
    PIN_OFFSET(Ipv6Info, uiIpAddrOrigin, 332);
    PIN_OFFSET(Ipv6Info, uiPdFlag, 336);
    PIN_OFFSET(Ipv6Info, uiPrefixOrigin, 340);
    PIN_OFFSET(Ipv6Info, uiPrefixPlTime, 344);
    PIN_OFFSET(Ipv6Info, uiPrefixVlTime, 348);
    PIN_OFFSET(Ipv6Info, uiDsLite, 352);
    PIN_SIZE(WanDhcpConfig, 4);
    PIN_OFFSET(WanDhcpConfig, uiMtu, 0);
    PIN_SIZE(WanStaticConfig, 88);
    PIN_OFFSET(WanStaticConfig, szIp, 0);
    PIN_OFFSET(WanStaticConfig, szSubMask, 16);
    PIN_OFFSET(WanStaticConfig, szGwIp, 32);
    PIN_OFFSET(WanStaticConfig, uiMtu, 48);
    PIN_OFFSET(WanStaticConfig, szDnsMaster, 52);
    PIN_OFFSET(WanStaticConfig, szDnsSlave, 68);
    PIN_OFFSET(WanStaticConfig, uiCapaFlag, 84);
    PIN_SIZE(WanPppoeConfig, 140);
    PIN_OFFSET(WanPppoeConfig, szUser, 0);
    PIN_OFFSET(WanPppoeConfig, szPwd, 33);
    PIN_OFFSET(WanPppoeConfig, szServer, 66);
    PIN_OFFSET(WanPppoeConfig, szService, 99);
    PIN_OFFSET(WanPppoeConfig, uiMtu, 132);
    PIN_OFFSET(WanPppoeConfig, uiCapaFlag, 136);
    PIN_SIZE(BridgeSwitchParam, 4);
    PIN_OFFSET(BridgeSwitchParam, eStatus, 0);
    PIN_SIZE(BridgeStatusParam, 24);
    PIN_OFFSET(BridgeStatusParam, eStatus, 0);
    PIN_OFFSET(BridgeStatusParam, eLinkStatus, 4);
    PIN_OFFSET(BridgeStatusParam, szIp, 8);
    PIN_SIZE(RepeaterSetParam, 136);
    PIN_OFFSET(RepeaterSetParam, eRadio, 0);
    PIN_OFFSET(RepeaterSetParam, szSsid, 4);
    PIN_OFFSET(RepeaterSetParam, szBssid, 36);
    PIN_OFFSET(RepeaterSetParam, eSecurity, 68);
    PIN_OFFSET(RepeaterSetParam, szPassword, 72);
    PIN_SIZE(RepeaterStaInfoParam, 76);
    PIN_OFFSET(RepeaterStaInfoParam, eRadio, 0);
    PIN_OFFSET(RepeaterStaInfoParam, szSsid, 4);
    PIN_OFFSET(RepeaterStaInfoParam, szBssid, 36);
    PIN_OFFSET(RepeaterStaInfoParam, iRssi, 68);
    PIN_OFFSET(RepeaterStaInfoParam, eConnected, 72);
    PIN_SIZE(RepeaterApEntry, 76);
    PIN_OFFSET(RepeaterApEntry, szSsid, 0);
    PIN_OFFSET(RepeaterApEntry, szBssid, 32);
    PIN_OFFSET(RepeaterApEntry, uiChannel, 64);
    PIN_OFFSET(RepeaterApEntry, iRssi, 68);
    PIN_OFFSET(RepeaterApEntry, eSecurity, 72);
    PIN_SIZE(RepeaterListParam, 2436);
    PIN_OFFSET(RepeaterListParam, uiCount, 0);
    PIN_OFFSET(RepeaterListParam, astList, 4);
    PIN_SIZE(MacCloneParam, 36);
    PIN_OFFSET(MacCloneParam, eStatus, 0);
    PIN_OFFSET(MacCloneParam, szMac, 4);
    PIN_SIZE(LanParam, 32);
    PIN_OFFSET(LanParam, szIp, 0);
    PIN_OFFSET(LanParam, szMask, 16);
    PIN_SIZE(DhcpServerParam, 40);
    PIN_OFFSET(DhcpServerParam, eStatus, 0);
    PIN_OFFSET(DhcpServerParam, szStartIp, 4);
    PIN_OFFSET(DhcpServerParam, szEndIp, 20);
    PIN_OFFSET(DhcpServerParam, uiLeaseTime, 36);
    PIN_SIZE(LanStaticParam, 116);
    PIN_OFFSET(LanStaticParam, eAction, 0);
    PIN_OFFSET(LanStaticParam, szMac, 4);
    PIN_OFFSET(LanStaticParam, szIp, 36);
    PIN_OFFSET(LanStaticParam, szHostName, 52);
    PIN_SIZE(LanStaticEntry, 112);
    PIN_OFFSET(LanStaticEntry, szMac, 0);
    PIN_OFFSET(LanStaticEntry, szIp, 32);
    PIN_OFFSET(LanStaticEntry, szHostName, 48);
    PIN_SIZE(LanStaticListParam, 3588);
    PIN_OFFSET(LanStaticListParam, uiCount, 0);
    PIN_OFFSET(LanStaticListParam, astList, 4);
    PIN_SIZE(PingRequest, 148);
    PIN_OFFSET(PingRequest, szHost, 0);
    PIN_OFFSET(PingRequest, uiNum, 64);
    PIN_OFFSET(PingRequest, uiTimeout, 68);
    PIN_OFFSET(PingRequest, uiBlockSize, 72);
    PIN_OFFSET(PingRequest, szPingTime, 76);
    PIN_OFFSET(PingRequest, uiPingNum, 140);
    PIN_OFFSET(PingRequest, uiCapaFlag, 144);
    PIN_SIZE(TraceRouteRequest, 88);
    PIN_OFFSET(TraceRouteRequest, szHost, 0);
    PIN_OFFSET(TraceRouteRequest, uiNumOfTries, 64);
    PIN_OFFSET(TraceRouteRequest, uiTimeout, 68);
    PIN_OFFSET(TraceRouteRequest, uiBlockSize, 72);
    PIN_OFFSET(TraceRouteRequest, uiMaxHop, 76);
    PIN_OFFSET(TraceRouteRequest, uiResultType, 80);
    PIN_OFFSET(TraceRouteRequest, uiCapaFlag, 84);
    PIN_SIZE(PingResult, 172);
    PIN_OFFSET(PingResult, uiRecivedCount, 0);
    PIN_OFFSET(PingResult, uiLossCount, 4);
    PIN_OFFSET(PingResult, uiPacketsLoss, 8);
    PIN_OFFSET(PingResult, uiAvg, 12);
    PIN_OFFSET(PingResult, uiMin, 16);
    PIN_OFFSET(PingResult, uiMax, 20);
    PIN_OFFSET(PingResult, uiTimeTotal, 24);
    PIN_OFFSET(PingResult, uiPacketCount, 28);
    PIN_OFFSET(PingResult, uiPacketSize, 32);
    PIN_OFFSET(PingResult, szPingUrl, 36);
    PIN_OFFSET(PingResult, szHost, 100);
    PIN_OFFSET(PingResult, uiTimeout, 164);
    PIN_OFFSET(PingResult, uiPingNum, 168);
    PIN_SIZE(TraceRouteResult, 1024);
    PIN_OFFSET(TraceRouteResult, szResult, 0);
    PIN_SIZE(UplinkSupport, 20);
    PIN_OFFSET(UplinkSupport, uiDhcp, 0);
    PIN_OFFSET(UplinkSupport, uiStatic, 4);
    PIN_OFFSET(UplinkSupport, uiPppoe, 8);
    PIN_OFFSET(UplinkSupport, uiBridge, 12);
    PIN_OFFSET(UplinkSupport, uiRepeater, 16);
    PIN_SIZE(PortNum, 72);
    PIN_OFFSET(PortNum, uiLanNum, 0);
    PIN_OFFSET(PortNum, auiLanIndex, 4);
    PIN_OFFSET(PortNum, uiWanNum, 36);
    PIN_OFFSET(PortNum, auiWanIndex, 40);
    PIN_SIZE(PortStatus, 20);
    PIN_OFFSET(PortStatus, eType, 0);
    PIN_OFFSET(PortStatus, uiIndex, 4);
    PIN_OFFSET(PortStatus, eLinkStatus, 8);
    PIN_OFFSET(PortStatus, eDuplex, 12);
    PIN_OFFSET(PortStatus, uiNegRate, 16);
    PIN_SIZE(PortTraffic, 72);
    PIN_OFFSET(PortTraffic, eType, 0);
    PIN_OFFSET(PortTraffic, uiIndex, 4);
    PIN_OFFSET(PortTraffic, ulTxBytes, 8);
    PIN_OFFSET(PortTraffic, ulRxBytes, 16);
    PIN_OFFSET(PortTraffic, ulTxPackets, 24);
    PIN_OFFSET(PortTraffic, ulRxPackets, 32);
    PIN_OFFSET(PortTraffic, ulTxErrors, 40);
    PIN_OFFSET(PortTraffic, ulRxErrors, 48);
    PIN_OFFSET(PortTraffic, ulTxDrops, 56);
    PIN_OFFSET(PortTraffic, ulRxDrops, 64);
    PIN_SIZE(PortRate, 16);
    PIN_OFFSET(PortRate, eType, 0);
    PIN_OFFSET(PortRate, uiIndex, 4);
    PIN_OFFSET(PortRate, uiRxRate, 8);
    PIN_OFFSET(PortRate, uiTxRate, 12);
    PIN_SIZE(PortMac, 28);
    PIN_OFFSET(PortMac, eType, 0);
    PIN_OFFSET(PortMac, uiIndex, 4);
    PIN_OFFSET(PortMac, szMac, 8);
    PIN_SIZE(PortUpDown, 28);
    PIN_OFFSET(PortUpDown, eType, 0);
    PIN_OFFSET(PortUpDown, uiIndex, 4);
    PIN_OFFSET(PortUpDown, uiActive, 8);
    PIN_OFFSET(PortUpDown, szPortIp, 12);
    PIN_SIZE(StaEntry, 544);
    PIN_OFFSET(StaEntry, szMac, 0);
    PIN_OFFSET(StaEntry, szHostName, 32);
    PIN_OFFSET(StaEntry, szName, 96);
    PIN_OFFSET(StaEntry, szIp, 160);
    PIN_OFFSET(StaEntry, eLinkType, 176);
    PIN_OFFSET(StaEntry, uiPort, 180);
    PIN_OFFSET(StaEntry, szSsid, 184);
    PIN_OFFSET(StaEntry, bIsOnline, 216);
    PIN_OFFSET(StaEntry, iOnlineTime, 220);
    PIN_OFFSET(StaEntry, uiOnOffTimestamp, 224);
    PIN_OFFSET(StaEntry, szVmac, 228);
    PIN_OFFSET(StaEntry, szIpv6, 260);
    PIN_OFFSET(StaEntry, szUpMac, 324);
    PIN_OFFSET(StaEntry, eType, 356);
    PIN_OFFSET(StaEntry, szBrand, 360);
    PIN_OFFSET(StaEntry, szModel, 392);
    PIN_OFFSET(StaEntry, uiRxRate, 424);
    PIN_OFFSET(StaEntry, uiTxRate, 428);
    PIN_OFFSET(StaEntry, iRssi, 432);
    PIN_OFFSET(StaEntry, iWeakRssi, 436);
    PIN_OFFSET(StaEntry, uiRxNegRate, 440);
    PIN_OFFSET(StaEntry, uiTxNegRate, 444);
    PIN_OFFSET(StaEntry, eDuplex, 448);
    PIN_OFFSET(StaEntry, bAllowStorage, 452);
    PIN_OFFSET(StaEntry, bAllowInternet, 456);
    PIN_OFFSET(StaEntry, bAllowWifi, 460);
    PIN_OFFSET(StaEntry, bFromWifi6, 464);
    PIN_OFFSET(StaEntry, eMacStatus, 468);
    PIN_OFFSET(StaEntry, uiRxBytes, 472);
    PIN_OFFSET(StaEntry, uiTxBytes, 480);
    PIN_OFFSET(StaEntry, uiRxPackets, 488);
    PIN_OFFSET(StaEntry, uiTxPackets, 496);
    PIN_OFFSET(StaEntry, uiTxRetryPackets, 504);
    PIN_OFFSET(StaEntry, uiRxRetryPackets, 512);
    PIN_OFFSET(StaEntry, uiTxFailedPackets, 520);
    PIN_OFFSET(StaEntry, uiRxFailedPackets, 528);
    PIN_OFFSET(StaEntry, uiTxDiscard, 536);
    PIN_SIZE(StaListInfo, 16);
    PIN_OFFSET(StaListInfo, uiStaNumofEsps, 0);
    PIN_OFFSET(StaListInfo, pstListInfo, 8);
    PIN_SIZE(StaMac, 32);
    PIN_OFFSET(StaMac, szMac, 0);
    PIN_SIZE(StaTraffic, 56);
    PIN_OFFSET(StaTraffic, szMac, 0);
    PIN_OFFSET(StaTraffic, uiTxBytes, 32);
    PIN_OFFSET(StaTraffic, uiRxBytes, 36);
    PIN_OFFSET(StaTraffic, uiTxPackets, 40);
    PIN_OFFSET(StaTraffic, uiRxPackets, 44);
    PIN_OFFSET(StaTraffic, uiTxErrors, 48);
    PIN_OFFSET(StaTraffic, uiRxErrors, 52);
    PIN_SIZE(StaNum, 20);
    PIN_OFFSET(StaNum, uiCountAll, 0);
    PIN_OFFSET(StaNum, uiCountOnline, 4);
    PIN_OFFSET(StaNum, uiCountWired, 8);
    PIN_OFFSET(StaNum, uiCount2p4g, 12);
    PIN_OFFSET(StaNum, uiCount5g, 16);
    PIN_SIZE(StaName, 96);
    PIN_OFFSET(StaName, szMac, 0);
    PIN_OFFSET(StaName, szName, 32);
    PIN_SIZE(StaModel, 100);
    PIN_OFFSET(StaModel, szMac, 0);
    PIN_OFFSET(StaModel, szBrand, 32);
    PIN_OFFSET(StaModel, szModel, 64);
    PIN_OFFSET(StaModel, uiFlag, 96);
    PIN_SIZE(StaCtrlStatusParam, 4);
    PIN_OFFSET(StaCtrlStatusParam, eStatus, 0);
    PIN_SIZE(StaCtrlModeParam, 4);
    PIN_OFFSET(StaCtrlModeParam, eMode, 0);
    PIN_SIZE(StaCtrlModeSwitchParam, 8);
    PIN_OFFSET(StaCtrlModeSwitchParam, eMode, 0);
    PIN_OFFSET(StaCtrlModeSwitchParam, eStatus, 4);
    PIN_SIZE(StaCtrlEntry, 100);
    PIN_OFFSET(StaCtrlEntry, szMac, 0);
    PIN_OFFSET(StaCtrlEntry, szName, 32);
    PIN_OFFSET(StaCtrlEntry, eMode, 96);
    PIN_SIZE(StaCtrlListParam, 3204);
    PIN_OFFSET(StaCtrlListParam, uiCount, 0);
    PIN_OFFSET(StaCtrlListParam, astList, 4);
    PIN_SIZE(StaCtrlAllowParam, 36);
    PIN_OFFSET(StaCtrlAllowParam, szMac, 0);
    PIN_OFFSET(StaCtrlAllowParam, bAllow, 32);
    PIN_SIZE(StaCtrlWifiListParam, 1156);
    PIN_OFFSET(StaCtrlWifiListParam, uiCount, 0);
    PIN_OFFSET(StaCtrlWifiListParam, astList, 4);
    PIN_SIZE(StaCtrlItemParam, 104);
    PIN_OFFSET(StaCtrlItemParam, eAction, 0);
    PIN_OFFSET(StaCtrlItemParam, eMode, 4);
    PIN_OFFSET(StaCtrlItemParam, szMac, 8);
    PIN_OFFSET(StaCtrlItemParam, szName, 40);
    PIN_SIZE(StaCtrlInternetTimeParam, 68);
    PIN_OFFSET(StaCtrlInternetTimeParam, szMac, 0);
    PIN_OFFSET(StaCtrlInternetTimeParam, szStartTime, 32);
    PIN_OFFSET(StaCtrlInternetTimeParam, szEndTime, 48);
    PIN_OFFSET(StaCtrlInternetTimeParam, uiWeekMask, 64);
    PIN_SIZE(WifiSwitchRec, 4);
    PIN_OFFSET(WifiSwitchRec, uiSwitch, 0);
    PIN_SIZE(WifiRadioRec, 4);
    PIN_OFFSET(WifiRadioRec, eRadio, 0);
    PIN_SIZE(WifiSelectRec, 8);
    PIN_OFFSET(WifiSelectRec, eRadio, 0);
    PIN_OFFSET(WifiSelectRec, uiApIndex, 4);
    PIN_SIZE(RadioBasicRec, 48);
    PIN_OFFSET(RadioBasicRec, eRadio, 0);
    PIN_OFFSET(RadioBasicRec, uiStatus, 4);
    PIN_OFFSET(RadioBasicRec, uiTxPower, 8);
    PIN_OFFSET(RadioBasicRec, uiChannel, 12);
    PIN_OFFSET(RadioBasicRec, uiRealChannel, 16);
    PIN_OFFSET(RadioBasicRec, uiBandwidth, 20);
    PIN_OFFSET(RadioBasicRec, uiStandard, 24);
    PIN_OFFSET(RadioBasicRec, uiRealBandwidth, 28);
    PIN_OFFSET(RadioBasicRec, uiApCount, 32);
    PIN_OFFSET(RadioBasicRec, uiLoad, 36);
    PIN_OFFSET(RadioBasicRec, uiNoiseLevel, 40);
    PIN_OFFSET(RadioBasicRec, capaflag, 44);
    PIN_SIZE(ApBasicRec, 196);
    PIN_OFFSET(ApBasicRec, eRadio, 0);
    PIN_OFFSET(ApBasicRec, uiApIndex, 4);
    PIN_OFFSET(ApBasicRec, uiStatus, 8);
    PIN_OFFSET(ApBasicRec, szSsid, 12);
    PIN_OFFSET(ApBasicRec, szInitalSsid, 44);
    PIN_OFFSET(ApBasicRec, szBssid, 76);
    PIN_OFFSET(ApBasicRec, uiAuth, 108);
    PIN_OFFSET(ApBasicRec, uiEncrypt, 112);
    PIN_OFFSET(ApBasicRec, szKey, 116);
    PIN_OFFSET(ApBasicRec, uiHide, 180);
    PIN_OFFSET(ApBasicRec, uiValidTime, 184);
    PIN_OFFSET(ApBasicRec, uiRestTime, 188);
    PIN_OFFSET(ApBasicRec, capaflag, 192);
    PIN_SIZE(ApAdvancedRec, 28);
    PIN_OFFSET(ApAdvancedRec, eRadio, 0);
    PIN_OFFSET(ApAdvancedRec, uiApIndex, 4);
    PIN_OFFSET(ApAdvancedRec, uiAccessMax, 8);
    PIN_OFFSET(ApAdvancedRec, uiWmmEnable, 12);
    PIN_OFFSET(ApAdvancedRec, capaflag, 16);
    PIN_OFFSET(ApAdvancedRec, szRegulatoryDomain, 20);
    PIN_SIZE(ApRateLimitRec, 20);
    PIN_OFFSET(ApRateLimitRec, eRadio, 0);
    PIN_OFFSET(ApRateLimitRec, uiApIndex, 4);
    PIN_OFFSET(ApRateLimitRec, uiUsBandWidth, 8);
    PIN_OFFSET(ApRateLimitRec, uiDsBandWidth, 12);
    PIN_OFFSET(ApRateLimitRec, capaflag, 16);
    PIN_SIZE(ApAccessModeRec, 12);
    PIN_OFFSET(ApAccessModeRec, eRadio, 0);
    PIN_OFFSET(ApAccessModeRec, uiApIndex, 4);
    PIN_OFFSET(ApAccessModeRec, uiAccessMode, 8);
    PIN_SIZE(ApAccessIpRec, 20);
    PIN_OFFSET(ApAccessIpRec, szIp, 0);
    PIN_OFFSET(ApAccessIpRec, uiPort, 16);
    PIN_SIZE(ApAccessRuleRec, 656);
    PIN_OFFSET(ApAccessRuleRec, eRadio, 0);
    PIN_OFFSET(ApAccessRuleRec, uiApIndex, 4);
    PIN_OFFSET(ApAccessRuleRec, uiAccessRule, 8);
    PIN_OFFSET(ApAccessRuleRec, uiCount, 12);
    PIN_OFFSET(ApAccessRuleRec, astIpList, 16);
    PIN_SIZE(ApIndexRec, 8);
    PIN_OFFSET(ApIndexRec, eRadio, 0);
    PIN_OFFSET(ApIndexRec, uiApIndex, 4);
    PIN_SIZE(MeshRoleParam, 4);
    PIN_OFFSET(MeshRoleParam, eRole, 0);
    PIN_SIZE(MeshRoamingParam, 8);
    PIN_OFFSET(MeshRoamingParam, eStatus, 0);
    PIN_OFFSET(MeshRoamingParam, iRssiThreshold, 4);
    PIN_SIZE(BackhaulBssParam, 108);
    PIN_OFFSET(BackhaulBssParam, eRadio, 0);
    PIN_OFFSET(BackhaulBssParam, szSsid, 4);
    PIN_OFFSET(BackhaulBssParam, szPassword, 36);
    PIN_OFFSET(BackhaulBssParam, eAuthMode, 100);
    PIN_OFFSET(BackhaulBssParam, eCipher, 104);
    PIN_SIZE(TopoNodeEntry, 92);
    PIN_OFFSET(TopoNodeEntry, szMac, 0);
    PIN_OFFSET(TopoNodeEntry, szParentMac, 32);
    PIN_OFFSET(TopoNodeEntry, eRole, 64);
    PIN_OFFSET(TopoNodeEntry, eUplink, 68);
    PIN_OFFSET(TopoNodeEntry, iRssi, 72);
    PIN_OFFSET(TopoNodeEntry, szIp, 76);
    PIN_SIZE(WifiTopoParam, 2948);
    PIN_OFFSET(WifiTopoParam, uiCount, 0);
    PIN_OFFSET(WifiTopoParam, astNode, 4);
    PIN_SIZE(LocalMeshEventParam, 36);
    PIN_OFFSET(LocalMeshEventParam, szMac, 0);
    PIN_OFFSET(LocalMeshEventParam, eAction, 32);
    PIN_SIZE(TopoApMacParam, 1028);
    PIN_OFFSET(TopoApMacParam, uiCount, 0);
    PIN_OFFSET(TopoApMacParam, aszMac, 4);
    PIN_SIZE(TopoApMapParam, 96);
    PIN_OFFSET(TopoApMapParam, szMac, 0);
    PIN_OFFSET(TopoApMapParam, szBssid2g, 32);
    PIN_OFFSET(TopoApMapParam, szBssid5g, 64);
    PIN_SIZE(L2RoamingRec, 12);
    PIN_OFFSET(L2RoamingRec, uiStatus, 0);
    PIN_OFFSET(L2RoamingRec, iLowRssi2p4g, 4);
    PIN_OFFSET(L2RoamingRec, iLowRssi5g, 8);
    PIN_SIZE(RoamingRec, 32);
    PIN_OFFSET(RoamingRec, uiEnable, 0);
    PIN_OFFSET(RoamingRec, iThresholdRssi, 4);
    PIN_OFFSET(RoamingRec, uiReportInterval, 8);
    PIN_OFFSET(RoamingRec, uiStartTime, 12);
    PIN_OFFSET(RoamingRec, iStartRssi, 16);
    PIN_OFFSET(RoamingRec, uiLowRssiPeriod, 20);
    PIN_OFFSET(RoamingRec, iThresholdRssi5g, 24);
    PIN_OFFSET(RoamingRec, uiRoamFlag, 28);
    PIN_SIZE(RoamingApInfoRec, 20);
    PIN_OFFSET(RoamingApInfoRec, szBssid, 0);
    PIN_OFFSET(RoamingApInfoRec, uiChannel, 16);
    PIN_SIZE(RoamingApQueryRec, 660);
    PIN_OFFSET(RoamingApQueryRec, uiCount, 0);
    PIN_OFFSET(RoamingApQueryRec, szMac, 4);
    PIN_OFFSET(RoamingApQueryRec, astApInfo, 20);
    PIN_SIZE(RoamingApRssiRec, 20);
    PIN_OFFSET(RoamingApRssiRec, szBssid, 0);
    PIN_OFFSET(RoamingApRssiRec, iRssi, 16);
    PIN_SIZE(RoamingApRspRec, 644);
    PIN_OFFSET(RoamingApRspRec, uiCount, 0);
    PIN_OFFSET(RoamingApRspRec, astApRssi, 4);
    PIN_SIZE(RoamingBssTransRec, 32);
    PIN_OFFSET(RoamingBssTransRec, szSta, 0);
    PIN_OFFSET(RoamingBssTransRec, szBssid, 13);
    PIN_OFFSET(RoamingBssTransRec, uiChannel, 28);
    PIN_SIZE(RoamingReportRec, 68);
    PIN_OFFSET(RoamingReportRec, szMac, 0);
    PIN_OFFSET(RoamingReportRec, eRadio, 20);
    PIN_OFFSET(RoamingReportRec, iRssi, 24);
    PIN_OFFSET(RoamingReportRec, uiConnectTime, 28);
    PIN_OFFSET(RoamingReportRec, uiRxRate, 32);
    PIN_OFFSET(RoamingReportRec, uiTxRate, 36);
    PIN_OFFSET(RoamingReportRec, uiChannel, 40);
    PIN_OFFSET(RoamingReportRec, szBssid, 44);
    PIN_OFFSET(RoamingReportRec, usSupport11k, 62);
    PIN_OFFSET(RoamingReportRec, usSupport11v, 64);
    PIN_SIZE(RoamingStopDetectRec, 24);
    PIN_OFFSET(RoamingStopDetectRec, szMac, 0);
    PIN_OFFSET(RoamingStopDetectRec, uiStopDetectTime, 20);
    PIN_SIZE(RoamingStaRssiRec, 28);
    PIN_OFFSET(RoamingStaRssiRec, szMac, 0);
    PIN_OFFSET(RoamingStaRssiRec, iRssi, 20);
    PIN_OFFSET(RoamingStaRssiRec, eRadio, 24);
    PIN_SIZE(WpsPbcRec, 8);
    PIN_OFFSET(WpsPbcRec, eRadio, 0);
    PIN_OFFSET(WpsPbcRec, uiStatus, 4);
    PIN_SIZE(WlanNeighbourEntryRec, 92);
    PIN_OFFSET(WlanNeighbourEntryRec, szSsid, 0);
    PIN_OFFSET(WlanNeighbourEntryRec, szBssid, 33);
    PIN_OFFSET(WlanNeighbourEntryRec, uiChannel, 68);
    PIN_OFFSET(WlanNeighbourEntryRec, iRssi, 72);
    PIN_OFFSET(WlanNeighbourEntryRec, uiStandard, 76);
    PIN_OFFSET(WlanNeighbourEntryRec, eBandWidth, 80);
    PIN_OFFSET(WlanNeighbourEntryRec, eAuth, 84);
    PIN_OFFSET(WlanNeighbourEntryRec, eEncryptType, 88);
    PIN_SIZE(WlanNeighbourRec, 5896);
    PIN_OFFSET(WlanNeighbourRec, eRadio, 0);
    PIN_OFFSET(WlanNeighbourRec, uiCount, 4);
    PIN_OFFSET(WlanNeighbourRec, astNeighbour, 8);
    PIN_SIZE(ChannelScoreEntryRec, 8);
    PIN_OFFSET(ChannelScoreEntryRec, uiChannel, 0);
    PIN_OFFSET(ChannelScoreEntryRec, uiScore, 4);
    PIN_SIZE(ChannelScoreRec, 520);
    PIN_OFFSET(ChannelScoreRec, eRadio, 0);
    PIN_OFFSET(ChannelScoreRec, uiCount, 4);
    PIN_OFFSET(ChannelScoreRec, astScore, 8);
    PIN_SIZE(WifiDeassocRec, 1036);
    PIN_OFFSET(WifiDeassocRec, uiCount, 0);
    PIN_OFFSET(WifiDeassocRec, eRadio, 4);
    PIN_OFFSET(WifiDeassocRec, uiTime, 8);
    PIN_OFFSET(WifiDeassocRec, aszMac, 12);
    PIN_SIZE(WifiAccessEntryRec, 100);
    PIN_OFFSET(WifiAccessEntryRec, uiIndex, 0);
    PIN_OFFSET(WifiAccessEntryRec, szName, 4);
    PIN_OFFSET(WifiAccessEntryRec, szMac, 68);
    PIN_SIZE(WifiAccessListRec, 6404);
    PIN_OFFSET(WifiAccessListRec, uiCount, 0);
    PIN_OFFSET(WifiAccessListRec, astList, 4);
    PIN_SIZE(QosSwitch, 4);
    PIN_OFFSET(QosSwitch, uiEnable, 0);
    PIN_SIZE(QosClassIndex, 4);
    PIN_OFFSET(QosClassIndex, uiIndex, 0);
    PIN_SIZE(QosClassRule, 200);
    PIN_OFFSET(QosClassRule, uiIndex, 0);
    PIN_OFFSET(QosClassRule, szName, 4);
    PIN_OFFSET(QosClassRule, uiPriority, 40);
    PIN_OFFSET(QosClassRule, uiDscp, 44);
    PIN_OFFSET(QosClassRule, uiVlan8021p, 48);
    PIN_OFFSET(QosClassRule, auiProtocol, 52);
    PIN_OFFSET(QosClassRule, szSrcIp, 84);
    PIN_OFFSET(QosClassRule, szSrcMask, 101);
    PIN_OFFSET(QosClassRule, uiSrcPort, 120);
    PIN_OFFSET(QosClassRule, szSrcMac, 124);
    PIN_OFFSET(QosClassRule, szDstIp, 141);
    PIN_OFFSET(QosClassRule, szDstMask, 158);
    PIN_OFFSET(QosClassRule, uiDstPort, 176);
    PIN_OFFSET(QosClassRule, szDstMac, 180);
    PIN_SIZE(QosClassRuleList, 6404);
    PIN_OFFSET(QosClassRuleList, uiCount, 0);
    PIN_OFFSET(QosClassRuleList, astRule, 4);
    PIN_SIZE(RebootTimer, 16);
    PIN_OFFSET(RebootTimer, uiStatus, 0);
    PIN_OFFSET(RebootTimer, uiHour, 4);
    PIN_OFFSET(RebootTimer, uiMinute, 8);
    PIN_OFFSET(RebootTimer, uiWeek, 12);
    PIN_SIZE(WifiTimerTask, 36);
    PIN_OFFSET(WifiTimerTask, uiTaskId, 0);
    PIN_OFFSET(WifiTimerTask, uiStatus, 4);
    PIN_OFFSET(WifiTimerTask, uiAction, 8);
    PIN_OFFSET(WifiTimerTask, uiType, 12);
    PIN_OFFSET(WifiTimerTask, uiStartHour, 16);
    PIN_OFFSET(WifiTimerTask, uiStartMinute, 20);
    PIN_OFFSET(WifiTimerTask, uiEndHour, 24);
    PIN_OFFSET(WifiTimerTask, uiEndMinute, 28);
    PIN_OFFSET(WifiTimerTask, uiWeek, 32);
    PIN_SIZE(WifiTimerList, 1156);
    PIN_OFFSET(WifiTimerList, uiCount, 0);
    PIN_OFFSET(WifiTimerList, astTask, 4);
    PIN_SIZE(WifiTimerIdx, 4);
    PIN_OFFSET(WifiTimerIdx, uiTaskId, 0);
    PIN_SIZE(RateLimitEntry, 80);
    PIN_OFFSET(RateLimitEntry, uiEnable, 0);
    PIN_OFFSET(RateLimitEntry, szMac, 4);
    PIN_OFFSET(RateLimitEntry, szIp, 36);
    PIN_OFFSET(RateLimitEntry, uiRxRateLimit, 68);
    PIN_OFFSET(RateLimitEntry, uiTxRateLimit, 72);
    PIN_OFFSET(RateLimitEntry, uiValidFlags, 76);
    PIN_SIZE(RateLimitList, 2564);
    PIN_OFFSET(RateLimitList, uiCount, 0);
    PIN_OFFSET(RateLimitList, astEntry, 4);
    PIN_SIZE(PeriodRateTask, 48);
    PIN_OFFSET(PeriodRateTask, eTaskType, 0);
    PIN_OFFSET(PeriodRateTask, szTaskName, 4);
    PIN_OFFSET(PeriodRateTask, uiReportInterval, 40);
    PIN_OFFSET(PeriodRateTask, uiSampleInterval, 44);
    PIN_SIZE(PeriodRateReport, 96);
    PIN_OFFSET(PeriodRateReport, eTaskType, 0);
    PIN_OFFSET(PeriodRateReport, szTaskName, 4);
    PIN_OFFSET(PeriodRateReport, szMac, 37);
    PIN_OFFSET(PeriodRateReport, uiTxRateRt, 72);
    PIN_OFFSET(PeriodRateReport, uiRxRateRt, 76);
    PIN_OFFSET(PeriodRateReport, uiMaxRxRate, 80);
    PIN_OFFSET(PeriodRateReport, uiMaxTxRate, 84);
    PIN_OFFSET(PeriodRateReport, uiAvaRxRate, 88);
    PIN_OFFSET(PeriodRateReport, uiAvaTxRate, 92);
    PIN_SIZE(IptvVlan, 16);
    PIN_OFFSET(IptvVlan, uiVlanId, 0);
    PIN_OFFSET(IptvVlan, uiEthPorts, 4);
    PIN_OFFSET(IptvVlan, uiPorts2p4g, 8);
    PIN_OFFSET(IptvVlan, uiPorts5g, 12);
    PIN_SIZE(IptvConfig, 36);
    PIN_OFFSET(IptvConfig, uiStatus, 0);
    PIN_OFFSET(IptvConfig, astVlan, 4);
    PIN_SIZE(FilterTimeRange, 8);
    PIN_OFFSET(FilterTimeRange, uiStartTime, 0);
    PIN_OFFSET(FilterTimeRange, uiEndTime, 4);
    PIN_SIZE(FilterUrlRule, 2120);
    PIN_OFFSET(FilterUrlRule, uiIdx, 0);
    PIN_OFFSET(FilterUrlRule, uiEnable, 4);
    PIN_OFFSET(FilterUrlRule, aszUrls, 8);
    PIN_OFFSET(FilterUrlRule, szName, 1032);
    PIN_OFFSET(FilterUrlRule, aszMacs, 1064);
    PIN_OFFSET(FilterUrlRule, uiMode, 2088);
    PIN_OFFSET(FilterUrlRule, uiWeekday, 2092);
    PIN_OFFSET(FilterUrlRule, astTimeRange, 2096);
    PIN_SIZE(FilterDnsRule, 1132);
    PIN_OFFSET(FilterDnsRule, uiIdx, 0);
    PIN_OFFSET(FilterDnsRule, uiEnable, 4);
    PIN_OFFSET(FilterDnsRule, aszHostnames, 8);
    PIN_OFFSET(FilterDnsRule, szName, 1032);
    PIN_OFFSET(FilterDnsRule, szMacs, 1064);
    PIN_OFFSET(FilterDnsRule, uiAction, 1096);
    PIN_OFFSET(FilterDnsRule, uiMode, 1100);
    PIN_OFFSET(FilterDnsRule, uiWeekday, 1104);
    PIN_OFFSET(FilterDnsRule, astTimeRange, 1108);
    PIN_SIZE(FilterUrlList, 67844);
    PIN_OFFSET(FilterUrlList, uiCount, 0);
    PIN_OFFSET(FilterUrlList, astRule, 4);
    PIN_SIZE(FilterDnsList, 36228);
    PIN_OFFSET(FilterDnsList, uiCount, 0);
    PIN_OFFSET(FilterDnsList, astRule, 4);
    PIN_SIZE(FilterSwitch, 4);
    PIN_OFFSET(FilterSwitch, uiStatus, 0);
    PIN_SIZE(FilterReply, 4);
    PIN_OFFSET(FilterReply, uiIdx, 0);
    PIN_SIZE(VsieInfo, 16);
    PIN_OFFSET(VsieInfo, uiMaxBeaconTxEntry, 0);
    PIN_OFFSET(VsieInfo, uiMaxBeaconTxConcurrent, 4);
    PIN_OFFSET(VsieInfo, uiMaxProbeRxEntry, 8);
    PIN_OFFSET(VsieInfo, uiMaxProbeRespEntry, 12);
    PIN_SIZE(VsieBeaconTxEntry, 1104);
    PIN_OFFSET(VsieBeaconTxEntry, uiIdx, 0);
    PIN_OFFSET(VsieBeaconTxEntry, szServiceName, 4);
    PIN_OFFSET(VsieBeaconTxEntry, uiSsidIdx, 68);
    PIN_OFFSET(VsieBeaconTxEntry, uiDuration, 72);
    PIN_OFFSET(VsieBeaconTxEntry, uiLen, 76);
    PIN_OFFSET(VsieBeaconTxEntry, auiIeData, 80);
    PIN_SIZE(VsieBeaconTxList, 17668);
    PIN_OFFSET(VsieBeaconTxList, uiCount, 0);
    PIN_OFFSET(VsieBeaconTxList, astEntry, 4);
    PIN_SIZE(VsieIndex, 4);
    PIN_OFFSET(VsieIndex, uiIdx, 0);
    PIN_SIZE(VsieBeaconTxSwitch, 8);
    PIN_OFFSET(VsieBeaconTxSwitch, uiIdx, 0);
    PIN_OFFSET(VsieBeaconTxSwitch, uiEnable, 4);
    PIN_SIZE(VsieProbeRxRecord, 292);
    PIN_OFFSET(VsieProbeRxRecord, uiRecIdx, 0);
    PIN_OFFSET(VsieProbeRxRecord, szMac, 4);
    PIN_OFFSET(VsieProbeRxRecord, uiBand, 24);
    PIN_OFFSET(VsieProbeRxRecord, uiVsieLen, 28);
    PIN_OFFSET(VsieProbeRxRecord, aucVsie, 32);
    PIN_OFFSET(VsieProbeRxRecord, aucOui, 287);
    PIN_SIZE(VsieProbeRxEntry, 2416);
    PIN_OFFSET(VsieProbeRxEntry, uiIdx, 0);
    PIN_OFFSET(VsieProbeRxEntry, szServiceName, 4);
    PIN_OFFSET(VsieProbeRxEntry, uiBand, 68);
    PIN_OFFSET(VsieProbeRxEntry, aucOui, 72);
    PIN_OFFSET(VsieProbeRxEntry, uiRecordCount, 76);
    PIN_OFFSET(VsieProbeRxEntry, astRecord, 80);
    PIN_SIZE(VsieProbeRxList, 19332);
    PIN_OFFSET(VsieProbeRxList, uiCount, 0);
    PIN_OFFSET(VsieProbeRxList, astEntry, 4);
    PIN_SIZE(VsieProbeRxFlush, 64);
    PIN_OFFSET(VsieProbeRxFlush, szServiceName, 0);
    PIN_SIZE(VsieProbeRespEntry, 288);
    PIN_OFFSET(VsieProbeRespEntry, uiIdx, 0);
    PIN_OFFSET(VsieProbeRespEntry, szMac, 4);
    PIN_OFFSET(VsieProbeRespEntry, uiBand, 24);
    PIN_OFFSET(VsieProbeRespEntry, uiIedataLen, 28);
    PIN_OFFSET(VsieProbeRespEntry, aucIedata, 32);
    PIN_SIZE(VsieProbeRespList, 2308);
    PIN_OFFSET(VsieProbeRespList, uiCount, 0);
    PIN_OFFSET(VsieProbeRespList, astEntry, 4);
}

TEST(Layout, CAndCxxAgree)
{
    const std::map<std::string, size_t> cxx = {
        {"RetParam", sizeof(RetParam)},
        {"HwInfoParam", sizeof(HwInfoParam)},
        {"FwInfoParam", sizeof(FwInfoParam)},
        {"ManuInfoParam", sizeof(ManuInfoParam)},
        {"ManageInfoParam", sizeof(ManageInfoParam)},
        {"FuncSupportParam", sizeof(FuncSupportParam)},
        {"CpuRateParam", sizeof(CpuRateParam)},
        {"MemRateParam", sizeof(MemRateParam)},
        {"FlashRateParam", sizeof(FlashRateParam)},
        {"RunTimeInfoParam", sizeof(RunTimeInfoParam)},
        {"OpenPortParam", sizeof(OpenPortParam)},
        {"RebootParam", sizeof(RebootParam)},
        {"UpgradeParam", sizeof(UpgradeParam)},
        {"LoginPasswordParam", sizeof(LoginPasswordParam)},
        {"SwitchStatusParam", sizeof(SwitchStatusParam)},
        {"UpgradeStatusParam", sizeof(UpgradeStatusParam)},
        {"LedColourParam", sizeof(LedColourParam)},
        {"StaStorageInfoParam", sizeof(StaStorageInfoParam)},
        {"CustomInfoParam", sizeof(CustomInfoParam)},
        {"CTCCBasicInfoParam", sizeof(CTCCBasicInfoParam)},
        {"CTCCServerInfoParam", sizeof(CTCCServerInfoParam)},
        {"CTCCElinkStatusParam", sizeof(CTCCElinkStatusParam)},
        {"CMCCBasicInfoParam", sizeof(CMCCBasicInfoParam)},
        {"ServiceAccessParam", sizeof(ServiceAccessParam)},
        {"RouterNameParam", sizeof(RouterNameParam)},
        {"KernelCountParam", sizeof(KernelCountParam)},
        {"CTCCRouterPinParam", sizeof(CTCCRouterPinParam)},
        {"FactoryFlagParam", sizeof(FactoryFlagParam)},
        {"CMCCCfgFileSyncParam", sizeof(CMCCCfgFileSyncParam)},
        {"SyncTimeParam", sizeof(SyncTimeParam)},
        {"WanTcpUdpConNumParam", sizeof(WanTcpUdpConNumParam)},
        {"CustomFactoryInfoParam", sizeof(CustomFactoryInfoParam)},
        {"AgentUplinkInfoParam", sizeof(AgentUplinkInfoParam)},
        {"UpgradeReportParam", sizeof(UpgradeReportParam)},
        {"FileSyncParam", sizeof(FileSyncParam)},
        {"QuickjoinParam", sizeof(QuickjoinParam)},
        {"WanStatusInfo", sizeof(WanStatusInfo)},
        {"Ipv6Switch", sizeof(Ipv6Switch)},
        {"Ipv6Info", sizeof(Ipv6Info)},
        {"WanDhcpConfig", sizeof(WanDhcpConfig)},
        {"WanStaticConfig", sizeof(WanStaticConfig)},
        {"WanPppoeConfig", sizeof(WanPppoeConfig)},
        {"BridgeSwitchParam", sizeof(BridgeSwitchParam)},
        {"BridgeStatusParam", sizeof(BridgeStatusParam)},
        {"RepeaterSetParam", sizeof(RepeaterSetParam)},
        {"RepeaterStaInfoParam", sizeof(RepeaterStaInfoParam)},
        {"RepeaterApEntry", sizeof(RepeaterApEntry)},
        {"RepeaterListParam", sizeof(RepeaterListParam)},
        {"MacCloneParam", sizeof(MacCloneParam)},
        {"LanParam", sizeof(LanParam)},
        {"DhcpServerParam", sizeof(DhcpServerParam)},
        {"LanStaticParam", sizeof(LanStaticParam)},
        {"LanStaticEntry", sizeof(LanStaticEntry)},
        {"LanStaticListParam", sizeof(LanStaticListParam)},
        {"PingRequest", sizeof(PingRequest)},
        {"TraceRouteRequest", sizeof(TraceRouteRequest)},
        {"PingResult", sizeof(PingResult)},
        {"TraceRouteResult", sizeof(TraceRouteResult)},
        {"UplinkSupport", sizeof(UplinkSupport)},
        {"PortNum", sizeof(PortNum)},
        {"PortStatus", sizeof(PortStatus)},
        {"PortTraffic", sizeof(PortTraffic)},
        {"PortRate", sizeof(PortRate)},
        {"PortMac", sizeof(PortMac)},
        {"PortUpDown", sizeof(PortUpDown)},
        {"StaEntry", sizeof(StaEntry)},
        {"StaListInfo", sizeof(StaListInfo)},
        {"StaMac", sizeof(StaMac)},
        {"StaTraffic", sizeof(StaTraffic)},
        {"StaNum", sizeof(StaNum)},
        {"StaName", sizeof(StaName)},
        {"StaModel", sizeof(StaModel)},
        {"StaCtrlStatusParam", sizeof(StaCtrlStatusParam)},
        {"StaCtrlModeParam", sizeof(StaCtrlModeParam)},
        {"StaCtrlModeSwitchParam", sizeof(StaCtrlModeSwitchParam)},
        {"StaCtrlEntry", sizeof(StaCtrlEntry)},
        {"StaCtrlListParam", sizeof(StaCtrlListParam)},
        {"StaCtrlAllowParam", sizeof(StaCtrlAllowParam)},
        {"StaCtrlWifiListParam", sizeof(StaCtrlWifiListParam)},
        {"StaCtrlItemParam", sizeof(StaCtrlItemParam)},
        {"StaCtrlInternetTimeParam", sizeof(StaCtrlInternetTimeParam)},
        {"WifiSwitchRec", sizeof(WifiSwitchRec)},
        {"WifiRadioRec", sizeof(WifiRadioRec)},
        {"WifiSelectRec", sizeof(WifiSelectRec)},
        {"RadioBasicRec", sizeof(RadioBasicRec)},
        {"ApBasicRec", sizeof(ApBasicRec)},
        {"ApAdvancedRec", sizeof(ApAdvancedRec)},
        {"ApRateLimitRec", sizeof(ApRateLimitRec)},
        {"ApAccessModeRec", sizeof(ApAccessModeRec)},
        {"ApAccessIpRec", sizeof(ApAccessIpRec)},
        {"ApAccessRuleRec", sizeof(ApAccessRuleRec)},
        {"ApIndexRec", sizeof(ApIndexRec)},
        {"MeshRoleParam", sizeof(MeshRoleParam)},
        {"MeshRoamingParam", sizeof(MeshRoamingParam)},
        {"BackhaulBssParam", sizeof(BackhaulBssParam)},
        {"TopoNodeEntry", sizeof(TopoNodeEntry)},
        {"WifiTopoParam", sizeof(WifiTopoParam)},
        {"LocalMeshEventParam", sizeof(LocalMeshEventParam)},
        {"TopoApMacParam", sizeof(TopoApMacParam)},
        {"TopoApMapParam", sizeof(TopoApMapParam)},
        {"L2RoamingRec", sizeof(L2RoamingRec)},
        {"RoamingRec", sizeof(RoamingRec)},
        {"RoamingApInfoRec", sizeof(RoamingApInfoRec)},
        {"RoamingApQueryRec", sizeof(RoamingApQueryRec)},
        {"RoamingApRssiRec", sizeof(RoamingApRssiRec)},
        {"RoamingApRspRec", sizeof(RoamingApRspRec)},
        {"RoamingBssTransRec", sizeof(RoamingBssTransRec)},
        {"RoamingReportRec", sizeof(RoamingReportRec)},
        {"RoamingStopDetectRec", sizeof(RoamingStopDetectRec)},
        {"RoamingStaRssiRec", sizeof(RoamingStaRssiRec)},
        {"WpsPbcRec", sizeof(WpsPbcRec)},
        {"WlanNeighbourEntryRec", sizeof(WlanNeighbourEntryRec)},
        {"WlanNeighbourRec", sizeof(WlanNeighbourRec)},
        {"ChannelScoreEntryRec", sizeof(ChannelScoreEntryRec)},
        {"ChannelScoreRec", sizeof(ChannelScoreRec)},
        {"WifiDeassocRec", sizeof(WifiDeassocRec)},
        {"WifiAccessEntryRec", sizeof(WifiAccessEntryRec)},
        {"WifiAccessListRec", sizeof(WifiAccessListRec)},
        {"QosSwitch", sizeof(QosSwitch)},
        {"QosClassIndex", sizeof(QosClassIndex)},
        {"QosClassRule", sizeof(QosClassRule)},
        {"QosClassRuleList", sizeof(QosClassRuleList)},
        {"RebootTimer", sizeof(RebootTimer)},
        {"WifiTimerTask", sizeof(WifiTimerTask)},
        {"WifiTimerList", sizeof(WifiTimerList)},
        {"WifiTimerIdx", sizeof(WifiTimerIdx)},
        {"RateLimitEntry", sizeof(RateLimitEntry)},
        {"RateLimitList", sizeof(RateLimitList)},
        {"PeriodRateTask", sizeof(PeriodRateTask)},
        {"PeriodRateReport", sizeof(PeriodRateReport)},
        {"IptvVlan", sizeof(IptvVlan)},
        {"IptvConfig", sizeof(IptvConfig)},
        {"FilterTimeRange", sizeof(FilterTimeRange)},
        {"FilterUrlRule", sizeof(FilterUrlRule)},
        {"FilterDnsRule", sizeof(FilterDnsRule)},
        {"FilterUrlList", sizeof(FilterUrlList)},
        {"FilterDnsList", sizeof(FilterDnsList)},
        {"FilterSwitch", sizeof(FilterSwitch)},
        {"FilterReply", sizeof(FilterReply)},
        {"VsieInfo", sizeof(VsieInfo)},
        {"VsieBeaconTxEntry", sizeof(VsieBeaconTxEntry)},
        {"VsieBeaconTxList", sizeof(VsieBeaconTxList)},
        {"VsieIndex", sizeof(VsieIndex)},
        {"VsieBeaconTxSwitch", sizeof(VsieBeaconTxSwitch)},
        {"VsieProbeRxRecord", sizeof(VsieProbeRxRecord)},
        {"VsieProbeRxEntry", sizeof(VsieProbeRxEntry)},
        {"VsieProbeRxList", sizeof(VsieProbeRxList)},
        {"VsieProbeRxFlush", sizeof(VsieProbeRxFlush)},
        {"VsieProbeRespEntry", sizeof(VsieProbeRespEntry)},
        {"VsieProbeRespList", sizeof(VsieProbeRespList)},
    };
    size_t seen = 0;
    for (const bxtest_c_size *s = bxtest_c_sizes; s->name != nullptr; ++s, ++seen) {
        auto it = cxx.find(s->name);
        ASSERT_NE(it, cxx.end()) << s->name;
        EXPECT_EQ(s->size, it->second) << s->name;
    }
    EXPECT_EQ(seen, cxx.size());
    EXPECT_EQ(bxtest_c_sizeof_MessageTransEntry(), sizeof(MessageTransEntry));
}

} // namespace
