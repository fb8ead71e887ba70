#ifndef FILE_DESCRIPTOR_H
#define FILE_DESCRIPTOR_H

#include <unistd.h>

namespace velarion {

/** Owns an open file descriptor; a negative one is none. One thread at a time. */
class file_descriptor {
public:
    explicit file_descriptor(int descriptor = -1)
        : descriptor_(descriptor) {}
    ~file_descriptor() { reset(); }
    file_descriptor(file_descriptor&& other) noexcept
        : descriptor_(other.release()) {}
    file_descriptor& operator=(file_descriptor&& other) noexcept {
        reset(other.release());
        return *this;
    }
    file_descriptor(const file_descriptor&) = delete;
    file_descriptor& operator=(const file_descriptor&) = delete;

    int get() const { return descriptor_; }

    /** Gives the descriptor up without closing it. */
    int release() {
        const int descriptor = descriptor_;
        descriptor_ = -1;
        return descriptor;
    }

    /** Closes what is owned and owns @p descriptor from now on. */
    void reset(int descriptor = -1) {
        if (descriptor_ >= 0) {
            ::close(descriptor_);
        }
        descriptor_ = descriptor;
    }

private:
    int descriptor_;
};

} // namespace velarion

#endif
