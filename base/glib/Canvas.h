#pragma once

// The drawing surface of a widget, in a tree. The root canvas is the screen; its children are the
// top-level canvases, each the window of one top-level widget; below them every child widget gets
// a canvas that is a rectangle of its parent's, with its own origin, mapped flag, opacity and
// optional shape. Coordinates run upward from a canvas's bottom-left corner everywhere; the
// display turns them the other way once.
//
// A top-level canvas owns its window's backing store (WindowSurface). Drawing on any canvas goes
// through its CanvasRenderer into that store, clipped to the canvas and all its ancestors.

#include "glib/Font.h"
#include "glib/Region.h"
#include "qor/Box.h"
#include "qor/Ptr.h"

#include <memory>
#include <vector>

class CanvasClient;
class CanvasRenderer;
class WindowSurface;
class iRootWindow;

class Canvas {
public:
    // A root canvas of the screen's size.
    static std::unique_ptr<Canvas> createRoot(XY<int> const& screenSize);
    // A child of `parent` covering `rect` (in the parent's coordinates), unmapped.
    Canvas(Canvas* parent, Box const& rect);
    // Leaves the parent; children still attached are detached (their owners delete them).
    ~Canvas();
    Canvas(Canvas const&) = delete;
    Canvas& operator=(Canvas const&) = delete;

    Canvas* getParent() const { return parent_; }
    // The top-level canvas holding this one (the root answers itself).
    Canvas* getRootParent();
    Canvas* getScreen();
    bool isRoot() const { return parent_ == nullptr; }
    bool isTopLevel() const { return parent_ != nullptr && parent_->parent_ == nullptr; }
    std::vector<Canvas*> const& children() const { return children_; }

    CanvasClient* getClient() const { return client_; }
    void setClient(CanvasClient* client) { client_ = client; }

    // Place and size within the parent.
    Box rect() const { return rect_; }
    XY<int> size() const { return XY<int>(rect_.width(), rect_.height()); }
    void setRect(Box const& rect);
    void move(XY<int> const& bottomLeft);
    void translate(int dx, int dy) { move(XY<int>(rect_.x1 + dx, rect_.y1 + dy)); }
    void reparent(Canvas* newParent, XY<int> const& bottomLeft);

    // Where this canvas's origin lies on the root, and within its top-level canvas.
    XY<int> rootPosition() const;
    XY<int> windowOffset() const;
    // The part of the canvas that can show: its box cut by every ancestor, in window coordinates.
    Box visibleWindowRect() const;

    void map();
    void unmap();
    // The canvas and all its ancestors are mapped.
    bool isMappedToRoot() const;
    // Raises the canvas above its siblings.
    void raise();
    bool isTopmost() const;

    // The deepest mapped canvas containing the point (this canvas's coordinates), this one when no
    // child holds it, or null when the point is outside this canvas or cut away by its shape.
    Canvas* pick(XY<int> const& p);
    bool isContained(XY<int> const& p) const;

    double getOpacity() const { return opacity_; }
    void setOpacity(double opacity);
    void shape(Qor::Ptr<iRegion> const& region);
    Qor::Ptr<iRegion> const& getShape() const { return shape_; }
    void setUseAlphaChannel(bool use) { useAlpha_ = use; }
    bool usesAlphaChannel() const { return useAlpha_; }
    // A clip of the canvas's own, in its coordinates; false when it has none.
    bool getClipRect(Box& clip) const;
    void setClipRect(Box const& clip);
    void clearClipRect();

    CanvasRenderer& renderer();
    Qor::Ptr<iFont> createFont(Glib::FontDesc const& desc);
    // The window's own object (for the input method); null below an unrealized top level.
    Qor::Ptr<iRootWindow> getWindow();

    // The backing store of the window this canvas draws into; null until the top-level canvas
    // has been given one.
    WindowSurface* surface();
    void setSurface(std::unique_ptr<WindowSurface> surface);

    // Changes whenever any canvas moves, resizes, maps, unmaps or changes parent, so that cached
    // clips and transforms know when to be recomputed.
    static unsigned long geometryGeneration();

    // Zero when the canvas isn't on the screen.
    int mapped = 0;

private:
    void detachFromParent();
    static void geometryChanged();

    Canvas* parent_ = nullptr;
    std::vector<Canvas*> children_;
    CanvasClient* client_ = nullptr;
    Box rect_;
    double opacity_ = 1.0;
    Qor::Ptr<iRegion> shape_;
    bool hasClip_ = false;
    Box clip_;
    bool useAlpha_ = false;
    std::unique_ptr<WindowSurface> surface_;
    std::unique_ptr<CanvasRenderer> renderer_;
};

void canvas_walk_children(Canvas* canvas, void (*fn)(Canvas*, void*), void* arg);
bool canvas_is_topmost(Canvas* canvas);
bool canvas_is_mapped_to_root(Canvas* canvas);
void canvas_pop_to_top(Canvas* canvas, bool alsoWindow);
// Keeps a top-level window above the others (cascading menus).
void canvasKeepTopmost(Canvas* canvas, bool keep);
// Marks the whole canvas for repaint on the screen.
void canvupd_mark_all(Canvas* canvas);
