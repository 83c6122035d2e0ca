// Enumeration words to numbers and back. The words are what travels on the
// bus. Every word of every list goes through both public lookups, driven by
// the library's own lists; the spellings and fallbacks that callers depend
// on are pinned by the spot values below and by the wire tests of each
// message. Kind 11 (a bit set) has its own tests below.
#include <algorithm>
#include <climits>
#include <string>

#include <gtest/gtest.h>

#include "blobxlate.h"
#include "enums/words.h"
#include "trace_capture.h"

namespace {

// The text is handed over in a writable copy, as the bus converters do.
int to_int(int kind, std::string text) { return PARATRANS_String_To_Int(kind, &text[0]); }

// The shared result buffer, found through a kind that always writes it.
const char *result_buffer() { return PARATRANS_Int_To_String(EnumNone16, 0); }

// The numbers of a list run without gaps from 0 or 1; any other text reads
// as -1 or as the number after the last word, except for these kinds.
int unknown_text_of(const bx::WordList &k)
{
    if (k.kind == EnumDeviceOs)
        return 6;  // 5 is skipped
    if (k.kind == EnumUpgradeMode)
        return 4;  // 2 and 3 are gone
    if (k.kind == EnumConnected)
        return 0;  // the number that goes out as "Unconnected"
    int last = -2;
    for (const bx::Word &w : k.in)
        last = std::max(last, w.number);
    return k.unknown_text == -1 ? -1 : last + 1;
}

void expect_gap_free(bx::Words words)
{
    int lo = INT_MAX, hi = INT_MIN;
    for (const bx::Word &w : words)
        lo = std::min(lo, w.number), hi = std::max(hi, w.number);
    if (words.count != 0) {
        EXPECT_TRUE(lo == 0 || lo == 1) << lo;
        EXPECT_EQ(static_cast<size_t>(hi - lo + 1), words.count);  // no number is listed twice
    }
}

// Whole-text, case-sensitive comparison, nothing trimmed; every other text
// and number gets the kind's own fallback; no trace.
TEST(Enums, EveryWordOfEveryListRoundTrips)
{
    bxtest::TraceCapture cap;
    for (const bx::WordList &k : bx::kWordLists) {
        if (k.kind == EnumStandard)
            continue;
        SCOPED_TRACE("kind " + std::to_string(k.kind));
        expect_gap_free(k.in);
        expect_gap_free(k.words_out);
        EXPECT_EQ(k.unknown_text, unknown_text_of(k));
        for (const bx::Word &w : k.in) {
            const std::string word = w.text;
            EXPECT_EQ(to_int(k.kind, word), w.number) << word;
            for (const std::string &other : {word + " ", word.substr(1), " " + word})
                EXPECT_EQ(to_int(k.kind, other), k.unknown_text) << other;
        }
        for (const char *unknown : {"", "bogus", "1", "ENABLE", "Green", "upgrade"})
            EXPECT_EQ(to_int(k.kind, unknown), k.unknown_text) << unknown;
        const bool words = k.out == bx::Out::Constant || k.out == bx::Out::Buffer;
        for (const bx::Word &w : k.words_out)
            EXPECT_STREQ(PARATRANS_Int_To_String(k.kind, w.number), w.text) << w.number;
        for (int other : {-1, 99, INT_MIN, INT_MAX}) {
            const char *buf = result_buffer();
            const char *got = PARATRANS_Int_To_String(k.kind, other);
            EXPECT_STREQ(got, words ? k.unknown_number : std::to_string(other).c_str()) << other;
            // Constant results survive the next call that writes the buffer.
            EXPECT_EQ(got == buf, k.out != bx::Out::Constant) << other;
        }
    }
    if (bxtest::trace_paths_private()) {
        EXPECT_TRUE(cap.take().empty());
    }
}

// Spellings and fallbacks callers depend on, odd ones included.
TEST(Enums, SpotValues)
{
    const struct {
        int kind;
        const char *text;
        int number;  // of the text
        int sent;
        const char *sent_as;
    } cases[] = {
        {EnumSwitch, "Enable", -1, 0, "disable"},
        {EnumWanMode, "REPEATER", 5, 6, "any"},
        {EnumProgress, "FAILED", 4, 0, "ERROR"},
        {EnumSecurity, "WPA2_MIXAESTKIP", 11, 12, "ERROR"},
        {EnumLevel, "HIGH", 3, 0, "ERROR"},
        {EnumLinkState, "down", 2, 0, "down"},
        {EnumBoolean, "False", -1, 2, "false"},
        {EnumBandwidth, "80M/80M", 7, 7, ""},  // understood, never sent
        {EnumDeviceOs, "PC", 4, 5, ""},        // no 5: unknown is 6
        {EnumMeshRole, "auto", 1, 2, "controller"},
        {EnumConnected, "Connected", 1, 0, "Unconnected"},
        {EnumIpv6AddrMode, "SLAAC", -1, 0, "AutoConfigured"},
        {EnumIpv6PrefixMode, "Static", 2, 0, "Static"},
        {EnumUpgradeState, "DOWNLOADING", -1, 3, "UPGRADE SUCCSESS"},  // sent only
        {EnumUpgradeState, "", -1, 0, "NOMAL-NotUpgrade"},
        {EnumLedColour, "orange", 2, 2, "2"},  // sent as a number
        {EnumUpgradeReport, "REBOOT", -1, 8, "DOWNLOAD SUCCSESS"},
        {EnumListAction, "delete", 2, 1, "modify"},
        {EnumNone16, "7", -1, 7, "7"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(std::to_string(c.kind) + " " + c.text);
        EXPECT_EQ(to_int(c.kind, c.text), c.number);
        EXPECT_STREQ(PARATRANS_Int_To_String(c.kind, c.sent), c.sent_as);
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
        {"11a/11n/11ac", 28, "11a/11n/"},
        {"11b/", 1, "11b/"},
        {"", 0, ""},
        {"11b/11b/11b/11b/11b/11b/11ax", 1, "11b/11b/11b/11b/11b/11b/11ax"},
        {"11b/11g/11a/11n/11ac/11ax/bad", 63, "11b/11g/11a/11n/11ac/11ax/bad"},
        {"11b/11x", -1, "11b/"},  // -1: refused (0) with a trace
        {"11b//11g", -1, "11b//11g"},
        {"11B", -1, ""},
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
