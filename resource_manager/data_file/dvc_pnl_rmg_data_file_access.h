#ifndef DVC_PNL_RMG_DATA_FILE_ACCESS_H
#define DVC_PNL_RMG_DATA_FILE_ACCESS_H

#include <vector>

namespace velarion {

/** Where both resource managers keep their files in the store. */
constexpr int DVC_PNL_RMG_DATA_AREA = 4;
constexpr int DVC_PNL_RMG_DATA_GROUP = 33;

/**
 * Data files of the platform's store, as both resource managers offer them.
 *
 * Names go to the store as they are. Every operation sets error to 0 first and, when a platform call
 * fails, to the code of the first one that did; a null or empty name makes no platform call. Results are
 * the DVC_PNL_RMG_RESULT_ codes of dvc_pnl_rmg_property.h. No file stays open.
 */
class dvc_pnl_rmg_data_file_access {
public:
    /** @param area,group  the storage selectors of the store */
    dvc_pnl_rmg_data_file_access(int area, int group)
        : area_(area)
        , group_(group) {}

    /** @return whether the file exists; the store's code for a missing file comes through error */
    bool exists(const char* name, int& error) const;

    /** @return ..._OK, ..._INVALID_ARGUMENT, ..._NOT_FOUND or ..._IO_ERROR */
    int remove(const char* name, int& error) const;

    /**
     * Creates or replaces a file.
     *
     * @param bytes  may be null when count is 0
     * @param count  bytes; more than the store can hold (32 bits) gives ..._IO_ERROR and error 0
     * @return ..._OK, ..._INVALID_ARGUMENT or ..._IO_ERROR; a failure may leave part of the file behind
     */
    int write(const char* name, const unsigned char* bytes, unsigned long count, int& error) const;

    /**
     * Reads a whole file; its bytes are held once.
     *
     * @param data  receives exactly the bytes that arrived; unchanged on failure, except that it holds
     *              them when only the close failed
     * @return ..._OK, ..._INVALID_ARGUMENT, ..._NOT_FOUND or ..._IO_ERROR, the last with error 0 when there
     *         is not enough memory
     */
    int read(const char* name, std::vector<unsigned char>& data, int& error) const;

private:
    int area_;
    int group_;
};

} // namespace velarion

#endif
