#ifndef KEY_POPUP_H
#define KEY_POPUP_H

#include "panel_element.h"
#include "picture_block.h"

#include <QStringList>
#include <QWidget>

namespace velarion {

/** What a key offers while it is held, as keys above it, each named "key_" and its text. */
class key_popup : public QWidget, public panel_element {
    Q_OBJECT

public:
    explicit key_popup(const QStringList& offers);

    void describe(panel_contents& contents) const override;
    void reload() override;

Q_SIGNALS:
    /** @param offer  place in the offers */
    void chosen(int offer);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    picture_block ground_;
};

} // namespace velarion

#endif
