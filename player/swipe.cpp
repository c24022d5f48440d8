#include "swipe.h"

#include <QPoint>
#include <QtMath>

namespace tuner {

namespace {

constexpr int kSwipeDistance = 101;
constexpr int kSwipeAreaBottom = 311;
// Deliberately short: an exact diagonal then lies just past 45 degrees and
// falls to the vertical swipe, as it always has on the head unit.
constexpr double kPi = 3.1415926;

} // namespace

Swipe swipeBetween(const QPoint &press, const QPoint &release)
{
    if (press.x() < 0 || press.y() < 0 || press.y() >= kSwipeAreaBottom)
        return Swipe::None;
    const int dx = release.x() - press.x();
    const int dy = release.y() - press.y();
    const double angle = qAtan2(dy, dx) * 180 / kPi;
    if (angle >= -45 && angle <= 45)
        return qAbs(dx) >= kSwipeDistance ? Swipe::Right : Swipe::None;
    if (angle >= -135 && angle <= -45)
        return qAbs(dy) >= kSwipeDistance ? Swipe::Up : Swipe::None;
    if (angle >= 45 && angle <= 135)
        return qAbs(dy) >= kSwipeDistance ? Swipe::Down : Swipe::None;
    return qAbs(dx) >= kSwipeDistance ? Swipe::Left : Swipe::None;
}

} // namespace tuner
