// The form kit: every screen of the game is a table of controls, one row per
// control, laid out in twips as the screens were drawn. A Controls object
// builds the widgets of such a table on a form and finds them again by name
// and index, so that `Label3`(2) in the code is `get<kit::Button>("Label3", 2)`.
//
//   inline constexpr kit::Row rows[] = {
//       {.name = "Label6", .kind = kit::Kind::Button,
//        .left = 240, .top = 1440, .width = 2895, .height = 435,
//        .caption = "The Rules", .size = 15.75, .bold = true,
//        .fore = colour::yellow, .back = colour::black,
//        .align = kit::Align::Centre, .border = true},
//       ...
//   };
//   controls.build(rows);
//   controls.onClick("Label6", [this](int) { Label6_Click(); });
//
// Units. Positions and sizes are twips, 15 to the pixel, converted in px()
// and nowhere else. Font sizes are points and become pixel sizes
// (points x 20 / 15), so a layout is the same whatever the screen's dpi.
//
// Stacking. Rows are stacked in table order, a later row in front of an
// earlier one; the windowed kinds (frame, picture box, check box, option
// button, text box, push button, scroll bar) always stand in front of the
// light ones (label, button, image, line) of the same container.
//
// Files. Pictures are named as the game writes them ("counters\\blre2.bmp")
// and found through hostPath(), in the game's data folder.
#pragma once

#include <QAbstractButton>
#include <QCheckBox>
#include <QFont>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QString>
#include <QWidget>

#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/game_state.h"

class QButtonGroup;

namespace fendle {

// "counters\\blre2.bmp" -> "<data folder>/counters/blre2.bmp": the game's
// backslashes become slashes, in the folder gamePath() resolves the name in.
// Case is kept, so "Images\\" and "images\\" are two folders.
QString hostPath(std::string_view name);

namespace kit {

inline constexpr int twipsPerPixel = 15;

// Twips to pixels, rounded to the nearest pixel (halves away from zero).
int px(double twips);
// Font points to pixels: 15.75 pt -> 21 px, 8.25 pt -> 11 px.
int fontPixels(double points);

enum class Face { Arial, Tahoma };
enum class Align { Left, Right, Centre };

enum class Kind {
    Label,        // text, transparent or on its back colour, optional border
    Button,       // a label with a border and a click handler; takes focus
    CheckBox,
    Option,       // option button; the elements of one array form a group
    TextBox,
    Image,        // a picture, natural size or stretched; light
    PictureBox,   // a windowed box with a picture at its top left; a container
    Frame,        // a container with its own rows
    Line,
    PushButton,   // a real push button, the system's grey
    HScrollBar,
};

// The font family that stands in for a face: Arial -> "Liberation Sans";
// Tahoma -> the family of /usr/share/wine/fonts/tahoma.ttf (loaded once,
// with a bold face made by fitBoldFace from the clone's bold file and DejaVu
// Sans Bold, or the clone's bold file as it is), else "DejaVu Sans".
QString fontFamily(Face face);
QFont makeFont(Face face, double points, bool bold);

// One control as the screen's table gives it. Fields a row leaves out keep
// the defaults below. A colour left empty is the system's.
struct Row {
    const char* name = "";
    int index = -1;   // element of a control array; -1 for a lone control
    Kind kind = Kind::Label;
    double left = 0, top = 0, width = 0, height = 0;   // twips, in the container
    const char* caption = "";                          // UTF-8; text of a text box
    Face font = Face::Arial;
    double size = 8.25;   // points
    bool bold = false;
    std::optional<Rgb> fore = std::nullopt;
    std::optional<Rgb> back = std::nullopt;
    bool transparent = false;   // label, button: the back colour is not painted
    // Label: a thin edge round each letter in a colour that stands out from
    // the text's own, for coloured text drawn straight on a picture or a
    // colour it does not stand out from.
    bool outline = false;
    Align align = Align::Left;
    bool visible = true;
    bool enabled = true;
    bool border = false;       // label, button, picture box: a single fixed border
    bool wordWrap = true;      // label, button: words wrap inside the box
    const char* picture = "";  // image, picture box
    bool stretch = false;      // image: scaled to its box; else the box takes the picture's size
    int maxLength = 0;         // text box; 0 for no limit
    int value = 0;             // check box 1 ticked; option 1 selected; scroll bar position
    int min = 0, max = 32767;  // scroll bar
    int smallChange = 1, largeChange = 1;
    int lineWidth = 1;                          // line, pixels
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;      // line ends, twips
    std::span<const Row> children{};            // frame, picture box: their own rows
};

class Controls;

// In a kit widget the names it shares with QWidget mean the Control's: width()
// and height() are twips as in the tables (widget()->width() is pixels).
#define FENDLE_KIT_CONTROL \
    using Control::width;  \
    using Control::height; \
    using Control::setVisible; \
    using Control::setEnabled;

// What every kit widget has: its design row, its place in twips, and the
// properties the game changes at run time. Each kit widget is a QWidget that
// is also a Control; widget() gives the QWidget.
class Control {
public:
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    QWidget* widget() const { return self_; }
    // The row the control was built from, less its caption, picture and
    // children, which live on in the control itself.
    const Row& row() const { return row_; }
    const std::string& name() const { return name_; }
    int index() const { return index_; }
    Kind kind() const { return row_.kind; }

