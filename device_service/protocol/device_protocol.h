#ifndef DEVICE_PROTOCOL_H
#define DEVICE_PROTOCOL_H

#include <cstdint>

/**
 * What the panel device service understands and tells beyond the functions of the operation panel's
 * library (dvc_pnl_dec_communication.h). All of it travels in the same message layout; the records of
 * the messages below have the ids 0, 1, 2, ... in the order given. See docs/device-service.md.
 */
namespace velarion {

/** Result codes of the service's replies. The numbers are fixed. */
enum device_result : std::int32_t {
    DEVICE_OK = 0,
    DEVICE_BAD_LENGTH = 1,       ///< a length that does not agree with the number of records
    DEVICE_BAD_COUNT = 2,        ///< a number of records that is negative or wrong for the function
    DEVICE_UNKNOWN_FUNCTION = 3, ///< or one that differs between the two headers
    DEVICE_BAD_PARAMETER = 4,    ///< a parameter id that the function does not have at its place
    DEVICE_UNKNOWN_LED = 5,
    DEVICE_UNKNOWN_STATUS = 6, ///< of an LED or a key
    DEVICE_UNKNOWN_KEY = 7,
    DEVICE_BAD_VALUE = 8, ///< a time, a number of cycles or a fault that is out of range
    DEVICE_NO_TIMER = 9,  ///< to stop a timer procedure that does not run
    DEVICE_TOO_MANY_OBSERVERS = 10
};

/** Requests by which a person or a program drives the service. */
enum control_function : std::int32_t {
    CONTROL_LIST_LEDS = 1001, ///< reply: of each LED its number, status, whether it is lit
    CONTROL_KEY_EVENT = 1002, ///< key, key status; reply: number of observers told
    CONTROL_SET_FAULT = 1003, ///< fault_kind, its value, number of requests it is for (0: until changed)
    CONTROL_STATUS = 1004     ///< reply: the values of service_status_field
};

/** What a connection that watches is told. */
enum event_function : std::int32_t {
    EVENT_LED = 1101,       ///< LED, status, whether it is lit
    EVENT_LED_EDGE = 1102,  ///< the same, when a blinking LED turned on or off
    EVENT_KEY = 1103,       ///< key, key status, number of observers told
    EVENT_HOST_CAME = 1104, ///< connection, process
    EVENT_HOST_GONE = 1105, ///< connection, process
    EVENT_OBSERVER = 1106,  ///< connection, number of the observer
    EVENT_REFUSED = 1107,   ///< connection, function id, result code
    EVENT_FAULT = 1108      ///< connection, fault_kind that was applied to its request
};

/** What a connection attaches itself for; the destination of an IPC_ATTACH message. */
enum attach_interest : std::uint32_t {
    ATTACH_OWN = 0,             ///< key events for the observers of the same process
    ATTACH_EVENTS = 1,          ///< all events but the edges of blinking LEDs
    ATTACH_EVENTS_AND_EDGES = 2 ///< all events
};

/** Misbehaviour on purpose, for all requests but those of control_function; delay and drop for probes too. */
enum fault_kind : std::int32_t {
    FAULT_NONE = 0,
    FAULT_DELAY = 1,     ///< the reply comes after so many milliseconds
    FAULT_DROP = 2,      ///< the request is carried out, its reply is not sent
    FAULT_FAIL = 3,      ///< the request is not carried out; the value is the result code, 1 or more
    FAULT_CRASH = 4,     ///< the service ends as if killed when it receives the request
    FAULT_CRASH_NOW = 5, ///< the service ends as if killed, without answering this
    FAULT_KIND_COUNT = 6
};

/** Places of the values in the reply to CONTROL_STATUS. */
enum service_status_field : std::int32_t {
    STATUS_PROCESS = 0,
    STATUS_UPTIME = 1, ///< seconds
    STATUS_CONNECTIONS = 2,
    STATUS_OBSERVERS = 3,
    STATUS_REQUESTS = 4, ///< all but those of control_function, since the start
    STATUS_REFUSED = 5,  ///< of these, those that got a result code other than 0
    STATUS_FAULT = 6,    ///< fault_kind
    STATUS_FAULT_VALUE = 7,
    STATUS_FAULT_REQUESTS = 8, ///< requests it is still for; 0: until changed
    STATUS_FIELD_COUNT = 9
};

inline constexpr std::int32_t LED_COUNT = 8;
/** Status of an LED that a timer procedure drives; cannot be set. */
inline constexpr std::int32_t LED_STATUS_TIMER = 4;
/** Keys have the numbers 0 to 255. */
inline constexpr std::int32_t KEY_COUNT = 256;
inline constexpr std::int32_t LONGEST_DELAY = 60000; // milliseconds

} // namespace velarion

#endif
