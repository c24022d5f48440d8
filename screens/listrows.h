#pragma once

#include <QRect>
#include <QString>

class QModelIndex;
class QPainter;
class QStyleOptionViewItem;

namespace tuner {

// Item-model roles shared by the list screens.
enum ListRole {
    RoleCurrentValue = 4,         // the value text on the right of a row
    RoleItemId = 257,             // option item or PTY code
    RoleSetHighlighted = 258,     // PTY list: mark the received type
    RoleSetSelected = 259,        // PTY list: mark the tapped type
    RoleCheckPixmap = 357,        // path of a check mark image
};

// Painting shared by the list rows of the option and PTY screens.
namespace listrows {

// Colour state of a row's texts: 2 disabled (neither selectable nor
// editable), 1 selected, 3 checked, 0 normal.
int textState(const QStyleOptionViewItem &option, Qt::ItemFlags flags, bool checked);
// Draws text in the row's colour group at 30 pixels, vertically centred.
void drawText(QPainter *painter, const QRect &rect, const QString &text, const QString &group, int state,
              Qt::Alignment horizontal);
// Draws an image stretched over the rectangle.
void drawImage(QPainter *painter, const QRect &rect, const char *path);

} // namespace listrows
} // namespace tuner
