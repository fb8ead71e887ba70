#include "catalogue_editor.h"

#include "catalogue_figures.h"
#include "checks.h"
#include "language_names.h"
#include "option_pack.h"
#include "subcommand.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <set>

namespace velarion {

namespace fs = std::filesystem;

namespace {

/** The folders of the packs, by their numbers. */
std::set<std::string> pack_names(const std::string& catalogue) {
    std::set<std::string> names;
    std::error_code no_packs;
    for (const auto& entry : fs::directory_iterator(catalogue + "/packs", no_packs)) {
        if (entry.is_directory(no_packs)) {
            names.insert(entry.path().filename().string());
        }
    }
    return names;
}

int number_of(const std::string& text) {
    int number = 0;
    return read_language(text, number) ? number : 0;
}

} // namespace

void add_catalogue_option(command_options& options, edit_options& line) {
    options.require("catalogue", "DIR", line.catalogue,
                    "folder that holds messages.tsv, texts/, images.tsv, packs/");
    options.flag("dry-run", line.is_dry_run, "shows the change as a unified diff and writes nothing");
}

void add_edit_options(command_options& options, edit_options& line) {
    add_catalogue_option(options, line);
    options.flag("update-figures", line.updates_figures,
                 "brings the figures of DIR/figures.tsv that the change makes untrue\nup to date; otherwise "
                 "they are told, and \"figures\" does it later");
}

int refuse(const std::string& reason) {
    std::cerr << "panel_resource_compiler: " << reason << "; nothing was changed\n";
    return EXIT_CATALOGUE_FAULT;
}

std::string list_of(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : ", ") + word;
    }
    return text;
}

catalogue_editor::catalogue_editor(const edit_options& line)
    : line_(line) {}

int catalogue_editor::open(bool demands_a_good_one) {
    std::string fault;
    if (!lock_.take(line_.catalogue, fault)) {
        return file_fault(fault);
    }
    diagnostics report(std::cerr);
    for (const catalogue_check* each = SELECTABLE_CHECKS; each->name; ++each) {
        report.disable(each->name);
    }
    is_checked_ = demands_a_good_one;
    if (is_checked_) {
        check(report);
    }
    if (report.error_count() != 0 || !read(report)) {
        report.write_summary();
        std::cerr << "panel_resource_compiler: nothing was changed; mend the errors first\n";
        return EXIT_CATALOGUE_FAULT;
    }
    return EXIT_GOOD;
}

void catalogue_editor::check(diagnostics& report) const {
    const message_catalogue messages = read_message_catalogue(line_.catalogue, report);
    read_image_catalogue(line_.catalogue, report);
    for (const std::string& pack : pack_names(line_.catalogue)) {
        read_option_pack(line_.catalogue + "/packs/" + pack, messages, report);
    }
}

bool catalogue_editor::read(diagnostics& report) {
    const std::string& folder = line_.catalogue;
    tables_ = std::make_unique<tables>(tables{tsv_editor(folder + "/messages.tsv", {"id", "name", "row"}),
                                              tsv_editor(folder + "/images.tsv", {"id", "name", "file"}),
                                              tsv_editor(folder + "/figures.tsv", {"name", "figure"}),
                                              {},
                                              {}});
    const auto take_language = [this, &folder](const std::string& name, const std::string& file) {
        languages().push_back(
            {name, number_of(name), {folder + file, {"row", "text"}}, confirmed_texts(folder, name)});
    };
    for (const std::string name : STANDARD_LANGUAGE_NAMES) {
        take_language(name, "/texts/" + name + ".tsv");
    }
    for (const std::string& name : pack_names(folder)) {
        take_language(name, "/packs/" + name + "/texts.tsv");
    }
    bool is_read = true;
    for (tsv_editor* table : {&tables_->messages, &tables_->images, &tables_->figures}) {
        is_read = table->read(report) && is_read;
    }
    for (language_texts& language : languages()) {
        is_read = language.texts.read(report) && is_read;
    }
    return read_confirmed(report) && is_read;
}

bool catalogue_editor::read_confirmed(diagnostics& report) {
    bool is_read = true;
    for (language_texts& language : languages()) {
        if (is_checked_) {
            is_read = language.confirmed.read(report) && is_read;
        } else {
            tables_->confirmed.emplace_back(language.confirmed.path(),
                                            std::vector<std::string>{"row", "english"});
            is_read = tables_->confirmed.back().read(report) && is_read;
        }
    }
    return is_read;
}

std::vector<tsv_editor*> catalogue_editor::all_tables() {
    std::vector<tsv_editor*> all = {&tables_->messages, &tables_->images};
    for (language_texts& language : languages()) {
        all.push_back(&language.texts);
    }
    for (tsv_editor& table : tables_->confirmed) {
        all.push_back(&table);
    }
    return all;
}

language_texts* catalogue_editor::find_language(const std::string& word) {
    int id = 0;
    const bool is_known = read_language(word, id);
    const auto found =
        std::find_if(languages().begin(), languages().end(), [&](const language_texts& language) {
            return language.name == word || (is_known && language.id == id);
        });
    return found == languages().end() ? nullptr : &*found;
}

