#include "id_header_writer.h"

#include <map>
#include <set>

namespace velarion {

namespace {

constexpr char PREAMBLE[] =
    R"(// Made by panel_resource_compiler from a catalogue; changes are lost.
#ifndef PANEL_VIEW_IDS_H
#define PANEL_VIEW_IDS_H

/**
 * The ids of the catalogue's messages and images by their names, as dvc_pnl_rmg_get_message(),
 * dvc_pnl_rmg_get_image() and resource documents take them. Of a name that stands several times each has its
 * id behind it.
 */
namespace velarion {

)";
constexpr char END[] = "\n} // namespace velarion\n\n#endif\n";

// Words of the language, and macros of the headers that every panel program includes.
const std::set<std::string> RESERVED = {
    "alignas",     "alignof",  "and",        "and_eq",    "asm",       "auto",         "bitand",
    "bitor",       "bool",     "break",      "case",      "catch",     "char",         "char16_t",
    "char32_t",    "char8_t",  "class",      "co_await",  "co_return", "co_yield",     "compl",
    "concept",     "const",    "const_cast", "consteval", "constexpr", "constinit",    "continue",
    "decltype",    "default",  "delete",     "do",        "double",    "dynamic_cast", "else",
    "enum",        "explicit", "export",     "extern",    "false",     "float",        "for",
    "friend",      "goto",     "if",         "inline",    "int",       "long",         "mutable",
    "namespace",   "new",      "noexcept",   "not",       "not_eq",    "nullptr",      "operator",
    "or",          "or_eq",    "private",    "protected", "public",    "register",     "reinterpret_cast",
    "requires",    "return",   "short",      "signed",    "sizeof",    "static",       "static_assert",
    "static_cast", "struct",   "switch",     "template",  "this",      "thread_local", "throw",
    "true",        "try",      "typedef",    "typeid",    "typename",  "union",        "unsigned",
    "using",       "virtual",  "void",       "volatile",  "wchar_t",   "while",        "xor",
    "xor_eq",      "EOF",      "NULL",       "assert",    "errno",     "stderr",       "stdin",
    "stdout",      "linux",    "unix",       "emit",      "foreach",   "forever",      "signals",
    "slots"};

bool is_letter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

std::string identifier_of(const std::string& name) {
    std::string identifier = is_letter(name[0]) ? "" : "ID_";
    for (const char c : name) {
        identifier += is_letter(c) || (c >= '0' && c <= '9') ? c : '_';
    }
    return identifier;
}

struct named_id {
    std::string identifier;
    std::string id;
    const char* separator; ///< before the id, where that stands behind the name
};

template <typename ENTRY>
void take(const std::vector<ENTRY>& entries, const char* separator, std::vector<named_id>& ids) {
    for (const ENTRY& entry : entries) {
        ids.push_back({identifier_of(entry.name), std::to_string(entry.id), separator});
    }
}

/** Puts the id behind names that are not the only ones, until all differ. */
void separate(std::vector<named_id>& ids) {
    for (bool is_done = false; !is_done;) {
        std::map<std::string, int> uses;
        for (const named_id& each : ids) {
            ++uses[each.identifier];
        }
        is_done = true;
        for (named_id& each : ids) {
            if (uses[each.identifier] > 1 || RESERVED.count(each.identifier) != 0) {
                each.identifier += each.separator + each.id;
                is_done = false;
            }
        }
    }
}

} // namespace

std::string id_header(const std::vector<catalogue_message>& messages,
                      const std::vector<catalogue_image>& images) {
    std::vector<named_id> ids;
    take(messages, "_", ids);
    take(images, "_IMAGE_", ids);
    separate(ids);
    std::string text = PREAMBLE;
    for (const named_id& each : ids) {
        text.append("constexpr char ")
            .append(each.identifier)
            .append("[] = \"")
            .append(each.id)
            .append("\";\n");
    }
    return text + END;
}

} // namespace velarion
