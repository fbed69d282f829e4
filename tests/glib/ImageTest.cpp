#include "DrawTestWindow.h"

#include "glib/HostImage.h"
#include "os/Diagnostics.h"
#include "qor/UTF8.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

using namespace DrawTest;

namespace {

Qor::Ptr<HostImage> redOverBlue(int width, int height) {
    auto image = Qor::makePtr<HostImage>(width, height);
    image->fill(Box(0, height / 2, width, height), kRed);
    image->fill(Box(0, 0, width, height / 2), kBlue);
    return image;
}

class ImageFiles : public ::testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (std::filesystem::temp_directory_path() / "images-XXXXXX").string();
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        folder_ = pattern;
        Diagnostics::setConsoleEcho(false);
        previous_ = Diagnostics::setListener(
            [this](std::string const& line) { diagnostics_.push_back(line); });
    }
    void TearDown() override {
        Diagnostics::setListener(previous_);
        Diagnostics::setConsoleEcho(true);
        std::filesystem::remove_all(folder_);
    }

    std::string file(char const* name) const { return (folder_ / name).string(); }
    static Qor::Ptr<iHostImage> load(std::string const& path) {
        return ImageServices::loadImage(fromUTF8(path.c_str()));
    }

    std::filesystem::path folder_;
    std::vector<std::string> diagnostics_;
    Diagnostics::Listener previous_;
};

TEST_F(ImageFiles, PngReadsBackTheRightWayUpWithItsAlpha) {
    auto written = redOverBlue(6, 4);
    written->setPixel(0, 0, NormalisedRGB(0, 1, 0, 0.5f));
    ASSERT_TRUE(written->savePng(file("picture.png").c_str()));

    Qor::Ptr<iHostImage> image = ImageServices::loadImage(fromUTF8(file("picture.png").c_str()), 2);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->width(), 6);
    EXPECT_EQ(image->height(), 4);
    EXPECT_EQ(image->scale(), 2.0);
    EXPECT_TRUE(sameColour(image->pixel(3, 3), kRed));
    EXPECT_TRUE(sameColour(image->pixel(3, 0), kBlue));
    EXPECT_TRUE(sameColour(image->pixel(0, 0), NormalisedRGB(0, 1, 0, 0.5f)));
    EXPECT_TRUE(diagnostics_.empty());
}

TEST_F(ImageFiles, MissingFileGivesNothingAndSaysNothing) {
    EXPECT_FALSE(load(file("absent.png")));
    EXPECT_TRUE(diagnostics_.empty());
}

TEST_F(ImageFiles, UndecodableFileGivesNothingAndOneDiagnostic) {
    std::ofstream(file("broken.png")) << "\x89PNG\r\n\x1a\n but not really an image";
    EXPECT_FALSE(load(file("broken.png")));
    ASSERT_EQ(diagnostics_.size(), 1u);
    EXPECT_NE(diagnostics_[0].find("broken.png"), std::string::npos);
}

TEST(ImageCreation, NewImageIsTransparentAndNeedsASize) {
    Qor::Ptr<iHostImage> image = ImageServices::createImage(5, 3);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->width(), 5);
    EXPECT_EQ(image->height(), 3);
    EXPECT_EQ(image->scale(), 1.0);
    EXPECT_EQ(image->pixel(2, 1).a, 0.0f);
    EXPECT_EQ(image->pixel(9, 9).a, 0.0f);
    EXPECT_FALSE(ImageServices::createImage(0, 3));
    EXPECT_FALSE(ImageServices::createImage(4, -1));
}

