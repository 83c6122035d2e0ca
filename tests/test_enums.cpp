// Enumeration words to numbers and back. The expected words, numbers and
// fallbacks are written out here independently of the library's tables: the
// daemons on the other end of the bus depend on every one of them.
#include <climits>
#include <cstring>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "blobxlate.h"
#include "trace_capture.h"

namespace {

const std::string kBadStandard = "PARATRANS_String_To_Int: [standard] is not valid.\n";

// The text is handed over in a writable copy, as the bus converters do.
int to_int(int kind, std::string text) { return PARATRANS_String_To_Int(kind, &text[0]); }

// The shared result buffer, found through a kind that always writes it.
const char *result_buffer() { return PARATRANS_Int_To_String(EnumNone16, 0); }

struct TextKind {
    int kind;
    std::vector<std::pair<const char *, int>> words;
    int other;
};

// Kind 11 is a bit set and has its own tests below.
const std::vector<TextKind> kTextToNumber = {
    {0, {{"enable", 1}, {"disable", 0}}, -1},
    {1, {{"WAN", 1}, {"LAN", 2}, {"2.4G", 3}, {"5G", 4}}, 5},
    {2, {{"DHCP", 1}, {"PPPOE", 2}, {"STATIC", 3}, {"BRIDGE", 4}, {"REPEATER", 5}}, 6},
    {3, {{"NO", 1}, {"DOING", 2}, {"SUCCESS", 3}, {"FAILED", 4}}, 5},
    {4, {{"NONE", 0}, {"WEP40", 1}, {"WEP104", 2}, {"WPA_AES", 3}, {"WPA_TKIP", 4}, {"WPA2_AES", 5}, {"WPA2_TKIP", 6},
         {"MIXWPA_AES", 7}, {"MIXWPA_TKIP", 8}, {"MIXWPA_MIX", 9}, {"WPA_MIXAESTKIP", 10}, {"WPA2_MIXAESTKIP", 11}}, 12},
    {5, {{"LOW", 1}, {"MIDDLE", 2}, {"HIGH", 3}}, 4},
    {6, {{"up", 1}}, 2},
    {7, {{"true", 1}, {"false", 0}}, -1},
    {8, {{"2.4G", 0}, {"5G", 1}}, 2},
    {9, {{"100%", 0}, {"75%", 1}, {"50%", 2}, {"25%", 3}}, 4},
    {10, {{"auto", 0}, {"20M", 1}, {"40M", 2}, {"80M", 3}, {"160M", 4}, {"20M/40M", 5}, {"20M/40M/80M", 6},
          {"80M/80M", 7}}, 8},
    {12, {{"2.4G", 0}, {"5G", 1}, {"ETH", 2}}, 3},
    {13, {{"IOS", 1}, {"IPAD", 2}, {"ANDROID", 3}, {"PC", 4}}, 6},
    {14, {{"FULL", 1}, {"DUPLICATE", 2}, {"AUTO", 3}}, 4},
    {15, {{"WHITE", 1}, {"BLACK", 2}}, 3},
    {16, {}, -1},
    {17, {{"MODIFY", 0}, {"ADD", 1}, {"DELETE", 2}}, 3},
    {18, {{"CTCC", 0}, {"CMCC", 1}, {"CUCC", 2}, {"GD", 3}, {"NOT", 4}}, 5},
    {19, {{"DEF", 0}, {"SC", 1}, {"ZJ", 2}, {"HN", 3}, {"GX", 4}, {"SH", 5}, {"BJ", 6}, {"TJ", 7}, {"JS", 8},
          {"GD", 9}, {"GS", 10}, {"JL", 11}, {"HB", 12}, {"HUB", 13}, {"HUN", 14}, {"AH", 15}, {"HAIN", 16},
          {"CQ", 17}, {"XZ", 18}, {"NX", 19}, {"XJ", 20}, {"NMG", 21}, {"HLJ", 22}, {"LN", 23}, {"FJ", 24},
          {"SD", 25}, {"YN", 26}, {"GZ", 27}, {"XA", 28}, {"SX", 29}, {"QH", 30}, {"JX", 31}, {"TW", 32},
          {"AM", 33}, {"XG", 34}}, 35},
    {20, {{"UPLINK", 0}, {"USER", 1}}, 2},
    {21, {{"disable", 0}, {"controller", 2}, {"agent", 3}, {"auto", 1}}, 4},
    {22, {{"manual", 0}, {"online", 1}}, 4},
    {23, {{"open", 0}, {"share", 1}, {"wpa", 2}, {"wpa2", 3}, {"wpapsk", 4}, {"wpa2psk", 5}, {"wpawpa2psk", 6},
          {"wep", 7}, {"wpa3", 8}, {"wpa3psk", 9}, {"wpa2wpa3psk", 10}}, 11},
    {24, {{"none", 0}, {"wep64", 1}, {"tkip", 2}, {"aes", 3}, {"aestkip", 4}, {"wep128", 5}}, 6},
    {25, {{"eth", 0}, {"2p4g", 1}, {"5g", 2}}, 3},
    {26, {{"disable", 0}, {"isolate", 1}, {"design", 2}}, -1},
    {27, {{"none", 0}, {"tcp", 1}, {"udp", 2}, {"icmp", 3}}, 4},
    {28, {{"now", 0}, {"delay", 1}}, -1},
    {29, {{"Connected", 1}}, 0},
    {30, {{"AutoConfigured", 1}, {"DHCPv6", 2}, {"Static", 3}}, -1},
    {31, {{"PrefixDelegation", 1}, {"Static", 2}}, -1},
    {32, {{"Ignore", 0}, {"LanIp", 1}, {"NameError", 2}}, -1},
    {33, {{"Black", 0}, {"White", 1}}, -1},
    {34, {{"continuous", 0}, {"instant", 1}}, -1},
    {35, {}, -1},
    {36, {{"green", 1}, {"orange", 2}, {"greenfast", 3}, {"orangefast", 4}}, -1},
    {37, {}, -1},
    {38, {{"add", 0}, {"delete", 2}, {"modify", 1}}, -1},
};

TEST(TextToNumber, EveryWordAndTheFallbackOfEveryKind)
{
    bxtest::TraceCapture cap;  // nothing but kind 11 may trace
    ASSERT_EQ(kTextToNumber.size(), 38u);
    for (const TextKind &k : kTextToNumber) {
        SCOPED_TRACE("kind " + std::to_string(k.kind));
        for (const auto &w : k.words) {
            EXPECT_EQ(to_int(k.kind, w.first), w.second) << w.first;
            // Whole-text, case-sensitive comparison, nothing trimmed.
            EXPECT_EQ(to_int(k.kind, std::string(w.first) + " "), k.other) << w.first;
            EXPECT_EQ(to_int(k.kind, std::string(w.first).substr(1)), k.other) << w.first;
        }
        for (const char *unknown : {"", "bogus", "1", "ENABLE", "Green", "upgrade"})
            EXPECT_EQ(to_int(k.kind, unknown), k.other) << unknown;
    }
    if (bxtest::trace_paths_private()) {
        EXPECT_TRUE(cap.take().empty());
    }
}

TEST(TextToNumber, ParticularCases)
{
    const struct {
        int kind;
        const char *text;
        int expected;
    } cases[] = {
        {1, "5G", 4},         {1, "5g", 5},        {8, "2.4G", 0},       {12, "2.4G", 0},
        {19, "XG", 34},       {19, "xg", 35},      {13, "unknown", 6},   {22, "upgrade", 4},
        {29, "connected", 0}, {39, "enable", -1},  {-1, "enable", -1},   {INT_MIN, "DHCP", -1},
        {INT_MAX, "", -1},    {16, "1", -1},       {35, "DOWNLOADING", -1}, {37, "REBOOT", -1},
        {36, "1", -1},        {10, "80M/80M", 7},  {7, "false ", -1},    {0, " enable", -1},
    };
    for (const auto &c : cases)
        EXPECT_EQ(to_int(c.kind, c.text), c.expected) << "kind " << c.kind << " \"" << c.text << '"';
}

// How each kind sends numbers: into the shared buffer or as constant text, and
// the text for a number without a word. A number goes out as the word it is
// received as, except where `sent` says otherwise. Kinds 11, 16 and 36 are
// tested elsewhere.
struct SendingKind {
    int kind;
    bool buffer;
    const char *other;
    std::vector<std::pair<int, const char *>> sent = {};
};

const std::vector<SendingKind> kSending = {
    {0, false, ""},  {1, true, ""},  {2, true, "any"},  {3, true, "ERROR"}, {4, true, "ERROR"}, {5, true, "ERROR"},
    {6, true, "down"}, {7, true, "false"}, {8, false, ""}, {9, false, ""},
    {10, false, "", {{7, ""}}},  // "80M/80M" is received, never sent
    {12, true, ""},  {13, true, "", {{5, ""}}}, {14, true, ""}, {15, true, ""}, {17, true, ""}, {18, true, ""},
    {19, true, "", {{35, ""}}},  {20, true, ""}, {21, false, ""}, {22, false, ""}, {23, false, ""},
    {24, false, ""}, {25, false, ""}, {26, false, ""}, {27, false, ""}, {28, false, ""},
    {29, false, "Unconnected", {{0, "Unconnected"}}},
    {30, false, "AutoConfigured", {{0, "AutoConfigured"}}},
    {31, false, "Static"}, {32, false, ""}, {33, false, ""}, {34, false, ""},
    {35, false, "", {{0, "NOMAL-NotUpgrade"}, {1, "DOWNLOADING"}, {2, "FLASHING"}, {3, "UPGRADE SUCCSESS"},
                     {4, "DOWNLOAD ERR"}, {5, "VERSION ERR"}, {6, "FLASHING ERR"}, {7, "START REBOOT"},
                     {8, "DOWNLOAD SUCCSESS"}, {9, "START DOWNLOADING"}}},
    {37, false, "", {{0, "UPGRADE NORMAL"}, {1, "UPGRADE DOWNLOADING"}, {2, "UPGRADE FLASHING"},
                     {3, "UPGRADE SUCCSESS"}, {4, "DOWNLOAD ERR"}, {5, "VERSION ERR"}, {6, "FLASHING ERR"},
                     {7, "REBOOT"}, {8, "DOWNLOAD SUCCSESS"}, {9, "DOWNLOAD TRUE"}, {10, "UPGRADE ERR"}}},
    {38, false, ""},
};

TEST(NumberToText, EveryWordAndTheFallbackOfEveryKind)
{
    ASSERT_EQ(kSending.size(), 36u);
    for (const SendingKind &k : kSending) {
        SCOPED_TRACE("kind " + std::to_string(k.kind));
        std::map<int, const char *> expected;
        for (int other : {-1, 99, INT_MIN, INT_MAX})
            expected[other] = k.other;
        for (const TextKind &received : kTextToNumber)
            if (received.kind == k.kind)
                for (const auto &w : received.words)
                    expected[w.second] = w.first;
        for (const auto &w : k.sent)
            expected[w.first] = w.second;
        for (const auto &w : expected) {
            const char *buf = result_buffer();
            const char *got = PARATRANS_Int_To_String(k.kind, w.first);
            ASSERT_NE(got, nullptr) << w.first;
            EXPECT_STREQ(got, w.second) << w.first;
            // Constant results must survive the next call that writes the buffer.
            EXPECT_EQ(got == buf, k.buffer) << w.first;
        }
    }
}

TEST(NumberToText, DecimalForKindsWithoutWordsAndUnknownKinds)
{
    const struct {
        int kind;
        int value;
        const char *expected;
    } cases[] = {
        {36, 2, "2"},  {36, 1, "1"},          {16, 0, "0"},        {16, -7, "-7"},
        {40, -5, "-5"}, {39, 3, "3"},         {-1, 12, "12"},      {INT_MIN, 1, "1"},
        {INT_MAX, INT_MIN, "-2147483648"},    {16, INT_MAX, "2147483647"},
    };
    for (const auto &c : cases) {
        const char *got = PARATRANS_Int_To_String(c.kind, c.value);
        EXPECT_STREQ(got, c.expected) << "kind " << c.kind << " value " << c.value;
        EXPECT_EQ(got, result_buffer());
    }
}

TEST(NumberToText, BufferIsSharedBetweenCalls)
{
    const char *first = PARATRANS_Int_To_String(EnumWanMode, 1);
    EXPECT_STREQ(first, "DHCP");
    const char *second = PARATRANS_Int_To_String(EnumProgress, 4);
    EXPECT_EQ(first, second);
    EXPECT_STREQ(first, "FAILED");
    // A shorter word leaves nothing of the longer one behind.
    PARATRANS_Int_To_String(EnumSecurity, 11);
    EXPECT_STREQ(PARATRANS_Int_To_String(EnumLinkState, 1), "up");
    EXPECT_STREQ(PARATRANS_Int_To_String(EnumPortType, 0), "");
}

TEST(StandardSet, TextToBits)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const std::string long_token(100, 'n');
    const struct {
        std::string text;
        int bits;
        std::string text_after;  // the last token is cut off in the caller's text
        bool traced;
    } cases[] = {
        {"11b", 1, "", false},
        {"11a/11n/11ac", 28, "11a/11n/", false},
        {"11b/11g", 3, "11b/", false},
        {"11ax/11ax", 32, "11ax/", false},
        {"11n/11ac/11ax/11b/11g/11a", 63, "11n/11ac/11ax/11b/11g/", false},
        {"11b/", 1, "11b/", false},
        {"", 0, "", false},
        // Only six tokens are read; the rest is neither checked nor cut.
        {"11b/11b/11b/11b/11b/11b/11ax", 1, "11b/11b/11b/11b/11b/11b/11ax", false},
        {"11b/11g/11a/11n/11ac/11ax/bad", 63, "11b/11g/11a/11n/11ac/11ax/bad", false},
        {"11b/11x", 0, "11b/", true},
        {"11b//11g", 0, "11b//11g", true},
        {"/11b", 0, "/11b", true},
        {"11B", 0, "", true},
        {"11b /11g", 0, "11b /11g", true},
        {"11g/" + long_token, 0, "11g/", true},
        {long_token + "/11g", 0, long_token + "/11g", true},
    };
    bxtest::TraceCapture cap;
    for (const auto &c : cases) {
        SCOPED_TRACE('"' + c.text + '"');
        std::string text = c.text;
        EXPECT_EQ(PARATRANS_String_To_Int(EnumStandard, &text[0]), c.bits);
        EXPECT_STREQ(text.c_str(), c.text_after.c_str());
        EXPECT_EQ(text.size(), c.text.size());  // nothing written past the text
        const std::vector<std::string> expected_trace =
            c.traced ? std::vector<std::string>{kBadStandard} : std::vector<std::string>{};
        EXPECT_EQ(cap.take(), expected_trace);
    }
}

