#include "data_file_store.h"
#include "platform_codes.h"
#include "scratch_platform.h"
#include "settings_database.h"
#include "settings_store.h"

#include <filesystem>
#include <iterator>
#include <new>

using namespace panel_platform;

namespace {

class test_missing_memory : public scratch_platform {
protected:
    /** Uses both stores. @return whether all was done; std::bad_alloc comes from the settings database alone
     */
    bool use_stores() {
        std::uint16_t value = 0;
        const int code = ent_set_get_status(0x04050300, 0x8500AB20, &value);
        EXPECT_EQ(value, code == 0 ? 49 : 0);
        DVU_DIO_HANDLE file = nullptr;
        if (dvu_dio_fopen(4, 33, "file", 1, &file) == 0) {
            EXPECT_EQ(dvu_dio_fclose(file), 0);
        }
        std::vector<SETTING> settings;
        return file && database_.list(settings, fault_) == 0 &&
               database_.write("destination", 7, fault_) == 0;
    }

    settings_database database_;
    std::string fault_;
};

std::ptrdiff_t entries(const std::string& folder) {
    return std::distance(std::filesystem::recursive_directory_iterator(folder), {});
}

TEST_F(test_missing_memory, leaves_nothing_open_locked_or_half_made) {
    ASSERT_EQ(database_.write("panel_language", 49, fault_), 0) << fault_;
    ASSERT_TRUE(use_stores());
    const std::ptrdiff_t files = entries(folder());
    const std::ptrdiff_t descriptors = entries("/proc/self/fd");
    bool is_done = false;
    for (long number = 0; !is_done && !HasFailure(); ++number) {
        SCOPED_TRACE("memory for " + std::to_string(number) + " allocations");
        allocations_left = number;
        try {
            is_done = use_stores();
        } catch (const std::bad_alloc&) {
        }
        allocations_left = -1;
        EXPECT_EQ(entries(folder()), files);
        EXPECT_EQ(entries("/proc/self/fd"), descriptors);
        EXPECT_EQ(database_.write("destination", 7, fault_), 0) << fault_;
    }
}

} // namespace
