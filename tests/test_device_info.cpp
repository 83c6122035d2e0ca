// Device and firmware information: hardware, firmware, manufacturing and
// management data, load figures, run time and the open port lists.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "system_support.h"

using bxtest::Guarded;
using bxtest::receive;
using testing::ElementsAre;
using testing::ElementsAreArray;

namespace {

HwInfoParam sample_hw()
{
    HwInfoParam r{};
    std::strcpy(r.szVendor, "V");
    std::strcpy(r.szModel, "M1");
    std::strcpy(r.szVersion, "1.0");
    std::strcpy(r.szDescriptionUrl, "http://d");
    std::strcpy(r.szCpuModel, "c7");
    r.uiFlashSize = 16;
    r.uiRamSize = 128;
    r.uiLanPortsMax = 3;
    r.auiLanMaxRate[0] = 1000;
    r.auiLanMaxRate[1] = 999;
    r.auiLanMaxRate[2] = 100;
    r.uiWanPortsMax = 1;
    r.auiWanMaxRate[0] = 2500;
    std::strcpy(r.szSysType, "linux");
    std::strcpy(r.szSysVersion, "5.4");
    std::strcpy(r.szDescription, "router");
    r.uiCpuCores = 4;
    std::strcpy(r.szCpuSupplier, "cs");
    r.uiCpuMainFrequency = 1200;
    std::strcpy(r.szMemoryProvider, "mp");
    r.ui24gMode = 8;
    r.ui24gMaxBw = 2;
    r.ui5gMode = 16;
    r.ui5gMaxBw = 3;
    r.ui24gMaxRate = 574;
    r.ui5gMaxRate = 2402;
    return r;
}

constexpr const char *kHwWire =
    "vendor=s\"V\" model=s\"M1\" version=s\"1.0\" descriptionurl=s\"http://d\" cpumodel=s\"c7\" "
    "flashsize=i32:16 ramsize=i32:128 lanportsmax=i32:3 wanportsmax=i32:1 systype=s\"linux\" "
    "sysversion=s\"5.4\" description=s\"router\" cpumainfrequency=i32:1200 cpusupplier=s\"cs\" "
    "memoryprovider=s\"mp\" cpucores=i32:4 lanmaxrate=[i32:1000 i32:999 i32:100] wanmaxrate=[i32:2500] "
    "2.4gmaxbw=i32:2 5gmaxbw=i32:3 2.4gmode=i32:8 5gmode=i32:16 2.4gmaxrate=i32:574 5gmaxrate=i32:2402";

constexpr const char *kHwJson = R"({"vendor": "V", "model": "M1", "version": "1.0",
    "descriptionurl": "http://d", "cpumodel": "c7", "flashsize": 16, "ramsize": 128,
    "lanportsmax": 3, "wanportsmax": 1, "systype": "linux", "sysversion": "5.4",
    "description": "router", "cpumainfrequency": 1200, "cpusupplier": "cs",
    "memoryprovider": "mp", "cpucores": 4, "lanmaxrate": [1000, 999, 100],
    "wanmaxrate": [2500], "2.4gmaxbw": 2, "5gmaxbw": 3, "2.4gmode": 8, "5gmode": 16,
    "2.4gmaxrate": 574, "5gmaxrate": 2402})";

TEST(DeviceInfo, HwInfoRecordToTree)
{
    HwInfoParam rec = sample_hw();
    int ret = -2;
    EXPECT_EQ(bxtest::stj_typed(MSG_HW_INFO, &rec, &ret), kHwWire);
    EXPECT_EQ(ret, 0);
}

