#include "dvc_pnl_dec_communication.h"
#include "host_receiver.h"
#include "ipc_header.h"
#include "message_delivery.h"
#include "osw.h"
#include "service_process.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>

#include <csignal>
#include <functional>
#include <memory>
#include <utility>

namespace {

using namespace velarion;

using key_events = std::vector<std::pair<int, int>>; // key, DVC_PNL_DEC_KEY_STATUS

/** Keeps what it is told, and the thread it is told on. */
class test_observer : public dvc_pnl_dec_key_event_observer {
public:
    void dvc_pnl_dec_key_pressed(int key_id) override { take(key_id, DVC_PNL_DEC_KEY_PRESSED); }
    void dvc_pnl_dec_key_released(int key_id) override { take(key_id, DVC_PNL_DEC_KEY_RELEASED); }

    /** Runs the event loop until so many events have come. */
    const key_events& wait_for(std::size_t count) {
        while (events_.size() < count) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        return events_;
    }
    const key_events& events() const { return events_; }

    std::function<void()> on_event;

private:
    void take(int key, int status) {
        EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
        events_.push_back({key, status});
        if (on_event) {
            on_event();
        }
    }

    key_events events_;
};

void dispatch(host_receiver& receiver, const std::vector<char>& message) {
    std::vector<char> bytes = message;
    receiver.dispatch(DVC_PNL_DEC_FUNCTION_NOTIFY_KEY_EVENT, bytes.data(),
                      static_cast<unsigned int>(bytes.size()), {});
}

std::vector<char> key_event(const dvc_pnl_dec_key_event_observer* observer, int key, int status) {
    velarion::ipc_header header;
    header.kind = velarion::IPC_NOTIFICATION;
    header.destination = dvc_pnl_dec_observer_number(observer);
    return encode_message(make_message(DVC_PNL_DEC_FUNCTION_NOTIFY_KEY_EVENT, {key, status}), header);
}

int registered_observers() {
    return ask_service(CONTROL_STATUS, {}).records.at(STATUS_OBSERVERS).value;
}

using test_host_receiver = scratch_service;

TEST_F(test_host_receiver, observers_are_told_by_each_service_that_is_started) {
    host_receiver receiver;
    test_observer first;
    test_observer observer;
    observer.on_event = [&] { EXPECT_EQ(observer.events().size(), first.events().size()); };
    const velarion::message_delivery delivery(receiver, DVC_PNL_DEC_SERVICE_NAME);
    int greetings = 0;
    receiver.set_service_hook([&greetings] { ++greetings; });
    receiver.add_observer(&first); // no service yet
    receiver.add_observer(&observer);
    key_events expected;
    for (const int key : {30, 255}) {
        SCOPED_TRACE(key);
        service_process service;
        while (registered_observers() < 2 ||
               ask_service(CONTROL_KEY_EVENT, {key, 1}).records.at(0).value < 2) { // not attached yet
            QCoreApplication::processEvents();
        }
        ask_service(CONTROL_KEY_EVENT, {key, 0});
        expected.insert(expected.end(), {{key, 1}, {key, 0}});
        EXPECT_EQ(observer.wait_for(expected.size()), expected);
    }
    EXPECT_EQ(greetings, 2);
    receiver.forget_observer(&first);
    receiver.forget_observer(&observer);
}

TEST_F(test_host_receiver, an_observer_is_asked_for_until_the_service_answers) {
    auto service = std::make_unique<service_process>();
    ASSERT_EQ(ask_service(CONTROL_SET_FAULT, {FAULT_CRASH, 0, 0}).result, DEVICE_OK);
    host_receiver receiver; // without a delivery, so that it knows of no new service
    test_observer observers[3];
    receiver.add_observer(&observers[0]);
    receiver.add_observer(&observers[1]);
    EXPECT_EQ(service->wait(), -SIGKILL);
    service = std::make_unique<service_process>();
    for (int turn = 0; turn < 10000 && registered_observers() < 2; ++turn) {
        emwOSWSleep(1000);
    }
    ASSERT_EQ(ask_service(CONTROL_SET_FAULT, {FAULT_FAIL, 7, 1}).result, DEVICE_OK);
    std::pair<dvc_pnl_dec_key_event_observer*, int> refused;
    receiver.set_refusal_hook([&](auto* observer, int result) { refused = {observer, result}; });
    receiver.add_observer(&observers[2]);
    while (!refused.first) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    EXPECT_EQ(refused.first, &observers[2]);
    EXPECT_EQ(refused.second, 7);
    EXPECT_EQ(registered_observers(), 2);
}

TEST_F(test_host_receiver, no_observer_is_called_after_it_was_destroyed_or_forgotten) {
    service_process service;
    host_receiver receiver;
    test_observer forgetting;
    test_observer last;
    auto destroyed = std::make_unique<test_observer>();
    auto owner = std::make_unique<QObject>();
    const auto event_of_destroyed = key_event(destroyed.get(), 3, 1);
    receiver.add_observer(&forgetting);
    receiver.add_observer(destroyed.get(), owner.get());
    receiver.add_observer(&last, owner.get());
    receiver.forget_observer(&last);
    receiver.add_observer(&last); // without an owner from now on
    forgetting.on_event = [&] { receiver.forget_observer(&forgetting); };

    dispatch(receiver, event_of_destroyed); // still waits in the event loop when the observer goes
    destroyed.reset();
    owner.reset();
    dispatch(receiver, event_of_destroyed);
    dispatch(receiver, key_event(&forgetting, 4, 1));
    dispatch(receiver, key_event(&forgetting, 5, 1));
    dispatch(receiver, key_event(&last, 6, 1));
    EXPECT_EQ(last.wait_for(1), (key_events{{6, 1}}));
    EXPECT_EQ(forgetting.events(), (key_events{{4, 1}}));
    {
        host_receiver short_lived;
        short_lived.add_observer(&last);
        dispatch(short_lived, key_event(&last, 7, 1));
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(last.events().size(), 1U);
}

TEST_F(test_host_receiver, notifications_that_are_wrong_reach_nobody) {
    service_process service;
    host_receiver receiver;
    test_observer observer;
    receiver.add_observer(&observer);
    receiver.dispatch(110, nullptr, 0, {});
    const std::vector<char> right = key_event(&observer, 1, 1);
    for (std::size_t length = 0; length < right.size(); ++length) {
        dispatch(receiver, {right.begin(), right.begin() + static_cast<std::ptrdiff_t>(length)});
    }
    const std::pair<std::size_t, std::int32_t> lies[] = {
        {DVC_PNL_DEC_PCNT_OFFSET, -1},        {DVC_PNL_DEC_PCNT_OFFSET, 0},
        {DVC_PNL_DEC_PCNT_OFFSET, 3},         {DVC_PNL_DEC_PCNT_OFFSET, 0x20000002},
        {DVC_PNL_DEC_PCNT_OFFSET, INT32_MIN}, {DVC_PNL_DEC_PCNT_OFFSET, INT32_MAX},
        {DVC_PNL_DEC_FUNC_ID_OFFSET, 111},    {DVC_PNL_DEC_PARAMETERS_OFFSET, 9}};
    for (const auto& [place, value] : lies) {
        std::vector<char> lying = right;
        dvc_pnl_dec_store(&lying[place], value);
        dispatch(receiver, lying);
    }
    dispatch(receiver, key_event(&observer, 1, 2)); // neither pressed nor released
    dispatch(receiver, key_event(&observer + 1, 1, 1));
    dispatch(receiver, key_event(&observer, 8, 0));
    EXPECT_EQ(observer.wait_for(1), (key_events{{8, 0}}));
}

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
