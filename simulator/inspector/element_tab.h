#ifndef ELEMENT_TAB_H
#define ELEMENT_TAB_H

#include "panel_inspection.h"

#include <QWidget>

class QLabel;
class QPushButton;
class QTreeWidget;

namespace velarion {

/** What is pointed at, in full, and the list of all that the screen shows, for who points with the keyboard.
 */
class element_tab : public QWidget {
    Q_OBJECT

public:
    /** @param inspection  outlives it */
    explicit element_tab(panel_inspection& inspection);

    /** Puts the id of an element on the clipboard. */
    void copy_id(const element_key& key);

Q_SIGNALS:
    /** For people: what was copied. */
    void told(const QString& text);

private:
    void show_element();
    void show_list();
    void point_at_row(int row);

    panel_inspection& inspection_;
    std::vector<element_key> listed_;
    QLabel* title_;
    QTreeWidget* properties_;
    QTreeWidget* list_;
    QPushButton* copy_;
};

} // namespace velarion

#endif
