#include "glib/Border.h"

#include "glob/UifStd.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

struct ScaleFixture : testing::TestWithParam<double> {
    void SetUp() override { UifStd::setScale(GetParam()); }
    void TearDown() override { UifStd::setScale(0.0); }
};

struct TypeSize {
    Border::eType type;
    std::function<int()> size;
    char const* name;
};

using BorderSizes = ScaleFixture;

TEST_P(BorderSizes, EachTypeHasItsMeasure) {
    auto const indent = [] { return int(UifStd::getIndentWidth()); };
    auto const gap = [] { return int(UifStd::getWidgetGap()); };
    TypeSize const cases[] = {
        {Border::None, [] { return 0; }, "none"},
        {Border::Line, indent, "line"},
        {Border::Attached, indent, "attached"},
        {Border::Curved, [&] { return 2 * gap(); }, "curved"},
        {Border::Inset, indent, "inset"},
        {Border::Bevelled, [&] { return 2 * indent(); }, "bevelled"},
        {Border::Panel, [&] { return 2 * gap(); }, "panel"},
        {Border::RoundedIndented, [&] { return 2 * indent(); }, "rounded indented"},
        {Border::Narrow, gap, "narrow"},
    };
    for (TypeSize const& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(Border::calcSize(c.type), c.size());
        EXPECT_EQ(Border(c.type, 0, Border::AllEdges).getSize(), c.size());
        int const visible = std::min(c.size(), 2 * indent());
        EXPECT_EQ(Border::calcVisibleSize(c.type), visible);
        EXPECT_EQ(Border(c.type, 0, Border::AllEdges).getVisibleSize(), visible);
    }
    EXPECT_EQ(Border::calcSize(Border::Panel), 8 * GetParam()) << "twice a gap of 4 per scale";
}

TEST_P(BorderSizes, SetSizeWinsOverTheType) {
    Border const wide(Border::Line, 13, Border::AllEdges);
    EXPECT_EQ(wide.getSize(), 13);
    EXPECT_EQ(wide.getVisibleSize(), Border::calcVisibleSize(Border::Line));

    Border const thin(Border::Panel, 1, Border::AllEdges);
    EXPECT_EQ(thin.getSize(), 1);
    EXPECT_EQ(thin.getVisibleSize(), 1) << "the drawn edge never exceeds the border";
}

INSTANTIATE_TEST_SUITE_P(AtScales, BorderSizes, testing::Values(1.0, 2.0));

TEST(BorderConstruction, FieldsAndTypeChange) {
    Border border(Border::Curved, 5, Border::Left | Border::Right);
    EXPECT_EQ(border.size, 5);
    EXPECT_EQ(border.type, Border::Curved);
    EXPECT_EQ(border.edges, 12u);
    EXPECT_EQ(border.style, 0u);
    border.setType(Border::RoundedIndented);
    EXPECT_EQ(border.type, 7);

    Border const margin(6);
    EXPECT_EQ(margin.getSize(), 6);
    EXPECT_EQ(margin.getVisibleSize(), 0) << "a plain margin draws nothing";
    EXPECT_EQ(margin.edges, 15u);

    EXPECT_EQ(Border().getSize(), 0);
}

} // namespace
