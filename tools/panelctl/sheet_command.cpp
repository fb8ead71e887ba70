#include "command.h"

#include "command_line.h"
#include "display.h"
#include "image_query.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QPainter>
#include <QTextOption>

#include <algorithm>
#include <cstdio>

namespace velarion {

namespace {

const QString COMMAND = QStringLiteral("sheet");
constexpr QColor BACKGROUND(0x1f, 0x2a, 0x36); // the panel's
constexpr QColor SURFACE(0x2b, 0x39, 0x48);
constexpr QColor FOREGROUND(0xf2, 0xf5, 0xf7);
constexpr QColor FAINT(0x8a, 0x9a, 0xaa);
constexpr int MARGIN = 12;
constexpr int LABEL_HEIGHT = 36;
constexpr int LABEL_PIXELS = 10;
constexpr int LEAST_CELL_WIDTH = 136;
constexpr int SHEET_WIDTH = 1440;
constexpr int SHEET_HEIGHT = 2000;

using image_row = const DVC_PNL_RMG_IMPL_IMAGE_NAME*;

/** How pictures of one size lie on a page. */
struct sheet_grid {
    int picture;
    int columns;
    int lines;

    explicit sheet_grid(int size)
        : picture(size)
        , columns(std::max(1, (SHEET_WIDTH - MARGIN) / cell_width()))
        , lines(std::max(1, (SHEET_HEIGHT - MARGIN) / cell_height())) {}

    int cell_width() const { return std::max(picture + 2 * MARGIN, LEAST_CELL_WIDTH); }
    int cell_height() const { return picture + LABEL_HEIGHT + 2 * MARGIN; }
    std::size_t per_page() const {
        return static_cast<std::size_t>(columns) * static_cast<std::size_t>(lines);
    }
};

class contact_sheet {
public:
    contact_sheet(image_session& session, const sheet_grid& grid)
        : session_(session)
        , grid_(grid) {}

    /** Draws some rows of the table on one page. */
    QImage draw_page(const image_row* first, std::size_t count) {
        const int lines = (static_cast<int>(count) + grid_.columns - 1) / grid_.columns;
        const int columns = std::min(grid_.columns, static_cast<int>(count));
        QImage page(columns * grid_.cell_width() + MARGIN, lines * grid_.cell_height() + MARGIN,
                    QImage::Format_RGB32);
        page.fill(BACKGROUND);
        QPainter painter(&page);
        QFont font = painter.font();
        font.setPixelSize(LABEL_PIXELS);
        painter.setFont(font);
        for (std::size_t i = 0; i < count; ++i) {
            const int index = static_cast<int>(i);
            const QPoint corner(MARGIN + index % grid_.columns * grid_.cell_width(),
                                MARGIN + index / grid_.columns * grid_.cell_height());
            draw_cell(painter, corner, *first[i]);
        }
        return page;
    }

private:
    void draw_cell(QPainter& painter, const QPoint& corner, const DVC_PNL_RMG_IMPL_IMAGE_NAME& row) {
        const QRect frame(corner, QSize(grid_.picture, grid_.picture));
        const delivered_image image = session_.request(QString::number(row.image_id), QString(), QSize(0, 0));
        if (image.result == DVC_PNL_RMG_IMAGE_OK) {
            draw_picture(painter, frame, row, image.pixmap);
        } else {
            painter.fillRect(frame, SURFACE);
            painter.setPen(FAINT);
            painter.drawText(frame, Qt::AlignCenter, QStringLiteral("no picture"));
        }
        const QRect label(corner.x(), frame.bottom() + 4, grid_.cell_width() - MARGIN, LABEL_HEIGHT);
        draw_label(painter, label, row);
    }

    static void draw_label(QPainter& painter, const QRect& place, const DVC_PNL_RMG_IMPL_IMAGE_NAME& row) {
        painter.setPen(FOREGROUND);
        QString name = QString::fromUtf8(row.file_name);
        name.replace(QLatin1Char('_'), QStringLiteral("_\u200b")); // where a line may end
        QTextOption wrapped;
        wrapped.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        painter.drawText(place, QStringLiteral("%1 %2").arg(row.image_id).arg(name), wrapped);
    }

