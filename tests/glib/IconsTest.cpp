#include "glib/HostImage.h"
#include "glib/ImageCache.h"
#include "misc/ResourceTable.h"
#include "os/Files.h"
#include "qor/UTF8.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <iterator>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace {

// The icons the toolkit asks for by name.
std::vector<std::string> shippedIcons() {
    std::istringstream names(
        "button-menu-reveal button-menu-hide tree-collapsed tree-expanded pin pinned settings more "
        "app-close poot eye-closed eye-open scroll-left led_blue_on folder history-backward "
        "history-forward folder-up");
    return {std::istream_iterator<std::string>(names), {}};
}

LightweightString<wchar_t> shippedFile(std::string const& name) {
    return fromUTF8((ResourceTable::instance().resourceDirectory() + "/icons/" + name).c_str());
}

class ShippedIcon : public ::testing::TestWithParam<std::string> {};

TEST_P(ShippedIcon, IsDrawnAtBothSizesOnATransparentGroundAndTheCacheServesBoth) {
    std::string name = GetParam();
    double alphaSum[2] = {0, 0};
    for (int twice = 0; twice < 2; ++twice) {
        std::string file = name + (twice ? "-2x.png" : ".png");
        SCOPED_TRACE(file);
        ASSERT_TRUE(fileExists(shippedFile(file)));
        Qor::Ptr<iHostImage> image = ImageServices::loadImage(shippedFile(file));
        ASSERT_TRUE(image);
        int const size = twice ? 32 : 16;
        EXPECT_EQ(image->width(), size);
        EXPECT_EQ(image->height(), size);
        int opaque = 0, transparent = 0;
        for (int y = 0; y < size; ++y)
            for (int x = 0; x < size; ++x) {
                float alpha = image->pixel(x, y).a;
                opaque += alpha > 0.9f ? 1 : 0;
                transparent += alpha == 0.0f ? 1 : 0;
                alphaSum[twice] += alpha;
            }
        EXPECT_GT(opaque, 0) << "nothing is drawn solid";
        EXPECT_GT(transparent, 0) << "the background is not transparent";

        Qor::Ptr<iHostImage> cached =
            QorImage::Cache::instance().loadIcon(fromUTF8(name.c_str()), twice ? 2 : 1);
        ASSERT_TRUE(cached);
        EXPECT_EQ(cached->width(), size);
        EXPECT_EQ(cached->scale(), twice ? 2.0 : 1.0);
    }
    // Both files are the same picture, so the larger covers four times the area.
    EXPECT_NEAR(alphaSum[1] / 4, alphaSum[0], alphaSum[0] * 0.15);
}

INSTANTIATE_TEST_SUITE_P(Icons, ShippedIcon, ::testing::ValuesIn(shippedIcons()),
                         [](auto const& info) {
                             std::string name = info.param;
                             for (char& c : name)
                                 c = c == '-' ? '_' : c;
                             return name;
                         });

// A private icons folder, named by PANELKIT_ICONS for the test's length.
class IconFolder : public ::testing::Test {
protected:
    IconFolder() { environment_.set("PANELKIT_ICONS", folder_.path().string()); }

    // Writes a square PNG of the size into the folder.
    void writeIcon(char const* file, int size) {
        HostImage image(size, size);
        image.fill(Box(0, 0, size / 2, size / 2), NormalisedRGB(0.2f, 0.4f, 0.9f, 1.0f));
        ASSERT_TRUE(image.savePng(folder_.file(file).c_str()));
    }
    static QorImage::Cache& cache() { return QorImage::Cache::instance(); }

    TemporaryDirectory folder_;
    ScopedEnvironment environment_;
};

TEST_F(IconFolder, LoadIconTakesTheSharpFileAboveScaleOneElseThePlainOne) {
    writeIcon("dot.png", 16);
    writeIcon("dot-2x.png", 32);
    writeIcon("flat.png", 16);

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

    Qor::Ptr<iHostImage> flat = cache().loadIcon(L"flat", 2);
    ASSERT_TRUE(flat);
    EXPECT_EQ(flat->width(), 16);
    EXPECT_EQ(flat->scale(), 1.0);
    EXPECT_FALSE(cache().loadIcon(L"absent", 2));
}

TEST_F(IconFolder, CacheKeepsItsFirstAnswerForAPathEvenWhenItWasNothing) {
    writeIcon("shared.png", 16);
    LightweightString<wchar_t> const shared = fromUTF8(folder_.file("shared.png").c_str());
    Qor::Ptr<iHostImage> first = cache().get(shared);
    ASSERT_TRUE(first);
    EXPECT_FALSE(cache().get(fromUTF8(folder_.file("late.png").c_str())));
    EXPECT_FALSE(cache().loadIcon(L"later", 2));

    writeIcon("shared.png", 24);
    writeIcon("late.png", 16);
    writeIcon("later.png", 16);
    writeIcon("later-2x.png", 32);
    EXPECT_EQ(cache().get(shared), first);
    EXPECT_EQ(cache().loadIcon(L"shared", 1), first);
    EXPECT_FALSE(cache().get(fromUTF8(folder_.file("late.png").c_str())));
    EXPECT_FALSE(cache().loadIcon(L"later", 2));
    EXPECT_FALSE(cache().loadIcon(L"later", 1));
}

TEST_F(IconFolder, ThreadsAskingAtOnceShareOneImage) {
    writeIcon("busy.png", 16);
    std::vector<Qor::Ptr<iHostImage>> answers(8);
    std::vector<std::thread> threads;
    for (auto& answer : answers)
        threads.emplace_back([&answer] { answer = cache().loadIcon(L"busy", 1); });
    for (auto& thread : threads)
        thread.join();
    ASSERT_TRUE(answers[0]);
    for (auto const& answer : answers)
        EXPECT_EQ(answer, answers[0]);
}

} // namespace
