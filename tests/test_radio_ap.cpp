// Wi-Fi radio and access-point messages: wire forms both ways, the presence
// mask, the rate-limit and access-rule particularities, bad input.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <string>
#include <vector>

#include "support.h"

using bxtest::Msg;
using bxtest::TraceCapture;
using testing::HasSubstr;

namespace {

// A zeroed record followed by guard bytes that no converter may touch.
template <typename Rec>
struct Guarded {
    Rec rec{};
    unsigned char guard[64];
    Guarded() { std::memset(guard, 0xA5, sizeof guard); }
    bool intact() const { return std::all_of(std::begin(guard), std::end(guard), [](unsigned char b) { return b == 0xA5; }); }
};

struct RoundTrip {
    int type;
    const char *in;
    int ret;
    const char *out;  // the record sent back, as the daemon's answer carries it
};

// Receives each message into a zeroed record and sends the record back.
template <typename Rec>
void expect_round_trips(const std::vector<RoundTrip> &cases)
{
    for (const RoundTrip &c : cases) {
        SCOPED_TRACE(c.in);
        Guarded<Rec> g;
        Msg msg(c.in);
        EXPECT_EQ(JSON_TRANS_STRUCT(c.type, msg, &g.rec), c.ret);
        EXPECT_TRUE(g.intact());
        EXPECT_EQ(bxtest::stj_typed(c.type, &g.rec), c.out);
    }
}

const MessageTransEntry *row_of(const MessageTransEntry *table, int count, int type, int *index)
{
    for (int i = 0; i < count; ++i) {
        if (table[i].id == type) {
            *index = i;
            return &table[i];
        }
    }
    return nullptr;
}

// ---- Both directions ----------------------------------------------------------------

TEST(RadioApWire, SwitchesRadiosSelectionAndAccessPoints)
{
    expect_round_trips<WifiSwitchRec>({
        {MSG_WIFI_STATUS, R"({"switch": "enable"})", 0, R"(switch=s"enable")"},
        {MSG_WIFI5_STATUS, R"({"switch": "disable"})", 0, R"(switch=s"disable")"},
        {MSG_WIFI_STATUS, R"({"switch": "on"})", 0, R"(switch=s"")"},  // stores -1, which has no word
        {MSG_WIFI_STATUS, R"({})", -1, R"(switch=s"disable")"},
        {MSG_WIFI5_STATUS, R"({"switch": 1})", -1, R"(switch=s"disable")"},
    });
    expect_round_trips<WifiRadioRec>({
        {MSG_WIFI_OPT, R"({"radio": "5G"})", 0, R"(radio=s"5G")"},
        {MSG_WIFI_OPT, R"({"radio": "5g"})", 0, R"(radio=s"")"},  // stores 2
        {MSG_WIFI_OPT, R"({})", 0, R"(radio=s"2.4G")"},
    });
    expect_round_trips<WifiSelectRec>({
        {MSG_WIFI_SELECT, R"({"radio": "5G", "ap": 2})", 0, R"(radio=s"5G" ap=i32:2)"},
        {MSG_WIFI_SELECT, R"({"radio": 1, "ap": "2", "apindex": 9})", 0, R"(radio=s"2.4G" ap=i32:0)"},
    });
    expect_round_trips<ApAccessModeRec>({
        {MSG_AP_ACCESS_MODE, R"({"radio": "5G", "apindex": 3, "accessmode": 1})", 0,
         R"(radio=s"5G" apindex=i32:3 accessmode=i32:1)"},
        {MSG_AP_ACCESS_MODE, R"({})", 0, R"(radio=s"2.4G" apindex=i32:0 accessmode=i32:0)"},
    });
    expect_round_trips<ApIndexRec>({
        {MSG_AP_ADD, R"({"radio": "5G", "apindex": 3})", 0, R"(radio=s"5G" apindex=i32:3)"},
        {MSG_AP_DELETE, R"({"radio": "5G", "apindex": 3})", 0, R"(radio=s"5G" apindex=i32:3)"},
        {MSG_AP_ADD, R"({"radio": "5G"})", -1, R"(radio=s"5G" apindex=i32:0)"},
        {MSG_AP_DELETE, R"({"apindex": 3})", -1, R"(radio=s"2.4G" apindex=i32:0)"},
    });
    expect_round_trips<ApAdvancedRec>({
        {MSG_AP_ADVANCED,
         R"({"radio": "5G", "apindex": 0, "accessmax": 32, "wmmenable": "enable", "regulatorydomain": "US"})", 0,
         R"(radio=s"5G" apindex=i32:0 accessmax=i32:32 wmmenable=s"enable" regulatorydomain=s"US")"},
        {MSG_AP_ADVANCED, R"({"radio": "5G", "apindex": 0, "regulatorydomain": "US"})", 0,
         R"(radio=s"5G" apindex=i32:0 regulatorydomain=s"US")"},
        {MSG_AP_ADVANCED, R"({"radio": "5G", "accessmax": 32})", -1, R"(radio=s"5G" apindex=i32:0 regulatorydomain=s"")"},
    });
}

TEST(RadioApWire, RadioBasic)
{
    expect_round_trips<RadioBasicRec>({
        {MSG_RADIO_BASIC,
         R"({"radio": "5G", "status": "enable", "txpower": "50%", "channel": 36, "bandwidth": "80M",
             "standard": "11a/11n/11ac", "realbandwidth": "40M", "realchannel": 40, "apcount": 2, "load": 30,
             "noiselevel": -90, "capaflag": 0})",
         0,
         R"(radio=s"5G" status=s"enable" txpower=s"50%" channel=i32:36 bandwidth=s"80M" standard=s"11a/11n/11ac" )"
         R"(realbandwidth=s"40M" realchannel=i32:40 apcount=i32:2 load=i32:30 noiselevel=i32:-90 capaflag=i32:12481)"},
        // The radio's state sets no bit, so alone it is not sent back; a received mask is ignored.
        {MSG_RADIO_BASIC, R"({"radio": "2.4G", "realchannel": 6, "apcount": 1, "load": 5, "capaflag": 65535})", 0,
         R"(radio=s"2.4G" load=i32:5 noiselevel=i32:0 capaflag=i32:0)"},
        // Unknown words store the kinds' fallbacks, and their bits.
        {MSG_RADIO_BASIC, R"({"radio": "2.4G", "txpower": "10%", "bandwidth": "80M/80M", "standard": "11b/11x"})", 0,
         R"(radio=s"2.4G" txpower=s"" bandwidth=s"" standard=s"" realbandwidth=s"auto" realchannel=i32:0 )"
         R"(apcount=i32:0 load=i32:0 noiselevel=i32:0 capaflag=i32:4288)"},
        // The radio is checked first: nothing after it is stored.
        {MSG_RADIO_BASIC, R"({"status": "enable", "channel": 6})", -1,
         R"(radio=s"2.4G" load=i32:0 noiselevel=i32:0 capaflag=i32:0)"},
    });

    RadioBasicRec rb{};
    rb.eRadio = 1;
    rb.uiBandwidth = 5;
    rb.uiRealChannel = 40;
    rb.capaflag = 0x10000;  // only the low 16 bits open the state group
    EXPECT_EQ(bxtest::stj_typed(MSG_RADIO_BASIC, &rb), R"(radio=s"5G" load=i32:0 noiselevel=i32:0 capaflag=i32:65536)");
    rb.capaflag = WIFI_CAPA_SSID;  // any bit of the family does
    EXPECT_EQ(bxtest::stj_typed(MSG_RADIO_BASIC, &rb),
              R"(radio=s"5G" realbandwidth=s"auto" realchannel=i32:40 apcount=i32:0 load=i32:0 noiselevel=i32:0 capaflag=i32:2)");
}

