// The enumeration kinds as the program shows them: each kind's name in the
// public header and the words the library translates for it.
#ifndef BLOBXLATE_TOOLS_KINDS_H
#define BLOBXLATE_TOOLS_KINDS_H

#include <optional>
#include <string>
#include <vector>

namespace bxtool {

// The kind's name in the header (EnumWanMode), or null outside 0..38.
const char *kind_name(int kind);

// The kind `text` names: its number, or its name in any case, with or
// without "Enum" in front.
std::optional<int> find_kind(const std::string &text);

// True when the kind sends every number as decimal text.
bool sends_decimal(int kind);

// The text the kind sends for a number without a word of its own.
std::string fallback_word(int kind);

struct KindWord {
    std::string word;
    int sent_for;  // the number it is sent for
    int reads_as;  // the number PARATRANS_String_To_Int makes of it
};

// The words the kind sends for 0..63 (each bit, for the wireless
// standards), with what each reads back as; numbers that go out as the
// kind's fallback text are left out, but for the one it reads back as.
std::vector<KindWord> sent_words(int kind);

} // namespace bxtool

#endif
