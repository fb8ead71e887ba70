#ifndef DVC_PNL_RMG_XML_HANDLER_BASE_H
#define DVC_PNL_RMG_XML_HANDLER_BASE_H

#include "dvc_pnl_export.h"

#include <map>
#include <string>

namespace velarion {

/**
 * Document handler that knows attributes. The library has no reader that calls it: its user does. Names,
 * attributes and texts are UTF-8. Called on whatever thread its user parses on.
 */
class DVC_PNL_EXPORT dvc_pnl_rmg_xml_handler_base {
public:
    virtual ~dvc_pnl_rmg_xml_handler_base() {}

    /** An element starts. @param attributes  values by name. @return 1 to go on */
    virtual int dvc_pnl_rmg_start_element(const std::string& name,
                                          const std::map<std::string, std::string>& attributes) = 0;
    /** An element ends, with its text. @return 1 to go on */
    virtual int dvc_pnl_rmg_end_element(const std::string& name, const std::string& text) = 0;
};

} // namespace velarion

#endif
