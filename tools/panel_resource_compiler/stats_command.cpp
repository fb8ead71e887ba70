#include "authoring_subcommands.h"
#include "catalogue_options.h"
#include "catalogue_statistics.h"
#include "ignore_list.h"
#include "json_text.h"

#include <array>
#include <iomanip>
#include <iostream>

namespace velarion {

namespace {

const struct {
    const char* name;
    std::size_t text_statistics::*count;
} COLUMNS[] = {{"messages", &text_statistics::messages}, {"texts", &text_statistics::texts},
               {"empty", &text_statistics::empty},       {"shared", &text_statistics::shared},
               {"unused", &text_statistics::unused},     {"X: Y", &text_statistics::labels},
               {"longest", &text_statistics::longest}};

constexpr int NAME_WIDTH = 14;
constexpr int NUMBER_WIDTH = 10;

std::string longest_of(const text_statistics& counts) {
    if (counts.longest_row == 0) {
        return {};
    }
    const std::string row = "row " + std::to_string(counts.longest_row);
    return counts.longest_id == 0 ? row : "id " + std::to_string(counts.longest_id) + ", " + row;
}

void print_line(const std::string& name, const text_statistics& counts) {
    std::cout << std::left << std::setw(NAME_WIDTH) << name << std::right;
    for (const auto& column : COLUMNS) {
        std::cout << std::setw(NUMBER_WIDTH) << counts.*column.count;
    }
    std::cout << "  " << longest_of(counts) << '\n';
}

void print_table(const std::vector<language_statistics>& languages) {
    std::cout << std::left << std::setw(NAME_WIDTH) << "" << std::right;
    for (const auto& column : COLUMNS) {
        std::cout << std::setw(NUMBER_WIDTH) << column.name;
    }
    std::cout << '\n';
    for (const language_statistics& language : languages) {
        print_line(language.language, language.all);
        for (const auto& [area, counts] : language.areas) {
            print_line("  " + area, counts);
        }
    }
}

std::string json_of(const text_statistics& counts) {
    std::string json;
    for (const auto& column : COLUMNS) {
        const bool is_label_count = column.count == &text_statistics::labels;
        json += (json.empty() ? "{" : ", ") + json_text(is_label_count ? "labels" : column.name) + ": " +
                std::to_string(counts.*column.count);
    }
    return json + ", \"longest_row\": " + std::to_string(counts.longest_row) +
           ", \"longest_id\": " + std::to_string(counts.longest_id) + "}";
}

void print_json(const std::vector<language_statistics>& languages) {
    std::cout << "{\"languages\": [";
    const char* separator = "\n  ";
    for (const language_statistics& language : languages) {
        std::cout << separator << "{\"language\": " << json_text(language.language)
                  << ", \"all\": " << json_of(language.all) << ",\n   \"areas\": {";
        const char* comma = "\n    ";
        for (const auto& [area, counts] : language.areas) {
            std::cout << comma << json_text(area) << ": " << json_of(counts);
            comma = ",\n    ";
        }
        std::cout << "}}";
        separator = ",\n  ";
    }
    std::cout << "]}\n";
}

} // namespace

int run_stats_command(const std::vector<std::string>& arguments) {
    catalogue_options line;
    bool is_json = false;
    command_options options(
        "stats", "Counts the texts of each language, and in it of each screen area, the word behind\n"
                 "\"MSG_\" in the names of its messages: rows with a text, empty ones, those that\n"
                 "several messages share or none uses, those like \"Name: value\", and the\n"
                 "characters, id and row of the longest. Messages on row 1 do not count.");
    add_catalogue_options(options, line);
    options.flag("json", is_json, "writes JSON");
    if (const std::optional<int> end = options.read(arguments)) {
        return *end;
    }
    diagnostics report(std::cerr);
    const std::string fault = apply_catalogue_options(line, report);
    if (!fault.empty()) {
        return options.usage_fault(fault);
    }
    use_ignore_list(line.catalogue, report);
    const catalogue_source source = read_catalogue(line.catalogue, report);
    report.write_summary();
    if (report.error_count() != 0) {
        return EXIT_CATALOGUE_FAULT;
    }
    const std::vector<language_statistics> languages = count_texts(source);
    is_json ? print_json(languages) : print_table(languages);
    return EXIT_GOOD;
}

} // namespace velarion
