#pragma once

class QPoint;

namespace tuner {

enum class Swipe { None, Left, Right, Up, Down };

// A drag of at least 101 px, by the angle of its direction; one that starts
// on the footer (y 311 and below) or nowhere (a negative point) is none.
Swipe swipeBetween(const QPoint &press, const QPoint &release);

} // namespace tuner
