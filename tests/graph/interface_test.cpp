// The parser's interface: its signatures, the functions that a const parser
// offers, and the formats of all its records.
#include <memory>
#include <set>
#include <string>
#include <type_traits>

#include "tests/graph/parser_test.h"

using json11::Json;

namespace {

template <typename Promised, typename Actual>
constexpr bool hasType(Actual /*function*/) {
    return std::is_same<Promised, Actual>::value;
}

using P = QVGraphParser;

static_assert(hasType<int (P::*)(const char*)>(&P::parseConfigText));
static_assert(hasType<int (P::*)(const char*)>(&P::parseConfigFile));
static_assert(hasType<int (P::*)(const char*) const>(&P::saveConfig));
static_assert(hasType<int (P::*)() const>(&P::summary));
static_assert(hasType<const Json& (P::*)() const>(&P::root));
static_assert(hasType<int (P::*)(Json, std::string) const>(&P::getItemNum));
static_assert(hasType<int (P::*)(Json, int, std::string) const>(&P::getItemIDByIndex));
static_assert(hasType<std::string (P::*)(Json, int, std::string) const>(&P::getItemNameByIndex));
static_assert(hasType<int (P::*)() const>(&P::getPipeNum));
static_assert(hasType<int (P::*)(int) const>(&P::getNodeNum));
static_assert(hasType<int (P::*)(int) const>(&P::getExecNum));
static_assert(hasType<int (P::*)(int) const>(&P::getLinkNum));
static_assert(hasType<int (P::*)(int, int) const>(&P::getNodeIDByIndex));
static_assert(hasType<int (P::*)(int, int) const>(&P::getExecIDByIndex));
static_assert(hasType<int (P::*)(int, int) const>(&P::getLinkIDByIndex));
static_assert(hasType<int (P::*)(int) const>(&P::getThreadNum));
static_assert(hasType<std::string (P::*)(int) const>(&P::getDefaultLinkMode));
static_assert(hasType<int (P::*)(QvMetaData*, const char*, Json) const>(&P::parseOptions));
static_assert(hasType<int (P::*)(QvMetaData*, Json) const>(&P::syncOptions));
static_assert(hasType<int (P::*)(QvMetaData*, int, int) const>(&P::syncExecOptions));
static_assert(hasType<int (P::*)(QvMetaData*, int, int) const>(&P::syncLinkOptions));
static_assert(
    hasType<int (P::*)(QVTaskGraphConfig*, int, int, _QVNodeInfo*) const>(&P::initTaskNode));

// The document is the only data member of the parser.
struct JsonAlone {
    Json document;
};
static_assert(sizeof(P) == sizeof(JsonAlone));
static_assert(!std::is_polymorphic<P>::value);
static_assert(std::is_default_constructible<P>::value);
static_assert(std::is_copy_constructible<P>::value);
static_assert(std::is_copy_assignable<P>::value);
static_assert(std::is_nothrow_move_constructible<P>::value);

class InterfaceTest : public ParserTest {};

}  // namespace

TEST_F(InterfaceTest, ParserReleasesItsDocument) {
    auto owner = std::make_unique<QVGraphParser>();
    ASSERT_EQ(owner->parseConfigText(R"({"pipe_0": {}})"), 0);
    const Json pipe = owner->root()["pipe_0"];
    owner.reset();
    EXPECT_TRUE(pipe.is_object());
    EXPECT_EQ(framework.takeTrace(), "\n");
}

TEST_F(InterfaceTest, RecordsHaveTheSpecifiedFormats) {
    Load(R"({"pipe_0": {"node_0": {"node_opts": {"node_name": "Camera", "a": "int32:1",
             "b": "int64:1", "c": "float:1", "d": "double:1"},
             "stream_opts": {"stream_input": "raw", "stream_fmt_in": "nv12"}}}})");
    reader.getDefaultLinkMode(0);
    reader.getItemIDByIndex(Json(), 0, "");
    reader.getItemNameByIndex(Json(), 0, "");
    reader.parseOptions(&framework.store, "key", std::string(128, 'x'));
    reader.initTaskNode(nullptr, 0, 0, nullptr);
    _QVNodeInfo none;
    reader.initTaskNode(&framework.graph, 0, 0, &none);
    framework.inputManagers = 1;
    framework.graph.ids["raw"] = -1;
    _QVNodeInfo refused;
    reader.initTaskNode(&framework.graph, 0, 0, &refused);
    framework.createsNode = false;
    _QVNodeInfo missing;
    reader.initTaskNode(&framework.graph, 0, 0, &missing);
    parser.parseConfigFile(nullptr);
    parser.parseConfigText(nullptr);

    std::set<std::string> formats;
    for (const LogRecord& record : framework.records) {
        formats.insert(record.format);
    }
    const std::string red = "\033[31m\033[1m";
    const std::string blue = "\033[34m\033[1m";
    const std::string plain = "\033[0m";
    EXPECT_EQ(formats,
              (std::set<std::string>{
                  red + "failed to json11::Json::parse(...), err=%s" + plain,
                  red + "failed to fopen(%s)" + plain,
                  red + "get item id by index failed, index=%d" + plain,
                  red + "value %s is too long!" + plain,
                  red + "invailed input params config %p, info %p" + plain,
                  red + "%s(%d): %s failed. actual %d vs exp %d\n" + plain,
                  "failed to node_proxy_node_create(...) for node:%s",
                  "failed to initialize task node(%s) with none input/output stream manager",
                  blue + "item name=%s , \t tag=%s" + plain,
                  blue + "default link mode %s" + plain,
                  blue + "key=%s value=%d" + plain,
                  blue + "key=%s value=%lld" + plain,
                  blue + "key=%s value=%f" + plain,
                  blue + "sync to node options, node info:" + plain,
                  blue + "option: key = %-16s, opt = %-16s" + plain,
                  blue + "node proxy: create task node(name=%s)" + plain,
              }));
}