TEST(RadioApWire, ApBasic)
{
    expect_round_trips<ApBasicRec>({
        // The key goes out after "hide", the state last.
        {MSG_AP_BASIC,
         R"({"radio": "5G", "apindex": 1, "status": "enable", "ssid": "home", "initalssid": "factory",
             "bssid": "aa:bb", "auth": "wpa2psk", "encrypt": "aes", "key": "secret", "hide": "disable",
             "ValidTime": 5, "RestTime": 6, "capaflag": 0})",
         0,
         R"(radio=s"5G" apindex=i32:1 status=s"enable" ssid=s"home" auth=s"wpa2psk" encrypt=s"aes" hide=s"disable" )"
         R"(key=s"secret" bssid=s"aa:bb" initalssid=s"factory")"},
        {MSG_AP_BASIC, R"({"radio": "5G", "apindex": 1, "hide": "enable", "bssid": "aa:bb"})", 0,
         R"(radio=s"5G" apindex=i32:1 hide=s"enable" bssid=s"aa:bb" initalssid=s"")"},
        {MSG_AP_BASIC, R"({"radio": "5G", "apindex": 1, "auth": "psk", "encrypt": "des"})", 0,
         R"(radio=s"5G" apindex=i32:1 auth=s"" encrypt=s"" bssid=s"" initalssid=s"")"},
        {MSG_AP_BASIC, R"({"radio": "5G", "apindex": 1, "bssid": "aa:bb"})", 0, R"(radio=s"5G" apindex=i32:1)"},
        {MSG_AP_BASIC, R"({"apindex": 1, "ssid": "home"})", -1, R"(radio=s"2.4G" apindex=i32:0)"},
        {MSG_AP_BASIC, R"({"radio": "5G", "ssid": "home"})", -1, R"(radio=s"5G" apindex=i32:0)"},
    });

    // A text that fills its array has no terminator: only the array is sent.
    ApBasicRec ap{};
    std::memset(ap.szSsid, 'x', sizeof ap.szSsid);
    ap.capaflag = WIFI_CAPA_SSID;
    EXPECT_THAT(bxtest::stj_typed(MSG_AP_BASIC, &ap), HasSubstr("ssid=s\"" + std::string(32, 'x') + "\" "));
}

