#include "DrawTestWindow.h"

#include "glib/HostImage.h"
#include "qor/UTF8.h"
#include "support/DiagnosticCapture.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

using namespace DrawTest;

namespace {

Qor::Ptr<HostImage> redOverBlue(int width, int height) {
    auto image = Qor::makePtr<HostImage>(width, height);
    image->fill(Box(0, height / 2, width, height), kRed);
    image->fill(Box(0, 0, width, height / 2), kBlue);
    return image;
}

Qor::Ptr<iHostImage> load(std::string const& path, double scale = 1) {
    return ImageServices::loadImage(fromUTF8(path.c_str()), scale);
}

TEST(ImageFiles, PngReadsBackTheRightWayUpWithItsAlpha) {
    TemporaryDirectory folder;
    DiagnosticCapture diagnostics;
    auto written = redOverBlue(6, 4);
    written->setPixel(0, 0, NormalisedRGB(0, 1, 0, 0.5f));
    ASSERT_TRUE(written->savePng(folder.file("picture.png").c_str()));

    Qor::Ptr<iHostImage> image = load(folder.file("picture.png"), 2);
    ASSERT_TRUE(image);
    EXPECT_EQ(XY<int>(image->width(), image->height()), XY<int>(6, 4));
    EXPECT_EQ(image->scale(), 2.0);
    EXPECT_TRUE(sameColour(image->pixel(3, 3), kRed));
    EXPECT_TRUE(sameColour(image->pixel(3, 0), kBlue));
    EXPECT_TRUE(sameColour(image->pixel(0, 0), NormalisedRGB(0, 1, 0, 0.5f)));
    EXPECT_TRUE(diagnostics.lines().empty());
}

TEST(ImageFiles, MissingFileGivesNothingQuietlyAndAnUndecodableOneSaysWhich) {
    TemporaryDirectory folder;
    DiagnosticCapture diagnostics;
    EXPECT_FALSE(load(folder.file("absent.png")));
    EXPECT_TRUE(diagnostics.lines().empty());

    std::ofstream(folder.file("broken.png")) << "\x89PNG\r\n\x1a\n but not really an image";
    EXPECT_FALSE(load(folder.file("broken.png")));
    ASSERT_EQ(diagnostics.lines().size(), 1u);
    EXPECT_NE(diagnostics.lines()[0].find("broken.png"), std::string::npos);
}

TEST(ImageCreation, NewImageIsTransparentAndNeedsASize) {
    Qor::Ptr<iHostImage> image = ImageServices::createImage(5, 3);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->pixel(2, 1).a, 0.0f);
    EXPECT_EQ(image->pixel(9, 9).a, 0.0f);
    EXPECT_FALSE(ImageServices::createImage(0, 3));
}

TEST(IconTransforms, ResizedIconHasTheSizeAskedAndAveragesWhatItShrinks) {
    auto image = Qor::makePtr<HostImage>(32, 32, 2.0);
    image->fill(Box(0, 0, 16, 32), kRed);
    image->fill(Box(16, 0, 32, 32), kBlue);
    Qor::Ptr<iHostImage> small = QorImage::createResizedIcon(image, 8, 4);
    ASSERT_TRUE(small);
    EXPECT_EQ(XY<int>(small->width(), small->height()), XY<int>(8, 4));
    EXPECT_EQ(small->scale(), 2.0);
    EXPECT_TRUE(sameColour(small->pixel(0, 0), kRed));
    EXPECT_TRUE(sameColour(small->pixel(7, 3), kBlue));

    // Fine stripes of black and white shrink to grey rather than to one of them.
    auto stripes = Qor::makePtr<HostImage>(16, 16);
    for (int x = 0; x < 16; ++x)
        stripes->fill(Box(x, 0, x + 1, 16), NormalisedRGB(x % 2, x % 2, x % 2));
    Qor::Ptr<iHostImage> grey = QorImage::createResizedIcon(stripes, 4, 4);
    EXPECT_TRUE(sameColour(grey->pixel(1, 1), NormalisedRGB(0.5f, 0.5f, 0.5f), 0.1f));

    EXPECT_FALSE(QorImage::createResizedIcon(image, 0, 8));
}

TEST(IconTransforms, FadedIconIsGreyAtHalfTheAlphaAndLeavesTheOriginal) {
    auto image = Qor::makePtr<HostImage>(4, 2);
    image->fill(Box(0, 0, 2, 2), kRed);
    image->fill(Box(2, 0, 4, 2), NormalisedRGB(0, 0, 1, 0.5f));
    Qor::Ptr<iHostImage> faded = QorImage::createFadedIcon(image);
    ASSERT_TRUE(faded);
    EXPECT_TRUE(sameColour(faded->pixel(0, 0), NormalisedRGB(0.299f, 0.299f, 0.299f, 0.5f), 0.03f));
    NormalisedRGB blue = faded->pixel(3, 1);
    EXPECT_NEAR(blue.a, 0.25f, 0.01f);
    EXPECT_NEAR(blue.r, blue.b, 0.01f);
    EXPECT_TRUE(sameColour(image->pixel(0, 0), kRed));
}

TEST(IconTransforms, RecolouredIconTakesTheColourAndKeepsTheAlpha) {
    auto image = redOverBlue(4, 4);
    image->setPixel(0, 0, NormalisedRGB(1, 1, 1, 0.6f));
    image->setPixel(3, 3, NormalisedRGB(0, 0, 0, 0));
    Qor::Ptr<iHostImage> green = QorImage::createRecolouredIcon(image, Colour(0, 0.5, 0));
    ASSERT_TRUE(green);
    EXPECT_TRUE(sameColour(green->pixel(1, 3), NormalisedRGB(0, 0.5f, 0)));
    EXPECT_TRUE(sameColour(green->pixel(0, 0), NormalisedRGB(0, 0.5f, 0, 0.6f)));
    EXPECT_EQ(green->pixel(3, 3).a, 0.0f);
}

TEST(IconTransforms, RoundedIconLosesItsCornersOnly) {
    auto image = redOverBlue(20, 20);
    Qor::Ptr<iHostImage> rounded = QorImage::createRoundedIcon(image, 6);
    ASSERT_TRUE(rounded);
    EXPECT_EQ(rounded->pixel(0, 0).a, 0.0f);
    EXPECT_EQ(rounded->pixel(19, 19).a, 0.0f);
    EXPECT_TRUE(sameColour(rounded->pixel(10, 19), kRed));
    EXPECT_TRUE(sameColour(rounded->pixel(0, 8), kBlue));
    // With no radius nothing is cut.
    EXPECT_TRUE(sameColour(QorImage::createRoundedIcon(image, 0)->pixel(0, 0), kBlue));
}

} // namespace
