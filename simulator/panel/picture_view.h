#ifndef PICTURE_VIEW_H
#define PICTURE_VIEW_H

#include "picture_block.h"

#include <QWidget>

namespace velarion {

/** Shows a picture at a fixed size. */
class picture_view : public QWidget, public panel_element {
public:
    /** @param size  dp */
    explicit picture_view(const QSize& size, const char* id = "");

    void set_picture(const QString& id, const QString& suffix = QString());

    void describe(panel_contents& contents) const override;
    void reload() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    picture_block picture_;
};

} // namespace velarion

#endif
