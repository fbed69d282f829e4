#pragma once

// A push button with a title on its left, as a row of a form shows it. The button's messages
// reach the owner of the whole row, with the button as their sender.

#include "buttons/PushButton.h"
#include "panels/TitleGlob.h"

class TitleButton : public TitleGlob {
public:
    struct InitArgs : TitleGlob::InitArgs {
        InitArgs() = default;
        InitArgs(LightweightString<wchar_t> const& title_, UIString const& label_,
                 WidgetCallback const& callback_, unsigned short w, unsigned short h)
            : TitleGlob::InitArgs(title_, w, h), label(label_), callback(callback_) {}
        UIString label;
        WidgetCallback callback;
    };

    explicit TitleButton(InitArgs const& args);

    char const* idstring() const override { return "TitleButton"; }
    // The title and the button's text both take the font.
    void setFont(Glib::FontDesc const& font) override;
    int handleMessageEvent(LightweightString<char> name, Glob* sender) override;

    Button* getBtn() const;
    Button::button_state getState() const;
    void setString(UIString const& text, bool redraw);
    // A drop-down look: the flat menu style with its reveal indicator.
    void setHasDropDownAppearance(bool dropDown);

private:
    PushButton* button_ = nullptr;
};
