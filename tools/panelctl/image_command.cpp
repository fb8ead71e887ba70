#include "command.h"

#include "command_line.h"
#include "display.h"
#include "dvc_pnl_rmg_image_name_table.h"
#include "image_query.h"

#include <QJsonArray>
#include <QJsonObject>

namespace velarion {

namespace {

const QString IMAGE_COMMAND = QStringLiteral("image");
const QString IMAGES_COMMAND = QStringLiteral("images");

using image_rows = std::vector<const DVC_PNL_RMG_IMPL_IMAGE_NAME*>;

QJsonObject to_json(const delivered_image& image, const QString& id) {
    return {{QStringLiteral("id"), id},
            {QStringLiteral("result"), image.result},
            {QStringLiteral("meaning"), describe_image_result(image.result)},
            {QStringLiteral("found_name"), image.found_name},
            {QStringLiteral("width"), image.pixmap.width()},
            {QStringLiteral("height"), image.pixmap.height()}};
}

int deliver(const QString& id, const QString& suffix, const QSize& size, const QString& file, bool as_json) {
    image_session session;
    const delivered_image image = session.request(id, suffix, size);
    const bool is_found = image.result == DVC_PNL_RMG_IMAGE_OK;
    const bool is_drawn = !image.pixmap.isNull(); // the placeholder of the test aid, also after a failure
    if (is_drawn && !write_picture(image.pixmap.toImage(), file)) {
        return EXIT_SERVICE;
    }
    if (as_json) {
        print_json(QJsonDocument(to_json(image, id)));
    } else if (is_found) {
        print_line(QStringLiteral("%1 %2  %3  %4x%5  %6")
                       .arg(QString::number(image.result), describe_image_result(image.result),
                            image.found_name, QString::number(image.pixmap.width()),
                            QString::number(image.pixmap.height()), file));
    } else {
        report_fault(QStringLiteral("image \"%1\": result %2, %3")
                         .arg(id, QString::number(image.result), describe_image_result(image.result)));
    }
    return is_found ? EXIT_FOUND : EXIT_NOT_FOUND;
}

void describe_image_arguments(QCommandLineParser& parser) {
    parser.setApplicationDescription(QStringLiteral(
        "Asks the library for one picture and writes it as PNG. ID is a number of the image table "
        "or a file name.\nPrints the result code, the name under which the picture was found, and "
        "its size."));
    parser.addPositionalArgument(QStringLiteral("id"), QStringLiteral("Image identifier."),
                                 QStringLiteral("ID"));
    parser.addOptions({
        {QStringLiteral("suffix"), QStringLiteral("State suffix, such as _on."), QStringLiteral("S")},
        {QStringLiteral("size"), QStringLiteral("Size in pixels; default: the natural size."),
         QStringLiteral("WxH")},
        {QStringList{QStringLiteral("o"), QStringLiteral("output")}, QStringLiteral("PNG file to write."),
         QStringLiteral("FILE")},
    });
}

/** @param size  receives what --size asks for. @return what is wrong; empty when nothing is */
QString find_fault(const QCommandLineParser& parser, QSize& size) {
    if (parser.positionalArguments().size() != 1) {
        return QStringLiteral("one image identifier is needed");
    }
    if (!parser.isSet(QStringLiteral("o"))) {
        return QStringLiteral("-o FILE is missing");
    }
    if (parser.isSet(QStringLiteral("size")) && !read_size(parser.value(QStringLiteral("size")), size)) {
        return QStringLiteral("--size takes WIDTHxHEIGHT in pixels");
    }
    return {};
}

void print_rows_as_json(const image_rows& images) {
    QJsonArray rows;
    for (const DVC_PNL_RMG_IMPL_IMAGE_NAME* image : images) {
        rows.append(QJsonObject{{QStringLiteral("id"), image->image_id},
                                {QStringLiteral("name"), QString::fromUtf8(image->image_name)},
                                {QStringLiteral("file"), QString::fromUtf8(image->file_name)}});
    }
    print_json(QJsonDocument(rows));
}

void print_rows(const image_rows& images) {
    std::vector<QStringList> rows;
    for (const DVC_PNL_RMG_IMPL_IMAGE_NAME* image : images) {
        const QString file = QString::fromUtf8(image->file_name);
        rows.push_back({QString::number(image->image_id), QString::fromUtf8(image->image_name),
                        file.trimmed().isEmpty() ? QStringLiteral("(no picture)") : file});
    }
    print_table(rows);
}

} // namespace

int run_image_command(const QStringList& arguments) {
    QCommandLineParser parser;
    describe_image_arguments(parser);
    int exit_code = EXIT_FOUND;
    if (!read_arguments(parser, IMAGE_COMMAND, arguments, exit_code)) {
        return exit_code;
    }
    QSize size(0, 0);
    const QString fault = find_fault(parser, size);
    if (!fault.isEmpty()) {
        return usage_fault(IMAGE_COMMAND, fault);
    }
    return deliver(parser.positionalArguments().at(0), parser.value(QStringLiteral("suffix")), size,
                   parser.value(QStringLiteral("o")), parser.isSet(QLatin1String(JSON_OPTION)));
}

int run_images_command(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Lists the rows of the image table. Ends with 1 when no row matches the filter."));
    parser.addOption(
        {QStringLiteral("filter"),
         QStringLiteral("Only rows whose number, name or file holds the text, in any letter case."),
         QStringLiteral("TEXT")});
    int exit_code = EXIT_FOUND;
    if (!read_options(parser, IMAGES_COMMAND, arguments, exit_code)) {
        return exit_code;
    }
    const image_rows images = find_images(parser.value(QStringLiteral("filter")));
    if (images.empty()) {
        report_no_match(parser.value(QStringLiteral("filter")));
    }
    if (parser.isSet(QLatin1String(JSON_OPTION))) {
        print_rows_as_json(images);
    } else {
        print_rows(images);
    }
    return images.empty() ? EXIT_NOT_FOUND : EXIT_FOUND;
}

} // namespace velarion
