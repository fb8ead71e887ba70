#include "language_keyboards.h"

#include "dvc_pnl_rmg_language_resource.h"
#include "dvc_pnl_rmg_property.h"

#include <QFileInfo>

#include <string>

namespace velarion {

namespace {

constexpr int ENGLISH = 1;
constexpr char FIGURES_FILE[] = "numeric.kbd";

using file_operation = void (dvc_pnl_rmg_language_resource::*)(int, int&, int&, std::string&);

/** @param name  that the path is to end with */
QString path_of(file_operation operation, int language_id, const QString& name = QString()) {
    int first = 0;
    int second = 0;
    std::string path = name.toUtf8().constData();
    (dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_instance()->*operation)(language_id, first, second, path);
    return QString::fromUtf8(path.c_str());
}

language_information information_of(int language_id) {
    language_information information;
    QString fault;
    read_language_information(
        path_of(&dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_language_info_file_param, language_id),
        language_id, information, fault);
    return information;
}

std::vector<keyboard> read_keyboards(int language_id, bool has_figures) {
    std::vector<keyboard> boards;
    for (const QString& name : information_of(language_id).keyboards) {
        keyboard board;
        QString fault;
        if (read_keyboard(
                path_of(&dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_keymap_file_param, language_id, name),
                board, fault)) {
            const bool is_first = has_figures && name == QLatin1String(FIGURES_FILE);
            boards.insert(is_first ? boards.begin() : boards.end(), std::move(board));
        }
    }
    return boards;
}

keyboard figures() {
    keyboard board;
    board.name = QStringLiteral("123");
    keyboard_layer layer{QStringLiteral("base"), {}};
    for (const QString& row : {QStringLiteral("789"), QStringLiteral("456"), QStringLiteral("1230.")}) {
        layer.rows.emplace_back();
        for (const QChar figure : row) {
            layer.rows.back().push_back({QString(figure), {}, {}, 1});
        }
    }
    layer.rows.front().push_back({{}, {}, QStringLiteral("backspace"), 1});
    board.layers.push_back(std::move(layer));
    return board;
}

} // namespace

int language_in_force() {
    return dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_instance()->dvc_pnl_rmg_get_language_id();
}

std::vector<keyboard> keyboards_of(int language_id, bool has_figures) {
    std::vector<keyboard> boards = read_keyboards(language_id, has_figures);
    if (boards.empty()) {
        boards = read_keyboards(ENGLISH, has_figures);
    }
    if (boards.empty()) {
        boards.push_back(figures());
    }
    return boards;
}

QString prohibited_characters(int language_id, const QString& rule) {
    prohibitions rules;
    QString fault;
    read_prohibitions(
        path_of(&dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_prohibition_info_file_param, language_id),
        language_id, rules, fault);
    const auto found = rules.find(rule);
    return found != rules.end() ? found->second : QString();
}

message_text language_name(const language_choice& choice) {
    const bool is_option = choice.language_id == DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_OPTION;
    const int id = is_option ? choice.option_language_id : choice.language_id;
    const QString name = information_of(id).name;
    return message_text::literal(name.isEmpty() ? QString::number(id) : name);
}

} // namespace velarion
