/*
 * The enumeration vocabulary: the words that travel on the bus for the
 * numbers held in the records, one word list per EnumKind.
 *
 * The daemons on both ends of the bus were written against these exact
 * words, numbers and fallbacks, odd spellings and gaps included, so nothing
 * here may be tidied up: every kind keeps its own numbering and its own answer
 * for a word or number that it does not know.
 *
 * Most kinds use one word list in both directions. Where the directions
 * disagree the row says so: kind 10 sends no word for 7, kinds 16 and 36 send
 * plain decimal numbers, kinds 35 and 37 (upgrade states) are only ever sent.
 */
#ifndef BLOBXLATE_ENUMS_WORDS_H
#define BLOBXLATE_ENUMS_WORDS_H

#include <cstddef>
#include <cstdint>

#include "blobxlate.h"

namespace bx {

struct Word {
    const char *text;
    int number;
};

/* A view of a constant word list. */
struct Words {
    const Word *first;
    std::size_t count;

    constexpr const Word *begin() const { return first; }
    constexpr const Word *end() const { return first + count; }
};

template <std::size_t N>
constexpr Words all(const Word (&list)[N]) { return Words{list, N}; }

template <std::size_t N>
constexpr Words first(std::size_t count, const Word (&list)[N]) { return Words{list, count <= N ? count : N}; }

constexpr Words kNoWords{nullptr, 0};

/* How a number goes out as text. */
enum class Out {
    Constant,  /* pointer to the constant word */
    Buffer,    /* word copied into the shared result buffer */
    Decimal,   /* "%d" of the number, in the shared result buffer */
    StandardSet, /* bit set of wireless standards, "11b/11g/...", in the buffer */
};

/* ---- Word lists, in the order in which incoming text is tested ---------- */

inline constexpr Word kSwitch[]       = {{"enable", 1}, {"disable", 0}};
inline constexpr Word kPortType[]     = {{"WAN", 1}, {"LAN", 2}, {"2.4G", 3}, {"5G", 4}};
inline constexpr Word kWanMode[]      = {{"DHCP", 1}, {"PPPOE", 2}, {"STATIC", 3}, {"BRIDGE", 4}, {"REPEATER", 5}};
inline constexpr Word kProgress[]     = {{"NO", 1}, {"DOING", 2}, {"SUCCESS", 3}, {"FAILED", 4}};
inline constexpr Word kSecurity[]     = {{"NONE", 0}, {"WEP40", 1}, {"WEP104", 2}, {"WPA_AES", 3}, {"WPA_TKIP", 4},
                                         {"WPA2_AES", 5}, {"WPA2_TKIP", 6}, {"MIXWPA_AES", 7}, {"MIXWPA_TKIP", 8},
                                         {"MIXWPA_MIX", 9}, {"WPA_MIXAESTKIP", 10}, {"WPA2_MIXAESTKIP", 11}};
inline constexpr Word kLevel[]        = {{"LOW", 1}, {"MIDDLE", 2}, {"HIGH", 3}};
inline constexpr Word kLinkState[]    = {{"up", 1}};
inline constexpr Word kBoolean[]      = {{"true", 1}, {"false", 0}};
inline constexpr Word kBand[]         = {{"2.4G", 0}, {"5G", 1}};
inline constexpr Word kTxPower[]      = {{"100%", 0}, {"75%", 1}, {"50%", 2}, {"25%", 3}};
/* "80M/80M" is understood but never sent: senders have no word for 7. */
inline constexpr Word kBandwidth[]    = {{"auto", 0}, {"20M", 1}, {"40M", 2}, {"80M", 3}, {"160M", 4},
                                         {"20M/40M", 5}, {"20M/40M/80M", 6}, {"80M/80M", 7}};
/* One bit per standard; a radio's set travels as "11b/11g/11n". The order is
 * also the order in which a set is written out, lowest bit first. */
inline constexpr Word kStandard[]     = {{"11b", 1}, {"11g", 2}, {"11a", 4}, {"11n", 8}, {"11ac", 16}, {"11ax", 32}};
inline constexpr Word kAccessMedium[] = {{"2.4G", 0}, {"5G", 1}, {"ETH", 2}};
/* There is no 5: an unknown device type is 6. */
inline constexpr Word kDeviceOs[]     = {{"IOS", 1}, {"IPAD", 2}, {"ANDROID", 3}, {"PC", 4}};
inline constexpr Word kDuplex[]       = {{"FULL", 1}, {"DUPLICATE", 2}, {"AUTO", 3}};
inline constexpr Word kListMode[]     = {{"WHITE", 1}, {"BLACK", 2}};
inline constexpr Word kEditAction[]   = {{"MODIFY", 0}, {"ADD", 1}, {"DELETE", 2}};
inline constexpr Word kCarrier[]      = {{"CTCC", 0}, {"CMCC", 1}, {"CUCC", 2}, {"GD", 3}, {"NOT", 4}};
inline constexpr Word kProvince[]     = {{"DEF", 0}, {"SC", 1}, {"ZJ", 2}, {"HN", 3}, {"GX", 4}, {"SH", 5}, {"BJ", 6},
                                         {"TJ", 7}, {"JS", 8}, {"GD", 9}, {"GS", 10}, {"JL", 11}, {"HB", 12},
                                         {"HUB", 13}, {"HUN", 14}, {"AH", 15}, {"HAIN", 16}, {"CQ", 17}, {"XZ", 18},
                                         {"NX", 19}, {"XJ", 20}, {"NMG", 21}, {"HLJ", 22}, {"LN", 23}, {"FJ", 24},
                                         {"SD", 25}, {"YN", 26}, {"GZ", 27}, {"XA", 28}, {"SX", 29}, {"QH", 30},
                                         {"JX", 31}, {"TW", 32}, {"AM", 33}, {"XG", 34}};
inline constexpr Word kPortRole[]     = {{"UPLINK", 0}, {"USER", 1}};
/* "auto" was added after the others and kept its number 1. */
inline constexpr Word kMeshRole[]     = {{"disable", 0}, {"controller", 2}, {"agent", 3}, {"auto", 1}};
/* 2 and 3 are gone: an unknown mode is 4. */
inline constexpr Word kUpgradeMode[]  = {{"manual", 0}, {"online", 1}};
inline constexpr Word kAuthMode[]     = {{"open", 0}, {"share", 1}, {"wpa", 2}, {"wpa2", 3}, {"wpapsk", 4},
                                         {"wpa2psk", 5}, {"wpawpa2psk", 6}, {"wep", 7}, {"wpa3", 8}, {"wpa3psk", 9},
                                         {"wpa2wpa3psk", 10}};
inline constexpr Word kCipher[]       = {{"none", 0}, {"wep64", 1}, {"tkip", 2}, {"aes", 3}, {"aestkip", 4}, {"wep128", 5}};
inline constexpr Word kUplinkMedium[] = {{"eth", 0}, {"2p4g", 1}, {"5g", 2}};
inline constexpr Word kIsolation[]    = {{"disable", 0}, {"isolate", 1}, {"design", 2}};
inline constexpr Word kProtocol[]     = {{"none", 0}, {"tcp", 1}, {"udp", 2}, {"icmp", 3}};
inline constexpr Word kTiming[]       = {{"now", 0}, {"delay", 1}};
inline constexpr Word kConnected[]    = {{"Connected", 1}};
inline constexpr Word kIpv6AddrMode[] = {{"AutoConfigured", 1}, {"DHCPv6", 2}, {"Static", 3}};
inline constexpr Word kIpv6PrefixMode[] = {{"PrefixDelegation", 1}, {"Static", 2}};
inline constexpr Word kDnsReply[]     = {{"Ignore", 0}, {"LanIp", 1}, {"NameError", 2}};
inline constexpr Word kFilterMode[]   = {{"Black", 0}, {"White", 1}};
inline constexpr Word kRunMode[]      = {{"continuous", 0}, {"instant", 1}};
inline constexpr Word kUpgradeState[] = {{"NOMAL-NotUpgrade", 0}, {"DOWNLOADING", 1}, {"FLASHING", 2},
                                         {"UPGRADE SUCCSESS", 3}, {"DOWNLOAD ERR", 4}, {"VERSION ERR", 5},
                                         {"FLASHING ERR", 6}, {"START REBOOT", 7}, {"DOWNLOAD SUCCSESS", 8},
                                         {"START DOWNLOADING", 9}};
inline constexpr Word kLedColour[]    = {{"green", 1}, {"orange", 2}, {"greenfast", 3}, {"orangefast", 4}};
inline constexpr Word kUpgradeReport[] = {{"UPGRADE NORMAL", 0}, {"UPGRADE DOWNLOADING", 1}, {"UPGRADE FLASHING", 2},
                                          {"UPGRADE SUCCSESS", 3}, {"DOWNLOAD ERR", 4}, {"VERSION ERR", 5},
                                          {"FLASHING ERR", 6}, {"REBOOT", 7}, {"DOWNLOAD SUCCSESS", 8},
                                          {"DOWNLOAD TRUE", 9}, {"UPGRADE ERR", 10}};
/* "delete" is tested before "modify" but keeps the higher number. */
inline constexpr Word kListAction[]   = {{"add", 0}, {"delete", 2}, {"modify", 1}};

/* ---- One row per kind ---------------------------------------------------- */

struct WordList {
    EnumKind kind;          /* equals the row's index */
    Words in;               /* text to number, tested in this order */
    int unknown_text;       /* number for any other text */
    Out out;                /* how a number goes out */
    Words words_out;        /* number to text (Constant and Buffer) */
    const char *unknown_number; /* text for any other number (Constant and Buffer) */
};

/* For kind 11 unknown_text is the result of a set with an invalid token. */
inline constexpr WordList kWordLists[ENUM_KIND_COUNT] = {
    {EnumSwitch,         all(kSwitch),         -1, Out::Constant,    all(kSwitch),         ""},
    {EnumPortType,       all(kPortType),        5, Out::Buffer,      all(kPortType),       ""},
    {EnumWanMode,        all(kWanMode),         6, Out::Buffer,      all(kWanMode),        "any"},
    {EnumProgress,       all(kProgress),        5, Out::Buffer,      all(kProgress),       "ERROR"},
    {EnumSecurity,       all(kSecurity),       12, Out::Buffer,      all(kSecurity),       "ERROR"},
    {EnumLevel,          all(kLevel),           4, Out::Buffer,      all(kLevel),          "ERROR"},
    {EnumLinkState,      all(kLinkState),       2, Out::Buffer,      all(kLinkState),      "down"},
    {EnumBoolean,        all(kBoolean),        -1, Out::Buffer,      all(kBoolean),        "false"},
    {EnumBand,           all(kBand),            2, Out::Constant,    all(kBand),           ""},
    {EnumTxPower,        all(kTxPower),         4, Out::Constant,    all(kTxPower),        ""},
    {EnumBandwidth,      all(kBandwidth),       8, Out::Constant,    first(7, kBandwidth), ""},
    {EnumStandard,       all(kStandard),        0, Out::StandardSet, all(kStandard),       nullptr},
    {EnumAccessMedium,   all(kAccessMedium),    3, Out::Buffer,      all(kAccessMedium),   ""},
    {EnumDeviceOs,       all(kDeviceOs),        6, Out::Buffer,      all(kDeviceOs),       ""},
    {EnumDuplex,         all(kDuplex),          4, Out::Buffer,      all(kDuplex),         ""},
    {EnumListMode,       all(kListMode),        3, Out::Buffer,      all(kListMode),       ""},
    {EnumNone16,         kNoWords,             -1, Out::Decimal,     kNoWords,             nullptr},
    {EnumEditAction,     all(kEditAction),      3, Out::Buffer,      all(kEditAction),     ""},
    {EnumCarrier,        all(kCarrier),         5, Out::Buffer,      all(kCarrier),        ""},
    {EnumProvince,       all(kProvince),       35, Out::Buffer,      all(kProvince),       ""},
    {EnumPortRole,       all(kPortRole),        2, Out::Buffer,      all(kPortRole),       ""},
    {EnumMeshRole,       all(kMeshRole),        4, Out::Constant,    all(kMeshRole),       ""},
    {EnumUpgradeMode,    all(kUpgradeMode),     4, Out::Constant,    all(kUpgradeMode),    ""},
    {EnumAuthMode,       all(kAuthMode),       11, Out::Constant,    all(kAuthMode),       ""},
    {EnumCipher,         all(kCipher),          6, Out::Constant,    all(kCipher),         ""},
    {EnumUplinkMedium,   all(kUplinkMedium),    3, Out::Constant,    all(kUplinkMedium),   ""},
    {EnumIsolation,      all(kIsolation),      -1, Out::Constant,    all(kIsolation),      ""},
    {EnumProtocol,       all(kProtocol),        4, Out::Constant,    all(kProtocol),       ""},
    {EnumTiming,         all(kTiming),         -1, Out::Constant,    all(kTiming),         ""},
    {EnumConnected,      all(kConnected),       0, Out::Constant,    all(kConnected),      "Unconnected"},
    {EnumIpv6AddrMode,   all(kIpv6AddrMode),   -1, Out::Constant,    all(kIpv6AddrMode),   "AutoConfigured"},
    {EnumIpv6PrefixMode, all(kIpv6PrefixMode), -1, Out::Constant,    all(kIpv6PrefixMode), "Static"},
    {EnumDnsReply,       all(kDnsReply),       -1, Out::Constant,    all(kDnsReply),       ""},
    {EnumFilterMode,     all(kFilterMode),     -1, Out::Constant,    all(kFilterMode),     ""},
    {EnumRunMode,        all(kRunMode),        -1, Out::Constant,    all(kRunMode),        ""},
    {EnumUpgradeState,   kNoWords,             -1, Out::Constant,    all(kUpgradeState),   ""},
    {EnumLedColour,      all(kLedColour),      -1, Out::Decimal,     kNoWords,             nullptr},
    {EnumUpgradeReport,  kNoWords,             -1, Out::Constant,    all(kUpgradeReport),  ""},
    {EnumListAction,     all(kListAction),     -1, Out::Constant,    all(kListAction),     ""},
};

/* ---- The vocabulary as the library keeps it ------------------------------ */

/* The lists above are the source only: a pointer per word would be
 * relocated by the loader into a private copy in every process. The library
 * keeps every text in one pool and each word as an offset into it, built
 * from the lists at compile time (enums/words.cpp). */
struct PooledWord {
    uint16_t text;  /* offset of the text in the pool */
    int16_t number;
};

/* A view of pooled words. */
struct PooledWords {
    const PooledWord *first;
    std::size_t count;

