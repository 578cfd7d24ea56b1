// The base of every control of the form kit: the design's side of a control
// (its row, its place in twips, its caption, colours, font size, Visible and
// Enabled) over the Qt widget that shows it, which it holds. Twips and pixels
// never share a name: widthTwips() is the design's width, widget()->width()
// the widget's pixels.
#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>

#include <string>
#include <string_view>

#include "engine/rgb.h"
#include "screens/kit/row.h"

namespace fendle::kit {

class Controls;

class Control {
public:
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    // The widget that shows the control; it goes with the control.
    QWidget* widget() const { return widget_; }
    // The control a widget shows; null for a widget that is none.
    static Control* of(const QObject* widget);

    // The row the control was built from, less its caption, picture and
    // children, which live on in the control itself.
    const Row& row() const { return row_; }
    const std::string& name() const { return name_; }
    int index() const { return index_; }
    Kind kind() const { return row_.kind; }

    // Place in twips, kept as set (a left of 1565 reads back as 1565).
    double leftTwips() const { return left_; }
    double topTwips() const { return top_; }
    double widthTwips() const { return width_; }
    double heightTwips() const { return height_; }
    void setLeftTwips(double twips) { placeTwips(twips, top_, width_, height_); }
    void setTopTwips(double twips) { placeTwips(left_, twips, width_, height_); }
    void setWidthTwips(double twips) { placeTwips(left_, top_, twips, height_); }
    void setHeightTwips(double twips) { placeTwips(left_, top_, width_, twips); }
    void placeTwips(double left, double top, double width, double height);

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
    bool visible() const { return widget_->isVisibleTo(widget_->parentWidget()); }
    void setVisible(bool on) { widget_->setVisible(on); }
    bool enabled() const { return !widget_->testAttribute(Qt::WA_ForceDisabled); }
    void setEnabled(bool on) { widget_->setEnabled(on); }

    // Lets the form's handler of this control's name know of a click or of
    // a change of its value.
    void fireClick();
    void fireChange();

protected:
    Control(const Row& row, int index, Controls* owner);
    // Takes the widget the control shows itself with, made by the kind's
    // constructor.
    void attachView(QWidget* widget);
    // What every kind does once it is whole: the row's font, its colours
    // when `colours`, its place, Visible and Enabled.
    void finish(bool colours);
    virtual void applyGeometry();
    QFont currentFont() const { return makeFont(row_.font, points_, row_.bold); }

    Row row_;
    Rgb fore_;
    Rgb back_;
    double points_;

private:
    friend class Controls;
    QPointer<QWidget> widget_;
    std::string name_;
    int index_;
    Controls* owner_;
    double left_, top_, width_, height_;
};

}  // namespace fendle::kit
