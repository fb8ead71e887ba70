#include "ipc_header.h"

#include <cstring>

namespace velarion {

namespace {

constexpr std::uint32_t MAGIC = 0x50445331; // "PDS1"

/** The header as it lies in the message. */
struct ipc_layout {
    std::uint32_t magic;
    std::uint32_t kind;
    std::uint32_t length;
    std::uint32_t sequence;
    std::int32_t func_id;
    std::uint32_t destination;
    std::uint64_t host;
    unsigned char unused[40];
};
static_assert(sizeof(ipc_layout) == IPC_HEADER_LENGTH, "the layout fills the header");

} // namespace

void write_ipc_header(const ipc_header& header, void* message) {
    ipc_layout layout = {};
    layout.magic = MAGIC;
    layout.kind = header.kind;
    layout.length = header.length;
    layout.sequence = header.sequence;
    layout.func_id = header.func_id;
    layout.destination = header.destination;
    layout.host = header.host;
    std::memcpy(message, &layout, sizeof layout);
}

bool read_ipc_header(const void* message, std::size_t length, ipc_header& header) {
    ipc_layout layout = {};
    if (length < sizeof layout || length > IPC_LONGEST_MESSAGE) {
        return false;
    }
    std::memcpy(&layout, message, sizeof layout);
    if (layout.magic != MAGIC || layout.length != length || layout.kind < IPC_REQUEST ||
        layout.kind > IPC_PROBE) {
        return false;
    }
    header.kind = static_cast<ipc_kind>(layout.kind);
    header.length = layout.length;
    header.sequence = layout.sequence;
    header.func_id = layout.func_id;
    header.destination = layout.destination;
    header.host = layout.host;
    return true;
}

} // namespace velarion