std::string catalogue_editor::text_of(const language_texts& language, std::int32_t row) {
    const std::vector<std::string> fields = language.texts.fields(std::to_string(row));
    return fields.empty() ? std::string() : fields[1];
}

std::vector<std::string> catalogue_editor::messages_of_row(std::int32_t row) const {
    std::vector<std::string> ids;
    for (const std::string& id : tables_->messages.keys()) {
        if (std::stol(tables_->messages.fields(id)[2]) == row) {
            ids.push_back(id);
        }
    }
    return ids;
}

std::int32_t catalogue_editor::free_row() const {
    std::set<std::string> used;
    for (const std::string& id : tables_->messages.keys()) {
        used.insert(std::to_string(std::stol(tables_->messages.fields(id)[2])));
    }
    for (std::int32_t row = FIRST_TEXT_ROW; row < NULL_ROW; ++row) {
        const std::string key = std::to_string(row);
        const bool has_text = std::any_of(tables_->languages.begin(), tables_->languages.end(),
                                          [&key](const language_texts& each) { return each.texts.has(key); });
        if (!has_text && used.count(key) == 0) {
            return row;
        }
    }
    return 0;
}

std::vector<std::string> catalogue_editor::find_entries(const tsv_editor& table, const std::string& word) {
    const bool is_number = !word.empty() && word.find_first_not_of("0123456789") == std::string::npos;
    if (is_number && table.has(word)) {
        return {table.fields(word)[0]};
    }
    return find_by_name(table, word);
}

std::vector<std::string> catalogue_editor::find_by_name(const tsv_editor& table, const std::string& name) {
    std::vector<std::string> ids;
    for (const std::string& id : table.keys()) {
        if (table.fields(id)[1] == name) {
            ids.push_back(id);
        }
    }
    return ids;
}

message_catalogue catalogue_editor::message_contents() const {
    message_catalogue contents;
    for (const std::string& id : tables_->messages.keys()) {
        const std::vector<std::string> fields = tables_->messages.fields(id);
        contents.messages.push_back({static_cast<std::int32_t>(std::stol(id)), fields[1],
                                     static_cast<std::int32_t>(std::stol(fields[2]))});
    }
    contents.rows.resize(DVC_PNL_RMG_STANDARD_MESSAGE_ROWS);
    for (std::size_t i = 0; i < STANDARD_LANGUAGE_NAMES.size(); ++i) {
        const tsv_editor& texts = tables_->languages[i].texts;
        for (const std::string& row : texts.keys()) {
            contents.rows[std::stoul(row)].texts[i] = texts.fields(row)[1];
        }
    }
    return contents;
}

std::vector<catalogue_image> catalogue_editor::image_contents() const {
    std::vector<catalogue_image> contents;
    for (const std::string& id : tables_->images.keys()) {
        const std::vector<std::string> fields = tables_->images.fields(id);
        contents.push_back({static_cast<std::int32_t>(std::stol(id)), fields[1], fields[2]});
    }
    return contents;
}

void catalogue_editor::bring_figures_up_to_date() {
    tsv_editor& table = tables_->figures;
    const std::vector<std::string> names = table.keys();
    if (names.empty()) {
        return; // nothing is said of a catalogue without figures
    }
    const auto figures = figures_of_catalogue(names, message_contents(), image_contents());
    std::string differences;
    for (const std::string& name : names) {
        const std::string before = table.fields(name)[1];
        const auto figure = figures.find(name);
        if (figure == figures.end()) {
            differences += "  " + name + ": " + before + " is to go\n";
            table.remove(name);
        } else if (figure->second != before) {
            differences += "  " + name + ": " + before + " becomes " + figure->second + '\n';
            table.put({name, figure->second});
        }
    }
    if (!differences.empty()) {
        say((line_.updates_figures
                 ? table.path() + ": brought up to date\n"
                 : table.path() +
                       ": check will report these figures until \"panel_resource_compiler figures\" "
                       "brings them up to date:\n") +
            differences.substr(0, differences.size() - 1));
    }
}

int catalogue_editor::finish() {
    file_replacement files;
    if (are_messages_first_) { // a process that is ended half way leaves no message without its texts
        tables_->messages.save(files);
    }
    for (const language_texts& language : languages()) {
        language.texts.save(files);
        if (is_checked_) {
            language.confirmed.save(files);
        }
    }
    for (const tsv_editor& table : tables_->confirmed) {
        table.save(files);
    }
    tables_->images.save(files);
    if (!are_messages_first_) {
        tables_->messages.save(files);
    }
    if (is_checked_ && (!files.is_empty() || line_.updates_figures)) {
        bring_figures_up_to_date();
    }
    if (line_.updates_figures) {
        tables_->figures.save(files);
    }
    if (line_.is_dry_run) {
        files.write_diff(std::cout);
        return EXIT_GOOD;
    }
    std::string fault;
    if (!files.commit(fault)) {
        return file_fault(fault);
    }
    std::cout << (sayings_.empty() ? "there is nothing to change\n" : sayings_);
    return EXIT_GOOD;
}

} // namespace velarion
