#include "buttons/ImageButton.h"

ImageButton::ImageButton(InitArgs const& args) : Button(args) {
    setIcons(args.upIcon, args.downIcon);
}
