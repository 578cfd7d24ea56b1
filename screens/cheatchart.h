// Cheatchart, the multiplication chart: rows 1 to 10 against columns 1 to
// 50, each row ending at its last product not above 100. The panel of cells
// is wider than the window and slides sideways under a fixed column of row
// numbers as the scroll bar moves. Opened from the board's Cheat Chart button
// and from page 2 of the rules; it blocks neither.
#pragma once

#include <span>

#include "screens/kit/form.h"

class QKeyEvent;
class QShowEvent;
class QWheelEvent;

namespace fendle {

class Cheatchart final : public Form {
    Q_OBJECT
public:
    static constexpr const char* formName = "Cheatchart";
    static constexpr double clientWidth = 8970, clientHeight = 4590;

    explicit Cheatchart(Module1& module);
    // Places the window, names it, and makes the cells of every row from
    // the row's element 0.
    void Form_Load() override;

    // The bar has a new value: the panel follows, the fixed column stays.
    void HScroll1_Change();

    // The controls as drawn: Frame2 with element 0 of each array, Frame3,
    // and Frame1 with the scroll bar.
    static std::span<const kit::Row> rows();

protected:
    void showEvent(QShowEvent* e) override;
    // The wheel anywhere over the chart turns the bar, as over the bar itself.
    void wheelEvent(QWheelEvent* e) override;
    // Left and Right a step, Page Up and Page Down ten, Home and End the
    // ends; Escape closes the chart.
    void keyPressEvent(QKeyEvent* e) override;

private:
    // Beside the board, else below it, where the screen has room; else as
    // low as the screen lets it, over the board's lower rows and never over
    // its dice, Throw Dice or the turn line. Without a board in sight,
    // centred across the top of the screen.
    void place();
    bool placedOnShow_ = false;
};

}  // namespace fendle
