// Key families, and the queries that use them.
#include <string>
#include <utility>
#include <vector>

#include "tests/graph/parser_test.h"

using json11::Json;

namespace {

class FamilyTest : public ParserTest {
protected:
    // The ids at all indexes from 0 to one past the last.
    std::vector<int> IdsOf(const Json& items, const std::string& tag) {
        std::vector<int> ids;
        const int count = reader.getItemNum(items, tag);
        for (int index = 0; index <= count; ++index) {
            ids.push_back(reader.getItemIDByIndex(items, index, tag));
        }
        return ids;
    }

    std::vector<std::string> NamesOf(const Json& items, const std::string& tag) {
        std::vector<std::string> names;
        const int count = reader.getItemNum(items, tag);
        for (int index = 0; index <= count; ++index) {
            names.push_back(reader.getItemNameByIndex(items, index, tag));
        }
        return names;
    }
};

class PipeQueriesTest : public ParserTest {
protected:
    int ThreadsOf(const std::string& threadOpts) {
        Load(R"({"pipe_0": {"thread_opts": )" + threadOpts + "}}");
        const int threads = reader.getThreadNum(0);
        EXPECT_EQ(framework.takeTrace(), "\n");
        return threads;
    }

    // The record contains the configured mode.
    void AssertLinkMode(const std::string& pipe,
                        const std::string& mode,
                        const std::string& logged) {
        SCOPED_TRACE(pipe);
        Load(R"({"pipe_0": )" + pipe + "}");
        EXPECT_EQ(reader.getDefaultLinkMode(0), mode);
        EXPECT_EQ(framework.takeTrace(),
                  "\nqv_log 6 getDefaultLinkMode \"\\033[34m\\033[1mdefault link mode " + logged +
                      "\\033[0m\"\n");
    }
};

const char* const NO_OBJECTS[] = {"null", "[1,2]", "1", R"("node_0")", "true"};

}  // namespace

// ---- Families ---------------------------------------------------------------

TEST_F(FamilyTest, MembersWithTheTagAreCountedAndAllMembersAreLogged) {
    const Json items = Value(R"({"node_0": {}, "node_1": {}, "executor_0": {}})");
    EXPECT_EQ(reader.getItemNum(items, "node_"), 2);
    EXPECT_EQ(framework.takeTrace(), R"(
qv_log 6 getItemNum "\033[34m\033[1mitem name=executor_0 , \t tag=node_\033[0m"
qv_log 6 getItemNum "\033[34m\033[1mitem name=node_0 , \t tag=node_\033[0m"
qv_log 6 getItemNum "\033[34m\033[1mitem name=node_1 , \t tag=node_\033[0m"
)");
}

TEST_F(FamilyTest, PlainKeyBelongsToTheFamilyOfItsName) {
    const Json items = Value(R"({"stream_input": "", "stream_input_0": "", "stream_fmt_in": ""})");
    EXPECT_EQ(reader.getItemNum(items, "stream_input"), 2);
    EXPECT_EQ(reader.getItemNum(items, "stream_input_"), 1);
}

TEST_F(FamilyTest, TagIsACaseSensitivePrefix) {
    const Json items = Value(R"({"node": 0, "Node_1": 0, "my_node_2": 0, "node-3": 0, "": 0})");
    EXPECT_EQ(NamesOf(items, "node_"), std::vector<std::string>({""}));
}

TEST_F(FamilyTest, EmptyTagMatchesEveryMember) {
    const Json items = Value(R"({"node_0": {}, "5 links": {}, "": {}})");
    EXPECT_EQ(NamesOf(items, ""), (std::vector<std::string>{"", "5 links", "node_0", ""}));
    EXPECT_EQ(IdsOf(items, ""), (std::vector<int>{0, 5, 0, 0}));
}

TEST_F(FamilyTest, EmptyObjectHasNoMembers) {
    EXPECT_EQ(reader.getItemNum(Value("{}"), "node_"), 0);
    EXPECT_EQ(reader.getItemIDByIndex(Value("{}"), 0, "node_"), 0);
    EXPECT_EQ(reader.getItemNameByIndex(Value("{}"), 0, "node_"), "");
    EXPECT_EQ(framework.takeTrace(), "\n");
}

TEST_F(FamilyTest, IndexesFollowTheByteOrderOfTheKeys) {
    const Json items = Value(R"({"node_2": {}, "node_10": {}, "link_1": {}})");
    EXPECT_EQ(IdsOf(items, "node_"), (std::vector<int>{10, 2, 0}));
    EXPECT_EQ(NamesOf(items, "node_"), (std::vector<std::string>{"node_10", "node_2", ""}));
}

