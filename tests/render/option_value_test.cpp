// Option values as messages and reports show them.
#include "survey/option_value.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>

namespace {

using qvgraph::floatText;
using qvgraph::OptionValue;
using qvgraph::typeName;

using Float = std::numeric_limits<float>;

TEST(TypeNameTest, NamesEveryTypeOfAStore) {
    EXPECT_STREQ(typeName(OptionValue(std::string("7"))), "string");
    EXPECT_STREQ(typeName(OptionValue(int32_t{7})), "int32");
    EXPECT_STREQ(typeName(OptionValue(int64_t{7})), "int64");
    EXPECT_STREQ(typeName(OptionValue(7.0F)), "float");
}

TEST(FloatTextTest, HasAsFewDigitsAsReadBack) {
    EXPECT_EQ(floatText(0.1F), "0.1");
    EXPECT_EQ(floatText(48.137154F), "48.137154");
    EXPECT_EQ(floatText(-2.5F), "-2.5");
    EXPECT_EQ(floatText(1.0F / 3.0F), "0.33333334");
    EXPECT_EQ(floatText(16777216.0F), "16777216.0");
}

TEST(FloatTextTest, HasAPointOrAnExponent) {
    EXPECT_EQ(floatText(0.0F), "0.0");
    EXPECT_EQ(floatText(-0.0F), "-0.0");
    EXPECT_EQ(floatText(3.0F), "3.0");
    EXPECT_EQ(floatText(-60000.0F), "-60000.0");
    EXPECT_EQ(floatText(1e10F), "10000000000.0");
    EXPECT_EQ(floatText(999999919882240.0F), "999999919882240.0");
    EXPECT_EQ(floatText(1e15F), "1e+15");
    EXPECT_EQ(floatText(1e-7F), "1e-07");
}

TEST(FloatTextTest, ReachesTheEndsOfTheRange) {
    EXPECT_EQ(floatText(Float::max()), "3.4028235e+38");
    EXPECT_EQ(floatText(Float::lowest()), "-3.4028235e+38");
    EXPECT_EQ(floatText(Float::min()), "1.1754944e-38");
    EXPECT_EQ(floatText(Float::denorm_min()), "1e-45");
    EXPECT_EQ(floatText(Float::epsilon()), "1.1920929e-07");
}

TEST(FloatTextTest, ReadsBackAsTheSameFloat) {
    for (const float value : {0.1F, 1.0F / 3.0F, 1e10F, Float::max(), Float::denorm_min()}) {
        EXPECT_EQ(strtof(floatText(value).c_str(), nullptr), value);
    }
}

TEST(FloatTextTest, NamesInfinitiesAndNotANumber) {
    EXPECT_EQ(floatText(Float::infinity()), "inf");
    EXPECT_EQ(floatText(-Float::infinity()), "-inf");
    EXPECT_EQ(floatText(Float::quiet_NaN()), "nan");
    EXPECT_EQ(floatText(-Float::quiet_NaN()), "nan");
}

}  // namespace
