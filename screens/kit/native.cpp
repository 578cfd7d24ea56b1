#include "screens/kit/native.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>

#include "screens/kit/text.h"
#include "screens/kit/units.h"

namespace fendle::kit {

// ---------------------------------------------------------------- CheckBox, OptionButton

namespace {

// A tick box or an option that takes a click anywhere in its box, as wide
// as its row draws it, and not only on its mark and its words.
template <class Box>
class WholeBox final : public Box {
public:
    using Box::Box;

protected:
    bool hitButton(const QPoint& pos) const override { return this->rect().contains(pos); }
};

}  // namespace

CheckBox::CheckBox(const Row& row, int index, Controls* owner, QWidget* parent)
    : Control(row, index, owner), box_(new WholeBox<QCheckBox>(parent)) {
    attachView(box_);
    box_->setText(QString::fromUtf8(row.caption));
    box_->setChecked(row.value != 0);
    finish(true);
    QObject::connect(box_, &QCheckBox::toggled, box_, [this] { fireClick(); });
}

QString CheckBox::caption() const { return box_->text(); }
void CheckBox::setCaption(const QString& t) { box_->setText(t); }
int CheckBox::value() const { return box_->isChecked() ? 1 : 0; }
void CheckBox::setValue(int v) { box_->setChecked(v != 0); }

OptionButton::OptionButton(const Row& row, int index, Controls* owner, QWidget* parent)
    : Control(row, index, owner), option_(new WholeBox<QRadioButton>(parent)) {
    attachView(option_);
    option_->setText(QString::fromUtf8(row.caption));
    option_->setAutoExclusive(false);   // the array's group decides, once it has one
    option_->setChecked(row.value != 0);
    finish(true);
    QObject::connect(option_, &QRadioButton::toggled, option_, [this](bool on) {
        if (on) fireClick();
    });
}

QString OptionButton::caption() const { return option_->text(); }
void OptionButton::setCaption(const QString& t) { option_->setText(t); }
bool OptionButton::value() const { return option_->isChecked(); }
void OptionButton::setValue(bool on) { option_->setChecked(on); }

// ---------------------------------------------------------------- TextBox

// The line edit that lets the box's key filter see each key first.
class TextBox::Edit : public QLineEdit {
public:
    Edit(TextBox& owner, QWidget* parent) : QLineEdit(parent), owner_(owner) {}

protected:
    void keyPressEvent(QKeyEvent* e) override {
        if (!owner_.keyPress_) return QLineEdit::keyPressEvent(e);
        int code = 0;
        switch (e->key()) {
        case Qt::Key_Backspace:
            code = 8;
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            code = 13;
            break;
        case Qt::Key_Escape:
            code = 27;
            break;
        default:
            if (e->text().isEmpty() || (e->modifiers() & (Qt::ControlModifier | Qt::MetaModifier)))
                return QLineEdit::keyPressEvent(e);
            code = e->text().at(0).unicode();
        }
        const int kept = owner_.keyPress_(code);
        if (kept == 0) {
            e->accept();
            return;
        }
        if (kept == code) return QLineEdit::keyPressEvent(e);
        int key = QChar(kept).toUpper().unicode();
        if (kept == 8) key = Qt::Key_Backspace;
        if (kept == 13) key = Qt::Key_Return;
        if (kept == 27) key = Qt::Key_Escape;
        QKeyEvent replaced(QEvent::KeyPress, key, e->modifiers(), kept >= 32 ? QString(QChar(kept)) : QString());
        QLineEdit::keyPressEvent(&replaced);
        e->setAccepted(replaced.isAccepted());
    }

private:
    TextBox& owner_;
};

TextBox::TextBox(const Row& row, int index, Controls* owner, QWidget* parent)
    : Control(row, index, owner), edit_(new Edit(*this, parent)) {
    attachView(edit_);
    edit_->setMaxLength(row.maxLength > 0 ? row.maxLength : 32767);
    edit_->setAlignment(horizontal(row.align) | Qt::AlignVCenter);
    edit_->setText(QString::fromUtf8(row.caption));
    finish(true);
    QObject::connect(edit_, &QLineEdit::textChanged, edit_, [this] { fireChange(); });
}

QString TextBox::caption() const { return edit_->text(); }
void TextBox::setCaption(const QString& t) { edit_->setText(t); }

void TextBox::setForeColor(Rgb colour) {
    fore_ = colour;
    QPalette pal = edit_->palette();
    for (auto group : {QPalette::Active, QPalette::Inactive}) pal.setColor(group, QPalette::Text, toQColor(colour));
    edit_->setPalette(pal);
}

void TextBox::setBackColor(Rgb colour) {
    back_ = colour;
    QPalette pal = edit_->palette();
    for (auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        pal.setColor(group, QPalette::Base, toQColor(colour));
    edit_->setPalette(pal);
}

// ---------------------------------------------------------------- PushButton, HScrollBar

PushButton::PushButton(const Row& row, int index, Controls* owner, QWidget* parent)
    : Control(row, index, owner), button_(new QPushButton(parent)) {
    attachView(button_);
    button_->setText(QString::fromUtf8(row.caption));
    button_->setAutoDefault(false);
    finish(true);
    QObject::connect(button_, &QPushButton::clicked, button_, [this] { fireClick(); });
}

QString PushButton::caption() const { return button_->text(); }
void PushButton::setCaption(const QString& t) { button_->setText(t); }

HScrollBar::HScrollBar(const Row& row, int index, Controls* owner, QWidget* parent)
    : Control(row, index, owner), bar_(new QScrollBar(Qt::Horizontal, parent)) {
    attachView(bar_);
    bar_->setRange(row.min, row.max);
    bar_->setSingleStep(row.smallChange);
    bar_->setPageStep(row.largeChange);
    bar_->setValue(row.value);
    bar_->setTracking(false);
    finish(true);
    QObject::connect(bar_, &QScrollBar::valueChanged, bar_, [this] { fireChange(); });
}

int HScrollBar::value() const { return bar_->value(); }

}  // namespace fendle::kit
