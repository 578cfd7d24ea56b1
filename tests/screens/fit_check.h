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
#include <QImage>
#include <QPainter>
#include <QAbstractButton>
#include <QStyleOptionButton>

#include <functional>
#include <optional>
#include <vector>

#include "screens/kit/form.h"
#include "screens/kit/painted.h"

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

// Where a picture of a label's words has ink: for a label on no background
// the pixels it painted at all, for one on its back colour those that stand
// out from it. A border's ring is not ink.
inline QRect inkIn(const QImage& img, bool transparent, QColor back, int ring) {
    int left = img.width(), top = img.height(), right = -1, bottom = -1;
    for (int y = ring; y < img.height() - ring; ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(img.constScanLine(y));
        for (int x = ring; x < img.width() - ring; ++x) {
            const QRgb px = line[x];
            const bool ink = transparent ? qAlpha(px) >= 96
                                         : std::abs(qRed(px) - back.red()) + std::abs(qGreen(px) - back.green()) +
                                                   std::abs(qBlue(px) - back.blue()) >= 160;
            if (!ink) continue;
            left = std::min(left, x), right = std::max(right, x);
            top = std::min(top, y), bottom = std::max(bottom, y);
        }
    }
    return right < 0 ? QRect() : QRect(QPoint(left, top), QPoint(right, bottom));
}

// A label's or a label-button's words: the ink it really paints, in its own
// pixels, and whether that is all of them. All of them is the same words
// painted at the same size on a sheet with room all round.
struct Words {
    QRect shown;
    bool whole = true;
};
inline Words wordsOf(const kit::Control* c, int pixelSize) {
    QWidget* w = c->widget();
    QString text = c->caption();
    if (text.isEmpty()) return {};
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    const bool clear = c->row().transparent;
    const QColor back = kit::toQColor(c->backColor());
    const int ring = c->row().border ? kit::LabelFace::borderWidth : 0;

    QImage painted(w->size(), QImage::Format_ARGB32_Premultiplied);
    painted.fill(clear ? QColor(Qt::transparent) : back);
    w->render(&painted, QPoint(), QRegion(), QWidget::RenderFlags());
    Words words{inkIn(painted, clear, back, ring)};

    QFont font = kit::makeFont(c->row().font, c->fontSize(), c->row().bold);
    font.setPixelSize(pixelSize);
    const int width = w->width() - 2 * ring;
    const int align = c->row().align == kit::Align::Centre  ? Qt::AlignHCenter
                      : c->row().align == kit::Align::Right ? Qt::AlignRight
                                                            : Qt::AlignLeft;
    const int flags = align | Qt::AlignTop | (c->row().wordWrap ? Qt::TextWordWrap : 0);
    const QRectF need = QFontMetricsF(font).boundingRect(QRectF(0, 0, width, 1e6), flags, text);
    constexpr int room = 24;
    QImage sheet(width + 2 * room, int(std::ceil(need.height())) + 2 * room, QImage::Format_ARGB32_Premultiplied);
    sheet.fill(clear ? QColor(Qt::transparent) : back);
    QPainter p(&sheet);
    p.setFont(font);
    p.setPen(w->isEnabled() ? kit::toQColor(c->foreColor()) : QColor(128, 128, 128));
    p.drawText(QRect(room, room, width, sheet.height() - room), flags, text);
    p.end();
    const QRect all = inkIn(sheet, clear, back, 0);
    words.whole = all.isEmpty() || (words.shown.width() >= all.width() && words.shown.height() >= all.height());
    return words;
}

inline QString rectText(const QRectF& r) {
    return QStringLiteral("%1,%2 %3x%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
}

inline bool isPicture(kit::Kind k) { return k == kit::Kind::Image || k == kit::Kind::PictureBox; }
inline bool isText(kit::Kind k) {
    return k == kit::Kind::Label || k == kit::Kind::Button || k == kit::Kind::CheckBox || k == kit::Kind::Option;
}

// `allowed(text, picture)`: a text that may stand over the edge of a picture
// in front of it, as a table of the screen puts it there.
using OverPicture = std::function<bool(const kit::Control& text, const kit::Control& picture)>;

// A panel larger than its window scrolls (the Cheat Chart's): what stands
// in it out of view is brought in by the scroll bar, not cut off.
inline bool inScrollingPanel(const QWidget* w, const Form& form) {
    for (const QWidget* p = w->parentWidget(); p && p != &form; p = p->parentWidget())
        if (p->width() > form.width() || p->height() > form.height()) return true;
    return false;
}

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
        auto* c = kit::Control::of(w);
        ++z;
        if (!c || !w->isVisibleTo(&form)) continue;
        const QRectF box(w->mapTo(&form, QPoint(0, 0)), QSizeF(w->size()));
        QRectF ink;
        const QString name = controlName(c);
        if (c->kind() == kit::Kind::Label || c->kind() == kit::Kind::Button) {
            const int design = kit::fontPixels(c->fontSize());
            const int drawn = c->kind() == kit::Kind::Label ? static_cast<kit::Label*>(c)->drawnPixelSize()
                                                             : static_cast<kit::Button*>(c)->drawnPixelSize();
            const Words words = wordsOf(c, drawn);
            ink = QRectF(words.shown).translated(box.topLeft());
            if (!ink.isEmpty() && drawn < design)
                report.shrunk << QStringLiteral("%1 %2 \"%3\" %4 -> %5 px")
                                     .arg(screen, name, c->caption().left(40)).arg(design).arg(drawn);
            if (!words.whole)
                report.faults << QStringLiteral("%1 %2 \"%3\" is cut at its edge (box %4, ink %5)")
                                     .arg(screen, name, c->caption().left(40), rectText(box), rectText(ink));
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
        const bool scrolls = inScrollingPanel(w, form);
        if (shows && !scrolls && !window.contains(box.adjusted(0.5, 0.5, -0.5, -0.5)))
            report.faults << QStringLiteral("%1 %2 stands outside the window").arg(screen, name);
        if (!ink.isEmpty() && !scrolls && !window.contains(ink))
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
