#include "screens/rulepages.h"

#include <QKeyEvent>

#include <algorithm>
#include <cmath>
#include <map>

#include "engine/dice_roll.h"
#include "screens/kit/painted.h"
#include "screens/kit/text.h"
#include "screens/language.h"
#include "screens/module1.h"
#include "screens/rulepages_layout.h"
#include "text/binding.h"
#include "text/flow.h"

namespace fendle {

using namespace rules;

namespace {

using kit::Face;
using kit::Row;

constexpr const char* cheatChart = "Cheatchart";
constexpr const char* throwWave = "wav\\cupdice.wav";

binding::Screen screenOf(int page) {
    static constexpr binding::Screen screens[] = {binding::Screen::Fendlerules, binding::Screen::Fendlerules2,
                                                  binding::Screen::Fendlerules2b, binding::Screen::Fendlerules3,
                                                  binding::Screen::Fendlerules4};
    return screens[page - 1];
}

// The height of a text's lines and the width of its widest line, whole
// pixels, in twips, as a label sets them in a box `width` twips wide.
flow::Size measure(const QString& text, const QFont& font, double width) {
    const kit::TextBlock block = kit::measureText(text, font, kit::px(width));
    if (block.lines.empty()) return {};
    return {kit::twips(std::ceil(block.height() - 0.01)), kit::twips(std::ceil(block.widest()))};
}

flow::Box boxOf(const Row& r) { return {r.left, r.top, r.width, r.height}; }
flow::Box boxOf(const kit::Control& c) { return {c.leftTwips(), c.topTwips(), c.widthTwips(), c.heightTwips()}; }

}  // namespace

// ---------------------------------------------------------------- RulePage

RulePage::RulePage(Module1& module, int page, int set)
    : Form(module, binding::ruleFormName(page, set)), page_(page), set_(set) {
    setBackColor(pageBlue);
    build(plainRows(page));
    onClick("Label3", [this](int i) { Label3_Click(i); });
    if (page_ == 2) {
        onClick("Label2", [this](int) { Label2_Click(); });
        onClick("Label14", [this](int) { Label14_Click(); });
        timers().bind([this](int timer) {
            if (timer == diceroll::stopTimer) Timer5_Timer();
            else if (timer == diceroll::spinTimer) Timer8_Timer();
        });
        for (std::size_t d = 0; d < faces_.size(); ++d) faces_[d].enabled = control("Label4", int(d))->enabled();
    }

    // Keyboard: the demonstration first, then Next, Previous and Exit.
    std::vector<QWidget*> order;
    if (page_ == 2) order = {control("Label2")->widget(), control("Label14")->widget()};
    for (int i : {nextButton, previousButton, exitButton})
        if (kit::Control* b = control("Label3", i)) order.push_back(b->widget());
    for (std::size_t k = 1; k < order.size(); ++k) setTabOrder(order[k - 1], order[k]);
}

RulePage::~RulePage() = default;

void RulePage::Form_Load() {
    Module1& m = module();
    m.fitform(*this);
    setWindowName(msg::windowRules, std::to_string(page_));
    placeForSet();
    textshow(*this, screenOf(page_), set_);
    if (page_ == 1) get<kit::Image>("Image1")->setPicture(setLayouts[std::size_t(set_)].startPicture);
    flowText();
    control("Label3", nextButton)->widget()->setFocus(Qt::OtherFocusReason);
}

void RulePage::placeForSet() {
    const SetLayout& s = setLayouts[std::size_t(set_)];
    auto setSpan = [this](const char* name, int index, Span span) {
        kit::Control* b = control(name, index);
        b->placeTwips(span.left, b->topTwips(), span.width, b->heightTwips());
    };
    Span exit = s.exit, next = s.next, previous = s.previous;
    if (set_ == du && page_ == 3) next = duPage3Next, previous = duPage3Previous;
    if (set_ == it && page_ == 4) exit = itPage4Exit;
    setSpan("Label3", exitButton, exit);
    if (page_ < rulePages) setSpan("Label3", nextButton, next);
    else setSpan("Label3", nextButton, s.page5Previous);
    if (page_ > 1 && page_ < rulePages) setSpan("Label3", previousButton, previous);

    for (int i : flowingTexts(page_)) control("Label1", i)->setFontSize(textPoints(i));

    if (page_ == 2) {
        kit::Control* dice = control("Label2");
        dice->placeTwips(s.throwDice.left, s.throwDiceTop, s.throwDice.width, dice->heightTwips());
        kit::Control* chart = control("Label14");
        chart->placeTwips(s.cheatChart.left, s.cheatChartTop, s.cheatChart.width, chart->heightTwips());
        for (int d = 0; d < 4; ++d) {
            control("Label4", d)->setLeftTwips(s.diceLefts[std::size_t(d % 2)]);
            control("Label4", d)->setTopTwips(s.diceTops[std::size_t(d / 2)]);
        }
    }
    if (page_ == 3) {
        const std::array<double, 3> columns = {s.rangesLeft, s.coloursLeft, s.rewardsLeft};
        constexpr std::array<double, 3> plainColumns = {840, 3480, 5820};
        for (int zone = 0; zone < 7; ++zone) {
            const double top = s.zoneTop + zoneRowGap * zone;
            control("Label1", 16 + zone)->placeTwips(s.rangesLeft, top, control("Label1", 16 + zone)->widthTwips(), 270);
            control("Label1", 9 + zone)->placeTwips(s.coloursLeft, top, control("Label1", 9 + zone)->widthTwips(), 270);
            const int reward = zoneReward[std::size_t(zone)];
            control("Label1", reward)->placeTwips(s.rewardsLeft, top, control("Label1", reward)->widthTwips(), 270);
        }
        // The headings keep their place over their columns.
        for (int k = 0; k < 3; ++k) {
            kit::Control* h = control("Label1", 6 + k);
            const double shift = columns[std::size_t(k)] - plainColumns[std::size_t(k)];
            h->placeTwips(h->row().left + shift, s.zoneTop - zoneHeadingsAbove, h->widthTwips(), h->heightTwips());
        }
    }
    if (page_ == 5 && set_ == we) {
        kit::Control* end = control("Image1");
        end->setTopTwips(end->topTwips() - wePage5Lift);
        for (const char* name : {"Line1", "Line2", "Line3", "Line4", "Line5", "Line6", "Line7"}) {
            auto* line = get<kit::Line>(name);
            const Row& r = line->row();
            line->setEnds(r.x1, r.y1 - wePage5Lift, r.x2, r.y2 - wePage5Lift);
        }
    }
}

double RulePage::textPoints(int index) const {
    const kit::Control* t = control("Label1", index);
    if (t->row().bold) return t->row().size;
    const SetLayout& s = setLayouts[std::size_t(set_)];
    switch (page_) {
    case 1: return s.textPage1;
    case 4: return s.textPage4;
    case 5: return index >= 11 ? s.foot : s.textPage5;
    default: return t->row().size;
    }
}

void RulePage::fitZoneTable() {
    // Each cell as wide as its words, never narrower than drawn.
    for (int i = 6; i <= 22; ++i) {
        kit::Control* cell = control("Label1", i);
        const QFont font = kit::makeFont(Face::Arial, cell->fontSize(), cell->row().bold);
        const double need = measure(cell->caption(), font, flow::unbounded).widest + 2 * flow::pixel;
        cell->setWidthTwips(std::max(cell->row().width, need));
    }
    // A heading that comes down beside the board stops short of it.
    const kit::Control* board = control("Image1");
    for (int k = 6; k <= 8; ++k) {
        kit::Control* h = control("Label1", k);
        const QFont font = kit::makeFont(Face::Arial, h->fontSize(), true);
        const flow::Size words = measure(h->caption(), font, flow::unbounded);
        const double width = words.widest + 2 * flow::pixel;
        if (h->topTwips() + words.height <= board->topTwips()) continue;
        h->setWidthTwips(width);
        const double room = board->leftTwips() - flow::margin / 2;
        if (h->leftTwips() + width > room) h->setLeftTwips(room - width);
    }
}

void RulePage::flowText() {
    if (page_ == 3) fitZoneTable();
    const std::vector<Row> rows = plainRows(page_);
    std::map<std::pair<std::string, int>, const Row*> drawn;
    for (const Row& r : rows) drawn[{r.name, r.index}] = &r;
    auto drawnRow = [&](const kit::Control* c) -> const Row& { return *drawn.at({c->name(), c->index()}); };

    flow::Page page{pageWidthTwips, pageHeightTwips, {}, {}};
    std::vector<kit::Control*> texts;
    for (int i : flowingTexts(page_)) {
        kit::Control* t = control("Label1", i);
        texts.push_back(t);
        page.texts.push_back({boxOf(drawnRow(t)), t->row().bold});
    }
    for (QWidget* w : findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        const kit::Control* c = kit::Control::of(w);
        if (!c || !c->visible() || c->kind() == kit::Kind::Line) continue;
        if (std::find(texts.begin(), texts.end(), c) != texts.end()) continue;
        page.fixed.push_back({boxOf(drawnRow(c)), boxOf(*c)});
    }

    // The English of the design at its size; the page's words at the set's
    // size, the plain text `shrink` pixels smaller.
    auto pixels = [&](const kit::Control* t, int shrink) {
        return kit::fontPixels(textPoints(t->index())) - (t->row().bold ? 0 : shrink);
    };
    const flow::Result r = flow::flow(page, [&](std::size_t k, bool english, int shrink, double width) {
        const kit::Control* t = texts[k];
        QFont font = kit::makeFont(Face::Arial, 12, t->row().bold);
        font.setPixelSize(english ? kit::fontPixels(t->row().size) : pixels(t, shrink));
        return measure(english ? QString::fromUtf8(drawnRow(t).caption) : t->caption(), font, width);
    });
    shrink_ = r.shrink;
    for (std::size_t k = 0; k < texts.size(); ++k) {
        const flow::Box& b = r.boxes[k];
        texts[k]->placeTwips(b.left, b.top, b.width, b.height);
        texts[k]->setFontSize(double(pixels(texts[k], r.shrink)) * 3 / 4);
    }
}

// ---------------------------------------------------------------- handlers

void RulePage::open(int page) { module().screens.show(binding::ruleFormName(page, set_)); }

void RulePage::Label3_Click(int Index) {
    ScreenRegistry& screens = module().screens;
    const std::string self = name();
    if (page_ == 2) screens.unload(cheatChart);
    if (Index == nextButton) open(page_ < rulePages ? page_ + 1 : page_ - 1);
    else if (Index == previousButton) open(page_ - 1);
    else if (Index != exitButton) return;
    screens.unload(self);
}

void RulePage::Label14_Click() {
    ScreenRegistry& screens = module().screens;
    if (screens.isDefined(cheatChart)) screens.show(cheatChart);
}

void RulePage::Label2_Click() {
    Module1& m = module();
    for (ControlState& face : faces_) face.caption.clear();
    showDice();
    Random& random = m.random();
    random.randomize();
    diceroll::draw(random, dice);
    diceroll::start(timers(), m.state.soundon == 1, dicerevealed);
    if (m.state.soundon == 1) m.playwave(throwWave);
}

void RulePage::showDice() {
    for (std::size_t d = 0; d < faces_.size(); ++d) {
        kit::Control* die = control("Label4", int(d));
        die->setEnabled(faces_[d].enabled);
        die->setCaption(faces_[d].caption);
    }
}

void RulePage::Timer8_Timer() {
    diceroll::spin(timers(), module().random(), dicerevealed, faces_);
    showDice();
}

void RulePage::Timer5_Timer() {
    diceroll::stop(timers(), dicerevealed, dice, faces_);
    showDice();
}

void RulePage::keyPressEvent(QKeyEvent* e) {
    int button = -1;
    if (e->modifiers() == Qt::NoModifier || e->modifiers() == Qt::KeypadModifier) {
        switch (e->key()) {
        case Qt::Key_PageDown: if (page_ < rulePages) button = nextButton; break;
        case Qt::Key_PageUp: if (page_ > 1) button = page_ < rulePages ? previousButton : nextButton; break;
        case Qt::Key_Escape: button = exitButton; break;
        default: break;
        }
    }
    if (button < 0) return Form::keyPressEvent(e);
    e->accept();
    Label3_Click(button);
}

void defineRulePages(ScreenRegistry& screens) {
    for (int set = 0; set < ruleSets; ++set)
        for (int page = 1; page <= rulePages; ++page)
            screens.define(binding::ruleFormName(page, set),
                           [page, set](Module1& m) { return std::make_unique<RulePage>(m, page, set); });
}

}  // namespace fendle