TEST_F(FamilyTest, NameIsTheWholeKey) {
    const Json items = Value(R"({"stream_input_b": "y", "stream_input_a": "x", "stream_fmt": 1})");
    EXPECT_EQ(reader.getItemNameByIndex(items, 1, "stream_input_"), "stream_input_b");
    EXPECT_EQ(framework.takeTrace(), "\n");
}

TEST_F(FamilyTest, IdIsTheDecimalNumberAfterTheTag) {
    const std::vector<std::pair<std::string, int>> cases = {
        {"node_0", 0},
        {"node_7", 7},
        {"node_007", 7},
        {"node_12front", 12},
        {"node_ 5", 5},
        {"node_\\t\\n 6", 6},
        {"node_-4", -4},
        {"node_+4", 4},
        {"node_3.9", 3},
        {"node_0x10", 0},
        {"node_1e3", 1},
        {"node_x", 0},
        {"node_", 0},
        {"node_-", 0},
        {"node_- 4", 0},
        {"node_x9", 0},
    };
    for (const auto& [key, id] : cases) {
        const Json items = Value("{\"" + key + "\": {}}");
        EXPECT_EQ(reader.getItemIDByIndex(items, 0, "node_"), id) << key;
    }
    EXPECT_EQ(framework.takeTrace(), "\n");
}

TEST_F(FamilyTest, IndexOutsideTheFamilyFindsNothingSilently) {
    const Json items = Value(R"({"node_4": {}, "node_5": {}, "link_6": {}})");
    for (const int index : {-2147483647 - 1, -1, 2, 3, 2147483647}) {
        EXPECT_EQ(reader.getItemIDByIndex(items, index, "node_"), 0) << index;
        EXPECT_EQ(reader.getItemNameByIndex(items, index, "node_"), "") << index;
    }
    EXPECT_EQ(framework.takeTrace(), "\n");
}

TEST_F(FamilyTest, CountInANonObjectIsSilentlyZero) {
    for (const char* items : NO_OBJECTS) {
        EXPECT_EQ(reader.getItemNum(Value(items), "node_"), 0) << items;
    }
    EXPECT_EQ(framework.takeTrace(), "\n");
}

TEST_F(FamilyTest, IdInANonObjectIsAnError) {
    for (const char* items : NO_OBJECTS) {
        EXPECT_EQ(reader.getItemIDByIndex(Value(items), 3, "node_"), 0) << items;
        EXPECT_EQ(framework.takeTrace(), R"(
qv_err 2 getItemIDByIndex "\033[31m\033[1mget item id by index failed, index=3\033[0m"
)");
    }
}

TEST_F(FamilyTest, NameInANonObjectIsTheSameError) {
    for (const char* items : NO_OBJECTS) {
        EXPECT_EQ(reader.getItemNameByIndex(Value(items), -1, "node_"), "") << items;
        EXPECT_EQ(framework.takeTrace(), R"(
qv_err 2 getItemNameByIndex "\033[31m\033[1mget item id by index failed, index=-1\033[0m"
)");
    }
}

TEST_F(FamilyTest, NulInAKeyEndsItInRecordsAndIdsButNotInNames) {
    const Json items = Value(R"({"node_1\u00002": {}, "node_\u00003": {}})");
    EXPECT_EQ(reader.getItemNum(items, "node_"), 2);
    EXPECT_EQ(framework.takeTrace(), R"(
qv_log 6 getItemNum "\033[34m\033[1mitem name=node_ , \t tag=node_\033[0m"
qv_log 6 getItemNum "\033[34m\033[1mitem name=node_1 , \t tag=node_\033[0m"
)");
    EXPECT_EQ(IdsOf(items, "node_"), (std::vector<int>{0, 1, 0}));
    EXPECT_EQ(reader.getItemNameByIndex(items, 1, "node_"), std::string("node_1\0002", 8));
}

TEST_F(FamilyTest, NonAsciiBytesSortAfterAscii) {
    const Json items = Value("{\"node_\xff\": 1, \"node_\xc3\xa4\": 1, \"node_z\": 1}");
    EXPECT_EQ(NamesOf(items, "node_"),
              (std::vector<std::string>{"node_z", "node_\xc3\xa4", "node_\xff", ""}));
}

// ---- Counts and ids ---------------------------------------------------------

