#ifndef PANEL_LIST_H
#define PANEL_LIST_H

#include "panel_element.h"
#include "picture_block.h"
#include "text_block.h"

#include <QString>
#include <QStringList>
#include <QWidget>

#include <vector>

namespace velarion {

/** A row of a list: picture, text and value; scripts find it by its name. */
struct list_row {
    QString name;
    QString picture; ///< id; empty: none
    message_text text;
    message_text value = {}; ///< at the far end
    bool is_chosen = false;

    bool operator==(const list_row& other) const {
        return name == other.name && picture == other.picture && text == other.text && value == other.value &&
               is_chosen == other.is_chosen;
    }
};

/**
 * A list of rows that scrolls: dragged by the finger, by the wheel, by the arrow keys. Emits chosen() for the
 * row that is tapped.
 */
class panel_list : public QWidget, public panel_element {
    Q_OBJECT

public:
    panel_list();

    /** Shows these rows: as far scrolled as before once somebody has scrolled, before that so that the first
     * chosen one is seen. */
    void set_rows(const std::vector<list_row>& rows);
    /** The rows are about something else: the first chosen one is to be seen. */
    void begin_anew();
    std::size_t row_count() const { return rows_.size(); }
    QString row_name(int row) const { return rows_[static_cast<std::size_t>(row)].name; }
    /** @return the place of a row's name, or -1 */
    int find_row(const QString& name) const;
    QStringList row_names() const;
    /** Scrolls so that the row is seen. @return its box, px from the list's corner */
    QRect show_row(int row);

    QSize sizeHint() const override;
    void describe(panel_contents& contents) const override;
    void reload() override;

Q_SIGNALS:
    void chosen(int row);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct shown_row {
        QString name;
        picture_block ground;
        picture_block picture;
        text_block text;
        text_block value;
        bool is_chosen;
    };
    /** Where the parts of a row stand. */
    struct row_boxes {
        QRect row;
        QRect picture;
        QRect text;
        QRect value;
    };

    row_boxes boxes_of(int row) const;
    int row_at(int y) const;
    void scroll_to(int offset);
    void show_chosen();
    void press_row(int row);

    int last_offset() const;
    void draw_row(QPainter& painter, int row) const;
    void draw_scroll_bar(QPainter& painter) const;

    std::vector<list_row> given_;
    std::vector<shown_row> rows_;
    int offset_ = 0; ///< px scrolled
    int pressed_ = -1;
    int current_ = 0;
    int drag_start_ = 0;
    int drag_offset_ = 0;
    bool is_dragged_ = false;
    bool is_used_ = false; ///< somebody has scrolled it or taken a row
};

} // namespace velarion

#endif
