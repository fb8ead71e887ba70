#include "dvc_pnl_rmg_option_language_attribute_manager.h"
#include "dvc_pnl_rmg_property.h"
#include "dvc_pnl_rmg_standard_language_attribute_manager.h"
#include "language_device.h"

#include <QApplication>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <set>

using namespace velarion;
namespace fs = std::filesystem;
using option_manager = dvc_pnl_rmg_option_language_attribute_manager;
using standard_manager = dvc_pnl_rmg_standard_language_attribute_manager;

namespace {

using attribute_managers = language_device;
using language_files = language_device;

const std::string STANDARD_KEYS = "/usr/local/vuk_plp/lib/keydata/";
const std::string PACK_KEYS = "/mnt/optlang/86/panel/keymap/";

std::set<std::string> font_links() {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator("/tmp/fonts")) {
        names.insert(entry.path().filename().string());
    }
    return names;
}

/** What stands in the folder of links and in the pack's: links by their targets. */
std::map<std::string, std::string> entries_of_fonts() {
    std::map<std::string, std::string> entries;
    for (const std::string folder : {"/tmp/fonts", "/tmp/pack"}) {
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            entries[entry.path()] = entry.is_symlink() ? fs::read_symlink(entry).string() : "";
        }
    }
    return entries;
}

/** The headers of small libraries that end with their last byte: a segment, or two sections, the first
 * without bytes. */
const struct {
    int elf_class; // 1: 32 bits, 2: 64 bits
    std::size_t size;
    std::vector<std::array<std::size_t, 3>> numbers; // position, width, value
} LIBRARIES[] = {
    {1, 86, {{28, 4, 52}, {42, 2, 32}, {44, 2, 1}, {52, 4, 1}, {56, 4, 84}, {68, 4, 2}}},
    {2, 122, {{32, 8, 64}, {54, 2, 56}, {56, 2, 1}, {64, 4, 1}, {72, 8, 120}, {96, 8, 2}}},
    {1, 132, {{32, 4, 52}, {46, 2, 40}, {48, 2, 2}, {56, 4, 8}, {72, 4, 999}, {96, 4, 1}, {112, 4, 132}}},
    {2, 192, {{40, 8, 64}, {58, 2, 64}, {60, 2, 2}, {68, 4, 8}, {96, 8, 999}, {132, 4, 1}, {160, 8, 192}}},
};

/** The path that an operation makes of "kb.txt"; both numbers must come out as 0. */
template <typename OPERATION, typename... ID> std::string path_of(OPERATION operation, ID... id) {
    int first = 7;
    int second = 7;
    std::string path = "kb.txt";
    (resource::dvc_pnl_rmg_create_instance()->*operation)(id..., first, second, path);
    EXPECT_EQ(first, 0);
    EXPECT_EQ(second, 0);
    return path;
}

} // namespace

TEST_F(attribute_managers, standard_rows_and_languages_have_bounds) {
    standard_manager languages;
    for (const int unknown : {0, -1, 44, 999}) {
        EXPECT_EQ(languages.dvc_pnl_rmg_get_standard_language_index(unknown), -1) << unknown;
        EXPECT_EQ(languages.get_standard_message(2, unknown), nullptr) << unknown;
        EXPECT_EQ(languages.dvc_pnl_rmg_get_font(unknown), QApplication::font()) << unknown;
    }
    for (const int row : {21999, 22000, 24999, -1}) {
        EXPECT_EQ(languages.dvc_pnl_rmg_get_standard_message(row, 1), nullptr) << row;
    }
}

TEST_F(attribute_managers, the_two_fixed_fonts_are_linked_again_and_again) {
    fs::remove_all("/tmp/fonts");
    const std::string fonts = "/usr/local/vuk_plp/lib/qt/lib/stdfonts/";
    for (int round = 0; round < 2; ++round) {
        const standard_manager languages;
        EXPECT_EQ(font_links().size(), 2U);
        for (const std::string name : {"UniversOTS_ArabicHebrew.ttf", "HeiseiKakuGothW5_213_C.ttf"}) {
            EXPECT_EQ(fs::read_symlink("/tmp/fonts/" + name), fonts + name);
        }
    }
}

