// The controls that are Qt's own widgets: check boxes, option buttons, text
// boxes, push buttons and scroll bars, each a Control over the widget the
// system draws.
#pragma once

#include <functional>

#include "screens/kit/control.h"

class QCheckBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QScrollBar;

namespace fendle::kit {

class CheckBox final : public Control {
public:
    CheckBox(const Row& row, int index, Controls* owner, QWidget* parent);
    QString caption() const override;
    void setCaption(const QString& t) override;
    // 1 ticked, 0 not. Setting a new value counts as a click.
    int value() const;
    void setValue(int v);
    QCheckBox* box() const { return box_; }

private:
    QCheckBox* box_;
};

class OptionButton final : public Control {
public:
    OptionButton(const Row& row, int index, Controls* owner, QWidget* parent);
    QString caption() const override;
    void setCaption(const QString& t) override;
    bool value() const;
    // Selecting an option counts as a click on it.
    void setValue(bool on);
    QRadioButton* option() const { return option_; }

private:
    QRadioButton* option_;
};

class TextBox final : public Control {
public:
    // Sees each typed character as its code (8 for Backspace, 13 for Enter,
    // 27 for Escape) before the box does; returns the code to type, or 0 to
    // drop the key. Keys that type nothing (arrows, Delete) pass unseen.
    using KeyPress = std::function<int(int keyAscii)>;

    TextBox(const Row& row, int index, Controls* owner, QWidget* parent);
    QString caption() const override;
    void setCaption(const QString& t) override;
    void setForeColor(Rgb colour) override;
    void setBackColor(Rgb colour) override;
    void setKeyPress(KeyPress filter) { keyPress_ = std::move(filter); }
    QLineEdit* edit() const { return edit_; }

private:
    class Edit;
    KeyPress keyPress_;
    QLineEdit* edit_;
};

class PushButton final : public Control {
public:
    PushButton(const Row& row, int index, Controls* owner, QWidget* parent);
    QString caption() const override;
    void setCaption(const QString& t) override;
    QPushButton* button() const { return button_; }

private:
    QPushButton* button_;
};

// A horizontal scroll bar; its change is reported when the value has
// changed, not while the thumb is dragged.
class HScrollBar final : public Control {
public:
    HScrollBar(const Row& row, int index, Controls* owner, QWidget* parent);
    int value() const;
    QScrollBar* bar() const { return bar_; }

private:
    QScrollBar* bar_;
};

}  // namespace fendle::kit
