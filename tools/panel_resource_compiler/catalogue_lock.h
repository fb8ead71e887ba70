#ifndef CATALOGUE_LOCK_H
#define CATALOGUE_LOCK_H

#include "file_descriptor.h"

#include <string>

namespace velarion {

/** Lets those that change the same catalogue wait for each other, where the file system can. */
class catalogue_lock {
public:
    /**
     * Waits until no other holds the catalogue; then holds it for the object's lifetime.
     *
     * @param folder  of the catalogue
     * @param fault   receives why the folder cannot be opened
     * @return whether the folder is there; a file system without locks keeps nobody from work
     */
    [[nodiscard]] bool take(const std::string& folder, std::string& fault);

private:
    file_descriptor folder_;
};

} // namespace velarion

#endif
