#ifndef ELEMENT_DETAILS_H
#define ELEMENT_DETAILS_H

#include "panel_findings.h"

#include <QList>
#include <QStringList>

namespace velarion {

/** What is said of an element: a title, and properties with their values. */
struct element_details {
    QString title;
    QList<QStringList> rows;
};

element_details details_of(const text_finding& text);
element_details details_of(const picture_finding& picture);

/** What is wrong, for people; empty when nothing is. */
QString describe_faults(const text_finding& text);
QString describe_faults(const picture_finding& picture);

} // namespace velarion

#endif