TEST(DeviceInfo, HwInfoTreeToRecordWithTraces)
{
    BX_REQUIRE_TRACE_CAPTURE();
    HwInfoParam rec{};
    auto r = receive(MSG_HW_INFO, kHwJson, &rec);
    EXPECT_EQ(r.ret, 0);
    HwInfoParam want = sample_hw();
    EXPECT_EQ(std::memcmp(&rec, &want, sizeof rec), 0);
    // "rebootcount" is in the policy but never read, so its absence is silent.
    EXPECT_THAT(r.traces,
                ElementsAre("JTS_HwInfo: vendor:V\n", "JTS_HwInfo: model:M1\n", "JTS_HwInfo: version:1.0\n",
                            "JTS_HwInfo: description url:http://d\n", "JTS_HwInfo: cpu model:c7\n",
                            "JTS_HwInfo: flash size:16\n", "JTS_HwInfo: ram size:128\n",
                            "JTS_HwInfo: lan ports max:3\n", "JTS_HwInfo: wan ports max:1\n",
                            "JTS_HwInfo: sys type:linux\n", "JTS_HwInfo: sys version:5.4\n",
                            "JTS_HwInfo: description:router\n", "JTS_HwInfo: cpu main frequency:1200\n",
                            "JTS_HwInfo: cpu supplier:cs\n", "JTS_HwInfo: memory provider:mp\n",
                            "JTS_HwInfo: cpu cores:4\n", "JTS_HwInfo: lan port[1]: 1000Mbps\n",
                            "JTS_HwInfo: lan port[2]: 999Mbps\n", "JTS_HwInfo: lan port[3]: 100Mbps\n",
                            "JTS_HwInfo: wan port[1]: 2500Mbps\n", "JTS_HwInfo: 2GMaxBW:2\n",
                            "JTS_HwInfo: 5GMaxBW:3\n", "JTS_HwInfo: 2GMode:8\n", "JTS_HwInfo: 5GMode:16\n",
                            "JTS_HwInfo: 2P4GMaxNegotiateRate:574\n", "JTS_HwInfo: 5GMaxNegotiateRate:2402\n"));
}

// The rate lists run into the fields after their arrays, as far as the
// receivers always did and no further.
TEST(DeviceInfo, HwInfoRateListsOverrunIntoTheNextFieldsOnly)
{
    {
        SCOPED_TRACE("fourth LAN rate replaces wanportsmax");
        HwInfoParam rec{};
        receive(MSG_HW_INFO, R"({"wanportsmax": 1, "lanmaxrate": [1000, 1000, 100, 10]})", &rec);
        EXPECT_EQ(rec.auiLanMaxRate[2], 100u);
        EXPECT_EQ(rec.uiWanPortsMax, 10u);
    }
    {
        SCOPED_TRACE("the LAN walk stops after four");
        Guarded<HwInfoParam> g;
        g.rec.auiWanMaxRate[0] = 77;
        auto r = receive(MSG_HW_INFO, R"({"lanmaxrate": [1, 2, 3, 4, 5, 6]})", &g.rec);
        EXPECT_EQ(r.ret, 0);
        EXPECT_EQ(g.rec.uiWanPortsMax, 4u);
        EXPECT_EQ(g.rec.auiWanMaxRate[0], 77u);
        if (bxtest::trace_paths_private()) {
            EXPECT_EQ(std::count_if(r.traces.begin(), r.traces.end(),
                                    [](const std::string &l) { return l.find("lan port[") != std::string::npos; }),
                      4);
        }
    }
    {
        SCOPED_TRACE("second WAN rate lands on the head of systype, a third is dropped");
        Guarded<HwInfoParam> g;
        std::strcpy(g.rec.szSysVersion, "keep");
        auto r = receive(MSG_HW_INFO, R"({"systype": "linuxOS", "wanmaxrate": [7, 1633837924, 9]})", &g.rec);
        EXPECT_EQ(r.ret, 0);
        EXPECT_EQ(g.rec.auiWanMaxRate[0], 7u);
        uint32_t second = 1633837924;
        EXPECT_EQ(std::memcmp(g.rec.szSysType, &second, 4), 0);
        EXPECT_STREQ(g.rec.szSysType + 4, "xOS");
        EXPECT_STREQ(g.rec.szSysVersion, "keep");
        EXPECT_TRUE(g.guards_intact());
    }
    {
        SCOPED_TRACE("elements of any type count as numbers");
        HwInfoParam rec{};
        receive(MSG_HW_INFO, R"({"lanmaxrate": [{"a": 1}, 5]})", &rec);
        EXPECT_EQ(rec.auiLanMaxRate[1], 5u);
    }
}

