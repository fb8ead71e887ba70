#include "image_device.h"

#include <QPixmapCache>

#include <cstring>
#include <filesystem>
#include <set>
#include <vector>

namespace fs = std::filesystem;

namespace {

const char LIST_FILE[] = "d_gra_component_list_globalnavi.svg";

class image_lookup : public image_device {
protected:
    std::string movie_of(const char* id) {
        QString path;
        const int result = manager_->dvc_pnl_rmg_get_movie_filepath(QString::fromLatin1(id), path);
        return std::to_string(result) + ' ' + path.toUtf8().constData();
    }
};

struct CANDIDATE_ROW {
    const char* id;
    const char* suffix;
    std::vector<std::string> order;  ///< where the picture is looked for
    std::vector<std::string> decoys; ///< where it is not
    int result;                      ///< once it is in none of the places
};

const CANDIDATE_ROW CANDIDATE_ROWS[] = {
    {"ico_x.png",
     "_on",
     {IMAGES + "ico_x_on.png", SHEETS + "ico_x_on.png", IMAGES + "d_ico_x_on.png", SHEETS + "d_ico_x_on.png",
      IMAGES + "ico_x.png", SHEETS + "ico_x.png", IMAGES + "d_ico_x.png", SHEETS + "d_ico_x.png"},
     {IMAGES + "d_d_ico_x.png"},
     2},
    {"d_ico_x.png", "", {IMAGES + "d_ico_x.png", SHEETS + "d_ico_x.png"}, {IMAGES + "d_d_ico_x.png"}, 2},
    {"d_ico_x.png",
     "_on",
     {IMAGES + "d_ico_x_on.png", SHEETS + "d_ico_x_on.png", IMAGES + "d_ico_x.png", SHEETS + "d_ico_x.png"},
     {IMAGES + "d_d_ico_x_on.png", IMAGES + "ico_x_on.png"},
     2},
    {"Ico_X.SVG",
     "_on",
     {IMAGES + "Ico_X_on.SVG", IMAGES + "d_Ico_X_on.SVG", IMAGES + "Ico_X.SVG", IMAGES + "d_Ico_X.SVG"},
     {SHEETS + "Ico_X_on.SVG", SHEETS + "Ico_X.SVG", IMAGES + "ico_x.svg"},
     4},
    {"1375",
     "_on",
     {IMAGES + "gra_help_1_1_on.png", IMAGES + "d_gra_help_1_1_on.png"},
     {IMAGES + "gra_help_1_1.png", SHEETS + "gra_help_1_1_on.png"},
     2},
    {"77",
     "",
     {IMAGES + "d_gra_component_background_globalnavi.svg",
      IMAGES + "d_d_gra_component_background_globalnavi.svg"},
     {SHEETS + "d_gra_component_background_globalnavi.svg"},
     4},
    {"550",
     "",
     {IMAGES + "ico_status_printing.gif", IMAGES + "d_ico_status_printing.gif"},
     {SHEETS + "ico_status_printing.gif"},
     2},
};

bool is_svg_path(const std::string& path) {
    return QString::fromUtf8(path.c_str()).toLower().endsWith(QLatin1String(".svg"));
}

} // namespace

/** Every place holds a picture of a width of its own; each is taken away once it was found. */
TEST_F(image_lookup, tries_names_and_directories_in_their_order) {
    for (const CANDIDATE_ROW& row : CANDIDATE_ROWS) {
        SCOPED_TRACE(row.id);
        int width = 10;
        for (const std::vector<std::string>* places : {&row.order, &row.decoys}) {
            for (const std::string& path : *places) {
                write_file(path, is_svg_path(path) ? svg_picture(width, 4) : png_picture(width, 4));
                ++width;
            }
        }
        QPixmapCache::clear(); // the toolkit tells files apart by second and size
        width = 10;
        for (const std::string& path : row.order) {
            const std::string name = fs::path(path).filename().string();
            EXPECT_EQ(answer(row.id, row.suffix), "0 " + name + ' ' + std::to_string(width) + "x4");
            EXPECT_EQ(answer(row.id, row.suffix, 30, 20), "0 " + name + " 30x20");
            fs::remove(path);
            ++width;
        }
        EXPECT_EQ(answer(row.id, row.suffix), std::to_string(row.result) + "  3x3");
        for (const std::string& path : row.decoys) {
            fs::remove(path);
        }
    }
}

