#include "image_catalogue.h"

#include "checks.h"
#include "tsv_table.h"

#include <algorithm>
#include <array>
#include <map>

namespace velarion {

namespace {

constexpr std::size_t LONGEST_FILE_NAME = 255;
const std::string BLANK = " ";
const std::string IDEOGRAPHIC_SPACE = "\xE3\x80\x80";
const std::array<std::string, 3> EXTENSIONS = {".png", ".svg", ".gif"};

bool is_printable_ascii(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

std::string lower_case(std::string text) {
    for (char& c : text) {
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return text;
}

bool has_picture_extension(const std::string& file) {
    const std::string name = lower_case(file);
    return std::any_of(EXTENSIONS.begin(), EXTENSIONS.end(), [&name](const std::string& extension) {
        return name.size() > extension.size() &&
               name.compare(name.size() - extension.size(), extension.size(), extension) == 0;
    });
}

class image_checker {
public:
    explicit image_checker(diagnostics& report)
        : report_(report) {}

    void check(const tsv_record& record, const catalogue_image& image) {
        if (image.id < 1) {
            report_.error(CHECK_ID, record.place_of(0), "id " + std::to_string(image.id) + " is less than 1");
        } else {
            ids_.take(record.place_of(0), image.id, report_);
        }
        check_name(record.place_of(1), image.name);
        check_file(record.place_of(2), image.file);
    }

private:
    void check_name(const source_place& place, const std::string& name) {
        const std::string fault = image_name_fault(name);
        if (!fault.empty()) {
            report_.error(CHECK_NAME, place, fault);
        }
        if (name.empty()) {
            return;
        }
        const auto [first, is_new] = names_.emplace(name, place.line);
        if (!is_new) {
            report_.error(CHECK_NAME, place,
                          "the name \"" + name + "\" stands in line " + std::to_string(first->second) +
                              " already");
        }
    }

    void check_file(const source_place& place, const std::string& file) {
        const std::string fault = image_file_fault(file);
        if (!fault.empty()) {
            report_.error(CHECK_PICTURE, place, fault);
        } else if (!is_blank_file_name(file) && !has_picture_extension(file)) {
            report_.warning(CHECK_EXTENSIONS, place,
                            "the file \"" + file + "\" does not end in .png, .svg or .gif: never shown");
        }
    }

    diagnostics& report_;
    ascending_numbers ids_{"id", CHECK_ID};
    std::map<std::string, std::size_t> names_; // the line of each name's first image
};

} // namespace

bool is_blank_file_name(const std::string& file) {
    return file == BLANK || file == IDEOGRAPHIC_SPACE;
}

std::string image_name_fault(const std::string& name) {
    if (name.empty()) {
        return "the image has no name";
    }
    return is_printable_ascii(name) ? std::string()
                                    : "the name \"" + name + "\" holds more than printable ASCII";
}

std::string image_file_fault(const std::string& file) {
    const std::string described = "the file \"" + file + "\" ";
    if (file.empty()) {
        return "the image has no file; one blank stands for an image without a picture";
    }
    if (is_blank_file_name(file)) {
        return {};
    }
    if (!is_printable_ascii(file)) {
        return described + "holds more than printable ASCII";
    }
    if (file.find_first_of("/\\") != std::string::npos) {
        return described + "holds a path separator";
    }
    if (file.size() > LONGEST_FILE_NAME) {
        return described + "has more than " + std::to_string(LONGEST_FILE_NAME) +
               " bytes, which no file system takes";
    }
    if (file.front() == ' ' || file.back() == ' ') {
        return described + "begins or ends with a blank";
    }
    return file.find(':') == std::string::npos ? std::string()
                                               : described + "holds a \":\", which marks external images";
}

std::vector<catalogue_image> read_image_catalogue(const std::string& folder, diagnostics& report) {
    const std::string path = folder + "/images.tsv";
    std::vector<catalogue_image> images;
    image_checker checker(report);
    for (const tsv_record& record : read_tsv_table(path, {"id", "name", "file"}, report)) {
        catalogue_image image{0, record.fields[1], record.fields[2]};
        if (read_number_field(record, 0, "id", report, image.id)) {
            checker.check(record, image);
            images.push_back(std::move(image));
        }
    }
    if (images.empty()) {
        report.error(CHECK_TABLE, {path, 0}, "holds no image");
    }
    return images;
}

} // namespace velarion
