#ifndef SVG_GRADIENTS_H
#define SVG_GRADIENTS_H

#include <QHash>
#include <QSet>
#include <QString>

namespace velarion {

/** The gradients of an SVG document and what they build on. */
class svg_gradients {
public:
    /** To be called in the document's order. @param reference  to what it builds on; its mark may lack */
    void add(const QString& id, QString reference);
    void add_color(const QString& id) { ids_.insert(id); }

    /** To be called when all are added. */
    void find_circles();
    bool has_circles() const { return !circular_.isEmpty(); }
    /** @return whether drawing with that gradient makes a toolkit look for its colours without end */
    bool is_circular(const QString& id) const { return circular_.contains(id); }
    /** @return whether a gradient or a colour has that id */
    bool is_known(const QString& id) const { return ids_.contains(id); }

private:
    /** By id, what is looked at when the gradient is drawn with; empty when it has its colours. */
    using LINKS = QHash<QString, QString>;

    void add_circles_of(const LINKS& links);

    LINKS first_; ///< of gradients that share an id, the first counts for one toolkit
    LINKS last_;  ///< and the last for another
    QSet<QString> ids_;
    QSet<QString> circular_;
};

} // namespace velarion

#endif
