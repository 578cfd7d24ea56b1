#include "screens/kit/control.h"

#include <QApplication>
#include <QVariant>

#include "screens/kit/controls.h"
#include "screens/kit/units.h"

namespace fendle::kit {

namespace {

// The widget's property that names the control it shows.
constexpr const char* controlProperty = "fendleControl";

QColor systemWindow() { return QApplication::palette().color(QPalette::Active, QPalette::Window); }

}  // namespace

Control::Control(const Row& row, int index, Controls* owner)
    : row_(row),
      fore_(row.fore.value_or(colour::black)),
      back_(row.back.value_or(toRgb(systemWindow()))),
      points_(row.size),
      name_(row.name),
      index_(index),
      owner_(owner),
      left_(row.left),
      top_(row.top),
      width_(row.width),
      height_(row.height) {
    // The row's strings are the caller's: keep copies, not pointers.
    row_.index = index;
    row_.name = name_.c_str();
    row_.caption = "";
    row_.picture = "";
    row_.children = {};
}

Control::~Control() { delete widget_.data(); }

Control* Control::of(const QObject* widget) {
    if (!widget) return nullptr;
    const QVariant v = widget->property(controlProperty);
    return v.isValid() ? static_cast<Control*>(v.value<void*>()) : nullptr;
}

void Control::attachView(QWidget* widget) {
    widget_ = widget;
    widget->setProperty(controlProperty, QVariant::fromValue(static_cast<void*>(this)));
}

void Control::finish(bool colours) {
    setFontSize(row_.size);
    if (colours) {
        if (row_.fore) setForeColor(*row_.fore);
        if (row_.back) setBackColor(*row_.back);
    }
    placeTwips(row_.left, row_.top, row_.width, row_.height);
    if (!row_.visible) setVisible(false);
    if (!row_.enabled) setEnabled(false);
}

void Control::placeTwips(double left, double top, double width, double height) {
    left_ = left;
    top_ = top;
    width_ = width;
    height_ = height;
    applyGeometry();
}

void Control::applyGeometry() { widget_->setGeometry(px(left_), px(top_), px(width_), px(height_)); }

QString Control::caption() const { return {}; }
void Control::setCaption(const QString&) {}

void Control::setForeColor(Rgb colour) {
    fore_ = colour;
    QPalette pal = widget_->palette();
    // A check box or an option draws its tick or dot in the Text colour on a
    // white disc: that stays the system's, or a yellow caption would leave the
    // chosen option unseen.
    const bool indicator = row_.kind == Kind::CheckBox || row_.kind == Kind::Option;
    for (auto group : {QPalette::Active, QPalette::Inactive}) {
        pal.setColor(group, QPalette::WindowText, toQColor(colour));
        pal.setColor(group, QPalette::ButtonText, toQColor(colour));
        if (!indicator) pal.setColor(group, QPalette::Text, toQColor(colour));
    }
    widget_->setPalette(pal);
}

void Control::setBackColor(Rgb colour) {
    back_ = colour;
    QPalette pal = widget_->palette();
    for (auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        pal.setColor(group, QPalette::Window, toQColor(colour));
        pal.setColor(group, QPalette::Button, toQColor(colour));
    }
    widget_->setPalette(pal);
    widget_->setAutoFillBackground(!row_.transparent);
}

void Control::setFontSize(double points) {
    points_ = points;
    widget_->setFont(currentFont());
}

void Control::fireClick() {
    if (owner_) owner_->dispatch(owner_->clicks_, *this);
}

void Control::fireChange() {
    if (owner_) owner_->dispatch(owner_->changes_, *this);
}

}  // namespace fendle::kit
