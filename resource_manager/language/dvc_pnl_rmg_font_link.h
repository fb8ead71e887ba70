#ifndef DVC_PNL_RMG_FONT_LINK_H
#define DVC_PNL_RMG_FONT_LINK_H

#include <string>

namespace velarion {

/**
 * Does what the command "ln -fs FONT FOLDER+NAME" does, without a command interpreter and without a moment
 * in which a link that is replaced is missing: a file or link in the place is replaced, and where a folder
 * is, the link goes into it.
 *
 * Left alone is a place that the font's own path leads through, by its name or by links: the link would lead
 * to itself. Failures leave everything as it was.
 *
 * @param font    the path of the font file
 * @param folder  ends in "/"
 */
void dvc_pnl_rmg_make_font_link(const std::string& font, const std::string& folder, const std::string& name);

} // namespace velarion

#endif
