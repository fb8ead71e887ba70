#ifndef SCRATCH_TREE_H
#define SCRATCH_TREE_H

#include "fake_platform.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>

/**
 * A device of the test's own: an empty file tree at the device's absolute paths, and a platform without
 * scripts. Fails outside "scripts/device-shell --scratch", before anything of the machine's own is touched.
 */
class scratch_tree : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    fake_platform& platform_ = fake_platform_instance();
};

#endif
