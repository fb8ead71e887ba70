#include "sheet_page.h"

#include "panel_picture.h"

#include <QSvgRenderer>
#include <QTextOption>

#include <cstdio>

namespace velarion {

sheet_page::sheet_page(int width, int height)
    : image_(width, height, QImage::Format_RGB32) {
    image_.fill(DARK_GROUND.darker(130));
    painter_.begin(&image_);
    QFont font = painter_.font();
    font.setPixelSize(10);
    painter_.setFont(font);
}

void sheet_page::draw_centred(const QRect& frame, const QImage& image) {
    if (image.isNull()) {
        painter_.setPen(FAULT_COLOR);
        painter_.drawText(frame, Qt::AlignCenter, QStringLiteral("not drawn"));
        return;
    }
    const bool is_larger = image.width() > frame.width() || image.height() > frame.height();
    const QImage shown =
        is_larger ? image.scaled(frame.size(), Qt::KeepAspectRatio, Qt::SmoothTransformation) : image;
    painter_.drawImage(frame.center() - QPoint(shown.width() / 2, shown.height() / 2), shown);
}

void sheet_page::draw_label(const QRect& place, QString text) {
    text.replace(QLatin1Char('_'), QStringLiteral("_\u200b")); // where a line may end
    QTextOption wrapped;
    wrapped.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    painter_.setPen(LIGHT_GROUND);
    painter_.drawText(place, text, wrapped);
}

bool sheet_page::save(const QString& file, std::string& fault) {
    painter_.end();
    if (!image_.save(file, "PNG")) {
        fault = file.toStdString() + ": cannot be written";
        return false;
    }
    std::fprintf(stderr, "%s\n", qPrintable(file));
    return true;
}

QImage draw_picture_file(const QString& path, int longest_side, QSize& size) {
    if (!path.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive)) {
        const panel_bitmap bitmap(path);
        size = bitmap.size;
        return bitmap.image.isNull() ? QImage()
                                     : bitmap.image.scaled(longest_side, longest_side, Qt::KeepAspectRatio,
                                                           Qt::SmoothTransformation);
    }
    QByteArray document;
    QString fault;
    size = QSize();
    if (!read_panel_document(path, document, fault) ||
        !is_drawn_by_panel(document, path, QSize(longest_side, longest_side))) {
        return {};
    }
    QSvgRenderer renderer(document);
    size = renderer.viewBox().size();
    if (!renderer.isValid() || size.isEmpty()) {
        return {};
    }
    QImage image(size.scaled(longest_side, longest_side, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)),
                 QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

} // namespace velarion
