#ifndef DVC_PNL_UTL_XML_PARAMETER_HANDLER_H
#define DVC_PNL_UTL_XML_PARAMETER_HANDLER_H

#include "dvc_pnl_export.h"

#include <QString>
#include <QXmlDefaultHandler>

#include <memory>
#include <string>

namespace velarion {

class dvc_pnl_utl_xml_handler_base;

// Qt 5.15 announces the end of its SAX reader, the one that both toolkits have.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

/**
 * Event handler: reads an XML file and hands its elements to a document handler.
 *
 * Serves one parse at a time and any number of files in turn. Character data that an aborted parse left
 * behind its last element end is put in front of the first text of the next parse. Attributes are
 * ignored. Handlers that share nothing may parse on different threads.
 */
class DVC_PNL_EXPORT dvc_pnl_utl_xml_parameter_handler : public QXmlDefaultHandler {
public:
    dvc_pnl_utl_xml_parameter_handler();
    ~dvc_pnl_utl_xml_parameter_handler() override;

    /**
     * Reads a file.
     *
     * Every failure but a null argument and a missing file, device or pipe is reported by one line of debug
     * output and one trace record that name line and column. What the document handler did before stays done.
     *
     * @param handler  receives the elements; borrowed for the call; the handler of earlier calls is
     *                 forgotten, also when this one fails
     * @param path     ASCII
     * @return 1 when the file was read to its end; -65536 for a null argument, a missing or unreadable
     *         file, a device or pipe, a file that is not well formed or exceeds a limit, or when the handler
     *         stopped
     */
    int dvc_pnl_utl_execute(dvc_pnl_utl_xml_handler_base* handler, const char* path);

    /** Called by the reader. They return true to go on. The qualified name is the name as it is written. */
    bool startDocument() override;
    bool endDocument() override;
    bool startElement(const QString& namespace_uri, const QString& local_name, const QString& qualified_name,
                      const QXmlAttributes& attributes) override;
    bool endElement(const QString& namespace_uri, const QString& local_name,
                    const QString& qualified_name) override;
    bool characters(const QString& text) override;

    /** Called by the reader. They return false: any fault ends the parse. */
    bool warning(const QXmlParseException& exception) override;
    bool error(const QXmlParseException& exception) override;
    bool fatalError(const QXmlParseException& exception) override;

private:
    /** What the document handler is given, UTF-8. Nobody else's meanwhile: it may start another parse. */
    struct element_texts {
        std::string name;
        std::string text;
    };

    std::unique_ptr<element_texts> take_texts();

    dvc_pnl_utl_xml_handler_base* handler_;
    QString text_;                               // character data since the last element end
    std::unique_ptr<element_texts> spare_texts_; // kept between elements for their memory
};

#pragma GCC diagnostic pop

} // namespace velarion

#endif
