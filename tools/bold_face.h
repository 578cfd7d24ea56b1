// The bold face the game draws its Tahoma texts with. The Tahoma clone on
// the machine has a bold file whose glyphs are the regular outlines, only
// spaced wider: "FENDLE!" in bold looks as thin as in regular. fitBoldFace
// builds a TrueType face that keeps everything of that file that decides
// where text goes (advance widths, kerning, line metrics, names, glyph
// numbers) and draws each character with the outline of a true bold face of
// the same design family (DejaVu Sans Bold), scaled across to the clone's
// advance. Text set in it takes exactly the room it took before. The build
// writes it into the game folder once (make_bold_face).
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace fendle::font {

// `spacing`: the bytes of the clone's bold file; `shapes`: the bytes of the
// bold face whose outlines are drawn. Characters that `shapes` lacks keep
// the outline of `spacing`. Nothing when either file is not a TrueType face
// this code can read.
std::optional<std::string> fitBoldFace(std::string_view spacing, std::string_view shapes);

}  // namespace fendle::font
