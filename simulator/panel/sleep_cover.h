#ifndef SLEEP_COVER_H
#define SLEEP_COVER_H

#include <QPointer>
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
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool is_forward) override;

private:
    void refresh();

    machine_state& machine_;
    QPointer<QWidget> focus_before_;
};

} // namespace velarion

#endif
