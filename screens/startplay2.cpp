#include "screens/startplay2.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "screens/fen1_form.h"
#include "screens/game_screens.h"
#include "screens/grey.h"
#include "screens/highscores_form.h"
#include "screens/kit/native.h"
#include "screens/kit/painted.h"
#include "screens/module1.h"
#include "screens/startautoplay2.h"
#include "text/binding.h"
#include "text/countermarks.h"
#include "text/file_io.h"

namespace fendle {

namespace {

using kit::Align;
using kit::Face;
using kit::Kind;
using kit::Row;


constexpr Row box(const char* name, double top, double width, const char* caption, bool visible, int value) {
    return Row{.name = name, .kind = Kind::CheckBox, .left = 720, .top = top, .width = width, .height = 375,
               .caption = caption, .size = 12, .bold = true, .fore = colour::yellow, .back = setupBlue,
               .visible = visible, .value = value};
}

constexpr Row playersButton(int index, double left, const char* caption) {
    return Row{.name = "Label1", .index = index, .kind = Kind::Button, .left = left, .top = 5100, .width = 855,
               .height = 735, .caption = caption, .font = Face::Tahoma, .size = 26.25, .bold = true,
               .fore = colour::yellow, .back = colour::black, .align = Align::Centre, .border = true};
}

constexpr Row startplay2Rows[] = {
    {.name = "Label4", .left = 120, .top = 0, .width = 5355, .height = 1215, .caption = "FENDLE!", .font = Face::Tahoma,
     .size = 48, .bold = true, .fore = colour::red, .transparent = true, .align = Align::Centre},
    {.name = "Label7", .left = 4920, .top = 225, .width = 255, .height = 165, .caption = "TM", .font = Face::Tahoma,
     .size = 6.75, .bold = true, .fore = colour::black, .transparent = true, .outline = true, .wordWrap = false},
    // The marks on the counters, under the title: the one band of the screen
    // that no other control takes in any language, with the time box shown
    // or Hide Desktop. Its words are the program's own, set by the load.
    {.name = "Check4", .kind = Kind::CheckBox, .left = 240, .top = 960, .width = 3600, .height = 375,
     .caption = "Shapes on counters", .size = 12, .bold = true, .fore = colour::yellow, .back = setupBlue},
    {.name = "Label6", .kind = Kind::Button, .left = 240, .top = 1440, .width = 2895, .height = 435,
     .caption = "The Rules", .size = 15.75, .bold = true, .fore = colour::yellow, .back = colour::black,
     .align = Align::Centre, .border = true},
    {.name = "Image2", .kind = Kind::Image, .left = 3600, .top = 1440, .width = 1500, .height = 2085,
     .picture = "Images\\logo2.jpg", .stretch = true},
    box("Check1", 2040, 1695, "Play Sound", true, 1),
    box("Check2", 2400, 1695, "Timers On", true, 0),
    // Label3(2) and (3), the caption and unit of the time box.
    {.name = "Label3", .index = 2, .left = 120, .top = 2880, .width = 3120, .height = 600,
     .caption = "Set Total Time Allowed", .size = 12, .bold = true, .fore = colour::yellow, .transparent = true,
     .align = Align::Centre, .visible = false},
    {.name = "Text2", .kind = Kind::TextBox, .left = 720, .top = 3240, .width = 975, .height = 405, .caption = "600",
     .font = Face::Tahoma, .size = 12, .bold = true, .fore = colour::yellow, .back = colour::black,
     .align = Align::Centre, .visible = false, .maxLength = 4},
    {.name = "Label3", .index = 3, .left = 1800, .top = 3300, .width = 990, .height = 285, .caption = "seconds",
     .size = 12, .bold = true, .fore = colour::yellow, .transparent = true, .visible = false},
    {.name = "Label8", .kind = Kind::Button, .left = 3240, .top = 3720, .width = 2175, .height = 435,
     .caption = "High Scores", .size = 15.75, .bold = true, .fore = colour::yellow, .back = colour::black,
     .align = Align::Centre, .border = true},
    box("Check3", 3900, 1935, "Hide Desktop", false, 1),
    {.name = "Label2", .left = 120, .top = 4440, .width = 5385, .height = 600, .caption = "Select Number of Players",
     .size = 20.25, .bold = true, .fore = colour::yellow, .transparent = true, .align = Align::Centre},
    // Label1(i): i + 1 players.
    playersButton(0, 720, "1"),
    playersButton(1, 1830, "2"),
    playersButton(2, 2940, "3"),
    playersButton(3, 4050, "4"),
    {.name = "Label5", .left = 480, .top = 6120, .width = 3375, .height = 495, .caption = notice,
     .fore = colour::yellow, .transparent = true, .align = Align::Centre},
    {.name = "Label3", .index = 0, .kind = Kind::Button, .left = 4080, .top = 6120, .width = 1335, .height = 375,
     .caption = "Exit", .size = 12.75, .bold = true, .fore = colour::yellow, .back = colour::black,
     .align = Align::Centre, .border = true},
};

constexpr const char* checkWave = "wav\\click1.wav";

// The plain set of rule pages; those of the other languages stay open when
// a game starts.
constexpr const char* plainRulePages[] = {"Fendlerules", "Fendlerules2", "Fendlerules2b", "Fendlerules3",
                                          "Fendlerules4"};

}  // namespace

i16 timeAllowedFrom(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) negative = text[i++] == '-';
    double value = 0;
    for (; i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])); ++i) value = value * 10 + (text[i] - '0');
    if (i < text.size() && text[i] == '.') {
        double scale = 0.1;
        for (++i; i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])); ++i, scale /= 10)
            value += (text[i] - '0') * scale;
    }
    if (negative) value = -value;
    // nearbyint rounds in the default mode: to the nearest, a half to the even one.
    const double seconds = std::clamp(std::nearbyint(value), 5.0, 32767.0);
    return static_cast<i16>(seconds);
}

