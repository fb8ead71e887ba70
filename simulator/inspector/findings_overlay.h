#ifndef FINDINGS_OVERLAY_H
#define FINDINGS_OVERLAY_H

#include "panel_inspection.h"
#include "panel_overlay.h"

namespace velarion {

/** Draws boxes and findings: overflow, overlapping and missing glyphs and pictures in red, texts that fell
 * back to English in amber. @param painter  in px of the panel */
void draw_findings(QPainter& painter, const panel_findings& findings);

/** The findings above the panel, and what is pointed at and marked. */
class findings_overlay : public panel_overlay {
public:
    /** @param inspection  outlives it */
    explicit findings_overlay(const panel_inspection& inspection)
        : inspection_(inspection) {}

    void show_findings(bool are_shown) { shows_findings_ = are_shown; }
    bool shows_findings() const { return shows_findings_; }

    void draw(QPainter& painter) override;

private:
    void draw_key(QPainter& painter, const element_key& key, const QColor& color, bool draws_all) const;

    const panel_inspection& inspection_;
    bool shows_findings_ = false;
};

} // namespace velarion

#endif
