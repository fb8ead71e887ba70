#include "data_file_store.h"

#include "platform_codes.h"
#include "platform_folder.h"
#include "scratch_platform.h"
#include "settings_database.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace velarion;
namespace fs = std::filesystem;

namespace {

constexpr int AREA = 4;
constexpr int GROUP = 33;

int (*at_sync)(bool is_folder) = nullptr; // comes before the system's; not 0: in its place
std::vector<pid_t> children;

class test_data_file_store : public scratch_platform {
protected:
    std::string store() const { return folder() + "/data/4-33"; }

    std::ptrdiff_t entries() const { return entries(store()); }
    static std::ptrdiff_t entries(const std::string& place) {
        return std::distance(fs::directory_iterator(place), {});
    }
};

void put(const char* name, const std::string& bytes) {
    DVU_DIO_HANDLE handle = nullptr;
    std::uint32_t count = 0;
    EXPECT_EQ(dvu_dio_fopen(AREA, GROUP, name, 1, &handle), 0);
    EXPECT_EQ(dvu_dio_fwrite(bytes.data(), static_cast<std::uint32_t>(bytes.size()), handle, &count), 0);
    EXPECT_EQ(bytes.size(), count);
    EXPECT_EQ(dvu_dio_fclose(handle), 0);
}

/** Reads in pieces. @return "code N" when the file cannot be opened */
std::string get(const char* name) {
    DVU_DIO_HANDLE handle = nullptr;
    const int code = dvu_dio_fopen(AREA, GROUP, name, 0, &handle);
    if (code != 0) {
        return "code " + std::to_string(code);
    }
    std::string bytes;
    char piece[1000];
    std::uint32_t count = 0;
    while (dvu_dio_fread(piece, sizeof piece, handle, &count) == 0 && count > 0) {
        bytes.append(piece, count);
    }
    EXPECT_EQ(dvu_dio_fclose(handle), 0);
    return bytes;
}

/** Runs every operation that names a file; all give @p code. */
void expect_all(const char* name, int code) {
    SCOPED_TRACE(name ? name : "null");
    DVU_DIO_HANDLE handle = &handle;
    DVU_DIO_STATUS status = {77};
    EXPECT_EQ(code, dvu_dio_fopen(AREA, GROUP, name, 0, &handle));
    EXPECT_EQ(code, dvu_dio_fopen(AREA, GROUP, name, 1, &handle));
    EXPECT_EQ(&handle, handle);
    EXPECT_EQ(code, dvu_dio_existfile(AREA, GROUP, name));
    EXPECT_EQ(code, dvu_dio_stat(AREA, GROUP, name, &status));
    EXPECT_EQ(status.size, 77U);
    EXPECT_EQ(code, dvu_dio_remove(AREA, GROUP, name));
}

TEST_F(test_data_file_store, the_first_variable_that_is_set_decides_where_it_is) {
    const char* const variables[] = {"PANEL_PLATFORM_DIR", "XDG_STATE_HOME", "HOME"};
    const char* const rows[][4] = {
        {"/p", "/s", "/h", "/p"},
        {"", "/s", "/h", "/s/panel_platform"},
        {nullptr, "relative", "/h", "/h/.local/state/panel_platform"},
        {nullptr, nullptr, nullptr, ""},
    };
    EXPECT_EQ(run_in_process([&] {
                  for (const auto& row : rows) {
                      for (const int i : {0, 1, 2}) {
                          row[i] ? ::setenv(variables[i], row[i], 1) : ::unsetenv(variables[i]);
                      }
                      EXPECT_EQ(row[3], platform_folder());
                  }
                  return !HasFailure();
              }),
              0);
}

TEST_F(test_data_file_store, files_are_written_read_replaced_and_removed) {
    EXPECT_EQ(get("file"), "code 2");
    EXPECT_FALSE(fs::exists(folder())) << "a question makes nothing";
    const std::string contents[] = {"", "x", std::string("a\0b\n", 4), std::string(100000, 'q')};
    for (const char* name : {"file", "folder/deeper/file", "..name", ".hidden"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(dvu_dio_existfile(AREA, GROUP, name), PLATFORM_NOT_FOUND);
        for (const std::string& content : contents) {
            put(name, content);
            EXPECT_EQ(content, get(name));
            DVU_DIO_STATUS status = {77};
            EXPECT_EQ(dvu_dio_stat(AREA, GROUP, name, &status), 0);
            EXPECT_EQ(content.size(), status.size);
        }
        EXPECT_NE(dvu_dio_existfile(AREA, GROUP + 1, name), 0) << "groups are apart";
        EXPECT_EQ(dvu_dio_remove(AREA, GROUP, name), 0);
        EXPECT_EQ(dvu_dio_remove(AREA, GROUP, name), PLATFORM_NOT_FOUND);
    }
}

TEST_F(test_data_file_store, names_that_could_leave_the_store_are_refused) {
    put("file", "kept");
    write_file(beside("outside"), "kept");
    const std::string long_name(300, 'n');
    for (const char* name :
         {"", "/", "/etc/passwd", ".", "..", "../4-33/file", "a/../file", "./file", "a//b", "file/", "file/x",
          ".panel_platform_tmp.1", "../../../outside", long_name.c_str()}) {
        expect_all(name, PLATFORM_NAME_REFUSED);
    }
    expect_all(nullptr, PLATFORM_INVALID_ARGUMENT);
    EXPECT_EQ(get("file"), "kept");
    EXPECT_EQ(file_contents(beside("outside")), "kept");
}

TEST_F(test_data_file_store, links_folders_and_pipes_are_not_followed) {
    put("folder/file", "inside");
    fs::create_directory(beside("outside"));
    write_file(beside("outside/file"), "kept");
    fs::create_directory_symlink(beside("outside"), store() + "/link");
    fs::create_symlink(beside("outside/file"), store() + "/file_link");
    ASSERT_EQ(::mkfifo((store() + "/pipe").c_str(), 0600), 0);
    expect_all("link/file", PLATFORM_NAME_REFUSED);
    expect_all("file_link", PLATFORM_NOT_A_FILE);
    expect_all("folder", PLATFORM_NOT_A_FILE);
    expect_all("pipe", PLATFORM_NOT_A_FILE);
    EXPECT_EQ(file_contents(beside("outside/file")), "kept");
}

TEST_F(test_data_file_store, a_write_without_room_leaves_the_old_file) {
    settings_database settings;
    std::string fault;
    put("file", "old");
    ASSERT_EQ(settings.write("panel_language", 49, fault), 0) << fault;
    const auto write_too_much = [&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {5000, 5000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        DVU_DIO_HANDLE handle = nullptr;
        std::uint32_t count = 0;
        const std::string bytes(8000, 'n');
        return dvu_dio_fopen(AREA, GROUP, "file", 1, &handle) == 0 &&
               dvu_dio_fwrite(bytes.data(), 8000, handle, &count) == PLATFORM_NO_SPACE && count == 5000 &&
               dvu_dio_fclose(handle) == PLATFORM_NO_SPACE && dvu_dio_fclose(handle) == PLATFORM_BAD_HANDLE &&
               settings.write("panel_language", 5, fault) == PLATFORM_NO_SPACE;
    };
    EXPECT_EQ(run_in_process(write_too_much), 0);
    device_setting setting;
    EXPECT_EQ(settings.find("panel_language", setting, fault), 0) << fault;
    EXPECT_EQ(setting.value, 49U);
    EXPECT_EQ(get("file"), "old");
    EXPECT_EQ(entries(), 1) << "a temporary file is left";
}

TEST_F(test_data_file_store, what_a_loss_of_power_may_undo_is_told_and_done) {
    put("file", "old");
    settings_database settings;
    std::string fault;
    DVU_DIO_HANDLE handle = nullptr;
    std::uint32_t count = 0;
    ASSERT_EQ(dvu_dio_fopen(AREA, GROUP, "file", 1, &handle), 0);
    EXPECT_EQ(dvu_dio_fwrite("new", 3, handle, &count), 0);
    at_sync = [](bool is_folder) {
        if (is_folder) {
            children.push_back(start_process([] { return ::pause() == 0; }));
            errno = EIO;
        }
        return is_folder ? -1 : 0;
    };
    EXPECT_EQ(dvu_dio_fclose(handle), PLATFORM_NOT_DURABLE);
    EXPECT_EQ(settings.write("panel_language", 49, fault), PLATFORM_NOT_DURABLE);
    EXPECT_EQ(dvu_dio_fopen(AREA, GROUP, "folder/file", 1, &handle), PLATFORM_IO_ERROR)
        << "not open, not done";
    EXPECT_FALSE(fs::exists(store() + "/folder")) << "the next attempt would not wait for it";
    EXPECT_EQ(get("file"), "new");
    EXPECT_EQ(dvu_dio_remove(AREA, GROUP, "file"), PLATFORM_NOT_DURABLE);
    EXPECT_EQ(get("file"), "code 2");
    at_sync = nullptr;
    device_setting setting;
    EXPECT_EQ(settings.find("panel_language", setting, fault), 0) << fault;
    EXPECT_EQ(setting.value, 49U);
    EXPECT_EQ(settings.write("panel_language", 7, fault), 0) << "a child keeps the lock: " << fault;
    for (const pid_t child : children) {
        ::kill(child, SIGKILL);
        wait_for(child);
    }
}

TEST_F(test_data_file_store, missing_memory_leaves_nothing_open_locked_or_half_made) {
    settings_database settings;
    std::string fault;
    put("file", "old");
    ASSERT_EQ(settings.write("panel_language", 49, fault), 0) << fault;
    const std::ptrdiff_t descriptors = entries("/proc/self/fd");
    at_sync = [](bool) -> int { throw std::bad_alloc(); };
    EXPECT_THROW(static_cast<void>(settings.write("panel_language", 5, fault)), std::bad_alloc);
    DVU_DIO_HANDLE handle = nullptr;
    EXPECT_EQ(dvu_dio_fopen(AREA, GROUP, "folder/file", 1, &handle), PLATFORM_IO_ERROR);
    at_sync = nullptr;
    EXPECT_EQ(entries(folder()), 2);
    EXPECT_EQ(entries("/proc/self/fd"), descriptors);
    EXPECT_EQ(settings.write("destination", 7, fault), 0) << fault;
}

TEST_F(test_data_file_store, a_killed_writer_leaves_the_old_file_and_is_cleaned_up_after) {
    put("file", "old");
    DVU_DIO_HANDLE living = nullptr;
    std::uint32_t count = 0;
    ASSERT_EQ(dvu_dio_fopen(AREA, GROUP, "other", 1, &living), 0);
    EXPECT_EQ(dvu_dio_fwrite("slow", 4, living, &count), 0);
    EXPECT_EQ(run_in_process([] {
                  DVU_DIO_HANDLE handle = nullptr;
                  std::uint32_t written = 0;
                  return dvu_dio_fopen(AREA, GROUP, "file", 1, &handle) == 0 &&
                         dvu_dio_fwrite("new", 3, handle, &written) == 0 && dvu_dio_fflush(handle) == 0 &&
                         ::kill(::getpid(), SIGKILL) == 0;
              }),
              -SIGKILL);
    EXPECT_EQ(get("file"), "old");
    EXPECT_EQ(entries(), 3);
    put("file", "newer");
    EXPECT_EQ(entries(), 2) << "of the temporary files the living writer's alone is to be there";
    EXPECT_EQ(get("other"), "code 2") << "a file is seen only when closed";
    EXPECT_EQ(dvu_dio_fclose(living), 0);
    EXPECT_EQ(get("other"), "slow");
}

TEST_F(test_data_file_store, wrong_handles_and_arguments_are_refused) {
    put("file", "x");
    char byte = '#';
    std::uint32_t count = 77;
    DVU_DIO_HANDLE handle = nullptr;
    for (DVU_DIO_HANDLE wrong : std::initializer_list<DVU_DIO_HANDLE>{handle, &byte}) {
        EXPECT_EQ(dvu_dio_fread(&byte, 1, wrong, &count), PLATFORM_BAD_HANDLE);
        EXPECT_EQ(count, 0U);
        EXPECT_EQ(dvu_dio_fwrite(&byte, 1, wrong, &count), PLATFORM_BAD_HANDLE);
        EXPECT_EQ(dvu_dio_fflush(wrong), PLATFORM_BAD_HANDLE);
        EXPECT_EQ(dvu_dio_fclose(wrong), PLATFORM_BAD_HANDLE);
    }
    EXPECT_EQ(dvu_dio_fopen(AREA, GROUP, "file", 2, &handle), PLATFORM_INVALID_ARGUMENT);
    ASSERT_EQ(dvu_dio_fopen(AREA, GROUP, "file", 0, &handle), 0);
    EXPECT_EQ(dvu_dio_fwrite(&byte, 1, handle, &count), PLATFORM_WRONG_MODE);
    EXPECT_EQ(dvu_dio_fclose(handle), 0);
    ASSERT_EQ(dvu_dio_fopen(AREA, GROUP, "file", 1, &handle), 0);
    EXPECT_EQ(dvu_dio_fread(&byte, 1, handle, &count), PLATFORM_WRONG_MODE);
    EXPECT_EQ(dvu_dio_fclose(handle), 0);
}

TEST_F(test_data_file_store, a_size_beyond_32_bits_is_refused) {
    put("file", "x");
    DVU_DIO_STATUS status = {77};
    ASSERT_EQ(::truncate((store() + "/file").c_str(), 0x100000000), 0);
    EXPECT_EQ(dvu_dio_stat(AREA, GROUP, "file", &status), PLATFORM_TOO_LARGE);
    EXPECT_EQ(status.size, 77U);
    ASSERT_EQ(::truncate((store() + "/file").c_str(), 0xffffffff), 0);
    EXPECT_EQ(dvu_dio_stat(AREA, GROUP, "file", &status), 0);
    EXPECT_EQ(status.size, 0xffffffffU);
}

TEST_F(test_data_file_store, threads_replacing_one_file_leave_whole_versions) {
    put("file", std::string(3000, 'z'));
    run_in_threads([](int number) {
        for (int turn = 0; turn < 20; ++turn) {
            put("file", std::string(3000, static_cast<char>('a' + number)));
            const std::string seen = get("file");
            EXPECT_EQ(seen, std::string(3000, seen[0]));
        }
    });
    EXPECT_EQ(entries(), 1);
}

} // namespace

/** Takes the place of the system's for the whole program: no device fails on demand. */
extern "C" __attribute__((visibility("default"))) int fsync(int descriptor) {
    struct stat status = {};
    const bool is_folder = ::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
    return at_sync && at_sync(is_folder) != 0 ? -1 : ::fdatasync(descriptor);
}
