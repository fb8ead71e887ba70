#include "command.h"

#include "command_line.h"
#include "display.h"
#include "dvc_pnl_rmg_property.h"
#include "image_query.h"
#include "output_file.h"
#include "platform_codes.h"

#include <QFile>
#include <QJsonObject>

#include <vector>

namespace velarion {

namespace {

const QString COMMAND = QStringLiteral("data");
constexpr int LARGEST_STREAM = 16777216; // bytes taken from a pipe or device, which need not end

QString reason_of(int error) {
    switch (error) {
    case PLATFORM_NAME_REFUSED:
        return QStringLiteral("the name is malformed, too long, or leads through a link or a file");
    case PLATFORM_NOT_A_FILE:
        return QStringLiteral("the name belongs to a folder, a link or a device");
    case PLATFORM_NO_SPACE:
        return QStringLiteral("there is no room; the earlier file is kept");
    case PLATFORM_ACCESS_DENIED:
        return QStringLiteral("access is denied; check the rights of the store's folder");
    case PLATFORM_NO_FOLDER:
        return QStringLiteral("there is no store; set PANEL_PLATFORM_DIR to a folder");
    case PLATFORM_NOT_DURABLE:
        return QStringLiteral("it is done, but a loss of power may undo it");
    default:
        return QStringLiteral("the store failed");
    }
}

int report_failure(const QString& name, int result, int error) {
    const QString code = error == 0 ? QString() : QStringLiteral(" (platform code %1)").arg(error);
    if (result == DVC_PNL_RMG_RESULT_NOT_FOUND && error == PLATFORM_NOT_FOUND) {
        report_fault(QStringLiteral("there is no data file \"%1\"%2").arg(name, code));
        return EXIT_NOT_FOUND;
    }
    report_fault(QStringLiteral("data file \"%1\": %2 (result 0x%3%4)")
                     .arg(name, reason_of(error), QString::number(static_cast<uint>(result), 16), code));
    return result == DVC_PNL_RMG_RESULT_INVALID_ARGUMENT ? EXIT_USAGE : EXIT_SERVICE;
}

/** @return false after a fault, which is reported */
bool read_file(const QString& path, QByteArray& contents) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        report_fault(QStringLiteral("%1 cannot be read: %2").arg(path, file.errorString()));
        return false;
    }
    if (file.isSequential()) {
        QByteArray piece;
        do {
            piece = file.read(LARGEST_STREAM + 1 - contents.size());
            contents += piece;
        } while (!piece.isEmpty() && contents.size() <= LARGEST_STREAM);
    } else {
        contents = file.readAll();
    }
    if (file.error() != QFile::NoError) {
        report_fault(QStringLiteral("%1 cannot be read: %2").arg(path, file.errorString()));
        return false;
    }
    const bool is_read_whole = !file.isSequential() || contents.size() <= LARGEST_STREAM;
    if (!is_read_whole) {
        report_fault(
            QStringLiteral("%1 is a pipe or device and gives more than 16 MiB; put it into a file first")
                .arg(path));
    }
    return is_read_whole;
}

int put_file(dvc_pnl_rmg_image_resource_manager& images, const QString& name, const QString& path) {
    QByteArray contents;
    if (!read_file(path, contents)) {
        return EXIT_SERVICE;
    }
    const std::vector<unsigned char> bytes(contents.begin(), contents.end());
    int error = 0;
    const int result =
        images.dvc_pnl_rmg_set_image_data(name.toUtf8().constData(), bytes.data(), bytes.size(), error);
    return result == DVC_PNL_RMG_RESULT_OK ? EXIT_FOUND : report_failure(name, result, error);
}

int get_file(dvc_pnl_rmg_image_resource_manager& images, const QString& name, const QString& path) {
    std::vector<unsigned char> bytes;
    int error = 0;
    const int result = images.dvc_pnl_rmg_get_image_data(name.toUtf8().constData(), bytes, error);
    if (result != DVC_PNL_RMG_RESULT_OK) {
        return report_failure(name, result, error);
    }
    const auto* const contents = static_cast<const char*>(static_cast<const void*>(bytes.data()));
    return write_output_file(path, QByteArray::fromRawData(contents, static_cast<int>(bytes.size())))
               ? EXIT_FOUND
               : EXIT_SERVICE;
}

int test_file(dvc_pnl_rmg_image_resource_manager& images, const QString& name, bool as_json) {
    int error = 0;
    const bool exists = images.dvc_pnl_rmg_is_exist_data_file(name.toUtf8().constData(), error);
    if (as_json) {
        print_json(QJsonDocument(QJsonObject{{QStringLiteral("name"), name},
                                             {QStringLiteral("exists"), exists},
                                             {QStringLiteral("platform_code"), error}}));
    } else {
        print_line(exists ? QStringLiteral("yes") : QStringLiteral("no"));
    }
    if (exists || error == PLATFORM_NOT_FOUND) {
        return exists ? EXIT_FOUND : EXIT_NOT_FOUND;
    }
    return report_failure(name, DVC_PNL_RMG_RESULT_IO_ERROR, error);
}

int remove_file(dvc_pnl_rmg_image_resource_manager& images, const QString& name) {
    int error = 0;
    const int result = images.dvc_pnl_rmg_remove_data_file(name.toUtf8().constData(), error);
    return result == DVC_PNL_RMG_RESULT_OK ? EXIT_FOUND : report_failure(name, result, error);
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
    if (words.at(1).isEmpty()) {
        return usage_fault(COMMAND, QStringLiteral("the name is empty"));
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

} // namespace velarion
