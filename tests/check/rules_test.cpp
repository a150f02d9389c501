// The example of each rule provokes that rule and no other, and has no findings
// once it is fixed.
#include <algorithm>
#include <regex>
#include <set>
#include <string>

#include "check/rules.h"
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

TEST_P(RulesTest, ExampleProvokesOnlyTheRule) {
    const std::string wrong(rule().example.wrong);
    EXPECT_EQ(CodesIn(wrong), rule().code) << FindingsIn(wrong);
}

TEST_P(RulesTest, FixedExampleHasNoFindings) {
    EXPECT_EQ(FindingsIn(std::string(rule().example.fixed)), "");
}

TEST_P(RulesTest, IsExplainedInSentences) {
    EXPECT_TRUE(std::regex_match(rule().code, std::regex("[a-z0-9]+(-[a-z0-9]+)*")));
    for (const char* text : {rule().explanation, rule().device, rule().fix}) {
        EXPECT_TRUE(std::regex_match(text, std::regex("[A-Z'\"][^\\n]*[.]"))) << text;
    }
    EXPECT_TRUE(std::regex_match(rule().title, std::regex("[^\\n]{10,70}[^.\\n]"))) << rule().title;
}

INSTANTIATE_TEST_SUITE_P(Rules,
                         RulesTest,
                         testing::ValuesIn(qvgraph::ruleCodes()),
                         [](const testing::TestParamInfo<std::string>& tested) {
                             std::string name = tested.param;
                             std::replace(name.begin(), name.end(), '-', '_');
                             return name;
                         });

TEST(RegistryTest, CodesAreUnique) {
    const std::vector<std::string> codes = qvgraph::ruleCodes();
    EXPECT_EQ(std::set<std::string>(codes.begin(), codes.end()).size(), codes.size());
}

}  // namespace
