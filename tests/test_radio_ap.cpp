// Wi-Fi radio and access-point messages: wire forms both ways, the presence
// mask, the rate-limit and access-rule particularities, bad input.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "support.h"

using bxtest::Msg;
using bxtest::TraceCapture;
using testing::ElementsAre;

namespace {

// A zeroed record with guard bytes behind it: converters must not write
// there whatever the message says.
template <typename Rec>
struct Guarded {
    Rec rec{};
    unsigned char guard[64];
    Guarded() { std::memset(guard, 0xA5, sizeof guard); }
    bool guard_intact() const
    {
        for (unsigned char b : guard)
            if (b != 0xA5)
                return false;
        return true;
    }
};

// Receives msg as type, then sends the record back: the wire form as the
// daemon's answer would carry it.
template <typename Rec>
std::string through_record(int type, const char *json, int *ret, Rec *out = nullptr)
{
    Guarded<Rec> g;
    Msg msg(json);
    *ret = JSON_TRANS_STRUCT(type, msg, &g.rec);
    EXPECT_TRUE(g.guard_intact());
    if (out != nullptr)
        *out = g.rec;
    return bxtest::stj_typed(type, &g.rec);
}

struct Case {
    const char *what;
    std::string got;
    std::string want;
};

void expect_cases(const std::vector<Case> &cases)
{
    for (const Case &c : cases)
        EXPECT_EQ(c.got, c.want) << c.what;
}

// ---- Record to tree -------------------------------------------------------------

TEST(RadioApToTree, EveryMessage)
{
    WifiSwitchRec on{1}, off{0}, odd{7};
    WifiRadioRec radio5{1};
    WifiSelectRec sel{0, 3};
    ApAccessModeRec mode{1, 2, 4};
    ApIndexRec idx{1, 5};
    expect_cases({
        {"wifi on", bxtest::stj_typed(MSG_WIFI_STATUS, &on), R"(switch=s"enable")"},
        {"5G wifi off", bxtest::stj_typed(MSG_WIFI5_STATUS, &off), R"(switch=s"disable")"},
        {"switch without word", bxtest::stj_typed(MSG_WIFI_STATUS, &odd), R"(switch=s"")"},
        {"radio", bxtest::stj_typed(MSG_WIFI_OPT, &radio5), R"(radio=s"5G")"},
        {"selection", bxtest::stj_typed(MSG_WIFI_SELECT, &sel), R"(radio=s"2.4G" ap=i32:3)"},
        {"access mode", bxtest::stj_typed(MSG_AP_ACCESS_MODE, &mode), R"(radio=s"5G" apindex=i32:2 accessmode=i32:4)"},
        {"ap add", bxtest::stj_typed(MSG_AP_ADD, &idx), R"(radio=s"5G" apindex=i32:5)"},
        {"ap delete", bxtest::stj_typed(MSG_AP_DELETE, &idx), R"(radio=s"5G" apindex=i32:5)"},
    });
}

TEST(RadioApToTree, RadioBasicFollowsTheMask)
{
    RadioBasicRec rb{};
    rb.eRadio = 1;
    rb.uiStatus = 1;
    rb.uiTxPower = 1;
    rb.uiChannel = 36;
    rb.uiRealChannel = 40;
    rb.uiBandwidth = 5;
    rb.uiStandard = 28;
    rb.uiRealBandwidth = 3;
    rb.uiApCount = 2;
    rb.uiLoad = 30;
    rb.uiNoiseLevel = static_cast<uint32_t>(-90);
    auto with = [&](uint32_t mask) {
        RadioBasicRec r = rb;
        r.capaflag = mask;
        return bxtest::stj_typed(MSG_RADIO_BASIC, &r);
    };
    const std::string tail = " load=i32:30 noiselevel=i32:-90";
    const std::string real = R"( realbandwidth=s"80M" realchannel=i32:40 apcount=i32:2)";
    expect_cases({
        {"no bits", with(0), R"(radio=s"5G")" + tail + " capaflag=i32:0"},
        // Only the low 16 bits open the state group.
        {"bit 16 only", with(0x10000), R"(radio=s"5G")" + tail + " capaflag=i32:65536"},
        {"a bit of another record", with(WIFI_CAPA_SSID), R"(radio=s"5G")" + real + tail + " capaflag=i32:2"},
        {"bandwidth", with(WIFI_CAPA_BANDWIDTH), R"(radio=s"5G" bandwidth=s"20M/40M")" + real + tail + " capaflag=i32:64"},
        {"all settings",
         with(WIFI_CAPA_STATUS | WIFI_CAPA_TXPOWER | WIFI_CAPA_CHANNEL | WIFI_CAPA_BANDWIDTH | WIFI_CAPA_STANDARD),
         R"(radio=s"5G" status=s"enable" txpower=s"75%" channel=i32:36 bandwidth=s"20M/40M" standard=s"11a/11n/11ac")" +
             real + tail + " capaflag=i32:12481"},
    });
}

TEST(RadioApToTree, ApBasicFollowsTheMask)
{
    ApBasicRec ap{};
    ap.eRadio = 0;
    ap.uiApIndex = 1;
    ap.uiStatus = 0;
    std::strcpy(ap.szSsid, "home");
    std::strcpy(ap.szInitalSsid, "factory");
    std::strcpy(ap.szBssid, "aa:bb:cc:dd:ee:ff");
    ap.uiAuth = 5;
    ap.uiEncrypt = 3;
    std::strcpy(ap.szKey, "secret");
    ap.uiHide = 1;
    ap.uiValidTime = 9;
    ap.uiRestTime = 9;
    auto with = [&](uint32_t mask) {
        ApBasicRec r = ap;
        r.capaflag = mask;
        return bxtest::stj_typed(MSG_AP_BASIC, &r);
    };
    const std::string head = R"(radio=s"2.4G" apindex=i32:1)";
    const std::string state = R"( bssid=s"aa:bb:cc:dd:ee:ff" initalssid=s"factory")";
    expect_cases({
        {"no bits", with(0), head},
        {"hide only", with(WIFI_CAPA_HIDE), head + R"( hide=s"enable")" + state},
        // The key comes after "hide".
        {"all", with(0x3F),
         head + R"( status=s"disable" ssid=s"home" auth=s"wpa2psk" encrypt=s"aes" hide=s"enable" key=s"secret")" + state},
    });
}

TEST(RadioApToTree, AdvancedAndRateLimitFollowTheMask)
{
    ApAdvancedRec adv{1, 0, 16, 1, 0, "CN"};
    ApRateLimitRec rl{0, 2, 100, 200, 0};
    auto adv_with = [&](uint32_t mask) {
        ApAdvancedRec r = adv;
        r.capaflag = mask;
        return bxtest::stj_typed(MSG_AP_ADVANCED, &r);
    };
    auto rl_with = [&](uint32_t mask) {
        ApRateLimitRec r = rl;
        r.capaflag = mask;
        return bxtest::stj_typed(MSG_AP_RATE_LIMIT, &r);
    };
    expect_cases({
        {"advanced, no bits", adv_with(0), R"(radio=s"5G" apindex=i32:0 regulatorydomain=s"CN")"},
        {"advanced, all", adv_with(WIFI_CAPA_ACCESSMAX | WIFI_CAPA_WMMENABLE),
         R"(radio=s"5G" apindex=i32:0 accessmax=i32:16 wmmenable=s"enable" regulatorydomain=s"CN")"},
        {"rate limit, no bits", rl_with(0), R"(radio=s"2.4G" apindex=i32:2)"},
        {"rate limit, down only", rl_with(WIFI_CAPA_DSBANDWIDTH), R"(radio=s"2.4G" apindex=i32:2 dsbandwidth=i32:200)"},
        {"rate limit, both", rl_with(WIFI_CAPA_USBANDWIDTH | WIFI_CAPA_DSBANDWIDTH),
         R"(radio=s"2.4G" apindex=i32:2 usbandwidth=i32:100 dsbandwidth=i32:200)"},
    });
}

TEST(RadioApToTree, AccessRuleSendsCountEntries)
{
    ApAccessRuleRec r{};
    r.eRadio = 1;
    r.uiApIndex = 0;
    r.uiAccessRule = 2;
    std::strcpy(r.astIpList[0].szIp, "10.0.0.1");
    r.astIpList[0].uiPort = 80;
    std::strcpy(r.astIpList[1].szIp, "10.0.0.2");
    r.astIpList[1].uiPort = 443;
    r.uiCount = 2;
    EXPECT_EQ(bxtest::stj_typed(MSG_AP_ACCESS_RULE, &r),
              R"(radio=s"5G" apindex=i32:0 accessrule=s"design" count=i32:2 )"
              R"(iplist=[{ip=s"10.0.0.1" port=i32:80} {ip=s"10.0.0.2" port=i32:443}])");
    r.uiCount = 0;
    r.uiAccessRule = 3;  // no rule: no word
    EXPECT_EQ(bxtest::stj_typed(MSG_AP_ACCESS_RULE, &r),
              R"(radio=s"5G" apindex=i32:0 accessrule=s"" count=i32:0 iplist=[])");
}

TEST(RadioApToTree, BadCountsAndFullTextsStayInsideTheRecord)
{
    ApAccessRuleRec r{};
    r.uiCount = 1000;
    std::string out = bxtest::stj_typed(MSG_AP_ACCESS_RULE, &r);
    size_t entries = 0;
    for (size_t at = out.find("{ip="); at != std::string::npos; at = out.find("{ip=", at + 1))
        ++entries;
    EXPECT_EQ(entries, static_cast<size_t>(AP_ACCESS_IP_MAX));
    EXPECT_THAT(out, testing::HasSubstr("count=i32:1000"));

    // A text that fills its array has no terminator: only the array is sent.
    ApBasicRec ap{};
    std::memset(ap.szSsid, 'x', sizeof ap.szSsid);
    ap.capaflag = WIFI_CAPA_SSID;
    EXPECT_THAT(bxtest::stj_typed(MSG_AP_BASIC, &ap), testing::HasSubstr("ssid=s\"" + std::string(32, 'x') + "\" "));
}

// ---- Tree to record, and back ------------------------------------------------------

struct RoundTrip {
    int type;
    const char *in;
    int ret;
    const char *out;
};

template <typename Rec>
void expect_round_trips(const std::vector<RoundTrip> &cases)
{
    for (const RoundTrip &c : cases) {
        SCOPED_TRACE(c.in);
        int ret = -2;
        EXPECT_EQ(through_record<Rec>(c.type, c.in, &ret), c.out);
        EXPECT_EQ(ret, c.ret);
    }
}

TEST(RadioApFromTree, SwitchesRadiosAndSelection)
{
    expect_round_trips<WifiSwitchRec>({
        {MSG_WIFI_STATUS, R"({"switch": "enable"})", 0, R"(switch=s"enable")"},
        {MSG_WIFI5_STATUS, R"({"switch": "disable"})", 0, R"(switch=s"disable")"},
        {MSG_WIFI_STATUS, R"({"switch": "on"})", 0, R"(switch=s"")"},  // stores -1
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
        {MSG_WIFI_SELECT, R"({"ap": 4, "apindex": 9})", 0, R"(radio=s"2.4G" ap=i32:4)"},
        {MSG_WIFI_SELECT, R"({"radio": 1, "ap": "2"})", 0, R"(radio=s"2.4G" ap=i32:0)"},
    });
}

TEST(RadioApFromTree, RadioBasic)
{
    expect_round_trips<RadioBasicRec>({
        {MSG_RADIO_BASIC,
         R"({"radio": "5G", "status": "enable", "txpower": "50%", "channel": 36, "bandwidth": "80M",
             "standard": "11a/11n/11ac", "realbandwidth": "40M", "realchannel": 40, "apcount": 2, "load": 30,
             "noiselevel": -90, "capaflag": 0})",
         0,
         R"(radio=s"5G" status=s"enable" txpower=s"50%" channel=i32:36 bandwidth=s"80M" standard=s"11a/11n/11ac" )"
         R"(realbandwidth=s"40M" realchannel=i32:40 apcount=i32:2 load=i32:30 noiselevel=i32:-90 capaflag=i32:12481)"},
        // State alone sets no bit, so it is not sent back; a received mask is ignored.
        {MSG_RADIO_BASIC, R"({"radio": "2.4G", "realchannel": 6, "apcount": 1, "load": 5, "capaflag": 65535})", 0,
         R"(radio=s"2.4G" load=i32:5 noiselevel=i32:0 capaflag=i32:0)"},
        {MSG_RADIO_BASIC, R"({"radio": "2.4G", "channel": 6})", 0,
         R"(radio=s"2.4G" channel=i32:6 realbandwidth=s"auto" realchannel=i32:0 apcount=i32:0 load=i32:0 )"
         R"(noiselevel=i32:0 capaflag=i32:8192)"},
        // Unknown words are stored as the kinds' fallbacks, with their bits.
        {MSG_RADIO_BASIC, R"({"radio": "2.4G", "txpower": "10%", "bandwidth": "80M/80M", "standard": "11b/11x"})", 0,
         R"(radio=s"2.4G" txpower=s"" bandwidth=s"" standard=s"" realbandwidth=s"auto" realchannel=i32:0 )"
         R"(apcount=i32:0 load=i32:0 noiselevel=i32:0 capaflag=i32:4288)"},
        // The radio is checked first: nothing after it is stored.
        {MSG_RADIO_BASIC, R"({"status": "enable", "channel": 6})", -1,
         R"(radio=s"2.4G" load=i32:0 noiselevel=i32:0 capaflag=i32:0)"},
    });
}

