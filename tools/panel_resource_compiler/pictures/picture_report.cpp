#include "picture_report.h"

#include "picture_checks.h"
#include "subcommand.h"
#include "tsv_table.h"

#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <set>

namespace velarion {

namespace {

constexpr char ALL_WARNINGS[] = "warnings";

QJsonObject to_json(const finding& found) {
    return {{QStringLiteral("file"), QString::fromStdString(found.place.file)},
            {QStringLiteral("line"), static_cast<int>(found.place.line)},
            {QStringLiteral("column"), static_cast<int>(found.place.column)},
            {QStringLiteral("severity"), QString::fromUtf8(severity_name(found.kind))},
            {QStringLiteral("check"), QString::fromStdString(found.check)},
            {QStringLiteral("text"), QString::fromStdString(found.text)}};
}

int argument_count = 1;
char program_name[] = "panel_resource_compiler";
char* program_arguments[] = {program_name, nullptr};

} // namespace

offscreen_application::offscreen_application() {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    application_ = std::make_unique<QGuiApplication>(argument_count, program_arguments);
}

offscreen_application::~offscreen_application() = default;

void use_picture_ignore_list(const std::string& folder, const std::string& subject, diagnostics& report) {
    const std::string path = folder + "/ignore.tsv";
    if (!std::filesystem::exists(path)) {
        return;
    }
    std::set<std::pair<std::string, std::string>> entries;
    for (const tsv_record& record :
         read_tsv_table(path, {"check", "subject", "language", "reason"}, report)) {
        entries.emplace(record.fields[0], record.fields[1]);
    }
    report.set_filter([entries, &subject](const finding& found) {
        return entries.count({found.check, subject}) != 0;
    });
}

std::string unknown_check_of(const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        const bool is_known =
            name == ALL_WARNINGS ||
            std::find(std::begin(PICTURE_CHECKS), std::end(PICTURE_CHECKS), name) != std::end(PICTURE_CHECKS);
        if (!is_known) {
            std::string fault = "unknown check \"" + name + "\"; known are " + ALL_WARNINGS;
            for (const char* const known : PICTURE_CHECKS) {
                fault += std::string(", ") + known;
            }
            return fault;
        }
    }
    return {};
}

int finish_report(const diagnostics& report, bool is_json, const std::vector<std::string>& failing) {
    if (is_json) {
        QJsonArray findings;
        for (const finding& found : report.findings()) {
            findings.append(to_json(found));
        }
        std::printf("%s", QJsonDocument(findings).toJson().constData());
    } else {
        report.write_summary();
    }
    const bool fails =
        std::any_of(report.findings().begin(), report.findings().end(), [&failing](const finding& found) {
            return found.kind == severity::ERROR ||
                   std::find(failing.begin(), failing.end(), found.check) != failing.end() ||
                   (found.kind == severity::WARNING &&
                    std::find(failing.begin(), failing.end(), ALL_WARNINGS) != failing.end());
        });
    return fails ? EXIT_CATALOGUE_FAULT : EXIT_GOOD;
}

} // namespace velarion
