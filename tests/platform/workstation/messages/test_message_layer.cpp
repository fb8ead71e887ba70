#include "ipc_header.h"
#include "message_layer.h"
#include "message_socket.h"
#include "osw.h"
#include "platform_codes.h"
#include "scratch_platform.h"

#include <atomic>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <future>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace {

using namespace velarion;
namespace fs = std::filesystem;

constexpr char NAME[] = "TEST_SRV";
const std::string PAYLOAD = "twelve bytes";
const std::string CLOSE = "close the connection";

/** The messages that a service sends when it gets one; NOTHING and CLOSE do as they say. */
using answers = std::vector<std::string>;
const answers NOTHING;
using answering = std::function<answers(const ipc_header& request)>;

std::string message_of(ipc_header header, ipc_kind kind, const std::string& payload) {
    header.kind = kind;
    header.length = static_cast<std::uint32_t>(IPC_HEADER_LENGTH + payload.size());
    std::string bytes(IPC_HEADER_LENGTH, '\0');
    write_ipc_header(header, &bytes[0]);
    return bytes + payload;
}

/** A reply's payload begins with its function. */
std::string reply_of(const ipc_header& request, std::int32_t func_id, const std::string& payload = PAYLOAD) {
    std::string bytes(sizeof func_id, '\0');
    std::memcpy(&bytes[0], &func_id, sizeof func_id);
    return message_of(request, IPC_REPLY, bytes + payload);
}

std::string reply_well(const ipc_header& request) {
    return reply_of(request, request.func_id);
}

answers answer_well(const ipc_header& request) {
    return {reply_well(request)};
}

/** A service in a thread: greets, and answers the requests of all connections by their number. */
class scripted_service {
public:
    explicit scripted_service(std::vector<answering> behaviours = {}, answering afterwards = answer_well)
        : behaviours_(std::move(behaviours))
        , afterwards_(std::move(afterwards))
        , stop_(::eventfd(0, EFD_CLOEXEC)) {
        EXPECT_EQ(listener_.listen(NAME), PLATFORM_OK);
        thread_ = std::thread([this] { run(); });
    }
    ~scripted_service() {
        ::eventfd_write(stop_.get(), 1);
        thread_.join();
    }

    /** Sends on the connection that it has. */
    void say(const std::string& bytes) { EXPECT_TRUE(send(connection_, bytes)); }

private:
    bool wait_for(int descriptor) {
        pollfd watched[2] = {{stop_.get(), POLLIN, 0}, {descriptor, POLLIN, 0}};
        ::poll(watched, 2, -1);
        return watched[0].revents == 0;
    }

    void run() {
        while (wait_for(listener_.descriptor())) {
            file_descriptor socket;
            pid_t process = 0;
            bool goes_on = listener_.accept(socket, process) == PLATFORM_OK &&
                           send(socket.get(), message_of({}, IPC_GREETING, ""));
            connection_ = socket.get();
            while (goes_on && wait_for(socket.get())) {
                goes_on = answer_next(socket.get());
            }
        }
    }

    bool answer_next(int socket) {
        char message[IPC_LONGEST_MESSAGE];
        ipc_header request;
        if (receive_message(socket, message, request) != PLATFORM_OK) {
            return false;
        }
        const answering& behaviour = next_ < behaviours_.size() ? behaviours_[next_] : afterwards_;
        ++next_;
        for (const std::string& answer : behaviour(request)) {
            if (answer == CLOSE || !send(socket, answer)) {
                return false;
            }
        }
        return true;
    }

    static bool send(int socket, const std::string& bytes) {
        return ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL) >= 0;
    }

    const std::vector<answering> behaviours_;
    const answering afterwards_;
    std::size_t next_ = 0;
    std::atomic<int> connection_{-1};
    file_descriptor stop_;
    message_listener listener_;
    std::thread thread_;
};

/** A request with room for a reply of 88 bytes, and what became of it. */
struct exchange {
    std::string reply = std::string(88, 'u');
    unsigned int reply_length = 88;
    long code = 0;

