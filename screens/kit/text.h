// Text as the screens show it: laid out in lines, fitted to its box, and
// painted with or without an outline. measureText() is the one model of how
// a label sets its lines; the painter fits its words with it and the rule
// pages flow their texts with it.
#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>

#include <vector>

#include "screens/kit/row.h"

class QPainter;

namespace fendle::kit {

// One line of a laid-out text, in pixels from the top of the first line.
struct TextLine {
    qreal top = 0, ascent = 0, height = 0;
    qreal width = 0;          // the natural width of its words
    int start = 0, length = 0;   // its characters in the shown text
};

struct TextBlock {
    QString shown;   // the text as laid out, its line ends as line separators
    std::vector<TextLine> lines;
    qreal height() const { return lines.empty() ? 0 : lines.back().top + lines.back().height; }
    qreal widest() const;
    QString words(const TextLine& line) const { return shown.mid(line.start, line.length); }
};

// The lines of `text` in `font`, wrapped at words in `width` pixels (or not
// wrapped), each line set a whole pixel down from the one above by its
// height and the font's leading, as QPainter::drawText sets them.
TextBlock measureText(const QString& text, const QFont& font, qreal width, Align align = Align::Left, bool wrap = true);

Qt::Alignment horizontal(Align a);

// WCAG's contrast ratio of two colours, from 1 to 21.
double contrast(const QColor& a, const QColor& b);

// The classic sunken edge, two pixels wide, round `r`.
void paintSunkenEdge(QPainter& p, QRect r);

// The grey of a text whose control is disabled.
inline const QColor dimText{128, 128, 128};

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
    void style(const Row& row, const QFont& designFont, QColor foreColour, QColor backColour);
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

}  // namespace fendle::kit
