// The host framework's logger.
#include "host/qv_host_log.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "tests/host/in_threads.h"
#include "tests/support/aborts.h"

// As a source file of the parser defines them.
#define QV_LOG_MODULE 0x18181802U
#define QV_LOG_TAG "QVGraphParser"
#define QV_LOG_FUNCTION "check"

namespace {

static_assert(!std::is_copy_constructible<QVLogScope>::value);
static_assert(!std::is_copy_assignable<QVLogScope>::value);

// Level and sink are process-wide: each test starts with the defaults and
// restores them.
class LogTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(qv_log_level(), QV_LOG_ERROR);
        ASSERT_FALSE(qv_log_set_sink(nullptr));
    }

    void TearDown() override {
        qv_log_set_level(QV_LOG_ERROR);
        qv_log_set_sink(nullptr);
    }

    // Collects the messages of the records from now on.
    void Listen() {
        qv_log_set_sink(
            [this](const QVLogRecord& record) { messages.emplace_back(record.message); });
    }

    static void Log(int level, const char* text) {
        qv_log(1, level, "tag", "%s", "function", 1, text);
    }
    static void Err(const char* text) { qv_err(1, QV_LOG_ERROR, "tag", "%s", "function", 1, text); }

    std::vector<std::string> messages;
};

using Messages = std::vector<std::string>;

std::string lineOf(const char* format, const std::string& message, bool colour = false) {
    return qv_log_line({1, QV_LOG_ERROR, "tag", format, "function", 7, message.c_str()}, colour);
}

const std::string BEGIN = "tag error function:7: ";

}  // namespace

// ---- Level ------------------------------------------------------------------

TEST_F(LogTest, DefaultLevelIsError) {
    EXPECT_EQ(qv_log_level(), QV_LOG_ERROR);
}

TEST_F(LogTest, LevelCanBeSet) {
    for (const int level : {6, 5, 0, -1, 1000}) {
        qv_log_set_level(level);
        EXPECT_EQ(qv_log_level(), level);
    }
}

TEST_F(LogTest, RecordsAtTheLevelAndMoreSevereOnesPass) {
    Listen();
    const std::vector<std::pair<int, Messages>> passing = {
        {1, {"1"}},
        {QV_LOG_ERROR, {"1", "2"}},
        {QV_LOG_NOTICE, {"1", "2", "5"}},
        {QV_LOG_INFO, {"1", "2", "5", "6"}},
        {100, {"1", "2", "5", "6", "7"}},
    };
    for (const auto& [level, expected] : passing) {
        messages.clear();
        qv_log_set_level(level);
        for (const int other : {1, 2, 5, 6, 7}) {
            Log(other, std::to_string(other).c_str());
        }
        EXPECT_EQ(messages, expected) << "level " << level;
    }
}

TEST_F(LogTest, ErrorsAreFilteredByTheirLevel) {
    Listen();
    Err("passes");
    qv_log_set_level(QV_LOG_ERROR - 1);
    Err("does not");
    EXPECT_EQ(messages, Messages{"passes"});
}

TEST_F(LogTest, RecordBelowTheFilterIsNotFormatted) {
    // Reading the text would crash the process.
    const auto* const unreadable = reinterpret_cast<const char*>(1);
    Listen();
    Log(QV_LOG_NOTICE, unreadable);
    Log(QV_LOG_INFO, unreadable);
    EXPECT_EQ(messages, Messages());
}

// ---- Sink -------------------------------------------------------------------

namespace {

// A copy of a record that outlives the call.
struct KeptRecord {
    uint32_t module;
    int level;
    std::string tag;
    std::string format;
    std::string function;
    int line;
    std::string message;

    bool operator==(const KeptRecord& other) const {
        return module == other.module && level == other.level && tag == other.tag &&
               format == other.format && function == other.function && line == other.line &&
               message == other.message;
    }
};

KeptRecord keep(const QVLogRecord& record) {
    return {record.module,
            record.level,
            record.tag,
            record.format,
            record.function,
            record.line,
            record.message};
}

}  // namespace

