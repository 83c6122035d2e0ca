// WAN status, IPv6 and the access configurations (types 22 to 27), and what
// the WAN and diagnostics families share: null arguments, dispatch names,
// round trips through the program.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "support.h"

using bxtest::Msg;
using bxtest::TraceCapture;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

TEST(WanStatus, BothWaysWithTraces)
{
    BX_REQUIRE_TRACE_CAPTURE();
    WanStatusInfo rec{};
    std::strcpy(rec.szMac, "kept");
    Msg msg(R"({"workmode": "ADSL", "linkstatus": "enable", "ip": "192.168.1.100", "gwmac": "00:11:22:33:44:55",
                "dhcprt": -1, "connum": 3, "portid": 4, "linkspeed": -1})");
    TraceCapture cap;
    EXPECT_EQ(JTS_WanStatus(msg, &rec), 0);
    EXPECT_EQ(rec.eWorkMode, 6u);  // a word the mode list lacks
    EXPECT_THAT(cap.take_texts(),
                ElementsAre("WorkMode:6\n", "LinkStates:1\n", "IP:192.168.1.100\n", "Illegal parameter: submask\n",
                            "Illegal parameter: gwip\n", "GwMac:00:11:22:33:44:55\n", "Illegal parameter: dnsmaster\n",
                            "Illegal parameter: dnsslave\n", "DhcRt:-1\n", "Illegal parameter: mac\n", "ConNum:3\n",
                            "PortId:4\n", "Linkspeed:4294967295\n"));
    rec.eWorkMode = 2;
    EXPECT_EQ(bxtest::stj_typed(MSG_WAN_STATUS, &rec),
              R"(workmode=s"PPPOE" linkstatus=s"enable" ip=s"192.168.1.100" submask=s"" gwip=s"" )"
              R"(gwmac=s"00:11:22:33:44:55" dnsmaster=s"" dnsslave=s"" dhcprt=i32:-1 mac=s"kept" connum=i32:3 )"
              R"(portid=i32:4 linkspeed=i32:-1)");
}

TEST(Ipv6, SwitchIsRequired)
{
    BX_REQUIRE_TRACE_CAPTURE();
    Ipv6Switch rec{7};
    Msg empty(R"({"ipv6status": "enable"})");  // keys are case-sensitive
    TraceCapture cap;
    EXPECT_EQ(JTS_IPv6Enable(empty, &rec), -1);
    EXPECT_EQ(rec.uiEnable, 7u);
    EXPECT_THAT(cap.take_texts(), ElementsAre("Illegal parameter: IPv6status\n", "ipv6Switch is not valid\n"));

    Msg unknown(R"({"IPv6status": "on"})");
    EXPECT_EQ(JTS_IPv6Enable(unknown, &rec), 0);
    EXPECT_EQ(rec.uiEnable, 0xFFFFFFFFu);
    EXPECT_THAT(cap.take(), ElementsAre("JTS_IPv6Enable: ipv6Switch:-1\n"));

    rec.uiEnable = 1;
    EXPECT_EQ(bxtest::stj_typed(MSG_IPV6_ENABLE, &rec), R"(IPv6status=s"enable")");
}

TEST(Ipv6, InfoCarriesFourteenKeysWithEachKindsWords)
{
    Ipv6Info rec{};
    EXPECT_EQ(bxtest::stj_typed(MSG_IPV6_INFO, &rec),
              R"(IPv6enable=s"disable" connectstatus=s"Unconnected" IPaddr=s"" prefix=s"" prefixlen=i32:0 )"
              R"(gateway=s"" dns1=s"" dns2=s"" IPaddrorigin=s"AutoConfigured" pdflag=s"false" )"
              R"(prefixorigin=s"Static" prefixpltime=i32:0 prefixvltime=i32:0 dslite=s"false")");

    Msg msg(R"({"IPv6enable": "enable", "connectstatus": "Connected", "IPaddr": "2001:db8::1", "prefix": "2001:db8::",
                "prefixlen": 64, "IPaddrorigin": "DHCPv6", "pdflag": "true", "prefixorigin": "PrefixDelegation",
                "prefixpltime": 3600, "prefixvltime": 7200, "dslite": "yes"})");
    Ipv6Info back{};
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_IPV6_INFO, msg, &back), 0);
    EXPECT_EQ(back.uiConnectStatus, 1u);
    EXPECT_EQ(back.uiIpAddrOrigin, 2u);
    EXPECT_EQ(back.uiPrefixOrigin, 1u);
    EXPECT_EQ(back.uiDsLite, 0xFFFFFFFFu);
}