TEST_F(image_lookup, takes_the_last_number_as_it_was_left) {
    EXPECT_EQ(answer("-1"), "3  3x3"); // equals the element that nothing set
    EXPECT_EQ(movie_of("-1"), "3 " + IMAGES + "ERROR_MOVIE.gif");
    EXPECT_EQ(answer("84"), "5  3x3");
    EXPECT_EQ(answer("84"), "2  3x3");
    EXPECT_EQ(answer("-1"), "5  3x3");
    EXPECT_EQ(answer("99999"), "5  3x3");
    EXPECT_EQ(movie_of("84"), "0 " + IMAGES + " ");
    EXPECT_EQ(answer("2"), "4  3x3");
    EXPECT_EQ(movie_of("84"), "5 " + IMAGES + "ERROR_MOVIE.gif");
    EXPECT_EQ(movie_of("84"), "0 " + IMAGES + " ");
    manager_->dvc_pnl_rmg_get_image_type("ext:1");
    EXPECT_EQ(answer("-1"), "3  3x3"); // an external identifier has no number
}

TEST_F(image_lookup, gives_paths_of_animated_pictures_that_need_not_exist) {
    EXPECT_EQ(movie_of("550"), "0 " + IMAGES + "ico_status_printing.gif");
    EXPECT_EQ(movie_of("1375"), "0 " + IMAGES + "gra_help_1_1.png");
    EXPECT_EQ(movie_of("anim.gif"), "0 " + IMAGES + "anim.gif");
    EXPECT_EQ(movie_of("ext:1"), "0 " + IMAGES + "ext:1");
    EXPECT_EQ(movie_of("99999"), "5 " + IMAGES + "ERROR_MOVIE.gif");
}

TEST_F(image_lookup, caches_lists_and_setting_backgrounds_of_numbers_alone) {
    write_file(IMAGES + LIST_FILE, svg_picture(8, 8));
    write_file(IMAGES + "ico_globalnavi_quick.svg", svg_picture(8, 8));
    EXPECT_EQ(request(LIST_FILE, "", 200, 40).result, 0);
    EXPECT_EQ(request("489", "", 100, 40).result, 0);
    EXPECT_EQ(request("2", "", 48, 48).result, 0);
    fs::remove(IMAGES + LIST_FILE);
    fs::remove(IMAGES + "ico_globalnavi_quick.svg");
    EXPECT_EQ(answer("489", "", 100, 40), std::string("0 ") + LIST_FILE + " 100x40");
    EXPECT_EQ(answer("489", "", 200, 40), "4  3x3");
    EXPECT_EQ(answer("489"), "4  3x3");
    EXPECT_EQ(answer("2", "", 48, 48), "4  3x3");
}

TEST_F(image_lookup, prefers_a_cached_darker_picture_to_a_file) {
    const std::string darker = std::string("d_") + LIST_FILE;
    write_file(IMAGES + darker, svg_picture(8, 8));
    EXPECT_EQ(answer("489"), "0 " + darker + " 8x8");
    fs::remove(IMAGES + darker);
    write_file(IMAGES + LIST_FILE, svg_picture(9, 9));
    EXPECT_EQ(answer("489"), "0 " + darker + " 8x8");
    EXPECT_EQ(answer("489", "", 5, 5), std::string("0 ") + LIST_FILE + " 5x5");
}

TEST_F(image_lookup, delivers_what_is_too_large_for_its_cache) {
    EXPECT_EQ(manager_->dvc_pnl_rmg_get_cache_limit(), 16384);
    manager_->dvc_pnl_rmg_set_cache_limit(1);
    manager_->dvc_pnl_rmg_set_cache_limit(0);
    manager_->dvc_pnl_rmg_set_cache_limit(-5);
    EXPECT_EQ(manager_->dvc_pnl_rmg_get_cache_limit(), 1);
    write_file(IMAGES + LIST_FILE, svg_picture(8, 8));
    const image_answer large = request("489", "", 100, 40);
    EXPECT_EQ(large.result, 0);
    EXPECT_TRUE(large.pixmap.isDetached()); // nobody else holds it
    fs::remove(IMAGES + LIST_FILE);
    EXPECT_EQ(answer("489", "", 100, 40), "4  3x3");
}

