#include "svg_gradients.h"

namespace velarion {

void svg_gradients::add(const QString& id, QString reference) {
    if (reference.startsWith(QLatin1Char('#'))) {
        reference.remove(0, 1);
    }
    if (!id.isEmpty() && !targets_.contains(id)) {
        targets_.insert(id, reference);
    }
}

void svg_gradients::find_circles() {
    QSet<QString> known;
    for (auto begin = targets_.constBegin(); begin != targets_.constEnd(); ++begin) {
        QSet<QString> seen;
        QString id = begin.key();
        while (targets_.contains(id) && !known.contains(id) && !seen.contains(id)) {
            seen.insert(id);
            id = targets_.value(id);
        }
        if (seen.contains(id) || circular_.contains(id)) {
            circular_ += seen;
        }
        known += seen;
    }
}

} // namespace velarion
