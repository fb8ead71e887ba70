#ifndef STEPPER_H
#define STEPPER_H

#include <QWidget>

namespace velarion {

class message_label;
class panel_button;

/** A large number with a button on either side. */
class stepper : public QWidget {
    Q_OBJECT

public:
    /** @param name  its buttons are "name_less" and "name_more" */
    stepper(const QString& name, int least, int most);

    void set_value(int value);
    int value() const { return value_; }

Q_SIGNALS:
    /** The user wants another value; set_value() shows it. */
    void changed(int value);

private:
    panel_button* make_button(const QString& name, const char* picture, int step);

    int least_;
    int most_;
    int value_;
    panel_button* less_;
    panel_button* more_;
    message_label* number_;
};

} // namespace velarion

#endif
