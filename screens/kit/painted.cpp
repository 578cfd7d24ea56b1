#include "screens/kit/painted.h"

#include <QAbstractButton>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <functional>

#include "screens/kit/accessible.h"
#include "screens/kit/pictures.h"
#include "screens/kit/units.h"

namespace fendle::kit {

// The widget of a control the kit paints: the control paints it, and a press
// and release of the left button inside it is the control's click.
class PaintedWidget : public QWidget {
    Q_OBJECT
public:
    PaintedWidget(QWidget* parent, std::function<void(QPainter&)> paint, Control* clicks)
        : QWidget(parent), paint_(std::move(paint)), clicks_(clicks) {
        installAccessibleControls();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        paint_(p);
    }
    void mousePressEvent(QMouseEvent* e) override {
        if (!clicks_) return QWidget::mousePressEvent(e);
        if (e->button() == Qt::LeftButton) pressed_ = true;
        e->accept();
    }
    void mouseReleaseEvent(QMouseEvent* e) override {
        if (!clicks_) return QWidget::mouseReleaseEvent(e);
        const bool click = pressed_ && e->button() == Qt::LeftButton && rect().contains(e->position().toPoint());
        pressed_ = false;
        e->accept();
        if (click) clicks_->fireClick();
    }

private:
    std::function<void(QPainter&)> paint_;
    Control* clicks_;
    bool pressed_ = false;
};

// ---------------------------------------------------------------- Label

Label::Label(const Row& row, int index, Controls* owner, QWidget* parent) : Control(row, index, owner) {
    face_.text = QString::fromUtf8(row.caption);
    attachView(new PaintedWidget(parent, [this](QPainter& p) { paint(p); }, this));
    syncFace();
    finish(false);
}

void Label::syncFace() {
    face_.style(row_, currentFont(), toQColor(fore_), toQColor(back_));
    widget()->setAttribute(Qt::WA_OpaquePaintEvent, !row_.transparent);
    widget()->update();
}

void Label::setCaption(const QString& text) {
    if (text == face_.text) return;
    face_.text = text;
    face_.invalidate();
    widget()->update();
    announceName(widget());
}

void Label::setForeColor(Rgb colour) {
    fore_ = colour;
    face_.fore = toQColor(colour);
    widget()->update();
}

void Label::setBackColor(Rgb colour) {
    back_ = colour;
    face_.back = toQColor(colour);
    widget()->update();
}

void Label::setFontSize(double points) {
    points_ = points;
    widget()->setFont(currentFont());
    syncFace();
}

QSize Label::clearSize() const {
    const QWidget* self = widget();
    QSize clear = self->size();
    const QWidget* parent = self->parentWidget();
    if (!parent) return clear;
    const QRect box = self->geometry();
    for (const QObject* o : parent->children()) {
        const auto* w = qobject_cast<const QWidget*>(o);
        const Control* c = Control::of(w);
        if (!c || w == self || !isWindowed(c->kind()) || !w->isVisibleTo(parent)) continue;
        const QRect r = w->geometry();
        if (r.intersects(box) && r.top() > box.top()) clear.setHeight(std::min(clear.height(), r.top() - box.top()));
    }
    return clear;
}

void Label::paint(QPainter& p) const {
    const QWidget* self = widget();
    // Words that would run behind a box in front are fitted above it.
    const QSize clear = clearSize();
    if (clear == self->size()) {
        face_.paint(p, self->rect(), self->isEnabled());
        return;
    }
    if (!row_.transparent) p.fillRect(self->rect(), face_.back);
    LabelFace above = face_;
    above.transparent = true;
    above.paint(p, QRect(QPoint(), clear), self->isEnabled());
}

// ---------------------------------------------------------------- Button

// Without a meta-object of its own, a screen reader finds it as the push
// button QAbstractButton is.
class Button::View : public QAbstractButton {
public:
    View(Button& owner, QWidget* parent) : QAbstractButton(parent), owner_(owner) { setFocusPolicy(Qt::TabFocus); }
    QSize sizeHint() const override { return size(); }
    bool focusCue = false;   // the focus came by keyboard: show it

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        owner_.face_.paint(p, rect(), isEnabled());
        if (hasFocus() && focusCue) {
            QPen pen(isEnabled() ? owner_.face_.fore : dimText);
            pen.setStyle(Qt::DotLine);
            p.setPen(pen);
            p.drawRect(rect().adjusted(3, 3, -4, -4));
        }
    }
    // The window lost or regained the focus: what the focus looked like stays.
    static bool windowSwitch(Qt::FocusReason r) { return r == Qt::ActiveWindowFocusReason || r == Qt::PopupFocusReason; }
    void focusInEvent(QFocusEvent* e) override {
        const Qt::FocusReason r = e->reason();
        if (!windowSwitch(r))
            focusCue = r == Qt::TabFocusReason || r == Qt::BacktabFocusReason || r == Qt::ShortcutFocusReason;
        QAbstractButton::focusInEvent(e);
    }
    void focusOutEvent(QFocusEvent* e) override {
        if (!windowSwitch(e->reason())) focusCue = false;
        QAbstractButton::focusOutEvent(e);
    }
    void mousePressEvent(QMouseEvent* e) override {
        if (focusCue) {
            focusCue = false;
            update();
        }
        QAbstractButton::mousePressEvent(e);
    }
    void keyPressEvent(QKeyEvent* e) override {
        const bool presses = e->key() == Qt::Key_Space || e->key() == Qt::Key_Select || e->key() == Qt::Key_Return ||
                             e->key() == Qt::Key_Enter;
        if (!focusCue && presses) {
            // Nobody can see where the focus is: show it, press nothing.
            focusCue = true;
            update();
            e->accept();
            return;
        }
        if ((e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter) && e->modifiers() == Qt::NoModifier) {
            e->accept();
            click();
            return;
        }
        QAbstractButton::keyPressEvent(e);
    }

private:
    Button& owner_;
};

