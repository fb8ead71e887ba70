#include "ipc_header.h"
#include "message_delivery.h"
#include "message_layer.h"
#include "message_socket.h"
#include "platform_codes.h"
#include "platform_folder.h"
#include "scratch_platform.h"

#include <condition_variable>
#include <cstring>
#include <filesystem>
#include <functional>
#include <mutex>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using namespace panel_platform;

const char NAME[] = "TEST_SRV";
const std::string PAYLOAD = "twelve bytes";

/** Answers a request; false closes the connection. */
using BEHAVIOUR = std::function<bool(int socket, const IPC_HEADER& request)>;

bool reply_with(int socket, const IPC_HEADER& request, const std::string& payload) {
    IPC_HEADER header;
    header.kind = IPC_REPLY;
    header.sequence = request.sequence;
    header.func_id = request.func_id;
    return send_message(socket, header, payload.data(), payload.size()) == PLATFORM_OK;
}

bool reply_well(int socket, const IPC_HEADER& request) {
    return reply_with(socket, request, PAYLOAD);
}

bool send_bytes(int socket, const std::string& bytes) {
    return ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL) >= 0;
}

/** A service in a thread: greets, and answers the requests of all connections by their number. */
class scripted_service {
public:
    explicit scripted_service(std::vector<BEHAVIOUR> behaviours)
        : behaviours_(std::move(behaviours))
        , stop_(::eventfd(0, EFD_CLOEXEC)) {
        EXPECT_EQ(PLATFORM_OK, listener_.listen(NAME));
        thread_ = std::thread([this] { run(); });
    }
    ~scripted_service() {
        ::eventfd_write(stop_.get(), 1);
        thread_.join();
    }

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
            if (listener_.accept(socket, process) != PLATFORM_OK) {
                continue;
            }
            IPC_HEADER greeting;
            greeting.kind = IPC_GREETING;
            send_message(socket.get(), greeting, nullptr, 0);
            while (wait_for(socket.get()) && answer_next(socket.get())) {
            }
        }
    }

    bool answer_next(int socket) {
        char message[IPC_LONGEST_MESSAGE];
        IPC_HEADER request;
        if (receive_message(socket, message, request) != PLATFORM_OK) {
            return false;
        }
        const BEHAVIOUR& behaviour = next_ < behaviours_.size() ? behaviours_[next_] : reply_well;
        ++next_;
        return behaviour(socket, request);
    }

    const std::vector<BEHAVIOUR> behaviours_;
    std::size_t next_ = 0;
    file_descriptor stop_;
    message_listener listener_;
    std::thread thread_;
};

/** A request with room for a reply of 88 bytes, and what became of it. */
struct EXCHANGE {
    char request[88] = {};
    char reply[88];
    unsigned int reply_length = sizeof reply;
    long code = 0;

    explicit EXCHANGE(unsigned int capacity = 88)
        : reply_length(capacity) {
        std::memset(reply, 'u', sizeof reply);
        velarion::bmc_mc_client client;
        code = client.bmc_mc_send_sync_message(1, 101, request, sizeof request, reply, &reply_length, NAME);
    }
    bool is_untouched() const {
        return reply_length == 0 && std::string(reply, sizeof reply) == std::string(88, 'u');
    }
    bool is_answered() const {
        return code == PLATFORM_OK && reply_length == IPC_HEADER_LENGTH + PAYLOAD.size() &&
               std::memcmp(reply + IPC_HEADER_LENGTH, PAYLOAD.data(), PAYLOAD.size()) == 0;
    }
};

bool becomes_ready() {
    for (int check = 0; check < 10000; ++check) {
        if (velarion::bmc_mc_client::bmc_mc_check_facade(NAME, 1) != 0) {
            return true;
        }
    }
    return false;
}

class test_message_layer : public scratch_platform {};

