// Grey: the backdrop that hides the desktop behind the game's small screens.
// No border, no caption, no controls; it covers the whole screen and stays
// behind the game's other windows.
#pragma once

#include "screens/kit/form.h"

namespace fendle {

class Grey final : public Form {
    Q_OBJECT
public:
    static constexpr const char* formName = "Grey";
    explicit Grey(Module1& module);
    void Form_Load() override;

protected:
    void changeEvent(QEvent* e) override;
    void showEvent(QShowEvent* e) override;
};

}  // namespace fendle
