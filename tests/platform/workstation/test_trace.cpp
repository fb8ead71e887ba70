#include "trace.h"

#include "scratch_platform.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <regex>
#include <sstream>

namespace {

class test_trace : public scratch_platform {
protected:
    test_trace() { ::setenv("PANEL_TRACE_FILE", beside("trace").c_str(), 1); }

    /** @return the texts of the records in the trace file; whole lines where the head is malformed */
    std::vector<std::string> texts() const {
        static const std::regex head(
            R"(^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z \S+\[\d+:\d+\] 0x5302 0x102 0x5 )");
        std::istringstream file(file_contents(beside("trace")));
        std::vector<std::string> found;
        for (std::string line; std::getline(file, line);) {
            std::smatch match;
            found.push_back(std::regex_search(line, match, head) ? match.suffix().str()
                                                                 : "malformed: " + line);
        }
        return found;
    }
};

TEST_F(test_trace, a_record_is_one_line_whatever_its_text_holds) {
    const std::pair<std::string, std::string> rows[] = {
        {"plain \xc3\xa9", "plain \xc3\xa9"},
        {"", ""},
        {"ends\r\n\n", "ends"},
        {"two\nlines\r\nand\ttab", "two\\nlines\\r\\nand\\ttab"},
        {"\x1b[31m\x7f", "\\x1b[31m\\x7f"},
        {"\n\n", ""},
        {std::string(511, 'x'), std::string(511, 'x')}, // what fits without a larger buffer
        {std::string(512, 'x'), std::string(512, 'x')},
        {std::string(16384, 'x'), std::string(16384, 'x')}, // the longest
        {std::string(16385, 'x'), std::string(16384, 'x') + "..."},
    };
    std::vector<std::string> expected;
    for (const auto& [text, record] : rows) {
        EXPECT_EQ(emwGENTrcPrintf(0x5302, 0x102, 5, "%s", text.c_str()), 0);
        expected.push_back(record);
    }
    int (*const volatile unchecked_trace)(int, int, int, const char*, ...) = &emwGENTrcPrintf;
    EXPECT_EQ(unchecked_trace(0x5302, 0x102, 5, nullptr), 0);
    expected.push_back("(null)");
    EXPECT_EQ(texts(), expected);
}

TEST_F(test_trace, records_of_threads_and_processes_do_not_mix) {
    const int records = 100;
    const auto trace_from_threads = [](char first) {
        run_in_threads([first](int thread) {
            const std::string text(6000, static_cast<char>(first + thread));
            for (int number = 0; number < records; ++number) {
                emwGENTrcPrintf(0x5302, 0x102, 5, "%s", text.c_str());
            }
        });
        return true;
    };
    const pid_t process = start_process([&] { return trace_from_threads('a'); });
    trace_from_threads('e');
    EXPECT_EQ(wait_for(process), 0);
    std::vector<std::string> expected;
    for (const char letter : {'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h'}) {
        expected.insert(expected.end(), records, std::string(6000, letter));
    }
    std::vector<std::string> found = texts();
    std::sort(found.begin(), found.end());
    EXPECT_TRUE(expected == found) << found.size() << " records";
}

TEST_F(test_trace, records_go_to_standard_error_when_the_file_fails) {
    ::setenv("PANEL_TRACE_FILE", beside("no/such/folder").c_str(), 1);
    const auto trace_twice = [] {
        errno = E2BIG; // the caller's errno is kept
        return emwGENTrcPrintf(0x5302, 0x102, 5, "first") != 0 && errno == E2BIG &&
               emwGENTrcPrintf(0x5302, 0x102, 5, "second") != 0;
    };
    EXPECT_EXIT(std::_Exit(trace_twice() ? 0 : 1), testing::ExitedWithCode(0),
                "^panel_platform: trace file [^\n]*/no/such/folder: [^\n]*\n"
                "[^\n]* 0x5302 0x102 0x5 first\n[^\n]* 0x5302 0x102 0x5 second\n$");
}

} // namespace
