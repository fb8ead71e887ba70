#ifndef LANGUAGE_DEVICE_H
#define LANGUAGE_DEVICE_H

#include "dvc_pnl_rmg_language_resource.h"
#include "dvc_pnl_rmg_setting_id.h"
#include "scratch_tree.h"

#include <cstdint>

using resource = velarion::dvc_pnl_rmg_language_resource;

/** A device without settings and packs; the language resource is gone when a test ends. */
class language_device : public scratch_tree {
protected:
    void TearDown() override;

    static resource& create() { return *resource::dvc_pnl_rmg_create_instance(); }

    void set_item(std::uint32_t item, std::uint32_t value, int width = 16) {
        platform_.set_setting(velarion::SETTING_GROUP, item, width, value);
    }
    /** @param slot  1 to 5 */
    void set_slot(int slot, std::uint16_t language_id);
    /** Installs a pack that has a text for row 2 and the font family "Pack Sans", and null for all else. */
    void install_pack(int language_id);
};

/** The text of row 2 in every pack of install_pack(). */
extern const char PACK_TEXT[];

#endif
