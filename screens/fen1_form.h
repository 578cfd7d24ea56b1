// fen1, the board window: the controls of the board as the design lays them
// out, in front of the game in engine/fen1.h. Clicks and timer ticks go to
// the game; after each the window redraws what changed in the game's board
// model.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "engine/fen1.h"
#include "engine/game_state.h"
#include "screens/kit/form.h"

class QKeyEvent;

namespace fendle {

class BoardKeys;

class Fen1Form final : public Form {
    Q_OBJECT
public:
    static constexpr const char* formName = "fen1";
    explicit Fen1Form(Module1& module);
    ~Fen1Form() override;

    void Form_Load() override;
    // The title bar's close button does what Exit does, while Exit can act.
    void closeRequested() override;

    Fen1& game() { return *game_; }
    BoardModel& model() { return game_->model; }
    // Shows what changed in the model since the last call.
    void sync();
    // Number n claimed, as a click on its hexagon claims it.
    void claimNumber(int n);
    // The keyboard and the screen reader on the board; none before the load.
    BoardKeys* keys() const { return keys_; }

    // Adds the moves not yet in games.csv to it. The board does this when its
    // game ends and when it is left; a write that fails is told once a run.
    void recordGame();

protected:
    void keyPressEvent(QKeyEvent* e) override;

private:
    void afterEvent();
    void stampMoves();
    void textshow();
    QString counterName(int n) const;
    void syncControl(kit::Control* c, const ControlState& now, const ControlState* before, bool withBack);

    std::unique_ptr<Fen1> game_;
    std::unique_ptr<BoardModel> shown_;   // the model as the widgets show it; none before the first sync
    BoardKeys* keys_ = nullptr;           // a child of the window
    std::vector<std::string> moveTimes_;  // when each move of the game was made, by the local clock
    std::size_t recorded_ = 0;            // moves already in games.csv
    int gameNumber_ = 0;                  // the game's number there, from its first line on
};

}  // namespace fendle
