#ifndef KEYBOARD_INPUT_H
#define KEYBOARD_INPUT_H

#include "keyboard_file.h"

#include <QString>

#include <vector>

namespace velarion {

/**
 * What the keys of soft keyboards do to a text: typing with compositions, layers, the change of keyboards.
 * Widgets show it.
 */
class keyboard_input {
public:
    /**
     * @param boards      in the order in which {next} goes through them; not empty
     * @param text        that is changed; the cursor stands behind it
     * @param prohibited  characters that are not taken
     * @param limit       characters that the text may have
     */
    keyboard_input(std::vector<keyboard> boards, const QString& text, const QString& prohibited, int limit);

    /** Other keyboards, such as those of another language: the first one, the text as it is. */
    void change_boards(std::vector<keyboard> boards, const QString& prohibited);

    /** A key was tapped. {enter} changes nothing: what it means is the caller's. */
    void press(const keyboard_key& key);
    /** Types a text as it is, such as a character offered while a key is held; compositions apply. */
    void type(const QString& text);
    /** @param is_locked  a layer stays until another one is chosen; otherwise "shift" holds for one key */
    void choose_layer(const QString& name, bool is_locked);
    void choose_board(int board);
    void set_cursor(int cursor);

    const keyboard& board() const { return boards_[static_cast<std::size_t>(board_)]; }
    int board_number() const { return board_; }
    const QString& board_name(int board) const { return boards_[static_cast<std::size_t>(board)].name; }
    int board_count() const { return static_cast<int>(boards_.size()); }
    const keyboard_layer& layer() const { return board().layers[static_cast<std::size_t>(layer_)]; }

    const QString& text() const { return text_; }
    int cursor() const { return cursor_; }
    int limit() const { return limit_; }
    int remaining() const;
    /** Whether the last character was not taken. */
    bool was_refused() const { return was_refused_; }

private:
    void compose();
    bool compose_once();
    int count_prohibited(const QString& text) const;
    void erase();
    void move(int direction);

    std::vector<keyboard> boards_;
    QString text_;
    QString prohibited_;
    int limit_;
    int cursor_;
    int board_ = 0;
    int layer_ = 0;
    bool is_locked_ = false;
    bool was_refused_ = false;
};

} // namespace velarion

#endif
