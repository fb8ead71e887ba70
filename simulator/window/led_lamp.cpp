#include "led_lamp.h"

#include "device_names.h"
#include "face_style.h"
#include "panel_hardware.h"

#include <QPainter>

namespace velarion {

namespace {

constexpr int LAMP = 10; // logical pixels, as all below
constexpr int GLOW = 4;
constexpr int LABEL = GLOW + LAMP + 6; // where it begins
constexpr int HEIGHT = 24;
constexpr double LABEL_SIZE = 8.5; // points

struct lamp_entry {
    const char* label;
    QColor color;
};

const lamp_entry& lamp_of(int led) {
    static const lamp_entry lamps[] = {{"Power", face_colors::green},  {"Energy saver", face_colors::amber},
                                       {"Start", face_colors::green},  {"Stop", face_colors::red},
                                       {"Data in", face_colors::blue}, {"Alert", face_colors::red},
                                       {"Fax", face_colors::green},    {"Print", face_colors::blue}};
    return lamps[led];
}

QString status_text(int status) {
    return status == led_state::UNKNOWN ? QStringLiteral("unknown")
                                        : QString::fromStdString(led_status_name(status));
}

} // namespace

led_lamp::led_lamp(int led, panel_hardware& hardware)
    : led_(led)
    , hardware_(hardware) {
    QFont small = font();
    small.setPointSizeF(LABEL_SIZE);
    setFont(small);
    setLayoutDirection(Qt::LeftToRight);
    connect(&hardware_, &panel_hardware::led_changed, this, [this](int changed) {
        if (changed == led_) {
            refresh();
        }
    });
    refresh();
}

QSize led_lamp::sizeHint() const {
    return {LABEL + fontMetrics().horizontalAdvance(QLatin1String(lamp_of(led_).label)), HEIGHT};
}

void led_lamp::refresh() {
    const led_state state = hardware_.led(led_);
    setToolTip(
        QStringLiteral("%1 (LED %2, %3): the device service says \"%4\", the panel wants \"%5\"")
            .arg(QLatin1String(lamp_of(led_).label))
            .arg(led_)
            .arg(QString::fromStdString(led_name(led_)), status_text(state.told), status_text(state.wanted)));
    setAccessibleName(QLatin1String(lamp_of(led_).label) + QLatin1Char(' ') + status_text(state.told));
    update();
}

/** What the service tells nothing of is an empty ring. */
void led_lamp::paintEvent(QPaintEvent*) {
    const led_state state = hardware_.led(led_);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF lamp(GLOW, (height() - LAMP) / 2.0, LAMP - 1, LAMP - 1);
    if (state.is_lit) {
        QColor glow = lamp_of(led_).color;
        glow.setAlpha(70);
        painter.setPen(Qt::NoPen);
        painter.setBrush(glow);
        painter.drawEllipse(lamp.adjusted(-GLOW, -GLOW, GLOW, GLOW));
    }
    painter.setPen(state.is_lit ? lamp_of(led_).color : face_colors::lamp_rim);
    painter.setBrush(state.is_lit                       ? QBrush(lamp_of(led_).color)
                     : state.told == led_state::UNKNOWN ? QBrush(Qt::NoBrush)
                                                        : QBrush(face_colors::dark_lamp));
    painter.drawEllipse(lamp);
    painter.setPen(face_colors::label);
    painter.drawText(rect().adjusted(LABEL, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                     QLatin1String(lamp_of(led_).label));
}

} // namespace velarion
