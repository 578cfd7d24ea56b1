#include "screens/titlefrm.h"

#include "screens/fen1_form.h"
#include "engine/connarray.h"
#include "saved/lastgame.h"
#include "screens/game_screens.h"
#include "screens/grey.h"
#include "screens/languages_form.h"
#include "screens/module1.h"
#include "screens/startplay2.h"
#include "text/file_io.h"
#include "text/text_tables.h"

namespace fendle {

namespace {

using kit::Align;
using kit::Face;
using kit::Kind;
using kit::Row;

constexpr const char* clickWave = "wav\\click.wav";

// A button on this screen: yellow on black, Arial 15.75 bold, centred.
constexpr Row button(const char* name, double left, double top, double width, const char* caption,
                     bool visible = true) {
    return Row{.name = name, .kind = Kind::Button, .left = left, .top = top, .width = width, .height = 435,
               .caption = caption, .size = 15.75, .bold = true, .fore = colour::yellow, .back = colour::black,
               .align = Align::Centre, .visible = visible, .border = true};
}

// Inside Frame1. The picture box stands in front of every label: with its
// full height it covers the Teachers' Guide button.
constexpr Row frameRows[] = {
    {.name = "Label4", .left = 120, .top = 120, .width = 5355, .height = 1215, .caption = "FENDLE!",
     .font = Face::Tahoma, .size = 48, .bold = true, .fore = colour::red, .transparent = true, .align = Align::Centre},
    {.name = "Label1", .left = 4920, .top = 345, .width = 255, .height = 165, .caption = "TM", .font = Face::Tahoma,
     .size = 6.75, .bold = true, .fore = colour::black, .transparent = true, .outline = true, .wordWrap = false},
    {.name = "Picture1", .kind = Kind::PictureBox, .left = 360, .top = 1200, .width = 4800, .height = 3600,
     .picture = "Images\\fendlemd.bmp"},
    button("Label9", 720, 4320, 3975, "Teachers' Guide", false),
    button("Label8", 780, 4920, 3975, "Change Language"),
    button("Label6", 420, 5460, 4755, "Restart Previous Game"),
    button("Label5", 1020, 6000, 1695, "OK"),
    button("Label7", 2820, 6000, 1695, "Exit"),
    {.name = "Label2", .left = 0, .top = 6420, .width = 5535, .height = 255,
     .caption = "Fendle! \u00A9 2026 The Fendle! Team. All rights reserved.", .fore = colour::blue,
     .transparent = true, .align = Align::Centre},
};

constexpr Row titleRows[] = {
    {.name = "Frame1", .kind = Kind::Frame, .left = 0, .top = -90, .width = 5595, .height = 6660,
     .children = frameRows},
};

}  // namespace

std::span<const kit::Row> Titlefrm::rows() { return titleRows; }

Titlefrm::Titlefrm(Module1& module) : Form(module, formName) {
    setClientSizeTwips(clientWidth, clientHeight);
    setWindowName(msg::windowTitlefrm);
    build(titleRows);
    onClick("Label5", [this](int) { Label5_Click(); });
    onClick("Picture1", [this](int) { Label5_Click(); });
    onClick("Label6", [this](int) { Label6_Click(); });
    onClick("Label7", [this](int) { Label7_Click(); });
    onClick("Label8", [this](int) { Label8_Click(); });
    onClick("Label9", [this](int) { Label9_Click(); });
}

bool Titlefrm::loadtexttables() {
    Module1& m = module();
    if (!m.tables) m.tables = std::make_shared<TextTables>();
    const auto text = readFileBytes(gamePath(textCsvFile));
    const auto rules = readFileBytes(gamePath(rulesCsvFile));
    Problem problem;
    if (fendle::loadtexttables(text, rules, *m.tables, m.state.languagenumber, m.state.texts, &problem)) return true;
    stopForMissingFile(m, problem);
    return false;
}

void Titlefrm::Form_Load() {
    Module1& m = module();
    ModuleState& s = m.state;
    centre();
    s.soundon = 1;
    readlanguagefile(m);
    readcountermarks(m);
    // Language 0 has the English layout: the Teachers' Guide shows below a
    // shorter picture.
    applyLayoutByLanguage(*this, binding::Screen::Titlefrm);
    if (!loadtexttables()) return;
    textshow(*this, binding::Screen::Titlefrm);
    // The picture came with the table; a missing file costs only the picture.

    const auto bytes = readFileBytes(gamePath("connarray.dat"));
    Problem problem{msg::fileMissing, {"connarray.dat"}};
    if (!bytes || !readConnarray(*bytes, s.connarray, &problem)) stopForMissingFile(m, problem);
}

void Titlefrm::Label5_Click() {
    Module1& m = module();
    ModuleState& s = m.state;
    s.restartgame = 0;
    s.boardowner.fill(0);
    readlanguagefile(m);
    if (!loadtexttables()) return;
    s.greyback = 1;
    m.screens.show(Grey::formName);
    m.screens.show(Startplay2::formName);
    m.screens.unload(formName);
    if (s.soundon == 1) m.playwave(clickWave);
}

void Titlefrm::Label6_Click() {
    Module1& m = module();
    ModuleState& s = m.state;
    // A missing or damaged file changes nothing: the press seems to do nothing.
    if (restoreLastgame(readFileBytes(gamePath(lastgameFile)), s)) {
        s.restartgame = 1;
        // The board is built now, in restore mode, from what was read.
        m.screens.unload(Fen1Form::formName);
        if (auto* board = m.screens.get<Fen1Form>(Fen1Form::formName)) {
            board->game().showPlayers(s.nplayers);
            board->sync();
        }
        if (s.greyback == 1) m.screens.show(Grey::formName);
        m.screens.show(Fen1Form::formName);
        m.screens.unload(formName);
        if (s.soundon == 1) m.playwave(clickWave);
    }
    s.restartgame = 0;
}

void Titlefrm::Label7_Click() { module().endProgram(); }

void Titlefrm::Label8_Click() {
    ScreenRegistry& screens = module().screens;
    if (!screens.form("languages")) return;   // no language screen in this build
    screens.show("languages");
    screens.unload(formName);
}

void Titlefrm::Label9_Click() { module().screens.show("TeacherGuide"); }

}  // namespace fendle
