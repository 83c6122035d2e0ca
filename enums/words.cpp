#include "enums/words.h"

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

constexpr std::size_t length_of(const char *text)
{
    std::size_t n = 0;
    while (text[n] != '\0')
        ++n;
    return n;
}

/* The sizes of the pool: every word of every list in each direction, and
 * every text with its terminator. */
constexpr std::size_t word_count()
{
    std::size_t n = 0;
    for (const WordList &k : kWordLists)
        n += k.in.count + k.words_out.count;
    return n;
}

constexpr std::size_t text_bytes()
{
    std::size_t n = 0;
    for (const WordList &k : kWordLists) {
        for (const Word &w : k.in)
            n += length_of(w.text) + 1;
        for (const Word &w : k.words_out)
            n += length_of(w.text) + 1;
        if (k.unknown_number != nullptr)
            n += length_of(k.unknown_number) + 1;
    }
    return n;
}

struct Vocabulary {
    PooledList lists[ENUM_KIND_COUNT];
    PooledWord words[word_count()];
    char text[text_bytes()];
};

/* Fills a pool as it is built: the next free word and text byte. */
struct Filling {
    Vocabulary &v;
    std::size_t words;
    std::size_t bytes;

    constexpr uint16_t add_text(const char *text)
    {
        const auto at = static_cast<uint16_t>(bytes);
        for (std::size_t i = 0; i <= length_of(text); ++i)
            v.text[bytes++] = text[i];
        return at;
    }
    constexpr uint16_t add_words(Words list)
    {
        const auto at = static_cast<uint16_t>(words);
        for (const Word &w : list)
            v.words[words++] = PooledWord{add_text(w.text), static_cast<int16_t>(w.number)};
        return at;
    }
};

constexpr Vocabulary pooled()
{
    static_assert(text_bytes() < kNoText, "the word pool is addressed by 16-bit offsets");
    Vocabulary v{};
    Filling f{v, 0, 0};
    for (int i = 0; i < ENUM_KIND_COUNT; ++i) {
        const WordList &k = kWordLists[i];
        PooledList &row = v.lists[i];
        row.in_first = f.add_words(k.in);
        row.in_count = static_cast<uint16_t>(k.in.count);
        row.out_first = f.add_words(k.words_out);
        row.out_count = static_cast<uint16_t>(k.words_out.count);
        row.unknown_number = k.unknown_number != nullptr ? f.add_text(k.unknown_number) : kNoText;
        row.unknown_text = static_cast<int16_t>(k.unknown_text);
        row.out = k.out;
    }
    return v;
}

constexpr Vocabulary kVocabulary = pooled();

} // namespace

const PooledList *find_word_list(int kind)
{
    if (static_cast<unsigned>(kind) >= static_cast<unsigned>(ENUM_KIND_COUNT))
        return nullptr;
    return &kVocabulary.lists[kind];
}

PooledWords words_in(const PooledList &k) { return PooledWords{kVocabulary.words + k.in_first, k.in_count}; }

PooledWords words_out(const PooledList &k) { return PooledWords{kVocabulary.words + k.out_first, k.out_count}; }

const char *text_of(const PooledWord &w) { return kVocabulary.text + w.text; }

const char *unknown_number(const PooledList &k)
{
    return k.unknown_number != kNoText ? kVocabulary.text + k.unknown_number : nullptr;
}

namespace {

/* strcmp(word, text) == 0 for the short words of a list, without a call. */
bool same_word(const char *word, const char *text)
{
    while (*word != '\0' && *word == *text) {
        ++word;
        ++text;
    }
    return *word == *text;
}

} // namespace

const PooledWord *find_text(PooledWords words, const char *text)
{
    /* Most words of a list differ in their first byte: only those that
     * share it with the text are compared whole. */
    for (const PooledWord &w : words) {
        const char *word = kVocabulary.text + w.text;
        if (word[0] == text[0] && same_word(word, text))
            return &w;
    }
    return nullptr;
}

const PooledWord *find_word(const PooledList &k, const char *text) { return find_text(words_in(k), text); }

const PooledWord *find_number(PooledWords words, int number)
{
    for (const PooledWord &w : words)
        if (w.number == number)
            return &w;
    return nullptr;
}

} // namespace bx
