#pragma once

#include <QFont>
#include <QString>

class QApplication;
class QWidget;

namespace cm {

// The head unit's digit font (frequencies, preset labels): DejaVu Sans
// Condensed, from Debian's fonts-dejavu-extra.
QString digitFontFamily();
// The digit font at a form's point size, as the panel shows it (see below).
QFont digitFont(int pointSize);

// The head unit's panel shows a point as a pixel. Forms give their sizes in
// points for that panel; this turns them into pixel sizes for the widget and
// its children, so they look the same on any desktop.
void usePanelFontSizes(QWidget *root);

// The host's look: a dark palette, and flat image buttons drawn from their
// icon's images (pressed: the "selected" image; checked: the "on" image).
void applyTheme(QApplication &app);

} // namespace cm
