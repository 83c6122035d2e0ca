// The records are shared with C daemons by memory layout: their sizes and
// field offsets are part of the interface, and a change to any of them must
// be deliberate. These numbers hold on every ABI the suite runs on: the
// 64-bit hosts, s390x (big-endian, LP64) and mipsel (o32, ILP32), where
// 64-bit members are 8-aligned alike. Records hold only fixed-size fields,
// except the station list's pointer, the one place where the ABIs differ.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <initializer_list>
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

struct Pin {
    const char *field;
    size_t actual, expected;
};

void check(const char *record, size_t actual, size_t expected, std::initializer_list<Pin> fields)
{
    EXPECT_EQ(actual, expected) << "sizeof " << record;
    for (const Pin &f : fields)
        EXPECT_EQ(f.actual, f.expected) << record << "." << f.field;
}

#define LAYOUT(Rec, size, ...)                     \
    do {                                           \
        using R = Rec;                             \
        check(#Rec, sizeof(R), size, {__VA_ARGS__}); \
    } while (0)
#define F(field, n) Pin{#field, offsetof(R, field), n}

/* The station list's record per pointer width: size, offset of the pointer. */
struct PointerLayout {
    size_t sta_list_size, sta_list_pointer;
};
constexpr PointerLayout kLp64{16, 8};  // 64-bit hosts, s390x
constexpr PointerLayout kIlp32{8, 4};  // mipsel o32
constexpr PointerLayout kPointers = sizeof(void *) == 8 ? kLp64 : kIlp32;

TEST(Layout, RecordSizesAndOffsetsArePinned)
{
    ASSERT_TRUE(sizeof(void *) == 8 || sizeof(void *) == 4) << "no layout pinned for this pointer width";
    LAYOUT(RetParam, 4, F(espResult, 0));
    LAYOUT(HwInfoParam, 352, F(szVendor, 0), F(szModel, 16), F(szVersion, 48), F(szDescriptionUrl, 80),
           F(szCpuModel, 144), F(uiFlashSize, 176), F(uiRamSize, 180), F(uiLanPortsMax, 184), F(auiLanMaxRate, 188),
           F(uiWanPortsMax, 200), F(auiWanMaxRate, 204), F(szSysType, 208), F(szSysVersion, 224),
           F(szDescription, 256), F(uiCpuCores, 288), F(szCpuSupplier, 292), F(uiCpuMainFrequency, 308),
           F(szMemoryProvider, 312), F(ui24gMode, 328), F(ui24gMaxBw, 332), F(ui5gMode, 336), F(ui5gMaxBw, 340),
           F(ui24gMaxRate, 344), F(ui5gMaxRate, 348));
    LAYOUT(FwInfoParam, 160, F(szFwVersion, 0), F(szBootVersion, 32), F(szNewFwVersion, 64), F(uiYear, 96),
           F(uiMon, 100), F(uiDay, 104), F(uiHour, 108), F(uiMin, 112), F(uiSec, 116), F(uiWeek, 120),
           F(uiReserved, 124), F(szRealVersion, 128));
    LAYOUT(ManuInfoParam, 96, F(szMac, 0), F(szSn, 32), F(szProductName, 64));
    LAYOUT(ManageInfoParam, 96, F(szIp, 0), F(szDomainName, 16), F(szCurIp, 80));
    LAYOUT(FuncSupportParam, 32, F(eSupportWifi, 0), F(eSupportDualBand, 4), F(eSupportUsb, 8), F(eSupportVpn, 12),
           F(eSupportIPv6, 16), F(eSupportPrivMesh, 20), F(eSupportPortBlind, 24), F(eSupportEasyMesh, 28));
    LAYOUT(CpuRateParam, 8, F(uiCpuRate, 0), F(uiCpuTemperature, 4));
    LAYOUT(MemRateParam, 4, F(uiRamRate, 0));
    LAYOUT(FlashRateParam, 8, F(uiRwFlashSize, 0), F(uiFlashUsageRate, 4));
    LAYOUT(RunTimeInfoParam, 104, F(uiLoginTimes, 0), F(szLoginLastTime, 4), F(szApLastOnlineTime, 36),
           F(uiOnlineTime, 68), F(uiYear, 72), F(uiMonth, 76), F(uiDate, 80), F(uiHour, 84), F(uiMinute, 88),
           F(uiSecond, 92), F(uiWeek, 96), F(eGetType, 100));
    LAYOUT(OpenPortParam, 128, F(auiPorts, 0));
    LAYOUT(RebootParam, 4, F(eRebootType, 0));
    LAYOUT(UpgradeParam, 456, F(szDownUrl, 0), F(szVersionUrl, 256), F(uiFileSize, 384), F(szChkSum, 388),
           F(eRebootType, 452));
    LAYOUT(LoginPasswordParam, 256, F(szPassword, 0));
    LAYOUT(SwitchStatusParam, 4, F(eStatus, 0));
    LAYOUT(UpgradeStatusParam, 4, F(eUpgradeStatus, 0));
    LAYOUT(LedColourParam, 8, F(eStatus, 0), F(eColour, 4));
    LAYOUT(StaStorageInfoParam, 36, F(szMac, 0), F(eAllow, 32));
    LAYOUT(CustomInfoParam, 8, F(eOperate, 0), F(eDistrict, 4));
    LAYOUT(CTCCBasicInfoParam, 72, F(szCtei, 0), F(szElinkSn, 16), F(szIfVersion, 51), F(eElinkLink, 68));
    LAYOUT(CTCCServerInfoParam, 1304, F(szBssAddr, 0), F(szAbiAddr, 65), F(szDevToken, 130), F(szDevId, 195),
           F(aszBackup, 260), F(uiValidMask, 1300));
    LAYOUT(CTCCElinkStatusParam, 4, F(eStatus, 0));
    LAYOUT(CMCCBasicInfoParam, 472, F(szDeviceType, 0), F(szProductToken, 32), F(szDeviceVendor, 64),
           F(szDeviceModel, 72), F(szDeviceSn, 80), F(szCmei, 112), F(szDeviceKey, 128), F(szProvCode, 384),
           F(szDmAppKey, 392), F(szDmPwd, 408));
    LAYOUT(ServiceAccessParam, 36, F(eSwitch, 0), F(szUser, 4), F(szPwd, 20));
    LAYOUT(RouterNameParam, 32, F(szRouterName, 0));
    LAYOUT(KernelCountParam, 4, F(uiCount, 0));
    LAYOUT(CTCCRouterPinParam, 16, F(szPin, 0));
    LAYOUT(FactoryFlagParam, 4, F(eStatus, 0));
    LAYOUT(CMCCCfgFileSyncParam, 32, F(szCfgFile, 0));
    LAYOUT(SyncTimeParam, 4, F(uiTime, 0));
    LAYOUT(WanTcpUdpConNumParam, 8, F(uiWanIndex, 0), F(uiNumber, 4));
    LAYOUT(CustomFactoryInfoParam, 16, F(szRandPassword, 0));
    LAYOUT(AgentUplinkInfoParam, 52, F(eType, 0), F(szSsid, 4), F(iRssi, 36), F(iNoise, 40), F(uiUpRate, 44),
           F(uiDownRate, 48));
    LAYOUT(UpgradeReportParam, 8, F(uiStatus, 0), F(uiErrCode, 4));
    LAYOUT(FileSyncParam, 128, F(szSrcFile, 0), F(szDestFile, 64));
    LAYOUT(QuickjoinParam, 4, F(eStatus, 0));
    LAYOUT(WanStatusInfo, 168, F(eWorkMode, 0), F(eLinkStatus, 4), F(szIp, 8), F(szSubMask, 24), F(szGwIp, 40),
           F(szGwMac, 56), F(szDnsMaster, 88), F(szDnsSlave, 104), F(uiDhcpRt, 120), F(szMac, 124), F(uiConNum, 156),
           F(uiPortId, 160), F(uiLinkSpeed, 164));
    LAYOUT(Ipv6Switch, 4, F(uiEnable, 0));
    LAYOUT(Ipv6Info, 356, F(uiEnable, 0), F(uiConnectStatus, 4), F(szIpAddr, 8), F(szPrefix, 72), F(uiPrefixLen, 136),
           F(szGateway, 140), F(szDns1, 204), F(szDns2, 268), F(uiIpAddrOrigin, 332), F(uiPdFlag, 336),
           F(uiPrefixOrigin, 340), F(uiPrefixPlTime, 344), F(uiPrefixVlTime, 348), F(uiDsLite, 352));
    LAYOUT(WanDhcpConfig, 4, F(uiMtu, 0));
    LAYOUT(WanStaticConfig, 88, F(szIp, 0), F(szSubMask, 16), F(szGwIp, 32), F(uiMtu, 48), F(szDnsMaster, 52),
           F(szDnsSlave, 68), F(uiCapaFlag, 84));
    LAYOUT(WanPppoeConfig, 140, F(szUser, 0), F(szPwd, 33), F(szServer, 66), F(szService, 99), F(uiMtu, 132),
           F(uiCapaFlag, 136));
    LAYOUT(BridgeSwitchParam, 4, F(eStatus, 0));
    LAYOUT(BridgeStatusParam, 24, F(eStatus, 0), F(eLinkStatus, 4), F(szIp, 8));
    LAYOUT(RepeaterSetParam, 136, F(eRadio, 0), F(szSsid, 4), F(szBssid, 36), F(eSecurity, 68), F(szPassword, 72));
    LAYOUT(RepeaterStaInfoParam, 76, F(eRadio, 0), F(szSsid, 4), F(szBssid, 36), F(iRssi, 68), F(eConnected, 72));
    LAYOUT(RepeaterApEntry, 76, F(szSsid, 0), F(szBssid, 32), F(uiChannel, 64), F(iRssi, 68), F(eSecurity, 72));
    LAYOUT(RepeaterListParam, 2436, F(uiCount, 0), F(astList, 4));
    LAYOUT(MacCloneParam, 36, F(eStatus, 0), F(szMac, 4));
    LAYOUT(LanParam, 32, F(szIp, 0), F(szMask, 16));
    LAYOUT(DhcpServerParam, 40, F(eStatus, 0), F(szStartIp, 4), F(szEndIp, 20), F(uiLeaseTime, 36));
    LAYOUT(LanStaticParam, 116, F(eAction, 0), F(szMac, 4), F(szIp, 36), F(szHostName, 52));
    LAYOUT(LanStaticEntry, 112, F(szMac, 0), F(szIp, 32), F(szHostName, 48));
    LAYOUT(LanStaticListParam, 3588, F(uiCount, 0), F(astList, 4));
    LAYOUT(PingRequest, 148, F(szHost, 0), F(uiNum, 64), F(uiTimeout, 68), F(uiBlockSize, 72), F(szPingTime, 76),
           F(uiPingNum, 140), F(uiCapaFlag, 144));
    LAYOUT(TraceRouteRequest, 88, F(szHost, 0), F(uiNumOfTries, 64), F(uiTimeout, 68), F(uiBlockSize, 72),
           F(uiMaxHop, 76), F(uiResultType, 80), F(uiCapaFlag, 84));
    LAYOUT(PingResult, 172, F(uiRecivedCount, 0), F(uiLossCount, 4), F(uiPacketsLoss, 8), F(uiAvg, 12), F(uiMin, 16),
           F(uiMax, 20), F(uiTimeTotal, 24), F(uiPacketCount, 28), F(uiPacketSize, 32), F(szPingUrl, 36),
           F(szHost, 100), F(uiTimeout, 164), F(uiPingNum, 168));
    LAYOUT(TraceRouteResult, 1024, F(szResult, 0));
    LAYOUT(UplinkSupport, 20, F(uiDhcp, 0), F(uiStatic, 4), F(uiPppoe, 8), F(uiBridge, 12), F(uiRepeater, 16));
    LAYOUT(PortNum, 72, F(uiLanNum, 0), F(auiLanIndex, 4), F(uiWanNum, 36), F(auiWanIndex, 40));
    LAYOUT(PortStatus, 20, F(eType, 0), F(uiIndex, 4), F(eLinkStatus, 8), F(eDuplex, 12), F(uiNegRate, 16));
    LAYOUT(PortTraffic, 72, F(eType, 0), F(uiIndex, 4), F(ulTxBytes, 8), F(ulRxBytes, 16), F(ulTxPackets, 24),
           F(ulRxPackets, 32), F(ulTxErrors, 40), F(ulRxErrors, 48), F(ulTxDrops, 56), F(ulRxDrops, 64));
    LAYOUT(PortRate, 16, F(eType, 0), F(uiIndex, 4), F(uiRxRate, 8), F(uiTxRate, 12));
    LAYOUT(PortMac, 28, F(eType, 0), F(uiIndex, 4), F(szMac, 8));
    LAYOUT(PortUpDown, 28, F(eType, 0), F(uiIndex, 4), F(uiActive, 8), F(szPortIp, 12));
    LAYOUT(StaEntry, 544, F(szMac, 0), F(szHostName, 32), F(szName, 96), F(szIp, 160), F(eLinkType, 176),
           F(uiPort, 180), F(szSsid, 184), F(bIsOnline, 216), F(iOnlineTime, 220), F(uiOnOffTimestamp, 224),
           F(szVmac, 228), F(szIpv6, 260), F(szUpMac, 324), F(eType, 356), F(szBrand, 360), F(szModel, 392),
           F(uiRxRate, 424), F(uiTxRate, 428), F(iRssi, 432), F(iWeakRssi, 436), F(uiRxNegRate, 440),
           F(uiTxNegRate, 444), F(eDuplex, 448), F(bAllowStorage, 452), F(bAllowInternet, 456), F(bAllowWifi, 460),
           F(bFromWifi6, 464), F(eMacStatus, 468), F(uiRxBytes, 472), F(uiTxBytes, 480), F(uiRxPackets, 488),
           F(uiTxPackets, 496), F(uiTxRetryPackets, 504), F(uiRxRetryPackets, 512), F(uiTxFailedPackets, 520),
           F(uiRxFailedPackets, 528), F(uiTxDiscard, 536));
    LAYOUT(StaListInfo, kPointers.sta_list_size, F(uiStaNumofEsps, 0), F(pstListInfo, kPointers.sta_list_pointer));
    LAYOUT(StaMac, 32, F(szMac, 0));
    LAYOUT(StaTraffic, 56, F(szMac, 0), F(uiTxBytes, 32), F(uiRxBytes, 36), F(uiTxPackets, 40), F(uiRxPackets, 44),
           F(uiTxErrors, 48), F(uiRxErrors, 52));
    LAYOUT(StaNum, 20, F(uiCountAll, 0), F(uiCountOnline, 4), F(uiCountWired, 8), F(uiCount2p4g, 12), F(uiCount5g, 16));
    LAYOUT(StaName, 96, F(szMac, 0), F(szName, 32));
    LAYOUT(StaModel, 100, F(szMac, 0), F(szBrand, 32), F(szModel, 64), F(uiFlag, 96));
    LAYOUT(StaCtrlStatusParam, 4, F(eStatus, 0));
    LAYOUT(StaCtrlModeParam, 4, F(eMode, 0));
    LAYOUT(StaCtrlModeSwitchParam, 8, F(eMode, 0), F(eStatus, 4));
    LAYOUT(StaCtrlEntry, 100, F(szMac, 0), F(szName, 32), F(eMode, 96));
    LAYOUT(StaCtrlListParam, 3204, F(uiCount, 0), F(astList, 4));
    LAYOUT(StaCtrlAllowParam, 36, F(szMac, 0), F(bAllow, 32));
    LAYOUT(StaCtrlWifiListParam, 1156, F(uiCount, 0), F(astList, 4));
    LAYOUT(StaCtrlItemParam, 104, F(eAction, 0), F(eMode, 4), F(szMac, 8), F(szName, 40));
    LAYOUT(StaCtrlInternetTimeParam, 68, F(szMac, 0), F(szStartTime, 32), F(szEndTime, 48), F(uiWeekMask, 64));
    LAYOUT(WifiSwitchRec, 4, F(uiSwitch, 0));
    LAYOUT(WifiRadioRec, 4, F(eRadio, 0));
    LAYOUT(WifiSelectRec, 8, F(eRadio, 0), F(uiApIndex, 4));
    LAYOUT(RadioBasicRec, 48, F(eRadio, 0), F(uiStatus, 4), F(uiTxPower, 8), F(uiChannel, 12), F(uiRealChannel, 16),
           F(uiBandwidth, 20), F(uiStandard, 24), F(uiRealBandwidth, 28), F(uiApCount, 32), F(uiLoad, 36),
           F(uiNoiseLevel, 40), F(capaflag, 44));
    LAYOUT(ApBasicRec, 196, F(eRadio, 0), F(uiApIndex, 4), F(uiStatus, 8), F(szSsid, 12), F(szInitalSsid, 44),
           F(szBssid, 76), F(uiAuth, 108), F(uiEncrypt, 112), F(szKey, 116), F(uiHide, 180), F(uiValidTime, 184),
           F(uiRestTime, 188), F(capaflag, 192));
    LAYOUT(ApAdvancedRec, 28, F(eRadio, 0), F(uiApIndex, 4), F(uiAccessMax, 8), F(uiWmmEnable, 12), F(capaflag, 16),
           F(szRegulatoryDomain, 20));
    LAYOUT(ApRateLimitRec, 20, F(eRadio, 0), F(uiApIndex, 4), F(uiUsBandWidth, 8), F(uiDsBandWidth, 12),
           F(capaflag, 16));
    LAYOUT(ApAccessModeRec, 12, F(eRadio, 0), F(uiApIndex, 4), F(uiAccessMode, 8));
    LAYOUT(ApAccessIpRec, 20, F(szIp, 0), F(uiPort, 16));
    LAYOUT(ApAccessRuleRec, 656, F(eRadio, 0), F(uiApIndex, 4), F(uiAccessRule, 8), F(uiCount, 12), F(astIpList, 16));
    LAYOUT(ApIndexRec, 8, F(eRadio, 0), F(uiApIndex, 4));
    LAYOUT(MeshRoleParam, 4, F(eRole, 0));
    LAYOUT(MeshRoamingParam, 8, F(eStatus, 0), F(iRssiThreshold, 4));
    LAYOUT(BackhaulBssParam, 108, F(eRadio, 0), F(szSsid, 4), F(szPassword, 36), F(eAuthMode, 100), F(eCipher, 104));
    LAYOUT(TopoNodeEntry, 92, F(szMac, 0), F(szParentMac, 32), F(eRole, 64), F(eUplink, 68), F(iRssi, 72), F(szIp, 76));
    LAYOUT(WifiTopoParam, 2948, F(uiCount, 0), F(astNode, 4));
    LAYOUT(LocalMeshEventParam, 36, F(szMac, 0), F(eAction, 32));
    LAYOUT(TopoApMacParam, 1028, F(uiCount, 0), F(aszMac, 4));
    LAYOUT(TopoApMapParam, 96, F(szMac, 0), F(szBssid2g, 32), F(szBssid5g, 64));
    LAYOUT(L2RoamingRec, 12, F(uiStatus, 0), F(iLowRssi2p4g, 4), F(iLowRssi5g, 8));
    LAYOUT(RoamingRec, 32, F(uiEnable, 0), F(iThresholdRssi, 4), F(uiReportInterval, 8), F(uiStartTime, 12),
           F(iStartRssi, 16), F(uiLowRssiPeriod, 20), F(iThresholdRssi5g, 24), F(uiRoamFlag, 28));
    LAYOUT(RoamingApInfoRec, 20, F(szBssid, 0), F(uiChannel, 16));
    LAYOUT(RoamingApQueryRec, 660, F(uiCount, 0), F(szMac, 4), F(astApInfo, 20));
    LAYOUT(RoamingApRssiRec, 20, F(szBssid, 0), F(iRssi, 16));
    LAYOUT(RoamingApRspRec, 644, F(uiCount, 0), F(astApRssi, 4));
    LAYOUT(RoamingBssTransRec, 32, F(szSta, 0), F(szBssid, 13), F(uiChannel, 28));
    LAYOUT(RoamingReportRec, 68, F(szMac, 0), F(eRadio, 20), F(iRssi, 24), F(uiConnectTime, 28), F(uiRxRate, 32),
           F(uiTxRate, 36), F(uiChannel, 40), F(szBssid, 44), F(usSupport11k, 62), F(usSupport11v, 64));
    LAYOUT(RoamingStopDetectRec, 24, F(szMac, 0), F(uiStopDetectTime, 20));
    LAYOUT(RoamingStaRssiRec, 28, F(szMac, 0), F(iRssi, 20), F(eRadio, 24));
    LAYOUT(WpsPbcRec, 8, F(eRadio, 0), F(uiStatus, 4));
    LAYOUT(WlanNeighbourEntryRec, 92, F(szSsid, 0), F(szBssid, 33), F(uiChannel, 68), F(iRssi, 72), F(uiStandard, 76),
           F(eBandWidth, 80), F(eAuth, 84), F(eEncryptType, 88));
    LAYOUT(WlanNeighbourRec, 5896, F(eRadio, 0), F(uiCount, 4), F(astNeighbour, 8));
    LAYOUT(ChannelScoreEntryRec, 8, F(uiChannel, 0), F(uiScore, 4));
    LAYOUT(ChannelScoreRec, 520, F(eRadio, 0), F(uiCount, 4), F(astScore, 8));
    LAYOUT(WifiDeassocRec, 1036, F(uiCount, 0), F(eRadio, 4), F(uiTime, 8), F(aszMac, 12));
    LAYOUT(WifiAccessEntryRec, 100, F(uiIndex, 0), F(szName, 4), F(szMac, 68));
    LAYOUT(WifiAccessListRec, 6404, F(uiCount, 0), F(astList, 4));
    LAYOUT(QosSwitch, 4, F(uiEnable, 0));
    LAYOUT(QosClassIndex, 4, F(uiIndex, 0));
    LAYOUT(QosClassRule, 200, F(uiIndex, 0), F(szName, 4), F(uiPriority, 40), F(uiDscp, 44), F(uiVlan8021p, 48),
           F(auiProtocol, 52), F(szSrcIp, 84), F(szSrcMask, 101), F(uiSrcPort, 120), F(szSrcMac, 124), F(szDstIp, 141),
           F(szDstMask, 158), F(uiDstPort, 176), F(szDstMac, 180));
    LAYOUT(QosClassRuleList, 6404, F(uiCount, 0), F(astRule, 4));
    LAYOUT(RebootTimer, 16, F(uiStatus, 0), F(uiHour, 4), F(uiMinute, 8), F(uiWeek, 12));
    LAYOUT(WifiTimerTask, 36, F(uiTaskId, 0), F(uiStatus, 4), F(uiAction, 8), F(uiType, 12), F(uiStartHour, 16),
           F(uiStartMinute, 20), F(uiEndHour, 24), F(uiEndMinute, 28), F(uiWeek, 32));
    LAYOUT(WifiTimerList, 1156, F(uiCount, 0), F(astTask, 4));
    LAYOUT(WifiTimerIdx, 4, F(uiTaskId, 0));
    LAYOUT(RateLimitEntry, 80, F(uiEnable, 0), F(szMac, 4), F(szIp, 36), F(uiRxRateLimit, 68), F(uiTxRateLimit, 72),
           F(uiValidFlags, 76));
    LAYOUT(RateLimitList, 2564, F(uiCount, 0), F(astEntry, 4));
    LAYOUT(PeriodRateTask, 48, F(eTaskType, 0), F(szTaskName, 4), F(uiReportInterval, 40), F(uiSampleInterval, 44));
    LAYOUT(PeriodRateReport, 96, F(eTaskType, 0), F(szTaskName, 4), F(szMac, 37), F(uiTxRateRt, 72), F(uiRxRateRt, 76),
           F(uiMaxRxRate, 80), F(uiMaxTxRate, 84), F(uiAvaRxRate, 88), F(uiAvaTxRate, 92));
    LAYOUT(IptvVlan, 16, F(uiVlanId, 0), F(uiEthPorts, 4), F(uiPorts2p4g, 8), F(uiPorts5g, 12));
    LAYOUT(IptvConfig, 36, F(uiStatus, 0), F(astVlan, 4));
    LAYOUT(FilterTimeRange, 8, F(uiStartTime, 0), F(uiEndTime, 4));
    LAYOUT(FilterUrlRule, 2120, F(uiIdx, 0), F(uiEnable, 4), F(aszUrls, 8), F(szName, 1032), F(aszMacs, 1064),
           F(uiMode, 2088), F(uiWeekday, 2092), F(astTimeRange, 2096));
    LAYOUT(FilterDnsRule, 1132, F(uiIdx, 0), F(uiEnable, 4), F(aszHostnames, 8), F(szName, 1032), F(szMacs, 1064),
           F(uiAction, 1096), F(uiMode, 1100), F(uiWeekday, 1104), F(astTimeRange, 1108));
    LAYOUT(FilterUrlList, 67844, F(uiCount, 0), F(astRule, 4));
    LAYOUT(FilterDnsList, 36228, F(uiCount, 0), F(astRule, 4));
    LAYOUT(FilterSwitch, 4, F(uiStatus, 0));
    LAYOUT(FilterReply, 4, F(uiIdx, 0));
    LAYOUT(VsieInfo, 16, F(uiMaxBeaconTxEntry, 0), F(uiMaxBeaconTxConcurrent, 4), F(uiMaxProbeRxEntry, 8),
           F(uiMaxProbeRespEntry, 12));
    LAYOUT(VsieBeaconTxEntry, 1104, F(uiIdx, 0), F(szServiceName, 4), F(uiSsidIdx, 68), F(uiDuration, 72),
           F(uiLen, 76), F(auiIeData, 80));
    LAYOUT(VsieBeaconTxList, 17668, F(uiCount, 0), F(astEntry, 4));
    LAYOUT(VsieIndex, 4, F(uiIdx, 0));
    LAYOUT(VsieBeaconTxSwitch, 8, F(uiIdx, 0), F(uiEnable, 4));
    LAYOUT(VsieProbeRxRecord, 292, F(uiRecIdx, 0), F(szMac, 4), F(uiBand, 24), F(uiVsieLen, 28), F(aucVsie, 32),
           F(aucOui, 287));
    LAYOUT(VsieProbeRxEntry, 2416, F(uiIdx, 0), F(szServiceName, 4), F(uiBand, 68), F(aucOui, 72),
           F(uiRecordCount, 76), F(astRecord, 80));
    LAYOUT(VsieProbeRxList, 19332, F(uiCount, 0), F(astEntry, 4));
    LAYOUT(VsieProbeRxFlush, 64, F(szServiceName, 0));
    LAYOUT(VsieProbeRespEntry, 288, F(uiIdx, 0), F(szMac, 4), F(uiBand, 24), F(uiIedataLen, 28), F(aucIedata, 32));
    LAYOUT(VsieProbeRespList, 2308, F(uiCount, 0), F(astEntry, 4));
}

TEST(Layout, CAndCxxAgree)
{
    const std::map<std::string, size_t> cxx = {
#define BX_RECORD(name) {#name, sizeof(name)},
#include "record_list.h"
#undef BX_RECORD
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
