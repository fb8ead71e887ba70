#include "authoring_subcommands.h"
#include "catalogue_lock.h"
#include "catalogue_options.h"
#include "catalogue_source.h"
#include "confirmed_texts.h"
#include "ignore_list.h"
#include "whole_number.h"

#include <iostream>
#include <map>
#include <set>

namespace velarion {

namespace {

bool read_rows(const std::vector<std::string>& words, std::set<std::int32_t>& rows, std::string& fault) {
    for (const std::string& word : words) {
        std::int32_t row = 0;
        fault = read_whole_number(word, row);
        if (!fault.empty()) {
            fault = "ROW \"" + word + "\" " + fault;
            return false;
        }
        rows.insert(row);
    }
    return true;
}

const text_file& texts_of(const catalogue_source& source, const std::string& language) {
    for (const auto* group : {&source.messages.languages, &source.packs}) {
        for (const text_file& each : *group) {
            if (each.language == language) {
                return each;
            }
        }
    }
    return source.messages.languages[ENGLISH_INDEX];
}

/** Confirms the rows that have a text in the language and in English, and forgets those that have none. */
std::size_t confirm_texts(const catalogue_source& source, const text_file& language,
                          const std::set<std::int32_t>& rows, confirmed_texts& confirmed) {
    std::size_t count = 0;
    for (const row_text& text : language.texts) {
        const std::string& english =
            source.messages.rows[static_cast<std::size_t>(text.row)].texts[ENGLISH_INDEX];
        if (!rows.empty() && rows.count(text.row) == 0) {
            continue;
        }
        if (text.text.empty() || english.empty()) {
            confirmed.forget(text.row);
        } else if (confirmed.state(text.row, english) != confirmation::CURRENT) {
            confirmed.confirm(text.row, english);
            ++count;
        }
    }
    return count;
}

/** A row that cannot be confirmed, or nothing. */
std::string find_textless(const text_file& language, std::set<std::int32_t> rows) {
    for (const row_text& text : language.texts) {
        if (!text.text.empty()) {
            rows.erase(text.row);
        }
    }
    return rows.empty() ? std::string()
                        : "row " + std::to_string(*rows.begin()) + " has no text in " + language.language;
}

int save(const std::string& language, const confirmed_texts& confirmed, std::size_t count) {
    file_replacement files;
    std::string fault;
    confirmed.save(files);
    if (!files.commit(fault)) {
        return file_fault(fault);
    }
    std::cout << language << ": " << count << (count == 1 ? " text" : " texts") << " confirmed\n";
    return EXIT_GOOD;
}

} // namespace

int run_confirm_command(const std::vector<std::string>& arguments) {
    catalogue_options line;
    std::string given;
    std::vector<std::string> words;
    command_options options(
        "confirm", "Notes in DIR/confirmed/LANGUAGE.tsv that texts of a language say what the English\n"
                   "ones say: all of them, or those of some rows. \"check\" tells when the English text\n"
                   "changes after that.");
    add_catalogue_options(options, line);
    options.require("language", "L", given, "\"de\" or 49, or the number of a pack");
    options.words("ROW", 0, words, "rows to confirm; none confirms all");
    if (const std::optional<int> end = options.read(arguments)) {
        return *end;
    }
    diagnostics report(std::cerr);
    std::set<std::int32_t> rows;
    std::string fault = apply_catalogue_options(line, report);
    if (!fault.empty() || !read_rows(words, rows, fault)) {
        return options.usage_fault(fault);
    }
    catalogue_lock lock; // until the file is in place
    if (!lock.take(line.catalogue, fault)) {
        return file_fault(fault);
    }
    use_ignore_list(line.catalogue, report);
    const catalogue_source source = read_catalogue(line.catalogue, report);
    const std::string language = language_of(line.catalogue, given);
    if (language.empty() || language == STANDARD_LANGUAGE_NAMES[ENGLISH_INDEX]) {
        return options.usage_fault("--language \"" + given + "\" is no language that is translated here");
    }
    confirmed_texts confirmed(line.catalogue, language);
    confirmed.read(report);
    report.write_summary();
    if (report.error_count() != 0) {
        return EXIT_CATALOGUE_FAULT;
    }
    const text_file& texts = texts_of(source, language);
    fault = find_textless(texts, rows);
    if (!fault.empty()) {
        return options.usage_fault(fault);
    }
    const std::size_t count = confirm_texts(source, texts, rows, confirmed);
    return save(language, confirmed, count);
}

} // namespace velarion
