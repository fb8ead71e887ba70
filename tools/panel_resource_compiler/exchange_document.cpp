#include "exchange_document.h"

#include <algorithm>
#include <charconv>
#include <ctime>
#include <sys/stat.h>

namespace velarion {

namespace {

constexpr std::size_t ENGLISH = 1;
constexpr char NO_TRANSLATION[] = "none";

/** What other programs call languages that packs are made for. */
const std::map<std::string, std::string> PACK_LOCALES = {
    {"30", "el"},  {"36", "hu"},     {"40", "ro"},    {"45", "da"},  {"46", "sv"},
    {"47", "nb"},  {"48", "pl"},     {"55", "pt_BR"}, {"66", "th"},  {"82", "ko"},
    {"84", "vi"},  {"86", "zh_CN"},  {"90", "tr"},    {"351", "pt"}, {"358", "fi"},
    {"420", "cs"}, {"886", "zh_TW"}, {"966", "ar"},   {"972", "he"}};

std::string texts_path(const std::string& catalogue, const std::string& name) {
    const bool is_number = std::all_of(name.begin(), name.end(), [](char c) { return c >= '0' && c <= '9'; });
    return catalogue + (is_number ? "/packs/" + name + "/texts.tsv" : "/texts/" + name + ".tsv");
}

/** Whether a text consists of BLANK_TEXT alone. */
bool is_all_blanks(const std::string& text) {
    const std::string blank = BLANK_TEXT;
    for (std::size_t i = 0; i < text.size(); i += blank.size()) {
        if (text.compare(i, blank.size(), blank) != 0) {
            return false;
        }
    }
    return true;
}

std::string date_of(const std::string& path) {
    struct stat status = {};
    std::tm parts = {};
    char date[sizeof "9999-12-31 23:59+0000"] = "";
    if (stat(path.c_str(), &status) == 0 && gmtime_r(&status.st_mtime, &parts)) {
        std::strftime(date, sizeof date, "%Y-%m-%d %H:%M+0000", &parts);
    }
    return date;
}

} // namespace

std::string text_for_exchange(const std::string& text) {
    return is_all_blanks(text) ? text + BLANK_TEXT : text;
}

std::string text_from_exchange(const std::string& text) {
    return is_all_blanks(text) && !text.empty() ? text.substr(std::string(BLANK_TEXT).size()) : text;
}

std::string translation_mark(const std::optional<std::string>& translation) {
    return translation ? english_hash(*translation) : NO_TRANSLATION;
}

exchange_language::exchange_language(std::string catalogue, std::string name)
    : catalogue_(std::move(catalogue))
    , name_(std::move(name))
    , texts_(texts_path(catalogue_, name_), {"row", "text"})
    , confirmed_(catalogue_, name_) {}

bool exchange_language::is_pack() const {
    return texts_.path().find("/packs/", catalogue_.size()) != std::string::npos;
}

bool exchange_language::is_english() const {
    return name_ == STANDARD_LANGUAGE_NAMES[ENGLISH];
}

bool exchange_language::read(diagnostics& report) {
    messages_ = read_message_catalogue(catalogue_, report);
    if (is_pack()) {
        read_row_texts(texts_.path(), {}, report);
    }
    if (report.error_count() != 0 || !texts_.read(report) || !confirmed_.read(report)) {
        return false;
    }
    for (std::int32_t row = FIRST_TEXT_ROW; row < NULL_ROW; ++row) {
        if (!english(row).empty() || texts_.has(std::to_string(row))) {
            rows_[row];
        }
    }
    for (const catalogue_message& message : messages_.messages) {
        if (message.row >= FIRST_TEXT_ROW) {
            rows_[message.row].push_back(message.name + " (" + std::to_string(message.id) + ")");
        }
    }
    return true;
}

bool exchange_language::is_exported(std::int32_t row) const {
    return !english(row).empty() || texts_.has(std::to_string(row));
}

const std::string& exchange_language::english(std::int32_t row) const {
    return messages_.rows[static_cast<std::size_t>(row)].texts[ENGLISH];
}

catalogue_row exchange_language::row_with(std::int32_t row, const std::string& text) const {
    catalogue_row texts = messages_.rows[static_cast<std::size_t>(row)];
    for (std::size_t i = 0; i < STANDARD_LANGUAGE_NAMES.size(); ++i) {
        if (name_ == STANDARD_LANGUAGE_NAMES[i]) {
            texts.texts[i] = text;
        }
    }
    return texts;
}

std::optional<std::string> exchange_language::text(std::int32_t row) const {
    const std::vector<std::string> fields = texts_.fields(std::to_string(row));
    return fields.empty() ? std::nullopt : std::optional(fields[1]);
}

void exchange_language::put(std::int32_t row, const std::optional<std::string>& text) {
    if (text) {
        texts_.put({std::to_string(row), *text});
    } else {
        texts_.remove(std::to_string(row));
        forget(row);
    }
}

exchange_document exchange_language::to_document() const {
    exchange_document document;
    document.language = name_;
    const auto locale = PACK_LOCALES.find(name_);
    document.locale = is_pack() ? (locale == PACK_LOCALES.end() ? "" : locale->second) : name_;
    document.english_date = date_of(texts_path(catalogue_, STANDARD_LANGUAGE_NAMES[ENGLISH]));
    document.language_date = date_of(texts_.path());
    for (const auto& [row, names] : rows_) {
        if (!is_exported(row)) {
            continue;
        }
        exchange_unit unit;
        const std::optional<std::string> own = text(row);
        unit.key = std::to_string(row);
        unit.names = names;
        unit.source = english(row);
        unit.translation = own ? text_for_exchange(*own) : "";
        unit.is_stale = own && confirmed_.state(row, english(row)) == confirmation::STALE;
        unit.is_unfinished = !own || unit.is_stale;
        unit.exported = translation_mark(own);
        unit.source = text_for_exchange(unit.source);
        document.units.push_back(std::move(unit));
    }
    return document;
}

} // namespace velarion
