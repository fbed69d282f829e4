#pragma once

// The panel nearly every visible thing derives from: a bordered rectangle with an optional title
// area holding small standard widgets, an optional do-it button, a user area, and the place where
// raw events become calls of small virtual handlers. Each panel is also a focus group.

#include "glib/Border.h"
#include "glob/UIAppearanceSettings.h"
#include "panels/TabOrderManager.h"
#include "panels/rect.h"

#include <list>
#include <vector>

class PootButton;
class SizeButton;
class PinButton;
class PushButton;
class TextLabel;

class StandardPanel : public rect, public TabOrderManager {
public:
    enum eSpacing : int {
        TitleWidgetHeight = 0,
        EdgeSize = 1,
        TopRowOffset = 2,
        TitleAreaHeight = 3,
        EdgeSize2 = 4,
        StatusAreaHeight = 5,
    };
    enum ResizeArea : int { ResizePanel = 0, ResizeUserArea = 1 };
    // The standard widgets, as addStandardWidgets takes them.
    enum StandardWidget : int {
        Poot = 1,
        Settings = 2,
        SizeFlip = 4,
        DoIt = 8,
        Pin = 16,
        Title = 32,
        EditableTitle = 64,
        DropDownSettings = 128,
    };

    struct InitArgs : GlobCreationInfo {
        InitArgs() = default;
        InitArgs(unsigned short w, unsigned short h) : GlobCreationInfo(w, h) {}
        Border border;
    };

    static char const* const doItMsg;
    static char const* const titleChangedMsg;
    static char const* const titleTypedMsg;
    static char const* const pootMsg;
    static char const* const minifyMsg;
    static char const* const freezeFlipMsg;
    static char const* const dropDownClickMsg;
    static char const* const screwdriverMsg;

    StandardPanel(unsigned short w, unsigned short h, Palette const& palette, bool lightweight,
                  Canvas* canvas);
    StandardPanel(unsigned short w, unsigned short h);
    StandardPanel(XY<int> const& size, Palette const& palette, bool lightweight, Canvas* canvas);
    explicit StandardPanel(XY<int> const& size);
    StandardPanel(configb const& config, unsigned short w, unsigned short h);
    explicit StandardPanel(InitArgs const& args);
    ~StandardPanel() override;

    // Virtual operations added here.
    virtual void setBorder(Border const& border);
    virtual void setBorderStyle(Border::eType type);
    virtual void setTitle(UIString const& text, Glib::FontDesc const& font, eRedrawFlag redraw);
    XY<int> getOriginXY(eCoordinateOrigin origin) const override;
    virtual int handleMessageEvent(LightweightString<char> name, Glob* sender);
    virtual int handleKeyboardEvent(int keyCode);
    virtual int handleKeyReleaseEvent(int keyCode);
    virtual int handleMouseEvent(Event const& event);
    virtual int handleZoom(int code);
    virtual int handleDataMessageEvent(LightweightString<char> name, Glob* sender,
                                       Qor::Ptr<iObject> data);
    virtual bool isPinned() const;
    // 1 lets the base classes close the panel.
    virtual int handlePoot();
    virtual void handleFlipSize() {}
    virtual void handleTimerEvent() {}
    virtual void handleTitleChange() {}
    virtual void handleTitleWidgetResize() {}
    virtual void handlePinned(bool pinned) { setMovable(!pinned); }
    // Widens the children that span the panel or its user area by the change.
    virtual void resizeChildren(int widthChange);
    virtual int calcMaxTitleWidgetWidth() const;
    virtual void drawTitleSeparator();

    // Overrides of Glob.
    char const* idstring() const override { return "StandardPanel"; }
    void handleMouseContainment(bool inside) override;
    void resize(double w, double h) override;
    void reparentTo(Glob* newParent) override;
    void reshape() override { rect::reshape(); }
    int react(Event const& event) override;
    void reshapeCanvas() override;
    Box getUserArea() const override;
    void setPalette(Palette const& palette) override;
    void setCol(Colour const& colour, bool redraw) override;
    void handleUIChange(unsigned int mask) override;
    void removeWidget(Glob*& child, bool destroy) override;
    void setSizeFlag(eSizeState state) override;
    void drawBackground() override;
    void drawBorder() override;
    // The colour that the face shows behind the children.
    virtual Colour faceColour() const;
    virtual bool canMakeMenu(Event const& event);

