#ifndef JOB_HISTORY_H
#define JOB_HISTORY_H

#include <QWidget>

namespace velarion {

class machine_state;
class panel_list;

/** The jobs that wait and those that are over, the newest first. */
class job_history : public QWidget {
public:
    /** @param machine  outlives it */
    explicit job_history(const machine_state& machine);

private:
    void refresh();

    const machine_state& machine_;
    panel_list* list_;
};

} // namespace velarion

#endif