TEST_F(test_message_layer, a_request_survives_every_misbehaviour_of_the_one_before) {
    const struct {
        const char* name;
        BEHAVIOUR behaviour;
        long code;
    } rows[] = {
        {"dies", [](int, const IPC_HEADER&) { return false; }, PLATFORM_CONNECTION_LOST},
        {"garbage", [](int socket, const IPC_HEADER&) { return send_bytes(socket, std::string(88, 'x')); },
         PLATFORM_BAD_MESSAGE},
        {"a few bytes", [](int socket, const IPC_HEADER&) { return send_bytes(socket, "x"); },
         PLATFORM_BAD_MESSAGE},
        {"half a message",
         [](int socket, const IPC_HEADER& request) {
             IPC_HEADER header;
             header.kind = IPC_REPLY;
             header.sequence = request.sequence;
             header.length = 88;
             std::string bytes(80, '\0');
             write_ipc_header(header, &bytes[0]);
             return send_bytes(socket, bytes);
         },
         PLATFORM_BAD_MESSAGE},
        {"answer of another request",
         [](int socket, const IPC_HEADER& request) {
             IPC_HEADER other = request;
             ++other.sequence;
             return reply_well(socket, other);
         },
         PLATFORM_BAD_MESSAGE},
        {"notification for a reply",
         [](int socket, const IPC_HEADER& request) {
             IPC_HEADER header = request;
             header.kind = IPC_NOTIFICATION;
             return send_message(socket, header, nullptr, 0) == PLATFORM_OK;
         },
         PLATFORM_BAD_MESSAGE},
        {"longer than any message",
         [](int socket, const IPC_HEADER&) { return send_bytes(socket, std::string(20000, 'x')); },
         PLATFORM_BAD_MESSAGE},
        {"longer than the caller's buffer",
         [](int socket, const IPC_HEADER& request) {
             return reply_with(socket, request, std::string(17, 'x'));
         },
         PLATFORM_TOO_LARGE},
        {"nothing", [](int, const IPC_HEADER&) { return true; }, PLATFORM_NO_ANSWER},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const scripted_service service({row.behaviour});
        ASSERT_TRUE(becomes_ready());
        const EXCHANGE bad;
        EXPECT_EQ(row.code, bad.code);
        EXPECT_TRUE(bad.is_untouched());
        ASSERT_TRUE(becomes_ready());
        EXPECT_TRUE(EXCHANGE().is_answered());
    }
}

TEST_F(test_message_layer, readiness_is_the_truth) {
    EXPECT_EQ(0, velarion::bmc_mc_client::bmc_mc_check_facade(NAME, 1));
    EXPECT_EQ(PLATFORM_NOT_READY, EXCHANGE().code);
    EXPECT_FALSE(std::filesystem::exists(folder())); // asking makes nothing
    const std::string socket_file = folder() + "/run/" + NAME;
    const int died = run_in_process([]() -> bool {
        message_listener listener;
        const bool is_listening = listener.listen(NAME) == PLATFORM_OK;
        ::_exit(is_listening ? 7 : 1); // without giving the name up
    });
    EXPECT_EQ(7, died);
    EXPECT_TRUE(std::filesystem::exists(socket_file));
    EXPECT_EQ(0, velarion::bmc_mc_client::bmc_mc_check_facade(NAME, 1));
    {
        message_listener silent; // accepts connections, as far as a host can see, but never greets
        ASSERT_EQ(PLATFORM_OK, silent.listen(NAME));
        EXPECT_EQ(0, velarion::bmc_mc_client::bmc_mc_check_facade(NAME, 1));
        message_listener second;
        EXPECT_EQ(PLATFORM_ALREADY_SERVED, second.listen(NAME));
    }
    EXPECT_FALSE(std::filesystem::exists(socket_file));
    const scripted_service service({});
    EXPECT_TRUE(becomes_ready());
}

