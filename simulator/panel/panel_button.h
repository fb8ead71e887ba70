#ifndef PANEL_BUTTON_H
#define PANEL_BUTTON_H

#include "panel_element.h"
#include "picture_block.h"
#include "text_block.h"

#include <QAbstractButton>

namespace velarion {

/** How picture and text of a button stand. */
enum class button_form {
    TEXT,   ///< text alone
    ROW,    ///< picture before the text
    TILE,   ///< picture above the text
    PICTURE ///< picture alone
};

/**
 * A button of the panel: a ground, a picture and a text, each in the state of the button: pressed, chosen,
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
    void set_picture(const char* picture);
    /** @param has_ground  false: the picture and the text stand on the screen's own ground */
    void set_ground(bool has_ground);
    /** @param is_primary  the one button of a screen that does its work */
    void set_primary(bool is_primary);

    QSize sizeHint() const override;

    void describe(panel_contents& contents) const override;
    void reload() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void choose_state();
    QRect picture_box() const;
    QRect text_box() const;
    QColor text_color() const;

    button_form form_;
    bool has_ground_ = true;
    bool is_primary_ = false;
    picture_block ground_;
    picture_block picture_;
    text_block text_;
};

} // namespace velarion

#endif
