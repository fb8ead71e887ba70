#ifndef DVC_PNL_RMG_LANGUAGE_RESOURCE_XML_HANDLER_H
#define DVC_PNL_RMG_LANGUAGE_RESOURCE_XML_HANDLER_H

#include "dvc_pnl_utl_xml_handler_base.h"

namespace velarion {

class dvc_pnl_rmg_xml_parameter;

/**
 * Document handler of message documents: hands each element end to a collector and never stops a parse.
 *
 * Serves one parse at a time, on the thread that parses.
 */
class DVC_PNL_EXPORT dvc_pnl_rmg_language_resource_xml_handler : public dvc_pnl_utl_xml_handler_base {
public:
    /** @param parameter  the collector; borrowed; must outlive this object */
    explicit dvc_pnl_rmg_language_resource_xml_handler(dvc_pnl_rmg_xml_parameter* parameter);
    ~dvc_pnl_rmg_language_resource_xml_handler() override;

    /** @return 1 */
    int dvc_pnl_utl_start_element(const std::string& name) override;
    /** @return 1 */
    int dvc_pnl_utl_end_element(const std::string& name, const std::string& text) override;

private:
    dvc_pnl_rmg_xml_parameter* parameter_;
};

} // namespace velarion

#endif
