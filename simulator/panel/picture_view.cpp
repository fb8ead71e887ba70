#include "picture_view.h"

#include "units.h"

#include <QPainter>

namespace velarion {

picture_view::picture_view(const QSize& size, const char* id)
    : picture_(id) {
    setFixedSize(px(size.width()), px(size.height()));
}

void picture_view::set_picture(const QString& id, const QString& suffix) {
    picture_.set_picture(id, suffix);
    update();
}

void picture_view::describe(panel_contents& contents) const {
    picture_.describe(rect(), contents);
}

void picture_view::reload() {
    picture_.reload();
}

void picture_view::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    picture_.draw(painter, rect());
}

} // namespace velarion
