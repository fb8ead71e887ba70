#ifndef GZIP_INFLATER_H
#define GZIP_INFLATER_H

#include <QByteArray>

namespace velarion {

/** @return whether bytes begin like compressed data */
bool is_gzip(const QByteArray& bytes);

/** A result of inflate_gzip(). */
enum gzip_result { GZIP_INFLATED, GZIP_BROKEN, GZIP_TOO_LARGE };

/**
 * Inflates gzip data, of one member or several, as the toolkit does for compressed SVG documents: data that
 * end too soon give what they hold, also without their check sum; a wrong check sum or anything else behind
 * a member fails.
 *
 * @param limit     most bytes that may come out; no more are held
 * @param inflated  receives the bytes; undefined on failure
 */
[[nodiscard]] gzip_result inflate_gzip(const QByteArray& compressed, int limit, QByteArray& inflated);

} // namespace velarion

#endif
