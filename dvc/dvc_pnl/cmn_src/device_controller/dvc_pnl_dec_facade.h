#ifndef DVC_PNL_DEC_FACADE_H
#define DVC_PNL_DEC_FACADE_H

#include "dvc_pnl_dec_types.h"
#include "dvc_pnl_export.h"
#include "message_layer.h"
#include "osw.h"

#include <atomic>

namespace velarion {

class dvc_pnl_dec_key_event_observer;

/**
 * The user interface's entry point to the hardware of the operation panel.
 *
 * Five operations send a request to the panel device service and wait for its reply: those of the LEDs
 * and dvc_pnl_dec_add_key_observer(). They block the calling thread while the service is not ready, at
 * most for 1024 pauses of 300 platform time units, and then until it answers. Their result is the
 * result code of the service's reply, or -1 when there was none. Values are sent unchecked and no state
 * is kept: the service decides. Requests need no heap memory.
 *
 * All other operations accept their arguments and do nothing; references to results are left alone.
 *
 * Any thread may call any operation; what becomes of simultaneous requests is the message layer's.
 */
class DVC_PNL_EXPORT dvc_pnl_dec_facade : public facade_template {
public:
    /**
     * Gives the one facade of the process and creates it at the first call, whichever thread makes it.
     * @return the facade, owned by the class and never destroyed
     */
    static dvc_pnl_dec_facade* dvc_pnl_dec_get_instance();

    dvc_pnl_dec_facade(const dvc_pnl_dec_facade&) = delete;
    dvc_pnl_dec_facade& operator=(const dvc_pnl_dec_facade&) = delete;

    /** No effect. @return 0 */
    int initialize();

    /** No effect; those with a result return 0. */
    void dvc_pnl_dec_set_lcd_on();
    void dvc_pnl_dec_set_lcd_off();
    int dvc_pnl_dec_set_lcd_status(DVC_PNL_DEC_BRIGHT_STATUS status);
    int dvc_pnl_dec_lcd_pm_mode_ctrl(DVC_PNL_DEC_PM_MODE mode);
    int dvc_pnl_dec_get_lcd_display_capture(unsigned char*& data, int& size);

    /** Sets one LED. @return the service's result code, or -1 */
    int dvc_pnl_dec_set_led_status(DVC_PNL_DEC_LED_ID led_id, DVC_PNL_DEC_LED_STATUS_ID status_id);
    /** Sets all LEDs on. @return the service's result code, or -1 */
    int dvc_pnl_dec_set_all_led_on();
    /** Sets all LEDs off. @return the service's result code, or -1 */
    int dvc_pnl_dec_set_all_led_off();
    /**
     * Runs the timer procedure of the print service's LED; a failure leaves no sign.
     *
     * @param timer  its first four bytes are sent; stays the caller's
     * @param value_1,value_2,value_3,value_4  the procedure's own numbers
     */
    void dvc_pnl_dec_set_led_airprint_timer_proc(OSW_Timer_Control& timer, int value_1, int value_2,
                                                 int value_3, int value_4);

    /** No effect. @return 0 */
    int dvc_pnl_dec_set_buzzer_control(DVC_PNL_DEC_BUZZER_PATTERN pattern, int value);
    int dvc_pnl_dec_set_buzzer_priority_control(DVC_PNL_DEC_BUZZER_PATTERN pattern);
    int dvc_pnl_dec_set_buzzer_pattern_enable(DVC_PNL_DEC_BUZZER_PATTERN pattern);
    int dvc_pnl_dec_set_buzzer_pattern_disable(DVC_PNL_DEC_BUZZER_PATTERN pattern);
    int dvc_pnl_dec_set_buzzer_kind_enable(DVC_PNL_DEC_BUZZER_KIND kind);
    int dvc_pnl_dec_set_buzzer_kind_disable(DVC_PNL_DEC_BUZZER_KIND kind);
    int dvc_pnl_dec_set_buzzer_kind_volume(int volume, DVC_PNL_DEC_BUZZER_KIND kind);
    int dvc_pnl_dec_set_fax_volume(int volume);
    int dvc_pnl_dec_get_buzzer_status(DVC_PNL_DEC_BUZZER_PATTERN pattern, int& status);
    int dvc_pnl_dec_stop_buzzer_type_ringer();
    int dvc_pnl_dec_set_buzzer_control_off(DVC_PNL_DEC_BUZZER_PATTERN pattern);

    /**
     * Registers an observer of key events with the service, once for every call. There is no way to
     * withdraw it: the service forgets the observers of a process that ends.
     *
     * @param observer  known to the service by the low 32 bits of its address; not examined, so null
     *                  is registered as 0; stays the caller's
     * @return the service's result code, or -1
     */
    int dvc_pnl_dec_add_key_observer(dvc_pnl_dec_key_event_observer* observer);

    /** No effect. @return 0 */
    int dvc_pnl_dec_pnlcmd_ctrl_wait_err(unsigned char& error, unsigned long time);

    /** No effect: there is no remote panel. @return -1 */
    int dvc_pnl_dec_request_remote_panel_connection(DVC_PNL_DEC_RP_CONNECT_MODE mode);
    int dvc_pnl_dec_set_remote_panel_operation_lock(DVC_PNL_DEC_RP_OPERATION_MODE mode);

    /**
     * Sends a request once the service is ready and waits for the reply.
     *
     * @param func_id   not used: the function id is read from the request
     * @param send_buf  the request, at least a whole header, at any alignment
     * @param send_len  bytes of the request
     * @param rcv_buf   receives the reply; unchanged when -1 is returned or the sending fails
     * @param rcv_len   capacity of @p rcv_buf in bytes on entry; the reply's length on return, as the
     *                  message layer gives it
     * @return 0 when the request was handed to the message layer, even if that failed to deliver it;
     *         -1 when the service did not become ready
     */
    int notify(long func_id, char* send_buf, unsigned int send_len, char* rcv_buf, unsigned int* rcv_len);

    /** Receives what the platform has for the facade. No effect. */
    void dispatch(long func_id, char* rcv_buf, unsigned int rcv_buflen, gen_ipc_msghdr header) override;

protected:
    dvc_pnl_dec_facade();
    ~dvc_pnl_dec_facade() override;

private:
    static OSW_Mutex_Semaphore& get_instance_mutex();

    static std::atomic<dvc_pnl_dec_facade*> instance_;
    static std::atomic<OSW_Mutex_Semaphore*> instance_mtx_;

    bmc_mc_client* client_;
};

} // namespace velarion

#endif
