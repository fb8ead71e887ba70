#include "fit_sheet.h"

#include "sheet_page.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cstdio>

namespace velarion {

namespace {

constexpr QColor BOX(0x3f, 0xa7, 0xe0);
constexpr int MARGIN = 16;
constexpr int TITLE_HEIGHT = 28; // two lines
constexpr int COLUMNS = 3;
constexpr int COLUMN_WIDTH = 330;
constexpr int SHEET_WIDTH = COLUMNS * COLUMN_WIDTH + MARGIN;
constexpr int SHEET_HEIGHT = 2000;       // that entries begin in
constexpr int HIGHEST_DRAWN = 500;       // of an entry; what is higher is cut
constexpr std::size_t MOST_DRAWN = 1000; // of a language; nobody looks at more
constexpr int ENDLESS = 1 << 20;

/** A text that does not fit, and where on its sheet it is drawn. */
struct placed_misfit {
    const misfit* entry;
    QRect place;
};

struct fit_sheet {
    std::vector<placed_misfit> entries;
    int height = MARGIN;
};

QString title_of(const misfit& entry) {
    return QStringLiteral("%1, message %2: %3 x %4 needed, %5 x %6 there")
        .arg(entry.box.screen)
        .arg(entry.box.id)
        .arg(entry.needed.width())
        .arg(entry.needed.height())
        .arg(entry.box.size.width())
        .arg(entry.box.size.height());
}

int columns_of(const misfit& entry) {
    const int width = std::min(SHEET_WIDTH, std::max(entry.box.size.width(), entry.needed.width()));
    return std::min(COLUMNS, (width + MARGIN + COLUMN_WIDTH - 1) / COLUMN_WIDTH);
}

QSize place_size_of(const misfit& entry) {
    const int height = std::max(entry.box.size.height(), entry.needed.height());
    return {columns_of(entry) * COLUMN_WIDTH - MARGIN, TITLE_HEIGHT + std::min(height, HIGHEST_DRAWN)};
}

/** Puts the entries beside each other, line by line. */
std::vector<fit_sheet> laid_out(const std::vector<misfit>& misfits) {
    std::vector<fit_sheet> sheets(1);
    int column = 0;
    int line_end = MARGIN;
    for (std::size_t i = 0; i < std::min(misfits.size(), MOST_DRAWN); ++i) {
        if (column + columns_of(misfits[i]) > COLUMNS) {
            column = 0;
            sheets.back().height = line_end;
            if (line_end > SHEET_HEIGHT) {
                sheets.emplace_back();
                line_end = MARGIN;
            }
        }
        fit_sheet& sheet = sheets.back();
        const QRect place(QPoint(MARGIN + column * COLUMN_WIDTH, sheet.height), place_size_of(misfits[i]));
        sheet.entries.push_back({&misfits[i], place});
        column += columns_of(misfits[i]);
        line_end = std::max(line_end, place.y() + place.height() + MARGIN);
    }
    sheets.back().height = line_end;
    return sheets;
}

/** A text that runs from right to left ends, and goes beyond its box, on the left. */
void draw_entry(sheet_page& page, const misfit& entry, const QRect& place) {
    page.draw_label(QRect(place.topLeft(), QSize(place.width(), TITLE_HEIGHT)), title_of(entry));
    const bool is_from_right = entry.text.isRightToLeft();
    QRect box(place.topLeft() + QPoint(0, TITLE_HEIGHT), entry.box.size);
    QRect all(box.topLeft(), QSize(entry.box.wraps ? box.width() : ENDLESS, ENDLESS));
    if (is_from_right) {
        const int width = std::max(entry.box.size.width(), entry.needed.width());
        box.moveRight(std::min(place.right(), place.left() + width - 1));
        all.moveRight(box.right());
    }
    const int flags = Qt::TextDontClip | (entry.box.wraps ? static_cast<int>(Qt::TextWordWrap) : 0) |
                      static_cast<int>(is_from_right ? Qt::AlignRight : Qt::AlignLeft);
    QPainter& painter = page.painter();
    painter.save();
    painter.setFont(entry.font);
    painter.setClipRect(place.adjusted(-MARGIN / 2, 0, MARGIN / 2, 0));
    painter.setPen(FAULT_COLOR);
    painter.drawText(all, flags, entry.text);
    painter.setClipRect(box & place);
    painter.fillRect(box & place, DARK_GROUND.lighter(130));
    painter.setPen(LIGHT_GROUND);
    painter.drawText(all, flags, entry.text);
    painter.setPen(BOX);
    painter.drawRect(box.adjusted(0, 0, -1, -1));
    painter.restore();
}

QString name_of(const std::string& folder, const std::string& language, std::size_t number) {
    return QStringLiteral("%1/fit-%2-%3.png")
        .arg(QString::fromStdString(folder), QString::fromStdString(language))
        .arg(number, 2, 10, QLatin1Char('0'));
}

} // namespace

bool write_fit_sheets(const std::string& folder, const std::string& language,
                      const std::vector<misfit>& misfits, std::string& fault) {
    QDir().mkpath(QString::fromStdString(folder));
    std::size_t number = 1;
    if (!misfits.empty()) {
        for (const fit_sheet& sheet : laid_out(misfits)) {
            sheet_page page(SHEET_WIDTH, sheet.height);
            for (const placed_misfit& placed : sheet.entries) {
                draw_entry(page, *placed.entry, placed.place);
            }
            if (!page.save(name_of(folder, language, number++), fault)) {
                return false;
            }
        }
    }
    while (QFile::remove(name_of(folder, language, number))) {
        ++number;
    }
    if (misfits.size() > MOST_DRAWN) {
        std::fprintf(stderr, "%s: the first %zu of %zu texts that do not fit are drawn\n", language.c_str(),
                     MOST_DRAWN, misfits.size());
    }
    return true;
}

} // namespace velarion
