#include "checks.h"
#include "picture_checks.h"

#include <QFile>

namespace velarion {

namespace {

const std::set<std::string> PLACEHOLDERS = {"ERROR_IMAGE.png", "ERROR_MOVIE.gif"};

/** Where the file of each row stands. */
std::map<std::int32_t, source_place> places_of_rows(const std::string& path) {
    std::map<std::int32_t, source_place> places;
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::ReadOnly)) {
        return places;
    }
    for (std::size_t line = 1; !file.atEnd(); ++line) {
        const QByteArray text = file.readLine();
        bool is_number = false;
        const int id = text.left(text.indexOf('\t')).toInt(&is_number);
        if (is_number) {
            places.emplace(id,
                           source_place{path, line, static_cast<std::size_t>(text.lastIndexOf('\t')) + 2});
        }
    }
    return places;
}

std::string in_lower_case(const std::string& name) {
    return QString::fromStdString(name).toLower().toStdString();
}

void check_rows(const std::string& list, const std::vector<catalogue_image>& images,
                const picture_folder& folder, diagnostics& report) {
    const std::map<std::int32_t, source_place> places = places_of_rows(list);
    const std::set<std::string> files(folder.names.begin(), folder.names.end());
    std::map<std::string, std::string> by_lower_case;
    for (const std::string& name : folder.names) {
        by_lower_case.emplace(in_lower_case(name), name);
    }
    for (const catalogue_image& image : images) {
        const auto place = places.find(image.id);
        const auto add = [&](severity kind, const char* check, const std::string& text) {
            report.add({place != places.end() ? place->second : source_place{list, 0},
                        kind,
                        check,
                        "image " + std::to_string(image.id) + ' ' + image.name + ": \"" + image.file + text,
                        {},
                        image.file});
        };
        if (folder.generic.count(image.file) != 0) {
            add(severity::WARNING, CHECK_GENERIC,
                "\" is a general picture: no word of its name has a pictogram");
        }
        if (is_blank_file_name(image.file) || files.count(image.file) != 0 ||
            files.count("d_" + image.file) != 0) {
            continue;
        }
        const auto other = by_lower_case.find(in_lower_case(image.file));
        add(severity::ERROR, CHECK_NO_FILE,
            "\" is not in " + folder.path +
                (other == by_lower_case.end() ? "" : "; \"" + other->second + "\" is, in other letters"));
    }
}

} // namespace

void check_image_rows(const std::string& catalogue, const std::vector<catalogue_image>& images,
                      const picture_folder& folder, diagnostics& report) {
    check_rows(catalogue + "/images.tsv", images, folder, report);
    std::set<std::string> rows;
    for (const catalogue_image& image : images) {
        rows.insert(image.file);
    }
    for (const std::string& name : folder.names) {
        const picture_file_name parts(name);
        const bool is_listed = rows.count(name) != 0 || rows.count(parts.base + parts.extension) != 0 ||
                               rows.count(parts.base + parts.state + parts.extension) != 0 ||
                               rows.count(parts.twin + parts.base + parts.extension) != 0;
        if (!is_listed && PLACEHOLDERS.count(name) == 0) {
            report.add(
                folder.found(severity::WARNING, CHECK_NO_ROW, name,
                             "no row of the image list names it, nor the picture whose state or twin it is"));
        }
    }
}

} // namespace velarion
