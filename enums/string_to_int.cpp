/* Word to number: what a JSON-to-struct converter stores for a word it took
 * off the bus. */
#include <cstddef>
#include <cstring>

#include "blobxlate.h"
#include "core/trace.h"
#include "enums/words.h"

namespace {

/* A radio's standards arrive as "/"-separated tokens; no more than six are
 * read, one per standard, and whatever follows the sixth is ignored. */
constexpr int kMaxStandardTokens = 6;

/* A token is taken into a 32-byte field, so only its first 31 characters
 * count. */
struct Token {
    char text[32];
};

Token take_token(const char *from, std::size_t length)
{
    Token t{};
    if (length > sizeof t.text - 1)
        length = sizeof t.text - 1;
    std::memcpy(t.text, from, length);
    return t;
}

/* ORs the bits of the tokens of text into *bits. False at the first token
 * that names no standard, an empty one (as between two "/") included.
 *
 * The last token is taken by overwriting its first character in the caller's
 * text with a terminating zero, so after the call the text has lost its last
 * token. The write is part of the call's contract (callers pass writable
 * text that they do not need intact afterwards). Out of line: its tokens'
 * buffers are no part of an ordinary word's lookup. */
[[gnu::noinline]] bool parse_standards(char *text, int *bits)
{
    char *rest = text;
    for (int round = 0; round < kMaxStandardTokens; ++round) {
        if (*rest == '\0')
            return true;
        Token token;
        if (char *slash = std::strchr(rest, '/')) {
            token = take_token(rest, static_cast<std::size_t>(slash - rest));
            rest = slash + 1;
        } else {
            token = take_token(rest, std::strlen(rest));
            *rest = '\0';
        }
        const bx::PooledWord *w = bx::find_text(bx::words_in(*bx::find_word_list(EnumStandard)), token.text);
        if (w == nullptr)
            return false;
        *bits |= w->number;
    }
    return true;
}

} // namespace

extern "C" BX_API int PARATRANS_String_To_Int(int iKind, char *pcText)
{
    BX_TRACE_CALL();
    const bx::PooledList *k = bx::find_word_list(iKind);
    if (k == nullptr)
        return -1;

    if (k->out == bx::Out::StandardSet) {
        int bits = 0;
        if (!parse_standards(pcText, &bits)) {
            BX_TRACE("[standard] is not valid.\n");
            return k->unknown_text; /* the bits gathered so far are dropped */
        }
        return bits;
    }

    const bx::PooledWord *w = bx::find_word(*k, pcText);
    return w != nullptr ? w->number : k->unknown_text;
}
