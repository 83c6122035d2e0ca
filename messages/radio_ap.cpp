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

using bx::flagged;
using bx::required;

/* A missing radio or access point index refuses the message with -1. */
constexpr const char *kNoRadio = "[radio] is not valid.";
constexpr const char *kNoApIndex = "[apindex] is not valid.";

/* Every record begins with the radio; access-point records go on with the
 * index of the access point within it. */
#define RADIO(Rec) BX_WORD(Rec, eRadio, EnumBand, "radio", "radio:%d")
#define APINDEX(Rec) BX_U32(Rec, uiApIndex, "apindex", "apindex:%u")

/* The state a radio or access point reports (real channel and bandwidth,
 * access-point count, bssid, factory name) goes out whenever any setting was
 * asked about, and never sets a bit coming in. */
constexpr bx::FieldDef state(bx::FieldDef f) { return flagged(f, 0, bx::kAnyLowBit); }

/* "capaflag" comes along in every configuration message; no receiver reads
 * it: the mask tells what this message set. */
#define CAPAFLAG(Rec) BX_U32(Rec, capaflag, "capaflag", nullptr)

/* ---- Wi-Fi on/off (52, 67), radio (53), selection (63) ------------------------ */

constexpr bx::FieldDef kWifiSwitchSource[] = {
    /* A missing "switch" is reported under the name "status". */
    required(BX_WORD(WifiSwitchRec, uiSwitch, EnumSwitch, "switch", "switch:%d"), "[status] is not valid."),
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
    required(RADIO(RadioBasicRec), kNoRadio),
    flagged(BX_WORD(RadioBasicRec, uiStatus, EnumSwitch, "status", "status:%d"), WIFI_CAPA_STATUS),
    flagged(BX_WORD(RadioBasicRec, uiTxPower, EnumTxPower, "txpower", "txpower:%d"), WIFI_CAPA_TXPOWER),
    flagged(BX_U32(RadioBasicRec, uiChannel, "channel", "channel:%u"), WIFI_CAPA_CHANNEL),
    flagged(BX_WORD(RadioBasicRec, uiBandwidth, EnumBandwidth, "bandwidth", "bandwidth:%d"), WIFI_CAPA_BANDWIDTH),
    flagged(BX_WORD(RadioBasicRec, uiStandard, EnumStandard, "standard", "standard:%d"), WIFI_CAPA_STANDARD),
    state(BX_WORD(RadioBasicRec, uiRealBandwidth, EnumBandwidth, "realbandwidth", "realbandwidth:%d")),
    state(BX_U32(RadioBasicRec, uiRealChannel, "realchannel", "realchannel:%u")),
    state(BX_U32(RadioBasicRec, uiApCount, "apcount", "apcount:%u")),
    BX_U32(RadioBasicRec, uiLoad, "load", "load:%u"),
    BX_U32(RadioBasicRec, uiNoiseLevel, "noiselevel", "noiselevel:%u"),
    bx::tested_only(CAPAFLAG(RadioBasicRec)),
};
BX_PACKED(kRadioBasic);

/* ---- Access point basic settings (70) ---------------------------------------------- */

constexpr bx::FieldDef kAbStatus = flagged(BX_WORD(ApBasicRec, uiStatus, EnumSwitch, "status", "status:%d"), WIFI_CAPA_STATUS);
constexpr bx::FieldDef kAbSsid = flagged(BX_TEXT(ApBasicRec, szSsid, "ssid", "ssid:%s"), WIFI_CAPA_SSID);
constexpr bx::FieldDef kAbInitalSsid = BX_TEXT(ApBasicRec, szInitalSsid, "initalssid", "initalssid:%s");
constexpr bx::FieldDef kAbBssid = BX_TEXT(ApBasicRec, szBssid, "bssid", "bssid:%s");
constexpr bx::FieldDef kAbAuth = flagged(BX_WORD(ApBasicRec, uiAuth, EnumAuthMode, "auth", "auth:%d"), WIFI_CAPA_AUTH);
constexpr bx::FieldDef kAbEncrypt =
    flagged(BX_WORD(ApBasicRec, uiEncrypt, EnumCipher, "encrypt", "encrypt:%d"), WIFI_CAPA_ENCRYPT);
constexpr bx::FieldDef kAbKey = flagged(BX_TEXT(ApBasicRec, szKey, "key", "key:%s"), WIFI_CAPA_KEY);
constexpr bx::FieldDef kAbHide = flagged(BX_WORD(ApBasicRec, uiHide, EnumSwitch, "hide", "hide:%d"), WIFI_CAPA_HIDE);

/* The times and the mask come along; the daemons keep the times, nobody
 * converts them. */
constexpr bx::FieldDef kApBasicInSource[] = {
    required(RADIO(ApBasicRec), kNoRadio),
    required(APINDEX(ApBasicRec), kNoApIndex),
    kAbStatus, kAbSsid, kAbInitalSsid, kAbBssid, kAbAuth, kAbEncrypt, kAbKey, kAbHide,
    bx::listed_only(BX_U32(ApBasicRec, uiValidTime, "ValidTime", nullptr)),
    bx::listed_only(BX_U32(ApBasicRec, uiRestTime, "RestTime", nullptr)),
    bx::listed_only(CAPAFLAG(ApBasicRec)),
};
BX_PACKED(kApBasicIn);

/* The key goes out after "hide": receivers read the members in this order. */
constexpr bx::FieldDef kApBasicOutSource[] = {
    RADIO(ApBasicRec), APINDEX(ApBasicRec), kAbStatus, kAbSsid, kAbAuth, kAbEncrypt, kAbHide, kAbKey,
    state(kAbBssid), state(kAbInitalSsid),
};
BX_PACKED(kApBasicOut);

