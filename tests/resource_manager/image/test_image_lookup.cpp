#include "image_device.h"

#include <QImage>
#include <QMovie>
#include <QPixmapCache>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr char LIST_FILE[] = "d_gra_component_list_globalnavi.svg";
constexpr char QUICK_FILE[] = "ico_globalnavi_quick.svg";

/** A picture of that natural size, green to its middle. */
std::string svg_picture(int width, int height) {
    const std::string h = std::to_string(height);
    return svg_document("<rect width=\"" + std::to_string(width / 2) + "\" height=\"" + h +
                            "\" fill=\"#00ff00\"/>",
                        "0 0 " + std::to_string(width) + ' ' + h);
}

class image_lookup : public image_device {
protected:
    std::string movie_of(const char* id) {
        QString path;
        const int result = manager_->dvc_pnl_rmg_get_movie_filepath(QString::fromLatin1(id), path);
        return std::to_string(result) + ' ' + path.toUtf8().constData();
    }
    /** The file name of the current image element; "99999" is in no table. */
    std::string current_file() {
        QString file;
        manager_->dvc_pnl_rmg_get_icon_file_mame(QString::fromLatin1("99999"), file);
        return file.toUtf8().constData();
    }
};

} // namespace

TEST_F(image_lookup, tells_identifiers_apart_and_moves_the_current_element_or_not) {
    const struct {
        const char* id;
        int type;
        const char* current_file;
    } rows[] = {
        {"14", 0, ""},
        {"2", 1, QUICK_FILE},
        {"14", 0, QUICK_FILE},
        {"550", 2, "ico_status_printing.gif"},
        {"gra_help_1_1.PNG", 1, "ico_status_printing.gif"},
        {nullptr, 0, "ico_status_printing.gif"},
        {" +2", 1, QUICK_FILE},
        {":", 1, ":"},
        {"84", 0, " "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(!row.id ? "null" : row.id);
        EXPECT_EQ(manager_->dvc_pnl_rmg_get_image_type(row.id), row.type);
        EXPECT_EQ(current_file(), row.current_file);
    }
    std::string id = "ext:a rather long identifier, not to be held in place";
    manager_->dvc_pnl_rmg_get_image_type(id.c_str());
    id.assign(id.size(), '?');
    EXPECT_EQ(current_file(), "ext:a rather long identifier, not to be held in place");
}

TEST_F(image_lookup, tells_numbers_from_names_as_the_toolkit_does) {
    write_file(IMAGES + QUICK_FILE, svg_picture(8, 8));
    const struct {
        QString id;
        int result; ///< 0 is that of 2, others those of what is not there
    } rows[] = {
        {QString::fromLatin1("2"), 0},          {QString::fromLatin1("00000000000000000002"), 0},
        {QString::fromLatin1("\t+2 "), 0},      {QString::fromLatin1("2\0x", 3), 0},
        {QString::fromLatin1("2\0:", 3), 5},    {QString::fromLatin1("-2"), 5},
        {QString::fromLatin1("2147483647"), 5}, {QString::fromLatin1("2147483648"), 2},
        {QString::fromLatin1("--2"), 2},        {QString::fromLatin1("2a"), 2},
        {QString::fromLatin1(""), 2},           {QString::fromUtf8("\xD9\xA2"), 2}, // an Arabic 2
        {QString::fromUtf8("\xC4\xB2"), 2},                                         // ends in the byte of a 2
        {QString::fromUtf8("\xEF\xBC\x92"), 2},                                     // a wide 2
    };
    for (const auto& row : rows) {
        QPixmap pixmap;
        manager_->dvc_pnl_rmg_get_image_type("550"); // so that no number is the last one
        EXPECT_EQ(manager_->dvc_pnl_rmg_get_image(row.id, &pixmap, 6, 6), row.result)
            << row.id.toUtf8().constData();
        EXPECT_EQ(pixmap.width(), row.result == 0 ? 6 : 0);
    }
}

/** Every byte in each place of an extension, and characters that end in the bytes of one. */
TEST_F(image_lookup, tells_extensions_as_the_toolkit_does) {
    for (const char* name : {"a.png", "a.gif", "a.svg"}) {
        for (std::size_t i = 0; i < 5 * 255; ++i) {
            std::string id = name;
            id[i / 255] = static_cast<char>(i % 255 + 1);
            const QString lower = QString::fromLatin1(id.c_str()).toLower();
            const bool is_external = id.find(':') != std::string::npos;
            const bool is_svg = lower.endsWith(QLatin1String(".svg"));
            const bool is_still = is_external || is_svg || lower.endsWith(QLatin1String(".png"));
            const int type = is_still ? 1 : (lower.endsWith(QLatin1String(".gif")) ? 2 : 0);
            EXPECT_EQ(manager_->dvc_pnl_rmg_get_image_type(id.c_str()), type) << id;
        }
    }
    for (const char* id : {"a.\xC5\xB3vg", "a.\xC5\xBFvg", "a\xC4\xAEsvg", "svg", "a.svgz", "a.svg."}) {
        EXPECT_EQ(answer(id), "2  3x3") << id;
        EXPECT_EQ(manager_->dvc_pnl_rmg_get_image_type(id), 0) << id;
    }
    for (const char* id : {".svg", "a.SVG", "\xC3\x96.sVg"}) {
        EXPECT_EQ(answer(id), "4  3x3") << id;
    }
    EXPECT_EQ(manager_->judgement_image_type({1, "", nullptr}), 0);
}

/** Every likely place holds a picture of a width of its own; each is taken away once it was found. */
TEST_F(image_lookup, tries_names_and_directories_in_their_order) {
    const std::string background = "d_gra_component_background_globalnavi";
    const struct {
        const char* id;
        const char* suffix;
        std::string stem;
        std::string extension;
        std::vector<std::string> order;
        int result; ///< once the picture is in none of the places
    } rows[] = {
        {"ico_x.png",
         "_on",
         "ico_x",
         ".png",
         {IMAGES + "ico_x_on.png", SHEETS + "ico_x_on.png", IMAGES + "d_ico_x_on.png",
          SHEETS + "d_ico_x_on.png", IMAGES + "ico_x.png", SHEETS + "ico_x.png", IMAGES + "d_ico_x.png",
          SHEETS + "d_ico_x.png"},
         2},
        {"d_ico_x.png", "", "d_ico_x", ".png", {IMAGES + "d_ico_x.png", SHEETS + "d_ico_x.png"}, 2},
        {"Ico_1.0.SVG",
         "_on",
         "Ico_1.0",
         ".SVG",
         {IMAGES + "Ico_1.0_on.SVG", IMAGES + "d_Ico_1.0_on.SVG", IMAGES + "Ico_1.0.SVG",
          IMAGES + "d_Ico_1.0.SVG"},
         4},
        {"1375",
         "_on",
         "gra_help_1_1",
         ".png",
         {IMAGES + "gra_help_1_1_on.png", IMAGES + "d_gra_help_1_1_on.png"},
         2},
        {"77",
         "",
         background,
         ".svg",
         {IMAGES + background + ".svg", IMAGES + "d_" + background + ".svg"},
         4},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.id);
        std::map<std::string, int> widths;
        for (const char* prefix : {"", "d_", "d_d_"}) {
            for (const char* suffix : {"", "_on"}) {
                for (const std::string& directory : {IMAGES, SHEETS}) {
                    const std::string path = directory + prefix + row.stem + suffix + row.extension;
                    const int width = 10 + static_cast<int>(widths.size());
                    write_file(path, row.result == 4 ? svg_picture(width, 4) : png_picture(width, 4));
                    widths[path] = width;
                }
            }
        }
        QPixmapCache::clear(); // the toolkit tells files apart by second and size
        for (const std::string& path : row.order) {
            const std::string name = fs::path(path).filename().string();
            EXPECT_EQ(answer(row.id, row.suffix, -1, 20),
                      "0 " + name + ' ' + std::to_string(widths[path]) + "x4");
            EXPECT_EQ(answer(row.id, row.suffix, 30, 20), "0 " + name + " 30x20");
            fs::remove(path);
        }
        EXPECT_EQ(answer(row.id, row.suffix), std::to_string(row.result) + "  3x3");
    }
}

