#include "data_file_store.h"
#include "platform_codes.h"
#include "scratch_platform.h"
#include "settings_database.h"
#include "settings_store.h"
#include "trace.h"

#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <new>

using namespace panel_platform;
namespace fs = std::filesystem;

namespace {

std::ptrdiff_t entries(const std::string& folder) {
    return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

class test_missing_memory : public scratch_platform {};

TEST_F(test_missing_memory, leaves_nothing_open_locked_or_half_made) {
    const std::string trace_text(1000, 'x');
    ::setenv("PANEL_TRACE_FILE", beside("trace").c_str(), 1);
    settings_database database;
    std::string fault;
    ASSERT_EQ(database.write("panel_language", 49, fault), 0) << fault;
    const auto use_all = [&] {
        std::uint16_t value = 0;
        std::uint32_t count = 0;
        DVU_DIO_HANDLE file = nullptr;
        std::vector<SETTING> settings;
        std::string ignored;
        const int code = ent_set_get_status(0x04050300, 0x8500AB20, &value);
        EXPECT_EQ(value, code == 0 ? 49 : 0);
        emwGENTrcPrintf(1, 2, 3, "%s", trace_text.c_str());
        if (dvu_dio_fopen(4, 33, "file", 1, &file) == 0) {
            EXPECT_EQ(dvu_dio_fwrite("x", 1, file, &count), 0);
            EXPECT_EQ(dvu_dio_fclose(file), 0);
        }
        return database.list(settings, ignored) == 0 && database.write("destination", 7, ignored) == 0;
    };
    EXPECT_TRUE(use_all());
    const std::ptrdiff_t descriptors = entries("/proc/self/fd");
    bool is_done = false;
    for (long number = 0; !is_done; ++number) {
        SCOPED_TRACE("allocation " + std::to_string(number));
        allocations_left = number;
        try {
            is_done = use_all() && allocations_left > 0;
        } catch (const std::bad_alloc&) {
        }
        allocations_left = -1;
        EXPECT_EQ(database.write("destination", 7, fault), 0) << fault;
        EXPECT_EQ(entries("/proc/self/fd"), descriptors);
        EXPECT_EQ(entries(folder()) +
                      (fs::exists(folder() + "/data/4-33") ? entries(folder() + "/data/4-33") : 0),
                  3);
        ASSERT_FALSE(HasFailure());
    }
}

} // namespace
