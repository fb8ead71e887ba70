#ifndef MESSAGE_CATALOGUE_H
#define MESSAGE_CATALOGUE_H

#include "diagnostics.h"
#include "dvc_pnl_rmg_message_table.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace velarion {

/** The two-letter names of the standard languages, in the order of their indexes. */
extern const std::array<const char*, DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT> STANDARD_LANGUAGE_NAMES;

/** The first row that takes texts. */
constexpr std::int32_t FIRST_TEXT_ROW = 2;
/** The last row of the text table: all its cells are null. */
constexpr std::int32_t NULL_ROW = DVC_PNL_RMG_STANDARD_MESSAGE_ROWS - 1;

/** The index of English. */
inline constexpr std::size_t ENGLISH_INDEX = 1;

/** The row of the messages that have no text on purpose. */
inline constexpr std::int32_t ROW_WITHOUT_TEXT = 1;

struct catalogue_message {
    std::int32_t id;
    std::string name;
    std::int32_t row;
    source_place place = {}; ///< of the record
};

/** The texts of one row by language index. */
struct catalogue_row {
    std::array<std::string, DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT> texts;
};

/** A text of a text file, which is that of one language. */
struct row_text {
    source_place place; ///< of the text
    std::int32_t row;
    std::string text;
};

/** A text file. */
struct text_file {
    std::string language; ///< "de", or the number of a pack: "86"
    std::string file;
    std::vector<row_text> texts; ///< as they stand in it
};

/** The messages of the panel in their source form, checked. */
struct message_catalogue {
    std::vector<catalogue_message> messages; ///< ascending by id
    std::vector<catalogue_row> rows;         ///< by row; a row without a text is empty
    std::vector<text_file> languages;        ///< by language index: where the texts of the rows stand
};

/**
 * Reads messages.tsv and texts/<language>.tsv of a catalogue folder and checks them. The catalogue
 * is usable only when the report counts no error.
 */
message_catalogue read_message_catalogue(const std::string& folder, diagnostics& report);

/** Reads messages.tsv of a catalogue folder and checks it. @return the messages, ascending by id */
std::vector<catalogue_message> read_message_list(const std::string& folder, diagnostics& report);

/**
 * Reads a text file, of a standard language or of a pack: columns row and text, the rows ascending. Rows 0
 * and 1 are empty: a message on row 1 has no text on purpose.
 *
 * @param language  as of text_file, for the reports
 * @param report    receives every fault
 * @return the texts whose rows, 0 to NULL_ROW - 1, may hold them
 */
std::vector<row_text> read_row_texts(const std::string& path, const std::string& language,
                                     diagnostics& report);

/** What is wrong with the name of a message; empty when nothing is. */
std::string message_name_fault(const std::string& name);

} // namespace velarion

#endif
