#ifndef SETTINGS_STORE_H
#define SETTINGS_STORE_H

#include "panel_platform_export.h"

#include <cstdint>

/** Size in bytes, with the terminating NUL, of the longest text of ent_set_getmessage(). */
constexpr int ENT_SET_MESSAGE_SIZE = 108;

extern "C" {

/**
 * Reads one device setting. On a workstation a known setting that is not stored, or that a damaged store
 * hides, has its default value; nothing waits for a process that changes settings. Any thread.
 *
 * @param value  receives the item in the item's own width (unsigned 8, 16 or 32 bits) and the
 *               processor's byte order; unchanged on failure
 * @return 0 on success, otherwise a platform code
 */
PANEL_PLATFORM_EXPORT int ent_set_get_status(std::uint32_t group, std::uint32_t item, void* value);

/**
 * Reads one attribute of a language. Any thread.
 *
 * @param text  buffer of ENT_SET_MESSAGE_SIZE bytes; receives a NUL-terminated text; unchanged on failure
 * @return 0 on success, otherwise a platform code
 */
PANEL_PLATFORM_EXPORT int ent_set_getmessage(int language_id, int attribute, char* text);
}

#endif
