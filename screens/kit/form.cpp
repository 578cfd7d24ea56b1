#include "screens/kit/form.h"

#include <QApplication>
#include <QCloseEvent>
#include <QTimer>
#include <QPainter>
#include <QScreen>

#include <cmath>

#include "screens/kit/accessible.h"
#include "screens/kit/pictures.h"
#include "screens/module1.h"
#include "screens/qt_ports.h"

namespace fendle {

QPoint centredTwips(QSizeF screen, QSizeF size) {
    const double left = screen.width() / 2 - size.width() / 2;
    const double top = screen.height() / 2 - size.height() / 2;
    return {int(std::lround(left)), int(std::lround(top))};
}

Form::Form(Module1& module, std::string name)
    : QWidget(nullptr), module_(module), name_(std::move(name)), controls_(this) {
    kit::installAccessibleControls();
    setWindowTitle(QStringLiteral(" "));
    setAttribute(Qt::WA_DeleteOnClose, false);
    back_ = kit::toRgb(palette().color(QPalette::Window));
}

Form::~Form() = default;

void Form::setWindowName(const Message& m, std::string_view arg) {
    windowName_ = m;
    windowArg_ = arg;
    refreshWindowName();
}

QString Form::windowName() const { return windowName_ ? module_.message(*windowName_, windowArg_) : QString(); }

void Form::refreshWindowName() {
    if (!windowName_) return;
    const QString now = windowName();
    if (accessibleName() != now) setAccessibleName(now);
    // The title bar and the task bar name the screen too. The desktop puts
    // the program's name after a window's own title ("Set up the game —
    // Fendle!"), so a name that begins with it gives the title the rest.
    const QString program = QStringLiteral("Fendle! \u2013 ");
    const QString title = now.startsWith(program) ? now.mid(program.size()) : now;
    if (windowTitle() != title) setWindowTitle(title);
}

void Form::closeRequested() { module_.screens.unload(name_); }

void Form::closeEvent(QCloseEvent* e) {
    // A close the program asks for itself (the application quitting) goes
    // through; one from the window manager is the screen's to answer.
    if (!e->spontaneous()) return;
    e->ignore();
    closeRequested();
}

void Form::setClientSizeTwips(double width, double height) { setFixedSize(kit::px(width), kit::px(height)); }

QSizeF Form::clientSizeTwips() const {
    return {kit::twips(width()), kit::twips(height())};
}

QSizeF Form::outerSizeTwips() const {
    return {kit::twips(frameGeometry().width()), kit::twips(frameGeometry().height())};
}

double Form::leftTwips() const { return kit::twips(frameGeometry().x()); }
double Form::topTwips() const { return kit::twips(frameGeometry().y()); }

void Form::moveTwips(double left, double top) {
    centred_ = false;
    move(kit::px(left), kit::px(top));
}

QSizeF Form::screenSizeTwips() const {
    const QScreen* s = screen();
    if (!s) return {};
    return {kit::twips(s->geometry().width()), kit::twips(s->geometry().height())};
}

void Form::centre() {
    const QScreen* s = screen();
    if (!s) return;
    const QPoint at = centredTwips(screenSizeTwips(), outerSizeTwips());
    move(s->geometry().topLeft() + QPoint(kit::px(at.x()), kit::px(at.y())));
    centred_ = true;
}

void Form::showEvent(QShowEvent* e) {
    QWidget::showEvent(e);
    if (QWidget* active = QApplication::activeWindow(); active && active != this) behind_ = active;
    refreshWindowName();
    // The window takes the focus itself, or the window system would hand it
    // to the first button, unseen, for a Space to press.
    if (!focusWidget()) setFocus(Qt::OtherFocusReason);
    // Before the first show the frame's size is not known yet; a window that
    // was centred and not moved since is centred again on its whole frame.
    if (centred_ && frameGeometry().size() != size()) centre();
}

void Form::hideEvent(QHideEvent* e) {
    QWidget::hideEvent(e);
    if (e->spontaneous() || !behind_) return;
    // The keyboard goes back to the window behind, unless another window has
    // taken it meanwhile (the next rule page, the screen this one opened).
    QPointer<QWidget> behind = behind_;
    QTimer::singleShot(0, behind, [behind] {
        const QWidget* active = QApplication::activeWindow();
        if (behind && behind->isVisible() && (!active || !active->isVisible())) behind->activateWindow();
    });
}

void Form::setBackColor(Rgb colour) {
    back_ = colour;
    QPalette pal = palette();
    pal.setColor(QPalette::Window, kit::toQColor(colour));
    setPalette(pal);
    setAutoFillBackground(true);
    update();
}

void Form::setPicture(std::string_view file) {
    picture_ = kit::loadPicture(file);
    update();
}

void Form::paintEvent(QPaintEvent*) {
    if (picture_.isNull()) return;
    QPainter p(this);
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    p.drawPixmap(0, 0, picture_);
}

TimerBank& Form::timers() {
    if (!timers_) {
        timers_ = std::make_unique<FormTimers>(module_.makeTimers());
        if (unloaded_) timers_->close();
    }
    return *timers_;
}

void Form::stopForUnload() {
    unloaded_ = true;
    if (timers_) timers_->close();
}

}  // namespace fendle
