/* Wi-Fi radios and access points: Wi-Fi on/off, radio and access-point
 * selection, the basic settings of a radio, and the settings of one access
 * point (basic, advanced, rate limit, access mode, access rule) with its
 * creation and deletion.
 *
 * Most of these messages are described by one table of members. The
 * configuration records end with a presence mask, capaflag: receiving sets
 * the bit of every optional setting that the message carried (and never
 * clears one), sending emits a setting only when its bit is set, so a daemon
 * answers with exactly the settings it was asked about. */
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "blobxlate.h"
#include "core/codec.h"

namespace {

/* A missing radio or access point index refuses the message with -1. */
constexpr const char *kNoRadio = "[radio] is not valid.";
constexpr const char *kNoApIndex = "[apindex] is not valid.";

/* Every record begins with the radio; access-point records go on with the
 * index of the access point within it. */
#define RADIO(Rec, ...) BX_WORD(Rec, eRadio, EnumBand, "radio", "radio:%d", __VA_ARGS__)
#define APINDEX(Rec, ...) BX_U32(Rec, uiApIndex, "apindex", "apindex:%u", __VA_ARGS__)

/* The state a radio or access point reports (real channel and bandwidth,
 * access-point count, bssid, factory name) goes out whenever any setting was
 * asked about, and never sets a bit coming in. */
constexpr bx::FieldDef state(bx::FieldDef f)
{
    f.bit = 0;
    f.sent_if = bx::kAnyLowBit;
    return f;
}

/* "capaflag" comes along in every configuration message; no receiver reads
 * it: the mask tells what this message set. */
#define CAPAFLAG(Rec, ...) BX_U32(Rec, capaflag, "capaflag", nullptr, __VA_ARGS__)

/* ---- Wi-Fi on/off (52, 67), radio (53), selection (63) ------------------------ */

constexpr bx::FieldDef kWifiSwitchSource[] = {
    /* A missing "switch" is reported under the name "status". */
    BX_WORD(WifiSwitchRec, uiSwitch, EnumSwitch, "switch", "switch:%d", .required = true,
        .absent = "[status] is not valid."),
};
BX_PACKED(kWifiSwitch);

constexpr bx::FieldDef kWifiRadioSource[] = {
    RADIO(WifiRadioRec),
};
BX_PACKED(kWifiRadio);

constexpr bx::FieldDef kWifiSelectSource[] = {
    RADIO(WifiSelectRec),
    BX_U32(WifiSelectRec, uiApIndex, "ap", "ap:%u"),
};
BX_PACKED(kWifiSelect);

/* ---- Radio basic settings (68) -------------------------------------------------- */

/* The received "standard" is translated in the message's own text, which
 * loses its last token: the translation cuts it off in place. */
constexpr bx::FieldDef kRadioBasicSource[] = {
    RADIO(RadioBasicRec, .required = true, .absent = kNoRadio),
    BX_WORD(RadioBasicRec, uiStatus, EnumSwitch, "status", "status:%d", .bit = WIFI_CAPA_STATUS),
    BX_WORD(RadioBasicRec, uiTxPower, EnumTxPower, "txpower", "txpower:%d", .bit = WIFI_CAPA_TXPOWER),
    BX_U32(RadioBasicRec, uiChannel, "channel", "channel:%u", .bit = WIFI_CAPA_CHANNEL),
    BX_WORD(RadioBasicRec, uiBandwidth, EnumBandwidth, "bandwidth", "bandwidth:%d", .bit = WIFI_CAPA_BANDWIDTH),
    BX_WORD(RadioBasicRec, uiStandard, EnumStandard, "standard", "standard:%d", .bit = WIFI_CAPA_STANDARD),
    state(BX_WORD(RadioBasicRec, uiRealBandwidth, EnumBandwidth, "realbandwidth", "realbandwidth:%d")),
    state(BX_U32(RadioBasicRec, uiRealChannel, "realchannel", "realchannel:%u")),
    state(BX_U32(RadioBasicRec, uiApCount, "apcount", "apcount:%u")),
    BX_U32(RadioBasicRec, uiLoad, "load", "load:%u"),
    BX_U32(RadioBasicRec, uiNoiseLevel, "noiselevel", "noiselevel:%u"),
    CAPAFLAG(RadioBasicRec, .use = bx::Use::Tested),
};
BX_PACKED(kRadioBasic);

/* ---- Access point basic settings (70) ---------------------------------------------- */

/* One table for both directions. Only a received message must name its
 * radio and access point. The times and the mask come along; the daemons
 * keep the times, nobody converts them. The key goes out after "hide"
 * (receivers read the members in that order), and the bssid and factory
 * name go out last, as state. */
constexpr bx::FieldDef kApBasicSource[] = {
    RADIO(ApBasicRec, .required = true, .absent = kNoRadio, .way = bx::Way::Received),
    RADIO(ApBasicRec, .way = bx::Way::Sent),
    APINDEX(ApBasicRec, .required = true, .absent = kNoApIndex, .way = bx::Way::Received),
    APINDEX(ApBasicRec, .way = bx::Way::Sent),
    BX_WORD(ApBasicRec, uiStatus, EnumSwitch, "status", "status:%d", .bit = WIFI_CAPA_STATUS),
    BX_TEXT(ApBasicRec, szSsid, "ssid", "ssid:%s", .bit = WIFI_CAPA_SSID),
    BX_TEXT(ApBasicRec, szInitalSsid, "initalssid", "initalssid:%s", .way = bx::Way::Received),
    BX_TEXT(ApBasicRec, szBssid, "bssid", "bssid:%s", .way = bx::Way::Received),
    BX_WORD(ApBasicRec, uiAuth, EnumAuthMode, "auth", "auth:%d", .bit = WIFI_CAPA_AUTH),
    BX_WORD(ApBasicRec, uiEncrypt, EnumCipher, "encrypt", "encrypt:%d", .bit = WIFI_CAPA_ENCRYPT),
    BX_TEXT(ApBasicRec, szKey, "key", "key:%s", .bit = WIFI_CAPA_KEY, .way = bx::Way::Received),
    BX_WORD(ApBasicRec, uiHide, EnumSwitch, "hide", "hide:%d", .bit = WIFI_CAPA_HIDE),
    BX_TEXT(ApBasicRec, szKey, "key", "key:%s", .bit = WIFI_CAPA_KEY, .way = bx::Way::Sent),
    BX_U32(ApBasicRec, uiValidTime, "ValidTime", nullptr, .way = bx::Way::Received, .use = bx::Use::Listed),
    BX_U32(ApBasicRec, uiRestTime, "RestTime", nullptr, .way = bx::Way::Received, .use = bx::Use::Listed),
    CAPAFLAG(ApBasicRec, .way = bx::Way::Received, .use = bx::Use::Listed),
    state(BX_TEXT(ApBasicRec, szBssid, "bssid", "bssid:%s", .way = bx::Way::Sent)),
    state(BX_TEXT(ApBasicRec, szInitalSsid, "initalssid", "initalssid:%s", .way = bx::Way::Sent)),
};
BX_PACKED(kApBasic);

/* ---- Access point advanced settings, rate limit, access mode (71 to 73) --------------- */

constexpr bx::FieldDef kApAdvancedSource[] = {
    RADIO(ApAdvancedRec, .required = true, .absent = kNoRadio),
    APINDEX(ApAdvancedRec, .required = true, .absent = kNoApIndex),
    BX_U32(ApAdvancedRec, uiAccessMax, "accessmax", "accessmax:%u", .bit = WIFI_CAPA_ACCESSMAX),
    BX_WORD(ApAdvancedRec, uiWmmEnable, EnumSwitch, "wmmenable", "wmmenable:%d", .bit = WIFI_CAPA_WMMENABLE),
    BX_TEXT(ApAdvancedRec, szRegulatoryDomain, "regulatorydomain", "regulatorydomain:%s"),
    CAPAFLAG(ApAdvancedRec, .use = bx::Use::Listed),
};
BX_PACKED(kApAdvanced);

/* The upstream limit decides for both limits: a negative "usbandwidth"
 * refuses the message unstored, and "dsbandwidth" is let through on that
 * same test, so a negative downstream limit is stored. Without an upstream
 * limit there is nothing to test, and a downstream limit refuses the
 * message. */
enum { RL_RADIO, RL_APINDEX, RL_USBANDWIDTH, RL_DSBANDWIDTH, RL_CAPAFLAG, RL_MAX };
bx::Read read_dsbandwidth(const bx::Reading &r, const bx::Field &f, blob_attr *attr)
{
    if (!JTS_CheckBlobAttr(f.key(), attr))
        return bx::kGoOn;
    blob_attr *us = r.tb[RL_USBANDWIDTH];
    if (us == nullptr || bx::get_s32(us) < 0) {
        BX_TRACE_AS(r.func, "[uiDsBandWidth] is not valid.\n");
        return {true, -1};
    }
    return bx::read_slot(r, f, attr);
}
constexpr bx::Quirk kTestedOnUpstream{read_dsbandwidth, nullptr, "refuses the message (-1) when \"usbandwidth\" is absent or negative"};

constexpr bx::FieldDef kApRateLimitSource[RL_MAX] = {
    /* RL_RADIO */ RADIO(ApRateLimitRec, .required = true, .absent = kNoRadio),
    /* RL_APINDEX */ APINDEX(ApRateLimitRec, .required = true, .absent = kNoApIndex),
    /* RL_USBANDWIDTH */
    BX_U32(ApRateLimitRec, uiUsBandWidth, "usbandwidth", "usbandwidth:%u", .bit = WIFI_CAPA_USBANDWIDTH,
        .range = {bx::Check::Before, 0, 0x7FFFFFFFu, "[uiUsBandWidth] is not valid."}),
    /* RL_DSBANDWIDTH */
    BX_U32(ApRateLimitRec, uiDsBandWidth, "dsbandwidth", "dsbandwidth:%u", .bit = WIFI_CAPA_DSBANDWIDTH,
        .quirk = &kTestedOnUpstream),
    /* RL_CAPAFLAG */ CAPAFLAG(ApRateLimitRec, .use = bx::Use::Listed),
};
BX_PACKED(kApRateLimit);

constexpr bx::FieldDef kApAccessModeSource[] = {
    RADIO(ApAccessModeRec),
    APINDEX(ApAccessModeRec),
    BX_U32(ApAccessModeRec, uiAccessMode, "accessmode", "accessmode:%u"),
};
BX_PACKED(kApAccessMode);

/* ---- Access point access rule (74) ------------------------------------------------------- */

/* No rule, or a rule word this side does not know, is stored as 3: a value
 * outside the rule words, so that the daemon can tell it from a real rule. */
constexpr uint32_t kNoAccessRule = 3;
bx::Read read_access_rule(const bx::Reading &r, const bx::Field &f, blob_attr *attr)
{
    uint32_t rule = kNoAccessRule;
    if (JTS_CheckBlobAttr(f.key(), attr)) {
        const int word = bx::get_word(f.word_list, attr);
        if (word >= 0)
            rule = static_cast<uint32_t>(word);
    }
    std::memcpy(static_cast<uint8_t *>(r.record) + f.offset, &rule, sizeof rule);
    bx::trace_field(r.func, f, nullptr, 0, rule);
    return bx::kGoOn;
}
constexpr bx::Quirk kRuleOrNone{read_access_rule, nullptr, "absent or an unknown word stores 3"};

constexpr bx::FieldDef kApAccessIpSource[] = {
    BX_TEXT(ApAccessIpRec, szIp, "ip", "ip:%s"),
    BX_U32(ApAccessIpRec, uiPort, "port", "port:%u"),
};
BX_PACKED(kApAccessIp);
/* Sent as many as "count" says; received, every element is read as a
 * table whatever its blobmsg type and takes the next entry: the list is not
 * held to "count", only to the record's array. */
constexpr bx::ListOf kApAccessIps =
    BX_TABLES(ApAccessRuleRec, astIpList, kApAccessIp, .count_at = offsetof(ApAccessRuleRec, uiCount),
        .any_type = true);

#define ACCESS_RULE(Rec) \
    BX_WORD(Rec, uiAccessRule, EnumIsolation, "accessrule", "accessrule:%d", .quirk = &kRuleOrNone)
#define IP_LIST(Rec, ...) BX_LIST(Rec, astIpList, "iplist", kApAccessIps, nullptr, __VA_ARGS__)

/* Sent: the rule words, then the addresses, as many as "count" says;
 * received, the list comes first. */
constexpr bx::FieldDef kApAccessRuleSource[] = {
    IP_LIST(ApAccessRuleRec, .way = bx::Way::Received),
    RADIO(ApAccessRuleRec), APINDEX(ApAccessRuleRec), ACCESS_RULE(ApAccessRuleRec),
    BX_U32(ApAccessRuleRec, uiCount, "count", "count:%u"),
    IP_LIST(ApAccessRuleRec, .way = bx::Way::Sent),
};
BX_PACKED(kApAccessRule);
#undef ACCESS_RULE
#undef IP_LIST

/* ---- Access point creation and deletion (75, 76) ---------------------------------------- */

constexpr bx::FieldDef kApIndexSource[] = {
    RADIO(ApIndexRec, .required = true, .absent = kNoRadio),
    APINDEX(ApIndexRec, .required = true, .absent = kNoApIndex),
};
BX_PACKED(kApIndex);

#undef RADIO
#undef APINDEX
#undef CAPAFLAG

} // namespace