TEST_F(LogTest, SinkReceivesEveryFieldOfALogRecord) {
    std::vector<KeptRecord> records;
    qv_log_set_level(QV_LOG_INFO);
    qv_log_set_sink([&](const QVLogRecord& record) { records.push_back(keep(record)); });
    qv_log(0x18181802, 5, "QVGraphParser", "%s is %d%%\n", "initTaskNode", 68, "load", 99);
    const KeptRecord expected = {
        0x18181802, 5, "QVGraphParser", "%s is %d%%\n", "initTaskNode", 68, "load is 99%\n"};
    EXPECT_EQ(records, std::vector<KeptRecord>{expected});
}

TEST_F(LogTest, SinkReceivesEveryFieldOfAnErrorRecord) {
    std::vector<KeptRecord> records;
    qv_log_set_sink([&](const QVLogRecord& record) { records.push_back(keep(record)); });
    qv_err(0xffffffff, -2, "tag", QV_LOG_RED "%s" QV_LOG_PLAIN, "f", -1, "text");
    const KeptRecord expected = {
        0xffffffff, -2, "tag", "\033[31m\033[1m%s\033[0m", "f", -1, "\033[31m\033[1mtext\033[0m"};
    EXPECT_EQ(records, std::vector<KeptRecord>{expected});
}

TEST_F(LogTest, MessagesOfEveryLengthAreComplete) {
    Listen();
    for (const size_t length : {0U, 1U, 510U, 511U, 512U, 513U, 1024U, 100000U}) {
        const std::string text(length, 'x');
        messages.clear();
        Log(QV_LOG_ERROR, text.c_str());
        Err((text + '!').c_str());
        EXPECT_EQ(messages, (Messages{text, text + '!'})) << "length " << length;
    }
}

TEST_F(LogTest, LongMessagesKeepAllTheirArguments) {
    Listen();
    const std::string text(600, 'x');
    qv_err(1, 2, "tag", "%d %s %.1f %s %c", "f", 1, 42, text.c_str(), 0.5, "end", '.');
    EXPECT_EQ(messages, Messages{"42 " + text + " 0.5 end ."});
}

TEST_F(LogTest, ConversionsInTheDataAreNotInterpreted) {
    Listen();
    Log(QV_LOG_ERROR, "%n%s%d%%%1000000d");
    EXPECT_EQ(messages, Messages{"%n%s%d%%%1000000d"});
}

TEST_F(LogTest, SettingASinkReturnsThePreviousOne) {
    std::string calls;
    const QVLogRecord record = {1, 2, "tag", "%s", "function", 1, "message"};
    EXPECT_FALSE(qv_log_set_sink([&](const QVLogRecord&) { calls += 'a'; }));

    const QVLogSink first = qv_log_set_sink([&](const QVLogRecord&) { calls += 'b'; });
    Err("to the second");
    ASSERT_TRUE(first);
    first(record);
    EXPECT_EQ(calls, "ba");

    const QVLogSink second = qv_log_set_sink(first);
    Err("to the first again");
    ASSERT_TRUE(second);
    second(record);
    EXPECT_EQ(calls, "baab");

    EXPECT_TRUE(qv_log_set_sink(QVLogSink()));
    EXPECT_FALSE(qv_log_set_sink(nullptr));
}

TEST_F(LogTest, ExceptionFromASinkPropagatesToTheCaller) {
    qv_log_set_sink([](const QVLogRecord& record) { throw std::runtime_error(record.message); });
    for (const auto& log : {+[] { Log(QV_LOG_ERROR, "text"); }, +[] { Err("text"); }}) {
        try {
            log();
            ADD_FAILURE() << "no exception";
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ(error.what(), "text");
        }
    }
    Log(QV_LOG_INFO, "does not pass, and so does not throw");

    Listen();
    Err("continues");
    EXPECT_EQ(messages, Messages{"continues"});
}

TEST_F(LogTest, SinkMayLog) {
    std::string calls;
    qv_log_set_sink([&](const QVLogRecord& record) {
        calls += record.message;
        if (record.level == QV_LOG_ERROR) {
            Log(QV_LOG_ERROR - 1, " inner");
        }
    });
    Err("outer");
    EXPECT_EQ(calls, "outer inner");
}

