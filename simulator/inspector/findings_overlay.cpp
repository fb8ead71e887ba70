#include "findings_overlay.h"

#include <QGuiApplication>
#include <QPainter>
#include <QStyle>

namespace velarion {

namespace {

constexpr QColor TEXT_BOX(0x6f, 0xc1, 0xf2, 0xb0);
constexpr QColor PICTURE_BOX(0xb4, 0xc0, 0xcc, 0x70);
constexpr QColor FAULT(0xff, 0x4d, 0x4d);
constexpr QColor FALL_BACK(0xff, 0xb0, 0x20);
constexpr QColor POINTED(0xff, 0xff, 0xff);
constexpr QColor MARKED(0x36, 0xf0, 0xb0);
constexpr int TINT = 0x50;

QColor tinted(QColor color) {
    color.setAlpha(TINT);
    return color;
}

void draw_box(QPainter& painter, const QRect& box, const QColor& color, int width,
              Qt::PenStyle style = Qt::SolidLine) {
    QPen pen(color, width, style);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(box.adjusted(0, 0, -1, -1));
}

void draw_text(QPainter& painter, const text_finding& text) {
    const QRect& box = text.shown.box;
    draw_box(painter, box, TEXT_BOX, 1, Qt::DotLine);
    if (text.fell_back()) {
        painter.fillRect(box, tinted(FALL_BACK));
        draw_box(painter, box, FALL_BACK, 1);
    }
    if (text.is_fault()) {
        painter.fillRect(box, tinted(FAULT));
        draw_box(painter, box, FAULT, 2);
    }
    if (text.overflows) {
        const QRect needed = QStyle::alignedRect(QGuiApplication::layoutDirection(), text.shown.alignment,
                                                 text.shown.needed, box);
        draw_box(painter, needed, FAULT, 1, Qt::DashLine);
    }
}

void draw_picture(QPainter& painter, const picture_finding& picture) {
    const QRect& box = picture.shown.box;
    draw_box(painter, box, PICTURE_BOX, 1);
    if (picture.is_missing()) {
        painter.fillRect(box, tinted(FAULT));
        draw_box(painter, box, FAULT, 2);
        painter.drawLine(box.topLeft(), box.bottomRight());
        painter.drawLine(box.topRight(), box.bottomLeft());
    }
}

} // namespace

void draw_findings(QPainter& painter, const panel_findings& findings) {
    for (const picture_finding& picture : findings.pictures) {
        draw_picture(painter, picture);
    }
    for (const text_finding& text : findings.texts) {
        draw_text(painter, text);
    }
}

void findings_overlay::draw(QPainter& painter) {
    if (shows_findings_) {
        draw_findings(painter, inspection_.findings());
    }
    draw_key(painter, inspection_.marked(), MARKED, true);
    draw_key(painter, inspection_.pointed(), POINTED, false);
}

void findings_overlay::draw_key(QPainter& painter, const element_key& key, const QColor& color,
                                bool draws_all) const {
    std::vector<QRect> boxes;
    for (const text_finding& text : inspection_.findings().texts) {
        if (element_key::of(text).is_same(key) && (draws_all || text.shown.box == key.box)) {
            boxes.push_back(text.shown.box);
        }
    }
    for (const picture_finding& picture : inspection_.findings().pictures) {
        if (element_key::of(picture).is_same(key) && (draws_all || picture.shown.box == key.box)) {
            boxes.push_back(picture.shown.box);
        }
    }
    for (const QRect& box : boxes) {
        draw_box(painter, box.adjusted(-3, -3, 3, 3), QColor(0, 0, 0, 0xa0), 4);
        draw_box(painter, box.adjusted(-3, -3, 3, 3), color, 2);
    }
}

} // namespace velarion