TEST_F(test_message_layer, arguments_and_names_that_cannot_be_are_refused) {
    velarion::bmc_mc_client client;
    char bytes[88] = {};
    unsigned int length = sizeof bytes;
    for (const char* name : {"", ".", "..", "a/b", "../settings.db"}) {
        EXPECT_EQ(0, velarion::bmc_mc_client::bmc_mc_check_facade(name, 1)) << name;
        EXPECT_EQ(PLATFORM_INVALID_ARGUMENT,
                  client.bmc_mc_send_sync_message(1, 101, bytes, 88, bytes, &length, name));
        EXPECT_EQ(PLATFORM_INVALID_ARGUMENT, message_listener().listen(name));
    }
    EXPECT_EQ(0, velarion::bmc_mc_client::bmc_mc_check_facade(nullptr, 1));
    const scripted_service service({});
    ASSERT_TRUE(becomes_ready());
    EXPECT_EQ(PLATFORM_INVALID_ARGUMENT,
              client.bmc_mc_send_sync_message(1, 101, bytes, 71, bytes, &length, NAME));
    EXPECT_EQ(PLATFORM_INVALID_ARGUMENT,
              client.bmc_mc_send_sync_message(1, 101, nullptr, 88, bytes, &length, NAME));
    EXPECT_EQ(PLATFORM_INVALID_ARGUMENT,
              client.bmc_mc_send_sync_message(1, 101, bytes, 88, bytes, nullptr, NAME));
    std::vector<char> long_request(IPC_LONGEST_MESSAGE + 1);
    length = sizeof bytes;
    EXPECT_EQ(PLATFORM_TOO_LARGE, client.bmc_mc_send_sync_message(
                                      1, 101, long_request.data(),
                                      static_cast<unsigned int>(long_request.size()), bytes, &length, NAME));
    EXPECT_TRUE(EXCHANGE().is_answered());
}

TEST_F(test_message_layer, the_folder_is_private_and_its_path_of_any_length) {
    ::setenv("PANEL_PLATFORM_DIR", (folder() + "/" + std::string(200, 'd')).c_str(), 1);
    const std::string run_folder = platform_folder() + "/run";
    {
        const scripted_service service({});
        ASSERT_TRUE(becomes_ready());
        EXPECT_TRUE(EXCHANGE().is_answered());
        struct stat status = {};
        ASSERT_EQ(0, ::stat(run_folder.c_str(), &status));
        EXPECT_EQ(0700U, status.st_mode & 07777U);
        ASSERT_EQ(0, ::stat((run_folder + "/" + NAME).c_str(), &status));
        EXPECT_EQ(0600U, status.st_mode & 07777U);
    }
    ASSERT_EQ(0, ::chmod(run_folder.c_str(), 0750));
    EXPECT_EQ(PLATFORM_ACCESS_DENIED, message_listener().listen(NAME));
    file_descriptor socket;
    EXPECT_EQ(PLATFORM_ACCESS_DENIED, connect_to_service(NAME, socket));
}

TEST_F(test_message_layer, another_user_is_turned_away_on_both_sides) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only root can become another user";
    }
    const uid_t other = 65534;
    message_listener listener;
    ASSERT_EQ(PLATFORM_OK, listener.listen(NAME));
    for (std::string path = folder() + "/run/" + NAME; path != "/";
         path = std::filesystem::path(path).parent_path()) {
        if (path.find("panel_platform_") != std::string::npos) {
            ASSERT_EQ(0, ::chmod(path.c_str(), 0777)); // as if all permissions had been given away
        }
    }
    const std::string run_folder = folder() + "/run";
    EXPECT_EQ(0, run_in_process([&] {
                  sockaddr_un address = {};
                  address.sun_family = AF_UNIX;
                  std::snprintf(address.sun_path, sizeof address.sun_path, "%s/%s", run_folder.c_str(), NAME);
                  const file_descriptor socket(::socket(AF_UNIX, SOCK_SEQPACKET, 0));
                  return ::seteuid(other) == 0 &&
                         ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address),
                                   sizeof address) == 0;
              }));
    file_descriptor accepted;
    pid_t process = 0;
    EXPECT_EQ(PLATFORM_ACCESS_DENIED, listener.accept(accepted, process));
    EXPECT_EQ(0, run_in_process([&] {
                  // The folder now is the other user's own, the service still is root's.
                  if (::chown(run_folder.c_str(), other, other) != 0 ||
                      ::chmod(run_folder.c_str(), 0700) != 0 || ::seteuid(other) != 0) {
                      return false;
                  }
                  file_descriptor socket;
                  return connect_to_service(NAME, socket) == PLATFORM_ACCESS_DENIED;
              }));
}

