#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "platform/foundation/json_reader.h"
#include "platform/foundation/json_writer.h"

namespace orvel::json {
namespace {

using namespace std::string_literals;

bool isValid(const std::string& text) {
    return !read(text, [](Value&) { return true; });
}

// As the value of a member that nobody asks for, which must be judged like any other.
std::string ignored(const std::string& value) {
    return "[{\"a\":[0,{\"b\":" + value + "}]}]";
}

TEST(JsonReader, JudgesTheWholeText) {
    const struct {
        std::string text;
        bool valid;
    } cases[] = {
        {"[]", true},
        {" [1] \r\n\t", true},
        {"[1]x", false},
        {"[1][2]", false},
        {"[1]]", false},
        {"[1],", false},
        {"[1]\0"s, false},
        {"\0[1]"s, false},
        {"[1,]", false},
        {"[1,,2]", false},
        {"[1 2]", false},
        {"[1}", false},
        {"[[]", false},
        {"", false},
        {" ", false},
        {"{\"a\":1,}", false},
        {"{\"a\" 1}", false},
        {"{a:1}", false},
        {"{\"a\":}", false},
        {"{\"a\":1 \"b\":2}", false},
        {"[1]//c", false},
        {"\xEF\xBB\xBF[1]", true},  // a byte-order mark
        {"\xEF\xBB\xBF\xEF\xBB\xBF[1]", false},
        {"[\xC2\xA0]", false},  // no-break space is no white space here
        {"17", true},
        {"\"text\"", true},
        {"nul", false},
    };
    for (const auto& c : cases) EXPECT_EQ(isValid(c.text), c.valid) << c.text;
}

TEST(JsonReader, JudgesScalarsEvenWhereTheyAreIgnored) {
    const struct {
        std::string value;
        bool valid;
    } cases[] = {
        {"true", true},
        {"truee", false},
        {"tru", false},
        {"nulx", false},
        {"null", true},
        {"'a'", false},
        {"0", true},
        {"-0", true},
        {"01", false},
        {"-", false},
        {"1.", false},
        {".5", false},
        {"+1", false},
        {"1e", false},
        {"1.5e+3", true},
        {"0x1", false},
        {"NaN", false},
        {"1x", false},
        {"123456789012345678901234567890", true},
        {std::string(300, '7'), true},
        {"0." + std::string(5000, '3'), true},
        {"1e400", false},
        {"-1e400", false},
        {std::string(5000, '1'), false},
        {"1e-400", true},
        {R"("\u0000")", true},
        {R"("\/")", true},
        {R"("\x")", false},
        {R"("\u12")", false},
        {"\"a\nb\"", false},
        {"\"a\0b\""s, false},
        {R"("\ud83d\ude00")", true},
        {R"("\ud800")", false},
        {R"("\udc00")", false},
        {R"("\udc00\ud800")", false},
        {R"("\ud800\u0041")", false},
        {R"({"\ud800":1})", false},
        {"\"\xFF\"", false},
        {"\"\xC0\xAF\"", false},      // overlong
        {"\"\xED\xA0\x80\"", false},  // a surrogate in UTF-8
        {"\"\xF4\x90\x80\x80\"", false},
        {"\"\xE2\x82\"", false},
        {"\"open", false},
    };
    for (const auto& c : cases) EXPECT_EQ(isValid(ignored(c.value)), c.valid) << c.value.substr(0, 40);
}

TEST(JsonReader, BoundsNesting) {
    const auto nested = [](std::size_t depth) { return std::string(depth, '[') + std::string(depth, ']'); };
    EXPECT_TRUE(isValid(nested(512)));
    EXPECT_FALSE(isValid(nested(513)));
    EXPECT_FALSE(isValid(nested(100000)));
    EXPECT_FALSE(isValid(std::string(100000, '[')));
}

TEST(JsonReader, GivesValuesInOrderAndPassesOverWhatIsNotTaken) {
    std::string seen;
    const auto failure =
        read(R"([{"a":"x\u0000\/","b":[1,{"c":2}],"a":30000000000000000000000},null,true,-0.5])", [&](Value& list) {
            return list.elements([&](Value& element) {
                if (element.kind() == Kind::number) seen += std::to_string(*element.number());
                if (element.kind() == Kind::boolean) seen += *element.boolean() ? "T" : "F";
                if (element.kind() != Kind::object) return true;
                return element.members([&](std::string_view name, Value& member) {
                    seen += std::string(name) + ":";
                    if (const auto text = member.string()) seen += *text;
                    if (const auto number = member.number()) seen += *number == 3e22 ? "3e22" : "?";
                    seen += ";";
                    return true;
                });
            });
        });
    EXPECT_FALSE(failure);
    EXPECT_EQ(seen, "a:x\0/;b:;a:3e22;T-0.500000"s);
}

TEST(JsonReader, SaysWhereSyntaxEnds) {
    const std::string text = "\xEF\xBB\xBF[1, 2, tru, 4]";
    const auto failure = read(text, [](Value&) { return true; });
    ASSERT_TRUE(failure);
    EXPECT_GE(failure->offset, text.find("tru"));
    EXPECT_LE(failure->offset, text.find(" 4"));
}

TEST(JsonWriter, EscapesAndRefuses) {
    Writer writer;
    writer.beginObject().key("k\"").string("a/\\\n\x01\x1F\0é"s).key("n").beginArray();
    writer.number(1).number(-0.1).number(1e22).integer(-7).boolean(true).null().endArray().endObject();
    EXPECT_EQ(writer.finish(), R"({"k\"":"a\/\\\n\u0001\u001f\u0000é","n":[1,-0.1,1e+22,-7,true,null]})");

    EXPECT_EQ(writer.number(INFINITY).finish(), std::nullopt);
    EXPECT_EQ(writer.number(NAN).finish(), std::nullopt);
    EXPECT_EQ(writer.string("\xFF").finish(), std::nullopt);
    EXPECT_EQ(writer.number(2).finish(), "2") << "a failure doesn't stay";
}

TEST(JsonWriter, NumbersReadBackExactly) {
    std::mt19937_64 random(7);
    for (int i = 0; i < 20000; ++i) {
        const auto number = std::bit_cast<double>(random());
        if (!std::isfinite(number)) continue;
        Writer writer;
        double back = 0;
        const auto failure = read(*writer.number(number).finish(), [&](Value& value) {
            back = *value.number();
            return true;
        });
        ASSERT_FALSE(failure);
        ASSERT_EQ(std::bit_cast<std::uint64_t>(back), std::bit_cast<std::uint64_t>(number));
    }
}

}  // namespace
}  // namespace orvel::json
