#include "catalogue_source.h"

#include "dvc_pnl_rmg_message_table.h"
#include "option_pack.h"

#include <algorithm>
#include <filesystem>

namespace velarion {

std::vector<std::string> pack_folders(const std::string& catalogue) {
    std::vector<std::string> folders;
    std::error_code error;
    std::filesystem::directory_iterator entry(catalogue + "/packs", error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::error_code unknown;
        if (entry->is_directory(unknown)) {
            folders.push_back(entry->path().string());
        }
    }
    std::sort(folders.begin(), folders.end());
    return folders;
}

catalogue_source read_catalogue(const std::string& folder, diagnostics& report) {
    catalogue_source source;
    source.messages = read_message_catalogue(folder, report);
    source.images = read_image_catalogue(folder, report);
    for (const std::string& pack : pack_folders(folder)) {
        source.packs.push_back(read_option_pack(pack, source.messages, report).source);
    }
    return source;
}

std::string language_of(const std::string& catalogue, const std::string& given) {
    for (std::size_t i = 0; i < STANDARD_LANGUAGE_NAMES.size(); ++i) {
        if (given == STANDARD_LANGUAGE_NAMES[i] || given == std::to_string(standard_language_id_table[i])) {
            return STANDARD_LANGUAGE_NAMES[i];
        }
    }
    const std::vector<std::string> packs = pack_folders(catalogue);
    const bool is_pack = std::any_of(packs.begin(), packs.end(), [&given](const std::string& folder) {
        return std::filesystem::path(folder).filename() == given;
    });
    return is_pack ? given : std::string();
}

} // namespace velarion
