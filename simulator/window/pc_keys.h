#ifndef PC_KEYS_H
#define PC_KEYS_H

#include <QObject>
#include <QString>

#include <functional>
#include <map>

class QKeyEvent;
class QWidget;

namespace velarion {

/** @return the PC keys that stand for a hard key, for people; empty when there are none */
QString pc_key_text(int key);

/**
 * Turns keys of the PC's keyboard into hard keys, whatever part of a window has the focus. None of them is
 * one that is typed with.
 */
class pc_keys : public QObject {
public:
    using key_mover = std::function<void(int key, bool is_pressed)>;

    /** @param window  whose keys are looked at; outlives this object */
    pc_keys(QWidget& window, key_mover move);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool take(const QKeyEvent& event);
    void release_all();

    QWidget& window_;
    key_mover move_;
    std::map<int, int> held_; ///< hard keys by the PC key that holds them
};

} // namespace velarion

#endif