TEST(DeviceInfo, FwInfoWeekTravelsInOnlyRealVersionOutOnly)
{
    BX_REQUIRE_TRACE_CAPTURE();
    FwInfoParam rec{};
    auto r = receive(MSG_FW_INFO, R"({"fwversion": "2.1", "bootversion": "b1", "newfwversion": "2.2",
        "compiletime_year": 2024, "compiletime_mon": 5, "compiletime_day": 17, "compiletime_hour": 13,
        "compiletime_min": 45, "compiletime_sec": 9, "compiletime_week": 5, "realversion": "2.1-r"})",
                     &rec);
    EXPECT_EQ(r.ret, 0);
    EXPECT_EQ(rec.uiWeek, 5u);
    EXPECT_STREQ(rec.szRealVersion, "");
    EXPECT_THAT(r.traces, ElementsAre("JTS_FwInfo: fw version:2.1\n", "JTS_FwInfo: boot version:b1\n",
                                      "JTS_FwInfo: new fw version:2.2\n", "JTS_FwInfo: Year:2024\n",
                                      "JTS_FwInfo: Month:5\n", "JTS_FwInfo: Date:17\n", "JTS_FwInfo: Hour:13\n",
                                      "JTS_FwInfo: Minute:45\n", "JTS_FwInfo: Second:9\n", "JTS_FwInfo: Week:5\n"));

    std::strcpy(rec.szRealVersion, "2.1-r");
    rec.uiReserved = 99;
    EXPECT_EQ(bxtest::stj_typed(MSG_FW_INFO, &rec),
              "fwversion=s\"2.1\" bootversion=s\"b1\" newfwversion=s\"2.2\" compiletime_year=i32:2024 "
              "compiletime_mon=i32:5 compiletime_day=i32:17 compiletime_hour=i32:13 compiletime_min=i32:45 "
              "compiletime_sec=i32:9 realversion=s\"2.1-r\"");
}

TEST(DeviceInfo, RecordsToTree)
{
    RunTimeInfoParam run{};
    run.uiLoginTimes = 12;
    std::strcpy(run.szLoginLastTime, "2024-05-17 13:45");
    std::strcpy(run.szApLastOnlineTime, "2024-05-16 08:00");
    run.uiOnlineTime = 3600;
    run.uiYear = 2024;
    run.uiMonth = 5;
    run.uiDate = 17;
    run.uiHour = 13;
    run.uiMinute = 46;
    run.uiSecond = 30;
    run.uiWeek = 5;
    run.eGetType = 1;
    EXPECT_EQ(bxtest::stj_typed(MSG_RUN_TIME_INFO, &run),
              "onlinetime=i32:3600 year=i32:2024 month=i32:5 date=i32:17 hour=i32:13 minute=i32:46 "
              "second=i32:30 week=i32:5 gettype=s\"online\" logintimes=i32:12 "
              "loginlasttime=s\"2024-05-17 13:45\" aplastonlinetime=s\"2024-05-16 08:00\"");

    FuncSupportParam func{1, 0, 1, 0, 1, 0, 2, 1};
    EXPECT_EQ(bxtest::stj_typed(MSG_FUNC_SUPPORT, &func),
              "wifi=s\"enable\" dualband=s\"disable\" usb=s\"enable\" vpn=s\"disable\" ipv6=s\"enable\" "
              "privmesh=s\"disable\" portblind=s\"\" easymesh=s\"enable\"");

    ManageInfoParam manage{"192.168.1.1", "router.lan", "10.0.0.2"};
    EXPECT_EQ(bxtest::stj_typed(MSG_MANAGE_INFO, &manage),
              "ip=s\"192.168.1.1\" domainname=s\"router.lan\" curip=s\"10.0.0.2\"");

}

struct RoundTrip {
    int type;
    const char *json;
    const char *wire;  // STRUCT_TRANS_JSON of the record filled from json
    std::vector<std::string> traces;
};

