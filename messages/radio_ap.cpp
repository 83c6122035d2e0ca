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

#include "blobxlate.h"
#include "core/codec.h"

namespace {

using bx::Field;

/* One member of a message.
 *  - bit: on the way out the member is emitted only when the record's
 *    capaflag shares a bit with it (0: always emitted); on the way in, storing
 *    the member sets it in capaflag.
 *  - required: when not null, a message without the member is refused with
 *    the trace "[required] is not valid." and -1. */
struct Member {
    Field field;
    uint32_t bit;
    const char *required;
};

constexpr Member opt(Field f) { return {f, 0, nullptr}; }
constexpr Member req(Field f, const char *name) { return {f, 0, name}; }
constexpr Member capa(Field f, uint32_t bit) { return {f, bit, nullptr}; }

/* The state a radio or access point reports (real channel and bandwidth,
 * access-point count, bssid, factory name) goes out whenever any setting of
 * the low 16 mask bits was asked about, and never sets a bit coming in. */
constexpr uint32_t kAnySetting = 0xFFFFu;
constexpr Member state(Field f) { return {f, kAnySetting, nullptr}; }

/* Every record begins with the radio; access-point records go on with the
 * index of the access point within it. */
#define RADIO(Rec) BX_WORD(Rec, eRadio, EnumBand, "radio", "radio:%d")
#define APINDEX(Rec) BX_U32(Rec, uiApIndex, "apindex", "apindex:%u")

/* The record's presence mask, for the records that have one. */
template <typename Rec>
uint32_t *capaflag_of(Rec *rec)
{
    if constexpr (requires { rec->capaflag; })
        return &rec->capaflag;
    else
        return nullptr;
}

template <typename Rec>
uint32_t capaflag_value(const Rec *rec)
{
    if constexpr (requires { rec->capaflag; })
        return rec->capaflag;
    else
        return 0;
}

template <size_t N>
void parse_members(const Member (&members)[N], blob_attr *(&tb)[N], void *data, size_t len)
{
    blobmsg_policy policy[N];
    for (size_t i = 0; i < N; ++i)
        policy[i] = blobmsg_policy{members[i].field.key, bx::wire_type(members[i].field.how)};
    blobmsg_parse(policy, static_cast<int>(N), tb, data, static_cast<unsigned>(len));
}

/* Stores a present member, traces it and sets its bit. */
void store_member(const char *func, const Member &m, blob_attr *attr, void *record, uint32_t *capaflag)
{
    bx::store_field(func, m.field, attr, record);
    if (capaflag != nullptr)
        *capaflag |= m.bit;
}

/* Checks and stores members [first, first + count) in order; see Member. */
int read_members(const char *func, blob_attr *const *tb, void *record, const Member *members, size_t first,
                 size_t count, uint32_t *capaflag)
{
    for (size_t i = first; i < first + count; ++i) {
        const Member &m = members[i];
        if (JTS_CheckBlobAttr(m.field.key, tb[i])) {
            store_member(func, m, tb[i], record, capaflag);
        } else if (m.required != nullptr) {
            BX_TRACE_AS(func, "[%s] is not valid.\n", m.required);
            return -1;
        }
    }
    return 0;
}

template <typename Rec, size_t N>
int receive_members(const char *func, blob_attr *msg, void *record, const Member (&members)[N])
{
    if (msg == nullptr || record == nullptr)
        return -1;
    blob_attr *tb[N];
    parse_members(members, tb, blob_data(msg), blob_len(msg));
    return read_members(func, tb, record, members, 0, N, capaflag_of(static_cast<Rec *>(record)));
}

template <typename Rec, size_t N>
int send_members(const void *record, blob_buf *buf, const Member (&members)[N])
{
    if (record == nullptr || buf == nullptr)
        return -1;
    uint32_t capaflag = capaflag_value(static_cast<const Rec *>(record));
    for (const Member &m : members) {
        if (m.bit == 0 || (capaflag & m.bit) != 0)
            bx::emit_field(m.field, record, buf);
    }
    return 0;
}

/* ---- Wi-Fi on/off (52, 67), radio (53), selection (63) ------------------------ */

constexpr Member kWifiSwitch[] = {
    /* A missing "switch" is reported under the name "status". */
    req(BX_WORD(WifiSwitchRec, uiSwitch, EnumSwitch, "switch", "switch:%d"), "status"),
};

constexpr Member kWifiRadio[] = {
    opt(RADIO(WifiRadioRec)),
};

constexpr Member kWifiSelect[] = {
    opt(RADIO(WifiSelectRec)),
    opt(BX_U32(WifiSelectRec, uiApIndex, "ap", "ap:%u")),
};

/* ---- Radio basic settings (68) -------------------------------------------------- */

constexpr Field kRbRadio = RADIO(RadioBasicRec);
constexpr Field kRbStatus = BX_WORD(RadioBasicRec, uiStatus, EnumSwitch, "status", "status:%d");
constexpr Field kRbTxPower = BX_WORD(RadioBasicRec, uiTxPower, EnumTxPower, "txpower", "txpower:%d");
constexpr Field kRbChannel = BX_U32(RadioBasicRec, uiChannel, "channel", "channel:%u");
constexpr Field kRbBandwidth = BX_WORD(RadioBasicRec, uiBandwidth, EnumBandwidth, "bandwidth", "bandwidth:%d");
/* The received "standard" is translated in the message's own text, which
 * loses its last token: the translation cuts it off in place. */
constexpr Field kRbStandard = BX_WORD(RadioBasicRec, uiStandard, EnumStandard, "standard", "standard:%d");
constexpr Field kRbRealBandwidth =
    BX_WORD(RadioBasicRec, uiRealBandwidth, EnumBandwidth, "realbandwidth", "realbandwidth:%d");
constexpr Field kRbRealChannel = BX_U32(RadioBasicRec, uiRealChannel, "realchannel", "realchannel:%u");
constexpr Field kRbApCount = BX_U32(RadioBasicRec, uiApCount, "apcount", "apcount:%u");
constexpr Field kRbLoad = BX_U32(RadioBasicRec, uiLoad, "load", "load:%u");
constexpr Field kRbNoiseLevel = BX_U32(RadioBasicRec, uiNoiseLevel, "noiselevel", "noiselevel:%u");

/* A received capaflag is never read: the mask tells what this message set. */
constexpr Member kRadioBasicIn[] = {
    req(kRbRadio, "radio"),
    capa(kRbStatus, WIFI_CAPA_STATUS),
    capa(kRbTxPower, WIFI_CAPA_TXPOWER),
    capa(kRbChannel, WIFI_CAPA_CHANNEL),
    capa(kRbBandwidth, WIFI_CAPA_BANDWIDTH),
    capa(kRbStandard, WIFI_CAPA_STANDARD),
    opt(kRbRealBandwidth),
    opt(kRbRealChannel),
    opt(kRbApCount),
    opt(kRbLoad),
    opt(kRbNoiseLevel),
};

constexpr Member kRadioBasicOut[] = {
    opt(kRbRadio),
    capa(kRbStatus, WIFI_CAPA_STATUS),
    capa(kRbTxPower, WIFI_CAPA_TXPOWER),
    capa(kRbChannel, WIFI_CAPA_CHANNEL),
    capa(kRbBandwidth, WIFI_CAPA_BANDWIDTH),
    capa(kRbStandard, WIFI_CAPA_STANDARD),
    state(kRbRealBandwidth),
    state(kRbRealChannel),
    state(kRbApCount),
    opt(kRbLoad),
    opt(kRbNoiseLevel),
    opt(BX_U32(RadioBasicRec, capaflag, "capaflag", nullptr)),
};

/* ---- Access point basic settings (70) ---------------------------------------------- */

constexpr Field kAbStatus = BX_WORD(ApBasicRec, uiStatus, EnumSwitch, "status", "status:%d");
constexpr Field kAbSsid = BX_TEXT(ApBasicRec, szSsid, "ssid", "ssid:%s");
constexpr Field kAbInitalSsid = BX_TEXT(ApBasicRec, szInitalSsid, "initalssid", "initalssid:%s");
constexpr Field kAbBssid = BX_TEXT(ApBasicRec, szBssid, "bssid", "bssid:%s");
constexpr Field kAbAuth = BX_WORD(ApBasicRec, uiAuth, EnumAuthMode, "auth", "auth:%d");
constexpr Field kAbEncrypt = BX_WORD(ApBasicRec, uiEncrypt, EnumCipher, "encrypt", "encrypt:%d");
constexpr Field kAbKey = BX_TEXT(ApBasicRec, szKey, "key", "key:%s");
constexpr Field kAbHide = BX_WORD(ApBasicRec, uiHide, EnumSwitch, "hide", "hide:%d");

/* "ValidTime", "RestTime" and "capaflag" may come along; none is read. */
constexpr Member kApBasicIn[] = {
    req(RADIO(ApBasicRec), "radio"),
    req(APINDEX(ApBasicRec), "apindex"),
    capa(kAbStatus, WIFI_CAPA_STATUS),
    capa(kAbSsid, WIFI_CAPA_SSID),
    opt(kAbInitalSsid),
    opt(kAbBssid),
    capa(kAbAuth, WIFI_CAPA_AUTH),
    capa(kAbEncrypt, WIFI_CAPA_ENCRYPT),
    capa(kAbKey, WIFI_CAPA_KEY),
    capa(kAbHide, WIFI_CAPA_HIDE),
};

constexpr Member kApBasicOut[] = {
    opt(RADIO(ApBasicRec)),
    opt(APINDEX(ApBasicRec)),
    capa(kAbStatus, WIFI_CAPA_STATUS),
    capa(kAbSsid, WIFI_CAPA_SSID),
    capa(kAbAuth, WIFI_CAPA_AUTH),
    capa(kAbEncrypt, WIFI_CAPA_ENCRYPT),
    capa(kAbHide, WIFI_CAPA_HIDE),
    /* The key goes out after "hide": receivers read the members in this order. */
    capa(kAbKey, WIFI_CAPA_KEY),
    state(kAbBssid),
    state(kAbInitalSsid),
};

/* ---- Access point advanced settings, rate limit, access mode (71 to 73) --------------- */

constexpr Member kApAdvanced[] = {
    req(RADIO(ApAdvancedRec), "radio"),
    req(APINDEX(ApAdvancedRec), "apindex"),
    capa(BX_U32(ApAdvancedRec, uiAccessMax, "accessmax", "accessmax:%u"), WIFI_CAPA_ACCESSMAX),
    capa(BX_WORD(ApAdvancedRec, uiWmmEnable, EnumSwitch, "wmmenable", "wmmenable:%d"), WIFI_CAPA_WMMENABLE),
    opt(BX_TEXT(ApAdvancedRec, szRegulatoryDomain, "regulatorydomain", "regulatorydomain:%s")),
};

enum { RL_RADIO, RL_APINDEX, RL_USBANDWIDTH, RL_DSBANDWIDTH, RL_MAX };
constexpr Member kApRateLimit[RL_MAX] = {
    /* RL_RADIO */ req(RADIO(ApRateLimitRec), "radio"),
    /* RL_APINDEX */ req(APINDEX(ApRateLimitRec), "apindex"),
    /* RL_USBANDWIDTH */
    capa(BX_U32(ApRateLimitRec, uiUsBandWidth, "usbandwidth", "usbandwidth:%u"), WIFI_CAPA_USBANDWIDTH),
    /* RL_DSBANDWIDTH */
    capa(BX_U32(ApRateLimitRec, uiDsBandWidth, "dsbandwidth", "dsbandwidth:%u"), WIFI_CAPA_DSBANDWIDTH),
};

constexpr Member kApAccessMode[] = {
    opt(RADIO(ApAccessModeRec)),
    opt(APINDEX(ApAccessModeRec)),
    opt(BX_U32(ApAccessModeRec, uiAccessMode, "accessmode", "accessmode:%u")),
};

/* ---- Access point access rule (74) ------------------------------------------------------- */

/* No rule, or a rule word this side does not know, is stored as 3: a value
 * outside the rule words, so that the daemon can tell it from a real rule. */
constexpr uint32_t kNoAccessRule = 3;

enum { AR_RADIO, AR_APINDEX, AR_ACCESSRULE, AR_COUNT, AR_IPLIST, AR_MAX };
constexpr Member kApAccessRule[AR_IPLIST] = {
    /* AR_RADIO */ opt(RADIO(ApAccessRuleRec)),
    /* AR_APINDEX */ opt(APINDEX(ApAccessRuleRec)),
    /* AR_ACCESSRULE */ opt(BX_WORD(ApAccessRuleRec, uiAccessRule, EnumIsolation, "accessrule", "accessrule:%d")),
    /* AR_COUNT */ opt(BX_U32(ApAccessRuleRec, uiCount, "count", "count:%u")),
};

const blobmsg_policy g_stApAccessRule_policy[AR_MAX] = {
    /* AR_RADIO */ {"radio", BLOBMSG_TYPE_STRING},
    /* AR_APINDEX */ {"apindex", BLOBMSG_TYPE_INT32},
    /* AR_ACCESSRULE */ {"accessrule", BLOBMSG_TYPE_STRING},
    /* AR_COUNT */ {"count", BLOBMSG_TYPE_INT32},
    /* AR_IPLIST */ {"iplist", BLOBMSG_TYPE_ARRAY},
};

constexpr Member kApAccessIp[] = {
    opt(BX_TEXT(ApAccessIpRec, szIp, "ip", "ip:%s")),
    opt(BX_U32(ApAccessIpRec, uiPort, "port", "port:%u")),
};

/* ---- Access point creation and deletion (75, 76) ---------------------------------------- */

constexpr Member kApIndex[] = {
    req(RADIO(ApIndexRec), "radio"),
    req(APINDEX(ApIndexRec), "apindex"),
};

#undef RADIO
#undef APINDEX

} // namespace

