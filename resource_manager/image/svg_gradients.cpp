#include "svg_gradients.h"

namespace velarion {

void svg_gradients::add(const QString& id, QString reference) {
    if (reference.startsWith(QLatin1Char('#'))) {
        reference.remove(0, 1);
    }
    if (id.isEmpty()) {
        return;
    }
    if (!first_.contains(id)) {
        first_.insert(id, first_.value(reference, reference));
    }
    last_.insert(id, last_.value(reference, reference));
    ids_.insert(id);
}

void svg_gradients::find_circles() {
    add_circles_of(first_);
    add_circles_of(last_);
}

void svg_gradients::add_circles_of(const LINKS& links) {
    QSet<QString> known;
    for (auto begin = links.constBegin(); begin != links.constEnd(); ++begin) {
        QSet<QString> seen;
        QString id = begin.key();
        while (links.contains(id) && !known.contains(id) && !seen.contains(id)) {
            seen.insert(id);
            id = links.value(id);
        }
        if (seen.contains(id) || circular_.contains(id)) {
            circular_ += seen;
        }
        known += seen;
    }
}

} // namespace velarion
