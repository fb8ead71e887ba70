#ifndef SVG_GRADIENTS_H
#define SVG_GRADIENTS_H

#include <QHash>
#include <QSet>
#include <QString>

namespace velarion {

/** The gradients of an SVG document and what they build on. */
class svg_gradients {
public:
    /** The first of an id counts. @param reference  to what it builds on, with or without its mark */
    void add(const QString& id, QString reference);

    /** To be called when all are added. */
    void find_circles();
    bool has_circles() const { return !circular_.isEmpty(); }
    /** @return whether the gradient of that id builds on itself, or on one that does */
    bool is_circular(const QString& id) const { return circular_.contains(id); }

private:
    QHash<QString, QString> targets_;
    QSet<QString> circular_;
};

} // namespace velarion

#endif
