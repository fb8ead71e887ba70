#include "picture_folder.h"

#include <QDir>

#include <algorithm>
#include <fstream>

namespace velarion {

namespace {

constexpr char GENERIC_LIST[] = "generic_pictures.txt";
constexpr const char* LISTS_OF_THE_BUILD[] = {GENERIC_LIST, "written_files.txt"};

std::vector<std::string> names_in(const std::string& folder) {
    std::vector<std::string> names;
    for (const QString& file : QDir(QString::fromStdString(folder)).entryList(QDir::Files, QDir::Name)) {
        const std::string name = file.toStdString();
        if (std::find(std::begin(LISTS_OF_THE_BUILD), std::end(LISTS_OF_THE_BUILD), name) ==
            std::end(LISTS_OF_THE_BUILD)) {
            names.push_back(name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

const std::array<std::string, 5> PICTURE_STATES = {"_on", "_off", "_pressed", "_disable", "_selected"};

picture_file_name::picture_file_name(const std::string& file) {
    const std::size_t dot = std::min(file.rfind('.'), file.size());
    twin = file.compare(0, 2, "d_") == 0 ? "d_" : "";
    base = file.substr(twin.size(), dot - std::min(dot, twin.size()));
    extension = file.substr(dot);
    for (const std::string& known : PICTURE_STATES) {
        if (base.size() > known.size() &&
            base.compare(base.size() - known.size(), known.size(), known) == 0) {
            state = known;
            base.erase(base.size() - known.size());
            return;
        }
    }
}

picture_folder::picture_folder(const std::string& folder)
    : path(folder)
    , names(names_in(folder)) {
    for (const std::string& name : names) {
        const picture_file_name parts(name);
        variants[parts.base + parts.extension].insert(parts.twin + '\t' + parts.state);
    }
    std::ifstream list(folder + '/' + GENERIC_LIST);
    for (std::string name; std::getline(list, name);) {
        generic.insert(name);
    }
}

std::string picture_folder::file_of(const std::string& picture, const std::string& variant) {
    const picture_file_name parts(picture);
    const std::size_t tab = variant.find('\t');
    return variant.substr(0, tab) + parts.base + variant.substr(tab + 1) + parts.extension;
}

bool picture_folder::has(const std::string& picture, const std::string& variant) const {
    return variants.at(picture).count(variant) != 0;
}

finding picture_folder::found(severity kind, const char* check, const std::string& file,
                              const std::string& text, std::size_t line, std::size_t column) const {
    return {{path + '/' + file, line, column}, kind, check, text, {}, file};
}

} // namespace velarion
