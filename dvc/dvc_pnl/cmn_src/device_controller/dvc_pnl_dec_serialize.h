#ifndef DVC_PNL_DEC_SERIALIZE_H
#define DVC_PNL_DEC_SERIALIZE_H

#include "dvc_pnl_dec_communication.h"
#include "dvc_pnl_export.h"
#include "osw.h"

#include <cstdint>

namespace velarion {

/**
 * Writes the parameter records of a request and reads those of a notification.
 *
 * A short-lived object, one for each message; the message's bytes stay the caller's and may have any
 * alignment. It allocates nothing and reports no errors. Not to be shared between threads.
 */
class DVC_PNL_EXPORT dvc_pnl_dec_serialize {
public:
    /** Holds a timer control of the platform until it is destroyed. */
    dvc_pnl_dec_serialize();
    ~dvc_pnl_dec_serialize();
    dvc_pnl_dec_serialize(const dvc_pnl_dec_serialize&) = delete;
    dvc_pnl_dec_serialize& operator=(const dvc_pnl_dec_serialize&) = delete;

    /**
     * Writes one parameter record, or measures it.
     *
     * @param id     written as it is
     * @param value  the first four bytes of what it points to are the record's value; not read when
     *               @p dst is null
     * @param dst    room for 8 bytes; null: nothing is written or counted
     * @param size   grows by 8 bytes
     */
    void serialize(DVC_PNL_DEC_COMMUNICATION_PARAMETER_ID id, void* value, void* dst, int& size);

    /**
     * Reads one parameter record, whatever its id.
     *
     * @param dst     receives the value's four bytes; may lie in the record
     * @param record  8 bytes
     * @param size    grows by 8 bytes
     * @return the record's parameter id
     */
    int deserialize(void* dst, void* record, int& size);

    /**
     * Reads the records of a notification into decoded_id and decoded_status, up to the first record
     * with another parameter id; of several records with one id the last counts.
     *
     * @param head  a whole message: as many records as its header announces are read behind it, so
     *              check what was received with dvc_pnl_dec_is_complete() first
     * @return 8 when every record was read; 0 when there is none or one has another id, and then the
     *         fields hold what the records before it gave
     */
    int decode(DVC_PNL_DEC_OBSERVER_COMMUNICATION_HEADER* head);

    /** @return number of records written so far; decode() leaves it alone */
    int get_serialize_cnt();

private:
    std::int32_t unused_head_; // 0, like unused_tail_: no parameter fills them

public:
    std::int32_t decoded_id;     ///< value of parameter 0 after decode(); 1 without one
    std::int32_t decoded_status; ///< value of parameter 1 after decode(); 1 without one

private:
    void reset_decoded();
    void decode_record(char* record, int& size);

    OSW_Timer_Control timer_control_;
    std::int32_t unused_tail_[5];
    std::int32_t serialize_cnt_;
};

} // namespace velarion

#endif
