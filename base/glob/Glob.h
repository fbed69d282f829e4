#pragma once

// The widget base class. A Glob is at once a CanvasClient (an event handler that owns a canvas),
// a Drawable (update, draw, canDraw) and a FontUser. A widget is owned by its parent and dies with
// it; a top-level widget (made with no canvas) gets a window when GlobManager::realize shows it,
// and is deleted through GlobManager::requestDeletion.
//
// Children are kept in order, each with the details of where it goes: at an offset from one of
// the parent's corners (an origin; offsets point inward) or beside a sibling. The parent places
// them again when its size changes.
//
// Event life, as the base delivers it to a widget:
//   key press/release  intercept stack first, then the keyboard focus; unused keys go to the
//                      parents in turn
//   mouse press        the deepest mapped widget under the pointer; it keeps every move and the
//                      release until the release, even outside itself (implicit grab)
//   mouse move         the grabbing widget, else the widget under the pointer; entry and exit
//                      call handleMouseContainment, and contextCursor sets the pointer's shape
//   wheel              the widget under the pointer; unused mouse events go to the parents
//   message            the addressed widget: sendMsg queues, callMsg delivers at once
//   timer              every 20 ms while interest 4096 is held
// handleEvent() calls react(); react answers 1 when it used the event up.

#include "glib/Canvas.h"
#include "glib/Display.h"
#include "glib/Font.h"
#include "glib/Palette.h"
#include "glob/EventHandler.h"
#include "misc/Config.h"
#include "qor/UIString.h"

#include <memory>
#include <vector>

class Glob;
class Surround;
struct SurroundParams;
class UIAppearanceSettings;

enum eRedrawFlag : int { NoRedraw = 0, Redraw = 1 };

enum eCoordinateOrigin : int {
    OriginBottomLeft = 1,
    OriginTopLeft = 2,
    OriginBottomRight = 3,
    OriginTopRight = 4,
    OriginUserBottomLeft = 5,
    OriginUserTopLeft = 6,
    OriginUserBottomRight = 7,
    OriginUserTopRight = 8,
};

enum eWidgetRelativity : int {
    RelativeNone = 0,
    RelativeLeft = 1,
    RelativeRight = 2,
    RelativeAbove = 3,
    RelativeBelow = 4,
};

// Alignment along the side of the sibling: leading edges are the left edges for above and below,
// the top edges for left and right.
enum eWidgetAlignment : int { AlignCentre = 0, AlignLeading = 1, AlignTrailing = 2 };

enum TextAlignment : int { TextAlignLeft = 0, TextAlignRight = 1, TextAlignCentre = 2 };
enum Orientation : int { OrientationHorizontal = 0, OrientationVertical = 1 };

// Pointer shapes.
enum MouseCursorID : int {
    CursorHorizontalResize = 1,
    CursorVerticalResize = 4,
    CursorText = 15,
    CursorArrow = 16,
    CursorHand = 20,
    CursorDrag = 21,
    CursorHorizontalDrag = 22,
    CursorVerticalDrag = 23,
};

// How a child's surround is drawn: the kind first (2 the usual, 3 a tint, 6 a rule).
struct WidgetSurround {
    int kind = 0;
    int a = 0;
    int b = 0;
    int c = 0;
    float fraction = 0.2f;
    int e = 0;
};

struct WidgetPosition {
    // At an origin; beside a sibling; or centred in the face (fully, at the left, at the right).
    enum Kind { ByOrigin, Relative, Centred, LeftCentred, RightCentred };

    Kind kind = ByOrigin;
    eCoordinateOrigin origin = OriginBottomLeft;
    XY<int> offset;
    eWidgetRelativity relativity = RelativeNone;
    int gap = 0;
    // For a relative position; null means the child added just before.
    Glob* sibling = nullptr;
    eWidgetAlignment alignment = AlignLeading;
};

// What a parent keeps about each child.
struct WidgetDetails {
    Glob* widget = nullptr;
    WidgetPosition position;
    WidgetSurround surround;

    bool isRelative() const { return position.kind == WidgetPosition::Relative; }
    Glob* getSibling() const { return position.sibling; }
    eWidgetRelativity getRelativity() const { return position.relativity; }
    eCoordinateOrigin getOrigin() const { return position.origin; }
    int getX() const { return position.offset.x; }
    int getY() const { return position.offset.y; }
    int getGap() const { return position.gap; }
};

