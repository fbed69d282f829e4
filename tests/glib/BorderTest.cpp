#include "glib/Border.h"

#include "glob/UifStd.h"

#include <gtest/gtest.h>

namespace {

struct BorderSizes : testing::TestWithParam<double> {
    void SetUp() override { UifStd::setScale(GetParam()); }
    void TearDown() override { UifStd::setScale(0.0); }
};

TEST_P(BorderSizes, EachTypeHasItsMeasureAndTheDrawnEdgeIsCapped) {
    // A type's size is so many indent widths plus so many widget gaps.
    struct Case {
        Border::eType type;
        int indents, gaps;
    } const cases[] = {
        {Border::None, 0, 0},     {Border::Line, 1, 0},
        {Border::Attached, 1, 0}, {Border::Curved, 0, 2},
        {Border::Inset, 1, 0},    {Border::Bevelled, 2, 0},
        {Border::Panel, 0, 2},    {Border::RoundedIndented, 2, 0},
        {Border::Narrow, 0, 1},
    };
    int const indent = UifStd::getIndentWidth();
    for (Case const& c : cases) {
        SCOPED_TRACE(int(c.type));
        int const size = c.indents * indent + c.gaps * UifStd::getWidgetGap();
        Border const border(c.type, 0, Border::AllEdges);
        EXPECT_EQ(border.getSize(), size);
        EXPECT_EQ(border.getVisibleSize(), std::min(size, 2 * indent));
    }
    EXPECT_EQ(Border::calcSize(Border::Panel), 8 * GetParam()) << "twice a gap of 4 per scale";
}

TEST_P(BorderSizes, SetSizeWinsOverTheTypeAndCapsTheDrawnEdge) {
    Border const wide(Border::Line, 13, Border::AllEdges);
    EXPECT_EQ(wide.getSize(), 13);
    EXPECT_EQ(wide.getVisibleSize(), Border::calcVisibleSize(Border::Line));
    Border const thin(Border::Panel, 1, Border::AllEdges);
    EXPECT_EQ(thin.getSize(), 1);
    EXPECT_EQ(thin.getVisibleSize(), 1);
    Border const margin(6);
    EXPECT_EQ(margin.getSize(), 6);
    EXPECT_EQ(margin.getVisibleSize(), 0) << "a plain margin draws nothing";
}

INSTANTIATE_TEST_SUITE_P(AtScales, BorderSizes, testing::Values(1.0, 2.0));

} // namespace
