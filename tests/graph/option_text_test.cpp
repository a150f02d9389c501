// The record of an option contains the value exactly as json11 dumps it.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <json11.hpp>
#include <limits>
#include <random>
#include <string>

#include "tests/support/same_as_dump.h"

using json11::Json;

namespace {

TEST(OptionTextTest, EveryPairOfBytesIsWrittenAsDumpDoes) {
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            const std::string text = {static_cast<char>(first), static_cast<char>(second)};
            ASSERT_EQ(differenceFromDump(text), "");
        }
    }
}

TEST(OptionTextTest, EscapedBytesAreFoundAtAnyPosition) {
    for (const std::string escaped : {"\"", "\\", "\n", "\x1f", "\x7f", "\xe2\x80\xa8"}) {
        for (size_t place = 0; place < 40; ++place) {
            std::string text(40, 'x');
            ASSERT_EQ(differenceFromDump(text.insert(place, escaped)), "");
        }
    }
}

TEST(OptionTextTest, NumbersAreWrittenAsDumpDoes) {
    using Limits = std::numeric_limits<double>;
    for (const double number : {0.0,
                                -0.0,
                                1.0,
                                -1.0,
                                0.5,
                                -0.5,
                                1e9,
                                1e-9,
                                2147483647.0,
                                2147483647.5,
                                2147483648.0,
                                -2147483648.0,
                                -2147483649.0,
                                1e17,
                                1e300,
                                Limits::denorm_min(),
                                Limits::infinity(),
                                -Limits::infinity(),
                                Limits::quiet_NaN()}) {
        ASSERT_EQ(differenceFromDump(number), "");
    }
    for (const int number : {0, 7, -7, 1280, INT32_MAX, INT32_MIN}) {
        ASSERT_EQ(differenceFromDump(number), "");
        ASSERT_EQ(differenceFromDump(static_cast<double>(number)), "");
    }
}

TEST(OptionTextTest, AnyDoubleIsWrittenAsDumpDoes) {
    std::mt19937_64 random(20261121);
    for (int i = 0; i < 20000; ++i) {
        const uint64_t bits = random();
        double number = 0;
        memcpy(&number, &bits, sizeof(number));
        ASSERT_EQ(differenceFromDump(number), "");
        ASSERT_EQ(differenceFromDump(static_cast<double>(static_cast<int32_t>(bits))), "");
    }
}

TEST(OptionTextTest, OtherTypesAreWrittenAsDumpDoes) {
    for (const Json& value : {Json(),
                              Json(true),
                              Json(Json::array{}),
                              Json(Json::array{1, "two", 3.5}),
                              Json(Json::object{{"k\n", nullptr}})}) {
        ASSERT_EQ(differenceFromDump(value), "");
    }
}

}  // namespace
