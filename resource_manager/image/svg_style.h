#ifndef SVG_STYLE_H
#define SVG_STYLE_H

#include <QString>
#include <QStringList>
#include <QXmlStreamAttributes>

#include <vector>

namespace velarion {

/** What an element, or a rule of a style sheet, says about its stroke and its paint; the rest is inherited.
 */
struct svg_style {
    enum VISIBILITY : unsigned char { INHERITED, HIDDEN, SHOWN };

    bool has_stroke = false; ///< anything of it: an element's own stroke replaces that of a style sheet whole
    bool has_stroke_paint = false;
    bool is_stroked = false;
    bool has_dashes = false;
    double dash_length = 0; ///< of a dash with its gap in the mean; 0: not dashed
    bool has_scaling = false;
    bool is_scaling = true; ///< whether the stroke grows with the drawing
    double stretch = 1;     ///< of the element's own transformation
    bool is_hidden = false; ///< with all that stands in it
    VISIBILITY visibility = INHERITED;
    bool is_doubtful = false;  ///< whether a toolkit may take what is inherited instead
    QStringList paints;        ///< ids that it is filled or stroked with
    QStringList stroke_paints; ///< of these, what it is stroked with

    bool is_plain() const {
        return !has_stroke && !has_dashes && !has_scaling && stretch == 1 && paints.isEmpty() && !is_doubtful;
    }
};

/** @return what the attributes of an element say, its style attribute among them */
svg_style style_of(const QXmlStreamAttributes& attributes);

/** The style sheets of a document. Only the last part of a selector is looked at. */
class svg_style_sheet {
public:
    void add(const QString& text);

    bool is_empty() const { return rules_.empty(); }
    bool has_visibility() const { return has_visibility_; }

    /** Adds what the rules that may fit the element say where the element itself says nothing. */
    void apply(const QString& element, const QString& id, const QStringList& classes, svg_style& style) const;

private:
    struct RULE {
        QString element; ///< lower case; empty for any
        QStringList ids;
        QStringList classes;
        svg_style style;
    };

    void add_rule(const QString& selectors, const svg_style& style);

    std::vector<RULE> rules_;
    bool has_visibility_ = false;
};

} // namespace velarion

#endif
