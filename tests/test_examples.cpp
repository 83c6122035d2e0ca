// The example messages: every type that can be received has one, each
// converts into its record and back to the same content, and converting the
// answer again changes nothing.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <json-c/json.h>
extern "C" {
#include <libubox/blobmsg_json.h>
}

#include "records.h"
#include "support.h"

namespace {

// Read and sent under other keys or words on purpose ("compiletime_week" in,
// "realversion" out; "reboottype" in, "status" out; a colour word in, its
// number out; "encrypttype" in, "encryttype" out), or with fields that the
// answer does not carry (64-bit counters that JSON text gives as 32-bit
// numbers; a switch stored without its validity bit; a message that is only
// received; a rule sent back for an index; a name stored where the answer
// does not look): only stability is checked.
constexpr int kAsymmetric[] = {MSG_FW_INFO, MSG_REBOOT, MSG_LED_COLOUR, MSG_WLAN_NEIGHBOUR,
                               MSG_STA_LIST, MSG_STA_INFO_BY_MAC, MSG_RATELIMIT, MSG_ROAMING_STOPDETECT,
                               MSG_QOS_CLASSIFICATION_SET, MSG_QOS_CLASSIFICATION_GET, MSG_VSIE_PROBERX_FLUSH};
// Answers that do not read back as the message: the URL filter switch is
// read as "status" and sent as "idx"; the beacon list needs a top-level
// "iedata" the answer lacks; a probe record's length counts its OUI, so
// each round adds three bytes.
constexpr int kOneWay[] = {MSG_FILTER_URL_SWITCH, MSG_VSIE_BEACONTX_LIST, MSG_VSIE_PROBERX_RECORD_ADD};

// The message through a zeroed record and back; a snapshot of the answer is
// taken at once, since converting a message may cut its texts in place.
std::string answer(int type, blob_attr *msg, bxtest::Buf &out, std::string *json = nullptr)
{
    bxtest::Record rec(type);
    auto *stations = static_cast<StaListInfo *>(rec.get());
    if (type == MSG_STA_LIST)  // the caller's array, offered whole
        stations->uiStaNumofEsps = bxtest::kStationCapacity;
    EXPECT_EQ(JSON_TRANS_STRUCT(type, msg, rec.get()), 0);
    if (type == MSG_STA_LIST) {  // then the caller counts the stations that came in
        blobmsg_policy policy{"stalist", BLOBMSG_TYPE_ARRAY};
        blob_attr *list = nullptr;
        blobmsg_parse(&policy, 1, &list, blob_data(msg), blob_len(msg));
        int n = list != nullptr ? blobmsg_check_array(list, BLOBMSG_TYPE_TABLE) : 0;
        stations->uiStaNumofEsps = std::min<uint32_t>(static_cast<uint32_t>(n), bxtest::kStationCapacity);
    }
    EXPECT_EQ(STRUCT_TRANS_JSON(type, rec.get(), out.get()), 0);
    if (json != nullptr) {
        char *text = blobmsg_format_json(out.head(), true);
        *json = text != nullptr ? text : "";
        std::free(text);
    }
    return out.typed();
}

TEST(Examples, EachComesBackAsItWasSentAndStaysSo)
{
    // quirk: STJ_StaList
    for (int i = 0; i < g_iJsonToStruct_FuncNum; ++i) {
        int type = g_astJsonToStruct_Func[i].id;
        char name[32];
        std::snprintf(name, sizeof name, "/type%03d.json", type);
        SCOPED_TRACE(name);
        std::ifstream file(std::string(BLOBXLATE_EXAMPLES) + name);
        std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
        if (text.empty()) {
            ADD_FAILURE() << "no example for type " << type;
            continue;
        }
        bxtest::Buf msg, first, second, third;
        ASSERT_TRUE(blobmsg_add_json_from_string(msg.get(), text.c_str()));
        std::string json;
        const std::string once = answer(type, msg.head(), first, &json);
        if (std::count(std::begin(kOneWay), std::end(kOneWay), type) != 0)
            continue;
        const std::string twice = answer(type, first.head(), second);
        if (std::count(std::begin(kAsymmetric), std::end(kAsymmetric), type) != 0) {
            EXPECT_EQ(answer(type, second.head(), third), twice) << "the answer is not stable";
            continue;
        }
        EXPECT_EQ(twice, once) << "converting the answer again changed it";
        json_object *sent = json_tokener_parse(text.c_str()), *back = json_tokener_parse(json.c_str());
        EXPECT_TRUE(json_object_equal(sent, back)) << "the answer lost content: " << json;
        json_object_put(sent);
        json_object_put(back);
    }
}

} // namespace
