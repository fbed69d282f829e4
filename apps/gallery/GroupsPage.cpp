#include "GroupsPage.h"

#include "glib/DrawingHelpers.h"
#include "glob/UifStd.h"
#include "panels/FrameWidget.h"
#include "panels/MinimizableGroup.h"
#include "panels/TitleGlob.h"
#include "panels/WidgetGroup2.h"
#include "panels/WidgetGroup3.h"
#include "panels/WidgetGroupEx.h"

#include <algorithm>

namespace {
constexpr int margin = 24;
constexpr int groupWidth = 230;
constexpr int captionRoom = 22;
} // namespace

SampleField::SampleField(InitArgs const& args) : Glob(args), label_(args.label) {}

void SampleField::drawBackground() {
    CanvasRenderer& r = canvas()->renderer();
    Palette const& p = getPalette();
    Glib::drawIndentBox(r, p.childWindow(ChildWindowInset), face());
    Qor::Ptr<iFont> font = Glib::loadFont(UifStd::getFont());
    Glib::TextDescription t;
    t.text = Glib::fitTextToWidth(font, label_, width() - 8);
    t.font = font;
    t.colour = fromColour(isActive() ? p.text() : p.text(TextInactive));
    t.origin = XY<int>(4, getFontYOffset(height(), font));
    r.renderPrimitive(t);
}

GroupsPage::GroupsPage(GlobCreationInfo const& info) : GalleryPage(info) {
    int rowTop = top() - 30;
    addTitledGroups(rowTop);
    int second = rowTop - 170 - captionRoom - margin;
    addFoldingGroup(XY<int>(margin, second));
    addLabelledFields(XY<int>(margin + groupWidth + margin, second));
    addFrames(XY<int>(margin + 2 * (groupWidth + margin), second));
    int third = second - 150 - captionRoom - margin;
    addPanes(XY<int>(margin, third));
    addIndicator(XY<int>(margin + 3 * (groupWidth + margin), third));
}

void GroupsPage::fillWithFields(StandardPanel* group, int rows) {
    wchar_t const* names[] = {L"Width", L"Height", L"Depth", L"Colour"};
    int rowHeight = UifStd::getRowHeight();
    int gap = UifStd::getWidgetGap();
    for (int i = 0; i < rows; ++i) {
        SampleField::InitArgs args(names[i % 4], (unsigned short)(groupWidth / 2),
                                   (unsigned short)rowHeight);
        group->createWidget<SampleField>(args, Glob::UserTopLeft(gap, gap + i * (rowHeight + gap)));
    }
}

void GroupsPage::addTitledGroups(int y) {
    struct Sample {
        WidgetGroupEx::eSeparatorStyle style;
        wchar_t const* title;
        wchar_t const* caption;
    } const samples[] = {
        {WidgetGroupEx::SeparatorEtched, L"Size", L"Etched line under the title"},
        {WidgetGroupEx::SeparatorNone, L"Position", L"No line"},
        {WidgetGroupEx::SeparatorOpen, L"Layout", L"Open: a heading, no frame"},
    };
    int rows = 3;
    int groupHeight =
        WidgetGroupEx::calcHeightForRows(rows, UifStd::getRowHeight(), UifStd::getWidgetGap(),
                                         WidgetGroupEx::SeparatorEtched) +
        2 * UifStd::getWidgetGap();
    int x = margin;
    for (Sample const& s : samples) {
        WidgetGroupEx::InitArgs args(UIString(s.title), groupWidth, (unsigned short)groupHeight);
        args.separatorStyle = s.style;
        auto* group = createChild<WidgetGroupEx>(args, TopLeft(x, height() - y));
        fillWithFields(group, rows);
        addLabel(s.caption, XY<int>(x, y));
        x += groupWidth + margin;
    }
    auto* above = createChild<WidgetGroup3>(
        WidgetGroup::InitArgs(UIString(L"Margins"), groupWidth, (unsigned short)groupHeight),
        TopLeft(x, height() - y));
    fillWithFields(above, 2);
    addLabel(L"Title above its frame", XY<int>(x, y));
}

