#include "dvc_pnl_rmg_property.h"
#include "image_device.h"

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <new>
#include <vector>

namespace {

using namespace velarion;

constexpr char NAME[] = "logo.dat";

class image_data : public image_device {
protected:
    /** "result error" of an operation by its name. */
    std::string run(const std::string& operation, const char* name = NAME) {
        int error = 4711;
        int result = 0;
        if (operation == "exists") {
            result = manager_->dvc_pnl_rmg_is_exist_data_file(name, error) ? 1 : 0;
        } else if (operation == "remove") {
            result = manager_->dvc_pnl_rmg_remove_data_file(name, error);
        } else if (operation == "set") {
            const unsigned char bytes[] = {0, 1, 2, 255};
            result = manager_->dvc_pnl_rmg_set_image_data(name, bytes, sizeof(bytes), error);
        } else {
            result = manager_->dvc_pnl_rmg_get_image_data(name, data_, error);
        }
        EXPECT_EQ(platform_.open_file_count(), 0U);
        return text_of(result, error);
    }

    static std::string text_of(int result, int error) {
        return std::to_string(result) + ' ' + std::to_string(error);
    }

    std::vector<unsigned char> data_{9, 9, 9};
};

std::size_t large_size = SIZE_MAX; ///< from which on a block is large
int large_blocks = 0;
int large_blocks_limit = 0;

} // namespace

void* operator new(std::size_t size) {
    if (size >= large_size && ++large_blocks > large_blocks_limit) {
        throw std::bad_alloc();
    }
    void* block = std::malloc(size);
    return block ? block : throw std::bad_alloc();
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}

TEST_F(image_data, goes_through_the_store_under_the_name_given) {
    EXPECT_EQ(run("exists"), text_of(0, FAKE_FAILURE));
    EXPECT_EQ(run("set"), "0 0");
    EXPECT_EQ(run("exists"), "1 0");
    std::string stored;
    EXPECT_TRUE(platform_.get_file(4, 33, NAME, stored));
    EXPECT_EQ(stored, std::string("\0\1\2\xFF", 4));
    EXPECT_EQ(run("get"), "0 0");
    EXPECT_EQ(data_, (std::vector<unsigned char>{0, 1, 2, 255}));
    EXPECT_EQ(run("remove"), "0 0");
}

TEST_F(image_data, calls_nothing_for_a_name_that_is_none) {
    for (const char* name : {static_cast<const char*>(nullptr), ""}) {
        EXPECT_EQ(run("exists", name), "0 0");
        for (const char* operation : {"remove", "set", "get"}) {
            EXPECT_EQ(run(operation, name), text_of(DVC_PNL_RMG_RESULT_INVALID_ARGUMENT, 0));
        }
    }
    int error = 4711;
    EXPECT_EQ(manager_->dvc_pnl_rmg_set_image_data(NAME, nullptr, 1, error),
              DVC_PNL_RMG_RESULT_INVALID_ARGUMENT);
    EXPECT_EQ(error, 0);
    EXPECT_TRUE(platform_.calls().empty());
    EXPECT_EQ(manager_->dvc_pnl_rmg_set_image_data(NAME, nullptr, 0, error), 0); // an empty file
}

TEST_F(image_data, reports_the_first_platform_call_that_fails) {
    const struct {
        const char* operation;
        std::vector<const char*> failing; ///< with the codes 100, 101 ...
        int result;
        std::size_t size; ///< of the data afterwards: 3 before, 5 in the file
    } rows[] = {
        {"remove", {"dvu_dio_existfile", "dvu_dio_remove"}, DVC_PNL_RMG_RESULT_NOT_FOUND, 3},
        {"remove", {"dvu_dio_remove"}, DVC_PNL_RMG_RESULT_IO_ERROR, 3},
        {"set", {"dvu_dio_fopen", "dvu_dio_fclose"}, DVC_PNL_RMG_RESULT_IO_ERROR, 3},
        {"set", {"dvu_dio_fwrite", "dvu_dio_fclose"}, DVC_PNL_RMG_RESULT_IO_ERROR, 3},
        {"set", {"dvu_dio_fflush", "dvu_dio_fclose"}, DVC_PNL_RMG_RESULT_IO_ERROR, 3},
        {"set", {"dvu_dio_fclose"}, DVC_PNL_RMG_RESULT_IO_ERROR, 3},
        {"get", {"dvu_dio_existfile"}, DVC_PNL_RMG_RESULT_NOT_FOUND, 3},
        {"get", {"dvu_dio_stat", "dvu_dio_fopen"}, DVC_PNL_RMG_RESULT_IO_ERROR, 3},
        {"get", {"dvu_dio_fopen"}, DVC_PNL_RMG_RESULT_IO_ERROR, 3},
        {"get", {"dvu_dio_fread", "dvu_dio_fclose"}, DVC_PNL_RMG_RESULT_IO_ERROR, 3},
        {"get", {"dvu_dio_fclose"}, DVC_PNL_RMG_RESULT_IO_ERROR, 5},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.operation) + ' ' + row.failing.front());
        platform_.reset();
        platform_.set_file(4, 33, NAME, "12345");
        data_.assign(3, 9);
        int code = 100;
        for (const char* function : row.failing) {
            platform_.fail(function, code++);
        }
        EXPECT_EQ(run(row.operation), text_of(row.result, 100));
        EXPECT_EQ(data_.size(), row.size);
    }
}

TEST_F(image_data, holds_exactly_the_bytes_that_arrived) {
    const struct {
        std::function<void()> script;
        std::string data;
    } rows[] = {
        {[this] { platform_.set_read_limit(2); }, "12"},
        {[this] { platform_.set_stat_size(100); }, "12345"}, // the file shrank
        {[this] { platform_.set_stat_size(2); }, "12"},      // the file grew
        {[this] { platform_.set_read_count(0xFFFFFFFF); }, "12345"},
    };
    for (const auto& row : rows) {
        platform_.reset();
        platform_.set_file(4, 33, NAME, "12345");
        row.script();
        EXPECT_EQ(run("get"), "0 0");
        EXPECT_EQ(std::string(data_.begin(), data_.end()), row.data);
    }
}

TEST_F(image_data, takes_memory_for_a_file_once_and_says_when_there_is_none) {
    const std::uint32_t size = 1 << 20;
    platform_.set_file(4, 33, NAME, "12345");
    platform_.set_stat_size(size);
    large_size = size;
    large_blocks = 0;
    large_blocks_limit = 1;
    EXPECT_EQ(run("get"), "0 0");
    EXPECT_EQ(data_.size(), 5U);
    EXPECT_EQ(large_blocks, 1);
    large_blocks_limit = 0;
    EXPECT_NO_THROW(EXPECT_EQ(run("get"), text_of(DVC_PNL_RMG_RESULT_IO_ERROR, 0)));
    large_size = SIZE_MAX;
    EXPECT_EQ(data_.size(), 5U);
}

TEST_F(image_data, an_empty_machine_specific_path_keeps_the_one_before) {
    for (const char* path : {"", "machine/a", static_cast<const char*>(nullptr), ""}) {
        const std::string before = manager_->dvc_pnl_rmg_get_machine_data_file();
        const bool is_path = path != nullptr && *path != '\0';
        int error = 4711;
        EXPECT_EQ(manager_->dvc_pnl_rmg_set_machine_specific_path(path, error), is_path ? 0 : 0x53023003);
        EXPECT_EQ(error, 0);
        EXPECT_EQ(manager_->dvc_pnl_rmg_get_machine_data_file(), is_path ? path : before);
    }
}
