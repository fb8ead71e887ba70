#include "dvc_pnl_dec_communication.h"
#include "panel_service.h"
#include "service_log.h"

#include <gtest/gtest.h>
#include <iterator>
#include <utility>

namespace {

using namespace velarion;

constexpr std::uint64_t HOST = 11;

/** The service without sockets: what it sends to each connection is kept. */
class test_panel_service : public testing::Test {
protected:
    test_panel_service()
        : service_([this](std::uint32_t connection,
                          std::vector<char> message) { sent_[connection].push_back(std::move(message)); },
                   0) {
        set_log_level(SERVICE_LOG_ERROR);
        for (std::uint32_t connection = 1; connection <= 3; ++connection) {
            service_.connected(connection, 1);
        }
        sent_.clear();
    }

    bool send(std::uint32_t connection, ipc_header header, const std::vector<char>& bytes,
              std::int64_t now = 0) {
        header.length = static_cast<std::uint32_t>(bytes.size());
        return service_.receive(connection, header, bytes.data(), now);
    }

    bool attach(std::uint32_t connection, std::uint64_t host, std::uint32_t interest = ATTACH_OWN) {
        ipc_header header;
        header.kind = IPC_ATTACH;
        header.destination = interest;
        header.host = host;
        return send(connection, header, std::vector<char>(IPC_HEADER_LENGTH));
    }

    /** Sends a request. @return the reply's result; -1: no reply was sent */
    std::int32_t ask(std::uint32_t connection, const std::vector<char>& bytes, std::int32_t func_id,
                     std::int64_t now = 0, std::uint64_t host = HOST) {
        ipc_header header;
        header.func_id = func_id;
        header.host = host;
        sent_[connection].clear();
        EXPECT_TRUE(send(connection, header, bytes, now));
        return result_of_reply(connection);
    }

    std::int32_t ask(std::uint32_t connection, const device_message& request, std::int64_t now = 0,
                     std::uint64_t host = HOST) {
        return ask(connection, encode_message(request, {}), request.func_id, now, host);
    }

    std::int32_t result_of_reply(std::uint32_t connection) {
        const std::vector<device_message> replies = messages_to(connection, IPC_REPLY);
        return replies.empty() ? -1 : replies[0].result;
    }

    std::vector<device_message> messages_to(std::uint32_t connection, ipc_kind kind) {
        std::vector<device_message> found;
        for (const std::vector<char>& bytes : sent_[connection]) {
            ipc_header header;
            device_message message;
            EXPECT_TRUE(read_ipc_header(bytes.data(), bytes.size(), header));
            EXPECT_EQ(decode_message(bytes.data(), bytes.size(), message), DEVICE_OK);
            if (header.kind == kind) {
                found.push_back(message);
            }
        }
        return found;
    }

    std::vector<std::int32_t> events_of(std::uint32_t connection) {
        std::vector<std::int32_t> events;
        for (const device_message& message : messages_to(connection, IPC_NOTIFICATION)) {
            events.push_back(message.func_id);
        }
        return events;
    }

    std::int32_t add_observer(std::uint32_t connection, std::int32_t number, std::uint64_t host = HOST) {
        const device_message request = {
            DVC_PNL_DEC_FUNCTION_ADD_KEY_OBSERVER, 0, {{DVC_PNL_DEC_PARAMETER_OBSERVER, number}}};
        return ask(connection, request, 0, host);
    }

    /** Lets another host press a key. @return observers told */
    std::int32_t press_key() {
        sent_.clear();
        const std::vector<std::int32_t> values = {5, DVC_PNL_DEC_KEY_PRESSED};
        EXPECT_EQ(ask(3, make_message(CONTROL_KEY_EVENT, values), 0, HOST + 1), DEVICE_OK);
        return messages_to(3, IPC_REPLY).at(0).records.at(0).value;
    }

