#include "device.h"

#include "message_catalogue.h"

#include <filesystem>
#include <iostream>

using namespace velarion;

const scratch_folder& device::tree() {
    static const scratch_folder tree;
    static bool is_empty = true;
    if (is_empty) {
        for (const char* folder : {"mnt", "usr"}) {
            std::filesystem::copy(std::string(DEVICE_TREE "/") + folder, tree.path(folder),
                                  std::filesystem::copy_options::recursive |
                                      std::filesystem::copy_options::copy_symlinks);
        }
        is_empty = false;
    }
    return tree;
}

process_result device::run_shell(const std::vector<std::string>& words,
                                 const std::map<std::string, std::string>& environment) const {
    std::map<std::string, std::string> variables = environment;
    variables.emplace("PANEL_PLATFORM_DIR", platform_folder());
    std::vector<std::string> command = {DEVICE_SHELL, "--build", BUILD_FOLDER};
    command.insert(command.end(), words.begin(), words.end());
    return run_process(command, variables);
}

process_result device::run(const std::vector<std::string>& words) const {
    std::vector<std::string> command = {"--tree", tree().path(""), PANELCTL};
    command.insert(command.end(), words.begin(), words.end());
    return run_shell(command);
}

std::string device::output_of(const std::vector<std::string>& words) const {
    const process_result result = run(words);
    EXPECT_EQ(result.exit_code, 0) << testing::PrintToString(words);
    EXPECT_EQ(result.errors, "") << testing::PrintToString(words);
    return result.output;
}

QJsonDocument device::json_of(std::vector<std::string> words) const {
    words.push_back("--json");
    return QJsonDocument::fromJson(QByteArray::fromStdString(run(words).output));
}

void device::set(const std::string& setting, int value) const {
    EXPECT_EQ(output_of({"settings", "set", setting, std::to_string(value)}), "");
}

std::string device::first_message() {
    diagnostics report(std::cerr);
    return std::to_string(read_message_catalogue(CATALOGUE_FOLDER, report).messages.at(0).id);
}

void sample_catalogue_device::SetUp() {
    if (!std::filesystem::equivalent(CATALOGUE_FOLDER, SAMPLE_CATALOGUE)) {
        GTEST_SKIP() << "the build's catalogue is another one";
    }
}
