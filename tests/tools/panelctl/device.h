#ifndef DEVICE_H
#define DEVICE_H

#include "process.h"
#include "scratch_folder.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

/** A copy of the sample device of the build, shared by all tests; its settings are each test's own. */
class device : public testing::Test {
protected:
    /** Runs scripts/device-shell with these words; the settings lie in platform_folder(). */
    process_result run_shell(const std::vector<std::string>& words,
                             const std::map<std::string, std::string>& environment = {}) const;
    /** Runs panelctl in the device tree. */
    process_result run(const std::vector<std::string>& words) const;
    /** The output of panelctl, which must succeed without a remark. */
    std::string output_of(const std::vector<std::string>& words) const;
    /** The JSON that panelctl prints; null when it prints anything else. */
    QJsonDocument json_of(std::vector<std::string> words) const;

    void set(const std::string& setting, int value) const;

    /** The number of the catalogue's first message. */
    static std::string first_message();
    static const scratch_folder& tree();
    std::string platform_folder() const { return scratch_.path("platform"); }

    scratch_folder scratch_;
};

/** For what shows the sample catalogue's packs and pictures; a build with another one leaves it out. */
class sample_catalogue_device : public device {
protected:
    void SetUp() override;
};

#endif
