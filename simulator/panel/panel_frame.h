#ifndef PANEL_FRAME_H
#define PANEL_FRAME_H

#include "panel_screen.h"
#include "text_request.h"

#include <QStringList>
#include <QWidget>

#include <vector>

namespace velarion {

class message_label;
class panel_button;

/**
 * The display: title bar, the screen that is open, navigation. The top of the panel's widgets; it is sent
 * LanguageChange when the language changes.
 */
class panel_frame : public QWidget {
    Q_OBJECT

public:
    /**
     * @param services  outlive it
     * @param screens  that can be opened, the home screen first; outlive it
     */
    panel_frame(const panel_services& services, const std::vector<screen_entry>& screens);

    /** Opens a screen of the table on top of those that are open. @return false when there is none of the
     * name */
    bool open(const QString& name);
    /** Back to the screen before, or to the home screen. */
    void back();
    /** Back to the home screen alone. */
    void go_home();

    /** Opens the keyboard for a text. */
    void ask_text(const text_request& request);
    /** What was asked for last; without a title when nothing was. */
    const text_request& asked_text() const { return asked_text_; }

    const QString& screen_name() const { return names_.last(); }
    panel_screen* screen() const { return screen_; }

    /** A hard key of the panel went down. */
    void take_key(int key);

    /** Reads all texts and pictures anew. */
    void reload();

Q_SIGNALS:
    void screen_changed(const QString& name);

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* make_title_bar();
    QWidget* make_navigation();
    const screen_entry* find_screen(const QString& name) const;
    void show_screen();

    panel_services services_;
    const std::vector<screen_entry>& screens_;
    QStringList names_; ///< of the open screens, the one that is seen last
    panel_screen* screen_ = nullptr;
    text_request asked_text_;
    message_label* title_ = nullptr;
    panel_button* back_ = nullptr;
    QWidget* content_ = nullptr;
};

} // namespace velarion

#endif