bool timeBoxTakes(int keyAscii) {
    return keyAscii == '-' || keyAscii == '.' || (keyAscii >= '0' && keyAscii <= '9') || keyAscii == 8;
}

std::span<const kit::Row> Startplay2::rows() { return startplay2Rows; }

Startplay2::Startplay2(Module1& module) : Form(module, formName) {
    setClientSizeTwips(clientWidth, clientHeight);
    setWindowName(msg::windowStartplay2);
    setBackColor(setupBlue);
    build(startplay2Rows);
    onClick("Check1", [this](int) { Check1_Click(); });
    onClick("Check2", [this](int) { Check2_Click(); });
    onClick("Check3", [this](int) { Check3_Click(); });
    onClick("Check4", [this](int) { Check4_Click(); });
    onClick("Label1", [this](int i) { Label1_Click(i); });
    onClick("Label3", [this](int i) { Label3_Click(i); });
    onClick("Label6", [this](int) { Label6_Click(); });
    onClick("Label8", [this](int) { Label8_Click(); });

    kit::TextBox* box = get<kit::TextBox>("Text2");
    QWidget* text2 = box->widget();
    box->setKeyPress([text2](int key) {
        if (key == 13) {
            // Enter moves on to the next control that takes the focus.
            for (QWidget* w = text2->nextInFocusChain(); w && w != text2; w = w->nextInFocusChain()) {
                if ((w->focusPolicy() & Qt::TabFocus) && w->isVisible() && w->isEnabled() && w->window() == text2->window()) {
                    w->setFocus(Qt::TabFocusReason);
                    break;
                }
            }
            return 0;
        }
        return timeBoxTakes(key) ? key : 0;
    });
}