TEST(RadioApWire, RateLimitTestsTheUpstreamLimitForBoth)
{
    expect_round_trips<ApRateLimitRec>({
        {MSG_AP_RATE_LIMIT, R"({"radio": "5G", "apindex": 1, "usbandwidth": 5, "dsbandwidth": 7})", 0,
         R"(radio=s"5G" apindex=i32:1 usbandwidth=i32:5 dsbandwidth=i32:7)"},
        // A negative downstream limit passes on the upstream limit's test.
        {MSG_AP_RATE_LIMIT, R"({"radio": "5G", "apindex": 1, "usbandwidth": 5, "dsbandwidth": -1})", 0,
         R"(radio=s"5G" apindex=i32:1 usbandwidth=i32:5 dsbandwidth=i32:-1)"},
        {MSG_AP_RATE_LIMIT, R"({"radio": "5G", "apindex": 1, "usbandwidth": -1, "dsbandwidth": 7})", -1,
         R"(radio=s"5G" apindex=i32:1)"},
        // Without an upstream limit a downstream limit is refused.
        {MSG_AP_RATE_LIMIT, R"({"radio": "5G", "apindex": 1, "dsbandwidth": 7})", -1, R"(radio=s"5G" apindex=i32:1)"},
        {MSG_AP_RATE_LIMIT, R"({"radio": "5G", "apindex": 1, "usbandwidth": 5})", 0,
         R"(radio=s"5G" apindex=i32:1 usbandwidth=i32:5)"},
        {MSG_AP_RATE_LIMIT, R"({"radio": "5G", "usbandwidth": 5})", -1, R"(radio=s"5G" apindex=i32:0)"},
    });
}

