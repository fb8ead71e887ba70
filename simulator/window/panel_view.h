#ifndef PANEL_VIEW_H
#define PANEL_VIEW_H

#include <QImage>
#include <QPointer>
#include <QWidget>

namespace velarion {

class panel_frame;
class panel_overlay;

/**
 * Shows the panel in whole zoom steps, each of its pixels a square of pixels of the screen, and hands mouse
 * and keys on to it. The panel itself is never mapped, so that it looks the same at every scaling of the
 * desktop.
 */
class panel_view : public QWidget {
    Q_OBJECT

public:
    /** @param panel  outlives it */
    explicit panel_view(panel_frame& panel);

    int zoom() const { return zoom_; }
    /** @param zoom  pixels of the screen for one of the panel, 1 to 4 */
    void set_zoom(int zoom);
    /** One step in or out, by the way that a wheel was turned; 0: neither. */
    void turn_zoom(int wheel);

    /** @return the panel's pixel under a place of the view; may lie outside of the panel */
    QPoint panel_place(const QPoint& place) const;
    /** @return where a box of the panel stands in the view */
    QRect view_box(const QRect& panel_box) const;

    /** @param overlay  is drawn above the panel, outlives the view; null: none */
    void set_overlay(panel_overlay* overlay);

    QSize sizeHint() const override;

    /** The panel as it is now, 800 x 480. */
    QImage picture();

Q_SIGNALS:
    void zoom_changed(int zoom);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    double screen_pixels() const;
    QPointF corner() const;
    void send_mouse(QMouseEvent* event);
    void send_key(QKeyEvent* event);

    panel_frame& panel_;
    panel_overlay* overlay_ = nullptr;
    QPointer<QWidget> pressed_;
    QImage image_;
    bool is_stale_ = true;
    int zoom_ = 1;
};

} // namespace velarion

#endif
