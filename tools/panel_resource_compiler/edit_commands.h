#ifndef EDIT_COMMANDS_H
#define EDIT_COMMANDS_H

#include <string>
#include <vector>

namespace velarion {

int run_add_command(const std::vector<std::string>& arguments);
int run_rename_command(const std::vector<std::string>& arguments);
int run_remove_command(const std::vector<std::string>& arguments);
int run_sort_command(const std::vector<std::string>& arguments);
int run_figures_command(const std::vector<std::string>& arguments);
int run_find_command(const std::vector<std::string>& arguments);

} // namespace velarion

#endif
