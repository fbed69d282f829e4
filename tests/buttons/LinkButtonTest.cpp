#include "buttons/LinkButton.h"

#include "SpecialButtonOwner.h"
#include "os/OS.h"

namespace {

// Stands in for the desktop's opener: notes what it is handed and launches nothing. It may also
// close the button, as a host that leaves the page would.
class RecordingShell : public iShell {
public:
    bool openURL(LightweightString<wchar_t> const& url) override {
        urls.push_back(url);
        if (closing != nullptr)
            GlobManager::instance().requestDeletion(closing);
        return true;
    }
    bool openFile(LightweightString<wchar_t> const& path) override {
        files.push_back(path);
        return true;
    }

    std::vector<LightweightString<wchar_t>> urls;
    std::vector<LightweightString<wchar_t>> files;
    Glob* closing = nullptr;
};

struct Links : SpecialButtons {
    RecordingShell shell;
    void SetUp() override {
        SpecialButtons::SetUp();
        OS()->setShell(&shell);
    }
    void TearDown() override { OS()->setShell(nullptr); }
};

LightweightString<wchar_t> const address(L"https://example.org/manual");

} // namespace

TEST_F(Links, AClickHandsTheLinkToTheShellAndTheOwnerHearsNothing) {
    auto* named = make<LinkButton>(LinkButton::InitArgs(address, UIString(L"Manual"), 100, 20));
    EXPECT_EQ(named->getString().getString(), LightweightString<wchar_t>(L"Manual"));
    // Without a label the link shows itself.
    auto* link = make<LinkButton>(LinkButton::InitArgs(address, UIString(), 200, 20), {20, 60});
    EXPECT_EQ(link->getString().getString(), address);
    driver.click(link);
    driver.processEvents();
    ASSERT_EQ(shell.urls.size(), 1u);
    EXPECT_EQ(shell.urls.front(), address);
    EXPECT_TRUE(shell.files.empty());
    EXPECT_TRUE(panel->messages.empty());

    // A press taken back by moving off, or a click on an emptied link, opens nothing.
    driver.mouseDown(link, {10, 10});
    driver.mouseMove(link, {250, 10});
    driver.mouseUp(link, {250, 10});
    link->setLink(LightweightString<wchar_t>());
    driver.click(link);
    EXPECT_EQ(shell.urls.size(), 1u);
}

TEST_F(Links, ALinkClosedByWhatItOpensGoesSafely) {
    auto* link = make<LinkButton>(LinkButton::InitArgs(address, UIString(), 200, 20));
    shell.closing = link;
    Glob* target = link;
    driver.click(link);
    driver.processEvents();
    EXPECT_EQ(shell.urls.size(), 1u);
    EXPECT_FALSE(is_good_glob_ptr(target));
}
