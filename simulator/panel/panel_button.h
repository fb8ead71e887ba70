#ifndef PANEL_BUTTON_H
#define PANEL_BUTTON_H

#include "button_layout.h"
#include "panel_element.h"
#include "picture_block.h"

#include <QAbstractButton>

namespace velarion {

/**
 * A button of the panel: a ground, a picture and texts, each in the state of the button: pressed, chosen,
 * disabled or none of these.
 */
class panel_button : public QAbstractButton, public panel_element {
public:
    /**
     * @param name  by which scripts find it on its screen: "start"
     * @param form  what it shows
     */
    panel_button(const char* name, button_form form, const message_text& text = {}, const char* picture = "");

    void set_message(const message_text& text);
    /** The value that a button of the form SETTING shows below its text, one of the form ROW at its end. */
    void set_value(const message_text& value);
    /** @param role  of the text */
    void set_role(text_role role);
    void set_picture(const char* picture);
    /** @param has_ground  false: the picture and the text stand on the screen's own ground, until the button
     * is pressed or chosen */
    void set_ground(bool has_ground);
    /** @param is_primary  the one button of a screen that does its work */
    void set_primary(bool is_primary);
    bool is_primary() const { return is_primary_; }
    /** @param follows_direction  the picture is an arrow, mirrored from right to left */
    void set_picture_follows_direction(bool follows_direction);
    /** @param is_alert  it tells of a fault */
    void set_alert(bool is_alert);
    /** A number or sign at the picture's corner; empty: none. */
    void set_badge(const QString& badge);

    QSize sizeHint() const override;

    void describe(panel_contents& contents) const override;
    void reload() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /** Where the value stands, px. */
    QRect value_box() const { return boxes().value; }

private:
    void choose_state();
    bool shows_ground() const;
    bool is_lit() const;
    button_boxes boxes() const;
    void draw_own_ground(QPainter& painter) const;
    button_content content() const { return {!picture_.is_empty(), text_, value_}; }
    QRect badge_box(const QRect& picture) const;
    void draw_badge(QPainter& painter, const QRect& box) const;

    button_form form_;
    bool has_ground_ = true;
    bool is_primary_ = false;
    bool is_alert_ = false;
    bool follows_direction_ = false;
    picture_block ground_;
    picture_block picture_;
    text_block text_;
    text_block value_;
    text_block badge_;
};

} // namespace velarion

#endif