    exchange() {
        char request[88] = {};
        velarion::bmc_mc_client client;
        code = client.bmc_mc_send_sync_message(1, 101, request, 88, &reply[0], &reply_length, NAME);
    }
    bool is_untouched() const { return reply_length == 0 && reply == std::string(88, 'u'); }
    bool is_answered() const {
        return code == PLATFORM_OK && reply_length == 88 && reply.substr(76) == PAYLOAD;
    }
};

bool is_ready(const char* name = NAME) {
    return velarion::bmc_mc_client::bmc_mc_check_facade(name, 1) != 0;
}

bool becomes_ready() {
    int checks = 0;
    while (!is_ready() && ++checks < 10000) {
        emwOSWSleep(300);
    }
    return checks < 10000;
}

class test_message_layer : public scratch_platform {};

TEST_F(test_message_layer, a_request_survives_every_misbehaviour_of_the_one_before) {
    const struct {
        const char* name;
        answering behaviour;
        long code;
    } rows[] = {
        {"dies", [](auto) { return answers{CLOSE}; }, PLATFORM_CONNECTION_LOST},
        {"garbage", [](auto) { return answers{std::string(88, 'x')}; }, PLATFORM_BAD_MESSAGE},
        {"a few bytes", [](auto) { return answers{"x"}; }, PLATFORM_BAD_MESSAGE},
        {"longer than any message", [](auto) { return answers{std::string(20000, 'x')}; },
         PLATFORM_BAD_MESSAGE},
        {"half a message", [](auto request) { return answers{reply_well(request).substr(0, 80)}; },
         PLATFORM_BAD_MESSAGE},
        {"notification for a reply",
         [](auto request) { return answers{message_of(request, IPC_NOTIFICATION, PAYLOAD)}; },
         PLATFORM_BAD_MESSAGE},
        {"longer than the caller's buffer",
         [](auto request) { return answers{reply_of(request, 101, PAYLOAD + "x")}; }, PLATFORM_TOO_LARGE},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const scripted_service service({row.behaviour});
        ASSERT_TRUE(becomes_ready());
        const exchange bad;
        EXPECT_EQ(bad.code, row.code);
        EXPECT_TRUE(bad.is_untouched());
        ASSERT_TRUE(becomes_ready());
        EXPECT_TRUE(exchange().is_answered());
    }
}

TEST_F(test_message_layer, what_is_not_the_answer_is_passed_over) {
    const struct {
        const char* name;
        std::uint32_t later; // than the request
        std::int32_t header_func_id;
        std::int32_t func_id;
    } rows[] = {{"of another request", 1, 101, 101},
                {"of another function", 0, 103, 103},
                {"of another function in the message layer's header", 0, 103, 101},
                {"of another function behind it", 0, 101, 103}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const scripted_service service({[&row](ipc_header request) {
            ipc_header other = request;
            other.sequence += row.later;
            other.func_id = row.header_func_id;
            return answers{reply_of(other, row.func_id, "other bytes"),
                           message_of(request, IPC_REPLY, ""), // of no function
                           reply_well(request)};
        }});
        ASSERT_TRUE(becomes_ready());
        EXPECT_TRUE(exchange().is_answered());
    }
}

TEST_F(test_message_layer, a_service_that_did_not_answer_is_not_ready_until_it_is_heard) {
    std::atomic<int> probes{0};
    std::atomic<bool> speaks{false};
    std::string late_reply;
    const scripted_service service(
        {[&](const ipc_header& request) {
            late_reply = reply_of(request, 101, "of the first");
            return NOTHING;
        }},
        [&](const ipc_header& request) {
            if (request.kind != IPC_PROBE) {
                return answer_well(request);
            }
            ++probes;
            return speaks ? answers{late_reply, message_of(request, IPC_PROBE, "")} : NOTHING;
        });
    ASSERT_TRUE(becomes_ready());
    const exchange unanswered;
    EXPECT_EQ(unanswered.code, PLATFORM_NO_ANSWER);
    EXPECT_TRUE(unanswered.is_untouched());
    for (int turn = 0; turn < 10000 && probes < 3; ++turn) {
        ASSERT_FALSE(is_ready());
        emwOSWSleep(300);
    }
    EXPECT_GE(probes, 3);
    speaks = true;
    ASSERT_TRUE(becomes_ready());
    EXPECT_TRUE(exchange().is_answered());
}

