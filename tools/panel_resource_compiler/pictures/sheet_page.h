#ifndef SHEET_PAGE_H
#define SHEET_PAGE_H

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QString>

#include <string>

namespace velarion {

inline constexpr QColor DARK_GROUND(0x1f, 0x2a, 0x36); // the panel's
inline constexpr QColor LIGHT_GROUND(0xf2, 0xf5, 0xf7);
inline constexpr QColor FAULT_COLOR(0xe5, 0x48, 0x4d);

/** A page that pictures are drawn on, with a label for each. */
class sheet_page {
public:
    static constexpr int MARGIN = 12;
    static constexpr int LABEL_HEIGHT = 34;

    sheet_page(int width, int height);

    QPainter& painter() { return painter_; }
    void fill(const QRect& frame, const QColor& color) { painter_.fillRect(frame, color); }
    /** Draws a picture as it is, or smaller where it is larger than its frame; a null one is told. */
    void draw_centred(const QRect& frame, const QImage& image);
    void draw_label(const QRect& place, QString text);

    /** Writes the page and tells its name; nothing may be drawn afterwards. */
    bool save(const QString& file, std::string& fault);

private:
    QImage image_;
    QPainter painter_;
};

/** Draws a picture file, or null when it cannot be drawn. @param size  receives its natural size */
QImage draw_picture_file(const QString& path, int longest_side, QSize& size);

} // namespace velarion

#endif