    void addStandardWidgets(int mask);
    void removeStandardWidgets(int mask, bool destroy);
    // The title, pin, poot, action and size widgets; the settings widget is not counted.
    bool isStandardWidget(Glob const* widget) const;
    void positionStandardWidgets();
    void addStatusWidget(Glob* widget, unsigned short gap);
    UIString const& getTitle() const { return titleText_; }
    LightweightString<wchar_t> getTitleW() const { return titleText_.getString(); }
    void setEditableTitle(bool editable);
    void setShowSettingsOnMouseOver(bool show);
    Palette makeTitleAreaPalette() const;
    Palette getColoursForWidgets() const { return getPalette(); }
    Box getWidgetBounds(Glob* widget) const;
    void findRelativeWidgets(Glob* widget, std::list<Glob*>& out);
    void eraseRectangle(Box const& box, Colour const& colour);
    void drawSquarePanelBorder(unsigned int edges);
    void resize(XY<int> const& size, ResizeArea area);
    bool resizeTitleWidget();
    int calcTitleWidth(UIString const& text) const;
    int measure(eSpacing spacing) const;
    Border const& getBorder() const { return border_; }
    int getStandardWidgetFlags() const { return standardWidgetFlags_; }
    void setResizeChildrenWithPanel(bool on) { resizeChildrenWithPanel_ = on; }
    float getTitleAreaColourAdjust() const { return titleAreaColourAdjust_; }

    static Border getDefaultBorder();
    static float getDefaultTitleAreaColourAdjust();
    static unsigned short calcBorderSize(Border::eType type);
    static int calcSize(eSpacing spacing, UIAppearanceSettings const& theme, Border const& border);
    static XY<int> getOriginXY(eCoordinateOrigin origin, int flags, XY<int> const& size,
                               Border const& border, UIAppearanceSettings const& theme);
    static XY<int> calcPanelSize(XY<int> const& userSize, int flags, Border const& border);
    static Box getUserArea(int flags, XY<int> const& size, Border const& border);
    // The four margins of the user area: left, bottom, right, top as x1, y1, x2, y2.
    static Box getUserAreaBorders(int flags, Border const& border);
    // Makes the panel's theme keys known to the theme editor. Reading needs no registration:
    // each key is read where it is used, with its default there.
    static void registerUIThemeParams();
    // The height of the do-it button row.
    static int calcActionButtonHeight();

    template <class T>
    T* createWidget(typename T::InitArgs args, WidgetPosition const& position,
                    WidgetSurround surround = {}) {
        return createChild<T>(args, position, surround);
    }

protected:
    void init();
    void drawBorder(Border const& border);
    void handleTitleChangeInternal(eRedrawFlag redraw);
    int calcTitleWidthInternal(LightweightString<wchar_t> const& text) const;

private:
    int reactToForwarded(Event const& event);
    int reactToMessage(Event const& event);
    int reactToKey(Event const& event);
    int passOn(Event const& event) { return MenuGlob::react(event); }
    bool isOwnCanvasOrChild(Canvas* canvas);
    void drawCurvedBorder();
    void drawCurvedCorners(Colour const& colour);
    void drawEdgeStrips(Border const& border, Colour const& hi, Colour const& lo);
    void drawStatusSeparator();
    void fillBand(Box const& box, Colour const& colour);
    Palette standardWidgetPalette() const;
    Palette titleWidgetPalette() const;
    int pinState() const;
    void makeStandardWidgets(int mask);
    template <class T>
    T* makeStandardWidget(typename T::InitArgs args);
    void makeTitleWidget(unsigned short height);
    void placeTopRightRow();

    Glob* settingsWidget_ = nullptr;
    SizeButton* sizeButton_ = nullptr;
    PootButton* pootButton_ = nullptr;
    PushButton* actionButton_ = nullptr;
    Border border_;
    TextLabel* titleWidget_ = nullptr;
    PinButton* pinButton_ = nullptr;
    int standardWidgetFlags_ = 0;
    std::vector<WidgetDetails> statusWidgets_;
    float titleAreaColourAdjust_ = 0.0f;
    bool showSettingsOnMouseOver_ = false;
    UIString titleText_;
    bool resizeChildrenWithPanel_ = false;
};
