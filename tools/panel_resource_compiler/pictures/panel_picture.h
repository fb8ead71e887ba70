#ifndef PANEL_PICTURE_H
#define PANEL_PICTURE_H

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

namespace velarion {

/**
 * Reads an SVG document as the panel does, inflated where it is compressed.
 *
 * @param document  receives it; undefined on failure
 * @param fault     receives why the panel does not read it
 */
[[nodiscard]] bool read_panel_document(const QString& path, QByteArray& document, QString& fault);

/** Whether the panel draws a document, at its natural size where none is given; others may take forever. */
[[nodiscard]] bool is_drawn_by_panel(const QByteArray& document, const QString& path,
                                     const QSize& size = QSize());

/** A picture of another format, as the panel reads it. */
struct panel_bitmap {
    explicit panel_bitmap(const QString& path);

    QImage image; ///< null: not read
    QSize size;
    QString format; ///< what it is whatever its name says, as "png"
    QString fault;  ///< why it is not read; empty when it is
};

} // namespace velarion

#endif
