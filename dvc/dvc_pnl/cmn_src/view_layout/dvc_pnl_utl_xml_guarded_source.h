#ifndef DVC_PNL_UTL_XML_GUARDED_SOURCE_H
#define DVC_PNL_UTL_XML_GUARDED_SOURCE_H

#include "xml_expansion_counter.h"

#include <QXmlInputSource>

QT_BEGIN_NAMESPACE
class QFile;
QT_END_NAMESPACE

namespace velarion {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // as for the event handler

/**
 * An XML file that ends early where it exceeds a limit of xml_expansion_counter, and is empty where it is a
 * device or a pipe.
 *
 * None of what is counted there comes past a handler before it is too late.
 */
class dvc_pnl_utl_xml_guarded_source : public QXmlInputSource {
public:
    /** @param file  borrowed; opened by the first read */
    explicit dvc_pnl_utl_xml_guarded_source(QFile* file);

    void fetchData() override;

private:
    xml_expansion_counter counter_;
    bool is_refused_;
};

#pragma GCC diagnostic pop

} // namespace velarion

#endif
