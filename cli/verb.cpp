#include "cli/verb.h"

#include <CLI/CLI.hpp>

namespace qvgraph {

namespace {

// Suppresses the description of the option's type and limits that CLI11 adds.
const char* const NOTHING = " ";

}  // namespace

Verb::Verb(CLI::App* command, const std::string& name, const std::string& description)
    : mVerb(command->add_subcommand(name, description)->group("Verbs")) {}

void Verb::addArgument(const std::string& name,
                       std::string* value,
                       const std::string& description) {
    addOption(name, value, description, NOTHING);
}

void Verb::addArguments(const std::string& name,
                        std::vector<std::string>* values,
                        const std::string& description) {
    mVerb->add_option(name, *values, description)->option_text("...");
}

void Verb::addOption(const std::string& name,
                     std::string* value,
                     const std::string& description,
                     const std::string& placeholder) {
    mVerb->add_option(name, *value, description)->option_text(placeholder);
}

void Verb::addChoice(const std::string& name,
                     std::string* value,
                     const std::vector<std::string>& choices,
                     const std::string& description,
                     const std::string& placeholder) {
    mVerb->add_option(name, *value, description)
        ->check(CLI::IsMember(choices))
        ->option_text(placeholder);
}

void Verb::addList(const std::string& name,
                   std::vector<std::string>* values,
                   const std::string& description,
                   const std::string& placeholder) {
    mVerb->add_option(name, *values, description)
        ->type_name(placeholder)
        ->option_text(placeholder)
        ->take_all()
        ->allow_extra_args(false);
}

void Verb::addParsed(const std::string& name,
                     const std::function<void(const std::string&)>& parse,
                     const std::string& description,
                     const std::string& placeholder) {
    mVerb->add_option_function<std::string>(name, parse, description)
        ->type_name(placeholder)
        ->option_text(placeholder);
}

void Verb::addFlag(const std::string& name, bool* flag, const std::string& description) {
    mVerb->add_flag(name, *flag, description);
}

void Verb::addCount(const std::string& name, int* count, const std::string& description) {
    mVerb->add_flag(name, *count, description);
}

void Verb::require(const std::string& name) {
    mVerb->get_option(name)->required();
}

void Verb::excludeEachOther(const std::string& name, const std::string& other) {
    CLI::Option* option = mVerb->get_option(name)->option_text(NOTHING);
    option->excludes(mVerb->get_option(other)->option_text(NOTHING));
}

bool Verb::isGiven(const std::string& name) const {
    return mVerb->get_option(name)->count() > 0;
}

void Verb::setAction(const std::function<void()>& action) {
    mVerb->callback(action);
}

}  // namespace qvgraph
