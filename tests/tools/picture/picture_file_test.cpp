#include "tools/picture/picture_file.h"

#include "tests/support/in_temporary_folder.h"
#include "tools/common/error.h"
#include "tools/picture/png_image.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::ThrowsMessage;
using tools::Error;
using tools::picture::PictureFile;
using tools::picture::RgbImage;

namespace {

RgbImage makeGradient(tools::picture::Size size)
{
    RgbImage image{size, {}};
    for (std::uint32_t i = 0; i < 3 * size.width * size.height; ++i) {
        image.pixels.push_back(static_cast<std::uint8_t>(i * 7));
    }
    return image;
}

class PictureFiles : public InTemporaryFolder {};

TEST_F(PictureFiles, HoldThePictureAsPng)
{
    const RgbImage image = makeGradient({17, 5});
    PictureFile("p.png").write(image);
    const RgbImage decoded = tools::picture::decodePng(read("p.png"), "p.png");
    EXPECT_EQ(decoded.size, image.size);
    EXPECT_EQ(decoded.pixels, image.pixels);
    EXPECT_EQ(read("p.png"), tools::picture::encodePicture(image));
}

TEST_F(PictureFiles, HoldThePixelsAloneAsRgb)
{
    const RgbImage image = makeGradient({17, 5});
    PictureFile("p.rgb").write(image);
    EXPECT_EQ(read("p.rgb"), std::string(image.pixels.begin(), image.pixels.end()));
    EXPECT_THAT(namesIn("."), ElementsAre("p.rgb"));
}

TEST_F(PictureFiles, AreRefusedUnderOtherNamesAndInMissingFolders)
{
    EXPECT_THAT([] { PictureFile("p.jpg"); },
                ThrowsMessage<Error>("p.jpg: expected a name that ends in .png or .rgb, or -"));
    EXPECT_THAT([] { PictureFile(""); },
                ThrowsMessage<Error>(": expected a name that ends in .png or .rgb, or -"));
    EXPECT_THAT([] { PictureFile("none/p.png"); },
                ThrowsMessage<Error>("none/p.png: cannot write: there is no such folder"));
    EXPECT_THAT(namesIn("."), IsEmpty());
}

} // namespace
