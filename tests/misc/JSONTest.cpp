#include "misc/JSON.h"

#include "support/DiagnosticCapture.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

namespace {

using Text = LightweightString<char>;
using WideText = LightweightString<wchar_t>;

TEST(JSONElementTest, ReadsEachKindOfValue) {
    JSON::Element root = JSON::parse(
        R"({"s": "text", "i": -42, "d": 2.5, "t": true, "f": false, "n": null, "a": [1, 2], "o": {}})");
    ASSERT_TRUE(root.isValid());
    EXPECT_TRUE(root.isObject());
    EXPECT_EQ(root.size(), 8u);
    EXPECT_EQ(root["s"].asString(), WideText(L"text"));
    EXPECT_EQ(root["i"].asInt(), -42);
    EXPECT_EQ(root["i"].asInt64(), -42);
    EXPECT_EQ(root["i"].asDouble(), -42.0);
    EXPECT_EQ(root["d"].asDouble(), 2.5);
    EXPECT_TRUE(root["t"].asBool());
    EXPECT_FALSE(root["f"].asBool(true));
    EXPECT_TRUE(root["n"].isNull());
    EXPECT_TRUE(root["n"].isValid());
    EXPECT_TRUE(root["a"].isArray());
    EXPECT_TRUE(root["o"].isObject());
    EXPECT_EQ(root["o"].size(), 0u);
    EXPECT_TRUE(root["s"].isString() && root["i"].isNumber() && root["d"].isNumber() &&
                root["t"].isBool());
}

TEST(JSONElementTest, AccessOfTheWrongKindGivesAnInvalidElementOrTheDefault) {
    JSON::Element root = JSON::parse(R"({"s": "text", "i": 3, "a": ["x", 5]})");
    JSON::Element missing = root["missing"];
    EXPECT_FALSE(missing.isValid());
    EXPECT_FALSE(missing.isNull()) << "absent is not the same as null";
    EXPECT_FALSE(missing["deeper"][3].isValid());
    EXPECT_EQ(missing.size(), 0u);
    EXPECT_EQ(missing.asInt(11), 11);

    EXPECT_EQ(root["s"].asInt(11), 11);
    EXPECT_EQ(root["s"].asDouble(1.5), 1.5);
    EXPECT_EQ(root["s"].asBool(true), true);
    EXPECT_EQ(root["i"].asString(L"d"), WideText(L"d"));
    EXPECT_EQ(root["s"].size(), 0u);
    EXPECT_FALSE(root["s"][0].isValid()) << "a string is not an array";
    EXPECT_FALSE(root["a"]["x"].isValid()) << "an array has no members";
    EXPECT_FALSE(root[0].isValid()) << "an object has no indices";
    EXPECT_FALSE(root["a"][2].isValid());
    EXPECT_FALSE(root["a"][-1].isValid());
    EXPECT_FALSE(root.member(nullptr).isValid());
    EXPECT_EQ(root["a"].getString(0), WideText(L"x"));
    EXPECT_EQ(root["a"].getString(1), WideText()) << "5 is not a string";
    EXPECT_EQ(root["a"].getString(9), WideText());
    EXPECT_TRUE(root.keys().size() == 3 && root["a"].keys().empty());
}

TEST(JSONElementTest, ArraysAndObjectsAreWalkedByIndexAndKey) {
    JSON::Element root = JSON::parse(R"({"b": [[1, 2], [3, 4]], "a": {"x": 1}, "c": "s"})");
    EXPECT_EQ(root["b"].size(), 2u);
    EXPECT_EQ(root["b"][1][0].asInt(), 3);
    EXPECT_EQ(root["b"].child(0u).child(1u).asInt(), 2);
    EXPECT_EQ(root["b"][std::size_t(1)][1].asInt(), 4);
    EXPECT_TRUE(root.hasMember("a"));
    EXPECT_FALSE(root.hasMember("x"));
    EXPECT_EQ(root.member("a").member("x").asInt(), 1);
    EXPECT_EQ(root.keys(), (std::vector<Text>{"a", "b", "c"}));
}

TEST(JSONElementTest, IntegerReadsTakeOnlyWholeNumbersInRange) {
    JSON::Element values =
        JSON::parse("[3.0, 2.5, 3000000000, 1e19, -2147483648, 18446744073709551615, -1e300]");
    EXPECT_EQ(values[0].asInt(-1), 3);
    EXPECT_EQ(values[1].asInt(-1), -1);
    EXPECT_EQ(values[1].asInt64(-1), -1);
    EXPECT_EQ(values[2].asInt(-1), -1);
    EXPECT_EQ(values[2].asInt64(-1), 3000000000LL);
    EXPECT_EQ(values[3].asInt64(-1), -1);
    EXPECT_EQ(values[4].asInt(-1), INT_MIN);
    EXPECT_EQ(values[5].asInt64(-1), -1);
    EXPECT_EQ(values[5].asDouble(), 18446744073709551615.0);
    EXPECT_EQ(values[6].asInt64(-1), -1);
}

TEST(JSONElementTest, ElementsKeepTheirDocumentAliveAfterTheRootGoes) {
    JSON::Element items;
    {
        JSON::Element root = JSON::parse(R"({"Items": ["one", "two"]})");
        items = root["Items"];
    }
    JSON::Element copy = items;
    EXPECT_EQ(copy.getString(1), WideText(L"two"));
}

TEST(JSONElementTest, WideTextParsesLikeItsUTF8) {
    JSON::Element root = JSON::parse(WideText(L"{\"sch\u00fcssel\": \"\u00f6 \U0001F600\"}"));
    EXPECT_EQ(root["sch\xc3\xbcssel"].asString(), WideText(L"\u00f6 \U0001F600"));
    EXPECT_EQ(JSON::parse(Text(R"(["\u00e9\ud83d\ude00"])")).getString(0),
              WideText(L"\u00e9\U0001F600"));
}

TEST(JSONParseTest, BadInputGivesAnInvalidElementAndOneDiagnosticWithThePosition) {
    struct Case {
        char const* name;
        std::string text;
    };
    std::vector<Case> const cases = {
        {"empty", ""},
        {"blank", "  \n "},
        {"truncated object", R"({"a": 1)"},
        {"truncated string", R"(["abc)"},
        {"truncated literal", "[tru"},
        {"missing value", R"({"a": })"},
        {"trailing comma", "[1, 2,]"},
        {"trailing garbage", "[1] x"},
        {"second document", "{} {}"},
        {"extra closer", R"({"a": 1}})"},
        {"single quotes", "{'a': 1}"},
        {"unquoted key", "{a: 1}"},
        {"leading zero", "[01]"},
        {"bad escape", R"(["\x"])"},
        {"control character in string", "[\"a\x01\"]"},
        {"invalid UTF-8 byte", "[\"\xff\"]"},
        {"truncated UTF-8 sequence", "[\"\xc3\"]"},
        {"overlong UTF-8", "[\"\xc0\xaf\"]"},
        {"encoded surrogate", "[\"\xed\xa0\x80\"]"},
        {"lone surrogate escape", R"(["\ud800"])"},
        {"deep nesting", std::string(100000, '[') + std::string(100000, ']')},
        {"deep nesting of objects", std::string(20000, '{')},
    };
    for (Case const& c : cases) {
        DiagnosticCapture diagnostics;
        JSON::Element element = JSON::parse(Text(std::string_view(c.text)));
        EXPECT_FALSE(element.isValid()) << c.name;
        ASSERT_EQ(diagnostics.lines().size(), 1u) << c.name;
        EXPECT_NE(diagnostics.lines().front().find("at byte"), std::string::npos)
            << c.name << ": " << diagnostics.lines().front();
    }
}

TEST(JSONParseTest, NestingWellWithinTheLimitParsesAndBracketsInStringsDoNotCount) {
    std::string deep = std::string(200, '[') + "7" + std::string(200, ']');
    JSON::Element element = JSON::parse(Text(std::string_view(deep)));
    for (int i = 0; i < 200; ++i)
        element = element[0];
    EXPECT_EQ(element.asInt(), 7);

    std::string brackets = "[\"" + std::string(5000, '[') + "\\\"{\"]";
    EXPECT_EQ(JSON::parse(Text(std::string_view(brackets))).getString(0).size(), 5002u);
}

TEST(JSONBuilderTest, WritesTheTableShapeCompactlyAndItParsesBack) {
    JSON::Builder builder;
    builder.beginArray();
    for (auto const& [first, second] : {std::pair{L"Name", L"Value"}, std::pair{L"a", L"b"}})
        builder.beginArray().value(first).value(second).endArray();
    builder.endArray();
    ASSERT_TRUE(builder.ok());
    EXPECT_EQ(builder.text(), R"([["Name","Value"],["a","b"]])");

    JSON::Element rows = JSON::parse(builder.text());
    EXPECT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[1].getString(0), WideText(L"a"));
    EXPECT_EQ(rows[1].getString(1), WideText(L"b"));
}