    std::map<std::uint32_t, std::vector<std::vector<char>>> sent_;
    panel_service service_;
};

/** A request to run the timer procedure of the print-service LED. */
device_message timer_request(std::int32_t lit_time, std::int32_t dark_time, std::int32_t cycles,
                             std::int32_t end_status) {
    return {DVC_PNL_DEC_FUNCTION_SET_LED_AIRPRINT_TIMER_PROC,
            DEVICE_OK,
            {{4, 1}, {5, lit_time}, {6, dark_time}, {7, cycles}, {8, end_status}}};
}

TEST_F(test_panel_service, every_request_is_checked_before_it_is_believed) {
    ASSERT_TRUE(attach(2, HOST + 1, ATTACH_EVENTS));
    const struct {
        const char* name;
        device_message request;
        std::int32_t result;
    } rows[] = {
        {"no parameters", make_message(101, {}), DEVICE_BAD_COUNT},
        {"one too many", make_message(101, {1, 1, 1}), DEVICE_BAD_COUNT},
        {"parameters in the wrong order", {101, 0, {{1, 1}, {0, 1}}}, DEVICE_BAD_PARAMETER},
        {"LED before the first", make_message(101, {-1, 1}), DEVICE_UNKNOWN_LED},
        {"LED beyond the last", make_message(101, {8, 1}), DEVICE_UNKNOWN_LED},
        {"status before the first", make_message(101, {1, -1}), DEVICE_UNKNOWN_STATUS},
        {"status of the timer", make_message(101, {1, LED_STATUS_TIMER}), DEVICE_UNKNOWN_STATUS},
        {"function the panel does not send", make_message(102, {}), DEVICE_UNKNOWN_FUNCTION},
        {"notification as a request", make_message(110, {1, 1}), DEVICE_UNKNOWN_FUNCTION},
        {"lit too shortly", timer_request(9, 10, 1, 1), DEVICE_BAD_VALUE},
        {"dark too shortly", timer_request(10, 9, 1, 1), DEVICE_BAD_VALUE},
        {"lit too long", timer_request(60001, 10, 1, 1), DEVICE_BAD_VALUE},
        {"fewer than no cycles", timer_request(10, 10, -1, 1), DEVICE_BAD_VALUE},
        {"too many cycles", timer_request(10, 10, 1000001, 1), DEVICE_BAD_VALUE},
        {"timer that ends in a timer", timer_request(10, 10, 1, LED_STATUS_TIMER), DEVICE_UNKNOWN_STATUS},
        {"key beyond the last", make_message(CONTROL_KEY_EVENT, {256, 1}), DEVICE_UNKNOWN_KEY},
        {"key before the first", make_message(CONTROL_KEY_EVENT, {-1, 1}), DEVICE_UNKNOWN_KEY},
        {"key neither pressed nor released", make_message(CONTROL_KEY_EVENT, {1, 2}), DEVICE_UNKNOWN_STATUS},
        {"unknown fault", make_message(CONTROL_SET_FAULT, {6, 0, 0}), DEVICE_BAD_VALUE},
        {"delay before the request", make_message(CONTROL_SET_FAULT, {1, -1, 0}), DEVICE_BAD_VALUE},
        {"failure that is a success", make_message(CONTROL_SET_FAULT, {3, 0, 0}), DEVICE_BAD_VALUE},
        {"fault for fewer than no requests", make_message(CONTROL_SET_FAULT, {2, 0, -1}), DEVICE_BAD_VALUE},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(ask(1, row.request), row.result);
    }
    EXPECT_EQ(events_of(2), std::vector<std::int32_t>(std::size(rows), EVENT_REFUSED));
    EXPECT_EQ(service_.next_deadline(), -1);
}

TEST_F(test_panel_service, lengths_and_counts_that_lie_are_answered_with_a_code) {
    const struct {
        std::size_t length;
        std::int32_t count;
        std::int32_t result;
    } rows[] = {
        {72, 0, DEVICE_BAD_LENGTH},      // the message layer's header alone
        {87, 0, DEVICE_BAD_LENGTH},      // cut in its own header
        {88 + 12, 1, DEVICE_BAD_LENGTH}, // half a record
        {88, -1, DEVICE_BAD_COUNT},          {104, INT32_MIN, DEVICE_BAD_COUNT},
        {104, INT32_MAX, DEVICE_BAD_LENGTH}, {104, 1, DEVICE_BAD_LENGTH},          // too small
        {104, 3, DEVICE_BAD_LENGTH},         {104, 0x20000002, DEVICE_BAD_LENGTH}, // wraps to the length
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.count);
        std::vector<char> bytes = encode_message(make_message(101, {1, 1}), {});
        dvc_pnl_dec_store(&bytes[DVC_PNL_DEC_PCNT_OFFSET], row.count);
        bytes.resize(row.length);
        EXPECT_EQ(ask(1, bytes, 101), row.result);
    }
    EXPECT_EQ(ask(1, encode_message(make_message(103, {}), {}), 104), DEVICE_UNKNOWN_FUNCTION);
}

