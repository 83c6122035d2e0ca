// Deassociation and the Wi-Fi access list.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

#include "support.h"

using bxtest::Msg;
using bxtest::TraceCapture;
using testing::ElementsAre;

namespace {

static_assert(offsetof(WifiDeassocRec, aszMac) == 12 && sizeof(WifiDeassocRec) == 12 + 32 * 32);
static_assert(offsetof(WifiAccessEntryRec, szMac) == 68 && sizeof(WifiAccessEntryRec) == 100);

std::string macs(int n)
{
    std::string s = R"("macs": [)";
    for (int i = 0; i < n; ++i)
        s += (i ? ", \"m" : "\"m") + std::to_string(i) + "\"";
    return s + "]";
}

TEST(AccessList, RecordToTree)
{
    WifiDeassocRec deassoc{2, 1, 30, {"aa:bb:cc:dd:ee:01", "aa:bb:cc:dd:ee:02", "not sent"}};
    WifiDeassocRec deassoc_big{};
    deassoc_big.uiCount = 0xFFFFFFFFu;
    WifiAccessEntryRec entry{4, "phone", "aa:bb:cc:dd:ee:ff"};
    WifiAccessListRec list{};
    list.uiCount = 2;
    list.astList[0] = {1, "tv", "00:00:00:00:00:01"};
    list.astList[1] = {2, "", "00:00:00:00:00:02"};
    WifiAccessListRec empty{};
    struct Case { int type; const void *rec; std::string wire; };
    const Case cases[] = {
        {MSG_WIFI_DEASSOCIATION, &deassoc,
         R"(count=i32:2 radio=s"5G" time=i32:30 macs=[s"aa:bb:cc:dd:ee:01" s"aa:bb:cc:dd:ee:02"])"},
        // Slots past the 32 are never read, whatever the count.
        {MSG_WIFI_DEASSOCIATION, &deassoc_big, R"(count=i32:-1 radio=s"2.4G" time=i32:0 macs=[)" +
                                               [] { std::string s; for (int i = 0; i < 32; ++i) s += i ? R"( s"")" : R"(s"")"; return s; }() + "]"},
        {MSG_WIFI_BLACK_WHITE_ADD, &entry, R"(index=i32:4 name=s"phone" mac=s"aa:bb:cc:dd:ee:ff")"},
        {MSG_WIFI_BLACK_WHITE_DELETE, &entry, "index=i32:4"},
        {MSG_WIFI_BLACK_WHITE_LIST, &list,
         R"(count=i32:2 list=[{index=i32:1 name=s"tv" mac=s"00:00:00:00:00:01"} )"
         R"({index=i32:2 name=s"" mac=s"00:00:00:00:00:02"}])"},
        {MSG_WIFI_BLACK_WHITE_LIST, &empty, "count=i32:0 list=[]"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.wire);
        int ret = -2;
        EXPECT_EQ(bxtest::stj_typed(c.type, c.rec, &ret), c.wire);
        EXPECT_EQ(ret, 0);
    }
}

TEST(AccessList, DeassociationCountIsRequiredAndNotNegative)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const char *refused = "JTS_WifiStaDeassociation: [count] is not valid.\n";
    struct Case { const char *msg; int ret; std::vector<std::string> trace; };
    const Case cases[] = {
        {R"({"count": -1, "radio": "5G", "macs": ["m"]})", -1, {refused}},
        {R"({"radio": "5G", "macs": ["m"]})", -1, {"JTS_CheckBlobAttr: Illegal parameter: count\n", refused}},
        {R"({"count": "2", "radio": "5G"})", -1, {"JTS_CheckBlobAttr: Illegal parameter: count\n", refused}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.msg);
        WifiDeassocRec rec{};
        rec.eRadio = 7;
        Msg msg(c.msg);
        TraceCapture cap;
        EXPECT_EQ(JTS_WifiStaDeassociation(msg, &rec), c.ret);
        EXPECT_EQ(cap.take(), c.trace);
        EXPECT_EQ(rec.eRadio, 7u);  // nothing stored from a refused message
        EXPECT_EQ(rec.aszMac[0][0], '\0');
    }
    WifiDeassocRec rec{};
    TraceCapture cap;
    EXPECT_EQ(JTS_WifiStaDeassociation(Msg(R"({"count": 0})"), &rec), 0);
    EXPECT_THAT(cap.take(), testing::Contains("JTS_CheckBlobAttr: Illegal parameter: macs\n"));
}

