#ifndef SCRATCH_DEVICE_H
#define SCRATCH_DEVICE_H

#include "fake_platform.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

/**
 * A device of the test's own: an empty file tree at the device's absolute paths, and no settings. Fails
 * outside "scripts/device-shell --scratch", before anything of the machine's own is touched.
 */
class scratch_device : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    /** Writes a file and the folders that it needs. */
    void write_file(const std::string& path, const std::string& contents);

    void set_panel_language(std::uint16_t language_id);
    void set_option_language(std::uint16_t language_id);
    /** @param slot  1 to 5 */
    void set_slot(int slot, std::uint16_t language_id);
    /** Installs a pack that has a text for row 2 and the font family "Pack Sans", and null for all else. */
    void install_pack(int language_id);

    fake_platform& platform_ = fake_platform_instance();
};

/** The text of row 2 in every pack of install_pack(). */
extern const char PACK_TEXT[];

#endif
