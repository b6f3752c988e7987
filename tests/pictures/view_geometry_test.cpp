// Sizes, zoom steps and status words.

#include "pictures/view_geometry.h"

#include "tests/support/fixture.h"

using namespace Qt::StringLiterals;

TEST(ViewGeometry, APictureFitsItsBox) {
    struct Case {
        double boxW, boxH, imgW, imgH, width, height, x, y;
        float zoom;
    };
    const Case cases[] = {
        {400, 300, 200, 100, 200, 100, 100, 100, 1},      // smaller: as it is
        {400, 300, 400, 300, 400, 300, 0, 0, 1},          // just so
        {400, 300, 800, 300, 400, 150, 0, 75, 0.5F},      // too wide
        {400, 300, 100, 600, 50, 300, 175, 0, 0.5F},      // too high
        {400, 300, 800, 600, 400, 300, 0, 0, 0.5F},       // both, even
        {400, 300, 1600, 900, 400, 225, 0, 37.5, 0.25F},  // both, wider
        {400, 300, 800, 1200, 200, 300, 100, 0, 0.25F},   // both, higher
    };
    for (const auto& c : cases) {
        const auto fit = FitToBox(c.boxW, c.boxH, c.imgW, c.imgH);
        ASSERT_TRUE(fit) << c.imgW;
        EXPECT_DOUBLE_EQ(fit->width, c.width) << c.imgW;
        EXPECT_DOUBLE_EQ(fit->height, c.height) << c.imgW;
        EXPECT_DOUBLE_EQ(fit->x, c.x) << c.imgW;
        EXPECT_DOUBLE_EQ(fit->y, c.y) << c.imgW;
        EXPECT_FLOAT_EQ(fit->zoom, c.zoom) << c.imgW;
    }
    EXPECT_FALSE(FitToBox(0, 300, 1, 1));
    EXPECT_FALSE(FitToBox(400, 0, 1, 1));
    EXPECT_FALSE(FitToBox(400, 300, 0, 1));
    EXPECT_FALSE(FitToBox(400, 300, 1, 0));
}

TEST(ViewGeometry, ZoomStepsStopAtTheirLimits) {
    struct Case {
        ZoomStep (*step)(float);
        float from, to;
        QString message;
    };
    const Case cases[] = {
        {ZoomIn, 0.9F, 1.1F, {}},
        {ZoomIn, 1.1F, 1.6F, {}},
        {ZoomIn, 3.5F, 4, {}},
        {ZoomIn, 3.8F, 4, u"最多放大 400%"_s},
        {ZoomOut, 1, 0.5F, {}},
        {ZoomOut, 0.5F, 0.3F, {}},
        {ZoomOut, 0.2F, 0.1F, u"最多缩小到 10%"_s},
    };
    for (const auto& c : cases) {
        const auto step = c.step(c.from);
        EXPECT_FLOAT_EQ(step.zoom, c.to) << c.from;
        EXPECT_EQ(step.message, c.message) << c.from;
    }
    float angle = 0;
    for (const float next : {90.F, 180.F, 270.F, 0.F})
        EXPECT_EQ(angle = NextAngle(angle), next);
}

TEST(ViewGeometry, CopiesFollowTheLongerSideOrTheGivenOne) {
    struct Thumb {
        PixelSize image, wish;
        bool noEnlarge;
        PixelSize size;
    };
    const Thumb thumbs[] = {
        {{3000, 2000}, {120, 90}, true, {120, 80}},
        {{2000, 3000}, {120, 90}, true, {60, 90}},
        {{500, 500}, {120, 90}, true, {90, 90}},
        {{100, 50}, {120, 40}, true, {100, 50}},  // wider than the image: left alone
        {{100, 50}, {80, 60}, true, {100, 50}},   // higher
        {{100, 50}, {120, 40}, false, {120, 60}},
        {{300, 100}, {100, 90}, true, {100, 33}},
    };
    for (const auto& c : thumbs)
        EXPECT_EQ(ThumbnailSize(c.image, c.wish, c.noEnlarge), c.size)
            << c.image.width << ' ' << c.wish.width;
    struct Resize {
        PixelSize wish;
        bool enlarge;
        std::optional<PixelSize> size;
    };
    const Resize sizes[] = {
        {{0, 0}, true, {}},
        {{150, 0}, false, PixelSize{150, 100}},
        {{0, 100}, false, PixelSize{150, 100}},
        {{10, 100}, false, PixelSize{10, 100}},
        {{600, 0}, false, PixelSize{300, 200}},
        {{10, 201}, false, PixelSize{300, 200}},
        {{600, 0}, true, PixelSize{600, 400}},
    };
    for (const auto& c : sizes)
        EXPECT_EQ(ReSizeOf({300, 200}, c.wish, c.enlarge), c.size) << c.wish.width << ' ' << c.wish.height;
    EXPECT_EQ(ReSizeOf({0, 0}, {10, 10}, true), std::nullopt);
}

TEST(ViewGeometry, EveryStatusHasItsWords) {
    const std::map<int, QString> words{
        {0, u"Unknown GDI+ Error"_s},    {1, u"Generic Error"_s},       {7, u"Win32 Error"_s},
        {13, u"Unknown Image Format"_s}, {16, u"Not TrueType Font"_s},  {17, u"Unknown GDI+ Error"_s},
        {18, u"Unknown GDI+ Error"_s},   {19, u"Property Not Found"_s}, {20, u"Property Not Supported"_s},
        {21, u"Unknown GDI+ Error"_s}};
    for (const auto& [status, text] : words)
        EXPECT_EQ(GdiErrorString(status), text) << status;
    EXPECT_EQ(GdiErrorMessage(2, {}, {}), u"Error\nError code 2\nInvalid Parameter"_s);
    EXPECT_EQ(GdiErrorMessage(3, u"resize"_s, u"a.jpg"_s),
              u"Error : resize\nError code 3\nOut Of Memory\na.jpg"_s);
}
