#pragma once

// A panel whose business is to hold other widgets, which come and go. It counts them (its
// standard widgets aside) and tells a derived class when they change. WidgetBg is a host that
// shows a centred caption on its background while it holds nothing.

#include "panels/StandardPanel.h"

class WidgetHost : public StandardPanel {
public:
    using InitArgs = StandardPanel::InitArgs;

    explicit WidgetHost(InitArgs const& args);

    char const* idstring() const override { return "WidgetHost"; }
    int hostedWidgetCount() const;
    // A widget came or went.
    virtual void handleHostedWidgetsChanged() {}
    void handleWidgetAdded(WidgetDetails const& details) override;
    void removeWidget(Glob*& child, bool destroy) override;
};

class WidgetBg : public WidgetHost {
public:
    struct InitArgs : WidgetHost::InitArgs {
        InitArgs() = default;
        InitArgs(UIString const& caption_, unsigned short w, unsigned short h)
            : WidgetHost::InitArgs(w, h), caption(caption_) {}
        UIString caption;
    };

    explicit WidgetBg(InitArgs const& args);

    char const* idstring() const override { return "WidgetBg"; }
    void setCaption(UIString const& caption);
    UIString const& getCaption() const { return caption_; }
    void handleHostedWidgetsChanged() override { update(); }
    void drawBackground() override;

private:
    UIString caption_;
};
