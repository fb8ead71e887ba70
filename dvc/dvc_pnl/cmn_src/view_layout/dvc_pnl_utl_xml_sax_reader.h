#ifndef DVC_PNL_UTL_XML_SAX_READER_H
#define DVC_PNL_UTL_XML_SAX_READER_H

#include "dvc_pnl_export.h"

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QXmlReader;
QT_END_NAMESPACE

namespace velarion {

class dvc_pnl_utl_xml_parameter_handler;

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // as for the event handler

/** Runs the toolkit's SAX reader on a file, on the calling thread; the reader must be no other thread's. */
class DVC_PNL_EXPORT dvc_pnl_utl_xml_sax_reader {
public:
    /** Elements nested deeper stop the parse. */
    static constexpr int DEEPEST_ELEMENT = 4096;

    /** @param reader  borrowed; must outlive this object */
    explicit dvc_pnl_utl_xml_sax_reader(QXmlReader* reader);

    /**
     * Parses a file and reports its events.
     *
     * Elements nested too deep, or with too many namespace prefixes in scope, stop the parse like a callback
     * that returns false; entities that expand too much, and content models nested too deep, end the document
     * where they do so, and the reader then reports an unexpected end of file. A device, pipe or socket
     * counts as a missing file.
     *
     * @param handler  receives events and errors and is the reader's content and error handler afterwards;
     *                 borrowed; null: nobody receives them
     * @param path     an 8-bit string; the file is opened by the first read
     * @return whether the reader came to the end of a well-formed document without being stopped
     */
    bool parseExecute(dvc_pnl_utl_xml_parameter_handler* handler, const char* path);

private:
    QXmlReader* reader_;
};

#pragma GCC diagnostic pop

} // namespace velarion

#endif