TEST_F(LogTest, SinkThatReplacesItselfLivesUntilItReturns) {
    std::string last;
    const std::string own = "the sink's own text, too long to be kept in place";
    qv_log_set_sink([this, &last, own](const QVLogRecord&) {
        Listen();
        last = own;
    });
    Err("to the first");
    Err("to the second");
    EXPECT_EQ(last, own);
    EXPECT_EQ(messages, Messages{"to the second"});
}

// ---- Scope ------------------------------------------------------------------

TEST_F(LogTest, ScopeSetsAndRestoresLevelAndSink) {
    Listen();
    qv_log_set_level(QV_LOG_NOTICE);
    Messages inner;
    {
        const QVLogScope scope(
            QV_LOG_INFO, [&](const QVLogRecord& record) { inner.emplace_back(record.message); });
        EXPECT_EQ(qv_log_level(), QV_LOG_INFO);
        Log(QV_LOG_INFO, "inside");
    }
    EXPECT_EQ(qv_log_level(), QV_LOG_NOTICE);
    Log(QV_LOG_INFO, "below the filter");
    Log(QV_LOG_NOTICE, "outside");
    EXPECT_EQ(inner, Messages{"inside"});
    EXPECT_EQ(messages, Messages{"outside"});
}

TEST_F(LogTest, ScopeRestoresLevelAndSinkAfterAnException) {
    Listen();
    const auto fail = [](const QVLogRecord& record) { throw std::runtime_error(record.message); };
    try {
        const QVLogScope scope(QV_LOG_INFO, fail);
        Log(QV_LOG_INFO, "inside");
        ADD_FAILURE() << "no exception";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "inside");
    }
    EXPECT_EQ(qv_log_level(), QV_LOG_ERROR);
    Err("outside");
    EXPECT_EQ(messages, Messages{"outside"});
}

TEST_F(LogTest, ScopesNest) {
    std::string calls;
    const QVLogScope outer(5, [&](const QVLogRecord&) { calls += 'o'; });
    {
        const QVLogScope inner(6, [&](const QVLogRecord&) { calls += 'i'; });
        Log(6, "text");
    }
    Log(6, "text");
    Log(5, "text");
    EXPECT_EQ(calls, "io");
}

TEST_F(LogTest, ScopeRestoresStandardError) {
    {
        const QVLogScope scope(QV_LOG_INFO, [](const QVLogRecord&) {});
    }
    EXPECT_FALSE(qv_log_set_sink(nullptr));
}

// ---- Assertions -------------------------------------------------------------

namespace {

// Functions whose assertion and check fail.
constexpr int ASSERTION_LINE = __LINE__ + 2;
void failAssertion() {
    QV_ASSERT(1 == 2, "text %d");
}
int failCheck() {
    const int result = 7;
    CHECK_UE(-1, -1);
    return 8;
}

}  // namespace

TEST_F(LogTest, SinkRecognisesAFailedAssertionAndMayThrow) {
    qv_log_set_sink([](const QVLogRecord& record) {
        if (qv_log_is_assertion(record)) {
            throw std::runtime_error("would abort");
        }
    });
    EXPECT_THROW(failAssertion(), std::runtime_error);
}

TEST_F(LogTest, OtherRecordsAreNotAssertions) {
    const std::vector<const char*> formats = {
        CHECK_UE_FORMAT, "", "%s", "Assertion %s failed at %s:%d\n", QV_ASSERT_FORMAT " "};
    for (const char* const format : formats) {
        EXPECT_FALSE(qv_log_is_assertion({1, 2, "tag", format, "function", 1, "message"}));
    }
    // The format decides, not the text of the message.
    EXPECT_FALSE(qv_log_is_assertion({1, 2, "tag", "%s", "function", 1, QV_ASSERT_FORMAT}));
    const std::string copy = QV_ASSERT_FORMAT;
    EXPECT_TRUE(qv_log_is_assertion({1, 2, "tag", copy.c_str(), "function", 1, ""}));

    bool assertion = true;
    qv_log_set_sink([&](const QVLogRecord& record) { assertion = qv_log_is_assertion(record); });
    EXPECT_EQ(failCheck(), 7);
    EXPECT_FALSE(assertion);
}

