#pragma once

// Groups: titled groups with each separator style, a group that folds to its title row, labels
// beside controls, a frame and a drop indicator, two panes with a splitter between them that the
// user drags, and a busy indicator.

#include "GalleryPage.h"

#include "panels/ActionIndicator.h"
#include "panels/Splitter.h"
#include "panels/StandardPanel.h"

// A stand-in control: a sunken field with a word in it.
class SampleField : public Glob {
public:
    struct InitArgs : GlobCreationInfo {
        InitArgs() = default;
        InitArgs(wchar_t const* label_, unsigned short w, unsigned short h)
            : GlobCreationInfo(w, h), label(label_) {}
        wchar_t const* label = L"";
    };

    explicit SampleField(InitArgs const& args);

    char const* idstring() const override { return "SampleField"; }
    void drawBackground() override;

private:
    LightweightString<wchar_t> label_;
};

class GroupsPage : public GalleryPage {
public:
    explicit GroupsPage(GlobCreationInfo const& info);
    wchar_t const* title() const override { return L"Groups"; }
    char const* fileStem() const override { return "groups"; }
    void drawBackground() override;

private:
    void addTitledGroups(int y);
    void addFoldingGroup(XY<int> const& at);
    void addLabelledFields(XY<int> const& at);
    void addFrames(XY<int> const& at);
    void addPanes(XY<int> const& at);
    void addIndicator(XY<int> const& at);
    void fillWithFields(StandardPanel* group, int rows);
    int handleSplitter(NotifyMsg const& msg);
    // Puts the splitter's left edge at x (page coordinates) and fits the panes on either side.
    void placeSplitter(int x);

    StandardPanel* leftPane_ = nullptr;
    StandardPanel* rightPane_ = nullptr;
    Splitter* splitter_ = nullptr;
    Box panesBox_;
    int dragStartX_ = 0;
};
