#ifndef PICTURE_ORIGIN_H
#define PICTURE_ORIGIN_H

#include "panel_element.h"

#include <QHash>
#include <QSize>
#include <QString>

namespace velarion {

/** Which of the files that may show a picture it is. */
enum class picture_variant {
    MISSING,
    NORMAL,
    STATE,            ///< the file of the state asked for
    DARKER,           ///< the darker twin
    PLAIN_FOR_STATE,  ///< the state has no file
    DARKER_FOR_STATE, ///< the same, by the darker twin
    EXTERNAL          ///< handed over by the host
};

/** Where a picture comes from. */
struct picture_origin {
    int image_id = 0; ///< of the table; 0 for a file or an external picture
    QString name;     ///< of the table
    QString file;     ///< of the table, or the identifier itself
    QString found_name;
    picture_variant variant = picture_variant::MISSING;
    QSize natural_size;     ///< px; empty when there is no picture
    bool is_cached = false; ///< at the size that is shown
};

/** Finds where pictures come from; remembers their sizes. GUI thread only. */
class picture_origins {
public:
    picture_origin find(const shown_picture& picture) const;
    /** Forgets the sizes: files have changed. */
    void clear() { sizes_.clear(); }

private:
    QSize natural_size(const QString& file_name) const;

    mutable QHash<QString, QSize> sizes_; ///< by file name
};

/** For people: "state", "plain in place of the state". */
QString describe_variant(picture_variant variant);

} // namespace velarion

#endif
