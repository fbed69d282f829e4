// The clipboard and the primary selection, round trips with another program (xclip).

#include "qor/UTF8.h"
#include "x11/X11ServerTest.h"

#include <X11/Xatom.h>

namespace {

class X11ClipboardTest : public X11ServerTest {};

TEST_F(X11ClipboardTest, ClipboardAndSelectionTextsReachOtherProgramsSeparately) {
    display_->setClipboardText(ClipboardChannel::Clipboard, L"from panelkit ✓");
    display_->setClipboardText(ClipboardChannel::Selection, L"selected");
    EXPECT_EQ(runServing("xclip -selection clipboard -o"), "from panelkit \xe2\x9c\x93");
    EXPECT_EQ(runServing("xclip -selection primary -o"), "selected");
    EXPECT_EQ(runServing("xclip -selection clipboard -o -t STRING"), "from panelkit ?");
    std::optional<std::string> targets = runServing("xclip -selection clipboard -o -t TARGETS");
    ASSERT_TRUE(targets);
    for (char const* target : {"TARGETS", "UTF8_STRING", "STRING", "TEXT"})
        EXPECT_NE(targets->find(target), std::string::npos) << *targets;
    // Answered from memory while we own it.
    EXPECT_EQ(display_->clipboardText(ClipboardChannel::Clipboard), L"from panelkit ✓");
}

TEST_F(X11ClipboardTest, OtherProgramsClipboardTextReachesUs) {
    display_->setClipboardText(ClipboardChannel::Clipboard, L"ours");
    display_->setClipboardText(ClipboardChannel::Selection, L"our selection");
    Window ours = XGetSelectionOwner(outside_, atom("CLIPBOARD"));

    run("printf 'from xclip \\303\\274' | xclip -selection clipboard -i -loops 1");
    ASSERT_TRUE(awaitNewOwner("CLIPBOARD", ours));
    EXPECT_EQ(display_->clipboardText(ClipboardChannel::Clipboard), L"from xclip ü");
    // The other channel is still ours.
    EXPECT_EQ(display_->clipboardText(ClipboardChannel::Selection), L"our selection");

    run("printf 'primary' | xclip -selection primary -i -loops 1");
    ASSERT_TRUE(awaitNewOwner("PRIMARY", ours));
    EXPECT_EQ(display_->clipboardText(ClipboardChannel::Selection), L"primary");
}

TEST_F(X11ClipboardTest, LargeTextsTravelBothWays) {
    std::string text;
    for (int i = 0; text.size() < 3u << 20; ++i)
        text += "line " + std::to_string(i) + " of a long text\n";
    LightweightString<wchar_t> wide = fromUTF8(text.c_str(), unsigned(text.size()));

    display_->setClipboardText(ClipboardChannel::Clipboard, wide);
    std::optional<std::string> read = runServing("xclip -selection clipboard -o");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->size(), text.size());
    EXPECT_TRUE(*read == text);

    // xclip hands texts over a megabyte in increments.
    char path[] = "/tmp/panelkit-x11-clipXXXXXX";
    int fd = mkstemp(path);
    ASSERT_GE(fd, 0);
    ASSERT_EQ(write(fd, text.data(), text.size()), ssize_t(text.size()));
    close(fd);
    Window ours = XGetSelectionOwner(outside_, atom("CLIPBOARD"));
    run(std::string("xclip -selection clipboard -i -loops 1 ") + path);
    unlink(path);
    ASSERT_TRUE(awaitNewOwner("CLIPBOARD", ours));
    LightweightString<wchar_t> received = display_->clipboardText(ClipboardChannel::Clipboard);
    EXPECT_EQ(received.size(), wide.size());
    EXPECT_TRUE(received == wide);
}

TEST_F(X11ClipboardTest, EventsArrivingWhileTheClipboardWaitsAreKept) {
    Canvas* canvas = openWindow(Box(100, 100, 200, 200));
    Window ours = None;
    run("printf 'theirs' | xclip -selection clipboard -i -loops 1");
    ASSERT_TRUE(awaitNewOwner("CLIPBOARD", ours));
    received_.clear();
    requestClose(xidOf(canvas));
    XSync(outside_, False);
    EXPECT_EQ(display_->clipboardText(ClipboardChannel::Clipboard), L"theirs");
    EXPECT_NE(awaitKind(InputEvent::CloseRequest), nullptr);
}

TEST_F(X11ClipboardTest, AnUnownedClipboardReadsEmptyAtOnce) {
    XSetSelectionOwner(outside_, atom("CLIPBOARD"), None, CurrentTime);
    XSync(outside_, False);
    auto start = Clock::now();
    EXPECT_TRUE(display_->clipboardText(ClipboardChannel::Clipboard).empty());
    EXPECT_LT(Clock::now() - start, std::chrono::milliseconds(500));
}

} // namespace
