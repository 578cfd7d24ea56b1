#include "screens/form.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QCloseEvent>
#include <QPainter>
#include <QScreen>

#include <cmath>

#include "screens/module1.h"
#include "screens/qt_ports.h"

namespace fendle {

QPoint centredTwips(QSizeF screen, QSizeF size) {
    const double left = screen.width() / 2 - size.width() / 2;
    const double top = screen.height() / 2 - size.height() / 2;
    return {int(std::lround(left)), int(std::lround(top))};
}

// ---------------------------------------------------------------- Form

namespace {

// A screen reader finds each screen as a window named by its window name.
class FormAccessible : public QAccessibleWidget {
public:
    explicit FormAccessible(Form* f) : QAccessibleWidget(f, QAccessible::Window) {}
    QString text(QAccessible::Text t) const override {
        if (t == QAccessible::Name) {
            const QString name = static_cast<const Form*>(widget())->windowName();
            if (!name.isEmpty()) return name;
        }
        return QAccessibleWidget::text(t);
    }
};

QAccessibleInterface* formAccessible(const QString&, QObject* object) {
    auto* f = qobject_cast<Form*>(object);
    return f ? new FormAccessible(f) : nullptr;
}

}  // namespace

Form::Form(Module1& module, std::string name)
    : QWidget(nullptr), module_(module), name_(std::move(name)), controls_(this) {
    static const bool accessible = [] {
        QAccessible::installFactory(formAccessible);
        return true;
    }();
    (void)accessible;
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
    return QSizeF(width(), height()) * kit::twipsPerPixel;
}

QSizeF Form::outerSizeTwips() const {
    return QSizeF(frameGeometry().size()) * kit::twipsPerPixel;
}

double Form::leftTwips() const { return frameGeometry().x() * double(kit::twipsPerPixel); }
double Form::topTwips() const { return frameGeometry().y() * double(kit::twipsPerPixel); }

void Form::moveTwips(double left, double top) {
    centred_ = false;
    move(kit::px(left), kit::px(top));
}

QSizeF Form::screenSizeTwips() const {
    const QScreen* s = screen();
    if (!s) return {};
    return QSizeF(s->geometry().size()) * kit::twipsPerPixel;
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
    refreshWindowName();
    // The window takes the focus itself, or the window system would hand it
    // to the first button, unseen, for a Space to press.
    if (!focusWidget()) setFocus(Qt::OtherFocusReason);
    // Before the first show the frame's size is not known yet; a window that
    // was centred and not moved since is centred again on its whole frame.
    if (centred_ && frameGeometry().size() != size()) centre();
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

// ---------------------------------------------------------------- ScreenRegistry

ScreenRegistry::~ScreenRegistry() {
    // The program is ending: nothing of ours runs any more, so the screens go now.
    auto all = std::move(loaded_);
    loaded_.clear();
    for (auto& [name, f] : all) {
        f->stopForUnload();
        delete f;
    }
    for (const QPointer<Form>& f : dying_) delete f.data();
}

void ScreenRegistry::define(std::string name, Maker make) { makers_[std::move(name)] = std::move(make); }

bool ScreenRegistry::isDefined(std::string_view name) const { return makers_.find(name) != makers_.end(); }

std::vector<std::string> ScreenRegistry::names() const {
    std::vector<std::string> all;
    for (const auto& [name, make] : makers_) all.push_back(name);
    return all;
}

Form* ScreenRegistry::form(std::string_view name) {
    if (const auto it = loaded_.find(name); it != loaded_.end()) return it->second;
    const auto maker = makers_.find(name);
    if (maker == makers_.end()) return nullptr;
    std::unique_ptr<Form> made = maker->second(module_);
    if (!made) return nullptr;
    Form* f = made.release();
    // Registered before its load step, so that the step may touch its own form.
    loaded_.emplace(std::string(name), f);
    ++loads_[std::string(name)];
    try {
        f->Form_Load();
    } catch (...) {
        // A failed load leaves the screen as far as it came.
    }
    return f;
}

bool ScreenRegistry::isLoaded(std::string_view name) const { return loaded_.find(name) != loaded_.end(); }

int ScreenRegistry::loads(std::string_view name) const {
    const auto it = loads_.find(name);
    return it == loads_.end() ? 0 : it->second;
}

void ScreenRegistry::show(std::string_view name) {
    Form* f = form(name);
    if (!f || f->isUnloaded()) return;
    f->show();
    f->raise();
    f->activateWindow();
}

void ScreenRegistry::hide(std::string_view name) {
    if (const auto it = loaded_.find(name); it != loaded_.end()) it->second->hide();
}

void ScreenRegistry::unload(std::string_view name) {
    const auto it = loaded_.find(name);
    if (it == loaded_.end()) return;
    Form* f = it->second;
    loaded_.erase(it);
    f->stopForUnload();
    f->hide();
    f->deleteLater();   // the handler running now may belong to this form
    std::erase_if(dying_, [](const QPointer<Form>& p) { return p.isNull(); });
    dying_.emplace_back(f);
}

void ScreenRegistry::unloadAll() {
    while (!loaded_.empty()) unload(loaded_.begin()->first);
}

}  // namespace fendle
