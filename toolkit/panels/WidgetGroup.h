#pragma once

// A titled box of controls: a panel with a rounded, indented border whose title sits in the title
// row at the top. Making the group inactive makes every control in it inactive too.

#include "panels/StandardPanel.h"

class WidgetGroup : public StandardPanel {
public:
    struct InitArgs : StandardPanel::InitArgs {
        InitArgs() = default;
        InitArgs(UIString const& title_, unsigned short w, unsigned short h)
            : StandardPanel::InitArgs(w, h), title(title_) {}
        UIString title;
    };

    explicit WidgetGroup(InitArgs const& args);
    WidgetGroup(UIString const& title, GlobCreationInfo const& info);

    // Virtual operations added here. An empty title removes the title row's text.
    virtual void setGroupTitle(LightweightString<wchar_t> const& title, bool bold, bool redraw);
    virtual void setWidgetsActive(bool active, eRedrawFlag redraw);

    char const* idstring() const override { return "WidgetGroup"; }
    // The group itself, then each control in it.
    void setActive(bool active, eRedrawFlag redraw) override;
    // An edited title becomes the group's title.
    void handleTitleChange() override;
    // The rounded, indented face goes beneath the controls, so the border adds nothing over them.

    LightweightString<wchar_t> const& getGroupTitle() const { return groupTitle_; }
    bool isTitleBold() const { return boldTitle_; }
    // The group's font if one was given, else the subheading font; bold as the group says.
    Glib::FontDesc getTitleFont() const;

protected:
    void init(UIString const& title);

private:
    LightweightString<wchar_t> groupTitle_;
    bool boldTitle_ = false;
};
