#ifndef SVG_DRAWING_H
#define SVG_DRAWING_H

#include "svg_tree.h"

#include <QSet>

#include <vector>

namespace velarion {

/** What drawing the elements of a document makes of them. */
class svg_drawing {
public:
    /** @param tree  of at least one element; has to outlive this */
    explicit svg_drawing(const svg_tree& tree)
        : tree_(tree) {}

    /**
     * @param depth  of what is around the document
     * @return whether nothing is drawn within itself, too deep or too often
     */
    [[nodiscard]] bool has_end(int depth);
    /** @return elements drawn, when has_end() */
    int count() const { return count_; }

    /**
     * Takes as long as it takes to visit all that is drawn; to be asked only when has_end().
     *
     * @param stretch  of the whole drawing
     * @return whether no stroke has too many dashes, and nothing is drawn with a gradient without end
     */
    [[nodiscard]] bool has_plain_strokes(double stretch);

private:
    /** A document without a box is measured before it is drawn: with all that stands in it, drawn or not. */
    enum VIEW { DRAWN, MEASURED, VIEWS };
    struct EXTENT {
        int height = 0; ///< of the tree of parts and targets; 0: not known yet
        int count = 0;  ///< of elements drawn in that tree
    };
    struct STROKE {
        bool is_stroked = false;
        bool is_scaling = true;
        double dash_length = 0;
        double stretch = 1;
    };

    template <typename OPERATION>
    bool for_all_parts(VIEW view, const svg_element& element, OPERATION operation) const;
    bool measure(VIEW view, int index, int depth);
    bool is_plain(VIEW view, int index, STROKE stroke);
    bool has_plain_paint(const svg_style& style) const;
    void apply(const svg_style& style, const svg_element& element, STROKE& stroke) const;

    const svg_tree& tree_;
    std::vector<EXTENT> extents_[VIEWS];
    QSet<int> measured_; ///< documents whose paint was looked at
    int count_ = 0;
};

} // namespace velarion

#endif
