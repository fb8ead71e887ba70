#ifndef SVG_TREE_H
#define SVG_TREE_H

#include "svg_gradients.h"
#include "svg_style.h"

#include <QHash>
#include <QPair>
#include <QSet>
#include <QString>
#include <QXmlStreamAttributes>

#include <deque>
#include <vector>

namespace velarion {

/** An element as the toolkit keeps it. Others are known by their index in the tree. */
struct svg_element {
    enum KIND : unsigned char { OTHER, STRUCTURE, SWITCH, DEFINITIONS, SHAPE, FRAME, TEXT, TEXT_PART, USE };
    static constexpr int NONE = -1;

    int scope = 0;         ///< the document, of those within each other, whose ids it sees
    int next = NONE;       ///< part of the same element
    int first_part = NONE; ///< what stands in it and is drawn with it
    int last_part = NONE;
    int target = NONE; ///< of a use
    int style = NONE;
    float length = 0; ///< that its outline does not exceed, when something may be dashed
    KIND kind = OTHER;
    bool has_box = true; ///< false for a document as large as what stands in it
    bool is_document = false;
    bool is_visible = true;
    bool is_hidden = false;      ///< with all that stands in it
    bool is_conditional = false; ///< whether a switch may pass it over
};

/**
 * The elements of an SVG document that the toolkit draws, or would draw if they were referred to. They hang
 * together as they do there, also where a document is not well made.
 */
class svg_tree {
public:
    /** @param has_dashes  whether any stroke may be dashed: lengths are of no use otherwise */
    explicit svg_tree(bool has_dashes)
        : has_dashes_(has_dashes) {}

    void begin(const QString& name, const QXmlStreamAttributes& attributes);
    void end(const QString& name);
    void add_text(const QString& text);
    /** To be called behind the last element. */
    void finish();

    bool is_empty() const { return elements_.empty(); }
    /** @return of XML elements that are open */
    int depth() const { return static_cast<int>(open_.size()); }
    int size() const { return static_cast<int>(elements_.size()); }
    const svg_element& at(int index) const { return elements_[static_cast<std::size_t>(index)]; }
    /** @return null for an element that says nothing of its own */
    const svg_style* style_of_element(const svg_element& element) const;
    const svg_gradients& gradients() const { return gradients_; }
    /** @return whether visibility may come from a style sheet, so that no element counts as invisible */
    bool is_all_visible() const { return style_sheet_.has_visibility(); }

private:
    struct PLACE {
        int parent = svg_element::NONE;
        bool is_doubtful = false; ///< whether the toolkits differ in it
    };
    using SCOPED_ID = QPair<int, QString>;

    PLACE place_of(svg_element::KIND kind) const;
    void add_element(svg_element::KIND kind, const QString& name, const QXmlStreamAttributes& attributes);
    void add_other(const QString& name, const QXmlStreamAttributes& attributes);
    int add_style(const svg_style& style);
    void add_part(int parent, int part);
    void set_visible(svg_element& element, int parent, svg_style::VISIBILITY visibility);
    void add_target(svg_element& element, int index, const QString& name);
    svg_element& element_at(int index) { return elements_[static_cast<std::size_t>(index)]; }

    bool has_dashes_;
    std::deque<svg_element> elements_;
    std::vector<int> open_; ///< by open XML element: what it became
    std::deque<svg_style> styles_;
    QHash<SCOPED_ID, int> named_elements_;
    QSet<QString> doubtful_ids_;
    std::vector<QPair<int, QString>> open_uses_; ///< whose target may come later
    svg_gradients gradients_;
    svg_style_sheet style_sheet_;
    bool is_in_style_ = false;
    double longest_glyph_ = 0;
    double least_units_ = 1000;
};

} // namespace velarion

#endif
