#include "dvc_pnl_dec_facade.h"

#include "dvc_pnl_dec_communication.h"
#include "dvc_pnl_dec_key_event_observer.h"
#include "dvc_pnl_dec_serialize.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace velarion {

namespace {

constexpr int READINESS_CHECKS = 1024;
constexpr unsigned long READINESS_PAUSE = 300; // platform time units
constexpr long CHECK_MODE = 1;
constexpr long SEND_MODE = 1;
constexpr int FREE_MUTEX = 1;
constexpr int RESULT_OK = 0;
constexpr int RESULT_NONE = -1;

static_assert(sizeof(int) == sizeof(std::int32_t), "an argument fills the value of a record");
static_assert(sizeof(OSW_Timer_Control) >= sizeof(std::int32_t),
              "a timer control fills the value of a record");

struct request_parameter {
    DVC_PNL_DEC_COMMUNICATION_PARAMETER_ID id;
    void* value;
};

bool wait_for_service() {
    for (int check = 0; check < READINESS_CHECKS; ++check) {
        if (bmc_mc_client::bmc_mc_check_facade(DVC_PNL_DEC_SERVICE_NAME, CHECK_MODE) != 0) {
            return true;
        }
        emwOSWSleep(READINESS_PAUSE);
    }
    return false;
}

/** @return the service's result code; RESULT_NONE without a reply */
template <std::size_t COUNT>
int send_request(dvc_pnl_dec_facade& facade, DVC_PNL_DEC_FUNCTION_ID func_id,
                 const std::array<request_parameter, COUNT>& parameters) {
    dvc_pnl_dec_serialize serializer;
    int length = static_cast<int>(DVC_PNL_DEC_HEADER_LENGTH);
    for (const request_parameter& parameter : parameters) {
        serializer.serialize(parameter.id, parameter.value, nullptr, length);
    }
    std::array<char, DVC_PNL_DEC_HEADER_LENGTH + COUNT * DVC_PNL_DEC_RECORD_LENGTH> request{};
    dvc_pnl_dec_store(&request[DVC_PNL_DEC_FUNC_ID_OFFSET], func_id);
    int offset = 0;
    for (const request_parameter& parameter : parameters) {
        serializer.serialize(parameter.id, parameter.value,
                             request.data() + DVC_PNL_DEC_PARAMETERS_OFFSET + offset, offset);
    }
    dvc_pnl_dec_store(&request[DVC_PNL_DEC_PCNT_OFFSET], serializer.get_serialize_cnt());

    std::array<char, DVC_PNL_DEC_HEADER_LENGTH> reply{};
    dvc_pnl_dec_store(&reply[DVC_PNL_DEC_RESULT_OFFSET], RESULT_NONE);
    unsigned int reply_length = static_cast<unsigned int>(reply.size());
    facade.notify(func_id, request.data(), static_cast<unsigned int>(length), reply.data(), &reply_length);
    return dvc_pnl_dec_load(&reply[DVC_PNL_DEC_RESULT_OFFSET]);
}

} // namespace

std::atomic<dvc_pnl_dec_facade*> dvc_pnl_dec_facade::instance_{nullptr};
std::atomic<OSW_Mutex_Semaphore*> dvc_pnl_dec_facade::instance_mtx_{nullptr};

dvc_pnl_dec_facade* dvc_pnl_dec_facade::dvc_pnl_dec_get_instance() {
    dvc_pnl_dec_facade* instance = instance_.load(std::memory_order_acquire);
    if (instance) {
        return instance;
    }
    const OSW_Guard guard(get_instance_mutex());
    instance = instance_.load(std::memory_order_relaxed);
    if (!instance) {
        instance = new dvc_pnl_dec_facade;
        instance_.store(instance, std::memory_order_release);
    }
    return instance;
}

OSW_Mutex_Semaphore& dvc_pnl_dec_facade::get_instance_mutex() {
    OSW_Mutex_Semaphore* mutex = instance_mtx_.load(std::memory_order_acquire);
    if (mutex) {
        return *mutex;
    }
    const OSW_Thread_Guard guard;
    mutex = instance_mtx_.load(std::memory_order_relaxed);
    if (!mutex) {
        mutex = new OSW_Mutex_Semaphore(FREE_MUTEX);
        instance_mtx_.store(mutex, std::memory_order_release);
    }
    return *mutex;
}

dvc_pnl_dec_facade::dvc_pnl_dec_facade()
    : client_(nullptr) {
    client_ = new bmc_mc_client;
}

dvc_pnl_dec_facade::~dvc_pnl_dec_facade() {
    delete client_;
}

int dvc_pnl_dec_facade::initialize() {
    return RESULT_OK;
}

void dvc_pnl_dec_facade::dvc_pnl_dec_set_lcd_on() {}

void dvc_pnl_dec_facade::dvc_pnl_dec_set_lcd_off() {}

int dvc_pnl_dec_facade::dvc_pnl_dec_set_lcd_status(DVC_PNL_DEC_BRIGHT_STATUS) {
    return RESULT_OK;
}

int dvc_pnl_dec_facade::dvc_pnl_dec_lcd_pm_mode_ctrl(DVC_PNL_DEC_PM_MODE) {
    return RESULT_OK;
}

int dvc_pnl_dec_facade::dvc_pnl_dec_get_lcd_display_capture(unsigned char*&, int&) {
    return RESULT_OK;
}

