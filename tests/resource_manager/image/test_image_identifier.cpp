#include "image_device.h"

namespace {

class image_identifier : public image_device {
protected:
    /** The type of an identifier, and the current file after it. */
    std::string type_of(const char* id) {
        const int type = manager_->dvc_pnl_rmg_get_image_type(id);
        return std::to_string(type) + ' ' + current_file();
    }
};

} // namespace

TEST_F(image_identifier, is_told_apart_by_its_text_and_moves_the_current_element_or_not) {
    const struct {
        const char* id;
        const char* type_and_current_file;
    } rows[] = {
        {"1", "0 "},
        {"2", "1 ico_globalnavi_quick.svg"},
        {"1", "0 ico_globalnavi_quick.svg"},
        {"14", "0 ico_globalnavi_quick.svg"},
        {"99999", "0 ico_globalnavi_quick.svg"},
        {"-1", "0 ico_globalnavi_quick.svg"},
        {"550", "2 ico_status_printing.gif"},
        {"gra_help_1_1.PNG", "1 ico_status_printing.gif"},
        {"anim.Gif", "2 ico_status_printing.gif"},
        {"2a", "0 ico_status_printing.gif"},
        {"0x2", "0 ico_status_printing.gif"},
        {"notes.txt", "0 ico_status_printing.gif"},
        {"", "0 ico_status_printing.gif"},
        {nullptr, "0 ico_status_printing.gif"},
        {" 2", "1 ico_globalnavi_quick.svg"},
        {"ext:camera.txt", "1 ext:camera.txt"},
        {"+2", "1 ico_globalnavi_quick.svg"},
        {":", "1 :"},
        {"84", "0  "},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(type_of(row.id), row.type_and_current_file) << (row.id == nullptr ? "(null)" : row.id);
    }
}

TEST_F(image_identifier, of_an_external_image_outlives_the_text_it_came_in) {
    std::string id = "ext:a rather long identifier, not to be held in place";
    manager_->dvc_pnl_rmg_search_image_id_info(id.c_str());
    id.assign(id.size(), '?');
    EXPECT_EQ(current_file(), "ext:a rather long identifier, not to be held in place");
    QString name;
    manager_->dvc_pnl_rmg_get_icon_file_mame(QString::fromLatin1("2"), name);
    EXPECT_EQ(name, QLatin1String("ico_globalnavi_quick.svg"));
    manager_->dvc_pnl_rmg_get_icon_file_mame(QString::fromLatin1("ext:1"), name);
    EXPECT_EQ(name, QLatin1String("ext:1"));
}

TEST_F(image_identifier, makes_a_key_with_the_size_when_there_is_one) {
    const struct {
        int width;
        int height;
        const char* key;
    } rows[] = {
        {48, 32, "000048-000032-a.png"},
        {1, 1, "000001-000001-a.png"},
        {1234567, 8, "1234567-000008-a.png"},
        {0, 0, "a.png"},
        {48, 0, "a.png"},
        {0, 48, "a.png"},
        {-5, 48, "a.png"},
    };
    for (const auto& row : rows) {
        QString key;
        manager_->dvc_pnl_rmg_create_image_id(QString::fromLatin1("a.png"), row.width, row.height, key);
        EXPECT_EQ(key, QLatin1String(row.key));
    }
    QString key;
    manager_->dvc_pnl_rmg_create_image_id(QString::fromLatin1("100%1.png"), 2, 3, key);
    EXPECT_EQ(key, QLatin1String("000002-000003-100%1.png"));
}

TEST_F(image_identifier, takes_the_state_suffix_before_its_last_dot) {
    const char* const rows[][3] = {
        {"ico_quick.svg", "_on", "ico_quick_on.svg"},
        {"keyboard_1.0_dark.svg", "_on", "keyboard_1.0_dark_on.svg"},
        {"ico_quick.svg", "", "ico_quick.svg"},
        {"", "_on", ""},
        {".svg", "_on", "_on.svg"},
        {"ico_quick", "_on", "ico_quick_on"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(manager_->get_image_name_with_state_suffix(QString::fromLatin1(row[0]),
                                                             QString::fromLatin1(row[1])),
                  QLatin1String(row[2]));
    }
}
