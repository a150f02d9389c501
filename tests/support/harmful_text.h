// Text that would control a terminal or add lines if it was written raw, and a
// configuration that contains it in every key and value.
#ifndef QVGRAPH_TESTS_SUPPORT_HARMFUL_TEXT_H_
#define QVGRAPH_TESTS_SUPPORT_HARMFUL_TEXT_H_

#include <algorithm>
#include <cstdio>
#include <string>

// ESC, CR, LF, tab, DEL, C1 control characters, and bytes that are not UTF-8,
// as they appear in a JSON string.
inline const char* const HARMFUL =
    "\\u001b[2J\\r\\n\\t\\b\\u007f\\u009b31m\\u0085\\u2028\x7f\xc2\x9b\x9b\xff";

// As wide as the host prints HARMFUL, so that line breaks are at the same columns.
inline const std::string HARMLESS(54, 'Q');

// A configuration with every outcome of a node and every kind of option, and with
// `filler` in every string.
inline std::string fullOf(const std::string& filler) {
    std::string text = R"({
        "pipe_0": {
            "@": "@", "default_mode_link": "m@", "thread_opts": {"t@": 3, "exec_thread_num": "@"},
            "executor_1": {"executor_opts": {"@": "@", "b@": 1, "c@": "int64:@"}},
            "executor_2@": {"executor_opts": {}},
            "link_1": {"@": "@", "d@": "double:@", "e@": ["@"], "f@": {"@": null}},
            "link_2@": {},
            "node_0": {
                "node_opts": {"node_name": "ready@", "o@": "@", "p@": "int32:@", "q@": true},
                "node_opts_extra": {"r@": "float:@"},
                "stream_opts": {
                    "stream_input_a@": "in@", "stream_fmt_in_a@": "f@", "stream_mode_in": "@",
                    "stream_input_b@": "of@", "stream_fmt_in_b@": "f@",
                    "stream_output": "out@", "stream_fmt_out": "g@"},
                "stream_opts_extra": {"s@": "01234567890123456789012345678901234567890123456789@01234567890123456789012345678901234567890123456789012345678901234567890123456789"}},
            "node_1": {"node_opts": {"node_name": "no streams@"}},
            "node_2": {"node_opts": {"node_name": "no name@"}, "stream_opts": {"stream_input": 1, "x@": "@"}},
            "node_3": {"node_opts": {"node_name": "no format@"}, "stream_opts": {"stream_output": "w@"}},
            "node_4": {"node_opts": {"node_name": "refused@"},
                       "stream_opts": {"stream_output": "out@", "stream_fmt_out": "g@"}},
            "node_5": {"node_opts": {"x@": "@"}},
            "node_6@": {}},
        "pipe_1@": {"node_0": {"node_opts": {"node_name": "lost@"}}},
        "@": "@"})";
    for (size_t at = text.find('@'); at != std::string::npos;
         at = text.find('@', at + filler.size())) {
        text.replace(at, 1, filler);
    }
    return text;
}

// The number of continuation bytes that follow this byte in UTF-8.
inline unsigned continuationsOf(unsigned byte) {
    return (byte >= 0xc0 ? 1U : 0U) + (byte >= 0xe0 ? 1U : 0U) + (byte >= 0xf0 ? 1U : 0U);
}

// C0 except a newline, DEL, or the second byte of C1 in UTF-8.
inline bool isControl(unsigned before, unsigned byte) {
    return (byte < 0x20 && byte != '\n') || byte == 0x7f ||
           (before == 0xc2 && byte >= 0x80 && byte < 0xa0);
}

// The bytes of `text` that are not part of printable lines of UTF-8, in hexadecimal;
// empty if there are none.
inline std::string harmIn(const std::string& text) {
    std::string harm;
    unsigned expected = 0;  // continuation bytes of the present character
    unsigned before = 0;
    for (const char character : text) {
        const unsigned c = static_cast<unsigned char>(character);
        const bool continues = c >= 0x80 && c < 0xc0;
        if (isControl(before, c) || continues != (expected > 0) || c > 0xf4) {
            char hex[8];
            snprintf(hex, sizeof(hex), "\\x%02x", c);
            harm += hex;
        }
        expected = continues && expected > 0 ? expected - 1 : continuationsOf(c);
        before = c;
    }
    return harm;
}

inline size_t linesOf(const std::string& text) {
    return static_cast<size_t>(std::count(text.begin(), text.end(), '\n'));
}

#endif  // QVGRAPH_TESTS_SUPPORT_HARMFUL_TEXT_H_
