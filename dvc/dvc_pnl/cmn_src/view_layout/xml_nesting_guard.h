#ifndef XML_NESTING_GUARD_H
#define XML_NESTING_GUARD_H

#include <QString>
#include <QXmlContentHandler>
#include <QXmlReader>

#include <set>

namespace velarion {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // as for the event handler

/**
 * Stands before a reader's content handler, forwards everything to it and stops the parse before elements
 * nest too deep, where the reader's recursion would exhaust the stack, and before namespaces cost too much.
 * Takes its place while it lives.
 */
class xml_nesting_guard : public QXmlContentHandler {
public:
    /** At each element's end the reader looks for all prefixes that were in scope in it among those that
     * still are: so many comparisons in a document. Those of elements with few prefixes do not count. */
    static constexpr qint64 MOST_COMPARED = qint64(1) << 30;
    static constexpr qint64 FEW_PREFIXES = 32;

    /**
     * @param reader   borrowed; its content handler, which may be null, is set again at the end unless a
     *                 callback has set another one
     * @param deepest  elements that may be open at once
     */
    xml_nesting_guard(QXmlReader* reader, int deepest);
    ~xml_nesting_guard() override;
    xml_nesting_guard(const xml_nesting_guard&) = delete;
    xml_nesting_guard& operator=(const xml_nesting_guard&) = delete;

    void setDocumentLocator(QXmlLocator* locator) override;
    bool startDocument() override;
    bool endDocument() override;
    bool startPrefixMapping(const QString& prefix, const QString& uri) override;
    bool endPrefixMapping(const QString& prefix) override;
    bool startElement(const QString& namespace_uri, const QString& local_name, const QString& qualified_name,
                      const QXmlAttributes& attributes) override;
    bool endElement(const QString& namespace_uri, const QString& local_name,
                    const QString& qualified_name) override;
    bool characters(const QString& text) override;
    bool ignorableWhitespace(const QString& text) override;
    bool processingInstruction(const QString& target, const QString& instruction) override;
    bool skippedEntity(const QString& name) override;
    QString errorString() const override;

private:
    QXmlReader* reader_;
    QXmlContentHandler* handler_;
    int deepest_;
    int depth_;
    std::set<QString> prefixes_; // in scope
    qint64 outer_prefixes_;      // those in scope outside of the element that starts next
    qint64 compared_;
};

#pragma GCC diagnostic pop

} // namespace velarion

#endif