TEST(RadioApFromTree, ApSettings)
{
    expect_round_trips<ApBasicRec>({
        {MSG_AP_BASIC,
         R"({"radio": "5G", "apindex": 1, "status": "enable", "ssid": "home", "initalssid": "factory",
             "bssid": "aa:bb", "auth": "wpa2psk", "encrypt": "aes", "key": "secret", "hide": "disable",
             "ValidTime": 5, "RestTime": 6, "capaflag": 0})",
         0,
         R"(radio=s"5G" apindex=i32:1 status=s"enable" ssid=s"home" auth=s"wpa2psk" encrypt=s"aes" hide=s"disable" )"
         R"(key=s"secret" bssid=s"aa:bb" initalssid=s"factory")"},
        {MSG_AP_BASIC, R"({"radio": "5G", "apindex": 1, "auth": "psk", "encrypt": "des"})", 0,
         R"(radio=s"5G" apindex=i32:1 auth=s"" encrypt=s"" bssid=s"" initalssid=s"")"},
        // Without a setting the state does not go back either.
        {MSG_AP_BASIC, R"({"radio": "5G", "apindex": 1, "bssid": "aa:bb"})", 0, R"(radio=s"5G" apindex=i32:1)"},
        {MSG_AP_BASIC, R"({"apindex": 1, "ssid": "home"})", -1, R"(radio=s"2.4G" apindex=i32:0)"},
        {MSG_AP_BASIC, R"({"radio": "5G", "ssid": "home"})", -1, R"(radio=s"5G" apindex=i32:0)"},
    });
    expect_round_trips<ApAdvancedRec>({
        {MSG_AP_ADVANCED, R"({"radio": "5G", "apindex": 0, "accessmax": 32, "wmmenable": "enable",
                             "regulatorydomain": "US", "capaflag": 0})",
         0, R"(radio=s"5G" apindex=i32:0 accessmax=i32:32 wmmenable=s"enable" regulatorydomain=s"US")"},
        {MSG_AP_ADVANCED, R"({"radio": "5G", "apindex": 0, "regulatorydomain": "US"})", 0,
         R"(radio=s"5G" apindex=i32:0 regulatorydomain=s"US")"},
        {MSG_AP_ADVANCED, R"({"radio": "5G", "accessmax": 32})", -1, R"(radio=s"5G" apindex=i32:0 regulatorydomain=s"")"},
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
}

