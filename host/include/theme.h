#pragma once

#include <QFont>
#include <QString>

class QApplication;

namespace cm {

// The head unit's digit font (frequencies, preset labels): DejaVu Sans, from
// Debian's fonts-dejavu-core.
QString digitFontFamily();
QFont digitFont(int pointSize);

// The host's look: a dark palette, and flat image buttons drawn from their
// icon's images (pressed: the "selected" image; checked: the "on" image).
void applyTheme(QApplication &app);

} // namespace cm
