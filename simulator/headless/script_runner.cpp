#include "script_runner.h"

#include "simulator_options.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTextStream>
#include <QThread>

#include <cstdio>

namespace velarion {

namespace {

constexpr int LONGEST_WAIT = 600;   // steps that a condition is waited for
constexpr int STEP_PAUSE = 10;      // ms between them, in which other processes may do something
constexpr int LONGEST_TIME = 30000; // ms for which they get that chance, when the machine stands
constexpr char COMMENT = '#';

/**
 * Takes a comment off a line: what begins with # after a blank and outside of quotation marks.
 * @return whether all quotation marks are closed
 */
bool remove_comment(QString& line) {
    bool is_quoted = false;
    for (int i = 0; i < line.size(); ++i) {
        if (line[i] == QLatin1Char('"')) {
            is_quoted = !is_quoted;
        } else if (line[i] == QLatin1Char(COMMENT) && !is_quoted && (i == 0 || line[i - 1].isSpace())) {
            line.truncate(i);
        }
    }
    return !is_quoted;
}

} // namespace

script_runner::script_runner(simulation& panel)
    : panel_(panel) {
    add_command(QStringLiteral("wait"), QStringLiteral("STEPS | CONDITION..."), 1, 9,
                [this](const QStringList& words) { return wait(words); });
    add_command(QStringLiteral("expect"), QStringLiteral("[no] CONDITION..."), 1, 9,
                [this](const QStringList& words) { return expect(words); });
}

void script_runner::add_command(const QString& name, const QString& usage, int least_words, int most_words,
                                action run) {
    commands_.push_back({name, usage, least_words, most_words, std::move(run)});
}

void script_runner::add_condition(const QString& name, const QString& usage, int least_words, int most_words,
                                  action check) {
    conditions_.push_back({name, usage, least_words, most_words, std::move(check)});
}

int script_runner::run(const QString& file) {
    QFile script(file);
    const bool is_input = file == QLatin1String("-");
    if (is_input ? !script.open(stdin, QIODevice::ReadOnly) : !script.open(QIODevice::ReadOnly)) {
        report_simulator_fault(QStringLiteral("%1 cannot be read: %2").arg(file, script.errorString()));
        return SIMULATOR_FAILED;
    }
    QTextStream lines(&script);
    lines.setCodec("UTF-8");
    int number = 0;
    for (QString line; lines.readLineInto(&line);) {
        ++number;
        const script_outcome outcome = run_line(line);
        if (outcome.is != script_outcome::kind::GOOD) {
            std::fprintf(stderr, "%s:%d: %s\n", is_input ? "standard input" : file.toUtf8().constData(),
                         number, outcome.text.toUtf8().constData());
            return SIMULATOR_FOUND_FAULTS;
        }
    }
    return SIMULATOR_GOOD;
}

script_outcome script_runner::run_entry(const std::vector<entry>& entries, const QString& what,
                                        const QStringList& words) {
    QStringList known;
    for (const entry& candidate : entries) {
        if (candidate.name != words.first()) {
            known.append(candidate.name);
            continue;
        }
        const QStringList arguments = words.mid(1);
        if (arguments.size() < candidate.least_words || arguments.size() > candidate.most_words) {
            return script_outcome::wrong(QStringLiteral("usage: %1 %2").arg(candidate.name, candidate.usage));
        }
        return candidate.run(arguments);
    }
    return script_outcome::wrong(QStringLiteral("unknown %1 \"%2\"; known are %3")
                                     .arg(what, words.first(), known.join(QLatin1String(", "))));
}

script_outcome script_runner::run_line(QString line) {
    if (!remove_comment(line)) {
        return script_outcome::wrong(QStringLiteral("a quotation mark is not closed"));
    }
    const QStringList words = QProcess::splitCommand(line);
    if (words.isEmpty()) {
        return {};
    }
    const script_outcome outcome = run_entry(commands_, QStringLiteral("command"), words);
    QCoreApplication::processEvents();
    return outcome;
}

void script_runner::advance() {
    panel_.machine().step();
    QCoreApplication::processEvents();
}

script_outcome script_runner::wait(const QStringList& words) {
    bool is_count = false;
    const int steps = words.first().toInt(&is_count);
    if (is_count && words.size() == 1) {
        if (steps < 0) {
            return script_outcome::wrong(QStringLiteral("usage: wait STEPS | CONDITION..."));
        }
        for (int i = 0; i < steps; ++i) {
            advance();
        }
        return {};
    }
    script_outcome outcome = expect(words);
    QElapsedTimer time;
    time.start();
    int left = LONGEST_WAIT;
    while (outcome.is == script_outcome::kind::UNMET && (left > 0 || !time.hasExpired(LONGEST_TIME))) {
        if (left > 0) {
            --left;
            advance();
        } else {
            QCoreApplication::processEvents();
        }
        QThread::msleep(STEP_PAUSE);
        outcome = expect(words);
    }
    if (outcome.is == script_outcome::kind::UNMET) {
        outcome.text.prepend(QStringLiteral("waited for %1 steps: ").arg(LONGEST_WAIT));
    }
    return outcome;
}

script_outcome script_runner::expect(const QStringList& words) {
    const bool is_denied = words.first() == QLatin1String("no");
    const QStringList condition = words.mid(is_denied ? 1 : 0);
    if (condition.isEmpty()) {
        return script_outcome::wrong(QStringLiteral("usage: expect [no] CONDITION..."));
    }
    const script_outcome outcome = run_entry(conditions_, QStringLiteral("condition"), condition);
    if (!is_denied || outcome.is == script_outcome::kind::WRONG) {
        return outcome;
    }
    return script_outcome::of(outcome.is == script_outcome::kind::UNMET,
                              QStringLiteral("\"%1\" is so").arg(condition.join(QLatin1Char(' '))));
}

} // namespace velarion