int dvc_pnl_dec_facade::dvc_pnl_dec_set_led_status(DVC_PNL_DEC_LED_ID led_id,
                                                   DVC_PNL_DEC_LED_STATUS_ID status_id) {
    const std::array<request_parameter, 2> parameters{
        {{DVC_PNL_DEC_PARAMETER_ID, &led_id}, {DVC_PNL_DEC_PARAMETER_STATUS, &status_id}}};
    return send_request(*this, DVC_PNL_DEC_FUNCTION_SET_LED_STATUS, parameters);
}

int dvc_pnl_dec_facade::dvc_pnl_dec_set_all_led_on() {
    return send_request(*this, DVC_PNL_DEC_FUNCTION_SET_ALL_LED_ON, std::array<request_parameter, 0>{});
}

int dvc_pnl_dec_facade::dvc_pnl_dec_set_all_led_off() {
    return send_request(*this, DVC_PNL_DEC_FUNCTION_SET_ALL_LED_OFF, std::array<request_parameter, 0>{});
}

void dvc_pnl_dec_facade::dvc_pnl_dec_set_led_airprint_timer_proc(OSW_Timer_Control& timer, int value_1,
                                                                 int value_2, int value_3, int value_4) {
    const std::array<request_parameter, 5> parameters{{{DVC_PNL_DEC_PARAMETER_TIMER, &timer},
                                                       {DVC_PNL_DEC_PARAMETER_TIMER_VALUE_1, &value_1},
                                                       {DVC_PNL_DEC_PARAMETER_TIMER_VALUE_2, &value_2},
                                                       {DVC_PNL_DEC_PARAMETER_TIMER_VALUE_3, &value_3},
                                                       {DVC_PNL_DEC_PARAMETER_TIMER_VALUE_4, &value_4}}};
    send_request(*this, DVC_PNL_DEC_FUNCTION_SET_LED_AIRPRINT_TIMER_PROC, parameters);
}

int dvc_pnl_dec_facade::dvc_pnl_dec_set_buzzer_control(DVC_PNL_DEC_BUZZER_PATTERN, int) {
    return RESULT_OK;
}

int dvc_pnl_dec_facade::dvc_pnl_dec_set_buzzer_priority_control(DVC_PNL_DEC_BUZZER_PATTERN) {
    return RESULT_OK;
}

int dvc_pnl_dec_facade::dvc_pnl_dec_set_buzzer_pattern_enable(DVC_PNL_DEC_BUZZER_PATTERN) {
    return RESULT_OK;
}

int dvc_pnl_dec_facade::dvc_pnl_dec_set_buzzer_pattern_disable(DVC_PNL_DEC_BUZZER_PATTERN) {
    return RESULT_OK;
}

int dvc_pnl_dec_facade::dvc_pnl_dec_set_buzzer_kind_enable(DVC_PNL_DEC_BUZZER_KIND) {
    return RESULT_OK;
}

int dvc_pnl_dec_facade::dvc_pnl_dec_set_buzzer_kind_disable(DVC_PNL_DEC_BUZZER_KIND) {
    return RESULT_OK;
}

int dvc_pnl_dec_facade::dvc_pnl_dec_set_buzzer_kind_volume(int, DVC_PNL_DEC_BUZZER_KIND) {
    return RESULT_OK;
}

int dvc_pnl_dec_facade::dvc_pnl_dec_set_fax_volume(int) {
    return RESULT_OK;
}

int dvc_pnl_dec_facade::dvc_pnl_dec_get_buzzer_status(DVC_PNL_DEC_BUZZER_PATTERN, int&) {
    return RESULT_OK;
}

int dvc_pnl_dec_facade::dvc_pnl_dec_stop_buzzer_type_ringer() {
    return RESULT_OK;
}

int dvc_pnl_dec_facade::dvc_pnl_dec_set_buzzer_control_off(DVC_PNL_DEC_BUZZER_PATTERN) {
    return RESULT_OK;
}

int dvc_pnl_dec_facade::dvc_pnl_dec_add_key_observer(dvc_pnl_dec_key_event_observer* observer) {
    std::uint32_t number = dvc_pnl_dec_observer_number(observer);
    const std::array<request_parameter, 1> parameters{{{DVC_PNL_DEC_PARAMETER_OBSERVER, &number}}};
    return send_request(*this, DVC_PNL_DEC_FUNCTION_ADD_KEY_OBSERVER, parameters);
}

int dvc_pnl_dec_facade::dvc_pnl_dec_pnlcmd_ctrl_wait_err(unsigned char&, unsigned long) {
    return RESULT_OK;
}

int dvc_pnl_dec_facade::dvc_pnl_dec_request_remote_panel_connection(DVC_PNL_DEC_RP_CONNECT_MODE) {
    return RESULT_NONE;
}

int dvc_pnl_dec_facade::dvc_pnl_dec_set_remote_panel_operation_lock(DVC_PNL_DEC_RP_OPERATION_MODE) {
    return RESULT_NONE;
}

int dvc_pnl_dec_facade::notify(long, char* send_buf, unsigned int send_len, char* rcv_buf,
                               unsigned int* rcv_len) {
    if (!client_ || !wait_for_service()) {
        return RESULT_NONE;
    }
    client_->bmc_mc_send_sync_message(SEND_MODE, dvc_pnl_dec_load(send_buf + DVC_PNL_DEC_FUNC_ID_OFFSET),
                                      send_buf, send_len, rcv_buf, rcv_len, DVC_PNL_DEC_SERVICE_NAME);
    return RESULT_OK;
}

void dvc_pnl_dec_facade::dispatch(long, char*, unsigned int, gen_ipc_msghdr) {}

} // namespace velarion
