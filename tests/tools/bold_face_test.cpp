// The fitted bold face: a font file cut short, of the wrong kind or damaged
// gives no face, and quickly; the game then keeps the clone's own bold file.
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

// The seeds of the fuzz target: tiny faces made by fuzz/make_bold_face_seeds.py,
// whole or damaged in one way each.
TEST(BoldFace, SeedsMakeAFaceOnlyWhenWhole) {
    const struct {
        const char* seed;
        bool face;
    } cases[] = {
        {"face_tiny", true},
        {"face_short_loca_no_strikes", true},
        {"damaged_cmap12_whole_unicode", false},
        {"damaged_cmap12_overlapping", false},
        {"damaged_cmap4_overlapping", false},
        {"damaged_cmap4_glyph_past_the_end", false},
        {"damaged_cmap_past_the_table", false},
        {"damaged_component_of_itself", false},
        {"damaged_components_many_times_over", false},
        {"damaged_coordinate_far_out", false},
        {"damaged_tables_laid_over_each_other", false},
    };
    for (const auto& c : cases) {
        const std::string bytes = fileBytes(std::string(FENDLE_BOLD_FACE_SEEDS "/") + c.seed + ".bin");
        ASSERT_GE(bytes.size(), 2u) << c.seed;
        const std::size_t cut = std::size_t(std::uint8_t(bytes[0])) << 8 | std::uint8_t(bytes[1]);
        EXPECT_EQ(fitBoldFace(bytes.substr(2, cut), bytes.substr(2 + cut)).has_value(), c.face) << c.seed;
    }
}

}  // namespace
