#ifndef DVC_PNL_UTL_XML_HANDLER_BASE_H
#define DVC_PNL_UTL_XML_HANDLER_BASE_H

#include "dvc_pnl_export.h"

#include <string>

namespace velarion {

/**
 * Document handler: gives the elements of one kind of document their meaning.
 *
 * dvc_pnl_utl_xml_parameter_handler calls it while it parses, on the thread that parses. Names are as
 * written, with their prefix. Names and texts are UTF-8 and may be kept only as copies.
 */
class DVC_PNL_EXPORT dvc_pnl_utl_xml_handler_base {
public:
    virtual ~dvc_pnl_utl_xml_handler_base() {}

    /** An element starts. @return 1 to go on; any other value stops the parse */
    virtual int dvc_pnl_utl_start_element(const std::string& name) = 0;

    /**
     * An element ends.
     *
     * @param text  all character data since the previous element end: leading and trailing white space
     *              removed, every other run of it one blank; empty when there was none
     * @return 1 to go on; any other value stops the parse
     */
    virtual int dvc_pnl_utl_end_element(const std::string& name, const std::string& text) = 0;
};

} // namespace velarion

#endif
