#include "screens/grey.h"

#include <QEvent>
#include <QScreen>

namespace fendle {

Grey::Grey(Module1& module) : Form(module, formName) {
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnBottomHint);
    setWindowName(msg::windowGrey);
    if (const QScreen* s = screen()) setGeometry(s->geometry());
}

void Grey::Form_Load() { setBackColor(colour::boardBlue); }

void Grey::changeEvent(QEvent* e) {
    Form::changeEvent(e);
    // A click on the backdrop must not bring it over the screens in front.
    if (e->type() == QEvent::ActivationChange && isActiveWindow()) lower();
}

}  // namespace fendle
