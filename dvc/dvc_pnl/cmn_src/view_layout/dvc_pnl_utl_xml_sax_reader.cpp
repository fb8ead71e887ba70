#include "dvc_pnl_utl_xml_sax_reader.h"

#include "dvc_pnl_utl_toolkit.h"
#include "dvc_pnl_utl_xml_guarded_source.h"
#include "dvc_pnl_utl_xml_parameter_handler.h"
#include "xml_nesting_guard.h"

#include <QFile>
#include <QXmlReader>

#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // as for the event handler

namespace velarion {

dvc_pnl_utl_xml_sax_reader::dvc_pnl_utl_xml_sax_reader(QXmlReader* reader)
    : reader_(reader) {}

bool dvc_pnl_utl_xml_sax_reader::parseExecute(dvc_pnl_utl_xml_parameter_handler* handler, const char* path) {
    QFile file(dvc_pnl_utl_from_8bit(path));
    reader_->setContentHandler(handler);
    reader_->setErrorHandler(handler);
    const xml_nesting_guard guard(reader_, DEEPEST_ELEMENT);
    dvc_pnl_utl_xml_guarded_source source(&file);
    return reader_->parse(&source);
}

} // namespace velarion
