#ifndef EXCHANGE_DOCUMENT_H
#define EXCHANGE_DOCUMENT_H

#include "confirmed_texts.h"
#include "message_catalogue.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace velarion {

/** One row as translators' programs see it. Texts are those of the catalogue, but for BLANK_TEXT. */
struct exchange_unit {
    source_place place;             ///< in the file that was read
    std::string key;                ///< the row's number
    std::vector<std::string> names; ///< of the messages that show it, with their ids
    std::string source;             ///< the English text
    std::string translation;        ///< empty for a row without one
    bool is_unfinished = false;     ///< has no translation, or one that somebody must look at
    bool is_stale = false;          ///< the English text changed since the translation was confirmed
    std::string exported;           ///< translation_mark() of what was exported; empty when the file lost it
};

/** The texts of one language in the form that they leave and enter the catalogue in. */
struct exchange_document {
    std::string language;      ///< "de", or the number of a pack; as the file says, empty when it does not
    std::string locale;        ///< what other programs take for the language ("zh_CN"); may be empty
    std::string english_date;  ///< when the English texts changed, as PO files write a moment
    std::string language_date; ///< the same of the language's texts
    std::vector<exchange_unit> units;
};

/**
 * Stands for an intentionally empty text: to other programs an empty translation is one that is missing.
 * A text of several such characters stands for one of one fewer.
 */
inline constexpr char BLANK_TEXT[] = "\xE2\x88\x85"; // the sign of the empty set

std::string text_for_exchange(const std::string& text);
std::string text_from_exchange(const std::string& text);

/** What an export keeps of a translation, so that an import sees which texts changed on either side. */
std::string translation_mark(const std::optional<std::string>& translation);

/** A language of a catalogue: its English texts, its own ones, and which of them are confirmed. */
class exchange_language {
public:
    /** @param name  "de", or the number of a pack; as of language_of() */
    exchange_language(std::string catalogue, std::string name);

    bool is_pack() const;
    bool is_english() const;
    /** Reads it all. @return whether nothing was reported as an error; usable only then */
    bool read(diagnostics& report);

    exchange_document to_document() const;

    const std::string& name() const { return name_; }
    /** The rows that messages show or that have a text, English or of the language. */
    const std::map<std::int32_t, std::vector<std::string>>& rows() const { return rows_; }
    /** Whether an export holds a row: one with a text. */
    bool is_exported(std::int32_t row) const;
    const std::string& english(std::int32_t row) const;
    /** The texts of a row's standard languages, as they are with another text of this language. */
    catalogue_row row_with(std::int32_t row, const std::string& text) const;
    /** The row's own text; none where its file has no line for it. */
    std::optional<std::string> text(std::int32_t row) const;

    /** @param text  none removes the row */
    void put(std::int32_t row, const std::optional<std::string>& text);
    void confirm(std::int32_t row) { confirmed_.confirm(row, english(row)); }
    void forget(std::int32_t row) { confirmed_.forget(row); }

    void save_texts(file_replacement& files) const { texts_.save(files); }
    void save_confirmed(file_replacement& files) const { confirmed_.save(files); }

private:
    std::string catalogue_;
    std::string name_;
    message_catalogue messages_;
    tsv_editor texts_;
    confirmed_texts confirmed_;
    std::map<std::int32_t, std::vector<std::string>> rows_; ///< and what their messages are called
};

} // namespace velarion

#endif
