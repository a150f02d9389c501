#include "tests/differential/configurations.h"

#include <json11.hpp>
#include <utility>

namespace {

using Words = std::vector<std::string>;

// Each as it appears in the text, between the quotes.
const Words ODD_SUFFIXES = {"",           "0",           "1",          "2", "10",      "03",
                            "-1",         "+2",          " 7",         "x", "1x",      "0x10",
                            "9999999999", "-9999999999", "2147483648", "é", "\\u0000", "%s%n",
                            "\\t4",       "1\\u00002",   "\xff"};
const Words ODD_KEYS = {"",
                        "pipe_",
                        "Pipe_0",
                        "node_",
                        "Node_0",
                        "node_opts",
                        "stream_opts",
                        "stream_input",
                        "executor_",
                        "link_",
                        "node_name",
                        "stream_output",
                        "stream_fmt_out",
                        "stream_mode_in",
                        "%n%s",
                        "\\u0000",
                        "a\\u0000b",
                        "\\u001b[2J",
                        "\xff\xfe",
                        "default_mode_link",
                        "exec_thread_num",
                        "a key of many letters, longer than most"};
const Words NUMBERS = {"0",
                       "1",
                       "-1",
                       "3.9",
                       "-3.9",
                       "2147483647",
                       "2147483648",
                       "-2147483648",
                       "-2147483649",
                       "4294967296",
                       "1e9",
                       "1e10",
                       "1e999",
                       "-1e999",
                       "1e-999",
                       "123456789",
                       "1234567890",
                       "-0",
                       "0.1",
                       "2147483647.5",
                       "-2147483648.5",
                       "9007199254740993",
                       "25",
                       "1E2"};
const Words TEXTS = {"",
                     "auto",
                     "a:b",
                     ":5",
                     "Int32:5",
                     "int2\xb5:5",
                     "int32 :5",
                     "%n%s",
                     "\\u0000",
                     "x\\u0000y",
                     "\\u001b[31m",
                     "\\u00e9",
                     "\xff",
                     "\\ud800",
                     "\\\"",
                     "remain_newest",
                     "Remain_Newest",
                     "remain_newest:",
                     "long text with blanks in it"};
const Words TYPES = {"int32", "int64", "float", "double"};
const Words TYPED_VALUES = {"",
                            "0",
                            "1",
                            "-1",
                            "42",
                            "0x10",
                            "010",
                            "abc",
                            "+5",
                            " 5",
                            "\t-6",
                            "1.5",
                            "-2.25",
                            "1e39",
                            "-1e39",
                            "1e-46",
                            "1e999",
                            "nan",
                            "-nan",
                            "inf",
                            "-inf",
                            "0x1p3",
                            "7:9",
                            ":",
                            "3.4028236e38",
                            "16777217",
                            "2147483647",
                            "2147483648",
                            "-2147483649",
                            "9223372036854775808",
                            "18446744073709551616",
                            "-18446744073709551615",
                            "0xffffffffffffffff",
                            "08",
                            "0x",
                            "--1",
                            "1 2",
                            "é",
                            "5\\u00006",
                            "%d"};
const Words NAMES = {"raw", "frames", "boxes", "small frames", "", "é", "%n", "x\\u0000y"};
const Words FORMATS = {"nv12", "image:rgb24", "boxes", "", "int32", "%s"};
const Words CLASSES = {"Camera", "FaceDetector", "Display#front", "", "A\\u0000B", "%s%n"};
const Words ODD_TEXTS = {"[]",
                         "{}",
                         "null",
                         "true",
                         "false",
                         "[1,[2,{\"a\":3}]]",
                         "\"\"",
                         "\"x\"",
                         "{\"a\":{}}",
                         "-1",
                         "[\"stream_input\"]",
                         "0.5"};

// Builds one configuration. Members are pairs of strings.
class Maker {
public:
    Maker(Random* source, size_t oddity) : random(*source), oddIn(oddity) {}

