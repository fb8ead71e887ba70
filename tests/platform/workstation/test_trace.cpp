#include "trace.h"

#include "scratch_platform.h"

#include <cerrno>
#include <cstdlib>
#include <iterator>
#include <map>
#include <regex>
#include <thread>

namespace {

class test_trace : public scratch_platform {
protected:
    test_trace() { ::setenv("PANEL_TRACE_FILE", trace_file().c_str(), 1); }
    std::string trace_file() const { return beside("trace"); }
};

/** @return the text of a record; the whole line when its head is malformed */
std::string text_of(const std::string& line) {
    static const std::regex head(
        R"(^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z \S+\[\d+:\d+\] 0x5302 0x102 0x5 )");
    std::smatch match;
    return std::regex_search(line, match, head) ? match.suffix().str() : "malformed: " + line;
}

TEST_F(test_trace, a_record_is_one_line_whatever_its_text_holds) {
    const struct {
        const char* text;
        const char* record;
    } rows[] = {
        {"plain \xc3\xa9", "plain \xc3\xa9"},
        {"", ""},
        {"ends\r\n\n", "ends"},
        {"two\nlines\r\nand\ttab", "two\\nlines\\r\\nand\\ttab"},
        {"\x1b[31m\x7f", "\\x1b[31m\\x7f"},
        {"\n\n", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(0, emwGENTrcPrintf(0x5302, 0x102, 5, "%s", row.text));
    }
    int (*const volatile unchecked_trace)(int, int, int, const char*, ...) = &emwGENTrcPrintf;
    EXPECT_EQ(0, unchecked_trace(0x5302, 0x102, 5, nullptr));
    const std::vector<std::string> lines = lines_of(trace_file());
    ASSERT_EQ(std::size(rows) + 1, lines.size());
    for (std::size_t index = 0; index < std::size(rows); ++index) {
        EXPECT_EQ(rows[index].record, text_of(lines[index]));
    }
    EXPECT_EQ("(null)", text_of(lines.back()));
}

TEST_F(test_trace, long_texts_are_whole_up_to_the_bound) {
    for (const std::size_t length : {511U, 512U, 16384U, 16385U}) {
        const std::string text(length, 'x');
        EXPECT_EQ(0, emwGENTrcPrintf(0x5302, 0x102, 5, "%s", text.c_str()));
        const std::string cut = text.substr(0, 16384) + (length > 16384 ? "..." : "");
        EXPECT_EQ(cut, text_of(lines_of(trace_file()).back()));
    }
}

TEST_F(test_trace, records_of_threads_and_processes_do_not_mix) {
    const int records = 200;
    const auto trace = [](char letter) {
        for (int number = 0; number < records; ++number) {
            emwGENTrcPrintf(0x5302, 0x102, 5, "%s", std::string(6000, letter).c_str());
        }
    };
    const auto trace_from_two_threads = [&](char first) {
        std::thread other(trace, static_cast<char>(first + 1));
        trace(first);
        other.join();
        return true;
    };
    const pid_t process = start_process([&] { return trace_from_two_threads('a'); });
    trace_from_two_threads('c');
    EXPECT_EQ(0, wait_for(process));
    std::map<std::string, int> seen;
    for (const std::string& line : lines_of(trace_file())) {
        ++seen[text_of(line)];
    }
    EXPECT_EQ(4U, seen.size());
    for (const char letter : {'a', 'b', 'c', 'd'}) {
        EXPECT_EQ(records, seen[std::string(6000, letter)]) << letter;
    }
}

TEST_F(test_trace, records_go_to_standard_error_when_the_file_fails) {
    ::setenv("PANEL_TRACE_FILE", beside("no/such/folder").c_str(), 1);
    const std::string errors = beside("errors");
    const auto trace_twice = [] {
        errno = E2BIG; // the caller's errno is kept
        return emwGENTrcPrintf(0x5302, 0x102, 5, "first") != 0 && errno == E2BIG &&
               emwGENTrcPrintf(0x5302, 0x102, 5, "second") != 0;
    };
    EXPECT_EQ(0, run_in_process(trace_twice, errors));
    const std::vector<std::string> lines = lines_of(errors);
    ASSERT_EQ(3U, lines.size());
    EXPECT_EQ(0U, lines[0].find("panel_platform: trace file " + beside("no/such/folder") + ": "));
    EXPECT_EQ("first", text_of(lines[1]));
    EXPECT_EQ("second", text_of(lines[2]));
}

} // namespace
