#include "written_files.h"

#include "output_folder.h"

#include <sstream>

namespace velarion {

namespace {

constexpr char LIST[] = "written_files.txt";

} // namespace

bool replace_written_files(const std::string& folder, const std::set<std::string>& names,
                           std::string& fault) {
    const output_folder output(folder);
    std::istringstream earlier(output.read(LIST));
    for (std::string name; std::getline(earlier, name);) {
        if (names.count(name) == 0 && !output.remove(name, fault)) {
            return false;
        }
    }
    std::string list;
    for (const std::string& name : names) {
        if (name.find('\n') == std::string::npos) {
            list += name + '\n';
        }
    }
    return output.write(LIST, list, fault);
}

} // namespace velarion