TEST_F(LogTest, FailedAssertionIsWrittenToStandardErrorBeforeTheAbort) {
    const std::string line = std::to_string(ASSERTION_LINE);
    EXPECT_EXIT(failAssertion(),
                testing::KilledBySignal(SIGABRT),
                standardErrorIs("QVGraphParser error check:" + line +
                                ": Assertion text %d failed at check:" + line + "\n"));
}

// ---- One line ---------------------------------------------------------------

TEST(LogLineTest, NamesTagLevelFunctionLineAndMessage) {
    const QVLogRecord record = {0x18181802,
                                QV_LOG_ERROR,
                                "QVGraphParser",
                                QV_LOG_RED "failed to fopen(%s)" QV_LOG_PLAIN,
                                "parseConfigFile",
                                68,
                                QV_LOG_RED "failed to fopen(pipes.json)" QV_LOG_PLAIN};
    EXPECT_EQ(qv_log_line(record, false),
              "QVGraphParser error parseConfigFile:68: failed to fopen(pipes.json)");
}

TEST(LogLineTest, NamesEachLevel) {
    const std::vector<std::pair<int, std::string>> names = {{QV_LOG_ERROR, "error"},
                                                            {QV_LOG_NOTICE, "notice"},
                                                            {QV_LOG_INFO, "info"},
                                                            {0, "level 0"},
                                                            {3, "level 3"},
                                                            {7, "level 7"},
                                                            {-1, "level -1"}};
    for (const auto& [level, name] : names) {
        EXPECT_EQ(qv_log_line({1, level, "tag", "text", "function", 7, "text"}, true),
                  "tag " + name + " function:7: text");
    }
}

TEST(LogLineTest, HasTheColourOfItsFormatIfRequested) {
    EXPECT_EQ(lineOf(QV_LOG_RED "%s" QV_LOG_PLAIN, QV_LOG_RED "text" QV_LOG_PLAIN, true),
              "\033[31m\033[1m" + BEGIN + "text\033[0m");
    EXPECT_EQ(lineOf(QV_LOG_BLUE "%s" QV_LOG_PLAIN, QV_LOG_BLUE "text" QV_LOG_PLAIN, true),
              "\033[34m\033[1m" + BEGIN + "text\033[0m");
    EXPECT_EQ(lineOf("%s", "text", true), BEGIN + "text");
}

TEST(LogLineTest, HasNoColourUnlessRequested) {
    EXPECT_EQ(lineOf(QV_LOG_RED "%s" QV_LOG_PLAIN, QV_LOG_RED "text" QV_LOG_PLAIN), BEGIN + "text");
    EXPECT_EQ(lineOf(QV_LOG_BLUE "%s" QV_LOG_PLAIN, QV_LOG_BLUE "text" QV_LOG_PLAIN),
              BEGIN + "text");
    EXPECT_EQ(lineOf("%s", "text"), BEGIN + "text");
}

TEST(LogLineTest, EndsWithoutTheNewlineOfItsFormat) {
    EXPECT_EQ(lineOf("%s\n", "text\n", true), BEGIN + "text");
    EXPECT_EQ(lineOf(QV_LOG_RED "%s\n" QV_LOG_PLAIN, QV_LOG_RED "text\n" QV_LOG_PLAIN, true),
              "\033[31m\033[1m" + BEGIN + "text\033[0m");
    EXPECT_EQ(lineOf(QV_LOG_RED "%s\n" QV_LOG_PLAIN, QV_LOG_RED "text\n" QV_LOG_PLAIN),
              BEGIN + "text");
}

