#include "catalogue_figures.h"

#include "checks.h"
#include "tsv_table.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>

namespace velarion {

namespace {

/** Names of figures of which there are as many as the catalogue makes; one that it does not make is 0. */
const std::string MESSAGE_GROUP = "messages in the group ";
const std::string IMAGE_CATEGORY = "images in the category ";
const std::string IMAGE_ENDING = "images that end in \"";
const std::string IMAGE_FILE = "images with the file \"";
const std::string* const FAMILIES[] = {&MESSAGE_GROUP, &IMAGE_CATEGORY, &IMAGE_ENDING, &IMAGE_FILE};

const std::string DARKER_PREFIX = "d_";
const std::string NAVIGATION_ICON = "ico_globalnavi";

/** The word of a name behind the prefix that all are to have; the first one of a name without it. */
std::string area_of(const std::string& name, const std::string& prefix) {
    const std::size_t start = name.compare(0, prefix.size(), prefix) == 0 ? prefix.size() : 0;
    return name.substr(start, name.find('_', start) - start);
}

/** Whether a name is made of capitals and digits, in words that one "_" separates. */
bool is_plain_name(const std::string& name) {
    const bool has_plain_characters = std::all_of(name.begin(), name.end(), [](char c) {
        return c == '_' || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    });
    return has_plain_characters && name.back() != '_' && name.find("__") == std::string::npos;
}

bool has_control_character(const std::string& text) {
    return std::any_of(text.begin(), text.end(),
                       [](char c) { return c != '\n' && static_cast<unsigned char>(c) < ' '; });
}

class figure_book {
public:
    figure_book(const message_catalogue& messages, const std::vector<catalogue_image>& images) {
        take_messages(messages.messages);
        take_rows(messages.rows);
        take_images(images);
    }

    bool has(const std::string& name) const { return figures_.count(name) != 0; }
    std::string at(const std::string& name) const { return has(name) ? figures_.at(name) : "0"; }

private:
    /** Ids of which the catalogue has at least one. */
    template <typename ENTRY> void take_ids(const std::string& kind, const std::vector<ENTRY>& entries) {
        set(kind + "s", entries.size());
        set("first " + kind, entries.front().id);
        set("last " + kind, entries.back().id);
        std::size_t gaps = 0;
        for (std::size_t i = 1; i < entries.size(); ++i) {
            gaps += entries[i].id != entries[i - 1].id + 1 ? 1U : 0U;
        }
        set("gaps between ids of " + kind + "s", gaps);
    }

    void take_messages(const std::vector<catalogue_message>& messages) {
        take_ids("message", messages);
        std::map<std::string, std::size_t> names;
        std::map<std::string, std::size_t> groups;
        std::set<std::int32_t> rows;
        std::set<std::size_t> lengths;
        std::size_t on_row_without_text = 0;
        for (const catalogue_message& message : messages) {
            ++names[message.name];
            ++groups[area_of(message.name, "MSG_")];
            rows.insert(message.row);
            lengths.insert(message.name.size());
            on_row_without_text += message.row == ROW_WITHOUT_TEXT ? 1U : 0U;
            figures_["message " + std::to_string(message.id)] =
                message.name + ", row " + std::to_string(message.row);
        }
        set_all(MESSAGE_GROUP, groups);
        std::size_t odd = 0;
        std::size_t twice = 0;
        for (const auto& [name, uses] : names) {
            odd += is_plain_name(name) ? 0 : uses;
            twice += uses == 2 ? 1U : 0U;
        }
        set("different names of messages", names.size());
        set("names of two messages", twice);
        set("messages with other characters in their names", odd);
        set("bytes of the shortest name of a message", *lengths.begin());
        set("bytes of the longest name of a message", *lengths.rbegin());
        set("rows of messages", rows.size());
        set("highest row of a message", *rows.rbegin());
        set("messages on row 1", on_row_without_text);
    }

    void take_rows(const std::vector<catalogue_row>& rows) {
        std::size_t empty = 0;
        std::size_t partly_empty = 0;
        std::size_t with_control_character = 0;
        std::size_t longest = 0;
        for (std::size_t row = 0; row < NULL_ROW; ++row) {
            std::size_t texts = 0;
            for (std::size_t language = 0; language < STANDARD_LANGUAGE_NAMES.size(); ++language) {
                const std::string& text = rows[row].texts[language];
                texts += text.empty() ? 0U : 1U;
                with_control_character += has_control_character(text) ? 1U : 0U;
                longest = std::max(longest, text.size());
                figures_[STANDARD_LANGUAGE_NAMES[language] + (" text of row " + std::to_string(row))] = text;
            }
            empty += texts == 0 ? 1U : 0U;
            partly_empty += texts != 0 && texts != STANDARD_LANGUAGE_NAMES.size() ? 1U : 0U;
        }
        set("rows without a text", empty);
        set("rows with texts in some languages only", partly_empty);
        set("bytes of the longest text", longest);
        set("texts with control characters other than line breaks", with_control_character);
    }