void Startplay2::Form_Load() {
    ModuleState& s = module().state;
    s.computerlevel = 0;
    centre();
    applyLayoutByLanguage(*this, binding::Screen::Startplay2);
    textshow(*this, binding::Screen::Startplay2);
    auto* marks = get<kit::CheckBox>("Check4");
    marks->setCaption(module().message(msg::countermarksBox));
    marks->setValue(s.countermarks);   // as the setting stands: no click
    if (!get<kit::Image>("Image2")->hasPicture()) {
        // The load stops at the missing picture, and the screen opens at the
        // page size with what it has.
        module().fitform(*this);
        return;
    }
    if (screenSizeTwips().width() > hideDesktopMinWidth) control("Check3")->setVisible(true);
    // A change of the box here counts as a click on it, sound and all.
    get<kit::CheckBox>("Check3")->setValue(s.greyback == 0 ? 0 : 1);
}

void Startplay2::Check1_Click() {
    if (module().state.soundon == 1) module().playwave(checkWave);
}

void Startplay2::Check2_Click() {
    if (module().state.soundon == 1) module().playwave(checkWave);
    const bool on = get<kit::CheckBox>("Check2")->value() == 1;
    auto* text2 = control("Text2");
    text2->setEnabled(on);
    control("Label3", 2)->setVisible(on);
    control("Label3", 3)->setVisible(on);
    text2->setVisible(on);
}

void Startplay2::Check3_Click() {
    Module1& m = module();
    if (m.state.soundon == 1) m.playwave(checkWave);
    if (get<kit::CheckBox>("Check3")->value() == 0) {
        m.state.greyback = 0;
        m.screens.unload(Grey::formName);
    } else {
        m.state.greyback = 1;
        m.screens.show(Grey::formName);
    }
    m.screens.show(formName);   // back in front of the backdrop
}

void Startplay2::Check4_Click() {
    Module1& m = module();
    const i16 on = get<kit::CheckBox>("Check4")->value() == 1 ? 1 : 0;
    if (on == m.state.countermarks) return;   // the load showing the setting
    if (m.state.soundon == 1) m.playwave(checkWave);
    m.state.countermarks = on;
    // Kept for the user at once, as the language is on its OK. A choice the
    // file cannot take holds until the program ends, and the user is told
    // once.
    if (writeFileAtomic(gamePath(countermarksFile), countermarksText(on == 1))) {
        m.unsavedCountermarks.reset();
        return;
    }
    const bool told = m.unsavedCountermarks.has_value();
    m.unsavedCountermarks = on;
    if (!told) tellUser(m.message(msg::countermarksNotSaved));
}

void readcountermarks(Module1& module) {
    if (module.unsavedCountermarks) module.state.countermarks = *module.unsavedCountermarks;
    else module.state.countermarks = readCountermarks(readFileBytes(gamePath(countermarksFile))) ? 1 : 0;
}

void Startplay2::Label1_Click(int Index) {
    Module1& m = module();
    ModuleState& s = m.state;
    // The board must be built after the settings it reads at its load.
    m.screens.unload(Fen1Form::formName);
    s.nplayers = static_cast<i16>(Index + 1);
    s.soundon = get<kit::CheckBox>("Check1")->value() == 1 ? 1 : 0;
    s.timeallowed = get<kit::CheckBox>("Check2")->value() == 1
                        ? timeAllowedFrom(control("Text2")->caption().toStdString())
                        : i16(0);
    if (auto* board = m.screens.get<Fen1Form>(Fen1Form::formName)) {
        board->game().showPlayers(s.nplayers);
        board->sync();
    }
    if (Index == 0) m.screens.show(Startautoplay2::formName);
    else m.screens.show(Fen1Form::formName);
    for (const char* page : plainRulePages) m.screens.unload(page);
    m.screens.unload(formName);
    if (s.soundon == 1) m.playwave("wav\\click.wav");
}

void Startplay2::Label3_Click(int Index) {
    if (Index == exitButton) module().endProgram();
}

void Startplay2::Label6_Click() {
    const int lang = module().state.languagenumber;
    if (!binding::ruleSetSuffix(lang)) return;
    // The rules start again at page 1, in one window.
    for (int page = 2; page <= 5; ++page) module().screens.unload(binding::ruleFormName(page, lang));
    module().screens.show(binding::ruleFormName(1, lang));
}

void Startplay2::Label8_Click() { module().screens.show(Highscores::formName); }

}  // namespace fendle
