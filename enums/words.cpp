#include "enums/words.h"

#include <cstring>

namespace bx {

namespace {

/* Every row sits at the index of its kind, so a kind number indexes the
 * vocabulary directly. */
constexpr bool rows_in_kind_order()
{
    for (int i = 0; i < ENUM_KIND_COUNT; ++i)
        if (kWordLists[i].kind != i)
            return false;
    return true;
}
static_assert(rows_in_kind_order(), "kWordLists rows must follow the EnumKind numbering");

/* A number that went out as two different words could not be looked up by
 * number, and a word listed twice would hide its second number. */
constexpr bool same_text(const char *a, const char *b)
{
    while (*a != '\0' && *a == *b) {
        ++a;
        ++b;
    }
    return *a == *b;
}

constexpr bool unambiguous(Words words)
{
    for (const Word *a = words.begin(); a != words.end(); ++a)
        for (const Word *b = a + 1; b != words.end(); ++b)
            if (a->number == b->number || same_text(a->text, b->text))
                return false;
    return true;
}

constexpr bool all_lists_unambiguous()
{
    for (const WordList &k : kWordLists)
        if (!unambiguous(k.in) || !unambiguous(k.words_out))
            return false;
    return true;
}
static_assert(all_lists_unambiguous(), "a word list repeats a word or a number");

/* Kinds that send words must say what to send for a number without one. */
constexpr bool fallbacks_present()
{
    for (const WordList &k : kWordLists)
        if ((k.out == Out::Constant || k.out == Out::Buffer) && k.unknown_number == nullptr)
            return false;
    return true;
}
static_assert(fallbacks_present(), "a word-sending kind lacks its text for other numbers");

} // namespace

const WordList *find_word_list(int kind)
{
    if (static_cast<unsigned>(kind) >= static_cast<unsigned>(ENUM_KIND_COUNT))
        return nullptr;
    return &kWordLists[kind];
}

const Word *find_text(Words words, const char *text)
{
    for (const Word &w : words)
        if (std::strcmp(w.text, text) == 0)
            return &w;
    return nullptr;
}

const Word *find_number(Words words, int number)
{
    for (const Word &w : words)
        if (w.number == number)
            return &w;
    return nullptr;
}

} // namespace bx
