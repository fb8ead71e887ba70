#ifndef AUTHORING_SUBCOMMANDS_H
#define AUTHORING_SUBCOMMANDS_H

#include "subcommand.h"

#include <string>
#include <vector>

namespace velarion {

int run_confirm_command(const std::vector<std::string>& arguments);
int run_export_command(const std::vector<std::string>& arguments);
int run_import_command(const std::vector<std::string>& arguments);
int run_pseudo_command(const std::vector<std::string>& arguments);
int run_stats_command(const std::vector<std::string>& arguments);
int run_images_command(const std::vector<std::string>& arguments);
int run_fit_command(const std::vector<std::string>& arguments);
int run_glyphs_command(const std::vector<std::string>& arguments);

} // namespace velarion

#endif