TEST(StandardSet, BitsToText)
{
    const struct {
        int bits;
        const char *text;
    } cases[] = {
        {0, ""},
        {1, "11b"},
        {28, "11a/11n/11ac"},
        {63, "11b/11g/11a/11n/11ac/11ax"},
        {32, "11ax"},
        // Bits above 32 are never cleared: one bare separator per remaining round.
        {65, "11b/////"},
        {96, "11ax/////"},
        {64, ""},
        {-1, "11b/11g/11a/11n/11ac/11ax"},
        {INT_MIN | 2, "11g/////"},
    };
    for (const auto &c : cases) {
        // Fill the buffer with a long word first: the whole buffer is cleared.
        PARATRANS_Int_To_String(EnumSecurity, 11);
        const char *got = PARATRANS_Int_To_String(EnumStandard, c.bits);
        EXPECT_STREQ(got, c.text) << c.bits;
        EXPECT_EQ(got, result_buffer()) << c.bits;
    }
    const char *got = PARATRANS_Int_To_String(EnumStandard, 1);
    EXPECT_EQ(std::vector<char>(got + 3, got + 64), std::vector<char>(61, '\0'));
}

TEST(StandardSet, EverySetSurvivesTheRoundTrip)
{
    for (int bits = 0; bits <= 63; ++bits) {
        std::string text = PARATRANS_Int_To_String(EnumStandard, bits);
        EXPECT_EQ(PARATRANS_String_To_Int(EnumStandard, &text[0]), bits) << text;
    }
}

} // namespace