/* ---- Access point advanced settings, rate limit, access mode (71 to 73) --------------- */

constexpr bx::FieldDef kApAdvancedSource[] = {
    required(RADIO(ApAdvancedRec), kNoRadio),
    required(APINDEX(ApAdvancedRec), kNoApIndex),
    flagged(BX_U32(ApAdvancedRec, uiAccessMax, "accessmax", "accessmax:%u"), WIFI_CAPA_ACCESSMAX),
    flagged(BX_WORD(ApAdvancedRec, uiWmmEnable, EnumSwitch, "wmmenable", "wmmenable:%d"), WIFI_CAPA_WMMENABLE),
    BX_TEXT(ApAdvancedRec, szRegulatoryDomain, "regulatorydomain", "regulatorydomain:%s"),
    bx::listed_only(CAPAFLAG(ApAdvancedRec)),
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
    /* RL_RADIO */ required(RADIO(ApRateLimitRec), kNoRadio),
    /* RL_APINDEX */ required(APINDEX(ApRateLimitRec), kNoApIndex),
    /* RL_USBANDWIDTH */
    bx::ranged(flagged(BX_U32(ApRateLimitRec, uiUsBandWidth, "usbandwidth", "usbandwidth:%u"), WIFI_CAPA_USBANDWIDTH),
               0, 0x7FFFFFFFu, "[uiUsBandWidth] is not valid."),
    /* RL_DSBANDWIDTH */
    bx::with_quirk(flagged(BX_U32(ApRateLimitRec, uiDsBandWidth, "dsbandwidth", "dsbandwidth:%u"), WIFI_CAPA_DSBANDWIDTH),
                   kTestedOnUpstream),
    /* RL_CAPAFLAG */ bx::listed_only(CAPAFLAG(ApRateLimitRec)),
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
    BX_TABLES(ApAccessRuleRec, astIpList, kApAccessIp).counted_at(offsetof(ApAccessRuleRec, uiCount)).of_any_type();

#define ACCESS_RULE(Rec) \
    bx::with_quirk(BX_WORD(Rec, uiAccessRule, EnumIsolation, "accessrule", "accessrule:%d"), kRuleOrNone)
#define IP_LIST(Rec) BX_LIST(Rec, astIpList, "iplist", kApAccessIps, nullptr)

/* Sent: the rule words, then the addresses, as many as "count" says. */
constexpr bx::FieldDef kApAccessRuleSentSource[] = {
    RADIO(ApAccessRuleRec), APINDEX(ApAccessRuleRec), ACCESS_RULE(ApAccessRuleRec),
    BX_U32(ApAccessRuleRec, uiCount, "count", "count:%u"), IP_LIST(ApAccessRuleRec),
};
BX_PACKED(kApAccessRuleSent);

/* Received: the list comes first. */
constexpr bx::FieldDef kApAccessRuleReceivedSource[] = {
    IP_LIST(ApAccessRuleRec),
    RADIO(ApAccessRuleRec), APINDEX(ApAccessRuleRec), ACCESS_RULE(ApAccessRuleRec),
    BX_U32(ApAccessRuleRec, uiCount, "count", "count:%u"),
};
BX_PACKED(kApAccessRuleReceived);
#undef ACCESS_RULE
#undef IP_LIST

/* ---- Access point creation and deletion (75, 76) ---------------------------------------- */

constexpr bx::FieldDef kApIndexSource[] = {
    required(RADIO(ApIndexRec), kNoRadio),
    required(APINDEX(ApIndexRec), kNoApIndex),
};
BX_PACKED(kApIndex);

#undef RADIO
#undef APINDEX
#undef CAPAFLAG

} // namespace

extern "C" {

BX_FIELD_CONVERTERS(STJ_WifiStatus, JTS_WifiStatus, kWifiSwitch)
BX_FIELD_CONVERTERS(STJ_Wifi5Status, JTS_Wifi5Status, kWifiSwitch)
BX_FIELD_CONVERTERS(STJ_WifiOpt, JTS_WifiOpt, kWifiRadio)
/* The selection message's receiver traces under the name JTS_WifiRadio. */
BX_FIELD_CONVERTERS(STJ_WifiSelect, JTS_WifiRadio, kWifiSelect)
BX_MASKED_CONVERTERS(STJ_RadioBasic, JTS_RadioBasic, RadioBasicRec, capaflag, kRadioBasic, kRadioBasic)
BX_MASKED_CONVERTERS(STJ_ApBasic, JTS_ApBasic, ApBasicRec, capaflag, kApBasicOut, kApBasicIn)
BX_MASKED_CONVERTERS(STJ_ApAdvanced, JTS_ApAdvanced, ApAdvancedRec, capaflag, kApAdvanced, kApAdvanced)
BX_FIELD_CONVERTERS(STJ_ApAccessMode, JTS_ApAccessMode, kApAccessMode)
BX_FIELD_CONVERTERS(STJ_ApAdd, JTS_ApAdd, kApIndex)
BX_FIELD_CONVERTERS(STJ_ApDelete, JTS_ApDelete, kApIndex)

BX_MASKED_CONVERTERS(STJ_ApRateLimit, JTS_ApRateLimit, ApRateLimitRec, capaflag, kApRateLimit, kApRateLimit)
BX_CONVERTERS(STJ_ApAccessRule, JTS_ApAccessRule, kApAccessRuleSent, kApAccessRuleReceived)

} // extern "C"
