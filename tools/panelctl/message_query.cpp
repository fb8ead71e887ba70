#include "message_query.h"

#include "command_line.h"
#include "dvc_pnl_rmg_language_resource.h"
#include "dvc_pnl_rmg_property.h"
#include "language_names.h"
#include "text_search.h"

#include <algorithm>

namespace velarion {

namespace {

template <typename CONDITION> message_records messages_where(CONDITION is_wanted) {
    message_records found;
    for (const DVC_PNL_RMG_IMPL_MESSAGE* message : all_messages()) {
        if (is_wanted(*message)) {
            found.push_back(message);
        }
    }
    return found;
}

} // namespace

void add_language_options(QCommandLineParser& parser) {
    parser.addOptions({
        {QStringLiteral("language"),
         QStringLiteral("Language: %1; 999 is the option language of --option.")
             .arg(QString::fromStdString(known_languages())),
         QStringLiteral("LANGUAGE")},
        {QStringLiteral("option"), QStringLiteral("Option language."), QStringLiteral("LANGUAGE")},
        {QStringLiteral("all"), QStringLiteral("Every standard and every configured option language.")},
    });
}

bool choose_languages(const QCommandLineParser& parser, const QString& command,
                      dvc_pnl_rmg_language_resource& language, std::vector<int>& ids) {
    const QString language_option = QStringLiteral("language");
    const QString option_option = QStringLiteral("option");
    int id = DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_OPTION;
    int option_id = 0;
    if ((parser.isSet(language_option) &&
         !read_language_word(command, QStringLiteral("--language"), parser.value(language_option), id)) ||
        (parser.isSet(option_option) &&
         !read_language_word(command, QStringLiteral("--option"), parser.value(option_option), option_id))) {
        return false;
    }
    if (parser.isSet(QStringLiteral("all"))) {
        ids = all_language_ids(language);
    } else if (!parser.isSet(language_option) && !parser.isSet(option_option)) {
        ids = {language.dvc_pnl_rmg_get_language_id()};
    } else {
        ids = {id == DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_OPTION ? option_id : id};
    }
    return true;
}

std::vector<int> all_language_ids(dvc_pnl_rmg_language_resource& language) {
    const int* standard = language.dvc_pnl_rmg_get_standard_language_id_array();
    std::vector<int> ids(standard, standard + language.dvc_pnl_rmg_get_standard_language_number());
    language.dvc_pnl_rmg_get_option_language_id_array(ids);
    return ids;
}

message_records all_messages() {
    message_records all;
    for (int i = 0; i < dvc_pnl_rmg_imple_message_table_size; ++i) {
        all.push_back(&dvc_pnl_rmg_impl_message_table[i]);
    }
    return all;
}

message_records messages_named(const QString& name) {
    return messages_where([&name](const DVC_PNL_RMG_IMPL_MESSAGE& message) {
        return name.compare(QLatin1String(message.message_name), Qt::CaseInsensitive) == 0;
    });
}

message_records messages_with_text(dvc_pnl_rmg_language_resource& language, const QString& text,
                                   const std::vector<int>& language_ids) {
    const QString wanted = comparable_text(text);
    if (wanted.isEmpty()) {
        return {};
    }
    return messages_where([&](const DVC_PNL_RMG_IMPL_MESSAGE& message) {
        return std::any_of(language_ids.begin(), language_ids.end(),
                           [&](int id) { return comparable_text(text_of(language, message, id)) == wanted; });
    });
}

QString text_of(dvc_pnl_rmg_language_resource& language, const DVC_PNL_RMG_IMPL_MESSAGE& message,
                int language_id) {
    const QByteArray key = QByteArray::number(message.message_id);
    return language.dvc_pnl_rmg_get_message(key.constData(), language_id);
}

} // namespace velarion
