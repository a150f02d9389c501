#include <string>
#include <string_view>

#include "check/rules.h"

namespace qvgraph {

namespace {

const std::string_view MARK = "\xef\xbb\xbf";

void byteOrderMark(const Model& model, Reporter* report) {
    const std::string& text = model.source().text();
    if (text.compare(0, MARK.size(), MARK) == 0) {
        report->at({0, MARK.size()}, "", "the text begins with a byte-order mark: the load fails")
            .hint = "save the file as UTF-8 without a byte-order mark";
    }
}

}  // namespace

constinit const Rule BYTE_ORDER_MARK = {
    .code = "byte-order-mark",
    .severity = Severity::Error,
    .family = "text",
    .title = "The text begins with a byte-order mark",
    .explanation =
        "Some editors put three invisible bytes, EF BB BF, before a UTF-8 text. JSON does not "
        "allow them.",
    .device = "The load fails with -1, and the previous document is discarded.",
    .fix = "Save the file as UTF-8 without a byte-order mark.",
    .example =
        {
            .wrong = "\xef\xbb\xbf{\"pipe_0\": {}}",
            .fixed = R"({"pipe_0": {}})",
        },
    .consequences = {&SYNTAX},
    .find = byteOrderMark,
};

}  // namespace qvgraph