TEST_F(PipeQueriesTest, EachKindIsCountedSeparately) {
    Load(R"({"pipe_0": {"node_0": {}, "node_1": {}, "link_0": {}, "thread_opts": {}}})");
    EXPECT_EQ(reader.getNodeNum(0), 2);
    EXPECT_EQ(reader.getExecNum(0), 0);
    EXPECT_EQ(reader.getLinkNum(0), 1);
}

TEST_F(PipeQueriesTest, EachCountLogsEveryMemberWithItsTag) {
    Load(R"({"pipe_0": {"node_0": {}}})");
    reader.getNodeNum(0);
    reader.getExecNum(0);
    reader.getLinkNum(0);
    EXPECT_EQ(framework.takeTrace(), R"(
qv_log 6 getItemNum "\033[34m\033[1mitem name=node_0 , \t tag=node_\033[0m"
qv_log 6 getItemNum "\033[34m\033[1mitem name=node_0 , \t tag=executor_\033[0m"
qv_log 6 getItemNum "\033[34m\033[1mitem name=node_0 , \t tag=link_\033[0m"
)");
}

TEST_F(PipeQueriesTest, IdsComeFromTheKeys) {
    Load(R"({"pipe_0": {},
             "pipe_1": {"node_3": {}, "node_12": {},
                        "executor_5": {}, "executor_40": {},
                        "link_6": {}, "link_61": {}}})");
    EXPECT_EQ(reader.getNodeIDByIndex(1, 0), 12);
    EXPECT_EQ(reader.getNodeIDByIndex(1, 1), 3);
    EXPECT_EQ(reader.getExecIDByIndex(1, 0), 40);
    EXPECT_EQ(reader.getExecIDByIndex(1, 1), 5);
    EXPECT_EQ(reader.getLinkIDByIndex(1, 0), 6);
    EXPECT_EQ(reader.getLinkIDByIndex(1, 1), 61);
    EXPECT_EQ(reader.getNodeIDByIndex(1, 2), 0);
    EXPECT_EQ(reader.getExecIDByIndex(0, 0), 0);
    EXPECT_EQ(framework.takeTrace(), "\n");
}

TEST_F(PipeQueriesTest, PipeIsFoundByItsKeyNotByItsPosition) {
    Load(R"({"pipe_10": {"node_1": {}}, "pipe_2": {"node_2": {}}, "pipe_02": {"node_3": {}}})");
    EXPECT_EQ(reader.getNodeIDByIndex(2, 0), 2);
    EXPECT_EQ(reader.getNodeIDByIndex(10, 0), 1);
    EXPECT_EQ(reader.getNodeNum(0), 0);
}

TEST_F(PipeQueriesTest, MissingPipeIsTreatedAsAnEmptyPipe) {
    const char* const documents[] = {
        R"({"camera": {"node_0": {}}})", R"({"pipe_0": []})", R"({"pipe_0": null})", "[]"};
    for (const char* document : documents) {
        SCOPED_TRACE(document);
        Load(document);
        EXPECT_EQ(reader.getNodeNum(0), 0);
        EXPECT_EQ(reader.getExecNum(0), 0);
        EXPECT_EQ(reader.getLinkNum(0), 0);
        EXPECT_EQ(reader.getThreadNum(0), 0);
        EXPECT_EQ(framework.takeTrace(), "\n");
        EXPECT_EQ(reader.getDefaultLinkMode(0), "none");
        EXPECT_EQ(framework.takeTrace(), R"(
qv_log 6 getDefaultLinkMode "\033[34m\033[1mdefault link mode \033[0m"
)");
    }
}

TEST_F(PipeQueriesTest, IdQueriesOnAMissingPipeAreErrors) {
    Load("{}");
    EXPECT_EQ(reader.getNodeIDByIndex(0, 1), 0);
    EXPECT_EQ(reader.getExecIDByIndex(-1, 2), 0);
    EXPECT_EQ(reader.getLinkIDByIndex(7, 3), 0);
    EXPECT_EQ(framework.takeTrace(), R"(
qv_err 2 getItemIDByIndex "\033[31m\033[1mget item id by index failed, index=1\033[0m"
qv_err 2 getItemIDByIndex "\033[31m\033[1mget item id by index failed, index=2\033[0m"
qv_err 2 getItemIDByIndex "\033[31m\033[1mget item id by index failed, index=3\033[0m"
)");
}

