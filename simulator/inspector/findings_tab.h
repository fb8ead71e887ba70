#ifndef FINDINGS_TAB_H
#define FINDINGS_TAB_H

#include "panel_inspection.h"
#include "screen_index.h"

#include <QWidget>

class QLabel;
class QTreeWidget;
class QTreeWidgetItem;

namespace velarion {

/** The findings of every screen with their counts; a finding leads to its spot. */
class findings_tab : public QWidget {
    Q_OBJECT

public:
    /** @param index  outlives it */
    explicit findings_tab(const screen_index& index);

Q_SIGNALS:
    /** A place was chosen. @param key  of kind NONE: the screen as a whole */
    void chosen(const QString& view, const velarion::element_key& key);

private:
    void take_progress();
    void add_screen(const indexed_screen& screen);
    void show_summary();

    const screen_index& index_;
    std::size_t shown_ = 0;
    QLabel* summary_;
    QTreeWidget* table_;
};

} // namespace velarion

#endif
