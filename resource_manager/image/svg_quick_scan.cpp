#include "svg_quick_scan.h"

#include "ascii_letters.h"
#include "svg_limits.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace velarion {

namespace {

constexpr char DECLARATION[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
constexpr char UNDECIDED[] = {'&', '\\', '\0'};

/** Bytes to search with memchr, which looks at many at once. */
struct byte_range {
    const char* begin;
    const char* end;

    const char* find(char byte, const char* from) const {
        return static_cast<const char*>(std::memchr(from, byte, static_cast<std::size_t>(end - from)));
    }
};

bool has_undecided_bytes(const byte_range& bytes) {
    for (const char byte : UNDECIDED) {
        if (bytes.find(byte, bytes.begin)) {
            return true;
        }
    }
    return false;
}

/** @return whether what follows a '<' is an element, its end or a comment */
bool is_plain_tag(const char* at, const char* end) {
    if (end - at > 2 && at[1] == '!') {
        return at[2] == '-';
    }
    return end - at > 1 && at[1] != '?' && at[1] != '!';
}

bool has_few_plain_tags(const byte_range& bytes) {
    int tags = 0;
    for (const char* at = bytes.find('<', bytes.begin); at; at = bytes.find('<', at + 1)) {
        if (++tags > SVG_DEPTH_LIMIT || !is_plain_tag(at, bytes.end)) {
            return false;
        }
    }
    return true;
}

bool has_few_attributes(const byte_range& bytes) {
    return bytes.end - bytes.begin <= SVG_ATTRIBUTE_LIMIT ||
           std::count(bytes.begin, bytes.end, '=') <= SVG_ATTRIBUTE_LIMIT;
}

/** @return whether "dash" or "href" stands there in any case: "h" is the letter that they share */
bool has_dashes_or_references(const byte_range& bytes) {
    for (const char letter : {'h', 'H'}) {
        for (const char* at = bytes.find(letter, bytes.begin); at; at = bytes.find(letter, at + 1)) {
            if ((at - bytes.begin >= 3 && are_letters(at - 3, "das")) ||
                (bytes.end - at > 3 && are_letters(at + 1, "ref"))) {
                return true;
            }
        }
    }
    return false;
}

} // namespace

bool is_surely_harmless(const QByteArray& document) {
    const int declared = document.startsWith(DECLARATION) ? static_cast<int>(sizeof DECLARATION) - 1 : 0;
    const byte_range bytes = {document.constData() + declared, document.constData() + document.size()};
    if (bytes.begin == bytes.end || document.size() > SVG_BYTES_LIMIT ||
        static_cast<unsigned char>(*bytes.begin) >= 0x80) {
        return false; // a byte order mark, for one
    }
    return !has_undecided_bytes(bytes) && has_few_plain_tags(bytes) && has_few_attributes(bytes) &&
           !has_dashes_or_references(bytes);
}

} // namespace velarion
