// Compares the parser with a second implementation of its contract
// (tests/support/literal_parser.h): on random configurations, both make the
// same calls in the same order, log the same records, and return and throw the
// same values.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <string>
#include <vector>

#include "graph/qv_graph_parser.h"
#include "tests/differential/configurations.h"
#include "tests/differential/play.h"
#include "tests/support/literal_parser.h"
#include "tests/support/temporary_folder.h"

namespace {

// The default number of scenarios of each kind in a run.
const uint64_t SCENARIOS = 1200;

// More for a long run, fewer if each one takes long.
uint64_t scenarios() {
    const char* const wanted = getenv("QVGRAPH_TEST_SCENARIOS");
    return wanted != nullptr ? strtoull(wanted, nullptr, 10) : SCENARIOS;
}

class DifferentialTest : public testing::Test {
protected:
    Scenario ScenarioOf(Kind kind, uint64_t number) {
        Random random(number * 3 + static_cast<uint64_t>(kind));
        Scenario scenario;
        scenario.text = randomConfiguration(&random, kind);
        scenario.seed = random.below(1U << 30);
        scenario.faults = random.oneIn(3);
        if (random.oneIn(8)) {
            scenario.file = folder.write("graph.json", scenario.text);
        }
        return scenario;
    }

    void AssertTheSame(Kind kind) {
        for (uint64_t number = 0; number < scenarios() && !HasFailure(); ++number) {
            const Scenario scenario = ScenarioOf(kind, number);
            const Transcript actual = play<QVGraphParser>(scenario);
            const Transcript expected = play<LiteralParser>(scenario);
            if (actual != expected) {
                Report(scenario, actual, expected);
            }
        }
    }

private:
    // The first difference, with the lines of the call that contains it.
    static void Report(const Scenario& scenario, Transcript actual, Transcript expected) {
        actual.emplace_back("(the end)");
        expected.emplace_back("(the end)");
        const auto place =
            std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
        std::string before;
        for (auto line = place.first; line != actual.begin() && (*line)[0] != '>';) {
            --line;
            before.insert(0, *line + '\n');
        }
        ADD_FAILURE() << scenario.text << "\n\n"
                      << before << "the parser:   " << *place.first
                      << "\nthe contract: " << *place.second;
    }

    const TemporaryFolder folder;
};

// A part of the line that identifies one kind of call or result.
const char* const OUTCOMES[] = {
    "err=null input",
    "err=unexpected end of input",
    "err=expected value, got",
    "\"\\033[31m\\033[1mfailed to json11::Json::parse(...), err=\\033[0m\"",
    "failed to fopen(",
    "item name=",
    "getItemIDByIndex \"\\033[31m\\033[1mget item id by index failed",
    "getItemNameByIndex \"\\033[31m\\033[1mget item id by index failed",
    "default link mode ",
    "is too long!",
    " value=%d",
    " value=%lld",
    " value=%f",
    " value=inf",
    " value=nan",
    "sync to node options",
    "option: key = ",
    "invailed input params config (nil), info (nil)",
    "invailed input params config (nil), info 0x",
    "invailed input params config 0x",
    "node proxy: create task node",
    "failed to node_proxy_node_create",
    "with none input/output stream manager",
    "Assertion options->findCString(OPT_STREAM_INPUT_NAME, &inputStreamName) failed",
    "Assertion options->findCString(inputNameTag.c_str(), &inputStreamName) failed",
    "Assertion options->findCString(OPT_STREAM_OUTPUT_NAME, &outputStreamName) failed",
    "Assertion options->findCString(outputNameTag.c_str(), &outputStreamName) failed",
    "initTaskNode(<line>): CHECK_UE failed. actual -1 vs exp -1",
    "store.setCString",
    "store.setInt32",
    "store.setInt64",
    "store.setFloat",
    "store.findCString",
    "graph.addInputStream \"small frames\" -> -1",
    "graph.addInputStream \"small frames\" -> -2",
    "graph.addOutputStream \"small frames\" -> -1",
    "input2.initialize",
    "input2.setStreamType",
    "output2.initialize",
    "node.initialize",
    "node.initialize 0 {0 \"A\\x00B\"}",
    "newest=1",
    "newest=7",
    "= aborts",
    "= throws a fault",
    "= throws std::logic_error: basic_string::_M_construct null not valid",
    "= -10",
    "= -68",
    "= -5",
    "= -2",
    "= -1",
    "= 2147483647",
    "= -2147483648",
    "= \"none\"",
};

}  // namespace

TEST_F(DifferentialTest, ParserFollowsItsContractOnValidConfigurations) {
    AssertTheSame(Kind::Valid);
}

TEST_F(DifferentialTest, ParserFollowsItsContractOnOddConfigurations) {
    AssertTheSame(Kind::Odd);
}

TEST_F(DifferentialTest, ParserFollowsItsContractOnMutatedConfigurations) {
    AssertTheSame(Kind::Mutated);
}

TEST_F(DifferentialTest, ParserFollowsItsContractOnOptionStrings) {
    RecordingFramework framework;
    const QVGraphParser parser{};
    const LiteralParser literal{};
    Random random(1);
    for (int number = 0; number < 20000 && !HasFailure(); ++number) {
        const std::string text = randomOptionText(&random);
        const int actual = parser.parseOptions(&framework.store, "key", text);
        const std::string calls = framework.takeTrace();
        const int expected = literal.parseOptions(&framework.store, "key", text);
        EXPECT_EQ(actual, expected) << inQuotes(text);
        EXPECT_EQ(calls, framework.takeTrace()) << inQuotes(text);
        framework.records.clear();
        framework.helperCalls.clear();
    }
}

// The comparison is only as good as the outcomes that its scenarios reach. This
// test does not depend on the number of scenarios that the run compares.
TEST_F(DifferentialTest, ScenariosCoverEveryOutcome) {
    std::vector<std::string> unreached(std::begin(OUTCOMES), std::end(OUTCOMES));
    const auto reach = [&unreached](const std::string& line) {
        std::erase_if(unreached, [&line](const std::string& outcome) {
            return line.find(outcome) != std::string::npos;
        });
    };
    for (uint64_t number = 0; number < SCENARIOS && !unreached.empty(); ++number) {
        for (const Kind kind : {Kind::Odd, Kind::Mutated}) {
            const auto lines = play<LiteralParser>(ScenarioOf(kind, number));
            std::for_each(lines.begin(), lines.end(), reach);
        }
    }
    EXPECT_EQ(unreached, std::vector<std::string>{});
}