TEST(IconTransforms, ResizedIconHasTheSizeAskedAndAveragesWhatItShrinks) {
    auto image = Qor::makePtr<HostImage>(32, 32, 2.0);
    image->fill(Box(0, 0, 16, 32), kRed);
    image->fill(Box(16, 0, 32, 32), kBlue);
    Qor::Ptr<iHostImage> small = QorImage::createResizedIcon(image, 8, 8);
    ASSERT_TRUE(small);
    EXPECT_EQ(small->width(), 8);
    EXPECT_EQ(small->height(), 8);
    EXPECT_EQ(small->scale(), 2.0);
    EXPECT_TRUE(sameColour(small->pixel(0, 0), kRed));
    EXPECT_TRUE(sameColour(small->pixel(7, 7), kBlue));

    // Fine stripes of black and white shrink to grey rather than to one of them.
    auto stripes = Qor::makePtr<HostImage>(16, 16);
    for (int x = 0; x < 16; ++x)
        stripes->fill(Box(x, 0, x + 1, 16),
                      x % 2 ? NormalisedRGB(1, 1, 1) : NormalisedRGB(0, 0, 0));
    Qor::Ptr<iHostImage> grey = QorImage::createResizedIcon(stripes, 4, 4);
    EXPECT_TRUE(sameColour(grey->pixel(1, 1), NormalisedRGB(0.5f, 0.5f, 0.5f), 0.1f));

    EXPECT_FALSE(QorImage::createResizedIcon(image, 0, 8));
    EXPECT_FALSE(QorImage::createResizedIcon(Qor::Ptr<iHostImage>(), 8, 8));
}

TEST(IconTransforms, FadedIconIsGreyAtHalfTheAlpha) {
    auto image = Qor::makePtr<HostImage>(4, 2);
    image->fill(Box(0, 0, 2, 2), kRed);
    image->fill(Box(2, 0, 4, 2), NormalisedRGB(0, 0, 1, 0.5f));
    Qor::Ptr<iHostImage> faded = QorImage::createFadedIcon(image);
    ASSERT_TRUE(faded);
    NormalisedRGB red = faded->pixel(0, 0);
    EXPECT_TRUE(sameColour(red, NormalisedRGB(0.299f, 0.299f, 0.299f, 0.5f), 0.03f));
    NormalisedRGB blue = faded->pixel(3, 1);
    EXPECT_NEAR(blue.a, 0.25f, 0.01f);
    EXPECT_NEAR(blue.r, blue.b, 0.01f);
    EXPECT_LT(blue.r, red.r);
    // The original is untouched.
    EXPECT_TRUE(sameColour(image->pixel(0, 0), kRed));
    EXPECT_FALSE(QorImage::createFadedIcon(Qor::Ptr<iHostImage>()));
}

TEST(IconTransforms, RecolouredIconTakesTheColourAndKeepsTheAlpha) {
    auto image = redOverBlue(4, 4);
    image->setPixel(0, 0, NormalisedRGB(1, 1, 1, 0.6f));
    image->setPixel(3, 3, NormalisedRGB(0, 0, 0, 0));
    Qor::Ptr<iHostImage> green = QorImage::createRecolouredIcon(image, Colour(0, 0.5, 0));
    ASSERT_TRUE(green);
    EXPECT_TRUE(sameColour(green->pixel(1, 3), NormalisedRGB(0, 0.5f, 0)));
    EXPECT_TRUE(sameColour(green->pixel(1, 0), NormalisedRGB(0, 0.5f, 0)));
    EXPECT_TRUE(sameColour(green->pixel(0, 0), NormalisedRGB(0, 0.5f, 0, 0.6f)));
    EXPECT_EQ(green->pixel(3, 3).a, 0.0f);
}

TEST(IconTransforms, RoundedIconLosesItsCornersOnly) {
    auto image = redOverBlue(20, 20);
    Qor::Ptr<iHostImage> rounded = QorImage::createRoundedIcon(image, 6);
    ASSERT_TRUE(rounded);
    EXPECT_EQ(rounded->width(), 20);
    for (XY<int> corner : {XY<int>(0, 0), XY<int>(19, 0), XY<int>(0, 19), XY<int>(19, 19)})
        EXPECT_EQ(rounded->pixel(corner.x, corner.y).a, 0.0f);
    EXPECT_TRUE(sameColour(rounded->pixel(10, 19), kRed));
    EXPECT_TRUE(sameColour(rounded->pixel(0, 8), kBlue));
    EXPECT_TRUE(sameColour(rounded->pixel(10, 10), kRed));
    // With no radius nothing is cut.
    EXPECT_TRUE(sameColour(QorImage::createRoundedIcon(image, 0)->pixel(0, 0), kBlue));
}

} // namespace
