/*
 * What a text by its key costs beside its conversion from UTF-8 alone, and beside gettext, the toolkit's
 * translator and ICU's resource bundles with the same texts under the same keys.
 *
 * PEER_CATALOGUES names the folder of the peers' catalogues.
 */
#include "dvc_pnl_rmg_language_resource.h"
#include "dvc_pnl_rmg_message_table.h"
#include "measured_cases.h"
#include "text_peers.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using velarion::add_case;
using velarion::keep;

constexpr int GERMAN = 49;
constexpr int GERMAN_COLUMN = 2;
constexpr int HOT_IDS = 64;
constexpr unsigned int SEED = 20;

struct key_and_text {
    std::string key;
    const char* text;
};

std::vector<key_and_text> messages_in_random_order() {
    std::vector<key_and_text> messages;
    for (int i = 0; i < dvc_pnl_rmg_imple_message_table_size; ++i) {
        const DVC_PNL_RMG_IMPL_MESSAGE& message = dvc_pnl_rmg_impl_message_table[i];
        messages.push_back({std::to_string(message.message_id),
                            standard_language_message_table[message.message_table_index][GERMAN_COLUMN]});
    }
    std::mt19937 random(SEED);
    for (std::size_t i = messages.size(); i > 1; --i) { // the library's own shuffle differs between systems
        std::swap(messages[i - 1], messages[random() % i]);
    }
    return messages;
}

template <typename TEXT_OF>
void add_lookup(const std::string& name, const std::vector<key_and_text>& messages, TEXT_OF text_of) {
    add_case(name, static_cast<int>(messages.size()), [&messages, text_of] {
        std::size_t length = 0;
        for (const key_and_text& message : messages) {
            length += static_cast<std::size_t>(text_of(message).size());
        }
        keep(length);
    });
}

void add_lookups(const std::string& work, const std::vector<key_and_text>& messages,
                 velarion::dvc_pnl_rmg_language_resource& ours, const velarion::text_peers& peers) {
    add_lookup(work + "/ours", messages, [&ours](const key_and_text& message) {
        return ours.dvc_pnl_rmg_get_message(message.key.c_str(), GERMAN);
    });
    add_lookup(work + "/floor", messages,
               [](const key_and_text& message) { return QString::fromUtf8(message.text); });
    add_lookup(work + "/gettext", messages, [](const key_and_text& message) {
        return velarion::text_peers::by_gettext(message.key.c_str());
    });
    add_lookup(work + "/translator", messages, [](const key_and_text& message) {
        return velarion::text_peers::by_translator(message.key.c_str());
    });
    if (peers.has_icu()) {
        add_lookup(work + "/icu", messages,
                   [&peers](const key_and_text& message) { return peers.by_icu(message.key.c_str()); });
    }
}

/** A peer that gave other texts would be no peer. */
void check_peers(const std::vector<key_and_text>& messages, velarion::dvc_pnl_rmg_language_resource& ours,
                 const velarion::text_peers& peers) {
    for (const key_and_text& message : messages) {
        const char* key = message.key.c_str();
        const QString text = ours.dvc_pnl_rmg_get_message(key, GERMAN);
        const bool is_empty_for_gettext = text.isEmpty(); // which then gives the key
        if ((!is_empty_for_gettext && velarion::text_peers::by_gettext(key) != text) ||
            (!text.isEmpty() && velarion::text_peers::by_translator(key) != text) ||
            (peers.has_icu() && peers.by_icu(key) != text)) {
            throw std::runtime_error("a peer's text of message " + message.key + " differs");
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    int result = 3;
    try {
        auto& ours = *velarion::dvc_pnl_rmg_language_resource::dvc_pnl_rmg_create_instance();
        const char* folder = std::getenv("PEER_CATALOGUES");
        const velarion::text_peers peers(folder ? folder : ".");
        const std::vector<key_and_text> all = messages_in_random_order();
        const std::vector<key_and_text> hot(all.begin(), all.begin() + HOT_IDS);
        check_peers(all, ours, peers);
        add_lookups("text_hot", hot, ours, peers);
        add_lookups("text_any", all, ours, peers);
        result = velarion::run_cases(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench_texts: %s\n", error.what());
    }
    velarion::dvc_pnl_rmg_language_resource::dvc_pnl_rmg_delete_instance();
    return result;
}