// The root of every widget's InitArgs: where to create it and with what colours and size.
class GlobCreationInfo {
public:
    GlobCreationInfo() = default;
    GlobCreationInfo(unsigned short w, unsigned short h) : width(w), height(h) {}
    GlobCreationInfo(GlobCreationInfo const& other, unsigned short w, unsigned short h)
        : GlobCreationInfo(other) {
        width = w;
        height = h;
    }
    GlobCreationInfo(GlobCreationInfo const&) = default;
    GlobCreationInfo& operator=(GlobCreationInfo const&) = default;
    virtual ~GlobCreationInfo() = default;

    // The canvas to create on; null for a window of its own.
    Canvas* canvas = nullptr;
    Palette palette;
    unsigned short width = 0;
    unsigned short height = 0;
    // The widget paints plainly on its parent's look (see Glob::isLightweight).
    bool lightweight = false;
};

// An event handler that owns a rectangle on a canvas.
class CanvasClient : public EventHandler {
public:
    struct TooltipDetails {
        UIString text;
        LightweightString<char> command;
        XY<int> position;
        int relativity = -1;
        int subArea = 0;
    };

    // The tip at a point (root coordinates).
    virtual TooltipDetails getTooltipDetails(XY<int> const& rootPos, CanvasClient* client);
    // The pointer's shape at a point (root coordinates).
    virtual MouseCursorID contextCursor(XY<int> const& rootPos);
    // Called when the pointer enters (true) or leaves (false).
    virtual void handleMouseContainment(bool inside);
    // Context help at a point (root coordinates).
    virtual UIString contextString(XY<int> const& rootPos, CanvasClient* client);

    void setContextString(UIString const& help, UIString const& tooltip);
    void setDefaultMouseCursor(MouseCursorID cursor) { defaultCursor_ = cursor; }
    MouseCursorID getDefaultMouseCursor() const { return defaultCursor_; }
    bool isMouseInside() const { return mouseInside_; }
    // The widget behind the client, if it is one: cheaper than a cast, asked on every event.
    virtual Glob* asGlob() { return nullptr; }

protected:
    bool mouseInside_ = false;

private:
    // Few widgets have texts of their own, so they are kept apart.
    struct HelpTexts {
        UIString help;
        UIString tooltip;
    };
    std::unique_ptr<HelpTexts> texts_;
    MouseCursorID defaultCursor_ = CursorArrow;
};

// Something that paints itself. Redraws can be held back process-wide for a batch of changes:
// between disableRedraws() and the outermost enableRedraws(), update() only notes the request,
// and each noted widget is painted once at the end.
class Drawable {
public:
    virtual ~Drawable();

    // Repaints now, or later while redraws are disabled.
    virtual void update();
    virtual void draw() = 0;
    virtual bool canDraw() const = 0;

    static void disableRedraws();
    static void enableRedraws();
    static bool redrawsDisabled();
    // Drops this widget's held request.
    void clearPendingRedraws();

protected:
    // Paints now: what update() does when redraws are enabled.
    virtual void updateNow() = 0;
};

namespace Glib {
// Holds the font description the class uses for its text.
class FontUser {
public:
    virtual ~FontUser() = default;
    virtual void setFont(FontDesc const& font) { font_ = font; }
    FontDesc const& getFont() const { return font_; }

protected:
    FontDesc font_;
};
} // namespace Glib

class Glob : public CanvasClient, public Drawable, public Glib::FontUser {
public:
    enum eSizeState { SizeNormal = 0, SizeSmall = 1 };
    enum eDropReason { DropNone = 0, DropMove = 1, DropCopy = 2, DropCancel = 3 };
    using WindowKind = iDisplay::WindowKind;

    explicit Glob(GlobCreationInfo const& info);
    Glob(configb const& config, unsigned short w, unsigned short h);
    Glob(unsigned short w, unsigned short h, Palette const& palette, bool lightweight,
         Canvas* canvas);
    Glob(unsigned short w, unsigned short h, bool lightweight, Canvas* canvas);
    ~Glob() override;

    Glob* asGlob() override { return this; }

