// Prints how the parser interprets a table of values: option conversions with the
// stored values, ids, thread counts, error texts, and every log record. The
// output must be the same on every machine.
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <exception>
#include <string>
#include <type_traits>
#include <variant>

#include "graph/qv_graph_parser.h"
#include "host/qv_host_log.h"
#include "host/qv_host_meta_data.h"

namespace {

// Values as they appear in a configuration.
const char* const OPTIONS[] = {
    // JSON numbers
    "0",
    "-0",
    "7",
    "-7",
    "3.9",
    "-3.9",
    "0.999999",
    "123456789",
    "1234567890",
    "2147483647",
    "2147483648",
    "3000000000",
    "-2147483648",
    "-2147483649",
    "1e9",
    "1e10",
    "-1e300",
    "1e999",
    "-1e999",
    "1e-400",
    // 32-bit integers
    R"("int32:0")",
    R"("int32:42")",
    R"("int32:-42")",
    R"("int32:+42")",
    R"("int32: 42")",
    R"("int32:\t42")",
    R"("int32:042")",
    R"("int32:0x10")",
    R"("int32:4x")",
    R"("int32:abc")",
    R"("int32:")",
    R"("int32")",
    R"("int32::5")",
    R"("int32:7:9")",
    R"("int32:2147483647")",
    R"("int32:2147483648")",
    R"("int32:-2147483648")",
    R"("int32:-2147483649")",
    R"("int32:99999999999999999999999")",
    R"("int32:-99999999999999999999999")",
    // 64-bit integers
    R"("int64:0")",
    R"("int64:42")",
    R"("int64:-1")",
    R"("int64:0x10")",
    R"("int64:-0x10")",
    R"("int64:010")",
    R"("int64:08")",
    R"("int64:0x")",
    R"("int64:4294967296")",
    R"("int64:9223372036854775807")",
    R"("int64:9223372036854775808")",
    R"("int64:18446744073709551615")",
    R"("int64:18446744073709551616")",
    R"("int64:-9223372036854775808")",
    R"("int64:-18446744073709551616")",
    R"("int64:abc")",
    R"("int64")",
    R"("int64:1:2")",
    // floats
    R"("float:0")",
    R"("float:-0")",
    R"("float:0.1")",
    R"("float:1e39")",
    R"("float:-1e39")",
    R"("float:3.4028235e38")",
    R"("float:3.4028236e38")",
    R"("float:1e-45")",
    R"("float:1e-46")",
    R"("float:0x1.8p1")",
    R"("float:inf")",
    R"("float:-infinity")",
    R"("float:nan")",
    R"("float:16777217")",
    R"("float:1,5")",
    R"("float: 2.5")",
    R"("float:.5e1x")",
    R"("float:abc")",
    R"("float")",
    R"("float:1:2")",
    // doubles
    R"("double:0.1")",
    R"("double:1e300")",
    R"("double:1e309")",
    R"("double:16777217")",
    R"("double:123456789.123456789")",
    R"("double:-1e-320")",
    R"("double:nan")",
    R"("double")",
    // type words, and words that are not type words
    "\"int2\xb5:5\"",
    R"("Int32:5")",
    R"("int32 :5")",
    R"("uint8:5")",
    R"("camera:front")",
    R"(":5")",
    R"("")",
    R"("plain")",
    R"("with\u0000nul")",
    R"("int32:5\u00006")",
    // what is not stored
    "true",
    "null",
    "[1, 2.5, \"x\"]",
    R"({"b": 1, "a": "int64:5"})"};

const char* const KEYS[] = {"node_0",
                            "node_7",
                            "node_07",
                            "node_-3",
                            "node_+4",
                            "node_ 5",
                            "node_\t6",
                            "node_x",
                            "node_5x",
                            "node_",
                            "node_2147483647",
                            "node_2147483648",
                            "node_-2147483648",
                            "node_-2147483649",
                            "node_99999999999999999999999",
                            "node_-99999999999999999999999",
                            "node_0x10",
                            "node_\xc3\xa4"};

// Texts that do not load, or that load with a surprising result.
const char* const TEXTS[] = {"",
                             " ",
                             "{",
                             "}",
                             "[1, 2",
                             "{\"a\" 1}",
                             "{\"a\": 01}",
                             "nul",
                             "null",
                             "tru",
                             "\"\\x\"",
                             "{} x",
                             "1e",
                             "-",
                             "'",
                             "{\"a\": \"\\u12\"}",
                             "/* open",
                             "// line",
                             "/",
                             "[1,]",
                             "\x7f",
                             "\x1b",
                             "\xef\xbb\xbf{}",
                             "\xc3\xa4",
                             "[\xff]",
                             "{\"a\"\xb0 1}",
                             "\"\x01\""};

std::string quoted(const std::string& text) {
    std::string out = "\"";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte > 0x7e) {
            char escaped[5];
            snprintf(escaped, sizeof(escaped), "\\x%02x", byte);
            out += escaped;
        } else {
            out += c;
        }
    }
    return out + '"';
}

