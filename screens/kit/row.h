// A row of a screen's table of controls: one control as the screen was
// drawn, with its place and size in twips. Every screen is such a table:
//
//   inline constexpr kit::Row rows[] = {
//       {.name = "Label6", .kind = kit::Kind::Button,
//        .left = 240, .top = 1440, .width = 2895, .height = 435,
//        .caption = "The Rules", .size = 15.75, .bold = true,
//        .fore = colour::yellow, .back = colour::black,
//        .align = kit::Align::Centre, .border = true},
//       ...
//   };
//
// Stacking. Rows are stacked in table order, a later row in front of an
// earlier one; the windowed kinds (frame, picture box, check box, option
// button, text box, push button, scroll bar) always stand in front of the
// light ones (label, button, image, line) of the same container.
#pragma once

#include <optional>
#include <span>

#include "engine/rgb.h"
#include "screens/kit/fonts.h"

namespace fendle::kit {

enum class Align { Left, Right, Centre };

enum class Kind {
    Label,        // text, transparent or on its back colour, optional border
    Button,       // a label with a border and a click handler; takes focus
    CheckBox,
    Option,       // option button; the elements of one array form a group
    TextBox,
    Image,        // a picture, natural size or stretched; light
    PictureBox,   // a windowed box with a picture at its top left; a container
    Frame,        // a container with its own rows
    Line,
    PushButton,   // a real push button, the system's grey
    HScrollBar,
};

// Whether a kind is a window of its own, in front of the light kinds.
bool isWindowed(Kind k);

// Fields a row leaves out keep the defaults below. A colour left empty is
// the system's.
struct Row {
    const char* name = "";
    int index = -1;   // element of a control array; -1 for a lone control
    Kind kind = Kind::Label;
    double left = 0, top = 0, width = 0, height = 0;   // twips, in the container
    const char* caption = "";                          // UTF-8; text of a text box
    Face font = Face::Arial;
    double size = 8.25;   // points
    bool bold = false;
    std::optional<Rgb> fore = std::nullopt;
    std::optional<Rgb> back = std::nullopt;
    bool transparent = false;   // label, button: the back colour is not painted
    // Label: a thin edge round each letter in a colour that stands out from
    // the text's own, for coloured text drawn straight on a picture or a
    // colour it does not stand out from.
    bool outline = false;
    Align align = Align::Left;
    bool visible = true;
    bool enabled = true;
    bool border = false;       // label, button, picture box: a single fixed border
    bool wordWrap = true;      // label, button: words wrap inside the box
    const char* picture = "";  // image, picture box
    bool stretch = false;      // image: scaled to its box; else the box takes the picture's size
    int maxLength = 0;         // text box; 0 for no limit
    int value = 0;             // check box 1 ticked; option 1 selected; scroll bar position
    int min = 0, max = 32767;  // scroll bar
    int smallChange = 1, largeChange = 1;
    int lineWidth = 1;                          // line, pixels
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;      // line ends, twips
    std::span<const Row> children{};            // frame, picture box: their own rows
};

}  // namespace fendle::kit