    void take_images(const std::vector<catalogue_image>& images) {
        take_ids("image", images);
        std::map<std::string, std::size_t> categories;
        std::map<std::string, std::size_t> endings;
        std::map<std::string, std::size_t> files;
        std::size_t odd = 0;
        for (const catalogue_image& image : images) {
            const std::string& file = image.file;
            ++categories[area_of(image.name, "ICON_")];
            ++files[file];
            odd += is_plain_name(image.name) ? 0U : 1U;
            const bool is_blank = is_blank_file_name(file);
            ++endings[is_blank ? file : file.substr(std::min(file.rfind('.'), file.size()))];
            figures_["image " + std::to_string(image.id)] = image.name + ", \"" + file + "\"";
        }
        set_all(IMAGE_CATEGORY, categories);
        set("images with other characters in their names", odd);
        set_all(IMAGE_ENDING, endings, "\"");
        set_all(IMAGE_FILE, files, "\"");
        take_files(files);
    }

    void take_files(const std::map<std::string, std::size_t>& files) {
        std::size_t pictures = 0;
        std::size_t darker_images = 0;
        std::size_t navigation_images = 0;
        std::size_t navigation_files = 0;
        for (const auto& [file, uses] : files) {
            const bool is_navigation = file.find(NAVIGATION_ICON) != std::string::npos;
            pictures += is_blank_file_name(file) ? 0U : 1U;
            darker_images += file.compare(0, DARKER_PREFIX.size(), DARKER_PREFIX) == 0 ? uses : 0;
            navigation_images += is_navigation ? uses : 0;
            navigation_files += is_navigation ? 1U : 0U;
        }
        set("files of images", pictures);
        set("images with a darker picture", darker_images);
        set("images of the global navigation", navigation_images);
        set("files of the global navigation", navigation_files);
    }

    template <typename NUMBER> void set(const std::string& name, NUMBER number) {
        figures_[name] = std::to_string(number);
    }
    void set_all(const std::string& family, const std::map<std::string, std::size_t>& numbers,
                 const std::string& end = "") {
        for (const auto& [name, number] : numbers) {
            set(std::string(family).append(name).append(end), number);
        }
    }

    std::map<std::string, std::string> figures_;
};

bool is_of_a_family(const std::string& name) {
    return std::any_of(std::begin(FAMILIES), std::end(FAMILIES), [&name](const std::string* family) {
        return name.compare(0, family->size(), *family) == 0;
    });
}

} // namespace

void check_catalogue_figures(const std::string& folder, const message_catalogue& messages,
                             const std::vector<catalogue_image>& images, diagnostics& report) {
    const std::string path = folder + "/figures.tsv";
    std::error_code missing;
    if (!std::filesystem::exists(std::filesystem::symlink_status(path, missing))) {
        return;
    }
    const figure_book book(messages, images);
    for (const tsv_record& record : read_tsv_table(path, {"name", "figure"}, report)) {
        const std::string& name = record.fields[0];
        const std::string& expected = record.fields[1];
        if (!book.has(name) && !is_of_a_family(name)) {
            report.error(CHECK_FIGURES, record.place_of(0),
                         "\"" + name + "\" is no figure of this catalogue");
        } else if (book.at(name) != expected) {
            std::string fault = name;
            fault.append(": ").append(expected).append(" expected, ").append(book.at(name)).append(" found");
            report.error(CHECK_FIGURES, record.place_of(1), fault);
        }
    }
}

std::map<std::string, std::string> figures_of_catalogue(const std::vector<std::string>& names,
                                                        const message_catalogue& messages,
                                                        const std::vector<catalogue_image>& images) {
    const figure_book book(messages, images);
    std::map<std::string, std::string> figures;
    for (const std::string& name : names) {
        if (book.has(name) || is_of_a_family(name)) {
            figures[name] = book.at(name);
        }
    }
    return figures;
}

} // namespace velarion