TEST(AccessList, DeassociationTakesAtMost32Macs)
{
    struct { WifiDeassocRec rec; char guard[8]; } boxed{};
    std::string m = std::string(R"({"count": 3, "radio": "6G", "time": 5, )") + macs(40) + "}";
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_WIFI_DEASSOCIATION, Msg(m.c_str()), &boxed.rec), 0);
    EXPECT_EQ(boxed.rec.uiCount, 3u);  // kept as given
    EXPECT_EQ(boxed.rec.eRadio, 2u);
    EXPECT_EQ(boxed.rec.uiTime, 5u);
    EXPECT_STREQ(boxed.rec.aszMac[0], "m0");
    EXPECT_STREQ(boxed.rec.aszMac[31], "m31");
    EXPECT_EQ(std::string(boxed.guard, 8), std::string(8, '\0'));
}

TEST(AccessList, DeassociationMacTraceStaysInsideItsSlot)
{
    BX_REQUIRE_TRACE_CAPTURE();
    // A record the caller did not zero, and a tail after it that no trace may show.
    struct {
        WifiDeassocRec rec;
        char tail[8] = "TAIL";
    } boxed;
    std::memset(&boxed.rec, 'A', sizeof boxed.rec);
    const std::string mac(40, 'm');
    Msg msg((R"({"count": 1, "macs": [")" + mac + R"("]})").c_str());
    TraceCapture cap;
    EXPECT_EQ(JTS_WifiStaDeassociation(msg, &boxed.rec), 0);
    // 31 characters copied and the caller's last byte, nothing from the next slots.
    EXPECT_THAT(cap.take(), testing::Contains("JTS_WifiStaDeassociation: mac:" + mac.substr(0, 31) + "A\n"));
}

TEST(AccessList, AddNeedsNameAndMac)
{
    BX_REQUIRE_TRACE_CAPTURE();
    struct Case { const char *msg; int ret; uint32_t index; const char *name; const char *mac; const char *missing; };
    const Case cases[] = {
        {R"({"index": 3, "name": "tv", "mac": "m"})", 0, 3, "tv", "m", nullptr},
        {R"({"index": 3, "name": "tv"})", -1, 3, "tv", "", "mac"},
        {R"({"index": 3, "mac": "m"})", -1, 3, "", "", "name"},
        {R"({"name": "tv", "mac": "m"})", 0, 0, "tv", "m", "index"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.msg);
        WifiAccessEntryRec rec{};
        Msg msg(c.msg);
        TraceCapture cap;
        EXPECT_EQ(JSON_TRANS_STRUCT(MSG_WIFI_BLACK_WHITE_ADD, msg, &rec), c.ret);
        EXPECT_EQ(rec.uiIndex, c.index);
        EXPECT_STREQ(rec.szName, c.name);
        EXPECT_STREQ(rec.szMac, c.mac);
        auto lines = cap.take();
        if (c.missing != nullptr) {
            EXPECT_THAT(lines, testing::Contains(std::string("JTS_CheckBlobAttr: Illegal parameter: ") + c.missing + "\n"));
        }
    }
    WifiAccessEntryRec rec{};
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_WIFI_BLACK_WHITE_DELETE, Msg(R"({"name": "tv"})"), &rec), -1);
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_WIFI_BLACK_WHITE_DELETE, Msg(R"({"index": 9, "name": "tv"})"), &rec), 0);
    EXPECT_EQ(rec.uiIndex, 9u);
    EXPECT_STREQ(rec.szName, "");  // only the index is read
}

TEST(AccessList, ListWalkIgnoresTheCount)
{
    WifiAccessListRec rec{};
    rec.astList[1].uiIndex = 77;
    Msg msg(R"({"count": 1, "list": [{"index": 1, "name": "a", "mac": "m1"}, {"name": "b"}, "junk", {"index": 3}]})");
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_WIFI_BLACK_WHITE_LIST, msg, &rec), 0);
    EXPECT_EQ(rec.uiCount, 1u);
    EXPECT_STREQ(rec.astList[0].szMac, "m1");
    EXPECT_EQ(rec.astList[1].uiIndex, 77u);  // absent in its element: left alone
    EXPECT_STREQ(rec.astList[1].szName, "b");
    EXPECT_EQ(rec.astList[2].uiIndex, 3u);   // the string element took no entry
    // A list longer than the record is cut at its capacity.
    struct { WifiAccessListRec rec; uint32_t guard; } boxed{};
    std::string m = R"({"list": [)";
    for (int i = 0; i < BX_WIFI_ACCESS_LIST_MAX + 5; ++i)
        m += (i ? ", " : "") + std::string(R"({"index": )") + std::to_string(i + 1) + "}";
    m += "]}";
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_WIFI_BLACK_WHITE_LIST, Msg(m.c_str()), &boxed.rec), 0);
    EXPECT_EQ(boxed.rec.astList[BX_WIFI_ACCESS_LIST_MAX - 1].uiIndex, static_cast<uint32_t>(BX_WIFI_ACCESS_LIST_MAX));
    EXPECT_EQ(boxed.guard, 0u);
}

} // namespace
