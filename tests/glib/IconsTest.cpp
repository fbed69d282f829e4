#include "glib/HostImage.h"
#include "glib/ImageCache.h"
#include "misc/ResourceTable.h"
#include "os/Files.h"
#include "qor/UTF8.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

namespace {

// The icons the toolkit asks for by name.
char const* const shippedIcons[] = {
    "button-menu-reveal",
    "button-menu-hide",
    "tree-collapsed",
    "tree-expanded",
    "pin",
    "pinned",
    "settings",
    "more",
    "app-close",
    "poot",
    "eye-closed",
    "eye-open",
    "scroll-left",
    "led_blue_on",
    "folder",
    "history-backward",
    "history-forward",
    "folder-up",
};

LightweightString<wchar_t> shippedFile(std::string const& name) {
    return fromUTF8((ResourceTable::instance().resourceDirectory() + "/icons/" + name).c_str());
}

// Pixels with more than half their alpha count as ink.
bool inked(iHostImage const& image, int x, int y) {
    return image.pixel(x, y).a > 0.5f;
}

struct Coverage {
    int opaque = 0;
    int transparent = 0;
    double alphaSum = 0;
};

Coverage coverage(iHostImage const& image) {
    Coverage c;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            float alpha = image.pixel(x, y).a;
            c.opaque += alpha > 0.9f ? 1 : 0;
            c.transparent += alpha == 0.0f ? 1 : 0;
            c.alphaSum += alpha;
        }
    return c;
}

class ShippedIcon : public ::testing::TestWithParam<char const*> {};

TEST_P(ShippedIcon, IsDrawnAtBothSizesOnATransparentGround) {
    std::string name = GetParam();
    Coverage sizes[2];
    for (int twice = 0; twice < 2; ++twice) {
        std::string file = name + (twice ? "-2x.png" : ".png");
        SCOPED_TRACE(file);
        ASSERT_TRUE(fileExists(shippedFile(file)));
        Qor::Ptr<iHostImage> image = ImageServices::loadImage(shippedFile(file));
        ASSERT_TRUE(image);
        int const size = twice ? 32 : 16;
        EXPECT_EQ(image->width(), size);
        EXPECT_EQ(image->height(), size);
        sizes[twice] = coverage(*image);
        EXPECT_GT(sizes[twice].opaque, 0) << "nothing is drawn solid";
        EXPECT_GT(sizes[twice].transparent, 0) << "the background is not transparent";
    }
    // Both files are the same picture, so the larger covers four times the area.
    EXPECT_NEAR(sizes[1].alphaSum / 4, sizes[0].alphaSum, sizes[0].alphaSum * 0.15);
}

TEST_P(ShippedIcon, LoadsThroughTheCacheAtBothScales) {
    Qor::Ptr<iHostImage> plain = QorImage::Cache::instance().loadIcon(fromUTF8(GetParam()), 1);
    Qor::Ptr<iHostImage> sharp = QorImage::Cache::instance().loadIcon(fromUTF8(GetParam()), 2);
    ASSERT_TRUE(plain);
    ASSERT_TRUE(sharp);
    EXPECT_EQ(plain->width(), 16);
    EXPECT_EQ(plain->scale(), 1.0);
    EXPECT_EQ(sharp->width(), 32);
    EXPECT_EQ(sharp->scale(), 2.0);
}

INSTANTIATE_TEST_SUITE_P(Icons, ShippedIcon, ::testing::ValuesIn(shippedIcons),
                         [](auto const& info) {
                             std::string name = info.param;
                             for (char& c : name)
                                 c = c == '-' ? '_' : c;
                             return name;
                         });

enum class Side { Left, Right, Up, Down };

// How far the ink reaches along the outermost inked column or row on that side: a point is
// narrow, a base or a pair of arms is wide.
int extremeSpan(iHostImage const& image, Side side) {
    bool vertical = side == Side::Up || side == Side::Down;
    int lines = vertical ? image.height() : image.width();
    int along = vertical ? image.width() : image.height();
    for (int step = 0; step < lines; ++step) {
        bool fromHigh = side == Side::Right || side == Side::Up;
        int line = fromHigh ? lines - 1 - step : step;
        int first = -1, last = -1;
        for (int i = 0; i < along; ++i)
            if (vertical ? inked(image, i, line) : inked(image, line, i)) {
                first = first < 0 ? i : first;
                last = i;
            }
        if (first >= 0)
            return last - first + 1;
    }
    return 0;
}

Side opposite(Side side) {
    switch (side) {
    case Side::Left:
        return Side::Right;
    case Side::Right:
        return Side::Left;
    case Side::Up:
        return Side::Down;
    case Side::Down:
        return Side::Up;
    }
    return side;
}

TEST(IconDirections, PointedIconsPointTheWayTheirNamesSay) {
    struct Case {
        char const* name;
        Side points;
    } const cases[] = {
        {"button-menu-reveal", Side::Down}, {"button-menu-hide", Side::Up},
        {"tree-collapsed", Side::Right},    {"tree-expanded", Side::Down},
        {"scroll-left", Side::Left},
    };
    for (auto const& c : cases) {
        SCOPED_TRACE(c.name);
        Qor::Ptr<iHostImage> image =
            ImageServices::loadImage(shippedFile(std::string(c.name) + "-2x.png"));
        ASSERT_TRUE(image);
        EXPECT_LT(extremeSpan(*image, c.points), extremeSpan(*image, opposite(c.points)));
    }
}

