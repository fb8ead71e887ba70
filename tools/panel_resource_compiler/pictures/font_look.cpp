#include "font_look.h"

#include "subcommand.h"

namespace velarion {

void add_font_look_options(command_options& options, font_look& line) {
    add_look_options(options, line.look);
    options.value("device-tree", "DIR", line.device_tree,
                  "device whose font files are taken beside this machine's and the packs'");
    options.values("language", "LANGUAGE", line.wanted_languages,
                   "only this one, \"de\" or 49; may stand several times");
}

std::optional<int> read_font_look(command_options& options, const std::vector<std::string>& arguments,
                                  font_look& line, diagnostics& report) {
    if (const std::optional<int> end = options.read(arguments)) {
        return end;
    }
    std::string fault = apply_look_options(line.look, report);
    if (fault.empty()) {
        line.languages = panel_languages(line.look.catalogue.catalogue, line.wanted_languages, fault);
    }
    if (!fault.empty()) {
        return options.usage_fault(fault);
    }
    return is_device_tree(line.device_tree, fault) ? std::nullopt : std::optional<int>(file_fault(fault));
}

} // namespace velarion
