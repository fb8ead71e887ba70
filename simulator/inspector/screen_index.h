#ifndef SCREEN_INDEX_H
#define SCREEN_INDEX_H

#include "panel_findings.h"
#include "panel_hardware.h"

#include <QObject>
#include <QTimer>

#include <vector>

namespace velarion {

class simulation;

/** What a view of the panel showed when it was visited. */
struct indexed_screen {
    QString view;
    panel_findings findings;
};

/**
 * All views of the panel in the language in force, each visited once with a machine and a display of its own
 * that nobody sees: one at a time, with the event loop's turn between them. Begins anew when the language
 * changes.
 */
class screen_index : public QObject {
    Q_OBJECT

public:
    /** @param panel,examiner  outlive this object */
    screen_index(simulation& panel, const panel_examiner& examiner);

    void begin();
    bool is_complete() const;
    const std::vector<indexed_screen>& screens() const { return screens_; }
    /** How many views there are. */
    static std::size_t view_count();

Q_SIGNALS:
    /** Another view was visited, or all are forgotten. */
    void progressed();

private:
    void visit_next();

    simulation& simulation_;
    const panel_examiner& examiner_;
    absent_hardware hardware_;
    std::vector<indexed_screen> screens_;
    QTimer timer_;
};

/** Opens a view on the simulator's own panel. @return false when there is none of the name */
bool open_view(simulation& panel, const QString& view);

} // namespace velarion

#endif
