#ifndef VIEW_CONTROLS_H
#define VIEW_CONTROLS_H

#include <QWidget>

class QToolButton;
class QComboBox;

namespace velarion {

class simulation;

/** Languages, writing direction, pseudo-texts and names in place of missing texts and pictures. */
class view_controls : public QWidget {
    Q_OBJECT

public:
    /** @param panel  outlives it */
    explicit view_controls(simulation& panel);
    ~view_controls() override;

    /** @param direction  "ltr", "rtl" or empty: that of the language */
    void choose_direction(const QString& direction);

private:
    void lay_out();
    void connect_fields();
    void show_languages();
    void apply_direction();
    void reload_texts();

    simulation& simulation_;
    QComboBox* preferred_;
    QComboBox* standard_;
    QComboBox* direction_;
    QToolButton* pseudo_;
    QToolButton* names_;
};

} // namespace velarion

#endif