TEST(WanConfig, ValidityBitsChooseTheSentKeys)
{
    WanStaticConfig st{};
    std::strcpy(st.szIp, "1.2.3.4");
    st.uiMtu = 1500;
    std::strcpy(st.szDnsSlave, "8.8.4.4");
    WanPppoeConfig pp{};
    std::strcpy(pp.szUser, "u");
    pp.uiMtu = 1492;
    const struct {
        uint32_t capa;
        const char *st;
        const char *pp;
    } cases[] = {
        {0, "", ""},
        // "dnsslave" and the PPPoE "mtu" go with any of the low 16 bits.
        {WAN_CAPA_DNS_SLAVE, R"(dnsslave=s"8.8.4.4")", "mtu=i32:1492"},
        {WAN_CAPA_IP, R"(ip=s"1.2.3.4" dnsslave=s"8.8.4.4")", "mtu=i32:1492"},
        {WAN_CAPA_MTU, R"(mtu=i32:1500 dnsslave=s"8.8.4.4")", "mtu=i32:1492"},
        {WAN_CAPA_PPPOE_USER, R"(dnsslave=s"8.8.4.4")", R"(user=s"u" mtu=i32:1492)"},
        {0x10000, "", ""},
        {0x7FF, R"(ip=s"1.2.3.4" submask=s"" gwip=s"" mtu=i32:1500 dnsmaster=s"" dnsslave=s"8.8.4.4")",
         R"(user=s"u" pwd=s"" server=s"" service=s"" mtu=i32:1492)"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.capa);
        st.uiCapaFlag = c.capa;
        pp.uiCapaFlag = c.capa;
        EXPECT_EQ(bxtest::stj_typed(MSG_STATIC, &st), c.st);
        EXPECT_EQ(bxtest::stj_typed(MSG_PPPOE, &pp), c.pp);
    }
}

TEST(WanConfig, ReceivedFieldsSetTheirBitsAndCapaflagIsNeverRead)
{
    BX_REQUIRE_TRACE_CAPTURE();
    WanStaticConfig st{};
    std::strcpy(st.szIp, "kept");
    st.uiCapaFlag = 0x10000;  // the caller's bits stay
    Msg mtu(R"({"mtu": 1400, "capaflag": 255})");
    TraceCapture cap;
    EXPECT_EQ(JTS_Static(mtu, &st), 0);
    EXPECT_EQ(st.uiMtu, 1400u);
    EXPECT_EQ(st.uiCapaFlag, 0x10000u | WAN_CAPA_MTU);
    EXPECT_STREQ(st.szIp, "kept");
    EXPECT_THAT(cap.take_texts(), ElementsAre("Illegal parameter: ip\n", "Illegal parameter: submask\n",
                                              "Illegal parameter: gwip\n", "MTU:1400\n",
                                              "Illegal parameter: dnsmaster\n", "Illegal parameter: dnsslave\n"));

    WanStaticConfig only_flag{};
    Msg flag(R"({"capaflag": 255})");
    EXPECT_EQ(JTS_Static(flag, &only_flag), 0);
    EXPECT_EQ(only_flag.uiCapaFlag, 0u);

    Msg all(R"({"ip": "1.1.1.2", "submask": "255.0.0.0", "gwip": "1.1.1.1", "dnsmaster": "9.9.9.9",
                "dnsslave": "1.0.0.1"})");
    WanStaticConfig back{};
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_STATIC, all, &back), 0);
    EXPECT_EQ(back.uiCapaFlag, 0x4Fu);
}

TEST(WanConfig, PppoeTextsFillTheWholeArray)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const std::string user(40, 'u');
    const std::string msg_text = R"({"user": ")" + user + R"(", "pwd": "secret", "server": "isp", "service": "svc",)"
                                 R"( "mtu": 1492})";
    Msg msg(msg_text.c_str());
    WanPppoeConfig rec{};
    TraceCapture cap;
    EXPECT_EQ(JTS_Pppoe(msg, &rec), 0);
    EXPECT_EQ(std::string(rec.szUser, sizeof rec.szUser), user.substr(0, 33));  // no terminator inside
    EXPECT_STREQ(rec.szPwd, "secret");
    EXPECT_EQ(rec.uiCapaFlag, 0x7A0u);
    // The server's line shows the password.
    EXPECT_THAT(cap.take_texts(), ElementsAre("PppoeUser:" + user.substr(0, 33) + "\n", "PppoePwd:secret\n",
                                              "MTU:1492\n", "PppoeServer:secret\n", "PppoeService:svc\n",
                                              "Illegal parameter: capaflag\n"));
    EXPECT_THAT(bxtest::stj_typed(MSG_PPPOE, &rec), HasSubstr("user=s\"" + user.substr(0, 33) + "\" pwd="));
}

TEST(WanConfig, MissingOrMistypedKeysNeverFailExceptTheIpv6Switch)
{
    const struct {
        int type;
        int ret;
    } cases[] = {{MSG_WAN_STATUS, 0}, {MSG_IPV6_ENABLE, -1}, {MSG_IPV6_INFO, 0},
                 {MSG_DHCP, 0},       {MSG_STATIC, 0},       {MSG_PPPOE, 0}};
    Msg empty("{}");
    Msg mistyped(R"({"mtu": "1500", "IPv6status": 1, "workmode": 2, "ip": 3, "user": 4})");
    for (const auto &c : cases) {
        SCOPED_TRACE(c.type);
        unsigned char rec[512];
        std::memset(rec, 0x5A, sizeof rec);
        EXPECT_EQ(JSON_TRANS_STRUCT(c.type, empty, rec), c.ret);
        EXPECT_EQ(JSON_TRANS_STRUCT(c.type, mistyped, rec), c.ret);
        for (unsigned char b : rec)
            ASSERT_EQ(b, 0x5A);
    }
    WanDhcpConfig dhcp{};
    Msg mtu(R"({"mtu": 1500})");
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_DHCP, mtu, &dhcp), 0);
    EXPECT_EQ(bxtest::stj_typed(MSG_DHCP, &dhcp), "mtu=i32:1500");
}

