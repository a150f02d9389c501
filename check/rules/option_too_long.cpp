#include <string>

#include "check/rules.h"
#include "check/typed_string.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

void optionTooLong(const Model& model, Reporter* report) {
    forEachOption(model, [report](const Option& option) {
        if (isTooLong(option)) {
            const size_t bytes = untilNul(option.member->text).size();
            report
                ->atValue(*option.member,
                          nameOf(option) + " is a string of " + std::to_string(bytes) +
                              " bytes, but the maximum is " + std::to_string(MAX_OPTION_BYTES) +
                              ": it is not stored")
                .hint = "shorten the string by " + counted(bytes - MAX_OPTION_BYTES, "byte");
        }
    });
}

}  // namespace

constinit const Rule OPTION_TOO_LONG = {
    .code = "option-too-long",
    .severity = Severity::Error,
    .family = "options",
    .title = "An option is a string of more than 127 bytes",
    .explanation =
        "A string option has at most 127 bytes, including its type word. Characters outside ASCII "
        "take more than one byte each.",
    .device =
        "The parser logs an error and does not store the option. It continues with the other "
        "options.",
    .fix = "Shorten the string, for example to the name of a file that contains the value.",
    .example =
        {
            .wrong =  // A string has no line breaks.
            R"({"pipe_0": {
  "link_0": {
    "filter": "tcp port 80 or tcp port 443 or tcp port 8080 or )"
            R"(tcp port 8443 or tcp port 554 or tcp port 1935 or udp port 5004 or udp port 5005"
  }
}})",
            .fixed = R"({"pipe_0": {
  "link_0": {
    "filter": "file:/etc/doors/filter.txt"
  }
}})",
        },
    .find = optionTooLong,
};

}  // namespace qvgraph
