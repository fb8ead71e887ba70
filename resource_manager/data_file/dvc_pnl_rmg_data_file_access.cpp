#include "dvc_pnl_rmg_data_file_access.h"

#include "data_file_store.h"
#include "dvc_pnl_rmg_property.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <limits>

namespace velarion {

namespace {

constexpr int MODE_READ = 0;
constexpr int MODE_WRITE = 1;

bool is_name(const char* name) {
    return name && *name != '\0';
}

/** Stores a platform code that is a failure. @return whether it is success */
bool succeeds(int code, int& error) {
    if (code != 0) {
        error = code;
    }
    return code == 0;
}

/** @return whether there was memory for so many bytes */
bool has_room(std::vector<unsigned char>& bytes, std::uint32_t size) {
    try {
        bytes.resize(std::max<std::uint32_t>(size, 1)); // the store gets an address also of nothing
    } catch (const std::exception&) {
        return false;
    }
    return true;
}

/** An open file, closed at the latest with its lifetime. */
class open_data_file {
public:
    open_data_file()
        : handle_(nullptr)
        , is_open_(false) {}
    ~open_data_file() { close(); }
    open_data_file(const open_data_file&) = delete;
    open_data_file& operator=(const open_data_file&) = delete;

    int open(int area, int group, const char* name, int mode) {
        const int code = dvu_dio_fopen(area, group, name, mode, &handle_);
        is_open_ = code == 0;
        return code;
    }

    int close() {
        const bool was_open = is_open_;
        is_open_ = false;
        return was_open ? dvu_dio_fclose(handle_) : 0;
    }

    DVU_DIO_HANDLE handle() const { return handle_; }

private:
    DVU_DIO_HANDLE handle_;
    bool is_open_;
};

} // namespace

bool dvc_pnl_rmg_data_file_access::exists(const char* name, int& error) const {
    error = 0;
    return is_name(name) && succeeds(dvu_dio_existfile(area_, group_, name), error);
}

int dvc_pnl_rmg_data_file_access::remove(const char* name, int& error) const {
    error = 0;
    if (!is_name(name)) {
        return DVC_PNL_RMG_RESULT_INVALID_ARGUMENT;
    }
    if (!succeeds(dvu_dio_existfile(area_, group_, name), error)) {
        return DVC_PNL_RMG_RESULT_NOT_FOUND;
    }
    const bool is_removed = succeeds(dvu_dio_remove(area_, group_, name), error);
    return is_removed ? DVC_PNL_RMG_RESULT_OK : DVC_PNL_RMG_RESULT_IO_ERROR;
}

int dvc_pnl_rmg_data_file_access::write(const char* name, const unsigned char* bytes, unsigned long count,
                                        int& error) const {
    error = 0;
    if (!is_name(name) || (!bytes && count != 0)) {
        return DVC_PNL_RMG_RESULT_INVALID_ARGUMENT;
    }
    if (count > std::numeric_limits<std::uint32_t>::max()) {
        return DVC_PNL_RMG_RESULT_IO_ERROR;
    }
    std::uint32_t written = 0;
    open_data_file file;
    const bool is_written =
        succeeds(file.open(area_, group_, name, MODE_WRITE), error) &&
        succeeds(dvu_dio_fwrite(bytes, static_cast<std::uint32_t>(count), file.handle(), &written), error) &&
        succeeds(dvu_dio_fflush(file.handle()), error) && succeeds(file.close(), error);
    return is_written ? DVC_PNL_RMG_RESULT_OK : DVC_PNL_RMG_RESULT_IO_ERROR;
}

int dvc_pnl_rmg_data_file_access::read(const char* name, std::vector<unsigned char>& data, int& error) const {
    error = 0;
    if (!is_name(name)) {
        return DVC_PNL_RMG_RESULT_INVALID_ARGUMENT;
    }
    if (!succeeds(dvu_dio_existfile(area_, group_, name), error)) {
        return DVC_PNL_RMG_RESULT_NOT_FOUND;
    }
    DVU_DIO_STATUS status = {};
    open_data_file file;
    if (!succeeds(dvu_dio_stat(area_, group_, name, &status), error) ||
        !succeeds(file.open(area_, group_, name, MODE_READ), error)) {
        return DVC_PNL_RMG_RESULT_IO_ERROR;
    }
    std::vector<unsigned char> bytes;
    std::uint32_t count = 0;
    if (!has_room(bytes, status.size) ||
        !succeeds(dvu_dio_fread(bytes.data(), status.size, file.handle(), &count), error)) {
        return DVC_PNL_RMG_RESULT_IO_ERROR;
    }
    bytes.resize(std::min(count, status.size));
    data.swap(bytes);
    return succeeds(file.close(), error) ? DVC_PNL_RMG_RESULT_OK : DVC_PNL_RMG_RESULT_IO_ERROR;
}

} // namespace velarion