    // Place in twips, kept as set (a left of 1565 reads back as 1565).
    double left() const { return left_; }
    double top() const { return top_; }
    double width() const { return width_; }
    double height() const { return height_; }
    void setLeft(double twips) { place(twips, top_, width_, height_); }
    void setTop(double twips) { place(left_, twips, width_, height_); }
    void setWidth(double twips) { place(left_, top_, twips, height_); }
    void setHeight(double twips) { place(left_, top_, width_, twips); }
    void place(double left, double top, double width, double height);

    virtual QString caption() const;
    virtual void setCaption(const QString& text);
    void setCaption(std::string_view utf8) { setCaption(QString::fromUtf8(utf8.data(), qsizetype(utf8.size()))); }
    void setCaption(const char* utf8) { setCaption(QString::fromUtf8(utf8)); }

    Rgb foreColor() const { return fore_; }
    Rgb backColor() const { return back_; }
    virtual void setForeColor(Rgb colour);
    virtual void setBackColor(Rgb colour);

    double fontSize() const { return points_; }
    virtual void setFontSize(double points);

    // Visible and Enabled as set on this control, whatever its container's.
    bool visible() const { return self_->isVisibleTo(self_->parentWidget()); }
    void setVisible(bool on) { self_->setVisible(on); }
    bool enabled() const { return !self_->testAttribute(Qt::WA_ForceDisabled); }
    void setEnabled(bool on) { self_->setEnabled(on); }

protected:
    Control(QWidget* self, const Row& row, int index, Controls* owner);
    // Lets the form's handler of this control's name know of a click.
    void fireClick();
    void fireChange();
    virtual void applyGeometry();
    QFont currentFont() const { return makeFont(row_.font, points_, row_.bold); }

    Row row_;
    Rgb fore_;
    Rgb back_;
    double points_;

private:
    friend class Controls;
    QWidget* self_;
    std::string name_;
    int index_;
    Controls* owner_;
    double left_, top_, width_, height_;
};

// How a label or a label-button paints: on its back colour or transparent,
// its border, its text wrapped at words and aligned, outlined or not. A text
// that does not fit the box at the design size is drawn with the font stepped
// down a pixel at a time until it does; an outline follows the text at the
// size it is drawn, and never makes it smaller.
class LabelFace {
public:
    QString text;
    QFont font;             // at the design pixel size
    QColor fore, back;
    bool transparent = false;
    bool border = false;
    bool wrap = true;
    bool outline = false;
    Align align = Align::Left;

