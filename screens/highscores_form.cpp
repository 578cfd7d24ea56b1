#include "screens/highscores_form.h"

#include <algorithm>
#include <array>

#include "screens/fen1_form.h"
#include "saved/highscores.h"
#include "screens/game_screens.h"
#include "screens/kit/native.h"
#include "screens/module1.h"
#include "text/file_io.h"

namespace fendle {

namespace {

using kit::Align;
using kit::Face;
using kit::Kind;
using kit::Row;

constexpr Rgb rowGrey{192, 192, 192};

// Tops of the ten rows in the frame: "Open Play" rows 0 to 4, then "Play
// against the computer" rows 5 to 9.
constexpr std::array<double, Highscores::rowsShown> rowTop = {600, 960, 1320, 1680, 2040, 2760, 3120, 3480, 3840, 4200};

constexpr Row rowLabel(const char* name, int r, double left, double width) {
    return Row{.name = name, .index = r, .left = left, .top = rowTop[static_cast<std::size_t>(r)], .width = width,
               .height = 360, .size = 12, .bold = true, .fore = rowGrey, .transparent = true, .visible = false,
               .wordWrap = false};
}
constexpr Row heading(int index, double top, const char* caption) {
    return Row{.name = "Label6", .index = index, .left = 120, .top = top, .width = 4800, .height = 360,
               .caption = caption, .size = 12, .bold = true, .fore = colour::yellow, .transparent = true};
}

// Label8(r), the name of row r, and Label9(r), its score.
constexpr Row frameRows[] = {
    heading(0, 240, "Open Play"),
    heading(1, 2400, "Play against the computer"),
    rowLabel("Label8", 0, 480, 3480), rowLabel("Label9", 0, 3960, 960),
    rowLabel("Label8", 1, 480, 3480), rowLabel("Label9", 1, 3960, 960),
    rowLabel("Label8", 2, 480, 3480), rowLabel("Label9", 2, 3960, 960),
    rowLabel("Label8", 3, 480, 3480), rowLabel("Label9", 3, 3960, 960),
    rowLabel("Label8", 4, 480, 3480), rowLabel("Label9", 4, 3960, 960),
    rowLabel("Label8", 5, 480, 3480), rowLabel("Label9", 5, 3960, 960),
    rowLabel("Label8", 6, 480, 3480), rowLabel("Label9", 6, 3960, 960),
    rowLabel("Label8", 7, 480, 3480), rowLabel("Label9", 7, 3960, 960),
    rowLabel("Label8", 8, 480, 3480), rowLabel("Label9", 8, 3960, 960),
    rowLabel("Label8", 9, 480, 3480), rowLabel("Label9", 9, 3960, 960),
    // The name box; its top is set over the row that awaits a name.
    {.name = "Text1", .kind = Kind::TextBox, .left = 480, .top = rowTop[0] - Highscores::nameBoxRaise, .width = 3375,
     .height = 405, .size = 12, .bold = true, .visible = false, .maxLength = maxNameLength},
};

constexpr Row highscoresRows[] = {
    {.name = "Label4", .left = 120, .top = 0, .width = 5355, .height = 1215, .caption = "FENDLE!", .font = Face::Tahoma,
     .size = 48, .bold = true, .fore = colour::red, .transparent = true, .align = Align::Centre},
    {.name = "Label7", .left = 4950, .top = 225, .width = 225, .height = 165, .caption = "TM", .font = Face::Tahoma,
     .size = 6.75, .fore = colour::black, .transparent = true, .outline = true, .wordWrap = false},
    {.name = "Label2", .left = 120, .top = 1080, .width = 5280, .height = 480, .caption = "High Scores", .size = 20.25,
     .bold = true, .fore = colour::yellow, .transparent = true, .align = Align::Centre},
    // The panel has the form's colour and paints nothing of its own, so that
    // the heading above it, which reaches into it, keeps its descenders.
    {.name = "Frame1", .kind = Kind::Frame, .left = 240, .top = 1440, .width = 5055, .height = 4575, .back = setupBlue,
     .transparent = true, .children = frameRows},
    {.name = "Label3", .index = 0, .kind = Kind::Button, .left = 3960, .top = 6120, .width = 1335, .height = 375,
     .caption = "Continue", .size = 12.75, .bold = true, .fore = colour::yellow, .back = colour::black,
     .align = Align::Centre, .border = true},
    {.name = "Label5", .left = 240, .top = 6120, .width = 3375, .height = 495, .caption = notice,
     .fore = colour::yellow, .transparent = true, .align = Align::Centre},
};

HighScores tableOf(const Module1& m) {
    HighScores t;
    t.highnames = m.highnames;
    t.highpoints = m.highpoints;
    return t;
}

void keep(Module1& m, const HighScores& t) {
    m.highnames = t.highnames;
    m.highpoints = t.highpoints;
}

// Exit and New Game of the board: off while the table is open, so that the
// game under it cannot be left.
void boardButtons(Module1& m, bool enabled) {
    Fen1Form* board = loadedBoard(m);
    if (!board) return;
    board->model().Label3[button::exitGame].enabled = enabled;
    board->model().Label3[button::newGame].enabled = enabled;
    board->sync();
}

}  // namespace

std::span<const kit::Row> Highscores::rows() { return highscoresRows; }

Highscores::Highscores(Module1& module) : Form(module, formName) {
    // In front of all other windows, where the window manager allows it.
    setWindowFlags(windowFlags() | Qt::WindowStaysOnTopHint);
    setClientSizeTwips(clientWidth, clientHeight);
    setWindowName(msg::windowHighscores);
    setBackColor(setupBlue);
    build(highscoresRows);
    onClick("Label3", [this](int i) { Label3_Click(i); });
}

void Highscores::Form_Load() {
    Module1& m = module();
    centre();
    textshow(*this, binding::Screen::highscores);
    boardButtons(m, false);
    // After a game, or after a write that failed, the arrays are ahead of the
    // file and are not read.
    if (m.newhighrow == 0 && !m.highscoresAheadOfFile) {
        HighScores t = tableOf(m);
        readHighScores(readFileBytes(gamePath(highscoresFile)), t);
        keep(m, t);
    }
    for (int r = 0; r < rowsShown; ++r) {
        const auto i = static_cast<std::size_t>(r);
        control("Label8", r)->setCaption(std::string_view(m.highnames[i]));
        // A free row shows no score.
        control("Label9", r)->setCaption(m.highpoints[i] == 0 ? std::string() : std::to_string(m.highpoints[i]));
        control("Label8", r)->setVisible(true);
        control("Label9", r)->setVisible(true);
    }
}

void Highscores::Label3_Click(int) {
    Module1& m = module();
    if (m.newhighrow > 0) {
        HighScores t = tableOf(m);
        enterName(t, m.newhighrow, control("Text1")->caption().toStdString());
        // The entry stays in the table for the rest of the run, whether the
        // file takes it or not: Continue always leads on.
        keep(m, t);
        m.newhighrow = 0;
        m.highscoresAheadOfFile = !writeHighScores(gamePath(highscoresFile), t);
        if (m.highscoresAheadOfFile) tellUser(m.message(msg::highscoreNotSaved));
    }
    boardButtons(m, true);
    m.screens.unload(formName);
    if (m.state.soundon == 1) m.playwave("wav\\click.wav");
}

void checkhighscore(Module1& m) {
    Fen1Form* board = loadedBoard(m);
    if (!board) return;
    HighScores t = tableOf(m);
    if (!m.highscoresAheadOfFile) readHighScores(readFileBytes(gamePath(highscoresFile)), t);
    std::array<int, 5> scorebox{};
    for (int i = 1; i <= 4; ++i) scorebox[static_cast<std::size_t>(i)] = board->game().scoreboxValue(i);
    m.newhighrow = fendle::checkhighscore(t, m.state.computerlevel, scorebox);
    keep(m, t);
    if (m.newhighrow == 0) return;

    m.screens.show(Highscores::formName);
    auto* screen = m.screens.get<Highscores>(Highscores::formName);
    if (!screen) return;
    // The screen may have been open since the set-up screen, before this board.
    boardButtons(m, false);
    // The rows of the section, scores of 0 included.
    const int first = m.newhighrow <= 5 ? 0 : 5;
    for (int r = first; r < first + 5; ++r) {
        const auto i = static_cast<std::size_t>(r);
        screen->control("Label8", r)->setCaption(std::string_view(m.highnames[i]));
        screen->control("Label9", r)->setCaption(std::to_string(m.highpoints[i]));
    }
    auto* name = screen->get<kit::TextBox>("Text1");
    // The box says whose score it is: Blue's against the computer, else the
    // first of the highest.
    int whose = 1;
    if (m.state.computerlevel == 0)
        for (int i = 2; i <= 4; ++i) whose = scorebox[std::size_t(i)] > scorebox[std::size_t(whose)] ? i : whose;
    const ModuleTexts& texts = m.state.texts;
    const std::string* colours[4] = {&texts.bluename, &texts.redname, &texts.greenname, &texts.yellowname};
    const int score = std::min(scorebox[std::size_t(whose)], 32767);
    name->widget()->setAccessibleName(m.message(Problem{msg::highscoreNameFor, {*colours[whose - 1], std::to_string(score)}}));
    // Enter keeps the name, as Continue does.
    name->setKeyPress([screen](int key) {
        if (key != 13) return key;
        screen->Label3_Click(0);
        return 0;
    });
    name->setTopTwips(screen->control("Label8", m.newhighrow - 1)->topTwips() - Highscores::nameBoxRaise);
    name->setVisible(true);
    name->widget()->raise();
    name->widget()->setFocus(Qt::OtherFocusReason);
}

}  // namespace fendle
