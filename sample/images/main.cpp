#include "image_catalogue.h"
#include "picture_files.h"
#include "written_files.h"

#include <QCoreApplication>
#include <clocale>
#include <filesystem>
#include <iostream>
#include <map>
#include <set>

namespace velarion {

namespace {

enum exit_status { EXIT_GOOD = 0, EXIT_SOURCE_FAULT = 1, EXIT_USAGE = 2, EXIT_FILE_FAULT = 3 };

constexpr char HELP[] =
    R"(sample_images_builder - makes every picture of the image list for the sample device

Usage:
  sample_images_builder --catalogue DIR --glyphs FILE --drawn DIR [--own DIR] --output DIR

Options:
  --catalogue DIR   folder that holds images.tsv
  --glyphs FILE     the pictograms by the words of file names
  --drawn DIR       pictures drawn by hand: copied instead of generated
  --own DIR         SVG, PNG and GIF pictures that stand before all others; also those that no row names
                    are copied
  --output DIR      the image directory; made when missing. What an earlier run made there and this
                    one does not is removed.
  --help

Exit codes: 0 good, 1 the image list or the pictograms have errors, 2 usage, 3 a file cannot be written.
)";

constexpr char OWN[] = "--own";
/** In the output, for those who look at pictures later; not there when there is none. */
constexpr char GENERIC_LIST[] = "generic_pictures.txt";

using option_values = std::map<std::string, std::string>;

bool read_command_line(const QStringList& arguments, option_values& options, std::string& fault) {
    for (int i = 1; i < arguments.size(); i += 2) {
        const auto option = options.find(arguments[i].toStdString());
        if (option == options.end()) {
            fault = "unknown option \"" + arguments[i].toStdString() + "\"";
            return false;
        }
        option->second = arguments.value(i + 1).toStdString();
    }
    for (const auto& [name, value] : options) {
        if (value.empty() && name != OWN) {
            fault = name + " is missing or has no value";
        }
    }
    return fault.empty();
}

std::set<std::string> files_of(const std::vector<catalogue_image>& images) {
    std::set<std::string> files;
    for (const catalogue_image& image : images) {
        if (!is_blank_file_name(image.file)) {
            files.insert(image.file);
        }
    }
    return files;
}

void show_progress(std::size_t done, std::size_t all) {
    const std::size_t step = 500;
    if (done % step == 0 || done == all) {
        std::cerr << "sample pictures: " << done << " of " << all << '\n';
    }
}

bool make_all(const picture_files& maker, const std::set<std::string>& files, const std::string& output,
              std::string& fault) {
    std::set<std::string> names;
    std::string generic;
    for (const std::string& file : files) {
        generic += maker.is_generic(file) ? file + '\n' : "";
    }
    if (!generic.empty()) {
        names.insert(GENERIC_LIST);
    }
    if (!maker.find_names(files, names, fault) || !replace_written_files(output, names, fault) ||
        (!generic.empty() && !output_folder(output).write(GENERIC_LIST, generic, fault))) {
        return false;
    }
    std::size_t done = 0;
    for (const std::string& file : files) {
        if (!maker.make(file, fault) || !maker.make_states(file, fault)) {
            return false;
        }
        show_progress(++done, files.size());
    }
    return maker.make_placeholders(fault) && maker.copy_drawn(fault);
}

/** Tells which pictures say nothing: an integrator's list may hold names that no pictogram is known for. */
void report_generic(const picture_files& maker, const std::string& catalogue,
                    const std::vector<catalogue_image>& images, diagnostics& report) {
    for (const catalogue_image& image : images) {
        if (!is_blank_file_name(image.file) && maker.is_generic(image.file)) {
            report.warning("generic", {catalogue + "/images.tsv", 0},
                           "image " + std::to_string(image.id) + " " + image.name + ": no word of \"" +
                               image.file + "\" has a pictogram; it gets a general picture");
        }
    }
}

int run(const option_values& options) {
    diagnostics report(std::cerr);
    const glyph_book book(options.at("--glyphs"), report);
    const std::string& output = options.at("--output");
    const std::vector<catalogue_image> images = read_image_catalogue(options.at("--catalogue"), report);
    const picture_files maker(book, options.at("--drawn"), options.at(OWN), output);
    report_generic(maker, options.at("--catalogue"), images, report);
    report.write_summary();
    if (report.error_count() != 0) {
        return EXIT_SOURCE_FAULT;
    }
    std::error_code error;
    std::filesystem::create_directories(output, error);
    std::string fault = error ? output + ": " + error.message() : std::string();
    if (!fault.empty() || !make_all(maker, files_of(images), output, fault)) {
        std::cerr << "sample_images_builder: " << fault << '\n';
        return EXIT_FILE_FAULT;
    }
    return EXIT_GOOD;
}

} // namespace

} // namespace velarion

int main(int argc, char** argv) {
    using namespace velarion;
    const QCoreApplication application(argc, argv);
    // A document's numbers have a decimal point, whatever the user's language.
    std::setlocale(LC_NUMERIC, "C");
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.contains("--help") || arguments.contains("-h")) {
        std::cout << HELP;
        return EXIT_GOOD;
    }
    option_values options = {
        {"--catalogue", ""}, {"--glyphs", ""}, {"--drawn", ""}, {OWN, ""}, {"--output", ""}};
    std::string fault;
    if (!read_command_line(arguments, options, fault)) {
        std::cerr << "sample_images_builder: " << fault << "; see --help\n";
        return EXIT_USAGE;
    }
    return run(options);
}
