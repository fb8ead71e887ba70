#include "findings_json.h"

#include "json_text.h"

#include <iostream>

namespace velarion {

namespace {

std::string json_of(const finding& found) {
    return "{\"file\": " + json_text(found.place.file) + ", \"line\": " + std::to_string(found.place.line) +
           ", \"column\": " + std::to_string(found.place.column) + ", \"severity\": \"" +
           severity_name(found.kind) + "\", \"check\": " + json_text(found.check) +
           ", \"language\": " + json_text(found.language) + ", \"subject\": " + json_text(found.subject) +
           ", \"text\": " + json_text(found.text) + "}";
}

} // namespace

language_counts count_languages(const diagnostics& report) {
    language_counts counts;
    for (const finding& found : report.findings()) {
        if (!found.language.empty()) {
            ++counts[found.check][found.language];
        }
    }
    return counts;
}

void print_findings_json(const diagnostics& report, bool passed) {
    std::cout << "{\"findings\": [";
    const char* separator = "\n  ";
    for (const finding& found : report.findings()) {
        std::cout << separator << json_of(found);
        separator = ",\n  ";
    }
    std::cout << "],\n \"checks\": {";
    separator = "\n  ";
    for (const auto& [check, languages] : count_languages(report)) {
        std::cout << separator << json_text(check) << ": {";
        const char* comma = "";
        for (const auto& [language, count] : languages) {
            std::cout << comma << json_text(language) << ": " << count;
            comma = ", ";
        }
        std::cout << '}';
        separator = ",\n  ";
    }
    std::cout << "},\n \"errors\": " << report.error_count()
              << ", \"warnings\": " << report.count(severity::WARNING)
              << ", \"remarks\": " << report.count(severity::REMARK)
              << ", \"passed\": " << (passed ? "true" : "false") << "}\n";
}

} // namespace velarion
