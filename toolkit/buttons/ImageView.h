#pragma once

// A panel that shows one image, centred in its user area and shrunk (never enlarged) to fit.

#include "glib/Image.h"
#include "panels/StandardPanel.h"

class ImageView : public StandardPanel {
public:
    struct InitArgs : StandardPanel::InitArgs {
        InitArgs() = default;
        InitArgs(Qor::Ptr<iHostImage> const& image_, unsigned short w, unsigned short h)
            : StandardPanel::InitArgs(w, h), image(image_) {}
        Qor::Ptr<iHostImage> image;
    };

    explicit ImageView(InitArgs const& args);

    char const* idstring() const override { return "ImageView"; }
    // Shows the image (an empty pointer shows none) and repaints.
    void setImage(Qor::Ptr<iHostImage> const& image);
    Qor::Ptr<iHostImage> const& getImage() const { return image_; }
    void drawBackground() override;

private:
    Qor::Ptr<iHostImage> image_;
};