    // The font the text is drawn with in a box of this size.
    const QFont& fitted(QSize box) const;
    // Pixels the words stand below the top of a box of this size.
    int lift(QSize box) const {
        fitted(box);
        return lift_;
    }
    void paint(QPainter& p, QRect box, bool enabled) const;
    void invalidate() { cachedFor_ = QSize(); }
    // Takes the look of a control's row, at the given font and colours.
    void style(const Row& row, const QFont& designFont, Rgb foreColour, Rgb backColour);
    static constexpr int borderWidth = 2;
    static constexpr int outlineWidth = 1;
    // The colour of the outline round text of this colour: a dark blue where
    // that stands out from the text by 4.5 : 1 or more, else a light grey
    // where that does, else white.
    static QColor outlineFor(const QColor& text);

private:
    mutable QSize cachedFor_;
    mutable QFont fitted_;
    mutable int lift_ = 0;
    mutable bool outlineRoom_ = false;   // the outlined text fits inside the box with its outline
};

class Label : public QWidget, public Control {
    Q_OBJECT
public:
    FENDLE_KIT_CONTROL
    Label(const Row& row, int index, Controls* owner, QWidget* parent);
    QString caption() const override { return face_.text; }
    void setCaption(const QString& text) override;
    void setForeColor(Rgb colour) override;
    void setBackColor(Rgb colour) override;
    void setFontSize(double points) override;
    // Pixel size of the font the caption is drawn with now.
    int drawnPixelSize() const { return face_.fitted(clearSize()).pixelSize(); }
    // The box less what a windowed control of the same container covers of
    // it from below: the room where the words can be read.
    QSize clearSize() const;

protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;

private:
    void syncFace();
    LabelFace face_;
    bool pressed_ = false;
};

// A label with a border and a click handler, on QAbstractButton so that it
// answers Space and Enter and is announced as a push button named by its
// caption. It takes the focus from the keyboard only (Tab), never from a
// click, and shows it with a dotted frame while the focus came by keyboard; a
// Space or Enter that finds the focus unshown only shows it.
class Button : public QAbstractButton, public Control {
    Q_OBJECT
public:
    FENDLE_KIT_CONTROL
    Button(const Row& row, int index, Controls* owner, QWidget* parent);
    QString caption() const override { return text(); }
    void setCaption(const QString& text) override;
    void setForeColor(Rgb colour) override;
    void setBackColor(Rgb colour) override;
    void setFontSize(double points) override;
    int drawnPixelSize() const { return face_.fitted(size()).pixelSize(); }
    QSize sizeHint() const override { return size(); }

protected:
    void paintEvent(QPaintEvent*) override;
    void keyPressEvent(QKeyEvent* e) override;
    void focusInEvent(QFocusEvent* e) override;
    void focusOutEvent(QFocusEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;

private:
    void syncFace();
    LabelFace face_;
    bool focusCue_ = false;   // the focus came by keyboard: show it
};

class CheckBox : public QCheckBox, public Control {
    Q_OBJECT
public:
    FENDLE_KIT_CONTROL
    CheckBox(const Row& row, int index, Controls* owner, QWidget* parent);
    QString caption() const override { return text(); }
    void setCaption(const QString& t) override { setText(t); }
    // 1 ticked, 0 not. Setting a new value counts as a click.
    int value() const { return isChecked() ? 1 : 0; }
    void setValue(int v) { setChecked(v != 0); }
};

class OptionButton : public QRadioButton, public Control {
    Q_OBJECT
public:
    FENDLE_KIT_CONTROL
    OptionButton(const Row& row, int index, Controls* owner, QWidget* parent);
    QString caption() const override { return text(); }
    void setCaption(const QString& t) override { setText(t); }
    bool value() const { return isChecked(); }
    // Selecting an option counts as a click on it.
    void setValue(bool on) { setChecked(on); }
};

class TextBox : public QLineEdit, public Control {
    Q_OBJECT
public:
    FENDLE_KIT_CONTROL
    // Sees each typed character as its code (8 for Backspace, 13 for Enter,
    // 27 for Escape) before the box does; returns the code to type, or 0 to
    // drop the key. Keys that type nothing (arrows, Delete) pass unseen.
    using KeyPress = std::function<int(int keyAscii)>;

