#include "picture_files.h"

#include "file_guard.h"
#include "movie_writer.h"

#include <QBuffer>
#include <QPainter>
#include <QSvgRenderer>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace velarion {

namespace {

constexpr char SELECTED_SUFFIX[] = "_on";
constexpr char OFF_SUFFIX[] = "_off";

constexpr char IMAGE_PLACEHOLDER[] = "ERROR_IMAGE.png";
constexpr char MOVIE_PLACEHOLDER[] = "ERROR_MOVIE.gif";

bool begins_with(const std::string& text, const std::string& beginning) {
    return text.compare(0, beginning.size(), beginning) == 0;
}

bool is_navigation_icon(const std::string& file) {
    return begins_with(file, "ico_globalnavi_");
}

bool has_states(const std::string& file) {
    const std::size_t dot = file.rfind('.');
    const bool stands_on_buttons = begins_with(file, "ico_softkey_") || begins_with(file, "ico_common_") ||
                                   begins_with(file, "ico_function_") || begins_with(file, "ico_copy_");
    const bool is_disabled = file.find("_disable") != std::string::npos;
    return (is_navigation_icon(file) || (stands_on_buttons && !is_disabled)) && dot != std::string::npos &&
           file.substr(dot) == ".svg";
}

/** The stem without the word for the size at its end. */
std::string without_size(const picture_name& name) {
    const std::size_t size = name.size.empty() || name.words.back() != name.size ? 0 : name.size.size() + 1;
    return name.stem.substr(0, name.stem.size() - size);
}

std::string state_of(const std::string& file, const char* suffix) {
    return std::string(file).insert(file.rfind('.'), suffix);
}

bool read_file(const std::string& path, std::string& content) {
    if (is_special_file(path.c_str())) {
        return false;
    }
    std::ifstream file(path, std::ios::binary);
    content.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    return file.good() && !content.empty();
}

QImage render(const std::string& document, double width, double height) {
    QImage image(static_cast<int>(std::lround(width)), static_cast<int>(std::lround(height)),
                 QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QSvgRenderer renderer(QByteArray(document.data(), static_cast<int>(document.size())));
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

bool write_bitmap(const output_folder& output, const std::string& name, const QImage& image,
                  std::string& fault) {
    QBuffer bytes;
    if (!image.save(&bytes, "PNG")) {
        fault = name + ": cannot be made into a bitmap";
        return false;
    }
    return output.write(name, bytes.data().toStdString(), fault);
}

/** Gives every colour of a drawn picture the same value. */
std::string in_one_color(std::string document, const std::string& color) {
    for (std::size_t at = document.find("=\"#"); at != std::string::npos;
         at = document.find("=\"#", at + 3)) {
        const std::size_t end = document.find('"', at + 2);
        document.replace(at + 2, end - at - 2, color);
    }
    return document;
}

/** The selected state of a drawn icon: ink on an accent plate. */
std::string on_plate(const std::string& document) {
    const palette colors;
    std::string result = in_one_color(document, colors.ink);
    const std::string end_of_title = "</title>\n";
    const std::size_t body = result.find(end_of_title);
    const std::size_t end = result.rfind("</svg>");
    if (body == std::string::npos || end == std::string::npos) {
        return result;
    }
    result.insert(end, "  </g>\n");
    result.insert(body + end_of_title.size(),
                  "  <rect x=\"2\" y=\"2\" width=\"44\" height=\"44\" rx=\"9\" ry=\"9\" fill=\"" +
                      colors.accent + "\"/>\n  <g transform=\"translate(4.08 4.08) scale(0.83)\">\n");
    return result;
}

/** Adds the names of a folder's pictures. */
bool add_pictures(const std::string& folder, const std::set<std::string>& extensions,
                  std::set<std::string>& names, std::string& fault) {
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        if (extensions.count(entry.path().extension().string()) != 0) {
            names.insert(entry.path().filename().string());
        }
    }
    if (error) {
        fault = folder + ": " + error.message();
    }
    return !error;
}

constexpr char PLACEHOLDER[] =
    "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"100\" height=\"60\" viewBox=\"0 0 100 60\">"
    "<rect width=\"100\" height=\"60\" fill=\"#e5484d\"/>"
    "<rect x=\"2\" y=\"2\" width=\"96\" height=\"56\" fill=\"%1\"/>"
    "<path d=\"M76 36l14 14M90 36l-14 14\" stroke=\"#e5484d\" stroke-width=\"3\" "
    "stroke-linecap=\"round\"/></svg>";

std::string placeholder(const std::string& color) {
    std::string document = PLACEHOLDER;
    return document.replace(document.find("%1"), 2, color);
}

} // namespace

picture_files::picture_files(const glyph_book& book, const std::string& drawn_folder,
                             const std::string& own_folder, const std::string& output_folder)
    : book_(book)
    , drawn_folder_(drawn_folder + '/')
    , own_folder_(own_folder.empty() ? own_folder : own_folder + '/')
    , output_(output_folder) {}

bool picture_files::find_names(const std::set<std::string>& files, std::set<std::string>& names,
                               std::string& fault) const {
    if (!find_drawn(names, fault)) {
        return false;
    }
    names.insert({IMAGE_PLACEHOLDER, MOVIE_PLACEHOLDER});
    for (const std::string& file : files) {
        names.insert(file);
        if (has_states(file)) {
            names.insert({state_of(file, SELECTED_SUFFIX), state_of(file, OFF_SUFFIX)});
        }
    }
    return true;
}

bool picture_files::find_drawn(std::set<std::string>& names, std::string& fault) const {
    return add_pictures(drawn_folder_, {".svg"}, names, fault) &&
           (own_folder_.empty() || add_pictures(own_folder_, {".svg", ".png", ".gif"}, names, fault));
}

std::string picture_files::path_of_drawn(const std::string& file) const {
    const bool is_own = !own_folder_.empty() && std::filesystem::exists(own_folder_ + file);
    return (is_own ? own_folder_ : drawn_folder_) + file;
}

bool picture_files::is_drawn(const std::string& file) const {
    return std::filesystem::exists(path_of_drawn(file));
}

bool picture_files::is_generic(const std::string& file) const {
    const picture_name name = read_picture_name(file, book_);
    return !is_drawn(file) && name.glyphs.empty() && kind_of(name).draw == kind_of(picture_name()).draw;
}

bool picture_files::make(const std::string& file, std::string& fault) const {
    if (is_drawn(file)) {
        return true; // copy_drawn brings it
    }
    const picture_name name = read_picture_name(file, book_);
    if (name.extension == ".svg") {
        return output_.write(file, draw_document(name, book_, 0), fault);
    }
    return name.extension == ".gif" ? make_movie(name, fault) : make_bitmap(name, fault);
}

/** A bitmap in another size than a drawn picture's shows what is drawn. */
std::string picture_files::document_of(const picture_name& name) const {
    std::string document;
    const std::string same = std::string(name.is_darker ? "d_" : "") + without_size(name);
    return is_drawn(same + ".svg") && read_file(path_of_drawn(same + ".svg"), document)
               ? document
               : draw_document(name, book_, 0);
}

bool picture_files::make_bitmap(const picture_name& name, std::string& fault) const {
    const picture_kind kind = kind_of(name);
    const QImage image =
        render(document_of(name), kind.width * kind.pixel_scale, kind.height * kind.pixel_scale);
    return write_bitmap(output_, name.file, image, fault);
}

bool picture_files::make_movie(const picture_name& name, std::string& fault) const {
    const picture_kind kind = kind_of(name);
    // Without a background the smoothed edges of a movie, which knows no half transparency, turn ragged.
    const QColor background(QString::fromStdString(palette().background));
    std::vector<QImage> frames;
    for (int i = 0; i < kind.frames; ++i) {
        const QImage drawn = render(draw_document(name, book_, static_cast<double>(i) / kind.frames),
                                    kind.width * kind.pixel_scale, kind.height * kind.pixel_scale);
        QImage frame(drawn.size(), QImage::Format_ARGB32_Premultiplied);
        frame.fill(background);
        QPainter(&frame).drawImage(0, 0, drawn);
        frames.push_back(frame);
    }
    return write_movie(output_, name.file, frames, kind.frame_delay, fault);
}

bool picture_files::copy_drawn(std::string& fault) const {
    std::set<std::string> drawn;
    if (!find_drawn(drawn, fault)) {
        return false;
    }
    for (const std::string& file : drawn) {
        std::string document;
        if (!read_file(path_of_drawn(file), document)) {
            fault = path_of_drawn(file) + ": cannot be read, or is empty";
            return false;
        }
        if (!output_.write(file, document, fault)) {
            return false;
        }
    }
    return true;
}

bool picture_files::make_states(const std::string& file, std::string& fault) const {
    if (!has_states(file)) {
        return true;
    }
    const std::string selected = state_of(file, SELECTED_SUFFIX);
    const std::string off = state_of(file, OFF_SUFFIX);
    std::string drawn;
    if (!is_navigation_icon(file) || !read_file(path_of_drawn(file), drawn)) {
        return make(selected, fault) && make(off, fault);
    }
    return (is_drawn(selected) || output_.write(selected, on_plate(drawn), fault)) &&
           (is_drawn(off) || output_.write(off, in_one_color(drawn, palette().dim), fault));
}

bool picture_files::make_placeholders(std::string& fault) const {
    // Light: the library writes the name of the missing picture over it in black.
    const QImage image = render(placeholder("#d5dbe1"), 100, 60);
    const std::vector<QImage> frames = {image, render(placeholder("#f2f5f7"), 100, 60)};
    return write_bitmap(output_, IMAGE_PLACEHOLDER, image, fault) &&
           write_movie(output_, MOVIE_PLACEHOLDER, frames, 50, fault);
}

} // namespace velarion
