#ifndef TEXT_BLOCK_H
#define TEXT_BLOCK_H

#include "message_text.h"
#include "panel_element.h"
#include "theme.h"

class QPainter;

namespace velarion {

/**
 * A text in a box: what widgets put together. It takes its step of the type scale, and a smaller one where
 * the box is too small for it.
 */
class text_block {
public:
    explicit text_block(text_role role = text_role::BODY,
                        Qt::Alignment alignment = Qt::AlignLeading | Qt::AlignVCenter, bool wraps = false)
        : role_(role)
        , alignment_(alignment)
        , wraps_(wraps) {}

    void set_message(const message_text& message);
    const message_text& message() const { return message_; }
    void set_role(text_role role);
    void set_wraps(bool wraps) { wraps_ = wraps; }
    const QString& text() const { return text_; }

    /** Reads text and font anew. */
    void reload();

    /** The size that the text takes at its own step of the scale, at most so wide when it wraps; px. */
    QSize size_hint(int width) const;

    void draw(QPainter& painter, const QRect& box, const QColor& color, Qt::LayoutDirection direction) const;
    /** Adds how it is shown in a box, unless it is empty. */
    void describe(const QRect& box, panel_contents& contents, const QSize& room = QSize()) const;

private:
    int flags() const;
    QRect bounds(const QFont& font, const QRect& box) const;
    QFont font_for(const QRect& box) const;

    message_text message_;
    text_role role_;
    Qt::Alignment alignment_;
    bool wraps_;
    QString text_;
    QFont font_;
};

} // namespace velarion

#endif