TEST_F(test_message_layer, the_first_check_of_a_process_waits_for_a_service_that_starts) {
    EXPECT_EQ(run_in_process([] {
                  std::unique_ptr<scripted_service> service;
                  std::thread starting([&] {
                      emwOSWSleep(50000); // until the check is under way, as a rule
                      service = std::make_unique<scripted_service>();
                  });
                  const bool was_ready = is_ready();
                  starting.join();
                  return was_ready;
              }),
              0);
}

TEST_F(test_message_layer, a_check_does_not_wait_for_the_request_of_another_thread) {
    std::promise<void> asked;
    std::promise<void> has_checked;
    const scripted_service service({[&](const ipc_header& request) {
        asked.set_value();
        has_checked.get_future().wait();
        return answer_well(request);
    }});
    ASSERT_TRUE(becomes_ready());
    std::thread asking([] { EXPECT_TRUE(exchange().is_answered()); });
    asked.get_future().wait();
    EXPECT_TRUE(is_ready());
    has_checked.set_value();
    asking.join();
}

TEST_F(test_message_layer, signals_do_not_end_the_wait_for_a_reply) {
    struct sigaction handling = {};
    handling.sa_handler = [](int) {};
    struct sigaction before = {};
    ASSERT_EQ(sigaction(SIGUSR1, &handling, &before), 0);
    {
        const scripted_service service({[asking = pthread_self()](const ipc_header& request) {
            for (int i = 0; i < 5; ++i) {
                pthread_kill(asking, SIGUSR1);
                emwOSWSleep(2000); // so that the wait is under way at one of them
            }
            return answer_well(request);
        }});
        ASSERT_TRUE(becomes_ready());
        EXPECT_TRUE(exchange().is_answered());
    }
    sigaction(SIGUSR1, &before, nullptr);
}

/** Nothing that a check found a moment ago may stand in for the next one. */
TEST_F(test_message_layer, every_check_looks_anew) {
    auto service = std::make_unique<scripted_service>();
    ASSERT_TRUE(becomes_ready());
    ASSERT_TRUE(is_ready());
    service.reset();
    EXPECT_FALSE(is_ready());
    service = std::make_unique<scripted_service>();
    ASSERT_TRUE(becomes_ready());
    service.reset(); // between a check and its request
    service = std::make_unique<scripted_service>();
    EXPECT_TRUE(exchange().is_answered());
    ASSERT_TRUE(exchange().is_answered());
    ASSERT_TRUE(is_ready());
    service->say(message_of({}, IPC_NOTIFICATION, "")); // nothing that this connection should get
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_TRUE(exchange().is_answered()) << "the request comes later than right after the check";
}

TEST_F(test_message_layer, readiness_is_the_truth) {
    EXPECT_FALSE(is_ready());
    EXPECT_EQ(exchange().code, PLATFORM_NOT_READY);
    EXPECT_FALSE(fs::exists(folder())) << "asking makes nothing";
    const std::string socket_file = folder() + "/run/" + NAME;
    EXPECT_EQ(run_in_process([] {
                  static message_listener dying; // does not give the name up
                  return dying.listen(NAME) == PLATFORM_OK;
              }),
              0);
    EXPECT_TRUE(fs::exists(socket_file));
    EXPECT_FALSE(is_ready());
    {
        message_listener silent; // accepts connections, as far as a host can see, but never greets
        ASSERT_EQ(silent.listen(NAME), PLATFORM_OK);
        EXPECT_FALSE(is_ready());
        EXPECT_EQ(message_listener().listen(NAME), PLATFORM_ALREADY_SERVED);
    }
    EXPECT_FALSE(fs::exists(socket_file));
    const scripted_service service;
    EXPECT_TRUE(becomes_ready());
}

