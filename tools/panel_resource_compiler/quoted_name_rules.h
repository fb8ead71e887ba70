#ifndef QUOTED_NAME_RULES_H
#define QUOTED_NAME_RULES_H

#include "message_catalogue.h"

#include <string>
#include <unordered_map>
#include <unordered_set>

namespace velarion {

/** What a language calls its keys and settings: its texts, and the labels and values in them. */
class known_names {
public:
    explicit known_names(const text_file& language);
    /** How many of the names that a text quotes are unknown. */
    std::size_t count_unknown(const std::string& text) const;
    bool is_known(const std::u32string& name) const;
    /** Whether three texts or more quote a name, so that it has its place elsewhere, as in a picture. */
    bool is_usual(const std::u32string& name) const;

private:
    std::string language_;
    std::unordered_set<std::u32string> shown_;
    std::unordered_map<std::u32string, std::size_t> quoting_texts_; // by the name that they quote
};

/** Finds names between quotation marks that no text of the language is. */
class quoted_name_rule {
public:
    /** @param catalogue  outlives the object */
    explicit quoted_name_rule(const message_catalogue& catalogue);
    /** Where English names what is no text, the translation is not blamed for doing the same. */
    void check(const text_file& language, diagnostics& report) const;

private:
    const message_catalogue& catalogue_;
    known_names english_;
};

} // namespace velarion

#endif