TEST(RadioApFromTree, RateLimitTestsTheUpstreamLimitForBoth)
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

TEST(RadioApFromTree, AccessRule)
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
        {MSG_AP_ACCESS_RULE, R"({"accessrule": "disable"})", 0,
         R"(radio=s"2.4G" apindex=i32:0 accessrule=s"disable" count=i32:0 iplist=[])"},
        // Every element takes the next entry, whether it is usable or not.
        {MSG_AP_ACCESS_RULE, R"({"count": 3, "iplist": ["x", {"port": 22}, {"ip": "10.0.0.3", "port": "x"}]})", 0,
         R"(radio=s"2.4G" apindex=i32:0 accessrule=s"" count=i32:3 )"
         R"(iplist=[{ip=s"" port=i32:0} {ip=s"" port=i32:22} {ip=s"10.0.0.3" port=i32:0}])"},
    });

    ApAccessRuleRec r{};
    r.uiAccessRule = 1;
    Msg rule(R"({"accessrule": "design"})");
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_AP_ACCESS_RULE, rule, &r), 0);
    EXPECT_EQ(r.uiAccessRule, 2u);
    Msg none(R"({"count": 1})");
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_AP_ACCESS_RULE, none, &r), 0);
    EXPECT_EQ(r.uiAccessRule, 3u);  // overwritten even without the key
}

