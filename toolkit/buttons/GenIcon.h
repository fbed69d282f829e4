#pragma once

// An icon the user can drag about: a panel that shows one image of an icon set and takes the
// image's outline as its shape. Icons inside a tool tray (a parent whose idstring is "toolbox")
// are laid out by the tray, which is asked to lay them out again after a drop.

#include "buttons/IconSet.h"
#include "glib/Image.h"
#include "glib/Region.h"
#include "glob/DragDropItem.h"
#include "panels/StandardPanel.h"

class GenIcon : public StandardPanel, public DragDropItem {
public:
    static constexpr DragDropItemType iconDragType = 7;
    // Sent to the tool tray when an icon in it was dropped.
    static char const* const toolboxRepopulateMsg;

    struct InitArgs : StandardPanel::InitArgs {
        InitArgs() = default;
        explicit InitArgs(IconSet const& icons_, unsigned short size_ = 0)
            : icons(icons_), size(size_) {}
        IconSet icons;
        // The image's height in interface pixels; 0 for the file's own size.
        unsigned short size = 0;
    };

    explicit GenIcon(InitArgs const& args);

    char const* idstring() const override { return "GenIcon"; }
    DragDropItemType dragDropType() const override { return iconDragType; }
    // Remembers where the icon was, so that a cancelled drop puts it back.
    void pick() override;
    void drop(Glob::eDropReason reason) override;
    bool isMagnetic() const override { return !containedInsideToolbox(); }
    void dump(configb& config) const override;
    void load(configb const& config) override;
    void drawBackground() override;
    void reshapeCanvas() override;

    // Shows the first image of the set.
    void reInit(IconSet const& icons);
    void setImage(LightweightString<wchar_t> const& name);
    // Sizes the panel to the image and shapes its window to it.
    void initForImage();
    // The image's opaque pixels in interface pixels; empty without an image.
    Qor::Ptr<iRegion> getRegionForImage() const;
    // `pos` (bottom-left corner) moved as little as needed to keep the icon inside the maximised
    // area, or `pos` itself when `constrain` is false.
    XY<int> getMaximisedPos(XY<int> const& pos, bool constrain) const;
    bool containedInsideToolbox() const;
    void requestToolboxRepopulate();

    IconSet const& getIcons() const { return icons_; }
    Qor::Ptr<iHostImage> const& getImage() const { return image_; }
    unsigned short getIconSize() const { return size_; }

private:
    Glob* findToolbox() const;
    XY<int> currentPos() const;

    IconSet icons_;
    LightweightString<wchar_t> imageName_;
    unsigned short size_;
    Qor::Ptr<iHostImage> image_;
    XY<int> pickedPos_;
};

// The base for icons that applications specialise; it is a GenIcon under its own class name.
class GenIconDerivative : public GenIcon {
public:
    using GenIcon::GenIcon;

    char const* idstring() const override { return "GenIconDerivative"; }
};
