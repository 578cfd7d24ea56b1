// Whether every text of a loaded screen can be read whole: measured here
// from the font each control really draws with, not from the screen's own
// layout code. A text is its ink, line by line as a word-wrapped label lays
// it out.
//   - no text is cut at its box's edge;
//   - no text overlaps another text, a picture, a button or a box that
//     stands in front (a text wholly inside a picture behind it is a
//     caption on that picture, like the rewards on the board's balls);
//   - nothing stands outside the window.
// Texts drawn smaller than their font are listed, so that a run can say
// which ones had to shrink.
#pragma once

#include <QFontMetricsF>
#include <QStyleOptionButton>
#include <QTextLayout>

#include <functional>
#include <optional>
#include <vector>

#include "screens/form.h"

namespace fendle::testing {

struct FitReport {
    QStringList faults;
    QStringList shrunk;   // "Label3(2) 16 -> 13 px"
};

inline QString controlName(const kit::Control* c) {
    QString n = QString::fromStdString(c->name());
    if (c->index() >= 0) n += QStringLiteral("(%1)").arg(c->index());
    return n;
}

// The ink of a label's or a label-button's text, in the label's own pixels,
// and the pixel size it is drawn at.
inline QRectF labelInk(const kit::Control* c, int pixelSize) {
    QWidget* w = c->widget();
    const QString text = c->caption();
    if (text.isEmpty()) return {};
    QFont font = kit::makeFont(c->row().font, c->fontSize(), c->row().bold);
    font.setPixelSize(pixelSize);
    const int b = c->row().border ? kit::LabelFace::borderWidth : 0;
    const QRectF inner = QRectF(w->rect()).adjusted(b, b, -b, -b);
    QString shown = text;
    shown.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\n'), QChar::LineSeparator);
    QTextOption option(c->row().align == kit::Align::Centre ? Qt::AlignHCenter
                       : c->row().align == kit::Align::Right ? Qt::AlignRight
                                                            : Qt::AlignLeft);
    option.setWrapMode(c->row().wordWrap ? QTextOption::WordWrap : QTextOption::NoWrap);
    QTextLayout layout(shown, font);
    layout.setTextOption(option);
    layout.beginLayout();
    const QFontMetricsF metrics(font);
    QRectF ink;
    qreal y = 0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(inner.width());
        line.setPosition(QPointF(0, y));
        const QString part = shown.mid(line.textStart(), line.textLength()).trimmed();
        if (!part.isEmpty()) {
            const QRectF tight = metrics.tightBoundingRect(part);
            const QRectF natural = line.naturalTextRect();
            ink |= QRectF(inner.left() + natural.left() + tight.left(), inner.top() + y + line.ascent() + tight.top(),
                          tight.width(), tight.height());
        }
        y += line.height();
    }
    layout.endLayout();
    return ink;
}

inline constexpr qreal overhang = 1.25;   // pixels

inline bool isPicture(kit::Kind k) { return k == kit::Kind::Image || k == kit::Kind::PictureBox; }
inline bool isText(kit::Kind k) {
    return k == kit::Kind::Label || k == kit::Kind::Button || k == kit::Kind::CheckBox || k == kit::Kind::Option;
}

// `allowed(text, picture)`: a text that may stand over the edge of a picture
// in front of it, as a table of the screen puts it there.
using OverPicture = std::function<bool(const kit::Control& text, const kit::Control& picture)>;

