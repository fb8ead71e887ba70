#include "delayed_replies.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace velarion {

namespace {

constexpr std::ptrdiff_t MOST_DELAYED = 1024; // for one connection
constexpr std::int64_t NEVER = -1;

} // namespace

void delayed_replies::add(std::uint32_t connection, std::vector<char> message, std::int64_t due) {
    replies_.insert({due, {connection, std::move(message)}});
}

void delayed_replies::forget(std::uint32_t connection) {
    for (auto reply = replies_.begin(); reply != replies_.end();) {
        reply = reply->second.connection == connection ? replies_.erase(reply) : std::next(reply);
    }
}

bool delayed_replies::is_full(std::uint32_t connection) const {
    return std::count_if(replies_.begin(), replies_.end(), [&](const auto& entry) {
               return entry.second.connection == connection;
           }) >= MOST_DELAYED;
}

void delayed_replies::send_due(std::int64_t now, const message_sender& sender) {
    while (!replies_.empty() && replies_.begin()->first <= now) {
        delayed_reply due = std::move(replies_.begin()->second);
        replies_.erase(replies_.begin());
        sender(due.connection, std::move(due.message));
    }
}

std::int64_t delayed_replies::next_due() const {
    return replies_.empty() ? NEVER : replies_.begin()->first;
}

} // namespace velarion
