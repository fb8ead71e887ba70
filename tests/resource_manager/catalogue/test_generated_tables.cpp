#include "checks.h"
#include "dvc_pnl_rmg_image_name_table.h"
#include "dvc_pnl_rmg_message_table.h"
#include "id_directory.h"
#include "image_catalogue.h"
#include "message_catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <limits>
#include <vector>

using namespace velarion;

// The tables as this processor lays them into memory, against the catalogue's files, whose order the compiler
// checks.

TEST(generated_tables, hold_every_message_and_text_of_the_catalogue) {
    diagnostics report(std::cerr);
    report.disable(CHECK_PLACEHOLDERS);
    const message_catalogue catalogue = read_message_catalogue(CATALOGUE_FOLDER, report);
    ASSERT_EQ(report.error_count(), 0U);
    ASSERT_EQ(dvc_pnl_rmg_imple_message_table_size, static_cast<int>(catalogue.messages.size()));
    const DVC_PNL_RMG_IMPL_MESSAGE* found = dvc_pnl_rmg_impl_message_table;
    for (const catalogue_message& message : catalogue.messages) {
        ASSERT_EQ(found->message_id, message.id);
        ASSERT_EQ(found->message_name, message.name) << message.id;
        ASSERT_EQ(found->message_table_index, message.row) << message.id;
        ++found;
    }
    for (std::int32_t row = 0; row < NULL_ROW; ++row) {
        const auto& texts = catalogue.rows[static_cast<std::size_t>(row)].texts;
        for (std::size_t language = 0; language < texts.size(); ++language) {
            const char* const text = standard_language_message_table[row][language];
            ASSERT_NE(text, nullptr) << row;
            ASSERT_EQ(text, texts[language]) << row;
        }
    }
    for (const char* text : standard_language_message_table[NULL_ROW]) {
        EXPECT_EQ(text, nullptr);
    }
}

TEST(generated_tables, hold_every_image_of_the_catalogue) {
    diagnostics report(std::cerr);
    report.disable(CHECK_EXTENSIONS);
    const std::vector<catalogue_image> images = read_image_catalogue(CATALOGUE_FOLDER, report);
    ASSERT_EQ(report.error_count(), 0U);
    ASSERT_EQ(dvc_pnl_rmg_imple_image_name_table_size, static_cast<int>(images.size()));
    const DVC_PNL_RMG_IMPL_IMAGE_NAME* found = dvc_pnl_rmg_impl_image_name_table;
    for (const catalogue_image& image : images) {
        ASSERT_EQ(found->image_id, image.id);
        ASSERT_EQ(found->image_name, image.name) << image.id;
        ASSERT_EQ(found->file_name, image.file) << image.id;
        ++found;
    }
}

TEST(id_directory, finds_every_id_of_any_table_and_no_other) {
    struct record {
        std::int32_t id;
    };
    const std::int32_t least = std::numeric_limits<std::int32_t>::min();
    const std::int32_t most = std::numeric_limits<std::int32_t>::max();
    std::vector<std::vector<record>> tables = {{},
                                               {{7}},
                                               {{-3}, {-1}, {0}, {2}},
                                               {{1}, {2}, {3}, {most}},
                                               {{least}, {most}},
                                               {{least}, {-1}, {0}, {most}}};
    std::vector<record> dense;
    std::vector<record> uneven;
    for (std::int32_t i = -1000; i <= 1000; ++i) {
        dense.push_back({i + 1005});
        uneven.push_back({i * i * i});
    }
    tables.push_back(dense);
    tables.push_back(uneven);
    for (const std::vector<record>& table : tables) {
        SCOPED_TRACE(table.size());
        const id_directory<record, &record::id> directory(table.data(), table.size());
        const auto finds = [&](std::int32_t id) {
            const record* found = directory.find(id);
            EXPECT_TRUE(!found || found->id == id);
            return found != nullptr;
        };
        for (const std::int32_t id : {least, least + 1, -1000, -2, 4, 2006, 1500000, most - 1, most}) {
            EXPECT_EQ(finds(id),
                      std::any_of(table.begin(), table.end(), [id](const record& r) { return r.id == id; }));
        }
        for (const record& wanted : table) {
            EXPECT_TRUE(finds(wanted.id)) << wanted.id;
        }
    }
}
