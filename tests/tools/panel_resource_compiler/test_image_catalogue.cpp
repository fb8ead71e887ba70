#include "image_catalogue.h"
#include "process.h"
#include "scratch_catalogue.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

const std::string HEADER = "id\tname\tfile\n";

std::string reports_of_images(const scratch_catalogue& catalogue) {
    return catalogue.reports_of([&](diagnostics& report) { read_image_catalogue(catalogue.path(), report); });
}

} // namespace

TEST(image_catalogue, reports_each_fault_with_its_place) {
    const struct {
        const char* name;
        std::string contents;
        const char* reports;
    } rows[] = {
        {"good: gaps, shared files, blanks, capitals in the extension",
         HEADER + "2\tA\ta_1.0.svg\n9\tB\ta_1.0.svg\n10\tC\t \n11\tD\t\xE3\x80\x80\n12\tE\tX_b.PNG\n", ""},
        {"ids", HEADER + "0\tA\ta.png\n7\tB\ta.png\n7\tC\ta.png\n3\tD\ta.png\n5\tE\ta.png\nx\tF\ta.png\n",
         "images.tsv:2: error: id 0 is less than 1\n"
         "images.tsv:4: error: id 7 stands twice\n"
         "images.tsv:5: error: id 3 stands after 7; ids must ascend\n"
         "images.tsv:6: error: id 5 stands after 7; ids must ascend\n"
         "images.tsv:7: error: id \"x\" is not a whole number\n"},
        {"names", HEADER + "1\tA\ta.png\n2\t\ta.png\n3\tGR\xC3\x96SSE\ta.png\n4\tA\\nB\ta.png\n5\tA\ta.png\n",
         "images.tsv:3: error: the image has no name\n"
         "images.tsv:4: error: the name \"GR\xC3\x96SSE\" holds more than printable ASCII\n"
         "images.tsv:5: error: the name \"A\nB\" holds more than printable ASCII\n"
         "images.tsv:6: error: the name \"A\" stands in line 2 already\n"},
        {"files",
         HEADER +
             "1\tA\t\n2\tB\t../a.png\n3\tC\ta\\\\b.png\n4\tD\tgr\xC3\xB6sse.png\n5\tE\ta.png \n6\tF\t  \n"
             "7\tG\tx:a.png\n",
         "images.tsv:2: error: the image has no file; one blank stands for an image without a picture\n"
         "images.tsv:3: error: the file \"../a.png\" holds a path separator\n"
         "images.tsv:4: error: the file \"a\\b.png\" holds a path separator\n"
         "images.tsv:5: error: the file \"gr\xC3\xB6sse.png\" holds more than printable ASCII\n"
         "images.tsv:6: error: the file \"a.png \" begins or ends with a blank\n"
         "images.tsv:7: error: the file \"  \" begins or ends with a blank\n"
         "images.tsv:8: error: the file \"x:a.png\" holds a \":\", which marks external images\n"},
        {"extensions", HEADER + "1\tA\ta.bmp\n2\tB\t.png\n",
         "images.tsv:2: warning: the file \"a.bmp\" does not end in .png, .svg or .gif: never shown "
         "[-Wextensions]\n"
         "images.tsv:3: warning: the file \".png\" does not end in .png, .svg or .gif: never shown "
         "[-Wextensions]\n"},
        {"bytes", HEADER + "1\tA\t\xFF.png\n",
         "images.tsv:2: error: is not valid UTF-8 text\nimages.tsv: error: holds no image\n"},
        {"no image", HEADER, "images.tsv: error: holds no image\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const scratch_catalogue catalogue;
        catalogue.write("images.tsv", row.contents);
        EXPECT_EQ(reports_of_images(catalogue), row.reports);
    }
}

TEST(image_catalogue, the_program_checks_it_and_writes_its_table_without_the_messages) {
    const scratch_catalogue catalogue;
    const std::string out = catalogue.folder().path("out");
    catalogue.write("messages.tsv", "broken");
    catalogue.write("images.tsv", HEADER + "3\tA\tone.png\n4\tB\t\xE3\x80\x80\n");
    const std::vector<std::string> images = {RESOURCE_COMPILER, "images",   "--catalogue",
                                             catalogue.path(),  "--output", out};
    EXPECT_EQ(run_process(images).exit_code, 0);
    EXPECT_TRUE(std::filesystem::remove(out + "/image_name_table.cpp"));

    catalogue.write("images.tsv", HEADER + "3\tA\ta/b.png\n");
    EXPECT_EQ(run_process(images).exit_code, 1);
    EXPECT_TRUE(std::filesystem::is_empty(out));
    const scratch_catalogue good;
    good.write("images.tsv", HEADER + "3\tA\ta/b.png\n");
    EXPECT_EQ(run_process({RESOURCE_COMPILER, "check", "--catalogue", good.path()}).exit_code, 1);
}
