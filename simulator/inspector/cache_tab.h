#ifndef CACHE_TAB_H
#define CACHE_TAB_H

#include <QStringList>
#include <QTimer>
#include <QWidget>

class QLabel;
class QTreeWidget;

namespace velarion {

/** What the image manager's cache holds, and how requests were answered. */
class cache_tab : public QWidget {
public:
    cache_tab();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void show_cache();
    void empty_cache();

    QTimer timer_;
    QStringList shown_;
    QLabel* counts_;
    QTreeWidget* table_;
};

} // namespace velarion

#endif
