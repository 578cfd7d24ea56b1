// The controls the kit paints itself: labels, label-buttons, images,
// picture boxes, frames and lines. Each is a Control over a light widget
// that paints it.
#pragma once

#include <QPixmap>

#include <string>
#include <string_view>

#include "screens/kit/control.h"
#include "screens/kit/text.h"

class QAbstractButton;

namespace fendle::kit {

class Label final : public Control {
public:
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
    void paint(QPainter& p) const;

private:
    void syncFace();
    LabelFace face_;
};

// A label with a border and a click handler, on QAbstractButton so that it
// answers Space and Enter and is announced as a push button named by its
// caption. It takes the focus from the keyboard only (Tab), never from a
// click, and shows it with a dotted frame while the focus came by keyboard; a
// Space or Enter that finds the focus unshown only shows it.
class Button final : public Control {
public:
    Button(const Row& row, int index, Controls* owner, QWidget* parent);
    QString caption() const override;
    void setCaption(const QString& text) override;
    void setForeColor(Rgb colour) override;
    void setBackColor(Rgb colour) override;
    void setFontSize(double points) override;
    int drawnPixelSize() const;
    // A click, as the mouse or the keyboard gives it.
    void click();
    QAbstractButton* button() const;

private:
    class View;
    void syncFace();
    LabelFace face_;
    View* view_;
};

// A light picture control. Not stretched, it takes the picture's size, as
// the classic image control did; stretched, the picture fills its box. A
// file that cannot be read leaves it empty.
// A screen reader finds it as a graphic named by its accessibleName().
class Image final : public Control {
public:
    Image(const Row& row, int index, Controls* owner, QWidget* parent);
    void setPicture(std::string_view file);
    void clearPicture();
    const std::string& picture() const { return file_; }
    bool hasPicture() const { return !pixmap_.isNull(); }
    const QPixmap& pixmap() const { return pixmap_; }
    void paint(QPainter& p) const;

private:
    std::string file_;
    QPixmap pixmap_;
};

// A windowed box: back colour, optional border, a picture drawn at its top
// left at natural size, and rows of its own.
class PictureBox final : public Control {
public:
    PictureBox(const Row& row, int index, Controls* owner, QWidget* parent);
    void setPicture(std::string_view file);
    const std::string& picture() const { return file_; }
    bool hasPicture() const { return !pixmap_.isNull(); }
    const QPixmap& pixmap() const { return pixmap_; }
    void setBackColor(Rgb colour) override;
    void paint(QPainter& p) const;

private:
    std::string file_;
    QPixmap pixmap_;
};

// A container with rows of its own; a caption and an etched edge when it has
// a border.
class Frame final : public Control {
public:
    Frame(const Row& row, int index, Controls* owner, QWidget* parent);
    QString caption() const override { return caption_; }
    void setCaption(const QString& t) override;
    void setBackColor(Rgb colour) override;
    void paint(QPainter& p) const;

private:
    QString caption_;
};

// A straight line from (x1, y1) to (x2, y2), twips, in its fore colour.
// Clicks pass through it.
class Line final : public Control {
public:
    Line(const Row& row, int index, Controls* owner, QWidget* parent);
    void setEnds(double x1, double y1, double x2, double y2);
    void paint(QPainter& p) const;

protected:
    void applyGeometry() override;
};

}  // namespace fendle::kit