inline FitReport checkFit(Form& form, const OverPicture& allowed = {}) {
    FitReport report;
    const QString screen = QString::fromStdString(form.name());
    const QRectF window(QPointF(0, 0), QSizeF(form.size()));
    struct Item {
        kit::Control* c;
        QRectF box;    // in the window
        QRectF ink;    // in the window; empty for a control without words
        int z;         // place in the stacking order of the window
    };
    std::vector<Item> items;
    int z = 0;
    for (QWidget* w : form.findChildren<QWidget*>()) {
        auto* c = dynamic_cast<kit::Control*>(w);
        ++z;
        if (!c || !w->isVisibleTo(&form)) continue;
        const QRectF box(w->mapTo(&form, QPoint(0, 0)), QSizeF(w->size()));
        QRectF ink;
        const QString name = controlName(c);
        if (c->kind() == kit::Kind::Label || c->kind() == kit::Kind::Button) {
            const int design = kit::fontPixels(c->fontSize());
            const int drawn = c->kind() == kit::Kind::Label ? static_cast<kit::Label*>(c)->drawnPixelSize()
                                                             : static_cast<kit::Button*>(c)->drawnPixelSize();
            ink = labelInk(c, drawn).translated(box.topLeft());
            if (!ink.isEmpty() && drawn < design)
                report.shrunk << QStringLiteral("%1 %2 \"%3\" %4 -> %5 px")
                                     .arg(screen, name, c->caption().left(40)).arg(design).arg(drawn);
            // Glyph outlines may stand out of their advance by a pixel, too
            // little to be cut off.
            if (!ink.isEmpty() && !box.adjusted(-overhang, -overhang, overhang, overhang).contains(ink))
                report.faults << QStringLiteral("%1 %2 \"%3\" is cut at its edge").arg(screen, name, c->caption().left(40));
        } else if (c->kind() == kit::Kind::CheckBox || c->kind() == kit::Kind::Option) {
            auto* b = static_cast<QAbstractButton*>(w);
            if (!b->text().isEmpty()) {
                QStyleOptionButton opt;
                opt.initFrom(b);
                opt.text = b->text();
                const QRect contents = b->style()->subElementRect(
                    c->kind() == kit::Kind::CheckBox ? QStyle::SE_CheckBoxContents : QStyle::SE_RadioButtonContents, &opt, b);
                const QFontMetricsF metrics(b->font());
                const qreal textWidth = metrics.horizontalAdvance(b->text());
                const qreal textHeight = metrics.tightBoundingRect(b->text()).height();
                ink = QRectF(contents.left(), (w->height() - textHeight) / 2, textWidth, textHeight).translated(box.topLeft());
                if (contents.left() + textWidth > w->width() + 0.5)
                    report.faults << QStringLiteral("%1 %2 \"%3\" is cut at its edge").arg(screen, name, b->text());
            }
        }
        // A box that shows must stand inside; a plain label only by its words.
        const bool shows = c->kind() != kit::Kind::Frame && c->kind() != kit::Kind::Line &&
                           (c->kind() != kit::Kind::Label || c->row().border || !c->row().transparent);
        if (shows && !window.contains(box.adjusted(0.5, 0.5, -0.5, -0.5)))
            report.faults << QStringLiteral("%1 %2 stands outside the window").arg(screen, name);
        if (!ink.isEmpty() && !window.contains(ink))
            report.faults << QStringLiteral("%1 %2's text runs outside the window").arg(screen, name);
        items.push_back({c, box, ink, z});
    }

    for (const Item& a : items) {
        if (a.ink.isEmpty()) continue;
        for (const Item& b : items) {
            if (&a == &b || b.c->kind() == kit::Kind::Frame || b.c->kind() == kit::Kind::Line) continue;
            if (b.c->widget()->isAncestorOf(a.c->widget()) || a.c->widget()->isAncestorOf(b.c->widget())) continue;
            // A box that shows (a picture, a button, a bordered or filled
            // label, a windowed control) counts whole; a plain text by its ink.
            const bool solidLabel = b.c->kind() == kit::Kind::Label && (b.c->row().border || !b.c->row().transparent);
            const QRectF other = isText(b.c->kind()) && b.c->kind() != kit::Kind::Button && !solidLabel ? b.ink : b.box;
            if (other.isEmpty() || !a.ink.intersects(other)) continue;
            // A caption on a picture that stands behind it.
            if (isPicture(b.c->kind()) && b.z < a.z && (b.box.contains(a.ink) || (allowed && allowed(*a.c, *b.c)))) continue;
            // A pair of texts is told once.
            if (other == b.ink && &b < &a) continue;
            report.faults << QStringLiteral("%1 %2 \"%3\" overlaps %4")
                                 .arg(screen, controlName(a.c), a.c->caption().left(40), controlName(b.c));
        }
    }
    return report;
}

}  // namespace fendle::testing
