#include "folder_walk.h"

#include <algorithm>

namespace velarion {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t MOST_ENTRIES = 10000;

class folder_walk {
public:
    explicit folder_walk(std::vector<folder_fault>& faults)
        : faults_(faults) {}

    void enter(const fs::path& folder) {
        std::error_code error;
        const fs::path real = fs::canonical(folder, error);
        if (std::find(above_.begin(), above_.end(), real) != above_.end()) {
            faults_.push_back({folder.string(), "is a link to a folder above it; remove it"});
            return;
        }
        above_.push_back(real);
        fs::directory_iterator entry(folder, error);
        for (; !error && entry != fs::directory_iterator() && count_ <= MOST_ENTRIES;
             entry.increment(error)) {
            take(*entry);
        }
        if (error) {
            faults_.push_back({folder.string(), "cannot be listed: " + error.message()});
        }
        above_.pop_back();
    }

    std::vector<fs::path> files() {
        std::sort(files_.begin(), files_.end());
        return std::move(files_);
    }

private:
    void take(const fs::directory_entry& entry) {
        std::error_code unknown;
        if (++count_ > MOST_ENTRIES) {
            faults_.push_back(
                {entry.path().parent_path().string(),
                 "more than " + std::to_string(MOST_ENTRIES) + " files and folders are found here"});
        } else if (entry.is_regular_file(unknown)) {
            files_.push_back(entry.path());
        } else if (entry.is_directory(unknown)) {
            enter(entry.path());
        } else {
            faults_.push_back({entry.path().string(), "is neither a file nor a folder; remove it"});
        }
    }

    std::vector<folder_fault>& faults_;
    std::vector<fs::path> above_; // the folders that are being walked through, without links
    std::vector<fs::path> files_;
    std::size_t count_ = 0;
};

} // namespace

std::vector<fs::path> files_below(const fs::path& folder, std::vector<folder_fault>& faults) {
    folder_walk walk(faults);
    std::error_code unknown;
    if (fs::is_directory(folder, unknown)) {
        walk.enter(folder);
    }
    return walk.files();
}

} // namespace velarion
