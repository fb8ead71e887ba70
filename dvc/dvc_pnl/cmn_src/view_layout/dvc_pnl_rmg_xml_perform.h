#ifndef DVC_PNL_RMG_XML_PERFORM_H
#define DVC_PNL_RMG_XML_PERFORM_H

#include "dvc_pnl_rmg_xml_handler_base.h"

namespace velarion {

/**
 * Collects the texts of string documents: elements "string" whose attribute "name" is the key of their
 * text. The first text of a key stays.
 *
 * Every element end stores its text under the key of the last named "string" element, at first under
 * the empty key; the end of an element that encloses the last string is therefore dropped.
 *
 * Takes no locks: one thread at a time.
 */
class DVC_PNL_EXPORT dvc_pnl_rmg_xml_perform : public dvc_pnl_rmg_xml_handler_base {
public:
    dvc_pnl_rmg_xml_perform();
    ~dvc_pnl_rmg_xml_perform() override;

    /** @return 1 */
    int dvc_pnl_rmg_start_element(const std::string& name,
                                  const std::map<std::string, std::string>& attributes) override;
    /** @return 1 */
    int dvc_pnl_rmg_end_element(const std::string& name, const std::string& text) override;

    /** Sets the key that getMessage() looks up. */
    void setMessageID(std::string& message_id);
    /** @param message  receives the text of the key; unchanged when it was not collected */
    void getMessage(std::string& message);

private:
    std::string message_id_;
    std::string key_;
    std::map<std::string, std::string> texts_;
};

} // namespace velarion

#endif
