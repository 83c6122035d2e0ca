// Rules shared by every list and every policy: how a list is walked, how far
// an element's parse reaches, and which keys a policy tests.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "support.h"

namespace {

using bxtest::Buf;
using bxtest::Msg;
using bxtest::TraceCapture;

// ---- Walking a list -----------------------------------------------------------

// An unnamed INT32 element whose value has `len` bytes (at most 8).
void add_number(blob_buf *b, uint32_t value, unsigned len)
{
    uint8_t be[8] = {uint8_t(value >> 24), uint8_t(value >> 16), uint8_t(value >> 8), uint8_t(value)};
    blobmsg_add_field(b, BLOBMSG_TYPE_INT32, nullptr, be, len);
}

TEST(ListWalk, MalformedValueReadsAsNothingAndTheWalkGoesOn)
{
    struct Case {
        unsigned middle_len;  // bytes of the middle element's value
        std::vector<uint32_t> stored;
    };
    for (const Case &c : {Case{4, {1, 2, 3}}, Case{2, {1, 3, 0}}, Case{8, {1, 3, 0}}}) {
        SCOPED_TRACE(c.middle_len);
        Buf b;
        blobmsg_add_u32(b.get(), "lan", 3);
        void *list = blobmsg_open_array(b.get(), "lanindex");
        add_number(b.get(), 1, 4);
        add_number(b.get(), 2, c.middle_len);
        add_number(b.get(), 3, 4);
        blob_nest_end(b.get(), list);
        PortNum rec{};
        ASSERT_EQ(JSON_TRANS_STRUCT(MSG_PORT_NUM, b.head(), &rec), 0);
        EXPECT_EQ(std::vector<uint32_t>(rec.auiLanIndex, rec.auiLanIndex + 3), c.stored);
    }
}

TEST(ListWalk, EndsAtAnElementLongerThanWhatRemains)
{
    Buf b;
    blobmsg_add_u32(b.get(), "lan", 3);
    void *list = blobmsg_open_array(b.get(), "lanindex");
    add_number(b.get(), 1, 4);
    add_number(b.get(), 2, 4);
    blob_nest_end(b.get(), list);
    // The array's payload loses the second element's last 4 bytes: its
    // header now claims more than remains.
    auto *arr = static_cast<blob_attr *>(blob_next(static_cast<blob_attr *>(blob_data(b.head()))));
    blob_set_raw_len(arr, static_cast<unsigned>(blob_raw_len(arr) - 4));
    PortNum rec{};
    ASSERT_EQ(JSON_TRANS_STRUCT(MSG_PORT_NUM, b.head(), &rec), 0);
    EXPECT_EQ(rec.auiLanIndex[0], 1u);
    EXPECT_EQ(rec.auiLanIndex[1], 0u);
}

// A list that takes elements of any type as texts reads a value without a
// terminator (here a number's four bytes) as the empty text.
TEST(ListWalk, TextWithoutTerminatorReadsAsEmpty)
{
    CTCCServerInfoParam rec{};
    rec.aszBackup[0][0] = 'x';
    ASSERT_EQ(JSON_TRANS_STRUCT(MSG_CTCC_SERVER_INFO, Msg("backup=[i32:1094861636]"), &rec), 0);  // "ABCD"
    EXPECT_STREQ(rec.aszBackup[0], "");
}

// ---- How far an element's parse reaches ------------------------------------------

// An element's parse spans its whole payload, name header included, cut at
// the end of the message, not of the list: past a named last element it
// reaches the member that follows the list.
TEST(ElementSpan, LastElementSeesTheMemberAfterTheList)
{
    struct Case {
        int type;
        const char *name, *key;  // the last element's name; the member after the list
        size_t at;               // where entry 0 stores that member
        const char *seen;
    };
    const char *kLong = "an-element-name-long-enough-to-reach";
    const size_t kBeaconName = offsetof(VsieBeaconTxList, astEntry) + offsetof(VsieBeaconTxEntry, szServiceName);
    const size_t kRespMac = offsetof(VsieProbeRespList, astEntry) + offsetof(VsieProbeRespEntry, szMac);
    for (const Case &c : {Case{MSG_VSIE_BEACONTX_LIST, kLong, "servicename", kBeaconName, "after"},
                          Case{MSG_VSIE_BEACONTX_LIST, "n", "servicename", kBeaconName, ""},
                          Case{MSG_VSIE_PROBERESP_LIST, kLong, "mac", kRespMac, "after"}}) {
        SCOPED_TRACE(c.type);
        Buf b;
        blobmsg_add_u32(b.get(), "count", 1);
        void *list = blobmsg_open_array(b.get(), "list");
        void *entry = blobmsg_open_table(b.get(), c.name);
        blobmsg_add_u32(b.get(), "idx", 4);
        blob_nest_end(b.get(), entry);
        blob_nest_end(b.get(), list);
        blobmsg_add_string(b.get(), c.key, "after");
        std::vector<char> rec(sizeof(VsieBeaconTxList));
        ASSERT_EQ(JSON_TRANS_STRUCT(c.type, b.head(), rec.data()), 0);
        EXPECT_STREQ(rec.data() + c.at, c.seen);
    }
}

// ---- Keys a policy lists but no converter reads ------------------------------------

TEST(ListedKeys, TestedForPresenceAndNeverStored)
{
    BX_REQUIRE_TRACE_CAPTURE();
    struct Case {
        int type;
        std::vector<std::string> absent;  // keys reported absent from a minimal message
    };
    for (const Case &c : {Case{MSG_RADIO_BASIC, {"capaflag"}}, Case{MSG_AP_BASIC, {"ValidTime", "RestTime", "capaflag"}},
                          Case{MSG_AP_ADVANCED, {"capaflag"}}, Case{MSG_AP_RATE_LIMIT, {"capaflag"}}}) {
        SCOPED_TRACE(c.type);
        ApBasicRec rec{};  // the largest record of these
        TraceCapture cap;
        ASSERT_EQ(JSON_TRANS_STRUCT(c.type, Msg(R"(radio=s"5G" apindex=i32:1)"), &rec), 0);
        const std::vector<std::string> lines = cap.take();
        for (const std::string &key : c.absent) {
            const std::string line = "JTS_CheckBlobAttr: Illegal parameter: " + key + "\n";
            EXPECT_EQ(std::count(lines.begin(), lines.end(), line), 1) << key;
        }
    }
    ApBasicRec ap{};
    ASSERT_EQ(JSON_TRANS_STRUCT(MSG_AP_BASIC,
                                Msg(R"(radio=s"5G" apindex=i32:1 ValidTime=i32:5 RestTime=i32:6 capaflag=i32:255)"),
                                &ap),
              0);
    EXPECT_EQ(ap.uiValidTime, 0u);
    EXPECT_EQ(ap.uiRestTime, 0u);
    EXPECT_EQ(ap.capaflag, 0u);
}

// ---- Which attribute fills a slot ---------------------------------------------------

// As blobmsg_parse: a key's first attribute of the policy's type fills its
// slot, one of another type is no attribute of that key, and a malformed
// attribute ends the message with what came before it kept.
TEST(Slots, FirstOfTheKeysTypeKeptAndAMalformedAttributeEndsTheMessage)
{
    struct Case {
        const char *msg;
        uint32_t lan, wan;
    };
    for (const Case &c : {Case{"lan=i32:3 lan=i32:5 wan=i32:1", 3, 1}, Case{"lan=s\"9\" lan=i64:8 lan=i32:4", 4, 0},
                          Case{"wan=i8:1 wan=i32:2 lan=[i32:6]", 0, 2}}) {
        SCOPED_TRACE(c.msg);
        PortNum rec{};
        ASSERT_EQ(JSON_TRANS_STRUCT(MSG_PORT_NUM, Msg(c.msg), &rec), 0);
        EXPECT_EQ(rec.uiLanNum, c.lan);
        EXPECT_EQ(rec.uiWanNum, c.wan);
    }
    Buf b;
    blobmsg_add_u32(b.get(), "lan", 3);
    add_number(b.get(), 7, 2);
    blobmsg_add_u32(b.get(), "wan", 2);
    PortNum rec{};
    ASSERT_EQ(JSON_TRANS_STRUCT(MSG_PORT_NUM, b.head(), &rec), 0);
    EXPECT_EQ(rec.uiLanNum, 3u);
    EXPECT_EQ(rec.uiWanNum, 0u);
}

// Every attribute is checked as blobmsg_check_attr_len checks it, the usual
// strings and numbers too: a malformed one between "lan" and "wan" ends the
// message, an odd but well-formed one does not.
TEST(Slots, EveryAttributeIsCheckedAsTheLayerChecksIt)
{
    struct Case {
        const char *what;
        int type;
        unsigned len;      // bytes of the value "xy\0..."
        bool name_ends;    // the name keeps its terminator
        uint32_t wan;
    };
    for (const Case &c : {Case{"text without terminator", BLOBMSG_TYPE_STRING, 2, true, 0},
                          Case{"int32 of 3 bytes", BLOBMSG_TYPE_INT32, 3, true, 0},
                          Case{"int64 of 4 bytes", BLOBMSG_TYPE_INT64, 4, true, 0},
                          Case{"name without terminator", BLOBMSG_TYPE_INT32, 4, false, 0},
                          Case{"text", BLOBMSG_TYPE_STRING, 3, true, 2}, Case{"int8", BLOBMSG_TYPE_INT8, 1, true, 2},
                          Case{"double", BLOBMSG_TYPE_DOUBLE, 8, true, 2}}) {
        SCOPED_TRACE(c.what);
        Buf b;
        blobmsg_add_u32(b.get(), "lan", 3);
        const auto at = static_cast<size_t>(reinterpret_cast<char *>(blob_next(b.head())) - reinterpret_cast<char *>(b.head()));
        blobmsg_add_field(b.get(), c.type, "k", "xy\0\0\0\0\0\0", c.len);
        if (!c.name_ends)  // id and length, name length, "k", its terminator
            reinterpret_cast<char *>(b.head())[at + 4 + 2 + 1] = 'x';
        blobmsg_add_u32(b.get(), "wan", 2);
        PortNum rec{};
        ASSERT_EQ(JSON_TRANS_STRUCT(MSG_PORT_NUM, b.head(), &rec), 0);
        EXPECT_EQ(rec.uiLanNum, 3u);
        EXPECT_EQ(rec.uiWanNum, c.wan);
    }
}

} // namespace
