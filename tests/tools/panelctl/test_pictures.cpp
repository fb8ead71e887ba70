#include "device.h"

#include <QImage>
#include <QJsonArray>
#include <QJsonObject>

#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace {

using pictures = device;

} // namespace

TEST_F(pictures, image_writes_what_it_says) {
    const std::string file = scratch_.path("picture.png");
    const struct {
        std::vector<std::string> words;
        const char* found_name;
        QSize size;
    } rows[] = {
        {{"2", "--size", "96x32"}, "ico_globalnavi_quick.svg", {96, 32}},
        {{"2", "--suffix", "_on"}, "ico_globalnavi_quick_on.svg", {48, 48}},
        {{"ico_status_ready.svg", "--suffix", "_none", "--size", "7x7"}, "ico_status_ready.svg", {7, 7}},
        {{"550", "--size", "20x20"}, "ico_status_printing.gif", {20, 20}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.words));
        std::vector<std::string> words = {"image", "-o", file};
        words.insert(words.end(), row.words.begin(), row.words.end());
        const QJsonObject told = json_of(words).object();
        EXPECT_EQ(told["result"].toInt(-1), 0);
        EXPECT_EQ(told["found_name"].toString().toStdString(), row.found_name);
        EXPECT_EQ(QSize(told["width"].toInt(), told["height"].toInt()), row.size);
        EXPECT_EQ(QImage(QString::fromStdString(file)).size(), row.size);
    }
}

TEST_F(pictures, a_missing_picture_tells_its_result_and_writes_nothing) {
    const std::string file = scratch_.path("picture.png");
    const struct {
        std::vector<std::string> words;
        int result;
    } rows[] = {
        {{"99999"}, 5},    {{"84"}, 5},       {{"ext:none"}, 5},
        {{"none.svg"}, 4}, {{"none.png"}, 2}, {{"2", "--size", "100000x100000"}, 4},
    };
    for (const auto& row : rows) {
        std::vector<std::string> words = {"image", "-o", file};
        words.insert(words.end(), row.words.begin(), row.words.end());
        const process_result result = run(words);
        EXPECT_EQ(result.exit_code, 1) << row.words[0];
        EXPECT_NE(result.errors.find("result " + std::to_string(row.result) + ","), std::string::npos)
            << result.errors;
        EXPECT_FALSE(fs::exists(file)) << row.words[0];
    }
    EXPECT_EQ(run({"image", "2", "-o", scratch_.path("no/folder.png")}).exit_code, 3);
    EXPECT_EQ(run({"image", "2", "--size", "0x5", "-o", file}).exit_code, 2);
}

TEST_F(pictures, sheets_show_what_the_filter_finds) {
    const QJsonArray rows = json_of({"images", "--filter", "toner_cyan"}).array();
    ASSERT_EQ(rows.size(), 11);
    const std::string file = scratch_.path("sheet.png");
    const process_result sheet = run({"sheet", "--filter", "toner_cyan", "--size", "64", "-o", file});
    EXPECT_EQ(sheet.exit_code, 0);
    EXPECT_EQ(sheet.output, file + "\n");
    EXPECT_NE(sheet.errors.find("page 1 of 1, pictures 1 to 11 of 11"), std::string::npos) << sheet.errors;
    EXPECT_GT(QImage(QString::fromStdString(file)).width(), 1000);
    EXPECT_EQ(run({"sheet", "--filter", "no such picture", "-o", file}).exit_code, 1);

    const process_result pages = run({"sheet", "--filter", "swkb", "--size", "256", "-o", file});
    EXPECT_EQ(pages.exit_code, 0);
    EXPECT_TRUE(fs::exists(scratch_.path("sheet-02.png"))) << pages.output;
}

TEST_F(pictures, data_files_come_back_as_they_were_put) {
    const std::string source = scratch_.path("source");
    const std::string copy = scratch_.path("copy");
    const std::string contents("a\0\xff\n", 4);
    std::ofstream(source, std::ios::binary) << contents;
    EXPECT_EQ(run({"data", "exists", "a/b"}).exit_code, 1);
    EXPECT_EQ(output_of({"data", "put", "a/b", source}), "");
    EXPECT_EQ(output_of({"data", "exists", "a/b"}), "yes\n");
    EXPECT_EQ(output_of({"data", "get", "a/b", copy}), "");
    std::ifstream file(copy, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), contents);
    EXPECT_EQ(output_of({"data", "remove", "a/b"}), "");
    EXPECT_EQ(run({"data", "get", "a/b", copy}).exit_code, 1);
    EXPECT_EQ(run({"data", "put", "../outside", source}).exit_code, 3);
    EXPECT_EQ(run({"data", "put", "a/b", scratch_.path("missing")}).exit_code, 3);
}
