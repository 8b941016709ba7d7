#include <gtest/gtest.h>

#include "pix/VELDImage.h"

TEST(VELDImage, MaximumCornerIsTheCentreOfTheLastPixel) {
    auto dib = std::make_shared<pix::CDibImage>(QImage(101, 51, QImage::Format_RGB32));
    CVELDImage image(QStringLiteral("ortho"), dib, 1.0, 1000, 2000);
    EXPECT_EQ(image.GetImage()->GetWidth(), 101u);
    EXPECT_DOUBLE_EQ(image.GetXMax(), 1100.0);
    EXPECT_DOUBLE_EQ(image.GetYMax(), 2050.0);
    image.Set(0.5, 10, 20);
    EXPECT_DOUBLE_EQ(image.GetXMax(), 60.0);
    EXPECT_DOUBLE_EQ(image.GetYMax(), 45.0);
    CVELDImage empty(QStringLiteral("none"), nullptr, 2.0, 5, 5);
    EXPECT_DOUBLE_EQ(empty.GetXMax(), 5.0);
}