// json11 prints a plain char that is not printable as a number: "(-61)" if char is
// signed, "(195)" if it is not. This program prints such a byte as unsigned, and
// reports the difference.
std::string withUnsignedChars(const std::string& text) {
    const size_t minus = text.find("(-");
    if (minus == std::string::npos) {
        return text;
    }
    const size_t end = text.find(')', minus);
    const int code = std::stoi(text.substr(minus + 1, end - minus - 1)) + 256;
    return text.substr(0, minus + 1) + std::to_string(code) + text.substr(end);
}

bool namesAHighByte(const std::string& text) {
    const size_t number = text.find_last_of('(');
    return number != std::string::npos && atoi(text.c_str() + number + 1) >= 0x80;
}

void printRecord(const QVLogRecord& record) {
    const std::string message = withUnsignedChars(record.message);
    printf("  record %08x %d %s %s:%d %s %s\n",
           record.module,
           record.level,
           record.tag,
           record.function,
           record.line,
           quoted(record.format).c_str(),
           quoted(message).c_str());
    if (strcmp(record.function, "parseConfigText") == 0 && namesAHighByte(message)) {
        printf("  (json11 prints this byte as a plain char: negative where char is signed)\n");
    }
}

void printStored(const QVHostMetaData& store) {
    for (const auto& [key, value] : store.entries()) {
        printf("  stored %s ", quoted(key).c_str());
        std::visit(
            [](const auto& plain) {
                using Plain = std::decay_t<decltype(plain)>;
                if constexpr (std::is_same_v<Plain, std::string>) {
                    printf("string %s\n", quoted(plain).c_str());
                } else if constexpr (std::is_same_v<Plain, float>) {
                    uint32_t bits = 0;
                    memcpy(&bits, &plain, sizeof(bits));
                    printf("float %08x\n", bits);
                } else {
                    printf("int%d %lld\n",
                           static_cast<int>(8 * sizeof(plain)),
                           static_cast<long long>(plain));
                }
            },
            value);
    }
}

void printOptions() {
    for (const char* option : OPTIONS) {
        printf("option %s\n", quoted(option).c_str());
        QVGraphParser parser;
        const std::string text = std::string(R"({"pipe_0": {"link_0": {"key": )") + option + "}}}";
        printf("  load %d\n", parser.parseConfigText(text.c_str()));
        const json11::Json& value = parser.root()["pipe_0"]["link_0"]["key"];
        QVHostMetaData store;
        printf("  result %d\n", parser.parseOptions(&store, "key", value));
        printStored(store);
        parser.syncLinkOptions(&store, 0, 0);
        parser.parseConfigText(
            (std::string(R"({"pipe_0": {"thread_opts": {"EXEC_thread_NUM": )") + option + "}}}")
                .c_str());
        printf("  threads %d\n", parser.getThreadNum(0));
    }
    for (const size_t length : {126U, 127U, 128U, 1000U}) {
        QVHostMetaData store;
        const std::string text(length, 'x');
        printf("option of %d bytes\n", static_cast<int>(length));
        printf("  result %d\n", QVGraphParser().parseOptions(&store, "key", text));
        printf("  stored %d\n", static_cast<int>(store.entries().size()));
    }
}

void printIds() {
    for (const char* key : KEYS) {
        const json11::Json items = json11::Json::object{{key, 1}};
        printf("key %s\n", quoted(key).c_str());
        printf("  id %d\n", QVGraphParser().getItemIDByIndex(items, 0, "node_"));
        printf("  number %d\n", QVGraphParser().getItemNum(items, "node_"));
    }
}

void printTexts() {
    for (const char* text : TEXTS) {
        printf("text %s\n", quoted(text).c_str());
        QVGraphParser parser;
        printf("  load %d\n", parser.parseConfigText(text));
        printf("  pipes %d\n", parser.getPipeNum());
    }
}

}  // namespace

int main() {
    try {
        const QVLogScope scope(QV_LOG_INFO, printRecord);
        printOptions();
        printIds();
        printTexts();
    } catch (const std::exception& error) {
        fprintf(stderr, "dump: %s\n", error.what());
        return 1;
    }
    return 0;
}
