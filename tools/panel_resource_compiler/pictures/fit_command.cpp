#include "authoring_subcommands.h"
#include "catalogue_options.h"
#include "message_catalogue.h"
#include "panel_fonts.h"
#include "picture_checks.h"
#include "picture_report.h"
#include "subcommand.h"

#include <QDir>
#include <QFile>
#include <QFontMetrics>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>

#include <algorithm>
#include <iostream>
#include <map>
#include <set>
#include <tuple>

namespace velarion {

namespace {

const QString FORMAT = QStringLiteral("panel_report/1");
constexpr QColor GROUND(0x1f, 0x2a, 0x36); // the panel's
constexpr QColor BOX(0x3f, 0xa7, 0xe0);
constexpr QColor INSIDE(0xf2, 0xf5, 0xf7);
constexpr QColor OVERFLOW_COLOR(0xe5, 0x48, 0x4d);
constexpr int MARGIN = 16;
constexpr int LABEL_HEIGHT = 20;
constexpr int SHEET_WIDTH = 1000;
constexpr int ENTRIES_OF_A_SHEET = 40;
/** Without a break a text is measured on a line that has no end. */
constexpr int ENDLESS = 1 << 20;

/** A place of the panel where a message is shown. */
struct text_box {
    int id = 0;
    QString screen;
    QSize size;
    int pixels = 0;
    int weight = QFont::Normal;
    bool wraps = false;

    auto key() const { return std::make_tuple(id, size.width(), size.height(), pixels, weight, wraps); }
};

/** A text that does not fit where it is shown. */
struct misfit {
    QString text;
    text_box box;
    QFont font;
    QSize needed;
};

bool read_text_box(const QJsonObject& text, const QString& screen, text_box& box) {
    const QJsonArray place = text.value(QStringLiteral("box")).toArray();
    const QJsonObject font = text.value(QStringLiteral("font")).toObject();
    box.id = text.value(QStringLiteral("id")).toInt();
    box.screen = screen;
    box.size = QSize(place.at(2).toInt(), place.at(3).toInt());
    box.pixels = font.value(QStringLiteral("px")).toInt();
    box.weight = font.value(QStringLiteral("weight")).toInt(QFont::Normal);
    box.wraps = text.value(QStringLiteral("wrap")).toBool();
    return place.size() == 4 && box.pixels > 0 && !box.size.isEmpty();
}

/** Reads the boxes of all screens; a message that several screens show alike is taken once. */
bool read_boxes(const std::string& path, std::vector<text_box>& boxes, std::string& fault) {
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::ReadOnly)) {
        fault = path + ": cannot be read";
        return false;
    }
    QJsonParseError error;
    const QJsonObject root = QJsonDocument::fromJson(file.readAll(), &error).object();
    if (root.value(QStringLiteral("format")).toString() != FORMAT) {
        fault = path + ": is no report of the simulator (" +
                (error.error == QJsonParseError::NoError ? "its format is not panel_report/1"
                                                         : error.errorString().toStdString()) +
                ")";
        return false;
    }
    std::set<decltype(text_box().key())> known;
    for (const QJsonValue& screen : root.value(QStringLiteral("screens")).toArray()) {
        for (const QJsonValue& text : screen.toObject().value(QStringLiteral("texts")).toArray()) {
            text_box box;
            if (read_text_box(text.toObject(), screen.toObject().value(QStringLiteral("screen")).toString(),
                              box) &&
                known.insert(box.key()).second) {
                boxes.push_back(box);
            }
        }
    }
    return true;
}

QSize needed_size(const QString& text, const QFont& font, const text_box& box) {
    const int width = box.wraps ? box.size.width() : ENDLESS;
    const int flags = box.wraps ? static_cast<int>(Qt::TextWordWrap) : 0;
    return QFontMetrics(font).boundingRect(QRect(0, 0, width, ENDLESS), flags, text).size();
}

QImage sheet_of(const std::vector<misfit>& misfits, std::size_t first, std::size_t count) {
    int height = MARGIN;
    for (std::size_t i = first; i < first + count; ++i) {
        height += std::max(misfits[i].box.size.height(), misfits[i].needed.height()) + LABEL_HEIGHT + MARGIN;
    }
    QImage sheet(SHEET_WIDTH, height, QImage::Format_RGB32);
    sheet.fill(GROUND);
    QPainter painter(&sheet);
    QFont label = painter.font();
    label.setPixelSize(12);
    int y = MARGIN;
    for (std::size_t i = first; i < first + count; ++i) {
        const misfit& entry = misfits[i];
        painter.setFont(label);
        painter.setPen(INSIDE);
        painter.drawText(MARGIN, y + LABEL_HEIGHT - 7,
                         QStringLiteral("%1, message %2: %3 x %4 needed, %5 x %6 there")
                             .arg(entry.box.screen)
                             .arg(entry.box.id)
                             .arg(entry.needed.width())
                             .arg(entry.needed.height())
                             .arg(entry.box.size.width())
                             .arg(entry.box.size.height()));
        y += LABEL_HEIGHT;
        const QRect box(QPoint(MARGIN, y), entry.box.size);
        const QRect all(box.topLeft(), QSize(entry.box.wraps ? box.width() : ENDLESS, ENDLESS));
        const int flags = entry.box.wraps ? static_cast<int>(Qt::TextWordWrap) : 0;
        painter.setFont(entry.font);
        painter.setPen(OVERFLOW_COLOR);
        painter.drawText(all, flags, entry.text);
        painter.setClipRect(box);
        painter.fillRect(box, GROUND.lighter(130));
        painter.setPen(INSIDE);
        painter.drawText(all, flags, entry.text);
        painter.setClipping(false);
        painter.setPen(BOX);
        painter.drawRect(box.adjusted(0, 0, -1, -1));
        y += std::max(box.height(), entry.needed.height()) + MARGIN;
    }
    return sheet;
}

