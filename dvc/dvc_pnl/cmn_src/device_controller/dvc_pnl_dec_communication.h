#ifndef DVC_PNL_DEC_COMMUNICATION_H
#define DVC_PNL_DEC_COMMUNICATION_H

#include "message_layer.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace velarion {

/**
 * The messages between the user interface and the panel device service.
 *
 * A message is a header and the parameter records behind it, all in the processor's byte order. The
 * records begin inside the header, at its last four bytes, and follow one another without gaps; a
 * request nevertheless counts the header in full, so that its last four bytes carry nothing. The functions
 * below work on the caller's bytes alone: any thread.
 */

/** Name under which the message layer finds the panel device service. */
inline constexpr char DVC_PNL_DEC_SERVICE_NAME[] = "DVO_DVC_PNL_SRV";

/** Header of every request, reply and notification. */
struct DVC_PNL_DEC_OBSERVER_COMMUNICATION_HEADER {
    gen_ipc_msghdr ipc_header;   ///< the message layer's
    std::int32_t func_id;        ///< DVC_PNL_DEC_FUNCTION_ID
    std::int32_t pcnt;           ///< number of parameter records; 0 in a reply to the library
    std::int32_t result;         ///< in a reply: the service's result code, 0 for success
    unsigned char parameters[4]; ///< first bytes of the first parameter record
};

/** What a message asks or tells. */
enum DVC_PNL_DEC_FUNCTION_ID : std::int32_t {
    DVC_PNL_DEC_FUNCTION_SET_LED_STATUS = 101,
    DVC_PNL_DEC_FUNCTION_SET_ALL_LED_ON = 103,
    DVC_PNL_DEC_FUNCTION_SET_ALL_LED_OFF = 104,
    DVC_PNL_DEC_FUNCTION_SET_LED_AIRPRINT_TIMER_PROC = 108,
    DVC_PNL_DEC_FUNCTION_ADD_KEY_OBSERVER = 109,
    DVC_PNL_DEC_FUNCTION_NOTIFY_KEY_EVENT = 110 ///< service to observer; has no reply
};

/** What the value of a parameter record is. */
enum DVC_PNL_DEC_COMMUNICATION_PARAMETER_ID : std::int32_t {
    DVC_PNL_DEC_PARAMETER_ID = 0,     ///< a DVC_PNL_DEC_LED_ID; in a notification the key's id
    DVC_PNL_DEC_PARAMETER_STATUS = 1, ///< a DVC_PNL_DEC_LED_STATUS_ID or a DVC_PNL_DEC_KEY_STATUS
    DVC_PNL_DEC_PARAMETER_TIMER = 4,  ///< first four bytes of a timer control
    DVC_PNL_DEC_PARAMETER_TIMER_VALUE_1 = 5,
    DVC_PNL_DEC_PARAMETER_TIMER_VALUE_2 = 6,
    DVC_PNL_DEC_PARAMETER_TIMER_VALUE_3 = 7,
    DVC_PNL_DEC_PARAMETER_TIMER_VALUE_4 = 8,
    DVC_PNL_DEC_PARAMETER_OBSERVER = 9 ///< low 32 bits of an observer's address, as a number
};

/** What happened to a key; a notification without status means the key was pressed. */
enum DVC_PNL_DEC_KEY_STATUS : std::int32_t { DVC_PNL_DEC_KEY_RELEASED = 0, DVC_PNL_DEC_KEY_PRESSED = 1 };

/** Sizes and places in bytes, counted from the start of a message or of a parameter record. */
inline constexpr std::size_t DVC_PNL_DEC_HEADER_LENGTH = sizeof(DVC_PNL_DEC_OBSERVER_COMMUNICATION_HEADER);
inline constexpr std::size_t DVC_PNL_DEC_FUNC_ID_OFFSET =
    offsetof(DVC_PNL_DEC_OBSERVER_COMMUNICATION_HEADER, func_id);
inline constexpr std::size_t DVC_PNL_DEC_PCNT_OFFSET =
    offsetof(DVC_PNL_DEC_OBSERVER_COMMUNICATION_HEADER, pcnt);
inline constexpr std::size_t DVC_PNL_DEC_RESULT_OFFSET =
    offsetof(DVC_PNL_DEC_OBSERVER_COMMUNICATION_HEADER, result);
inline constexpr std::size_t DVC_PNL_DEC_PARAMETERS_OFFSET =
    offsetof(DVC_PNL_DEC_OBSERVER_COMMUNICATION_HEADER, parameters);
inline constexpr std::size_t DVC_PNL_DEC_RECORD_LENGTH = 8;
inline constexpr std::size_t DVC_PNL_DEC_RECORD_VALUE_OFFSET = 4;

static_assert(DVC_PNL_DEC_HEADER_LENGTH == 88, "the service counts on this header length");
static_assert(DVC_PNL_DEC_FUNC_ID_OFFSET == 72 && DVC_PNL_DEC_PCNT_OFFSET == 76 &&
                  DVC_PNL_DEC_RESULT_OFFSET == 80 && DVC_PNL_DEC_PARAMETERS_OFFSET == 84,
              "the service counts on these places");

/** Reads a 32-bit field. @param bytes  four bytes at any alignment */
inline std::int32_t dvc_pnl_dec_load(const void* bytes) {
    std::int32_t value = 0;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

/** Writes a 32-bit field. @param bytes  room for four bytes at any alignment */
inline void dvc_pnl_dec_store(void* bytes, std::int32_t value) {
    std::memcpy(bytes, &value, sizeof value);
}

/** @return the number by which the service knows an observer: the low 32 bits of its address */
inline std::uint32_t dvc_pnl_dec_observer_number(const void* observer) {
    return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(observer));
}

/**
 * Tells whether a received message may be given to dvc_pnl_dec_serialize::decode(), which trusts the
 * message's own count.
 *
 * @param message  at any alignment; may be null when @p length is 0
 * @param length   bytes received
 * @return whether the header and as many whole records as it announces are there; false for a
 *         negative count
 */
inline bool dvc_pnl_dec_is_complete(const void* message, std::size_t length) {
    if (length < DVC_PNL_DEC_HEADER_LENGTH) {
        return false;
    }
    const std::int32_t count =
        dvc_pnl_dec_load(static_cast<const unsigned char*>(message) + DVC_PNL_DEC_PCNT_OFFSET);
    const std::size_t room = (length - DVC_PNL_DEC_PARAMETERS_OFFSET) / DVC_PNL_DEC_RECORD_LENGTH;
    return count >= 0 && static_cast<std::size_t>(count) <= room;
}

} // namespace velarion

#endif
