#ifndef INSPECTOR_H
#define INSPECTOR_H

#include "findings_overlay.h"
#include "hardware_tab.h"
#include "panel_inspection.h"
#include "screen_index.h"

#include <QPointer>
#include <QWidget>

class QLabel;
class QTabWidget;
class QToolButton;

namespace velarion {

class device_link;
class element_tab;
class panel_view;
class record_tab;
class search_tab;
class simulation;
class view_controls;

/** What an inspector works with; outlives it. */
struct inspector_parts {
    simulation& panel;
    panel_view& view;
    device_link& link;
    service_command run_service;
};

/**
 * The side bar beside the panel, and the overlay above it. The mouse over the panel points at what is there;
 * a click copies its id while "Inspect" is on, or with the Ctrl key held, and is a touch else.
 */
class inspector : public QWidget {
    Q_OBJECT

public:
    explicit inspector(const inspector_parts& parts);
    ~inspector() override;

    /** For what the hosts of the inspector hear of: messages with the service, traces. */
    record_tab& messages() { return *messages_; }
    record_tab& traces() { return *traces_; }

    void set_inspecting(bool is_on);
    void show_overlay(bool is_shown);
    /** Files of the panel have changed: what is shown is judged anew. */
    void look_again();
    /** @param direction  "ltr", "rtl" or empty: that of the language */
    void choose_direction(const QString& direction);
    /** Shows the search, ready to type. */
    void begin_search();

    QSize sizeHint() const override { return {420, 640}; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void make_tabs();
    QWidget* make_head();
    bool take_click(const QPoint& place, Qt::KeyboardModifiers modifiers);
    void jump(const QString& view, const element_key& key);
    void tell(const QString& text);

    inspector_parts parts_;
    QPointer<panel_view> view_; ///< a window may destroy it first
    panel_inspection inspection_;
    screen_index index_;
    findings_overlay overlay_;
    view_controls* controls_;
    QTabWidget* tabs_;
    element_tab* element_ = nullptr;
    search_tab* search_ = nullptr;
    record_tab* messages_ = nullptr;
    record_tab* traces_ = nullptr;
    QToolButton* inspects_ = nullptr;
    QToolButton* overlays_ = nullptr;
    QLabel* news_ = nullptr;
    bool is_pinned_ = false; ///< the mouse no longer points, until a click beside all elements
    bool takes_release_ = false;
};

} // namespace velarion

#endif
