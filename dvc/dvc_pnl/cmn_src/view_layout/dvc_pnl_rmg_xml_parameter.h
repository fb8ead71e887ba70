#ifndef DVC_PNL_RMG_XML_PARAMETER_H
#define DVC_PNL_RMG_XML_PARAMETER_H

#include "dvc_pnl_export.h"

#include <map>
#include <string>

namespace velarion {

/**
 * Collects the entries of message and image documents (DVC_PNL_RMG_XML_ELEMENT).
 *
 * Any number of documents may be collected in turn: the maps grow, and the first value of a key stays.
 * An entry that lacks its key or its value takes the one that the entry before left, at first the empty
 * text and 0. Serves one parse at a time, and
 * takes no locks.
 */
class DVC_PNL_EXPORT dvc_pnl_rmg_xml_parameter {
public:
    dvc_pnl_rmg_xml_parameter();

    /**
     * Takes the end of an element.
     *
     * An index is read as strtol() does: up to the first character that is no digit, 0 without digits,
     * the nearest limit beyond the range of a signed 32-bit integer.
     *
     * @param name  names outside the vocabulary change nothing
     * @param text  the element's text, UTF-8
     */
    void dvc_pnl_rmg_xml_end_callback(const std::string& name, const std::string& text);

    /** @param contents  receives a copy of the messages: message table index by implementation id */
    void dvc_pnl_rmg_xml_set_language_contens(std::map<std::string, int>& contents);
    /** @param contents  receives a copy of the images: file name by implementation file name */
    void dvc_pnl_rmg_xml_set_image_contens(std::map<std::string, std::string>& contents);

private:
    std::string implementation_id_;
    int message_index_;
    std::map<std::string, int> language_contents_;
    std::string implementation_filename_;
    std::string image_filename_;
    std::map<std::string, std::string> image_contents_;
};

} // namespace velarion

#endif
