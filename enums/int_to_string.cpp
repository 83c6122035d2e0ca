/* Number to word: what a struct-to-JSON converter puts on the bus for a
 * record's enumeration number. */
#include <cstddef>
#include <cstdio>
#include <cstring>

#include "blobxlate.h"
#include "core/trace.h"
#include "enums/words.h"

namespace {

/* The one result buffer shared by all calls. Converters hand the text straight
 * to blobmsg_add_string, which copies it, so one buffer is enough; the price
 * is that the function is not reentrant. Results hold at most 63 characters. */
char s_szParaTransBuf[64];

const char *to_buffer(const char *text)
{
    std::snprintf(s_szParaTransBuf, sizeof s_szParaTransBuf, "%s", text);
    return s_szParaTransBuf;
}

const char *decimal(int value)
{
    std::snprintf(s_szParaTransBuf, sizeof s_szParaTransBuf, "%d", value);
    return s_szParaTransBuf;
}

/* Appends at most what keeps the buffer at 63 characters. */
std::size_t append(std::size_t length, const char *text)
{
    const std::size_t room = sizeof s_szParaTransBuf - 1 - length;
    std::size_t n = std::strlen(text);
    if (n > room)
        n = room;
    std::memcpy(s_szParaTransBuf + length, text, n);
    return length + n;
}

/* A radio's standards as "11b/11g/11n", lowest bit first, in six rounds of
 * one separator and one word each. Bits above 32 are never cleared, so such a
 * value runs all six rounds and adds a bare separator in each round that
 * finds no word (65 gives "11b/////"). A separator is not added after a
 * closing "+"; no word ends in one, so in practice every round after the
 * first starts with "/". */
const char *standards(int value)
{
    std::memset(s_szParaTransBuf, 0, sizeof s_szParaTransBuf);
    std::size_t length = 0;
    unsigned bits = static_cast<unsigned>(value);
    for (int round = 0; round < 6; ++round) {
        if (length >= 1 && length <= 62 && s_szParaTransBuf[length - 1] != '+')
            length = append(length, "/");
        for (const bx::PooledWord &w : bx::words_out(*bx::find_word_list(EnumStandard))) {
            const unsigned bit = static_cast<unsigned>(w.number);
            if ((bits & bit) != 0) {
                bits &= ~bit;
                length = append(length, bx::text_of(w));
                break;
            }
        }
        if (bits == 0)
            break;
    }
    return s_szParaTransBuf;
}

} // namespace

extern "C" BX_API const char *PARATRANS_Int_To_String(int iKind, int iValue)
{
    BX_TRACE_CALL();
    /* An unknown kind still yields something printable: the number itself. */
    const bx::PooledList *k = bx::find_word_list(iKind);
    if (k == nullptr)
        return decimal(iValue);

    switch (k->out) {
    case bx::Out::Decimal:
        return decimal(iValue);
    case bx::Out::StandardSet:
        return standards(iValue);
    case bx::Out::Buffer:
    case bx::Out::Constant:
        break;
    }

    const bx::PooledWord *w = bx::find_number(bx::words_out(*k), iValue);
    const char *text = w != nullptr ? bx::text_of(*w) : bx::unknown_number(*k);
    return k->out == bx::Out::Buffer ? to_buffer(text) : text;
}