TEST(RadioApWire, AccessRule)
{
    expect_round_trips<ApAccessRuleRec>({
        {MSG_AP_ACCESS_RULE,
         R"({"radio": "5G", "apindex": 1, "accessrule": "isolate", "count": 2,
             "iplist": [{"ip": "10.0.0.1", "port": 80}, {"ip": "10.0.0.2", "port": 443}]})",
         0,
         R"(radio=s"5G" apindex=i32:1 accessrule=s"isolate" count=i32:2 )"
         R"(iplist=[{ip=s"10.0.0.1" port=i32:80} {ip=s"10.0.0.2" port=i32:443}])"},
        // An unknown rule or none at all is stored as 3, which has no word.
        {MSG_AP_ACCESS_RULE, R"({"accessrule": "open"})", 0,
         R"(radio=s"2.4G" apindex=i32:0 accessrule=s"" count=i32:0 iplist=[])"},
        {MSG_AP_ACCESS_RULE, R"({})", 0, R"(radio=s"2.4G" apindex=i32:0 accessrule=s"" count=i32:0 iplist=[])"},
        // The list is not held to "count"; every element takes the next entry, usable or not.
        {MSG_AP_ACCESS_RULE, R"({"count": 3, "iplist": ["x", {"port": 22}, {"ip": "10.0.0.3", "port": "x"}, {}]})", 0,
         R"(radio=s"2.4G" apindex=i32:0 accessrule=s"" count=i32:3 )"
         R"(iplist=[{ip=s"" port=i32:0} {ip=s"" port=i32:22} {ip=s"10.0.0.3" port=i32:0}])"},
    });

    ApAccessRuleRec r{};
    r.uiAccessRule = 1;
    Msg rule(R"({"accessrule": "design", "count": 1, "iplist": [{"ip": "a"}, {"ip": "b"}, {"ip": "c", "port": 3}]})");
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_AP_ACCESS_RULE, rule, &r), 0);
    EXPECT_EQ(r.uiAccessRule, 2u);
    EXPECT_STREQ(r.astIpList[2].szIp, "c");
    EXPECT_EQ(r.astIpList[2].uiPort, 3u);
    Msg none(R"({"count": 1})");
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_AP_ACCESS_RULE, none, &r), 0);
    EXPECT_EQ(r.uiAccessRule, 3u);  // overwritten without the key
}

TEST(RadioApWire, AccessRuleListStaysInsideTheRecord)
{
    std::string many = R"({"iplist": [)";
    for (int i = 0; i < AP_ACCESS_IP_MAX + 8; ++i)
        many += std::string(i ? "," : "") + R"({"ip": "1.1.1.1", "port": )" + std::to_string(i) + "}";
    Guarded<ApAccessRuleRec> g;
    Msg msg((many + "]}").c_str());
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_AP_ACCESS_RULE, msg, &g.rec), 0);
    EXPECT_EQ(g.rec.astIpList[AP_ACCESS_IP_MAX - 1].uiPort, static_cast<uint32_t>(AP_ACCESS_IP_MAX - 1));
    EXPECT_TRUE(g.intact());

    g.rec.uiCount = 1000;  // a caller's bad count sends the whole array, no more
    std::string out = bxtest::stj_typed(MSG_AP_ACCESS_RULE, &g.rec);
    size_t entries = 0;
    for (size_t at = out.find("{ip="); at != std::string::npos; at = out.find("{ip=", at + 1))
        ++entries;
    EXPECT_EQ(entries, static_cast<size_t>(AP_ACCESS_IP_MAX));
}

// ---- Tree to record only ---------------------------------------------------------------

TEST(RadioApFromTree, MaskIsOnlyEverAddedToAndAbsentKeysKeepFields)
{
    ApBasicRec ap{};
    ap.capaflag = WIFI_CAPA_KEY | 0x10000;
    std::strcpy(ap.szSsid, "kept");
    ap.uiAuth = 7;
    Msg msg(R"({"radio": "5G", "apindex": 0, "status": "enable"})");
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_AP_BASIC, msg, &ap), 0);
    EXPECT_EQ(ap.capaflag, WIFI_CAPA_KEY | 0x10000 | WIFI_CAPA_STATUS);
    EXPECT_STREQ(ap.szSsid, "kept");
    EXPECT_EQ(ap.uiAuth, 7u);

    ApRateLimitRec rl{};
    rl.capaflag = WIFI_CAPA_DSBANDWIDTH;
    rl.uiDsBandWidth = 9;
    Msg refused(R"({"radio": "5G", "apindex": 0, "usbandwidth": -3, "dsbandwidth": 4})");
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_AP_RATE_LIMIT, refused, &rl), -1);
    EXPECT_EQ(rl.capaflag, WIFI_CAPA_DSBANDWIDTH);
    EXPECT_EQ(rl.uiUsBandWidth, 0u);
    EXPECT_EQ(rl.uiDsBandWidth, 9u);
    EXPECT_EQ(rl.eRadio, 1u);  // stored before the refusal
}