TEST_F(image_lookup, takes_the_last_number_as_it_was_left) {
    EXPECT_EQ(answer("-1"), "3  3x3"); // equals the element that nothing set
    EXPECT_EQ(movie_of("-1"), "3 " + IMAGES + "ERROR_MOVIE.gif");
    EXPECT_EQ(answer("84"), "5  3x3");
    EXPECT_EQ(answer("84"), "2  3x3");
    EXPECT_EQ(answer("-1"), "5  3x3");
    EXPECT_EQ(movie_of("84"), "0 " + IMAGES + " ");
    EXPECT_EQ(movie_of("550"), "0 " + IMAGES + "ico_status_printing.gif");
    EXPECT_EQ(movie_of("84"), "5 " + IMAGES + "ERROR_MOVIE.gif");
    EXPECT_EQ(movie_of("ext:1"), "0 " + IMAGES + "ext:1");
    manager_->dvc_pnl_rmg_get_image_type("ext:1");
    EXPECT_EQ(answer("-1"), "3  3x3"); // an external identifier has no number
}

TEST_F(image_lookup, caches_lists_of_numbers_alone_and_prefers_them_to_files) {
    const std::string darker = std::string("d_") + LIST_FILE;
    write_file(IMAGES + LIST_FILE, svg_picture(8, 8));
    write_file(IMAGES + darker, svg_picture(9, 9));
    write_file(IMAGES + QUICK_FILE, svg_picture(8, 8));
    answer(LIST_FILE, "", 200, 40);
    answer("489", "", 100, 40);
    answer("2", "", 48, 48);
    fs::remove(IMAGES + LIST_FILE);
    fs::remove(IMAGES + QUICK_FILE);
    EXPECT_EQ(answer("489", "", 100, 40), std::string("0 ") + LIST_FILE + " 100x40");
    EXPECT_EQ(answer("489", "", 200, 40), "0 " + darker + " 200x40");
    EXPECT_EQ(answer("2", "", 48, 48), "4  3x3");
    fs::remove(IMAGES + darker);
    write_file(IMAGES + LIST_FILE, svg_picture(8, 8));
    EXPECT_EQ(answer("489", "", 200, 40), "0 " + darker + " 200x40");

    manager_->dvc_pnl_rmg_set_cache_limit(1);
    manager_->dvc_pnl_rmg_set_cache_limit(0);
    EXPECT_EQ(manager_->dvc_pnl_rmg_get_cache_limit(), 1);
    EXPECT_EQ(answer("489", "", 100, 40), std::string("0 ") + LIST_FILE + " 100x40");
    EXPECT_TRUE(pixmap_.isDetached()); // too large for the cache: nobody else holds it
}

