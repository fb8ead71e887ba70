#ifndef PANEL_INSPECTION_H
#define PANEL_INSPECTION_H

#include "panel_findings.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

namespace velarion {

class panel_frame;
class simulation;

/** A text or a picture of a panel, whichever screen shows it. */
struct element_key {
    enum kind { NONE, TEXT, PICTURE };
    kind is = NONE;
    QString id; ///< of the message or picture; the text itself when it is no message
    QRect box;  ///< px; where there are several, the one that is meant

    bool is_same(const element_key& other) const { return is == other.is && id == other.id; }
    static element_key of(const text_finding& text);
    static element_key of(const picture_finding& picture);
};

/**
 * What the panel shows, judged each time it has changed, and what of it is pointed at and marked. Elements
 * are known by what they are, not by their widgets, which may be gone at any time.
 */
class panel_inspection : public QObject {
    Q_OBJECT

public:
    /** @param panel  outlives this object */
    explicit panel_inspection(simulation& panel);

    const panel_findings& findings() const { return findings_; }
    panel_examiner& examiner() { return examiner_; }

    /** The smallest element at a place of the panel, texts before pictures. */
    element_key element_at(const QPoint& place) const;
    const text_finding* find_text(const element_key& key) const;
    const picture_finding* find_picture(const element_key& key) const;

    void point_at(const element_key& key);
    const element_key& pointed() const { return pointed_; }
    /** Marks every element of the id. */
    void mark(const element_key& key);
    const element_key& marked() const { return marked_; }

    /** Judges what is shown at once. */
    void refresh();

Q_SIGNALS:
    void refreshed();
    void pointed_changed();
    void marked_changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void watch_panel();

    simulation& simulation_;
    QPointer<panel_frame> watched_;
    panel_examiner examiner_;
    panel_findings findings_;
    element_key pointed_;
    element_key marked_;
    QTimer delay_;
};

} // namespace velarion

#endif
