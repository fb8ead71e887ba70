#ifndef GUIDANCE_VIEW_H
#define GUIDANCE_VIEW_H

#include "dvc_pnl_vwm_animation_request.h"
#include "panel_element.h"
#include "picture_block.h"

#include <QWidget>

namespace velarion {

class machine_state;
class movie_view;

/** Kinds of animation of guidance; the default, 0, is none. */
inline constexpr auto ANIMATION_MOVIE =
    static_cast<DVC_PNL_VWM_ANIMATION_TYPE>(1); ///< the picture moves itself
inline constexpr auto ANIMATION_SLIDE =
    static_cast<DVC_PNL_VWM_ANIMATION_TYPE>(2); ///< it comes in from a side

/** Where a picture comes from: the default, 0, is the side at which texts end. */
inline constexpr auto ANIMATION_BACK = static_cast<DVC_PNL_VWM_ANIMATION_DIRECTION>(1); ///< where they begin

/** Shows the picture of a step, with the animation that is asked for. */
class guidance_view : public QWidget, public panel_element {
public:
    /**
     * @param size   dp
     * @param clock  outlives it
     */
    guidance_view(const QSize& size, const machine_state& clock);

    /** @param id  of a picture, or of a movie for ANIMATION_MOVIE */
    void show_picture(const QString& id, dvc_pnl_vwm_animation_request request);

    void describe(panel_contents& contents) const override;
    void reload() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int shift() const;

    const machine_state& clock_;
    movie_view* movie_;
    picture_block picture_;
    picture_block last_;
    dvc_pnl_vwm_animation_request request_;
    int begin_ = 0; ///< step of the clock
};

} // namespace velarion

#endif