TEST(DeviceInfo, TreeToRecordAndBack)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const RoundTrip cases[] = {
        {MSG_MANU_INFO, R"({"mac": "00:11:22:33:44:55", "sn": "SN1", "productname": "P"})",
         "mac=s\"00:11:22:33:44:55\" sn=s\"SN1\" productname=s\"P\"",
         {"JTS_ManuInfo: Mac:00:11:22:33:44:55\n", "JTS_ManuInfo: SN:SN1\n", "JTS_ManuInfo: product name:P\n"}},
        {MSG_FUNC_SUPPORT,
         R"({"wifi": "enable", "dualband": "disable", "usb": "on", "vpn": "disable", "ipv6": "enable",
             "privmesh": "enable", "portblind": "disable", "easymesh": "enable"})",
         "wifi=s\"enable\" dualband=s\"disable\" usb=s\"\" vpn=s\"disable\" ipv6=s\"enable\" "
         "privmesh=s\"enable\" portblind=s\"disable\" easymesh=s\"enable\"",
         {"JTS_FuncSupport: SupportWifi:1\n", "JTS_FuncSupport: SupportDualBand:0\n",
          "JTS_FuncSupport: SupportUsb:-1\n", "JTS_FuncSupport: SupportVpn:0\n", "JTS_FuncSupport: SupportIPv6:1\n",
          "JTS_FuncSupport: SupportPrivMesh:1\n", "JTS_FuncSupport: SupportPortBlind:0\n",
          "JTS_FuncSupport: SupportEasyMesh:1\n"}},
        {MSG_CPU_RATE, R"({"cpurate": 37, "cputemprature": 61})", "cpurate=i32:37 cputemprature=i32:61",
         {"JTS_CpuRate: CpuRate:37\n", "JTS_CpuRate: CpuTemperature:61\n"}},
        {MSG_MEM_RATE, R"({"ramrate": 42})", "ramrate=i32:42", {"JTS_MemRate: RamRate:42\n"}},
        {MSG_FLASH_RATE, R"({"rwflashsize": 8, "flashusagerate": 55})", "rwflashsize=i32:8 flashusagerate=i32:55",
         {"JTS_FlashRate: rwflashsize:8\n", "JTS_FlashRate: flashusagerate:55\n"}},
        {MSG_RUN_TIME_INFO,
         R"({"logintimes": 12, "loginlasttime": "t1", "aplastonlinetime": "t2", "onlinetime": 3600,
             "year": 2024, "month": 5, "date": 17, "hour": 13, "minute": 46, "second": 30, "week": 5,
             "gettype": "manual"})",
         "onlinetime=i32:3600 year=i32:2024 month=i32:5 date=i32:17 hour=i32:13 minute=i32:46 second=i32:30 "
         "week=i32:5 gettype=s\"manual\" logintimes=i32:12 loginlasttime=s\"t1\" aplastonlinetime=s\"t2\"",
         {"JTS_RunTimeInfo: OnlineTime:3600\n", "JTS_RunTimeInfo: Year:2024\n", "JTS_RunTimeInfo: Month:5\n",
          "JTS_RunTimeInfo: Date:17\n", "JTS_RunTimeInfo: Hour:13\n", "JTS_RunTimeInfo: Minute:46\n",
          "JTS_RunTimeInfo: Second:30\n", "JTS_RunTimeInfo: Week:5\n", "JTS_RunTimeInfo: GetType:0\n",
          "JTS_RunTimeInfo: LoginTimes:12\n", "JTS_RunTimeInfo: LoginLastTime:t1\n",
          "JTS_RunTimeInfo: LastOnlineTime:t2\n"}},
        {MSG_TCP_OPEN_PORT, R"({"ports": [80, 443]})", "ports=[i32:80 i32:443]",
         {"JTS_TcpOpenPort: Ports: 80\n", "JTS_TcpOpenPort: Ports: 443\n"}},
        // Elements are read as 32-bit numbers whatever they are: a 64-bit one
        // gives its first (high) four bytes, here 0, which then ends the list.
        {MSG_UDP_OPEN_PORT, R"({"ports": [53, 4294967295, 67]})", "ports=[i32:53]",
         {"JTS_UdpOpenPort: Ports: 53\n", "JTS_UdpOpenPort: Ports: 0\n", "JTS_UdpOpenPort: Ports: 67\n"}},
    };
    for (const RoundTrip &c : cases) {
        SCOPED_TRACE(c.json);
        alignas(8) unsigned char rec[512] = {};
        auto r = receive(c.type, c.json, rec);
        EXPECT_EQ(r.ret, 0);
        EXPECT_THAT(r.traces, ElementsAreArray(c.traces));
        EXPECT_EQ(bxtest::stj_typed(c.type, rec), c.wire);
    }
}

