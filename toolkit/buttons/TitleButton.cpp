#include "buttons/TitleButton.h"

TitleButton::TitleButton(InitArgs const& args) : TitleGlob(args) {
    PushButton::InitArgs buttonArgs(args.label, args.callback, 1, args.height);
    button_ = createChild<PushButton>(buttonArgs, RightCentre(0, 0));
    setChild(button_);
}

void TitleButton::setFont(Glib::FontDesc const& font) {
    if (Button* button = getBtn())
        button->setFont(font);
    TitleGlob::setFont(font);
}

// The button tells its parent, this row; the row passes the message on to its own parent as
// though the button had sent it there.
int TitleButton::handleMessageEvent(LightweightString<char> name, Glob* sender) {
    if (sender == nullptr || sender != getBtn() || parent() == nullptr)
        return TitleGlob::handleMessageEvent(name, sender);
    Event event;
    event.init();
    event.type = EventCode::Message;
    event.keyCode(getBtn()->getModifiers());
    event.message(name);
    event.handler = parent();
    event.senderCanvas = sender->canvas();
    event_send(&event, false);
    return 1;
}

Button* TitleButton::getBtn() const {
    return getChild() != nullptr ? button_ : nullptr;
}

Button::button_state TitleButton::getState() const {
    Button* button = getBtn();
    return button != nullptr ? button->getState() : Button::up;
}

void TitleButton::setString(UIString const& text, bool redraw) {
    Button* button = getBtn();
    if (button == nullptr)
        return;
    button->setString(text);
    if (redraw)
        button->update();
}

void TitleButton::setHasDropDownAppearance(bool dropDown) {
    Button* button = getBtn();
    if (button == nullptr)
        return;
    button->setStyle(dropDown ? Button::MenuStyle : Button::Standard);
    button->update();
}
