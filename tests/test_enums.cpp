// Enumeration words to numbers and back: the words are what travels on the
// bus, so each kind's list is written out here once; the message tables
// elsewhere rely on it. Kind 11 (a bit set) has its own tests below.
#include <climits>
#include <map>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "blobxlate.h"
#include "trace_capture.h"

namespace {

// The text is handed over in a writable copy, as the bus converters do.
int to_int(int kind, std::string text) { return PARATRANS_String_To_Int(kind, &text[0]); }

// The shared result buffer, found through a kind that always writes it.
const char *result_buffer() { return PARATRANS_Int_To_String(EnumNone16, 0); }

// "a=1|b=2" as number -> word.
std::map<int, std::string> pairs(const char *text, bool word_first)
{
    std::map<int, std::string> out;
    std::stringstream in(text);
    std::string item;
    while (std::getline(in, item, '|')) {
        size_t eq = word_first ? item.rfind('=') : item.find('=');
        std::string left = item.substr(0, eq), right = item.substr(eq + 1);
        if (word_first)
            out[std::stoi(right)] = left;
        else
            out[std::stoi(left)] = right;
    }
    return out;
}

struct Kind {
    int kind;
    const char *words;   // word=number, both ways
    int unknown;         // the number of any other text
    const char *other;   // the text of any other number; null: every number in decimal
    bool buffer;         // words go out through the shared buffer
    const char *sent;    // number=text sent other than the received word
};

const Kind kKinds[] = {
    {0, "enable=1|disable=0", -1, "", false, ""},
    {1, "WAN=1|LAN=2|2.4G=3|5G=4", 5, "", true, ""},
    {2, "DHCP=1|PPPOE=2|STATIC=3|BRIDGE=4|REPEATER=5", 6, "any", true, ""},
    {3, "NO=1|DOING=2|SUCCESS=3|FAILED=4", 5, "ERROR", true, ""},
    {4, "NONE=0|WEP40=1|WEP104=2|WPA_AES=3|WPA_TKIP=4|WPA2_AES=5|WPA2_TKIP=6|MIXWPA_AES=7|MIXWPA_TKIP=8|"
        "MIXWPA_MIX=9|WPA_MIXAESTKIP=10|WPA2_MIXAESTKIP=11", 12, "ERROR", true, ""},
    {5, "LOW=1|MIDDLE=2|HIGH=3", 4, "ERROR", true, ""},
    {6, "up=1", 2, "down", true, ""},
    {7, "true=1|false=0", -1, "false", true, ""},
    {8, "2.4G=0|5G=1", 2, "", false, ""},
    {9, "100%=0|75%=1|50%=2|25%=3", 4, "", false, ""},
    {10, "auto=0|20M=1|40M=2|80M=3|160M=4|20M/40M=5|20M/40M/80M=6|80M/80M=7", 8, "", false, "7="},
    {12, "2.4G=0|5G=1|ETH=2", 3, "", true, ""},
    {13, "IOS=1|IPAD=2|ANDROID=3|PC=4", 6, "", true, "5="},
    {14, "FULL=1|DUPLICATE=2|AUTO=3", 4, "", true, ""},
    {15, "WHITE=1|BLACK=2", 3, "", true, ""},
    {16, "", -1, nullptr, false, ""},
    {17, "MODIFY=0|ADD=1|DELETE=2", 3, "", true, ""},
    {18, "CTCC=0|CMCC=1|CUCC=2|GD=3|NOT=4", 5, "", true, ""},
    {19, "DEF=0|SC=1|ZJ=2|HN=3|GX=4|SH=5|BJ=6|TJ=7|JS=8|GD=9|GS=10|JL=11|HB=12|HUB=13|HUN=14|AH=15|HAIN=16|"
         "CQ=17|XZ=18|NX=19|XJ=20|NMG=21|HLJ=22|LN=23|FJ=24|SD=25|YN=26|GZ=27|XA=28|SX=29|QH=30|JX=31|TW=32|"
         "AM=33|XG=34", 35, "", true, "35="},
    {20, "UPLINK=0|USER=1", 2, "", true, ""},
    {21, "disable=0|controller=2|agent=3|auto=1", 4, "", false, ""},
    {22, "manual=0|online=1", 4, "", false, ""},
    {23, "open=0|share=1|wpa=2|wpa2=3|wpapsk=4|wpa2psk=5|wpawpa2psk=6|wep=7|wpa3=8|wpa3psk=9|wpa2wpa3psk=10", 11,
     "", false, ""},
    {24, "none=0|wep64=1|tkip=2|aes=3|aestkip=4|wep128=5", 6, "", false, ""},
    {25, "eth=0|2p4g=1|5g=2", 3, "", false, ""},
    {26, "disable=0|isolate=1|design=2", -1, "", false, ""},
    {27, "none=0|tcp=1|udp=2|icmp=3", 4, "", false, ""},
    {28, "now=0|delay=1", -1, "", false, ""},
    {29, "Connected=1", 0, "Unconnected", false, "0=Unconnected"},
    {30, "AutoConfigured=1|DHCPv6=2|Static=3", -1, "AutoConfigured", false, "0=AutoConfigured"},
    {31, "PrefixDelegation=1|Static=2", -1, "Static", false, ""},
    {32, "Ignore=0|LanIp=1|NameError=2", -1, "", false, ""},
    {33, "Black=0|White=1", -1, "", false, ""},
    {34, "continuous=0|instant=1", -1, "", false, ""},
    {35, "", -1, "", false,
     "0=NOMAL-NotUpgrade|1=DOWNLOADING|2=FLASHING|3=UPGRADE SUCCSESS|4=DOWNLOAD ERR|5=VERSION ERR|"
     "6=FLASHING ERR|7=START REBOOT|8=DOWNLOAD SUCCSESS|9=START DOWNLOADING"},
    {36, "green=1|orange=2|greenfast=3|orangefast=4", -1, nullptr, false, ""},
    {37, "", -1, "", false,
     "0=UPGRADE NORMAL|1=UPGRADE DOWNLOADING|2=UPGRADE FLASHING|3=UPGRADE SUCCSESS|4=DOWNLOAD ERR|"
     "5=VERSION ERR|6=FLASHING ERR|7=REBOOT|8=DOWNLOAD SUCCSESS|9=DOWNLOAD TRUE|10=UPGRADE ERR"},
    {38, "add=0|delete=2|modify=1", -1, "", false, ""},
};

// Whole-text, case-sensitive comparison, nothing trimmed; no trace.
TEST(Enums, EveryWordOfEveryKindBothWays)
{
    bxtest::TraceCapture cap;
    for (const Kind &k : kKinds) {
        SCOPED_TRACE("kind " + std::to_string(k.kind));
        std::map<int, std::string> expected;
        for (const auto &[number, word] : pairs(k.words, true)) {
            EXPECT_EQ(to_int(k.kind, word), number) << word;
            EXPECT_EQ(to_int(k.kind, word + " "), k.unknown) << word;
            EXPECT_EQ(to_int(k.kind, word.substr(1)), k.unknown) << word;
            expected[number] = k.other != nullptr ? word : std::to_string(number);
        }
        for (const char *unknown : {"", "bogus", "1", "ENABLE", "Green", "upgrade"})
            EXPECT_EQ(to_int(k.kind, unknown), k.unknown) << unknown;
        for (int other : {-1, 99, INT_MIN, INT_MAX})
            expected[other] = k.other != nullptr ? k.other : std::to_string(other);
        for (const auto &[number, text] : pairs(k.sent, false))
            expected[number] = text;
        for (const auto &[number, text] : expected) {
            const char *buf = result_buffer();
            const char *got = PARATRANS_Int_To_String(k.kind, number);
            ASSERT_NE(got, nullptr) << number;
            EXPECT_EQ(got, text) << number;
            // Constant results survive the next call that writes the buffer.
            if (k.other != nullptr) {
                EXPECT_EQ(got == buf, k.buffer) << number;
            }
        }
    }
    if (bxtest::trace_paths_private()) {
        EXPECT_TRUE(cap.take().empty());
    }
}

TEST(Enums, UnknownKindsAndTheSharedBuffer)
{
    for (int kind : {39, 40, -1, INT_MIN, INT_MAX}) {
        EXPECT_EQ(to_int(kind, "enable"), -1);
        EXPECT_EQ(to_int(kind, ""), -1);
        EXPECT_STREQ(PARATRANS_Int_To_String(kind, -5), "-5");
    }
    EXPECT_STREQ(PARATRANS_Int_To_String(INT_MAX, INT_MIN), "-2147483648");
    const char *first = PARATRANS_Int_To_String(EnumWanMode, 1);
    EXPECT_EQ(first, PARATRANS_Int_To_String(EnumProgress, 4));
    EXPECT_STREQ(first, "FAILED");
    // A shorter word leaves nothing of the longer one behind.
    PARATRANS_Int_To_String(EnumSecurity, 11);
    EXPECT_STREQ(PARATRANS_Int_To_String(EnumLinkState, 1), "up");
}

// The bit set: six tokens at most, the last one cut off the caller's text.
TEST(Enums, StandardTextToBits)
{
    const std::string long_token(100, 'n');
    const struct {
        std::string text;
        int bits;
        std::string text_after;
    } cases[] = {
        {"11b", 1, ""},
        {"11a/11n/11ac", 28, "11a/11n/"},
        {"11ax/11ax", 32, "11ax/"},
        {"11n/11ac/11ax/11b/11g/11a", 63, "11n/11ac/11ax/11b/11g/"},
        {"11b/", 1, "11b/"},
        {"", 0, ""},
        {"11b/11b/11b/11b/11b/11b/11ax", 1, "11b/11b/11b/11b/11b/11b/11ax"},
        {"11b/11g/11a/11n/11ac/11ax/bad", 63, "11b/11g/11a/11n/11ac/11ax/bad"},
        {"11b/11x", -1, "11b/"},  // -1: refused (0) with a trace
        {"11b//11g", -1, "11b//11g"},
        {"/11b", -1, "/11b"},
        {"11B", -1, ""},
        {"11b /11g", -1, "11b /11g"},
        {"11g/" + long_token, -1, "11g/"},
        {long_token + "/11g", -1, long_token + "/11g"},
    };
    bxtest::TraceCapture cap;
    for (const auto &c : cases) {
        SCOPED_TRACE('"' + c.text + '"');
        std::string text = c.text;
        EXPECT_EQ(PARATRANS_String_To_Int(EnumStandard, &text[0]), c.bits < 0 ? 0 : c.bits);
        EXPECT_STREQ(text.c_str(), c.text_after.c_str());
        EXPECT_EQ(text.size(), c.text.size());
        if (bxtest::trace_paths_private()) {
            EXPECT_EQ(cap.take_texts(), std::vector<std::string>(c.bits < 0 ? 1 : 0,
                                                                 "[standard] is not valid.\n"));
        }
    }
}

TEST(Enums, StandardBitsToText)
{
    for (int bits = 0; bits <= 63; ++bits) {
        std::string text = PARATRANS_Int_To_String(EnumStandard, bits);
        EXPECT_EQ(PARATRANS_String_To_Int(EnumStandard, &text[0]), bits) << text;
    }
    const struct {
        int bits;
        const char *text;
    } cases[] = {
        {63, "11b/11g/11a/11n/11ac/11ax"}, {28, "11a/11n/11ac"}, {64, ""},
        // Bits above 32 are never cleared: one bare separator per remaining round.
        {65, "11b/////"}, {96, "11ax/////"}, {-1, "11b/11g/11a/11n/11ac/11ax"}, {INT_MIN | 2, "11g/////"},
    };
    for (const auto &c : cases) {
        PARATRANS_Int_To_String(EnumSecurity, 11);  // the whole buffer is cleared first
        const char *got = PARATRANS_Int_To_String(EnumStandard, c.bits);
        EXPECT_STREQ(got, c.text) << c.bits;
        EXPECT_EQ(got, result_buffer()) << c.bits;
    }
}

} // namespace
