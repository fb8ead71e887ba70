#ifndef NAVIGATION_BAR_H
#define NAVIGATION_BAR_H

#include <QWidget>

#include <vector>

namespace velarion {

class machine_state;
class panel_button;

/** The bottom of the panel: its main screens, with a number or a sign where one of them needs attention. */
class navigation_bar : public QWidget {
    Q_OBJECT

public:
    /** @param machine  outlives it */
    explicit navigation_bar(const machine_state& machine);

    /** @param screen  of which the user came to what is open */
    void set_current(const QString& screen);

Q_SIGNALS:
    void chosen(const QString& screen);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void refresh();

    const machine_state& machine_;
    std::vector<panel_button*> buttons_;
    int current_ = 0;
};

} // namespace velarion

#endif