TEST(RadioApFromTree, TextsAreCutAtTheirArrays)
{
    const std::string z(100, 'z');
    Guarded<ApBasicRec> ap;
    std::memset(&ap.rec, 0x11, sizeof ap.rec);
    Msg msg((R"({"radio": "5G", "apindex": 0, "ssid": ")" + z + R"(", "key": ")" + z + R"("})").c_str());
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_AP_BASIC, msg, &ap.rec), 0);
    EXPECT_EQ(std::string(ap.rec.szSsid, 31), z.substr(0, 31));
    EXPECT_EQ(ap.rec.szSsid[31], 0x11);  // the caller's last byte
    EXPECT_EQ(std::string(ap.rec.szKey, 63), z.substr(0, 63));
    EXPECT_EQ(ap.rec.szKey[63], 0x11);
    EXPECT_TRUE(ap.intact());

    ApAdvancedRec adv{};
    Msg dom(R"({"radio": "5G", "apindex": 0, "regulatorydomain": "ABCDEFGHIJ"})");
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_AP_ADVANCED, dom, &adv), 0);
    EXPECT_STREQ(adv.szRegulatoryDomain, "ABCDEFG");
}

// The standard word is translated in the message itself, which loses its
// last token: the receiver hands over the message's own text.
TEST(RadioApFromTree, StandardIsTranslatedInTheMessagesOwnText)
{
    RadioBasicRec rb{};
    Msg msg(R"({"radio": "5G", "standard": "11b/11g"})");
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_RADIO_BASIC, msg, &rb), 0);
    EXPECT_EQ(rb.uiStandard, 3u);
    const blobmsg_policy policy[] = {{"standard", BLOBMSG_TYPE_STRING}};
    blob_attr *tb[1];
    blobmsg_parse(policy, 1, tb, blob_data(msg.get()), blob_len(msg.get()));
    ASSERT_NE(tb[0], nullptr);
    EXPECT_STREQ(blobmsg_get_string(tb[0]), "11b/");
}

