#ifndef DVC_PNL_RMG_SETTING_ID_H
#define DVC_PNL_RMG_SETTING_ID_H

#include <cstdint>

namespace velarion {

/**
 * The device settings of the language resource, constants for any thread. The slots of option languages are
 * dvc_pnl_rmg_option_language_attribute_manager::OPTION_LANGUAGE_MEMBER.
 */

/** Group of all device settings that the library reads. */
constexpr std::uint32_t SETTING_GROUP = 0x04050300;

/** The machine's panel language id, 16-bit unsigned; may be LANGUAGE_ID_OPTION. */
constexpr std::uint32_t SETTING_PANEL_LANGUAGE = 0x8500AB20;
/** The option language in use while the panel language is LANGUAGE_ID_OPTION, 16-bit unsigned. */
constexpr std::uint32_t SETTING_PANEL_OPTION_LANGUAGE = 0x85024328;
/** The destination code of the machine, 8-bit unsigned. */
constexpr std::uint32_t SETTING_DESTINATION = 0x85005350;

} // namespace velarion

#endif