TEST_F(image_lookup, preloads_the_navigation_icons_between_two_marks) {
    write_file(IMAGES + QUICK_FILE, svg_picture(12, 6)); // all others are missing
    manager_->dvc_pnl_rmg_initialize();
    const std::vector<fake_call> calls = platform_.calls_of("emwGENTrcPrintf");
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_EQ(calls[0].numbers, (std::vector<std::int64_t>{21250, 258, 258}));
    EXPECT_EQ(calls[0].format, "[PERFORM]: Resource Manager Init. (START)");
    EXPECT_EQ(calls[1].format, "[PERFORM]: Resource Manager Init. (END)");
    fs::remove(IMAGES + QUICK_FILE);
    EXPECT_EQ(answer("2", "", 0, 48), std::string("0 ") + QUICK_FILE + " 12x6");
    EXPECT_EQ(answer("2", "", 48, 48), "4  3x3");
}

TEST_F(image_lookup, builds_names_and_keys_that_are_not_null) {
    const QString suffix = QString::fromLatin1("_on");
    EXPECT_FALSE(manager_->get_image_name_with_state_suffix(QString(), suffix).isNull());
    EXPECT_EQ(manager_->get_image_name_with_state_suffix(QString::fromLatin1("plain"), suffix),
              QString::fromLatin1("plain_on"));
    const struct {
        int width, height;
        const char* key;
    } rows[] = {{7, 48, "000007-000048-a.svg"},
                {1234567, 99999, "1234567-099999-a.svg"},
                {2147483647, 2147483647, "2147483647-2147483647-a.svg"},
                {7, 0, "a.svg"}};
    for (const auto& row : rows) {
        QString key;
        manager_->dvc_pnl_rmg_create_image_id(QString::fromLatin1("a.svg"), row.width, row.height, key);
        EXPECT_EQ(key, QString::fromLatin1(row.key));
    }
}

/** What stands beside a document is found from its folder, and the document is drawn as it was read. */
TEST_F(image_lookup, draws_what_a_document_refers_to) {
    fs::create_directories(IMAGES + "inner");
    write_file(IMAGES + "inner/white.png", png_picture(2, 2));
    const std::string image = "<image width=\"16\" height=\"16\" xlink:href=\"white.png\"/>";
    for (const std::string& document : {svg_document(image), svg_document("<svg/>" + image)}) {
        write_file(IMAGES + "inner/a.svg", document);
        EXPECT_EQ(answer("inner/a.svg"), "0 inner/a.svg 16x16");
        EXPECT_EQ(pixmap_.toImage().pixel(8, 8), 0xFFFFFFFFU);
    }
}