TEST(JSONBuilderTest, WritesTheHistoryShapeAndItParsesBack) {
    JSON::Builder builder;
    builder.beginObject().key("Pos").value(3).key("Items").beginArray();
    for (wchar_t const* item : {L"/home/u", L"/tmp", L"/m\u00fcll"})
        builder.value(WideText(item));
    builder.endArray().endObject();
    EXPECT_EQ(builder.text(), "{\"Pos\":3,\"Items\":[\"/home/u\",\"/tmp\",\"/m\xc3\xbcll\"]}");

    JSON::Element history = JSON::parse(builder.text());
    EXPECT_EQ(history["Pos"].asInt(), 3);
    EXPECT_EQ(history["Items"].size(), 3u);
    EXPECT_EQ(history["Items"].getString(2), WideText(L"/m\u00fcll"));
}

TEST(JSONBuilderTest, IndentedOutputPutsOneValuePerLine) {
    JSON::Builder two(2);
    two.beginObject().key("a").value(1).key("b").beginArray().value(true).null().endArray();
    two.key("e").beginObject().endObject().key("f").beginArray().endArray().endObject();
    EXPECT_EQ(two.text(), "{\n"
                          "  \"a\": 1,\n"
                          "  \"b\": [\n"
                          "    true,\n"
                          "    null\n"
                          "  ],\n"
                          "  \"e\": {},\n"
                          "  \"f\": []\n"
                          "}");

    JSON::Builder zero(0);
    zero.beginArray().value(1).value(2).endArray();
    EXPECT_EQ(zero.text(), "[\n1,\n2\n]");
}

