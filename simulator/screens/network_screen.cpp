#include "network_screen.h"

#include "language_keyboards.h"
#include "machine_state.h"
#include "panel_frame.h"
#include "panel_list.h"
#include "panel_view_ids.h"
#include "screen_layout.h"

#include <algorithm>

namespace velarion {

namespace {

constexpr int LONGEST_ADDRESS = 15; // characters
constexpr int LONGEST_NAME = 63;

/** A setting that is on or off. */
struct switched_value {
    const char* name;
    const char* text;
    bool network_settings::*value;
};

constexpr switched_value SWITCHES[] = {
    {"dhcp", MSG_NORMAL_NET_AUTO_DHCP, &network_settings::has_dhcp},
    {"ipv6", MSG_NORMAL_NET_SERVICE_IPV6, &network_settings::has_ipv6},
    {"wireless", MSG_HELP_WIRELESS_LAN_TITLE, &network_settings::has_wireless},
};

/** A setting that is entered. */
struct entered_value {
    const char* name;
    const char* text;
    QString network_settings::*value;
    bool is_address;
};

const entered_value ENTRIES[] = {
    {"address", MSG_NORMAL_NET_IF_ETHERNET_IPv4, &network_settings::address, true},
    {"gateway", MSG_NORMAL_NET_IF_ETHERNET_GATEWAY, &network_settings::gateway, true},
    {"host_name", MSG_NORMAL_NET_IF_ETHERNET_HOST, &network_settings::host_name, false},
};

/** From 0 to 255, in figures alone: the toolkit would take blanks and signs too. */
bool is_byte(const QString& text) {
    const bool has_figures = std::all_of(text.begin(), text.end(), [](QChar sign) {
        return sign >= QLatin1Char('0') && sign <= QLatin1Char('9');
    });
    return has_figures && !text.isEmpty() && text.size() <= 3 && text.toUInt() <= 255;
}

bool is_address(const QString& text) {
    const QStringList parts = text.split(QLatin1Char('.'));
    return parts.size() == 4 && std::all_of(parts.begin(), parts.end(), is_byte);
}

} // namespace

network_screen::network_screen(const panel_context& context)
    : panel_screen(context)
    , list_(new panel_list) {
    lay_out_column(*this, {list_});
    connect(list_, &panel_list::chosen, this, [this](int row) { choose(list_->row_name(row)); });
    connect(&machine(), &machine_state::changed, this, [this] { refresh(); });
    refresh();
}

message_text network_screen::title() const {
    return MSG_NORMAL_NET_TITLE;
}

void network_screen::refresh() {
    const network_settings& network = machine().network();
    std::vector<list_row> rows;
    for (const switched_value& entry : SWITCHES) {
        rows.push_back({QLatin1String(entry.name),
                        {},
                        entry.text,
                        network.*entry.value ? MSG_CMN_ON_TEXT : MSG_CMN_OFF_TEXT});
    }
    for (const entered_value& entry : ENTRIES) {
        rows.push_back(
            {QLatin1String(entry.name), {}, entry.text, message_text::literal(network.*entry.value)});
    }
    rows.push_back({QStringLiteral("mac"),
                    {},
                    MSG_NORMAL_NET_IF_ETHERNET_MAC,
                    message_text::literal(network.hardware_address)});
    list_->set_rows(rows);
}

void network_screen::choose(const QString& name) {
    for (const switched_value& entry : SWITCHES) {
        if (name == QLatin1String(entry.name)) {
            network_settings network = machine().network();
            network.*entry.value = !(network.*entry.value);
            machine().set_network(network);
        }
    }
    for (const entered_value& entry : ENTRIES) {
        if (name == QLatin1String(entry.name)) {
            ask_value(entry.text, entry.value, entry.is_address);
        }
    }
}

/** An address that is entered ends the automatic one. */
void network_screen::ask_value(const char* title, QString network_settings::*value, bool wants_address) {
    text_request request;
    request.title = title;
    request.text = machine().network().*value;
    request.has_figures = wants_address;
    request.limit = wants_address ? LONGEST_ADDRESS : LONGEST_NAME;
    request.rule = QLatin1String(FIELD_USER_NAME);
    if (wants_address) {
        request.accepts = is_address;
        request.fault = MSG_NORMAL_NET_INVALID_IP;
    }
    request.done = [&machine = machine(), value, wants_address](const QString& text) {
        network_settings network = machine.network();
        network.*value = text;
        network.has_dhcp = network.has_dhcp && !wants_address;
        machine.set_network(network);
    };
    frame().ask_text(request);
}

} // namespace velarion
