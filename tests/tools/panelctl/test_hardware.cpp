#include "dvc_pnl_dec_facade.h"
#include "process.h"
#include "service_process.h"

#include <cstdio>
#include <memory>
#include <regex>

namespace {

/** A service that panelctl drives, from the command line alone. */
class hardware : public scratch_service {
protected:
    static process_result run(const std::string& arguments) {
        return run_process({"sh", "-c", "exec " PANELCTL " " + arguments});
    }

    std::unique_ptr<service_process> service_ = std::make_unique<service_process>();
};

/** The numbers of connections and processes are not the test's to know. */
std::string without_numbers(const std::string& text) {
    return std::regex_replace(text, std::regex("((connection|process|observer)(\":| )\\s*)-?[0-9]+"), "$1N");
}

class monitor {
public:
    explicit monitor(const std::string& options)
        : output_(::popen(("exec timeout 60 " PANELCTL " monitor " + options).c_str(), "r")) {
        EXPECT_NE(next_line().find("connected"), std::string::npos);
    }
    ~monitor() { EXPECT_EQ(::pclose(output_), 0) << "ends after its count of lines"; }
    monitor(const monitor&) = delete;
    monitor& operator=(const monitor&) = delete;

    std::string next_line() {
        char line[256] = "";
        return without_numbers(std::fgets(line, sizeof line, output_) ? line : "no line\n");
    }

private:
    std::FILE* output_;
};

TEST_F(hardware, leds_and_faults_are_shown_as_they_were_set) {
    const struct {
        const char* arguments;
        int exit_code;
        const char* part; // of what is printed
    } rows[] = {
        {"led", 0, "0  main_power     off  dark\n1  energy_saver   off  dark\n"},
        {"led all-on", 0, ""},
        {"led list", 0, "6  fax            on  lit\n7  print_service  on  lit\n"},
        {"led list --json", 0, "\"led\": 7,\n        \"lit\": true,\n        \"name\": \"print_service\",\n"},
        {"led all-off", 0, ""},
        {"led set 1 0x1", 0, ""},
        {"led timer 60000 10 0 off", 0, ""},
        {"led", 0, "1  energy_saver   on     lit\n2  start          off    dark\n"},
        {"led", 0, "7  print_service  timer  lit\n"},
        {"led timer 10 10 1 blink_fast", 0, ""},
        {"led set 2147483647 on", 1, "refused the request: unknown LED\n"},
        {"led set 0 9", 1, "refused the request: unknown status\n"},
        {"key press 256", 1, "refused the request: unknown key\n"},
        {"key release 0x10 --json", 0,
         "{\n    \"key\": 16,\n    \"observers_told\": 0,\n    \"status\": 0\n}\n"},
        {"service delay 10", 0, ""},
        {"service", 0, "\nfault        delay 10\n"},
        {"service delay 10 2", 0, ""},
        {"service", 0, "\nfault        delay 10 for 2 requests\n"},
        {"service fail 6", 0, ""},
        {"service status", 0, "\nfault        fail 6\n"},
        {"service drop 3", 0, ""},
        {"service status --json", 0,
         "\"fault\": \"drop\",\n    \"fault_requests\": 3,\n    \"fault_value\": 0,"},
        {"service fail 7 3", 0, ""},
        {"service status --json", 0, "\"fault_requests\": 3,\n    \"fault_value\": 7,"},
        {"service normal", 0, ""},
        {"service", 0, "\nrequests     7\nrefused      2\nfault        none\n"},
        {"service --json", 0, "\"refused\": 2,\n    \"requests\": 7,"},
        {"service crash-at-next", 0, ""},
        {"led all-on", 3, " does not run; start it with panel_device_service\n"},
        {"key press 1", 3, " does not run; start it with panel_device_service\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.arguments);
        const process_result result = run(row.arguments);
        EXPECT_EQ(result.exit_code, row.exit_code) << result.errors;
        EXPECT_NE((result.output + result.errors).find(row.part), std::string::npos)
            << result.output << result.errors;
        EXPECT_EQ(result.output + result.errors == "", *row.part == '\0');
    }
}

TEST_F(hardware, the_monitor_has_a_line_for_every_event) {
    const auto add_observer = [] {
        return velarion::dvc_pnl_dec_facade::dvc_pnl_dec_get_instance()->dvc_pnl_dec_add_key_observer(
            nullptr);
    };
    const struct {
        const char* line;
        const char* json;
    } rows[] = {
        {"connection N: registered key observer N\n",
         "{\"connection\":N,\"event\":\"observer\",\"observer\":N}\n"},
        {"connection N: made by process N\n", "{\"connection\":N,\"event\":\"host_came\",\"process\":N}\n"},
        {"key 3: pressed, 0 observers told\n",
         "{\"event\":\"key\",\"key\":3,\"observers_told\":0,\"status\":\"pressed\"}\n"},
        {"connection N: of process N ended\n", "{\"connection\":N,\"event\":\"host_gone\",\"process\":N}\n"},
        {"connection N: made by process N\n", "{\"connection\":N,\"event\":\"host_came\",\"process\":N}\n"},
        {"key 4: released, 0 observers told\n",
         "{\"event\":\"key\",\"key\":4,\"observers_told\":0,\"status\":\"released\"}\n"},
        {"connection N: of process N ended\n", "{\"connection\":N,\"event\":\"host_gone\",\"process\":N}\n"},
        {"connection N: made by process N\n", "{\"connection\":N,\"event\":\"host_came\",\"process\":N}\n"},
        {"led fax: on (lit)\n", "{\"event\":\"led\",\"led\":\"fax\",\"lit\":true,\"status\":\"on\"}\n"},
        {"connection N: of process N ended\n", "{\"connection\":N,\"event\":\"host_gone\",\"process\":N}\n"},
        {"connection N: made by process N\n", "{\"connection\":N,\"event\":\"host_came\",\"process\":N}\n"},
        {"connection N: fault \"fail\" applied\n",
         "{\"connection\":N,\"event\":\"fault\",\"fault\":\"fail\"}\n"},
        {"connection N: function 103 refused: unknown status\n",
         "{\"connection\":N,\"event\":\"refused\",\"function\":103,\"reason\":\"unknown status\"}\n"},
    };
    for (const std::string options : {"", "--json "}) {
        service_.reset();
        service_ = std::make_unique<service_process>();
        EXPECT_EQ(add_observer(), 0); // so that this process is no new host any more
        monitor events(options + "--count " + std::to_string(1 + std::size(rows)));
        EXPECT_EQ(ask_service(velarion::CONTROL_STATUS, {}).result, 0); // the monitor is attached by then
        EXPECT_EQ(add_observer(), 0);
        EXPECT_EQ(run("key press 3").exit_code, 0);
        EXPECT_EQ(run("key release 4").exit_code, 0);
        EXPECT_EQ(run("led set fax on").exit_code, 0);
        EXPECT_EQ(ask_service(velarion::CONTROL_SET_FAULT, {velarion::FAULT_FAIL, 6, 1}).result, 0);
        EXPECT_EQ(run("led all-on").exit_code, 1);
        for (const auto& row : rows) {
            EXPECT_EQ(events.next_line(), options.empty() ? row.line : row.json);
        }
    }
}

} // namespace
