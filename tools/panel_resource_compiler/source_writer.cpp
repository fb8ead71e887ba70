#include "source_writer.h"

#include <filesystem>

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

source_writer::source_writer(const std::string& path)
    : path_(path)
    , temporary_path_(path + ".new")
    , file_(temporary_path_, std::ios::binary) {}

source_writer::~source_writer() {
    std::error_code ignored;
    std::filesystem::remove(temporary_path_, ignored);
}

bool source_writer::finish(std::string& fault) {
    file_.close();
    if (!file_) {
        fault = temporary_path_ + ": cannot be written";
        return false;
    }
    std::error_code error;
    std::filesystem::rename(temporary_path_, path_, error);
    if (error) {
        fault = path_ + ": " + error.message();
    }
    return !error;
}
