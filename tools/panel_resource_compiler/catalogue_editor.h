#ifndef CATALOGUE_EDITOR_H
#define CATALOGUE_EDITOR_H

#include "catalogue_lock.h"
#include "command_options.h"
#include "confirmed_texts.h"
#include "image_catalogue.h"
#include "message_catalogue.h"
#include "tsv_editor.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace velarion {

/** The options of every command that changes a catalogue: --catalogue, --dry-run and --update-figures. */
struct edit_options {
    std::string catalogue;
    bool is_dry_run = false;
    bool updates_figures = false;
};

void add_edit_options(command_options& options, edit_options& line);
/** All but --update-figures. */
void add_catalogue_option(command_options& options, edit_options& line);

/** Reports why a change is refused. @return EXIT_CATALOGUE_FAULT */
int refuse(const std::string& reason);

/** Words for people: "a, b, c". */
std::string list_of(const std::vector<std::string>& words);

/** The texts of a standard language or of a pack. */
struct language_texts {
    std::string name; ///< "de", or a pack's number
    int id;
    tsv_editor texts;
    confirmed_texts confirmed; ///< against the English texts; of no use for English itself
};

/** A change of a catalogue: its tables, held for changing, and what is to be said when they are in place. */
class catalogue_editor {
public:
    explicit catalogue_editor(const edit_options& line);
    catalogue_editor(const catalogue_editor&) = delete;
    catalogue_editor& operator=(const catalogue_editor&) = delete;

    /**
     * Reads the tables and keeps other changes of the catalogue waiting for the object's lifetime.
     *
     * @param demands_a_good_one  whether a catalogue with errors is refused; otherwise every table must be
     *                            readable
     * @return EXIT_GOOD, or what to end with; the reason is reported
     */
    int open(bool demands_a_good_one);

    tsv_editor& messages() { return tables_->messages; }
    tsv_editor& images() { return tables_->images; }
    std::vector<language_texts>& languages() { return tables_->languages; }
    /** All tables, with those of the confirmed texts; for sorting, when open() demanded no good catalogue. */
    std::vector<tsv_editor*> all_tables();
    /** @return the texts of a language given by number, name or folder of a pack; null when there are none */
    language_texts* find_language(const std::string& word);

    /** The text of a row; empty when it has none. */
    static std::string text_of(const language_texts& language, std::int32_t row);
    /** The ids of the messages that show a row. */
    std::vector<std::string> messages_of_row(std::int32_t row) const;
    /** The lowest row that takes a text and has neither a message nor a text; 0 when all are taken. */
    std::int32_t free_row() const;

    /**
     * Finds the rows of a table, messages or images, that a word names: an id, or else a name.
     * @return their ids
     */
    static std::vector<std::string> find_entries(const tsv_editor& table, const std::string& word);

    /** @return the ids of a table's rows with a name */
    static std::vector<std::string> find_by_name(const tsv_editor& table, const std::string& name);

    /** Replaces messages.tsv before the texts, not behind them. */
    void replace_messages_first() { are_messages_first_ = true; }

    /** Keeps a line for standard output, for when the change is in place. */
    void say(const std::string& line) { sayings_ += line + '\n'; }

    /**
     * Puts the change in place and says so, or shows it with --dry-run; figures.tsv goes along when the
     * options say so, and what differs there is told otherwise.
     *
     * @return what to end with
     */
    int finish();

private:
    struct tables {
        tsv_editor messages;
        tsv_editor images;
        tsv_editor figures;
        std::vector<language_texts> languages;
        std::vector<tsv_editor> confirmed; ///< for sorting: the files of confirmed_texts as they are
    };

    bool read(diagnostics& report);
    bool read_confirmed(diagnostics& report);
    void check(diagnostics& report) const;
    message_catalogue message_contents() const;
    std::vector<catalogue_image> image_contents() const;
    void bring_figures_up_to_date();

    const edit_options& line_;
    catalogue_lock lock_;
    std::unique_ptr<tables> tables_;
    bool is_checked_ = false; ///< as open() was told
    bool are_messages_first_ = false;
    std::string sayings_;
};

} // namespace velarion

#endif
