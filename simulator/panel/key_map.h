#ifndef KEY_MAP_H
#define KEY_MAP_H

#include "panel_element.h"
#include "picture_block.h"
#include "text_block.h"

#include <QWidget>

#include <set>
#include <vector>

namespace velarion {

/** The hard keys of the panel: which are down at the moment, and which were pressed at all. Hardware does not
 * turn with the language. */
class key_map : public QWidget, public panel_element {
public:
    key_map();

    /** A key that is down counts as pressed. */
    void set_down(int key, bool is_down);
    void set_pressed(int key);
    void release_all();

    void describe(panel_contents& contents) const override;
    void reload() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct shown_key {
        int key;
        picture_block picture;
        text_block sign; ///< of a key without a picture
    };

    QRect box_of(std::size_t place) const;
    static QRect picture_box(const QRect& box);
    void draw_key(QPainter& painter, const shown_key& shown, const QRect& box) const;

    std::vector<shown_key> keys_;
    std::set<int> down_;
    std::set<int> pressed_;
};

} // namespace velarion

#endif