    // Virtual operations.
    int fsFilterThis(Event const& event, void* context) override;
    int handleEvent(Event const& event) override;
    bool intercept(Event const& event) override;
    // The class's name.
    virtual char const* idstring() const;
    virtual void drawUnbuffered(Qor::Ptr<iRegion> region);
    virtual bool isOpaqueAt(XY<int> const& p) const;
    // Background, children, border; only while canDraw().
    void draw() override;
    bool canDraw() const override;
    // The drawing area; (0, 0, width, height) by default.
    virtual Box face() const;
    virtual void resize(double w, double h);
    virtual Glob* parent() const;
    virtual void reparentTo(Glob* newParent);
    virtual void setReparentable(bool reparentable) { reparentable_ = reparentable; }
    virtual bool isReparentable() const { return reparentable_; }
    virtual void load(configb const& config);
    virtual void dump(configb& config) const;
    virtual void setPersistable(bool persistable) { persistable_ = persistable; }
    virtual bool isPersistable() const { return persistable_; }
    virtual void makeDirty() { dirty_ = true; }
    virtual void makeClean() { dirty_ = false; }
    virtual bool isDirty() const { return dirty_; }
    virtual void reshape();
    virtual void reshape_myself();
    // Prepares the current path with the widget's outline, rounded by the corner mask.
    virtual void path();
    virtual unsigned short height() const { return height_; }
    virtual unsigned short width() const { return width_; }
    virtual unsigned short oldWidth() const { return oldWidth_; }
    virtual unsigned short oldHeight() const { return oldHeight_; }
    virtual int react(Event const& event);
    virtual void pick() {}
    virtual void drop(eDropReason) {}
    virtual void moved() {}
    virtual void makeCanvasCurrent();
    // Asks for (or stops) a kind of event: 4096 for timer ticks.
    virtual void setInterest(int interest);
    virtual void clearInterest(int interest);
    // Raises the widget among its siblings; true raises its window too.
    virtual void popToTop(bool alsoWindow);
    virtual void mapCanvas();
    virtual void unmapCanvas();
    virtual void reshapeCanvas();
    virtual void translateCanvas(int dx, int dy);
    virtual void translateCanvTree(int dx, int dy);
    // Iterators: given the last one visited (null to start), the next; null at the end.
    virtual Glob* visitOlderSiblings(Glob* last);
    virtual Glob* visitYoungerSiblings(Glob* last);
    virtual Glob* visitSiblings(Glob* last);
    virtual Glob* visitChildren(Glob* last);
    virtual Glob* visitAncestors(Glob* last);
    virtual Glob* visitSubtree(Glob* last);
    virtual Glob* visitPostOrder(Glob* last);
    virtual void setMovable(bool movable) { movable_ = movable; }
    virtual bool isMovable() const { return movable_; }
    virtual bool canBeDestroyed(int) const { return !indestructible_; }
    virtual void setActive(bool active, eRedrawFlag redraw);
    virtual void setVisible(bool visible);
    virtual void setOpacity(double opacity);
    virtual void setResizable(bool resizable) { resizable_ = resizable; }
    virtual void setMinSize(unsigned short w, unsigned short h) { minSize_ = XY<int>(w, h); }
    virtual XY<int> getMinSize() const { return minSize_; }
    virtual void setQuickDraw(bool quick) { quickDraw_ = quick; }
    virtual bool getQuickDraw() const { return quickDraw_; }
    virtual bool isMagnetic() const { return false; }
    virtual void claimKbdFocus();
    // Called on the widget losing and on the widget gaining the focus; they ask get_kbd_focus().
    virtual void handleKbdFocus() {}
    virtual void relinquishKbdFocus(Glob* to);
    virtual void shape() {}
    virtual void setCanBeIt(bool canBeIt) { canBeIt_ = canBeIt; }
    virtual bool canBeIt() const { return canBeIt_; }
    virtual void handle_it() {}
    // Constrains the widget to the screen and redraws it.
    virtual void glob_tidy();
    virtual void constrainWithinScreen();
    virtual long get_glob_cookie() const { return cookie_; }
    // The part of the widget free for content; face() by default.
    virtual Box getUserArea() const;
    virtual void setPalette(Palette const& palette) { palette_ = sharedPalette(palette); }
    // Sets the window colour; true redraws.
    virtual void setCol(Colour const& colour, bool redraw);
    virtual void setSizeState(eSizeState state);
    // The appearance changed: 1 the theme, 8 the resource texts. Passed on to the children.
    virtual void handleUIChange(unsigned int mask);
    // Takes the child away, clears the caller's pointer, destroys it when asked.
    virtual void removeWidget(Glob*& child, bool destroy);
    virtual void setWidgetPos(Glob* child, XY<int> const& pos);
    virtual void getChildren(std::vector<Glob*>& out) const;
    virtual void positionConstrain(double x, double y, double* cx, double* cy) const;
    virtual XY<double> realPositionConstrain(XY<double> const& p, Event const& event) const;
    virtual XY<int> sizeConstrain(XY<int> const& size, unsigned int edges) const;
    virtual void handleWidgetAdded(WidgetDetails const&) {}
    virtual void setSizeFlag(eSizeState) {}
    virtual void drawBackground();
    virtual void drawWidgets();
    virtual void drawBorder() {}
    virtual void calcAbsoluteWidgetPositions();
    virtual void handleChildResize(Glob const* child, XY<int> const& delta);
    // The point of an origin in this widget's coordinates: 1-4 the face's corners, 5-8 the user
    // area's.
    virtual XY<int> getOriginXY(eCoordinateOrigin origin) const;

