#ifndef PICTURE_BLOCK_H
#define PICTURE_BLOCK_H

#include "panel_element.h"

#include <QPixmap>
#include <QString>

class QPainter;

namespace velarion {

/** A picture of the image table in a box: what widgets put together. */
class picture_block {
public:
    picture_block() = default;
    explicit picture_block(const char* id)
        : id_(QLatin1String(id)) {}

    /** @param suffix  of a state, "_on" or "_off"; a picture without that state shows its plain one */
    void set_picture(const QString& id, const QString& suffix = QString());
    const QString& id() const { return id_; }
    bool is_empty() const { return id_.isEmpty(); }
    /** Reads the picture anew if it may be another one since: no language changes it. */
    void reload();

    /** Draws the picture, filling the box, which is px; mirrored from right to left. */
    void draw(QPainter& painter, const QRect& box, Qt::LayoutDirection direction = Qt::LeftToRight) const;
    /** Draws a component's ground: its corners as they are, its middle stretched; mirrored from right to
     * left. */
    void draw_ground(QPainter& painter, const QRect& box,
                     Qt::LayoutDirection direction = Qt::LeftToRight) const;
    void describe(const QRect& box, panel_contents& contents) const;

private:
    void load(const QSize& size) const;

    QString id_;
    QString suffix_;
    mutable bool is_loaded_ = false;
    mutable int generation_ = 0; ///< of picture_requests when it was loaded
    mutable QSize size_;
    mutable QPixmap pixmap_;
    mutable shown_picture shown_;
};

} // namespace velarion

#endif