TEST_F(PipeQueriesTest, ParserWithoutADocumentHasNoPipes) {
    EXPECT_EQ(reader.getNodeNum(0), 0);
    EXPECT_EQ(reader.getThreadNum(0), 0);
    EXPECT_EQ(reader.getDefaultLinkMode(0), "none");
    EXPECT_EQ(reader.getNodeIDByIndex(0, 0), 0);
    EXPECT_EQ(framework.takeTrace(), R"(
qv_log 6 getDefaultLinkMode "\033[34m\033[1mdefault link mode \033[0m"
qv_err 2 getItemIDByIndex "\033[31m\033[1mget item id by index failed, index=0\033[0m"
)");
}

TEST_F(PipeQueriesTest, KeysAreBuiltWithTheFrameworksDecimalText) {
    Load(R"({"pipe_3": {}})");
    reader.getNodeNum(3);
    reader.getThreadNum(-3);
    EXPECT_EQ(framework.helperCalls,
              (std::vector<std::string>{"util_to_string 3", "util_to_string -3"}));
}

// ---- Threads ----------------------------------------------------------------

TEST_F(PipeQueriesTest, ThreadCountKeyIsCaseInsensitive) {
    EXPECT_EQ(ThreadsOf(R"({"exec_thread_num": 3})"), 3);
    EXPECT_EQ(ThreadsOf(R"({"EXEC_THREAD_NUM": 4})"), 4);
    EXPECT_EQ(ThreadsOf(R"({"a": 9, "eXeC_tHrEaD_nUm": -2, "z": 8})"), -2);
    EXPECT_EQ(ThreadsOf(R"({"exec_thread_num": 0})"), 0);
}

TEST_F(PipeQueriesTest, ThreadCountIsZeroWithoutANumber) {
    for (const char* opts : {R"({"exec_thread_num": "4"})",
                             R"({"exec_thread_num": null})",
                             R"({"exec_thread_num": true})",
                             R"({"exec_thread_num": [4]})",
                             R"({"exec_thread_num ": 4})",
                             R"({"exec_thread_nu": 4})",
                             R"({"exec-thread-num": 4})",
                             "{}",
                             "null",
                             "4",
                             "[4]",
                             R"("exec_thread_num")"}) {
        EXPECT_EQ(ThreadsOf(opts), 0) << opts;
    }
}

TEST_F(PipeQueriesTest, TheFirstNumberInKeyOrderWins) {
    EXPECT_EQ(ThreadsOf(R"({"Exec_Thread_Num": "2", "exec_thread_num": 3})"), 3);
    EXPECT_EQ(ThreadsOf(R"({"exec_thread_num": 3, "Exec_Thread_Num": 2})"), 2);
    EXPECT_EQ(ThreadsOf(R"({"exec_thread_num": 3, "EXEC_THREAD_NUM": 0})"), 0);
}

TEST_F(PipeQueriesTest, ThreadNamesAreComparedByTheFramework) {
    ThreadsOf(R"({"a": 1, "exec_thread_num": 2, "z": 3})");
    EXPECT_EQ(framework.helperCalls,
              (std::vector<std::string>{"util_to_string 0",
                                        R"(util_strcasecmp "a" "exec_thread_num")",
                                        R"(util_strcasecmp "exec_thread_num" "exec_thread_num")"}));
}

// ---- Link mode --------------------------------------------------------------

TEST_F(PipeQueriesTest, LinkModeIsTheString) {
    AssertLinkMode(R"({"default_mode_link": "sync"})", "sync", "sync");
    AssertLinkMode(R"({"default_mode_link": " "})", " ", " ");
    AssertLinkMode(R"({"default_mode_link": "int32:5"})", "int32:5", "int32:5");
}

TEST_F(PipeQueriesTest, LinkModeIncludesNulAndItsRecordEndsThere) {
    AssertLinkMode(R"({"default_mode_link": "sy\u0000nc"})", std::string("sy\0nc", 5), "sy");
    AssertLinkMode(R"({"default_mode_link": "\u0000"})", std::string(1, '\0'), "");
}

TEST_F(PipeQueriesTest, LinkModeIsNoneWithoutAString) {
    for (const char* pipe : {R"({"default_mode_link": ""})",
                             R"({"default_mode_link": 5})",
                             R"({"default_mode_link": null})",
                             R"({"default_mode_link": ["sync"]})",
                             R"({"Default_Mode_Link": "sync"})",
                             "{}",
                             R"("sync")"}) {
        AssertLinkMode(pipe, "none", "");
    }
}
