#ifndef BUTTON_LAYOUT_H
#define BUTTON_LAYOUT_H

#include "text_block.h"

#include <QRect>

namespace velarion {

/** How picture and texts of a button stand. */
enum class button_form {
    TEXT,    ///< text, behind a picture if there is one, in the middle
    ROW,     ///< picture at the near end, the text beside it, a value at the far end
    TILE,    ///< picture above the text
    SETTING, ///< picture at the near end, beside it the name of a setting above its value
    PICTURE  ///< picture alone
};

/** Where the parts of a button stand, px; empty boxes for parts that it does not have. */
struct button_boxes {
    QSize value_room; ///< that the value may grow to; empty: it does not
    QRect picture;
    QRect text;
    QRect value;
};

/** What a button shows. */
struct button_content {
    bool has_picture;
    const text_block& text;
    const text_block& value;
};

button_boxes lay_out_button(button_form form, const QRect& rect, const button_content& content,
                            Qt::LayoutDirection direction);

/** The size at which a button shows everything at its own step of the type scale, px. */
QSize size_of_button(button_form form, const button_content& content);

} // namespace velarion

#endif