TEST_F(image_lookup, preloads_the_navigation_icons_between_two_marks) {
    std::set<std::string> files;
    for (int i = 0; i < dvc_pnl_rmg_imple_image_name_table_size; ++i) {
        const char* file = dvc_pnl_rmg_impl_image_name_table[i].file_name;
        if (std::strstr(file, "ico_globalnavi") != nullptr) {
            files.insert(file);
            write_file(IMAGES + file, svg_picture(12, 6));
        }
    }
    ASSERT_GT(files.size(), 1U);
    fs::remove(IMAGES + *files.begin());
    manager_->dvc_pnl_rmg_initialize();
    manager_->dvc_pnl_rmg_initialize();
    const std::vector<FAKE_CALL> calls = platform_.calls();
    ASSERT_EQ(calls.size(), 4U);
    for (std::size_t i = 0; i < calls.size(); ++i) {
        EXPECT_EQ(calls[i].function, "emwGENTrcPrintf");
        EXPECT_EQ(calls[i].numbers, (std::vector<std::int64_t>{21250, 258, 258}));
        EXPECT_EQ(calls[i].text,
                  std::string("[PERFORM]: Resource Manager Init. ") + (i % 2 == 0 ? "(START)" : "(END)"));
    }
    fs::remove_all(IMAGES);
    for (int i = 0; i < dvc_pnl_rmg_imple_image_name_table_size; ++i) {
        const DVC_PNL_RMG_IMPL_IMAGE_NAME& row = dvc_pnl_rmg_impl_image_name_table[i];
        if (files.count(row.file_name) != 0) {
            const std::string id = std::to_string(row.image_id);
            const bool is_missing = *files.begin() == row.file_name;
            EXPECT_EQ(answer(id, "", 0, 48),
                      is_missing ? "4  3x3" : std::string("0 ") + row.file_name + " 12x6");
            EXPECT_EQ(answer(id, "", 48, 48), "4  3x3");
        }
    }
}

TEST_F(image_lookup, serves_an_external_image_once) {
    EXPECT_EQ(register_image("ext:1", png_picture(10, 10)), 0);
    EXPECT_EQ(register_image("ext:1", png_picture(20, 20)), 0x53023006);
    EXPECT_EQ(register_image("ext:\xC3\xBC", png_picture(5, 5)), 0);
    EXPECT_EQ(answer("ext:1"), "0 ext:1 10x10");
    EXPECT_EQ(answer("ext:1"), "5  3x3");
    EXPECT_EQ(register_image("ext:1", svg_picture(20, 20)), 0);
    EXPECT_EQ(answer("ext:1", "_on", 7, 9), "0 ext:1 7x9");
    EXPECT_EQ(answer("ext:\xC3\xBC"), "0 ext:\xC3\xBC 5x5");
}

TEST_F(image_lookup, keeps_an_external_image_that_no_request_can_take) {
    EXPECT_EQ(register_image("5", png_picture(10, 10)), 0);
    EXPECT_NE(request("5").result, 0);
    EXPECT_EQ(register_image("5", png_picture(10, 10)), 0x53023006);
    manager_->dvc_pnl_rmg_clear_external_image("5");
    manager_->dvc_pnl_rmg_clear_external_image("5");
    EXPECT_EQ(register_image("5", png_picture(10, 10)), 0);
    EXPECT_EQ(register_image("ext:1", png_picture(10, 10)), 0);
    EXPECT_EQ(answer("ext:1", "", 100000, 100000), "2  3x3");
    EXPECT_EQ(answer("ext:1"), "0 ext:1 10x10");
    for (const std::string& bytes :
         {std::string(), std::string("no picture"), png_picture(9, 9).substr(0, 40)}) {
        EXPECT_EQ(register_image("ext:2", bytes), 0x53023006);
    }
    EXPECT_EQ(manager_->dvc_pnl_rmg_set_external_image("ext:2", nullptr, 12), 0x53023006);
    EXPECT_EQ(answer("ext:2"), "5  3x3");
}

TEST_F(image_lookup, has_an_instance_from_creation_to_deletion) {
    EXPECT_EQ(image_manager::dvc_pnl_rmg_create_instance(), manager_);
    EXPECT_EQ(register_image("ext:1", png_picture(10, 10)), 0);
    image_manager::dvc_pnl_rmg_delete_instance();
    image_manager::dvc_pnl_rmg_delete_instance();
    EXPECT_EQ(image_manager::dvc_pnl_rmg_get_instance(), nullptr);
    manager_ = image_manager::dvc_pnl_rmg_create_instance();
    EXPECT_EQ(image_manager::dvc_pnl_rmg_get_instance(), manager_);
    EXPECT_EQ(answer("ext:1"), "5  3x3");
    EXPECT_TRUE(platform_.calls().empty());
}
