// A sample screen for the kit's tests and demo: the set-up screen's rows as
// its table gives them, plus a few rows of the board window.
#pragma once

#include "screens/formkit.h"

namespace fendle::sample {

using kit::Align;
using kit::Face;
using kit::Kind;
using kit::Row;

inline constexpr Rgb setupBlue{0, 0, 192};
inline constexpr const char* notice = "Fendle! \xC2\xA9 2026 The Fendle! Team. All rights reserved.";

inline constexpr Row startplay2[] = {
    {.name = "Label4", .kind = Kind::Label, .left = 120, .top = 0, .width = 5355, .height = 1215,
     .caption = "FENDLE!", .font = Face::Tahoma, .size = 48, .bold = true, .fore = colour::red,
     .transparent = true, .align = Align::Centre},
    {.name = "Label7", .kind = Kind::Label, .left = 4920, .top = 225, .width = 255, .height = 165,
     .caption = "TM", .font = Face::Tahoma, .size = 6.75, .bold = true, .fore = colour::black, .transparent = true},
    {.name = "Label6", .kind = Kind::Button, .left = 240, .top = 1440, .width = 2895, .height = 435,
     .caption = "The Rules", .size = 15.75, .bold = true, .fore = colour::yellow, .back = colour::black,
     .align = Align::Centre, .border = true},
    {.name = "Image2", .kind = Kind::Image, .left = 3600, .top = 1440, .width = 1500, .height = 2085,
     .picture = "Images\\logo2.jpg", .stretch = true},
    {.name = "Check1", .kind = Kind::CheckBox, .left = 720, .top = 2040, .width = 1695, .height = 375,
     .caption = "Play Sound", .size = 12, .bold = true, .fore = colour::yellow, .back = setupBlue, .value = 1},
    {.name = "Check2", .kind = Kind::CheckBox, .left = 720, .top = 2400, .width = 1695, .height = 375,
     .caption = "Timers On", .size = 12, .bold = true, .fore = colour::yellow, .back = setupBlue},
    {.name = "Label3", .index = 2, .kind = Kind::Label, .left = 120, .top = 2880, .width = 3120, .height = 600,
     .caption = "Set Total Time Allowed", .size = 12, .bold = true, .fore = colour::yellow, .back = setupBlue,
     .align = Align::Centre, .visible = false},
    {.name = "Text2", .kind = Kind::TextBox, .left = 720, .top = 3240, .width = 975, .height = 405,
     .caption = "600", .font = Face::Tahoma, .size = 12, .bold = true, .fore = colour::yellow,
     .back = colour::black, .align = Align::Centre, .visible = false, .maxLength = 4},
    {.name = "Label3", .index = 3, .kind = Kind::Label, .left = 1800, .top = 3300, .width = 990, .height = 285,
     .caption = "seconds", .size = 12, .bold = true, .fore = colour::yellow, .back = setupBlue, .visible = false},
    {.name = "Label8", .kind = Kind::Button, .left = 3240, .top = 3720, .width = 2175, .height = 435,
     .caption = "High Scores", .size = 15.75, .bold = true, .fore = colour::yellow, .back = colour::black,
     .align = Align::Centre, .border = true},
    {.name = "Check3", .kind = Kind::CheckBox, .left = 720, .top = 3900, .width = 1935, .height = 375,
     .caption = "Hide Desktop", .size = 12, .bold = true, .fore = colour::yellow, .back = setupBlue,
     .visible = false, .value = 1},
    {.name = "Label2", .kind = Kind::Label, .left = 120, .top = 4440, .width = 5385, .height = 600,
     .caption = "Select Number of Players", .size = 20.25, .bold = true, .fore = colour::yellow,
     .back = setupBlue, .align = Align::Centre},
    {.name = "Label1", .index = 0, .kind = Kind::Button, .left = 720, .top = 5100, .width = 855, .height = 735,
     .caption = "1", .font = Face::Tahoma, .size = 26.25, .bold = true, .fore = colour::yellow,
     .back = colour::black, .align = Align::Centre, .border = true},
    {.name = "Label1", .index = 1, .kind = Kind::Button, .left = 1830, .top = 5100, .width = 855, .height = 735,
     .caption = "2", .font = Face::Tahoma, .size = 26.25, .bold = true, .fore = colour::yellow,
     .back = colour::black, .align = Align::Centre, .border = true},
    {.name = "Label1", .index = 2, .kind = Kind::Button, .left = 2940, .top = 5100, .width = 855, .height = 735,
     .caption = "3", .font = Face::Tahoma, .size = 26.25, .bold = true, .fore = colour::yellow,
     .back = colour::black, .align = Align::Centre, .border = true},
    {.name = "Label1", .index = 3, .kind = Kind::Button, .left = 4050, .top = 5100, .width = 855, .height = 735,
     .caption = "4", .font = Face::Tahoma, .size = 26.25, .bold = true, .fore = colour::yellow,
     .back = colour::black, .align = Align::Centre, .border = true},
    {.name = "Label5", .kind = Kind::Label, .left = 480, .top = 6120, .width = 3375, .height = 495,
     .caption = notice, .size = 8.25, .fore = colour::yellow, .back = setupBlue, .align = Align::Centre},
    {.name = "Label3", .index = 0, .kind = Kind::Button, .left = 4080, .top = 6120, .width = 1335, .height = 375,
     .caption = "Exit", .size = 12.75, .bold = true, .fore = colour::yellow, .back = colour::black,
     .align = Align::Centre, .border = true},
};

}  // namespace fendle::sample
