#include "buttons/IconCache.h"

#include "IconFolder.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

bool near(NormalisedRGB const& a, NormalisedRGB const& b) {
    return std::abs(a.r - b.r) < 0.02 && std::abs(a.g - b.g) < 0.02 && std::abs(a.b - b.b) < 0.02 &&
           std::abs(a.a - b.a) < 0.02;
}

NormalisedRGB centre(IconCache::CachedImage const& entry) {
    return entry.image->pixel(entry.image->width() / 2, entry.image->height() / 2);
}

IconCache& cache() {
    return IconCache::instance();
}

} // namespace

TEST(IconCache, EachFileIsReadOnceUntilTheScaleChangesOrTheCacheGoesAndThe2xFileIsPreferred) {
    IconFolder icons;
    icons.write("dot.png", 8, red);
    icons.write("dot-2x.png", 16, blue);
    icons.write("solo.png", 8, red);

    IconCache::CachedImage first = cache().load(L"dot.png");
    ASSERT_TRUE(first.image);
    EXPECT_EQ(first.image->width(), 8);
    EXPECT_EQ(first.scale, 1.0f);
    EXPECT_TRUE(near(centre(first), red));

    icons.write("dot.png", 8, green);
    EXPECT_EQ(cache().load(L"dot.png").image.get(), first.image.get());
    EXPECT_GT(centre(cache().load(L"dot.png", IconCache::Plain, 4)).r, 0.9f);

    UifStd::setScale(2);
    IconCache::CachedImage doubled = cache().load(L"dot.png");
    ASSERT_TRUE(doubled.image);
    EXPECT_EQ(doubled.scale, 2.0f);
    EXPECT_EQ(doubled.image->width(), 16);
    EXPECT_TRUE(near(centre(doubled), blue));
    // Without a 2x file the plain one is read at scale one.
    IconCache::CachedImage solo = cache().load(L"solo.png");
    ASSERT_TRUE(solo.image);
    EXPECT_EQ(solo.scale, 1.0f);
    EXPECT_EQ(solo.image->width(), 8);

    UifStd::setScale(1);
    EXPECT_TRUE(near(centre(cache().load(L"dot.png")), green));
    icons.write("dot.png", 8, red);
    Loki::DeletableSingleton<IconCache>::GracefulDelete();
    EXPECT_TRUE(near(centre(cache().load(L"dot.png")), red));
}

TEST(IconCache, AHeightShrinksOnlyLargerImagesInInterfacePixels) {
    IconFolder icons;
    icons.write("big.png", 16, red);
    icons.write("big-2x.png", 32, red);

    EXPECT_EQ(cache().load(L"big.png", IconCache::Plain, 8).image->height(), 8);
    IconCache::CachedImage same = cache().load(L"big.png", IconCache::Plain, 24);
    EXPECT_EQ(same.image.get(), cache().load(L"big.png").image.get());

    UifStd::setScale(2);
    IconCache::CachedImage shrunk = cache().load(L"big.png", IconCache::Plain, 8);
    EXPECT_EQ(shrunk.scale, 2.0f);
    EXPECT_EQ(shrunk.image->height(), 16);
}

TEST(IconCache, InactiveAndRoundedVariantsAreMadeOnceAndKeptUnderTheirOwnKeys) {
    IconFolder icons;
    icons.write("tile.png", 16, red);
    IconCache::CachedImage plain = cache().load(L"tile.png");
    IconCache::CachedImage inactive = cache().load(L"tile.png", IconCache::Inactive, 0);
    IconCache::CachedImage rounded = cache().load(L"tile.png", IconCache::Rounded, 0);
    IconCache::CachedImage both =
        cache().load(L"tile.png", IconCache::Inactive | IconCache::Rounded, 0);
    ASSERT_TRUE(inactive.image && rounded.image && both.image);

    EXPECT_LT(centre(inactive).a, 0.9f);
    EXPECT_GT(plain.image->pixel(0, 0).a, 0.9f);
    EXPECT_LT(rounded.image->pixel(0, 0).a, 0.1f);
    EXPECT_GT(centre(rounded).a, 0.9f);
    EXPECT_LT(both.image->pixel(0, 0).a, 0.1f);
    EXPECT_LT(centre(both).a, 0.9f);

    icons.write("tile.png", 16, green);
    EXPECT_EQ(cache().load(L"tile.png", IconCache::Inactive, 0).image.get(), inactive.image.get());
    EXPECT_EQ(cache().load(L"tile.png", IconCache::Rounded, 0).image.get(), rounded.image.get());
}

TEST(IconCache, RecolouredIconsAreKeptPerColourUntilTheScaleChanges) {
    IconFolder icons;
    icons.write("mark.png", 8, red, true);
    Qor::Ptr<iHostImage> blueMark = cache().createRecolouredIcon(L"mark.png", Colour(0, 0, 1));
    ASSERT_TRUE(blueMark);
    EXPECT_TRUE(near(blueMark->pixel(1, 4), blue));
    EXPECT_LT(blueMark->pixel(6, 4).a, 0.1f);
    EXPECT_EQ(cache().createRecolouredIcon(L"mark.png", Colour(0, 0, 1)).get(), blueMark.get());
    Qor::Ptr<iHostImage> greenMark = cache().createRecolouredIcon(L"mark.png", Colour(0, 1, 0));
    EXPECT_NE(greenMark.get(), blueMark.get());
    EXPECT_TRUE(near(greenMark->pixel(1, 4), green));

    cache().setScaleFactor(3.0f);
    cache().setScaleFactor(1.0f);
    EXPECT_NE(cache().createRecolouredIcon(L"mark.png", Colour(0, 0, 1)).get(), blueMark.get());
}

TEST(IconCache, AMissingIconGivesEmptyImagesOfEveryKind) {
    IconFolder icons;
    EXPECT_FALSE(cache().load(L"absent.png").image);
    EXPECT_FALSE(cache().load(L"absent.png", IconCache::Inactive | IconCache::Rounded, 12).image);
    EXPECT_FALSE(cache().createRecolouredIcon(L"absent.png", Colour(1, 0, 0)));
}
