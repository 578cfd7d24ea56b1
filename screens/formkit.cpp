#include "screens/formkit.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QButtonGroup>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QFocusEvent>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmapCache>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

#include "screens/bold_face.h"
#include "text/file_io.h"

namespace fendle {

QString hostPath(std::string_view name) { return QString::fromStdString(gamePath(name)); }

namespace kit {

int px(double twips) { return int(std::lround(twips / twipsPerPixel)); }

int fontPixels(double points) { return std::max(1, int(std::lround(points * 20.0 / twipsPerPixel))); }

QColor toQColor(Rgb c) { return QColor(c.r, c.g, c.b); }
Rgb toRgb(const QColor& c) {
    return Rgb{std::uint8_t(c.red()), std::uint8_t(c.green()), std::uint8_t(c.blue())};
}

namespace {

QByteArray fileBytes(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// The clone's bold file has the regular outlines, only spaced wider. Its
// family gets a bold face with the same spacing and truly bold letters,
// made from it and DejaVu Sans Bold; the file itself when that cannot be made.
void addBoldTahoma() {
    const QString spacingFile = QStringLiteral("/usr/share/wine/fonts/tahomabd.ttf");
    const QByteArray spacing = fileBytes(spacingFile);
    const QByteArray shapes = fileBytes(QStringLiteral("/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf"));
    if (!spacing.isEmpty() && !shapes.isEmpty()) {
        const auto face = fitBoldFace(std::string_view(spacing.constData(), std::size_t(spacing.size())),
                                      std::string_view(shapes.constData(), std::size_t(shapes.size())));
        if (face && QFontDatabase::addApplicationFontFromData(QByteArray(face->data(), qsizetype(face->size()))) >= 0)
            return;
    }
    QFontDatabase::addApplicationFont(spacingFile);
}

const QString& tahomaFamily() {
    static const QString family = [] {
        const int regular = QFontDatabase::addApplicationFont(QStringLiteral("/usr/share/wine/fonts/tahoma.ttf"));
        if (regular >= 0) {
            addBoldTahoma();
            const QStringList names = QFontDatabase::applicationFontFamilies(regular);
            if (!names.isEmpty()) return names.first();
        }
        return QStringLiteral("DejaVu Sans");
    }();
    return family;
}

bool isWindowed(Kind k) {
    switch (k) {
    case Kind::Label:
    case Kind::Button:
    case Kind::Image:
    case Kind::Line:
        return false;
    default:
        return true;
    }
}

Qt::Alignment horizontal(Align a) {
    switch (a) {
    case Align::Right:
        return Qt::AlignRight;
    case Align::Centre:
        return Qt::AlignHCenter;
    default:
        return Qt::AlignLeft;
    }
}

const QColor dimText(128, 128, 128);

// The classic sunken edge, two pixels wide.
void paintSunkenEdge(QPainter& p, QRect r) {
    const QColor shadow(128, 128, 128), darkShadow(64, 64, 64), light(192, 192, 192), hilight(255, 255, 255);
    auto edge = [&p](QRect q, QColor topLeft, QColor bottomRight) {
        p.setPen(topLeft);
        p.drawLine(q.topLeft(), q.topRight());
        p.drawLine(q.topLeft(), q.bottomLeft());
        p.setPen(bottomRight);
        p.drawLine(q.bottomLeft(), q.bottomRight());
        p.drawLine(q.topRight(), q.bottomRight());
    };
    edge(r, shadow, hilight);
    edge(r.adjusted(1, 1, -1, -1), darkShadow, light);
}

QColor systemWindow() { return QApplication::palette().color(QPalette::Active, QPalette::Window); }

}  // namespace

QString fontFamily(Face face) {
    return face == Face::Tahoma ? tahomaFamily() : QStringLiteral("Liberation Sans");
}

QFont makeFont(Face face, double points, bool bold) {
    QFont f(fontFamily(face));
    f.setPixelSize(fontPixels(points));
    f.setBold(bold);
    return f;
}

namespace {

QPixmap loadPictureFile(const QString& path, qreal ratio) {
    const QFileInfo info(path);
    if (!info.isFile()) return {};
    const QString key = QStringLiteral("fendle:%1:%2:%3")
                            .arg(info.absoluteFilePath())
                            .arg(info.size())
                            .arg(info.lastModified().toMSecsSinceEpoch());
    QPixmap pm;
    if (QPixmapCache::find(key, &pm)) return pm;
    if (!pm.load(path)) return {};
    pm.setDevicePixelRatio(ratio);
    QPixmapCache::insert(key, pm);
    return pm;
}

}  // namespace

QString twinPath(const QString& path) {
    const qsizetype slash = path.lastIndexOf(QLatin1Char('/'));
    const qsizetype dot = path.lastIndexOf(QLatin1Char('.'));
    if (dot <= slash + 1) return path + QStringLiteral("@2x");
    return path.left(dot) + QStringLiteral("@2x") + (path.mid(dot) == QLatin1String(".bmp") ? QStringLiteral(".png") : path.mid(dot));
}

QPixmap loadPicture(std::string_view file) {
    const QString path = hostPath(file);
    // On a screen at a larger scale, the twin drawn at twice the resolution
    // shows at the same size, sharp.
    if (qGuiApp && qGuiApp->devicePixelRatio() > 1.0) {
        const QPixmap sharp = loadPictureFile(twinPath(path), 2.0);
        if (!sharp.isNull()) return sharp;
    }
    return loadPictureFile(path, 1.0);
}

// ---------------------------------------------------------------- LabelFace

namespace {

constexpr int smallestPixelSize = 4;

// Where the text may go: inside the border, and room for the outline.
QRect innerRect(QRect box, bool border, bool outline = false) {
    const int b = (border ? LabelFace::borderWidth : 0) + (outline ? LabelFace::outlineWidth : 0);
    return box.adjusted(b, b, -b, -b);
}

// WCAG's relative luminance and contrast ratio.
double luminance(const QColor& c) {
    auto linear = [](int v) {
        const double s = v / 255.0;
        return s <= 0.04045 ? s / 12.92 : std::pow((s + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(c.red()) + 0.7152 * linear(c.green()) + 0.0722 * linear(c.blue());
}
double contrast(const QColor& a, const QColor& b) {
    const double la = luminance(a), lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

}  // namespace

const QFont& LabelFace::fitted(QSize box) const {
    if (cachedFor_ == box) return fitted_;
    QString shown = text;
    shown.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\n'), QChar::LineSeparator);

    QTextOption option(horizontal(align));
    option.setWrapMode(wrap ? QTextOption::WordWrap : QTextOption::NoWrap);
    int down = 0;   // pixels the words stand below the top of the box

    // Lays the text out at a size; true when every line fits the width and
    // the ink of the last line ends inside the height. Lines stand apart as
    // the painter sets them: their height and the font's leading, rounded up
    // to a whole pixel.
    auto fitsIn = [&](const QFont& f, QRect inner) {
        if (shown.isEmpty()) return true;
        QTextLayout layout(shown, f);
        layout.setTextOption(option);
        layout.beginLayout();
        const qreal leading = QFontMetricsF(f).leading();
        qreal y = 0;
        bool wide = false;
        QTextLine last;
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            if (last.isValid()) y = std::ceil(y + last.height() + leading);
            line.setLineWidth(inner.width());
            line.setPosition(QPointF(0, y));
            if (line.naturalTextWidth() > inner.width() + 0.01) wide = true;
            last = line;
        }
        layout.endLayout();
        if (wide || !last.isValid()) return !wide;
        const QFontMetricsF metrics(f);
        // A capital with an accent may rise above the font's ascent: the
        // words then stand lower, so that it is not cut at the top.
        const QTextLine first = layout.lineAt(0);
        const qreal rise = -(first.ascent() + metrics.tightBoundingRect(shown.mid(first.textStart(), first.textLength())).top());
        down = rise > 0.01 ? int(std::ceil(rise)) : 0;
        const QString lastText = shown.mid(last.textStart(), last.textLength());
        const qreal inkBelow = std::max<qreal>(0, metrics.tightBoundingRect(lastText).bottom());
        return down + last.y() + last.ascent() + inkBelow <= inner.height() + 0.01;
    };

    const QRect plain = innerRect(QRect(QPoint(), box), border);
    QFont f = font;
    int size = f.pixelSize();
    while (size > smallestPixelSize && !fitsIn(f, plain)) {
        --size;
        f.setPixelSize(size);
    }
    // An outline takes no room of its own: the text keeps the size it has
    // without one, and the outline goes round it inside the box where the
    // text leaves room, else it is cut at the box's edge.
    const QRect withOutline = innerRect(QRect(QPoint(), box), border, true);
    outlineRoom_ = outline && fitsIn(f, withOutline);
    // How far the words stand down is that of the layout the painter uses.
    if (size == smallestPixelSize || (outline && !outlineRoom_)) fitsIn(f, outlineRoom_ ? withOutline : plain);
    fitted_ = f;
    lift_ = down;
    cachedFor_ = box;
    return fitted_;
}

QColor LabelFace::outlineFor(const QColor& text) {
    // Dark for the light and bright texts, a light grey for the dark ones,
    // white for what stands out from neither.
    for (const QColor edge : {QColor(0, 0, 40), QColor(176, 176, 176)})
        if (contrast(text, edge) >= 4.5) return edge;
    return Qt::white;
}

void LabelFace::paint(QPainter& p, QRect box, bool enabled) const {
    if (!transparent) p.fillRect(box, back);
    if (border) paintSunkenEdge(p, box);
    if (text.isEmpty()) return;
    p.setFont(fitted(box.size()));
    const QRect inner = innerRect(box, border, outlineRoom_).adjusted(0, lift(box.size()), 0, 0);
    const QColor ink = enabled ? fore : dimText;
    int flags = int(horizontal(align)) | Qt::AlignTop;
    if (wrap) flags |= Qt::TextWordWrap;
    QString shown = text;
    shown.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    if (outline) {
        // The text in the outline's colour a pixel off all round, then the
        // text itself over it.
        p.save();
        p.setClipRect(box, Qt::IntersectClip);
        p.setPen(outlineFor(ink));
        constexpr int w = outlineWidth;
        for (const QPoint off : {QPoint(-w, -w), QPoint(0, -w), QPoint(w, -w), QPoint(-w, 0), QPoint(w, 0),
                                 QPoint(-w, w), QPoint(0, w), QPoint(w, w)})
            p.drawText(inner.translated(off), flags, shown);
        p.restore();
    }
    p.setPen(ink);
    p.drawText(inner, flags, shown);
}

// ---------------------------------------------------------------- Control

Control::Control(QWidget* self, const Row& row, int index, Controls* owner)
    : row_(row),
      fore_(row.fore.value_or(colour::black)),
      back_(row.back.value_or(toRgb(systemWindow()))),
      points_(row.size),
      self_(self),
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

void Control::place(double left, double top, double width, double height) {
    left_ = left;
    top_ = top;
    width_ = width;
    height_ = height;
    applyGeometry();
}

void Control::applyGeometry() { self_->setGeometry(px(left_), px(top_), px(width_), px(height_)); }

QString Control::caption() const { return {}; }
void Control::setCaption(const QString&) {}

void Control::setForeColor(Rgb colour) {
    fore_ = colour;
    QPalette pal = self_->palette();
    // A check box or an option draws its tick or dot in the Text colour on a
    // white disc: that stays the system's, or a yellow caption would leave the
    // chosen option unseen.
    const bool indicator = row_.kind == Kind::CheckBox || row_.kind == Kind::Option;
    for (auto group : {QPalette::Active, QPalette::Inactive}) {
        pal.setColor(group, QPalette::WindowText, toQColor(colour));
        pal.setColor(group, QPalette::ButtonText, toQColor(colour));
        if (!indicator) pal.setColor(group, QPalette::Text, toQColor(colour));
    }
    self_->setPalette(pal);
}

void Control::setBackColor(Rgb colour) {
    back_ = colour;
    QPalette pal = self_->palette();
    for (auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        pal.setColor(group, QPalette::Window, toQColor(colour));
        pal.setColor(group, QPalette::Button, toQColor(colour));
    }
    self_->setPalette(pal);
    self_->setAutoFillBackground(!row_.transparent);
}

void Control::setFontSize(double points) {
    points_ = points;
    self_->setFont(currentFont());
}

void Control::fireClick() {
    if (owner_) owner_->dispatch(owner_->clicks_, *this);
}
void Control::fireChange() {
    if (owner_) owner_->dispatch(owner_->changes_, *this);
}

namespace {

// What every kit widget does once it is whole: font, colours the row asks
// for, place, Visible and Enabled.
void finish(Control& c, const Row& row, bool colours) {
    c.setFontSize(row.size);
    if (colours) {
        if (row.fore) c.setForeColor(*row.fore);
        if (row.back) c.setBackColor(*row.back);
    }
    c.place(row.left, row.top, row.width, row.height);
    if (!row.visible) c.setVisible(false);
    if (!row.enabled) c.setEnabled(false);
}

}  // namespace

// ---------------------------------------------------------------- accessibility

namespace {

// What a screen reader finds of the light controls: a label is static text
// named by its caption, an image a graphic named by its accessible name, a
// frame a group named by its caption.
class ControlAccessible : public QAccessibleWidget {
public:
    ControlAccessible(QWidget* w, QAccessible::Role role) : QAccessibleWidget(w, role) {}
    QString text(QAccessible::Text t) const override {
        if (t == QAccessible::Name && role() != QAccessible::Graphic) {
            if (!widget()->accessibleName().isEmpty()) return widget()->accessibleName();
            if (const auto* c = dynamic_cast<const Control*>(widget())) return c->caption();
        }
        return QAccessibleWidget::text(t);
    }
};

QAccessibleInterface* controlAccessible(const QString& className, QObject* object) {
    auto* w = qobject_cast<QWidget*>(object);
    if (!w) return nullptr;
    if (className == QLatin1String(Label::staticMetaObject.className()))
        return new ControlAccessible(w, QAccessible::StaticText);
    if (className == QLatin1String(Image::staticMetaObject.className()))
        return new ControlAccessible(w, QAccessible::Graphic);
    if (className == QLatin1String(Frame::staticMetaObject.className()))
        return new ControlAccessible(w, QAccessible::Grouping);
    return nullptr;
}

void installAccessibleControls() {
    static const bool installed = [] {
        QAccessible::installFactory(controlAccessible);
        return true;
    }();
    (void)installed;
}

// Tells a screen reader that a control's caption changed.
void announceName(QWidget* w) {
    if (!QAccessible::isActive()) return;
    QAccessibleEvent e(w, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&e);
}

}  // namespace

// ---------------------------------------------------------------- Label

Label::Label(const Row& row, int index, Controls* owner, QWidget* parent)
    : QWidget(parent), Control(this, row, index, owner) {
    installAccessibleControls();
    face_.text = QString::fromUtf8(row.caption);
    syncFace();
    finish(*this, row, false);
}

void LabelFace::style(const Row& row, const QFont& designFont, Rgb foreColour, Rgb backColour) {
    font = designFont;
    fore = toQColor(foreColour);
    back = toQColor(backColour);
    transparent = row.transparent;
    outline = row.outline;
    border = row.border;
    wrap = row.wordWrap;
    align = row.align;
    invalidate();
}

void Label::syncFace() {
    face_.style(row_, currentFont(), fore_, back_);
    setAttribute(Qt::WA_OpaquePaintEvent, !row_.transparent);
    update();
}

void Label::setCaption(const QString& text) {
    if (text == face_.text) return;
    face_.text = text;
    face_.invalidate();
    update();
    announceName(this);
}
void Label::setForeColor(Rgb colour) {
    fore_ = colour;
    face_.fore = toQColor(colour);
    update();
}
void Label::setBackColor(Rgb colour) {
    back_ = colour;
    face_.back = toQColor(colour);
    update();
}
void Label::setFontSize(double points) {
    points_ = points;
    setFont(currentFont());
    syncFace();
}

QSize Label::clearSize() const {
    QSize clear = size();
    const QWidget* parent = parentWidget();
    if (!parent) return clear;
    const QRect box = geometry();
    for (const QObject* o : parent->children()) {
        const auto* w = qobject_cast<const QWidget*>(o);
        const auto* c = dynamic_cast<const Control*>(w);
        if (!c || w == this || !isWindowed(c->kind()) || !w->isVisibleTo(parent)) continue;
        const QRect r = w->geometry();
        if (r.intersects(box) && r.top() > box.top()) clear.setHeight(std::min(clear.height(), r.top() - box.top()));
    }
    return clear;
}

void Label::paintEvent(QPaintEvent*) {
    QPainter p(this);
    // Words that would run behind a box in front are fitted above it.
    const QSize clear = clearSize();
    if (clear == size()) {
        face_.paint(p, rect(), isEnabled());
        return;
    }
    if (!row_.transparent) p.fillRect(rect(), face_.back);
    LabelFace above = face_;
    above.transparent = true;
    above.paint(p, QRect(QPoint(), clear), isEnabled());
}

void Label::mousePressEvent(QMouseEvent* e) {
    if (e->button() == Qt::LeftButton) pressed_ = true;
    e->accept();
}

void Label::mouseReleaseEvent(QMouseEvent* e) {
    const bool click = pressed_ && e->button() == Qt::LeftButton && rect().contains(e->position().toPoint());
    pressed_ = false;
    e->accept();
    if (click) fireClick();
}

// ---------------------------------------------------------------- Button

Button::Button(const Row& row, int index, Controls* owner, QWidget* parent)
    : QAbstractButton(parent), Control(this, row, index, owner) {
    setFocusPolicy(Qt::TabFocus);
    setText(QString::fromUtf8(row.caption));
    syncFace();
    finish(*this, row, false);
    connect(this, &QAbstractButton::clicked, this, [this] { fireClick(); });
}

void Button::syncFace() {
    face_.text = text();
    face_.style(row_, currentFont(), fore_, back_);
    update();
}

void Button::setCaption(const QString& t) {
    if (t == text()) return;
    setText(t);
    face_.text = t;
    face_.invalidate();
    update();
}
void Button::setForeColor(Rgb colour) {
    fore_ = colour;
    face_.fore = toQColor(colour);
    update();
}
void Button::setBackColor(Rgb colour) {
    back_ = colour;
    face_.back = toQColor(colour);
    update();
}
void Button::setFontSize(double points) {
    points_ = points;
    setFont(currentFont());
    syncFace();
}

void Button::paintEvent(QPaintEvent*) {
    QPainter p(this);
    face_.paint(p, rect(), isEnabled());
    if (hasFocus() && focusCue_) {
        QPen pen(isEnabled() ? face_.fore : dimText);
        pen.setStyle(Qt::DotLine);
        p.setPen(pen);
        p.drawRect(rect().adjusted(3, 3, -4, -4));
    }
}

namespace {

// The window lost or regained the focus: what the focus looked like stays.
bool windowSwitch(Qt::FocusReason r) { return r == Qt::ActiveWindowFocusReason || r == Qt::PopupFocusReason; }

}  // namespace

void Button::focusInEvent(QFocusEvent* e) {
    const Qt::FocusReason r = e->reason();
    if (!windowSwitch(r))
        focusCue_ = r == Qt::TabFocusReason || r == Qt::BacktabFocusReason || r == Qt::ShortcutFocusReason;
    QAbstractButton::focusInEvent(e);
}

void Button::focusOutEvent(QFocusEvent* e) {
    if (!windowSwitch(e->reason())) focusCue_ = false;
    QAbstractButton::focusOutEvent(e);
}

void Button::mousePressEvent(QMouseEvent* e) {
    if (focusCue_) {
        focusCue_ = false;
        update();
    }
    QAbstractButton::mousePressEvent(e);
}

void Button::keyPressEvent(QKeyEvent* e) {
    const bool presses = e->key() == Qt::Key_Space || e->key() == Qt::Key_Select || e->key() == Qt::Key_Return ||
                         e->key() == Qt::Key_Enter;
    if (!focusCue_ && presses) {
        // Nobody can see where the focus is: show it, press nothing.
        focusCue_ = true;
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

// ---------------------------------------------------------------- CheckBox, OptionButton

CheckBox::CheckBox(const Row& row, int index, Controls* owner, QWidget* parent)
    : QCheckBox(parent), Control(this, row, index, owner) {
    setText(QString::fromUtf8(row.caption));
    setChecked(row.value != 0);
    finish(*this, row, true);
    connect(this, &QCheckBox::toggled, this, [this] { fireClick(); });
}

OptionButton::OptionButton(const Row& row, int index, Controls* owner, QWidget* parent)
    : QRadioButton(parent), Control(this, row, index, owner) {
    setText(QString::fromUtf8(row.caption));
    setAutoExclusive(false);   // the array's group decides, once it has one
    setChecked(row.value != 0);
    finish(*this, row, true);
    connect(this, &QRadioButton::toggled, this, [this](bool on) {
        if (on) fireClick();
    });
}

// ---------------------------------------------------------------- TextBox

TextBox::TextBox(const Row& row, int index, Controls* owner, QWidget* parent)
    : QLineEdit(parent), Control(this, row, index, owner) {
    setMaxLength(row.maxLength > 0 ? row.maxLength : 32767);
    setAlignment(horizontal(row.align) | Qt::AlignVCenter);
    setText(QString::fromUtf8(row.caption));
    finish(*this, row, true);
    connect(this, &QLineEdit::textChanged, this, [this] { fireChange(); });
}

void TextBox::setForeColor(Rgb colour) {
    fore_ = colour;
    QPalette pal = palette();
    for (auto group : {QPalette::Active, QPalette::Inactive}) pal.setColor(group, QPalette::Text, toQColor(colour));
    setPalette(pal);
}

void TextBox::setBackColor(Rgb colour) {
    back_ = colour;
    QPalette pal = palette();
    for (auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        pal.setColor(group, QPalette::Base, toQColor(colour));
    setPalette(pal);
}

void TextBox::keyPressEvent(QKeyEvent* e) {
    if (!keyPress_) return QLineEdit::keyPressEvent(e);
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
    const int kept = keyPress_(code);
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

// ---------------------------------------------------------------- Image

Image::Image(const Row& row, int index, Controls* owner, QWidget* parent)
    : QWidget(parent), Control(this, row, index, owner) {
    installAccessibleControls();
    finish(*this, row, false);
    if (*row.picture) setPicture(row.picture);
}

void Image::setPicture(std::string_view file) {
    file_ = file;
    pixmap_ = loadPicture(file);
    if (!pixmap_.isNull() && !row_.stretch) {
        const QSizeF size = pixmap_.deviceIndependentSize();
        place(left(), top(), size.width() * twipsPerPixel, size.height() * twipsPerPixel);
    }
    update();
}

void Image::clearPicture() {
    file_.clear();
    pixmap_ = QPixmap();
    update();
}

void Image::paintEvent(QPaintEvent*) {
    if (pixmap_.isNull()) return;
    QPainter p(this);
    // A picture whose pixels are not the screen's is resampled smoothly.
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    if (row_.stretch) {
        p.drawPixmap(rect(), pixmap_);
    } else {
        p.drawPixmap(0, 0, pixmap_);
    }
}

void Image::mousePressEvent(QMouseEvent* e) {
    if (e->button() == Qt::LeftButton) pressed_ = true;
    e->accept();
}

void Image::mouseReleaseEvent(QMouseEvent* e) {
    const bool click = pressed_ && e->button() == Qt::LeftButton && rect().contains(e->position().toPoint());
    pressed_ = false;
    e->accept();
    if (click) fireClick();
}

// ---------------------------------------------------------------- PictureBox

PictureBox::PictureBox(const Row& row, int index, Controls* owner, QWidget* parent)
    : QWidget(parent), Control(this, row, index, owner) {
    PictureBox::setBackColor(back_);
    finish(*this, row, false);
    if (*row.picture) setPicture(row.picture);
}

void PictureBox::setPicture(std::string_view file) {
    file_ = file;
    pixmap_ = loadPicture(file);
    update();
}

void PictureBox::setBackColor(Rgb colour) {
    back_ = colour;
    update();
}

void PictureBox::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), toQColor(back_));
    const int b = row_.border ? LabelFace::borderWidth : 0;
    if (!pixmap_.isNull()) {
        p.setRenderHint(QPainter::SmoothPixmapTransform);
        p.setClipRect(rect().adjusted(b, b, -b, -b));
        p.drawPixmap(b, b, pixmap_);
        p.setClipping(false);
    }
    if (row_.border) paintSunkenEdge(p, rect());
}

void PictureBox::mousePressEvent(QMouseEvent* e) {
    if (e->button() == Qt::LeftButton) pressed_ = true;
    e->accept();
}

void PictureBox::mouseReleaseEvent(QMouseEvent* e) {
    const bool click = pressed_ && e->button() == Qt::LeftButton && rect().contains(e->position().toPoint());
    pressed_ = false;
    e->accept();
    if (click) fireClick();
}

// ---------------------------------------------------------------- Frame

Frame::Frame(const Row& row, int index, Controls* owner, QWidget* parent)
    : QWidget(parent), Control(this, row, index, owner), caption_(QString::fromUtf8(row.caption)) {
    installAccessibleControls();
    Frame::setBackColor(back_);
    finish(*this, row, false);
}

void Frame::setCaption(const QString& t) {
    if (t == caption_) return;
    caption_ = t;
    update();
    announceName(this);
}

void Frame::setBackColor(Rgb colour) {
    back_ = colour;
    update();
}

void Frame::paintEvent(QPaintEvent*) {
    QPainter p(this);
    if (!row_.transparent) p.fillRect(rect(), toQColor(back_));
    if (!row_.border) return;
    const QFont f = currentFont();
    const QFontMetrics fm(f);
    const int y = fm.height() / 2;
    const QRect edge = rect().adjusted(0, y, -1, -1);
    p.setPen(QColor(128, 128, 128));
    p.drawRect(edge.adjusted(0, 0, -1, -1));
    p.setPen(QColor(255, 255, 255));
    p.drawRect(edge.adjusted(1, 1, 0, 0));
    if (!caption_.isEmpty()) {
        const QRect text(8, 0, fm.horizontalAdvance(caption_) + 4, fm.height());
        p.fillRect(text, toQColor(back_));
        p.setFont(f);
        p.setPen(isEnabled() ? toQColor(fore_) : dimText);
        p.drawText(text, Qt::AlignCenter, caption_);
    }
}

// ---------------------------------------------------------------- Line

Line::Line(const Row& row, int index, Controls* owner, QWidget* parent)
    : QWidget(parent), Control(this, row, index, owner) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    finish(*this, row, false);
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
    setGeometry(ends.adjusted(-pad, -pad, pad, pad));
    update();
}

void Line::paintEvent(QPaintEvent*) {
    QPainter p(this);
    QPen pen(toQColor(fore_));
    pen.setWidth(row_.lineWidth);
    pen.setCapStyle(Qt::FlatCap);
    p.setPen(pen);
    const QPoint origin = geometry().topLeft();
    p.drawLine(QPoint(px(row_.x1), px(row_.y1)) - origin, QPoint(px(row_.x2), px(row_.y2)) - origin);
}

// ---------------------------------------------------------------- PushButton, HScrollBar

PushButton::PushButton(const Row& row, int index, Controls* owner, QWidget* parent)
    : QPushButton(parent), Control(this, row, index, owner) {
    setText(QString::fromUtf8(row.caption));
    setAutoDefault(false);
    finish(*this, row, true);
    connect(this, &QPushButton::clicked, this, [this] { fireClick(); });
}

HScrollBar::HScrollBar(const Row& row, int index, Controls* owner, QWidget* parent)
    : QScrollBar(Qt::Horizontal, parent), Control(this, row, index, owner) {
    setRange(row.min, row.max);
    setSingleStep(row.smallChange);
    setPageStep(row.largeChange);
    setValue(row.value);
    setTracking(false);
    finish(*this, row, true);
    connect(this, &QScrollBar::valueChanged, this, [this] { fireChange(); });
}

// ---------------------------------------------------------------- Controls

Controls::~Controls() {
    for (auto& [name, elements] : byName_) {
        for (auto& [index, control] : elements) control->owner_ = nullptr;
    }
}

Control* Controls::make(const Row& row, int index, QWidget* container) {
    Control* c = nullptr;
    switch (row.kind) {
    case Kind::Label:
        c = new Label(row, index, this, container);
        break;
    case Kind::Button:
        c = new Button(row, index, this, container);
        break;
    case Kind::CheckBox:
        c = new CheckBox(row, index, this, container);
        break;
    case Kind::Option: {
        auto* o = new OptionButton(row, index, this, container);
        groupFor(row.name, container)->addButton(o);
        // In its group, the option ignores the other options of its
        // container; auto-exclusive, a screen reader hears it as a radio
        // button rather than a check box.
        o->setAutoExclusive(true);
        c = o;
        break;
    }
    case Kind::TextBox:
        c = new TextBox(row, index, this, container);
        break;
    case Kind::Image:
        c = new Image(row, index, this, container);
        break;
    case Kind::PictureBox:
        c = new PictureBox(row, index, this, container);
        break;
    case Kind::Frame:
        c = new Frame(row, index, this, container);
        break;
    case Kind::Line:
        c = new Line(row, index, this, container);
        break;
    case Kind::PushButton:
        c = new PushButton(row, index, this, container);
        break;
    case Kind::HScrollBar:
        c = new HScrollBar(row, index, this, container);
        break;
    }
    auto& slot = byName_[std::string(row.name)][index];
    if (!slot) ++count_;
    slot = c;
    return c;
}

QButtonGroup* Controls::groupFor(const std::string& name, QWidget* container) {
    QButtonGroup*& g = groups_[{name, container}];
    if (!g) {
        g = new QButtonGroup(form_);
        g->setExclusive(true);
    }
    return g;
}

void Controls::build(std::span<const Row> rows, QWidget* container) {
    if (!container) container = form_;
    std::vector<QWidget*> windowed;
    for (const Row& row : rows) {
        Control* c = make(row, row.index, container);
        if (isWindowed(row.kind)) windowed.push_back(c->widget());
        if (!row.children.empty()) build(row.children, c->widget());
    }
    for (QWidget* w : windowed) w->raise();
}

Control* Controls::find(std::string_view name, int index) const {
    const auto it = byName_.find(name);
    if (it == byName_.end()) return nullptr;
    const auto el = it->second.find(index);
    return el == it->second.end() ? nullptr : el->second;
}

std::vector<Control*> Controls::array(std::string_view name) const {
    std::vector<Control*> out;
    const auto it = byName_.find(name);
    if (it == byName_.end()) return out;
    for (const auto& [index, c] : it->second) out.push_back(c);
    return out;
}

Control* Controls::loadElement(std::string_view name, int index) {
    if (Control* there = find(name, index)) return there;
    Control* first = find(name, 0);
    if (!first) return nullptr;
    QWidget* container = first->widget()->parentWidget();
    Row row = first->row();
    row.visible = false;
    row.enabled = first->enabled();
    row.size = first->fontSize();
    row.left = first->left();
    row.top = first->top();
    row.width = first->width();
    row.height = first->height();
    row.fore = first->foreColor();
    row.back = first->backColor();
    Control* c = make(row, index, container);
    c->setCaption(first->caption());
    if (auto* img = dynamic_cast<Image*>(first); img && img->hasPicture()) static_cast<Image*>(c)->setPicture(img->picture());
    if (!isWindowed(row.kind)) {
        // Light controls stay under the windowed ones of their container.
        for (QObject* o : container->children()) {
            auto* w = qobject_cast<QWidget*>(o);
            auto* k = dynamic_cast<Control*>(w);
            if (w && k && w != c->widget() && isWindowed(k->kind())) {
                c->widget()->stackUnder(w);
                break;
            }
        }
    }
    return c;
}

void Controls::onClick(std::string_view name, Handler handler) { clicks_[std::string(name)] = std::move(handler); }

void Controls::onChange(std::string_view name, Handler handler) { changes_[std::string(name)] = std::move(handler); }

void Controls::dispatch(const std::map<std::string, Handler, std::less<>>& handlers, const Control& c) const {
    const auto it = handlers.find(c.name());
    if (it == handlers.end() || !it->second) return;
    const Handler h = it->second;   // the handler may replace itself
    h(c.index());
}

}  // namespace kit
}  // namespace fendle
