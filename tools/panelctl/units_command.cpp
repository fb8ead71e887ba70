#include "command.h"

#include "command_line.h"
#include "display.h"
#include "dvc_pnl_common_utility.h"

#include <QJsonArray>
#include <QJsonObject>

#include <cmath>

namespace velarion {

namespace {

const QString COMMAND = QStringLiteral("units");

bool read_rounding(const QString& name, dvc_pnl_common_utility::ROUNDING_TYPE& type) {
    const QStringList names{QStringLiteral("ceil"), QStringLiteral("floor"), QStringLiteral("round")};
    const int index = names.indexOf(name);
    type = static_cast<dvc_pnl_common_utility::ROUNDING_TYPE>(index);
    return index >= 0;
}

/** @return whether the size is one; @p result receives its conversion with its unit */
bool convert(const QCommandLineParser& parser, const QString& size,
             dvc_pnl_common_utility::ROUNDING_TYPE type, QString& result) {
    bool is_size = false;
    if (parser.isSet(QStringLiteral("mm"))) {
        const double millimetre = size.toDouble(&is_size);
        const int px = dvc_pnl_common_utility::get_mm_to_pixel_size(
            parser.value(QStringLiteral("mm")).toInt(), millimetre);
        result = QStringLiteral("%1px").arg(px);
        return is_size && std::isfinite(millimetre);
    }
    if (parser.isSet(QStringLiteral("to-dp"))) {
        const int px = size.toInt(&is_size);
        result = QString::fromLatin1(dvc_pnl_common_utility::pixel2dip(px).c_str());
        return is_size;
    }
    const std::string px = dvc_pnl_common_utility::pixeldip2pixel(size.toUtf8().constData(), type);
    int number = 0;
    result = QString::fromUtf8(px.c_str()) + QStringLiteral("px");
    return dvc_pnl_common_utility::string_to_int(px, number);
}

void describe_arguments(QCommandLineParser& parser) {
    parser.setApplicationDescription(QStringLiteral(
        "Converts sizes to device pixels as the panel does: \"10dp\", \"10dp+4\", \"100-8dp\".\n"
        "A single size is always truncated. An operand that is no size makes the result 0; one without a\n"
        "number before \"dp\" counts as 0. Sizes that start with \"-\" go behind \"--\".\n"
        "\"ceil\" is the panel's name for rounding to the nearest pixel."));
    parser.addPositionalArgument(QStringLiteral("size"), QStringLiteral("Size or sum or difference of two."),
                                 QStringLiteral("SIZE..."));
    parser.addOptions({
        {QStringLiteral("round"), QStringLiteral("ceil, floor or round (default) for the operands."),
         QStringLiteral("TYPE"), QStringLiteral("round")},
        {QStringLiteral("to-dp"), QStringLiteral("Takes pixels and prints dp.")},
        {QStringLiteral("mm"), QStringLiteral("Takes millimetres on a screen of density 0 or 1."),
         QStringLiteral("DENSITY")},
    });
}

/** @return what is wrong with the options and the number of sizes; empty when nothing is */
QString find_fault(const QCommandLineParser& parser, dvc_pnl_common_utility::ROUNDING_TYPE& type) {
    if (!read_rounding(parser.value(QStringLiteral("round")), type)) {
        return QStringLiteral("--round takes ceil, floor or round");
    }
    const QString density = parser.value(QStringLiteral("mm"));
    if (parser.isSet(QStringLiteral("mm")) && density != QLatin1String("0") &&
        density != QLatin1String("1")) {
        return QStringLiteral("--mm takes 0 or 1");
    }
    return parser.positionalArguments().isEmpty() ? QStringLiteral("no size") : QString();
}

} // namespace

int run_units_command(const QStringList& arguments) {
    QCommandLineParser parser;
    describe_arguments(parser);
    int exit_code = EXIT_FOUND;
    if (!read_arguments(parser, COMMAND, arguments, exit_code)) {
        return exit_code;
    }
    dvc_pnl_common_utility::ROUNDING_TYPE type = dvc_pnl_common_utility::ROUNDING_ROUND;
    const QString fault = find_fault(parser, type);
    if (!fault.isEmpty()) {
        return usage_fault(COMMAND, fault);
    }
    QJsonArray results;
    for (const QString& size : parser.positionalArguments()) {
        QString result;
        if (!convert(parser, size, type, result)) {
            return usage_fault(COMMAND, QStringLiteral("\"%1\" is no size").arg(size));
        }
        results.append(QJsonObject{{QStringLiteral("size"), size}, {QStringLiteral("result"), result}});
        if (!parser.isSet(QLatin1String(JSON_OPTION))) {
            print_line(result);
        }
    }
    if (parser.isSet(QLatin1String(JSON_OPTION))) {
        print_json(QJsonDocument(results));
    }
    return EXIT_FOUND;
}

} // namespace velarion