    std::string root() {
        Members pipes;
        const size_t count = random.oneIn(6) ? random.below(12) : random.below(3) + 1;
        for (size_t p = 0; p < count; ++p) {
            add(&pipes, "pipe_" + index(p), pipe());
        }
        return object(pipes);
    }

private:
    using Members = std::vector<std::pair<std::string, std::string>>;

    // True once in `oddIn`, on average; never for a valid configuration.
    bool odd() { return random.oneIn(oddIn); }

    std::string index(size_t number) {
        return odd() ? random.oneOf(ODD_SUFFIXES) : std::to_string(number);
    }

    static std::string quoted(const std::string& text) { return '"' + text + '"'; }

    void add(Members* members, const std::string& key, const std::string& value) {
        members->push_back(
            {odd() ? random.oneOf(ODD_KEYS) : key, odd() ? random.oneOf(ODD_TEXTS) : value});
        if (odd()) {
            members->push_back({key, optionValue()});
        }
        if (odd()) {
            members->erase(members->begin() +
                           static_cast<std::ptrdiff_t>(random.below(members->size())));
        }
    }

    std::string blank() {
        static const Words BLANKS = {"", "", "", " ", "\n", "\r\n\t", "/* c */", "// c\n"};
        return random.oneOf(BLANKS);
    }

    std::string object(const Members& members) {
        std::string text = "{";
        for (const auto& member : members) {
            text += (text.size() > 1 ? "," : "") + blank() + quoted(member.first) + blank() + ":" +
                    member.second;
        }
        return text + blank() + "}";
    }

    std::string pipe() {
        Members members;
        const size_t nodes = random.below(4);
        for (size_t n = 0; n < nodes; ++n) {
            add(&members, "node_" + index(random.oneIn(3) ? n + 8 : n), node());
        }
        for (size_t e = random.below(3); e > 0; --e) {
            add(&members,
                "executor_" + index(e),
                object({{odd() ? "Executor_opts" : "executor_opts", options(3)}}));
        }
        for (size_t l = random.below(3); l > 0; --l) {
            add(&members, "link_" + index(l * 5), options(3));
        }
        if (random.oneIn(2)) {
            add(&members, "thread_opts", threads());
        }
        if (random.oneIn(2)) {
            static const Words MODES = {"sync", "async", "", "none", "\\u0000", "%s"};
            add(&members, "default_mode_link", quoted(random.oneOf(MODES)));
        }
        return object(members);
    }

    std::string threads() {
        static const Words KEYS = {"exec_thread_num",
                                   "EXEC_THREAD_NUM",
                                   "Exec_Thread_Num",
                                   "exec_thread_nu",
                                   "exec_thread_num\\u0000x"};
        Members members;
        for (size_t i = random.below(3); i > 0; --i) {
            add(&members,
                random.oneOf(KEYS),
                random.oneIn(4) ? quoted("4") : random.oneOf(NUMBERS));
        }
        return object(members);
    }

    std::string node() {
        Members members;
        Members own = optionMembers(3);
        add(&own, "node_name", quoted(random.oneOf(CLASSES)));
        add(&members, "node_opts", object(own));
        add(&members, "stream_opts", object(streams()));
        if (random.oneIn(4)) {
            add(&members, "node_opts_extra", options(3));
        }
        if (random.oneIn(4)) {
            add(&members, "stream_opts_extra", object(streams()));
        }
        return object(members);
    }

    Members streams() {
        Members members = optionMembers(1);
        side(&members, "stream_input", "stream_fmt_in");
        side(&members, "stream_output", "stream_fmt_out");
        if (random.oneIn(3)) {
            static const Words MODES = {"remain_newest", "remain_newest", "Remain_Newest", "all"};
            add(&members, "stream_mode_in", quoted(random.oneOf(MODES)));
        }
        return members;
    }

    void side(Members* members, const std::string& name, const std::string& format) {
        const size_t count = random.below(4);
        const bool indexed = count != 1 || odd();
        for (size_t k = 0; k < count; ++k) {
            const std::string suffix = indexed ? "_" + index(k) : "";
            add(members, name + suffix, quoted(random.oneOf(NAMES)));
            add(members, format + suffix, quoted(random.oneOf(FORMATS)));
        }
    }