TEST(RadioApFromTree, AccessRuleListIsNotHeldToCountButToTheRecord)
{
    int ret = -2;
    ApAccessRuleRec r{};
    std::string out = through_record<ApAccessRuleRec>(
        MSG_AP_ACCESS_RULE,
        R"({"count": 1, "iplist": [{"ip": "a", "port": 1}, {"ip": "b", "port": 2}, {"ip": "c", "port": 3}]})", &ret, &r);
    EXPECT_EQ(ret, 0);
    EXPECT_EQ(r.uiCount, 1u);
    EXPECT_STREQ(r.astIpList[2].szIp, "c");
    EXPECT_EQ(r.astIpList[2].uiPort, 3u);
    EXPECT_THAT(out, testing::EndsWith(R"(iplist=[{ip=s"a" port=i32:1}])"));

    std::string many = R"({"iplist": [)";
    for (int i = 0; i < AP_ACCESS_IP_MAX + 8; ++i)
        many += std::string(i ? "," : "") + R"({"ip": "1.1.1.1", "port": )" + std::to_string(i) + "}";
    many += "]}";
    Guarded<ApAccessRuleRec> g;
    Msg msg(many.c_str());
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_AP_ACCESS_RULE, msg, &g.rec), 0);
    EXPECT_EQ(g.rec.astIpList[AP_ACCESS_IP_MAX - 1].uiPort, static_cast<uint32_t>(AP_ACCESS_IP_MAX - 1));
    EXPECT_TRUE(g.guard_intact());
}

