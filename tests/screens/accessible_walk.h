// What a screen reader finds in a window, and what the window shows: a walk
// down the accessibility interfaces from a window, and the captions of its
// visible controls with the role a reader should announce each with. A test
// of a screen checks that every shown text is heard:
//
//     const auto heard = testing::hear(form);
//     for (const testing::Heard& t : testing::shownTexts(form))
//         QVERIFY2(testing::contains(heard, t), qPrintable(t.name));
#pragma once

#include <QAccessible>
#include <QWidget>

#include <vector>

#include "screens/kit/painted.h"

namespace fendle::testing {

struct Heard {
    QAccessible::Role role;
    QString name;   // for an editable text, its value
};

inline QString describe(const Heard& h) { return QStringLiteral("%1 (role 0x%2)").arg(h.name).arg(int(h.role), 0, 16); }

// The window and every node below it that is not invisible, depth first.
inline std::vector<Heard> hear(QWidget* window) {
    std::vector<Heard> out;
    auto walk = [&out](auto&& self, QAccessibleInterface* node, int depth) -> void {
        if (!node || !node->isValid() || node->state().invisible || depth > 32) return;
        const QAccessible::Role role = node->role();
        out.push_back({role, role == QAccessible::EditableText ? node->text(QAccessible::Value)
                                                               : node->text(QAccessible::Name)});
        for (int i = 0; i < node->childCount(); ++i) self(self, node->child(i), depth + 1);
    };
    walk(walk, QAccessible::queryAccessibleInterface(window), 0);
    return out;
}

// The role a reader should give a control of the kit.
inline QAccessible::Role expectedRole(kit::Kind kind) {
    switch (kind) {
    case kit::Kind::Button:
    case kit::Kind::PushButton: return QAccessible::Button;
    case kit::Kind::CheckBox: return QAccessible::CheckBox;
    case kit::Kind::Option: return QAccessible::RadioButton;
    case kit::Kind::TextBox: return QAccessible::EditableText;
    case kit::Kind::Frame: return QAccessible::Grouping;
    case kit::Kind::Image:
    case kit::Kind::PictureBox: return QAccessible::Graphic;
    default: return QAccessible::StaticText;
    }
}

// Each visible control of the window that shows a text, as a reader should
// hear it: a blank-free caption, with the role of its kind.
inline std::vector<Heard> shownTexts(QWidget* window) {
    std::vector<Heard> out;
    for (QWidget* w : window->findChildren<QWidget*>()) {
        const auto* c = kit::Control::of(w);
        if (!c || !w->isVisible() || c->caption().trimmed().isEmpty()) continue;
        out.push_back({expectedRole(c->kind()), c->caption()});
    }
    return out;
}

inline bool contains(const std::vector<Heard>& heard, const Heard& want) {
    for (const Heard& h : heard)
        if (h.role == want.role && h.name == want.name) return true;
    return false;
}

}  // namespace fendle::testing
