#ifndef MESSAGE_LAYER_H
#define MESSAGE_LAYER_H

#include "panel_platform_export.h"

/** Header that the message layer puts before a message; its contents are the platform's own. */
struct gen_ipc_msghdr {
    unsigned char bytes[72];
};

namespace velarion {

/** Base of whatever receives messages. */
class PANEL_PLATFORM_EXPORT facade_template {
public:
    facade_template();
    virtual ~facade_template();

    /** Called by the platform with a message of @p rcv_buflen bytes, which stay the platform's. */
    virtual void dispatch(long func_id, char* rcv_buf, unsigned int rcv_buflen, gen_ipc_msghdr header);
};

/** Sends messages to a service of another process. */
class PANEL_PLATFORM_EXPORT bmc_mc_client {
public:
    bmc_mc_client();
    ~bmc_mc_client();

    /** @return non-zero when the named service is ready to take messages */
    static long bmc_mc_check_facade(const char* name, long mode);

    /**
     * Sends a request and waits for its reply.
     *
     * @param rcv_len  capacity of @p rcv_buf in bytes on entry, the reply's length on return
     * @return 0 on success; @p rcv_buf is unchanged otherwise
     */
    long bmc_mc_send_sync_message(long mode, long func_id, char* send_buf, unsigned int send_len,
                                  char* rcv_buf, unsigned int* rcv_len, const char* name);
};

} // namespace velarion

#endif