extern "C" {

BX_API int STJ_WifiStatus(const void *pvRecord, struct blob_buf *pstBuf)
{
    return send_members<WifiSwitchRec>(pvRecord, pstBuf, kWifiSwitch);
}

BX_API int JTS_WifiStatus(struct blob_attr *pstMsg, void *pvRecord)
{
    return receive_members<WifiSwitchRec>(__func__, pstMsg, pvRecord, kWifiSwitch);
}

BX_API int STJ_Wifi5Status(const void *pvRecord, struct blob_buf *pstBuf)
{
    return send_members<WifiSwitchRec>(pvRecord, pstBuf, kWifiSwitch);
}

BX_API int JTS_Wifi5Status(struct blob_attr *pstMsg, void *pvRecord)
{
    return receive_members<WifiSwitchRec>(__func__, pstMsg, pvRecord, kWifiSwitch);
}

BX_API int STJ_WifiOpt(const void *pvRecord, struct blob_buf *pstBuf)
{
    return send_members<WifiRadioRec>(pvRecord, pstBuf, kWifiRadio);
}

BX_API int JTS_WifiOpt(struct blob_attr *pstMsg, void *pvRecord)
{
    return receive_members<WifiRadioRec>(__func__, pstMsg, pvRecord, kWifiRadio);
}

BX_API int STJ_WifiSelect(const void *pvRecord, struct blob_buf *pstBuf)
{
    return send_members<WifiSelectRec>(pvRecord, pstBuf, kWifiSelect);
}

/* The selection message's receiver traces under the name JTS_WifiRadio. */
BX_API int JTS_WifiRadio(struct blob_attr *pstMsg, void *pvRecord)
{
    return receive_members<WifiSelectRec>(__func__, pstMsg, pvRecord, kWifiSelect);
}

BX_API int STJ_RadioBasic(const void *pvRecord, struct blob_buf *pstBuf)
{
    return send_members<RadioBasicRec>(pvRecord, pstBuf, kRadioBasicOut);
}

BX_API int JTS_RadioBasic(struct blob_attr *pstMsg, void *pvRecord)
{
    return receive_members<RadioBasicRec>(__func__, pstMsg, pvRecord, kRadioBasicIn);
}

BX_API int STJ_ApBasic(const void *pvRecord, struct blob_buf *pstBuf)
{
    return send_members<ApBasicRec>(pvRecord, pstBuf, kApBasicOut);
}

BX_API int JTS_ApBasic(struct blob_attr *pstMsg, void *pvRecord)
{
    return receive_members<ApBasicRec>(__func__, pstMsg, pvRecord, kApBasicIn);
}

BX_API int STJ_ApAdvanced(const void *pvRecord, struct blob_buf *pstBuf)
{
    return send_members<ApAdvancedRec>(pvRecord, pstBuf, kApAdvanced);
}

BX_API int JTS_ApAdvanced(struct blob_attr *pstMsg, void *pvRecord)
{
    return receive_members<ApAdvancedRec>(__func__, pstMsg, pvRecord, kApAdvanced);
}

BX_API int STJ_ApRateLimit(const void *pvRecord, struct blob_buf *pstBuf)
{
    return send_members<ApRateLimitRec>(pvRecord, pstBuf, kApRateLimit);
}

BX_API int JTS_ApRateLimit(struct blob_attr *pstMsg, void *pvRecord)
{
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<ApRateLimitRec *>(pvRecord);
    blob_attr *tb[RL_MAX];
    parse_members(kApRateLimit, tb, blob_data(pstMsg), blob_len(pstMsg));
    if (read_members(__func__, tb, rec, kApRateLimit, RL_RADIO, 2, &rec->capaflag) != 0)
        return -1;

    blob_attr *us = tb[RL_USBANDWIDTH];
    if (JTS_CheckBlobAttr(kApRateLimit[RL_USBANDWIDTH].field.key, us)) {
        if (bx::get_s32(us) < 0) {
            BX_TRACE("[uiUsBandWidth] is not valid.\n");
            return -1;
        }
        store_member(__func__, kApRateLimit[RL_USBANDWIDTH], us, rec, &rec->capaflag);
    }
    if (JTS_CheckBlobAttr(kApRateLimit[RL_DSBANDWIDTH].field.key, tb[RL_DSBANDWIDTH])) {
        /* The downstream limit is let through on the upstream limit's test: a
         * negative "dsbandwidth" is stored. Without an upstream limit there
         * is nothing to test, and the message is refused. */
        if (us == nullptr || bx::get_s32(us) < 0) {
            BX_TRACE("[uiDsBandWidth] is not valid.\n");
            return -1;
        }
        store_member(__func__, kApRateLimit[RL_DSBANDWIDTH], tb[RL_DSBANDWIDTH], rec, &rec->capaflag);
    }
    return 0;
}

BX_API int STJ_ApAccessMode(const void *pvRecord, struct blob_buf *pstBuf)
{
    return send_members<ApAccessModeRec>(pvRecord, pstBuf, kApAccessMode);
}

BX_API int JTS_ApAccessMode(struct blob_attr *pstMsg, void *pvRecord)
{
    return receive_members<ApAccessModeRec>(__func__, pstMsg, pvRecord, kApAccessMode);
}

BX_API int STJ_ApAccessRule(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (send_members<ApAccessRuleRec>(pvRecord, pstBuf, kApAccessRule) != 0)
        return -1;
    const auto *rec = static_cast<const ApAccessRuleRec *>(pvRecord);
    void *list = blobmsg_open_array(pstBuf, "iplist");
    /* A count beyond the array would send memory from outside the record. */
    uint32_t count = rec->uiCount < AP_ACCESS_IP_MAX ? rec->uiCount : AP_ACCESS_IP_MAX;
    for (uint32_t i = 0; i < count; ++i) {
        void *entry = blobmsg_open_table(pstBuf, nullptr);
        send_members<ApAccessIpRec>(&rec->astIpList[i], pstBuf, kApAccessIp);
        blob_nest_end(pstBuf, entry);
    }
    blob_nest_end(pstBuf, list);
    return 0;
}

BX_API int JTS_ApAccessRule(struct blob_attr *pstMsg, void *pvRecord)
{
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<ApAccessRuleRec *>(pvRecord);
    blob_attr *tb[AR_MAX];
    bx::parse(g_stApAccessRule_policy, tb, pstMsg);

    /* The list comes first. It is not held to "count": every element fills
     * the next entry, but never beyond the record's array. */
    if (bx::present(g_stApAccessRule_policy, tb, AR_IPLIST)) {
        const char *func = __func__; /* the walk traces on behalf of this converter */
        uint32_t filled = 0;
        bx::for_each_elem(tb[AR_IPLIST], [&](blob_attr *elem) {
            if (filled == AP_ACCESS_IP_MAX)
                return false;
            blob_attr *entry[2];
            parse_members(kApAccessIp, entry, blobmsg_data(elem), blobmsg_data_len(elem));
            read_members(func, entry, &rec->astIpList[filled++], kApAccessIp, 0, 2, nullptr);
            return true;
        });
    }

    read_members(__func__, tb, rec, kApAccessRule, AR_RADIO, 2, nullptr);
    uint32_t rule = kNoAccessRule;
    if (bx::present(g_stApAccessRule_policy, tb, AR_ACCESSRULE)) {
        int word = bx::get_word(EnumIsolation, tb[AR_ACCESSRULE]);
        if (word >= 0)
            rule = static_cast<uint32_t>(word);
    }
    rec->uiAccessRule = rule;
    BX_TRACE("accessrule:%d\n", static_cast<int>(rule));
    read_members(__func__, tb, rec, kApAccessRule, AR_COUNT, 1, nullptr);
    return 0;
}

BX_API int STJ_ApAdd(const void *pvRecord, struct blob_buf *pstBuf)
{
    return send_members<ApIndexRec>(pvRecord, pstBuf, kApIndex);
}

BX_API int JTS_ApAdd(struct blob_attr *pstMsg, void *pvRecord)
{
    return receive_members<ApIndexRec>(__func__, pstMsg, pvRecord, kApIndex);
}

BX_API int STJ_ApDelete(const void *pvRecord, struct blob_buf *pstBuf)
{
    return send_members<ApIndexRec>(pvRecord, pstBuf, kApIndex);
}

BX_API int JTS_ApDelete(struct blob_attr *pstMsg, void *pvRecord)
{
    return receive_members<ApIndexRec>(__func__, pstMsg, pvRecord, kApIndex);
}

} // extern "C"