    const PooledWord *begin() const { return first; }
    const PooledWord *end() const { return first + count; }
};

/* One kind's row: its words by position in the pool's word array. */
struct PooledList {
    uint16_t in_first, in_count;    /* text to number, tested in this order */
    uint16_t out_first, out_count;  /* number to text */
    uint16_t unknown_number;        /* offset of the text for any other number, or kNoText */
    int16_t unknown_text;           /* number for any other text */
    Out out;                        /* how a number goes out */
};

constexpr uint16_t kNoText = 0xFFFFu;

/* The row of a kind, or null for a kind outside 0..38 (a negative kind too:
 * the bus hands kinds over as plain ints). */
const PooledList *find_word_list(int kind);

PooledWords words_in(const PooledList &k);
PooledWords words_out(const PooledList &k);

/* A word's text, and a kind's text for a number it has no word for (null
 * when the kind sends no words). */
const char *text_of(const PooledWord &w);
const char *unknown_number(const PooledList &k);

/* Exact, case-sensitive match of the whole text; null when no word matches. */
const PooledWord *find_text(PooledWords words, const char *text);

/* find_text(words_in(k), text), in one call. */
const PooledWord *find_word(const PooledList &k, const char *text);

/* The first word with this number; null when there is none. */
const PooledWord *find_number(PooledWords words, int number);

} // namespace bx

#endif
