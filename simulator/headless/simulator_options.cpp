#include "simulator_options.h"

#include "language_names.h"

#include <QCommandLineParser>

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace velarion {

namespace {

constexpr const char* HEADLESS_OPTIONS[] = {"screenshot", "all-screens",  "report", "review",
                                            "script",     "list-screens", "help",   "version"};

struct fault_name {
    const char* name;
    fault_class fault;
};
constexpr fault_name FAULT_NAMES[] = {{"overflow", FAULT_OVERFLOW},
                                      {"overlap", FAULT_OVERLAP},
                                      {"glyphs", FAULT_GLYPHS},
                                      {"pictures", FAULT_PICTURES},
                                      {"fallbacks", FAULT_FALL_BACKS}};

constexpr char DESCRIPTION[] =
    "The operation panel on a workstation: in a window with an inspector, or without one as pictures, "
    "reports\n"
    "and scripts. Run it on the sample device: scripts/device-shell panel_simulator";

constexpr char EXIT_CODES[] =
    "Exit codes: 0 good, 1 faults were found or a line of a script failed, 2 usage, 3 a file cannot be read\n"
    "or written, or there is no display.\n";

void add_options(QCommandLineParser& parser) {
    const auto add = [&parser](const char* name, const char* text, const char* value = "") {
        parser.addOption({QLatin1String(name), QLatin1String(text), QLatin1String(value)});
    };
    add("screenshot", "Writes the panel as a picture, 800 x 480.", "FILE");
    add("all-screens", "Writes every screen in every language, and a contact sheet of each screen.", "DIR");
    add("report", "Writes as JSON what each screen shows in each language, and what is wrong with it.",
        "FILE");
    add("review", "Writes a page for a browser: every screen in every language, with what is wrong.", "DIR");
    add("compare-with", "With --review: marks what differs from an earlier review.", "DIR");
    add("script", "Runs the commands of a file, one a line; \"-\" is standard input.", "FILE");
    add("list-screens", "Lists the screens and ends.");
    add("screen", "Opens this screen; with --report, --all-screens or --review: it alone.", "NAME");
    add("language", "Shows the panel in this language: 49, 972; several with commas where all are written.",
        "N");
    add("direction", "Writes in this direction whatever the language: ltr or rtl.", "DIRECTION");
    add("test-icons",
        "Sets TEST_ICON_MESSAGE: keys for missing messages, a placeholder for missing pictures.");
    add("overlay", "Draws boxes around texts and pictures, what is wrong in colour; not in a review.");
    add("fail-on",
        "With --screenshot, --all-screens, --report or --review: ends with 1 when some are found: "
        "overflow, overlap, glyphs, pictures, fallbacks.",
        "LIST");
    add("watch", "In the window: shows changed pictures and rebuilt packs at once.");
    add("service",
        "Device service: auto (the one that runs, or else one of its own), none, own. Default: auto with a "
        "window; what it says itself with a script.",
        "SOURCE");
    add("verbose", "Prints traces on standard error as well.");
    add("timing", "Prints how long the start took, phase by phase, and the longest pause of the window.");
}

bool fail(const QString& text, int& exit_code) {
    report_simulator_fault(text + QStringLiteral("; see --help"));
    exit_code = SIMULATOR_USAGE;
    return false;
}

bool read_fail_on(const QString& list, unsigned int& faults, int& exit_code) {
    QString unknown;
    return read_fault_classes(list, faults, unknown) ||
           fail(QStringLiteral(
                    "--fail-on: unknown word \"%1\"; known are overflow, overlap, glyphs, pictures, "
                    "fallbacks")
                    .arg(unknown),
                exit_code);
}

/** Tells what would be ignored without a word. */
bool check_options(const QCommandLineParser& parser, const simulator_options& options, int& exit_code) {
    for (const char* name : {"screenshot", "all-screens", "report", "review", "compare-with", "script",
                             "screen", "language", "direction"}) {
        if (parser.isSet(QLatin1String(name)) && parser.value(QLatin1String(name)).isEmpty()) {
            return fail(QStringLiteral("--%1 has an empty value").arg(QLatin1String(name)), exit_code);
        }
    }
    if (!options.compare_with.isEmpty() && options.review.isEmpty()) {
        return fail(QStringLiteral("--compare-with goes with --review"), exit_code);
    }
    if (options.fail_on != 0 && !options.writes()) {
        return fail(QStringLiteral("--fail-on goes with --screenshot, --all-screens, --report or --review; "
                                   "a script has \"expect no fault\""),
                    exit_code);
    }
    if (options.watches && options.is_headless()) {
        return fail(QStringLiteral("--watch needs a window"), exit_code);
    }
    return true;
}

bool read_languages(const QString& list, std::vector<int>& languages, int& exit_code) {
    for (const QString& word : list.split(QLatin1Char(','))) {
        int id = 0;
        if (!read_language(word.toStdString(), id)) {
            return fail(QStringLiteral("--language: unknown language \"%1\"; a language is %2")
                            .arg(word, QString::fromStdString(known_languages())),
                        exit_code);
        }
        languages.push_back(id);
    }
    return true;
}

/** @return whether --help or --version was asked for, which is answered */
bool tell_of_itself(const QCommandLineParser& parser) {
    if (parser.isSet(QStringLiteral("help"))) {
        std::printf("%s\n%s", parser.helpText().toUtf8().constData(), EXIT_CODES);
        return true;
    }
    if (parser.isSet(QStringLiteral("version"))) {
        std::printf("panel_simulator " PANEL_VIEW_VERSION "\n");
        return true;
    }
    return false;
}

void read_plain_values(const QCommandLineParser& parser, simulator_options& options) {
    const auto value = [&parser](const char* name) { return parser.value(QLatin1String(name)); };
    const auto is_set = [&parser](const char* name) { return parser.isSet(QLatin1String(name)); };
    options.screenshot = value("screenshot");
    options.all_screens = value("all-screens");
    options.report = value("report");
    options.review = value("review");
    options.compare_with = value("compare-with");
    options.script = value("script");
    options.screen = value("screen");
    options.direction = value("direction");
    options.lists_screens = is_set("list-screens");
    options.has_overlay = is_set("overlay");
    options.watches = is_set("watch");
    options.prints_timing = is_set("timing");
    options.is_verbose = is_set("verbose");
    if (is_set("test-icons")) {
        qputenv("TEST_ICON_MESSAGE", "1");
    }
}

/** Values of which only some words are known. */
bool read_chosen_values(const QCommandLineParser& parser, simulator_options& options, int& exit_code) {
    const auto value = [&parser](const char* name) { return parser.value(QLatin1String(name)); };
    if (parser.isSet(QStringLiteral("service")) &&
        !read_service_source(value("service"), options.service.emplace(service_source::AUTO))) {
        return fail(QStringLiteral("--service is auto, none or own, not \"%1\"").arg(value("service")),
                    exit_code);
    }
    if (!options.direction.isEmpty() && options.direction != QLatin1String("ltr") &&
        options.direction != QLatin1String("rtl")) {
        return fail(QStringLiteral("--direction is ltr or rtl, not \"%1\"").arg(options.direction),
                    exit_code);
    }
    if (parser.isSet(QStringLiteral("language")) &&
        !read_languages(value("language"), options.languages, exit_code)) {
        return false;
    }
    return !parser.isSet(QStringLiteral("fail-on")) ||
           read_fail_on(value("fail-on"), options.fail_on, exit_code);
}

} // namespace

bool simulator_options::writes() const {
    return !screenshot.isEmpty() || !all_screens.isEmpty() || !report.isEmpty() || !review.isEmpty();
}

bool simulator_options::is_headless() const {
    return lists_screens || writes() || !script.isEmpty();
}

bool read_simulator_options(const QStringList& arguments, simulator_options& options, int& exit_code) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QLatin1String(DESCRIPTION));
    add_options(parser);
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Displays this help.")});
    parser.addVersionOption();
    if (!parser.parse(arguments)) {
        QString fault = parser.errorText();
        fault.chop(fault.endsWith(QLatin1Char('.')) ? 1 : 0);
        return fail(fault, exit_code);
    }
    if (tell_of_itself(parser)) {
        exit_code = SIMULATOR_GOOD;
        return false;
    }
    if (!parser.positionalArguments().isEmpty()) {
        return fail(QStringLiteral("unexpected \"%1\"").arg(parser.positionalArguments().first()), exit_code);
    }
    read_plain_values(parser, options);
    return read_chosen_values(parser, options, exit_code) && check_options(parser, options, exit_code);
}

bool read_fault_classes(const QString& list, unsigned int& faults, QString& unknown) {
    for (const QString& word : list.split(QLatin1Char(','))) {
        const auto* found =
            std::find_if(std::begin(FAULT_NAMES), std::end(FAULT_NAMES),
                         [&](const fault_name& name) { return word == QLatin1String(name.name); });
        if (found == std::end(FAULT_NAMES)) {
            unknown = word;
            return false;
        }
        faults |= found->fault;
    }
    return true;
}

bool asks_for_no_window(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        for (const char* option : HEADLESS_OPTIONS) {
            const std::size_t length = std::strlen(option);
            const char* word = argv[i] + std::strspn(argv[i], "-");
            if (argv[i][0] == '-' && std::strncmp(word, option, length) == 0 &&
                (word[length] == '\0' || word[length] == '=')) {
                return true;
            }
        }
        if (std::strcmp(argv[i], "-h") == 0 || std::strcmp(argv[i], "-v") == 0) {
            return true;
        }
    }
    return false;
}

void report_simulator_fault(const QString& text) {
    std::fprintf(stderr, "panel_simulator: %s\n", text.toUtf8().constData());
}

} // namespace velarion