// The x of the ink's centre of mass, in pixels from the left edge.
double inkCentreX(iHostImage const& image) {
    double weighted = 0, total = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            float alpha = image.pixel(x, y).a;
            weighted += alpha * (x + 0.5);
            total += alpha;
        }
    return weighted / total;
}

TEST(IconDirections, HistoryArrowsCarryTheirHeadsOnTheirOwnSide) {
    Qor::Ptr<iHostImage> back = ImageServices::loadImage(shippedFile("history-backward-2x.png"));
    Qor::Ptr<iHostImage> forward = ImageServices::loadImage(shippedFile("history-forward-2x.png"));
    ASSERT_TRUE(back);
    ASSERT_TRUE(forward);
    EXPECT_LT(inkCentreX(*back), 16 - 0.5);
    EXPECT_GT(inkCentreX(*forward), 16 + 0.5);
}

// A private icons folder, named by PANELKIT_ICONS for the test's length.
class IconFolder : public ::testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (std::filesystem::temp_directory_path() / "icons-XXXXXX").string();
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        folder_ = pattern;
        if (char const* previous = std::getenv("PANELKIT_ICONS"))
            previous_ = previous;
        ::setenv("PANELKIT_ICONS", folder_.c_str(), 1);
    }
    void TearDown() override {
        if (previous_.empty())
            ::unsetenv("PANELKIT_ICONS");
        else
            ::setenv("PANELKIT_ICONS", previous_.c_str(), 1);
        std::filesystem::remove_all(folder_);
    }

    // Writes a square PNG of the size into the folder.
    void writeIcon(char const* file, int size) {
        HostImage image(size, size);
        image.fill(Box(0, 0, size / 2, size / 2), NormalisedRGB(0.2f, 0.4f, 0.9f, 1.0f));
        ASSERT_TRUE(image.savePng((folder_ / file).c_str()));
    }
    LightweightString<wchar_t> path(char const* file) const {
        return fromUTF8((folder_ / file).c_str());
    }
    static QorImage::Cache& cache() { return QorImage::Cache::instance(); }

    std::filesystem::path folder_;
    std::string previous_;
};

TEST_F(IconFolder, LoadIconTakesTheSharpFileAboveScaleOneAndThePlainOneAtOne) {
    writeIcon("dot.png", 16);
    writeIcon("dot-2x.png", 32);

    Qor::Ptr<iHostImage> sharp = cache().loadIcon(L"dot", 2);
    ASSERT_TRUE(sharp);
    EXPECT_EQ(sharp->width(), 32);
    EXPECT_EQ(sharp->scale(), 2.0);
    Qor::Ptr<iHostImage> plain = cache().loadIcon(L"dot", 1);
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->width(), 16);
    EXPECT_EQ(plain->scale(), 1.0);
    // Names may carry the extension, as the widgets write them.
    EXPECT_EQ(cache().loadIcon(L"dot.png", 1.5), sharp);
    EXPECT_EQ(cache().loadIcon(L"dot.png", 1), plain);
}

TEST_F(IconFolder, LoadIconFallsBackOnThePlainFileWhenThereIsNoSharpOne) {
    writeIcon("flat.png", 16);

    Qor::Ptr<iHostImage> icon = cache().loadIcon(L"flat", 2);
    ASSERT_TRUE(icon);
    EXPECT_EQ(icon->width(), 16);
    EXPECT_EQ(icon->scale(), 1.0);
    EXPECT_FALSE(cache().loadIcon(L"absent", 2));
}

TEST_F(IconFolder, CacheAnswersTheFirstImageLoadedForAPath) {
    writeIcon("shared.png", 16);
    Qor::Ptr<iHostImage> first = cache().get(path("shared.png"));
    ASSERT_TRUE(first);

    writeIcon("shared.png", 24);
    EXPECT_EQ(cache().get(path("shared.png")), first);
    EXPECT_EQ(cache().loadIcon(L"shared", 1), first);
}

TEST_F(IconFolder, CacheRemembersAMissingFile) {
    EXPECT_FALSE(cache().get(path("late.png")));
    EXPECT_FALSE(cache().loadIcon(L"later", 2));

    writeIcon("late.png", 16);
    writeIcon("later.png", 16);
    writeIcon("later-2x.png", 32);
    EXPECT_FALSE(cache().get(path("late.png")));
    EXPECT_FALSE(cache().loadIcon(L"later", 2));
    EXPECT_FALSE(cache().loadIcon(L"later", 1));
}

TEST_F(IconFolder, ThreadsAskingAtOnceShareOneImage) {
    writeIcon("busy.png", 16);
    std::vector<Qor::Ptr<iHostImage>> answers(8);
    std::vector<std::thread> threads;
    for (auto& answer : answers)
        threads.emplace_back(
            [&answer] { answer = QorImage::Cache::instance().loadIcon(L"busy", 1); });
    for (auto& thread : threads)
        thread.join();
    ASSERT_TRUE(answers[0]);
    for (auto const& answer : answers)
        EXPECT_EQ(answer, answers[0]);
}

} // namespace
