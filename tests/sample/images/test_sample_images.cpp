#include "image_catalogue.h"
#include "movie_writer.h"
#include "picture_files.h"
#include "process.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QImageReader>
#include <QSvgRenderer>
#include <filesystem>
#include <iostream>
#include <set>
#include <sstream>

using namespace velarion;

namespace {

const std::string IMAGES = std::string(IMAGE_DIRECTORY) + '/';

QString toolkit_path(const std::string& path) {
    return QString::fromStdString(path);
}

const glyph_book& book() {
    static diagnostics report(std::cerr);
    static const glyph_book loaded(GLYPH_TABLE, report);
    EXPECT_EQ(report.error_count(), 0U);
    return loaded;
}

/** How many frames of a bitmap can be read; 0 for what is none of the format. */
int frames_of(const std::string& file, const char* format) {
    QImageReader reader(toolkit_path(IMAGES + file), format);
    int frames = 0;
    for (QImage frame; reader.read(&frame) && !frame.isNull(); ++frames) {
    }
    return frames;
}

} // namespace

TEST(sample_images, every_file_of_the_list_is_there_and_is_what_its_name_says) {
    diagnostics report(std::cerr);
    std::set<std::string> files;
    for (const catalogue_image& image : read_image_catalogue(CATALOGUE_FOLDER, report)) {
        const std::string& file = image.file;
        if (is_blank_file_name(file) || !files.insert(file).second) {
            continue;
        }
        const std::string extension = file.substr(file.rfind('.'));
        if (extension == ".svg") {
            QFile document(toolkit_path(IMAGES + file));
            ASSERT_TRUE(document.open(QIODevice::ReadOnly)) << file;
            const QByteArray source = document.readAll();
            EXPECT_TRUE(QSvgRenderer(source).isValid()) << file;
            EXPECT_TRUE(source.contains("viewBox")) << file;
            EXPECT_LT(source.size(), 8192) << file;
        } else if (extension == ".gif") {
            EXPECT_GT(frames_of(file, "gif"), 1) << file;
        } else {
            EXPECT_EQ(frames_of(file, "png"), 1) << file;
        }
    }
    EXPECT_FALSE(files.empty());
    EXPECT_EQ(frames_of("ERROR_IMAGE.png", "png"), 1);
    EXPECT_GT(frames_of("ERROR_MOVIE.gif", "gif"), 1);
}

TEST(sample_images, names_are_read_as_words) {
    const picture_name tray = read_picture_name("d_ico_error_tray_2_paperjam_disable.svg", book());
    EXPECT_TRUE(tray.is_darker);
    EXPECT_EQ(tray.glyphs, (std::vector<std::string>{"tray", "paperjam"}));
    EXPECT_EQ(tray.mark, picture_mark::ERROR);
    EXPECT_EQ(tray.state, picture_state::OFF);
    // A word of state is the thing itself where there is nothing else.
    EXPECT_EQ(read_picture_name("ico_status_error.svg", book()).glyphs, std::vector<std::string>{"error"});
}

TEST(sample_images, what_is_not_the_same_looks_different) {
    const std::pair<const char*, const char*> rows[] = {
        {"ico_fax_waiting.gif", "ico_fax_processing.gif"},
        {"gra_key_popup_0.png", "gra_key_popup_O.png"},
        {"ico_function_encrypt.svg", "ico_function_password.svg"},
        {"ico_maintenance_registration.svg", "ico_maintenance_roller.svg"},
        {"ico_addressbook_add_s.png", "ico_addressbook_group_add_s.png"},
        {"ico_softkey_delete.svg", "ico_softkey_backspace.svg"},
        {"gra_component_scroll_knob.svg", "gra_component_scroll_knob_pressed.svg"},
    };
    for (const auto& [file, other] : rows) {
        const std::string drawn = draw_document(read_picture_name(file, book()), book(), 0);
        const std::string others = draw_document(read_picture_name(other, book()), book(), 0);
        EXPECT_NE(drawn.substr(drawn.find("</title>")), others.substr(others.find("</title>"))) << file;
    }
}

TEST(sample_images, faults_of_the_pictograms_are_reported) {
    const scratch_folder folder;
    folder.write("glyphs.tsv", "words\tdrawing\na\tl M0 0h9\nb,a\tl M0 0h9\nc\tl o 1 2\nd\tx M0 0\n");
    std::ostringstream output;
    diagnostics report(output);
    EXPECT_FALSE(glyph_book(folder.path("glyphs.tsv"), report).has("c"));
    const std::string file = folder.path("glyphs.tsv");
    EXPECT_EQ(output.str(), file + ":3: error: the word \"a\" has a pictogram already [picture]\n" + file +
                                ":4: error: the shape \"l o 1 2\" is not understood [picture]\n" + file +
                                ":5: error: the shape \"x M0 0\" is not understood [picture]\n");
}

TEST(sample_images, a_movie_keeps_colours_transparency_and_pace) {
    const scratch_folder folder;
    QImage first(30, 20, QImage::Format_ARGB32);
    first.fill(Qt::transparent);
    QImage second(30, 20, QImage::Format_ARGB32);
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 30; ++x) {
            second.setPixel(x, y, qRgb(x * 8, y * 12, 100)); // 600 colours, more than a movie has
        }
    }
    std::string fault;
    ASSERT_TRUE(write_movie(output_folder(folder.path("")), "m.gif", {first, second}, 25, fault)) << fault;
    QImageReader reader(toolkit_path(folder.path("m.gif")), "gif");
    EXPECT_EQ(qAlpha(reader.read().pixel(3, 3)), 0);
    EXPECT_EQ(reader.nextImageDelay(), 250);
    EXPECT_EQ(reader.loopCount(), -1);
    const QImage read = reader.read();
    EXPECT_NEAR(qRed(read.pixel(20, 10)), 160, 12);
    EXPECT_NEAR(qGreen(read.pixel(20, 10)), 120, 12);
    EXPECT_FALSE(write_movie(output_folder(folder.path("m.gif")), "n.gif", {first}, 25, fault));
    EXPECT_NE(fault.find("m.gif"), std::string::npos);
}

