#include "screens/cheatchart.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollBar>
#include <QShowEvent>
#include <QWheelEvent>

#include <algorithm>

#include <string>

#include "screens/kit/native.h"
#include "screens/module1.h"
#include "text/binding.h"
#include "text/text_tables.h"

namespace fendle {

namespace {

using kit::Align;
using kit::Kind;
using kit::Row;

constexpr Rgb chartBlue{0, 0, 192};
constexpr Rgb fixedGrey{64, 64, 64};
constexpr Rgb oddColumn{224, 224, 224};
constexpr Rgb evenColumn{192, 192, 192};

constexpr double fixedLeft = 120;      // the fixed column, from the form's edge, at any value of the bar
constexpr double fixedWidth = 345;
constexpr double cellGap = 30;
constexpr double hundredWidth = 450;   // a cell holding 100 takes three digits
constexpr double scrollStep = 105;     // the panel moves this far for one step of the bar
constexpr int barMaximum = 100;
constexpr int columns = 50;

// The label arrays of the grid, top to bottom: the column heads, then the
// rows of 1 to 10.
struct GridRow {
    const char* array;
    int multiplier;   // 0 for the column heads
};
constexpr GridRow grid[] = {
    {"Label2", 0}, {"Label3", 1}, {"Label4", 2},  {"Label5", 3},  {"Label6", 4},  {"Label7", 5},
    {"Label8", 6}, {"Label9", 7}, {"Label10", 8}, {"Label11", 9}, {"Label12", 10},
};

// A row ends at its last multiple not above 100, the board's highest number;
// row 1 runs out of columns first.
constexpr int lastColumn(int multiplier) {
    return multiplier == 0 || 100 / multiplier > columns ? columns : 100 / multiplier;
}

// Element 0 of an array: a row number, or the "x" over them, in the fixed column.
constexpr Row fixedCell(const char* name, double top, const char* caption) {
    return Row{.name = name, .index = 0, .left = fixedLeft, .top = top, .width = fixedWidth, .height = 330,
               .caption = caption, .size = 12, .bold = true, .fore = colour::yellow, .back = fixedGrey,
               .align = Align::Centre, .border = true, .wordWrap = false};
}

constexpr Row panelRows[] = {
    fixedCell("Label2", 0, "x"),      fixedCell("Label3", 360, "1"),    fixedCell("Label4", 720, "2"),
    fixedCell("Label5", 1080, "3"),   fixedCell("Label6", 1440, "4"),   fixedCell("Label7", 1800, "5"),
    fixedCell("Label8", 2160, "6"),   fixedCell("Label9", 2520, "7"),   fixedCell("Label10", 2880, "8"),
    fixedCell("Label11", 3240, "9"),  fixedCell("Label12", 3600, "10"),
};

constexpr Row barRows[] = {
    {.name = "HScroll1", .kind = Kind::HScrollBar, .left = 120, .top = 165, .width = 8055, .height = 255,
     .value = 0, .min = 0, .max = barMaximum, .smallChange = 1, .largeChange = 10},
};

// Frame2 carries the grid and slides; Frame3 covers the margin left of the
// fixed column, so that cells leaving the panel vanish there; Frame1 holds
// the bar.
constexpr Row chartRows[] = {
    {.name = "Frame2", .kind = Kind::Frame, .left = 0, .top = 120, .width = 19500, .height = 3975, .back = chartBlue,
     .children = panelRows},
    {.name = "Frame3", .kind = Kind::Frame, .left = 0, .top = 0, .width = 195, .height = 4095},
    {.name = "Frame1", .kind = Kind::Frame, .left = 480, .top = 4080, .width = 8295, .height = 495, .back = chartBlue,
     .children = barRows},
};

}  // namespace

std::span<const kit::Row> Cheatchart::rows() { return chartRows; }

Cheatchart::Cheatchart(Module1& module) : Form(module, formName) {
    setClientSizeTwips(clientWidth, clientHeight);
    setBackColor(chartBlue);
    build(chartRows);
    onChange("HScroll1", [this](int) { HScroll1_Change(); });
}

// How far down the board its dice, Throw Dice and the turn line reach, with
// the Cheat Chart button under the dice.
constexpr double boardTopRows = 2400;

void Cheatchart::place() {
    const QScreen* s = screen();
    if (!s) return;
    const QRect area = s->availableGeometry();
    const QSize size = frameGeometry().size();
    const Form* board = module().screens.isLoaded("fen1") ? module().screens.form("fen1") : nullptr;
    if (!board || !board->isVisible()) {
        move(area.left() + (area.width() - size.width()) / 2, area.top());
        return;
    }
    const QRect b = board->frameGeometry();
    const auto clampX = [&](int x) { return std::clamp(x, area.left(), std::max(area.left(), area.right() + 1 - size.width())); };
    const auto clampY = [&](int y) { return std::clamp(y, area.top(), std::max(area.top(), area.bottom() + 1 - size.height())); };
    if (area.right() - b.right() >= size.width()) return move(b.right() + 1, clampY(b.top()));
    if (b.left() - area.left() >= size.width()) return move(b.left() - size.width(), clampY(b.top()));
    const int centred = clampX(b.left() + (b.width() - size.width()) / 2);
    if (area.bottom() - b.bottom() >= size.height()) return move(centred, b.bottom() + 1);
    // Over the lower rows: as low as the screen goes, and never over the top
    // rows of the board, even where the screen is short.
    const int lowest = area.bottom() + 1 - size.height();
    const int topRowsEnd = board->geometry().top() + kit::px(boardTopRows);
    move(centred, std::max(lowest, topRowsEnd));
}

void Cheatchart::Form_Load() {
    Module1& m = module();
    place();

    kit::Control* edge = control("Frame3");
    edge->setLeftTwips(fixedLeft - edge->widthTwips());
    edge->setBackColor(chartBlue);

    // Without tables (nothing read yet) the English caption stands.
    const QString caption = m.tables ? QString::fromStdString(binding::cheatChartCaption(m.state.languagenumber, *m.tables))
                                     : QStringLiteral("Fendle! Cheat Chart");
    setWindowTitle(caption);
    setAccessibleName(caption);

    kit::Controls& c = controls();
    for (const GridRow& row : grid) {
        kit::Control* first = control(row.array, 0);
        kit::Control* before = first;
        for (int j = 1; j <= lastColumn(row.multiplier); ++j) {
            kit::Control* cell = c.loadElement(row.array, j);
            cell->setLeftTwips(before->leftTwips() + before->widthTwips() + cellGap);
            if (row.multiplier == 0) {
                cell->setCaption(std::to_string(j));
            } else {
                cell->setCaption(std::to_string(row.multiplier * j));
                cell->setForeColor(colour::blue);
                cell->setBackColor(j % 2 == 1 ? oddColumn : evenColumn);
            }
            cell->setVisible(true);
            before = cell;
        }
        if (row.multiplier * lastColumn(row.multiplier) == 100) before->setWidthTwips(hundredWidth);
        // The cells slide under the row's number, which stays in front.
        first->widget()->raise();
    }
}

void Cheatchart::HScroll1_Change() {
    const int v = get<kit::HScrollBar>("HScroll1")->value();
    const double shift = (barMaximum - v) * scrollStep - barMaximum * scrollStep;
    // The panel and the fixed column move in one repaint: the numbers never
    // show a step behind the cells.
    setUpdatesEnabled(false);
    control("Frame2")->setLeftTwips(shift);
    // The panel moves by steps that are no whole number of cells: a cell
    // that has slid under the row numbers, or into the gap beside them, is
    // hidden whole, so that no sliver of it shows there.
    const double firstShown = fixedLeft + fixedWidth + cellGap;
    for (const GridRow& row : grid) {
        for (kit::Control* cell : controls().array(row.array))
            if (cell->index() > 0) cell->setVisible(cell->leftTwips() + shift >= firstShown);
        control(row.array, 0)->setLeftTwips(fixedLeft - shift);
    }
    setUpdatesEnabled(true);
}

void Cheatchart::showEvent(QShowEvent* e) {
    Form::showEvent(e);
    // The frame's size is known once the window is shown: placed again then,
    // once; later shows leave it where the player has moved it.
    if (!placedOnShow_) {
        placedOnShow_ = true;
        place();
    }
}

void Cheatchart::wheelEvent(QWheelEvent* e) {
    // Handed to the bar as a fresh event, so that it goes to the bar alone
    // and never comes back here.
    QWheelEvent turn(e->position(), e->globalPosition(), e->pixelDelta(), e->angleDelta(), e->buttons(),
                     e->modifiers(), e->phase(), e->inverted(), Qt::MouseEventNotSynthesized, e->pointingDevice());
    QCoreApplication::sendEvent(get<kit::HScrollBar>("HScroll1")->bar(), &turn);
    e->accept();
}

void Cheatchart::keyPressEvent(QKeyEvent* e) {
    QScrollBar* bar = get<kit::HScrollBar>("HScroll1")->bar();
    QAbstractSlider::SliderAction action = QAbstractSlider::SliderNoAction;
    switch (e->key()) {
    case Qt::Key_Left: action = QAbstractSlider::SliderSingleStepSub; break;
    case Qt::Key_Right: action = QAbstractSlider::SliderSingleStepAdd; break;
    case Qt::Key_PageUp: action = QAbstractSlider::SliderPageStepSub; break;
    case Qt::Key_PageDown: action = QAbstractSlider::SliderPageStepAdd; break;
    case Qt::Key_Home: action = QAbstractSlider::SliderToMinimum; break;
    case Qt::Key_End: action = QAbstractSlider::SliderToMaximum; break;
    case Qt::Key_Escape:
        e->accept();
        module().screens.unload(formName);
        return;
    default: return Form::keyPressEvent(e);
    }
    bar->triggerAction(action);
    e->accept();
}

}  // namespace fendle
