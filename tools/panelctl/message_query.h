#ifndef MESSAGE_QUERY_H
#define MESSAGE_QUERY_H

#include "dvc_pnl_rmg_message_table.h"

#include <QCommandLineParser>
#include <QString>

#include <vector>

namespace velarion {

class dvc_pnl_rmg_language_resource;

using message_records = std::vector<const DVC_PNL_RMG_IMPL_MESSAGE*>;

/** Adds the options that choose languages: --language, --option and --all. */
void add_language_options(QCommandLineParser& parser);

/**
 * The languages that the options ask for; the language in force when they ask for none.
 * @return false after a fault, which is reported
 */
bool choose_languages(const QCommandLineParser& parser, const QString& command,
                      dvc_pnl_rmg_language_resource& language, std::vector<int>& ids);

/** The ids of every standard and every configured option language. */
std::vector<int> all_language_ids(dvc_pnl_rmg_language_resource& language);

/** All messages of the panel, ascending by id. */
message_records all_messages();

/** The messages with a name, in any letter case; names may repeat. */
message_records messages_named(const QString& name);

/** The messages with a text in one of these languages, whatever its letter case and line breaks. */
message_records messages_with_text(dvc_pnl_rmg_language_resource& language, const QString& text,
                                   const std::vector<int>& language_ids);

/** The text of a message as the panel shows it. */
QString text_of(dvc_pnl_rmg_language_resource& language, const DVC_PNL_RMG_IMPL_MESSAGE& message,
                int language_id);

} // namespace velarion

#endif