TEST_F(attribute_managers, slots_name_the_option_languages) {
    const struct {
        const char* name;
        std::uint16_t slots[5];
        std::vector<int> ids; // -1: what the vector held stays
        std::vector<int> language_of_number;
    } rows[] = {
        {"gaps", {0, 886, 0, 86, 0}, {-1, 86, 886}, {0, 0, 886, 0, 86, 0}},
        {"a later slot wins", {86, 0, 86, 7, 65535}, {-1, 7, 86, 65535}, {0, 0, 0, 86, 7, 65535}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        for (int slot = 1; slot <= 5; ++slot) {
            set_slot(slot, row.slots[slot - 1]);
        }
        option_manager packs;
        std::vector<int> ids = {-1};
        packs.dvc_pnl_rmg_get_option_language_id_array(ids);
        EXPECT_EQ(ids, row.ids);
        std::vector<int> language_of_number(6); // 0 stays when no language has the number
        for (int number = 0; number <= 5; ++number) {
            packs.dvc_pnl_rmg_convert_opt_lang_no_to_language_id(
                number, language_of_number[static_cast<std::size_t>(number)]);
        }
        EXPECT_EQ(language_of_number, row.language_of_number);
    }
}

TEST_F(attribute_managers, a_pack_that_does_not_load_leaves_a_valid_language_without_texts) {
    const struct {
        const char* name;
        const char* language;
        int result;
        bool has_handle;
        std::size_t lookups;
    } rows[] = {
        {"missing", "886", 0, true, 0},
        {"fails with a handle", "86", 5, true, 0},
        {"null handle without a failure", "86", 0, false, 0},
        {"no symbols", "86", 0, true, 3},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        platform_.reset();
        set_slot(4, 86);
        platform_.add_library(std::string("/mnt/optlang/") + row.language + "/panel/liboptlang/libOptLang.so",
                              row.result, row.has_handle);
        option_manager packs;
        EXPECT_EQ(platform_.count("emwOSWGetProcAddress"), row.lookups);
        EXPECT_TRUE(packs.dvc_pnl_rmg_is_valid_option_language(86));
        EXPECT_EQ(packs.dvc_pnl_rmg_get_option_message(2, 86), nullptr);
        EXPECT_EQ(packs.dvc_pnl_rmg_get_option_font_family(86), nullptr);
        EXPECT_EQ(packs.dvc_pnl_rmg_get_font(86), QApplication::font());
    }
}

TEST_F(attribute_managers, a_pack_library_that_is_cut_short_or_no_file_is_not_handed_to_the_loader) {
    const std::string library = "/mnt/optlang/86/panel/liboptlang/libOptLang.so";
    set_slot(1, 86);
    const auto expect_handed_on = [&](bool is_handed_on, const std::string& name) {
        platform_.forget_calls();
        const option_manager packs;
        EXPECT_EQ(platform_.count("emwOSWLoadLibrary"), is_handed_on ? 1U : 0U) << name;
    };
    fs::create_directories(library);
    expect_handed_on(false, "folder");
    fs::remove(library);
    fs::create_symlink("/dev/zero", library);
    expect_handed_on(false, "device");
    fs::remove(library);
    for (const std::string no_elf : {"", "\177EL", "xELF too long for a magic number"}) {
        write_file(library, no_elf);
        expect_handed_on(true, no_elf);
    }
    for (const auto& row : LIBRARIES) {
        for (const int byte_order : {1, 2}) {
            std::string whole = "\177ELF" + std::string{char(row.elf_class), char(byte_order)};
            whole.resize(row.size);
            for (const auto& [position, width, value] : row.numbers) {
                for (std::size_t i = 0; i < width; ++i) {
                    whole[position + (byte_order == 1 ? i : width - 1 - i)] = char(value >> 8 * i);
                }
            }
            for (std::size_t size = 16; size <= whole.size(); ++size) {
                write_file(library, whole.substr(0, size));
                expect_handed_on(size == whole.size(),
                                 std::to_string(size) + " of " + std::to_string(row.size));
            }
        }
    }
}

TEST_F(attribute_managers, initialising_again_follows_the_slots_and_links_no_fonts) {
    fs::create_directories("/tmp/fonts");
    set_slot(1, 86);
    install_pack(86);
    option_manager packs;
    write_file("/mnt/optlang/886/panel/optfonts/later.ttf", "font");
    set_slot(1, 886);
    packs.dvc_pnl_rmg_initialize_option_language();
    EXPECT_FALSE(packs.dvc_pnl_rmg_is_valid_option_language(86));
    EXPECT_EQ(packs.dvc_pnl_rmg_get_option_message(2, 886), nullptr); // the old pack's functions are gone
    EXPECT_TRUE(font_links().empty());
}

TEST_F(attribute_managers, an_unknown_option_language_has_no_folder) {
    option_manager packs;
    std::string path = "old";
    packs.get_option_language_path(886, path);
    EXPECT_EQ(path, "");
    path = "kb.txt"; // stays
    int number = 7;
    packs.get_keymap_file_param(886, number, number, path);
    packs.get_language_info_file_param(886, number, number, path);
    packs.get_prohibition_info_file_param(886, number, number, path);
    EXPECT_EQ(path, "kb.txt");
}

TEST_F(attribute_managers, direction_follows_the_attribute_file) {
    set_slot(1, 972);
    option_manager packs;
    const std::string attributes = "/mnt/optlang/972/panel/attr/opt_attribute.txt";
    EXPECT_EQ(packs.get_option_language_layout_direction(972), 1) << "no file";
    fs::create_directories(fs::path(attributes).parent_path());
    fs::create_symlink("/dev/zero", attributes);
    EXPECT_EQ(packs.get_option_language_layout_direction(972), 1) << "device";
    fs::remove(attributes);
    const struct {
        const char* contents;
        int direction;
    } rows[] = {
        {"il_ae=0\n", 0},           {"il_ae=0", 0},   {"il_ae\n", 0},     {"il_ae=1 \n", 0},
        {" il_ae=0\n", 1},          {"IL_AE=0\n", 1}, {"il_ae=1\r\n", 1}, {"il_ae=1\nil_ae=0\r\n", 0},
        {"x=1\n\n=\nil_ae=1\n", 1},
    };
    for (const auto& row : rows) {
        write_file(attributes, row.contents);
        EXPECT_EQ(packs.get_option_language_layout_direction(972), row.direction) << row.contents;
    }
}

TEST_F(attribute_managers, a_font_of_the_highest_language_wins) {
    fs::create_directories("/tmp/fonts");
    write_file("/mnt/optlang/86/panel/optfonts/b.ttf", "font");
    write_file("/mnt/optlang/886/panel/optfonts/b.ttf", "font");
    set_slot(1, 886);
    set_slot(2, 86);
    const option_manager packs;
    EXPECT_EQ(fs::read_symlink("/tmp/fonts/b.ttf"), "/mnt/optlang/886/panel/optfonts/b.ttf");
}

TEST_F(attribute_managers, fonts_are_linked_as_the_command_does_it_but_never_to_themselves) {
    const auto run = [](const std::string& script) {
        const std::string folders = "p=/tmp/pack; f=/tmp/fonts; rm -rf $p $f; mkdir -p $p $f; cd $p; ";
        EXPECT_EQ(std::system((folders + script).c_str()), 0);
        return entries_of_fonts();
    };
    // Odd names, what is no font, and what stands in the places of links.
    const std::string setup =
        R"(touch A.TTF b.tTf .h.ttf " a'\"\$(touch harm) ;\`b.ttf" c.otf .ttf c.ttf.bak x; mkdir d.ttf; ln -s no e.ttf
        touch f1.ttf f2.ttf f3.ttf f4.ttf; touch $f/f1.ttf; ln f2.ttf $f; ln -s $p/f3.ttf $f; ln -s /no $f/f4.ttf
        touch g1.ttf g2.ttf g3.ttf; mkdir -p $f/g1.ttf $f/g2.ttf/g2.ttf; ln -s $p/d.ttf $f/g3.ttf
        touch $f/h.ttf; ln -s $f/h.ttf x1.ttf; ln -s $f/h.ttf .; ln -s b.tTf i.ttf
        ln -s $p/x $f/.new-link-$PPID; mkdir $f/.new-link-$PPID-0;)";
    const std::string links = R"(for i in * .h.ttf; do case $i in ?*.[tT][tT][fF])
        [ -f "$i" ] && ln -fs "$p/$i" "$f/$i" 2>/dev/null; esac; done; true)";
    const auto expected = run(setup + links);
    run(setup);
    std::string directory = "/tmp/pack/";
    option_manager().make_link_for_fonts(directory);
    EXPECT_EQ(entries_of_fonts(), expected);

    const auto kept =
        run("touch a.ttf x $f/b.ttf; ln $f/b.ttf $f/b; ln -s $p/a.ttf ../pack/x $f; ln -s $f fonts;"
            "ln -s ../pack/x $f/c.ttf; ln -s $f/c.ttf .");
    for (std::string own : {"/tmp/fonts/", "/tmp/pack/fonts/", "/tmp/pack/"}) {
        option_manager().make_link_for_fonts(own);
        EXPECT_EQ(entries_of_fonts(), kept) << own;
    }
}