    // Children.
    void addChild(Glob* child, WidgetPosition const& position, WidgetSurround surround = {});
    void addWidget(Glob* child, int x, int y, eCoordinateOrigin origin = OriginBottomLeft,
                   WidgetSurround surround = {}, Glob* unused = nullptr);
    void addWidgetRelative(Glob* child, Glob* sibling, int gap, eWidgetRelativity relativity,
                           WidgetSurround surround = {}, eWidgetAlignment alignment = AlignLeading);
    WidgetDetails* getWidget(Glob* child);
    Glob* getWidget(unsigned short index) const;
    unsigned short widgetCount() const { return (unsigned short)children_.size(); }
    XY<int> getWidgetPos(Glob* child) const;
    void setWidgetDetails(Glob* child, WidgetPosition const& position);
    void setWidgetOrigin(Glob* child, eCoordinateOrigin origin, XY<int> const& offset);
    void setWidgetRelativity(Glob* child, Glob* sibling, eWidgetRelativity relativity, int gap,
                             eWidgetAlignment alignment = AlignLeading);
    // A child's box in this widget's coordinates, as its details place it.
    Box getAbsRect(WidgetDetails const& details) const;
    void positionChildWidget(WidgetDetails const& details);
    void positionChildWidgets();
    // Moves a child to (x, y); `unused` is kept for the older callers.
    void reshapeWidgetAt(Glob* child, double x, double y, Glob* unused = nullptr);
    // The ordered list itself: taken out whole and put back in order by panels that re-lay out.
    std::vector<WidgetDetails> takeChildren();
    void appendChild(WidgetDetails const& details);

    template <class T>
    T* createChild(typename T::InitArgs args, WidgetPosition const& position,
                   WidgetSurround surround = {});

    // Positions that children are added at.
    static WidgetPosition TopLeft(int x, int y);
    static WidgetPosition TopRight(int x, int y);
    static WidgetPosition BottomLeft(int x, int y);
    static WidgetPosition BottomLeft(XY<int> const& p);
    static WidgetPosition BottomRight(int x, int y);
    static WidgetPosition UserTopLeft(int x, int y, eWidgetAlignment = AlignLeading);
    static WidgetPosition UserTopRight(int x, int y, eWidgetAlignment = AlignLeading);
    static WidgetPosition UserBottomLeft(int x, int y, eWidgetAlignment = AlignLeading);
    static WidgetPosition UserBottomRight(int x, int y, eWidgetAlignment = AlignLeading);
    static WidgetPosition Centre(int x, int y, eWidgetAlignment = AlignCentre);
    static WidgetPosition LeftCentre(int x, int y, eWidgetAlignment = AlignCentre);
    static WidgetPosition RightCentre(int x, int y, eWidgetAlignment = AlignCentre);
    static WidgetPosition Above(int gap, Glob* sibling, eWidgetAlignment = AlignLeading);
    static WidgetPosition Below(int gap, Glob* sibling, eWidgetAlignment = AlignLeading);
    static WidgetPosition LeftOf(int gap, Glob* sibling, eWidgetAlignment = AlignLeading);
    static WidgetPosition RightOf(int gap, Glob* sibling, eWidgetAlignment = AlignLeading);