TEST(RadioApFromTree, TracesNameWhatIsStoredAndRefused)
{
    BX_REQUIRE_TRACE_CAPTURE();
    struct TraceCase {
        int type;
        const char *in;
        int ret;
        std::vector<std::string> lines;
    };
    const std::string absent = "JTS_CheckBlobAttr: Illegal parameter: ";
    const std::vector<TraceCase> cases = {
        {MSG_WIFI_STATUS, R"({})", -1, {absent + "switch\n", "JTS_WifiStatus: [status] is not valid.\n"}},
        {MSG_WIFI5_STATUS, R"({"switch": "enable"})", 0, {"JTS_Wifi5Status: switch:1\n"}},
        {MSG_WIFI_SELECT, R"({"ap": 2})", 0, {absent + "radio\n", "JTS_WifiRadio: ap:2\n"}},
        {MSG_WIFI_OPT, R"({"radio": "6G"})", 0, {"JTS_WifiOpt: radio:2\n"}},
        {MSG_AP_ADD, R"({"radio": "5G"})", -1,
         {"JTS_ApAdd: radio:1\n", absent + "apindex\n", "JTS_ApAdd: [apindex] is not valid.\n"}},
        {MSG_AP_RATE_LIMIT, R"({"radio": "5G", "apindex": 1, "usbandwidth": -2})", -1,
         {"JTS_ApRateLimit: radio:1\n", "JTS_ApRateLimit: apindex:1\n", "JTS_ApRateLimit: [uiUsBandWidth] is not valid.\n"}},
        {MSG_AP_RATE_LIMIT, R"({"radio": "5G", "apindex": 1, "dsbandwidth": 3})", -1,
         {"JTS_ApRateLimit: radio:1\n", "JTS_ApRateLimit: apindex:1\n", absent + "usbandwidth\n",
          "JTS_ApRateLimit: [uiDsBandWidth] is not valid.\n"}},
        {MSG_AP_ACCESS_RULE, R"({"iplist": [{"ip": "1.2.3.4"}], "accessrule": "x"})", 0,
         {"JTS_ApAccessRule: ip:1.2.3.4\n", absent + "port\n", absent + "radio\n", absent + "apindex\n",
          "JTS_ApAccessRule: accessrule:3\n", absent + "count\n"}},
        {MSG_AP_BASIC, R"({"radio": "5G", "apindex": 0, "key": "pw", "standard": "11n"})", 0,
         {"JTS_ApBasic: radio:1\n", "JTS_ApBasic: apindex:0\n", absent + "status\n", absent + "ssid\n",
          absent + "initalssid\n", absent + "bssid\n", absent + "auth\n", absent + "encrypt\n", "JTS_ApBasic: key:pw\n",
          absent + "hide\n", absent + "ValidTime\n", absent + "RestTime\n", absent + "capaflag\n"}},
        {MSG_RADIO_BASIC,
         R"({"radio": "5G", "standard": "11b/11x", "load": 1, "noiselevel": 2, "realbandwidth": "20M",
             "realchannel": 3, "apcount": 4, "bandwidth": "auto", "txpower": "100%", "status": "disable", "channel": 1})",
         0,
         {"JTS_RadioBasic: radio:1\n", "JTS_RadioBasic: status:0\n", "JTS_RadioBasic: txpower:0\n",
          "JTS_RadioBasic: channel:1\n", "JTS_RadioBasic: bandwidth:0\n",
          "PARATRANS_String_To_Int: [standard] is not valid.\n", "JTS_RadioBasic: standard:0\n",
          "JTS_RadioBasic: realbandwidth:1\n", "JTS_RadioBasic: realchannel:3\n", "JTS_RadioBasic: apcount:4\n",
          "JTS_RadioBasic: load:1\n", "JTS_RadioBasic: noiselevel:2\n", absent + "capaflag\n"}},
        {MSG_RADIO_BASIC, R"({"channel": 6})", -1, {absent + "radio\n", "JTS_RadioBasic: [radio] is not valid.\n"}},
    };
    for (const TraceCase &c : cases) {
        SCOPED_TRACE(c.in);
        // The converter itself: the dispatcher's rendering of a list spans lines.
        int at;
        const MessageTransEntry *row = row_of(g_astJsonToStruct_Func, g_iJsonToStruct_FuncNum, c.type, &at);
        ASSERT_NE(row, nullptr);
        ApAccessRuleRec rec{};  // the largest record of the family
        Msg msg(c.in);
        TraceCapture cap;
        EXPECT_EQ(row->converter.toStruct(msg, &rec), c.ret);
        EXPECT_EQ(cap.take(), c.lines);
    }
}

// ---- Null arguments, dispatch rows, the command-line program -------------------------------

struct Row {
    int type;
    int stj_pos;
    int jts_pos;
    const char *name;
    StructToJsonFunc stj;
    JsonToStructFunc jts;
};

