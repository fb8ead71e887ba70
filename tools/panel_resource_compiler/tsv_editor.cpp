#include "tsv_editor.h"

#include "checks.h"
#include "text_diff.h"
#include "tsv_table.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <limits>

namespace velarion {

namespace {

constexpr char BYTE_ORDER_MARK[] = "\xEF\xBB\xBF";

bool read_number(const std::string& text, std::int64_t& number) {
    const char* end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, number);
    return !text.empty() && result.ec == std::errc() && result.ptr == end;
}

/** What the rows ascend by; texts follow the numbers. */
std::int64_t rank_of(const std::string& key) {
    std::int64_t number = 0;
    return read_number(key, number) ? number : std::numeric_limits<std::int64_t>::max();
}

std::string end_of(const std::string& line) {
    const std::size_t length = line.size();
    if (length == 0 || line.back() != '\n') {
        return {};
    }
    return length > 1 && line[length - 2] == '\r' ? "\r\n" : "\n";
}

std::string without_end(const std::string& line) {
    std::string text = line.substr(0, line.size() - end_of(line).size());
    if (!text.empty() && text.back() == '\r') {
        text.pop_back();
    }
    return text;
}

} // namespace

tsv_editor::tsv_editor(std::string path, std::vector<std::string> columns)
    : path_(std::move(path))
    , columns_(std::move(columns)) {
    for (std::size_t c = 0; c < columns_.size(); ++c) {
        order_.push_back(c);
    }
}

std::string tsv_editor::escaped(const std::string& field) {
    std::string text;
    for (const char c : field) {
        text += c == '\n' ? "\\n" : c == '\t' ? "\\t" : c == '\\' ? "\\\\" : std::string(1, c);
    }
    return text;
}

bool tsv_editor::key_order::operator()(const std::string& a, const std::string& b) const {
    const std::int64_t first = rank_of(a);
    const std::int64_t second = rank_of(b);
    const bool are_texts = first == second && first == std::numeric_limits<std::int64_t>::max();
    return are_texts ? a < b : first < second;
}

bool tsv_editor::read(diagnostics& report) {
    const std::size_t errors_before = report.error_count();
    std::error_code error;
    is_new_ = !std::filesystem::exists(path_, error);
    if (is_new_) {
        lines_ = {{format(columns_, line_end_), {}, 0}};
        header_ = lines_.begin();
        return true;
    }
    std::vector<tsv_record> records = read_tsv_table(path_, columns_, report);
    std::string fault;
    if (report.error_count() == errors_before && !read_whole_file(path_, old_contents_, fault)) {
        report.error(CHECK_FILE, {path_, 0}, "cannot be read");
    }
    auto record = records.begin();
    for (std::string& text : lines_with_ends(old_contents_)) {
        lines_.push_back({std::move(text), {}, lines_.size() + 1});
        if (record != records.end() && record->place.line == lines_.size()) {
            lines_.back().fields = std::move(record->fields);
            ++record;
        }
    }
    take_header();
    index();
    return report.error_count() == errors_before;
}

void tsv_editor::take_header() {
    for (auto each = lines_.begin(); each != lines_.end(); ++each) {
        std::string names = without_end(each->text);
        if (each == lines_.begin()) {
            line_end_ = end_of(each->text).empty() ? line_end_ : end_of(each->text);
            names.erase(0, names.compare(0, 3, BYTE_ORDER_MARK) == 0 ? 3 : 0);
        }
        if (names.empty() || names[0] == '#') {
            continue;
        }
        header_ = each;
        order_.clear();
        for (std::size_t start = 0; start <= names.size();) {
            const std::size_t end = std::min(names.find('\t', start), names.size());
            const auto column = std::find(columns_.begin(), columns_.end(), names.substr(start, end - start));
            order_.push_back(static_cast<std::size_t>(column - columns_.begin()));
            start = end + 1;
        }
        return;
    }
}

void tsv_editor::index() {
    rows_.clear();
    for (auto each = lines_.begin(); each != lines_.end(); ++each) {
        if (!each->fields.empty()) {
            rows_.emplace(each->fields[0], each);
        }
    }
}

std::string tsv_editor::format(const std::vector<std::string>& fields, const std::string& end) const {
    std::string text;
    for (const std::size_t column : order_) {
        text += (column == order_.front() ? "" : "\t") + escaped(fields[column]);
    }
    return text + end;
}

std::vector<std::string> tsv_editor::fields(const std::string& key) const {
    const auto found = rows_.find(key);
    return found == rows_.end() ? std::vector<std::string>() : found->second->fields;
}

std::size_t tsv_editor::line_of(const std::string& key) const {
    const auto found = rows_.find(key);
    return found == rows_.end() ? 0 : found->second->number;
}

std::vector<std::string> tsv_editor::keys() const {
    std::vector<std::string> keys;
    for (const auto& row : rows_) {
        keys.push_back(row.first);
    }
    return keys;
}

void tsv_editor::put(const std::vector<std::string>& fields) {
    const auto next = rows_.lower_bound(fields[0]);
    if (next != rows_.end() && !key_order()(fields[0], next->first)) {
        line& row = *next->second;
        if (row.fields != fields) {
            row.text = format(fields, end_of(row.text));
            row.fields = fields;
        }
        return;
    }
    // A comment belongs to the row below it, so that the place is right behind a row.
    const auto before = next == rows_.begin() ? header_ : std::prev(next)->second;
    if (end_of(before->text).empty()) {
        before->text = without_end(before->text) + line_end_;
    }
    rows_.emplace_hint(next, fields[0],
                       lines_.insert(std::next(before), {format(fields, line_end_), fields, 0}));
}

bool tsv_editor::remove(const std::string& key) {
    const auto found = rows_.find(key);
    if (found == rows_.end()) {
        return false;
    }
    lines_.erase(found->second);
    rows_.erase(found);
    return true;
}

bool tsv_editor::is_sorted() const {
    const line* before = nullptr;
    for (const line& each : lines_) {
        if (each.fields.empty()) {
            continue;
        }
        if (before && key_order()(each.fields[0], before->fields[0])) {
            return false;
        }
        before = &each;
    }
    return true;
}

void tsv_editor::sort() {
    std::list<std::list<line>> blocks;
    std::list<line> block;
    if (is_sorted()) {
        return;
    }
    if (std::next(header_) != lines_.end() && end_of(lines_.back().text).empty()) {
        lines_.back().text = without_end(lines_.back().text) + line_end_;
    }
    while (std::next(header_) != lines_.end()) {
        block.splice(block.end(), lines_, std::next(header_));
        if (!block.back().fields.empty()) {
            blocks.push_back(std::move(block));
            block.clear();
        }
    }
    blocks.sort([](const std::list<line>& a, const std::list<line>& b) {
        return key_order()(a.back().fields[0], b.back().fields[0]);
    });
    for (std::list<line>& sorted : blocks) {
        lines_.splice(lines_.end(), sorted);
    }
    lines_.splice(lines_.end(), block);
    index();
}

bool tsv_editor::is_changed() const {
    return is_new_ ? lines_.size() > 1 : contents() != old_contents_;
}

std::string tsv_editor::contents() const {
    std::string all;
    for (const line& each : lines_) {
        all += each.text;
    }
    return all;
}

void tsv_editor::save(file_replacement& files) const {
    if (is_changed()) {
        files.add(path_, old_contents_, contents(), is_new_);
    }
}

} // namespace velarion
