#include "picture_extent.h"
#include "scratch_catalogue.h"

#include <gtest/gtest.h>

#include <QBuffer>

#include <filesystem>
#include <map>

namespace fs = std::filesystem;

namespace {

/** A drawing of its own by its number, of a size. */
std::string svg(int number, const std::string& size = "48 48", const std::string& more = "") {
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " + size + "\"><rect width=\"" +
           std::to_string(number) + "\" height=\"48\" fill=\"#ff0000\"/>" + more + "</svg>";
}

std::string png(int width, int height, QRgb color = 0xFF00FF00) {
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(color);
    QBuffer bytes;
    image.save(&bytes, "PNG");
    return bytes.data().toStdString();
}

class images : public testing::Test {
protected:
    process_result run(std::vector<std::string> words) {
        words.insert(words.begin(), {"--pictures", folder_.path("p")});
        process_result result = catalogue_.run("images", words);
        for (std::size_t at = 0; (at = result.errors.find(folder_.path(""), at)) != std::string::npos;) {
            result.errors.erase(at, folder_.path("").size());
        }
        return result;
    }
    /** Lists files, one row each. */
    void list(const std::vector<std::string>& files) {
        std::string rows = "id\tname\tfile\n";
        for (std::size_t i = 0; i < files.size(); ++i) {
            rows += std::to_string(i + 1) + "\tN" + std::to_string(i + 1) + '\t' + files[i] + '\n';
        }
        catalogue_.write("images.tsv", rows);
    }

    scratch_catalogue catalogue_;
    const scratch_folder& folder_ = catalogue_.folder();
};

using files = std::map<std::string, std::string>;

/** Pictures that begin alike, of which all but the last have a variant. */
files siblings(const std::string& twin, const std::string& state, files more, int count = 5) {
    for (int i = 1; i <= count; ++i) {
        const std::string stem = "ico_key_" + std::to_string(i);
        more.emplace(stem + ".svg", svg(i));
        if (i < count) {
            more.emplace(twin + stem + state + ".svg", svg(10 + i));
        }
    }
    return more;
}

} // namespace

