// The fitted bold face: a font file cut short or of the wrong kind gives no
// face, and the game keeps the clone's own bold file.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "tools/bold_face.h"

namespace {

using fendle::font::fitBoldFace;

std::string fileBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

TEST(BoldFace, DamagedSystemFontsGiveNoFace) {
    const std::string spacing = fileBytes("/usr/share/wine/fonts/tahomabd.ttf");
    const std::string shapes = fileBytes("/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf");
    if (spacing.empty() || shapes.empty()) GTEST_SKIP() << "the fonts are not installed";
    ASSERT_TRUE(fitBoldFace(spacing, shapes));
    for (std::size_t cut : {std::size_t(0), std::size_t(11), std::size_t(300), spacing.size() / 2, spacing.size() - 8})
        EXPECT_FALSE(fitBoldFace(spacing.substr(0, cut), shapes)) << cut;
    EXPECT_FALSE(fitBoldFace(spacing, shapes.substr(0, shapes.size() / 2)));
    EXPECT_FALSE(fitBoldFace(spacing, std::string(4096, '\x7f')));
}

}  // namespace
