#include "ClockPage.h"

#include "glob/UifStd.h"

#include <cmath>
#include <cwchar>

ClockPage::ClockPage(GlobCreationInfo const& info) : GalleryPage(info) {
    EventTimeServer::theEventTimeServer().registerForTimeEvents(this);
}

ClockPage::~ClockPage() {
    EventTimeServer::theEventTimeServer().unregisterForTimeEvents(this);
}

int ClockPage::react(Event const& event) {
    if (event.type == EventCode::TimeServer) {
        if (std::time(nullptr) != shown_ && canvas()->isMappedToRoot())
            update();
        return 1;
    }
    return GalleryPage::react(event);
}

void ClockPage::drawWidgets() {
    shown_ = std::time(nullptr);
    std::tm now{};
    localtime_r(&shown_, &now);
    XY<int> centre(width() / 2, height() / 2 + 30);
    int radius = std::min(width(), height()) / 3;
    drawDial(centre, radius, now);
    wchar_t line[32];
    std::wcsftime(line, 32, L"%H:%M:%S", &now);
    text(line, XY<int>(centre.x, centre.y - radius - 60), Glib::FontDesc("", 40, 0),
         getPalette().headingText(), Glib::TextDescription::Centre);
    caption(L"Redrawn on the base layer's time events", XY<int>(24, top() - 30));
    Glob::drawWidgets();
}

void ClockPage::hand(XY<int> const& centre, double turns, int length, float width,
                     Colour const& colour) {
    double a = 3.14159265358979 / 2 - turns * 2 * 3.14159265358979;
    Glib::LineDescription line;
    line.from = centre;
    line.to = XY<int>(centre.x + int(length * std::cos(a)), centre.y + int(length * std::sin(a)));
    line.colour = fromColour(colour);
    line.width = width;
    renderer().renderPrimitive(line);
}

void ClockPage::drawDial(XY<int> const& centre, int radius, std::tm const& now) {
    Palette const& p = getPalette();
    Glib::EllipseDescription face;
    face.box = Box(centre.x - radius, centre.y - radius, centre.x + radius, centre.y + radius);
    face.colour = fromColour(p.window(WindowShadeLightest));
    renderer().renderPrimitive(face);
    face.filled = false;
    face.lineWidth = 3;
    face.colour = fromColour(p.window(WindowShadeDarker));
    renderer().renderPrimitive(face);
    for (int mark = 0; mark < 12; ++mark) {
        double a = mark * 3.14159265358979 / 6;
        Glib::LineDescription tick;
        tick.from = XY<int>(centre.x + int((radius - 14) * std::cos(a)),
                            centre.y + int((radius - 14) * std::sin(a)));
        tick.to = XY<int>(centre.x + int((radius - 4) * std::cos(a)),
                          centre.y + int((radius - 4) * std::sin(a)));
        tick.colour = fromColour(p.text());
        tick.width = 2;
        renderer().renderPrimitive(tick);
    }
    double minutes = now.tm_min + now.tm_sec / 60.0;
    hand(centre, (now.tm_hour % 12 + minutes / 60.0) / 12.0, radius / 2, 6, p.text());
    hand(centre, minutes / 60.0, radius * 3 / 4, 4, p.text());
    hand(centre, now.tm_sec / 60.0, radius - 10, 2, p.warning());
}
