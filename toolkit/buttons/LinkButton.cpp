#include "buttons/LinkButton.h"

#include "glob/UifStd.h"
#include "os/OS.h"

LinkButton::LinkButton(InitArgs const& args) : Button(args), link_(args.link) {
    setStyle(Flat);
    setHighlightOnMouseOver(false);
    setAlignment(AlignLeft);
    Glib::FontDesc font = getFont().isEmpty() ? UifStd::getFont() : getFont();
    font.style |= Glib::FontDesc::Underline;
    setFont(font);
    setCallback(WidgetCallback(Qor::makeCallback(this, &LinkButton::visitLink),
                               args.callback.message(), args.callback.context()));
}

Colour LinkButton::textColour() const {
    return isActive() ? getPalette().selection(SelectionNormal) : Button::textColour();
}

int LinkButton::visitLink(NotifyMsg const&) {
    if (!link_.empty())
        OS()->openURL(link_);
    return 0;
}
