#include "documents_screen.h"

#include "machine_state.h"
#include "message_label.h"
#include "panel_button.h"
#include "panel_dialog.h"
#include "panel_frame.h"
#include "panel_list.h"
#include "panel_view_ids.h"
#include "screen_layout.h"
#include "theme.h"

namespace velarion {

namespace {

/** Of the kinds of documents. */
constexpr const char* KIND_PICTURES[] = {ICON_NORMAL_OTHER_DOCUMENT_SERVER_SCAN,
                                         ICON_NORMAL_OTHER_DOCUMENT_SERVER_PRINT,
                                         ICON_NORMAL_OTHER_DOCUMENT_SERVER_FAX};

/** Figures and signs in the order in which they stand here, also in a text from right to left. */
QString isolated(const QString& text) {
    return QChar(0x2066) + text + QChar(0x2069);
}

message_text size_and_date(const stored_document& document) {
    const QString size = document.kilobytes < 1000
                             ? QStringLiteral("%1 kB").arg(document.kilobytes)
                             : QStringLiteral("%1 MB").arg(document.kilobytes / 1000.0, 0, 'f', 1);
    return message_text::literal(isolated(size) + QStringLiteral("   ") + isolated(document.date));
}

} // namespace

documents_screen::documents_screen(const panel_context& context)
    : panel_screen(context)
    , list_(new panel_list)
    , note_(new message_label)
    , all_(new panel_button("select_all", button_form::TEXT, MSG_CMN_SELECT_ALL))
    , delete_(new panel_button("delete", button_form::TEXT, MSG_CMN_DELETE_TEXT))
    , print_(new panel_button("print", button_form::TEXT, MSG_NORMAL_FAXSET_RXFILE_PRINT)) {
    print_->set_primary(true);
    note_->set_color(colors::quiet_text);
    note_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    lay_out_column(*this, {list_, make_row({note_, all_, delete_, print_})});
    connect(list_, &panel_list::chosen, this, [this](int row) { choose(row); });
    connect(all_, &QAbstractButton::clicked, this, [this] { choose_all(); });
    connect(delete_, &QAbstractButton::clicked, this, [this] { ask_to_delete(); });
    connect(print_, &QAbstractButton::clicked, this, [this] { print(); });
    connect(&machine(), &machine_state::changed, this, [this] { refresh(); });
    refresh();
}

message_text documents_screen::title() const {
    return MSG_NORMAL_TITLE_DOCUMENT_SERVER;
}

void documents_screen::refresh() {
    std::vector<list_row> rows;
    std::set<int> still_chosen;
    for (const stored_document& document : machine().documents()) {
        const bool is_chosen = chosen_.count(document.number) != 0;
        const char* picture =
            is_chosen ? ICON_CMN_OTHER_CHECK : KIND_PICTURES[static_cast<int>(document.kind)];
        rows.push_back({QStringLiteral("document_%1").arg(document.number), QLatin1String(picture),
                        message_text::literal(document.name), size_and_date(document), is_chosen});
        if (is_chosen) {
            still_chosen.insert(document.number);
        }
    }
    chosen_ = still_chosen;
    list_->set_rows(rows);
    const bool has_chosen = !chosen_.empty();
    note_->set_message(rows.empty() ? message_text(MSG_NORMAL_LIST_NO_ITEMS_FOUND)
                       : has_chosen ? message_text(MSG_NORMAL_DOCSERVER_TEXT_FILES_SELECTED,
                                                   {QString::number(static_cast<int>(chosen_.size()))})
                                    : message_text(MSG_NORMAL_DOCSERVER_TEXT_SELECT_FILE));
    all_->set_message(!rows.empty() && chosen_.size() == rows.size() ? MSG_NORMAL_LIST_DESELECT_ALL
                                                                     : MSG_CMN_SELECT_ALL);
    all_->setEnabled(!rows.empty());
    delete_->setEnabled(has_chosen);
    print_->setEnabled(has_chosen);
}

void documents_screen::choose(int row) {
    const int number = machine().documents()[static_cast<std::size_t>(row)].number;
    if (chosen_.erase(number) == 0) {
        chosen_.insert(number);
    }
    refresh();
}

/** Once more: none. */
void documents_screen::choose_all() {
    const bool has_all = chosen_.size() == machine().documents().size();
    chosen_.clear();
    for (const stored_document& document : machine().documents()) {
        if (!has_all) {
            chosen_.insert(document.number);
        }
    }
    refresh();
}

void documents_screen::ask_to_delete() {
    const message_text question(MSG_DIALOG_DELETE_FILES_COUNT,
                                {QString::number(static_cast<int>(chosen_.size()))});
    const auto remove = [&machine = machine(), numbers = chosen_] { machine.delete_documents(numbers); };
    frame().show_dialog(new panel_dialog(
        question, nullptr,
        {{"dialog_cancel", MSG_CMN_CANCEL_TEXT, {}}, {"dialog_delete", MSG_CMN_DELETE_TEXT, remove, true}}));
}

void documents_screen::print() {
    machine().print_documents(chosen_);
    frame().open(QStringLiteral("status"));
}

} // namespace velarion
