#include "text_lines.h"

#include "checks.h"
#include "file_guard.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace velarion {

namespace {

constexpr char BYTE_ORDER_MARK[] = "\xEF\xBB\xBF";
constexpr std::size_t LONGEST_LINE = 1U << 20U;
constexpr std::size_t MOST_LINES = 1000000; // each may be a fault that is kept

/** The number of continuation bytes that a lead byte asks for, or -1. */
int continuation_count(unsigned char lead) {
    if (lead < 0x80) {
        return 0;
    }
    if (lead >= 0xC2 && lead <= 0xDF) {
        return 1;
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        return 2;
    }
    return lead >= 0xF0 && lead <= 0xF4 ? 3 : -1;
}

/** The second byte rules out overlong forms, surrogates and code points above U+10FFFF. */
bool is_second_byte(unsigned char lead, unsigned char second) {
    switch (lead) {
    case 0xE0:
        return second >= 0xA0 && second <= 0xBF;
    case 0xED:
        return second >= 0x80 && second <= 0x9F;
    case 0xF0:
        return second >= 0x90 && second <= 0xBF;
    case 0xF4:
        return second >= 0x80 && second <= 0x8F;
    default:
        return (second & 0xC0) == 0x80;
    }
}

void take_line(const source_place& place, std::string text, std::vector<text_line>& lines,
               diagnostics& report) {
    if (!text.empty() && text.back() == '\r') {
        text.pop_back();
    }
    if (place.line == 1 && text.compare(0, 3, BYTE_ORDER_MARK) == 0) {
        text.erase(0, 3);
    }
    if (text.empty() || text[0] == '#') {
        return;
    }
    if (text.size() > LONGEST_LINE) {
        report.error(CHECK_TABLE, place, "is longer than 1 MiB, which no line of a table is");
        return;
    }
    if (!is_valid_utf8(text) || text.find('\0') != std::string::npos) {
        report.error(CHECK_ENCODING, place, "is not valid UTF-8 text");
        return;
    }
    if (text.find('\r') != std::string::npos) {
        report.error(CHECK_ENCODING, place_in(place, text, text.find('\r')),
                     "holds a carriage return, which the panel cannot show; remove it");
        return;
    }
    lines.push_back({place, std::move(text)});
}

} // namespace

bool read_text_lines(const std::string& path, std::vector<text_line>& lines, diagnostics& report) {
    if (is_special_file(path.c_str())) {
        report.error(CHECK_FILE, {path, 0}, "is a pipe or device; put a file in its place");
        return false;
    }
    std::error_code unknown;
    if (const std::uintmax_t size = std::filesystem::file_size(path, unknown);
        !unknown && size > MOST_TEXT_BYTES) {
        report.error(CHECK_FILE, {path, 0}, "is larger than 64 MiB, which no table is");
        return false;
    }
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        report.error(CHECK_FILE, {path, 0}, "cannot be opened for reading");
        return false;
    }
    std::string line;
    for (std::size_t number = 1; std::getline(file, line); ++number) {
        if (number > MOST_LINES) {
            report.error(CHECK_FILE, {path, number},
                         "is one line more than any table has; the rest is not read");
            return false;
        }
        take_line({path, number}, line, lines, report);
    }
    if (file.bad()) {
        report.error(CHECK_FILE, {path, 0}, "cannot be read");
    }
    return !file.bad();
}

source_place place_in(source_place place, const std::string& line, std::size_t offset) {
    const auto end = line.begin() + static_cast<std::ptrdiff_t>(offset);
    const auto starts_character = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; };
    place.column = static_cast<std::size_t>(std::count_if(line.begin(), end, starts_character)) + 1;
    return place;
}

bool is_valid_utf8(const std::string& text) {
    for (std::size_t i = 0; i < text.size();) {
        const unsigned char lead = static_cast<unsigned char>(text[i]);
        const int count = continuation_count(lead);
        if (count < 0 || i + static_cast<std::size_t>(count) >= text.size()) {
            return false;
        }
        for (int k = 1; k <= count; ++k) {
            const unsigned char byte = static_cast<unsigned char>(text[i + static_cast<std::size_t>(k)]);
            if (k == 1 ? !is_second_byte(lead, byte) : (byte & 0xC0) != 0x80) {
                return false;
            }
        }
        i += static_cast<std::size_t>(count) + 1;
    }
    return true;
}

} // namespace velarion