Button::Button(const Row& row, int index, Controls* owner, QWidget* parent)
    : Control(row, index, owner), view_(new View(*this, parent)) {
    attachView(view_);
    view_->setText(QString::fromUtf8(row.caption));
    syncFace();
    finish(false);
    QObject::connect(view_, &QAbstractButton::clicked, view_, [this] { fireClick(); });
}

QString Button::caption() const { return view_->text(); }
QAbstractButton* Button::button() const { return view_; }
void Button::click() { view_->click(); }
int Button::drawnPixelSize() const { return face_.fitted(view_->size()).pixelSize(); }

void Button::syncFace() {
    face_.text = view_->text();
    face_.style(row_, currentFont(), toQColor(fore_), toQColor(back_));
    view_->update();
}

void Button::setCaption(const QString& t) {
    if (t == view_->text()) return;
    view_->setText(t);
    face_.text = t;
    face_.invalidate();
    view_->update();
}

void Button::setForeColor(Rgb colour) {
    fore_ = colour;
    face_.fore = toQColor(colour);
    view_->update();
}

void Button::setBackColor(Rgb colour) {
    back_ = colour;
    face_.back = toQColor(colour);
    view_->update();
}

void Button::setFontSize(double points) {
    points_ = points;
    view_->setFont(currentFont());
    syncFace();
}

// ---------------------------------------------------------------- Image

Image::Image(const Row& row, int index, Controls* owner, QWidget* parent) : Control(row, index, owner) {
    attachView(new PaintedWidget(parent, [this](QPainter& p) { paint(p); }, this));
    finish(false);
    if (*row.picture) setPicture(row.picture);
}

void Image::setPicture(std::string_view file) {
    file_ = file;
    pixmap_ = loadPicture(file);
    if (!pixmap_.isNull() && !row_.stretch) {
        const QSizeF size = pixmap_.deviceIndependentSize();
        placeTwips(leftTwips(), topTwips(), twips(size.width()), twips(size.height()));
    }
    widget()->update();
}

void Image::clearPicture() {
    file_.clear();
    pixmap_ = QPixmap();
    widget()->update();
}

void Image::paint(QPainter& p) const {
    if (pixmap_.isNull()) return;
    // A picture whose pixels are not the screen's is resampled smoothly.
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    if (row_.stretch) {
        p.drawPixmap(widget()->rect(), pixmap_);
    } else {
        p.drawPixmap(0, 0, pixmap_);
    }
}

// ---------------------------------------------------------------- PictureBox

