#include "buttons/ColRect.h"

#include "qor/UTF8.h"

#include <locale>
#include <sstream>

ColRect::ColRect(InitArgs const& args) : ColourSwatch(args) {
    show(args.value, NoRedraw);
}

void ColRect::setNewWidgetValue(ColourData& value, eRedrawFlag redraw) {
    show(value, redraw);
}

void ColRect::show(ColourData const& value, eRedrawFlag redraw) {
    value_ = value;
    setColour(Colour(value.getRed(), value.getGreen(), value.getBlue()), value.getAlpha(), redraw);
}

// Three significant figures, with a point for the decimals whatever the locale.
UIString ColRect::contextString(XY<int> const&, CanvasClient*) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.precision(3);
    text << "R : " << value_.getRed() << ", G : " << value_.getGreen()
         << ", B : " << value_.getBlue() << ", A : " << value_.getAlpha();
    return UIString(fromUTF8(text.str().c_str()));
}

CanvasClient::TooltipDetails ColRect::getTooltipDetails(XY<int> const& rootPos,
                                                        CanvasClient* client) {
    TooltipDetails details = ColourSwatch::getTooltipDetails(rootPos, client);
    details.text = contextString(rootPos, client);
    return details;
}
