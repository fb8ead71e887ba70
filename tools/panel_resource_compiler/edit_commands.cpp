#include "edit_commands.h"

#include "catalogue_editor.h"
#include "subcommand.h"

#include <iostream>

namespace velarion {

namespace {

/** What add, rename and remove are about. */
struct entry_kind {
    const char* noun;
    std::string (*name_fault)(const std::string& name);
};

constexpr entry_kind MESSAGE = {"message", message_name_fault};
constexpr entry_kind PICTURE = {"picture", image_name_fault};

/** Finds the one entry that a word names. @return false after a fault, which is reported */
bool find_one(const tsv_editor& table, const entry_kind& kind, const std::string& word, std::string& id) {
    const std::vector<std::string> ids = catalogue_editor::find_entries(table, word);
    if (ids.empty()) {
        refuse(std::string("there is no ") + kind.noun + " \"" + word + "\"");
    } else if (ids.size() > 1) {
        refuse(std::string("several ") + kind.noun + "s are named \"" + word + "\"; give one of the ids " +
               list_of(ids));
    } else {
        id = ids[0];
    }
    return ids.size() == 1;
}

/** Takes the message's row out of every language unless another message shows it; tells what went. */
void remove_texts(catalogue_editor& editor, std::int32_t row) {
    const std::vector<std::string> others = editor.messages_of_row(row);
    if (!others.empty()) {
        editor.say("row " + std::to_string(row) + " stays: shown by message " + list_of(others));
        return;
    }
    for (language_texts& language : editor.languages()) {
        const std::string text = catalogue_editor::text_of(language, row);
        language.confirmed.forget(row);
        if (language.texts.remove(std::to_string(row))) {
            editor.say("removed from " + language.texts.path() + ": " + std::to_string(row) + '\t' +
                       tsv_editor::escaped(text));
        }
    }
}

} // namespace

int run_rename_command(const std::vector<std::string>& arguments) {
    edit_options line;
    std::string old_name;
    std::string new_name;
    bool is_picture = false;
    bool allows_same_name = false;
    command_options options("rename", "Gives a message, or a picture, another name.");
    add_edit_options(options, line);
    options.flag("picture", is_picture, "renames a picture of images.tsv");
    options.flag("allow-same-name", allows_same_name, "lets the message have the name of another one");
    options.word("OLD", old_name, "id or name");
    options.word("NEW", new_name, "name");
    if (const std::optional<int> end = options.read(arguments)) {
        return *end;
    }
    const entry_kind& kind = is_picture ? PICTURE : MESSAGE;
    if (const std::string fault = kind.name_fault(new_name); !fault.empty()) {
        return refuse(fault);
    }
    catalogue_editor editor(line);
    if (const int end = editor.open(true)) {
        return end;
    }
    tsv_editor& table = is_picture ? editor.images() : editor.messages();
    std::string id;
    if (!find_one(table, kind, old_name, id)) {
        return EXIT_CATALOGUE_FAULT;
    }
    std::vector<std::string> fields = table.fields(id);
    const std::vector<std::string> same = editor.find_by_name(table, new_name);
    if (!same.empty() && fields[1] != new_name && (is_picture || !allows_same_name)) {
        return refuse("the name \"" + new_name + "\" is that of " + kind.noun + ' ' + list_of(same));
    }
    editor.say(std::string(kind.noun) + ' ' + id + ": " + tsv_editor::escaped(fields[1]) + " is named " +
               tsv_editor::escaped(new_name));
    fields[1] = new_name;
    table.put(fields);
    return editor.finish();
}

int run_remove_command(const std::vector<std::string>& arguments) {
    edit_options line;
    std::string word;
    bool is_picture = false;
    command_options options(
        "remove", "Removes a message, with its texts in all languages and packs unless another message\n"
                  "shows them, or an image's row, whose file stays.");
    add_edit_options(options, line);
    options.flag("picture", is_picture, "removes a picture of images.tsv");
    options.word("ENTRY", word, "id or name");
    if (const std::optional<int> end = options.read(arguments)) {
        return *end;
    }
    catalogue_editor editor(line);
    if (const int end = editor.open(true)) {
        return end;
    }
    const entry_kind& kind = is_picture ? PICTURE : MESSAGE;
    tsv_editor& table = is_picture ? editor.images() : editor.messages();
    std::string id;
    if (!find_one(table, kind, word, id)) {
        return EXIT_CATALOGUE_FAULT;
    }
    if (table.keys().size() == 1) {
        return refuse(std::string("it is the only ") + kind.noun + ", and a catalogue has at least one");
    }
    const std::vector<std::string> fields = table.fields(id);
    table.remove(id);
    editor.replace_messages_first();
    editor.say(std::string("removed ") + kind.noun + ' ' + id + ": " + tsv_editor::escaped(fields[1]) + ", " +
               (is_picture ? "file \"" + fields[2] + "\"" : "row " + fields[2]));
    if (!is_picture) {
        remove_texts(editor, static_cast<std::int32_t>(std::stol(fields[2])));
    }
    return editor.finish();
}

int run_sort_command(const std::vector<std::string>& arguments) {
    edit_options line;
    command_options options(
        "sort", "Brings the rows of all tables into ascending order. Comments and empty lines stay above\n"
                "the row that they stand above.");
    add_edit_options(options, line);
    if (const std::optional<int> end = options.read(arguments)) {
        return *end;
    }
    catalogue_editor editor(line);
    if (const int end = editor.open(false)) {
        return end;
    }
    bool is_changed = false;
    for (tsv_editor* table : editor.all_tables()) {
        if (!table->is_sorted()) {
            table->sort();
            is_changed = true;
            editor.say("sorted " + table->path());
        }
    }
    if (!is_changed) {
        editor.say("all tables are in order");
    }
    return editor.finish();
}

int run_figures_command(const std::vector<std::string>& arguments) {
    edit_options line;
    line.updates_figures = true;
    command_options options(
        "figures",
        "Makes the figures of DIR/figures.tsv those of the catalogue, and tells each that changes:\n"
        "for an edit that was meant to change them.");
    add_catalogue_option(options, line);
    if (const std::optional<int> end = options.read(arguments)) {
        return *end;
    }
    catalogue_editor editor(line);
    const int end = editor.open(true);
    return end == EXIT_GOOD ? editor.finish() : end;
}

} // namespace velarion
