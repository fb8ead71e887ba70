#ifndef RECORD_TAB_H
#define RECORD_TAB_H

#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <vector>

class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;

namespace velarion {

/** A list that grows at its end: messages, traces. The last ones are kept; what comes at once is shown at
 * once, so that a flood costs no more than a drop. */
class record_tab : public QWidget {
public:
    /** @param stretched  the column that takes the room that is left */
    record_tab(const QStringList& columns, int stretched);

    /** @param is_fault  is shown in red */
    void add(const QStringList& cells, bool is_fault = false);

private:
    struct record {
        QStringList cells;
        bool is_fault;
    };

    bool is_wanted(const record& entry) const;
    void show_new();
    void show_again();
    void clear();
    void show_whole();

    std::vector<record> records_;
    std::size_t shown_ = 0; ///< of the records
    QTimer delay_;
    QLineEdit* filter_;
    QPushButton* pause_;
    QTreeWidget* table_;
    QLabel* whole_; ///< the current record, without an end cut off
};

} // namespace velarion

#endif