TEST_F(images, what_is_found_of_a_folder) {
    const struct {
        const char* name;
        files pictures;
        const char* check;
        const char* found = "";
        std::vector<std::string> listed = {" "}; ///< one row each
    } rows[] = {
        {"every state and twin belongs to its row",
         {{"a.svg", svg(1)},
          {"a_on.svg", svg(2)},
          {"a_selected.svg", svg(3)},
          {"d_a.svg", svg(4)},
          {"d_a_on.svg", svg(5)},
          {"_on.svg", svg(6)},
          {"ERROR_IMAGE.png", png(1, 1)},
          {"written_files.txt", "a.svg"},
          {"folder/b.svg", ""}},
         "",
         "",
         {"a.svg", " ", "_on.svg"}},
        {"a row may name a state or a twin",
         {{"a_on.svg", svg(1)}, {"d_a_on.svg", svg(2)}, {"d_b.svg", svg(3)}, {"d_b_off.svg", svg(4)}},
         "no-row",
         "",
         {"a_on.svg", "d_b.svg"}},
        {"a twin alone serves a row", {{"d_a.svg", svg(1)}}, "no-file", "", {"a.svg"}},
        {"files without rows",
         {{"a.svg", svg(1)}, {"on.svg", svg(2)}, {"a_x.svg", svg(3)}},
         "no-row",
         "p/a_x.svg: warning: no row of the image list names it, nor the picture whose state or twin it is "
         "[no-row]\n"
         "p/on.svg: warning: no row of the image list names it, nor the picture whose state or twin it is "
         "[no-row]\n",
         {"a.svg"}},
        {"rows without files",
         {{"a.svg", svg(1)}},
         "no-file",
         "images.tsv:2:6: error: image 1 N1: \"b.svg\" is not in p [no-file]\n"
         "images.tsv:3:6: error: image 2 N2: \"A.svg\" is not in p; \"a.svg\" is, in other letters "
         "[no-file]\n",
         {"b.svg", "A.svg"}},
        {"a plain sibling may have no states", siblings("", "_on", {}), "no-state"},
        {"one with another state lacks this one", siblings("", "_on", {{"ico_key_5_off.svg", svg(9)}}),
         "no-state",
         "p/ico_key_5.svg: warning: has no \"ico_key_5_on.svg\"; 4 of 5 pictures that begin alike have "
         "theirs [no-state]\n"},
        {"three siblings tell nothing", siblings("", "_on", {{"ico_key_4_off.svg", svg(9)}}, 4), "no-state"},
        {"another extension is no sibling",
         siblings("", "_on", {{"ico_key_9.png", png(1, 1)}, {"ico_key_9_off.png", png(1, 2)}}, 7),
         "no-state"},
        {"a twin whose picture is gone",
         {{"d_a_on.svg", svg(1)}, {"a.svg", svg(2)}},
         "no-state",
         "p/d_a_on.svg: warning: is the darker twin of \"a_on.svg\", which is not there [no-state]\n"},
        {"states of twins", siblings("d_", "_off", siblings("d_", "", {{"d_ico_key_5.svg", svg(8)}})),
         "no-twin",
         "p/d_ico_key_5.svg: warning: has no \"d_ico_key_5_off.svg\"; 4 of 5 pictures that begin alike have "
         "theirs [no-twin]\n"},
        {"titles and comments change nothing",
         {{"a.svg", svg(1)}, {"b.svg", svg(1, "48 48", "<title>b</title><desc>x\ny</desc><!-- < -->")}},
         "same-picture",
         "p/b.svg: remark: is the same as \"a.svg\"; one row may name the other's file [same-picture]\n"},
        {"what is off and what is disabled may look alike",
         {{"a_disable.svg", svg(1)}, {"a_off.svg", svg(1)}},
         "same-state"},
        {"states look alike",
         {{"a.png", png(2, 2)}, {"a_off.png", png(2, 2)}},
         "same-state",
         "p/a_off.png: warning: looks like \"a.png\" [same-state]\n"},
        {"one picture in two formats",
         {{"a.gif", png(2, 2)}, {"a.png", png(2, 2)}},
         "same-picture",
         "p/a.png: remark: is the same as \"a.gif\"; one row may name the other's file [same-picture]\n"},
        {"sizes within half a pixel", {{"a.svg", svg(1)}, {"a_on.svg", svg(2, "48.4 47.6")}}, "variant-size"},
        {"another height",
         {{"a.png", png(9, 9)}, {"a_on.png", png(9, 8)}},
         "variant-size",
         "p/a_on.png: warning: is 9 x 8, \"a.png\" is 9 x 9 [variant-size]\n"},
        {"bitmaps are what their names say",
         {{"a.gif", png(2, 2)}, {"b.PNG", png(3, 3)}, {"c.png", "GIF89a\xFF\xFF\xFF\xFF\x80"}, {"d.png", ""}},
         "bitmap",
         "p/a.gif: warning: is of the format png [bitmap]\n"
         "p/c.png: error: is larger than the panel draws [bitmap]\n"
         "p/d.png: error: cannot be read: Unsupported image format [bitmap]\n"},
        {"general pictures",
         {{"a.svg", svg(1)}, {"generic_pictures.txt", "a.svg\n"}},
         "generic",
         "images.tsv:2:6: warning: image 1 N1: \"a.svg\" is a general picture: no word of its name has a "
         "pictogram [generic]\n",
         {"a.svg"}},
        {"what has no end is not drawn", // a path that takes half a minute
         {{"a.svg",
           svg(1, "48 48",
               "<path d=\"M16 24 A 3 1e20 5 0 1 9 9\" stroke=\"#000\" stroke-dasharray=\"3 1.5\"/>")}},
         "svg-load",
         "p/a.svg: error: the panel refuses to draw it: it holds too much, too deep, or what has no end "
         "[svg-load]\n"},
        {"what is not well-formed is told once",
         {{"a.svg", "<svg viewBox='0 0 9 9'>\n<g><symbol/></svg>"}},
         "svg-load",
         "p/a.svg:2:19: error: is not well-formed: Opening and ending tag mismatch. [svg-load]\n"},
    };
    for (const auto& row : rows) {
        fs::remove_all(folder_.path("p"));
        for (const auto& [name, contents] : row.pictures) {
            folder_.write("p/" + name, contents);
        }
        list(row.listed);
        const std::string report = run({"--all"}).errors;
        std::string found;
        for (std::size_t at = 0, end = 0; (end = report.find('\n', at)) != std::string::npos; at = end + 1) {
            const std::string line = report.substr(at, end - at + 1);
            found += row.check[0] == '\0' || line.find('[' + std::string(row.check) + "]\n") != line.npos
                         ? line
                         : "";
        }
        EXPECT_EQ(found, row.found) << row.name << '\n' << report;
    }
}

