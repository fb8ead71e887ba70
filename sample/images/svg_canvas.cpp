#include "svg_canvas.h"

#include "stroke_font.h"

namespace velarion {

namespace {

std::string escaped(const std::string& text) {
    std::string result;
    for (const char c : text) {
        result += c == '&' ? "&amp;" : c == '<' ? "&lt;" : std::string(1, c);
    }
    return result;
}

} // namespace

svg_canvas::svg_canvas(double width, double height)
    : width_(width)
    , height_(height) {
    body_.precision(5);
}

void svg_canvas::begin_group(double x, double y, double scale) {
    body_ << "  <g transform=\"translate(" << x << ' ' << y << ") scale(" << scale << ")\">\n";
}

void svg_canvas::end_group() {
    body_ << "  </g>\n";
}

void svg_canvas::write_paint(const paint& how) {
    body_ << " fill=\"" << (how.fill.empty() ? "none" : how.fill) << '"';
    if (!how.stroke.empty()) {
        body_ << " stroke=\"" << how.stroke << "\" stroke-width=\"" << how.width
              << "\" stroke-linecap=\"round\" stroke-linejoin=\"round\"";
        if (is_stretchable_) {
            body_ << " vector-effect=\"non-scaling-stroke\"";
        }
    }
    body_ << "/>\n";
}

void svg_canvas::path(const std::string& data, const paint& how) {
    body_ << "  <path d=\"" << data << '"';
    write_paint(how);
}

void svg_canvas::circle(double x, double y, double radius, const paint& how) {
    body_ << "  <circle cx=\"" << x << "\" cy=\"" << y << "\" r=\"" << radius << '"';
    write_paint(how);
}

void svg_canvas::rect(const area& place, double corner, const paint& how) {
    body_ << "  <rect x=\"" << place.x << "\" y=\"" << place.y << "\" width=\"" << place.width
          << "\" height=\"" << place.height << '"';
    if (corner > 0) {
        body_ << " rx=\"" << corner << "\" ry=\"" << corner << '"';
    }
    write_paint(how);
}

void svg_canvas::text(const std::string& text, double x, double y, double height, const std::string& color,
                      double stroke_width) {
    const std::string strokes = stroke_text(text, x, y, height);
    if (!strokes.empty()) {
        path(strokes, {color, "", stroke_width});
    }
}

std::string svg_canvas::document(const std::string& title) const {
    std::ostringstream document;
    document << "<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" width=\"" << width_
             << "\" height=\"" << height_ << "\" viewBox=\"0 0 " << width_ << ' ' << height_ << "\">\n"
             << "  <title>" << escaped(title) << "</title>\n"
             << body_.str() << "</svg>\n";
    return document.str();
}

} // namespace velarion
