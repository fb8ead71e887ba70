#ifndef SLEEP_COVER_H
#define SLEEP_COVER_H

#include <QWidget>

namespace velarion {

class machine_state;

/** The dark display of a machine that is asleep; a touch wakes it. Covers its parent. */
class sleep_cover : public QWidget {
public:
    /** @param machine  outlives it */
    sleep_cover(machine_state& machine, QWidget* panel);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    machine_state& machine_;
};

} // namespace velarion

#endif
