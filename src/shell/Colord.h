#pragma once
// The display profile colord assigns to a monitor. colord (the system colour daemon the
// GNOME and KDE colour settings drive, on X11 and Wayland alike) names each display device
// by its output ("DP-1", "HDMI-1"), the name Qt gives the screen; the device's first
// profile is its default.

#include <QString>

namespace shell {

// The file of the default profile colord holds for the display output `outputName`; empty
// when colord does not run, knows no such output or holds no profile for it. Asks the
// system bus without starting colord, and waits half a second at most.
QString ColordDisplayProfileFile(const QString& outputName);

}  // namespace shell
