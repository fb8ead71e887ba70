#ifndef TABLES_H
#define TABLES_H

#include <QStringList>
#include <QTreeWidget>

namespace velarion {

/** A table of the inspector: rows as wide as it, chosen with the keyboard too. @param stretched  the column
 * that takes the room that is left */
QTreeWidget* new_table(const QStringList& columns, int stretched);

/** Adds a row whose cells tell their whole text when the mouse rests on them. */
QTreeWidgetItem* add_row(QTreeWidget* table, const QStringList& cells);
QTreeWidgetItem* add_row(QTreeWidgetItem* parent, const QStringList& cells);

/** "12, 40  96 x 36 px" */
QString describe_box(const QRect& box);
/** Of px: "96 x 36 px, 74.7 x 28 dp". */
QString describe_size(const QSize& size);

} // namespace velarion

#endif