TEST_F(image_lookup, serves_an_external_image_once_if_it_can) {
    EXPECT_EQ(register_image("ext:\xC3\xBC", png_picture(10, 10)), 0);
    EXPECT_EQ(register_image("ext:\xC3\xBC", png_picture(20, 20)), 0x53023006);
    EXPECT_EQ(answer("ext:\xC3\xBC", "", 100000, 100000), "0 ext:\xC3\xBC 10x10"); // as it is
    EXPECT_EQ(answer("ext:\xC3\xBC"), "5  3x3");
    EXPECT_EQ(register_image("5", svg_picture(20, 20)), 0);
    EXPECT_EQ(answer("5"), "4  3x3"); // no request can take it
    manager_->dvc_pnl_rmg_clear_external_image("5");
    EXPECT_EQ(register_image("5", svg_picture(20, 20)), 0);
    EXPECT_EQ(register_image("ext:1", svg_picture(20, 20)), 0);
    EXPECT_EQ(answer("ext:1", "_on", 7, 9), "0 ext:1 7x9");
    EXPECT_EQ(register_image("ext:1", png_picture(10, 10)), 0);
    image_manager::dvc_pnl_rmg_delete_instance();
    image_manager::dvc_pnl_rmg_delete_instance();
    manager_ = image_manager::dvc_pnl_rmg_create_instance();
    EXPECT_EQ(answer("ext:1"), "5  3x3");
}

TEST_F(image_lookup, stretches_a_document_over_the_whole_pixmap) {
    const QByteArray document(svg_picture(48, 24).c_str());
    const std::unique_ptr<QPixmap> pixmap(manager_->dvc_pnl_rmg_create_svg_image_data(document, 96, 96));
    const QImage image = pixmap->toImage();
    EXPECT_EQ(image.pixel(47, 0), 0xFF00FF00U);
    EXPECT_EQ(image.pixel(0, 95), 0xFF00FF00U);
    EXPECT_EQ(qAlpha(image.pixel(48, 95)), 0);
}

/** Needs a font: the placeholder differs by the name that is written on it. */
TEST_F(image_lookup, draws_the_placeholder_only_as_a_test_aid) {
    write_file(IMAGES + "ERROR_IMAGE.png", png_picture(100, 60));
    EXPECT_EQ(answer("none.png"), "2  3x3");
    setenv("TEST_ICON_MESSAGE", "", 1);
    EXPECT_EQ(answer("none.png"), "2  100x60");
    const QImage unnamed = pixmap_.toImage();
    EXPECT_EQ(answer("2", "", 30, 30), "4  100x60"); // the size asked for is not applied
    const QImage of_2 = pixmap_.toImage();
    EXPECT_NE(of_2, unnamed);
    fs::remove(IMAGES + "ERROR_IMAGE.png"); // read once
    EXPECT_EQ(answer("none.png"), "2  100x60");
    EXPECT_EQ(pixmap_.toImage(), of_2); // a file identifier has no name of its own
    const qint64 key = pixmap_.cacheKey();
    EXPECT_EQ(manager_->dvc_pnl_rmg_get_image(QString::fromLatin1("ext:1"), &pixmap_, 0, 0), 5);
    EXPECT_EQ(pixmap_.cacheKey(), key); // no placeholder for external images
}

TEST_F(image_lookup, a_missing_placeholder_empties_the_pixmap_and_is_not_looked_for_again) {
    setenv("TEST_ICON_MESSAGE", "", 1);
    EXPECT_EQ(answer("none.png"), "2  0x0");
    write_file(IMAGES + "ERROR_IMAGE.png", png_picture(100, 60));
    EXPECT_EQ(answer("none.png"), "2  0x0");
}

TEST_F(image_lookup, the_placeholder_movie_is_one_and_belongs_to_the_first_parent) {
    QObject parent;
    QObject other;
    QMovie* movie = nullptr;
    manager_->get_error_movie(movie, &parent);
    QMovie* again = nullptr;
    manager_->get_error_movie(again, &other);
    EXPECT_EQ(again, movie);
    EXPECT_EQ(movie->parent(), &parent);
    EXPECT_EQ(movie->fileName(), QString::fromUtf8((IMAGES + "ERROR_MOVIE.gif").c_str()));
}
