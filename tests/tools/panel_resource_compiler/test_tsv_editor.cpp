#include "scratch_folder.h"
#include "tsv_editor.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <sstream>

namespace velarion {

namespace fs = std::filesystem;

TEST(tsv_editor, changes_the_lines_that_it_is_told_to_and_no_others) {
    const struct {
        const char* name;
        std::string before;
        std::function<void(tsv_editor&)> edit;
        std::string after;
    } rows[] = {
        {"nothing", "# a\n\nrow\ttext\r\n3\tx",
         [](tsv_editor& e) {
             e.put({"3", "x"}), e.sort();
         },
         "# a\n\nrow\ttext\r\n3\tx"},
        {"a number written otherwise", "row\ttext\n009\tb\n",
         [](tsv_editor& e) {
             e.put({"9", "c"});
         },
         "row\ttext\n9\tc\n"},
        {"in before a comment", "\xEF\xBB\xBFrow\ttext\n# of 2\n2\ta\n\n# of 9\n9\tb\n",
         [](tsv_editor& e) {
             e.put({"3", ""}), e.put({"1", "z"});
         },
         "\xEF\xBB\xBFrow\ttext\n1\tz\n# of 2\n2\ta\n3\t\n\n# of 9\n9\tb\n"},
        {"sorted", "row\ttext\n\n# of 10\n10\ta\n9\tb\n# of 2\n2\tc\n# end",
         [](tsv_editor& e) {
             e.sort(), e.put({"9", "d"});
         },
         "row\ttext\n# of 2\n2\tc\n9\td\n\n# of 10\n10\ta\n# end\n"},
        {"a file that is not there", "",
         [](tsv_editor& e) {
             e.put({"2", "a"});
         },
         "row\ttext\n2\ta\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const scratch_folder folder;
        std::ostringstream reports;
        diagnostics report(reports);
        if (!row.before.empty()) {
            folder.write("new/a.tsv", row.before);
        }
        tsv_editor editor(folder.path("new/a.tsv"), {"row", "text"});
        ASSERT_TRUE(editor.read(report)) << reports.str();
        row.edit(editor);
        file_replacement files;
        editor.save(files);
        EXPECT_EQ(files.is_empty(), row.before == row.after);
        std::string fault;
        EXPECT_TRUE(files.commit(fault)) << fault;
        EXPECT_EQ(folder.read("new/a.tsv"), row.after);
    }
}

TEST(tsv_editor, files_are_replaced_together_or_not_at_all) {
    const struct {
        const char* fault;
        std::function<void(const scratch_folder&)> prepare;
    } rows[] = {
        {"d.tsv.new: File exists",
         [](const scratch_folder& folder) { fs::create_directories(folder.path("d.tsv.new/in the way")); }},
        {"b.tsv: has been changed meanwhile; try again",
         [](const scratch_folder& folder) { folder.write("b.tsv", "other"); }},
        {"b.tsv: No such file", [](const scratch_folder& folder) { fs::remove(folder.path("b.tsv")); }},
        {"c.tsv: has appeared meanwhile",
         [](const scratch_folder& folder) { folder.write("new/c.tsv", ""); }},
        {"", [](const scratch_folder& folder) { folder.write("a.tsv.new", "of an ended process"); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.fault);
        const scratch_folder folder;
        folder.write("beside/a.tsv", "a\n");
        folder.write("b.tsv", "b\n");
        fs::create_symlink("beside/a.tsv", folder.path("a.tsv"));
        fs::permissions(folder.path("a.tsv"), fs::perms::owner_read | fs::perms::owner_write);
        file_replacement files;
        files.add(folder.path("a.tsv"), "a\n", "A\n");
        files.add(folder.path("b.tsv"), "b\n", "B\n");
        files.add(folder.path("new/c.tsv"), "", "C\n", true);
        files.add(folder.path("d.tsv"), "", "D\n", true);
        row.prepare(folder);
        std::string fault;
        const bool is_done = *row.fault == '\0';
        EXPECT_EQ(files.commit(fault), is_done);
        EXPECT_NE(fault.find(row.fault), std::string::npos) << fault;
        EXPECT_EQ(folder.read("new/c.tsv"), is_done ? "C\n" : "");
        EXPECT_EQ(fs::exists(folder.path("new")), is_done || fault.find("appeared") != std::string::npos);
        EXPECT_EQ(folder.read("a.tsv"), is_done ? "A\n" : "a\n");
        EXPECT_TRUE(fs::is_symlink(folder.path("a.tsv")) && !fs::exists(folder.path("beside/a.tsv.new")));
        EXPECT_EQ(fs::status(folder.path("a.tsv")).permissions(), fs::perms(0600));
    }
}

TEST(tsv_editor, a_folder_that_cannot_be_made_is_named) {
    file_replacement files;
    files.add("/proc/no_folder/deeper/a.tsv", "", "a\n", true);
    std::string fault;
    EXPECT_FALSE(files.commit(fault));
    EXPECT_EQ(fault, "/proc/no_folder: No such file or directory; make the folder\nnothing was changed");
}

} // namespace velarion
