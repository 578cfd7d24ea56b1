// One scale for the whole program. Every window is laid out in twips for a
// page of 800 x 600 pixels; the scale says how many pixels of the screen one
// of those pixels takes. It is applied through Qt's device-independent
// pixels before the application object exists, so that twips, fonts and
// pictures all grow together and text is drawn at the screen's resolution.
#pragma once

#include <QRect>
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

// Decides the scale before the QApplication is made: `asked` (the command
// line's), else FENDLE_SCALE, else a QT_SCALE_FACTOR the user set, else the
// choice for the primary screen. Sets QT_SCALE_FACTOR so that one pixel of
// the page is `scale` pixels of the screen, whatever the desktop's own ratio.
// A FENDLE_SCALE that is no scale, or too large for the screen, is reported
// on stderr and passed over. A command line's scale too large for the screen
// is refused: the reason goes to stderr and the result is the program's exit
// status, 2; nothing when the program goes on.
std::optional<int> prepareScale(std::optional<double> asked, int argc, char** argv);

// The primary screen's place and size in its own pixels, as prepareScale
// read them; nothing when it set no scale.
std::optional<QRect> primaryScreenPixels();

}  // namespace fendle
