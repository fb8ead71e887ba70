#ifndef PANEL_STAGE_H
#define PANEL_STAGE_H

#include "panel_element.h"
#include "panel_findings.h"
#include "screen_table.h"
#include "simulation.h"

#include <QImage>
#include <QString>

#include <optional>

namespace velarion {

/** Shows views of the panel without a window, each as if the machine had just been switched on. */
class panel_stage {
public:
    /**
     * @param forced_direction  "ltr", "rtl" or empty: that of the language
     * @param has_overlay       whether pictures have boxes and findings drawn above the panel
     */
    panel_stage(simulation& panel, const QString& forced_direction, bool has_overlay = false);

    /** @return the view of the name, or a screen of the name as it is opened */
    static std::optional<screen_view> find_view(const QString& name);

    void show(const screen_view& view, const language_choice& language);
    /** The panel as it is, in a language: a machine at work stays so. */
    void show_language(const language_choice& language);

    QImage picture() const;
    /** Without an overlay. */
    QImage panel_picture() const;
    panel_contents contents() const;
    bool is_right_to_left() const;

private:
    simulation& panel_;
    const QString forced_direction_;
    const bool has_overlay_;
    panel_examiner examiner_;
};

} // namespace velarion

#endif
