#include "device.h"

#include <QImage>

#include <fcntl.h>
#include <filesystem>

namespace {

using pictures = device;
using sample_pictures = sample_catalogue_device;

} // namespace

TEST_F(sample_pictures, image_writes_what_it_says) {
    const std::string file = scratch_.path("picture.png");
    const struct {
        std::vector<std::string> words;
        const char* found_name;
        QSize size;
    } rows[] = {
        {{"image", "-o", file, "2", "--size", "96x32"}, "ico_globalnavi_quick.svg", {96, 32}},
        {{"image", "-o", file, "2", "--suffix", "_on"}, "ico_globalnavi_quick_on.svg", {48, 48}},
        {{"image", "-o", file, "550", "--size", "20x20"}, "ico_status_printing.gif", {20, 20}},
    };
    for (const auto& row : rows) {
        const QJsonDocument told = json_of(row.words);
        EXPECT_EQ(told["result"].toInt(-1), 0) << row.found_name;
        EXPECT_EQ(told["found_name"].toString(), row.found_name);
        EXPECT_EQ(QSize(told["width"].toInt(), told["height"].toInt()), row.size) << row.found_name;
        EXPECT_EQ(QImage(QString::fromStdString(file)).size(), row.size) << row.found_name;
    }
}

TEST_F(sample_pictures, a_missing_picture_tells_its_result_and_writes_nothing) {
    const std::string file = scratch_.path("picture.png");
    const struct {
        std::vector<std::string> words;
        int result;
    } rows[] = {
        {{"image", "99999", "-o", file}, 5},
        {{"image", "none.svg", "-o", file}, 4},
        {{"image", "none.png", "-o", file}, 2},
        {{"image", "2", "--size", "100000x100000", "-o", file}, 4},
    };
    for (const auto& row : rows) {
        const process_result result = run(row.words);
        EXPECT_EQ(result.exit_code, 1) << row.words[1];
        EXPECT_NE(result.errors.find("result " + std::to_string(row.result) + ","), std::string::npos)
            << result.errors;
        EXPECT_FALSE(std::filesystem::exists(file)) << row.words[1];
    }
    EXPECT_EQ(run({"image", "2", "-o", scratch_.path("no/folder.png")}).exit_code, 3);
}

TEST_F(sample_pictures, sheets_show_what_the_filter_finds) {
    const std::string file = scratch_.path("sheet.png");
    const process_result sheet = run({"sheet", "--filter", "toner_cyan", "--size", "64", "-o", file});
    EXPECT_EQ(sheet.output, file + "\n");
    EXPECT_NE(sheet.errors.find("page 1 of 1, pictures 1 to 11 of 11"), std::string::npos) << sheet.errors;
    EXPECT_GT(QImage(QString::fromStdString(file)).width(), 1000);
    EXPECT_EQ(run({"sheet", "--filter", "no such picture", "-o", file}).exit_code, 1);
    const process_result images = run({"images", "--filter", "no such picture"});
    EXPECT_EQ(images.exit_code, 1);
    EXPECT_EQ(images.errors, "panelctl: no image's number, name or file holds \"no such picture\"\n");
    EXPECT_EQ(run({"sheet", "--filter", "swkb", "--size", "256", "-o", file}).exit_code, 0);
    EXPECT_TRUE(std::filesystem::exists(scratch_.path("sheet-02.png")));
}

TEST_F(pictures, data_files_come_back_as_they_were_put) {
    const std::string source = scratch_.path("source");
    const std::string contents("a\0\xff\n", 4);
    scratch_.write("source", contents);
    EXPECT_EQ(json_of({"data", "exists", "a/b"})["platform_code"].toInt(), 2);
    EXPECT_EQ(run({"data", "exists", "a/b"}).exit_code, 1);
    EXPECT_EQ(output_of({"data", "put", "a/b", source}), "");
    EXPECT_EQ(output_of({"data", "exists", "a/b"}), "yes\n");
    EXPECT_EQ(output_of({"data", "get", "a/b", scratch_.path("copy")}), "");
    EXPECT_EQ(scratch_.read("copy"), contents);
    ASSERT_EQ(::mkfifo(scratch_.path("pipe").c_str(), 0600), 0);
    const int pipe = ::open(scratch_.path("pipe").c_str(), O_RDWR | O_CLOEXEC);
    EXPECT_EQ(output_of({"data", "get", "a/b", scratch_.path("pipe")}), "");
    EXPECT_TRUE(std::filesystem::is_fifo(scratch_.path("pipe"))) << "replaced, not written to";
    ::close(pipe);
    EXPECT_EQ(run({"data", "put", "a/b", "/dev/zero"}).exit_code, 3) << "read without end";
    EXPECT_EQ(output_of({"data", "remove", "a/b"}), "");
    EXPECT_EQ(run({"data", "get", "a/b", scratch_.path("copy")}).exit_code, 1);
    EXPECT_EQ(run({"data", "put", "../outside", source}).exit_code, 3);
    EXPECT_EQ(run({"data", "put", "a/b", scratch_.path("missing")}).exit_code, 3);
}
