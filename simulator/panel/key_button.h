#ifndef KEY_BUTTON_H
#define KEY_BUTTON_H

#include "keyboard_file.h"
#include "panel_element.h"
#include "picture_block.h"
#include "text_block.h"

#include <QAbstractButton>

namespace velarion {

/** A key of a soft keyboard. */
class key_button : public QAbstractButton, public panel_element {
public:
    /** Its name for scripts is "key_" and its text or function: "key_e", "key_shift". */
    explicit key_button(const keyboard_key& key);

    const keyboard_key& key() const { return key_; }
    /** @param label  shown in place of the key's text or picture */
    void set_label(const QString& label);
    /** @param is_lit  shown like a pressed one: the layer that is in force */
    void set_lit(bool is_lit);
    /** @param direction  of the text that the key's text goes to: brackets look as they will look there */
    void set_direction(Qt::LayoutDirection direction) { direction_ = direction; }
    /** It is not down any more; nothing is tapped. */
    void let_go();
    /** The width that the label needs, px. */
    int label_width() const;

    QSize sizeHint() const override;
    void describe(panel_contents& contents) const override;
    void reload() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void choose_state();
    QRect picture_box() const;

    keyboard_key key_;
    bool is_lit_ = false;
    Qt::LayoutDirection direction_ = Qt::LeftToRight;
    picture_block ground_;
    picture_block picture_;
    text_block text_;
    text_block hint_; ///< the first of the characters that are offered while it is held
};

} // namespace velarion

#endif
