#include "kinds.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

#include "blobxlate.h"

namespace bxtool {

namespace {

struct KindName {
    int kind;
    const char *name;
};

// Each enumerator of EnumKind spelled as in the header: the compiler checks
// that every name is the enumerator of its position.
#define BX_KIND(name) KindName{name, #name}
constexpr KindName kKinds[] = {
    BX_KIND(EnumSwitch),        BX_KIND(EnumPortType),     BX_KIND(EnumWanMode),       BX_KIND(EnumProgress),
    BX_KIND(EnumSecurity),      BX_KIND(EnumLevel),        BX_KIND(EnumLinkState),     BX_KIND(EnumBoolean),
    BX_KIND(EnumBand),          BX_KIND(EnumTxPower),      BX_KIND(EnumBandwidth),     BX_KIND(EnumStandard),
    BX_KIND(EnumAccessMedium),  BX_KIND(EnumDeviceOs),     BX_KIND(EnumDuplex),        BX_KIND(EnumListMode),
    BX_KIND(EnumNone16),        BX_KIND(EnumEditAction),   BX_KIND(EnumCarrier),       BX_KIND(EnumProvince),
    BX_KIND(EnumPortRole),      BX_KIND(EnumMeshRole),     BX_KIND(EnumUpgradeMode),   BX_KIND(EnumAuthMode),
    BX_KIND(EnumCipher),        BX_KIND(EnumUplinkMedium), BX_KIND(EnumIsolation),     BX_KIND(EnumProtocol),
    BX_KIND(EnumTiming),        BX_KIND(EnumConnected),    BX_KIND(EnumIpv6AddrMode),  BX_KIND(EnumIpv6PrefixMode),
    BX_KIND(EnumDnsReply),      BX_KIND(EnumFilterMode),   BX_KIND(EnumRunMode),       BX_KIND(EnumUpgradeState),
    BX_KIND(EnumLedColour),     BX_KIND(EnumUpgradeReport), BX_KIND(EnumListAction),
};
#undef BX_KIND

constexpr bool in_order()
{
    for (int i = 0; i < static_cast<int>(std::size(kKinds)); ++i)
        if (kKinds[i].kind != i)
            return false;
    return std::size(kKinds) == ENUM_KIND_COUNT;
}
static_assert(in_order(), "one name per EnumKind, in the header's order");

// A number the kinds have no word for: what comes back is the fallback.
constexpr int kNoSuchNumber = 100000;

std::string lower(std::string s)
{
    std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return s;
}

} // namespace

const char *kind_name(int kind) { return kind >= 0 && kind < ENUM_KIND_COUNT ? kKinds[kind].name : nullptr; }

std::optional<int> find_kind(const std::string &text)
{
    const std::string wanted = lower(text);
    char *end = nullptr;
    const long number = std::strtol(text.c_str(), &end, 10);
    if (!text.empty() && *end == 0)
        return number >= 0 && number < ENUM_KIND_COUNT ? std::optional<int>(static_cast<int>(number)) : std::nullopt;
    for (const KindName &k : kKinds)
        if (lower(k.name) == wanted || lower(k.name + 4) == wanted)  // with or without "Enum"
            return k.kind;
    return std::nullopt;
}

bool sends_decimal(int kind)
{
    return std::string(PARATRANS_Int_To_String(kind, kNoSuchNumber)) == std::to_string(kNoSuchNumber);
}

std::string fallback_word(int kind) { return PARATRANS_Int_To_String(kind, kNoSuchNumber); }

std::vector<KindWord> sent_words(int kind)
{
    std::vector<KindWord> words;
    if (sends_decimal(kind))
        return words;
    const std::string fallback = fallback_word(kind);
    /* The wireless standards are a bit set: one word a bit. */
    const bool bits = kind == EnumStandard;
    for (int n = bits ? 1 : 0; n < 64; n = bits ? n * 2 : n + 1) {
        std::string word = PARATRANS_Int_To_String(kind, n);
        std::string text = word;  // the lookup may cut its text in place
        const int reads_as = PARATRANS_String_To_Int(kind, text.data());
        /* The fallback is a word of its own only for the number it reads
         * back as ("false" for 0). */
        if (!word.empty() && (word != fallback || reads_as == n))
            words.push_back({word, n, reads_as});
    }
    return words;
}

} // namespace bxtool
