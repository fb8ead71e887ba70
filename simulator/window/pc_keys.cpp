#include "pc_keys.h"

#include "hard_key.h"

#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QWidget>

#include <utility>

namespace velarion {

namespace {

struct pc_key_entry {
    int pc_key; ///< Qt::Key with its modifiers
    int key;
    const char* text; ///< for people; null: as the toolkit writes it
};

constexpr int KEYPAD = Qt::KeypadModifier;

constexpr pc_key_entry ENTRIES[] = {
    {Qt::Key_F2, KEY_HOME, nullptr},
    {Qt::Key_F3, KEY_BACK, nullptr},
    {Qt::Key_F4, KEY_HELP, nullptr},
    {Qt::Key_F5, KEY_START, nullptr},
    {Qt::Key_F7, KEY_STOP, nullptr},
    {Qt::Key_F8, KEY_CLEAR, nullptr},
    {Qt::Key_F9, KEY_RESET, nullptr},
    {Qt::Key_F11, KEY_STATUS, nullptr},
    {Qt::Key_F12, KEY_ENERGY_SAVER, nullptr},
    {Qt::CTRL + Qt::Key_F5, KEY_COPY, nullptr},
    {Qt::CTRL + Qt::Key_F6, KEY_SCAN, nullptr},
    {Qt::CTRL + Qt::Key_F7, KEY_FAX, nullptr},
    {Qt::CTRL + Qt::Key_F8, KEY_DOCUMENTS, nullptr},
    {KEYPAD + Qt::Key_Asterisk, KEY_STAR, "keypad *"},
    {KEYPAD + Qt::Key_Slash, KEY_HASH, "keypad /"},
    {Qt::ALT + Qt::Key_Period, KEY_STAR, nullptr},
    {Qt::ALT + Qt::Key_Comma, KEY_HASH, nullptr},
};

bool is_digit(int pc_key) {
    return pc_key >= Qt::Key_0 && pc_key <= Qt::Key_9;
}

/** A field of the side bar, which digits of the keypad are typed into. */
bool is_typed_into(const QWidget& widget) {
    return widget.testAttribute(Qt::WA_InputMethodEnabled);
}

bool find_key(int pc_key, int modifiers, int& key) {
    if (is_digit(pc_key) && (modifiers == KEYPAD || modifiers == Qt::ALT)) {
        key = pc_key - Qt::Key_0;
        return true;
    }
    for (const pc_key_entry& entry : ENTRIES) {
        if (entry.pc_key == pc_key + modifiers) {
            key = entry.key;
            return true;
        }
    }
    return false;
}

} // namespace

QString pc_key_text(int key) {
    QStringList texts;
    if (is_digit_key(key)) {
        texts = QStringList{QStringLiteral("keypad %1").arg(key), QStringLiteral("Alt+%1").arg(key)};
    }
    for (const pc_key_entry& entry : ENTRIES) {
        if (entry.key == key) {
            texts.append(entry.text ? QString::fromLatin1(entry.text)
                                    : QKeySequence(entry.pc_key).toString());
        }
    }
    return texts.join(QStringLiteral(" or "));
}

pc_keys::pc_keys(QWidget& window, key_mover move)
    : window_(window)
    , move_(std::move(move)) {
    qApp->installEventFilter(this);
}

/** Of the events of a key press only the first one is looked at, before a shortcut or a widget gets it. */
bool pc_keys::eventFilter(QObject* watched, QEvent* event) {
    auto* widget = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::WindowDeactivate && watched == &window_) {
        release_all();
    }
    const bool is_key = event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress ||
                        event->type() == QEvent::KeyRelease;
    if (!is_key || !widget || widget->window() != &window_) {
        return false;
    }
    const auto& key_event = *static_cast<QKeyEvent*>(event);
    if (event->type() != QEvent::KeyRelease && key_event.modifiers() == Qt::KeypadModifier &&
        is_typed_into(*widget)) {
        return false;
    }
    if (event->type() == QEvent::ShortcutOverride) {
        int key = 0;
        const bool is_taken = find_key(key_event.key(), static_cast<int>(key_event.modifiers()), key);
        event->setAccepted(is_taken); // then it comes as a key press
        return is_taken;
    }
    return take(key_event);
}

bool pc_keys::take(const QKeyEvent& event) {
    const auto held = held_.find(event.key());
    if (event.isAutoRepeat()) {
        return held != held_.end();
    }
    if (event.type() == QEvent::KeyRelease) {
        if (held == held_.end()) {
            return false;
        }
        move_(held->second, false);
        held_.erase(held);
        return true;
    }
    int key = 0;
    if (!find_key(event.key(), static_cast<int>(event.modifiers()), key)) {
        return false;
    }
    held_[event.key()] = key;
    move_(key, true);
    return true;
}

/** A key that is let go in another window stays down for nobody. */
void pc_keys::release_all() {
    for (const auto& held : std::exchange(held_, {})) {
        move_(held.second, false);
    }
}

} // namespace velarion