    // Geometry: getX/getY are the bottom-left corner in root coordinates.
    int getX() const;
    int getY() const;
    XY<int> screenXYToGlobXY(XY<int> const& rootPos) const;
    XY<int> getParentRelativePosition() const;
    bool isVisible() const { return visible_; }
    bool isChildGlob() const { return parent() != nullptr; }
    bool isLightweight() const { return lightweight_; }
    bool isType(char const* name) const;
    bool isActive() const { return active_; }
    bool isResizable() const { return resizable_; }
    Canvas* canvas() const { return canvas_.get(); }
    UIAppearanceSettings const& theme() const;
    Palette const& getPalette() const { return *palette_; }
    Colour getCol() const { return palette_->window(WindowShadeBase); }
    void setLogicalParent(Glob* logicalParent);
    Glob* getLogicalParent() const;
    Glob* findNearestGlob(bool (*predicate)(Glob*)) const;
    bool isTopLevel() const;
    unsigned getCornerMask() const { return cornerMask_; }
    void setCornerMask(unsigned mask) { cornerMask_ = mask; }

    // Movement and redraw.
    void startMoving(XY<int> const& rootPos, bool byUser);
    void stopMoving();
    bool isMoving() const { return moving_; }
    void forceReshape();
    // Moves (root coordinates for a top-level widget, the parent's for a child) and repaints.
    void reshapeAndDraw(XY<int> const& pos);
    void notifyResized(XY<int> const& delta);
    // Where the next top-level widget is made.
    static void setupRootPos(XY<int> const& rootPos);
    static void setupRootPos(Canvas* root, XY<int> const& rootPos);
    void setResizableEdges(unsigned edges) { resizableEdges_ = edges; }
    unsigned getResizableEdges() const { return resizableEdges_; }
    void setIndestructible(bool indestructible) { indestructible_ = indestructible; }
    void setTrashable(bool trashable) { trashable_ = trashable; }
    bool isTrashable() const { return trashable_; }
    // The kind of window realize() makes for this top-level widget.
    void setWindowKind(WindowKind kind) { windowKind_ = kind; }
    WindowKind getWindowKind() const { return windowKind_; }
    void setTitleText(LightweightString<wchar_t> const& title);

    // Messages to a widget: queued, or delivered at once. The sender is this widget.
    void sendMsg(Glob* target, char const* name);
    int callMsg(Glob* target, char const* name);

    // Events of other widgets whose code the mask selects are handed to `handler` first.
    void addEventHandler(Glob* handler, int mask);
    void removeEventHandler(int mask);

    // Modality: the pop-up stays above its context, and a press outside it (and outside any
    // pop-up whose context chain leads to it) sends it "poot".
    static void setModalContextGlob(Glob* popup, Glob* context);
    static void unsetModalContextGlob(Glob* popup);

    // Paints a box in a colour, in this widget's coordinates.
    void fillRect(Box const& box, Colour const& colour);

    // Adornment of a top-level widget (a child has no window to frame): a soft frame of its own
    // window around it, or a shadow (a dark frame). One at a time; removing it deletes it.
    void addShadow();
    void addSurround(SurroundParams const& params);
    void addSurround(Colour const& colour, unsigned long size, float fraction, unsigned int sides);
    void removeSurround();
    bool hasSurround() const { return getSurround() != nullptr; }
    Surround* getSurround() const;

protected:
    void updateNow() override;
    // Size fields as stored; resize() keeps the old ones.
    void setSizeFields(unsigned short w, unsigned short h);

    // Shared: most widgets have their parent's colours, and a palette is large.
    std::shared_ptr<Palette const> palette_;
    bool active_ = true;
    unsigned short width_ = 0;
    unsigned short height_ = 0;
    unsigned short oldWidth_ = 0;
    unsigned short oldHeight_ = 0;
    eSizeState sizeState_ = SizeNormal;

private:
    void init(GlobCreationInfo const& info);
    // The palette held for equal ones, the last one given most often.
    static std::shared_ptr<Palette const> sharedPalette(Palette const& palette);
    void destroyChildren();
    void keepSiblingsInPlace(Glob* parent);
    void forwardToHandlers(Event const& event, int& used);
    std::vector<WidgetDetails>::iterator findChild(Glob const* child);
    Glob* previousChildOf(Glob const* child) const;
    XY<int> placeByOrigin(WidgetDetails const& details, XY<int> const& size) const;
    XY<int> placeRelative(WidgetDetails const& details, XY<int> const& size) const;
    XY<int> placeCentred(WidgetDetails const& details, XY<int> const& size) const;

