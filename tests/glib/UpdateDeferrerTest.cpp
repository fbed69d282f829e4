#include "DrawTestWindow.h"

#include "glib/Display.h"
#include "glib/UpdateDeferrer.h"

#include <gtest/gtest.h>

using namespace DrawTest;

namespace {

// A window that records each presentation's damage.
class Presenting : public TestWindow {
public:
    Presenting() { surface().setWindow(std::make_unique<Recorder>(&presented)); }
    void draw(Box const& box) {
        fill(renderer(), box, kRed);
        renderer().flush();
    }
    std::vector<std::vector<Box>> presented;

private:
    struct Recorder : iWindow {
        explicit Recorder(std::vector<std::vector<Box>>* presented) : presented_(presented) {}
        void setBounds(Box const&) override {}
        void setMapped(bool) override {}
        void raise() override {}
        void setKeepAbove(bool) override {}
        void setOpacity(double) override {}
        void setShape(Qor::Ptr<iRegion> const&) override {}
        void setTitle(LightweightString<wchar_t> const&) override {}
        void setCursor(int) override {}
        void present(WindowSurface&, std::vector<Box> const& damage) override {
            presented_->push_back(damage);
        }
        Qor::Ptr<iRootWindow> rootWindow() override { return Qor::Ptr<iRootWindow>(); }
        std::vector<std::vector<Box>>* presented_;
    };
};

TEST(UpdateDeferrer, NestedDeferrersShowTheWindowOnceAtTheOutermostEnd) {
    Presenting window;
    auto child = TestWindow::child(window.top(), Box(10, 10, 50, 50));
    {
        Glib::UpdateDeferrer outer(child.get());
        window.draw(Box(0, 0, 5, 5));
        {
            Glib::UpdateDeferrer inner(window.top());
            window.draw(Box(20, 20, 25, 25));
        }
        EXPECT_TRUE(window.presented.empty());
    }
    EXPECT_EQ(window.presented,
              (std::vector<std::vector<Box>>{{Box(0, 0, 5, 5), Box(20, 20, 25, 25)}}));
    window.draw(Box(1, 1, 2, 2));
    EXPECT_EQ(window.presented.size(), 2u);
}

TEST(UpdateDeferrer, DeferringOneWindowOrACanvasWithoutOneLeavesTheOthersAlone) {
    Presenting first, second;
    auto root = Canvas::createRoot(XY<int>(100, 100));
    Canvas lonely(root.get(), Box(0, 0, 10, 10));
    {
        Glib::UpdateDeferrer deferrer(first.top());
        Glib::UpdateDeferrer harmless(&lonely);
        first.draw(Box(0, 0, 5, 5));
        second.draw(Box(0, 0, 5, 5));
        EXPECT_TRUE(first.presented.empty());
        EXPECT_EQ(second.presented.size(), 1u);
    }
    EXPECT_EQ(first.presented.size(), 1u);
}

TEST(UpdateDeferrer, NullCanvasOrTheScreenDefersEveryWindow) {
    for (bool screen : {false, true}) {
        Presenting first, second;
        {
            Glib::UpdateDeferrer all(screen ? second.root() : nullptr);
            first.draw(Box(0, 0, 5, 5));
            second.draw(Box(0, 0, 5, 5));
            EXPECT_TRUE(first.presented.empty() && second.presented.empty()) << screen;
        }
        EXPECT_EQ(first.presented.size() + second.presented.size(), 2u);
    }
}

} // namespace
