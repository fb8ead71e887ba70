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

    /**
     * Called by the platform, on a thread of the platform, with each message that it receives. Does nothing
     * here.
     *
     * @param func_id     what the message says
     * @param rcv_buf     the message, header included: @p rcv_buflen bytes, which stay the platform's and are
     *                    valid until the call returns
     * @param header      the message layer's header of it
     */
    virtual void dispatch(long func_id, char* rcv_buf, unsigned int rcv_buflen, gen_ipc_msghdr header);
};

/** Sends messages to a service of another process. */
class PANEL_PLATFORM_EXPORT bmc_mc_client {
public:
    bmc_mc_client();
    ~bmc_mc_client();

    /**
     * Asks whether a service can be sent messages. Any thread. On a workstation the first check of a process
     * waits for a service that may be starting, 2.5 seconds at most; every later one answers at once. A
     * service that did not answer a request in time is not ready until something is heard from it.
     *
     * @param name  the service's name, ended by NUL
     * @param mode  1; means nothing on a workstation
     * @return non-zero when the named service is ready to take messages
     */
    static long bmc_mc_check_facade(const char* name, long mode);

    /**
     * Sends a request and waits for its reply, which carries the request's function id; on a workstation
     * three seconds at most, the requests of other threads before it included. Any thread.
     *
     * @param mode      1; means nothing on a workstation
     * @param func_id   what is asked, in 32 bits
     * @param send_buf  the request; its first 72 bytes are room for the message layer's header and not read
     * @param send_len  bytes of it, 72 at least
     * @param rcv_buf   receives the reply, header included; unchanged on failure
     * @param rcv_len   capacity of @p rcv_buf in bytes on entry; the reply's length on return, 0 on failure
     * @param name      the service's name, ended by NUL
     * @return 0, or a platform code: the arguments were refused, the service is not ready, it did not answer,
     *         it went away, or its reply is none or too long
     */
    long bmc_mc_send_sync_message(long mode, long func_id, char* send_buf, unsigned int send_len,
                                  char* rcv_buf, unsigned int* rcv_len, const char* name);
};

} // namespace velarion

#endif
