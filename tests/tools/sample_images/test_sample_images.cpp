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

namespace {

const std::string IMAGES = std::string(IMAGE_DIRECTORY) + '/';

QString toolkit_path(const std::string& path) {
    return QString::fromStdString(path);
}

std::set<std::string> files_of_the_list() {
    diagnostics report(std::cerr);
    std::set<std::string> files;
    for (const catalogue_image& image : read_image_catalogue(CATALOGUE_FOLDER, report)) {
        if (!is_blank_file_name(image.file)) {
            files.insert(image.file);
        }
    }
    EXPECT_EQ(report.error_count(), 0U);
    return files;
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
    const std::set<std::string> files = files_of_the_list();
    ASSERT_FALSE(files.empty());
    for (const std::string& file : files) {
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
    EXPECT_EQ(frames_of("ERROR_IMAGE.png", "png"), 1);
    EXPECT_GT(frames_of("ERROR_MOVIE.gif", "gif"), 1);
}

TEST(sample_images, navigation_icons_and_soft_keys_have_their_states) {
    for (const std::string& file : files_of_the_list()) {
        const std::string stem = file.substr(0, file.rfind('.'));
        const bool has_states =
            stem.compare(0, 15, "ico_globalnavi_") == 0 ||
            (stem.compare(0, 12, "ico_softkey_") == 0 && stem.find("_disable") == stem.npos);
        for (const char* state : {"_on.svg", "_off.svg"}) {
            const std::string path = IMAGES + stem + state;
            EXPECT_TRUE(!has_states || QSvgRenderer(toolkit_path(path)).isValid()) << path;
        }
    }
}

/** The general picture is for lists of others; each icon of this one has words with a pictogram. */
TEST(sample_images, the_name_of_every_icon_tells_what_it_shows) {
    for (const std::string& file : files_of_the_list()) {
        const picture_name name = read_picture_name(file, book());
        if (kind_of(name).draw == draw_icon && !std::filesystem::exists(DRAWN_FOLDER + ('/' + file))) {
            EXPECT_FALSE(name.glyphs.empty()) << file;
        }
    }
}

TEST(sample_images, names_are_read_as_words) {
    const picture_name tray = read_picture_name("d_ico_error_tray_2_paperjam_disable.svg", book());
    EXPECT_TRUE(tray.is_darker);
    EXPECT_EQ(tray.extension, ".svg");
    EXPECT_EQ(tray.glyphs, (std::vector<std::string>{"tray", "paperjam"}));
    EXPECT_EQ(tray.number, "2");
    EXPECT_EQ(tray.mark, picture_mark::ERROR);
    EXPECT_EQ(tray.state, picture_state::OFF);
    // A word of state is the thing itself where there is nothing else.
    EXPECT_EQ(read_picture_name("ico_status_error.svg", book()).glyphs, std::vector<std::string>{"error"});
    const picture_name moving = read_picture_name("ico_mail_sending.gif", book());
    EXPECT_EQ(moving.glyphs, std::vector<std::string>{"mail"});
    EXPECT_EQ(moving.motion, picture_motion::OUTWARD);
    const picture_name odd = read_picture_name("no extension", book());
    EXPECT_EQ(odd.stem, "no extension");
    EXPECT_EQ(odd.extension, "");
}

TEST(sample_images, faults_of_the_pictograms_are_reported) {
    const scratch_folder folder;
    folder.write("glyphs.tsv", "words\tdrawing\n"
                               "a\tl M0 0h9\n"
                               "b,a\tl M0 0h9\n"
                               "c\tl o 1 2\n"
                               "d\tx M0 0\n"
                               "e\tl r 1 2 3 4 5;q\n");
    std::ostringstream output;
    diagnostics report(output);
    const glyph_book read(folder.path("glyphs.tsv"), report);
    const std::string file = folder.path("glyphs.tsv");
    EXPECT_EQ(output.str(), file + ":3: error: the word \"a\" has a pictogram already\n" + file +
                                ":4: error: the shape \"l o 1 2\" is not understood\n" + file +
                                ":5: error: the shape \"x M0 0\" is not understood\n" + file +
                                ":6: error: the shape \"q\" is not understood\n");
    EXPECT_TRUE(read.has("b"));
    EXPECT_FALSE(read.has("e"));
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
    ASSERT_TRUE(write_movie(folder.path("m.gif"), {first, second}, 25, fault)) << fault;
    QImageReader reader(toolkit_path(folder.path("m.gif")), "gif");
    EXPECT_EQ(qAlpha(reader.read().pixel(3, 3)), 0);
    EXPECT_EQ(reader.nextImageDelay(), 250);
    EXPECT_EQ(reader.loopCount(), -1);
    const QImage read = reader.read();
    EXPECT_NEAR(qRed(read.pixel(20, 10)), 160, 12);
    EXPECT_NEAR(qGreen(read.pixel(20, 10)), 120, 12);
    EXPECT_FALSE(write_movie(folder.path("none/m.gif"), {first}, 25, fault));
    EXPECT_NE(fault.find("none/m.gif"), std::string::npos);
}

TEST(sample_images, the_builder_takes_drawn_pictures_before_its_own_and_reports_faults) {
    const scratch_folder folder;
    folder.write("catalogue/images.tsv", "id\tname\tfile\n1\tA\tico_common_home.svg\n2\tB\tunheard_of.png\n");
    folder.write("drawn/ico_common_home.svg", "<svg xmlns=\"http://www.w3.org/2000/svg\"/>");
    const auto build = [&folder](const std::string& glyphs, const std::string& output) {
        return run_process({IMAGES_BUILDER, "--catalogue", folder.path("catalogue"), "--glyphs", glyphs,
                            "--drawn", folder.path("drawn"), "--output", output});
    };
    EXPECT_EQ(build(GLYPH_TABLE, folder.path("out")).exit_code, 0);
    EXPECT_EQ(std::filesystem::file_size(folder.path("out/ico_common_home.svg")),
              std::filesystem::file_size(folder.path("drawn/ico_common_home.svg")));
    EXPECT_FALSE(QImage(toolkit_path(folder.path("out/unheard_of.png"))).isNull());
    EXPECT_EQ(build(folder.path("missing.tsv"), folder.path("out")).exit_code, 1);
    EXPECT_EQ(build(GLYPH_TABLE, folder.path("catalogue/images.tsv")).exit_code, 3);
    EXPECT_EQ(run_process({IMAGES_BUILDER, "--glyphs"}).exit_code, 2);
    EXPECT_EQ(run_process({IMAGES_BUILDER, "--help"}).exit_code, 0);
}

/** The image list may be anyone's: a name that says little must not stop the build. */
TEST(sample_images, any_name_gets_a_picture) {
    for (const std::string file :
         {".svg", "_.svg", "d_.svg", "gra_component_.svg", "gra_component_scroll.svg",
          "gra_component_balloon.svg", "gra_keyboard_layout_.svg", "gra_key_popup_.svg", "gra_help_.svg",
          "gra_help_99999999999_-1.svg", "RUR.svg", "XYZ_zz_99999999999.svg", "du_.svg",
          "cb_q_99999999999.svg", "cb_l_00.svg", "ico_finishing_punch_left_99999999999.svg", "ico_paper_.svg",
          "ico_toner_cyan.svg", "a&b<c.svg"}) {
        const std::string document = draw_document(read_picture_name(file, book()), book(), 0.5);
        EXPECT_TRUE(QSvgRenderer(QByteArray(document.c_str())).isValid()) << file;
    }
}
