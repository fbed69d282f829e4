#pragma once

// A label beside a control: the title on the left, in a column of its own width or the text's,
// and the control on the right taking the rest. A derived class supplies the control;
// TitledGlob<T> does so for any one control class.

#include "panels/StandardPanel.h"

class TitleGlob : public StandardPanel {
public:
    struct InitArgs : StandardPanel::InitArgs {
        InitArgs() = default;
        InitArgs(LightweightString<wchar_t> const& title_, unsigned short w, unsigned short h)
            : StandardPanel::InitArgs(w, h), title(title_) {}
        LightweightString<wchar_t> title;
        // The width of the title's column; 0 fits it to the text.
        int titleWidth = 0;
    };

    explicit TitleGlob(InitArgs const& args);

    char const* idstring() const override { return "TitleGlob"; }
    void setFont(Glib::FontDesc const& font) override;
    using StandardPanel::setTitle;
    void setTitle(LightweightString<wchar_t> const& title);
    LightweightString<wchar_t> const& getTitle() const { return title_; }
    // An unset colour follows the palette's text.
    void setLabelColour(Colour const& colour);
    // 0 fits the column to the text.
    void setTitleWidth(int width);
    // The width that the title's column takes.
    int calcTitleAreaWidth() const;
    // Within its column; right by default, against the control.
    void setTitleAlignment(TextAlignment alignment);
    // A thin etched line between the title and the control.
    void setShowSeparator(bool show);
    Glob* getChild() const;
    // The palette, activity and focus reach the control too.
    void setPalette(Palette const& palette) override;
    void setActive(bool active, eRedrawFlag redraw) override;
    void claimKbdFocus() override;
    void resize(double w, double h) override;
    void setBorderStyle(Border::eType type) override;
    // Whether the event came from this widget or its control.
    bool isEventSource(Event const& event) const;
    void drawBackground() override;

protected:
    // The control: made a child here, on the right, and given the room the title leaves.
    void setChild(Glob* child);

private:
    void layoutChild();
    Qor::Ptr<iFont> labelFont() const;

    Glob* child_ = nullptr;
    int titleWidth_ = 0;
    int alignment_ = TextAlignRight;
    bool separator_ = false;
    Colour labelColour_;
    LightweightString<wchar_t> title_;
    IdStamp childStamp_ = IdStamp::null();
};

// A TitleGlob whose control is a T, made from the T::InitArgs given.
template <class T>
class TitledGlob : public TitleGlob {
public:
    struct InitArgs : TitleGlob::InitArgs {
        InitArgs() = default;
        InitArgs(LightweightString<wchar_t> const& title_, typename T::InitArgs const& child_,
                 unsigned short w, unsigned short h)
            : TitleGlob::InitArgs(title_, w, h), child(child_) {}
        typename T::InitArgs child;
    };

    explicit TitledGlob(InitArgs const& args) : TitleGlob(args) {
        typename T::InitArgs childArgs = args.child;
        childArgs.width = 1;
        if (childArgs.height == 0)
            childArgs.height = args.height;
        widget_ = createChild<T>(childArgs, RightCentre(0, 0));
        setChild(widget_);
    }

    T* getWidget() const { return getChild() != nullptr ? widget_ : nullptr; }

private:
    T* widget_ = nullptr;
};
