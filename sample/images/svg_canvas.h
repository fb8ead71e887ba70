#ifndef SVG_CANVAS_H
#define SVG_CANVAS_H

#include <sstream>
#include <string>

namespace velarion {

/** How a shape is painted; an empty colour paints nothing. */
struct paint {
    std::string stroke;
    std::string fill;
    double width = 2.5;
};

/** A rectangle in the units of a picture. */
struct area {
    double x;
    double y;
    double width;
    double height;

    double center_x() const { return x + width / 2; }
    double center_y() const { return y + height / 2; }
};

/** Writes a picture as an SVG document: plain shapes only, so that the device's toolkit draws it alike. */
class svg_canvas {
public:
    svg_canvas(double width, double height);

    double width() const { return width_; }
    double height() const { return height_; }

    /** Shapes until end_group() are scaled and then moved. */
    void begin_group(double x, double y, double scale = 1);
    void end_group();

    void path(const std::string& data, const paint& how);
    void circle(double x, double y, double radius, const paint& how);
    void rect(const area& place, double corner, const paint& how);
    /** A text in strokes, about its middle. */
    void text(const std::string& text, double x, double y, double height, const std::string& color,
              double stroke_width = 2.5);
    /** Strokes keep their width when the panel stretches the picture. */
    void set_stretchable(bool stretchable) { is_stretchable_ = stretchable; }

    std::string document(const std::string& title) const;

private:
    void write_paint(const paint& how);

    double width_;
    double height_;
    bool is_stretchable_ = false;
    std::ostringstream body_;
};

} // namespace velarion

#endif