TEST_F(test_message_layer, arguments_and_names_that_cannot_be_are_refused) {
    for (const char* name : {"", ".", "..", "a/b", "../settings.db"}) {
        EXPECT_FALSE(is_ready(name)) << name;
        EXPECT_EQ(message_listener().listen(name), PLATFORM_INVALID_ARGUMENT) << name;
    }
    EXPECT_FALSE(is_ready(nullptr));
    const scripted_service service;
    ASSERT_TRUE(becomes_ready());
    std::vector<char> bytes(IPC_LONGEST_MESSAGE + 1);
    unsigned int capacity = 88;
    const auto send = [&](char* request, std::size_t length, unsigned int* reply_length) {
        return velarion::bmc_mc_client().bmc_mc_send_sync_message(
            1, 101, request, static_cast<unsigned int>(length), bytes.data(), reply_length, NAME);
    };
    EXPECT_EQ(send(bytes.data(), 71, &capacity), PLATFORM_INVALID_ARGUMENT);
    EXPECT_EQ(capacity, 0U);
    EXPECT_EQ(send(nullptr, 88, &capacity), PLATFORM_INVALID_ARGUMENT);
    EXPECT_EQ(send(bytes.data(), 88, nullptr), PLATFORM_INVALID_ARGUMENT);
    EXPECT_EQ(send(bytes.data(), bytes.size(), &capacity), PLATFORM_TOO_LARGE);
    EXPECT_TRUE(exchange().is_answered());
}

TEST_F(test_message_layer, the_folders_are_private_and_their_path_of_any_length) {
    const std::string parent = folder() + "/" + std::string(200, 'd');
    ::setenv("PANEL_PLATFORM_DIR", (parent + "/platform").c_str(), 1);
    const std::string run_folder = parent + "/platform/run";
    {
        const scripted_service service;
        ASSERT_TRUE(becomes_ready());
        EXPECT_TRUE(exchange().is_answered());
        for (const std::string& made : {folder(), parent, parent + "/platform", run_folder}) {
            EXPECT_EQ(fs::status(made).permissions(), fs::perms::owner_all) << made;
        }
        EXPECT_EQ(fs::status(run_folder + "/" + NAME).permissions(),
                  fs::perms::owner_read | fs::perms::owner_write);
    }
    fs::permissions(run_folder, fs::perms::group_read | fs::perms::group_exec, fs::perm_options::add);
    file_descriptor socket;
    EXPECT_EQ(message_listener().listen(NAME), PLATFORM_ACCESS_DENIED);
    EXPECT_EQ(connect_to_service(NAME, socket), PLATFORM_ACCESS_DENIED);
}

TEST_F(test_message_layer, another_user_is_turned_away_on_both_sides) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only root can become another user";
    }
    const uid_t other = 65534;
    message_listener listener;
    ASSERT_EQ(listener.listen(NAME), PLATFORM_OK);
    const std::string run_folder = folder() + "/run";
    for (const std::string& path : {beside(""), folder(), run_folder + "/" + NAME}) {
        fs::permissions(path, fs::perms::all); // as if all permissions had been given away
    }
    ASSERT_EQ(::chown(run_folder.c_str(), other, other), 0);
    EXPECT_EQ(run_in_process([] { // finds its own folder, and a service of root in it
                  file_descriptor socket;
                  return ::seteuid(other) == 0 && connect_to_service(NAME, socket) == PLATFORM_ACCESS_DENIED;
              }),
              0);
    file_descriptor accepted;
    pid_t process = 0;
    EXPECT_EQ(listener.accept(accepted, process), PLATFORM_ACCESS_DENIED);
}

} // namespace
