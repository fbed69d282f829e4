#pragma once

// The registry of widgets and the delivery of events to them. It brings top-level widgets to the
// screen, deletes widgets whose deletion was requested once no handler is running, keeps the
// keyboard focus, the implicit mouse grab and the widget under the pointer, queues messages, and
// turns each display event into the Events that widgets receive.
//
// Delivery of one display event:
//   key        intercept stacks (high priority first), then the focus widget (else the top-level
//              widget under the pointer); unused keys travel up the parents
//   press      pop-ups whose modal context chain does not hold the widget under the pointer get
//              "poot"; then the deepest mapped widget under the pointer becomes the grab and gets
//              the press (through the intercept stacks first); unused presses travel up
//   move       containment and cursor follow the widget under the pointer; the move goes to the
//              grab, else to the widget under the pointer
//   release    to the grab, which then ends
//   wheel      to the widget under the pointer, travelling up while unused
//   close      "poot" to the window's widget; configure resizes it

#include "glib/Display.h"
#include "glob/Glob.h"
#include "qor/Notifier.h"

#include <deque>
#include <map>
#include <memory>
#include <set>
#include <vector>

// A window's place beside a widget, or beside part of it.
struct SiblingRelativePosition {
    Glob* sibling = nullptr;
    // A part of the sibling (its coordinates) to stand beside; null for the whole widget.
    Box const* subRect = nullptr;
    eWidgetRelativity relativity = RelativeBelow;
    eWidgetAlignment alignment = AlignLeading;
    int gap = 0;
};

class GlobManager {
public:
    static GlobManager& instance();

    // Brings a top-level widget to the screen at the position setupRootPos gave it, and draws it.
    void realize(Glob* glob);
    // Deletes the widget later, from the event loop, outside any handler.
    void requestDeletion(Glob* glob);
    bool isDeletionRequested(Glob* glob) const;
    // Runs the requested deletions; answers how many widgets went.
    int runDeletions();

    // The first top-level widget whose idstring is the name.
    Glob* find(char const* name) const;
    Glob* find(LightweightString<char> const& name) const;

    void addModalGlob(Glob* popup, Glob* context);
    void removeModalGlob(Glob* popup);

    // A position for a window of the size that keeps it on the screen.
    XY<int> getSafePosForGlob(Canvas* root, XY<int> const& wanted, XY<int> const& size) const;
    // Where a window of the size goes beside a widget: kept on the screen across, but not up and
    // down, so that a caller sees a negative y when there is no room below and can go above.
    XY<int> calcPosForGlob(XY<int> const& size, SiblingRelativePosition const& where,
                           Box const& screen) const;
    XY<int> calcPosForGlob(XY<int> const& size, Box const& anchor, eWidgetAlignment alignment,
                           eWidgetRelativity relativity, Glob* sibling) const;
    // A root position for a window about to be made: the position read against the screen (by
    // origin or centred) or against its sibling, then kept on the screen.
    XY<int> getPosForGlob(GlobCreationInfo const& info, WidgetPosition const& position) const;
    // The area a window takes when maximised: the screen.
    Box getMaximisedPosForGlob(Glob* glob) const;
    void redisplay(Glob* glob, XY<int> const& pos, eCoordinateOrigin origin, bool redraw);
    // Notes a user action under a four-character code.
    void recordAction(unsigned int code, WidgetPosition const& position);
    std::vector<unsigned> const& recordedActions() const { return actions_; }
    bool getDumpEnable() const { return dumpEnable_; }
    void setDumpEnable(bool enable) { dumpEnable_ = enable; }

    // Turns a display event into widget events and delivers them.
    void dispatch(InputEvent const& input);
    // Delivers an event to a widget, travelling up the parents while unused. Answers 1 when used.
    int deliver(Glob* target, Event const& event, bool bubble);
    // Queued messages and events, delivered at the loop's next turn.
    void post(Event const& event);
    // Delivers what was queued; answers how many.
    int deliverQueued();
    bool hasQueuedWork() const;

