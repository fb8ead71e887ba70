#include "dvc_pnl_rmg_property.h"
#include "image_device.h"

#include <functional>
#include <vector>

namespace {

using namespace velarion;

const char NAME[] = "logo.dat";
const int STALE = 4711;

class image_data : public image_device {
protected:
    /** "result error" of an operation by its name. */
    std::string run(const std::string& operation, const char* name = NAME) {
        int error = STALE;
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
        return std::to_string(result) + ' ' + std::to_string(error);
    }

    std::vector<unsigned char> data_{9, 9, 9};
};

std::string text_of(int result, int error) {
    return std::to_string(result) + ' ' + std::to_string(error);
}

} // namespace

TEST_F(image_data, goes_through_the_store_under_the_name_given) {
    EXPECT_EQ(run("exists"), text_of(0, FAKE_FAILURE));
    EXPECT_EQ(run("remove"), text_of(DVC_PNL_RMG_RESULT_NOT_FOUND, FAKE_FAILURE));
    EXPECT_EQ(run("set"), "0 0");
    EXPECT_EQ(run("exists"), "1 0");
    std::string stored;
    EXPECT_TRUE(platform_.get_file(4, 33, NAME, stored));
    EXPECT_EQ(stored, std::string("\0\1\2\xFF", 4));
    EXPECT_EQ(run("get"), "0 0");
    EXPECT_EQ(data_, (std::vector<unsigned char>{0, 1, 2, 255}));
    EXPECT_EQ(run("remove"), "0 0");
    EXPECT_EQ(run("get"), text_of(DVC_PNL_RMG_RESULT_NOT_FOUND, FAKE_FAILURE));
    EXPECT_EQ(data_.size(), 4U);
}

TEST_F(image_data, calls_nothing_for_a_name_that_is_none) {
    for (const char* name : {static_cast<const char*>(nullptr), ""}) {
        EXPECT_EQ(run("exists", name), "0 0");
        for (const char* operation : {"remove", "set", "get"}) {
            EXPECT_EQ(run(operation, name), text_of(DVC_PNL_RMG_RESULT_INVALID_ARGUMENT, 0));
        }
    }
    int error = STALE;
    EXPECT_EQ(manager_->dvc_pnl_rmg_set_image_data(NAME, nullptr, 1, error),
              DVC_PNL_RMG_RESULT_INVALID_ARGUMENT);
    EXPECT_EQ(error, 0);
    EXPECT_TRUE(platform_.calls().empty());
    EXPECT_EQ(manager_->dvc_pnl_rmg_set_image_data(NAME, nullptr, 0, error), 0);
    EXPECT_EQ(run("get"), "0 0");
    EXPECT_TRUE(data_.empty());
}

TEST_F(image_data, reports_the_first_platform_call_that_fails) {
    const struct {
        const char* operation;
        std::vector<const char*> failing; ///< with the codes 100, 101 ...
        int result;
        bool has_data;
    } rows[] = {
        {"exists", {"dvu_dio_existfile"}, 0, false},
        {"remove", {"dvu_dio_existfile", "dvu_dio_remove"}, DVC_PNL_RMG_RESULT_NOT_FOUND, false},
        {"remove", {"dvu_dio_remove"}, DVC_PNL_RMG_RESULT_IO_ERROR, false},
        {"set", {"dvu_dio_fopen", "dvu_dio_fclose"}, DVC_PNL_RMG_RESULT_IO_ERROR, false},
        {"set", {"dvu_dio_fwrite", "dvu_dio_fclose"}, DVC_PNL_RMG_RESULT_IO_ERROR, false},
        {"set", {"dvu_dio_fflush", "dvu_dio_fclose"}, DVC_PNL_RMG_RESULT_IO_ERROR, false},
        {"set", {"dvu_dio_fclose"}, DVC_PNL_RMG_RESULT_IO_ERROR, false},
        {"get", {"dvu_dio_existfile"}, DVC_PNL_RMG_RESULT_NOT_FOUND, false},
        {"get", {"dvu_dio_stat", "dvu_dio_fopen"}, DVC_PNL_RMG_RESULT_IO_ERROR, false},
        {"get", {"dvu_dio_fopen"}, DVC_PNL_RMG_RESULT_IO_ERROR, false},
        {"get", {"dvu_dio_fread", "dvu_dio_fclose"}, DVC_PNL_RMG_RESULT_IO_ERROR, false},
        {"get", {"dvu_dio_fclose"}, DVC_PNL_RMG_RESULT_IO_ERROR, true},
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
        EXPECT_EQ(data_.size(), row.has_data ? 5U : 3U);
    }
}

TEST_F(image_data, holds_exactly_the_bytes_that_arrived) {
    const struct {
        const char* shows;
        std::string file;
        std::function<void(fake_platform&)> script;
        std::size_t size;
    } rows[] = {
        {"an empty file", "", [](fake_platform&) {}, 0},
        {"a whole file", std::string(1000, 'x'), [](fake_platform&) {}, 1000},
        {"a short read", std::string(1000, 'x'), [](fake_platform& f) { f.set_read_limit(10); }, 10},
        {"a file that shrank", "12345", [](fake_platform& f) { f.set_stat_size(100); }, 5},
        {"a file that grew", "12345", [](fake_platform& f) { f.set_stat_size(2); }, 2},
        {"a count beyond the size", "12345", [](fake_platform& f) { f.set_read_count(0xFFFFFFFF); }, 5},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.shows);
        platform_.reset();
        platform_.set_file(4, 33, NAME, row.file);
        row.script(platform_);
        data_.assign(3, 9);
        EXPECT_EQ(run("get"), "0 0");
        EXPECT_EQ(std::string(data_.begin(), data_.end()), row.file.substr(0, row.size));
    }
}

TEST_F(image_data, keeps_the_machine_specific_path_until_a_better_one_comes) {
    int error = STALE;
    EXPECT_STREQ(manager_->dvc_pnl_rmg_get_machine_data_file(), "");
    EXPECT_EQ(manager_->dvc_pnl_rmg_set_machine_specific_path("/a/path", error), 0);
    EXPECT_EQ(error, 0);
    for (const char* path : {static_cast<const char*>(nullptr), ""}) {
        error = STALE;
        EXPECT_EQ(manager_->dvc_pnl_rmg_set_machine_specific_path(path, error), DVC_PNL_RMG_RESULT_NOT_FOUND);
        EXPECT_EQ(error, 0);
    }
    const char* stored = manager_->dvc_pnl_rmg_get_machine_data_file();
    EXPECT_EQ(manager_->dvc_pnl_rmg_set_machine_specific_path(stored + 2, error), 0);
    EXPECT_STREQ(manager_->dvc_pnl_rmg_get_machine_data_file(), "/path");
}