TEST(JSONBuilderTest, TextIsEscapedAndEncodedSoItParsesBackUnchanged) {
    WideText const awkward(L"quote\" backslash\\ newline\n tab\t bell\x07 \u00e9 \U0001F600 /");
    JSON::Builder builder;
    builder.beginArray().value(awkward).value("narrow \"utf8\" \xc3\xa9").endArray();
    Text text = builder.text();
    EXPECT_EQ(text.find('\n'), Text::npos) << "control characters must be escaped";
    JSON::Element parsed = JSON::parse(text);
    EXPECT_EQ(parsed.getString(0), awkward);
    EXPECT_EQ(parsed.getString(1), WideText(L"narrow \"utf8\" \u00e9"));
}

TEST(JSONBuilderTest, TextThatIsNotCleanUnicodeIsWrittenWithReplacementCharacters) {
    wchar_t const surrogate[] = {L'a', wchar_t(0xD800), L'b', 0};
    JSON::Builder builder;
    builder.beginArray().value(surrogate).value("x\xffy").endArray();
    JSON::Element parsed = JSON::parse(builder.text());
    ASSERT_TRUE(parsed.isValid());
    EXPECT_EQ(parsed.getString(0), WideText(L"a\uFFFDb"));
    EXPECT_EQ(parsed.getString(1), WideText(L"x\uFFFDy"));
}

TEST(JSONBuilderTest, NumbersParseBackToTheSameValues) {
    JSON::Builder builder;
    builder.beginArray()
        .value(INT_MIN)
        .value(LLONG_MAX)
        .value(ULLONG_MAX)
        .value(0.1)
        .value(-1e300)
        .value(std::nan(""))
        .value(static_cast<unsigned char>(200))
        .endArray();
    JSON::Element parsed = JSON::parse(builder.text());
    EXPECT_EQ(parsed[0].asInt(), INT_MIN);
    EXPECT_EQ(parsed[1].asInt64(), LLONG_MAX);
    EXPECT_EQ(parsed[2].asDouble(), double(ULLONG_MAX));
    EXPECT_EQ(parsed[3].asDouble(), 0.1);
    EXPECT_EQ(parsed[4].asDouble(), -1e300);
    EXPECT_TRUE(parsed[5].isNull());
    EXPECT_EQ(parsed[6].asInt(), 200);
}

TEST(JSONBuilderTest, SingleTopLevelScalarIsAWholeDocument) {
    JSON::Builder builder;
    builder.value(L"alone");
    EXPECT_EQ(builder.text(), "\"alone\"");
}

TEST(JSONBuilderTest, MisuseIsReportedOnceAndLeavesNoText) {
    struct Case {
        char const* name;
        std::function<void(JSON::Builder&)> calls;
    };
    std::vector<Case> const cases = {
        {"value without a key", [](JSON::Builder& b) { b.beginObject().value(1).endObject(); }},
        {"key in an array", [](JSON::Builder& b) { b.beginArray().key("k").value(1).endArray(); }},
        {"key at the top", [](JSON::Builder& b) { b.key("k"); }},
        {"two keys", [](JSON::Builder& b) { b.beginObject().key("a").key("b").value(1); }},
        {"wrong closer", [](JSON::Builder& b) { b.beginObject().endArray(); }},
        {"closer without opener", [](JSON::Builder& b) { b.endObject(); }},
        {"close after a dangling key",
         [](JSON::Builder& b) { b.beginObject().key("a").endObject(); }},
        {"unclosed", [](JSON::Builder& b) { b.beginArray().value(1); }},
        {"nothing written", [](JSON::Builder&) {}},
        {"second top-level value", [](JSON::Builder& b) { b.beginArray().endArray().value(2); }},
        {"misuse followed by more misuse",
         [](JSON::Builder& b) { b.endArray().endObject().key("x").value(1); }},
    };
    for (Case const& c : cases) {
        DiagnosticCapture diagnostics;
        JSON::Builder builder;
        c.calls(builder);
        EXPECT_EQ(builder.text(), Text()) << c.name;
        EXPECT_FALSE(builder.ok()) << c.name;
        EXPECT_EQ(builder.text(), Text()) << c.name;
        EXPECT_EQ(diagnostics.lines().size(), 1u) << c.name;
    }
}

} // namespace
