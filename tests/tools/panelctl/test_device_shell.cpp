#include "device.h"

#include <filesystem>

#include <unistd.h>

namespace {

using device_shell = device;

bool exists(const std::string& path) {
    return std::filesystem::exists(path);
}

} // namespace

TEST_F(device_shell, the_command_gets_its_words_and_gives_its_exit_code) {
    const process_result result =
        run_shell({"--scratch", "--", "sh", "-c", "printf '<%s>' \"$@\"; echo remark >&2; exit 7", "sh",
                   "a  b", "", "*", "--tree", "\"'$HOME"});
    EXPECT_EQ(result.exit_code, 7);
    EXPECT_EQ(result.output, "<a  b><><*><--tree><\"'$HOME>");
    EXPECT_EQ(result.errors, "remark\n");
}

TEST_F(device_shell, wrong_usage_and_a_missing_tree_are_told_apart) {
    const struct {
        std::vector<std::string> words;
        int exit_code;
        const char* reason;
    } rows[] = {
        {{"--device", "true"}, 2, "device-shell: unknown option --device"},
        {{"--tree"}, 2, "device-shell: --tree needs a folder"},
        {{"--tree", scratch_.path("none"), "true"}, 3, "device-shell: there is no device tree at"},
        {{"--build", scratch_.path("none"), "true"}, 3, "device-shell: there is no device tree at"},
    };
    for (const auto& row : rows) {
        const process_result result = run_shell(row.words);
        EXPECT_EQ(result.exit_code, row.exit_code) << row.reason;
        EXPECT_EQ(result.errors.rfind(row.reason, 0), 0U) << result.errors;
    }
}

TEST_F(device_shell, a_scratch_device_is_empty_and_leaves_nothing) {
    const std::string name = std::filesystem::path(scratch_.path(".")).parent_path().filename();
    const std::string folders = "/usr/local/vuk_app /usr/local/vuk_plp /mnt/optlang /mnt/sheetext /tmp";
    const process_result result = run_shell(
        {"--scratch", "sh", "-c",
         "for folder in " + folders + "; do ls -A $folder; echo x >$folder/" + name + " || exit 1; done"});
    EXPECT_EQ(result.exit_code, 0) << result.errors;
    EXPECT_EQ(result.output.find(name), std::string::npos);
    for (const std::string folder : {"/usr/local/vuk_app/", "/usr/local/vuk_plp/", "/mnt/optlang/",
                                     "/mnt/sheetext/", "/mnt/", "/tmp/"}) {
        EXPECT_FALSE(exists(folder + name)) << folder;
    }
}

TEST_F(device_shell, a_tree_lies_at_the_paths_of_the_device_and_nowhere_else) {
    const bool had_fonts = exists("/tmp/fonts");
    const std::string name = std::filesystem::path(scratch_.path(".")).parent_path().filename();
    scratch_.write("tree/mnt/sheetext/note", "of the tree\n");
    const process_result result =
        run_shell({"--tree", scratch_.path("tree"), "sh", "-c",
                   "cat /mnt/sheetext/note; echo x >/tmp/" + name +
                       "; panelctl message 1 >/dev/null; command -v panelctl; echo $PANEL_PLATFORM_DIR"},
                  {{"PANEL_PLATFORM_DIR", ""}});
    EXPECT_EQ(result.output, "of the tree\n" PANELCTL "\n" + scratch_.path("tree/platform") + "\n");
    EXPECT_EQ(scratch_.read("tree/tmp/" + name), "x\n");
    EXPECT_TRUE(exists(scratch_.path("tree/tmp/fonts")));
    EXPECT_FALSE(exists("/tmp/" + name));
    EXPECT_EQ(exists("/tmp/fonts"), had_fonts);
}

TEST_F(device_shell, a_device_starts_without_font_links_unless_it_is_in_use) {
    const std::string tree = scratch_.path("tree");
    const std::string start = DEVICE_SHELL " --tree " + tree + " mkdir /tmp/fonts";
    std::filesystem::create_directories(tree);
    EXPECT_EQ(run_shell({"--tree", tree, "mkdir", "/tmp/fonts"}).exit_code, 0);
    EXPECT_EQ(run_shell({"--tree", tree, "mkdir", "/tmp/fonts"}).exit_code, 0);
    EXPECT_EQ(run_shell({"--tree", tree, "sh", "-c", "mkdir /tmp/fonts && " + start}).exit_code, 1);
}

TEST_F(device_shell, a_platform_folder_below_tmp_stays_visible) {
    const std::string folder = "/tmp/" + std::to_string(getpid()) + "_platform";
    run_shell({"--scratch", "sh", "-c", "echo x >$PANEL_PLATFORM_DIR/note"},
              {{"PANEL_PLATFORM_DIR", folder}});
    EXPECT_TRUE(exists(folder + "/note"));
    std::filesystem::remove_all(folder);
}