TEST_F(test_message_layer, threads_and_forked_processes_get_their_own_replies) {
    std::mutex mutex;
    std::vector<std::uint64_t> hosts;
    const BEHAVIOUR echo = [&](int socket, const IPC_HEADER& request) {
        const std::lock_guard<std::mutex> lock(mutex);
        hosts.push_back(request.host);
        return reply_with(socket, request, std::to_string(request.func_id));
    };
    const scripted_service service(std::vector<BEHAVIOUR>(401, echo));
    ASSERT_TRUE(becomes_ready());
    const auto ask = [](long func_id) {
        velarion::bmc_mc_client client;
        char bytes[88] = {};
        unsigned int length = sizeof bytes;
        return client.bmc_mc_send_sync_message(1, func_id, bytes, 88, bytes, &length, NAME) == PLATFORM_OK &&
               std::string(bytes + IPC_HEADER_LENGTH, length - IPC_HEADER_LENGTH) == std::to_string(func_id);
    };
    std::vector<std::thread> threads;
    for (long number = 1; number <= 4; ++number) {
        threads.emplace_back([&ask, number] {
            for (long turn = 0; turn < 100; ++turn) {
                EXPECT_TRUE(ask(number * 1000 + turn));
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    const pid_t child = start_process([&] { return host_number() != hosts.front(); });
    EXPECT_EQ(0, wait_for(child));
    EXPECT_EQ(std::vector<std::uint64_t>(400, host_number()), hosts);
}

/** Remembers the kinds of what it was given. */
class remembering_facade : public velarion::facade_template {
public:
    void dispatch(long func_id, char* rcv_buf, unsigned int rcv_buflen, gen_ipc_msghdr header) override {
        IPC_HEADER read;
        EXPECT_TRUE(read_ipc_header(rcv_buf, rcv_buflen, read));
        EXPECT_EQ(0, std::memcmp(header.bytes, rcv_buf, sizeof header.bytes));
        EXPECT_EQ(read.func_id, func_id);
        const std::lock_guard<std::mutex> lock(mutex_);
        kinds_.push_back(read.kind);
        has_changed_.notify_all();
    }
    std::vector<IPC_KIND> wait_for_kinds(std::size_t count) {
        std::unique_lock<std::mutex> lock(mutex_);
        has_changed_.wait(lock, [&] { return kinds_.size() >= count; });
        return kinds_;
    }

private:
    std::mutex mutex_;
    std::condition_variable has_changed_;
    std::vector<IPC_KIND> kinds_;
};

TEST_F(test_message_layer, a_delivery_tells_of_connecting_loss_and_connecting_again) {
    remembering_facade facade;
    const message_delivery delivery(facade, NAME);
    const BEHAVIOUR notify = [](int socket, const IPC_HEADER& attach) {
        EXPECT_EQ(IPC_ATTACH, attach.kind);
        IPC_HEADER header;
        header.kind = IPC_NOTIFICATION;
        header.func_id = 110;
        return send_message(socket, header, PAYLOAD.data(), PAYLOAD.size()) == PLATFORM_OK;
    };
    const BEHAVIOUR notify_then_garbage = [&](int socket, const IPC_HEADER& attach) {
        return notify(socket, attach) && send_bytes(socket, "garbage");
    };
    {
        const scripted_service service({notify_then_garbage, notify});
        const std::vector<IPC_KIND> expected = {IPC_GREETING, IPC_NOTIFICATION, IPC_LOST, IPC_GREETING,
                                                IPC_NOTIFICATION};
        EXPECT_EQ(expected, facade.wait_for_kinds(5));
    }
    EXPECT_EQ(IPC_LOST, facade.wait_for_kinds(6).back());
    const scripted_service service({notify});
    EXPECT_EQ(IPC_NOTIFICATION, facade.wait_for_kinds(8).back());
}

} // namespace
