#include "fit_sheet.h"

#include "sheet_page.h"

#include <QDir>

#include <algorithm>

namespace velarion {

namespace {

constexpr QColor BOX(0x3f, 0xa7, 0xe0);
constexpr int MARGIN = 16;
constexpr int TITLE_HEIGHT = 22;
constexpr int SHEET_WIDTH = 1000;
constexpr std::size_t ENTRIES_OF_A_SHEET = 40;
constexpr int ENDLESS = 1 << 20;

QString title_of(const misfit& entry) {
    return QStringLiteral("%1, message %2: %3 x %4 needed, %5 x %6 there")
        .arg(entry.box.screen)
        .arg(entry.box.id)
        .arg(entry.needed.width())
        .arg(entry.needed.height())
        .arg(entry.box.size.width())
        .arg(entry.box.size.height());
}

int height_of(const misfit& entry) {
    return TITLE_HEIGHT + std::max(entry.box.size.height(), entry.needed.height()) + MARGIN;
}

void draw_entry(sheet_page& page, int y, const misfit& entry) {
    page.draw_label(QRect(MARGIN, y, SHEET_WIDTH - 2 * MARGIN, TITLE_HEIGHT), title_of(entry));
    const QRect box(QPoint(MARGIN, y + TITLE_HEIGHT), entry.box.size);
    const QRect all(box.topLeft(), QSize(entry.box.wraps ? box.width() : ENDLESS, ENDLESS));
    const int flags = Qt::TextDontClip | (entry.box.wraps ? static_cast<int>(Qt::TextWordWrap) : 0);
    QPainter& painter = page.painter();
    painter.save();
    painter.setFont(entry.font);
    painter.setPen(FAULT_COLOR);
    painter.drawText(all, flags, entry.text);
    painter.setClipRect(box);
    painter.fillRect(box, DARK_GROUND.lighter(130));
    painter.setPen(LIGHT_GROUND);
    painter.drawText(all, flags, entry.text);
    painter.setClipping(false);
    painter.setPen(BOX);
    painter.drawRect(box.adjusted(0, 0, -1, -1));
    painter.restore();
}

} // namespace

bool write_fit_sheets(const std::string& folder, const std::string& language,
                      const std::vector<misfit>& misfits, std::string& fault) {
    const QString path = QString::fromStdString(folder);
    for (std::size_t first = 0; first < misfits.size(); first += ENTRIES_OF_A_SHEET) {
        const std::size_t last = std::min(misfits.size(), first + ENTRIES_OF_A_SHEET);
        int height = MARGIN;
        for (std::size_t i = first; i < last; ++i) {
            height += height_of(misfits[i]);
        }
        sheet_page page(SHEET_WIDTH, height);
        int y = MARGIN;
        for (std::size_t i = first; i < last; ++i) {
            draw_entry(page, y, misfits[i]);
            y += height_of(misfits[i]);
        }
        const QString file = QStringLiteral("%1/fit-%2-%3.png")
                                 .arg(path, QString::fromStdString(language))
                                 .arg(first / ENTRIES_OF_A_SHEET + 1, 2, 10, QLatin1Char('0'));
        QDir().mkpath(path);
        if (!page.save(file, fault)) {
            return false;
        }
    }
    return true;
}

} // namespace velarion
