// What a screen reader finds of the kit's controls and forms. Buttons, check
// boxes, options, text boxes and scroll bars are Qt's own widgets and are
// found as Qt describes them; of the controls the kit paints, a label is
// static text named by its caption, an image a graphic named by its
// accessible name, a frame a group named by its caption. A form is a window
// named by its window name.
#pragma once

#include <QString>
#include <QWidget>

namespace fendle::kit {

// Puts the kit's descriptions in place; once is enough, more is harmless.
void installAccessibleControls();
// Tells a screen reader that a control's caption changed.
void announceName(QWidget* w);

// Says a sentence through a screen reader, whatever has the focus: a
// notification that shows, named by the sentence, which a reader speaks as
// it appears. It paints nothing and takes no click.
class Announcer final : public QWidget {
    Q_OBJECT
public:
    explicit Announcer(QWidget* parent);
    void say(const QString& sentence);
    // The last sentence said; empty before the first.
    QString said() const { return accessibleName(); }
};

}  // namespace fendle::kit