TEST(sample_images, the_builder_takes_drawn_pictures_first_and_removes_its_old_ones) {
    const scratch_folder folder;
    const std::string header = "id\tname\tfile\n";
    folder.write(
        "catalogue/images.tsv",
        header + "1\tA\tico_globalnavi_home.svg\n2\tB\tunheard_of.png\n3\tC\tico_globalnavi_home_s.png\n");
    folder.write("drawn/ico_globalnavi_home.svg", "<svg xmlns=\"http://www.w3.org/2000/svg\"/>");
    folder.write("out/own.png", "not of the builder");
    std::filesystem::create_symlink(folder.path("beside"), folder.path("out/unheard_of.png"));
    const auto build = [&folder](const std::string& drawn) {
        return run_process({IMAGES_BUILDER, "--catalogue", folder.path("catalogue"), "--glyphs", GLYPH_TABLE,
                            "--drawn", folder.path(drawn), "--output", folder.path("out")})
            .exit_code;
    };
    EXPECT_EQ(build("drawn"), 0);
    EXPECT_FALSE(std::filesystem::exists(folder.path("beside")));
    EXPECT_EQ(folder.read("out/ico_globalnavi_home.svg"), folder.read("drawn/ico_globalnavi_home.svg"));
    EXPECT_FALSE(QImage(toolkit_path(folder.path("out/unheard_of.png"))).isNull());
    EXPECT_EQ(QImage(toolkit_path(folder.path("out/ico_globalnavi_home_s.png"))).pixel(16, 16),
              0U); // as drawn
    folder.write("catalogue/images.tsv", header + "2\tB\tico_softkey_ok.svg\n");
    EXPECT_EQ(build("no folder"), 3);
    EXPECT_TRUE(std::filesystem::exists(folder.path("out/ico_globalnavi_home_on.svg")));
    std::filesystem::remove(folder.path("drawn/ico_globalnavi_home.svg"));
    EXPECT_EQ(build("drawn"), 0);
    std::set<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path("out"))) {
        files.insert(entry.path().filename().string());
    }
    EXPECT_EQ(files, (std::set<std::string>{"ERROR_IMAGE.png", "ERROR_MOVIE.gif", "ico_softkey_ok.svg",
                                            "ico_softkey_ok_off.svg", "ico_softkey_ok_on.svg", "own.png",
                                            "written_files.txt"}));
}

TEST(sample_images, own_pictures_stand_before_all_others_and_stay) {
    const scratch_folder folder;
    folder.write("catalogue/images.tsv", "id\tname\tfile\n1\tA\tico_globalnavi_home.svg\n2\tB\tqwxz.svg\n"
                                         "3\tC\tqwxz_own.svg\n");
    const std::string document = "<svg xmlns=\"http://www.w3.org/2000/svg\"><title>t</title>\n</svg>";
    folder.write("drawn/ico_globalnavi_home.svg", document);
    folder.write("own/ico_globalnavi_home.svg", document + "<!-- own -->");
    folder.write("own/qwxz_own.svg", document);
    folder.write("own/asked_for_by_name.png", "bytes");
    for (int build = 1; build <= 2; ++build) {
        const process_result result = run_process(
            {IMAGES_BUILDER, "--catalogue", folder.path("catalogue"), "--glyphs", GLYPH_TABLE, "--drawn",
             folder.path("drawn"), "--own", folder.path("own"), "--output", folder.path("out")});
        EXPECT_EQ(result.exit_code, 0);
        EXPECT_NE(result.errors.find("images.tsv: warning: image 2 B: no word of \"qwxz.svg\" has a"),
                  std::string::npos)
            << result.errors;
        EXPECT_EQ(result.errors.find("qwxz_own.svg"), std::string::npos) << result.errors;
    }
    EXPECT_EQ(folder.read("out/ico_globalnavi_home.svg"), document + "<!-- own -->");
    EXPECT_NE(folder.read("out/ico_globalnavi_home_on.svg").find("<!-- own -->"), std::string::npos);
    EXPECT_EQ(folder.read("out/asked_for_by_name.png"), "bytes");
    EXPECT_FALSE(std::filesystem::exists(folder.path("out/asked_for_by_name.svg")));
}

/** The image list may be anyone's: a name that says little must not stop the build. */
TEST(sample_images, any_name_gets_a_picture) {
    for (const std::string file :
         {".svg", "no extension", "_.svg", "d_.svg", "gra_component_.svg", "gra_keyboard_layout_.svg",
          "gra_key_popup_.svg", "gra_help_.svg", "gra_help_99999999999_-1.svg", "XYZ_zz_99999999999.svg",
          "du_.svg", "cb_q_99999999999.svg", "cb_l_00.svg", "ico_finishing_punch_left_99999999999.svg",
          "ico_paper_.svg", "a&b<c.svg"}) {
        const std::string document = draw_document(read_picture_name(file, book()), book(), 0.5);
        EXPECT_TRUE(QSvgRenderer(QByteArray(document.c_str())).isValid()) << file;
    }
}
