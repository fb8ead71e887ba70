#include "keyboard_input.h"

#include <QTextBoundaryFinder>

namespace velarion {

namespace {

constexpr char SHIFT[] = "shift";
constexpr int MOST_COMPOSITIONS = 8; // of one key: a file may let two of them yield each other for ever

bool is_function(const keyboard_key& key, const char* name) {
    return key.function == QLatin1String(name);
}

/** The place that a person takes for the next one: never within a character of several codes. */
int neighbour(const QString& text, int place, int direction) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    finder.setPosition(place);
    const qint64 next = direction < 0 ? finder.toPreviousBoundary() : finder.toNextBoundary();
    return next < 0 ? place : static_cast<int>(next);
}

int count_characters(const QString& text) {
    return text.toUcs4().size();
}

} // namespace

keyboard_input::keyboard_input(std::vector<keyboard> boards, const QString& text, const QString& prohibited,
                               int limit)
    : boards_(std::move(boards))
    , text_(text)
    , prohibited_(prohibited)
    , limit_(limit)
    , cursor_(text.size()) {}

void keyboard_input::change_boards(std::vector<keyboard> boards, const QString& prohibited) {
    boards_ = std::move(boards);
    prohibited_ = prohibited;
    choose_board(0);
}

/** What is prohibited may be in the text already: it is the caller's. */
int keyboard_input::count_prohibited(const QString& text) const {
    int count = 0;
    for (const QChar character : text) {
        count += prohibited_.contains(character) ? 1 : 0;
    }
    return count;
}

int keyboard_input::remaining() const {
    return qMax(0, limit_ - count_characters(text_));
}

void keyboard_input::press(const keyboard_key& key) {
    was_refused_ = false;
    if (key.function.isEmpty()) {
        type(key.text);
    } else if (is_function(key, "space")) {
        type(QStringLiteral(" "));
    } else if (is_function(key, "backspace")) {
        erase();
    } else if (is_function(key, "left") || is_function(key, "right")) {
        const int direction = is_function(key, "left") ? -1 : 1;
        move(board().is_right_to_left ? -direction : direction);
    } else if (is_function(key, "next")) {
        choose_board((board_ + 1) % board_count());
    } else if (!is_function(key, "enter")) {
        choose_layer(key.function, false);
    }
}

void keyboard_input::type(const QString& text) {
    const QString before = text_;
    const int cursor = cursor_;
    text_.insert(cursor_, text);
    cursor_ += text.size();
    compose();
    was_refused_ = count_characters(text_) > limit_ || count_prohibited(text_) > count_prohibited(before);
    if (was_refused_) {
        text_ = before;
        cursor_ = cursor;
    } else if (layer().name == QLatin1String(SHIFT) && !is_locked_) {
        layer_ = 0;
    }
}

void keyboard_input::compose() {
    for (int i = 0; i < MOST_COMPOSITIONS && compose_once(); ++i) {
    }
}

/** @return whether the text before the cursor ended in a composition that changed it */
bool keyboard_input::compose_once() {
    const QStringRef before = text_.leftRef(cursor_);
    const std::pair<QString, QString>* longest = nullptr;
    for (const auto& composition : board().compositions) {
        const bool is_longer = !longest || composition.first.size() > longest->first.size();
        if (is_longer && before.endsWith(composition.first)) {
            longest = &composition;
        }
    }
    if (!longest || longest->first == longest->second) {
        return false;
    }
    const int start = cursor_ - longest->first.size();
    text_.replace(start, longest->first.size(), longest->second);
    cursor_ = start + longest->second.size();
    return true;
}

void keyboard_input::erase() {
    const int start = neighbour(text_, cursor_, -1);
    text_.remove(start, cursor_ - start);
    cursor_ = start;
}

void keyboard_input::move(int direction) {
    cursor_ = neighbour(text_, cursor_, direction);
}

void keyboard_input::choose_layer(const QString& name, bool is_locked) {
    for (std::size_t i = 0; i < board().layers.size(); ++i) {
        if (board().layers[i].name == name) {
            layer_ = static_cast<int>(i);
            is_locked_ = is_locked && layer_ != 0;
        }
    }
}

void keyboard_input::choose_board(int board) {
    board_ = qBound(0, board, board_count() - 1);
    layer_ = 0;
    is_locked_ = false;
}

void keyboard_input::set_cursor(int cursor) {
    cursor_ = qBound(0, cursor, text_.size());
}

} // namespace velarion
