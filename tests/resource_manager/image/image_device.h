#ifndef IMAGE_DEVICE_H
#define IMAGE_DEVICE_H

#include "dvc_pnl_rmg_image_resource_manager.h"
#include "scratch_tree.h"

#include <QPixmap>

#include <string>

using image_manager = velarion::dvc_pnl_rmg_image_resource_manager;

extern const std::string IMAGES; ///< the image directory
extern const std::string SHEETS; ///< the sheet extension directory

/** An SVG document of that natural size, filled to its middle. */
std::string svg_picture(int width, int height);
/** A PNG file of that size, of one colour. */
std::string png_picture(int width, int height, Qt::GlobalColor colour = Qt::red);

/** A delivered picture and what came with it. */
struct image_answer {
    int result;
    std::string found_name;
    QPixmap pixmap;
};

/** A device without any picture, and an image resource manager for it. */
class image_device : public scratch_tree {
protected:
    void SetUp() override;
    void TearDown() override;

    /** Requests a picture into a pixmap of 3 by 3, which stays when none is delivered. */
    image_answer request(const std::string& id, const std::string& suffix = "", int width = 0,
                         int height = 0);
    /** "result found_name WIDTHxHEIGHT" of a request. */
    std::string answer(const std::string& id, const std::string& suffix = "", int width = 0, int height = 0);
    int register_image(const std::string& id, std::string bytes);
    /** The file name of the current image element; "99999" is in no table. */
    std::string current_file();

    image_manager* manager_ = nullptr;
};

#endif
