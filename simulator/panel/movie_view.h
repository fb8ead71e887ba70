#ifndef MOVIE_VIEW_H
#define MOVIE_VIEW_H

#include "panel_element.h"

#include <QPixmap>
#include <QWidget>

#include <vector>

namespace velarion {

class machine_state;

/** Shows an animated picture at a fixed size, at the frame that the machine's steps have come to. */
class movie_view : public QWidget, public panel_element {
public:
    /**
     * @param size   dp
     * @param clock  outlives it
     */
    movie_view(const QSize& size, const machine_state& clock);

    /** @param id  of a movie; it begins anew unless it is shown already */
    void set_movie(const QString& id);

    void describe(panel_contents& contents) const override;
    void reload() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct movie_frame {
        QPixmap picture;
        int end; ///< ms from the movie's start
    };

    void load();
    std::size_t current_frame() const;

    const machine_state& clock_;
    QString id_;
    int begin_ = 0; ///< step
    std::vector<movie_frame> frames_;
    std::size_t shown_ = 0;
    shown_picture description_;
};

} // namespace velarion

#endif
