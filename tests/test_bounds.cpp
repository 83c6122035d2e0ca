// List walks: a received list longer than its array fills the array and
// stops there, whatever count the message claims, and nothing is written
// past the record; sending gives back what the record holds.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "records.h"
#include "support.h"

namespace {

struct Bound {
    int type;
    const char *head;  // members before the list
    const char *key;
    const char *elem;  // one element, repeated
    unsigned sent;     // elements the record gives back
};

// The items of the list under `key` in a typed() text.
unsigned items(const std::string &typed, const std::string &key)
{
    size_t at = typed.find(key + "=[");
    if (at == std::string::npos)
        return 0;
    unsigned n = 0, depth = 0;
    bool in_text = false, fresh = true;
    for (size_t i = at + key.size() + 2; i < typed.size(); ++i) {
        char c = typed[i];
        if (c == '"')
            in_text = !in_text;
        if (in_text)
            continue;
        if (depth == 0 && c == ']')
            break;
        if (depth == 0 && fresh && c != ' ') {
            ++n;
            fresh = false;
        }
        if (c == '[' || c == '{')
            ++depth;
        else if (c == ']' || c == '}')
            --depth;
        else if (depth == 0 && c == ' ')
            fresh = true;
    }
    return n;
}

constexpr const char *kUrlRule = R"(idx=i32:3 enable=s"enable" name=s"kids" macs=[s"aa:bb"] mode=s"White" weekday=i32:31)";

const Bound kBounds[] = {
    {MSG_TCP_OPEN_PORT, "", "ports", "i32:7", OPEN_PORT_MAX},
    {MSG_CTCC_SERVER_INFO, "", "backup", R"(s"b")", CTCC_SERVER_BACKUP_MAX},
    {MSG_REPEATER_LIST, "count=i32:99", "list", R"({ssid=s"a"})", REPEATER_LIST_MAX},
    {MSG_LAN_STATIC_LIST, "", "list", R"({mac=s"m"})", LAN_STATIC_LIST_MAX},
    {MSG_PORT_NUM, "lan=i32:99 wan=i32:99", "lanindex", "i32:1", PORT_WAN_INDEX_MAX},
    {MSG_PORT_NUM, "lan=i32:99 wan=i32:99", "wanindex", "i32:1", PORT_WAN_INDEX_MAX},
    {MSG_STA_CTRL_LIST, "", "list", R"({mac=s"m"})", STA_CTRL_LIST_MAX},
    {MSG_STA_CTRL_WIFI_LIST, "", "list", R"({mac=s"m"})", STA_CTRL_LIST_MAX},
    {MSG_AP_ACCESS_RULE, R"(radio=s"5G" apindex=i32:1 count=i32:99)", "iplist", R"(s"1.1.1.1")", AP_ACCESS_IP_MAX},
    {MSG_WIFI_TOPO, "", "topo", R"({mac=s"m"})", WIFI_TOPO_MAX},
    {MSG_WIFI_TOPO_MAC, "", "maclist", R"(s"m")", WIFI_TOPO_MAX},
    {MSG_ROAMING_AP_RSSI_QUERY, "count=i32:99", "apinfo", R"({bssid=s"b"})", BX_ROAMING_AP_MAX},
    {MSG_ROAMING_AP_RSSI_RSP, "count=i32:99", "aprssi", R"({bssid=s"b"})", BX_ROAMING_AP_MAX},
    {MSG_WLAN_NEIGHBOUR, R"(radio=s"5G" count=i32:99)", "neighbourlist", R"({ssid=s"s"})", BX_WLAN_NEIGHBOUR_MAX},
    {MSG_CHANNEL_SCORE, R"(radio=s"5G" count=i32:99)", "scorelist", "{channel=i32:1}", BX_CHANNEL_SCORE_MAX},
    {MSG_WIFI_DEASSOCIATION, "count=i32:99", "macs", R"(s"m")", BX_WIFI_DEASSOC_MAC_MAX},
    {MSG_WIFI_BLACK_WHITE_LIST, "count=i32:99", "list", R"({mac=s"m"})", BX_WIFI_ACCESS_LIST_MAX},
    {MSG_QOS_CLASSIFICATION_LIST, "index=i32:99", "list", "{index=i32:1}", QOS_CLASS_RULE_MAX},
    {MSG_QOS_CLASSIFICATION_ADD, "", "protocol", "i32:1", QOS_CLASS_PROTOCOL_NUM},
    {MSG_WIFI_TIMER, "count=i32:99", "timerlist", "{taskid=i32:1}", WIFI_TIMER_TASK_MAX},
    {MSG_RATELIMIT_LIST, "count=i32:99", "ratelimitlist", R"({ip=s"i"})", RATE_LIMIT_LIST_MAX},
    {MSG_IPTV, "", "vlanlist", "{vlanid=i32:1}", IPTV_VLAN_NUM},
    {MSG_FILTER_URL_LIST, "count=i32:99", "list", "{idx=i32:1}", FILTER_RULE_NUM},
    {MSG_FILTER_DNS_LIST, "count=i32:99", "list", "{idx=i32:1}", FILTER_RULE_NUM},
    {MSG_FILTER_URL, kUrlRule, "urls", R"(s"u")", FILTER_TEXT_NUM},
    {MSG_FILTER_URL, kUrlRule, "timerange", "{starttime=i32:1 endtime=i32:2}", FILTER_TIME_RANGE_NUM},
    {MSG_VSIE_BEACONTX_LIST, "count=i32:99 iedata=[]", "list", "{idx=i32:1}", VSIE_BEACONTX_LIST_MAX},
    {MSG_VSIE_BEACONTX_ADD, "len=i32:999", "iedata", "i32:1", VSIE_IEDATA_MAX},
};

TEST(Bounds, ListsStopAtTheirArrays)
{
    for (const Bound &b : kBounds) {
        std::string msg = std::string(b.head) + " " + b.key + "=[";
        for (unsigned i = 0; i < b.sent + 3; ++i)
            msg += std::string(b.elem) + " ";
        msg += "]";
        SCOPED_TRACE(std::to_string(b.type) + " " + b.key);
        size_t size = bxtest::record_size(b.type);
        std::vector<unsigned char> rec(size + 64, 0xE7);
        std::memset(rec.data(), 0, size);
        bxtest::Record station_list(b.type);
        void *target = b.type == MSG_STA_LIST ? station_list.get() : rec.data();
        bxtest::Msg m(msg.c_str() + (b.head[0] == '\0' ? 1 : 0));
        JSON_TRANS_STRUCT(b.type, m, target);
        for (size_t i = size; i < rec.size(); ++i)
            ASSERT_EQ(rec[i], 0xE7) << "written past the record at +" << (i - size);
        std::string out = bxtest::stj_typed(b.type, target);
        EXPECT_EQ(items(out, b.key), b.sent) << out.substr(0, 300);
    }
}

// A walk that meets an element past its array says so: the URL rule list
// with the number of rules it kept, the probe list once, and then stops.
TEST(Bounds, AnElementPastTheArrayIsTraced)
{
    BX_REQUIRE_TRACE_CAPTURE();
    std::string rules = "list=[";
    for (unsigned i = 0; i < FILTER_RULE_NUM + 2; ++i)
        rules += "{idx=i32:1} ";
    rules += "]";
    std::vector<unsigned char> rec(bxtest::record_size(MSG_FILTER_URL_LIST));
    bxtest::Received r = bxtest::receive(MSG_FILTER_URL_LIST, rules.c_str(), rec.data());
    EXPECT_EQ(r.ret, 0);
    EXPECT_TRUE(r.trace.ends_with("NULL == cur idx = 32\n")) << r.trace;

    rec.assign(bxtest::record_size(MSG_VSIE_PROBERX_LIST), 0);
    r = bxtest::receive(MSG_VSIE_PROBERX_LIST, "list=[{idx=i32:1} {idx=i32:2} {idx=i32:3} {idx=i32:4} {idx=i32:5}]",
                        rec.data());
    EXPECT_EQ(r.ret, 0);
    EXPECT_TRUE(r.trace.ends_with("NULL == cur\n\n")) << r.trace;
}

} // namespace
