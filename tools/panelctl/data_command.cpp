#include "command.h"

#include "command_line.h"
#include "display.h"
#include "dvc_pnl_rmg_property.h"
#include "image_query.h"

#include <QFile>
#include <QJsonObject>
#include <QSaveFile>

#include <vector>

namespace {

const QString COMMAND = QStringLiteral("data");

using velarion::dvc_pnl_rmg_image_resource_manager;

int report_failure(const QString& name, int result, int error) {
    const QString code = error == 0 ? QString() : QStringLiteral(" (platform code %1)").arg(error);
    if (result == velarion::DVC_PNL_RMG_RESULT_NOT_FOUND) {
        report_fault(QStringLiteral("there is no data file \"%1\"%2").arg(name, code));
        return EXIT_NOT_FOUND;
    }
    report_fault(QStringLiteral("data file \"%1\": result 0x%2%3")
                     .arg(name, QString::number(static_cast<uint>(result), 16), code));
    return result == velarion::DVC_PNL_RMG_RESULT_INVALID_ARGUMENT ? EXIT_USAGE : EXIT_SERVICE;
}

int put_file(dvc_pnl_rmg_image_resource_manager& images, const QString& name, const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        report_fault(QStringLiteral("%1 cannot be read: %2").arg(path, file.errorString()));
        return EXIT_SERVICE;
    }
    const QByteArray contents = file.readAll();
    if (file.error() != QFile::NoError) {
        report_fault(QStringLiteral("%1 cannot be read: %2").arg(path, file.errorString()));
        return EXIT_SERVICE;
    }
    const std::vector<unsigned char> bytes(contents.begin(), contents.end());
    int error = 0;
    const int result =
        images.dvc_pnl_rmg_set_image_data(name.toUtf8().constData(), bytes.data(), bytes.size(), error);
    return result == velarion::DVC_PNL_RMG_RESULT_OK ? EXIT_FOUND : report_failure(name, result, error);
}

int get_file(dvc_pnl_rmg_image_resource_manager& images, const QString& name, const QString& path) {
    std::vector<unsigned char> bytes;
    int error = 0;
    const int result = images.dvc_pnl_rmg_get_image_data(name.toUtf8().constData(), bytes, error);
    if (result != velarion::DVC_PNL_RMG_RESULT_OK) {
        return report_failure(name, result, error);
    }
    QSaveFile file(path);
    const auto size = static_cast<qint64>(bytes.size());
    const auto* const contents = static_cast<const char*>(static_cast<const void*>(bytes.data()));
    if (!file.open(QIODevice::WriteOnly) || file.write(contents, size) != size || !file.commit()) {
        report_fault(QStringLiteral("%1 cannot be written: %2").arg(path, file.errorString()));
        return EXIT_SERVICE;
    }
    return EXIT_FOUND;
}

int test_file(dvc_pnl_rmg_image_resource_manager& images, const QString& name, bool as_json) {
    int error = 0;
    const bool exists = images.dvc_pnl_rmg_is_exist_data_file(name.toUtf8().constData(), error);
    if (as_json) {
        print_json(QJsonDocument(QJsonObject{{QStringLiteral("name"), name},
                                             {QStringLiteral("exists"), exists},
                                             {QStringLiteral("PLATFORM_CODE"), error}}));
    } else {
        print_line(exists ? QStringLiteral("yes") : QStringLiteral("no"));
    }
    return exists ? EXIT_FOUND : EXIT_NOT_FOUND;
}

int remove_file(dvc_pnl_rmg_image_resource_manager& images, const QString& name) {
    int error = 0;
    const int result = images.dvc_pnl_rmg_remove_data_file(name.toUtf8().constData(), error);
    return result == velarion::DVC_PNL_RMG_RESULT_OK ? EXIT_FOUND : report_failure(name, result, error);
}

} // namespace

int run_data_command(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Keeps data files in the platform's store.\n\n"
                                                    "  put NAME FILE     stores the contents of FILE\n"
                                                    "  get NAME FILE     writes what is stored to FILE\n"
                                                    "  exists NAME       tells whether it is there\n"
                                                    "  remove NAME"));
    parser.addPositionalArgument(QStringLiteral("action"), QStringLiteral("What to do."),
                                 QStringLiteral("ACTION NAME [FILE]"));
    int exit_code = EXIT_FOUND;
    if (!read_arguments(parser, COMMAND, arguments, exit_code)) {
        return exit_code;
    }
    const QStringList words = parser.positionalArguments();
    const QString action = words.value(0);
    const bool takes_file = action == QLatin1String("put") || action == QLatin1String("get");
    if (!takes_file && action != QLatin1String("exists") && action != QLatin1String("remove")) {
        return usage_fault(COMMAND, QStringLiteral("unknown action \"%1\"").arg(action));
    }
    if (words.size() != (takes_file ? 3 : 2)) {
        return usage_fault(COMMAND,
                           QStringLiteral("%1 takes a name%2").arg(action, takes_file ? " and a file" : ""));
    }
    image_session session;
    if (takes_file) {
        return action == QLatin1String("put") ? put_file(session.images(), words.at(1), words.at(2))
                                              : get_file(session.images(), words.at(1), words.at(2));
    }
    return action == QLatin1String("exists")
               ? test_file(session.images(), words.at(1), parser.isSet(QLatin1String(JSON_OPTION)))
               : remove_file(session.images(), words.at(1));
}
