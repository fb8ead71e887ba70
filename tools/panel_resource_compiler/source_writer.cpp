#include "source_writer.h"

#include "output_folder.h"

namespace velarion {

std::string cpp_literal(const std::string& text) {
    std::string literal = "\"";
    for (const char c : text) {
        switch (c) {
        case '"':
            literal += "\\\"";
            break;
        case '\\':
            literal += "\\\\";
            break;
        case '\n':
            literal += "\\n";
            break;
        case '\t':
            literal += "\\t";
            break;
        case '\r':
            literal += "\\r"; // compilers take a bare one for the end of a line
            break;
        case '?':
            literal += "\\?"; // two in a row could start a trigraph
            break;
        default:
            literal += c;
        }
    }
    return literal + '"';
}

bool source_writer::finish(std::string& fault) const {
    return output_folder(folder_).write(name_, contents_.str(), fault);
}

} // namespace velarion