bool write_sheets(const std::string& folder, const std::string& language, const std::vector<misfit>& misfits,
                  std::string& fault) {
    const QString path = QString::fromStdString(folder);
    for (std::size_t first = 0; first < misfits.size(); first += ENTRIES_OF_A_SHEET) {
        const std::size_t count = std::min<std::size_t>(ENTRIES_OF_A_SHEET, misfits.size() - first);
        const QString file = QStringLiteral("%1/fit-%2-%3.png")
                                 .arg(path, QString::fromStdString(language))
                                 .arg(first / ENTRIES_OF_A_SHEET + 1, 2, 10, QLatin1Char('0'));
        if (!QDir().mkpath(path) || !sheet_of(misfits, first, count).save(file, "PNG")) {
            fault = file.toStdString() + ": cannot be written";
            return false;
        }
        std::cerr << file.toStdString() << '\n';
    }
    return true;
}

std::string size_text(const QSize& size) {
    return std::to_string(size.width()) + " x " + std::to_string(size.height());
}

std::vector<misfit> check_language(const panel_language& language, const std::vector<text_box>& boxes,
                                   const std::map<std::int32_t, std::int32_t>& rows, diagnostics& report) {
    std::map<std::int32_t, row_text> texts;
    for (row_text& text : read_row_texts(language.texts, language.name, report)) {
        texts.emplace(text.row, text);
    }
    std::vector<misfit> misfits;
    for (const text_box& box : boxes) {
        const auto row = rows.find(box.id);
        const auto text = row == rows.end() ? texts.end() : texts.find(row->second);
        if (text == texts.end() || text->second.text.empty()) {
            continue;
        }
        QFont font(language.family, -1, box.weight);
        font.setPixelSize(box.pixels);
        const QString shown = QString::fromStdString(text->second.text);
        const QSize needed = needed_size(shown, font, box);
        if (needed.width() > box.size.width() || needed.height() > box.size.height()) {
            misfits.push_back({shown, box, font, needed});
            report.warning(CHECK_FIT, text->second.place,
                           "message " + std::to_string(box.id) + " on screen \"" + box.screen.toStdString() +
                               "\": needs " + size_text(needed) + ", has " + size_text(box.size) + " at " +
                               std::to_string(box.pixels) + " pixels" + (box.wraps ? "" : ", on one line"));
        }
    }
    return misfits;
}

} // namespace

int run_fit_command(const std::vector<std::string>& arguments) {
    catalogue_options line;
    std::string report_file;
    std::string sheets;
    std::string device_tree;
    std::vector<std::string> wanted;
    std::vector<std::string> failing;
    bool is_json = false;
    command_options options("fit", "Draws each text into the boxes in which the simulator shows its message, "
                                   "and tells which do not fit.");
    options.require("catalogue", "DIR", line.catalogue, "folder that holds messages.tsv, texts/ and packs/");
    options.require("report", "FILE", report_file, "the simulator's report, panel_report/1");
    options.values("language", "LANGUAGE", wanted, "only this one, \"de\" or 49; may stand several times");
    options.value("sheet", "DIR", sheets,
                  "draws the texts that do not fit, into fit-LANGUAGE-01.png and so on");
    options.value("device-tree", "DIR", device_tree,
                  "device whose font files are taken beside this machine's and the packs'");
    options.values("fail-on", "CHECK", failing, "ends with 1 also when the check \"fit\" finds something");
    options.flag("json", is_json, "writes the findings as JSON on standard output");
    options.flag("all", line.shows_all, "shows all findings, not only the first 20");
    if (const std::optional<int> end = options.read(arguments)) {
        return *end;
    }
    std::string fault = unknown_check_of(failing);
    if (!fault.empty()) {
        return options.usage_fault(fault);
    }
    std::vector<text_box> boxes;
    if (!read_boxes(report_file, boxes, fault)) {
        return file_fault(fault);
    }
    const offscreen_application application;
    diagnostics report(std::cerr);
    if (is_json) {
        report.be_silent();
    }
    if (line.shows_all) {
        report.show_all();
    }
    load_panel_fonts(line.catalogue, device_tree);
    std::map<std::int32_t, std::int32_t> rows;
    for (const catalogue_message& message : read_message_list(line.catalogue, report)) {
        rows.emplace(message.id, message.row);
    }
    std::size_t checked = 0;
    for (const panel_language& language : panel_languages(line.catalogue)) {
        if (!is_wanted_language(language, wanted)) {
            continue;
        }
        ++checked;
        const std::vector<misfit> misfits = check_language(language, boxes, rows, report);
        if (!sheets.empty() && !write_sheets(sheets, language.name, misfits, fault)) {
            return file_fault(fault);
        }
    }
    return checked == 0 ? options.usage_fault("the catalogue has none of these languages")
                        : finish_report(report, is_json, failing);
}

} // namespace velarion
