#ifndef SEARCH_TAB_H
#define SEARCH_TAB_H

#include "panel_inspection.h"
#include "screen_index.h"

#include <QTimer>
#include <QWidget>

class QLabel;
class QLineEdit;
class QTreeWidget;

namespace velarion {

/** Finds texts, ids and names on all screens. */
class search_tab : public QWidget {
    Q_OBJECT

public:
    /** @param index  outlives it */
    explicit search_tab(const screen_index& index);

    void focus_field();

Q_SIGNALS:
    /** A place was chosen. */
    void chosen(const QString& view, const velarion::element_key& key);

private:
    struct place {
        QString view;
        element_key key;
    };

    void search();
    void show_state();
    void add_place(const QString& view, const element_key& key, const QStringList& cells);

    const screen_index& index_;
    std::vector<place> places_;
    QTimer delay_;
    QLineEdit* field_;
    QLabel* state_;
    QTreeWidget* found_;
};

} // namespace velarion

#endif