TEST_F(language_files, fonts_of_standard_option_and_unknown_languages) {
    set_slot(1, 86);
    set_slot(2, 886);
    install_pack(86);
    resource& language = create();
    QApplication::setFont(QFont(QLatin1String("Application")));
    const struct {
        const char* name;
        int id;
        const char* font_name;
        const char* family;
    } rows[] = {
        {"standard", 81, "HeiseiKakuGothW5_JIS0213C", "HeiseiKakuGothW5_JIS0213C"},
        {"option", 86, "Pack Sans", "Pack Sans"},
        {"option without a pack", 886, nullptr, "Application"},
        {"unknown", 44, "Univers OTS", "Univers OTS"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_STREQ(language.dvc_pnl_rmg_get_font_name(row.id), row.font_name);
        EXPECT_EQ(language.dvc_pnl_rmg_get_font(row.id).family(), QString::fromLatin1(row.family));
    }
    language.dvc_pnl_rmg_set_preferred_language(999, 86);
    EXPECT_EQ(language.dvc_pnl_rmg_get_font().family(), QString::fromLatin1("Pack Sans"));
}

TEST_F(language_files, keyboard_files_follow_the_language_and_for_chinese_the_destination) {
    set_slot(1, 86);
    set_slot(2, 972);
    set_slot(3, 886);
    const struct {
        int id;
        std::uint32_t destination;
        std::string keymap_folder;
        std::string information_folder;
    } rows[] = {
        {44, 3, STANDARD_KEYS, STANDARD_KEYS},
        {972, 5, "/mnt/optlang/972/panel/keymap/", "/mnt/optlang/972/panel/keymap/"},
        {86, 3, PACK_KEYS, PACK_KEYS},
        {86, 5, STANDARD_KEYS, PACK_KEYS},
        {886, 5, STANDARD_KEYS, "/mnt/optlang/886/panel/keymap/"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.id) + " with destination " + std::to_string(row.destination));
        set_item(SETTING_DESTINATION, row.destination, 8);
        EXPECT_EQ(path_of(&resource::dvc_pnl_rmg_get_keymap_file_param, row.id),
                  row.keymap_folder + "kb.txt");
        EXPECT_EQ(path_of(&resource::dvc_pnl_rmg_get_language_info_file_param, row.id),
                  row.information_folder + "lang_info.txt");
        EXPECT_EQ(path_of(&resource::dvc_pnl_rmg_get_prohibition_info_file_param, row.id),
                  row.information_folder + "proh_info.txt");
    }
    EXPECT_EQ(path_of(&resource::dvc_pnl_rmg_get_static_char_file_param), STANDARD_KEYS + "kb.txt");
}