extern "C" {

BX_CONVERTERS(STJ_WifiStatus, JTS_WifiStatus, kWifiSwitch)
BX_CONVERTERS(STJ_Wifi5Status, JTS_Wifi5Status, kWifiSwitch)
BX_CONVERTERS(STJ_WifiOpt, JTS_WifiOpt, kWifiRadio)
/* The selection message's receiver traces under the name JTS_WifiRadio. */
BX_CONVERTERS(STJ_WifiSelect, JTS_WifiRadio, kWifiSelect)
BX_CONVERTERS(STJ_RadioBasic, JTS_RadioBasic, kRadioBasic, offsetof(RadioBasicRec, capaflag))
BX_CONVERTERS(STJ_ApBasic, JTS_ApBasic, kApBasic, offsetof(ApBasicRec, capaflag))
BX_CONVERTERS(STJ_ApAdvanced, JTS_ApAdvanced, kApAdvanced, offsetof(ApAdvancedRec, capaflag))
BX_CONVERTERS(STJ_ApAccessMode, JTS_ApAccessMode, kApAccessMode)
BX_CONVERTERS(STJ_ApAdd, JTS_ApAdd, kApIndex)
BX_CONVERTERS(STJ_ApDelete, JTS_ApDelete, kApIndex)

BX_CONVERTERS(STJ_ApRateLimit, JTS_ApRateLimit, kApRateLimit, offsetof(ApRateLimitRec, capaflag))
BX_CONVERTERS(STJ_ApAccessRule, JTS_ApAccessRule, kApAccessRule)

} // extern "C"
