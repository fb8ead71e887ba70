#include "command_options.h"

#include "subcommand.h"
#include "whole_number.h"

#include <getopt.h>

#include <algorithm>
#include <iostream>

namespace velarion {

namespace {

constexpr int FIRST_LONG_OPTION = 256; // above every letter
constexpr std::size_t HELP_COLUMN = 24;

bool is_letter(const std::string& option_name) {
    return option_name[1] != '-';
}

std::string label_of(const std::string& name, const std::string& value_name) {
    return value_name.empty() ? name : name + (is_letter(name) ? "" : " ") + value_name;
}

/** A label and, from HELP_COLUMN on, its help; further lines stand below it. */
void print_entry(const std::string& label, const std::string& help) {
    const std::string indent(HELP_COLUMN, ' ');
    std::string line = "  " + label;
    line += line.size() + 2 > HELP_COLUMN ? '\n' + indent : std::string(HELP_COLUMN - line.size(), ' ');
    for (const char c : help) {
        line += c == '\n' ? '\n' + indent : std::string(1, c);
    }
    std::cout << line << '\n';
}

} // namespace

command_options::command_options(std::string command, std::string description)
    : command_(std::move(command))
    , description_(std::move(description)) {}

void command_options::add(const std::string& name, const char* value, const char* help, bool is_required,
                          std::function<std::string(const std::string&)> take) {
    options_.push_back({name, value, help, is_required, std::move(take)});
}

void command_options::require(const char* name, const char* value, std::string& target, const char* help) {
    add(std::string("--") + name, value, help, true, [&target](const std::string& given) {
        target = given;
        return std::string();
    });
}

void command_options::value(const char* name, const char* value, std::string& target, const char* help) {
    require(name, value, target, help);
    options_.back().is_required = false;
}

void command_options::values(const char* name, const char* value, std::vector<std::string>& target,
                             const char* help) {
    add(std::string("--") + name, value, help, false, [&target](const std::string& given) {
        target.push_back(given);
        return std::string();
    });
}

void command_options::number(const char* name, const char* value, std::int32_t& target, const char* help) {
    const std::string label = std::string("--") + name;
    add(label, value, help, false, [&target, label](const std::string& given) {
        const std::string fault = read_whole_number(given, target);
        return fault.empty() ? fault : label + " \"" + given + "\" " + fault;
    });
}

void command_options::flag(const char* name, bool& target, const char* help) {
    add(std::string("--") + name, "", help, false, [&target](const std::string&) {
        target = true;
        return std::string();
    });
}

void command_options::choice(const char* name, const std::vector<std::string>& words, bool is_required,
                             std::string& target, const char* help) {
    const std::string label = std::string("--") + name;
    std::string all;
    for (const std::string& word : words) {
        all += (all.empty() ? "" : "|") + word;
    }
    add(label, all.c_str(), help, is_required, [&target, label, words, all](const std::string& given) {
        target = given;
        const bool is_known = std::find(words.begin(), words.end(), given) != words.end();
        return is_known ? std::string() : label + " \"" + given + "\" is not one of " + all;
    });
}

void command_options::letter(char name, const char* value, std::vector<std::string>& target,
                             const char* help) {
    values("", value, target, help);
    options_.back().name = std::string("-") + name;
}

void command_options::word(const char* name, std::string& target, const char* help) {
    positionals_.push_back({name, help, 1, &target, nullptr});
}

void command_options::words(const char* name, std::size_t fewest, std::vector<std::string>& target,
                            const char* help) {
    positionals_.push_back({name, help, fewest, nullptr, &target});
}

std::optional<int> command_options::read(const std::vector<std::string>& arguments) {
    std::vector<std::string> words;
    bool wants_help = false;
    std::string fault = read_options(arguments, words, wants_help);
    if (wants_help) {
        print_help();
        return EXIT_GOOD;
    }
    if (fault.empty()) {
        fault = find_missing();
    }
    if (fault.empty()) {
        fault = take_words(words);
    }
    return fault.empty() ? std::nullopt : std::optional<int>(usage_fault(fault));
}

std::string command_options::read_options(const std::vector<std::string>& arguments,
                                          std::vector<std::string>& words, bool& wants_help) {
    std::vector<std::string> copies = arguments; // getopt_long() takes and sorts plain pointers
    std::vector<char*> pointers = {command_.data()};
    for (std::string& copy : copies) {
        pointers.push_back(copy.data());
    }
    pointers.push_back(nullptr);
    const int count = static_cast<int>(pointers.size()) - 1;
    std::string letters;
    std::vector<::option> long_options;
    declare_options(letters, long_options);
    optind = 0; // begins anew
    for (int code = 0;
         (code = getopt_long(count, pointers.data(), letters.c_str(), long_options.data(), nullptr)) != -1;) {
        if (code == 'h') {
            wants_help = true;
            return {};
        }
        const std::string given = pointers[static_cast<std::size_t>(optind) - 1];
        if (code == ':' || code == '?') {
            return code == ':' ? given + " needs a value" : "unknown option \"" + given + "\"";
        }
        const std::string fault = take_option(option_of(code), optarg ? optarg : "");
        if (!fault.empty()) {
            return fault;
        }
    }
    words.assign(pointers.begin() + optind, pointers.end() - 1);
    return {};
}

void command_options::declare_options(std::string& letters, std::vector<::option>& long_options) const {
    letters = ":h";
    long_options = {{"help", no_argument, nullptr, 'h'}};
    for (std::size_t i = 0; i < options_.size(); ++i) {
        const command_option& each = options_[i];
        const int argument = each.value_name.empty() ? no_argument : required_argument;
        if (is_letter(each.name)) {
            letters += std::string(1, each.name[1]) + ':';
        } else {
            const int code = FIRST_LONG_OPTION + static_cast<int>(i);
            long_options.push_back({each.name.c_str() + 2, argument, nullptr, code});
        }
    }
    long_options.push_back({nullptr, 0, nullptr, 0});
}

command_options::command_option& command_options::option_of(int code) {
    if (code >= FIRST_LONG_OPTION) {
        return options_[static_cast<std::size_t>(code - FIRST_LONG_OPTION)];
    }
    const std::string name = std::string("-") + static_cast<char>(code);
    return *std::find_if(options_.begin(), options_.end(),
                         [&name](const command_option& each) { return each.name == name; });
}

std::string command_options::take_option(command_option& found, const std::string& value) {
    found.is_given = true;
    if (value.empty() && !found.value_name.empty()) {
        return found.name + " is empty";
    }
    return found.take(value);
}

std::string command_options::find_missing() const {
    for (const command_option& each : options_) {
        if (each.is_required && !each.is_given) {
            return each.name + " is missing";
        }
    }
    return {};
}

std::string command_options::take_words(const std::vector<std::string>& words) {
    auto next = words.begin();
    for (const positional& each : positionals_) {
        if (static_cast<std::size_t>(words.end() - next) < each.fewest) {
            return each.name + " is missing";
        }
        if (each.target) {
            *each.target = *next++;
        } else {
            each.targets->assign(next, words.end());
            next = words.end();
        }
    }
    return next == words.end() ? std::string() : "unexpected \"" + *next + "\"";
}

int command_options::usage_fault(const std::string& fault) const {
    std::cerr << "panel_resource_compiler: " << fault << "; see panel_resource_compiler " << command_
              << " --help\n";
    return EXIT_USAGE;
}

std::string command_options::usage() const {
    std::string line = "panel_resource_compiler " + command_;
    for (const command_option& each : options_) {
        line += each.is_required ? ' ' + label_of(each.name, each.value_name) : "";
    }
    line += " [OPTION...]";
    for (const positional& each : positionals_) {
        const std::string name = each.name + (each.target ? "" : "...");
        line += each.fewest == 0 ? " [" + name + ']' : ' ' + name;
    }
    return line;
}

void command_options::print_help() const {
    std::cout << "Usage: " << usage() << "\n\n" << description_ << '\n';
    if (!positionals_.empty()) {
        std::cout << "\nArguments:\n";
        for (const positional& each : positionals_) {
            print_entry(each.name, each.help);
        }
    }
    std::cout << "\nOptions:\n";
    for (const command_option& each : options_) {
        print_entry(label_of(each.name, each.value_name), each.help);
    }
    print_entry("--help", "shows this");
}

} // namespace velarion
