#ifndef DISPLAY_H
#define DISPLAY_H

#include <QJsonDocument>
#include <QStringList>

#include <vector>

namespace velarion {

/** A text as one line for a terminal: line breaks as "\n", tabs as "\t", other control characters left out.
 */
QString as_one_line(const QString& text);

/** Prints rows of cells in aligned columns; the width of wide characters counts as a terminal shows them. */
void print_table(const std::vector<QStringList>& rows);

/** Prints one line. */
void print_line(const QString& line);

void print_json(const QJsonDocument& document);

} // namespace velarion

#endif
