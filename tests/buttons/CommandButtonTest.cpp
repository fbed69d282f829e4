#include "buttons/CommandButton.h"

#include "SpecialButtonOwner.h"
#include "glob/CommandMap.h"
#include "qor/WrappedData.h"

namespace {

std::vector<std::string> ran;
int lastContext = -1;

void note(char const* which, Qor::Ptr<iObject> const& context) {
    ran.push_back(which);
    auto const* data = dynamic_cast<WrappedData<int> const*>(context.get());
    lastContext = data != nullptr ? data->getData() : -1;
}

CommandRegistrar saveCommand("CommandButtonTest.save", L"Save all",
                             [](Qor::Ptr<iObject> const& c) { note("save", c); });
CommandRegistrar saveAsCommand("CommandButtonTest.saveAs", L"Save as",
                               [](Qor::Ptr<iObject> const& c) { note("saveAs", c); });

struct Commands : SpecialButtons {
    void SetUp() override {
        SpecialButtons::SetUp();
        ran.clear();
        lastContext = -1;
    }
};

} // namespace

TEST_F(Commands, AButtonWithoutALabelShowsTheCommandsNameAndRunsItWithTheContext) {
    CommandButton::InitArgs args("CommandButtonTest.save", UIString(), 100, 24);
    args.callback.setContext(Qor::makePtr<WrappedData<int>>(7));
    auto* button = make<CommandButton>(args);
    EXPECT_EQ(button->getString().getString(), LightweightString<wchar_t>(L"Save all"));
    driver.click(button);
    EXPECT_EQ(ran, (std::vector<std::string>{"save"}));
    EXPECT_EQ(lastContext, 7);
    EXPECT_TRUE(panel->messages.empty());
}

TEST_F(Commands, ShiftRunsTheSecondCommandAndAnUnknownCommandDoesNothing) {
    CommandButton::InitArgs args("CommandButtonTest.save", UIString(L"Save"), 100, 24);
    args.shiftCommand = "CommandButtonTest.saveAs";
    auto* button = make<CommandButton>(args);
    EXPECT_EQ(button->getString().getString(), LightweightString<wchar_t>(L"Save"));
    driver.setModifiers(0x1000000);
    driver.click(button);
    driver.setModifiers(0);
    driver.click(button);
    EXPECT_EQ(ran, (std::vector<std::string>{"saveAs", "save"}));

    auto* unknown = make<CommandButton>(
        CommandButton::InitArgs("CommandButtonTest.nowhere", UIString(), 100, 24), {20, 60});
    EXPECT_TRUE(unknown->getString().getString().empty());
    driver.click(unknown);
    EXPECT_EQ(ran.size(), 2u);
    EXPECT_TRUE(panel->messages.empty());
}
