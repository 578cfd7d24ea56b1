#include "screens/kit/accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QPointer>
#include <QTimer>

#include "screens/kit/control.h"
#include "screens/kit/form.h"

namespace fendle::kit {

namespace {

// A label, an image or a frame, named as the kit's description says.
class ControlAccessible : public QAccessibleWidget {
public:
    ControlAccessible(QWidget* w, QAccessible::Role role) : QAccessibleWidget(w, role) {}
    QString text(QAccessible::Text t) const override {
        if (t == QAccessible::Name && role() != QAccessible::Graphic) {
            if (!widget()->accessibleName().isEmpty()) return widget()->accessibleName();
            if (const Control* c = Control::of(widget())) return c->caption();
        }
        return QAccessibleWidget::text(t);
    }
};

// A screen, found as a window named by its window name.
class FormAccessible : public QAccessibleWidget {
public:
    explicit FormAccessible(Form* f) : QAccessibleWidget(f, QAccessible::Window) {}
    QString text(QAccessible::Text t) const override {
        if (t == QAccessible::Name) {
            const QString name = static_cast<const Form*>(widget())->windowName();
            if (!name.isEmpty()) return name;
        }
        return QAccessibleWidget::text(t);
    }
};

// A sentence to be said, found as a notification named by it.
class AnnouncerAccessible : public QAccessibleWidget {
public:
    explicit AnnouncerAccessible(QWidget* w) : QAccessibleWidget(w, QAccessible::Notification) {}
    QString text(QAccessible::Text t) const override {
        return t == QAccessible::Name ? widget()->accessibleName() : QAccessibleWidget::text(t);
    }
};

QAccessibleInterface* kitAccessible(const QString& className, QObject* object) {
    if (auto* f = qobject_cast<Form*>(object)) return new FormAccessible(f);
    if (auto* a = qobject_cast<Announcer*>(object)) return new AnnouncerAccessible(a);
    if (className != QLatin1String("fendle::kit::PaintedWidget")) return nullptr;
    const Control* c = Control::of(object);
    auto* w = qobject_cast<QWidget*>(object);
    if (!c || !w) return nullptr;
    switch (c->kind()) {
    case Kind::Label: return new ControlAccessible(w, QAccessible::StaticText);
    case Kind::Image: return new ControlAccessible(w, QAccessible::Graphic);
    case Kind::Frame: return new ControlAccessible(w, QAccessible::Grouping);
    default: return nullptr;
    }
}

}  // namespace

// A screen reader hears of a window when it becomes the active one. The
// program's link to the reader comes up a moment after start, often after
// the first window is already active: that window is then said again to be
// active once the link is up, so that a reader names it and what has the
// focus, as it would on any later window.
class ActiveWindowRetold final : public QAccessible::ActivationObserver {
public:
    void accessibilityActiveChanged(bool active) override {
        if (!active) return;
        QTimer::singleShot(0, [] {
            QWidget* window = QApplication::activeWindow();
            if (!window || !QAccessible::isActive()) return;
            QAccessible::State state;
            state.active = true;
            QAccessibleStateChangeEvent e(window, state);
            QAccessible::updateAccessibility(&e);
            if (QWidget* focus = QApplication::focusWidget(); focus && focus->window() == window) {
                QAccessibleEvent f(focus, QAccessible::Focus);
                QAccessible::updateAccessibility(&f);
            }
        });
    }
};

void installAccessibleControls() {
    static const bool installed = [] {
        QAccessible::installFactory(kitAccessible);
        static ActiveWindowRetold retold;
        QAccessible::installActivationObserver(&retold);
        return true;
    }();
    (void)installed;
}

void announceName(QWidget* w) {
    if (!QAccessible::isActive()) return;
    QAccessibleEvent e(w, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&e);
}

Announcer::Announcer(QWidget* parent) : QWidget(parent) {
    installAccessibleControls();
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setGeometry(0, 0, 1, 1);
    hide();
}

void Announcer::say(const QString& sentence) {
    if (sentence.isEmpty()) return;
    // A reader speaks a notification when it comes to show; one that shows
    // already is hidden first, so that each sentence shows anew.
    hide();
    setAccessibleName(sentence);
    show();
}

}  // namespace fendle::kit
