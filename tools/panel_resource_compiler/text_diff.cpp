#include "text_diff.h"

#include <algorithm>
#include <ostream>
#include <unordered_map>

namespace velarion {

namespace {

constexpr std::size_t CONTEXT = 3;

/** Equal lines of both texts, by their indexes. */
struct match {
    std::size_t before;
    std::size_t after;
};

/** A piece of both texts from where the last one ended; one of them may be empty. */
struct change {
    std::size_t before;
    std::size_t before_end;
    std::size_t after;
    std::size_t after_end;
};

/** The lines that stand once in both texts, in the order of the second. */
std::vector<match> unique_matches(const std::vector<std::string>& before,
                                  const std::vector<std::string>& after) {
    struct uses {
        std::size_t before = 0;
        std::size_t after = 0;
        std::size_t place = 0;
    };
    std::unordered_map<std::string, uses> lines;
    for (std::size_t i = 0; i < before.size(); ++i) {
        uses& line = lines[before[i]];
        ++line.before;
        line.place = i;
    }
    for (const std::string& line : after) {
        ++lines[line].after;
    }
    std::vector<match> matches;
    for (std::size_t i = 0; i < after.size(); ++i) {
        const uses& line = lines[after[i]];
        if (line.before == 1 && line.after == 1) {
            matches.push_back({line.place, i});
        }
    }
    return matches;
}

/** The longest series of matches that ascends in both texts. */
std::vector<match> longest_ascent(const std::vector<match>& matches) {
    std::vector<std::size_t> ends; // for each length, the match that ends the lowest series of it
    std::vector<std::size_t> previous(matches.size(), matches.size());
    for (std::size_t i = 0; i < matches.size(); ++i) {
        const auto end = std::lower_bound(
            ends.begin(), ends.end(), matches[i].before,
            [&matches](std::size_t at, std::size_t line) { return matches[at].before < line; });
        if (end != ends.begin()) {
            previous[i] = *std::prev(end);
        }
        if (end == ends.end()) {
            ends.push_back(i);
        } else {
            *end = i;
        }
    }
    std::vector<match> series;
    for (std::size_t at = ends.empty() ? matches.size() : ends.back(); at != matches.size();
         at = previous[at]) {
        series.push_back(matches[at]);
    }
    std::reverse(series.begin(), series.end());
    return series;
}

std::vector<change> find_changes(const std::vector<std::string>& before,
                                 const std::vector<std::string>& after) {
    std::vector<match> anchors = longest_ascent(unique_matches(before, after));
    anchors.push_back({before.size(), after.size()});
    std::vector<change> changes;
    std::size_t b = 0;
    std::size_t a = 0;
    for (const match& anchor : anchors) {
        while (b < anchor.before && a < anchor.after && before[b] == after[a]) {
            ++b;
            ++a;
        }
        change found{b, anchor.before, a, anchor.after};
        while (found.before_end > b && found.after_end > a &&
               before[found.before_end - 1] == after[found.after_end - 1]) {
            --found.before_end;
            --found.after_end;
        }
        if (found.before != found.before_end || found.after != found.after_end) {
            changes.push_back(found);
        }
        b = anchor.before + 1;
        a = anchor.after + 1;
    }
    return changes;
}

void write_line(char mark, const std::string& line, std::ostream& output) {
    output << mark << line;
    if (line.empty() || line.back() != '\n') {
        output << "\n\\ No newline at end of file\n";
    }
}

std::string range(std::size_t start, std::size_t end) {
    const std::size_t count = end - start;
    return std::to_string(count == 0 ? start : start + 1) + (count == 1 ? "" : "," + std::to_string(count));
}

/** Writes changes that share their context as one hunk. */
void write_hunk(const std::vector<std::string>& before, const std::vector<std::string>& after,
                const change* first, const change* last, std::ostream& output) {
    const std::size_t lead = std::min(CONTEXT, first->before);
    const std::size_t trail = std::min(CONTEXT, before.size() - last->before_end);
    output << "@@ -" << range(first->before - lead, last->before_end + trail) << " +"
           << range(first->after - lead, last->after_end + trail) << " @@\n";
    std::size_t b = first->before - lead;
    for (const change* piece = first; piece <= last; ++piece) {
        for (; b < piece->before; ++b) {
            write_line(' ', before[b], output);
        }
        for (; b < piece->before_end; ++b) {
            write_line('-', before[b], output);
        }
        for (std::size_t a = piece->after; a < piece->after_end; ++a) {
            write_line('+', after[a], output);
        }
    }
    for (; b < last->before_end + trail; ++b) {
        write_line(' ', before[b], output);
    }
}

} // namespace

std::vector<std::string> lines_with_ends(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size() - 1) + 1;
        lines.push_back(text.substr(start, end - start));
        start = end;
    }
    return lines;
}

void write_unified_diff(const std::string& path, const std::string& before, const std::string& after,
                        std::ostream& output) {
    const std::vector<std::string> old_lines = lines_with_ends(before);
    const std::vector<std::string> new_lines = lines_with_ends(after);
    const std::vector<change> changes = find_changes(old_lines, new_lines);
    if (!changes.empty()) {
        output << "--- " << path << "\n+++ " << path << '\n';
    }
    for (std::size_t first = 0; first < changes.size();) {
        std::size_t last = first;
        while (last + 1 < changes.size() &&
               changes[last + 1].before - changes[last].before_end <= 2 * CONTEXT) {
            ++last;
        }
        write_hunk(old_lines, new_lines, &changes[first], &changes[last], output);
        first = last + 1;
    }
}

} // namespace velarion