    std::unique_ptr<Canvas> canvas_;
    std::vector<WidgetDetails> children_;
    struct ForwardedInterest {
        Glob* handler;
        IdStamp stamp;
        int mask;
    };
    std::vector<ForwardedInterest> forwards_;
    Surround* surround_ = nullptr;
    IdStamp surroundStamp_ = IdStamp::null();
    Glob* logicalParent_ = nullptr;
    IdStamp logicalParentStamp_ = IdStamp::null();
    int interests_ = 0;
    unsigned cornerMask_ = 0;
    unsigned resizableEdges_ = 0;
    XY<int> minSize_;
    // Where the pointer holds a widget that the user moves, from its bottom-left corner.
    XY<int> moveAnchor_;
    long cookie_ = 0;
    WindowKind windowKind_ = WindowKind::Normal;
    bool lightweight_ = false;
    bool visible_ = true;
    bool reparentable_ = true;
    bool persistable_ = false;
    bool dirty_ = false;
    bool movable_ = false;
    bool resizable_ = false;
    bool quickDraw_ = false;
    bool canBeIt_ = true;
    bool indestructible_ = false;
    bool trashable_ = true;
    bool moving_ = false;
    bool destroyingChildren_ = false;
};

template <class T>
T* Glob::createChild(typename T::InitArgs args, WidgetPosition const& position,
                     WidgetSurround surround) {
    args.canvas = canvas();
    args.palette = *palette_;
    if (args.width == 0)
        args.width = (unsigned short)getUserArea().width();
    T* child = new T(args);
    addChild(child, position, surround);
    return child;
}

// Where a box of the size goes beside `sibling` (same coordinates), `gap` away on the side the
// relativity names, aligned along that side as the alignment says.
XY<int> placeBeside(Box const& sibling, XY<int> const& size, eWidgetRelativity relativity,
                    eWidgetAlignment alignment, int gap);

// Free functions on widgets.
Glob* canvas_to_glob(Canvas* canvas);
Glob* getRootParent(Glob* glob);
// The first is the second or lies below it.
bool isParentedTo(Glob const* glob, Glob const* ancestor);
// Whether the pointer is a live widget (and, with a name, of that idstring). Safe on a dangling
// pointer.
bool is_good_glob_ptr(Glob* glob);
bool is_good_glob_ptr(Glob* glob, char const* idstring);
// The top-level widgets: given the last (null to start), the next.
Glob* walk_all_root_globs(Glob* last);
// The signed distance between the two widgets' boxes on the screen, negative when they overlap.
double glob_pseudo_distance(Glob* a, Glob* b);
Glob* get_kbd_focus();
void set_kbd_focus(Glob* glob);

// Messages through normal delivery.
Glob* event_to_glob(Event const& event);
Glob* event_to_sender_glob(Event const& event);
// Puts the event through delivery: at once (queued when `post` is true).
void event_send(Event* event, bool post);
void sendMessage(LightweightString<char> const& name, EventHandler* target, Canvas* sender,
                 bool post = true);
void sendMessage(LightweightString<char> const& name, EventHandler* target, Glob* sender,
                 bool post = true);
void sendMessage(LightweightString<char> const& name, EventHandler* target, iObject* sender,
                 bool post = true);
void sendMessage(LightweightString<char> const& name, EventHandler* target, std::nullptr_t,
                 bool post = true);
int callMessage(LightweightString<char> const& name, EventHandler* target, Canvas* sender);
int callMessage(LightweightString<char> const& name, EventHandler* target, Glob* sender);
int callMessage(LightweightString<char> const& name, EventHandler* target, iObject* sender);
int callMessage(LightweightString<char> const& name, EventHandler* target,
                std::nullptr_t = nullptr);
void sendMessageWithData(LightweightString<char> const& name, EventHandler* target,
                         Qor::Ptr<iObject> const& data, Glob* sender);
int callMessageWithData(LightweightString<char> const& name, EventHandler* target,
                        Qor::Ptr<iObject> const& data, Glob* sender);

// A one-pixel bevel around the widget's face in the colour: sunk, or raised when `raised`.
void drawInset(Glob* glob, Colour const& colour, bool raised);