TEST(RadioApFromTree, MaskIsOnlyEverAddedTo)
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
    const std::string long_text(100, 'z');
    Guarded<ApBasicRec> ap;
    std::memset(&ap.rec, 0x11, sizeof ap.rec);
    std::string json = R"({"radio": "5G", "apindex": 0, "ssid": ")" + long_text + R"(", "key": ")" + long_text +
                       R"(", "bssid": ")" + long_text + R"(", "initalssid": ")" + long_text + R"("})";
    Msg msg(json.c_str());
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_AP_BASIC, msg, &ap.rec), 0);
    EXPECT_EQ(std::string(ap.rec.szSsid, 31), long_text.substr(0, 31));
    EXPECT_EQ(ap.rec.szSsid[31], 0x11);  // the caller's last byte
    EXPECT_EQ(std::string(ap.rec.szKey, 63), long_text.substr(0, 63));
    EXPECT_EQ(ap.rec.szKey[63], 0x11);
    EXPECT_EQ(ap.rec.szBssid[31], 0x11);
    EXPECT_EQ(ap.rec.szInitalSsid[31], 0x11);
    EXPECT_TRUE(ap.guard_intact());

    ApAdvancedRec adv{};
    Msg dom(R"({"radio": "5G", "apindex": 0, "regulatorydomain": "ABCDEFGHIJ"})");
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_AP_ADVANCED, dom, &adv), 0);
    EXPECT_STREQ(adv.szRegulatoryDomain, "ABCDEFG");

    ApAccessRuleRec rule{};
    Msg ip(R"({"iplist": [{"ip": "255.255.255.255:65535"}]})");
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_AP_ACCESS_RULE, ip, &rule), 0);
    EXPECT_STREQ(rule.astIpList[0].szIp, "255.255.255.255");
}

// The standard word is translated in the message itself, which loses its
// last token: the receiver must hand over the message's own text.
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

