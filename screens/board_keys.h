// The board played from the keyboard and heard through a screen reader. Over
// each hexagon stands a button that paints nothing but the cursor ring and
// takes no click of the mouse: a screen reader finds it as a push button
// named by its number and what lies on it ("42, Blue zone, free"). Keys:
//   Space, or Enter with nothing typed   throws while Throw Dice can;
//   digits, Backspace, Escape            type a number, shown large in the
//                                        top line, where the turn is told;
//   Enter                                claims the typed number, or the
//                                        hexagon under the cursor;
//   arrows                               move the cursor to a neighbour.
// A claim goes through Label1_Click, as a click on the hexagon would; a
// number off the board or covered is refused with a note instead. While the
// computer plays, no key claims. The game's events are said as they happen.
#pragma once

#include <QObject>
#include <QString>

#include <array>
#include <vector>

#include "engine/fen1.h"
#include "text/messages.h"

class QKeyEvent;

namespace fendle {

class Fen1Form;
namespace kit {
class Announcer;
}

class BoardKeys final : public QObject {
public:
    explicit BoardKeys(Fen1Form& form);
    ~BoardKeys() override;

    // Puts the buttons over the hexagons; the number labels exist by then.
    void build();
    // A key that reached the board; true when it was taken.
    bool keyPress(QKeyEvent* e);
    // After each sync: the hexagons' names, what the game told, the line.
    void afterSync();
    // The game told an event; it is said after the next sync.
    void hear(const GameEvent& e) { pending_.push_back(e); }
    // The keyboard goes to the hexagon under the cursor.
    void focusBoard();
    // A claim of number n from the keyboard or a screen reader's press.
    void claim(int n);

    int cursor() const { return cursor_; }
    bool ringShown() const { return ring_; }
    const QString& typed() const { return typed_; }
    // What the line over the turn line shows: the typed digits or a note;
    // empty while it is hidden.
    QString line() const;
    kit::Announcer* announcer() const { return announcer_; }
    QWidget* hexagon(int n) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Hexagon;
    class Line;
    void setCursor(int n, bool keepGoal = false);
    void step(int key);
    void showRing(bool on);
    void showLine();
    void refuse(const Message& why, const QString& number);
    void nameHexagons(bool all);
    QString playerName(int player) const;
    QString colourName(int player) const;
    QString sentence(const GameEvent& e) const;
    QString scores() const;

    Fen1Form& form_;
    std::array<Hexagon*, 101> hexagons_{};
    std::array<int, 101> named_{};   // owner each hexagon was last named with; -1 unnamed
    kit::Announcer* announcer_ = nullptr;
    Line* line_ = nullptr;
    std::vector<GameEvent> pending_;
    int cursor_ = 1;
    double goalX_ = 0;   // where Up and Down aim, in half hexagon widths
    bool ring_ = false;
    QString typed_;
    QString note_;
};

}  // namespace fendle