TEST(LogLineTest, ColoursAndNewlinesAtTheEdgesOfTheDataAreEscaped) {
    const std::string plain = R"(\x1b[0m)";
    const std::string red = R"(\x1b[31m\x1b[1m)";
    EXPECT_EQ(lineOf("%s", "text\n"), BEGIN + R"(text\x0a)");
    EXPECT_EQ(lineOf("%s\n", "text\n\n"), BEGIN + R"(text\x0a)");
    EXPECT_EQ(lineOf("%s", "text" QV_LOG_PLAIN), BEGIN + "text" + plain);
    EXPECT_EQ(lineOf("%s", QV_LOG_RED "text" QV_LOG_PLAIN, true), BEGIN + red + "text" + plain);
    EXPECT_EQ(lineOf(QV_LOG_RED "%s" QV_LOG_PLAIN,
                     QV_LOG_RED QV_LOG_RED "text\n" QV_LOG_PLAIN QV_LOG_PLAIN,
                     true),
              "\033[31m\033[1m" + BEGIN + red + R"(text\x0a)" + plain + "\033[0m");
}

TEST(LogLineTest, EmptyMessageLeavesOnlyThePrefix) {
    EXPECT_EQ(lineOf("%s", ""), BEGIN);
    EXPECT_EQ(lineOf(QV_LOG_RED "%s\n" QV_LOG_PLAIN, QV_LOG_RED "\n" QV_LOG_PLAIN), BEGIN);
}

TEST(LogLineTest, TagAndFunctionAreEscaped) {
    EXPECT_EQ(qv_log_line({1, 2, "t\033ag", "%s", "fun\nction", 7, "text"}, false),
              R"(t\x1bag error fun\x0action:7: text)");
}

// ---- Escapes ----------------------------------------------------------------

namespace {

std::string escaped(unsigned byte) {
    const char* const digits = "0123456789abcdef";
    return std::string("\\x") + digits[byte / 16] + digits[byte % 16];
}

std::string escaped(const std::string& bytes) {
    std::string text;
    for (const char byte : bytes) {
        text += escaped(static_cast<unsigned char>(byte));
    }
    return text;
}

// The data as it appears in a line, with neighbours that must not change.
std::string shown(const std::string& data) {
    const std::string line = lineOf("%s", "<" + data + ">");
    EXPECT_EQ(line.substr(0, BEGIN.size() + 1), BEGIN + '<');
    EXPECT_EQ(line.back(), '>');
    return line.substr(BEGIN.size() + 1, line.size() - BEGIN.size() - 2);
}

}  // namespace

TEST(LogLineTest, ControlCharactersAreEscaped) {
    EXPECT_EQ(shown("\033[2J"), R"(\x1b[2J)");
    EXPECT_EQ(shown("a\r\n\tb\x7f"), R"(a\x0d\x0a\x09b\x7f)");
    for (unsigned byte = 1; byte < 0x20; ++byte) {
        EXPECT_EQ(shown(std::string(1, static_cast<char>(byte))), escaped(byte));
    }
}

TEST(LogLineTest, PrintableAsciiIsUnchanged) {
    std::string printable;
    for (char byte = ' '; byte <= '~'; ++byte) {
        printable += byte;
    }
    EXPECT_EQ(shown(printable), printable);
}

TEST(LogLineTest, EightBitControlCharactersAreEscaped) {
    for (unsigned byte = 0x80; byte < 0xa0; ++byte) {
        EXPECT_EQ(shown(std::string("\xc2") + static_cast<char>(byte)), R"(\xc2)" + escaped(byte));
    }
}

TEST(LogLineTest, SingleBytesThatAreNotUtf8AreEscaped) {
    for (unsigned byte = 0x80; byte <= 0xff; ++byte) {
        EXPECT_EQ(shown(std::string(1, static_cast<char>(byte))), escaped(byte));
    }
}

TEST(LogLineTest, ValidUtf8IsUnchanged) {
    const std::vector<std::string> valid = {
        "\xc3\xa4",                  // a letter of two bytes
        "\xe6\x97\xa5\xe6\x9c\xac",  // two letters of three bytes
        "\xf0\x9f\x98\x80",          // an emoji of four bytes
        "\xc2\xa0",                  // the first after the controls, U+00A0
        "\xdf\xbf",                  // the last of two bytes
        "\xe0\xa0\x80",              // the first of three
        "\xed\x9f\xbf",              // the last before the surrogates
        "\xee\x80\x80",              // the first after the surrogates
        "\xef\xbf\xbf",              // the last of three bytes
        "\xf0\x90\x80\x80",          // the first of four
        "\xf4\x8f\xbf\xbf",          // the last of all, U+10FFFF
    };
    for (const std::string& text : valid) {
        EXPECT_EQ(shown(text), text) << escaped(text);
    }
}

