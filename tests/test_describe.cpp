// What the library says each message is: a few messages against what their
// converters are known to do, and every described member against what its
// converter really stores.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <endian.h>
#include <string>
#include <vector>

#include "core/tables.h"
#include "support.h"

namespace {

BlobxlateField field(int direction, int type, int index)
{
    BlobxlateMessage m{};
    BlobxlateField f{};
    EXPECT_EQ(BLOBXLATE_Describe(direction, type, &m), 0);
    EXPECT_EQ(BLOBXLATE_Field(m.pstFields, index, &f), 0);
    return f;
}

TEST(Describe, ChosenMessages)
{
    const BlobxlateField ip = field(BLOBXLATE_TO_STRUCT, MSG_WAN_STATUS, 2);
    EXPECT_STREQ(ip.pcKey, "ip");
    EXPECT_EQ(ip.iBlobType, BLOBMSG_TYPE_STRING);
    EXPECT_STREQ(ip.pcMember, "szIp");
    EXPECT_STREQ(ip.szCType, "char[16]");
    EXPECT_EQ(ip.uiOffset, offsetof(WanStatusInfo, szIp));
    EXPECT_EQ(ip.iPresence, BLOBXLATE_OPTIONAL);

    const BlobxlateField on = field(BLOBXLATE_TO_STRUCT, MSG_IPV6_ENABLE, 0);
    EXPECT_EQ(on.iPresence, BLOBXLATE_REQUIRED);
    EXPECT_STREQ(on.pcRefusal, "ipv6Switch is not valid");
    EXPECT_EQ(on.iRefusedRet, -1);
    EXPECT_EQ(on.iEnumKind, EnumSwitch);

    BlobxlateMessage st{};
    ASSERT_EQ(BLOBXLATE_Describe(BLOBXLATE_TO_JSON, MSG_STATIC, &st), 0);
    EXPECT_EQ(st.iMaskAt, static_cast<int32_t>(offsetof(WanStaticConfig, uiCapaFlag)));
    EXPECT_EQ(field(BLOBXLATE_TO_JSON, MSG_STATIC, 0).uiMaskBit, static_cast<uint32_t>(WAN_CAPA_IP));
    EXPECT_EQ(field(BLOBXLATE_TO_JSON, MSG_STATIC, 5).uiSentIf, 0xFFFFu);  // "dnsslave" with any low bit
    EXPECT_EQ(field(BLOBXLATE_TO_STRUCT, MSG_STATIC, 6).iPresence, BLOBXLATE_LISTED_ONLY);

    // The beacon list: a counted list of tables whose "iedata" are bare numbers.
    const BlobxlateField list = field(BLOBXLATE_TO_JSON, MSG_VSIE_BEACONTX_LIST, 1);
    ASSERT_EQ(list.iIsList, 1);
    EXPECT_EQ(list.stList.uiCapacity, static_cast<uint32_t>(VSIE_BEACONTX_LIST_MAX));
    EXPECT_EQ(list.stList.iCountAt, static_cast<int32_t>(offsetof(VsieBeaconTxList, uiCount)));
    BlobxlateField iedata{}, byte{};
    ASSERT_EQ(BLOBXLATE_Field(list.stList.pstEntry, 5, &iedata), 0);
    ASSERT_EQ(BLOBXLATE_Field(iedata.stList.pstEntry, 0, &byte), 0);
    EXPECT_EQ(byte.pcKey, nullptr);
    EXPECT_EQ(iedata.stList.iBound, BLOBXLATE_BOUND_COUNT);
    EXPECT_EQ(list.stList.iTables, 1);
    EXPECT_EQ(iedata.stList.iTables, 0);
    EXPECT_EQ(list.iEnumKind, -1);
    // What ends or fills a received list: as received, the beacon list is
    // held to "count" and skips what is past it, its bytes are read whatever
    // their type; the node MACs set the count to the entries filled; a URL
    // rule's texts go out up to the first empty one.
    const auto shape = [](const BlobxlateField &f) {
        const BlobxlateList &l = f.stList;
        return std::vector<int>{f.iIsList, l.iBound, l.iFillsCount, l.iAnyType, l.iSurplusSkipped, l.iToFirstEmpty};
    };
    EXPECT_EQ(shape(field(BLOBXLATE_TO_STRUCT, MSG_VSIE_BEACONTX_LIST, 1)), (std::vector<int>{1, 1, 0, 0, 1, 0}));
    EXPECT_EQ(shape(iedata), (std::vector<int>{1, 1, 0, 1, 0, 0}));
    EXPECT_EQ(shape(field(BLOBXLATE_TO_STRUCT, MSG_WIFI_TOPO_MAC, 0)), (std::vector<int>{1, 0, 1, 0, 0, 0}));
    const BlobxlateField urls = field(BLOBXLATE_TO_JSON, MSG_FILTER_URL, 2);
    EXPECT_STREQ(urls.pcKey, "urls");
    EXPECT_EQ(shape(urls), (std::vector<int>{1, 0, 0, 0, 0, 1}));

    // Quirks and hand-written converters say where they depart.
    EXPECT_NE(field(BLOBXLATE_TO_STRUCT, MSG_PPPOE, 3).pcNote, nullptr);
    BlobxlateMessage sta{};
    ASSERT_EQ(BLOBXLATE_Describe(BLOBXLATE_TO_STRUCT, MSG_STA_LIST, &sta), 0);
    EXPECT_NE(sta.pcNote, nullptr);
    EXPECT_STREQ(field(BLOBXLATE_TO_STRUCT, MSG_STA_LIST, 1).szCType, "struct *");

    int count = -1;
    const blobmsg_policy *p = BLOBXLATE_Policy(MSG_WAN_STATUS, &count);
    ASSERT_EQ(count, 13);
    EXPECT_STREQ(p[2].name, "ip");
    EXPECT_EQ(p[2].type, BLOBMSG_TYPE_STRING);
    EXPECT_EQ(BLOBXLATE_Policy(MSG_UPGRADE_STATUS, &count), nullptr);
    EXPECT_EQ(count, 0);

    // A field index outside the table is refused.
    BlobxlateMessage wan{};
    BlobxlateField f{};
    ASSERT_EQ(BLOBXLATE_Describe(BLOBXLATE_TO_STRUCT, MSG_WAN_STATUS, &wan), 0);
    ASSERT_EQ(BLOBXLATE_FieldCount(wan.pstFields), 13);
    EXPECT_EQ(BLOBXLATE_Field(wan.pstFields, 12, &f), 0);
    EXPECT_EQ(BLOBXLATE_Field(wan.pstFields, 13, &f), -1);
    EXPECT_EQ(BLOBXLATE_Field(wan.pstFields, -1, &f), -1);
    EXPECT_EQ(BLOBXLATE_FieldCount(nullptr), 0);

    BlobxlateMessage none{};
    EXPECT_EQ(BLOBXLATE_Describe(BLOBXLATE_TO_STRUCT, MSG_UPGRADE_STATUS, &none), -1);
    EXPECT_EQ(BLOBXLATE_Describe(BLOBXLATE_TO_JSON, 13, &none), -1);
}

// Every received type's policy fits the room kept for the policies, and
// is built once: a second request hands out the same entries.
TEST(Describe, EveryPolicyIsBuiltOnce)
{
    for (int type = 0; type <= MSG_QUICKJOIN; ++type) {
        int count = 0;
        const blobmsg_policy *p = BLOBXLATE_Policy(type, &count);
        BlobxlateMessage m{};
        EXPECT_EQ(p != nullptr, BLOBXLATE_Describe(BLOBXLATE_TO_STRUCT, type, &m) == 0) << type;
        EXPECT_EQ(BLOBXLATE_Policy(type, nullptr), p) << type;
    }
}

// One described key at a time into a record full of a pattern: the
// converter changes nothing outside the described member, the mask and the
// members its quirks store even without their key; and when it accepts the
// key it changes the member.
struct Span {
    size_t at, size;
};

void store_one(int type, const BlobxlateMessage &m, const BlobxlateField &f, std::vector<Span> spans)
{
    const size_t size = BLOBXLATE_RecordSize(type);
    std::vector<unsigned char> rec(size, 0x5A), before(size, 0x5A);
    bxtest::Buf buf;
    if (f.iBlobType == BLOBMSG_TYPE_STRING)
        blobmsg_add_string(buf.get(), f.pcKey, f.iEnumKind >= 0 ? PARATRANS_Int_To_String(f.iEnumKind, 1) : "x");
    else if (f.iBlobType == BLOBMSG_TYPE_INT64)
        blobmsg_add_u64(buf.get(), f.pcKey, 1);
    else
        blobmsg_add_u32(buf.get(), f.pcKey, 1);
    const int ret = JSON_TRANS_STRUCT(type, buf.head(), rec.data());
    spans.push_back({f.uiOffset, f.uiSize});
    if (m.iMaskAt >= 0)
        spans.push_back({size_t(m.iMaskAt), 4});
    for (size_t i = 0; i < size; ++i) {
        bool allowed = rec[i] == before[i];
        for (const Span &s : spans)
            allowed = allowed || (i >= s.at && i < s.at + s.size);
        EXPECT_TRUE(allowed) << f.pcKey << " byte " << i;
    }
    if (ret == 0) {
        EXPECT_NE(std::memcmp(rec.data() + f.uiOffset, before.data(), f.uiSize), 0) << f.pcKey;
    }
}

TEST(Describe, MembersAreWhereTheConvertersStore)
{
    for (int type = 0; type <= bx::kLastMessageType; ++type) {
        BlobxlateMessage m{};
        if (BLOBXLATE_Describe(BLOBXLATE_TO_STRUCT, type, &m) != 0 || m.pcNote != nullptr)
            continue;
        SCOPED_TRACE(type);
        std::vector<BlobxlateField> fields(size_t(BLOBXLATE_FieldCount(m.pstFields)));
        std::vector<Span> quirked;
        for (size_t i = 0; i < fields.size(); ++i) {
            ASSERT_EQ(BLOBXLATE_Field(m.pstFields, int(i), &fields[i]), 0);
            if (fields[i].pcNote != nullptr)
                quirked.push_back({fields[i].uiOffset, fields[i].uiSize});
        }
        for (const BlobxlateField &f : fields) {
            if (f.pcNote == nullptr && !f.iIsList && f.pcMember != nullptr && f.iPresence <= BLOBXLATE_REPORTED)
                store_one(type, m, f, quirked);
        }
    }
}

void collect(void *ctx, const BlobxlateFinding *f)
{
    auto &out = *static_cast<std::string *>(ctx);
    out += std::string(out.empty() ? "" : " ") + f->pcPath + ":" + std::to_string(f->iKind);
    if (f->iHasNumber)
        out += "=" + std::to_string(f->llNumber);
}

// Where the two directions differ in a key or its place, each is described
// with its own keys in its own order, and a key only sent is no key of the
// received message.
std::string keys_of(int direction, int type)
{
    BlobxlateMessage m{};
    EXPECT_EQ(BLOBXLATE_Describe(direction, type, &m), 0);
    std::string keys;
    BlobxlateField f{};
    for (int i = 0; BLOBXLATE_Field(m.pstFields, i, &f) == 0; ++i)
        keys += std::string(f.pcKey) + " ";
    return keys;
}

TEST(Describe, EachDirectionWithItsOwnKeys)
{
    EXPECT_EQ(keys_of(BLOBXLATE_TO_JSON, MSG_REBOOT), "status ");
    EXPECT_EQ(keys_of(BLOBXLATE_TO_STRUCT, MSG_REBOOT), "reboottype ");
    EXPECT_EQ(keys_of(BLOBXLATE_TO_JSON, MSG_TRACE_ROUTE), "host resulttype numoftries timeout blocksize maxhop ");
    EXPECT_EQ(keys_of(BLOBXLATE_TO_STRUCT, MSG_TRACE_ROUTE),
              "host numoftries timeout blocksize maxhop resulttype capaflag ");
    int count = 0;
    const blobmsg_policy *p = BLOBXLATE_Policy(MSG_REBOOT, &count);
    ASSERT_EQ(count, 1);
    EXPECT_STREQ(p[0].name, "reboottype");
}

// A message a careful sender never sends, and where the converter will
// lose what it says.
TEST(Check, NamesEachProblemWhereItIs)
{
    const struct {
        int type;
        const char *msg;
        const char *found;
    } cases[] = {
        {MSG_WAN_STATUS, "ip=s\"192.0.2.1\" linkspeed=i32:1000", ""},
        {MSG_WAN_STATUS, "ip=s\"192.0.2.1\" bogus=i32:1", "bogus:1"},
        {MSG_IPV6_ENABLE, "", "IPv6status:4"},
        {MSG_DHCP, "mtu=s\"1500\"", "mtu:5"},
        {MSG_STA_LIST, "stalist=[{mac=s\"aa\" rxbytes=i64:5 txpackets=i32:5}]", "stalist[0].txpackets:6"},
        {MSG_WAN_STATUS, "workmode=s\"dhcp-bogus\"", "workmode:7=6"},
        {MSG_FILTER_DNS, "idx=i32:17 enable=s\"enable\" action=s\"Ignore\" mode=s\"Black\" weekday=i32:1", "idx:8=17"},
        {MSG_WAN_STATUS, "ip=s\"192.0.2.100/255.255.255.0\"", "ip:9"},
        {MSG_VSIE_BEACONTX_ADD, "len=i32:2 iedata=[i32:221 i32:8 i32:9]", "iedata[2]:10"},
        {MSG_VSIE_PROBERX_LIST, "list=[{idx=i32:1} {} {} {}]", "list[3]:10"},
        // The timer list holds as many as its array, whatever "count" says;
        // the beacon list no more than its "count".
        {MSG_WIFI_TIMER, "count=i32:1 timerlist=[{taskid=i32:1} {taskid=i32:2}]", ""},
        {MSG_VSIE_BEACONTX_LIST, "count=i32:1 list=[{idx=i32:1} {idx=i32:2}]", "list[1]:10"},
        {MSG_REBOOT, "status=s\"now\"", "status:1"},
    };
    for (const auto &c : cases) {
        bxtest::Msg msg(c.msg);
        std::string found;
        const int n = BLOBXLATE_Check(c.type, msg, collect, &found);
        EXPECT_EQ(n, found.empty() ? 0 : 1 + int(std::count(found.begin(), found.end(), ' ')));
        EXPECT_EQ(found, c.found) << c.msg;
    }
    bxtest::Msg empty("");
    EXPECT_EQ(BLOBXLATE_Check(MSG_UPGRADE_STATUS, empty, collect, nullptr), -1);
    EXPECT_EQ(BLOBXLATE_Check(MSG_WAN_STATUS, nullptr, collect, nullptr), -1);
}

// What each finding says the converter will do, as the one line a caller
// shows.
std::string said(int type, blob_attr *msg)
{
    std::string out;
    BLOBXLATE_Check(
        type, msg,
        [](void *ctx, const BlobxlateFinding *f) { *static_cast<std::string *>(ctx) += std::string(f->pcPath) + ": " + f->pcText + "\n"; },
        &out);
    return out;
}

TEST(Check, SaysWhatTheConverterDoes)
{
    EXPECT_EQ(said(MSG_FILTER_URL_REPLY, bxtest::Msg("idx=i32:1 enable=s\"enable\"")), "enable: never read: ignored\n");
    EXPECT_EQ(said(MSG_WAN_STATUS, bxtest::Msg("ip=s\"192.0.2.100/255.255.255.0\" ip=s\"x\" bogus=i32:1 workmode=s\"dhcp-bogus\" linkspeed=s\"9\"")),
              "ip: a second \"ip\": ignored, the first is read\nbogus: not a key of this message: ignored\n"
              "linkspeed: STRING where INT32 is read: ignored, the member keeps its value\n"
              "workmode: \"dhcp-bogus\" is no word of its list: stored as 6\nip: a text of 25 characters: cut to 15\n");
    EXPECT_EQ(said(MSG_STA_LIST, bxtest::Msg("stalist=[{mac=s\"aa\" txpackets=i32:5}]")),
              "stalist[0].txpackets: INT32 where INT64 is read: ignored; send it with blobmsg_add_u64\n");
    EXPECT_EQ(said(MSG_FILTER_DNS, bxtest::Msg("idx=i32:17 enable=s\"enable\" action=s\"Ignore\" weekday=i32:1")),
              "idx: 17 is outside 0..16: the message is refused once it is stored\n"
              "mode: a required key is missing: the message is refused (-1)\n");
    EXPECT_EQ(said(MSG_VSIE_BEACONTX_ADD, bxtest::Msg("len=i32:2 iedata=[s\"x\" i32:8 i32:9]")),
              "iedata[0]: a STRING element read as the number 2013265920\n"  // "x\0\0\0" as a number
              "iedata[2]: past the 2 entries read: dropped with every element after it\n");
    EXPECT_EQ(said(MSG_VSIE_PROBERX_LIST, bxtest::Msg("list=[{idx=i32:1} s\"x\" {} {} {}]")),
              "list[1]: a STRING element where TABLE is read: skipped\n"  // a skipped element takes no entry
              "list[4]: past the 3 entries read: dropped with every element after it\n");
    // Each blobmsg type by its name.
    bxtest::Buf types;
    blobmsg_add_u16(types.get(), "ip", 1);
    blobmsg_add_u8(types.get(), "dhcprt", 1);
    blobmsg_add_double(types.get(), "connum", 1);
    blobmsg_close_array(types.get(), blobmsg_open_array(types.get(), "portid"));
    blobmsg_close_table(types.get(), blobmsg_open_table(types.get(), "linkspeed"));
    const std::string kept = " is read: ignored, the member keeps its value\n";
    EXPECT_EQ(said(MSG_WAN_STATUS, types.head()), "ip: INT16 where STRING" + kept + "dhcprt: INT8 where INT32" + kept +
                                                      "connum: DOUBLE where INT32" + kept + "portid: ARRAY where INT32" + kept +
                                                      "linkspeed: TABLE where INT32" + kept);
    // A name running past its attribute: that attribute and the rest are not read.
    bxtest::Msg broken("ip=s\"192.0.2.1\" mtu=i32:1500 linkspeed=i32:2");
    auto *mtu = blob_next(static_cast<blob_attr *>(blob_data(broken)));
    static_cast<blobmsg_hdr *>(blob_data(mtu))->namelen = htobe16(200);
    EXPECT_EQ(said(MSG_WAN_STATUS, broken), ": a malformed attribute: it and everything after it are not read\n");
}

} // namespace
