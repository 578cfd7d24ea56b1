#include "screens/grey.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>

#include <cstdint>

#include "screens/scale.h"

#ifdef FENDLE_HAS_XCB
#include <xcb/xcb.h>
#endif

namespace fendle {

Grey::Grey(Module1& module) : Form(module, formName) {
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnBottomHint);
    setWindowName(msg::windowGrey);
    if (const QScreen* s = screen()) setGeometry(s->geometry());
}

void Grey::Form_Load() { setBackColor(colour::boardBlue); }

void Grey::showEvent(QShowEvent* e) {
    Form::showEvent(e);
    // At a scale that is no whole number the screen is no whole number of
    // the window's pixels, and Qt rounds the backdrop past the screen's edge
    // (1182 x 665 at 1.625 is 1921 x 1081 on a screen of 1920 x 1080). On
    // X11 the window takes the screen's own pixels instead.
#ifdef FENDLE_HAS_XCB
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    const std::optional<QRect> pixels = primaryScreenPixels();
    if (!x11 || !pixels || screen() != QGuiApplication::primaryScreen()) return;
    const std::uint32_t place[] = {std::uint32_t(pixels->x()), std::uint32_t(pixels->y()),
                                   std::uint32_t(pixels->width()), std::uint32_t(pixels->height())};
    xcb_configure_window(x11->connection(), xcb_window_t(winId()),
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                         place);
    xcb_flush(x11->connection());
#endif
}

void Grey::changeEvent(QEvent* e) {
    Form::changeEvent(e);
    // A click on the backdrop must not bring it over the screens in front.
    if (e->type() == QEvent::ActivationChange && isActiveWindow()) lower();
}

}  // namespace fendle