TEST_F(test_panel_service, connections_that_leave_the_protocol_are_closed) {
    ipc_header header;
    header.host = HOST;
    const std::vector<char> request = encode_message(make_message(103, {}), {});
    for (const ipc_kind kind : {IPC_REPLY, IPC_NOTIFICATION, IPC_GREETING, IPC_LOST, IPC_ATTACH, IPC_PROBE}) {
        header.kind = kind; // attach and probe have no payload
        EXPECT_FALSE(send(1, header, request));
    }
    EXPECT_FALSE(attach(1, HOST, ATTACH_EVENTS_AND_EDGES + 1));
    EXPECT_FALSE(attach(2, 0)); // no process has the number 0
    EXPECT_TRUE(attach(1, HOST));
    EXPECT_FALSE(attach(1, HOST + 1)); // a connection cannot change hands
}

TEST_F(test_panel_service, key_events_reach_the_observers_of_each_host_and_no_others) {
    ASSERT_TRUE(attach(2, HOST));
    ASSERT_TRUE(attach(3, HOST + 1));
    EXPECT_EQ(add_observer(1, 77), DEVICE_OK);
    EXPECT_EQ(add_observer(2, 77), DEVICE_OK); // once more has no effect
    EXPECT_EQ(add_observer(1, -2), DEVICE_OK); // an address beyond 31 bits
    EXPECT_EQ(press_key(), 2);
    ASSERT_EQ(events_of(2), (std::vector<std::int32_t>(2, DVC_PNL_DEC_FUNCTION_NOTIFY_KEY_EVENT)));
    EXPECT_TRUE(events_of(3).empty());
    ipc_header header;
    ASSERT_TRUE(read_ipc_header(sent_[2][1].data(), sent_[2][1].size(), header));
    EXPECT_EQ(header.destination, 0xFFFFFFFEU);
    const device_message event = messages_to(2, IPC_NOTIFICATION)[1];
    EXPECT_EQ(event.records[0].value, 5);
    EXPECT_EQ(event.records[1].value, DVC_PNL_DEC_KEY_PRESSED);
    service_.disconnected(1);
    EXPECT_EQ(press_key(), 2) << "lost although the host is there";
    service_.disconnected(2);
    service_.connected(4, 1);
    ASSERT_TRUE(attach(4, HOST));
    EXPECT_EQ(press_key(), 0) << "kept although the host was gone";
}

TEST_F(test_panel_service, a_host_registers_64_observers_at_most) {
    for (std::int32_t number = 0; number < MOST_OBSERVERS; ++number) {
        ASSERT_EQ(add_observer(1, number), DEVICE_OK);
    }
    EXPECT_EQ(add_observer(2, 64), DEVICE_TOO_MANY_OBSERVERS);
    EXPECT_EQ(add_observer(2, 0), DEVICE_OK);
    EXPECT_EQ(add_observer(3, 64, HOST + 1), DEVICE_OK);
}