    TextBox(const Row& row, int index, Controls* owner, QWidget* parent);
    QString caption() const override { return text(); }
    void setCaption(const QString& t) override { setText(t); }
    void setForeColor(Rgb colour) override;
    void setBackColor(Rgb colour) override;
    void setKeyPress(KeyPress filter) { keyPress_ = std::move(filter); }

protected:
    void keyPressEvent(QKeyEvent* e) override;

private:
    KeyPress keyPress_;
};

// A light picture control. Not stretched, it takes the picture's size, as
// the classic image control did; stretched, the picture fills its box. A
// file that cannot be read leaves it empty.
// A screen reader finds it as a graphic named by its accessibleName().
class Image : public QWidget, public Control {
    Q_OBJECT
public:
    FENDLE_KIT_CONTROL
    Image(const Row& row, int index, Controls* owner, QWidget* parent);
    void setPicture(std::string_view file);
    void clearPicture();
    const std::string& picture() const { return file_; }
    bool hasPicture() const { return !pixmap_.isNull(); }
    const QPixmap& pixmap() const { return pixmap_; }

protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;

private:
    std::string file_;
    QPixmap pixmap_;
    bool pressed_ = false;
};

// A windowed box: back colour, optional border, a picture drawn at its top
// left at natural size, and rows of its own.
class PictureBox : public QWidget, public Control {
    Q_OBJECT
public:
    FENDLE_KIT_CONTROL
    PictureBox(const Row& row, int index, Controls* owner, QWidget* parent);
    void setPicture(std::string_view file);
    const std::string& picture() const { return file_; }
    bool hasPicture() const { return !pixmap_.isNull(); }
    const QPixmap& pixmap() const { return pixmap_; }
    void setBackColor(Rgb colour) override;

protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;

private:
    std::string file_;
    QPixmap pixmap_;
    bool pressed_ = false;
};

// A container with rows of its own; a caption and an etched edge when it has
// a border.
class Frame : public QWidget, public Control {
    Q_OBJECT
public:
    FENDLE_KIT_CONTROL
    Frame(const Row& row, int index, Controls* owner, QWidget* parent);
    QString caption() const override { return caption_; }
    void setCaption(const QString& t) override;
    void setBackColor(Rgb colour) override;

protected:
    void paintEvent(QPaintEvent*) override;

private:
    QString caption_;
};

// A straight line from (x1, y1) to (x2, y2), twips, in its fore colour.
// Clicks pass through it.
class Line : public QWidget, public Control {
    Q_OBJECT
public:
    FENDLE_KIT_CONTROL
    Line(const Row& row, int index, Controls* owner, QWidget* parent);
    void setEnds(double x1, double y1, double x2, double y2);

protected:
    void paintEvent(QPaintEvent*) override;
    void applyGeometry() override;
};

class PushButton : public QPushButton, public Control {
    Q_OBJECT
public:
    FENDLE_KIT_CONTROL
    PushButton(const Row& row, int index, Controls* owner, QWidget* parent);
    QString caption() const override { return text(); }
    void setCaption(const QString& t) override { setText(t); }
};

// A horizontal scroll bar; its change is reported when the value has
// changed, not while the thumb is dragged.
class HScrollBar : public QScrollBar, public Control {
    Q_OBJECT
public:
    FENDLE_KIT_CONTROL
    HScrollBar(const Row& row, int index, Controls* owner, QWidget* parent);
};

// The controls of one form: builds them from rows, finds them by name and
// index, and hands their clicks and changes to the handlers of the form.
class Controls {
public:
    using Handler = std::function<void(int index)>;

    explicit Controls(QWidget* form) : form_(form) {}
    ~Controls();
    Controls(const Controls&) = delete;
    Controls& operator=(const Controls&) = delete;

    // Builds the widgets of `rows` in `container` (the form when null).
    void build(std::span<const Row> rows, QWidget* container = nullptr);

    // A control by name and index (-1 for a lone control); null if none.
    Control* find(std::string_view name, int index = -1) const;
    template <class W>
    W* get(std::string_view name, int index = -1) const {
        return dynamic_cast<W*>(find(name, index));
    }
    // The loaded elements of an array, by ascending index.
    std::vector<Control*> array(std::string_view name) const;
    std::size_t size() const { return count_; }

    // Creates element `index` of an array as a copy of element 0's row, in
    // element 0's container, hidden, as the classic Load statement did.
    // Returns the element that is already there if it exists, null when the
    // array has no element 0.
    Control* loadElement(std::string_view name, int index);

    // Handler of a click on any element of `name` (for a check box: a change
    // of its value; for an option: its selection). The index is -1 for a
    // lone control. One handler per name; a new one replaces the old.
    void onClick(std::string_view name, Handler handler);
    // Handler of a change of a text box's text or a scroll bar's value.
    void onChange(std::string_view name, Handler handler);

private:
    friend class Control;
    Control* make(const Row& row, int index, QWidget* container);
    void dispatch(const std::map<std::string, Handler, std::less<>>& handlers, const Control& c) const;
    QButtonGroup* groupFor(const std::string& name, QWidget* container);

    QWidget* form_;
    std::map<std::string, std::map<int, Control*>, std::less<>> byName_;
    std::map<std::string, Handler, std::less<>> clicks_;
    std::map<std::string, Handler, std::less<>> changes_;
    std::map<std::pair<std::string, QWidget*>, QButtonGroup*> groups_;
    std::size_t count_ = 0;
};

// A picture file by the game's name; a null pixmap when it cannot be read.
// When the program runs at a scale above 1, the file's "@2x" twin is taken
// where there is one, with a device pixel ratio of 2, so that it shows at the
// same size. Pictures are cached by host path, size and time of change.
QPixmap loadPicture(std::string_view file);
// "Images/fendle3.bmp" -> "Images/fendle3@2x.png", "images/end.jpg" -> "images/end@2x.jpg".
QString twinPath(const QString& path);

QColor toQColor(Rgb c);
Rgb toRgb(const QColor& c);

}  // namespace kit
}  // namespace fendle
