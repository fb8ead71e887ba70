#ifndef IMAGE_DEVICE_H
#define IMAGE_DEVICE_H

#include "dvc_pnl_rmg_image_resource_manager.h"
#include "scratch_tree.h"

#include <QPixmap>

#include <string>

using image_manager = velarion::dvc_pnl_rmg_image_resource_manager;

extern const std::string IMAGES; ///< the image directory
extern const std::string SHEETS; ///< the sheet extension directory

/** An SVG document. @param view_box  its last two numbers are the natural size */
std::string svg_document(const std::string& content, const std::string& view_box = "0 0 16 16");
/** A PNG file of that size, white and small whatever its size. */
std::string png_picture(int width, int height);

/** A device without any picture, and an image resource manager for it. */
class image_device : public scratch_tree {
protected:
    void SetUp() override;
    void TearDown() override;

    /**
     * Requests a picture into a pixmap of 3 by 3, which stays when none is delivered.
     * @return "result found_name WIDTHxHEIGHT"
     */
    std::string answer(const std::string& id, const std::string& suffix = "", int width = 0, int height = 0);
    int register_image(const std::string& id, std::string bytes);

    image_manager* manager_ = nullptr;
    QPixmap pixmap_; ///< of the last request
};

#endif
