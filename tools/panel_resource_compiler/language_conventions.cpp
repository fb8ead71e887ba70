#include "language_conventions.h"

#include "characters.h"

#include <algorithm>

namespace velarion {

namespace {

const struct {
    const char* language;
    language_conventions conventions;
} LANGUAGES[] = {
    {"en", {U'“', U'”'}},
    {"ja", {U'「', U'」', true, false}},
    {"de", {U'„', U'“'}},
    {"fr", {U'«', U'»', true, true, false, true}},
    {"es", {U'«', U'»', true, true, true}},
    {"it", {U'«', U'»'}},
    {"nl", {U'‘', U'’'}},
    {"ru", {U'«', U'»'}},
    {"30", {U'«', U'»'}},                 // Greek
    {"36", {U'„', U'”'}},                 // Hungarian
    {"40", {U'„', U'”'}},                 // Romanian
    {"47", {U'«', U'»'}},                 // Norwegian
    {"48", {U'„', U'”'}},                 // Polish
    {"66", {U'“', U'”', false, false}},   // Thai
    {"86", {U'“', U'”', true, false}},    // simplified Chinese
    {"351", {U'«', U'»'}},                // Portuguese
    {"420", {U'„', U'“'}},                // Czech
    {"886", {U'「', U'」', true, false}}, // traditional Chinese
    {"972", {U'״', U'״'}},                // Hebrew
};

const struct {
    text_end end;
    const char* description;
    std::u32string_view characters;
} ENDS[] = {
    {text_end::FULL_STOP, "a full stop", U".。．｡।۔።"},
    {text_end::QUESTION, "a question mark", U"?？؟\u037E"},
    {text_end::EXCLAMATION, "an exclamation mark", U"!！"},
    {text_end::COLON, "a colon", U":："},
    {text_end::ELLIPSIS, "an ellipsis", U"…⋯"},
};

constexpr std::u32string_view CLOSERS = U")]}）］｝】』」»”“’\"״";
constexpr std::u32string_view THREE_STOPS = U"...";

} // namespace

const language_conventions& conventions_of(const std::string& language) {
    const auto* found = std::find_if(std::begin(LANGUAGES), std::end(LANGUAGES),
                                     [&language](const auto& entry) { return entry.language == language; });
    return found == std::end(LANGUAGES) ? LANGUAGES[0].conventions : found->conventions;
}

text_end end_of(const std::u32string& text) {
    std::size_t size = text.size();
    while (size > 0 && (is_blank(text[size - 1]) || CLOSERS.find(text[size - 1]) != CLOSERS.npos)) {
        --size;
    }
    if (size >= THREE_STOPS.size() &&
        text.compare(size - THREE_STOPS.size(), THREE_STOPS.size(), THREE_STOPS) == 0) {
        return text_end::ELLIPSIS;
    }
    for (const auto& end : ENDS) {
        if (size > 0 && end.characters.find(text[size - 1]) != end.characters.npos) {
            return end.end;
        }
    }
    return text_end::NOTHING;
}

const char* describe(text_end end) {
    const auto* found =
        std::find_if(std::begin(ENDS), std::end(ENDS), [end](const auto& entry) { return entry.end == end; });
    return found == std::end(ENDS) ? "no punctuation" : found->description;
}

} // namespace velarion
