#include "glob/CommandMap.h"
#include "qor/WrappedData.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string> ran;

void note(char const* what, Qor::Ptr<iObject> const& context) {
    auto const* data = dynamic_cast<WrappedData<int> const*>(context.get());
    ran.push_back(std::string(what) + ":" + (data ? std::to_string(data->getData()) : "none"));
}

// Registered at load, as test panels register theirs.
CommandRegistrar openCommand("CommandMapTest.open", L"Open\u2026",
                             [](Qor::Ptr<iObject> const& c) { note("open", c); });

} // namespace

TEST(CommandMap, ACommandRegisteredAtLoadIsFoundByNameAndCalledWithItsContext) {
    ran.clear();
    CommandMap& map = CommandMap::instance();
    auto id = map.findCommand("CommandMapTest.open");
    ASSERT_EQ(id, openCommand.id());
    EXPECT_EQ(map.getCommand(*id).displayName(), L"Open\u2026");
    EXPECT_TRUE(map.callCommand(*id, Qor::makePtr<WrappedData<int>>(3)));
    EXPECT_TRUE(map.callCommand(*id));
    EXPECT_FALSE(map.callCommand(-1));
    EXPECT_FALSE(map.callCommand(1 << 20));
    EXPECT_EQ(ran, (std::vector<std::string>{"open:3", "open:none"}));
    EXPECT_FALSE(map.findCommand("CommandMapTest.nowhere").has_value());
}

TEST(CommandMap, RegisteringANameAgainReplacesTheCommandUnderTheSameId) {
    ran.clear();
    CommandRegistrar first("CommandMapTest.twice", L"First",
                           [](Qor::Ptr<iObject> const& c) { note("first", c); });
    CommandRegistrar second("CommandMapTest.twice", L"Second",
                            [](Qor::Ptr<iObject> const& c) { note("second", c); });
    EXPECT_EQ(first.id(), second.id());
    EXPECT_EQ(CommandMap::instance().getCommand(first.id()).displayName(), L"Second");
    CommandMap::instance().callCommand(first.id());
    EXPECT_EQ(ran, (std::vector<std::string>{"second:none"}));
}

TEST(CommandMap, ACommandMayRegisterAndCallOthersWhileItRuns) {
    ran.clear();
    CommandRegistrar outer("CommandMapTest.outer", L"Outer", [](Qor::Ptr<iObject> const&) {
        CommandRegistrar inner("CommandMapTest.inner", L"Inner",
                               [](Qor::Ptr<iObject> const& c) { note("inner", c); });
        CommandMap::instance().callCommand(inner.id());
    });
    EXPECT_TRUE(CommandMap::instance().callCommand(outer.id()));
    EXPECT_EQ(ran, (std::vector<std::string>{"inner:none"}));
}