    Glob* getKbdFocus() const;
    void setKbdFocus(Glob* glob);
    Glob* grabWidget() const;
    Glob* widgetUnderPointer() const;
    XY<int> lastPointerPosition() const { return pointer_; }
    // The mouse buttons held now (the Event button bits).
    int buttonsHeld() const { return buttonsHeld_; }
    // The widget under a root position: the deepest mapped one, topmost window first.
    Glob* widgetAt(XY<int> const& rootPos) const;
    std::vector<Glob*> topLevels() const;

    // Called by every widget as it is made and destroyed.
    void registerGlob(Glob* glob);
    void unregisterGlob(Glob* glob);
    bool isLive(Glob const* glob) const;
    // Calls handleUIChange(mask) on every top-level widget (which pass it on to their children).
    void broadcastUIChange(unsigned mask);

    // Where the next top-level widget goes.
    void setNextRootPos(XY<int> const& rootPos) { nextRootPos_ = rootPos; }
    XY<int> nextRootPos() const { return nextRootPos_; }

    // Forgets every widget without deleting it: for a display being replaced.
    void forgetDisplayState();

    // Notifications of widgets: type 10 a widget was deleted, 12 a top-level widget moved. The
    // message's data is a WrappedData<Glob*>, to be compared as a pointer only. Issued on the
    // user-interface thread.
    enum { WidgetDeleted = 10, WidgetMoved = 12 };
    Qor::Ptr<Qor::Guard> registerForNotification(int type,
                                                 Qor::Ptr<iCallbackBase<int, NotifyMsg>> const& cb);
    void notifyMoved(Glob* glob);
    // Every mouse event, whatever widget it goes to, as "MouseEvent" with a WrappedData<Event>.
    Qor::Ptr<Qor::Guard> addMouseListener(Qor::Ptr<iCallbackBase<int, NotifyMsg>> const& cb);

private:
    GlobManager();
    friend class GlobManagerAccess;

    struct Tracked {
        mutable Glob* glob = nullptr;
        IdStamp stamp = IdStamp::null();
        mutable unsigned long long checkedAt = 0;
        Glob* get() const;
        void set(Glob* g);
    };

    void dispatchKey(InputEvent const& input);
    void dispatchButton(InputEvent const& input);
    void dispatchMotion(InputEvent const& input);
    void dispatchWheel(InputEvent const& input);
    void dispatchWindowEvent(InputEvent const& input);
    void updatePointer(XY<int> const& rootPos);
    void closeModalPopupsOutside(Glob* target);
    Event mouseEvent(Glob* target, int type, InputEvent const& input) const;
    int countClicks(InputEvent const& input);
    bool intercepted(Event const& event);

    void tellMouseListeners(Event const& event);

    // Theme changes reach every widget through handleUIChange.
    Qor::Ptr<iObject> themeListener_;
    Notifier widgetNotifier_;
    Notifier mouseNotifier_;
    std::set<Glob*> live_;
    std::vector<Glob*> topLevels_;
    std::vector<Tracked> deletions_;
    struct Queued {
        Event event;
        IdStamp stamp;
    };
    std::deque<Queued> queue_;
    std::vector<unsigned> actions_;
    int lastCursor_ = -1;
    std::map<Glob*, Tracked> modal_;
    Tracked focus_;
    Tracked grab_;
    Tracked under_;
    XY<int> pointer_;
    XY<int> pressRootPos_;
    int buttonsHeld_ = 0;
    int lastClickButton_ = 0;
    double lastClickTime_ = -1e9;
    XY<int> lastClickPos_;
    int clickCount_ = 0;
    int handlerDepth_ = 0;
    XY<int> nextRootPos_;
    bool dumpEnable_ = false;
};

namespace Glib {
// A listener called with every mouse event; dropping the guard ends it.
Qor::Ptr<Qor::Guard> addMouseListener(Qor::Ptr<iCallbackBase<int, NotifyMsg>> const& listener);
} // namespace Glib
