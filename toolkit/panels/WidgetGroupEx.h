#pragma once

// A titled group that lays its controls out below the title row: the title is text, a widget (a
// check box, say) or both; a line may separate it from the controls; the group can grow to fit
// what is added to it, and indent its controls.

#include "panels/WidgetGroup.h"

class WidgetGroupEx : public WidgetGroup {
public:
    enum eSeparatorStyle : int {
        // A frame, and an etched line under the title row.
        SeparatorEtched = 0,
        // A frame and no line.
        SeparatorNone = 1,
        // No frame: a heading with an etched line under it, the controls below it in the open.
        SeparatorOpen = 2,
    };

    struct InitArgs : WidgetGroup::InitArgs {
        InitArgs() = default;
        InitArgs(UIString const& title_, unsigned short w, unsigned short h)
            : WidgetGroup::InitArgs(title_, w, h) {}
        eSeparatorStyle separatorStyle = SeparatorEtched;
        bool autoResize = false;
        bool editableTitle = false;
    };

    explicit WidgetGroupEx(InitArgs const& args);
    explicit WidgetGroupEx(WidgetGroup::InitArgs const& args);

    // The usual indent of controls under a title.
    static int childXOffset();
    // The height of a group holding `rows` rows of controls.
    static int calcHeightForRows(int rows, int rowHeight, int gap, eSeparatorStyle style);

    // Virtual operations added here.
    using WidgetGroup::setGroupTitle;
    virtual void setGroupTitle(LightweightString<wchar_t> const& title, bool redraw);
    virtual void setGroupTitleColour(Colour const& colour);
    virtual void setBoldText(bool bold);
    virtual void setChildrenOffset(int offset);
    void setFont(Glib::FontDesc const& font) override;

    // The title: a widget of the caller's, already a child or made one here, placed in the title
    // row as the alignment says; and a text, editable or not. Either may be left out (null, empty).
    void setWidget(Glob* widget, LightweightString<wchar_t> const& title,
                   TextAlignment alignment = TextAlignLeft, bool editable = false);
    Glob* getTitleWidget() const;
    void setSeparatorStyle(eSeparatorStyle style);
    eSeparatorStyle getSeparatorStyle() const { return separatorStyle_; }
    void setAutoResize(bool autoResize) { autoResize_ = autoResize; }
    bool isAutoResize() const { return autoResize_; }
    int getChildrenOffset() const { return childOffset_; }
    // With auto-resize on, grows the group downward until the widget clears the bottom border.
    void resizeToAccomodateWidget(WidgetDetails const& details);
    void resizeToAccomodateWidget(Glob* widget);
    // Activates or deactivates the title widget alone.
    void setWidgetActive(bool active, bool redraw);
    // Gives every widget in the group, nested groups' widgets included, the group's colours.
    static void recolourChildren(WidgetGroupEx* group);

    char const* idstring() const override { return "WidgetGroupEx"; }
    using StandardPanel::getOriginXY;
    XY<int> getOriginXY(eCoordinateOrigin origin) const override;
    Box getUserArea() const override;
    // The controls, not the title.
    void setWidgetsActive(bool active, eRedrawFlag redraw) override;
    void setActive(bool active, eRedrawFlag redraw) override;
    void handleWidgetAdded(WidgetDetails const& details) override;
    void resize(double w, double h) override;
    // The open style has no frame: a plain face and the line.
    void drawBackground() override;
    void drawBorder() override;
    Colour faceColour() const override;

protected:
    // The title row's height: the group's minimum height.
    int titleRowHeight() const { return getMinSize().y; }
    bool isTitle(Glob const* widget) const;
    // Puts the title widget in the title row; called when it is set and when the group resizes.
    virtual void placeTitleWidget();
    TextAlignment getTitleAlignment() const { return titleAlignment_; }

private:
    void init(InitArgs const& args);
    void drawSeparator();

    Glob* titleWidget_ = nullptr;
    int childOffset_ = 0;
    bool autoResize_ = false;
    eSeparatorStyle separatorStyle_ = SeparatorEtched;
    IdStamp titleStamp_ = IdStamp::null();
    TextAlignment titleAlignment_ = TextAlignLeft;
};
