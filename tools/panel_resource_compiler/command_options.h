#ifndef COMMAND_OPTIONS_H
#define COMMAND_OPTIONS_H

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

struct option; // of getopt_long()

namespace velarion {

/**
 * What a subcommand takes, where its values go and how its --help tells them. Declared in the order in which
 * --help lists them; targets outlive the object and keep their values unless the command line says otherwise.
 *
 * Names of options are without "--". A help text may have several lines.
 */
class command_options {
public:
    /** @param description  what the command does, in whole sentences; may have several lines */
    command_options(std::string command, std::string description);

    /** An option that must be given. */
    void require(const char* name, const char* value, std::string& target, const char* help);
    void value(const char* name, const char* value, std::string& target, const char* help);
    /** An option that may stand several times. */
    void values(const char* name, const char* value, std::vector<std::string>& target, const char* help);
    void number(const char* name, const char* value, std::int32_t& target, const char* help);
    void flag(const char* name, bool& target, const char* help);
    /** An option whose value must be one of some words. @param is_required  whether it must be given */
    void choice(const char* name, const std::vector<std::string>& words, bool is_required,
                std::string& target, const char* help);
    /** A one-letter option, whose value may follow at once, and which may stand several times. */
    void letter(char name, const char* value, std::vector<std::string>& target, const char* help);

    /** A word without an option, which must be given; words are taken in the order in which they are
     * declared. */
    void word(const char* name, std::string& target, const char* help);
    /** All further words. @param fewest  how many there must be */
    void words(const char* name, std::size_t fewest, std::vector<std::string>& target, const char* help);

    /**
     * Reads the words behind the command's name, as getopt_long() does: options and words in any order,
     * "--name VALUE" or "--name=VALUE", "--" before words that start with "-".
     *
     * @return what to end with: after --help, or after a fault, which is reported; none when all is read
     */
    [[nodiscard]] std::optional<int> read(const std::vector<std::string>& arguments);

    /** Reports a fault of usage that the command finds itself. @return EXIT_USAGE */
    int usage_fault(const std::string& fault) const;

private:
    struct command_option {
        std::string name; ///< with its dashes
        std::string value_name;
        std::string help;
        bool is_required;
        std::function<std::string(const std::string& value)> take; ///< returns a fault, or nothing
        bool is_given = false;
    };
    struct positional {
        std::string name;
        std::string help;
        std::size_t fewest;
        std::string* target;
        std::vector<std::string>* targets; ///< instead, for any number
    };

    void add(const std::string& name, const char* value, const char* help, bool is_required,
             std::function<std::string(const std::string&)> take);
    std::string read_options(const std::vector<std::string>& arguments, std::vector<std::string>& words,
                             bool& wants_help);
    void declare_options(std::string& letters, std::vector<::option>& long_options) const;
    command_option& option_of(int code);
    std::string take_option(command_option& found, const std::string& value);
    std::string take_words(const std::vector<std::string>& words);
    std::string find_missing() const;
    void print_help() const;
    std::string usage() const;

    std::string command_;
    std::string description_;
    std::vector<command_option> options_;
    std::vector<positional> positionals_;
};

} // namespace velarion

#endif
