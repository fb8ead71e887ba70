#include "image_catalogue.h"
#include "movie_writer.h"
#include "picture_files.h"
#include "process.h"
#include "scratch_folder.h"
#include "stroke_font.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QImageReader>
#include <QSvgRenderer>
#include <filesystem>
#include <iostream>
#include <set>
#include <sstream>
#include <sys/stat.h>

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

TEST(sample_images, words_qualify_a_picture) {
    const picture_name tray = read_picture_name("ico_tray_1_2_A4_B5_l_up.svg", book());
    EXPECT_EQ(tray.number + ' ' + tray.label + ' ' + tray.size, "1 A4 l");
    EXPECT_TRUE(tray.top && !tray.bottom && !tray.left && !tray.right);
    EXPECT_TRUE(read_picture_name("ico_tray_lower.svg", book()).bottom);
    EXPECT_EQ(read_picture_name("ico_fax_sending.png", book()).motion, picture_motion::RING);
    EXPECT_EQ(read_picture_name("ico_fax_sending.gif", book()).motion, picture_motion::OUTWARD);
    EXPECT_EQ(number_of("12345", -1), 1234);
    EXPECT_EQ(colors_of(read_picture_name("ico_toner_cyan.svg", book())).accent, "#2bb5d8");
    EXPECT_EQ(colors_of(read_picture_name("ico_toner_cyan_off.svg", book())).accent, palette().dim);
    EXPECT_EQ(colors_of(read_picture_name("d_ico_fax.svg", book())).accent, darker_palette().accent);
    EXPECT_EQ(title_of(read_picture_name("d_ico_paper_a.svg", book())), "Paper a, darker");
    const scratch_folder folder;
    folder.write("glyphs.tsv", "words\tdrawing\na\tl M0 0h9\na_b_c\tl M0 0h8\nd\tl M\n");
    std::ostringstream output;
    diagnostics report(output);
    const glyph_book other(folder.path("glyphs.tsv"), report);
    EXPECT_EQ(read_picture_name("ico_a_b_c.svg", other).glyphs, std::vector<std::string>{"a_b_c"});
    EXPECT_NE(output.str().find(":4: error: the shape \"l M\""), std::string::npos) << output.str();
    EXPECT_EQ(stroke_text("LI", 0, 0, 6), "M-5 -3L-5 3L-1 3M2 -3L4 -3M3 -3L3 3M2 3L4 3");
    const std::string button =
        draw_document(read_picture_name("gra_component_button.svg", book()), book(), 0);
    EXPECT_NE(button.find("non-scaling-stroke"), std::string::npos) << "stretched by the panel";
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

TEST(sample_images, files_are_what_their_names_ask_for) {
    const scratch_folder folder;
    const struct {
        const char* file;
        QSize size;
    } bitmaps[] = {
        {"ico_fax.png", {64, 64}},
        {"ico_fax_s.png", {32, 32}},
        {"ico_fax_l.png", {96, 96}},
        {"ABC.png", {320, 240}},
        {"ABCD.png", {64, 64}},
        {"gra_component_progress_bar.png", {200, 16}},
        {"gra_component_separator.png", {160, 2}},
        {"gra_component_separator_vertical.png", {2, 160}},
        {"gra_component_tab_x.png", {112, 40}},
        {"gra_key_popup_A.png", {64, 80}},
        {"d_ico_globalnavi_home_s.png", {32, 32}},
    };
    const std::pair<std::string, bool> documents[] = {
        {"ico_softkey_a", true}, {"ico_common_a", true},  {"ico_function_a", true},
        {"ico_copy_a", true},    {"ico_status_a", false}, {"ico_function_a_disable", false},
    };
    std::string rows =
        "id\tname\tfile\n1\tA\tico_fax_waiting.gif\n2\tB\tico_softkey_b.png\n3\tC\tico_globalnavi_home.svg\n";
    int id = 4;
    for (const auto& bitmap : bitmaps) {
        rows += std::to_string(id) + "\tN" + std::to_string(id) + '\t' + bitmap.file + '\n';
        ++id;
    }
    for (const auto& document : documents) {
        rows += std::to_string(id) + "\tN" + std::to_string(id) + '\t' + document.first + ".svg\n";
        ++id;
    }
    folder.write("c/images.tsv", rows);
    const auto draw = [&folder](const std::string& file, const std::string& color) {
        folder.write("d/" + file,
                     "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 48 48\"><title>t</title>\n"
                     "<rect width=\"48\" height=\"48\" fill=\"" +
                         color + "\"/></svg>\n");
    };
    draw("ico_globalnavi_home.svg", "#123456");
    draw("d_ico_globalnavi_home.svg", "#654321");
    const process_result result =
        run_process({IMAGES_BUILDER, "--catalogue", folder.path("c"), "--glyphs", GLYPH_TABLE, "--drawn",
                     folder.path("d"), "--output", folder.path("o/new")});
    ASSERT_EQ(result.exit_code, 0) << result.errors;
    for (const auto& bitmap : bitmaps) {
        EXPECT_EQ(QImage(toolkit_path(folder.path("o/new/") + bitmap.file)).size(), bitmap.size)
            << bitmap.file;
    }
    for (const auto& [stem, has_states] : documents) {
        EXPECT_EQ(std::filesystem::exists(folder.path("o/new/" + stem + "_on.svg")), has_states) << stem;
        EXPECT_EQ(std::filesystem::exists(folder.path("o/new/" + stem + "_off.svg")), has_states) << stem;
    }
    EXPECT_FALSE(std::filesystem::exists(folder.path("o/new/ico_softkey_b_on.png")));
    EXPECT_EQ(QImage(toolkit_path(folder.path("o/new/d_ico_globalnavi_home_s.png"))).pixel(9, 9), 0xFF654321);
    const std::string selected = folder.read("o/new/ico_globalnavi_home_on.svg");
    EXPECT_EQ(selected.find("#123456"), std::string::npos) << "ink on a plate";
    EXPECT_TRUE(QSvgRenderer(QByteArray(selected.c_str())).isValid()) << selected;
    QImageReader movie(toolkit_path(folder.path("o/new/ico_fax_waiting.gif")), "gif");
    const QImage first = movie.read();
    EXPECT_EQ(qAlpha(first.pixel(0, 0)), 255) << "on the panel's ground";
    EXPECT_NE(movie.read().convertToFormat(first.format()), first);
    EXPECT_EQ(movie.imageCount(), 8);
}

TEST(sample_images, what_cannot_be_built_is_told) {
    const scratch_folder folder;
    folder.write("c/images.tsv", "id\tname\tfile\n1\tA\ta.svg\n");
    folder.write("bad/images.tsv", "id\tname\tfile\n1\tA\n");
    folder.write("empty/a.svg", "");
    std::filesystem::create_directory(folder.path("pipe"));
    ASSERT_EQ(mkfifo(folder.path("pipe/a.svg").c_str(), 0600), 0);
    const struct {
        std::vector<std::string> words;
        int exit_code;
        std::string fault;
    } rows[] = {
        {{"--colour", "x"}, 2, "sample_images_builder: unknown option \"--colour\"; see --help\n"},
        {{"--drawn"}, 2, "sample_images_builder: --drawn is missing or has no value; see --help\n"},
        {{"--catalogue", folder.path("bad")}, 1, "images.tsv:2: error: has 2 fields instead of 3"},
        {{"--drawn", folder.path("empty")}, 3, "empty/a.svg: cannot be read, or is empty\n"},
        {{"--drawn", folder.path("pipe")}, 3, "pipe/a.svg: cannot be read, or is empty\n"},
    };
    for (const auto& row : rows) {
        std::vector<std::string> command = {IMAGES_BUILDER,   "--glyphs",       GLYPH_TABLE,
                                            "--output",       folder.path("o"), "--catalogue",
                                            folder.path("c"), "--drawn",        folder.path("c")};
        command.insert(command.end(), row.words.begin(), row.words.end());
        const process_result result = run_process(command);
        EXPECT_EQ(result.exit_code, row.exit_code) << row.fault;
        EXPECT_NE(result.errors.find(row.fault), std::string::npos) << result.errors;
        EXPECT_EQ(std::filesystem::exists(folder.path("o")), row.exit_code == 3) << row.fault;
    }
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