// ---- Traces ------------------------------------------------------------------------------

struct TraceCase {
    int type;
    const char *in;
    int ret;
    std::vector<std::string> lines;
};

TEST(RadioApTrace, ConvertersReportWhatTheyStoreAndRefuse)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const std::vector<TraceCase> cases = {
        {MSG_WIFI_STATUS, R"({})", -1,
         {"JTS_CheckBlobAttr: Illegal parameter: switch\n", "JTS_WifiStatus: [status] is not valid.\n"}},
        {MSG_WIFI5_STATUS, R"({"switch": "enable"})", 0, {"JTS_Wifi5Status: switch:1\n"}},
        {MSG_WIFI_SELECT, R"({"ap": 2})", 0,
         {"JTS_CheckBlobAttr: Illegal parameter: radio\n", "JTS_WifiRadio: ap:2\n"}},
        {MSG_WIFI_OPT, R"({"radio": "6G"})", 0, {"JTS_WifiOpt: radio:2\n"}},
        {MSG_RADIO_BASIC, R"({"channel": 6})", -1,
         {"JTS_CheckBlobAttr: Illegal parameter: radio\n", "JTS_RadioBasic: [radio] is not valid.\n"}},
        {MSG_AP_ADD, R"({"radio": "5G"})", -1,
         {"JTS_ApAdd: radio:1\n", "JTS_CheckBlobAttr: Illegal parameter: apindex\n",
          "JTS_ApAdd: [apindex] is not valid.\n"}},
        {MSG_AP_DELETE, R"({"radio": "2.4G", "apindex": 4})", 0, {"JTS_ApDelete: radio:0\n", "JTS_ApDelete: apindex:4\n"}},
        {MSG_AP_RATE_LIMIT, R"({"radio": "5G", "apindex": 1, "usbandwidth": -2})", -1,
         {"JTS_ApRateLimit: radio:1\n", "JTS_ApRateLimit: apindex:1\n", "JTS_ApRateLimit: [uiUsBandWidth] is not valid.\n"}},
        {MSG_AP_RATE_LIMIT, R"({"radio": "5G", "apindex": 1, "dsbandwidth": 3})", -1,
         {"JTS_ApRateLimit: radio:1\n", "JTS_ApRateLimit: apindex:1\n",
          "JTS_CheckBlobAttr: Illegal parameter: usbandwidth\n", "JTS_ApRateLimit: [uiDsBandWidth] is not valid.\n"}},
        {MSG_AP_ACCESS_RULE, R"({"iplist": [{"ip": "1.2.3.4"}], "accessrule": "x"})", 0,
         {"JTS_ApAccessRule: ip:1.2.3.4\n", "JTS_CheckBlobAttr: Illegal parameter: port\n",
          "JTS_CheckBlobAttr: Illegal parameter: radio\n", "JTS_CheckBlobAttr: Illegal parameter: apindex\n",
          "JTS_ApAccessRule: accessrule:3\n", "JTS_CheckBlobAttr: Illegal parameter: count\n"}},
        {MSG_AP_BASIC, R"({"radio": "5G", "apindex": 0, "key": "pw", "standard": "11n"})", 0,
         {"JTS_ApBasic: radio:1\n", "JTS_ApBasic: apindex:0\n", "JTS_CheckBlobAttr: Illegal parameter: status\n",
          "JTS_CheckBlobAttr: Illegal parameter: ssid\n", "JTS_CheckBlobAttr: Illegal parameter: initalssid\n",
          "JTS_CheckBlobAttr: Illegal parameter: bssid\n", "JTS_CheckBlobAttr: Illegal parameter: auth\n",
          "JTS_CheckBlobAttr: Illegal parameter: encrypt\n", "JTS_ApBasic: key:pw\n",
          "JTS_CheckBlobAttr: Illegal parameter: hide\n"}},
    };
    for (const TraceCase &c : cases) {
        SCOPED_TRACE(c.in);
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

TEST(RadioApTrace, BadStandardIsReportedAndStoredAsNone)
{
    BX_REQUIRE_TRACE_CAPTURE();
    RadioBasicRec rb{};
    rb.uiStandard = 63;
    Msg msg(R"({"radio": "5G", "standard": "11b/11x", "load": 1, "noiselevel": 2, "realbandwidth": "20M",
                "realchannel": 3, "apcount": 4, "bandwidth": "auto", "txpower": "100%", "status": "disable",
                "channel": 1})");
    TraceCapture cap;
    EXPECT_EQ(JTS_RadioBasic(msg, &rb), 0);
    EXPECT_THAT(cap.take(), ElementsAre("JTS_RadioBasic: radio:1\n", "JTS_RadioBasic: status:0\n",
                                        "JTS_RadioBasic: txpower:0\n", "JTS_RadioBasic: channel:1\n",
                                        "JTS_RadioBasic: bandwidth:0\n",
                                        "PARATRANS_String_To_Int: [standard] is not valid.\n",
                                        "JTS_RadioBasic: standard:0\n", "JTS_RadioBasic: realbandwidth:1\n",
                                        "JTS_RadioBasic: realchannel:3\n", "JTS_RadioBasic: apcount:4\n",
                                        "JTS_RadioBasic: load:1\n", "JTS_RadioBasic: noiselevel:2\n"));
    EXPECT_EQ(rb.uiStandard, 0u);
    EXPECT_EQ(rb.capaflag, 0x30C1u);
}

