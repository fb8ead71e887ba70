#ifndef DVC_PNL_UTL_XML_GUARDED_SOURCE_H
#define DVC_PNL_UTL_XML_GUARDED_SOURCE_H

#include <QXmlInputSource>

namespace velarion {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // as for the event handler

/**
 * An XML file that ends early where its document type declaration gets dangerous.
 *
 * The toolkit's reader recurses for each parenthesis of a content model, compares each entity with all
 * others, and limits the entities inside an entity but not how often one is used; none of it comes past
 * a handler. So what makes these costs grow is counted in the text, up to limits that are far beyond any
 * resource document.
 */
class dvc_pnl_utl_xml_guarded_source : public QXmlInputSource {
public:
    static constexpr int MOST_PARENTHESES = 4096; ///< opening ones before the root element
    static constexpr int MOST_DECLARATIONS = 1024;
    /**
     * References in content, times one more than the references in declarations. The toolkit lets each
     * expand to 4,096 characters. Parameter entities count more: as the square of their percent signs.
     */
    static constexpr int MOST_EXPANSIONS = 4096;

    /** @param device  borrowed; opened by the first read */
    explicit dvc_pnl_utl_xml_guarded_source(QIODevice* device);

    void fetchData() override;

private:
    /** Where the text before the root element is. */
    enum PLACE { BETWEEN, OPENED, MARKED, DECLARATION, COMMENT_OPENED, COMMENT, INSTRUCTION, CONTENT };

    bool is_dangerous(ushort c);
    void count(ushort c);
    void go_on(ushort c);
    void go_on_behind_opening(ushort c);
    void go_on_in_declaration(ushort c);

    PLACE place_;
    ushort quote_; // in a declaration: the one that is open, or 0
    int tail_;     // characters in a row that may begin the end of a comment or an instruction
    bool is_refused_;
    int parentheses_;
    int declarations_;
    int declared_references_;
    int parameter_references_;
    int content_references_;
};

#pragma GCC diagnostic pop

} // namespace velarion

#endif
