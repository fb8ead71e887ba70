#include "svg_quick_scan.h"

#include "svg_limits.h"

#include <cstring>

namespace velarion {

namespace {

constexpr char DECLARATION[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";

/** What the next bytes have to be compared for. */
enum byte_class : unsigned char { PLAIN, TAG, EQUALS, WORD_D, WORD_H, UNDECIDED };

struct byte_classes {
    byte_classes() {
        std::memset(classes, PLAIN, sizeof classes);
        classes['<'] = TAG;
        classes['='] = EQUALS;
        classes['d'] = classes['D'] = WORD_D;
        classes['h'] = classes['H'] = WORD_H;
        classes['&'] = classes['\\'] = classes[0] = UNDECIDED;
    }
    unsigned char classes[256];
};

/** Bit 5 is what distinguishes the cases of ASCII letters. */
bool is_word(const char* at, const char* end, const char* lower, std::size_t size) {
    const unsigned char lower_case = 0x20;
    if (static_cast<std::size_t>(end - at) < size) {
        return false;
    }
    for (std::size_t i = 0; i < size; ++i) {
        if ((static_cast<unsigned char>(at[i]) | lower_case) != static_cast<unsigned char>(lower[i])) {
            return false;
        }
    }
    return true;
}

/** @return whether what follows a '<' is an element, its end or a comment */
bool is_plain_tag(const char* at, const char* end) {
    if (end - at > 2 && at[1] == '!') {
        return at[2] == '-';
    }
    return end - at > 1 && at[1] != '?' && at[1] != '!';
}

} // namespace

bool is_surely_harmless(const QByteArray& document) {
    static const byte_classes table;
    const char* at = document.constData();
    const char* const end = at + document.size();
    if (document.startsWith(DECLARATION)) {
        at += sizeof DECLARATION - 1;
    }
    if (at == end || document.size() > SVG_BYTES_LIMIT || static_cast<unsigned char>(*at) >= 0x80) {
        return false; // a byte order mark, for one
    }
    int tags = 0;
    int equals = 0;
    for (; at != end; ++at) {
        switch (table.classes[static_cast<unsigned char>(*at)]) {
        case TAG:
            if (++tags > SVG_DEPTH_LIMIT || !is_plain_tag(at, end)) {
                return false;
            }
            break;
        case EQUALS:
            if (++equals > SVG_ATTRIBUTE_LIMIT) {
                return false;
            }
            break;
        case WORD_D:
            if (is_word(at, end, "dash", 4)) {
                return false;
            }
            break;
        case WORD_H:
            if (is_word(at, end, "href", 4)) {
                return false;
            }
            break;
        case UNDECIDED:
            return false;
        default:
            break;
        }
    }
    return true;
}

} // namespace velarion
