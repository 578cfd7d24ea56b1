#include "screens/kit/text.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace fendle::kit {

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

qreal TextBlock::widest() const {
    qreal w = 0;
    for (const TextLine& l : lines) w = std::max(w, l.width);
    return w;
}

TextBlock measureText(const QString& text, const QFont& font, qreal width, Align align, bool wrap) {
    TextBlock block;
    block.shown = text;
    block.shown.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\n'), QChar::LineSeparator);
    if (block.shown.isEmpty()) return block;
    QTextOption option(horizontal(align));
    option.setWrapMode(wrap ? QTextOption::WordWrap : QTextOption::NoWrap);
    QTextLayout layout(block.shown, font);
    layout.setTextOption(option);
    layout.beginLayout();
    const qreal leading = QFontMetricsF(font).leading();
    qreal y = 0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        if (!block.lines.empty()) y = std::ceil(y + block.lines.back().height + leading);
        line.setLineWidth(width);
        line.setPosition(QPointF(0, y));
        block.lines.push_back({y, line.ascent(), line.height(), line.naturalTextWidth(), line.textStart(), line.textLength()});
    }
    layout.endLayout();
    return block;
}

namespace {

// WCAG's relative luminance.
double luminance(const QColor& c) {
    auto linear = [](int v) {
        const double s = v / 255.0;
        return s <= 0.04045 ? s / 12.92 : std::pow((s + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(c.red()) + 0.7152 * linear(c.green()) + 0.0722 * linear(c.blue());
}

constexpr int smallestPixelSize = 4;

// Where the text may go: inside the border, and room for the outline.
QRect innerRect(QRect box, bool border, bool outline = false) {
    const int b = (border ? LabelFace::borderWidth : 0) + (outline ? LabelFace::outlineWidth : 0);
    return box.adjusted(b, b, -b, -b);
}

}  // namespace

double contrast(const QColor& a, const QColor& b) {
    const double la = luminance(a), lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

void paintSunkenEdge(QPainter& p, QRect r) {
    const QColor shadow(128, 128, 128), darkShadow(64, 64, 64), light(192, 192, 192), hilight(255, 255, 255);
    // Each side a row or a column of whole pixels of the page, filled rather
    // than stroked: at a scale that is no whole number a stroke is a pixel of
    // the screen wide and leaves the rest of the box's last column unpainted.
    auto edge = [&p](QRect q, QColor topLeft, QColor bottomRight) {
        p.fillRect(QRect(q.left(), q.top(), q.width(), 1), topLeft);
        p.fillRect(QRect(q.left(), q.top(), 1, q.height()), topLeft);
        p.fillRect(QRect(q.left(), q.bottom(), q.width(), 1), bottomRight);
        p.fillRect(QRect(q.right(), q.top(), 1, q.height()), bottomRight);
    };
    edge(r, shadow, hilight);
    edge(r.adjusted(1, 1, -1, -1), darkShadow, light);
}

void LabelFace::style(const Row& row, const QFont& designFont, QColor foreColour, QColor backColour) {
    font = designFont;
    fore = foreColour;
    back = backColour;
    transparent = row.transparent;
    outline = row.outline;
    border = row.border;
    wrap = row.wordWrap;
    align = row.align;
    invalidate();
}

const QFont& LabelFace::fitted(QSize box) const {
    if (cachedFor_ == box) return fitted_;
    int down = 0;   // pixels the words stand below the top of the box

    // True when every line fits the width and the ink of the last line ends
    // inside the height.
    auto fitsIn = [&](const QFont& f, QRect inner) {
        if (text.isEmpty()) return true;
        const TextBlock block = measureText(text, f, inner.width(), align, wrap);
        for (const TextLine& l : block.lines)
            if (l.width > inner.width() + 0.01) return false;
        if (block.lines.empty()) return true;
        const QFontMetricsF metrics(f);
        // A capital with an accent may rise above the font's ascent: the
        // words then stand lower, so that it is not cut at the top.
        const TextLine& first = block.lines.front();
        const qreal rise = -(first.ascent + metrics.tightBoundingRect(block.words(first)).top());
        down = rise > 0.01 ? int(std::ceil(rise)) : 0;
        const TextLine& last = block.lines.back();
        const qreal inkBelow = std::max<qreal>(0, metrics.tightBoundingRect(block.words(last)).bottom());
        return down + last.top + last.ascent + inkBelow <= inner.height() + 0.01;
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

}  // namespace fendle::kit
