#ifndef BUILD_SUBCOMMANDS_H
#define BUILD_SUBCOMMANDS_H

#include "subcommand.h"

namespace velarion {

int run_check_command(const std::vector<std::string>& arguments);
int run_message_tables_command(const std::vector<std::string>& arguments);
int run_image_tables_command(const std::vector<std::string>& arguments);
int run_header_command(const std::vector<std::string>& arguments);
int run_pack_command(const std::vector<std::string>& arguments);

} // namespace velarion

#endif
