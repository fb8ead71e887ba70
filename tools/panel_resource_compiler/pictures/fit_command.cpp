#include "authoring_subcommands.h"
#include "fit_sheet.h"
#include "font_look.h"
#include "ignore_list.h"
#include "message_catalogue.h"
#include "offscreen_application.h"

#include <cstdio>
#include <iostream>
#include <map>

namespace velarion {

namespace {

struct fit_line {
    font_look fonts = {{check_area::FIT}};
    std::string report_file;
    std::string sheets;
};

std::string size_text(const QSize& size) {
    return std::to_string(size.width()) + " x " + std::to_string(size.height());
}

finding found_misfit(const panel_language& language, const row_text& text, const misfit& found) {
    const text_box& box = found.box;
    const std::string id = std::to_string(box.id);
    return {text.place,
            severity::WARNING,
            CHECK_FIT,
            "message " + id + " on screen \"" + box.screen.toStdString() + "\": needs " +
                size_text(found.needed) + ", has " + size_text(box.size) + " at " +
                std::to_string(box.font_sizes.back()) + " pixels" + (box.wraps ? "" : ", on one line") +
                (box.language == language.id
                     ? ""
                     : ", where language " + std::to_string(box.language) + " is laid out"),
            language.name,
            id};
}

std::vector<misfit> check_language(const panel_language& language, const std::vector<text_box>& boxes,
                                   const std::map<std::int32_t, std::int32_t>& rows, diagnostics& report) {
    std::map<std::int32_t, row_text> texts;
    for (row_text& text : read_row_texts(language.texts, language.name, report)) {
        texts.emplace(text.row, text);
    }
    std::vector<misfit> misfits;
    std::size_t measured = 0;
    for (const text_box& box : boxes_for(language.id, boxes)) {
        const auto row = rows.find(box.id);
        const auto text = row == rows.end() ? texts.end() : texts.find(row->second);
        if (text == texts.end() || text->second.text.empty()) {
            continue;
        }
        ++measured;
        misfit found;
        if (!fits_box(QString::fromStdString(text->second.text), language.family, box, found)) {
            const std::size_t counted = report.findings().size();
            report.add(found_misfit(language, text->second, found));
            if (report.findings().size() > counted) {
                misfits.push_back(found);
            }
        }
    }
    if (!report.is_silent()) {
        std::fprintf(stderr, "%s: %zu texts measured\n", language.name.c_str(), measured);
    }
    return misfits;
}

int check(const fit_line& line, const std::vector<text_box>& boxes, diagnostics& report) {
    const std::string& catalogue = line.fonts.look.catalogue.catalogue;
    load_panel_fonts(catalogue, line.fonts.device_tree);
    use_ignore_list(catalogue, report);
    std::map<std::int32_t, std::int32_t> rows;
    for (const catalogue_message& message : read_message_list(catalogue, report)) {
        rows.emplace(message.id, message.row);
    }
    for (const panel_language& language : line.fonts.languages) {
        const std::vector<misfit> misfits = check_language(language, boxes, rows, report);
        std::string fault;
        if (!line.sheets.empty() && !write_fit_sheets(line.sheets, language.name, misfits, fault)) {
            return file_fault(fault);
        }
    }
    return finish_look(line.fonts.look, report);
}

void declare(command_options& options, fit_line& line) {
    add_font_look_options(options, line.fonts);
    options.require("report", "FILE", line.report_file, "the simulator's report, panel_report/1");
    options.value("sheet", "DIR", line.sheets,
                  "draws the texts that do not fit, 1000 of a language at most, into\n"
                  "fit-LANGUAGE-01.png and so on; removes what an earlier run left there");
}

} // namespace

int run_fit_command(const std::vector<std::string>& arguments) {
    fit_line line;
    command_options options("fit", "Draws each text into the boxes in which the simulator shows its message, "
                                   "and tells which do not fit at\nthe smallest size. Leaves out what "
                                   "DIR/ignore.tsv lists: subject is the id of the message.");
    declare(options, line);
    diagnostics report(std::cerr);
    if (const std::optional<int> end = read_font_look(options, arguments, line.fonts, report)) {
        return *end;
    }
    std::string fault;
    std::vector<text_box> boxes;
    if (!read_report_boxes(line.report_file, boxes, fault)) {
        return file_fault(fault);
    }
    const offscreen_application application;
    return check(line, boxes, report);
}

} // namespace velarion
