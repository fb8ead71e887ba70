#ifndef SVG_MARKUP_H
#define SVG_MARKUP_H

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QXmlStreamReader>

namespace velarion {

/**
 * The text of an SVG document before an XML reader expands or collects anything of it. What follows a
 * syntax error is not looked at, as a reader does not.
 */
class svg_markup {
public:
    explicit svg_markup(const QByteArray& document);

    /**
     * @return whether no element has too many attributes, no entity is external, and the parameter entities
     *         of the document type stay small
     */
    [[nodiscard]] bool is_readable();
    /** @return whether what is_readable() counted of these stays within the limit when it is expanded */
    [[nodiscard]] bool has_plain_entities(const QXmlStreamEntityDeclarations& entities) const;

private:
    bool skip_past(const char* mark);
    bool scan_tag();
    bool scan_document_type();
    bool scan_entity();
    QString scan_literal();
    void scan_reference();
    bool is_at(const char* mark) const;
    void skip_blanks();

    QString text_;
    int at_ = 0;
    QHash<QString, int> references_;
    int parameter_references_ = 0;
    int longest_parameter_ = 0;
    bool has_nested_parameters_ = false;
};

} // namespace velarion

#endif
