#include "screens/fen1_form.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QTimer>

#include <cmath>

#include "saved/games_record.h"
#include "screens/board_keys.h"
#include "screens/game_screens.h"
#include "screens/kit/accessible.h"
#include "screens/kit/painted.h"
#include "screens/language.h"
#include "screens/module1.h"
#include "text/file_io.h"
#include "text/binding.h"
#include "text/text_tables.h"

namespace fendle {

namespace {

using kit::Align;
using kit::Face;
using kit::Kind;
using kit::Row;
namespace c = colour;

constexpr Rgb noteGrey = c::noteGrey;

// The controls of the board, as the design lays them out (twips). Captions
// and colours that the game changes come from the board model at each sync.
// Later rows stand in front of earlier ones.
const Row fen1Rows[] = {
    // The legend: a ball of each zone with its reward over it.
    {.name = "Image2", .index = 0, .kind = Kind::Image, .left = 90, .top = 120, .width = 840, .height = 840, .picture = "Balls\\reball.bmp"},
    {.name = "Image2", .index = 1, .kind = Kind::Image, .left = 90, .top = 960, .width = 840, .height = 840, .picture = "Balls\\maball.bmp"},
    {.name = "Image2", .index = 2, .kind = Kind::Image, .left = 90, .top = 1800, .width = 840, .height = 840, .picture = "Balls\\grball.bmp"},
    {.name = "Image2", .index = 3, .kind = Kind::Image, .left = 90, .top = 2640, .width = 840, .height = 840, .picture = "Balls\\blball.bmp"},
    {.name = "Image2", .index = 4, .kind = Kind::Image, .left = 90, .top = 3480, .width = 840, .height = 840, .picture = "Balls\\yeball.bmp"},
    {.name = "Image2", .index = 5, .kind = Kind::Image, .left = 90, .top = 4320, .width = 840, .height = 840, .picture = "Balls\\cyball.bmp"},
    {.name = "Image2", .index = 6, .kind = Kind::Image, .left = 90, .top = 5160, .width = 840, .height = 840, .picture = "Balls\\coball.bmp"},
    {.name = "Label7", .index = 0, .left = 240, .top = 360, .width = 540, .height = 360, .caption = "500", .size = 15.75, .bold = true, .fore = c::numberGrey, .transparent = true, .align = Align::Centre},
    {.name = "Label7", .index = 1, .left = 240, .top = 1200, .width = 540, .height = 360, .caption = "300", .size = 15.75, .bold = true, .fore = c::numberGrey, .transparent = true, .align = Align::Centre},
    {.name = "Label7", .index = 2, .left = 240, .top = 2040, .width = 540, .height = 360, .caption = "200", .size = 15.75, .bold = true, .fore = c::numberGrey, .transparent = true, .align = Align::Centre},
    {.name = "Label7", .index = 3, .left = 240, .top = 2880, .width = 540, .height = 360, .caption = "100", .size = 15.75, .bold = true, .fore = c::numberGrey, .transparent = true, .align = Align::Centre},
    {.name = "Label7", .index = 4, .left = 330, .top = 3720, .width = 360, .height = 360, .caption = "50", .size = 15.75, .bold = true, .fore = c::numberGrey, .transparent = true, .align = Align::Centre},
    {.name = "Label7", .index = 5, .left = 330, .top = 4560, .width = 360, .height = 360, .caption = "20", .size = 15.75, .bold = true, .fore = c::numberGrey, .transparent = true, .align = Align::Centre},
    {.name = "Label7", .index = 6, .left = 330, .top = 5400, .width = 360, .height = 360, .caption = "10", .size = 15.75, .bold = true, .fore = c::numberGrey, .transparent = true, .align = Align::Centre},

    // Patterns of the numbers and counters, hidden for good; 1 to 100 are made from them.
    {.name = "Label1", .index = 0, .left = 3120, .top = 2520, .width = 480, .height = 480, .size = 15.75, .bold = true, .fore = c::numberGrey, .transparent = true, .align = Align::Centre, .visible = false, .wordWrap = false},
    {.name = "Image1", .index = 0, .kind = Kind::Image, .left = 3480, .top = 2520, .width = 480, .height = 480, .visible = false},
    {.name = "Image3", .kind = Kind::Image, .left = 3720, .top = 120, .width = 480, .height = 480, .visible = false},

    // Buttons and dice.
    {.name = "Label3", .index = 0, .kind = Kind::Button, .left = 60, .top = 8400, .width = 1695, .height = 495, .caption = "Exit", .font = Face::Tahoma, .size = 15.75, .bold = true, .fore = c::blueText, .back = c::black, .align = Align::Centre, .border = true},
    {.name = "Label3", .index = 1, .kind = Kind::Button, .left = 9480, .top = 8400, .width = 2415, .height = 495, .caption = "New Game", .font = Face::Tahoma, .size = 15.75, .bold = true, .fore = c::blueText, .back = c::black, .align = Align::Centre, .border = true},
    {.name = "Label3", .index = 2, .kind = Kind::Button, .left = 1080, .top = 120, .width = 2295, .height = 495, .caption = "Throw Dice", .font = Face::Tahoma, .size = 15.75, .bold = true, .fore = c::blueText, .back = c::black, .align = Align::Centre, .border = true},
    {.name = "Label14", .kind = Kind::Button, .left = 1320, .top = 1920, .width = 1815, .height = 375, .caption = "Cheat Chart", .font = Face::Tahoma, .size = 11.25, .bold = true, .fore = c::blueText, .back = c::black, .align = Align::Centre, .border = true},
    {.name = "Label4", .index = 0, .left = 1680, .top = 720, .width = 495, .height = 495, .size = 20.25, .bold = true, .fore = c::black, .back = c::blue, .outline = true, .align = Align::Centre, .enabled = false, .border = true},
    {.name = "Label4", .index = 1, .left = 2280, .top = 720, .width = 495, .height = 495, .size = 20.25, .bold = true, .fore = c::black, .back = c::blue, .outline = true, .align = Align::Centre, .enabled = false, .border = true},
    {.name = "Label4", .index = 2, .left = 1680, .top = 1320, .width = 495, .height = 495, .size = 20.25, .bold = true, .fore = c::black, .back = c::blue, .outline = true, .align = Align::Centre, .enabled = false, .border = true},
    {.name = "Label4", .index = 3, .left = 2280, .top = 1320, .width = 495, .height = 495, .size = 20.25, .bold = true, .fore = c::black, .back = c::blue, .outline = true, .align = Align::Centre, .enabled = false, .border = true},

    // Messages, scores, clocks.
    {.name = "Label2", .left = 4680, .top = 0, .width = 3180, .height = 660, .caption = "Blue to Play", .size = 27.75, .bold = true, .fore = c::blueText, .transparent = true, .outline = true, .align = Align::Centre, .wordWrap = false},
    {.name = "Label9", .left = 9435, .top = 0, .width = 2445, .height = 675, .caption = "FENDLE!", .font = Face::Tahoma, .size = 27.75, .bold = true, .fore = c::red, .transparent = true, .outline = true, .align = Align::Centre, .wordWrap = false},
    {.name = "Label5", .index = 1, .left = 9360, .top = 5640, .width = 1080, .height = 360, .caption = "Blue", .size = 15.75, .bold = true, .fore = c::blueText, .transparent = true, .outline = true, .align = Align::Right, .wordWrap = false},
    {.name = "Label5", .index = 2, .left = 9360, .top = 6240, .width = 1080, .height = 360, .caption = "Red", .size = 15.75, .bold = true, .fore = c::red, .transparent = true, .outline = true, .align = Align::Right, .visible = false, .wordWrap = false},
    {.name = "Label5", .index = 3, .left = 9240, .top = 6840, .width = 1200, .height = 360, .caption = "Green", .size = 15.75, .bold = true, .fore = c::green, .transparent = true, .outline = true, .align = Align::Right, .visible = false, .wordWrap = false},
    {.name = "Label5", .index = 4, .left = 9120, .top = 7440, .width = 1320, .height = 360, .caption = "Yellow", .size = 15.75, .bold = true, .fore = c::yellow, .transparent = true, .outline = true, .align = Align::Right, .visible = false, .wordWrap = false},
    {.name = "Label6", .index = 1, .left = 10560, .top = 5580, .width = 1335, .height = 495, .size = 20.25, .bold = true, .fore = c::white, .back = c::blue, .align = Align::Centre, .border = true},
    {.name = "Label6", .index = 2, .left = 10560, .top = 6180, .width = 1335, .height = 495, .size = 20.25, .bold = true, .fore = c::white, .back = c::red, .align = Align::Centre, .visible = false, .border = true},
    {.name = "Label6", .index = 3, .left = 10560, .top = 6780, .width = 1335, .height = 495, .size = 20.25, .bold = true, .fore = c::black, .back = c::green, .align = Align::Centre, .visible = false, .border = true},
    {.name = "Label6", .index = 4, .left = 10560, .top = 7380, .width = 1335, .height = 495, .size = 20.25, .bold = true, .fore = c::black, .back = c::yellow, .align = Align::Centre, .visible = false, .border = true},
    {.name = "Label5", .index = 6, .left = 9000, .top = 6960, .width = 2850, .height = 1200, .caption = "The computer is playing as red.", .size = 14.25, .bold = true, .fore = noteGrey, .transparent = true, .outline = true, .align = Align::Centre, .visible = false},
    {.name = "Label12", .index = 0, .left = 4320, .top = 8400, .width = 975, .height = 375, .caption = "2000", .size = 14.25, .bold = true, .fore = c::black, .back = c::blue, .outline = true, .align = Align::Centre, .visible = false, .border = true},
    {.name = "Label12", .index = 1, .left = 5400, .top = 8400, .width = 975, .height = 375, .caption = "2000", .size = 14.25, .bold = true, .fore = c::black, .back = c::red, .align = Align::Centre, .visible = false, .border = true},
    {.name = "Label12", .index = 2, .left = 6480, .top = 8400, .width = 975, .height = 375, .caption = "2000", .size = 14.25, .bold = true, .fore = c::black, .back = c::green, .align = Align::Centre, .visible = false, .border = true},
    {.name = "Label12", .index = 3, .left = 7560, .top = 8400, .width = 975, .height = 375, .caption = "2000", .size = 14.25, .bold = true, .fore = c::black, .back = c::yellow, .align = Align::Centre, .visible = false, .border = true},
    {.name = "Label13", .left = 2760, .top = 8280, .width = 1560, .height = 600, .caption = "Seconds Remaining", .size = 12, .bold = true, .fore = c::blueText, .transparent = true, .outline = true, .align = Align::Centre, .visible = false},
    {.name = "Label10", .left = 1800, .top = 8460, .width = 7560, .height = 360, .caption = "You made an illegal move. You have lost your turn.", .size = 12, .bold = true, .fore = c::white, .transparent = true, .outline = true, .align = Align::Centre, .visible = false},
    {.name = "Label5", .index = 0, .left = 9960, .top = 4740, .width = 1950, .height = 360, .caption = "Target Score", .size = 15.75, .bold = true, .fore = c::blueText, .transparent = true, .outline = true, .align = Align::Centre, .visible = false},
    {.name = "Label5", .index = 5, .left = 10575, .top = 5100, .width = 720, .height = 360, .caption = "5000", .size = 15.75, .bold = true, .fore = c::blueText, .transparent = true, .outline = true, .align = Align::Centre, .visible = false},

    // Show me how: the button stands under the Cheat Chart from a move until
    // the next throw; the explanation it opens lies over the lowest rows of
    // the board, clear of the clocks, the scores, Exit and New Game, and hides
    // the numbers and counters under it while it is open.
    {.name = "ShowHow", .kind = Kind::Button, .left = 1080, .top = 2415, .width = 1740, .height = 375, .caption = "Show me how", .font = Face::Tahoma, .size = 11.25, .bold = true, .fore = c::blueText, .back = c::black, .align = Align::Centre, .visible = false, .border = true},
    {.name = "HowText", .left = 45, .top = 6660, .width = 8925, .height = 1590, .size = 15.75, .bold = true, .fore = c::white, .back = c::black, .align = Align::Centre, .visible = false, .border = true},
};

// The explanation grows upwards from this line, as its words need.
constexpr double howBottom = 8250;

// The key of Show me how: H, for How. It is the same key in every language
// and on every keyboard the game's languages are typed on, needs no Shift
// (a question mark sits on a different shifted key in each), and leaves the
// digits, arrows, Space, Enter, Escape, Backspace and Tab to keyboard play.
constexpr int showHowKey = Qt::Key_H;

// The pattern label is AutoSize for "100": its width follows its text.
float label100Width() {
    const QFontMetrics metrics(kit::makeFont(Face::Arial, 15.75, true));
    return static_cast<float>(kit::twips(metrics.horizontalAdvance(QStringLiteral("100"))));
}

}  // namespace

Fen1Form::Fen1Form(Module1& module) : Form(module, formName) {
    setWindowName(msg::windowFen1);
    build(fen1Rows);
    game_ = std::make_unique<Fen1>(module.state, Ports{timers(), module.random(), module.sound(), module.screens});
    // Every tick goes to the game, and the window shows what it changed.
    timers().bind([this](int timer) {
        game_->timerTick(timer);
        afterEvent();
    });
    game_->onEvent = [this](const GameEvent& e) {
        if (keys_) keys_->hear(e);
    };
    onClick("Label1", [this](int n) { claimNumber(n); });
    onClick("Label3", [this](int index) {
        game_->Label3_Click(static_cast<i16>(index));
        // Exit and New Game leave the game: what it has of a record is kept.
        if (index == button::exitGame || index == button::newGame) recordGame();
        afterEvent();
        // Throw Dice goes dim: the keyboard rests on the board, not on the next button.
        if (index == button::throwDice && keys_ && !isUnloaded()) keys_->focusBoard();
    });
    onClick("Label14", [this](int) { this->module().screens.show("Cheatchart"); });
    onClick("ShowHow", [this](int) {
        game_->ShowHow_Click();
        afterEvent();
    });
}

Fen1Form::~Fen1Form() {
    recordGame();
    game_.reset();   // the game lets go of the timers before they go
}

void Fen1Form::claimNumber(int n) {
    game_->Label1_Click(static_cast<i16>(n));
    afterEvent();
}

void Fen1Form::closeRequested() {
    if (model().Label3[button::exitGame].enabled) {
        game_->Label3_Click(button::exitGame);
        recordGame();
        afterEvent();
    }
}

void Fen1Form::keyPressEvent(QKeyEvent* e) {
    const bool plain = !(e->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (e->key() == showHowKey && plain && model().ShowHow.visible) {
        if (!e->isAutoRepeat()) {
            game_->ShowHow_Click();
            afterEvent();
        }
        return;
    }
    if (keys_ && !isUnloaded() && keys_->keyPress(e)) return e->accept();
    Form::keyPressEvent(e);
}

void Fen1Form::afterEvent() {
    if (game_->winner > 0) recordGame();
    sync();
}

void Fen1Form::stampMoves() {
    while (moveTimes_.size() < game_->moves.size())
        moveTimes_.push_back(QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toStdString());
}

void Fen1Form::recordGame() {
    stampMoves();
    const std::vector<MoveRecord>& moves = game_->moves;
    if (recorded_ >= moves.size()) return;
    const std::string path = gamePath(gamesRecordFile);
    if (gameNumber_ == 0) gameNumber_ = nextGameNumber(readFileTail(path, 64 * 1024));
    std::vector<std::string> lines;
    for (std::size_t i = recorded_; i < moves.size(); ++i) {
        const MoveRecord& move = moves[i];
        const std::string name = move.computer ? "Computer" : model().Label5[static_cast<std::size_t>(move.player + 1)].caption;
        lines.push_back(gamesRecordLine(moveTimes_[i], gameNumber_, name, move));
    }
    recorded_ += appendLines(path, gamesRecordHead(), lines);
    // The game goes on without its record; the user hears of it once, when
    // the handler has finished, as of a saved game that could not be kept.
    Module1& m = module();
    if (recorded_ < moves.size() && !m.toldGameNotRecorded) {
        m.toldGameNotRecorded = true;
        const QString text = m.message(msg::gameNotRecorded);
        QTimer::singleShot(0, QCoreApplication::instance(), [text] { tellUser(text); });
    }
}

void Fen1Form::Form_Load() {
    Module1& m = module();
    m.fitform(*this);
    setBackColor(colour::boardBlue);
    setPicture("Images\\fendle3.bmp");
    applyLayoutByLanguage(*this, binding::Screen::fen1);
    textshow();
    game_->Form_Load(label100Width());
    for (int n = 1; n <= 100; ++n) {
        controls().loadElement("Label1", n)->setCaption(std::to_string(n));
        controls().loadElement("Image1", n);
    }
    control("Image3")->widget()->raise();   // the flash lies in front of the counters
    control("HowText")->widget()->raise();  // and the explanation in front of all the board
    keys_ = new BoardKeys(*this);
    keys_->build();
    keys_->focusBoard();
    sync();
}

// The words of the board's controls in the current language go into the
// model, which the window then shows.
void Fen1Form::textshow() {
    Module1& m = module();
    const MessageTable& messages = m.messages();
    const int language = m.state.languagenumber;
    const auto words = [&](const Message& message) { return messages.text(Problem{message, {}}, language); };
    game_->howWords = {words(msg::howCannot), words(msg::howBest), words(msg::howRounded)};
    model().ShowHow.caption = words(msg::showHowButton);
    if (!m.tables) return;   // no tables read: the design's English stays
    const TextTables& tables = *m.tables;
    const int lang = m.state.languagenumber;
    if (lang >= 0 && lang < tableLanguages) {
        game_->playword = tables.texttable[static_cast<std::size_t>(lang)][26];
        game_->pathbonustext = tables.texttable[static_cast<std::size_t>(lang)][37];
    }
    BoardModel& b = model();
    for (const binding::Caption& cap : binding::textshow(binding::Screen::fen1, lang, tables, m.state.texts)) {
        const std::string& name = cap.control;
        const auto i = static_cast<std::size_t>(cap.index < 0 ? 0 : cap.index);
        if (name == "Label3" && i < b.Label3.size()) b.Label3[i].caption = cap.caption;
        else if (name == "Label5" && i < b.Label5.size()) b.Label5[i].caption = cap.caption;
        else if (name == "Label14") b.Label14.caption = cap.caption;
        else if (name == "Label10") b.Label10.caption = cap.caption;
        else if (name == "Label13") b.Label13.caption = cap.caption;
        else if (name == "Label2") b.Label2.caption = cap.caption;
    }
}

void Fen1Form::syncControl(kit::Control* c, const ControlState& now, const ControlState* before, bool withBack) {
    if (!c) return;
    if (!before || before->caption != now.caption) c->setCaption(now.caption);
    if (!before || before->fore != now.fore) c->setForeColor(now.fore);
    if (withBack && (!before || before->back != now.back)) c->setBackColor(now.back);
    if (!before || before->enabled != now.enabled) c->setEnabled(now.enabled);
    if (!before || before->visible != now.visible) c->setVisible(now.visible);
}

// What a screen reader says of the counter on hexagon n: "37, Blue".
QString Fen1Form::counterName(int n) const {
    const ModuleState& s = module().state;
    const ModuleTexts& t = s.texts;
    const std::string* names[] = {&t.bluename, &t.redname, &t.greenname, &t.yellowname};
    const int owner = s.boardowner[static_cast<std::size_t>(n)];
    if (owner < 1 || owner > 4) return QString::number(n);
    return QStringLiteral("%1, %2").arg(n).arg(QString::fromStdString(*names[owner - 1]));
}

void Fen1Form::sync() {
    stampMoves();
    const BoardModel& b = model();
    const BoardModel* s = shown_.get();
    kit::Controls& k = controls();

    // The explanation's box takes the height of its lines, and while it is
    // open, what lies under it is hidden.
    if (!s || s->HowText.caption != b.HowText.caption) {
        kit::Control* c = control("HowText");
        const int border = kit::LabelFace::borderWidth;
        const QFont font = kit::makeFont(c->row().font, c->fontSize(), c->row().bold);
        const kit::TextBlock lines = kit::measureText(QString::fromStdString(b.HowText.caption), font,
                                                      c->widget()->width() - 2 * border, c->row().align);
        const double height = std::min(c->row().height, (std::ceil(lines.height()) + 2 * border + 6) * kit::twipsPerPixel);
        c->placeTwips(c->leftTwips(), howBottom - height, c->widthTwips(), height);
    }
    const bool howChanged = !s || s->HowText.visible != b.HowText.visible;
    const QRect how = b.HowText.visible ? control("HowText")->widget()->geometry() : QRect();
    const auto clear = [&how](const kit::Control* c) { return !how.intersects(c->widget()->geometry()); };

    for (std::size_t n = 1; n <= 100; ++n) {
        if (kit::Control* label = k.find("Label1", static_cast<int>(n))) {
            const NumberLabel& now = b.Label1[n];
            const NumberLabel* was = s ? &s->Label1[n] : nullptr;
            if (!was || was->left != now.left || was->top != now.top || was->width != now.width)
                label->placeTwips(now.left, now.top, now.width, 480);
            if (!was || was->fore != now.fore) label->setForeColor(now.fore);
            if (!was || was->visible != now.visible || howChanged) label->setVisible(now.visible && clear(label));
        }
        auto* counter = dynamic_cast<kit::Image*>(k.find("Image1", static_cast<int>(n)));
        if (counter) {
            const Picture& now = b.Image1[n];
            const Picture* was = s ? &s->Image1[n] : nullptr;
            if (!was || was->picture != now.picture) {
                if (now.picture.empty()) counter->clearPicture();
                else counter->setPicture(now.picture);
                counter->widget()->setAccessibleName(counterName(static_cast<int>(n)));
            }
            if (!was || was->left != now.left || was->top != now.top) counter->placeTwips(now.left, now.top, 480, 480);
            if (!was || was->visible != now.visible || howChanged) counter->setVisible(now.visible && clear(counter));
        }
    }
    if (auto* flash = get<kit::Image>("Image3")) {
        const Picture* was = s ? &s->Image3 : nullptr;
        if (!was || was->picture != b.Image3.picture) {
            if (b.Image3.picture.empty()) flash->clearPicture();
            else flash->setPicture(b.Image3.picture);
        }
        if (!was || was->left != b.Image3.left || was->top != b.Image3.top) flash->placeTwips(b.Image3.left, b.Image3.top, 480, 480);
        if (!was || was->visible != b.Image3.visible || howChanged) flash->setVisible(b.Image3.visible && clear(flash));
    }
    if (kit::Control* line = control("Label2")) {
        const MessageLine* was = s ? &s->Label2 : nullptr;
        if (!was || was->top != b.Label2.top) line->setTopTwips(b.Label2.top);
        if (!was || was->fontSize != b.Label2.fontSize) line->setFontSize(b.Label2.fontSize);
        syncControl(line, b.Label2, was, false);
    }
    for (int i = 0; i < 3; ++i) syncControl(control("Label3", i), b.Label3[static_cast<std::size_t>(i)], s ? &s->Label3[static_cast<std::size_t>(i)] : nullptr, false);
    syncControl(control("Label14"), b.Label14, s ? &s->Label14 : nullptr, false);
    for (int i = 0; i < 4; ++i) syncControl(control("Label4", i), b.Label4[static_cast<std::size_t>(i)], s ? &s->Label4[static_cast<std::size_t>(i)] : nullptr, true);
    for (int i = 0; i < 7; ++i) syncControl(control("Label5", i), b.Label5[static_cast<std::size_t>(i)], s ? &s->Label5[static_cast<std::size_t>(i)] : nullptr, false);
    for (int i = 1; i <= 4; ++i) syncControl(control("Label6", i), b.Label6[static_cast<std::size_t>(i)], s ? &s->Label6[static_cast<std::size_t>(i)] : nullptr, true);
    for (int i = 0; i < 4; ++i) syncControl(control("Label12", i), b.Label12[static_cast<std::size_t>(i)], s ? &s->Label12[static_cast<std::size_t>(i)] : nullptr, true);
    syncControl(control("Label13"), b.Label13, s ? &s->Label13 : nullptr, false);
    syncControl(control("Label10"), b.Label10, s ? &s->Label10 : nullptr, false);
    syncControl(control("Label9"), b.Label9, s ? &s->Label9 : nullptr, false);
    syncControl(control("ShowHow"), b.ShowHow, s ? &s->ShowHow : nullptr, false);
    syncControl(control("HowText"), b.HowText, s ? &s->HowText : nullptr, false);
    // A screen reader on the button hears the explanation it opened.
    if (howChanged || s->HowText.caption != b.HowText.caption) {
        const QString how = b.HowText.visible ? QString::fromStdString(b.HowText.caption) : QString();
        control("ShowHow")->widget()->setAccessibleDescription(how);
        // and is told it, as the game's events are, wherever the focus is.
        if (keys_ && !how.isEmpty()) keys_->announcer()->say(how);
    }

    if (shown_) *shown_ = b;
    else shown_ = std::make_unique<BoardModel>(b);
    if (keys_) keys_->afterSync();
}

}  // namespace fendle
