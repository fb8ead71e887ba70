#include "contact_sheet.h"

#include "sheet_page.h"

#include <QFileInfo>

#include <algorithm>
#include <cstdio>

namespace velarion {

namespace {

constexpr int MARGIN = sheet_page::MARGIN;
constexpr int LABEL_HEIGHT = sheet_page::LABEL_HEIGHT;
constexpr int PICTURE = 80;
constexpr int COLUMNS = 7;
constexpr int LINES = 14;
constexpr int WIDTH = 2 * PICTURE + MARGIN + MARGIN / 2;
constexpr int HEIGHT = PICTURE + LABEL_HEIGHT + MARGIN;

QString page_name(const QString& file, std::size_t page, std::size_t pages) {
    if (pages == 1) {
        return file;
    }
    const QString suffix = QFileInfo(file).suffix();
    const QString stem = suffix.isEmpty() ? file : file.chopped(suffix.size() + 1);
    return QStringLiteral("%1-%2%3")
        .arg(stem)
        .arg(page + 1, 2, 10, QLatin1Char('0'))
        .arg(suffix.isEmpty() ? QString() : QLatin1Char('.') + suffix);
}

void draw_entry(sheet_page& page, const QPoint& corner, const std::string& folder, const std::string& name) {
    QSize natural;
    const QImage picture =
        draw_picture_file(QString::fromStdString(folder + '/' + name), PICTURE - 8, natural);
    QRect frame(corner, QSize(PICTURE, PICTURE));
    for (const QColor& ground : {DARK_GROUND, LIGHT_GROUND}) {
        page.fill(frame, ground);
        page.draw_centred(frame, picture);
        frame.translate(PICTURE, 0);
    }
    page.draw_label(QRect(corner + QPoint(0, PICTURE + 2), QSize(2 * PICTURE, LABEL_HEIGHT)),
                    QStringLiteral("%1  %2x%3")
                        .arg(QString::fromStdString(name))
                        .arg(natural.width())
                        .arg(natural.height()));
}

} // namespace

bool write_contact_sheet(const std::string& folder, const std::vector<std::string>& names,
                         const QString& file, std::string& fault) {
    const std::size_t per_page = COLUMNS * LINES;
    const std::size_t pages = std::max<std::size_t>(1, (names.size() + per_page - 1) / per_page);
    for (std::size_t number = 0; number < pages; ++number) {
        const int count = static_cast<int>(std::min(per_page, names.size() - number * per_page));
        const int lines = (count + COLUMNS - 1) / COLUMNS;
        sheet_page page(COLUMNS * WIDTH + MARGIN, lines * HEIGHT + MARGIN);
        for (int i = 0; i < count; ++i) {
            draw_entry(page, QPoint(MARGIN + i % COLUMNS * WIDTH, MARGIN + i / COLUMNS * HEIGHT), folder,
                       names[number * per_page + static_cast<std::size_t>(i)]);
        }
        std::fprintf(stderr, "page %zu of %zu\n", number + 1, pages);
        if (!page.save(page_name(file, number, pages), fault)) {
            return false;
        }
    }
    return true;
}

} // namespace velarion
