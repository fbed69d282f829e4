#include "glib/Region.h"
#include "glib/HostImage.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace {

Qor::Ptr<iRegion> regionOf(std::vector<Box> const& boxes) {
    Glib::RegionBuilder builder(boxes.size());
    for (Box const& b : boxes)
        builder.appendRect(b);
    return builder.create();
}

int area(Qor::Ptr<iRegion> const& region) {
    int total = 0;
    for (Box const& b : region->boxes())
        total += b.width() * b.height();
    return total;
}

// Every point of the grid is in `region` exactly when `expected` says so.
::testing::AssertionResult matchesEverywhere(Qor::Ptr<iRegion> const& region,
                                             std::function<bool(XY<int>)> const& expected) {
    for (int y = -5; y < 45; ++y)
        for (int x = -5; x < 45; ++x)
            if (region->contains(XY<int>(x, y)) != expected(XY<int>(x, y)))
                return ::testing::AssertionFailure() << "differs at (" << x << ", " << y << ")";
    return ::testing::AssertionSuccess();
}

TEST(RegionBuilding, RegionIsTheUnionOfTheBoxesAppendedAndMovesWhole) {
    Qor::Ptr<iRegion> region = regionOf({Box(0, 0, 10, 10), Box(5, 5, 20, 15), Box(30, 0, 31, 1),
                                         Box(5, 20, 5, 30), Box(5, 30, 10, 25)});
    EXPECT_EQ(region->bounds(), Box(0, 0, 31, 15));
    EXPECT_TRUE(region->contains(XY<int>(19, 14)));
    EXPECT_TRUE(region->contains(XY<int>(30, 0)));
    EXPECT_FALSE(region->contains(XY<int>(20, 14)));
    EXPECT_FALSE(region->contains(XY<int>(2, 12)));
    // The boxes handed back don't overlap: their areas add up to the region's.
    EXPECT_EQ(area(region), 100 + 150 - 25 + 1);
    EXPECT_TRUE(regionOf({Box(5, 5, 5, 10)})->isEmpty());
    Qor::Ptr<iRegion> moved = region->translated(3, -2);
    EXPECT_EQ(moved->bounds(), Box(3, -2, 34, 13));
    EXPECT_TRUE(moved->contains(XY<int>(22, 12)));
}

TEST(RegionOperations, UnionIntersectionAndDifferenceAgreeWithTheirPoints) {
    Box const a1(0, 0, 20, 20), a2(25, 25, 40, 40), b1(10, 10, 30, 30);
    Qor::Ptr<iRegion> a = regionOf({a1, a2});
    Qor::Ptr<iRegion> b = regionOf({b1});
    auto inA = [&](XY<int> p) { return a1.contains(p) || a2.contains(p); };
    auto inB = [&](XY<int> p) { return b1.contains(p); };
    EXPECT_TRUE(matchesEverywhere(region_union(a, b), [&](XY<int> p) { return inA(p) || inB(p); }));
    EXPECT_TRUE(
        matchesEverywhere(region_intersect(a, b), [&](XY<int> p) { return inA(p) && inB(p); }));
    EXPECT_TRUE(
        matchesEverywhere(region_subtract(a, b), [&](XY<int> p) { return inA(p) && !inB(p); }));
    EXPECT_TRUE(
        matchesEverywhere(region_subtract(b, a), [&](XY<int> p) { return inB(p) && !inA(p); }));
    // The operands are left as they were.
    EXPECT_TRUE(matchesEverywhere(a, inA));
}

TEST(RegionOperations, EqualityIgnoresHowTheRegionWasMadeAndTakesNullAsEmpty) {
    Qor::Ptr<iRegion> whole = regionOf({Box(0, 0, 10, 10)});
    EXPECT_TRUE(region_eq(whole, regionOf({Box(0, 0, 5, 5), Box(5, 0, 10, 5), Box(0, 5, 10, 10)})));
    EXPECT_FALSE(region_eq(whole, regionOf({Box(0, 0, 10, 11)})));
    EXPECT_TRUE(region_eq(Qor::Ptr<iRegion>(), regionOf({})));
    EXPECT_FALSE(region_eq(Qor::Ptr<iRegion>(), whole));
    EXPECT_TRUE(region_intersect(whole, Qor::Ptr<iRegion>())->isEmpty());
    EXPECT_TRUE(region_eq(region_union(Qor::Ptr<iRegion>(), whole), whole));
}

TEST(CurvedRegions, MaskedCornersAreCutRowByRowAsTheInsetTableSays) {
    XY<int> const size(60, 40);
    struct Corner {
        unsigned bit;
        bool top, left;
    } const corners[] = {{1, true, true}, {2, true, false}, {4, false, true}, {8, false, false}};
    for (eCurvedRegionType type : {CurvedRegionRounded, CurvedRegionChamfered}) {
        // A corner of at most nine rows that shrinks to nothing.
        EXPECT_GT(curvedRegionInset(0, type), 1);
        EXPECT_EQ(curvedRegionInset(9, type), 0);
        // Between them the two masks cut and keep every corner.
        for (unsigned mask : {5u, 10u}) {
            Qor::Ptr<iRegion> region = makeCurvedRegion(size, mask, type);
            EXPECT_EQ(region->bounds(), Box(0, 0, 60, 40));
            for (Corner const& c : corners)
                for (int row = 0; row < 12; ++row) {
                    SCOPED_TRACE(testing::Message()
                                 << mask << " corner " << c.bit << " row " << row);
                    int cut = (mask & c.bit) != 0 ? curvedRegionInset(row, type) : 0;
                    int y = c.top ? size.y - 1 - row : row;
                    // Columns counted from the corner's side.
                    auto column = [&](int i) { return XY<int>(c.left ? i : size.x - 1 - i, y); };
                    EXPECT_TRUE(cut == 0 || !region->contains(column(cut - 1)));
                    EXPECT_TRUE(region->contains(column(cut)));
                }
        }
    }
}

TEST(CurvedRegions, SmallPanelsKeepTheirMiddle) {
    Qor::Ptr<iRegion> region = makeCurvedRegion(XY<int>(5, 5), 15, CurvedRegionRounded);
    for (int y = 0; y < 5; ++y)
        EXPECT_TRUE(region->contains(XY<int>(2, y))) << "row " << y;
    EXPECT_FALSE(region->contains(XY<int>(0, 0)));
    EXPECT_TRUE(makeCurvedRegion(XY<int>(0, 10), 15, CurvedRegionRounded)->isEmpty());
}

TEST(RegionFromImage, PixelsOfAtLeastHalfAlphaAreIn) {
    auto image = Qor::makePtr<HostImage>(8, 6);
    image->fill(Box(1, 1, 4, 3), NormalisedRGB(1, 0, 0, 1));
    image->setPixel(6, 5, NormalisedRGB(0, 0, 1, 0.6f));
    image->setPixel(7, 0, NormalisedRGB(0, 1, 0, 0.4f));
    Qor::Ptr<iRegion> region = glib_buildRegionFromImage(image);
    EXPECT_TRUE(region_eq(region, regionOf({Box(1, 1, 4, 3), Box(6, 5, 7, 6)})));
    // The rows are merged into runs, and equal runs into one box.
    EXPECT_EQ(region->boxes().size(), 2u);
    EXPECT_TRUE(glib_buildRegionFromImage(Qor::Ptr<iHostImage>())->isEmpty());
}

} // namespace
