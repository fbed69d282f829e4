#pragma once

// A titled group that folds up to its title row and opens again, by its size button or by a
// click on the title row. A parent hears of each fold through handleChildResize, so that it can
// move what lies below.
//
//   left press on the title row        used up; nothing changes yet
//   release on the title row           folds an open group, opens a folded one
//   release anywhere else              nothing: press and release must both be on the row
//   size button pressed                the same as a click on the row
//   size button inactive               the row takes no clicks; the pointer stays an arrow

#include "panels/WidgetGroupEx.h"

class SizeButton;

class MinimizableGroup : public WidgetGroupEx {
public:
    struct InitArgs : WidgetGroupEx::InitArgs {
        InitArgs() = default;
        InitArgs(UIString const& title_, unsigned short w, unsigned short h)
            : WidgetGroupEx::InitArgs(title_, w, h) {}
        bool sizeButton = true;
    };

    MinimizableGroup(LightweightString<wchar_t> const& title, unsigned short w, unsigned short h,
                     Canvas* canvas = nullptr);
    MinimizableGroup(LightweightString<wchar_t> const& title, bool sizeButton,
                     GlobCreationInfo const& info);
    explicit MinimizableGroup(InitArgs const& args);

    // Virtual operations added here.
    // The title row, where a click folds and opens the group.
    virtual bool isCoordinateInSizeToggleArea(XY<int> const& point) const;
    // Whether folding may hide and show the widget: not the size button, not the title.
    virtual bool widgetVisibilityCanChange(Glob const* widget) const;

    char const* idstring() const override { return "MinimizableGroup"; }
    // Folds (SizeSmall) or opens (SizeNormal) the group.
    void setSize(eSizeState state);
    bool isFolded() const { return sizeState_ == SizeSmall; }
    // The height to go back to while folded; the folded height while open.
    int getStoredHeight() const { return storedHeight_; }
    SizeButton* getSizeButton() const { return sizeButton_; }
    // Allows or stops folding and opening by the user.
    void setSizeChangeEnabled(bool enabled);

    void handleFlipSize() override;
    void handleWidgetAdded(WidgetDetails const& details) override;
    void handleChildResize(Glob const* child, XY<int> const& change) override;
    void setMinSize(unsigned short w, unsigned short h) override;
    void setBorderStyle(Border::eType type) override;
    int handleMouseEvent(Event const& event) override;
    MouseCursorID contextCursor(XY<int> const& rootPos) override;
    void setGroupTitleColour(Colour const& colour) override;
    void setCol(Colour const& colour, bool redraw) override;

protected:
    void placeTitleWidget() override;
    // Shows every widget whose visibility can change, or hides all but the first two.
    void mapWidgets(bool show);

private:
    void init(bool withSizeButton);
    void placeSizeButton();
    bool sizeButtonActive() const;

    SizeButton* sizeButton_ = nullptr;
    int storedHeight_ = 0;
};