// Both families: each converter refuses null arguments and writes nothing.
TEST(WanFamilies, NullArgumentsFail)
{
    const JsonToStructFunc jts[] = {JTS_WanStatus, JTS_IPv6Enable,   JTS_IPv6Info,   JTS_Dhcp,
                                    JTS_Static,    JTS_Pppoe,        JTS_Ping,       JTS_TraceRoute,
                                    JTS_PingResult, JTS_TraceRouteResult, JTS_UplinkSupport};
    const StructToJsonFunc stj[] = {STJ_WanStatus, STJ_IPv6Enable,   STJ_IPv6Info,    STJ_Dhcp,
                                    STJ_Static,    STJ_Pppoe,        STJ_Ping,        STJ_TraceRoute,
                                    STJ_Ping_Result, STJ_TraceRoute_Result, STJ_UplinkSupport};
    Msg msg(R"({"host": "h", "resulttype": 0, "IPv6status": "enable"})");
    bxtest::Buf buf;
    TraceRouteResult rec{};
    for (auto fn : jts) {
        EXPECT_EQ(fn(nullptr, &rec), -1);
        EXPECT_EQ(fn(msg, nullptr), -1);
    }
    for (auto fn : stj) {
        EXPECT_EQ(fn(nullptr, buf.get()), -1);
        EXPECT_EQ(fn(&rec, nullptr), -1);
    }
    EXPECT_EQ(buf.typed(), "");
}

TEST(WanFamilies, ThroughTheProgram)
{
    bxtest::ToolResult res;
    if (!bxtest::run_tool(MSG_PPPOE, R"({"user": "alice", "pwd": "pw", "capaflag": 1024})", res))
        GTEST_SKIP() << "blobxlate program not built";
    EXPECT_EQ(res.exit_code, 0);
    EXPECT_EQ(res.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n"
                       "{\n\t\"user\": \"alice\",\n\t\"pwd\": \"pw\",\n\t\"mtu\": 0\n}\n");
    ASSERT_TRUE(bxtest::run_tool(MSG_PING, R"({"host": "8.8.8.8", "num": 4, "pingnum": 2})", res));
    EXPECT_EQ(res.exit_code, 0);
    EXPECT_EQ(res.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n"
                       "{\n\t\"host\": \"8.8.8.8\",\n\t\"num\": 4,\n\t\"blocksize\": 0,\n\t\"pingtime\": \"\",\n"
                       "\t\"pingnum\": 2\n}\n");
    ASSERT_TRUE(bxtest::run_tool(MSG_TRACE_ROUTE, R"({"host": "h", "maxhop": 0, "resulttype": 0})", res));
    EXPECT_EQ(res.exit_code, 1);
}

TEST(WanFamilies, NameTextsOfBothTables)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const struct {
        int type;
        const char *stj;
        const char *jts;
    } rows[] = {
        {MSG_WAN_STATUS, "WanStatus", "WanStatus"}, {MSG_IPV6_ENABLE, "IPv6Enable", "IPv6Enable"},
        {MSG_IPV6_INFO, "IPv6Info", "IPv6Info"},    {MSG_DHCP, "Dhcp", "Dhcp"},
        {MSG_STATIC, "Static", "Static"},           {MSG_PPPOE, "Pppoe", "Pppoe"},
        {MSG_PING, "Ping", "Ping"},                 {MSG_TRACE_ROUTE, "TraceRoute", "TraceRoute"},
        {MSG_PING_RESULT, "Ping_Result", "PingResult"},
        {MSG_TRACE_ROUTE_RESULT, "TraceRoute_Result", "TraceRouteResult"},
        {MSG_UPLINK_SUPPORT, "UplinkSupport", "UplinkSupport"},
    };
    for (const auto &r : rows) {
        SCOPED_TRACE(r.type);
        alignas(8) unsigned char rec[2048] = {};
        Msg msg(R"({"host": "h", "resulttype": 0, "IPv6status": "enable"})");
        TraceCapture cap;
        EXPECT_EQ(JSON_TRANS_STRUCT(r.type, msg, rec), 0);
        EXPECT_THAT(cap.take_texts(), testing::Contains(std::string("Json To Struct: [") + r.jts + "] \n\n"));
        bxtest::Buf buf;
        EXPECT_EQ(STRUCT_TRANS_JSON(r.type, rec, buf.get()), 0);
        EXPECT_THAT(cap.take_texts(), testing::Contains(std::string("Struct To Json: [") + r.stj + "] \n\n"));
    }
}

} // namespace