void GroupsPage::addFoldingGroup(XY<int> const& at) {
    MinimizableGroup::InitArgs args(UIString(L"Advanced"), groupWidth, 40);
    args.autoResize = true;
    auto* group = createChild<MinimizableGroup>(args, TopLeft(at.x, height() - at.y));
    fillWithFields(group, 3);
    addLabel(L"Click the title row to fold", at);
}

void GroupsPage::addLabelledFields(XY<int> const& at) {
    wchar_t const* titles[] = {L"Name", L"Town", L"Postcode"};
    int rowHeight = UifStd::getRowHeight();
    int y = height() - at.y;
    for (wchar_t const* title : titles) {
        TitledGlob<SampleField>::InitArgs args(
            LightweightString<wchar_t>(title),
            SampleField::InitArgs(L"...", 0, (unsigned short)rowHeight), groupWidth,
            (unsigned short)(rowHeight + 4));
        args.titleWidth = 80;
        auto* titled = createChild<TitledGlob<SampleField>>(args, TopLeft(at.x, y));
        titled->setShowSeparator(title == titles[1]);
        y += rowHeight + 4 + UifStd::getWidgetGap();
    }
    addLabel(L"Titles beside controls", at);
}

void GroupsPage::addFrames(XY<int> const& at) {
    int side = 110;
    createChild<FrameWidget>(GlobCreationInfo((unsigned short)side, (unsigned short)side),
                             TopLeft(at.x, height() - at.y));
    createChild<DropIndicator>(GlobCreationInfo((unsigned short)side, (unsigned short)side),
                               TopLeft(at.x + side + margin, height() - at.y));
    addLabel(L"Frame and drop indicator", at);
}

void GroupsPage::addPanes(XY<int> const& at) {
    int width = 3 * groupWidth + 2 * margin;
    int height = 150;
    panesBox_ = Box(at.x, at.y - height, at.x + width, at.y);
    StandardPanel::InitArgs pane((unsigned short)(width / 2), (unsigned short)height);
    pane.border = Border(Border::Inset, 0, Border::AllEdges);
    pane.border.style = Border::DarkEdge;
    leftPane_ = createChild<StandardPanel>(pane, BottomLeft(panesBox_.x1, panesBox_.y1));
    rightPane_ = createChild<StandardPanel>(pane, BottomLeft(panesBox_.x1, panesBox_.y1));
    splitter_ = createChild<Splitter>(
        Splitter::InitArgs(Qor::makeCallback(this, &GroupsPage::handleSplitter),
                           OrientationVertical, (unsigned short)height),
        BottomLeft(panesBox_.x1, panesBox_.y1));
    placeSplitter(panesBox_.x1 + width / 3);
    addLabel(L"Drag the splitter between the panes", at);
}

void GroupsPage::placeSplitter(int x) {
    int thickness = splitter_->width();
    int least = 4 * UifStd::getRowHeight();
    x = std::clamp(x, panesBox_.x1 + least, panesBox_.x2 - least - thickness);
    int y = panesBox_.y1;
    leftPane_->resize(x - panesBox_.x1, panesBox_.height());
    setWidgetPos(leftPane_, XY<int>(panesBox_.x1, y));
    setWidgetPos(splitter_, XY<int>(x, y));
    rightPane_->resize(panesBox_.x2 - x - thickness, panesBox_.height());
    setWidgetPos(rightPane_, XY<int>(x + thickness, y));
}

int GroupsPage::handleSplitter(NotifyMsg const& msg) {
    auto* e = dynamic_cast<Splitter::Event*>(msg.getData().get());
    if (e == nullptr)
        return 0;
    if (e->kind == Splitter::Event::Pressed)
        dragStartX_ = splitter_->getParentRelativePosition().x;
    placeSplitter(dragStartX_ + e->rootPos.x - e->startRootPos.x);
    update();
    return 1;
}

void GroupsPage::addIndicator(XY<int> const& at) {
    int side = 2 * UifStd::getRowHeight();
    createChild<ActionIndicator>(
        StandardPanel::InitArgs((unsigned short)side, (unsigned short)side),
        TopLeft(at.x, height() - at.y));
    addLabel(L"Busy", at);
}

// A shade darker than the groups, so that their frames show.
void GroupsPage::drawBackground() {
    fillRect(face(), getPalette().window(WindowShadeDark));
}
