#include "buttons/TextLabel.h"

#include "LabelWindow.h"
#include "glob/UifStd.h"
#include "support/ColourMatch.h"
#include "testing/UiTestDriver.h"

#include <gtest/gtest.h>

namespace {

int widthOf(wchar_t const* text, unsigned style = 0) {
    Glib::FontDesc font = UifStd::getFont();
    font.style = style;
    return Glib::loadFont(font)->measure(text).x;
}

// Holds the text and tells every widget of each change.
class TextAdaptor : public ValAdaptorBase<LightweightString<wchar_t>> {
public:
    LightweightString<wchar_t> getDataValue() override { return value; }
    int requestSetNewDataValue(LightweightString<wchar_t> const& v, DataChangeType) override {
        value = v;
        setNewWidgetValue(value, Redraw);
        return 1;
    }
    LightweightString<wchar_t> value = L"Bound";
};

struct Labels : ::testing::Test {
    UiTestDriver driver;
    RecordingGlob* window = makeWindow({100, 100}, {400, 200});
};

} // namespace

TEST_F(Labels, ALabelTakesTheRowHeightAndTheWidthOfWhatItShowsNotOfItsMarkup) {
    auto* label = addLabel<TextLabel>(window, TextLabel::InitArgs(L"Volume"));
    EXPECT_EQ(label->width(), widthOf(L"Volume"));
    EXPECT_EQ(label->height(), UifStd::getRowHeight());
    EXPECT_FALSE(label->isHTML());
    label->setText(L"<b>Bold</b>");
    EXPECT_TRUE(label->isHTML());
    EXPECT_EQ(label->width(), widthOf(L"Bold", Glib::FontDesc::Bold));
    label->setText(L"<p>one</p><p>a longer line</p>");
    EXPECT_EQ(label->width(), widthOf(L"a longer line"));
}

TEST_F(Labels, AFixedSizeStaysWhateverTheTextAndARightAlignedTextEndsAtTheRightEdge) {
    TextLabel::InitArgs args(L"MMMM", 200, 22);
    args.fixedSize = true;
    args.alignment = TextAlignRight;
    auto* label = addLabel<TextLabel>(window, args);
    driver.processEvents();
    int firstInk = -1;
    for (int x = 0; x < 200 && firstInk < 0; ++x)
        if (!nearColour(driver.pixel(label, {x, 11}), label->getCol()))
            firstInk = x;
    EXPECT_GT(firstInk, 200 - widthOf(L"MMMM") - 2);
    label->fixSize(120, 24);
    label->setText(L"A much longer text than the label has room for");
    EXPECT_EQ(label->width(), 120);
    EXPECT_EQ(label->height(), 24);
}

TEST_F(Labels, ABoundLabelShowsItsAdaptorsTextAndFitsItsWidthToIt) {
    auto* label = addLabel<TextLabel>(window, TextLabel::InitArgs(L""));
    auto adaptor = Qor::makePtr<TextAdaptor>();
    label->setDataAdaptor(adaptor);
    EXPECT_EQ(label->getText(), L"Bound");
    EXPECT_EQ(label->requestSetNewDataValue(L"Bound again", NewText), 1);
    EXPECT_EQ(label->width(), widthOf(L"Bound again"));
}
