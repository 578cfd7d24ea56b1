#include "screens/startautoplay2.h"

#include "screens/fen1_form.h"
#include "screens/game_screens.h"
#include "screens/kit/native.h"
#include "screens/kit/painted.h"
#include "screens/module1.h"
#include "screens/startplay2.h"
#include "text/binding.h"

namespace fendle {

namespace {

using kit::Align;
using kit::Face;
using kit::Kind;
using kit::Row;

constexpr Rgb orange{255, 128, 0};

constexpr Row level(int index, double top, const char* caption, int selected) {
    return Row{.name = "Option1", .index = index, .kind = Kind::Option, .left = 360, .top = top, .width = 2535,
               .height = 375, .caption = caption, .size = 15.75, .bold = true, .fore = colour::yellow,
               .back = setupBlue, .value = selected};
}

constexpr Row playButton(const char* name, double left, const char* caption) {
    return Row{.name = name, .kind = Kind::Button, .left = left, .top = 4980, .width = 2535, .height = 855,
               .caption = caption, .font = Face::Tahoma, .size = 15.75, .bold = true, .fore = colour::yellow,
               .back = colour::black, .align = Align::Centre, .border = true};
}

constexpr Row startautoplay2Rows[] = {
    {.name = "Label4", .left = 120, .top = 0, .width = 5355, .height = 1215, .caption = "FENDLE!", .font = Face::Tahoma,
     .size = 48, .bold = true, .fore = colour::red, .transparent = true, .align = Align::Centre},
    {.name = "Label6", .index = 0, .left = 4920, .top = 225, .width = 255, .height = 165, .caption = "TM",
     .font = Face::Tahoma, .size = 6.75, .bold = true, .fore = colour::black, .transparent = true, .outline = true, .wordWrap = false},
    {.name = "Label2", .left = 120, .top = 1320, .width = 3120, .height = 1680, .caption = " Set Level for the computer",
     .size = 20.25, .bold = true, .fore = orange, .transparent = true, .align = Align::Centre},
    {.name = "Image2", .kind = Kind::Image, .left = 3600, .top = 1440, .width = 1500, .height = 2085,
     .picture = "Images\\logo2.jpg", .stretch = true},
    // Option1(i): the computer plays at level i + 1. The hardest is chosen at first.
    level(0, 2520, "Level 1 - Easy", 0),
    level(1, 3240, "Level 2", 0),
    level(2, 3960, "Level 3 - Hard", 1),
    playButton("Label1", 150, "Play solo"),
    playButton("Label7", 2880, "Play against the computer"),
    {.name = "Label5", .left = 480, .top = 6120, .width = 3375, .height = 495, .caption = notice,
     .fore = colour::yellow, .transparent = true, .align = Align::Centre},
    {.name = "Label3", .index = 0, .kind = Kind::Button, .left = 4080, .top = 6120, .width = 1335, .height = 375,
     .caption = "Exit", .size = 12.75, .bold = true, .fore = colour::yellow, .back = colour::black,
     .align = Align::Centre, .border = true},
};

constexpr int levels = 3;

}  // namespace

std::span<const kit::Row> Startautoplay2::rows() { return startautoplay2Rows; }

Startautoplay2::Startautoplay2(Module1& module) : Form(module, formName) {
    setClientSizeTwips(clientWidth, clientHeight);
    setWindowName(msg::windowStartautoplay2);
    setBackColor(setupBlue);
    build(startautoplay2Rows);
    onClick("Option1", [this](int i) { Option1_Click(i); });
    onClick("Label1", [this](int) { Label1_Click(); });
    onClick("Label7", [this](int) { Label7_Click(); });
    onClick("Label3", [this](int i) { Label3_Click(i); });
}

void Startautoplay2::Form_Load() {
    module().state.computerlevel = 0;
    centre();
    applyLayoutByLanguage(*this, binding::Screen::Startautoplay2);
    // textshow ends with the caption of Label7 that some languages fix.
    textshow(*this, binding::Screen::Startautoplay2);
    if (!get<kit::Image>("Image2")->hasPicture()) module().fitform(*this);
}

void Startautoplay2::Option1_Click(int) {
    if (module().state.soundon == 1) module().playwave("wav\\tink.wav");
}

void Startautoplay2::Label1_Click() {
    Module1& m = module();
    m.state.nplayers = 1;
    m.state.computerlevel = 0;
    // The board that Startplay2 built for one player opens.
    m.screens.show(Fen1Form::formName);
    m.screens.unload(formName);
    if (m.state.soundon == 1) m.playwave("wav\\click.wav");
}

void Startautoplay2::Label7_Click() {
    Module1& m = module();
    ModuleState& s = m.state;
    m.screens.unload(Fen1Form::formName);
    s.nplayers = 2;
    s.computerlevel = 1;
    Fen1Form* board = nullptr;
    for (int i = 0; i < levels; ++i) {
        auto* option = get<kit::OptionButton>("Option1", i);
        if (!option || !option->value()) continue;
        s.computerlevel = static_cast<i16>(i + 1);
        // The first touch builds the board anew, for two players.
        board = m.screens.get<Fen1Form>(Fen1Form::formName);
        if (board && m.tables) {
            const auto note = binding::computerNoteCaption(s.languagenumber, i, *m.tables,
                                                           option->caption().toStdString());
            if (note) board->model().Label5[6].caption = *note;
        }
    }
    if (!board) board = m.screens.get<Fen1Form>(Fen1Form::formName);
    if (board) {
        board->model().Label5[2].visible = true;
        board->model().Label5[6].visible = true;
        board->model().Label6[2].visible = true;
        board->sync();
    }
    m.screens.show(Fen1Form::formName);
    m.screens.unload(formName);
    if (s.soundon == 1) m.playwave("wav\\click.wav");
}

void Startautoplay2::Label3_Click(int) {
    module().screens.show(Startplay2::formName);
    module().screens.unload(formName);
}

}  // namespace fendle