const Row kRows[] = {
    {MSG_WIFI_SELECT, 20, 109, "WifiSelect", STJ_WifiSelect, JTS_WifiRadio},
    {MSG_WIFI_STATUS, 21, 110, "WifiStatus", STJ_WifiStatus, JTS_WifiStatus},
    {MSG_WIFI_OPT, 22, 111, "WifiOpt", STJ_WifiOpt, JTS_WifiOpt},
    {MSG_WIFI5_STATUS, 32, 120, "Wifi5Status", STJ_Wifi5Status, JTS_Wifi5Status},
    {MSG_RADIO_BASIC, 33, 121, "RadioBasic", STJ_RadioBasic, JTS_RadioBasic},
    {MSG_AP_BASIC, 34, 122, "ApBasic", STJ_ApBasic, JTS_ApBasic},
    {MSG_AP_ADVANCED, 35, 123, "ApAdvanced", STJ_ApAdvanced, JTS_ApAdvanced},
    {MSG_AP_RATE_LIMIT, 36, 124, "ApRateLimit", STJ_ApRateLimit, JTS_ApRateLimit},
    {MSG_AP_ACCESS_MODE, 37, 125, "ApAccessMode", STJ_ApAccessMode, JTS_ApAccessMode},
    {MSG_AP_ACCESS_RULE, 38, 126, "ApAccessRule", STJ_ApAccessRule, JTS_ApAccessRule},
    {MSG_AP_ADD, 39, 127, "ApAdd", STJ_ApAdd, JTS_ApAdd},
    {MSG_AP_DELETE, 40, 128, "ApDelete", STJ_ApDelete, JTS_ApDelete},
};

TEST(RadioApDispatch, RowsCarryTheirNamesAndPositions)
{
    // Positions can only be checked once every family has its rows.
    const bool complete = g_iStructToJson_FuncNum == 160 && g_iJsonToStruct_FuncNum == 159;
    for (const Row &r : kRows) {
        SCOPED_TRACE(r.name);
        int at = -1;
        const MessageTransEntry *s = row_of(g_astStructToJson_Func, g_iStructToJson_FuncNum, r.type, &at);
        ASSERT_NE(s, nullptr);
        EXPECT_STREQ(s->name, r.name);
        EXPECT_EQ(s->converter.toJson, r.stj);
        EXPECT_TRUE(!complete || at == r.stj_pos) << at;
        const MessageTransEntry *j = row_of(g_astJsonToStruct_Func, g_iJsonToStruct_FuncNum, r.type, &at);
        ASSERT_NE(j, nullptr);
        EXPECT_STREQ(j->name, r.name);
        EXPECT_EQ(j->converter.toStruct, r.jts);
        EXPECT_TRUE(!complete || at == r.jts_pos) << at;
    }
}

TEST(RadioApDispatch, NullArgumentsFail)
{
    ApAccessRuleRec rec{};
    bxtest::Buf buf;
    Msg msg(R"({"radio": "5G", "apindex": 1, "switch": "enable"})");
    for (const Row &r : kRows) {
        SCOPED_TRACE(r.name);
        EXPECT_EQ(r.stj(nullptr, buf.get()), -1);
        EXPECT_EQ(r.stj(&rec, nullptr), -1);
        EXPECT_EQ(r.jts(nullptr, &rec), -1);
        EXPECT_EQ(r.jts(msg, nullptr), -1);
    }
    EXPECT_EQ(buf.typed(), "");
}

TEST(RadioApDispatch, ProgramRoundTrips)
{
    bxtest::ToolResult res;
    if (!bxtest::run_tool(MSG_AP_BASIC, R"({"radio": "5G", "apindex": 2, "ssid": "home", "key": "pw"})", res))
        GTEST_SKIP() << "blobxlate program not built";
    EXPECT_EQ(res.exit_code, 0);
    EXPECT_EQ(res.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n{\n\t\"radio\": \"5G\",\n\t\"apindex\": 2,\n"
                       "\t\"ssid\": \"home\",\n\t\"key\": \"pw\",\n\t\"bssid\": \"\",\n\t\"initalssid\": \"\"\n}\n");

    ASSERT_TRUE(bxtest::run_tool(MSG_AP_RATE_LIMIT, R"({"radio": "5G", "apindex": 2, "dsbandwidth": 10})", res));
    EXPECT_EQ(res.exit_code, 1);
    EXPECT_EQ(res.out, "JSON_TRANS_STRUCT: -1\nSTRUCT_TRANS_JSON: 0\n{\n\t\"radio\": \"5G\",\n\t\"apindex\": 2\n}\n");
}

} // namespace
