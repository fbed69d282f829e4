#include "foundation/WidgetCallback.h"
#include "foundation/CallbackWithContext.h"
#include "foundation/MessageSender.h"
#include "glob/RecordingGlob.h"
#include "qor/WrappedData.h"
#include "testing/UiTestDriver.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Callback = Qor::Ptr<iCallbackBase<int, NotifyMsg>>;

// A widget that tells of a click through its WidgetCallback, as buttons do. Given only a name, it
// sends the name to its parent.
class ReportingGlob : public Glob {
public:
    explicit ReportingGlob(GlobCreationInfo const& info) : Glob(info) {}

    char const* idstring() const override { return "ReportingGlob"; }
    void setCallback(WidgetCallback const& callback) {
        callback_ = callback;
        if (!callback_.hasCallback())
            callback_.setCallback(Callback(new MessageSender(parent())));
    }
    int react(Event const& e) override {
        if (e.type != EventCode::LeftRelease)
            return Glob::react(e);
        // Nothing of this widget is touched after the call: the callback may delete it.
        callback_.execute(flagsOnRelease);
        return 1;
    }

    int flagsOnRelease = 5;

private:
    WidgetCallback callback_;
};

ReportingGlob* makeReporter(Glob* parent) {
    GlobCreationInfo info(60, 20);
    info.canvas = parent->canvas();
    auto* widget = new ReportingGlob(info);
    parent->addChild(widget, Glob::BottomLeft({10, 10}));
    widget->update();
    return widget;
}

// What an owner panel hears through a method callback.
struct Owner {
    int handle(NotifyMsg const& msg) {
        names.push_back(msg.getName().str());
        auto const* data = dynamic_cast<WrappedData<int> const*>(msg.getData().get());
        contexts.push_back(data ? data->getData() : -1);
        flags.push_back(msg.getFlags());
        return 1;
    }
    std::vector<std::string> names;
    std::vector<int> contexts;
    std::vector<int> flags;
};

struct Reporting : ::testing::Test {
    UiTestDriver driver;
    RecordingGlob* window = makeWindow({100, 100}, {300, 200});
    ReportingGlob* widget = makeReporter(window);
};

} // namespace

TEST_F(Reporting, ClickReachesTheOwnersCallbackWithNameContextAndFlags) {
    Owner owner;
    widget->setCallback(WidgetCallback(Qor::makeCallback(&owner, &Owner::handle), "pressed",
                                       Qor::makePtr<WrappedData<int>>(42)));
    driver.click(widget);
    EXPECT_EQ(owner.names, (std::vector<std::string>{"pressed"}));
    EXPECT_EQ(owner.contexts, (std::vector<int>{42}));
    EXPECT_EQ(owner.flags, (std::vector<int>{5}));
    EXPECT_TRUE(window->messages().empty());
}

TEST_F(Reporting, WithOnlyANameTheParentHearsItAsAMessageEventFromTheLoop) {
    widget->setCallback(WidgetCallback("useMe"));
    driver.mouseDown(widget, {5, 5});
    driver.mouseUp(widget, {5, 5});
    // Posted, not delivered from inside the widget's handler.
    driver.processEvents();
    EXPECT_EQ(window->messages(), (std::vector<std::string>{"useMe"}));
}

TEST_F(Reporting, CallbackMayDeleteTheWidgetThatCalledIt) {
    Glob* doomed = widget;
    int calls = 0;
    widget->setCallback(
        WidgetCallback(Qor::makeCallback<NotifyMsg>([&calls, doomed](NotifyMsg const&) {
                           delete doomed;
                           // Captures are read after the callback's holder died.
                           ++calls;
                           return calls;
                       }),
                       "die"));
    driver.click(widget);
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(is_good_glob_ptr(doomed));
    EXPECT_EQ(window->widgetCount(), 0);
}

TEST(CallbackWithContext, PassesNameAndFlagsOnButReplacesTheDataWithItsContext) {
    Owner owner;
    Callback withContext(new CallbackWithContext(Qor::makeCallback(&owner, &Owner::handle),
                                                 Qor::makePtr<WrappedData<int>>(7)));
    NotifyMsg msg("changed", Qor::makePtr<WrappedData<int>>(99));
    msg.setFlags(3);
    EXPECT_EQ(withContext->execute(msg), 1);
    EXPECT_EQ(owner.names, (std::vector<std::string>{"changed"}));
    EXPECT_EQ(owner.contexts, (std::vector<int>{7}));
    EXPECT_EQ(owner.flags, (std::vector<int>{3}));
}