TEST(LogLineTest, InvalidUtf8IsEscaped) {
    const std::vector<std::string> invalid = {
        "\xc3",                      // truncated
        "\xe6\x97",                  //
        "\xf0\x9f\x98",              //
        "\x80\x80",                  // no leading byte
        "\xc0\x80",                  // overlong NUL
        "\xc0\x9b",                  // overlong ESC
        "\xc1\xbf",                  // overlong DEL
        "\xe0\x80\x8a",              // overlong newline
        "\xe0\x9f\xbf",              // overlong, the last of two bytes
        "\xf0\x80\x80\x9b",          // overlong ESC
        "\xf0\x8f\xbf\xbf",          // overlong, the last of three bytes
        "\xed\xa0\x80",              // the first surrogate
        "\xed\xbf\xbf",              // the last surrogate
        "\xf4\x90\x80\x80",          // above U+10FFFF
        "\xf8\x88\x80\x80\x80",      // five bytes
        "\xfc\x84\x80\x80\x80\x80",  // six bytes
        "\xfe\xff",                  // a byte order mark of another encoding
    };
    for (const std::string& text : invalid) {
        EXPECT_EQ(shown(text), escaped(text));
    }
}

TEST(LogLineTest, TextContinuesAfterAnEscape) {
    EXPECT_EQ(shown("\xe6\x97"
                    "A\xc3\xa4\xff\xc3\xa4\x1b"),
              "\\xe6\\x97A\xc3\xa4\\xff\xc3\xa4\\x1b");
}

// ---- Standard error ---------------------------------------------------------

namespace {

class StandardErrorTest : public LogTest {
protected:
    void SetUp() override {
        LogTest::SetUp();
        testing::internal::CaptureStderr();
    }
    void TearDown() override {
        if (!mTaken) {
            testing::internal::GetCapturedStderr();
        }
        LogTest::TearDown();
    }