TEST_F(test_panel_service, faults_are_for_so_many_requests_of_the_library) {
    const device_message all_on = make_message(103, {});
    const auto is_lit = [this] { // asks without counting as a request of the library
        EXPECT_EQ(ask(1, make_message(CONTROL_LIST_LEDS, {})), DEVICE_OK);
        return messages_to(1, IPC_REPLY)[0].records[2].value != 0;
    };
    ASSERT_EQ(ask(1, make_message(CONTROL_SET_FAULT, {FAULT_FAIL, 55, 2})), DEVICE_OK);
    EXPECT_EQ(ask(1, all_on), 55);
    EXPECT_FALSE(is_lit()) << "a request that fails was carried out";
    EXPECT_EQ(ask(1, all_on), 55);
    ASSERT_EQ(ask(1, make_message(CONTROL_SET_FAULT, {FAULT_DROP, 0, 1})), DEVICE_OK);
    EXPECT_EQ(ask(1, all_on), -1);
    EXPECT_TRUE(is_lit()) << "a request whose reply is dropped was not carried out";
    EXPECT_EQ(ask(1, all_on), DEVICE_OK);
    ASSERT_EQ(ask(1, make_message(CONTROL_SET_FAULT, {FAULT_DELAY, 300, 0})), DEVICE_OK);
    EXPECT_EQ(ask(1, all_on, 1000), -1);
    EXPECT_EQ(service_.next_deadline(), 1300);
    service_.advance(1299);
    EXPECT_EQ(result_of_reply(1), -1);
    service_.advance(1300);
    EXPECT_EQ(result_of_reply(1), DEVICE_OK);
    EXPECT_EQ(service_.next_deadline(), -1);
}

TEST_F(test_panel_service, probes_share_the_silence_of_requests_and_no_other_fault) {
    const std::vector<char> probe(IPC_HEADER_LENGTH, 'p');
    ipc_header header;
    header.kind = IPC_PROBE;
    header.host = HOST;
    for (const fault_kind fault : {FAULT_NONE, FAULT_DELAY, FAULT_DROP, FAULT_FAIL, FAULT_CRASH}) {
        SCOPED_TRACE(fault);
        const bool is_silent = fault == FAULT_DELAY || fault == FAULT_DROP;
        ASSERT_EQ(ask(1, make_message(CONTROL_SET_FAULT, {fault, 300, 1})), DEVICE_OK);
        sent_[2].clear();
        EXPECT_TRUE(send(2, header, probe));
        EXPECT_EQ(sent_[2].size(), is_silent ? 0U : 1U);
        service_.advance(300);
        EXPECT_EQ(sent_[2].size(), fault == FAULT_DROP ? 0U : 1U);
        EXPECT_TRUE(send(2, header, probe)); // the fault was for one
        EXPECT_EQ(sent_[2].back(), probe);
    }
}

TEST_F(test_panel_service, a_connection_waits_for_so_many_delayed_replies_and_takes_them_with_it) {
    const int most_delayed = 1024;
    ASSERT_EQ(ask(1, make_message(CONTROL_SET_FAULT, {FAULT_DELAY, 300, 0})), DEVICE_OK);
    const std::vector<char> request = encode_message(make_message(103, {}), {});
    ipc_header header;
    header.func_id = 103;
    header.host = HOST;
    for (int i = 0; i < most_delayed; ++i) {
        ASSERT_TRUE(send(1, header, request));
    }
    EXPECT_FALSE(send(1, header, request));
    EXPECT_TRUE(send(2, header, request));
    service_.disconnected(1);
    sent_.clear();
    service_.advance(300);
    EXPECT_EQ(sent_.size(), 1U);
}

TEST_F(test_panel_service, watchers_are_told_what_they_asked_for) {
    ASSERT_TRUE(attach(2, HOST + 1, ATTACH_EVENTS));
    ASSERT_TRUE(attach(3, HOST + 2, ATTACH_EVENTS_AND_EDGES));
    EXPECT_EQ(ask(1, make_message(101, {5, 2}), 1000), DEVICE_OK);
    const device_message event = messages_to(3, IPC_NOTIFICATION).at(0);
    EXPECT_EQ(event.records.at(0).value, 5);
    EXPECT_EQ(event.records.at(1).value, 2);
    EXPECT_EQ(ask(1, timer_request(10, 10, 1, 0), 1000), DEVICE_OK);
    service_.advance(1500); // the LED turns off, and the timer ends
    service_.advance(1500);
    service_.disconnected(1);
    EXPECT_EQ(events_of(3),
              (std::vector<std::int32_t>{EVENT_LED, EVENT_LED, EVENT_LED_EDGE, EVENT_LED, EVENT_HOST_GONE}));
    EXPECT_EQ(events_of(2), (std::vector<std::int32_t>{EVENT_LED, EVENT_LED, EVENT_LED, EVENT_HOST_GONE}));
}

} // namespace
