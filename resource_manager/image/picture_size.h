#ifndef PICTURE_SIZE_H
#define PICTURE_SIZE_H

#include <QSize>

#include <cstdint>

namespace velarion {

/** Bits of a pixmap's pixel where the screen does not say otherwise. */
constexpr std::int64_t PIXMAP_DEPTH = 32;
/** The first number of bits that no pixmap may have. */
constexpr std::int64_t PIXMAP_BITS_END = std::int64_t{1} << 31;

/** @return the bits of a pixmap of this size, in device pixels; 0 when it has no pixels */
inline std::int64_t pixmap_bits(const QSize& size) {
    const std::int64_t pixels = static_cast<std::int64_t>(size.width()) * size.height();
    const bool is_larger = pixels >= PIXMAP_BITS_END / PIXMAP_DEPTH; // the product may not fit
    return size.isEmpty() ? 0 : (is_larger ? PIXMAP_BITS_END : pixels * PIXMAP_DEPTH);
}

/** @return whether a pixmap of this size has pixels and may be made */
inline bool is_allowed_size(const QSize& size) {
    const std::int64_t bits = pixmap_bits(size);
    return bits > 0 && bits < PIXMAP_BITS_END;
}

} // namespace velarion

#endif
