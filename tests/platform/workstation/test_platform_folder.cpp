#include "platform_folder.h"

#include "data_file_store.h"
#include "scratch_platform.h"

#include <cstdlib>
#include <sys/stat.h>

namespace {

using test_platform_folder = scratch_platform;

void set_or_unset(const char* name, const char* value) {
    value ? ::setenv(name, value, 1) : ::unsetenv(name);
}

bool is_private_folder(const std::string& path) {
    struct stat status = {};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && (status.st_mode & 0777) == 0700;
}

TEST_F(test_platform_folder, the_first_variable_that_is_set_decides) {
    const struct {
        const char* chosen;
        const char* state;
        const char* home;
        const char* folder;
    } rows[] = {
        {"/p", "/s", "/h", "/p"},
        {"", "/s", "/h", "/s/panel_platform"},
        {nullptr, "relative", "/h", "/h/.local/state/panel_platform"},
        {nullptr, nullptr, nullptr, ""},
    };
    EXPECT_EQ(0, run_in_process([&] {
                  for (const auto& row : rows) {
                      set_or_unset("PANEL_PLATFORM_DIR", row.chosen);
                      set_or_unset("XDG_STATE_HOME", row.state);
                      set_or_unset("HOME", row.home);
                      EXPECT_EQ(row.folder, panel_platform::platform_folder());
                  }
                  return !testing::Test::HasFailure();
              }));
}

TEST_F(test_platform_folder, the_first_write_makes_it_private_with_its_parents) {
    ::setenv("PANEL_PLATFORM_DIR", beside("parent/platform").c_str(), 1);
    EXPECT_NE(0, dvu_dio_existfile(4, 33, "file"));
    EXPECT_FALSE(is_private_folder(beside("parent"))) << "a question makes no folder";
    DVU_DIO_HANDLE handle = nullptr;
    ASSERT_EQ(0, dvu_dio_fopen(4, 33, "file", 1, &handle));
    EXPECT_EQ(0, dvu_dio_fclose(handle));
    EXPECT_TRUE(is_private_folder(beside("parent")));
    EXPECT_TRUE(is_private_folder(beside("parent/platform")));
}

} // namespace
