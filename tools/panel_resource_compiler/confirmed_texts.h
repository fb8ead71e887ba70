#ifndef CONFIRMED_TEXTS_H
#define CONFIRMED_TEXTS_H

#include "tsv_editor.h"

#include <cstdint>
#include <string>

namespace velarion {

/** What is kept of an English text: 8 hexadecimal digits, the same on every machine and in every version. */
std::string english_hash(const std::string& english);

enum class confirmation {
    NONE,    ///< nobody has confirmed the row's text
    CURRENT, ///< it was confirmed against the English text as it is
    STALE    ///< the English text was another one then
};

/**
 * Against which English text each text of a language was confirmed: the file confirmed/LANGUAGE.tsv of a
 * catalogue's folder, with the columns row and english, which is an english_hash().
 */
class confirmed_texts {
public:
    /** @param language  the name of a standard language ("de"), or the number of a pack ("86") */
    confirmed_texts(const std::string& catalogue, const std::string& language);

    /** Reads the file; none confirms nothing. @return whether it has no fault; usable only then */
    bool read(diagnostics& report);

    const std::string& path() const { return table_.path(); }
    confirmation state(std::int32_t row, const std::string& english) const;
    /** The number of a row's line in the file, or 0. */
    std::size_t line_of(std::int32_t row) const { return table_.line_of(std::to_string(row)); }

    void confirm(std::int32_t row, const std::string& english);
    void forget(std::int32_t row) { table_.remove(std::to_string(row)); }

    /** Whether the file is not there yet. */
    bool is_new() const { return table_.is_new(); }
    /** Gives the file to a replacement of files, if it changed. */
    void save(file_replacement& files) const { table_.save(files); }

private:
    tsv_editor table_;
};

} // namespace velarion

#endif
