#ifndef TEXT_REQUEST_H
#define TEXT_REQUEST_H

#include "message_text.h"

#include <QString>

#include <functional>

namespace velarion {

/** A text that a user is asked for. */
struct text_request {
    message_text title;
    QString text; ///< as it is
    QString rule; ///< of the prohibition information; empty: every character is taken
    int limit = 40;
    /** Whether a text can be taken; empty: every one can. */
    std::function<bool(const QString& text)> accepts;
    message_text fault;       ///< what is said of one that cannot
    bool has_figures = false; ///< the keyboard with figures comes first
    /** Takes the text that was entered; not called when the user cancels. The screen that asks is gone by
     * then: what this holds must outlive the frame's screens. */
    std::function<void(const QString& text)> done;
};

} // namespace velarion

#endif