// ---- Null arguments, dispatch rows, the command-line program -------------------------------

TEST(RadioApDispatch, NullArgumentsFail)
{
    const StructToJsonFunc stj[] = {STJ_WifiStatus, STJ_WifiOpt,      STJ_WifiSelect,   STJ_Wifi5Status,
                                    STJ_RadioBasic, STJ_ApBasic,      STJ_ApAdvanced,   STJ_ApRateLimit,
                                    STJ_ApAccessMode, STJ_ApAccessRule, STJ_ApAdd,      STJ_ApDelete};
    const JsonToStructFunc jts[] = {JTS_WifiStatus, JTS_WifiOpt,      JTS_WifiRadio,    JTS_Wifi5Status,
                                    JTS_RadioBasic, JTS_ApBasic,      JTS_ApAdvanced,   JTS_ApRateLimit,
                                    JTS_ApAccessMode, JTS_ApAccessRule, JTS_ApAdd,      JTS_ApDelete};
    ApAccessRuleRec rec{};
    bxtest::Buf buf;
    Msg msg(R"({"radio": "5G", "apindex": 1, "switch": "enable"})");
    for (size_t i = 0; i < std::size(stj); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(stj[i](nullptr, buf.get()), -1);
        EXPECT_EQ(stj[i](&rec, nullptr), -1);
        EXPECT_EQ(jts[i](nullptr, &rec), -1);
        EXPECT_EQ(jts[i](msg, nullptr), -1);
    }
    EXPECT_EQ(buf.typed(), "");
}

TEST(RadioApDispatch, RowsCarryTheirNamesAndPositions)
{
    struct Row {
        int type;
        int stj_pos;
        int jts_pos;
        const char *name;
        StructToJsonFunc stj;
        JsonToStructFunc jts;
    };
    const Row rows[] = {
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
    // Positions can only be checked once every family has its rows.
    const bool complete = g_iStructToJson_FuncNum == 160 && g_iJsonToStruct_FuncNum == 159;
    for (const Row &r : rows) {
        SCOPED_TRACE(r.name);
        int at = -1;
        const MessageTransEntry *s = row_of(g_astStructToJson_Func, g_iStructToJson_FuncNum, r.type, &at);
        ASSERT_NE(s, nullptr);
        EXPECT_STREQ(s->name, r.name);
        EXPECT_EQ(s->converter.toJson, r.stj);
        if (complete) {
            EXPECT_EQ(at, r.stj_pos);
        }
        const MessageTransEntry *j = row_of(g_astJsonToStruct_Func, g_iJsonToStruct_FuncNum, r.type, &at);
        ASSERT_NE(j, nullptr);
        EXPECT_STREQ(j->name, r.name);
        EXPECT_EQ(j->converter.toStruct, r.jts);
        if (complete) {
            EXPECT_EQ(at, r.jts_pos);
        }
    }
}

TEST(RadioApTool, RoundTrips)
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
