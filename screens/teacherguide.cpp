#include "screens/teacherguide.h"

#include <QKeyEvent>

#include "screens/game_screens.h"
#include "screens/kit/painted.h"
#include "screens/module1.h"

namespace fendle {

namespace {

using kit::Align;
using kit::Face;
using kit::Kind;
using kit::Row;

constexpr int exitButton = 0;

// What a teacher needs to know, in the three text boxes of the page. The
// word joiners (U+2060) keep the folder's name, and "colour-blind", on one
// line.
constexpr const char* helpText =
    "Fendle! is simple to use. The README in /\u2060usr/\u2060share/\u2060doc/\u2060fendle tells you how, and where "
    "to report a problem. For colour-\u2060blind pupils, tick Shapes on counters on the set-up screen.";
constexpr const char* filesText =
    "The saved game, the high scores and games.csv are kept in your home folder, in .local/\u2060state/\u2060fendle.";
constexpr const char* resetText =
    "games.csv has a line for each move, under a line that names its columns. To clear the high scores, "
    "delete highscores.txt.";

// Label3: (0) Exit, (1) to (3) the texts.
constexpr Row text(int index, double top, double width, double height, const char* caption, bool bold) {
    return Row{.name = "Label3", .index = index, .left = 120, .top = top, .width = width, .height = height,
               .caption = caption, .size = 12, .bold = bold, .fore = colour::yellow, .transparent = true};
}

constexpr Row guideRows[] = {
    {.name = "Label4", .left = 120, .top = 0, .width = 5355, .height = 1215, .caption = "FENDLE!", .font = Face::Tahoma,
     .size = 48, .bold = true, .fore = colour::red, .transparent = true, .align = Align::Centre},
    {.name = "Label7", .left = 4920, .top = 225, .width = 255, .height = 165, .caption = "TM", .font = Face::Tahoma,
     .size = 6.75, .bold = true, .fore = colour::black, .transparent = true, .outline = true, .wordWrap = false},
    {.name = "Label2", .left = 120, .top = 1200, .width = 5385, .height = 600, .caption = "Teachers' Guide",
     .size = 20.25, .bold = true, .fore = colour::yellow, .transparent = true, .align = Align::Centre},
    text(2, 1800, 5160, 1680, helpText, true),
    text(3, 3480, 3285, 1485, filesText, true),
    text(1, 4920, 3735, 1485, resetText, false),
    {.name = "Image2", .kind = Kind::Image, .left = 3960, .top = 3480, .width = 1500, .height = 2085,
     .picture = "Images\\logo2.jpg", .stretch = true},
    {.name = "Label5", .left = 480, .top = 6120, .width = 3375, .height = 495, .caption = notice,
     .fore = colour::yellow, .transparent = true, .align = Align::Centre},
    {.name = "Label3", .index = exitButton, .kind = Kind::Button, .left = 4080, .top = 6120, .width = 1335,
     .height = 375, .caption = "Exit", .size = 12.75, .bold = true, .fore = colour::yellow, .back = colour::black,
     .align = Align::Centre, .border = true},
};

}  // namespace

std::span<const kit::Row> TeacherGuide::rows() { return guideRows; }

TeacherGuide::TeacherGuide(Module1& module) : Form(module, formName) {
    setClientSizeTwips(clientWidth, clientHeight);
    setBackColor(setupBlue);
    build(guideRows);
    onClick("Label3", [this](int i) { Label3_Click(i); });
}

void TeacherGuide::Form_Load() {
    module().state.computerlevel = 0;
    centre();
    setWindowName(msg::windowTeacherGuide);
    // Without its picture the page opens at the page size, as after any
    // failed load.
    if (!get<kit::Image>("Image2")->hasPicture()) module().fitform(*this);
}

void TeacherGuide::Label3_Click(int Index) {
    if (Index == exitButton) module().screens.unload(formName);
}

void TeacherGuide::keyPressEvent(QKeyEvent* e) {
    if (e->key() != Qt::Key_Escape) return Form::keyPressEvent(e);
    e->accept();
    Label3_Click(exitButton);
}

}  // namespace fendle