TEST(DeviceInfo, WrongTypesCountAsAbsent)
{
    CpuRateParam cpu{1, 2};
    receive(MSG_CPU_RATE, R"({"cpurate": "37", "cputemprature": 4294967296})", &cpu);
    EXPECT_EQ(cpu.uiCpuRate, 1u);
    EXPECT_EQ(cpu.uiCpuTemperature, 2u);  // 64-bit on the wire, not taken

    ManuInfoParam manu{};
    receive(MSG_MANU_INFO, R"({"mac": 5, "sn": ["x"]})", &manu);
    EXPECT_STREQ(manu.szMac, "");
    EXPECT_STREQ(manu.szSn, "");
}

TEST(DeviceInfo, LongTextsAreCutAndKeepTheLastByte)
{
    Guarded<ManageInfoParam> g(0x5A);
    // Without tracing: the trace of an unterminated text would read on past
    // the record, which is why callers pass zeroed records.
    bxtest::Msg msg(R"({"ip": "1234567890123456789012345678901234567890", "curip": "c"})");
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_MANAGE_INFO, msg, &g.rec), 0);
    EXPECT_EQ(std::string(g.rec.szIp, 15), "123456789012345");
    EXPECT_EQ(g.rec.szIp[15], 0x5A);
    EXPECT_TRUE(g.guards_intact());
}

struct ManageCase {
    const char *json;
    const char *ip;
    const char *curip;
    std::vector<std::string> traces;
};

// The current address is taken on the presence of "ip", not of "curip".
TEST(DeviceInfo, ManageInfoCurrentAddressFollowsIp)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const ManageCase cases[] = {
        {R"({"ip": "1.1.1.1", "domainname": "d", "curip": "2.2.2.2"})", "1.1.1.1", "2.2.2.2",
         {"JTS_ManageInfo: IP:1.1.1.1\n", "JTS_ManageInfo: Domain Name:d\n", "JTS_ManageInfo: Cur IP:2.2.2.2\n"}},
        {R"({"curip": "2.2.2.2"})", "old", "9.9.9.9",
         {"JTS_CheckBlobAttr: Illegal parameter: ip\n", "JTS_CheckBlobAttr: Illegal parameter: domainname\n",
          "JTS_CheckBlobAttr: Illegal parameter: curip\n"}},
        {R"({"ip": "1.1.1.1"})", "1.1.1.1", "",
         {"JTS_ManageInfo: IP:1.1.1.1\n", "JTS_CheckBlobAttr: Illegal parameter: domainname\n",
          "JTS_ManageInfo: Cur IP:\n"}},
    };
    for (const ManageCase &c : cases) {
        SCOPED_TRACE(c.json);
        ManageInfoParam rec{"old", "", "9.9.9.9"};
        auto r = receive(MSG_MANAGE_INFO, c.json, &rec);
        EXPECT_EQ(r.ret, 0);
        EXPECT_STREQ(rec.szIp, c.ip);
        EXPECT_STREQ(rec.szCurIp, c.curip);
        EXPECT_THAT(r.traces, ElementsAreArray(c.traces));
    }
}

TEST(DeviceInfo, EmptyMessageLeavesEveryRecordUntouched)
{
    for (int type = MSG_HW_INFO; type <= MSG_UDP_OPEN_PORT; ++type) {
        SCOPED_TRACE(type);
        Guarded<HwInfoParam> g(0xA5);  // the largest record of these types
        auto r = receive(type, "{}", &g.rec);
        EXPECT_EQ(r.ret, 0);
        EXPECT_TRUE(g.rec_all(0xA5));
        EXPECT_TRUE(g.guards_intact());
        for (const std::string &line : r.traces)
            EXPECT_THAT(line, testing::StartsWith("JTS_CheckBlobAttr: Illegal parameter: "));
    }
}