TEST_F(images, documents_are_read_as_the_panel_reads_them) {
    list({"a.svg", "b.svg", "c.svg", "d.svg"});
    folder_.write("p/a.svg", svg(1));
    folder_.write("p/c.svg", svg(2) + std::string(17 << 20, ' '));
    for (const char* name : {"p/a.svg", "p/c.svg"}) {
        ASSERT_EQ(run_process({"gzip", "-n1", folder_.path(name)}).exit_code, 0);
        fs::rename(folder_.path(name) + ".gz", folder_.path(name));
    }
    folder_.write("p/b.svg", folder_.read("p/a.svg").substr(0, 10) + "\a\a\a no such block");
    folder_.write("p/d.svg", svg(2));
    fs::resize_file(folder_.path("p/d.svg"), (16 << 20) + 1);
    EXPECT_EQ(run({}).errors,
              "p/b.svg: error: is compressed and broken [svg-load]\n"
              "p/c.svg: error: holds more than 16 MiB, compressed, which the panel does not read [svg-load]\n"
              "p/d.svg: error: is larger than 16 MiB, which the panel does not read [svg-load]\n"
              "3 errors, 0 warnings\n");
}

TEST_F(images, what_ends_it_early_and_what_is_ignored) {
    list({"a.svg"});
    folder_.write("p/a.svg", svg(1));
    const std::string header = "check\tsubject\tlanguage\treason\n";
    const std::string unused = "ignore.tsv:2:1: warning: nothing is found of ";
    const struct {
        const char* ignored;
        std::vector<std::string> words;
        int exit_code;
        std::string told;
    } rows[] = {
        {"no-row\tgone.svg\t*\told\n",
         {},
         0,
         unused + "no-row in gone.svg any more; remove the entry [ignore-list]\n0 errors, 1 warning\n"},
        {"no-row\tgone.svg\t*\told\n", {"-Wno-no-row"}, 0, ""},
        {"rsvg\ta.svg\t*\tnot compared\n", {}, 0, ""},
        {"glyph\tU+0041\t*\tof another command\n", {}, 0, ""},
        {"",
         {"--sheet", folder_.path("none/s.png")},
         3,
         "panel_resource_compiler: none/s.png: cannot be written\n"},
        {"",
         {"--pictures", folder_.path("p/a.svg")},
         3,
         "panel_resource_compiler: p/a.svg: no such folder\n"},
    };
    for (const auto& row : rows) {
        catalogue_.write("ignore.tsv", header + row.ignored);
        const process_result result = run(row.words);
        EXPECT_EQ(result.exit_code, row.exit_code) << row.told;
        const std::size_t told = result.errors.size() - std::min(result.errors.size(), row.told.size());
        EXPECT_EQ(result.errors.substr(row.exit_code == 0 ? 0 : told), row.told);
    }
    catalogue_.write("images.tsv", "id\tname\tfile\n1\tA\tgone.svg\n2\tB\n");
    EXPECT_EQ(run({}).errors.find("no-file"), std::string::npos) << "a broken list is compared with nothing";
}

TEST_F(images, sheets_show_each_picture_on_both_grounds) {
    const QRgb red = 0xFFFF0000;
    const QRgb light = 0xFFF2F5F7;
    for (int i = 100; i < 198; ++i) {
        folder_.write("p/a" + std::to_string(i) + ".svg", svg(i));
    }
    folder_.write("p/b.svg", svg(24, "24 48"));
    const std::string sheet = folder_.path("s.png");
    EXPECT_NE(run({"--sheet", sheet}).errors.find("page 2 of 2\ns-02.png\n"), std::string::npos);
    const QImage first(QString::fromStdString(folder_.path("s-01.png")));
    const QImage second(QString::fromStdString(folder_.path("s-02.png")));
    EXPECT_EQ(first.size(), QSize(1258, 1776));
    EXPECT_EQ(extent_of(first, red), QRect(15, 15, 1220, 1710)) << "seven beside each other, fourteen lines";
    EXPECT_EQ(second.size(), QSize(1258, 138));
    EXPECT_EQ(extent_of(second.copy(0, 0, 92, 138), red).size(), QSize(36, 72));
    EXPECT_EQ(extent_of(second.copy(92, 0, 92, 92), light), QRect(0, 12, 80, 80));
    EXPECT_EQ(extent_of(second.copy(92, 0, 92, 138), red).size(), QSize(36, 72));
    EXPECT_EQ(run({"--sheet", sheet, "--filter", "a10"}).exit_code, 1) << "no row names them";
    EXPECT_EQ(QImage(QString::fromStdString(sheet)).height(), 264) << "ten pictures";
    run({"--sheet", folder_.path("none.png"), "--filter", "no such name"});
    EXPECT_EQ(QImage(QString::fromStdString(folder_.path("none.png"))).height(), 12);
    folder_.write("p/b.svg", "<svg");
    run({"--sheet", sheet, "--filter", "b.svg"});
    EXPECT_FALSE(extent_of(QImage(QString::fromStdString(sheet)), 0xFFE5484D).isEmpty()) << "not drawn";
}
