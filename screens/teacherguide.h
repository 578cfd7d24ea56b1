// TeacherGuide, the teachers' guide: a page of English for the teacher, on
// where the game keeps its files and where to turn with a problem. It opens
// in front of the title screen without blocking it, and Exit closes it.
#pragma once

#include <span>

#include "screens/kit/form.h"

class QKeyEvent;

namespace fendle {

class TeacherGuide final : public Form {
    Q_OBJECT
public:
    static constexpr const char* formName = "TeacherGuide";
    static constexpr double clientWidth = 5580, clientHeight = 6570;

    explicit TeacherGuide(Module1& module);
    void Form_Load() override;

    // Label3(0) is Exit; a click on the texts, elements 1 to 3, does nothing.
    void Label3_Click(int Index);

    static std::span<const kit::Row> rows();

protected:
    // Escape closes the guide, as Exit does.
    void keyPressEvent(QKeyEvent* e) override;
};

}  // namespace fendle
