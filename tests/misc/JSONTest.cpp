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

TEST(JSONElementTest, ReadsEachKindByIndexAndKeyAndTheWrongKindGivesInvalidOrTheDefault) {
    JSON::Element root = JSON::parse(
        R"({"s": "text", "i": -42, "d": 2.5, "t": true, "n": null, "a": [["x", 2], [3, 4]]})");
    EXPECT_EQ(root.size(), 6u);
    EXPECT_EQ(root["s"].asString(), WideText(L"text"));
    EXPECT_EQ(root["i"].asDouble(), -42.0);
    EXPECT_EQ(root["d"].asDouble(), 2.5);
    EXPECT_TRUE(root["t"].asBool());
    EXPECT_TRUE(root["n"].isNull());
    EXPECT_EQ(root["a"][1][0].asInt(), 3);
    EXPECT_EQ(root["a"].child(0u).child(1u).asInt(), 2);
    EXPECT_EQ(root.keys(), (std::vector<Text>{"a", "d", "i", "n", "s", "t"}));

    JSON::Element missing = root["missing"];
    EXPECT_FALSE(missing.isNull()) << "absent is not the same as null";
    EXPECT_FALSE(missing["deeper"][3].isValid());
    EXPECT_EQ(root["s"].asInt(11), 11);
    EXPECT_EQ(root["i"].asString(L"d"), WideText(L"d"));
    EXPECT_FALSE(root["s"][0].isValid()) << "a string is not an array";
    EXPECT_FALSE(root["a"]["x"].isValid()) << "an array has no members";
    EXPECT_FALSE(root[0].isValid()) << "an object has no indices";
    EXPECT_FALSE(root["a"][2].isValid());
    EXPECT_FALSE(root["a"][-1].isValid());
    EXPECT_FALSE(root.member(nullptr).isValid());
    EXPECT_EQ(root["a"][0].getString(0), WideText(L"x"));
    EXPECT_EQ(root["a"][0].getString(1), WideText()) << "2 is not a string";
}

TEST(JSONElementTest, IntegerReadsTakeOnlyWholeNumbersInRange) {
    JSON::Element values =
        JSON::parse("[3.0, 2.5, 3000000000, 1e19, -2147483648, 18446744073709551615]");
    EXPECT_EQ(values[0].asInt(-1), 3);
    EXPECT_EQ(values[1].asInt(-1), -1);
    EXPECT_EQ(values[2].asInt(-1), -1);
    EXPECT_EQ(values[2].asInt64(-1), 3000000000LL);
    EXPECT_EQ(values[3].asInt64(-1), -1);
    EXPECT_EQ(values[4].asInt(-1), INT_MIN);
    EXPECT_EQ(values[5].asInt64(-1), -1);
    EXPECT_EQ(values[5].asDouble(), 18446744073709551615.0);
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

TEST(JSONParseTest, BadInputGivesAnInvalidElementAndOneDiagnosticWithThePosition) {
    std::vector<std::string> cases = {"",         R"({"a": 1)", "[1, 2,]",      "{} {}",
                                      "{'a': 1}", "[\"\xff\"]", R"(["\ud800"])"};
    cases.push_back(std::string(100000, '[') + std::string(100000, ']'));
    cases.push_back(std::string(20000, '{'));
    for (std::string const& text : cases) {
        SCOPED_TRACE(text.substr(0, 20));
        DiagnosticCapture diagnostics;
        EXPECT_FALSE(JSON::parse(Text(std::string_view(text))).isValid());
        ASSERT_EQ(diagnostics.lines().size(), 1u);
        EXPECT_NE(diagnostics.lines().front().find("at byte"), std::string::npos);
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

TEST(JSONBuilderTest, WritesCompactlyAndItParsesBack) {
    JSON::Builder builder;
    builder.beginObject().key("Pos").value(3).key("Items").beginArray();
    builder.beginArray().value(L"Name").value(L"Value").endArray();
    builder.value(WideText(L"/m\u00fcll")).endArray().endObject();
    ASSERT_TRUE(builder.ok());
    EXPECT_EQ(builder.text(), "{\"Pos\":3,\"Items\":[[\"Name\",\"Value\"],\"/m\xc3\xbcll\"]}");
    JSON::Element history = JSON::parse(builder.text());
    EXPECT_EQ(history["Items"][0].getString(1), WideText(L"Value"));
    EXPECT_EQ(history["Items"].getString(1), WideText(L"/m\u00fcll"));

    JSON::Builder scalar;
    scalar.value(L"alone");
    EXPECT_EQ(scalar.text(), "\"alone\"") << "a single scalar is a whole document";
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

TEST(JSONBuilderTest, TextIsEscapedAndEncodedSoItParsesBackWithBadUnicodeReplaced) {
    WideText const awkward(L"quote\" backslash\\ newline\n tab\t bell\x07 \u00e9 \U0001F600 /");
    wchar_t const surrogate[] = {L'a', wchar_t(0xD800), L'b', 0};
    JSON::Builder builder;
    builder.beginArray().value(awkward).value("narrow \"utf8\" \xc3\xa9");
    builder.value(surrogate).value("x\xffy").endArray();
    Text text = builder.text();
    EXPECT_EQ(text.find('\n'), Text::npos) << "control characters must be escaped";
    JSON::Element parsed = JSON::parse(text);
    EXPECT_EQ(parsed.getString(0), awkward);
    EXPECT_EQ(parsed.getString(1), WideText(L"narrow \"utf8\" \u00e9"));
    EXPECT_EQ(parsed.getString(2), WideText(L"a\uFFFDb"));
    EXPECT_EQ(parsed.getString(3), WideText(L"x\uFFFDy"));
}

TEST(JSONBuilderTest, NumbersParseBackToTheSameValues) {
    JSON::Builder builder;
    builder.beginArray().value(INT_MIN).value(LLONG_MAX).value(ULLONG_MAX).value(0.1);
    builder.value(std::nan("")).endArray();
    JSON::Element parsed = JSON::parse(builder.text());
    EXPECT_EQ(parsed[0].asInt(), INT_MIN);
    EXPECT_EQ(parsed[1].asInt64(), LLONG_MAX);
    EXPECT_EQ(parsed[2].asDouble(), double(ULLONG_MAX));
    EXPECT_EQ(parsed[3].asDouble(), 0.1);
    EXPECT_TRUE(parsed[4].isNull());
}

TEST(JSONBuilderTest, MisuseIsReportedOnceAndLeavesNoText) {
    struct Case {
        char const* name;
        std::function<void(JSON::Builder&)> calls;
    };
    std::vector<Case> const cases = {
        {"value without a key", [](JSON::Builder& b) { b.beginObject().value(1).endObject(); }},
        {"key in an array", [](JSON::Builder& b) { b.beginArray().key("k").value(1).endArray(); }},
        {"two keys", [](JSON::Builder& b) { b.beginObject().key("a").key("b").value(1); }},
        {"wrong closer", [](JSON::Builder& b) { b.beginObject().endArray(); }},
        {"closer without opener", [](JSON::Builder& b) { b.endObject(); }},
        {"close after a key", [](JSON::Builder& b) { b.beginObject().key("a").endObject(); }},
        {"unclosed", [](JSON::Builder& b) { b.beginArray().value(1); }},
        {"second top-level value", [](JSON::Builder& b) { b.beginArray().endArray().value(2); }},
        {"more misuse", [](JSON::Builder& b) { b.endArray().endObject().key("x").value(1); }},
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