    /**
     * At the largest size inside the frame that keeps the picture's shape. A larger picture is shrunk as it
     * looks at its own size: drawn smaller, the lines of a component, which keep their width, would cover
     * each other.
     */
    void draw_picture(QPainter& painter, const QRect& frame, const DVC_PNL_RMG_IMPL_IMAGE_NAME& row,
                      const QPixmap& natural) {
        const QSize size = natural.size().scaled(frame.size(), Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
        const bool is_larger = natural.width() > size.width();
        const QPixmap picture = is_larger
                                    ? natural.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                                    : session_.request(QString::number(row.image_id), QString(), size).pixmap;
        const QPoint centre((frame.width() - size.width()) / 2, (frame.height() - size.height()) / 2);
        painter.drawPixmap(frame.topLeft() + centre, picture);
    }

    image_session& session_;
    sheet_grid grid_;
};

/** "sheet.png" for a single page, otherwise "sheet-01.png" and so on. */
QString page_name(const QString& file, std::size_t page, std::size_t pages) {
    if (pages == 1) {
        return file;
    }
    const QFileInfo info(file);
    const QString suffix = info.suffix().isEmpty() ? QString() : QLatin1Char('.') + info.suffix();
    const QString number = QString::number(page + 1).rightJustified(2, QLatin1Char('0'));
    return file.left(file.size() - suffix.size()) + QLatin1Char('-') + number + suffix;
}

int draw_sheets(const std::vector<image_row>& rows, int size, const QString& file, bool as_json) {
    image_session session;
    const sheet_grid grid(size);
    contact_sheet sheet(session, grid);
    const std::size_t pages = (rows.size() + grid.per_page() - 1) / grid.per_page();
    QJsonArray files;
    for (std::size_t page = 0; page < pages; ++page) {
        const std::size_t first = page * grid.per_page();
        const std::size_t count = std::min(grid.per_page(), rows.size() - first);
        std::fprintf(stderr, "panelctl: page %zu of %zu, pictures %zu to %zu of %zu\n", page + 1, pages,
                     first + 1, first + count, rows.size());
        const QString name = page_name(file, page, pages);
        if (!write_picture(sheet.draw_page(&rows[first], count), name)) {
            return EXIT_SERVICE;
        }
        files.append(name);
        if (!as_json) {
            print_line(name);
        }
    }
    if (as_json) {
        print_json(QJsonDocument(files));
    }
    return EXIT_FOUND;
}

void describe_arguments(QCommandLineParser& parser) {
    parser.setApplicationDescription(QStringLiteral(
        "Draws a contact sheet: the pictures of the image table with their numbers and files, on "
        "the panel's\nbackground. Many pictures fill several pages, FILE-01.png and so on. Ends with 1, and "
        "writes "
        "nothing, when no\nrow matches the filter."));
    parser.addOptions({
        {QStringList{QStringLiteral("o"), QStringLiteral("output")}, QStringLiteral("PNG file to write."),
         QStringLiteral("FILE")},
        {QStringLiteral("filter"),
         QStringLiteral("Only rows whose number, name or file holds the text, in any letter case."),
         QStringLiteral("TEXT")},
        {QStringLiteral("size"), QStringLiteral("Edge of a picture in pixels, 16 to 512; default 96."),
         QStringLiteral("N"), QStringLiteral("96")},
    });
}

} // namespace

int run_sheet_command(const QStringList& arguments) {
    QCommandLineParser parser;
    describe_arguments(parser);
    int exit_code = EXIT_FOUND;
    if (!read_arguments(parser, COMMAND, arguments, exit_code)) {
        return exit_code;
    }
    bool is_number = false;
    const int size = parser.value(QStringLiteral("size")).toInt(&is_number);
    if (!is_number || size < 16 || size > 512) {
        return usage_fault(COMMAND, QStringLiteral("--size takes 16 to 512"));
    }
    if (!parser.isSet(QStringLiteral("o")) || !parser.positionalArguments().isEmpty()) {
        return usage_fault(COMMAND, QStringLiteral("-o FILE is needed, and nothing but options"));
    }
    const std::vector<image_row> rows = find_images(parser.value(QStringLiteral("filter")));
    if (rows.empty()) {
        report_no_match(parser.value(QStringLiteral("filter")));
        return EXIT_NOT_FOUND;
    }
    return draw_sheets(rows, size, parser.value(QStringLiteral("o")),
                       parser.isSet(QLatin1String(JSON_OPTION)));
}

} // namespace velarion
