#ifndef TEXT_FIELD_H
#define TEXT_FIELD_H

#include "panel_element.h"
#include "picture_block.h"

#include <QTextLayout>
#include <QWidget>

namespace velarion {

/** Shows a line of text that is being entered, and where the next character will stand. */
class text_field : public QWidget, public panel_element {
    Q_OBJECT

public:
    /** @param name  by which scripts find it on its screen */
    explicit text_field(const char* name);

    /**
     * @param cursor     characters before it
     * @param direction  of what is entered; that of the panel when the text is empty
     */
    void set_text(const QString& text, int cursor, Qt::LayoutDirection direction);
    /** @param is_refused  the last character was not taken: the frame says so */
    void set_refused(bool is_refused);

    QSize sizeHint() const override;
    void describe(panel_contents& contents) const override;
    void reload() override;

Q_SIGNALS:
    /** @param position  characters before the place that was touched */
    void touched(int position);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    QRect text_box() const;
    QFont font() const;
    void lay_out(QTextLayout& layout) const;
    int text_left(const QTextLine& line) const;

    picture_block frame_;
    QString text_;
    int cursor_ = 0;
    Qt::LayoutDirection direction_ = Qt::LeftToRight;
};

} // namespace velarion

#endif
