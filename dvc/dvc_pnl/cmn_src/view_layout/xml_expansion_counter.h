#ifndef XML_EXPANSION_COUNTER_H
#define XML_EXPANSION_COUNTER_H

#include <QString>

#include <map>
#include <vector>

namespace velarion {

/**
 * Follows the text of a document as the toolkit's reader takes it, and counts what makes that reader expand
 * or recurse.
 *
 * Text that the reader refuses may be counted wrongly: the reader gets no further.
 */
class xml_expansion_counter {
public:
    static constexpr int MOST_PARENTHESES = 4096;  ///< open at once in one content model
    static constexpr int MOST_DECLARATIONS = 4096; ///< of internal entities
    static constexpr int MOST_EXPANSIONS = 4096;   ///< uses of internal entities, also inside entities
    static constexpr qint64 MOST_EXPANDED = qint64(4096) * 4096; ///< characters of all expansions together
    /** Characters of values, times entities declared so far: the reader searches each value for each of their
     * names. */
    static constexpr qint64 MOST_SEARCHED = qint64(1) << 31;

    xml_expansion_counter();

    /** @param c  the next character of the document. @return whether all is within the limits */
    bool take(ushort c);

    /** @return whether nothing that follows can exceed a limit */
    bool is_finished() const { return is_finished_; }

private:
    /** Which of the reader's productions the text is in. */
    enum PLACE {
        TEXT,
        OPENED,         // behind "<"
        MARKED,         // behind "<!"
        COMMENT_OPENED, // behind "<!-"
        COMMENT,
        INSTRUCTION,
        SECTION, // of character data
        TAG,
        KEYWORD,
        DOCUMENT_TYPE,
        ELEMENT,
        ATTRIBUTES,
        ENTITY,       // up to its value or its external identifier
        ENTITY_VALUE, // in its quotes
        OTHER         // a declaration with literals that mean nothing here
    };
    enum CONTEXT { PROLOG, SUBSET, CONTENT };
    enum KIND { GENERAL, PARAMETER, EXTERNAL };
    struct entity {
        KIND kind;
        QString value;
    };
    struct expansion {
        QString text;
        int position;
    };

    void go_on(ushort c);
    void go_on_in_text(ushort c);
    void go_on_behind_opening(ushort c);
    void go_on_behind_mark(ushort c);
    void go_on_to_end(ushort c, ushort mark, int marks);
    void go_on_in_keyword(ushort c);
    void go_on_in_markup(ushort c);
    void go_on_in_entity(ushort c);
    void go_on_in_literal(ushort c);
    void go_on_in_reference(ushort c);
    void end_reference();
    void keep_reference();
    void declare(KIND kind);
    void expand(KIND kind);

    PLACE place_;
    CONTEXT context_;
    ushort quote_;     // of the literal that is open, or 0
    ushort reference_; // its first character while one is open, or 0
    int tail_;         // characters in a row that may begin the end of the markup
    QString name_;     // of the reference or keyword
    QString entity_name_;
    bool has_entity_name_ended_;
    KIND entity_kind_;
    QString entity_value_;

    std::map<QString, entity> entities_; // one name, one entity, whatever its kind
    std::vector<expansion> expansions_;  // those that are open, the innermost last
    int counts_[2];                      // internal entities of each kind
    qint64 searched_;
    int uses_;
    qint64 expanded_;
    int parentheses_;
    bool is_finished_;
    bool is_over_;
};

} // namespace velarion

#endif
