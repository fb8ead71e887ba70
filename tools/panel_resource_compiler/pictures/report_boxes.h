#ifndef REPORT_BOXES_H
#define REPORT_BOXES_H

#include <QFont>
#include <QSize>
#include <QString>
#include <QStringList>

#include <string>
#include <vector>

namespace velarion {

/** A place of the panel where a message is shown. */
struct text_box {
    int language = 0; ///< in which it is shown
    int id = 0;
    QString screen;
    QStringList arguments;       ///< of the message's placeholders, "%1" first
    QSize size;                  ///< the most that a text may fill
    std::vector<int> font_sizes; ///< px, that are tried in this order until the text fits
    int weight = QFont::Normal;
    bool wraps = false;

    /** A text of the message as it is shown there. */
    QString filled(QString text) const;
};

/**
 * Reads the boxes of all screens of a report of the simulator; a message that several screens show alike in
 * one language is taken once.
 *
 * @param fault  receives the reason when it fails
 */
bool read_report_boxes(const std::string& path, std::vector<text_box>& boxes, std::string& fault);

/**
 * The boxes for a language: its own, for layouts follow their texts; where the report has none, those of
 * English or of the first language in it.
 */
std::vector<text_box> boxes_for(int language, const std::vector<text_box>& boxes);

/** A text that does not fit where it is shown. */
struct misfit {
    QString text;
    text_box box;
    QFont font; ///< at the smallest size
    QSize needed;
};

/**
 * @param family  that the panel asks for in the language
 * @param result  receives what is to be said of a text that does not fit
 * @return whether the text fits at one of the box's sizes
 */
bool fits_box(const QString& text, const QString& family, const text_box& box, misfit& result);

} // namespace velarion

#endif