TEST_F(language_files, conversion_is_enabled_by_five_destinations) {
    resource& language = create();
    EXPECT_FALSE(language.dvc_pnl_rmg_is_convert_enable_by_destination()) << "cannot be read";
    for (std::uint32_t code = 0; code <= 255; ++code) {
        set_item(SETTING_DESTINATION, code, 8);
        const bool expected = code == 3 || code == 4 || (code >= 6 && code <= 8);
        EXPECT_EQ(language.dvc_pnl_rmg_is_convert_enable_by_destination(), expected) << code;
    }
}

TEST_F(language_files, an_attribute_is_set_by_exactly_yes) {
    set_item(SETTING_PANEL_LANGUAGE, 49);
    resource& language = create();
    int value = 7;
    EXPECT_FALSE(language.dvc_pnl_rmg_get_language_attribute(8, value));
    EXPECT_EQ(value, 0);
    const std::string cut_to_the_buffer(500, 'Y');
    for (const std::string& text : {std::string("YES"), std::string("YES "), cut_to_the_buffer}) {
        platform_.set_attribute(49, 3, text);
        EXPECT_TRUE(language.dvc_pnl_rmg_get_language_attribute(3, value)) << text;
        EXPECT_EQ(value, text == "YES" ? 1 : 0) << text;
    }
}

/** What the store's failures come out as is tested with the images, which share the access to it. */
TEST_F(language_files, a_data_file_is_stored_found_and_removed) {
    resource& language = create();
    int error = 4711;
    EXPECT_EQ(language.dvc_pnl_rmg_set_message_data("note", "a\0b", 3, error), DVC_PNL_RMG_RESULT_OK);
    std::string stored;
    EXPECT_TRUE(platform_.get_file(4, 33, "note", stored));
    EXPECT_EQ(stored, std::string("a\0b", 3));
    EXPECT_TRUE(language.dvc_pnl_rmg_is_exist_data_file("note", error));
    EXPECT_EQ(language.dvc_pnl_rmg_remove_data_file("note", error), DVC_PNL_RMG_RESULT_OK);
    EXPECT_EQ(error, 0);
    EXPECT_FALSE(language.dvc_pnl_rmg_is_exist_data_file("note", error));
    EXPECT_EQ(error, FAKE_FAILURE);
}

TEST_F(language_files, an_empty_machine_specific_path_keeps_the_one_before) {
    resource& language = create();
    for (const char* path : {"", "machine/a", static_cast<const char*>(nullptr), ""}) {
        const std::string before = language.dvc_pnl_rmg_get_machine_data_file();
        const bool is_path = path != nullptr && *path != '\0';
        int error = 4711;
        EXPECT_EQ(language.dvc_pnl_rmg_set_machine_specific_path(path, error), is_path ? 0 : 0x53023003);
        EXPECT_EQ(error, 0);
        EXPECT_EQ(language.dvc_pnl_rmg_get_machine_data_file(), is_path ? path : before);
    }
}
