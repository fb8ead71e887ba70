#ifndef PANEL_ELEMENT_H
#define PANEL_ELEMENT_H

#include "message_text.h"

#include <QFont>
#include <QRect>
#include <QSize>
#include <QString>

#include <vector>

class QWidget;

namespace velarion {

/** A text as it is shown. */
struct shown_text {
    message_text message;
    QString text;
    QRect box;    ///< that it may fill, px from the corner of its widget, or of the panel: panel_contents()
    QSize room;   ///< that the box may grow to in another language, px; empty: the box does not
    QSize needed; ///< that it takes there, px
    bool wraps = false;
    int lines = 1;
    Qt::Alignment alignment;
    QFont font;
    std::vector<int>
        font_sizes; ///< px, that are tried in this order until the text fits; empty: the font's own
    bool overflows() const { return needed.width() > box.width() || needed.height() > box.height(); }
};

/** A picture as it is shown. */
struct shown_picture {
    QString id;
    QString suffix;
    QString found_name;   ///< empty when there is no picture
    QRect box;            ///< as of shown_text
    QSize requested_size; ///< px; empty: the picture's own
    QSize natural_size;   ///< px; empty when it is not known
    int result = 0;       ///< of the request, DVC_PNL_RMG_IMAGE_OK when delivered
    bool was_cached = false;
};

struct panel_contents {
    std::vector<shown_text> texts;
    std::vector<shown_picture> pictures;
};

/** What a widget tells about the texts and pictures that it shows itself. */
class panel_element {
public:
    virtual ~panel_element() = default;
    /** Adds them, with boxes from the widget's own corner. */
    virtual void describe(panel_contents& contents) const = 0;
    /** Reads every text and picture anew: the language or a file has changed. */
    virtual void reload() = 0;
};

/** All that the visible widgets of a panel show, with boxes from the panel's corner, in the order of drawing.
 */
panel_contents describe_panel(const QWidget& panel);

/** Has everything below a widget read anew. */
void reload_panel(QWidget& panel);

} // namespace velarion

#endif
