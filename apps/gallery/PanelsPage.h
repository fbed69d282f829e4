#pragma once

// Panels: a standard panel with each border type, with and without a title area and a status
// area, and a small form whose fields take the focus in turn on Tab and Shift+Tab.

#include "GalleryPage.h"

#include "panels/StandardPanel.h"
#include "panels/TabOrderable.h"

// A field of the demonstration form: a box with a label that shows when it holds the focus.
class FocusField : public Glob, public TabOrderable {
public:
    FocusField(GlobCreationInfo const& info, wchar_t const* label);

    char const* idstring() const override { return "FocusField"; }
    bool isTabStopActive() override;
    void handleTabStopFocusReceipt(eDirection direction) override;
    void handleTabStopFocusLoss() override;
    void handleKbdFocus() override;
    int react(Event const& event) override;
    void drawBackground() override;

private:
    LightweightString<wchar_t> label_;
};

class PanelsPage : public GalleryPage {
public:
    explicit PanelsPage(GlobCreationInfo const& info);
    wchar_t const* title() const override { return L"Panels"; }
    char const* fileStem() const override { return "panels"; }
    void drawBackground() override;
    void drawWidgets() override;

private:
    StandardPanel* addPanel(XY<int> const& at, XY<int> const& size, Border const& border);
    void addForm(XY<int> const& at);

    StandardPanel* form_ = nullptr;
};