TEST(DeviceInfo, OpenPortsRecordToTree)
{
    OpenPortParam rec{};
    rec.auiPorts[0] = 80;
    rec.auiPorts[1] = 443;
    rec.auiPorts[3] = 22;
    EXPECT_EQ(bxtest::stj_typed(MSG_TCP_OPEN_PORT, &rec), "ports=[i32:80 i32:443]");
    EXPECT_EQ(bxtest::stj_typed(MSG_UDP_OPEN_PORT, &rec), "ports=[i32:80 i32:443]");

    OpenPortParam none{};
    EXPECT_EQ(bxtest::stj_typed(MSG_TCP_OPEN_PORT, &none), "ports=[]");

    // A full array has no closing zero: all 32 go out, nothing after them.
    Guarded<OpenPortParam> full;
    for (uint32_t i = 0; i < OPEN_PORT_MAX; ++i)
        full.rec.auiPorts[i] = 1000 + i;
    std::string wire = bxtest::stj_typed(MSG_TCP_OPEN_PORT, &full.rec);
    EXPECT_THAT(wire, testing::StartsWith("ports=[i32:1000 i32:1001 "));
    EXPECT_THAT(wire, testing::EndsWith(" i32:1031]"));
    EXPECT_EQ(std::count(wire.begin(), wire.end(), ':'), OPEN_PORT_MAX);
}

TEST(DeviceInfo, OpenPortsNeverStoreMoreThanTheRecordHolds)
{
    std::string json = R"({"ports": [)";
    for (int i = 1; i <= 40; ++i)
        json += std::to_string(i) + (i < 40 ? ", " : "]}");
    for (int type : {MSG_TCP_OPEN_PORT, MSG_UDP_OPEN_PORT}) {
        SCOPED_TRACE(type);
        Guarded<OpenPortParam> g;
        auto r = receive(type, json.c_str(), &g.rec);
        EXPECT_EQ(r.ret, 0);
        EXPECT_EQ(g.rec.auiPorts[0], 1u);
        EXPECT_EQ(g.rec.auiPorts[OPEN_PORT_MAX - 1], 32u);
        EXPECT_TRUE(g.guards_intact());
        if (bxtest::trace_paths_private()) {
            EXPECT_EQ(r.traces.size(), size_t{OPEN_PORT_MAX});
        }
    }
}

TEST(DeviceInfo, OpenPortsWithoutListKeepTheRecord)
{
    BX_REQUIRE_TRACE_CAPTURE();
    OpenPortParam rec{};
    rec.auiPorts[0] = 8080;
    auto r = receive(MSG_TCP_OPEN_PORT, R"({"ports": 80})", &rec);
    EXPECT_EQ(r.ret, 0);
    EXPECT_EQ(rec.auiPorts[0], 8080u);
    EXPECT_THAT(r.traces, ElementsAre("JTS_CheckBlobAttr: Illegal parameter: ports\n"));
}

TEST(DeviceInfo, RowsCarryTheirNameTexts)
{
    struct Row {
        int type;
        const char *to_json;
        const char *to_struct;
    };
    const Row rows[] = {
        {MSG_HW_INFO, "HwInfo", "HwInfo"},          {MSG_FW_INFO, "FwInfo", "FwInfo"},
        {MSG_MANU_INFO, "ManuInfo", "ManuInfo"},    {MSG_MANAGE_INFO, "ManageInfo", "ManageInfo"},
        {MSG_FUNC_SUPPORT, "FuncSupport", "FuncSupport"}, {MSG_CPU_RATE, "CpuRate", "CpuRate"},
        {MSG_MEM_RATE, "MemRate", "MemRate"},       {MSG_FLASH_RATE, "FlashRate", "FlashRate"},
        {MSG_RUN_TIME_INFO, "RunTimeInfo", "RunTimeInfo"},
        {MSG_TCP_OPEN_PORT, "TcpOpenPort", "tcpopenport"}, {MSG_UDP_OPEN_PORT, "UdpOpenPort", "udpopenport"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.type);
        EXPECT_EQ(bxtest::row_name(g_astStructToJson_Func, g_iStructToJson_FuncNum, row.type), row.to_json);
        EXPECT_EQ(bxtest::row_name(g_astJsonToStruct_Func, g_iJsonToStruct_FuncNum, row.type), row.to_struct);
    }
}

TEST(DeviceInfo, ToolRoundTrip)
{
    bxtest::ToolResult res;
    if (!bxtest::run_tool(MSG_TCP_OPEN_PORT, R"({"ports": [22, 80, 0, 443]})", res))
        GTEST_SKIP() << "blobxlate program not built";
    EXPECT_EQ(res.exit_code, 0);
    // The zero ends the list on the way back.
    EXPECT_EQ(res.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n{\n\t\"ports\": [\n\t\t22,\n\t\t80\n\t]\n}\n");
}

} // namespace
