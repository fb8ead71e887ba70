#ifndef SCRIPT_RUNNER_H
#define SCRIPT_RUNNER_H

#include "panel_stage.h"
#include "simulation.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace velarion {

/** What became of a line of a script. */
struct script_outcome {
    enum class kind {
        GOOD,
        UNMET, ///< what was expected is not so
        WRONG  ///< the line cannot be carried out
    };
    kind is = kind::GOOD;
    QString text; ///< why not

    static script_outcome unmet(const QString& text) { return {kind::UNMET, text}; }
    static script_outcome wrong(const QString& text) { return {kind::WRONG, text}; }
    /** Wrong with a text, good without one. */
    static script_outcome of_fault(const QString& fault) {
        return fault.isEmpty() ? script_outcome{} : wrong(fault);
    }
    /** Good when something holds, else unmet. */
    static script_outcome of(bool holds, const QString& text) {
        return holds ? script_outcome{} : unmet(text);
    }
};

/** Runs scripts on a panel: one command a line, docs/simulator.md tells which. */
class script_runner {
public:
    /** What a line does with the words behind its first. */
    using action = std::function<script_outcome(const QStringList& words)>;

    /** @param panel  outlives this object */
    explicit script_runner(simulation& panel);

    /** Adds a command. @param usage  its words behind the name, as people write them */
    void add_command(const QString& name, const QString& usage, int least_words, int most_words, action run);
    /** Adds what "expect" and "wait" ask for; the action says whether it is so. */
    void add_condition(const QString& name, const QString& usage, int least_words, int most_words,
                       action check);

    /**
     * Runs a file, "-" for standard input, up to the first fault, which is reported as "FILE:LINE: text".
     * @return an exit code
     */
    int run(const QString& file);

    /** A step of the machine, and of everything that waits in the event loop. */
    void advance();

private:
    struct entry {
        QString name;
        QString usage;
        int least_words;
        int most_words;
        action run;
    };

    static script_outcome run_entry(const std::vector<entry>& entries, const QString& what,
                                    const QStringList& words);
    script_outcome run_line(QString line);
    script_outcome wait(const QStringList& words);
    script_outcome expect(const QStringList& words);

    simulation& panel_;
    std::vector<entry> commands_;
    std::vector<entry> conditions_;
};

/** Adds the commands that touch, look and write files. */
void add_panel_commands(script_runner& runner, simulation& panel, panel_stage& stage);
/** Adds what can be expected of what is shown. */
void add_panel_conditions(script_runner& runner, simulation& panel, panel_stage& stage);

} // namespace velarion

#endif