PictureBox::PictureBox(const Row& row, int index, Controls* owner, QWidget* parent) : Control(row, index, owner) {
    attachView(new PaintedWidget(parent, [this](QPainter& p) { paint(p); }, this));
    PictureBox::setBackColor(back_);
    finish(false);
    if (*row.picture) setPicture(row.picture);
}

void PictureBox::setPicture(std::string_view file) {
    file_ = file;
    pixmap_ = loadPicture(file);
    widget()->update();
}

void PictureBox::setBackColor(Rgb colour) {
    back_ = colour;
    widget()->update();
}

void PictureBox::paint(QPainter& p) const {
    const QRect rect = widget()->rect();
    p.fillRect(rect, toQColor(back_));
    const int b = row_.border ? LabelFace::borderWidth : 0;
    if (!pixmap_.isNull()) {
        p.setRenderHint(QPainter::SmoothPixmapTransform);
        p.setClipRect(rect.adjusted(b, b, -b, -b));
        p.drawPixmap(b, b, pixmap_);
        p.setClipping(false);
    }
    if (row_.border) paintSunkenEdge(p, rect);
}

// ---------------------------------------------------------------- Frame

Frame::Frame(const Row& row, int index, Controls* owner, QWidget* parent)
    : Control(row, index, owner), caption_(QString::fromUtf8(row.caption)) {
    attachView(new PaintedWidget(parent, [this](QPainter& p) { paint(p); }, nullptr));
    Frame::setBackColor(back_);
    finish(false);
}

void Frame::setCaption(const QString& t) {
    if (t == caption_) return;
    caption_ = t;
    widget()->update();
    announceName(widget());
}

void Frame::setBackColor(Rgb colour) {
    back_ = colour;
    widget()->update();
}

void Frame::paint(QPainter& p) const {
    const QRect rect = widget()->rect();
    if (!row_.transparent) p.fillRect(rect, toQColor(back_));
    if (!row_.border) return;
    const QFont f = currentFont();
    const QFontMetrics fm(f);
    const int y = fm.height() / 2;
    const QRect edge = rect.adjusted(0, y, -1, -1);
    p.setPen(QColor(128, 128, 128));
    p.drawRect(edge.adjusted(0, 0, -1, -1));
    p.setPen(QColor(255, 255, 255));
    p.drawRect(edge.adjusted(1, 1, 0, 0));
    if (!caption_.isEmpty()) {
        const QRect text(8, 0, fm.horizontalAdvance(caption_) + 4, fm.height());
        p.fillRect(text, toQColor(back_));
        p.setFont(f);
        p.setPen(widget()->isEnabled() ? toQColor(fore_) : dimText);
        p.drawText(text, Qt::AlignCenter, caption_);
    }
}

// ---------------------------------------------------------------- Line

Line::Line(const Row& row, int index, Controls* owner, QWidget* parent) : Control(row, index, owner) {
    attachView(new PaintedWidget(parent, [this](QPainter& p) { paint(p); }, nullptr));
    widget()->setAttribute(Qt::WA_TransparentForMouseEvents);
    finish(false);
    setEnds(row.x1, row.y1, row.x2, row.y2);
}

void Line::setEnds(double x1, double y1, double x2, double y2) {
    row_.x1 = x1;
    row_.y1 = y1;
    row_.x2 = x2;
    row_.y2 = y2;
    applyGeometry();
}

void Line::applyGeometry() {
    const int pad = row_.lineWidth;
    const QRect ends = QRect(QPoint(px(row_.x1), px(row_.y1)), QPoint(px(row_.x2), px(row_.y2))).normalized();
    widget()->setGeometry(ends.adjusted(-pad, -pad, pad, pad));
    widget()->update();
}

void Line::paint(QPainter& p) const {
    QPen pen(toQColor(fore_));
    pen.setWidth(row_.lineWidth);
    pen.setCapStyle(Qt::FlatCap);
    p.setPen(pen);
    const QPoint origin = widget()->geometry().topLeft();
    p.drawLine(QPoint(px(row_.x1), px(row_.y1)) - origin, QPoint(px(row_.x2), px(row_.y2)) - origin);
}

}  // namespace fendle::kit

#include "painted.moc"
