#include "tables.h"

#include <QHeaderView>

namespace velarion {

namespace {

constexpr double DP_PER_PX = 7.0 / 9.0;
constexpr int LONGEST_CELL = 160;

QTreeWidgetItem* filled(QTreeWidgetItem* item, const QStringList& cells) {
    for (int i = 0; i < cells.size(); ++i) {
        const QString line = cells[i].simplified();
        item->setText(i, line.size() > LONGEST_CELL ? line.left(LONGEST_CELL) + QChar(0x2026) : line);
        item->setToolTip(i, cells[i].left(10 * LONGEST_CELL).toHtmlEscaped());
    }
    return item;
}

QString dp(int px) {
    return QString::number(qRound(px * DP_PER_PX * 10) / 10.0);
}

} // namespace

QTreeWidget* new_table(const QStringList& columns, int stretched) {
    auto* table = new QTreeWidget;
    table->setHeaderLabels(columns);
    table->setRootIsDecorated(false);
    table->setUniformRowHeights(true);
    table->setAlternatingRowColors(true);
    table->setTextElideMode(Qt::ElideRight);
    table->setTabKeyNavigation(false);
    table->header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter);
    table->header()->setStretchLastSection(false);
    table->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table->header()->setResizeContentsPrecision(50);
    table->header()->setSectionResizeMode(stretched, QHeaderView::Stretch);
    return table;
}

QTreeWidgetItem* add_row(QTreeWidget* table, const QStringList& cells) {
    return filled(new QTreeWidgetItem(table), cells);
}

QTreeWidgetItem* add_row(QTreeWidgetItem* parent, const QStringList& cells) {
    return filled(new QTreeWidgetItem(parent), cells);
}

QString describe_box(const QRect& box) {
    return QStringLiteral("%1, %2").arg(box.x()).arg(box.y());
}

QString describe_size(const QSize& size) {
    const QChar times(0x00d7);
    return QStringLiteral("%1 %5 %2 px, %3 %5 %4 dp")
        .arg(size.width())
        .arg(size.height())
        .arg(dp(size.width()), dp(size.height()))
        .arg(times);
}

} // namespace velarion
