#include <gtest/gtest.h>

#include <bit>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <span>
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

TEST(JsonReader, ChecksTheWholeText) {
    const std::string byteOrderMark = "\xEF\xBB\xBF";
    for (const std::string& text : {std::string(" [1] \r\n\t"), byteOrderMark + "[1]", std::string("17")})
        EXPECT_TRUE(isValid(text)) << text;
    const std::string invalid[] = {"[1]x",       "[1][2]",
                                   "[1]]",       "[1],",
                                   "[1]\0"s,     "\0[1]"s,
                                   "[1,]",       "[1,,2]",
                                   "[1 2]",      "[1}",
                                   "[[]",        "",
                                   " ",          "{\"a\":1,}",
                                   "{\"a\" 1}",  "{a:1}",
                                   "{\"a\":}",   "{\"a\":1 \"b\":2}",
                                   "[1]//c",     "nul",
                                   "[\xC2\xA0]", byteOrderMark + byteOrderMark + "[1]"};
    for (const std::string& text : invalid) EXPECT_FALSE(isValid(text)) << text;
}

TEST(JsonReader, ChecksScalarsThatNobodyReads) {
    // As the value of a member that nobody asks for.
    const auto isValidIgnored = [](const std::string& value) { return isValid("[{\"a\":[0,{\"b\":" + value + "}]}]"); };
    for (const std::string& value :
         {"true"s, "null"s, "0"s, "-0"s, "1.5e+3"s, "123456789012345678901234567890"s, std::string(300, '7'),
          "0." + std::string(5000, '3'), "1e-400"s, "1e400"s, "-1E+400"s, "1e400 "s, std::string(5000, '1'),
          R"("\u0000")"s, R"("\/")"s, R"("\ud83d\ude00")"s})
        EXPECT_TRUE(isValidIgnored(value)) << value;
    const std::string words[] = {"truee", "tru", "nulx", "'a'"};
    const std::string numbers[] = {"01", "-",      "1.",      ".5",     "+1",    "1e",     "0x1",   "NaN",
                                   "1x", "1e400x", "1e400 1", "01e400", "-e400", "1.e400", "1e4e00"};
    const std::string strings[] = {
        R"("\x")",     R"("\u12")",   "\"a\nb\"",          "\"a\0b\""s,         "\"open",
        R"("\ud800")", R"("\udc00")", R"("\udc00\ud800")", R"("\ud800\u0041")", R"({"\ud800":1})"};
    // A stray byte, an overlong form, a surrogate, above the last character, and cut off.
    const std::string utf8[] = {"\"\xFF\"", "\"\xC0\xAF\"", "\"\xED\xA0\x80\"", "\"\xF4\x90\x80\x80\"", "\"\xE2\x82\""};
    for (const auto values : std::initializer_list<std::span<const std::string>>{words, numbers, strings, utf8})
        for (const std::string& value : values) EXPECT_FALSE(isValidIgnored(value)) << value.substr(0, 40);
}

TEST(JsonReader, SaysWhereATextIsWrong) {
    const struct {
        std::string text;
        const char* place;
        const char* why;
    } cases[] = {
        {"[1,\n \"é\", tru]", "2:7", "only true, false and null"},
        {"\xEF\xBB\xBF[tru]", "1:2", "only true, false and null"},
        {"[\n  {\"a\": \"b, \"c\": \"d\"}]", "2:9", "the string that begins here isn't closed"},
        {"[{\"a\": \"b},\n {\"c\": \"d\"}]", "1:8", "the string that begins here isn't closed"},
        {"[{\"a\":\"b,\"c\":\"d\"}]\n", "1:7", "the string that begins here isn't closed"},
        {"[\"open", "1:2", "the string that begins here isn't closed"},
        {"[\"a\", \"\\\"b\tc\"]", "1:11", "control character"},
        {"[\"a\",\n\"b\xFF\"]", "2:3", "isn't UTF-8"},
        {"[[1]", "1:5", "bracket"},
        {"{\"a\":1}}", "1:8", "follows the end"},
        {"[1 2]", "1:4", "a comma"},
        {"", "1:1", "nothing"},
    };
    for (const auto& c : cases) {
        const auto failure = read(c.text, [](Value&) { return true; });
        ASSERT_TRUE(failure) << c.text;
        EXPECT_EQ(failure->position.text(), c.place) << c.text;
        EXPECT_NE(failure->reason.find(c.why), std::string::npos) << c.text << ": " << failure->reason;
    }
}

TEST(JsonReader, BoundsNesting) {
    const auto nested = [](std::size_t depth) { return std::string(depth, '[') + std::string(depth, ']'); };
    EXPECT_TRUE(isValid(nested(512)));
    EXPECT_FALSE(isValid(nested(513)));
    EXPECT_FALSE(isValid(std::string(100000, '[')));
    std::string objects = "1";
    for (int i = 0; i < 513; ++i) objects = "{\"a\":" + objects + "}";
    EXPECT_FALSE(isValid(objects));
}

TEST(JsonReader, GivesValuesInOrderAndSkipsWhatIsNotRead) {
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
    EXPECT_TRUE(read("[1e400]", [](Value& list) {
        return list.elements([](Value& number) { return number.number().has_value(); });
    })) << "no double can hold it";
    EXPECT_FALSE(read("1", [](Value& one) {  // asked for what it isn't, a value answers with nothing
        const bool isMore = one.elements([](Value&) { return true; }) || one.members([](auto, Value&) { return true; });
        return !isMore && !one.boolean() && !one.string();
    }));
    EXPECT_EQ(seen, "a:x\0/;b:;a:3e22;T-0.500000"s);
}

TEST(JsonWriter, EscapesAndRefuses) {
    Writer writer;
    writer.beginObject().key("k\"").string("a/\\\b\f\n\r\t\x01\x1F\0é"s).key("n").beginArray();
    writer.number(1).number(-0.1).number(1e22).integer(-7).boolean(true).boolean(false).null().endArray().endObject();
    EXPECT_EQ(writer.finish(), R"({"k\"":"a\/\\\b\f\n\r\t\u0001\u001f\u0000é","n":[1,-0.1,1e+22,-7,true,false,null]})");

    for (const double number :
         {5e-324, 2.2250738585072014e-308, 0.1 + 0.2, 1 / 3.0, 1e23, 9007199254740993.0, DBL_MAX, -0.0})
        EXPECT_FALSE(read(*writer.number(number).finish(), [&](Value& back) {
            EXPECT_EQ(std::bit_cast<std::uint64_t>(*back.number()), std::bit_cast<std::uint64_t>(number)) << number;
            return true;
        }));

    EXPECT_EQ(writer.number(INFINITY).finish(), std::nullopt);
    EXPECT_EQ(writer.number(2).finish(), "2") << "a failure doesn't stay";
}

}  // namespace
}  // namespace orvel::json
