#ifndef PANEL_FINDINGS_H
#define PANEL_FINDINGS_H

#include "panel_element.h"
#include "picture_origin.h"
#include "text_origin.h"

#include <QString>

#include <vector>

namespace velarion {

/** A text of a panel with what is to be said of it. */
struct text_finding {
    shown_text shown;
    text_origin origin;
    QString missing_glyphs;
    bool overflows = false;
    bool overlaps = false; ///< another text is drawn over it, or under it
    /** Not in the language asked for, but in English or by its name. */
    bool fell_back() const { return origin.fell_back_to_english() || origin.has_no_text(); }
    bool is_fault() const;
};

/** A picture of a panel with what is to be said of it. */
struct picture_finding {
    shown_picture shown;
    picture_origin origin;
    bool is_missing() const { return origin.variant == picture_variant::MISSING; }
};

struct finding_counts {
    int overflows = 0;
    int overlaps = 0;
    int fall_backs = 0;
    int missing_glyphs = 0; ///< texts that lack some
    int missing_pictures = 0;
    /** Of all but the fall-backs, which a translator mends. */
    int faults() const { return overflows + overlaps + missing_glyphs + missing_pictures; }
    finding_counts& operator+=(const finding_counts& other);
};

/** What is shown, in the order of drawing. */
struct panel_findings {
    std::vector<text_finding> texts;
    std::vector<picture_finding> pictures;
    finding_counts counts;
};

/** Judges what panels show; keep one, it remembers what files say. GUI thread only. */
class panel_examiner {
public:
    panel_findings examine(const panel_contents& contents) const;
    const text_origins& texts() const { return texts_; }
    const picture_origins& pictures() const { return pictures_; }
    /** Files have changed. */
    void clear() { pictures_.clear(); }

private:
    text_origins texts_;
    picture_origins pictures_;
};

} // namespace velarion

#endif
