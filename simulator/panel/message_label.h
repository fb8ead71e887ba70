#ifndef MESSAGE_LABEL_H
#define MESSAGE_LABEL_H

#include "panel_element.h"
#include "text_block.h"

#include <QColor>
#include <QWidget>

namespace velarion {

/** Shows a message. */
class message_label : public QWidget, public panel_element {
public:
    explicit message_label(text_role role = text_role::BODY,
                           Qt::Alignment alignment = Qt::AlignLeading | Qt::AlignVCenter);

    void set_message(const message_text& message);
    void set_color(const QColor& color);
    /** Breaks the text into lines where it is wider than the label. */
    void set_wraps(bool wraps);

    QSize sizeHint() const override;
    bool hasHeightForWidth() const override { return wraps_; }
    int heightForWidth(int width) const override;

    void describe(panel_contents& contents) const override;
    void reload() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    text_block text_;
    QColor color_;
    bool wraps_ = false;
};

} // namespace velarion

#endif
