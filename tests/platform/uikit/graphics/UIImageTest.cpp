#include "platform/uikit/graphics/UIImage.h"
#include "tests/support/MemoryWorld.h"

namespace prismo {
namespace {

struct UIImageTest : MemoryWorld {
    static constexpr const char* path = "/icon.png";
    /// The first 24 bytes of a file of 258 × 65539 points.
    Data png{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n', 0, 0, 0, 13,
             'I',  'H', 'D', 'R', 0,    0,    1,    2,    0, 1, 0, 3};
};

TEST_F(UIImageTest, SizeComesFromTheFilesHeader) {
    device.setFile(path, png);
    const auto image = UIImage::imageWithContentsOfFile(path);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize{258, 65539}));
    EXPECT_EQ(image->data(), png);
}

TEST_F(UIImageTest, MissingFileIsNotAnImage) {
    EXPECT_EQ(UIImage::imageWithContentsOfFile("/gone.png"), nullptr);
}

TEST_F(UIImageTest, FileTruncatedInItsHeaderIsNotAnImage) {
    png.pop_back();
    device.setFile(path, png);
    EXPECT_EQ(UIImage::imageWithContentsOfFile(path), nullptr);
}

TEST_F(UIImageTest, FileOfAnotherFormatIsNotAnImage) {
    for (std::size_t i = 0; i < 8; ++i) {
        auto other = png;
        other[i] ^= 1;
        device.setFile(path, other);
        EXPECT_EQ(UIImage::imageWithContentsOfFile(path), nullptr) << i;
    }
}

} // namespace
} // namespace prismo
