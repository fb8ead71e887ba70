#ifndef DEVICE_FACE_H
#define DEVICE_FACE_H

#include <QWidget>

class QGridLayout;

namespace velarion {

class device_link;
class panel_view;

/** The front of the device: the display in its bezel, LEDs and hard keys below it. */
class device_face : public QWidget {
public:
    /** @param view  becomes a child @param link  outlives it */
    device_face(panel_view* view, device_link& link);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* make_lamps();
    QWidget* make_keys();

    panel_view* const view_;
    device_link& link_;
};

} // namespace velarion

#endif