    Members optionMembers(size_t most) {
        static const Words KEYS = {"fps", "model", "confidence", "mode", "é", "depth"};
        Members members;
        for (size_t i = random.below(most + 1); i > 0; --i) {
            add(&members, random.oneOf(KEYS), optionValue());
        }
        return members;
    }

    std::string options(size_t most) { return object(optionMembers(most)); }

    std::string optionValue() {
        switch (random.below(4)) {
            case 0:
                return random.oneOf(NUMBERS);
            case 1:
                return random.oneOf(ODD_TEXTS);
            default:
                return quoted(optionText());
        }
    }

    std::string optionText() {
        if (odd()) {
            return std::string(120 + random.below(16), 'x');
        }
        if (random.oneIn(3)) {
            return random.oneOf(TEXTS);
        }
        // A JSON string cannot contain a tab.
        const std::string value = random.oneOf(TYPED_VALUES);
        return random.oneOf(TYPES) + ":" + (value[0] == '\t' ? "\\t" + value.substr(1) : value);
    }

    Random& random;
    const size_t oddIn;
};

std::string mutated(std::string text, Random* random) {
    static const Words PIECES = {"{", "}",    "[",       "]",   ",",   ":",   "\"", "\\",
                                 "/", "//",   "/*",      "*/",  "0",   "-",   "e",  "\n",
                                 " ", "null", "\\u0000", "1e5", "tru", "\x80"};
    for (size_t changes = random->below(4) + 1; changes > 0 && !text.empty(); --changes) {
        const size_t at = random->below(text.size());
        switch (random->below(5)) {
            case 0:
                text.erase(at, random->below(3) + 1);
                break;
            case 1:
                text.insert(at, random->oneOf(PIECES));
                break;
            case 2:
                text[at] = static_cast<char>(random->below(256));
                break;
            case 3:
                text.insert(at, text.substr(random->below(text.size()), random->below(40)));
                break;
            default:
                if (random->oneIn(8)) {
                    text.erase(at);
                }
        }
    }
    return text;
}

}  // namespace

std::string randomConfiguration(Random* random, Kind kind) {
    static const Words BARE = {"",
                               "null",
                               "[]",
                               "[1,2]",
                               "\"x\"",
                               "5",
                               "true",
                               "{}",
                               " ",
                               "{",
                               "//",
                               "/* */ {}",
                               "{} x",
                               "-"};
    if (kind != Kind::Valid && random->oneIn(50)) {
        return random->oneOf(BARE);
    }
    const bool isOdd = kind == Kind::Odd || (kind == Kind::Mutated && random->oneIn(2));
    const std::string text = Maker(random, isOdd ? 6 + random->below(30) : 0).root();
    return kind == Kind::Mutated ? mutated(text, random) : text;
}

std::string randomOptionText(Random* random) {
    static const Words SEPARATORS = {":", ":", ":", ":", "", "::", " :", std::string(1, '\0')};
    static const std::string LETTERS = "0123456789xXabcdefinptyINF+-. :\t%\xe9";
    std::string text =
        random->oneIn(10) ? random->oneOf(TEXTS) : random->oneOf(TYPES) + random->oneOf(SEPARATORS);
    if (random->oneIn(2)) {
        return text + random->oneOf(TYPED_VALUES);
    }
    const size_t most = random->oneIn(8) ? 160 : 24;
    for (size_t length = random->below(most); length > 0; --length) {
        text += random->oneIn(400) ? '\0'
                                   : LETTERS[random->below(random->oneIn(2) ? 10 : LETTERS.size())];
    }
    return text;
}

std::string randomTag(Random* random) {
    static const Words TAGS = {"",
                               "node_",
                               "executor_",
                               "link_",
                               "stream_input",
                               "stream_input_",
                               "s",
                               "pipe_",
                               "stream_fmt_out_",
                               "a",
                               "x",
                               "\xff"};
    return random->oneIn(20) ? std::string("a\0b", 3).substr(0, random->below(4))
                             : random->oneOf(TAGS);
}
