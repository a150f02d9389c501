// Every rule's own example: it provokes the rule and nothing else, and put
// right it provokes nothing but notes.
#include <algorithm>
#include <regex>
#include <set>
#include <string>

#include "check/rule.h"
#include "tests/check/check_test.h"

namespace {

using qvgraph::Rule;

class RulesTest : public CheckTest, public testing::WithParamInterface<std::string> {
protected:
    void SetUp() override {
        QVNodeRegistry::instance().setStub(rule().example.stub);
        for (const qvgraph::ExampleClass& nodeClass : rule().example.classes) {
            Register(nodeClass);
        }
    }

    static const Rule& rule() { return *qvgraph::findRule(GetParam()); }
};

TEST_P(RulesTest, TheExampleProvokesTheRuleAlone) {
    const std::string wrong(rule().example.wrong);
    EXPECT_EQ(CodesIn(wrong), rule().code) << FindingsIn(wrong);
}

TEST_P(RulesTest, PutRightTheExampleIsClean) {
    EXPECT_EQ(FindingsIn(std::string(rule().example.right)), "");
}

TEST_P(RulesTest, IsExplained) {
    EXPECT_TRUE(std::regex_match(rule().code, std::regex("[a-z0-9]+(-[a-z0-9]+)*")));
    for (const char* text : {rule().meaning, rule().device, rule().remedy}) {
        EXPECT_TRUE(std::regex_match(text, std::regex("[A-Z'\"][^\\n]*[.]"))) << text;
    }
    EXPECT_TRUE(std::regex_match(rule().title, std::regex("[^\\n]{10,70}[^.\\n]"))) << rule().title;
}

TEST_P(RulesTest, SilencesCodesThatExist) {
    for (const char* code : rule().silences) {
        EXPECT_NE(qvgraph::findRule(code), nullptr) << code;
    }
}

std::vector<std::string> everyCode() {
    std::vector<std::string> codes;
    for (const Rule& rule : qvgraph::rules()) {
        codes.emplace_back(rule.code);
    }
    return codes;
}

INSTANTIATE_TEST_SUITE_P(Rules,
                         RulesTest,
                         testing::ValuesIn(everyCode()),
                         [](const testing::TestParamInfo<std::string>& tested) {
                             std::string name = tested.param;
                             std::replace(name.begin(), name.end(), '-', '_');
                             return name;
                         });

TEST(RegistryTest, NoCodeStandsForTwoRules) {
    const std::vector<std::string> codes = everyCode();
    EXPECT_EQ(std::set<std::string>(codes.begin(), codes.end()).size(), codes.size());
}

}  // namespace
