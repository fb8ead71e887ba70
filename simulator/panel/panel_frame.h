#ifndef PANEL_FRAME_H
#define PANEL_FRAME_H

#include "panel_screen.h"
#include "text_request.h"

#include <QPointer>
#include <QStringList>
#include <QWidget>

#include <vector>

namespace velarion {

class navigation_bar;
class panel_dialog;
class title_bar;

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

    /** Shows a dialog over everything, in the place of one that is there. @param shown  becomes the frame's
     */
    void show_dialog(panel_dialog* shown);
    /** @return the dialog that is shown, or null */
    panel_dialog* dialog() const { return dialog_; }

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
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool is_forward) override;

private:
    const screen_entry* find_screen(const QString& name) const;
    void show_screen();
    void close_dialog();
    void focus_first(QWidget& area);

    panel_services services_;
    const std::vector<screen_entry>& screens_;
    QStringList names_; ///< of the open screens, the one that is seen last
    panel_screen* screen_ = nullptr;
    text_request asked_text_;
    title_bar* title_;
    navigation_bar* navigation_;
    QWidget* content_;
    panel_dialog* dialog_ = nullptr;
    QPointer<QWidget> focus_before_dialog_;
};

} // namespace velarion

#endif
