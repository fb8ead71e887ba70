#ifndef PROGRESS_BAR_H
#define PROGRESS_BAR_H

#include "picture_block.h"

#include <QWidget>

namespace velarion {

/** How far something is. */
class progress_bar : public QWidget, public panel_element {
public:
    progress_bar();

    /** @param percent  0 to 100 */
    void set_percent(int percent);

    QSize sizeHint() const override;
    void describe(panel_contents& contents) const override;
    void reload() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect bar() const;

    picture_block base_;
    picture_block bar_;
    int percent_ = 0;
};

} // namespace velarion

#endif
