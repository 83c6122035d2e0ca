// What the library says each message is: a few messages against what their
// converters are known to do, and every described member against what its
// converter really stores.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

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
    for (int type = 0; type <= 172; ++type) {
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

} // namespace