    std::string Written() {
        mTaken = true;
        return testing::internal::GetCapturedStderr();
    }

private:
    bool mTaken = false;
};

// A pseudo-terminal that is standard error during its lifetime.
class Terminal {
public:
    Terminal() : mMaster(posix_openpt(O_RDWR | O_NOCTTY)) {
        EXPECT_EQ(grantpt(mMaster), 0);
        EXPECT_EQ(unlockpt(mMaster), 0);
        const int slave = open(ptsname(mMaster), O_RDWR | O_NOCTTY);
        EXPECT_GE(slave, 0);
        termios settings = {};
        EXPECT_EQ(tcgetattr(slave, &settings), 0);
        cfmakeraw(&settings);  // keeps newlines unchanged
        EXPECT_EQ(tcsetattr(slave, TCSANOW, &settings), 0);
        fflush(stderr);
        mBefore = dup(STDERR_FILENO);
        dup2(slave, STDERR_FILENO);
        close(slave);
    }
    ~Terminal() {
        giveBack();
        close(mMaster);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    // Everything written to it. Afterwards it is no longer standard error.
    std::string written() {
        giveBack();
        std::string text;
        char part[1024];
        ssize_t length = 0;
        while ((length = read(mMaster, part, sizeof(part))) > 0) {
            text.append(part, static_cast<size_t>(length));
        }
        return text;
    }

private:
    void giveBack() {
        if (mBefore >= 0) {
            dup2(mBefore, STDERR_FILENO);
            close(mBefore);
            mBefore = -1;
        }
    }

    int mMaster;
    int mBefore = -1;
};

}  // namespace

TEST_F(StandardErrorTest, ReceivesErrorsByDefaultOneLineEachWithoutColour) {
    qv_err(1, 2, "tag", QV_LOG_RED "%s" QV_LOG_PLAIN, "function", 7, "one");
    qv_err(1, 2, "tag", QV_LOG_RED "%s\n" QV_LOG_PLAIN, "function", 8, "two");
    qv_log(1, 5, "tag", "%s", "function", 9, "below the filter");
    EXPECT_EQ(Written(), "tag error function:7: one\ntag error function:8: two\n");
}

TEST_F(StandardErrorTest, EmptySinkMeansStandardError) {
    Listen();
    Err("to the sink");
    qv_log_set_sink(QVLogSink());
    qv_log_set_level(QV_LOG_INFO);
    qv_log(1, 6, "tag", QV_LOG_BLUE "%s" QV_LOG_PLAIN, "function", 7, "text");
    EXPECT_EQ(Written(), "tag info function:7: text\n");
    EXPECT_EQ(messages, Messages{"to the sink"});
}

TEST_F(StandardErrorTest, ReceivesNothingWhileASinkIsSet) {
    Listen();
    Err("to the sink");
    EXPECT_EQ(Written(), "");
}

TEST_F(StandardErrorTest, DataAddsNoLinesAndNoConversions) {
    qv_err(1, 2, "tag", "%s", "function", 7, "%n%s\r\n\033[2J\xff\xc3\xa4");
    EXPECT_EQ(Written(), "tag error function:7: %n%s\\x0d\\x0a\\x1b[2J\\xff\xc3\xa4\n");
}

TEST_F(StandardErrorTest, LongLinesAreComplete) {
    const std::string text(100000, 'x');
    qv_err(1, 2, "tag", "%s", "function", 7, text.c_str());
    EXPECT_EQ(Written(), "tag error function:7: " + text + "\n");
}

TEST_F(LogTest, TerminalReceivesColourButNoControlCharactersOfTheData) {
    qv_log_set_level(QV_LOG_INFO);
    Terminal terminal;
    qv_err(1, 2, "tag", QV_LOG_RED "%s\n" QV_LOG_PLAIN, "function", 7, "\033[2J\r\n");
    qv_log(1, 5, "tag", "%s", "function", 8, "text" QV_LOG_PLAIN);
    qv_log(1, 6, "tag", QV_LOG_BLUE "%s" QV_LOG_PLAIN, "function", 9, "\xc3\xa4");
    EXPECT_EQ(terminal.written(),
              "\033[31m\033[1mtag error function:7: \\x1b[2J\\x0d\\x0a\033[0m\n"
              "tag notice function:8: text\\x1b[0m\n"
              "\033[34m\033[1mtag info function:9: \xc3\xa4\033[0m\n");
}

// ---- Threads ----------------------------------------------------------------

TEST_F(StandardErrorTest, ThreadsWriteCompleteLines) {
    constexpr int THREADS = 4;
    constexpr int RECORDS = 200;
    const std::string padding(700, '.');
    inThreads(THREADS, [&padding](int thread) {
        for (int number = 0; number < RECORDS; ++number) {
            qv_err(1, 2, "tag", "%d%s", "function", thread, number, padding.c_str());
        }
    });
    Messages expected;
    for (int thread = 0; thread < THREADS; ++thread) {
        for (int number = 0; number < RECORDS; ++number) {
            expected.push_back("tag error function:" + std::to_string(thread) + ": " +
                               std::to_string(number) + padding);
        }
    }
    std::istringstream written(Written());
    Messages lines;
    for (std::string line; std::getline(written, line);) {
        lines.push_back(line);
    }
    std::sort(expected.begin(), expected.end());
    std::sort(lines.begin(), lines.end());
    EXPECT_EQ(lines, expected);
}

TEST_F(LogTest, EachRecordReachesOneOfTheSinksThatThreadsSet) {
    std::atomic<int> first{0};
    std::atomic<int> second{0};
    const QVLogSink firstSink = [&](const QVLogRecord&) { ++first; };
    const QVLogSink secondSink = [&](const QVLogRecord&) { ++second; };
    qv_log_set_sink(firstSink);
    inThreads(4, [&](int thread) {
        for (int number = 0; number < 500; ++number) {
            qv_log_set_sink((number + thread) % 2 == 0 ? firstSink : secondSink);
            qv_log_set_level(QV_LOG_ERROR + thread);
            Err("text");
        }
    });
    EXPECT_EQ(first + second, 4 * 500);
}
