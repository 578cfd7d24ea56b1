// One scale for the whole program. Every window is laid out in twips for a
// page of 800 x 600 pixels; the scale says how many pixels of the screen one
// of those pixels takes. It is applied through Qt's device-independent
// pixels once the application object exists and before any window does, so
// that twips, fonts and pictures all grow together and text is drawn at the
// screen's resolution.
#pragma once

#include <QRect>
#include <QString>
#include <QSize>
#include <QStringView>

#include <optional>

namespace fendle {

// The board's page, 12000 x 9000 twips, in pixels at scale 1.
inline constexpr QSize boardPage{800, 600};
// Room left for the window manager's frame and title bar round the board.
inline constexpr QSize frameAllowance{16, 64};
// Scales an explicit choice may take. Qt 6.4 lays a window out below 1 but
// paints its widgets at 1 all the same, cut off at the smaller window's edge,
// so 1 is the least; and a scale is refused where the board would not fit
// the screen (largestFit).
inline constexpr double smallestScale = 1.0;
inline constexpr double largestScale = 8.0;

// The largest scale, in steps of an eighth, at which the board window with
// its frame fits a screen whose free area is `available` pixels; never below
// 1, so a small screen shows the board as it always was.
double chooseScale(QSize available);

// The largest scale, not rounded, at which the board window with its frame
// fits such a screen; never below 1, the smallest scale there is.
double largestFit(QSize available);

// "1.5" -> 1.5. Nothing for text that is not a number from smallestScale to
// largestScale.
std::optional<double> parseScale(QStringView text);

// The scale asked for: the command line's, else FENDLE_SCALE; none when the
// screen decides. A QT_SCALE_FACTOR the user set stands when no scale of
// ours was asked for.
struct ScaleChoice {
    std::optional<double> scale;
    bool asked = false;          // the scale is the command line's
    QString fromEnvironment;     // FENDLE_SCALE as it stood
    bool usersFactor = false;    // the user's QT_SCALE_FACTOR stands
};

// Before the QApplication is made: what was asked for. A FENDLE_SCALE that
// is no scale is reported on stderr and passed over.
ScaleChoice prepareScale(std::optional<double> asked);

// Once the QApplication exists, before any window: one pixel of the page
// becomes the chosen scale (else the choice for the primary screen) in
// pixels of the screen, whatever the desktop's own ratio. A FENDLE_SCALE too
// large for the screen is reported on stderr and passed over; a command
// line's scale too large for it is refused: the reason goes to stderr and
// the result is the program's exit status, 2; nothing when it goes on.
std::optional<int> applyScale(const ScaleChoice& choice);

// The primary screen's place and size in its own pixels, as applyScale
// read them; nothing when it set no scale.
std::optional<QRect> primaryScreenPixels();

}  // namespace fendle
