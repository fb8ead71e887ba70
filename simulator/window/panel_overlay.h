#ifndef PANEL_OVERLAY_H
#define PANEL_OVERLAY_H

class QPainter;

namespace velarion {

/** What is drawn above the panel and is no part of it. */
class panel_overlay {
public:
    virtual ~panel_overlay() = default;
    /** @param painter  in px of the panel, from its corner */
    virtual void draw(QPainter& painter) = 0;
};

} // namespace velarion

#endif
