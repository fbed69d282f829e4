#include "buttons/RSCheckbox.h"

#include "glib/CanvasRenderer.h"
#include "glib/DrawingHelpers.h"
#include "glob/UifStd.h"

void RSCheckbox::drawBackground() {
    CanvasRenderer& r = canvas()->renderer();
    Palette const& p = getPalette();
    Colour const col = faceColour();
    fillRect(face(), col);
    Box const box = getTickExtents();
    Glib::EllipseDescription well;
    well.box = box;
    well.colour = fromColour(p.childWindow(ChildWindowInset));
    r.renderPrimitive(well);
    well.filled = false;
    well.colour = fromColour(p.scale(col, 0.55));
    r.renderPrimitive(well);
    if (getState()) {
        Glib::EllipseDescription dot;
        dot.box = box.inset(box.width() / 4);
        dot.colour = fromColour(getTickColour());
        if (!dot.box.isEmpty())
            r.renderPrimitive(dot);
    }
    if (get_kbd_focus() == this)
        Glib::drawFocusRect(r, face().inset(UifStd::getIndentWidth()),
                            Colour::mix(col, p.text(TextNormal), 0.5));
    drawText();
}
